// One crossing of two lines as one of them sees it: the point, the segment it lies in, and how far along.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_LineIntersectionParameters = ParseGuid("D3101BAF-3656-4536-B013-FEB1D16E8824");
inline constexpr GUID IID_ILineIntersectionParameters = ParseGuid("C5B6DC61-BD05-425F-BDFB-0E5B6FDFC259");

// A new one holds no coordinates, the index 0xFFFFFFFF and the parameter -1.7976931348623157e308, which tell
// it from a filled one. It is made by the object manager of a host, or by the operations that fill it.
//
// The coordinates are those of whoever set them, not copies. Getters take no count: what they give lives as
// long as this object holds it.
class ILineIntersectionParameters : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ILineIntersectionParameters;

    virtual ~ILineIntersectionParameters() = default;

    // The crossing itself. A setter with null or a foreign object empties the place and is false.
    virtual ICoord* GetIntersection() = 0;
    virtual bool SetIntersection(ICoord* coord) = 0;
    // The coordinates of the line at the start and at the end of the segment; a line that consists of one
    // point has no end.
    virtual ICoord* GetLineStart() = 0;
    virtual bool SetLineStart(ICoord* coord) = 0;
    virtual ICoord* GetLineEnd() = 0;
    virtual bool SetLineEnd(ICoord* coord) = 0;
    // The index of the line's coordinate at the end of the segment: 1 for the first. Every number is stored;
    // false for 0 and 0xFFFFFFFF.
    virtual std::uint32_t GetSegmentIndex() = 0;
    virtual bool SetSegmentIndex(std::uint32_t index) = 0;
    // The place along the segment, 0.0 at its start and 1.0 at its end. Always true.
    virtual double GetParameter() = 0;
    virtual bool SetParameter(double parameter) = 0;
};

}  // namespace tessara
