// What a coordinate type is. One row of the table in systems.cpp holds all that the rest of the library must
// know of a type; whoever asks "which systems do ..." reads it there.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>

#include "kernel/grid_factors.h"
#include "systems/block_form.h"
#include "systems/projection.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/systems.h"

namespace tessara {

using PayloadBytes = std::array<std::byte, sizeof(tagKOORD::payload)>;

// How a record holds its position.
enum class Form : std::uint8_t {
    None,        // the kernel converts to it, and the objects don't know it
    Pixels,      // column and row of a map; rows grow southward
    Values,      // two numbers
    Zoned,       // two numbers within a zone or strip
    Squares,     // a zone, letters and whole metres: UTMREF
    Parts,       // latitude and longitude in whole parts or letters: GEOGRAD, GEODEZMIN, GEOREF
    LetterGrid,  // the letters of a square, metres within it, and the numbers of the whole grid
    Cartesian,   // three numbers
    Polar,       // a hemisphere and two numbers: UPS
};

// A division into zones, and the wanted numbers that name a zone in it.
enum class ZoneRule : std::uint8_t { None, Utm, Strips3, Strips6, Austrian };

struct WantedZones {
    std::int32_t first;
    std::int32_t last;
    std::int32_t step;
    // The two that end the system: a point beyond the central line of an outermost zone stays in it, since
    // its natural zone would put it at the other end of the numbering.
    std::int32_t outerWest;
    std::int32_t outerEast;
};

struct ZoneRow {
    ZoneRule rule = ZoneRule::None;
    double halfWidth = 0.0;  // degrees, from the central meridian to the border
    WantedZones wantedZones{};
    RecordField number{};      // none in strips, whose number is the millions of the easting
    RecordField wanted{};      // the zone or meridian to force
    double firstCentre = 0.0;  // metres; easting of the central line, of the first zone where they differ
    double centreStep = 0.0;   // metres; from one zone's central line to the next
};

// A few fields in their order.
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
    RecordField value{};                  // the number that grows along the axis
    FieldList<RecordField, 4> travels{};  // what is copied when a record takes the axis of another
    FieldList<RecordField, 4> text{};     // what the text is made of, in its order
};

// What a range test answers below and above its range.
struct RangeStatus {
    KoordStatus low;
    KoordStatus high;
};

// When a conversion tests the range of its target.
enum class RangeTest : std::uint8_t {
    Refused,      // such a target takes no test
    None,         // every position is in range
    Before,       // on the position in degrees
    BeforePolar,  // on its distance from the pole
    After,        // on the record
};

struct SystemRow;

struct RangeRow {
    RangeTest test = RangeTest::Refused;
    // Whether what could be written is in range: the conversion itself refuses the rest, or nothing is
    // refused.
    bool holdsOnceWritten = false;
    // The verdict on a record; null for a type without one.
    KoordStatus (*check)(const tagKOORD& record, const SystemRow& row) = nullptr;
    RangeStatus east{KOORD_ERR_EAST_LOW, KOORD_ERR_EAST_HIGH};
    RangeStatus north{KOORD_ERR_NORTH_LOW, KOORD_ERR_NORTH_HIGH};
};

// A position in degrees and the zone it is wanted in.
struct Corner {
    double latitude;
    double longitude;
    std::int16_t wantedZone = NO_WANTED_ZONE;
};

// North, east, south, west.
using Corners = std::array<Corner, 4>;

// Where the furthest positions of a system come from.
enum class ExtremesRule : std::uint8_t {
    None,
    Limits,     // the middles of the sides of its limits
    Positions,  // four positions in degrees, converted
    Degrees,    // the same four, written as they stand
    Letters,    // the first and the last letters of GEOREF
    Cartesian,  // three positions in degrees and the earth's centre
    Polar,      // four positions in degrees, of which the grid tells which one is north
    Quadrants,  // a quarter of a meridian, and 20 degrees of the equator
};

struct ExtremesRow {
    ExtremesRule rule = ExtremesRule::None;
    const Corners* corners = nullptr;
    const Corners* cornersOnKkj = nullptr;  // where that datum has others
};

enum class DisplayStyle : std::uint8_t {
    Plain,      // the text as it is
    Zoned,      // without blanks; the hemisphere stays away
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
    // The last number of a text counts up to a carry; 0.0 where nothing carries.
    double carry = 0.0;
    double unitsPerDegree = 1.0;  // of that number; 1.0 too where it is metres
};

// What a conversion reads stands first and close together.
struct SystemRow {
    std::int32_t type;
    RangeRow range{};
    // Between a record and latitude, longitude and height on its own datum. The caller zeroes `position`.
    KoordStatus (*read)(const tagKOORD& source, const Projection& projection, double* position) = nullptr;
    KoordStatus (*write)(const double* position, const Projection& projection, tagKOORD* target) = nullptr;
    Limits limits{};  // degrees or, for grids, metres
    // How many bytes at the start of the payload describe the projection and are inputs of a conversion.
    std::uint8_t parameterBytes = 0;

    const BlockForm* blocks = nullptr;  // how many records at once are converted; null for one by one

    Form form = Form::None;
    Unit unit = Unit::Metre;
    bool wraps = false;              // whether its numbers jump somewhere besides at the borders of zones
    bool hasMidpoint = false;        // whether two of its records have one
    std::int32_t exact = NO_SYSTEM;  // the system behind its letters and whole parts, where it has them
    double finestStep = 0.0;         // the unit of its whole numbers, in degrees or metres
    double neighborStep = 0.0;       // to a position's neighbour; 0.0 without neighbours
    ZoneRow zones{};
    AxisRow east{};
    AxisRow north{};
    PayloadBytes defaultPayload{};
    ExtremesRow extremes{};
    TextRow text{};
    FieldList<OutputField, 8> outputs{};  // the fields as programs list them
    FactorsFunction* factors = nullptr;   // convergence and scale, of a conformal grid
};

// By KoordType.
extern const std::array<SystemRow, KOORD_TYPE_COUNT> SYSTEMS;
// The row of every other number: it can do nothing.
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
