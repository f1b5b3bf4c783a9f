// Prints a digest of conversions for each type of coordinates and each direction, of geodesics, and of
// elementary functions: the same text from every compiler, on every processor. stored/N.txt has the digest of
// N positions; a change that is meant to change results stores it anew and says why.
//
//     conversion_digest [POSITIONS]      of so many positions a type, 100 000 if nothing is said
//     conversion_digest POSITIONS FILE   writes statuses and records there, too, for comparing them one by
//     one

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "numerics/arcs.h"
#include "numerics/circular.h"
#include "numerics/exponential.h"
#include "numerics/hypotenuse.h"
#include "numerics/logarithm.h"
#include "numerics/rounding.h"
#include "support/byte_order.h"
#include "support/garbage_records.h"
#include "support/random.h"
#include "support/records.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/geodesic.h"

namespace tessara {
namespace {

using testing::Random;

// Where a system is used, and on which datum.
struct Home {
    std::int32_t type;
    const char* name;
    std::int32_t datum;
    double south, north, west, east;
};

constexpr Home HOMES[] = {
    {KOORD_UTM, "UTM", 2, -81.0, 85.0, -181.0, 181.0},
    {KOORD_UTMREF, "UTMREF", 2, -81.0, 85.0, -181.0, 181.0},
    {KOORD_GEODEZ, "GEODEZ", 2, -91.0, 91.0, -361.0, 361.0},
    {KOORD_GEOGRAD, "GEOGRAD", 2, -91.0, 91.0, -361.0, 361.0},
    {KOORD_GEOREF, "GEOREF", 2, -91.0, 91.0, -181.0, 181.0},
    {KOORD_GK, "GK", 3, -81.0, 81.0, -181.0, 181.0},
    {KOORD_BMN, "BMN", 6, 45.0, 51.0, 8.5, 18.0},
    {KOORD_OEM, "OEM", 6, 45.0, 51.0, 8.5, 18.0},
    {KOORD_CH, "CH", 7, 45.5, 48.2, 5.5, 10.8},
    {KOORD_ECEF, "ECEF", 2, -91.0, 91.0, -181.0, 181.0},
    {KOORD_GEODEZMIN, "GEODEZMIN", 2, -91.0, 91.0, -361.0, 361.0},
    {KOORD_GK6, "GK6", 3, -81.0, 81.0, -181.0, 181.0},
    {KOORD_GKAT, "GK-AT", 6, 45.0, 51.0, 8.5, 18.0},
    {KOORD_UPS, "UPS", 2, 79.5, 90.0, -181.0, 181.0},
    {KOORD_PO_MILITARY, "PO_MILITARY", 1, 36.0, 43.0, -10.0, -6.0},
    {KOORD_TM, "TM", 2, -85.0, 85.0, -30.0, 50.0},
    {KOORD_VDG, "VDG", 2, -90.0, 90.0, -181.0, 181.0},
    {KOORD_BNG, "BNG", 98, 49.0, 62.0, -9.0, 3.0},
    {KOORD_ING, "ING", 97, 51.0, 56.0, -11.0, -5.0},
    {KOORD_RD, "RD", 237, 50.0, 54.0, 3.0, 8.0},
    {KOORD_LUREF, "LUREF", 238, 49.0, 50.5, 5.5, 7.0},
    {KOORD_LAMBERTCC, "LAMBERTCC", 2, 20.0, 85.0, -60.0, 80.0},
};

// FNV-1a, by words.
class Digest {
  public:
    void Add(std::uint64_t word) { state_ = (state_ ^ word) * 0x100000001B3; }

    void Add(const tagKOORD& record) {
        Add(std::uint64_t{record.type} << 32 | record.datum);
        const tagKOORD image = testing::LittleEndian(record);
        for (std::size_t at = 0; at < sizeof image.payload; at += sizeof(std::uint64_t)) {
            std::uint64_t word;
            std::memcpy(&word, image.payload + at, sizeof word);
            Add(testing::LittleEndian(word));
        }
    }

    // What isn't a number counts the same: its bits are the processor's.
    void Add(double value) {
        Add(std::isnan(value) ? std::uint64_t{0} : std::bit_cast<std::uint64_t>(value));
    }

    void Add(const GeodesicResult& result) {
        for (const double value : {result.latitude, result.longitude, result.backAzimuth})
            Add(value);
    }

    [[nodiscard]] unsigned long long Value() const { return state_; }

  private:
    std::uint64_t state_ = 0xCBF29CE484222325;
};

class Conversions {
  public:
    explicit Conversions(std::FILE* records) : records_(records) {}

    void Convert(const tagKOORD& source, std::int32_t checkRange, tagKOORD* target) {
        const KoordStatus status = KoordConvertEx(&source, target, checkRange);
        digest_.Add(static_cast<std::uint64_t>(status));
        digest_.Add(*target);
        if (records_ == nullptr) return;
        const auto stored = static_cast<std::int32_t>(status);
        std::fwrite(&stored, sizeof stored, 1, records_);
        std::fwrite(target, sizeof *target, 1, records_);
    }

    [[nodiscard]] unsigned long long Digest() const { return digest_.Value(); }

