// The text argument of operations. The library fills texts that the caller passes in and calls these
// operations only; tessara/host/text.h has an implementation.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_ITessaraString = ParseGuid("FB8A0FB3-57DA-4B19-BAF4-C2AD58AC3B73");

// The result of a comparison with null or an object of another kind.
inline constexpr std::int32_t TEXT_NOT_COMPARABLE = INT32_MIN;

// A text has 8-bit characters and ends with a zero. The library writes ASCII and the degree sign as the byte
// 0xB0; host::ToUtf8 converts.
class ITessaraString : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITessaraString;

    virtual ~ITessaraString() = default;
    // Copies the text of another ITessaraString, which may be passed by any of its interfaces. False, with
    // the text unchanged, for null, for an object without that interface, and if memory runs out.
    virtual bool Assign(IUnknown* text) = 0;
    // Null clears the text. If memory runs out it throws std::bad_alloc and the text is unchanged.
    virtual void AssignText(const char* text) = 0;
    // Valid until the text changes.
    virtual const char* GetText() = 0;
    virtual std::int32_t GetLength() = 0;
    virtual bool IsEmpty() = 0;
    // 0 if equal, otherwise the sign of a comparison as unsigned bytes; TEXT_NOT_COMPARABLE for null or an
    // object of another kind.
    virtual std::int32_t CompareText(const char* text) = 0;
    virtual std::int32_t Compare(IUnknown* text) = 0;
    // The same, with the letters A to Z equal to a to z.
    virtual std::int32_t CompareTextNoCase(const char* text) = 0;
    virtual std::int32_t CompareNoCase(IUnknown* text) = 0;
    virtual void Clear() = 0;
};

}  // namespace tessara
