// Lines between two records as polylines of records, dense enough to be drawn with straight segments. These
// functions do the work of the densifiers in line_points.h, whose limits hold here: a piece is halved at
// most 6 times, a geodesic 7 times, and a line across references always 5 times.
#pragma once

#include <cstdint>
#include <vector>

#include "geometry/map_plane.h"
#include "tessara/ckoord.h"

namespace tessara {

enum class DensifyMode { MapStraight, CoordStraight, CoordStraightZoned, Geodesic };

// The distance, in pixels on each axis, that a middle may have from the straight segment.
inline constexpr double DEFAULT_PIXEL_TOLERANCE = 0.25;

// The polyline from a to b, in their reference. DensifyMode::Geodesic takes records in GEODEZ. False, with
// the polyline empty, if the two differ in datum or system or a step fails. `pixels`, unless it is null,
// receives the place of each point on the map.
bool DensifyOnMap(const MapPlane& map, const CKoord& a, const CKoord& b, DensifyMode mode,
                  double pixelTolerance, std::vector<CKoord>* polyline,
                  std::vector<PlanePoint>* pixels = nullptr);

// The geodesic between two records of any reference, pixels of the map included.
bool DensifyGeodesicOnMap(const MapPlane& map, const CKoord& a, const CKoord& b, double pixelTolerance,
                          std::vector<CKoord>* polyline);

// The line that is straight in another reference, as a polyline from a to b in their own.
bool DensifyAcrossReferences(const CKoord& a, const CKoord& b, std::int32_t datum, std::int32_t system,
                             std::vector<CKoord>* polyline);

}  // namespace tessara
