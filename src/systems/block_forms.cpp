#include <cstring>
#include <limits>

#include "columns/ecef_loops.h"
#include "columns/origin_loops.h"
#include "columns/sphere_loops.h"
#include "columns/ups_loops.h"
#include "columns/world_loops.h"
#include "columns/zone_loops.h"
#include "kernel/datum_rows.h"
#include "kernel/lettered_references.h"
#include "kernel/numeric.h"
#include "kernel/utmref_squares.h"
#include "systems/block_form.h"
#include "systems/free_projections.h"
#include "systems/not_a_number.h"
#include "systems/reading.h"
#include "tessara/kernel/zone_systems.h"

namespace tessara {
namespace {

constexpr double NONE_WANTED = NOT_A_NUMBER;

// A field of a record by its place: a payload that has just been written field by field isn't read as a
// whole.
template <class Field>
Field FieldOf(const tagKOORD& record, std::size_t offset) {
    Field field;
    std::memcpy(&field, record.payload + offset, sizeof field);
    return field;
}

template <class Field>
void SetField(tagKOORD& record, std::size_t offset, Field field) {
    std::memcpy(record.payload + offset, &field, sizeof field);
}

#define GET(record, Struct, field) FieldOf<decltype(Struct::field)>(record, offsetof(Struct, field))
#define SET(record, Struct, field, value) \
    SetField<decltype(Struct::field)>(record, offsetof(Struct, field), value)

constexpr BlockColumn DEGREES[]{&Block::latitude, &Block::longitude};
constexpr BlockColumn METRES[]{&Block::east, &Block::north};
constexpr BlockColumn ZONED[]{&Block::zone, &Block::south, &Block::east, &Block::north};
constexpr BlockColumn POLAR[]{&Block::south, &Block::east, &Block::north};
constexpr BlockColumn CARTESIAN[]{&Block::east, &Block::north, &Block::up};
constexpr BlockColumn WITH_MERIDIAN[]{&Block::zone, &Block::east, &Block::north};
constexpr BlockColumn LETTERED[]{&Block::square, &Block::squareEast, &Block::squareNorth, &Block::east,
                                 &Block::north};
constexpr BlockColumn MILITARY[]{&Block::zone, &Block::band, &Block::square, &Block::squareEast,
                                 &Block::squareNorth};

// -- Easting and northing.

template <std::size_t EAST, std::size_t NORTH>
void LoadPair(std::span<const tagKOORD> records, Block& block) {
    for (std::size_t row = 0; row < records.size(); ++row) {
        block.east[row] = FieldOf<double>(records[row], EAST);
        block.north[row] = FieldOf<double>(records[row], NORTH);
    }
}

template <std::size_t EAST, std::size_t NORTH>
void StorePair(const Block& block, std::span<tagKOORD> records) {
    for (std::size_t row = 0; row < records.size(); ++row) {
        if (block.IsSpecial(row)) continue;
        SetField(records[row], EAST, block.east[row]);
        SetField(records[row], NORTH, block.north[row]);
    }
}

template <class Payload>
void LoadGrid(std::span<const tagKOORD> records, Block& block) {
    LoadPair<offsetof(Payload, easting), offsetof(Payload, northing)>(records, block);
}

template <class Payload>
void StoreGrid(const Block& block, std::span<tagKOORD> records) {
    StorePair<offsetof(Payload, easting), offsetof(Payload, northing)>(block, records);
}

template <const grids::FixedGrid& grid>
BlockStep GridForwardOf(const RunOf& run) {
    return GridForward(grid, run.Datum());
}
template <const grids::FixedGrid& grid>
BlockStep GridInverseOf(const RunOf& run) {
    return GridInverse(grid, run.Datum());
}

// -- Degrees.

void LoadGeodez(std::span<const tagKOORD> records, Block& block) {
    for (std::size_t row = 0; row < records.size(); ++row) {
        block.latitude[row] = GET(records[row], GeodezPayload, latitude);
        block.longitude[row] = GET(records[row], GeodezPayload, longitude);
        block.height[row] = GET(records[row], GeodezPayload, height);
    }
}

void StoreGeodez(const Block& block, std::span<tagKOORD> records) {
    for (std::size_t row = 0; row < records.size(); ++row) {
        if (block.IsSpecial(row)) continue;
        SET(records[row], GeodezPayload, latitude, block.latitude[row]);
        SET(records[row], GeodezPayload, longitude, block.longitude[row]);
        SET(records[row], GeodezPayload, height, WithOneNan(block.height[row]));
    }
}

BlockStep Nothing(const RunOf& /*run*/) {
    return {};
}

// -- UTM.

void AdmitZones(Block& block, std::size_t rows) {
    for (std::size_t row = 0; row < rows; ++row)
        block.Refuse(row, !(block.zone[row] >= 1.0 && block.zone[row] <= UTM_ZONE_COUNT));
}

void LoadUtm(std::span<const tagKOORD> records, Block& block) {
    for (std::size_t row = 0; row < records.size(); ++row) {
        block.east[row] = GET(records[row], UtmPayload, easting);
        block.north[row] = GET(records[row], UtmPayload, northing);
        block.zone[row] = GET(records[row], UtmPayload, zone);
        block.south[row] = zones::IsSouth(GET(records[row], UtmPayload, hemisphere)) ? 1.0 : 0.0;
    }
}

template <class Payload>
void LoadWantedZone(std::span<const tagKOORD> targets, Block& block) {
    for (std::size_t row = 0; row < targets.size(); ++row) {
        const std::int16_t zone = GET(targets[row], Payload, wantedZone);
        block.wanted[row] = IsUtmZone(zone) ? UtmMeridian(zone) : NONE_WANTED;
    }
}

void StoreUtm(const Block& block, std::span<tagKOORD> records) {
    for (std::size_t row = 0; row < records.size(); ++row) {
        if (block.IsSpecial(row)) continue;
        SET(records[row], UtmPayload, hemisphere, block.south[row] != 0.0 ? 'S' : 'N');
        SET(records[row], UtmPayload, zone, static_cast<std::int16_t>(block.zone[row]));
        SET(records[row], UtmPayload, easting, block.east[row]);
        SET(records[row], UtmPayload, northing, block.north[row]);
    }
}

template <BlockStep (*step)(std::int32_t datum)>
BlockStep OnDatum(const RunOf& run) {
    return step(run.Datum());
}

// -- UTMREF.

std::uint32_t EllipsoidOf(std::span<const tagKOORD> records) {
    return RowOf(DatumOf(records.front()))->ellipsoid;
}

void LoadUtmref(std::span<const tagKOORD> records, Block& block) {
    const std::uint32_t ellipsoid = EllipsoidOf(records);
    for (std::size_t row = 0; row < records.size(); ++row) {
        UtmPayload utm{};
        const bool isResolved = UtmrefToUtm(Load<UtmrefPayload>(records[row]), ellipsoid, &utm) == KOORD_OK;
        block.east[row] = utm.easting;
        block.north[row] = utm.northing;
        block.zone[row] = utm.zone;
        block.south[row] = utm.hemisphere == 'S' ? 1.0 : 0.0;
        block.Refuse(row, !isResolved);
    }
}

// Whole metres.
UtmPayload UtmOf(const Block& block, std::size_t row) {
    UtmPayload utm{};
    utm.hemisphere = block.south[row] != 0.0 ? 'S' : 'N';
    utm.zone = static_cast<std::int16_t>(block.zone[row]);
    utm.easting = block.east[row];
    utm.northing = block.north[row];
    return utm;
}

void StoreUtmref(const Block& block, std::span<tagKOORD> records) {
    const utmref::AllRows& letters = utmref::AllRowsOf(EllipsoidOf(records));
    for (std::size_t row = 0; row < records.size(); ++row) {
        if (block.IsSpecial(row)) continue;
        UtmrefFromUtm(UtmOf(block, row), block.latitude[row], letters,
                      PayloadIn<UtmrefPayload>(&records[row]));
    }
}

// False for a number that the field can't hold; a fraction is cut off.
template <class Whole>
bool PutWhole(double number, Whole* whole) {
    constexpr double least = std::numeric_limits<Whole>::min();
    constexpr double greatest = std::numeric_limits<Whole>::max();
    const bool fits = number >= least && number <= greatest;
    *whole = fits ? static_cast<Whole>(number) : Whole{0};
    return fits;
}

void MilitaryFromFields(Block& block, std::size_t rows, const tagKOORD& record) {
    const std::uint32_t ellipsoid = RowOf(DatumOf(record))->ellipsoid;
    for (std::size_t row = 0; row < rows; ++row) {
        UtmrefPayload reference{};
        UtmPayload utm{};
        reference.band = LettersOf(block.band[row]).first;
        const LetterPair square = LettersOf(block.square[row]);
        reference.column = square.first;
        reference.row = square.second;
        const bool isWhole = PutWhole(block.zone[row], &reference.zone) &&
                             PutWhole(block.squareEast[row], &reference.easting) &&
                             PutWhole(block.squareNorth[row], &reference.northing);
        block.Refuse(row, !isWhole || UtmrefToUtm(reference, ellipsoid, &utm) != KOORD_OK);
        block.zone[row] = reference.zone;
        block.east[row] = utm.easting;
        block.north[row] = utm.northing;
        block.south[row] = utm.hemisphere == 'S' ? 1.0 : 0.0;
    }
}

void MilitaryToFields(Block& block, std::size_t rows, const tagKOORD& record) {
    const utmref::AllRows& letters = utmref::AllRowsOf(RowOf(DatumOf(record))->ellipsoid);
    for (std::size_t row = 0; row < rows; ++row) {
        if (block.IsSpecial(row)) continue;
        UtmrefPayload reference{};
        UtmrefFromUtm(UtmOf(block, row), block.latitude[row], letters, &reference);
        block.band[row] = NumberOfLetters({reference.band, '\0'});
        block.square[row] = NumberOfLetters({reference.column, reference.row});
        block.squareEast[row] = reference.easting;
        block.squareNorth[row] = reference.northing;
    }
}

// -- Gauss-Krueger.

template <const zones::StripSystem& system>
void LoadWantedMeridian(std::span<const tagKOORD> targets, Block& block) {
    for (std::size_t row = 0; row < targets.size(); ++row) {
        const std::int16_t meridian = GET(targets[row], GkPayload, wantedMeridian);
        block.wanted[row] = zones::IsStripMeridian(system, meridian) ? meridian : NONE_WANTED;
    }
}

template <const zones::StripSystem& system>
BlockStep StripForwardOf(const RunOf& run) {
    return StripForward(system, run.Datum());
}
template <const zones::StripSystem& system>
BlockStep StripInverseOf(const RunOf& run) {
    return StripInverse(system, run.Datum());
}

// -- The Austrian grids.

bool IsAustrian(double meridian) {
    return meridian == AUSTRIAN_MERIDIANS[0] || meridian == AUSTRIAN_MERIDIANS[1] ||
           meridian == AUSTRIAN_MERIDIANS[2];
}

void AdmitMeridians(Block& block, std::size_t rows) {
    for (std::size_t row = 0; row < rows; ++row)
        block.Refuse(row, !IsAustrian(block.zone[row]));
}

void LoadBmn(std::span<const tagKOORD> records, Block& block) {
    LoadGrid<BmnPayload>(records, block);
    for (std::size_t row = 0; row < records.size(); ++row)
        block.zone[row] = GET(records[row], BmnPayload, meridian);
}

void LoadWantedBmn(std::span<const tagKOORD> targets, Block& block) {
    for (std::size_t row = 0; row < targets.size(); ++row) {
        const std::int16_t meridian = GET(targets[row], BmnPayload, wantedMeridian);
        block.wanted[row] = IsAustrian(meridian) ? meridian : NONE_WANTED;
    }
}

void StoreBmn(const Block& block, std::span<tagKOORD> records) {
    StoreGrid<BmnPayload>(block, records);
    for (std::size_t row = 0; row < records.size(); ++row) {
        if (block.IsSpecial(row)) continue;
        SET(records[row], BmnPayload, meridian, static_cast<std::int16_t>(block.zone[row]));
    }
}

template <const austria::AustrianGrid& grid>
BlockStep AustrianForwardOf(const RunOf& run) {
    return AustrianForward(grid, run.Datum());
}
template <const austria::AustrianGrid& grid>
BlockStep AustrianInverseOf(const RunOf& run) {
    return AustrianInverse(grid, run.Datum());
}

// -- The lettered grids.

template <bool (*read)(const LetterGridPayload& payload, GridValues* values)>
void LoadLettered(std::span<const tagKOORD> records, Block& block) {
    for (std::size_t row = 0; row < records.size(); ++row) {
        GridValues values{};
        block.Refuse(row, !read(Load<LetterGridPayload>(records[row]), &values));
        block.east[row] = values.easting;
        block.north[row] = values.northing;
    }
}

template <void (*write)(const GridValues& values, LetterGridPayload* payload)>
void StoreLettered(const Block& block, std::span<tagKOORD> records) {
    for (std::size_t row = 0; row < records.size(); ++row) {
        if (block.IsSpecial(row)) continue;
        write({block.east[row], block.north[row]}, PayloadIn<LetterGridPayload>(&records[row]));
    }
}

template <bool (*read)(const LetterGridPayload& payload, GridValues* values)>
void LetteredFromFields(Block& block, std::size_t rows, const tagKOORD& /*record*/) {
    for (std::size_t row = 0; row < rows; ++row) {
        const auto [square, subSquare] = LettersOf(block.square[row]);
        LetterGridPayload reference{};
        reference.square = square;
        reference.subSquare = subSquare;
        reference.easting = block.squareEast[row];
        reference.northing = block.squareNorth[row];
        reference.fullEasting = block.east[row];
        reference.fullNorthing = block.north[row];
        GridValues values{};
        block.Refuse(row, !read(reference, &values));
        block.east[row] = values.easting;
        block.north[row] = values.northing;
    }
}

template <void (*write)(const GridValues& values, LetterGridPayload* payload)>
void LetteredToFields(Block& block, std::size_t rows, const tagKOORD& /*record*/) {
    for (std::size_t row = 0; row < rows; ++row) {
        if (block.IsSpecial(row)) continue;
        LetterGridPayload reference{};
        write({block.east[row], block.north[row]}, &reference);
        block.square[row] = NumberOfLetters({reference.square, reference.subSquare});
        block.squareEast[row] = reference.easting;
        block.squareNorth[row] = reference.northing;
    }
}

// -- The free transverse Mercator.

BlockStep TmForwardOf(const RunOf& run) {
    constexpr double end = std::numeric_limits<double>::infinity();
    return OriginForward(ParamsOf(Load<TmPayload>(run.record)), run.projection.originNorth,
                         {-end, end, -end, end}, run.Datum());
}

BlockStep TmInverseOf(const RunOf& run) {
    return OriginInverse(ParamsOf(Load<TmPayload>(run.record)), run.projection.originNorth, run.Datum());
}

// -- The Swiss grid, which knows no other ellipsoid.

BlockStep ChForwardOf(const RunOf& /*run*/) {
    return ChForward();
}
BlockStep ChInverseOf(const RunOf& /*run*/) {
    return ChInverse();
}

// -- The cone, and the circle.

BlockStep ConeForwardOf(const RunOf& run) {
    return ConeForward(run.projection.cone);
}
BlockStep ConeInverseOf(const RunOf& run) {
    return ConeInverse(run.projection.cone);
}
BlockStep VdgForwardOf(const RunOf& run) {
    return VdgForward(Load<VdgPayload>(run.record), run.Datum());
}
BlockStep VdgInverseOf(const RunOf& run) {
    return VdgInverse(Load<VdgPayload>(run.record), run.Datum());
}

// -- Cartesian.

void LoadEcef(std::span<const tagKOORD> records, Block& block) {
    for (std::size_t row = 0; row < records.size(); ++row) {
        block.east[row] = GET(records[row], EcefPayload, x);
        block.north[row] = GET(records[row], EcefPayload, y);
        block.up[row] = GET(records[row], EcefPayload, z);
    }
}

void StoreEcef(const Block& block, std::span<tagKOORD> records) {
    for (std::size_t row = 0; row < records.size(); ++row) {
        if (block.IsSpecial(row)) continue;
        SET(records[row], EcefPayload, x, block.east[row]);
        SET(records[row], EcefPayload, y, block.north[row]);
        SET(records[row], EcefPayload, z, block.up[row]);
    }
}

// -- UPS.

bool IsSouthOfUps(char hemisphere) {
    return hemisphere == 'S';
}

void LoadUps(std::span<const tagKOORD> records, Block& block) {
    LoadGrid<UpsPayload>(records, block);
    for (std::size_t row = 0; row < records.size(); ++row)
        block.south[row] = IsSouthOfUps(GET(records[row], UpsPayload, hemisphere)) ? 1.0 : 0.0;
}

void StoreUps(const Block& block, std::span<tagKOORD> records) {
    StoreGrid<UpsPayload>(block, records);
    for (std::size_t row = 0; row < records.size(); ++row) {
        if (block.IsSpecial(row)) continue;
        SET(records[row], UpsPayload, hemisphere, block.south[row] != 0.0 ? 'S' : 'N');
    }
}

#undef GET
#undef SET

template <const zones::StripSystem& system>
constexpr BlockForm StripBlocks() {
    return {LoadGrid<GkPayload>,    StripInverseOf<system>, LoadWantedMeridian<system>,
            StripForwardOf<system>, StoreGrid<GkPayload>,   METRES};
}

template <const austria::AustrianGrid& grid>
constexpr BlockForm AustrianForms() {
    return {LoadBmn,  AustrianInverseOf<grid>, LoadWantedBmn, AustrianForwardOf<grid>,
            StoreBmn, WITH_MERIDIAN,           AdmitMeridians};
}

template <const grids::FixedGrid& grid>
constexpr BlockForm Fixed() {
    return {LoadGrid<GridPayload>, GridInverseOf<grid>,    nullptr,
            GridForwardOf<grid>,   StoreGrid<GridPayload>, METRES};
}

}  // namespace

constinit const BlockForm GEODEZ_BLOCKS{LoadGeodez, Nothing, nullptr, Nothing, StoreGeodez, DEGREES};
constinit const BlockForm UTM_BLOCKS{
    LoadUtm,    OnDatum<UtmInverse>, LoadWantedZone<UtmPayload>, OnDatum<UtmForward>, StoreUtm, ZONED,
    AdmitZones, zones::IsSouth};
constinit const BlockForm UTMREF_BLOCKS{LoadUtmref,
                                        OnDatum<UtmrefInverse>,
                                        LoadWantedZone<UtmrefPayload>,
                                        OnDatum<UtmrefForward>,
                                        StoreUtmref,
                                        MILITARY,
                                        AdmitZones,
                                        nullptr,
                                        MilitaryFromFields,
                                        MilitaryToFields};
constinit const BlockForm GK_BLOCKS = StripBlocks<zones::GK>();
constinit const BlockForm GK6_BLOCKS = StripBlocks<zones::GK6>();
constinit const BlockForm BMN_BLOCKS = AustrianForms<austria::BMN>();
constinit const BlockForm OEM_BLOCKS = AustrianForms<austria::OEM>();
constinit const BlockForm GKAT_BLOCKS = AustrianForms<austria::GKAT>();
constinit const BlockForm BNG_BLOCKS{LoadLettered<BngReadReference>,
                                     GridInverseOf<grids::BRITISH>,
                                     nullptr,
                                     GridForwardOf<grids::BRITISH>,
                                     StoreLettered<BngWriteReference>,
                                     LETTERED,
                                     nullptr,
                                     nullptr,
                                     LetteredFromFields<BngReadReference>,
                                     LetteredToFields<BngWriteReference>};
constinit const BlockForm ING_BLOCKS{LoadLettered<IngReadReference>,
                                     GridInverseOf<grids::IRISH>,
                                     nullptr,
                                     GridForwardOf<grids::IRISH>,
                                     StoreLettered<IngWriteReference>,
                                     LETTERED,
                                     nullptr,
                                     nullptr,
                                     LetteredFromFields<IngReadReference>,
                                     LetteredToFields<IngWriteReference>};
constinit const BlockForm LUREF_BLOCKS = Fixed<grids::LUREF>();
constinit const BlockForm PO_MILITARY_BLOCKS = Fixed<grids::PO_MILITARY>();
constinit const BlockForm TM_BLOCKS{LoadGrid<TmPayload>, TmInverseOf,          nullptr,
                                    TmForwardOf,         StoreGrid<TmPayload>, METRES};

constinit const BlockForm VDG_BLOCKS{
    LoadPair<offsetof(VdgPayload, x), offsetof(VdgPayload, y)>,  VdgInverseOf, nullptr, VdgForwardOf,
    StorePair<offsetof(VdgPayload, x), offsetof(VdgPayload, y)>, METRES};
constinit const BlockForm LAMBERTCC_BLOCKS{LoadGrid<LambertCCPayload>,  ConeInverseOf, nullptr, ConeForwardOf,
                                           StoreGrid<LambertCCPayload>, METRES};
constinit const BlockForm ECEF_BLOCKS{
    LoadEcef, OnDatum<EcefInverse>, nullptr, OnDatum<EcefForward>, StoreEcef, CARTESIAN};
constinit const BlockForm UPS_BLOCKS{
    LoadUps, OnDatum<UpsInverse>, nullptr, OnDatum<UpsForward>, StoreUps, POLAR, nullptr, IsSouthOfUps};

constinit const BlockForm CH_BLOCKS{LoadGrid<GridPayload>,  ChInverseOf, nullptr, ChForwardOf,
                                    StoreGrid<GridPayload>, METRES};
constinit const BlockForm RD_BLOCKS{LoadGrid<GridPayload>, OnDatum<RdInverse>,     nullptr,
                                    OnDatum<RdForward>,    StoreGrid<GridPayload>, METRES};

}  // namespace tessara
