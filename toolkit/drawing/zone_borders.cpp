#include "drawing/zone_borders.h"

#include <cmath>

#include "conversion/made.h"
#include "conversion/units.h"
#include "map/map_grids.h"
#include "map/map_sites.h"

namespace tessara::toolkit {
namespace {

// The maximum distance of a point from its border; UTMREF has whole metres.
constexpr double BESIDE_BORDER = 1.5;  // metres
constexpr double BESIDE = 0.01;        // degrees

using Neighbour = bool (IZoneCoordOperations::*)(ICoord*, ICoord*);

bool LiesOn(Neighbour border, ICoord* coord) {
    const IRef<IZoneCoordOperations> zones = Made(CreateClassZoneCoordOperations());
    const IRef<ICoord> at = Made(CreateClassCoord());
    if (!(zones.Get()->*border)(coord, at.Get())) return false;
    return std::abs(IRef<ICoordInternal>(coord)->EastDifference(at.Get())) <= BESIDE_BORDER;
}

// The zone of a position on the ground, where numbers restart at the date line.
std::optional<std::int32_t> ZoneAt(const Reference& reference, double latitude, double longitude) {
    const IRef<ICoord> degrees =
        DegreesCoord(latitude, std::remainder(longitude, FULL_TURN), reference.datum);
    const IRef<ICoord> coord = Made(CreateClassCoord());
    coord->SetReference(MakeReference(reference).Get());
    const IRef<ICoordinateTransfer> transfer = Made(CreateClassCoordinateTransfer());
    if (!transfer->Transfer(degrees.Get(), coord.Get())) return std::nullopt;
    return ZoneOf(coord.Get());
}

std::optional<GeodezPayload> DegreesOf(ICoord* coord, std::int32_t datum) {
    const IRef<ICoord> degrees = DegreesCoord(0.0, 0.0, datum);
    const IRef<ICoordinateTransfer> transfer = Made(CreateClassCoordinateTransfer());
    if (!transfer->Transfer(coord, degrees.Get())) return std::nullopt;
    return Load<GeodezPayload>(host::RecordOf(degrees));
}

}  // namespace

std::optional<BorderZones> ZonesBeside(const GridLine& line, const Reference& reference) {
    // A line of the grid that leaves its zone on both sides of the equator has its ends on the border, too.
    const auto isOn = [&line](Neighbour border) {
        return LiesOn(border, line.first.Get()) && LiesOn(border, line.middle.Get()) &&
               LiesOn(border, line.last.Get());
    };
    if (!isOn(&IZoneCoordOperations::GetWestNeighbour) && !isOn(&IZoneCoordOperations::GetEastNeighbour))
        return std::nullopt;

    // A border is a meridian, whose middle is far from the limits of the system.
    const auto first = DegreesOf(line.first.Get(), reference.datum);
    const auto last = DegreesOf(line.last.Get(), reference.datum);
    if (!first || !last) return std::nullopt;
    const double latitude = (first->latitude + last->latitude) / 2.0;
    return BorderZones{ZoneAt(reference, latitude, first->longitude - BESIDE),
                       ZoneAt(reference, latitude, first->longitude + BESIDE)};
}

}  // namespace tessara::toolkit
