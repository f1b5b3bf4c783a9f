// The text argument: 8-bit characters, zero-terminated, no encoding implied. A degree sign is the byte 0xB0.
// The library fills the texts that a caller passes in and uses nothing but these operations;
// tessara/host/text.h has an implementation for hosts.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_ITessaraString = ParseGuid("FB8A0FB3-57DA-4B19-BAF4-C2AD58AC3B73");

// What a comparison gives when there is nothing to compare with.
inline constexpr std::int32_t TEXT_NOT_COMPARABLE = INT32_MIN;

class ITessaraString : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITessaraString;

    virtual ~ITessaraString() = default;
    // Takes the text of another ITessaraString, given by any of its interfaces. False if the object is null
    // or has no such interface, and without memory; the text is then unchanged.
    virtual bool Assign(IUnknown* text) = 0;
    // Null clears. Without memory it throws std::bad_alloc, and the text is unchanged.
    virtual void AssignText(const char* text) = 0;
    // Valid until the next change.
    virtual const char* GetText() = 0;
    virtual std::int32_t GetLength() = 0;
    virtual bool IsEmpty() = 0;
    // 0 if equal, else the sign of a comparison of unsigned bytes; TEXT_NOT_COMPARABLE for null or a wrong
    // object.
    virtual std::int32_t CompareText(const char* text) = 0;
    virtual std::int32_t Compare(IUnknown* text) = 0;
    // The same, taking the letters A to Z for a to z.
    virtual std::int32_t CompareTextNoCase(const char* text) = 0;
    virtual std::int32_t CompareNoCase(IUnknown* text) = 0;
    virtual void Clear() = 0;
};

}  // namespace tessara
