#include "map/map_sites.h"

#include "conversion/made.h"
#include "conversion/names.h"
#include "conversion/positions.h"
#include "lines/columns.h"
#include "lines/line_reader.h"
#include "lines/utf8.h"
#include "lines/words.h"
#include "typed/typed_reader.h"

namespace tessara::toolkit {
namespace {

IRef<ICoord> ReadDegrees(const JsonValue& value, std::int32_t datum) {
    const std::vector<JsonValue> degrees = value.ListOf(2);
    const double latitude = degrees[0].NumberIn(-LATITUDE_LIMIT, LATITUDE_LIMIT);
    return DegreesCoord(latitude, degrees[1].NumberIn(-LONGITUDE_LIMIT, LONGITUDE_LIMIT), datum);
}

IRef<ICoord> ReadPixelCoord(const JsonValue& value, std::int32_t datum) {
    tagKOORD record = MakeKoord(datum, KOORD_FLOATPIXEL);
    Store(record, ReadPixel(value));
    return Made(host::CoordOf(record));
}

IRef<ICoord> ReadTexts(JsonObject& object, std::int32_t datum) {
    const TypedReader reader({ReadReference(object.Required("system"), datum)});
    const std::string north = object.Required("north").Text();
    const TypedResult read = reader.Read(north, object.Required("east").Text());
    if (!read.IsRead()) object.Fail(read.fault.reason);
    return Made(host::CoordOf(read.readings.front().record));
}

IRef<ICoord> ReadCoord(JsonObject& object, std::int32_t mapDatum) {
    if (const std::optional<JsonValue> degrees = object.Optional("at")) {
        const std::optional<JsonValue> datum = object.Optional("datum");
        return ReadDegrees(*degrees, datum ? ReadDatum(*datum) : mapDatum);
    }
    if (const std::optional<JsonValue> pixel = object.Optional("pixel"))
        return ReadPixelCoord(*pixel, mapDatum);
    if (object.Optional("system")) return ReadTexts(object, mapDatum);
    object.Fail("expected 'at', 'pixel', or 'system' with 'north' and 'east'");
}

// The content of a line: a site, an error, or nothing.
struct SiteLine {
    std::optional<Site> site;
    std::string error;
};

SiteLine ReadDegreesLine(const std::string& text, std::int32_t datum) {
    const Line line = ReadLine(text);
    if (!line.position) return {std::nullopt, line.error};
    const std::size_t comment = text.find('#');
    return {Site{DegreesCoord(line.position->latitude, line.position->longitude, datum),
                 comment == std::string::npos
                     ? ""
                     : RepairUtf8(std::string(TrimBlanks(std::string_view(text).substr(comment + 1)))),
                 {}},
            {}};
}

SiteLine ReadTextLine(const std::string& text, const TypedReader& reader) {
    if (TrimBlanks(text).empty() || text.starts_with('#')) return {};
    const std::vector<std::string> columns = SplitColumns(TrimBlanks(text), SeparatorOf(text));
    if (columns.size() < 2) return {std::nullopt, "expected a north and an east text, found one column"};
    const TypedResult read = reader.Read(columns[0], columns[1]);
    if (!read.IsRead()) return {std::nullopt, read.fault.reason};
    IRef<ICoord> coord = Made(host::CoordOf(read.readings.front().record));
    return {
        Site{std::move(coord), columns.size() > 2 ? RepairUtf8(std::string(TrimBlanks(columns[2]))) : "", {}},
        {}};
}

template <class ReadText>
std::vector<Site> ReadLines(const LayerFile& file, ReadText readText, std::vector<std::string>* problems) {
    std::vector<Site> sites;
    if (!file.wrong.empty()) problems->push_back(file.name + ": " + file.wrong);
    LineReader lines(file.text);
    for (std::string text; lines.Next(&text);) {
        const std::string where = file.name + ":" + std::to_string(lines.Number());
        SiteLine line = readText(text);
        if (!line.error.empty()) problems->push_back(where + ": " + line.error);
        if (!line.site) continue;
        line.site->where = where;
        sites.push_back(std::move(*line.site));
    }
    return sites;
}

}  // namespace

std::int32_t ReadDatum(const JsonValue& value) {
    const std::string wrong = WrongDatum(value.Text());
    if (!wrong.empty()) value.Fail(wrong);
    return *DatumByName(value.Text());
}

Reference ReadReference(const JsonValue& value, std::int32_t mapDatum) {
    const std::string wrong = WrongReference(value.Text());
    if (!wrong.empty()) value.Fail(wrong);
    return *ReferenceByName(value.Text(), mapDatum);
}

FloatPixelPayload ReadPixel(const JsonValue& value) {
    const std::vector<JsonValue> numbers = value.ListOf(2);
    const double x = numbers[0].NumberIn(-PIXEL_LIMIT, PIXEL_LIMIT);
    return {x, numbers[1].NumberIn(-PIXEL_LIMIT, PIXEL_LIMIT)};
}

IRef<ICoord> DegreesCoord(double latitude, double longitude, std::int32_t datum) {
    tagKOORD record = MakeKoord(datum, KOORD_GEODEZ);
    Store(record, GeodezPayload{latitude, longitude, 0.0});
    return Made(host::CoordOf(record));
}

Site ReadSite(const JsonValue& value, std::int32_t mapDatum) {
    if (!value.IsObject()) return {ReadDegrees(value, mapDatum), {}, value.Place()};
    JsonObject object(value);
    Site site{ReadCoord(object, mapDatum), {}, value.Place()};
    if (const std::optional<JsonValue> name = object.Optional("name")) site.name = name->Text();
    object.RefuseOthers();
    return site;
}

std::vector<Site> ReadSites(const JsonValue& value, std::size_t least, std::int32_t mapDatum) {
    std::vector<Site> sites;
    for (const JsonValue& element : value.List())
        sites.push_back(ReadSite(element, mapDatum));
    if (sites.size() < least)
        value.Fail("expected at least " + std::to_string(least) + " places, found " +
                   std::to_string(sites.size()));
    return sites;
}

std::vector<Site> ReadDegreesFile(const LayerFile& file, std::int32_t datum,
                                  std::vector<std::string>* problems) {
    return ReadLines(
        file, [datum](const std::string& text) { return ReadDegreesLine(text, datum); }, problems);
}

std::vector<Site> ReadTextsFile(const LayerFile& file, const Reference& reference,
                                std::vector<std::string>* problems) {
    const TypedReader reader({reference});
    return ReadLines(
        file, [&reader](const std::string& text) { return ReadTextLine(text, reader); }, problems);
}

}  // namespace tessara::toolkit
