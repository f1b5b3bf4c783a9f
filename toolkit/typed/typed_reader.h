// Reads typed positions and returns their meaning, or the piece in error and the reason.
//
//     TypedReader reader({.reference = {.datum = DATUM_WGS84, .system = NO_SYSTEM}});
//     const TypedResult result = reader.Read("32U PU 916 348");
//
// The reader accepts a text only as a whole, and rejects an ambiguous text with all its meanings. It reads
// back every text that the program writes, except texts that omit a part of the position.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tessara/kernel/constants.h"
#include "typed/grid_forms.h"
#include "typed/judge.h"
#include "typed/result.h"

namespace tessara::toolkit {

struct Wanted {
    // With NO_SYSTEM the text determines the system: degrees, UTM, UPS, military references, GEOREF, and
    // squares of the British and Irish grids.
    Reference reference{.datum = DATUM_WGS84, .system = NO_SYSTEM};
    // The order of two bare numbers in one text. If unknown, the order that gives a position applies, if only
    // one does.
    Order order = Order::Unknown;
};

// Not for concurrent use.
class TypedReader {
  public:
    explicit TypedReader(Wanted wanted);

    // Reads a position in one text.
    [[nodiscard]] TypedResult Read(std::string_view text) const;
    // Reads many texts, each with a position, as degrees on their own datum: NaN for those that aren't read.
    void ReadDegrees(std::span<const std::string_view> texts, std::span<GeodezPayload> degrees) const;
    // Reads a position in two texts, north first unless letters swap them. Texts that are not a pair are read
    // as the two halves of one text.
    [[nodiscard]] TypedResult Read(std::string_view north, std::string_view east) const;

  private:
    // The relation of the texts: a single text, a north and an east text, or two halves of one text.
    enum class Texts { One, Pair, Divided };

    // The result of one way to read the tokens.
    struct Attempt {
        std::vector<Reading> readings{};  // valid positions
        Fault fault{};
        Fault degreesFault{};  // the reason why the text is not a latitude and longitude
        bool hasForm = false;  // whether the text has the form of a system, valid or not
    };

    // Whether a text is a reference in the form that lists have; it may contradict itself.
    [[nodiscard]] bool ReadReference(std::string_view text, Reading* reference) const;
    [[nodiscard]] GeodezPayload DegreesIn(std::string_view text) const;
    [[nodiscard]] Attempt ReadTexts(std::span<const std::string_view> texts, Texts kind) const;
    [[nodiscard]] Attempt ReadPair(std::string_view north, std::string_view east) const;
    [[nodiscard]] Attempt ReadTokens(const Tokens& tokens, Texts kind) const;
    [[nodiscard]] static Fault FaultOfAny(const Tokens& tokens, const Attempt& attempt);
    void TryDegrees(const Tokens& tokens, Attempt* attempt) const;
    void TryForm(const GridForm& form, const Tokens& tokens, Texts kind, Attempt* attempt) const;
    void TryPattern(const GridForm& form, const char* pattern, const Tokens& tokens, bool isPair,
                    Attempt* attempt) const;
    void Take(const Reading& reading, const Match& match, const Piece& all, Attempt* attempt) const;
    [[nodiscard]] TypedResult ResultOf(Attempt attempt, std::span<const std::string_view> texts) const;

    [[nodiscard]] const Blank& BlankOf(std::int32_t system) const;

    Wanted wanted_;
    std::vector<Blank> blanks_;  // of the possible systems
    Judge judge_;
};

// A text for people: the fields of a reading, and latitude and longitude.
[[nodiscard]] std::string Describe(const Reading& reading);

// The fields with the digits of the text: `32 U PU 916__ 348__`.
[[nodiscard]] std::string PictureOf(const Reading& reading);

}  // namespace tessara::toolkit
