// Lines between two records as polylines of records, close enough together to be joined by straight pieces.
// What line_points.h tells of its operations holds here.
#pragma once

#include <cstdint>
#include <vector>

#include "geometry/map_plane.h"
#include "tessara/ckoord.h"

namespace tessara {

enum class DensifyMode { MapStraight, CoordStraight, CoordStraightZoned, Geodesic };

// How far, in pixels on each axis, a middle may lie beside the straight line.
inline constexpr double DEFAULT_PIXEL_TOLERANCE = 0.25;

// The polyline from a to b, in their reference; Geodesic takes positions in GEODEZ. False, with the polyline
// empty, if the two differ in datum or system or a step fails. `pixels`, where it is wanted, gets the places
// of the polyline's points on the map.
bool DensifyOnMap(const MapPlane& map, const CKoord& a, const CKoord& b, DensifyMode mode,
                  double pixelTolerance, std::vector<CKoord>* polyline,
                  std::vector<PlanePoint>* pixels = nullptr);

// The geodesic between records of any reference, pixels of the map included.
bool DensifyGeodesicOnMap(const MapPlane& map, const CKoord& a, const CKoord& b, double pixelTolerance,
                          std::vector<CKoord>* polyline);

// The polyline from a to b, in their reference, of the line that is straight in another.
bool DensifyAcrossReferences(const CKoord& a, const CKoord& b, std::int32_t datum, std::int32_t system,
                             std::vector<CKoord>* polyline);

}  // namespace tessara