  private:
    tessara::Digest digest_;
    std::FILE* records_;
};

// Most positions are at home; some are anywhere, on borders, or next to them.
GeodezPayload PositionFor(const Home& home, Random& random) {
    const std::int32_t kind = random.Below(16);
    if (kind == 0) return {random.Between(-90.0, 90.0), random.Between(-180.0, 180.0), 0.0};
    if (kind == 1) return {random.Below(37) * 5.0 - 90.0, random.Below(121) * 3.0 - 180.0, 0.0};
    if (kind == 2) {
        constexpr double nudges[] = {0.0, 1e-13, -1e-13, 1e-9, -1e-9, 1e-6};
        return {random.Below(37) * 5.0 - 90.0 + random.OneOf(nudges),
                random.Below(121) * 3.0 - 180.0 + random.OneOf(nudges), 0.0};
    }
    const double latitude = random.Between(home.south, home.north);
    const double height = random.Below(2) == 0 ? 0.0 : random.Between(-100.0, 9000.0);
    return {latitude, random.Between(home.west, home.east), height};
}

tagKOORD TargetFor(const Home& home, std::int32_t datum, Random& random) {
    tagKOORD target = NaturalTarget(home.type, datum);
    if (home.type == KOORD_TM) {
        Store(target, TmPayload{random.Below(8) * 6.0 - 9.0, random.Below(7) * 10.0, 500000.0, 0.0, 0.9996,
                                0.0, 0.0});
    } else if (home.type == KOORD_VDG) {
        Store(target, VdgPayload{random.Below(5) * 10.0 - 20.0, random.Below(3) * 10.0 - 10.0, 0.0, 0.0});
    } else if (home.type == KOORD_LAMBERTCC) {
        LambertCCPayload payload{};
        payload.parallel1 = static_cast<float>(random.Below(12)) * 2.5f + 35.0f;
        payload.parallel2 = static_cast<float>(random.Below(12)) * 2.5f + 35.0f;
        payload.originLongitude = static_cast<float>(random.Below(5)) * 5.0f;
        payload.originLatitude = 51.0f;
        payload.falseEasting = 400000.0;
        Store(target, payload);
    }
    return target;
}

std::int32_t DatumFor(const Home& home, Random& random) {
    return random.Below(2) == 0 ? home.datum : random.Below(DATUM_COUNT);
}

void DigestType(const Home& home, int positions, std::FILE* records) {
    Random random(1000 + static_cast<std::uint64_t>(home.type));
    Conversions into(records);
    Conversions outOf(records);
    Conversions garbage(records);
    for (int i = 0; i < positions; ++i) {
        const GeodezPayload position = PositionFor(home, random);
        const tagKOORD degrees = Record(KOORD_GEODEZ, position, DatumFor(home, random));
        tagKOORD record = TargetFor(home, DatumFor(home, random), random);
        tagKOORD back = MakeKoord(DatumFor(home, random), KOORD_GEODEZ);
        into.Convert(degrees, 1, &record);
        into.Convert(degrees, 0, &record);
        outOf.Convert(record, 1, &back);
        testing::Mutate(random, &record);
        garbage.Convert(record, 1, &back);
    }
    std::printf("%-12s %016llx %016llx %016llx\n", home.name, into.Digest(), outOf.Digest(),
                garbage.Digest());
}

void DigestGeodesics(int positions) {
    Random random(1);
    Digest inverse;
    Digest direct;
    for (int i = 0; i < positions; ++i) {
        const Home home = random.OneOf(HOMES);
        const GeodezPayload from = PositionFor(home, random);
        const GeodezPayload to = PositionFor(home, random);
        double axes[2];
        Geodesic_LoadAxes(axes, random.Below(DATUM_COUNT));
        inverse.Add(
            Geodesic_InverseCore(from.latitude, from.longitude, to.latitude, to.longitude, axes[0], axes[1]));
        const double distance = random.Between(0.0, 2e7);
        const double azimuth = random.Between(0.0, 360.0);
        direct.Add(Geodesic_DirectCore(from.latitude, from.longitude, distance, azimuth, axes[0], axes[1]));
    }
    std::printf("%-12s %016llx %016llx\n", "geodesics", inverse.Value(), direct.Value());
}

// Tests compare these functions with exact ones where there is a library of those.
constexpr double (*FUNCTIONS[])(double) = {Sin, Cos, Tan, Asin, Acos, Atan, Exp, Log, Sinh, Artanh};
constexpr double (*FUNCTIONS_OF_TWO[])(double, double) = {Atan2, Pow, Hypot, Fmod, Remainder};

double AnyArgument(Random& random) {
    constexpr double ranges[] = {1e-9, 1.0, 10.0, 1000.0, 1e9};
    if (random.Below(4) == 0) return std::bit_cast<double>(random.Bits());
    const double range = random.OneOf(ranges);
    return random.Between(-range, range);
}

void DigestFunctions(int arguments) {
    Random random(2);
    Digest ofOne;
    Digest ofTwo;
    for (int i = 0; i < arguments; ++i) {
        const double x = AnyArgument(random);
        const double y = AnyArgument(random);
        for (const auto function : FUNCTIONS)
            ofOne.Add(function(x));
        for (const auto function : FUNCTIONS_OF_TWO)
            ofTwo.Add(function(x, y));
    }
    std::printf("%-12s %016llx %016llx\n", "functions", ofOne.Value(), ofTwo.Value());
}

int Main(int count, char** arguments) {
    const int positions = count > 1 ? std::atoi(arguments[1]) : 100000;
    std::FILE* records = count > 2 ? std::fopen(arguments[2], "wb") : nullptr;
    for (const Home& home : HOMES)
        DigestType(home, positions, records);
    DigestGeodesics(positions);
    DigestFunctions(positions);
    if (records != nullptr) std::fclose(records);
    return 0;
}

}  // namespace
}  // namespace tessara

int main(int count, char** arguments) {
    return tessara::Main(count, arguments);
}
