// Includes everything for hosts that work with objects: interfaces, creation functions, handles, and parts
// for hosts (texts, rectangles, an object manager, copies, listings). Link with tessara::tessara
// (libtessara.so) or load it at run time. The plain functions on records are in tessara/kernel.h.
//
// Failures: an operation returns false, null or a number that its header documents, and gives no reason. A
// null argument is a failure like any other, and so is "an object of another kind", which is an object
// without the interface of the argument.
//
// Threads: the library starts no threads and takes no locks; all work is done inside the call, on the
// caller's thread. Any threads may use at the same time
//
//   - the plain functions on records (tessara/kernel), on records that no thread writes at that time;
//   - different objects, also of one class, and the creation functions;
//   - the counts of one object: AddRef, Release, QueryInterface, and copies of handles;
//   - the conversions of one complete map, and the objects of singleton classes, which keep no state between
//     calls.
//
// For any other use, an object is limited to one thread at a time. This includes reading: a coordinate or its
// text may store computed values. It also includes the start and end of the component (tessara/component.h).
// Handing an object from one thread to another needs the same synchronisation as any other memory.
//
// Memory: an operation that runs out of memory fails as its header documents. Only operations without such a
// result throw std::bad_alloc: IArray::Add, ITessaraString::AssignText, and IVector, which returns
// vectors.
//
// Objects of a host: an operation fails if a list or text of the host throws a standard exception. Other
// exceptions fail the operation or pass through it without leaks. A host's object may call the library again
// during a call. The caller holds a reference to the called object and to each argument until the call
// returns.
#pragma once

#include "tessara/array.h"
#include "tessara/circle_on_tangent_plane.h"
#include "tessara/ckoord.h"
#include "tessara/class_factory.h"
#include "tessara/component.h"
#include "tessara/coord.h"
#include "tessara/coord_checker_utmref.h"
#include "tessara/coord_geographic.h"
#include "tessara/coordinate_area.h"
#include "tessara/coordinate_average.h"
#include "tessara/coordinate_checker.h"
#include "tessara/coordinate_compare.h"
#include "tessara/coordinate_grid.h"
#include "tessara/coordinate_grid_factory.h"
#include "tessara/coordinate_init.h"
#include "tessara/coordinate_neighbor.h"
#include "tessara/coordinate_reference.h"
#include "tessara/coordinate_string.h"
#include "tessara/coordinate_system.h"
#include "tessara/coordinate_transfer.h"
#include "tessara/ellipse_on_tangent_plane.h"
#include "tessara/ellipsoid_of_revolution.h"
#include "tessara/euclidean_vector.h"
#include "tessara/float_point.h"
#include "tessara/geo_date.h"
#include "tessara/guid.h"
#include "tessara/host/coord.h"
#include "tessara/host/listings.h"
#include "tessara/host/object_manager.h"
#include "tessara/host/rect.h"
#include "tessara/host/text.h"
#include "tessara/internal/koord_layout.h"
#include "tessara/internal/map_layout.h"
#include "tessara/internal/map_param_internal.h"
#include "tessara/intersection_results.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/map.h"
#include "tessara/line_intersection_parameters.h"
#include "tessara/line_points.h"
#include "tessara/map_coord_creator.h"
#include "tessara/map_coord_creator_factory.h"
#include "tessara/map_coord_operations.h"
#include "tessara/map_coord_operations_factory.h"
#include "tessara/object.h"
#include "tessara/projection.h"
#include "tessara/projection_factory.h"
#include "tessara/rect.h"
#include "tessara/ref.h"
#include "tessara/reference_point.h"
#include "tessara/tangent_plane.h"
#include "tessara/tessara_string.h"
#include "tessara/transformable_map_pixel.h"
#include "tessara/unknown.h"
#include "tessara/vector.h"
#include "tessara/zone_coord_operations.h"
