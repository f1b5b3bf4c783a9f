// A text for hosts: IRef<ITessaraString> text(NewObject<host::Text>());
#pragma once

#include <cstddef>
#include <new>
#include <string>
#include <string_view>

#include "tessara/object.h"
#include "tessara/ref.h"
#include "tessara/tessara_string.h"

namespace tessara::host {

class Text : public ITessaraString {
  public:
    using Faces = FaceList<ITessaraString>;

    bool Assign(IUnknown* text) override {
        const IRef<ITessaraString> other(text);
        if (!other.IsValid()) return false;
        try {
            AssignText(other->GetText());
        } catch (const std::bad_alloc&) {
            return false;
        }
        return true;
    }

    // Assigns through a copy: the argument may be this text's own.
    void AssignText(const char* text) override { text_ = std::string(text != nullptr ? text : ""); }
    const char* GetText() override { return text_.c_str(); }
    std::int32_t GetLength() override { return static_cast<std::int32_t>(text_.size()); }
    bool IsEmpty() override { return text_.empty(); }

    std::int32_t CompareText(const char* text) override {
        return CompareBytes(text, [](unsigned char c) { return c; });
    }
    std::int32_t Compare(IUnknown* text) override { return CompareText(TextOf(IRef<ITessaraString>(text))); }
    std::int32_t CompareTextNoCase(const char* text) override { return CompareBytes(text, LowerCase); }
    std::int32_t CompareNoCase(IUnknown* text) override {
        return CompareTextNoCase(TextOf(IRef<ITessaraString>(text)));
    }

    void Clear() override { text_.clear(); }

  protected:
    ~Text() override = default;

  private:
    static const char* TextOf(const IRef<ITessaraString>& text) {
        return text.IsValid() ? text->GetText() : nullptr;
    }

    // Changes the letters A to Z only, in every locale.
    static unsigned char LowerCase(unsigned char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c - 'A' + 'a') : c;
    }

    template <class Fold>
    std::int32_t CompareBytes(const char* text, Fold fold) const {
        if (text == nullptr) return TEXT_NOT_COMPARABLE;
        const std::string_view other(text);
        for (std::size_t i = 0; i < text_.size() && i < other.size(); ++i) {
            const int mine = fold(static_cast<unsigned char>(text_[i]));
            const int theirs = fold(static_cast<unsigned char>(other[i]));
            if (mine != theirs) return mine < theirs ? -1 : 1;
        }
        if (text_.size() == other.size()) return 0;
        return text_.size() < other.size() ? -1 : 1;
    }

    std::string text_;
};

// A text of the library as UTF-8: its bytes are Latin-1, in which the degree sign of display texts is 0xB0.
// Empty for null.
[[nodiscard]] inline std::string ToUtf8(ITessaraString* text) {
    const IRef<ITessaraString> held(text);
    if (!held.IsValid()) return {};
    std::string utf8;
    for (const char c : std::string_view(held->GetText())) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | (code >> 6));
            utf8 += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return utf8;
}

}  // namespace tessara::host
