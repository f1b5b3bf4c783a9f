// The private door through which the library's own classes move a map's whole record.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

struct MapParam;

inline constexpr GUID IID_IMapParamInternal = ParseGuid("99D5DAA8-0930-49F1-8D0F-257F2D6566C1");

class IMapParamInternal : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IMapParamInternal;

    // A Projection copies its type, world type and parameters and leaves the rest of *out; a map copies its
    // whole record, with the pointer to its chain of reference points, which stays the map's. False for null.
    virtual bool GetMapParam(MapParam* out) = 0;
    // Takes the whole record as it is. A map takes over the chain, too, and deletes its nodes when it ends: a
    // record may be set on one map only. The nodes behind its first are allocated one by one by the C++
    // runtime that the library uses, so they come from another map of this library, or from `new` in a host
    // that shares the runtime; a host with a runtime of its own passes a `next` of null, and gives further
    // points to IMapCoordOperationsFactory. The chain that a map had before is left to whoever still has a
    // record with it. A Projection never looks at a chain. False for null.
    virtual bool SetMapParam(const MapParam* in) = 0;

  protected:
    ~IMapParamInternal() = default;
};

}  // namespace tessara
