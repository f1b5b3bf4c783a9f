#include "prepared.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "conversion/names.h"
#include "record_fields.h"
#include "tessara/ckoord.h"
#include "tessara/kernel/columns.h"

namespace tessara::python {
namespace {

constexpr std::size_t BLOCK = 1024;  // rows; their whole numbers and letters fit in the first-level cache

// Adds the wanted zone, strip or meridian to a reference.
toolkit::Reference WithZone(toolkit::Reference reference, std::optional<std::int32_t> zone) {
    if (!zone) return reference;
    const std::string system = toolkit::SystemName(reference.system);
    const std::string zones = toolkit::ZonesOf(reference.system);
    if (zones.empty()) throw std::invalid_argument(system + " has no zones to choose from");
    const auto wanted = toolkit::WantedZone(reference.system, *zone);
    if (!wanted) throw std::invalid_argument(system + " has " + zones + ", not " + std::to_string(*zone));
    reference.parameters.push_back(*wanted);
    return reference;
}

// A record with the precision of the output's minutes.
tagKOORD WrittenGeoref(std::int32_t datum) {
    const tagKOORD degrees = MakeKoord(datum, KOORD_GEODEZ);
    tagKOORD record = MakeKoord(datum, KOORD_GEOREF);
    KoordConvert(&degrees, &record);
    return record;
}

// The first of the names that belongs to a numeric field.
std::optional<std::size_t> FieldCalled(std::initializer_list<std::string_view> names,
                                       std::span<const OutputField> fields) {
    for (const std::string_view name : names) {
        for (std::size_t k = 0; k < fields.size(); ++k) {
            if (KindOf(fields[k]) == ColumnKind::Number && fields[k].name == name) return k;
        }
    }
    return std::nullopt;
}

// The library doesn't test degrees as a target, so values that aren't finite are detected here.
KoordStatus StatusOfMissing(const OutputField& field) {
    return field.offset == 0 ? KOORD_ERR_GEO_LAT : KOORD_ERR_GEO_LON;
}

}  // namespace

// Columns of the library for the rows of a block. Python has other types for whole numbers and letters.
class PreparedConversion::Block {
  public:
    Block(const PreparedConversion& conversion, const GivenColumns& given, const WantedColumns& wanted)
        : conversion_(conversion), given_(given), wanted_(wanted) {}

    // Returns the first failure of a block that starts at row `first`.
    [[nodiscard]] std::optional<Failure> Convert(std::size_t first, std::size_t count, DistantZones distant) {
        first_ = first;
        count_ = count;
        const SourceColumns from = Sources();
        const TargetColumns to = Targets();
        KoordConvertColumns(&conversion_.source_, &from, &conversion_.target_, &to, count, 1);
        for (std::size_t k = 0; k < conversion_.targetFields_.size(); ++k)
            WriteColumn(conversion_.targetFields_[k], scratch_[k], first, count, wanted_.fields[k]);
        if (HasRaised()) Raise();
        return Judge(distant);
    }

  private:
    [[nodiscard]] SourceColumns Sources() {
        SourceColumns from;
        for (std::size_t k = 0; k < conversion_.sourceFields_.size(); ++k) {
            const InColumn& column = given_.fields[k];
            if (!column.IsThere()) continue;
            if (KindOf(conversion_.sourceFields_[k]) == ColumnKind::Letters) {
                ReadLetters(conversion_.sourceFields_[k], column, first_, count_, letters_[k]);
                from.fields[k] = {letters_[k].data(), conversion_.sourceFields_[k].count};
            } else if (KindOf(conversion_.sourceFields_[k]) == ColumnKind::Number) {
                from.fields[k] = {column.At(first_), column.stride};
            } else {
                ReadWholes(column, first_, count_, wholes_[k]);
                from.fields[k] = {wholes_[k].data(), sizeof(double)};
            }
        }
        if (given_.height.IsThere()) from.height = {given_.height.At(first_), given_.height.stride};
        return from;
    }

    [[nodiscard]] TargetColumns Targets() {
        TargetColumns to;
        for (std::size_t k = 0; k < conversion_.targetFields_.size(); ++k) {
            const OutputField& field = conversion_.targetFields_[k];
            const bool isNumber = KindOf(field) == ColumnKind::Number;
            const bool isLetters = KindOf(field) == ColumnKind::Letters;
            to.fields[k] = {
                isNumber ? static_cast<void*>(wanted_.fields[k].At<double>(first_)) : scratch_[k].data(),
                isLetters ? std::ptrdiff_t{field.count} : std::ptrdiff_t{sizeof(double)}};
        }
        if (wanted_.height.IsThere()) to.height = {wanted_.height.At<double>(first_), sizeof(double)};
        if (HasRaised()) to.height = {heights_.data(), sizeof(double)};
        to.status = {status_.data(), sizeof(KoordStatus)};
        return to;
    }

    // Earth-centred positions are converted on the ellipsoid first; their heights are added afterwards.
    [[nodiscard]] bool HasRaised() const {
        return !conversion_.GivesHeight() && (given_.height.IsThere() || conversion_.KnowsHeight());
    }

