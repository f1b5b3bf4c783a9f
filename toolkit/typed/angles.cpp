#include "typed/angles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "conversion/numbers.h"
#include "conversion/positions.h"

namespace tessara::toolkit {
namespace {

constexpr std::size_t MOST_PARTS = 3;  // degrees, minutes, seconds
constexpr std::array<const char*, MOST_PARTS> PART_NAMES{"degrees", "minutes", "seconds"};
constexpr std::array<double, MOST_PARTS> PARTS_OF_A_DEGREE{1.0, 60.0, 3600.0};
constexpr double SIXTY = 60.0;

struct Angle {
    std::array<const Token*, MOST_PARTS> parts{};
    std::size_t count = 0;
    const Token* letter = nullptr;
    bool isMarked = false;  // has a degree sign

    [[nodiscard]] const Token& Last() const { return *parts[count - 1]; }
    [[nodiscard]] bool IsLongitude() const { return letter != nullptr && (Is('E') || Is('W')); }
    [[nodiscard]] bool IsLatitude() const { return letter != nullptr && (Is('N') || Is('S')); }
    [[nodiscard]] bool IsNegative() const {
        return parts[0]->isNegative || (letter != nullptr && (Is('S') || Is('W')));
    }
    [[nodiscard]] bool Is(char c) const { return letter->letter == c; }

    [[nodiscard]] double Part(std::size_t i) const { return i < count ? std::fabs(parts[i]->value) : 0.0; }
    [[nodiscard]] double Magnitude() const { return Part(0) + (Part(1) + Part(2) / SIXTY) / SIXTY; }
    [[nodiscard]] double Value() const { return IsNegative() ? -Magnitude() : Magnitude(); }
    [[nodiscard]] double Resolution() const {
        return std::pow(10.0, -Last().decimals) / PARTS_OF_A_DEGREE[count - 1];
    }
    [[nodiscard]] Piece All() const {
        Piece all = parts[0]->piece;
        for (const Token* token : {static_cast<const Token*>(parts[count - 1]), letter}) {
            if (token == nullptr) continue;
            all.begin = std::min(all.begin, token->piece.begin);
            all.end = std::max(all.end, token->piece.end);
        }
        return all;
    }
};

bool IsCompassLetter(const Token& token) {
    return token.kind == TokenKind::Letter &&
           (token.letter == 'N' || token.letter == 'S' || token.letter == 'E' || token.letter == 'W');
}

Fault Missing(const char* what, const Piece& piece) {
    return {"missing", std::string("missing ") + what, piece};
}

// Reads angles from tokens.
class AngleReader {
  public:
    AngleReader(const Tokens& tokens, std::size_t end) : tokens_(tokens), end_(end) {}

    // Reads at most `most` numbers.
    Fault ReadAngle(const char* what, std::size_t most, Angle* angle) {
        if (IsCompassLetter(Here())) angle->letter = &tokens_[at_++];
        Fault wrong = ReadParts(most, angle);
        if (wrong.IsThere()) return wrong;
        if (angle->count == 0)
            return Here().kind == TokenKind::End ? Missing(what, Here().piece) : WrongHere();
        if (angle->letter == nullptr && IsCompassLetter(Here())) angle->letter = &tokens_[at_++];
        return Check(*angle);
    }

    void SkipBoundary() {
        if (Here().kind == TokenKind::Boundary) ++at_;
    }

    [[nodiscard]] Fault ReadEnd() const { return at_ == end_ ? Fault{} : WrongHere(); }

    [[nodiscard]] const Token& Here() const { return tokens_[at_ < end_ ? at_ : tokens_.Count()]; }

  private:
    [[nodiscard]] const Token& Behind(std::size_t i) const {
        return tokens_[std::min(at_ + i, tokens_.Count())];
    }

    Fault ReadParts(std::size_t most, Angle* angle) {
        while (angle->count < most && Here().kind == TokenKind::Number) {
            const bool isNext =
                angle->count > 0 && (HasDegreeSign() || Here().hasSign || angle->Last().hasPoint);
            if (isNext) break;
            angle->parts[angle->count++] = &tokens_[at_++];
            Fault wrong = ReadMark(angle);
            if (wrong.IsThere()) return wrong;
        }
        return {};
    }

