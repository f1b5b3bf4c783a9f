// Reads JSON where it stands (RFC 8259), value by value: each is checked and given as the bytes it has in the
// text, so that what nobody asks about is written as it was read, whatever its digits.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tessara::program {

// Why a text is no JSON, or none that is read.
class JsonFault : public std::runtime_error {
  public:
    JsonFault(const std::string& words, std::size_t place, bool isCutOff)
        : std::runtime_error(words), at(place), isAtEnd(isCutOff) {}

    std::size_t at;  // the byte of the text
    bool isAtEnd;    // whether more text could mend it
};

// What is wrong, with the byte counted from 1 in a file of which `offset` bytes stand before the text.
[[nodiscard]] std::string WordsOf(const JsonFault& fault, std::size_t offset = 0);

// An object with more members is no record.
inline constexpr std::size_t MOST_MEMBERS = 10000;

// Its members throw a JsonFault.
class JsonScan {
  public:
    explicit JsonScan(std::string_view text) : text_(text) {}

    // The character that begins what comes next; 0 at the end of the text.
    char Peek() {
        while (at_ < text_.size() && IsBlank(text_[at_]))
            ++at_;
        return at_ < text_.size() ? text_[at_] : '\0';
    }

    // Takes a character if it comes next.
    bool Take(char c) {
        // Zero bytes are no part of JSON.
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

    // Calls `member` with the name of each member of an object, with its quotes; it takes the value.
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

    // Calls `element` for each element of an array; it takes the value.
    template <class Element>
    void Array(Element element) {
        Expect('[');
        if (Take(']')) return;
        do
            element();
        while (Take(','));
        Expect(']');
    }

    // How far the text is read.
    [[nodiscard]] std::size_t At() const { return at_; }

    // Nothing but blanks may follow.
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

// The text of a string with its quotes. Whatever is no string stays as it is.
[[nodiscard]] std::string Unescaped(std::string_view string);

// Whether a string needs no unescaping.
[[nodiscard]] inline bool IsPlain(std::string_view string) {
    return string.find('\\') == std::string_view::npos;
}

// Appends a text as a string. Bytes that are no UTF-8 are replaced.
void AppendString(std::string_view text, std::string* json);

// Appends a checked value without the blanks between its pieces.
void AppendCompact(std::string_view value, std::string* json);

// Appends a number with all its digits, as short as it can be, and null for one that isn't finite.
void AppendNumber(double number, std::string* json);

}  // namespace tessara::program