    void Raise() const {
        tagKOORD record = conversion_.target_;
        for (std::size_t i = 0; i < count_; ++i) {
            const auto& fields = wanted_.fields;
            Store(record, EcefPayload{fields[0].Number(first_ + i), fields[1].Number(first_ + i),
                                      fields[2].Number(first_ + i)});
            CKoord raised(record);
            raised.SetHeight(heights_[i]);
            const auto at = Load<EcefPayload>(raised);
            fields[0].Put(first_ + i, at.x);
            fields[1].Put(first_ + i, at.y);
            fields[2].Put(first_ + i, at.z);
        }
    }

    [[nodiscard]] std::optional<Failure> Judge(DistantZones distant) {
        for (std::size_t k = 0; k < conversion_.targetFields_.size(); ++k)
            FindMissing(conversion_.targetFields_[k], wanted_.fields[k]);
        std::optional<Failure> failure;
        for (std::size_t i = 0; i < count_; ++i) {
            if (status_[i] == KOORD_OK) continue;
            if (!failure) failure = {first_ + i, status_[i]};
            if (status_[i] != KOORD_ERR_ZONE_DISTANT || distant == DistantZones::Missing)
                WriteNothing(first_ + i);
        }
        if (wanted_.status.IsThere())
            std::memcpy(wanted_.status.At<KoordStatus>(first_), status_.data(), count_ * sizeof status_[0]);
        return failure;
    }

    void FindMissing(const OutputField& field, const OutColumn& column) {
        if (KindOf(field) != ColumnKind::Number) return;
        for (std::size_t i = 0; i < count_; ++i) {
            if (status_[i] == KOORD_OK && !std::isfinite(column.Number(first_ + i)))
                status_[i] = StatusOfMissing(field);
        }
    }

    void WriteNothing(std::size_t row) const {
        for (std::size_t k = 0; k < conversion_.targetFields_.size(); ++k)
            WriteMissing(conversion_.targetFields_[k], row, wanted_.fields[k]);
        if (wanted_.height.IsThere()) wanted_.height.Put(row, std::nan(""));
    }

    const PreparedConversion& conversion_;
    const GivenColumns& given_;
    const WantedColumns& wanted_;
    std::size_t first_ = 0;
    std::size_t count_ = 0;
    std::array<std::array<char, BLOCK * MOST_LETTERS>, COLUMN_COUNT> letters_;
    std::array<std::array<double, BLOCK>, COLUMN_COUNT> wholes_;
    std::array<std::array<double, BLOCK>, COLUMN_COUNT> scratch_;
    std::array<double, BLOCK> heights_;
    std::array<KoordStatus, BLOCK> status_;
};

PreparedConversion::PreparedConversion(toolkit::Reference from, toolkit::Reference to,
                                       std::optional<std::int32_t> zone)
    : from_(std::move(from)),
      to_(WithZone(std::move(to), zone)),
      sourceFields_(System_Columns(from_.system)),
      targetFields_(System_Columns(to_.system)),
      source_(toolkit::DefaultRecord(from_)),
      target_(toolkit::DefaultRecord(to_)) {
    for (const toolkit::Reference& reference : {from_, to_}) {
        if (toolkit::IsPixel(reference.system))
            throw std::invalid_argument("conversion of pixels requires a Map");
    }
    if (from_.system == KOORD_GEOREF) source_ = WrittenGeoref(from_.datum);
}

std::optional<FieldPair> PreparedConversion::NorthAndEast() const {
    if (from_.system == KOORD_ECEF) return std::nullopt;
    const auto north = FieldCalled({"latitude", "fullNorthing", "northing", "y"}, sourceFields_);
    const auto east = FieldCalled({"longitude", "fullEasting", "easting", "x"}, sourceFields_);
    if (!north || !east) return std::nullopt;
    return FieldPair{*north, *east};
}

tagKOORD PreparedConversion::SourceAt(FieldPair pair, double north, double east) const {
    tagKOORD source = source_;
    std::memcpy(source.payload + sourceFields_[pair.north].offset, &north, sizeof north);
    std::memcpy(source.payload + sourceFields_[pair.east].offset, &east, sizeof east);
    return source;
}

bool PreparedConversion::KnowsHeight() const {
    return from_.system == KOORD_ECEF;
}

bool PreparedConversion::GivesHeight() const {
    return to_.system != KOORD_ECEF;
}

KoordStatus PreparedConversion::Convert(const tagKOORD& source, tagKOORD* target) const {
    *target = target_;
    const KoordStatus status = KoordConvert(&source, target);
    if (status != KOORD_OK) return status;
    for (const OutputField& field : targetFields_) {
        if (!IsFinite(field, *target)) return StatusOfMissing(field);
    }
    return KOORD_OK;
}

std::optional<Failure> PreparedConversion::Convert(const GivenColumns& given, std::size_t count,
                                                   DistantZones distant, const WantedColumns& wanted) const {
    std::optional<Failure> failure;
    Block block(*this, given, wanted);
    for (std::size_t first = 0; first < count; first += BLOCK) {
        const std::optional<Failure> found = block.Convert(first, std::min(BLOCK, count - first), distant);
        if (!failure) failure = found;
    }
    return failure;
}

}  // namespace tessara::python
