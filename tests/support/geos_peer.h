// The part of GEOS that overlays are compared with.
#pragma once

#include <geos_c.h>

#include <memory>
#include <stdexcept>

#include "support/rings.h"

namespace tessara::testing {

class GeosPeer {
  public:
    using Shape = std::shared_ptr<GEOSGeometry>;

    GeosPeer() : context_(GEOS_init_r()) {}
    ~GeosPeer() { GEOS_finish_r(context_); }
    GeosPeer(const GeosPeer&) = delete;
    GeosPeer& operator=(const GeosPeer&) = delete;

    Shape Polygon(const Ring& open) {
        const Ring ring = Closed(open);
        GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(context_, static_cast<unsigned>(ring.size()), 2);
        for (std::size_t i = 0; i < ring.size(); ++i)
            GEOSCoordSeq_setXY_r(context_, sequence, static_cast<unsigned>(i), ring[i].x, ring[i].y);
        return Own(
            GEOSGeom_createPolygon_r(context_, GEOSGeom_createLinearRing_r(context_, sequence), nullptr, 0));
    }
    Shape Border(const Shape& a) { return Own(GEOSBoundary_r(context_, a.get())); }
    Shape Common(const Shape& a, const Shape& b) {
        return Own(GEOSIntersection_r(context_, a.get(), b.get()));
    }
    Shape Difference(const Shape& a, const Shape& b) {
        return Own(GEOSDifference_r(context_, a.get(), b.get()));
    }
    // The faces into which the edges of both cut the plane.
    Shape Faces(const Shape& a, const Shape& b) {
        const Shape borders[] = {Border(a), Border(b)};
        const Shape pieces = Own(GEOSUnion_r(context_, borders[0].get(), borders[1].get()));
        const GEOSGeometry* lines[] = {pieces.get()};
        return Own(GEOSPolygonize_r(context_, lines, 1));
    }
    int CountOf(const Shape& a) { return GEOSGetNumGeometries_r(context_, a.get()); }
    // A part of a collection, which keeps it.
    Shape PartOf(const Shape& a, int index) {
        return {a, const_cast<GEOSGeometry*>(GEOSGetGeometryN_r(context_, a.get(), index))};
    }
    Shape PointWithin(const Shape& a) { return Own(GEOSPointOnSurface_r(context_, a.get())); }
    // By the even-odd rule, if the polygon crosses itself.
    bool Contains(const Shape& polygon, const Shape& point) {
        return GEOSContains_r(context_, polygon.get(), point.get()) == 1;
    }
    double AreaOf(const Shape& a) {
        double area = -1.0;
        if (GEOSArea_r(context_, a.get(), &area) != 1) throw std::runtime_error("GEOS finds no area");
        return area;
    }
    double LengthOf(const Shape& a) {
        double length = -1.0;
        if (GEOSLength_r(context_, a.get(), &length) != 1) throw std::runtime_error("GEOS finds no length");
        return length;
    }
    bool IsSimple(const Shape& a) { return GEOSisValid_r(context_, a.get()) == 1; }

  private:
    Shape Own(GEOSGeometry* geometry) {
        if (geometry == nullptr) throw std::runtime_error("GEOS fails");
        return {geometry, [context = context_](GEOSGeometry* last) { GEOSGeom_destroy_r(context, last); }};
    }

    GEOSContextHandle_t context_;
};

}  // namespace tessara::testing
