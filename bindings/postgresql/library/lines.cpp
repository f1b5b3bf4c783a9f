// Grid lines and zone borders of a window, as rows.
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "drawing/window_lines.h"
#include "guard.h"
#include "records.h"

namespace tessara::postgresql {

struct Line {
    TessaraLine row{};
    std::string label;
    toolkit::DegreeLine places;
};

}  // namespace tessara::postgresql

struct TessaraLines {
    std::vector<tessara::postgresql::Line> lines;
};

namespace tessara::postgresql {
namespace {

toolkit::DegreeWindow WindowOf(const double window[4]) {
    return {window[0], window[1], window[2], window[3]};
}

void AddParts(const Line& line, std::vector<toolkit::DegreeLine>&& parts, TessaraLines* lines) {
    int part = 0;
    for (toolkit::DegreeLine& places : parts) {
        Line& added = lines->lines.emplace_back(line);
        added.row.part = ++part;
        added.places = std::move(places);
    }
}

// Runs what makes lines, whose complaints are about arguments.
template <class Make>
TessaraLines* MadeBy(const Make& make, TessaraError* error) {
    TessaraLines* made = nullptr;
    Guarded(error, [&] {
        auto lines = std::make_unique<TessaraLines>();
        try {
            make(lines.get());
        } catch (const std::invalid_argument& wrong) {
            throw Thrown{TESSARA_WRONG_ARGUMENT, wrong.what()};
        }
        made = lines.release();
        return true;
    });
    return made;
}

}  // namespace

extern "C" {

TessaraLines* Tessara_GridLines(const char* system, const double window[4], TessaraAxis axis, double step,
                                TessaraError* error) noexcept {
    return MadeBy(
        [&](TessaraLines* lines) {
            const bool isEast = axis == TESSARA_EAST;
            for (toolkit::WindowLine& found :
                 toolkit::LinesInWindow(WindowOf(window), ReferenceOf(system),
                                        isEast ? toolkit::Axis::East : toolkit::Axis::North, step)) {
                Line line;
                line.row.value = found.value;
                line.row.zones[0] = found.zone.value_or(TESSARA_NO_ZONE);
                line.label = found.label;
                AddParts(line, std::move(found.parts), lines);
            }
        },
        error);
}

TessaraLines* Tessara_ZoneBorders(const char* system, const double window[4], TessaraError* error) noexcept {
    return MadeBy(
        [&](TessaraLines* lines) {
            for (toolkit::WindowBorder& found :
                 toolkit::BordersInWindow(WindowOf(window), ReferenceOf(system))) {
                Line line;
                line.row.zones[0] = found.west.value_or(TESSARA_NO_ZONE);
                line.row.zones[1] = found.east.value_or(TESSARA_NO_ZONE);
                AddParts(line, std::move(found.parts), lines);
            }
        },
        error);
}

void Tessara_FreeLines(TessaraLines* lines) noexcept {
    delete lines;
}

bool Tessara_LineAt(const TessaraLines* lines, size_t index, TessaraLine* row) noexcept {
    if (index >= lines->lines.size()) return false;
    const Line& line = lines->lines[index];
    *row = line.row;
    row->label = line.label.c_str();
    row->placeCount = line.places.size();
    return true;
}

void Tessara_PlaceAt(const TessaraLines* lines, size_t index, size_t place, double degrees[2]) noexcept {
    const GeodezPayload& at = lines->lines[index].places[place];
    degrees[0] = at.latitude;
    degrees[1] = at.longitude;
}

}  // extern "C"

}  // namespace tessara::postgresql
