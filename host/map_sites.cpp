#include "map_sites.h"

#include <fstream>

#include "columns.h"
#include "names.h"
#include "positions.h"
#include "typed_position.h"

namespace tessara::program {
namespace {

constexpr double LATITUDE_LIMIT = 90.0;
constexpr double LONGITUDE_LIMIT = 360.0;
constexpr double PIXEL_LIMIT = 1e9;

IRef<ICoord> CoordOf(const tagKOORD& record) {
    IRef<ICoord> coord(CreateClassCoord());
    const CKoord koord(record);
    IRef<ICoordInternal>(coord)->SetKoord(&koord);
    return coord;
}

IRef<ICoord> ReadDegrees(const JsonValue& value, std::int32_t datum) {
    const std::vector<JsonValue> degrees = value.ListOf(2);
    const double latitude = degrees[0].NumberIn(-LATITUDE_LIMIT, LATITUDE_LIMIT);
    return DegreesCoord(latitude, degrees[1].NumberIn(-LONGITUDE_LIMIT, LONGITUDE_LIMIT), datum);
}

IRef<ICoord> ReadPixel(const JsonValue& value, std::int32_t datum) {
    const std::vector<JsonValue> numbers = value.ListOf(2);
    tagKOORD record = MakeKoord(datum, KOORD_FLOATPIXEL);
    const double x = numbers[0].NumberIn(-PIXEL_LIMIT, PIXEL_LIMIT);
    Store(record, FloatPixelPayload{x, numbers[1].NumberIn(-PIXEL_LIMIT, PIXEL_LIMIT)});
    return CoordOf(record);
}

IRef<ICoord> ReadTexts(JsonObject& object, std::int32_t datum) {
    const JsonValue system = object.Required("system");
    const std::string wrongSystem = WrongReference(system.Text());
    if (!wrongSystem.empty()) system.Fail(wrongSystem);

    TypedPosition position(*ReferenceByName(system.Text(), datum));
    const std::string north = object.Required("north").Text();
    const std::string wrong = position.Read(north, object.Required("east").Text());
    if (!wrong.empty()) object.Fail(wrong);

    IRef<ICoord> coord(CreateClassCoord());
    position.Held()->GetCoord(coord.Get());
    return coord;
}

std::int32_t ReadDatum(JsonObject& object, std::int32_t defaultDatum) {
    const std::optional<JsonValue> name = object.Optional("datum");
    if (!name) return defaultDatum;
    const std::optional<std::int32_t> datum = DatumByName(name->Text());
    if (!datum) name->Fail("no datum is called '" + name->Text() + "'; `tessara datums` lists them");
    return *datum;
}

IRef<ICoord> ReadCoord(JsonObject& object, std::int32_t mapDatum) {
    if (const std::optional<JsonValue> degrees = object.Optional("at"))
        return ReadDegrees(*degrees, ReadDatum(object, mapDatum));
    if (const std::optional<JsonValue> pixel = object.Optional("pixel")) return ReadPixel(*pixel, mapDatum);
    if (object.Optional("system")) return ReadTexts(object, mapDatum);
    object.Fail("a place has 'at', 'pixel', or 'system', 'north' and 'east'");
}

// A name for the picture, which is UTF-8; a file may hold anything.
std::string ToName(const std::string& bytes) {
    constexpr auto replace = nlohmann::json::error_handler_t::replace;
    return nlohmann::json::parse(nlohmann::json(bytes).dump(-1, ' ', false, replace)).get<std::string>();
}

// The text between the blanks on both sides.
std::string Trim(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t\r");
    if (begin == std::string_view::npos) return {};
    return std::string(text.substr(begin, text.find_last_not_of(" \t\r") + 1 - begin));
}

// What a line of a file says: a site, what is wrong with it, or nothing.
struct SiteLine {
    std::optional<Site> site;
    std::string error;
};

SiteLine ReadDegreesLine(const std::string& text, std::int32_t datum) {
    const Line line = ReadLine(text);
    if (!line.position) return {std::nullopt, line.error};
    const std::size_t comment = text.find('#');
    return {Site{DegreesCoord(line.position->latitude, line.position->longitude, datum),
                 comment == std::string::npos ? "" : ToName(Trim(std::string_view(text).substr(comment + 1))),
                 {}},
            {}};
}

SiteLine ReadTextLine(const std::string& text, TypedPosition& position) {
    if (Trim(text).empty() || text.starts_with('#')) return {};
    const std::vector<std::string> columns = SplitColumns(Trim(text), SeparatorOf(text));
    if (columns.size() < 2) return {std::nullopt, "expected a north and an east text, found one column"};
    const std::string wrong = position.Read(columns[0], columns[1]);
    if (!wrong.empty()) return {std::nullopt, wrong};
    IRef<ICoord> coord(CreateClassCoord());
    position.Held()->GetCoord(coord.Get());
    return {Site{std::move(coord), columns.size() > 2 ? ToName(Trim(columns[2])) : "", {}}, {}};
}

template <class ReadText>
std::vector<Site> ReadLines(const std::filesystem::path& file, ReadText readText,
                            std::vector<std::string>* problems) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream || std::filesystem::is_directory(file)) {
        problems->push_back(file.string() + ": can't be read");
        return {};
    }
    std::vector<Site> sites;
    std::string text;
    for (int number = 1; std::getline(stream, text); ++number) {
        const std::string where = file.string() + ":" + std::to_string(number);
        SiteLine line = readText(text);
        if (!line.error.empty()) problems->push_back(where + ": " + line.error);
        if (!line.site) continue;
        line.site->where = where;
        sites.push_back(std::move(*line.site));
    }
    return sites;
}

}  // namespace

IRef<ICoord> DegreesCoord(double latitude, double longitude, std::int32_t datum) {
    tagKOORD record = MakeKoord(datum, KOORD_GEODEZ);
    Store(record, GeodezPayload{latitude, longitude, 0.0});
    return CoordOf(record);
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
        value.Fail("expected " + std::to_string(least) + " places at least, found " +
                   std::to_string(sites.size()));
    return sites;
}

std::vector<Site> ReadDegreesFile(const std::filesystem::path& file, std::int32_t datum,
                                  std::vector<std::string>* problems) {
    return ReadLines(
        file, [datum](const std::string& text) { return ReadDegreesLine(text, datum); }, problems);
}

std::vector<Site> ReadTextsFile(const std::filesystem::path& file, const Reference& reference,
                                std::vector<std::string>* problems) {
    TypedPosition position(reference);
    return ReadLines(
        file, [&position](const std::string& text) { return ReadTextLine(text, position); }, problems);
}

}  // namespace tessara::program
