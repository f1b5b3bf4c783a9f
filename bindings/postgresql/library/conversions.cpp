// Conversions between two references, prepared once and applied to positions and to arrays of them.
#include <algorithm>
#include <array>
#include <cmath>

#include "guard.h"
#include "records.h"
#include "tessara/kernel/columns.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/limits.h"

namespace tessara::postgresql {
namespace {

struct Prepared {
    Prepared(const toolkit::Reference& from, const toolkit::Reference& to)
        : source(toolkit::DefaultRecord(from)),
          target(toolkit::DefaultRecord(to)),
          sourcePair(NorthAndEast(from.system)),
          targetPair(NorthAndEast(to.system)),
          form(to.datum, to.system),
          fromName(from.Name()),
          toName(to.Name()) {
        if (from.system != KOORD_UTM) return;
        // A position of UTM lies in the zone that the reference names, where a target only wants it.
        auto p = Load<UtmPayload>(source);
        if (p.wantedZone != NO_WANTED_ZONE) p.zone = p.wantedZone;
        Store(source, p);
    }

    [[nodiscard]] tagKOORD SourceAt(double north, double east) const {
        tagKOORD record = source;
        std::memcpy(record.payload + sourcePair->north.offset, &north, sizeof north);
        std::memcpy(record.payload + sourcePair->east.offset, &east, sizeof east);
        return record;
    }

    [[nodiscard]] KoordStatus Convert(const tagKOORD& from, tagKOORD* to) const {
        *to = target;
        const KoordStatus status = KoordConvert(&from, to);
        if (status != KOORD_OK || !targetPair) return status;
        const bool isFinite =
            std::isfinite(NumberOf(targetPair->north, *to)) && std::isfinite(NumberOf(targetPair->east, *to));
        return isFinite ? KOORD_OK : KOORD_ERR_OUTSIDE;
    }

    // Whether north and east are all that there is to say of a position of the source; throws if not.
    void NeedSourcePair() const {
        if (!sourcePair)
            throw Thrown{TESSARA_WRONG_ARGUMENT,
                         "positions in " + fromName + " aren't two numbers",
                         {},
                         "tessara_parse and the texts of tessara_position read them."};
    }
    void NeedTargetPair() const {
        if (!targetPair)
            throw Thrown{TESSARA_WRONG_ARGUMENT,
                         "positions in " + toName + " aren't two numbers",
                         {},
                         "tessara_convert gives them as a tessara_position."};
    }

    tagKOORD source;
    tagKOORD target;
    std::optional<FieldPair> sourcePair;
    std::optional<FieldPair> targetPair;
    RecordForm form;
    std::string fromName;
    std::string toName;
};

}  // namespace
}  // namespace tessara::postgresql

struct TessaraConversion {
    tessara::postgresql::Prepared prepared;
};

