#include "map/map_description.h"

#include <limits>
#include <nlohmann/json.hpp>

#include "conversion/made.h"
#include "conversion/names.h"
#include "conversion/units.h"
#include "map/map_grids.h"
#include "map/map_projection.h"

namespace tessara::toolkit {
namespace {

constexpr double WIDEST_WINDOW = 1e6;
constexpr double LONGEST_RADIUS = 2e7;  // metres; half the circumference of the earth
constexpr double WIDEST_LINE = 20.0;

std::vector<std::string> ColourNames() {
    return {COLOUR_NAMES.begin(), COLOUR_NAMES.end()};
}

class DescriptionReader {
  public:
    DescriptionReader(const nlohmann::json& json, const OpenLayerFile& open)
        : root_(JsonValue(json, "")), open_(open) {}

    MapDescription Read() {
        if (const auto title = root_.Optional("title")) description_.title = title->Text();
        ReadSheet();
        description_.window = ReadWindow(root_.Required("window"));
        if (const auto layers = root_.Optional("layers")) {
            for (const JsonValue& layer : layers->List())
                description_.layers.push_back(ReadLayer(layer));
        }
        root_.RefuseOthers();
        return std::move(description_);
    }

  private:
    void ReadSheet() {
        SheetDescription& sheet = description_.sheet;
        if (const auto datum = root_.Optional("datum")) sheet.datum = ReadDatum(*datum);
        if (const auto scale = root_.Optional("scale"))
            sheet.scaleDenominator = scale->WholeIn(1, std::numeric_limits<std::int32_t>::max());
        if (const auto resolution = root_.Optional("resolution"))
            sheet.resolution = resolution->NumberAbove0();

        const bool hasScale = sheet.scaleDenominator > 0 && sheet.resolution > 0.0;
        sheet.projection = ReadProjection(
            root_.Required("projection"),
            hasScale ? std::optional(sheet.scaleDenominator / (sheet.resolution * MM_PER_METRE))
                     : std::nullopt);
        ReadReferences();
        if (!NeedsReference(sheet.projection)) return;
        const std::string needs = "; " + ProjectionName(sheet.projection) + " maps require it";
        if (sheet.scaleDenominator == 0) root_.Fail("missing 'scale'" + needs);
        if (sheet.resolution == 0.0) root_.Fail("missing 'resolution'" + needs);
        if (sheet.references.empty()) root_.Fail("missing 'reference'" + needs);
    }

    // One point, or a list of them.
    void ReadReferences() {
        const auto value = root_.Optional("reference");
        if (!value) return;
        if (value->IsObject()) return ReadReferencePoint(*value);
        for (const JsonValue& point : value->List())
            ReadReferencePoint(point);
    }

    void ReadReferencePoint(const JsonValue& value) {
        JsonObject object(value);
        const FloatPixelPayload pixel = ReadPixel(object.Required("pixel"));
        const JsonValue place = object.Required("place");
        const Site site = ReadSite(place, description_.sheet.datum);
        double column = 0.0;
        double row = 0.0;
        if (site.coord->GetPixel(&column, &row))
            place.Fail("expected a position on the earth, found a pixel");
        object.RefuseOthers();
        description_.sheet.references.push_back({site, pixel.x, pixel.y});
    }

    static Window ReadWindow(const JsonValue& value) {
        JsonObject object(value);
        const auto read = [&object](const char* key) {
            return object.Required(key).NumberIn(-PIXEL_LIMIT, PIXEL_LIMIT);
        };
        const Window window{read("left"), read("top"), read("right"), read("bottom")};
        object.RefuseOthers();
        if (!(window.Width() >= 1.0 && window.Height() >= 1.0))
            value.Fail("the window is empty; 'right' must exceed 'left', and 'bottom' must exceed 'top'");
        if (window.Width() > WIDEST_WINDOW || window.Height() > WIDEST_WINDOW)
            value.Fail("the window is larger than 1000000 pixels");
        return window;
    }

    Layer ReadLayer(const JsonValue& value) {
        using ReadContent = void (DescriptionReader::*)(JsonObject&, Layer&);
        static const std::vector<std::string> names = {"grid",  "borders", "positions", "geodesic",
                                                       "line",  "rings",   "polygon",   "overlay",
                                                       "coast", "geojson"};
        static constexpr ReadContent readers[] = {
            &DescriptionReader::ReadGrid,      &DescriptionReader::ReadBorders,
            &DescriptionReader::ReadPositions, &DescriptionReader::ReadGeodesic,
            &DescriptionReader::ReadLine,      &DescriptionReader::ReadRings,
            &DescriptionReader::ReadPolygon,   &DescriptionReader::ReadOverlay,
            &DescriptionReader::ReadCoast,     &DescriptionReader::ReadGeoJsonFile};

        JsonObject object(value);
        Layer layer{value.Place(), {}, {}, GridLayer{}};
        const ReadContent read = readers[object.Required("type").ChoiceOf(names)];
        if (const auto name = object.Optional("name")) layer.name = name->Text();
        if (const auto colour = object.Optional("colour"))
            layer.look.colour = colour->ChoiceOf(ColourNames());
        (this->*read)(object, layer);
        object.RefuseOthers();
        return layer;
    }

    // The layers do not use parameters.
    [[nodiscard]] Reference ReferenceIn(const JsonValue& value) const {
        Reference reference = ReadReference(value, description_.sheet.datum);
        if (!reference.parameters.empty()) value.Fail("maps do not support parameters of systems");
        return reference;
    }