    // Whether the current number has a degree sign.
    [[nodiscard]] bool HasDegreeSign() const {
        return Behind(1).kind == TokenKind::Degree || WordAt(1, "DEG") || IsLittleD(1);
    }

    [[nodiscard]] bool IsLittleD(std::size_t i) const {
        const Token& token = Behind(i);
        return token.kind == TokenKind::Letter && token.letter == 'D' && token.isLowerCase &&
               token.touchesPrevious;
    }

    [[nodiscard]] bool WordAt(std::size_t i, std::string_view word) const {
        for (std::size_t k = 0; k < word.size(); ++k) {
            const Token& token = Behind(i + k);
            if (token.kind != TokenKind::Letter || token.letter != word[k]) return false;
            if (k > 0 && !token.touchesPrevious) return false;
        }
        return true;
    }

    // The sign after the last number must match its unit.
    Fault ReadMark(Angle* angle) {
        struct Mark {
            TokenKind kind;
            std::string_view word;
        };
        static constexpr std::array<Mark, MOST_PARTS> MARKS{
            {{TokenKind::Degree, "DEG"}, {TokenKind::Minute, "MIN"}, {TokenKind::Second, "SEC"}}};
        const std::size_t unit = angle->count - 1;
        std::size_t length = 0;
        if (Here().kind == MARKS[unit].kind || (unit == 0 && IsLittleD(0))) {
            length = 1;
        } else if (WordAt(0, MARKS[unit].word)) {
            length = MARKS[unit].word.size();
        }
        at_ += length;
        angle->isMarked = angle->isMarked || (unit == 0 && length > 0);
        const TokenKind next = Here().kind;
        if (length > 0 ||
            (next != TokenKind::Degree && next != TokenKind::Minute && next != TokenKind::Second))
            return {};
        return {"sign", std::string("wrong sign after the ") + PART_NAMES[unit], Here().piece};
    }

    static Fault Check(const Angle& angle) {
        for (std::size_t i = 0; i < angle.count; ++i) {
            const Token& part = *angle.parts[i];
            if (i + 1 < angle.count && part.hasPoint)
                return {
                    "decimals",
                    std::string(PART_NAMES[i]) + " with decimals cannot be followed by " + PART_NAMES[i + 1],
                    part.piece};
            if (i > 0 && part.value >= SIXTY)
                return {PART_NAMES[i], std::string(PART_NAMES[i]) + " must be below 60", part.piece};
        }
        if (angle.letter != nullptr && angle.parts[0]->hasSign)
            return {"sign", "the hemisphere has both a letter and a sign; write one of them",
                    angle.parts[0]->piece};
        return {};
    }

    [[nodiscard]] Fault WrongHere() const {
        const Token& token = Here();
        if (token.kind == TokenKind::Letter && token.letter == 'O')
            return {"letter", "ambiguous letter O, east in some languages and west in others; write E or W",
                    token.piece};
        return {"leftover", "expected only latitude and longitude, with no letters but N, S, E and W",
                token.piece};
    }

