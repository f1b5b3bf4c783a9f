// One call of an overlay: two polygons of coordinates and the four lists that take the parts.
#pragma once

#include <optional>

#include "polygons/polygon_writing.h"
#include "tessara/array.h"
#include "tessara/ref.h"

namespace tessara {

// Holds its arguments. The results are those of coordinate_area.h.
class OverlayCall {
  public:
    OverlayCall(IArray* first, IArray* second, IArray* neither, IArray* onlySecond, IArray* onlyFirst,
                IArray* both);

    // Whether all six are there.
    [[nodiscard]] bool IsComplete() const;
    // Whether a polygon has no vertices.
    [[nodiscard]] bool HasEmptyPolygon() const;
    // The first coordinate there is; false unless all of both polygons have its reference.
    bool ReadStart(std::optional<CKoord>* start) const;

    // Lays the polygons over each other as they lie on a map. What can't be read leaves the lists as they
    // were.
    [[nodiscard]] std::int32_t RunOnMap(const MapPlane& map, double tolerance, const RingForm& form) const;
    // Takes them as valid pixels, of which an empty polygon has none to read. Every failure empties the
    // lists.
    [[nodiscard]] std::int32_t RunOnPixels(double tolerance, const RingForm& form) const;
    // Empties the lists.
    [[nodiscard]] std::int32_t Fail() const;

  private:
    void ClearLists() const;
    [[nodiscard]] std::int32_t FillLists(const Ring& first, const Ring& second, double tolerance,
                                         const RingForm& form) const;

    IRef<IArray> first_, second_;
    IRef<IArray> neither_, onlySecond_, onlyFirst_, both_;
};

}  // namespace tessara
