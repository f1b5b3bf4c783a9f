#include "polygons/overlay_call.h"

#include "geometry/line_reading.h"
#include "polygons/polygon_overlay.h"
#include "polygons/polygon_reading.h"
#include "tessara/coordinate_area.h"

namespace tessara {

OverlayCall::OverlayCall(IArray* first, IArray* second, IArray* neither, IArray* onlySecond,
                         IArray* onlyFirst, IArray* both)
    : first_(first),
      second_(second),
      neither_(neither),
      onlySecond_(onlySecond),
      onlyFirst_(onlyFirst),
      both_(both) {}

bool OverlayCall::IsComplete() const {
    return first_.IsValid() && second_.IsValid() && neither_.IsValid() && onlySecond_.IsValid() &&
           onlyFirst_.IsValid() && both_.IsValid();
}

bool OverlayCall::HasEmptyPolygon() const {
    return first_->GetCount() == 0 || second_->GetCount() == 0;
}

bool OverlayCall::ReadStart(std::optional<CKoord>* start) const {
    start->reset();
    for (const IRef<IArray>* polygon : {&first_, &second_}) {
        std::vector<CKoord> records;
        if (!ReadRecords(polygon->Get(), &records)) return false;
        if (records.empty()) continue;
        if (!*start) *start = records.front();
        if (ReferenceOf(**start) != ReferenceOf(records.front())) return false;
    }
    return true;
}

std::int32_t OverlayCall::RunOnMap(const MapPlane& map, double tolerance, const RingForm& form) const {
    Ring first;
    Ring second;
    const bool isRead =
        ReadLineOnMap(map, first_.Get(), &first) && ReadLineOnMap(map, second_.Get(), &second);
    return isRead ? FillLists(first, second, tolerance, form) : OVERLAY_FAILURE;
}

std::int32_t OverlayCall::RunOnPixels(double tolerance, const RingForm& form) const {
    Ring first;
    Ring second;
    const bool isRead =
        HasEmptyPolygon() || (ReadPixelLine(first_.Get(), &first) && ReadPixelLine(second_.Get(), &second));
    return isRead ? FillLists(first, second, tolerance, form) : Fail();
}

std::int32_t OverlayCall::Fail() const {
    ClearLists();
    return OVERLAY_FAILURE;
}

void OverlayCall::ClearLists() const {
    for (const IRef<IArray>* list : {&neither_, &onlySecond_, &onlyFirst_, &both_})
        (*list)->Clear();
}

std::int32_t OverlayCall::FillLists(const Ring& first, const Ring& second, double tolerance,
                                    const RingForm& form) const {
    OverlayParts parts;
    const std::int32_t result = OverlayVertices(first, second, tolerance, &parts);
    ClearLists();
    const bool isWritten = AppendRings(parts.neither, form, neither_.Get()) &&
                           AppendRings(parts.onlySecond, form, onlySecond_.Get()) &&
                           AppendRings(parts.onlyFirst, form, onlyFirst_.Get()) &&
                           AppendRings(parts.both, form, both_.Get());
    return isWritten ? result : Fail();
}

}  // namespace tessara
