#include "files/json_scan.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <system_error>

#include "conversion/ascii.h"

namespace tessara::program {
namespace {

// Nested values recurse; the limit keeps the stack small.
constexpr int DEEPEST_NESTING = 200;

// A shorter number without an exponent fits a double.
constexpr std::size_t SURELY_FINITE = 300;

constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

// The ASCII characters that need no escape in a string.
constexpr std::array<bool, 256> PLAIN = [] {
    std::array<bool, 256> plain{};
    for (std::size_t c = 0x20; c < 0x80; ++c)
        plain[c] = c != '"' && c != '\\';
    return plain;
}();

bool IsPlainByte(char c) {
    return PLAIN[static_cast<unsigned char>(c)];
}

// The length of the multi-byte UTF-8 character at the start of a text; 0 if it is malformed (Unicode, table
// 3-7).
std::size_t LengthOfLongCharacter(std::string_view text) {
    const auto byte = [&](std::size_t i) -> unsigned {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    };
    const auto isTail = [&](std::size_t i) { return (byte(i) & 0xC0u) == 0x80u; };
    const unsigned first = byte(0);
    if (first >= 0xC2 && first <= 0xDF) return isTail(1) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const bool isOverlong = first == 0xE0 && byte(1) < 0xA0;
        const bool isSurrogate = first == 0xED && byte(1) > 0x9F;
        return isTail(1) && isTail(2) && !isOverlong && !isSurrogate ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool isOverlong = first == 0xF0 && byte(1) < 0x90;
        const bool isBeyond = first == 0xF4 && byte(1) > 0x8F;
        return isTail(1) && isTail(2) && isTail(3) && !isOverlong && !isBeyond ? 4 : 0;
    }
    return 0;
}

// The four hexadecimal digits at the start of a text.
std::optional<std::uint32_t> CodeUnit(std::string_view text) {
    std::uint32_t unit = 0;
    if (text.size() < 4) return std::nullopt;
    const auto [end, error] = std::from_chars(text.data(), text.data() + 4, unit, 16);
    return error == std::errc() && end == text.data() + 4 ? std::optional(unit) : std::nullopt;
}

bool IsHighSurrogate(std::uint32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(std::uint32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendUtf8(std::uint32_t code, std::string* text) {
    const auto append = [text](std::uint32_t byte) { *text += static_cast<char>(byte); };
    if (code < 0x80) return append(code);
    if (code < 0x800) {
        append(0xC0 | (code >> 6));
    } else if (code < 0x10000) {
        append(0xE0 | (code >> 12));
        append(0x80 | ((code >> 6) & 0x3F));
    } else {
        append(0xF0 | (code >> 18));
        append(0x80 | ((code >> 12) & 0x3F));
        append(0x80 | ((code >> 6) & 0x3F));
    }
    append(0x80 | (code & 0x3F));
}

// Removes an escaped character, without its backslash, from the start of a checked text.
void AppendEscaped(std::string_view* rest, std::string* text) {
    constexpr std::string_view LETTERS = "bfnrt";
    constexpr std::string_view MEANINGS = "\b\f\n\r\t";
    const char c = rest->front();
    rest->remove_prefix(1);
    if (c != 'u') {
        const std::size_t at = LETTERS.find(c);
        *text += at == std::string_view::npos ? c : MEANINGS[at];
        return;
    }
    std::uint32_t code = CodeUnit(*rest).value_or(0);
    rest->remove_prefix(4);
    if (IsHighSurrogate(code)) {
        code = 0x10000 + ((code - 0xD800) << 10) + (CodeUnit(rest->substr(2)).value_or(0xDC00) - 0xDC00);
        rest->remove_prefix(6);
    }
    AppendUtf8(code, text);
}

// Escapes a control character, a quote or a backslash.
void AppendEscape(char c, std::string* json) {
    constexpr std::string_view SHORT = "\"\\\b\f\n\r\t";
    constexpr std::string_view LETTERS = "\"\\bfnrt";
    constexpr std::string_view HEX = "0123456789abcdef";
    *json += '\\';
    if (const std::size_t at = SHORT.find(c); at != std::string_view::npos) {
        *json += LETTERS[at];
        return;
    }
    *json += "u00";
    *json += HEX[static_cast<unsigned char>(c) >> 4];
    *json += HEX[static_cast<unsigned char>(c) & 0xF];
}

}  // namespace

std::string WordsOf(const JsonFault& fault, std::size_t offset) {
    std::string words = fault.what();
    if (words.ends_with(' ')) words += std::to_string(offset + fault.at + 1);
    return words;
}

void JsonScan::Fail() const {
    throw JsonFault("invalid JSON at byte ", at_, at_ >= text_.size());
}

void JsonScan::FailByMembers() const {
    throw JsonFault("more than " + std::to_string(MOST_MEMBERS) + " members", at_, false);
}

void JsonScan::ExpectEnd() {
    Peek();
    if (at_ < text_.size()) Fail();
}

std::string_view JsonScan::Value() {
    Peek();
    const std::size_t begin = at_;
    SkipValue();
    return text_.substr(begin, at_ - begin);
}

std::string_view JsonScan::String() {
    Expect('"');
    const std::size_t begin = at_ - 1;
    while (true) {
        while (at_ < text_.size() && IsPlainByte(text_[at_]))
            ++at_;
        if (at_ >= text_.size()) Fail();
        const char c = text_[at_];
        if (c == '"') break;
        if (c == '\\') {
            SkipEscape();
        } else {
            SkipLongCharacter();
        }
    }
    ++at_;
    return text_.substr(begin, at_ - begin);
}

void JsonScan::SkipEscape() {
    ++at_;
    if (at_ >= text_.size()) Fail();
    constexpr std::string_view ESCAPED = "\"\\/bfnrt";
    if (ESCAPED.find(text_[at_]) != std::string_view::npos) {
        ++at_;
        return;
    }
    const auto unit = [&](std::size_t at) {
        if (at + 4 > text_.size()) at_ = text_.size();
        const std::optional<std::uint32_t> code = CodeUnit(text_.substr(std::min(at, text_.size())));
        if (!code) Fail();
        return *code;
    };
    if (text_[at_] != 'u') Fail();
    const std::uint32_t first = unit(at_ + 1);
    if (IsLowSurrogate(first)) Fail();
    at_ += 5;
    if (!IsHighSurrogate(first)) return;
    // The low half of a surrogate pair follows.
    for (const char c : {'\\', 'u'}) {
        if (at_ >= text_.size() || text_[at_] != c) Fail();
        ++at_;
    }
    if (!IsLowSurrogate(unit(at_))) Fail();
    at_ += 4;
}

void JsonScan::SkipLongCharacter() {
    const std::string_view rest = text_.substr(at_, 4);
    const std::size_t length = LengthOfLongCharacter(rest);
    // The end of the text may have cut the word.
    const bool isCut = length == 0 && rest.size() < 4 && static_cast<unsigned char>(rest[0]) >= 0xC2;
    if (isCut) at_ = text_.size();
    if (length == 0) Fail();
    at_ += length;
}

void JsonScan::SkipValue() {
    const char c = Peek();
    if (c == '"') {
        String();
        return;
    }
    if (c == '{' || c == '[') {
        if (++depth_ > DEEPEST_NESTING) throw JsonFault("nested too deeply", at_, false);
        if (c == '{') {
            Object([this](std::string_view) { SkipValue(); });
        } else {
            Array([this] { SkipValue(); });
        }
        --depth_;
        return;
    }
    if (c == 't') return SkipWord("true");
    if (c == 'f') return SkipWord("false");
    if (c == 'n') return SkipWord("null");
    SkipNumber();
}

void JsonScan::SkipWord(std::string_view word) {
    for (const char c : word) {
        if (at_ >= text_.size() || text_[at_] != c) Fail();
        ++at_;
    }
}

bool JsonScan::SkipDigits() {
    const std::size_t begin = at_;
    while (at_ < text_.size() && toolkit::IsDigit(text_[at_]))
        ++at_;
    return at_ > begin;
}

void JsonScan::SkipNumber() {
    const std::size_t begin = at_;
    const auto skip = [this](char c) {
        const bool isNext = at_ < text_.size() && text_[at_] == c;
        if (isNext) ++at_;
        return isNext;
    };
    skip('-');
    if (!skip('0') && !SkipDigits()) Fail();
    if (skip('.') && !SkipDigits()) Fail();
    const bool hasExponent = skip('e') || skip('E');
    if (hasExponent) {
        if (!skip('+')) skip('-');
        if (!SkipDigits()) Fail();
    }
    if (!hasExponent && at_ - begin < SURELY_FINITE) return;
    double number = 0.0;
    const auto error = std::from_chars(text_.data() + begin, text_.data() + at_, number).ec;
    const bool isTooLarge = error == std::errc::result_out_of_range && text_[begin] != '0' &&
                            text_.substr(begin, at_ - begin).find("e-") == std::string_view::npos &&
                            text_.substr(begin, at_ - begin).find("E-") == std::string_view::npos;
    if (isTooLarge) throw JsonFault("number too large before byte ", at_, false);
}

std::string Unescaped(std::string_view string) {
    if (!string.starts_with('"')) return std::string(string);
    std::string_view rest = string.substr(1, string.size() - 2);
    std::string text;
    for (std::size_t at = 0; (at = rest.find('\\')) != std::string_view::npos;) {
        text += rest.substr(0, at);
        rest.remove_prefix(at + 1);
        AppendEscaped(&rest, &text);
    }
    return text += rest;
}

void AppendString(std::string_view text, std::string* json) {
    *json += '"';
    while (!text.empty()) {
        std::size_t plain = 0;
        while (plain < text.size() && IsPlainByte(text[plain]))
            ++plain;
        json->append(text.data(), plain);
        text.remove_prefix(plain);
        if (text.empty()) break;
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            AppendEscape(text.front(), json);
            text.remove_prefix(1);
            continue;
        }
        const std::size_t length = LengthOfLongCharacter(text);
        *json += length > 0 ? text.substr(0, length) : REPLACEMENT;
        text.remove_prefix(std::max(length, std::size_t{1}));
    }
    *json += '"';
}

void AppendCompact(std::string_view value, std::string* json) {
    if (!value.starts_with('{') && !value.starts_with('[')) {
        *json += value;
        return;
    }
    bool isInString = false;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        if (isInString && c == '\\') *json += value[i++];
        if (!isInString && JsonScan::IsBlank(value[i])) continue;
        if (c == '"') isInString = !isInString;
        *json += value[i];
    }
}

void AppendNumber(double number, std::string* json) {
    if (!std::isfinite(number)) {
        *json += "null";
        return;
    }
    std::array<char, 32> text;
    const char* const end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    const std::string_view digits(text.data(), static_cast<std::size_t>(end - text.data()));
    *json += digits;
    // Readers that distinguish types keep reading a real number.
    if (digits.find_first_of(".e") == std::string_view::npos) *json += ".0";
}

}  // namespace tessara::program
