// Reads positions as people type them, and says what they mean or which piece is wrong and why.
//
//     TypedReader reader({.reference = {.datum = DATUM_WGS84, .system = NO_SYSTEM}});
//     const TypedResult result = reader.Read("32U PU 916 348");
//
// A text is consumed whole or refused. What it may mean in two ways is refused with both; what the program
// itself writes of a position is always read back, or refused where it leaves out what a position needs.
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
    // With NO_SYSTEM any system that can be told from the text: degrees, UTM, UPS, military references,
    // GEOREF, and squares of the British and Irish grids.
    Reference reference{.datum = DATUM_WGS84, .system = NO_SYSTEM};
    // Of two bare numbers in one text. Without it the order that gives a position counts, if only one does.
    Order order = Order::Unknown;
};

// For one thread at a time.
class TypedReader {
  public:
    explicit TypedReader(Wanted wanted);

    // A position in one text.
    [[nodiscard]] TypedResult Read(std::string_view text) const;
    // A position in two, north first unless letters say otherwise. Where they are no pair they are read as
    // one text that was divided.
    [[nodiscard]] TypedResult Read(std::string_view north, std::string_view east) const;

  private:
    // How the texts belong together: by themselves, as north and east, or as pieces of one.
    enum class Texts { One, Pair, Divided };

    // What comes of a division into tokens.
    struct Attempt {
        std::vector<Reading> readings{};  // that are positions
        Fault fault{};
        Fault degreesFault{};  // why it isn't latitude and longitude
        bool hasForm = false;  // whether the text has the form of a system, be it a position or not
    };

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
    std::vector<Blank> blanks_;  // of the systems that come into question
    Judge judge_;
};

// The position of a reading for people: its fields, and latitude and longitude.
[[nodiscard]] std::string Describe(const Reading& reading);

// Its fields as far as the text has digits for them: `32 U PU 916__ 348__`.
[[nodiscard]] std::string PictureOf(const Reading& reading);

}  // namespace tessara::toolkit
