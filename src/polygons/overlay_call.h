// One call of an overlay: two polygons of coordinates and the four lists that take the parts.
#pragma once

#include <optional>

#include "polygons/polygon_writing.h"
#include "tessara/array.h"
#include "tessara/ref.h"

namespace tessara {

// Holds its six arguments for the length of the call. The results are the codes OVERLAY_... of
// coordinate_area.h.
class OverlayCall {
  public:
    OverlayCall(IArray* first, IArray* second, IArray* neither, IArray* onlySecond, IArray* onlyFirst,
                IArray* both);

    // Whether all six arguments are there.
    [[nodiscard]] bool IsComplete() const;
    // Whether one of the polygons has no vertices.
    [[nodiscard]] bool HasEmptyPolygon() const;
    // The first coordinate of the two polygons. False unless all their coordinates share its reference.
    bool ReadStart(std::optional<CKoord>* start) const;

    // Overlays the polygons in the plane of a map. A polygon that can't be read leaves the lists as they
    // were.
    [[nodiscard]] std::int32_t RunOnMap(const MapPlane& map, double tolerance, const RingForm& form) const;
    // Overlays two polygons of valid pixels. Every failure empties the lists.
    [[nodiscard]] std::int32_t RunOnPixels(double tolerance, const RingForm& form) const;
    // Empties the lists and returns the failure code.
    [[nodiscard]] std::int32_t Fail() const;

  private:
    void ClearLists() const;
    [[nodiscard]] std::int32_t FillLists(const Ring& first, const Ring& second, double tolerance,
                                         const RingForm& form) const;

    IRef<IArray> first_, second_;
    IRef<IArray> neither_, onlySecond_, onlyFirst_, both_;
};

}  // namespace tessara
