#include "geometry/line_intersection_parameters.h"

#include "geometry/creation.h"

namespace tessara {
namespace {

bool Set(ICoord* coord, IRef<ICoord>* place) {
    *place = IRef<ICoord>(coord);
    return place->IsValid();
}

}  // namespace

bool LineIntersectionParameters::SetIntersection(ICoord* coord) {
    return Set(coord, &intersection_);
}

bool LineIntersectionParameters::SetLineStart(ICoord* coord) {
    return Set(coord, &lineStart_);
}

bool LineIntersectionParameters::SetLineEnd(ICoord* coord) {
    return Set(coord, &lineEnd_);
}

bool LineIntersectionParameters::SetSegmentIndex(std::uint32_t index) {
    segmentIndex_ = index;
    return index != 0 && index != NO_SEGMENT;
}

bool LineIntersectionParameters::SetParameter(double parameter) {
    parameter_ = parameter;
    return true;
}

ILineIntersectionParameters* NewLineIntersectionParameters() {
    return NewObject<LineIntersectionParameters>();
}

}  // namespace tessara
