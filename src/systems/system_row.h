// The properties of a coordinate type. A row of the table in systems.cpp contains everything that the rest
// of the library knows about a type, so code that distinguishes systems reads it there.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>

#include "kernel/grid_factors.h"
#include "systems/block_form.h"
#include "systems/not_a_number.h"
#include "systems/projection.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/systems.h"

namespace tessara {

using PayloadBytes = std::array<std::byte, sizeof(tagKOORD::payload)>;

// How a record stores its position.
enum class Form : std::uint8_t {
    None,        // the kernel converts to it, but the objects don't support it
    Pixels,      // column and row of a map; rows grow southward
    Values,      // two numbers
    Zoned,       // two numbers within a zone or strip
    Squares,     // a zone, letters and whole metres: UTMREF
    Parts,       // latitude and longitude in whole parts or letters: GEOGRAD, GEODEZMIN, GEOREF
    LetterGrid,  // the letters of a square, metres within it, and the numbers of the whole grid
    Cartesian,   // three numbers
    Polar,       // a hemisphere and two numbers: UPS
};

// The division into zones, with the wanted numbers that name a zone.
enum class ZoneRule : std::uint8_t { None, Utm, Strips3, Strips6, Austrian };

struct WantedZones {
    std::int32_t first;
    std::int32_t last;
    std::int32_t step;
    // The first and the last zone. A point outside their central line keeps its zone; otherwise it would get
    // the number at the other end and compare as if it lay there.
    std::int32_t outerWest;
    std::int32_t outerEast;
};

struct ZoneRow {
    ZoneRule rule = ZoneRule::None;
    double halfWidth = 0.0;  // degrees, from the central meridian to the border
    WantedZones wantedZones{};
    RecordField number{};      // none for strips, whose number is in the millions of the easting
    RecordField wanted{};      // the wanted zone or meridian
    double firstCentre = 0.0;  // metres; easting of the central line, or of the first one
    double centreStep = 0.0;   // metres; from the central line of a zone to the next
};

// A few fields in order.
template <class Field, std::size_t most>
class FieldList {
  public:
    constexpr FieldList() = default;
    constexpr FieldList(std::initializer_list<Field> fields) : count_(fields.size()) {
        std::copy(fields.begin(), fields.end(), fields_.begin());
    }

    [[nodiscard]] constexpr std::span<const Field> All() const { return {fields_.data(), count_}; }