    const Tokens& tokens_;
    std::size_t end_;
    std::size_t at_ = 0;
};

// The count of numbers in each of two angles without signs, letters and separators; 0 for other tokens.
std::size_t EqualCount(const Tokens& tokens) {
    for (std::size_t i = 0; i < tokens.Count(); ++i) {
        if (tokens[i].kind != TokenKind::Number) return 0;
    }
    return tokens.Count() / 2;
}

Fault WrongCount(const Tokens& tokens) {
    return {"count", "latitude and longitude must have equally many numbers: one, two or three each",
            tokens.All()};
}

Fault CheckRange(const char* what, const Angle& angle, double limit) {
    if (angle.Magnitude() <= limit) return {};
    return {what,
            std::string("the ") + what + " is outside " + FormatNumber(-limit) + ".." + FormatNumber(limit),
            angle.All()};
}

struct Whole {
    std::int16_t degrees, minutes;
};

// Splits an angle into whole parts and a last part. If the angle has fewer numbers, the last of them is
// split, so that 11 34 becomes 11 34 0 without rounding.
double Divide(const Angle& angle, std::size_t parts, Whole* whole) {
    whole->degrees = static_cast<std::int16_t>(angle.Part(0));
    const double minutes = angle.count > 1 ? angle.Part(1) : (angle.Part(0) - whole->degrees) * SIXTY;
    if (parts == 2) return minutes;
    whole->minutes = static_cast<std::int16_t>(minutes);
    return angle.count > 2 ? angle.Part(2) : (minutes - whole->minutes) * SIXTY;
}

tagKOORD MakeRecord(const Angle& latitude, const Angle& longitude, std::int32_t datum) {
    const std::size_t parts = std::max(latitude.count, longitude.count);
    const char north = latitude.IsNegative() ? 'S' : 'N';
    const char east = longitude.IsNegative() ? 'W' : 'E';
    Whole lat{};
    Whole lon{};
    if (parts == 1) {
        tagKOORD record = MakeKoord(datum, KOORD_GEODEZ);
        Store(record, GeodezPayload{latitude.Value(), longitude.Value(), 0.0});
        return record;
    }
    const double lastOfLatitude = Divide(latitude, parts, &lat);
    const double lastOfLongitude = Divide(longitude, parts, &lon);
    if (parts == 2) {
        tagKOORD record = MakeKoord(datum, KOORD_GEODEZMIN);
        GeodezMinPayload p{};
        p.latDegrees = lat.degrees;
        p.latMinutes = lastOfLatitude;
        p.latHemisphere = north;
        p.lonDegrees = lon.degrees;
        p.lonMinutes = lastOfLongitude;
        p.lonHemisphere = east;
        Store(record, p);
        return record;
    }
    tagKOORD record = MakeKoord(datum, KOORD_GEOGRAD);
    GeogradPayload p{};
    p.latDegrees = lat.degrees;
    p.latMinutes = lat.minutes;
    p.latSeconds = lastOfLatitude;
    p.latHemisphere = north;
    p.lonDegrees = lon.degrees;
    p.lonMinutes = lon.minutes;
    p.lonSeconds = lastOfLongitude;
    p.lonHemisphere = east;
    Store(record, p);
    return record;
}

Fault ReadBoth(const Tokens& tokens, Angle* first, Angle* second) {
    const std::size_t equal = EqualCount(tokens);
    if (equal > 0 && (tokens.Count() % 2 != 0 || equal > MOST_PARTS)) return WrongCount(tokens);
    const std::size_t most = equal > 0 ? equal : MOST_PARTS;
    AngleReader reader(tokens, tokens.Count());
    Fault wrong = reader.ReadAngle("latitude", most, first);
    if (wrong.IsThere()) return wrong;
    reader.SkipBoundary();
    wrong = reader.ReadAngle("longitude", most, second);
    if (wrong.IsThere()) return wrong;
    return reader.ReadEnd();
}

// Without letters or degree signs on both angles, the split between them is ambiguous.
bool MayBeDividedElsewhere(const Angle& first, const Angle& second) {
    const auto isBounded = [](const Angle& angle) { return angle.letter != nullptr || angle.isMarked; };
    return first.count != second.count && !(isBounded(first) && isBounded(second));
}

}  // namespace

Fault ReadAngles(const Tokens& tokens, std::int32_t datum, Reading* reading) {
    Angle first;
    Angle second;
    Fault wrong = ReadBoth(tokens, &first, &second);
    if (wrong.IsThere()) return wrong;
    if (MayBeDividedElsewhere(first, second)) return WrongCount(tokens);
    if ((first.IsLatitude() && second.IsLatitude()) || (first.IsLongitude() && second.IsLongitude()))
        return {"letter", "both letters name the same axis", second.letter->piece};
    if (first.IsLongitude() || second.IsLatitude()) std::swap(first, second);
    wrong = CheckRange("latitude", first, LATITUDE_LIMIT);
    if (wrong.IsThere()) return wrong;
    wrong = CheckRange("longitude", second, LONGITUDE_LIMIT);
    if (wrong.IsThere()) return wrong;

    reading->record = MakeRecord(first, second, datum);
    reading->reference = {.datum = datum, .system = static_cast<std::int32_t>(reading->record.type)};
    reading->northResolution = first.Resolution();
    reading->eastResolution = second.Resolution();
    return {};
}

}  // namespace tessara::toolkit