namespace tessara::postgresql {
namespace {

// The place of a field among the columns of its system.
std::size_t ColumnOf(const OutputField& field, std::int32_t system) {
    const auto columns = System_Columns(system);
    for (std::size_t k = 0; k < columns.size(); ++k) {
        if (columns[k].offset == field.offset && columns[k].kind == field.kind) return k;
    }
    throw Thrown{TESSARA_INTERNAL, "a field without a column"};
}

std::optional<std::size_t> ZoneColumn(std::int32_t system) {
    const auto columns = System_Columns(system);
    for (std::size_t k = 0; k < columns.size(); ++k) {
        const std::string_view name = columns[k].name;
        if (name == "zone" || name == "meridian") return k;
    }
    return std::nullopt;
}

std::int32_t SystemOf(const tagKOORD& record) {
    return static_cast<std::int32_t>(record.type);
}

bool KeepPosition(const Prepared& conversion, const tagKOORD& source, TessaraPosition* position,
                  KoordStatus* status) {
    tagKOORD target;
    *status = conversion.Convert(source, &target);
    if (*status != KOORD_OK) return false;
    const tagKOORD canonical = conversion.form.Canonical(target);
    double degrees[2];
    *status = ToDegrees(canonical, degrees);
    if (*status != KOORD_OK) return false;
    *position = PositionOf(canonical);
    return true;
}

constexpr std::size_t BLOCK = 512;

}  // namespace

extern "C" {

TessaraConversion* Tessara_NewConversion(const char* from, const char* to, TessaraError* error) noexcept {
    TessaraConversion* made = nullptr;
    Guarded(error, [&] {
        made = new TessaraConversion{Prepared(ReferenceOf(from), ReferenceOf(to))};
        return true;
    });
    return made;
}

void Tessara_FreeConversion(TessaraConversion* conversion) noexcept {
    delete conversion;
}

bool Tessara_CheckReference(const char* name, char text[TESSARA_TEXT_SIZE], TessaraError* error) noexcept {
    return Guarded(error, [&] {
        CopyText(ReferenceOf(name).Name(), *reinterpret_cast<char(*)[TESSARA_TEXT_SIZE]>(text));
        return true;
    });
}

bool Tessara_HasZones(const TessaraConversion* conversion) noexcept {
    return ZoneColumn(SystemOf(conversion->prepared.target)).has_value();
}

bool Tessara_Convert(const TessaraConversion* conversion, double north, double east,
                     TessaraPosition* position, TessaraError* error) noexcept {
    return Guarded(error, [&] {
        conversion->prepared.NeedSourcePair();
        KoordStatus status = KOORD_OK;
        if (KeepPosition(conversion->prepared, conversion->prepared.SourceAt(north, east), position, &status))
            return true;
        return NoPosition(north, east, status, error);
    });
}

bool Tessara_ConvertPosition(const TessaraConversion* conversion, const TessaraPosition* source,
                             TessaraPosition* position, TessaraError* error) noexcept {
    return Guarded(error, [&] {
        KoordStatus status = KOORD_OK;
        if (KeepPosition(conversion->prepared, RecordOf(*source), position, &status)) return true;
        double degrees[2];
        Tessara_DegreesOf(source, degrees);
        return NoPosition(degrees[0], degrees[1], status, error);
    });
}

bool Tessara_ConvertNumbers(const TessaraConversion* conversion, double north, double east, double numbers[2],
                            TessaraError* error) noexcept {
    return Guarded(error, [&] {
        conversion->prepared.NeedSourcePair();
        conversion->prepared.NeedTargetPair();
        tagKOORD target;
        const KoordStatus status =
            conversion->prepared.Convert(conversion->prepared.SourceAt(north, east), &target);
        if (status != KOORD_OK) return NoPosition(north, east, status, error);
        numbers[0] = NumberOf(conversion->prepared.targetPair->north, target);
        numbers[1] = NumberOf(conversion->prepared.targetPair->east, target);
        return true;
    });
}

size_t Tessara_ConvertArrays(const TessaraConversion* conversion, const double* norths, const double* easts,
                             size_t count, double* targetNorths, double* targetEasts, double* zones,
                             TessaraError* error) noexcept {
    std::size_t failed = count;
    Guarded(error, [&] {
        failed = 0;
        conversion->prepared.NeedSourcePair();
        conversion->prepared.NeedTargetPair();
        failed = count;
        const std::int32_t fromSystem = SystemOf(conversion->prepared.source);
        const std::int32_t toSystem = SystemOf(conversion->prepared.target);
        const std::size_t northIn = ColumnOf(conversion->prepared.sourcePair->north, fromSystem);
        const std::size_t eastIn = ColumnOf(conversion->prepared.sourcePair->east, fromSystem);
        const std::size_t northOut = ColumnOf(conversion->prepared.targetPair->north, toSystem);
        const std::size_t eastOut = ColumnOf(conversion->prepared.targetPair->east, toSystem);
        const std::optional<std::size_t> zoneOut = ZoneColumn(toSystem);
        for (std::size_t first = 0; first < count; first += BLOCK) {
            const std::size_t rows = std::min(BLOCK, count - first);
            std::array<KoordStatus, BLOCK> statuses;
            SourceColumns from;
            from.fields[northIn] = {norths + first, sizeof(double)};
            from.fields[eastIn] = {easts + first, sizeof(double)};
            TargetColumns to;
            to.fields[northOut] = {targetNorths + first, sizeof(double)};
            to.fields[eastOut] = {targetEasts + first, sizeof(double)};
            if (zoneOut) to.fields[*zoneOut] = {zones + first, sizeof(double)};
            to.status = {statuses.data(), sizeof(KoordStatus)};
            KoordConvertColumns(&conversion->prepared.source, &from, &conversion->prepared.target, &to, rows,
                                1);
            for (std::size_t i = 0; i < rows; ++i) {
                const std::size_t row = first + i;
                const bool isThere = statuses[i] == KOORD_OK && std::isfinite(targetNorths[row]) &&
                                     std::isfinite(targetEasts[row]);
                if (isThere) continue;
                targetNorths[row] = targetEasts[row] = std::nan("");
                if (zoneOut) zones[row] = std::nan("");
                if (failed != count) continue;
                failed = row;
                NoPosition(norths[row], easts[row], statuses[i] == KOORD_OK ? KOORD_ERR_OUTSIDE : statuses[i],
                           error);
            }
        }
        return true;
    });
    return failed;
}

}  // extern "C"

}  // namespace tessara::postgresql
