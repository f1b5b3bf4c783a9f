// The class table, the one place that knows all classes. To add a class, list its id, its name and the
// policy of its factory here.
//
// All factories are defined in this source, so that the linker can neither drop nor reorder them. Each
// factory puts itself at the head of the class list, so the list runs from the last class of the table to
// the first.

#include "areas/coordinate_area.h"
#include "frame/class_factory.h"
#include "geometry/circle_on_tangent_plane.h"
#include "geometry/ellipse_on_tangent_plane.h"
#include "geometry/ellipsoid_of_revolution.h"
#include "geometry/euclidean_vector.h"
#include "geometry/intersection_results.h"
#include "geometry/line_intersection_parameters.h"
#include "geometry/line_points.h"
#include "geometry/tangent_plane.h"
#include "grids/coordinate_grid.h"
#include "grids/coordinate_grid_factory.h"
#include "maps/map_coord_creator_factory.h"
#include "maps/map_coord_operations.h"
#include "maps/map_coord_operations_factory.h"
#include "maps/projection.h"
#include "maps/projection_factory.h"
#include "maps/reference_point.h"
#include "maps/transformable_map_pixel.h"
#include "objects/coord.h"
#include "objects/coord_geographic.h"
#include "objects/coordinate_average.h"
#include "objects/coordinate_compare.h"
#include "objects/coordinate_init.h"
#include "objects/coordinate_neighbor.h"
#include "objects/coordinate_reference.h"
#include "objects/coordinate_system.h"
#include "objects/coordinate_transfer.h"
#include "objects/geo_date.h"
#include "objects/zone_coord_operations.h"
#include "text/coord_checker_utmref.h"
#include "text/coordinate_checker.h"
#include "text/coordinate_string.h"

namespace tessara {
namespace {

#define TESSARA_CLASS(Policy, Class) \
    Policy##Factory<Class> g_factoryOf##Class(&CLSID_##Class, "CLSID_" #Class)

TESSARA_CLASS(Singleton, CircleOnTangentPlane);
TESSARA_CLASS(Multi, CoordGeographic);
TESSARA_CLASS(Multi, Coord);
TESSARA_CLASS(Multi, CoordinateString);
TESSARA_CLASS(Multi, CoordinateArea);
TESSARA_CLASS(Multi, CoordinateAverage);
TESSARA_CLASS(Multi, CoordinateChecker);
TESSARA_CLASS(Multi, CoordCheckerUTMREF);
TESSARA_CLASS(Singleton, CoordinateCompare);
TESSARA_CLASS(Multi, CoordinateGrid);
TESSARA_CLASS(Singleton, CoordinateGridFactory);
TESSARA_CLASS(Multi, CoordinateInit);
TESSARA_CLASS(Singleton, CoordinateNeighbor);
TESSARA_CLASS(Multi, CoordinateReference);
TESSARA_CLASS(Multi, CoordinateSystem);
TESSARA_CLASS(Multi, GeoDate);
TESSARA_CLASS(Singleton, CoordinateTransfer);
TESSARA_CLASS(Singleton, EllipseOnTangentPlane);
TESSARA_CLASS(Singleton, EllipsoidOfRevolution);
TESSARA_CLASS(Singleton, EuclideanVector);
TESSARA_CLASS(Multi, LineIntersectionParameters);
TESSARA_CLASS(Multi, IntersectionResults);
TESSARA_CLASS(Multi, LinePoints);
TESSARA_CLASS(Singleton, MapCoordCreatorFactory);
TESSARA_CLASS(Multi, MapCoordOperations);
TESSARA_CLASS(Singleton, MapCoordOperationsFactory);
TESSARA_CLASS(Multi, Projection);
TESSARA_CLASS(Singleton, ProjectionFactory);
TESSARA_CLASS(Multi, ReferencePoint);
TESSARA_CLASS(Multi, TangentPlane);
TESSARA_CLASS(Multi, TransformableMapPixel);
TESSARA_CLASS(Singleton, ZoneCoordOperations);

#undef TESSARA_CLASS

}  // namespace
}  // namespace tessara
