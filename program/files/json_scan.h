// Reads JSON (RFC 8259) in place. Each value is checked and returned as a view of its bytes, so that other
// members can be copied unchanged, with all their digits.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tessara::program {

// The reason why a text is not valid JSON or exceeds a limit.
class JsonFault : public std::runtime_error {
  public:
    JsonFault(const std::string& words, std::size_t place, bool isCutOff)
        : std::runtime_error(words), at(place), isAtEnd(isCutOff) {}

    std::size_t at;  // index of the byte in the text
    bool isAtEnd;    // whether more text could mend it
};

// The message, with the number of the byte in the file counted from 1; `offset` bytes of the file precede the
// text.
[[nodiscard]] std::string WordsOf(const JsonFault& fault, std::size_t offset = 0);

// The largest number of members in an object.
inline constexpr std::size_t MOST_MEMBERS = 10000;

// Its members throw a JsonFault.
class JsonScan {
  public:
    explicit JsonScan(std::string_view text) : text_(text) {}

    // The first character of the next token; 0 at the end of the text.
    char Peek() {
        while (at_ < text_.size() && IsBlank(text_[at_]))
            ++at_;
        return at_ < text_.size() ? text_[at_] : '\0';
    }

    // Consumes a character if it comes next.
    bool Take(char c) {
        // Peek returns 0 for a zero byte, too, which JSON does not allow.
        if (Peek() != c || at_ >= text_.size()) return false;
        ++at_;
        return true;
    }

    void Expect(char c) {
        if (!Take(c)) Fail();
    }

    // The next value, of any kind. A string has its quotes.
    std::string_view Value();
    std::string_view String();

    // Calls `member` with the name of each member of an object, in its quotes; `member` must consume the
    // value.
    template <class Member>
    void Object(Member member) {
        Expect('{');
        if (Take('}')) return;
        std::size_t count = 0;
        do {
            CountMember(++count);
            const std::string_view name = String();
            Expect(':');
            member(name);
        } while (Take(','));
        Expect('}');
    }

    // Calls `element` for each element of an array; `element` must consume the value.
    template <class Element>
    void Array(Element element) {
        Expect('[');
        if (Take(']')) return;
        do
            element();
        while (Take(','));
        Expect(']');
    }

    // The number of bytes read.
    [[nodiscard]] std::size_t At() const { return at_; }

    // Fails if anything but blanks follows.
    void ExpectEnd();

    [[nodiscard]] static bool IsBlank(char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; }

  private:
    [[noreturn]] void Fail() const;
    void CountMember(std::size_t count) const {
        if (count > MOST_MEMBERS) FailByMembers();
    }
    [[noreturn]] void FailByMembers() const;
    void SkipValue();
    void SkipNumber();
    void SkipWord(std::string_view word);
    void SkipEscape();
    void SkipLongCharacter();
    bool SkipDigits();

    std::string_view text_;
    std::size_t at_ = 0;
    int depth_ = 0;
};

// The text of a string in quotes; returns other values unchanged.
[[nodiscard]] std::string Unescaped(std::string_view string);

// Whether a string has no escapes.
[[nodiscard]] inline bool IsPlain(std::string_view string) {
    return string.find('\\') == std::string_view::npos;
}

// Appends a text as a string, with invalid UTF-8 replaced.
void AppendString(std::string_view text, std::string* json);

// Appends a checked value without the blanks between its tokens.
void AppendCompact(std::string_view value, std::string* json);

// Appends the shortest text that reads back as the same number; null for a number that is not finite.
void AppendNumber(double number, std::string* json);

}  // namespace tessara::program
