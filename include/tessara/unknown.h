// IUnknown, the root of all interfaces, its result codes, and the export macro.
//
// Interfaces are abstract classes whose operations have a fixed order, which hosts have compiled in: no
// operation is ever moved or inserted. Where an interface has a virtual destructor, it has its place in that
// order.
#pragma once

#include <cstdint>

#include "tessara/guid.h"

#if defined(_WIN32)
#if defined(TESSARA_BUILDING_LIBRARY)
#define TESSARA_API __declspec(dllexport)
#else
#define TESSARA_API __declspec(dllimport)
#endif
#else
#define TESSARA_API __attribute__((visibility("default")))
#endif

namespace tessara {

// A signed 32-bit number; failures have the top bit set.
using ResultCode = std::int32_t;

inline constexpr ResultCode RESULT_OK = 0;
inline constexpr ResultCode RESULT_FALSE = 1;
inline constexpr ResultCode RESULT_NO_INTERFACE = static_cast<ResultCode>(0x80004002u);
inline constexpr ResultCode RESULT_FAIL = static_cast<ResultCode>(0x80004005u);
inline constexpr ResultCode RESULT_NO_AGGREGATION = static_cast<ResultCode>(0x80040110u);
inline constexpr ResultCode RESULT_OUT_OF_MEMORY = static_cast<ResultCode>(0x8007000Eu);

inline constexpr GUID IID_IUnknown = ParseGuid("00000000-0000-0000-C000-000000000046");

class IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IUnknown;

    // Writes the interface of the object that `iid` names to *out, adds a reference and returns RESULT_OK.
    // For an id that the object doesn't know it writes null and returns RESULT_NO_INTERFACE. RESULT_FAIL if
    // `out` is null.
    virtual ResultCode QueryInterface(const GUID* iid, void** out) = 0;
    // Returns the new count. Counting is atomic: any number of threads may hold references to one object,
    // but only one thread at a time may call its other operations.
    virtual std::uint32_t AddRef() = 0;
    // Returns the new count; at 0 it has deleted the object.
    virtual std::uint32_t Release() = 0;

  protected:
    ~IUnknown() = default;
};

// The id of an interface, which every interface names as `Iid`.
template <class Interface>
inline constexpr const GUID& IidOf = Interface::Iid;

}  // namespace tessara
