#pragma once

#include <string>

#include "records/axis.h"
#include "tessara/coord.h"
#include "tessara/coordinate_reference.h"
#include "tessara/coordinate_string.h"
#include "tessara/kernel/constants.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class CoordinateString : public ICoordinateString {
  public:
    using Faces = FaceList<ICoordinateString>;

    // Throws std::bad_alloc if there is no memory for its two parts.
    CoordinateString();

    bool SetCoord(ICoord* coord) override;
    bool GetCoord(ICoord* coord) override;
    bool ParseCoord(ICoordinateReference* reference, ITessaraString* north, ITessaraString* east) override;
    bool SetNorthPrecision(double resolution) override;
    bool SetEastPrecision(double resolution) override;
    bool SetDefaultNorthPrecision() override;
    bool SetDefaultEastPrecision() override;
    bool GetNorthText(ITessaraString* text) override;
    bool GetEastText(ITessaraString* text) override;
    bool GetCartesianTexts(ITessaraString* x, ITessaraString* y, ITessaraString* z) override;
    bool GetGeographicTexts(ITessaraString* latitude, ITessaraString* longitude,
                            ITessaraString* height) override;
    bool GetNorthDisplayText(ITessaraString* text) override;
    bool GetEastDisplayText(ITessaraString* text) override;

  protected:
    ~CoordinateString() = default;

  private:
    [[nodiscard]] std::int32_t System() const { return reference_->GetSystem(); }
    [[nodiscard]] std::int16_t& PrecisionOf(Axis axis);
    bool SetPrecision(Axis axis, double resolution);
    bool SetDefaultPrecision(Axis axis);
    void UnsetPrecisionsIfOther(std::int32_t system);
    void UnsetPrecisionsForForeign(ICoord* coord);
    bool ConvertHeld(std::int32_t system, CKoord* koord);

    bool MakePlainText(Axis axis, std::string* text);
    bool GetText(Axis axis, ITessaraString* text);
    bool GetDisplayText(Axis axis, ITessaraString* text);

    std::int16_t northPrecision_ = PRECISION_UNSET;
    std::int16_t eastPrecision_ = PRECISION_UNSET;
    IRef<ICoord> coord_;
    IRef<ICoordinateReference> reference_;
};

}  // namespace tessara
