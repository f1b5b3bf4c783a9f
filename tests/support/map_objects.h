// Map objects for tests, created as a host does.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>

#include "support/coords.h"
#include "support/maps.h"
#include "tessara/array.h"
#include "tessara/geo_date.h"
#include "tessara/internal/map_param_internal.h"
#include "tessara/map_coord_operations.h"
#include "tessara/map_coord_operations_factory.h"
#include "tessara/projection.h"
#include "tessara/projection_factory.h"
#include "tessara/ref.h"
#include "tessara/reference_point.h"

namespace tessara::testing {

inline IRef<IGeoDate> DateOf(std::int32_t datum) {
    IRef<IGeoDate> date(CreateClassGeoDate());
    EXPECT_TRUE(date->SetDatum(datum));
    return date;
}

// A record whose parameters are 1, 2, 3 ... byte by byte.
inline MapParam CountedRecord(std::uint32_t type) {
    MapParam map;
    map.type = type;
    for (std::size_t i = 0; i < MAP_PARAMS_SIZE; ++i)
        map.params[i] = static_cast<std::byte>(i + 1);
    return map;
}

// A projection object with the type, world type and parameters of the record.
inline IRef<IProjection> ProjectionOf(const MapParam& map) {
    IRef<IProjection> projection(CreateClassProjection());
    EXPECT_TRUE(IRef<IMapParamInternal>(projection)->SetMapParam(&map));
    return projection;
}

// A map object with an unchanged copy of the record. It takes ownership of a chain in the record.
inline IRef<IMapCoordOperations> MapOf(const MapParam& map) {
    IRef<IMapCoordOperations> operations(CreateClassMapCoordOperations());
    EXPECT_TRUE(IRef<IMapParamInternal>(operations)->SetMapParam(&map));
    return operations;
}

inline MapParam RecordOf(const IRef<IMapCoordOperations>& map) {
    MapParam record;
    EXPECT_TRUE(IRef<IMapParamInternal>(map)->GetMapParam(&record));
    return record;
}

inline IRef<IReferencePoint> PointOf(const tagKOORD& world, std::int32_t x, std::int32_t y) {
    IRef<IReferencePoint> point(CreateClassReferencePoint());
    EXPECT_TRUE(point->SetLong(CoordOf(world).Get(), x, y));
    return point;
}

inline IRef<IArray> ListOf(std::initializer_list<IUnknown*> objects) {
    IRef<IArray> list(CreateClassArray());
    for (IUnknown* object : objects)
        list->Add(object);
    return list;
}

// A sheet of Bavaria in UTM, 2.5 metres per pixel.
inline MapParam MunichSheet() {
    return Map(MAP_UTM, MapUtmParams{'N', 32, 675000.0, 5345000.0, 2.5, 2.5});
}

}  // namespace tessara::testing
