#include "bench/peers/record_values.h"

namespace tessara::bench {

Values ValuesOfMgrs(int zone, char band, char column, char row, int easting, int northing) {
    return {1e7 * zone + 1e5 * column + easting, 1e7 * band + 1e5 * row + northing, 0.0};
}

Values ValuesOfMgrsText(const std::string& text) {
    return ValuesOfMgrs(std::stoi(text.substr(0, 2)), text[2], text[3], text[4], std::stoi(text.substr(5, 5)),
                        std::stoi(text.substr(10, 5)));
}

Values ValuesOf(const tagKOORD& record) {
    switch (record.type) {
        case KOORD_UTM: {
            const auto p = Load<UtmPayload>(record);
            return {p.easting, p.northing, 0.0};
        }
        case KOORD_UTMREF: {
            const auto p = Load<UtmrefPayload>(record);
            return ValuesOfMgrs(p.zone, p.band, p.column, p.row, p.easting, p.northing);
        }
        case KOORD_GEODEZ: {
            const auto p = Load<GeodezPayload>(record);
            return {p.latitude, p.longitude, 0.0};
        }
        case KOORD_GK: {
            const auto p = Load<GkPayload>(record);
            return {p.easting, p.northing, 0.0};
        }
        case KOORD_CH:
        case KOORD_RD: {
            const auto p = Load<GridPayload>(record);
            return {p.easting, p.northing, 0.0};
        }
        case KOORD_UPS: {
            const auto p = Load<UpsPayload>(record);
            return {p.easting, p.northing, 0.0};
        }
        case KOORD_ECEF: {
            const auto p = Load<EcefPayload>(record);
            return {p.x, p.y, p.z};
        }
        case KOORD_VDG: {
            const auto p = Load<VdgPayload>(record);
            return {p.x, p.y, 0.0};
        }
        case KOORD_BNG: {
            const auto p = Load<LetterGridPayload>(record);
            return {p.fullEasting, p.fullNorthing, 0.0};
        }
        case KOORD_LAMBERTCC: {
            const auto p = Load<LambertCCPayload>(record);
            return {p.easting, p.northing, 0.0};
        }
        default:
            Fail("a record of a type that isn't compared");
    }
}

std::vector<Values> ValuesOf(const std::vector<tagKOORD>& records) {
    std::vector<Values> values;
    for (const tagKOORD& record : records)
        values.push_back(ValuesOf(record));
    return values;
}

}  // namespace tessara::bench
