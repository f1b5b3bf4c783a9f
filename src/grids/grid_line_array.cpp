#include "grids/grid_line_array.h"

#include <exception>
#include <new>

namespace tessara {

// Turns the polyline into objects the first time a point is asked for; the same objects are returned from
// then on. False without memory; the polyline is then kept.
bool GridLineArray::Unpack() {
    if (points_.IsValid()) return true;
    try {
        const IRef<IArray> points(CreateClassArray());
        const bool isComplete = points.IsValid() && polyline_.ForEach([&](const tagKOORD& record) {
            const IRef<IUnknown> point = maker_(record);
            if (point.IsValid()) points->Add(point.Get());
            return point.IsValid();
        });
        if (!isComplete) return false;
        points_ = points;
    } catch (const std::exception&) {
        return false;
    }
    polyline_ = PackedPolyline();
    return true;
}

void GridLineArray::Add(IUnknown* object) {
    const IRef<IUnknown> held(object);
    if (!Unpack()) throw std::bad_alloc();
    points_->Add(held.Get());
}

void GridLineArray::RemoveAt(std::uint32_t index) {
    if (index < GetCount() && Unpack()) points_->RemoveAt(index);
}

std::uint32_t GridLineArray::GetCount() {
    return points_.IsValid() ? points_->GetCount() : static_cast<std::uint32_t>(polyline_.Size());
}

IUnknown* GridLineArray::GetAt(std::uint32_t index) {
    return index < GetCount() && Unpack() ? points_->GetAt(index) : nullptr;
}

void GridLineArray::Clear() {
    polyline_ = PackedPolyline();
    if (points_.IsValid()) points_->Clear();
}

}  // namespace tessara
