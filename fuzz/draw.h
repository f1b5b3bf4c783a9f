// Draws records, maps and objects from the bytes of a fuzzer: valid ones, ones with a single error, and ones
// of arbitrary bytes.
#pragma once

#include <string>

#include "fuzz/byte_reader.h"
#include "support/maps.h"
#include "support/objects.h"
#include "tessara/array.h"
#include "tessara/ckoord.h"
#include "tessara/coord.h"
#include "tessara/internal/map_param_internal.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/map.h"
#include "tessara/map_coord_operations.h"
#include "tessara/ref.h"

namespace tessara::fuzz {

inline std::int32_t DrawDatum(ByteReader& bytes) {
    static constexpr std::int32_t DATUMS[] = {2, 2, 2, 2, 0, 1, 3, 4, 6, 7, 10, 18, 97, 98, 236, 237, 238};
    const std::uint32_t choice = bytes.Below(8);
    if (choice == 0) return bytes.Integer();
    if (choice == 1) return static_cast<std::int32_t>(bytes.Below(240));
    return bytes.OneOf(DATUMS);
}

inline std::int32_t DrawType(ByteReader& bytes) {
    const std::uint32_t type = bytes.Below(26);
    return type < 25 ? static_cast<std::int32_t>(type) : bytes.Integer();
}

inline tagKOORD DrawDegrees(ByteReader& bytes, std::int32_t datum) {
    tagKOORD record = MakeKoord(datum, KOORD_GEODEZ);
    const double latitude = bytes.Raw<std::int32_t>() * (90.0 / 2147483648.0);
    const double longitude = bytes.Raw<std::int32_t>() * (180.0 / 2147483648.0);
    Store(record, GeodezPayload{latitude, longitude, 0.0});
    return record;
}

// A record of a system with a position, if the system can represent it.
inline tagKOORD DrawPosition(ByteReader& bytes, std::int32_t datum, std::int32_t type) {
    if (IsPixelType(type)) {
        tagKOORD pixel = MakeKoord(datum, type);
        if (type == KOORD_FLOATPIXEL)
            Store(pixel, FloatPixelPayload{bytes.Raw<std::int16_t>() / 4.0, bytes.Raw<std::int16_t>() / 4.0});
        else
            Store(pixel, LongPixelPayload{bytes.Raw<std::int16_t>(), bytes.Raw<std::int16_t>()});
        return pixel;
    }
    const tagKOORD degrees = DrawDegrees(bytes, datum);
    tagKOORD record = NaturalTarget(type, datum);
    if (type == KOORD_TM) Store(record, TmPayload{9.0, 0.0, 500000.0, 0.0, 0.9996, 0.0, 0.0});
    KoordConvertEx(&degrees, &record, 0);
    return record;
}

inline tagKOORD DrawRecord(ByteReader& bytes, std::int32_t datum, std::int32_t type) {
    const std::uint32_t choice = bytes.Below(4);
    tagKOORD record = choice >= 2 ? DrawPosition(bytes, datum, type) : MakeKoord(datum, type);
    if (choice == 0) return bytes.Raw<tagKOORD>();
    if (choice == 1) {
        for (std::size_t at = 0; at < sizeof record.payload; at += sizeof(double)) {
            const double number = bytes.Number();
            std::memcpy(record.payload + at, &number, sizeof number);
        }
    }
    if (choice == 3) {
        const double number = bytes.Number();
        std::memcpy(record.payload + sizeof number * bytes.Below(7), &number, sizeof number);
        const auto word = static_cast<std::int16_t>(bytes.Integer());
        std::memcpy(record.payload + sizeof word * bytes.Below(28), &word, sizeof word);
    }
    return record;
}

inline tagKOORD DrawRecord(ByteReader& bytes) {
    const std::int32_t datum = DrawDatum(bytes);
    const std::int32_t type = DrawType(bytes);
    return DrawRecord(bytes, datum, type);
}

// A map of central Europe of some type.
inline MapParam TypicalMap(std::uint32_t type) {
    using testing::Map;
    const tagKOORD middle = GeodezRecord(48.0, 12.0);
    MapParam map;
    switch (type) {
        case MAP_UTM:
            map = Map(MAP_UTM, MapUtmParams{'N', 32, 675000.0, 5345000.0, 2.5, 2.5});
            break;
        case MAP_GAUKRU:
            map = Map(MAP_GAUKRU, MapGkParams{0, 12, 4455000.0, 5346000.0, 1.25, 1.25});
            break;
        case MAP_GAUKRU6:
            map = Map(MAP_GAUKRU6, MapGkParams{0, 9, 2455000.0, 5346000.0, 5.0, 5.0});
            break;
        case MAP_LAMBERT2:
            map = Map(MAP_LAMBERT2, MapLambert2Params{46.0, 49.0, 12.0});
            break;
        case MAP_LAMBERTFR:
            map = Map(MAP_LAMBERTFR, MapLambertFrParams{2, 600000.0, 2200000.0});
            break;
        case MAP_EQUALARC:
            map = Map(MAP_EQUALARC, MapEqualArcParams{1, 50.0, 10.0, 0.01, 0.01});
            break;
        case MAP_POLYNOM:
            map = Map(
                MAP_POLYNOM,
                MapPolynomParams{
                    3, {50.0, 0.0, -0.01}, {10.0, 0.01, 0.0}, {-1000.0, 100.0, 0.0}, {5000.0, 0.0, -100.0}});
            break;
        case MAP_MERCATOR:
            map = Map(MAP_MERCATOR, MapMercatorParams{30.0, {}});
            break;
        case MAP_BMN:
            map = Map(MAP_BMN, MapBmnParams{31, 450000.0, 350000.0, 2.5, 2.5});
            break;
        case MAP_CH:
            map = Map(MAP_CH, MapPlaneParams{585000.0, 206000.0, 1.25, 1.25});
            break;
        case MAP_AZYL:
            map = Map(MAP_AZYL, MapAzylParams{48.0, {}});
            break;
        case MAP_UPS:
            map = Map(MAP_UPS, MapUpsParams{'N', 1500000.0, 2500000.0, 250.0, 250.0});
            break;
        case MAP_VAN_DER_GRINTEN:
            map = Map(MAP_VAN_DER_GRINTEN, MapVdgParams{10.0, 0.0});
            break;
        case MAP_STEREOGR_NL:
            map = Map(MAP_STEREOGR_NL, MapPlaneParams{110000.0, 500000.0, 2.5, 2.5});
            break;
        case MAP_LAMBERTCC:
            map = Map(MAP_LAMBERTCC, MapLambertCcParams{49.0, 44.0, 3.0, 46.5, 700000.0, 6600000.0, 250.0,
                                                        250.0, 2400.5, 2400.25});
            break;
        case MAP_WAGNER_IV:
            map = Map(MAP_WAGNER_IV, MapWagnerIvParams{10.0, 1.0, 1.0});
            break;
        case MAP_TM:
        case MAP_PO_MILITARY:
        case MAP_LUREF:
            map = Map(static_cast<MapType>(type),
                      MapTmParams{12.0, 48.0, 80000.0, 100000.0, 1.0, 70000.0, 110000.0, 2.5, 2.5});
            break;
        default:
            map = Map(MAP_DD, MapDdParams{8.0, 52.0, 100.0, 100.0});
            break;
    }
    return testing::WithReference(map, middle, 500, 400, 1000000, 10.0);
}

inline MapParam DrawMap(ByteReader& bytes) {
    MapParam map = TypicalMap(bytes.Below(24));
    const std::uint32_t choice = bytes.Below(8);
    if (choice < 3) return map;
    if (choice == 3) map.type = bytes.Below(24);
    if (choice == 4) map.datum = static_cast<std::uint32_t>(DrawDatum(bytes));
    if (choice == 5) map.reference = {DrawRecord(bytes), bytes.Integer(), bytes.Integer(), nullptr};
    if (choice == 6) map.scaleDenominator = bytes.Integer();
    if (choice == 6) map.resolution = bytes.Number();
    for (std::uint32_t places = bytes.Below(8); places > 0; --places) {
        const double number = bytes.Number();
        std::memcpy(map.params + sizeof number * bytes.Below(41), &number, sizeof number);
    }
    if (choice == 7) {
        const std::int32_t number = bytes.Integer();
        std::memcpy(map.params, &number, sizeof number);
    }
    return map;
}

inline IRef<IMapCoordOperations> DrawMapObject(ByteReader& bytes) {
    IRef<IMapCoordOperations> map(CreateClassMapCoordOperations());
    const MapParam record = DrawMap(bytes);
    IRef<IMapParamInternal>(map)->SetMapParam(&record);
    return map;
}

inline IRef<ICoord> CoordOf(const CKoord& koord) {
    IRef<ICoord> coord(CreateClassCoord());
    IRef<ICoordInternal>(coord)->SetKoord(&koord);
    return coord;
}

inline IRef<ICoord> DrawCoord(ByteReader& bytes) {
    if (bytes.Below(16) == 0) return IRef<ICoord>(CreateClassCoord());
    return CoordOf(DrawRecord(bytes));
}

inline IRef<ITessaraString> DrawText(ByteReader& bytes, std::uint32_t limit) {
    return testing::MakeText(bytes.Text(limit).c_str());
}

// A line or polygon of up to `limit` points in one or several systems, with repeated vertices, null elements
// and elements of other classes.
inline IRef<IArray> DrawLine(ByteReader& bytes, std::uint32_t limit) {
    IRef<IArray> line(CreateClassArray());
    const std::int32_t datum = DrawDatum(bytes);
    const std::int32_t type = DrawType(bytes);
    const bool isOrderly = bytes.Below(8) != 0;
    const std::uint32_t count = bytes.Below(limit + 1);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t choice = isOrderly ? bytes.Below(12) : bytes.Below(16);
        if (choice == 0 && i > 0)
            line->Add(line->GetAt(bytes.Below(i)));
        else if (choice == 12)
            line->Add(nullptr);
        else if (choice == 13)
            line->Add(testing::MakeStranger().Get());
        else if (choice >= 14)
            line->Add(DrawCoord(bytes).Get());
        else
            line->Add(CoordOf(choice < 3 ? DrawRecord(bytes, datum, type) : DrawPosition(bytes, datum, type))
                          .Get());
    }
    return line;
}

}  // namespace tessara::fuzz
