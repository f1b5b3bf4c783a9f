// Positions and a map for the tests of the contract.
#pragma once

#include <string>

#include "abi/contract/host.h"
#include "abi/contract/maps.h"

namespace contract {

inline Record NewRecord(uint32_t datum, uint32_t type) {
    Record record{};
    record.datum = datum;
    record.type = type;
    return record;
}

inline Record UtmRecord(int zone, double easting, double northing, char hemisphere = 'N') {
    return NewRecord(WGS84, UTM)
        .With<char>(0, hemisphere)
        .With<int16_t>(2, -1000)
        .With<int16_t>(4, static_cast<int16_t>(zone))
        .With<double>(8, easting)
        .With<double>(16, northing);
}

inline Record GeodezRecord(double latitude, double longitude) {
    return NewRecord(WGS84, GEODEZ).With<double>(0, latitude).With<double>(8, longitude);
}

inline Record PixelRecord(double x, double y) {
    return NewRecord(WGS84, FLOATPIXEL).With<double>(0, x).With<double>(8, y);
}

// What a coordinate holds.
inline Record RecordOf(ICoord* coord) {
    KoordFields fields{};
    EXPECT_TRUE(As<ICoordInternal>(coord)->GetKoord(&fields));
    return fields.record;
}

// A host with a map on the grid of UTM zone 32: pixel (x, y) is easting 400000 + 10 x, northing
// 5600000 - 20 y.
class ContractPlaces : public ContractHost {
  protected:
    [[nodiscard]] Held<ICoord> Coord(const Record& record, double height = 0.0) const {
        Held<ICoord> coord = Make<ICoord>("Coord");
        KoordFields fields{};
        fields.record = record;
        fields.height = height;
        EXPECT_TRUE(As<ICoordInternal>(coord)->SetKoord(&fields));
        return coord;
    }
    [[nodiscard]] Held<ICoord> Utm(double easting, double northing, int zone = 32) const {
        return Coord(UtmRecord(zone, easting, northing));
    }
    [[nodiscard]] Held<ICoord> Geodez(double latitude, double longitude) const {
        return Coord(GeodezRecord(latitude, longitude));
    }
    [[nodiscard]] Held<ICoord> Pixel(double x, double y) const { return Coord(PixelRecord(x, y)); }

    [[nodiscard]] Held<ICoordinateReference> Reference(int32_t datum, uint32_t system) const {
        Held<ICoordinateReference> reference = Make<ICoordinateReference>("CoordinateReference");
        EXPECT_TRUE(reference->SetDatum(datum));
        EXPECT_TRUE(reference->SetSystem(static_cast<int32_t>(system)));
        return reference;
    }

    template <class... Objects>
    [[nodiscard]] Held<IArray> List(const Objects&... objects) const {
        Held<IArray> list = Make<IArray>("Array");
        (list->Add(objects.Get()), ...);
        return list;
    }

    [[nodiscard]] Held<IGeoDate> Wgs84() const {
        Held<IGeoDate> datum = Make<IGeoDate>("GeoDate");
        EXPECT_TRUE(datum->SetDatum(WGS84));
        return datum;
    }

    [[nodiscard]] static MapUtmParams SheetParams() { return {'N', 32, 400000.0, 5600000.0, 10.0, 20.0}; }

    // A grid doesn't use the reference point, but the factory requires one.
    [[nodiscard]] Held<IMapCoordOperations> MapOn(IProjection* projection) const {
        const auto point = Make<IReferencePoint>("ReferencePoint");
        EXPECT_TRUE(point->SetLong(Geodez(50.0, 9.0), 500, 600));
        return Held<IMapCoordOperations>(
            Make<IMapCoordOperationsFactory>("MapCoordOperationsFactory")
                ->CreateFromReferencePoint(point, 50000, 4.0, Wgs84(), projection));
    }
    [[nodiscard]] Held<IMapCoordOperations> Sheet() const {
        const MapUtmParams params = SheetParams();
        const Held<IProjection> projection(Make<IProjectionFactory>("ProjectionFactory")->CreateUtm(&params));
        return MapOn(projection);
    }

    static void ExpectUtm(ICoord* coord, double easting, double northing) {
        const Record record = RecordOf(coord);
        EXPECT_EQ(record.type, UTM);
        EXPECT_NEAR(record.At<double>(8), easting, METRES);
        EXPECT_NEAR(record.At<double>(16), northing, METRES);
    }
    static void ExpectPixel(ICoord* coord, double x, double y) {
        const Record record = RecordOf(coord);
        EXPECT_EQ(record.type, FLOATPIXEL);
        EXPECT_NEAR(record.At<double>(0), x, PIXELS);
        EXPECT_NEAR(record.At<double>(8), y, PIXELS);
    }

    // Metres: a position passes the series of the projection and of its inverse.
    static constexpr double METRES = 1e-3;
    static constexpr double PIXELS = 1e-3;
};

}  // namespace contract
