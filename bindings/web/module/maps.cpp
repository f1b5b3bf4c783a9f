// Maps: their pictures, and the positions of places in them.
#include <cmath>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "drawing/map_page.h"
#include "exports.h"
#include "handles.h"
#include "map/map_around.h"
#include "map/map_description.h"
#include "map/map_sheet.h"
#include "references.h"

namespace tessara::web {
namespace {

constexpr double SMALLEST_PICTURE = 100.0;
constexpr double LARGEST_PICTURE = 20000.0;

// A description and its map, whose pictures are so many units wide or high.
struct Map {
    Map(toolkit::MapDescription given, double pictureSize)
        : description(std::move(given)),
          sheet(description.sheet, description.window, pictureSize),
          size(pictureSize) {}

    toolkit::MapDescription description;
    toolkit::MapSheet sheet;
    double size;
};

Handles<Map>& Maps() {
    static Handles<Map> maps;
    return maps;
}

// The files that layers name are texts of the host.
toolkit::OpenLayerFile FilesOf(const nlohmann::json& files) {
    return [files](const std::string& name) {
        const auto found = files.find(name);
        if (found == files.end() || !found->is_string())
            return toolkit::LayerFile{name, {}, name + ": it isn't there"};
        return toolkit::LayerFile{name, found->get<std::string>(), {}};
    };
}

}  // namespace

// The answer is the handle. `files` is an object of texts by their names.
TESSARA_EXPORT(openMap)
Outcome OpenMap(const char* description, std::size_t descriptionSize, const char* files,
                std::size_t filesSize, double size) {
    return Try([&] {
        if (!(size >= SMALLEST_PICTURE && size <= LARGEST_PICTURE))
            throw std::invalid_argument("a picture is 100 to 20000 units long");
        const auto texts = nlohmann::json::parse(TextAt(files, filesSize));
        auto map = std::make_unique<Map>(
            toolkit::ReadMapDescription(std::string(description, descriptionSize), FilesOf(texts)), size);
        Answer() = std::to_string(Maps().Add(std::move(map)));
    });
}

TESSARA_EXPORT(closeMap) void CloseMap(std::int32_t handle) {
    Maps().Remove(handle);
}

// The picture, and behind zero bytes what couldn't be drawn, an empty line, and what is left out.
TESSARA_EXPORT(drawMap) Outcome DrawMap(std::int32_t handle) {
    return Try([&] {
        const Map& map = Maps().At(handle);
        toolkit::MapPage page = toolkit::DrawMapPage(map.description, map.size);
        Answer() = std::move(page.svg) + '\0';
        page.problems.insert(page.problems.begin(), map.description.problems.begin(),
                             map.description.problems.end());
        for (const std::string& problem : page.problems)
            Answer() += problem + '\n';
        Answer() += '\0';
        for (const std::string& note : page.notes)
            Answer() += note + '\n';
    });
}

// Degrees on the map's datum at a point of the picture, counted from the window's corner; NaN outside the
// earth.
TESSARA_EXPORT(degreesAt)
Outcome DegreesAt(std::int32_t handle, double x, double y, double* degrees) {
    return Try([&] {
        const auto found = Maps().At(handle).sheet.DegreesAt({x, y});
        degrees[0] = found ? found->latitude : std::nan("");
        degrees[1] = found ? found->longitude : std::nan("");
    });
}

// The point of the picture of degrees on the map's datum; NaN where they aren't shown.
TESSARA_EXPORT(pointAt)
Outcome PointAt(std::int32_t handle, double latitude, double longitude, double* point) {
    return Try([&] {
        const auto found = Maps().At(handle).sheet.ShownPointAt({latitude, longitude, 0.0});
        point[0] = found ? found->x : std::nan("");
        point[1] = found ? found->y : std::nan("");
    });
}

// The description of the surroundings of a place, in JSON.
TESSARA_EXPORT(mapAround)
Outcome MapAround(double latitude, double longitude, double width) {
    return Try([&] { Answer() = toolkit::DescribeMapAround({latitude, longitude, width}); });
}

}  // namespace tessara::web
