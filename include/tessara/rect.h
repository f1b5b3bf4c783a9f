// A rectangle of the host in whole pixels; rows grow southward. The library calls the four getters and
// nothing else. tessara/host/rect.h has an implementation.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_IRect = ParseGuid("BE741B91-24DD-44F0-AA80-6B652E6E48BD");

class IRect : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IRect;

    // Operations of the host, which the library never calls.
    virtual void Reserved3() {}
    virtual void Reserved4() {}
    virtual void Reserved5() {}
    virtual void Reserved6() {}
    virtual void Reserved7() {}

    virtual std::int32_t GetTop() = 0;
    virtual std::int32_t GetLeft() = 0;
    virtual std::int32_t GetBottom() = 0;
    virtual std::int32_t GetRight() = 0;

  protected:
    ~IRect() = default;
};

}  // namespace tessara
