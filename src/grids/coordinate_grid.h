#pragma once

#include <cstdint>
#include <optional>

#include "grids/grid_lines.h"
#include "tessara/coordinate_grid.h"
#include "tessara/map_coord_operations.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class CoordinateGrid : public ICoordinateGrid {
  public:
    using Faces = FaceList<ICoordinateGrid>;

    CoordinateGrid() = default;
    CoordinateGrid(const IRef<IMapCoordOperations>& map, std::int32_t datum, std::int32_t system,
                   double eastStep, double northStep)
        : map_(map), datum_(datum), system_(system), eastStep_(eastStep), northStep_(northStep) {}

    bool SetWindowFromPoints(IFloatPoint* a, IFloatPoint* b, IFloatPoint* c, IFloatPoint* d) override;
    bool SetWindow(ICoord* a, ICoord* b, ICoord* c, ICoord* d) override;
    bool GetEastLines(IArray* lines) override;
    bool GetNorthLines(IArray* lines) override;
    bool GetEastLinePixels(IArray* lines) override;
    bool GetNorthLinePixels(IArray* lines) override;
    double GetEastStep() override { return eastStep_; }
    double GetNorthStep() override { return northStep_; }
    bool CopyMapTo(IMapCoordOperations* target) override;
    bool GetReference(ICoordinateReference* target) override;

  protected:
    ~CoordinateGrid() = default;

  private:
    bool Draw(Axis axis, const GridLineSink& sink) const;
    bool WriteLines(Axis axis, IArray* lines) const;
    bool WriteLinePixels(Axis axis, IArray* lines) const;

    IRef<IMapCoordOperations> map_;
    std::int32_t datum_ = 0;
    std::int32_t system_ = 0;
    double eastStep_ = 0.0;
    double northStep_ = 0.0;
    std::optional<GridWindow> window_;
    IRef<IMapCoordOperations> windowMap_;  // the map on which the lines of the window are drawn
};

}  // namespace tessara