  private:
    std::array<Field, most> fields_{};
    std::size_t count_ = 0;
};

// One axis of a record.
struct AxisRow {
    RecordField value{};                  // the number that increases along the axis
    FieldList<RecordField, 4> travels{};  // copied when a record takes the axis of another
    FieldList<RecordField, 4> text{};     // the fields of the text, in order
};

// The statuses for values below and above a range.
struct RangeStatus {
    KoordStatus low;
    KoordStatus high;
};

constexpr RangeStatus Either(KoordStatus status) {
    return {status, status};
}

// The stage at which a conversion tests the range of its target.
enum class RangeTest : std::uint8_t {
    Refused,      // such a target can't be tested
    None,         // every position is in range
    Before,       // tests the position in degrees
    BeforePolar,  // tests its distance from the pole
    After,        // tests the record
};

struct SystemRow;

struct RangeRow {
    RangeTest test = RangeTest::Refused;
    // Whether every record that could be written is in range: the conversion refuses all others, or nothing
    // is refused.
    bool holdsOnceWritten = false;
    // The range test of a record; null for a type without one.
    KoordStatus (*check)(const tagKOORD& record, const SystemRow& row) = nullptr;
    RangeStatus east{KOORD_ERR_EAST_LOW, KOORD_ERR_EAST_HIGH};
    RangeStatus north{KOORD_ERR_NORTH_LOW, KOORD_ERR_NORTH_HIGH};
};

// A position in degrees and the zone it wants.
struct Corner {
    double latitude;
    double longitude;
    std::int16_t wantedZone = NO_WANTED_ZONE;
};

// North, east, south, west.
using Corners = std::array<Corner, 4>;

// The source of a system's extremes.
enum class ExtremesRule : std::uint8_t {
    None,
    Limits,     // the middles of the sides of its limits
    Positions,  // four positions in degrees, converted
    Degrees,    // four positions in degrees, as they are
    Letters,    // the first and the last letters of GEOREF
    Cartesian,  // three positions in degrees and the earth's centre
    Polar,      // four positions in degrees; the grid decides which one is north
    Quadrants,  // a quarter of a meridian, and 20 degrees of the equator
};

struct ExtremesRow {
    ExtremesRule rule = ExtremesRule::None;
    const Corners* corners = nullptr;
    const Corners* cornersOnKkj = nullptr;  // the corners on the datum KKJ, if they differ
};

enum class DisplayStyle : std::uint8_t {
    Plain,      // the plain text
    Zoned,      // without blanks and without the hemisphere
    Degrees,    // with a degree sign
    Seconds,    // with the signs of degrees, minutes and seconds, the hemisphere last
    Minutes,    // with the signs of degrees and minutes, the hemisphere last
    Letters,    // without blanks
    Square,     // the letters of a square and the digits of one axis
    Reference,  // the letters of a square and the digits of both axes
};

struct TextRow {
    std::int16_t defaultPrecision = PRECISION_UNSET;
    DisplayStyle display = DisplayStyle::Plain;
    // The value at which the last number of a text carries; 0.0 if nothing carries.
    double carry = 0.0;
    double unitsPerDegree = 1.0;  // of that number; 1.0 also if it is metres
};

// The members that a conversion reads come first, close together.
struct SystemRow {
    std::int32_t type;
    RangeRow range{};
    // Convert between a record and latitude, longitude and height on its own datum. The caller sets
    // `position` to zero.
    KoordStatus (*read)(const tagKOORD& source, const Projection& projection, double* position) = nullptr;
    KoordStatus (*write)(const double* position, const Projection& projection, tagKOORD* target) = nullptr;
    Limits limits{};  // degrees or, for grids, metres
    // The number of bytes at the start of the payload that describe the projection and are inputs of a
    // conversion.
    std::uint8_t parameterBytes = 0;
    Numbers numbers{};

    const BlockForm* blocks = nullptr;  // how many records at once are converted; null for one by one

    Form form = Form::None;
    Unit unit = Unit::Metre;
    bool wraps = false;              // whether its numbers jump anywhere other than at borders of zones
    bool hasMidpoint = false;        // whether two of its records have a midpoint
    std::int32_t exact = NO_SYSTEM;  // the system of the exact values, for a system of letters or whole parts
    double finestStep = 0.0;         // the unit of its whole numbers, in degrees or metres
    double neighborStep = 0.0;       // the step to a neighbour; 0.0 without neighbours
    ZoneRow zones{};
    AxisRow east{};
    AxisRow north{};
    PayloadBytes defaultPayload{};
    ExtremesRow extremes{};
    TextRow text{};
    FieldList<OutputField, 8> outputs{};  // the fields in the order in which programs list them
    FactorsFunction* factors = nullptr;   // convergence and scale, of a conformal grid
};

// Indexed by KoordType.
extern const std::array<SystemRow, KOORD_TYPE_COUNT> SYSTEMS;
// The row for every other number, which supports nothing.
extern const SystemRow NO_SYSTEM_ROW;

[[nodiscard]] inline const SystemRow& SystemOf(std::uint32_t type) {
    return type < SYSTEMS.size() ? SYSTEMS[type] : NO_SYSTEM_ROW;
}
[[nodiscard]] inline const SystemRow& SystemOf(std::int32_t type) {
    return SystemOf(static_cast<std::uint32_t>(type));
}
[[nodiscard]] inline const SystemRow& SystemOf(const tagKOORD& record) {
    return SystemOf(record.type);
}

}  // namespace tessara
