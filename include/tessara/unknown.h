// The root of all interfaces, its result codes, and what an export is.
//
// Interfaces are abstract classes whose operations stand in the contract's order: nothing is ever reordered
// or inserted. Only those interfaces have a virtual destructor whose table names one, in the place it names.
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

// A result code is a signed 32-bit value; failures have the top bit set.
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

    // Writes the face of the object that answers `iid` to *out, counts it and returns RESULT_OK. An id that
    // the object doesn't know writes null and gives RESULT_NO_INTERFACE. A null `out` gives RESULT_FAIL.
    virtual ResultCode QueryInterface(const GUID* iid, void** out) = 0;
    // The new count. Counting is atomic; objects may be shared between threads of a host, but one thread at a
    // time may use one.
    virtual std::uint32_t AddRef() = 0;
    // The new count. At 0 the object is gone.
    virtual std::uint32_t Release() = 0;

  protected:
    ~IUnknown() = default;
};

// The id of an interface. Every interface names its own as `Iid`.
template <class Interface>
inline constexpr const GUID& IidOf = Interface::Iid;

}  // namespace tessara
