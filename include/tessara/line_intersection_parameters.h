// One intersection of two polylines, as a place on one of them.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_LineIntersectionParameters = ParseGuid("D3101BAF-3656-4536-B013-FEB1D16E8824");
inline constexpr GUID IID_ILineIntersectionParameters = ParseGuid("C5B6DC61-BD05-425F-BDFB-0E5B6FDFC259");

// ILinePoints creates these objects and fills them in; a host with an object manager can create one by its
// class id (tessara/intersection_results.h has an example). A new one holds no coordinates, the index
// 0xFFFFFFFF and the parameter -1.7976931348623157e308, by which it is known from a filled one.
//
// The coordinates are the objects that were set, not copies. A getter adds no reference: its result lives as
// long as this object holds it.
class ILineIntersectionParameters : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ILineIntersectionParameters;

    virtual ~ILineIntersectionParameters() = default;

    // The intersection point. A setter called with null or an object of another kind clears its coordinate
    // and is false.
    virtual ICoord* GetIntersection() = 0;
    virtual bool SetIntersection(ICoord* coord) = 0;
    // The two vertices of the segment on which the point is. A polyline of one point has no end.
    virtual ICoord* GetLineStart() = 0;
    virtual bool SetLineStart(ICoord* coord) = 0;
    virtual ICoord* GetLineEnd() = 0;
    virtual bool SetLineEnd(ICoord* coord) = 0;
    // The index in the polyline of the vertex that ends the segment: 1 for the first segment. Every number
    // is stored; the setter is false for 0 and 0xFFFFFFFF.
    virtual std::uint32_t GetSegmentIndex() = 0;
    virtual bool SetSegmentIndex(std::uint32_t index) = 0;
    // How far along the segment the point is: from 0.0 at the start to 1.0 at the end. The setter is always
    // true.
    virtual double GetParameter() = 0;
    virtual bool SetParameter(double parameter) = 0;
};

}  // namespace tessara
