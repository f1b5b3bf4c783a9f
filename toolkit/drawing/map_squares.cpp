#include "drawing/map_squares.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "conversion/fields.h"
#include "conversion/made.h"

namespace tessara::toolkit {
namespace {

constexpr int SAMPLES = 64;  // along each side of the window
constexpr std::size_t MOST_SQUARES = 150;

// The visible part of a square, by the samples in it.
struct Patch {
    PicturePoint sum{0.0, 0.0};
    double left, right;
    std::size_t count = 0;

    void Add(const PicturePoint& at) {
        left = count == 0 ? at.x : std::min(left, at.x);
        right = count == 0 ? at.x : std::max(right, at.x);
        sum = {sum.x + at.x, sum.y + at.y};
        ++count;
    }
};

struct SquareName {
    std::string zone;  // zone and band; empty for a system without
    std::string letters;

    bool operator<(const SquareName& other) const {
        return std::tie(zone, letters) < std::tie(other.zone, other.letters);
    }
};

std::optional<SquareName> NameAt(const MapSheet& sheet, const PicturePoint& at, const Reference& reference) {
    const std::optional<GeodezPayload> degrees = sheet.DegreesAt(at);
    if (!degrees) return std::nullopt;
    const IRef<ICoord> from = DegreesCoord(degrees->latitude, degrees->longitude, sheet.Datum());
    const IRef<ICoord> coord = Made(CreateClassCoord());
    coord->SetReference(MakeReference(reference).Get());
    const IRef<ICoordinateTransfer> transfer = Made(CreateClassCoordinateTransfer());
    if (!transfer->Transfer(from.Get(), coord.Get())) return std::nullopt;
    SquareName name;
    for (const Field& field : FieldsOf(host::RecordOf(coord))) {
        const std::string key = field.name;
        if (key == "zone" || key == "band") name.zone += field.Text();
        if (key == "square") name.letters = field.Text();
    }
    return name;
}

}  // namespace

std::vector<NamedSquare> SquaresOf(const MapSheet& sheet, const Reference& reference) {
    if (reference.system != KOORD_UTMREF && reference.system != KOORD_BNG && reference.system != KOORD_ING)
        return {};
    std::map<SquareName, Patch> patches;
    std::map<std::string, std::size_t> zones;
    for (int row = 0; row < SAMPLES; ++row) {
        for (int column = 0; column < SAMPLES; ++column) {
            const PicturePoint at{(column + 0.5) / SAMPLES * sheet.Width(),
                                  (row + 0.5) / SAMPLES * sheet.Height()};
            const std::optional<SquareName> name = NameAt(sheet, at, reference);
            if (!name) continue;
            patches[*name].Add(at);
            ++zones[name->zone];
            if (patches.size() > MOST_SQUARES) return {};
        }
    }
    std::vector<NamedSquare> squares;
    for (const auto& [name, patch] : patches) {
        const auto count = static_cast<double>(patch.count);
        squares.push_back({zones.size() > 1 ? name.zone + " " + name.letters : name.letters,
                           {patch.sum.x / count, patch.sum.y / count},
                           patch.right - patch.left});
    }
    return squares;
}

}  // namespace tessara::toolkit