    [[nodiscard]] std::vector<Site> Sites(JsonObject& object, const char* key, std::size_t least) const {
        return ReadSites(object.Required(key), least, description_.sheet.datum);
    }

    void ReadGrid(JsonObject& object, Layer& layer) {
        const JsonValue system = object.Required("system");
        GridLayer grid{ReferenceIn(system), 0.0, 0.0};
        if (!HasGrid(grid.reference.system))
            system.Fail(SystemName(grid.reference.system) + " has no grid lines");
        if (const auto step = object.Optional("step")) {
            grid.eastStep = grid.northStep = step->NumberAbove0();
        } else {
            grid.eastStep = object.Required("eastStep").NumberAbove0();
            grid.northStep = object.Required("northStep").NumberAbove0();
        }
        layer.content = grid;
    }

    void ReadBorders(JsonObject& object, Layer& layer) {
        const JsonValue system = object.Required("system");
        const Reference reference = ReferenceIn(system);
        const IRef<ICoord> coord = Made(CreateClassCoord());
        const IRef<IZoneCoordOperations> zones = Made(CreateClassZoneCoordOperations());
        if (!coord->SetReference(MakeReference(reference).Get()) || !zones->HasZones(coord.Get()))
            system.Fail(SystemName(reference.system) + " has no zones");
        layer.content = BordersLayer{reference};
    }

    void ReadPositions(JsonObject& object, Layer& layer) {
        const auto places = object.Optional("places");
        const auto file = object.Optional("file");
        if (places.has_value() == file.has_value()) object.Fail("expected either 'places' or 'file'");
        PositionsLayer positions;
        if (places) {
            positions.sites = ReadSites(*places, 0, description_.sheet.datum);
        } else {
            positions.sites = ReadFile(open_(file->Text()), object.Optional("from"));
        }
        layer.content = std::move(positions);
    }

    std::vector<Site> ReadFile(const LayerFile& file, const std::optional<JsonValue>& from) {
        if (!from) return ReadDegreesFile(file, description_.sheet.datum, &description_.problems);
        if (const auto datum = DatumByName(from->Text()))
            return ReadDegreesFile(file, *datum, &description_.problems);
        const Reference reference = ReferenceIn(*from);
        return ReadTextsFile(file, reference, &description_.problems);
    }

    void ReadGeodesic(JsonObject& object, Layer& layer) {
        layer.content = LineLayer{Sites(object, "places", 2), LineLayer::Straight::GEODESIC, {}};
    }

    void ReadLine(JsonObject& object, Layer& layer) {
        LineLayer line{Sites(object, "places", 2), LineLayer::Straight::ON_MAP, {}};
        if (const auto system = object.Optional("straightIn")) {
            line.straight = LineLayer::Straight::IN_SYSTEM;
            line.reference = ReferenceIn(*system);
            if (IsPixel(line.reference.system))
                system->Fail("lines are straight in pixels by default; omit 'straightIn'");
        }
        layer.content = std::move(line);
    }

    void ReadRings(JsonObject& object, Layer& layer) {
        RingsLayer rings{ReadSite(object.Required("centre"), description_.sheet.datum), {}};
        for (const JsonValue& radius : object.Required("radii").List()) {
            rings.radii.push_back(radius.NumberAbove0());
            if (rings.radii.back() > LONGEST_RADIUS) radius.Fail("the radius is greater than 20000 km");
        }
        layer.content = std::move(rings);
    }

    void ReadPolygon(JsonObject& object, Layer& layer) {
        layer.content = PolygonLayer{Sites(object, "places", 3)};
    }

    void ReadOverlay(JsonObject& object, Layer& layer) {
        OverlayLayer overlay{Sites(object, "first", 3), {}};
        overlay.second = Sites(object, "second", 3);
        layer.content = std::move(overlay);
    }

    // Reads the style of a layer with areas and lines.
    static void ReadLook(JsonObject& object, Look& look) {
        if (const auto fill = object.Optional("fill")) {
            std::vector<std::string> fills = ColourNames();
            fills.emplace_back("none");
            const std::size_t choice = fill->ChoiceOf(fills);
            look.isFilled = choice < COLOUR_NAMES.size();
            if (look.isFilled) look.fill = choice;
        }
        if (const auto opacity = object.Optional("opacity")) look.opacity = opacity->NumberIn(0.0, 1.0);
        if (const auto width = object.Optional("width")) look.width = width->NumberIn(0.0, WIDEST_LINE);
        if (const auto dashed = object.Optional("dashed")) look.isDashed = dashed->Flag();
    }

    void ReadCoast(JsonObject& object, Layer& layer) {
        ReadLook(object, layer.look);
        const auto borders = object.Optional("borders");
        layer.content = CoastLayer{borders && borders->Flag()};
    }

    void ReadGeoJsonFile(JsonObject& object, Layer& layer) {
        ReadLook(object, layer.look);
        GeoJsonForm form{DATUM_WGS84, description_.sheet.datum, "name"};
        if (const auto datum = object.Optional("datum")) form.datum = ReadDatum(*datum);
        if (const auto label = object.Optional("label")) form.nameKey = label->Text();
        const std::string file = object.Required("file").Text();
        layer.content = GeoJsonLayer{ReadGeoJson(open_(file), form, &description_.problems), file};
    }

    JsonObject root_;
    const OpenLayerFile& open_;
    MapDescription description_;
};

}  // namespace

MapDescription ReadMapDescription(const std::string& text, const OpenLayerFile& open) {
    const nlohmann::json json = ParseJson(text);
    return DescriptionReader(json, open).Read();
}

}  // namespace tessara::toolkit
