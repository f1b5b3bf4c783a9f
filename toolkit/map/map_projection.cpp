#include "map/map_projection.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "conversion/made.h"
#include "conversion/numbers.h"
#include "tessara/host/text.h"

namespace tessara::toolkit {
namespace {

// The largest relative difference of pixel sizes between a scan and its scale, because paper shrinks and
// scanners vary.
constexpr double SCAN_TOLERANCE = 0.02;
constexpr double GRID_LIMIT = 1e9;  // metres; exceeds all grid values on the earth

struct Reader {
    JsonObject object;
    std::optional<double> metresPerPixel;

    [[nodiscard]] JsonValue Get(const char* key) { return object.Required(key); }
    [[nodiscard]] double Metres(const char* key) { return Get(key).NumberIn(-GRID_LIMIT, GRID_LIMIT); }
    [[nodiscard]] double Latitude(const char* key) { return Get(key).NumberIn(-90.0, 90.0); }
    [[nodiscard]] double Longitude(const char* key) { return Get(key).NumberIn(-360.0, 360.0); }
    [[nodiscard]] char Hemisphere() { return Get("hemisphere").ChoiceOf({"N", "S"}) == 0 ? 'N' : 'S'; }
    [[nodiscard]] double PixelSize(const char* key) {
        const std::optional<JsonValue> value = object.Optional(key);
        if (value) {
            const double metres = value->NumberAbove0();
            if (metresPerPixel && std::abs(metres - *metresPerPixel) > SCAN_TOLERANCE * *metresPerPixel)
                value->Fail("the value contradicts 'scale' and 'resolution', which give " +
                            FormatPlain(*metresPerPixel) + " metres per pixel");
            return metres;
        }
        if (!metresPerPixel)
            object.Fail(std::string("missing '") + key + "'; set it, or both 'scale' and 'resolution'");
        return *metresPerPixel;
    }
};

// Reads the parameters of all grids: the position of pixel (0, 0) and the size of a pixel.
template <class Params>
void ReadGrid(Reader& reader, Params& params) {
    params.originEasting = reader.Metres("originEasting");
    params.originNorthing = reader.Metres("originNorthing");
    params.metresPerPixelX = reader.PixelSize("metresPerPixelX");
    params.metresPerPixelY = reader.PixelSize("metresPerPixelY");
}

// Each of the following functions creates a projection of one type.

IProjection* Utm(IProjectionFactory& factory, Reader& reader) {
    MapUtmParams params{};
    params.hemisphere = reader.Hemisphere();
    params.zone = static_cast<std::int16_t>(reader.Get("zone").WholeIn(1, 60));
    ReadGrid(reader, params);
    return factory.CreateUtm(&params);
}

// Central meridians are 3 or 6 degrees apart.
MapGkParams ReadStrip(Reader& reader, std::int32_t first, std::int32_t step) {
    const JsonValue value = reader.Get("meridian");
    const std::int32_t meridian = value.WholeIn(-180, 180);
    if ((meridian - first) % step != 0) {
        value.Fail("invalid central meridian " + std::to_string(meridian) + "; expected " +
                   std::to_string(first) + " plus or minus a multiple of " + std::to_string(step));
    }
    MapGkParams params{};
    params.meridian = static_cast<std::int16_t>(meridian);
    ReadGrid(reader, params);
    return params;
}

IProjection* Gaukru(IProjectionFactory& factory, Reader& reader) {
    const MapGkParams params = ReadStrip(reader, 0, 3);
    return factory.CreateGaussKrueger(&params);
}

IProjection* Gaukru6(IProjectionFactory& factory, Reader& reader) {
    const MapGkParams params = ReadStrip(reader, 3, 6);
    return factory.CreateGaussKrueger6(&params);
}

IProjection* Bmn(IProjectionFactory& factory, Reader& reader) {
    MapBmnParams params{};
    params.meridian = static_cast<std::int16_t>(reader.Get("meridian").WholeOf({28, 31, 34}));
    ReadGrid(reader, params);
    return factory.CreateBmn(&params);
}

IProjection* Ups(IProjectionFactory& factory, Reader& reader) {
    MapUpsParams params{};
    params.hemisphere = reader.Hemisphere();
    ReadGrid(reader, params);
    return factory.CreateUps(&params);
}

template <auto Create>
IProjection* Plane(IProjectionFactory& factory, Reader& reader) {
    MapPlaneParams params{};
    ReadGrid(reader, params);
    return (factory.*Create)(&params);
}

template <auto Create>
IProjection* Tm(IProjectionFactory& factory, Reader& reader) {
    MapTmParams params{};
    params.originLongitude = reader.Longitude("originLongitude");
    params.originLatitude = reader.Latitude("originLatitude");
    params.falseEasting = reader.Metres("falseEasting");
    params.falseNorthing = reader.Metres("falseNorthing");
    params.scale = reader.Get("scale").NumberAbove0();
    ReadGrid(reader, params);
    return (factory.*Create)(&params);
}

IProjection* Dd(IProjectionFactory& factory, Reader& reader) {
    MapDdParams params{};
    params.originLongitude = reader.Longitude("originLongitude");
    params.originLatitude = reader.Latitude("originLatitude");
    params.pixelsPerDegreeX = reader.Get("pixelsPerDegreeX").NumberAbove0();
    params.pixelsPerDegreeY = reader.Get("pixelsPerDegreeY").NumberAbove0();
    return factory.CreateDd(&params);
}

IProjection* EqualArc(IProjectionFactory& factory, Reader& reader) {
    MapEqualArcParams params{};
    const std::optional<JsonValue> zone = reader.object.Optional("zone");
    if (zone) {
        params.zone =
            static_cast<std::int16_t>(zone->WholeOf({0, EQUALARC_NORTH_POLAR, EQUALARC_SOUTH_POLAR}));
    }
    params.originLatitude = reader.Latitude("originLatitude");
    params.originLongitude = reader.Longitude("originLongitude");
    params.degreesPerPixelY = reader.Get("degreesPerPixelY").NumberAbove0();
    params.degreesPerPixelX = reader.Get("degreesPerPixelX").NumberAbove0();
    return factory.CreateEqualArc(&params);
}

void ReadCoefficients(const JsonValue& value, std::uint32_t order, double* coefficients) {
    for (const JsonValue& coefficient : value.ListOf(order))
        *coefficients++ = coefficient.Number();
}

IProjection* Polynom(IProjectionFactory& factory, Reader& reader) {
    MapPolynomParams params{};
    params.order = static_cast<std::uint32_t>(reader.Get("order").WholeOf({3, 4, 6, 10}));
    ReadCoefficients(reader.Get("latFromPixel"), params.order, params.latFromPixel);
    ReadCoefficients(reader.Get("lonFromPixel"), params.order, params.lonFromPixel);
    ReadCoefficients(reader.Get("pixelXFromWorld"), params.order, params.pixelXFromWorld);
    ReadCoefficients(reader.Get("pixelYFromWorld"), params.order, params.pixelYFromWorld);
    return factory.CreatePolynom(&params);
}

IProjection* Lambert2(IProjectionFactory& factory, Reader& reader) {
    MapLambert2Params params{};
    params.parallel1 = reader.Latitude("parallel1");
    params.parallel2 = reader.Latitude("parallel2");
    params.originLongitude = reader.Longitude("originLongitude");
    return factory.CreateLambert2(&params);
}

IProjection* LambertFr(IProjectionFactory& factory, Reader& reader) {
    MapLambertFrParams params{};
    params.zone = reader.Get("zone").WholeIn(1, 4);
    params.offsetX = reader.Metres("offsetX");
    params.offsetY = reader.Metres("offsetY");
    return factory.CreateLambertFr(&params);
}

IProjection* LambertCc(IProjectionFactory& factory, Reader& reader) {
    MapLambertCcParams params{};
    params.parallel1 = reader.Latitude("parallel1");
    params.parallel2 = reader.Latitude("parallel2");
    params.originLongitude = reader.Longitude("originLongitude");
    params.originLatitude = reader.Latitude("originLatitude");
    params.falseEasting = reader.Metres("falseEasting");
    params.falseNorthing = reader.Metres("falseNorthing");
    params.metresPerPixelX = reader.PixelSize("metresPerPixelX");
    params.metresPerPixelY = reader.PixelSize("metresPerPixelY");
    params.pixelX = reader.Get("pixelX").Number();
    params.pixelY = reader.Get("pixelY").Number();
    return factory.CreateLambertCc(&params);
}

IProjection* Mercator(IProjectionFactory& factory, Reader& reader) {
    MapMercatorParams params{};
    params.standardParallel = reader.Latitude("standardParallel");
    return factory.CreateMercator(&params);
}

IProjection* Azyl(IProjectionFactory& factory, Reader& reader) {
    MapAzylParams params{};
    params.standardParallel = reader.Latitude("standardParallel");
    return factory.CreateAzyl(&params);
}

IProjection* VanDerGrinten(IProjectionFactory& factory, Reader& reader) {
    MapVdgParams params{};
    params.originLongitude = reader.Longitude("originLongitude");
    params.originLatitude = reader.Latitude("originLatitude");
    return factory.CreateVanDerGrinten(&params);
}

IProjection* WagnerIv(IProjectionFactory& factory, Reader& reader) {
    MapWagnerIvParams params{};
    params.originLongitude = reader.Longitude("originLongitude");
    params.stretchX = reader.Get("stretchX").NumberAbove0();
    params.stretchY = reader.Get("stretchY").NumberAbove0();
    return factory.CreateWagnerIv(&params);
}

struct Type {
    const char* name;
    IProjection* (*make)(IProjectionFactory&, Reader&);
};

// The projection types by name.
constexpr std::array TYPES = {
    Type{"UTM", Utm},
    Type{"GAUKRU", Gaukru},
    Type{"GAUKRU6", Gaukru6},
    Type{"BMN", Bmn},
    Type{"CH", Plane<&IProjectionFactory::CreateCh>},
    Type{"STEREOGR_NL", Plane<&IProjectionFactory::CreateStereographicNl>},
    Type{"UPS", Ups},
    Type{"TM", Tm<&IProjectionFactory::CreateTm>},
    Type{"PO_MILITARY", Tm<&IProjectionFactory::CreatePoMilitary>},
    Type{"LUREF", Tm<&IProjectionFactory::CreateLuref>},
    Type{"DD", Dd},
    Type{"EQUALARC", EqualArc},
    Type{"POLYNOM", Polynom},
    Type{"LAMBERT2", Lambert2},
    Type{"LAMBERTFR", LambertFr},
    Type{"LAMBERTCC", LambertCc},
    Type{"MERCATOR", Mercator},
    Type{"AZYL", Azyl},
    Type{"VAN_DER_GRINTEN", VanDerGrinten},
    Type{"WAGNER-IV", WagnerIv},
};

std::vector<std::string> TypeNames() {
    std::vector<std::string> names;
    names.reserve(std::size(TYPES));
    for (const Type& type : TYPES)
        names.emplace_back(type.name);
    return names;
}

}  // namespace

IRef<IProjection> ReadProjection(const JsonValue& value, std::optional<double> metresPerPixel) {
    Reader reader{JsonObject(value), metresPerPixel};
    const Type& type = TYPES[reader.Get("type").ChoiceOf(TypeNames())];
    const IRef<IProjectionFactory> factory = Made(CreateClassProjectionFactory());
    IRef<IProjection> projection(type.make(*factory.Get(), reader));
    reader.object.RefuseOthers();
    return projection;
}

std::string ProjectionName(const IRef<IProjection>& projection) {
    const IRef<ITessaraString> name = Made<ITessaraString>(NewObject<host::Text>());
    projection->GetProjectionName(name.Get());
    return name->GetText();
}

bool NeedsReference(const IRef<IProjection>& projection) {
    constexpr std::array<std::uint32_t, 6> types = {MAP_LAMBERT2, MAP_LAMBERTFR,       MAP_MERCATOR,
                                                    MAP_AZYL,     MAP_VAN_DER_GRINTEN, MAP_WAGNER_IV};
    return std::find(types.begin(), types.end(), projection->GetProjectionType()) != types.end();
}

bool IsFreeOfScale(const IRef<IProjection>& projection) {
    constexpr std::array<std::uint32_t, 3> types = {MAP_DD, MAP_EQUALARC, MAP_POLYNOM};
    return std::find(types.begin(), types.end(), projection->GetProjectionType()) != types.end();
}

}  // namespace tessara::toolkit
