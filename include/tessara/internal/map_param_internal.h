// The interface through which the library's own classes pass a map's whole record.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

struct MapParam;

inline constexpr GUID IID_IMapParamInternal = ParseGuid("99D5DAA8-0930-49F1-8D0F-257F2D6566C1");

class IMapParamInternal : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IMapParamInternal;

    // A Projection copies its type, world type and parameters and leaves the rest of *out unchanged. A map
    // copies its whole record; the pointer in it points to the map's own linked list of reference points.
    // False for null.
    virtual bool GetMapParam(MapParam* out) = 0;
    // Takes the whole record without checking it. A map also takes ownership of the list and deletes its
    // nodes at its end, so a record may be set on one map only. The nodes behind the first are freed one by
    // one by the C++ runtime that the library uses: they come from another map of this library, or from
    // `new` in a host that shares the runtime. A host with a runtime of its own passes a `next` of null and
    // gives further points to IMapCoordOperationsFactory. The map's previous list is left to whoever has a
    // record with it. A Projection ignores the list. False for null.
    virtual bool SetMapParam(const MapParam* in) = 0;

  protected:
    ~IMapParamInternal() = default;
};

}  // namespace tessara
