// A host with declarations of its own calls every operation of the geometry classes.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <string>

#include "abi/contract/geometry.h"
#include "abi/contract/places.h"

namespace contract {
namespace {

// WGS84.
constexpr double SEMI_MAJOR = 6378137.0;
constexpr double SEMI_MINOR = 6356752.314245;
constexpr double LARGEST = 1.7976931348623157e308;

class ContractGeometry : public ContractPlaces {
  protected:
    static void ExpectItems(const Sequence& v, std::initializer_list<double> expected,
                            double tolerance = 1e-15) {
        ASSERT_EQ(v.size, expected.size());
        const double* item = v.items;
        for (const double value : expected)
            EXPECT_NEAR(*item++, value, tolerance);
    }

    [[nodiscard]] Held<ICoordGeographic> GeographicOf(ICoord* coord) const {
        Held<ICoordGeographic> place = Make<ICoordGeographic>("CoordGeographic");
        EXPECT_TRUE(coord->GetGeographic(place));
        return place;
    }
};

TEST_F(ContractGeometry, VectorArithmetic) {
    const auto vectors = Make<IVector>("EuclideanVector");
    const Sequence a(3.0, 4.0, 0.0), b(1.0, 2.0, 5.0), c(1.0, 0.0, 2.0);
    ExpectItems(vectors->Normalize(a), {0.6, 0.8, 0.0});
    ExpectItems(vectors->MakeZero(2), {0.0, 0.0});
    EXPECT_EQ(vectors->Length(a), 5.0);
    ExpectItems(vectors->Add(a, b), {4.0, 6.0, 5.0});
    ExpectItems(vectors->Subtract(a, b), {2.0, 2.0, -5.0});
    EXPECT_EQ(vectors->Dot(a, b), 11.0);
    ExpectItems(vectors->Cross(a, b), {20.0, -15.0, 2.0});
    EXPECT_EQ(vectors->TripleProduct(a, b, c), 24.0);
    ExpectItems(vectors->Scale(a, 2.0), {6.0, 8.0, 0.0});
    EXPECT_EQ(vectors->Add(a, Sequence(1.0, 2.0)).size, 0u);
    EXPECT_EQ(vectors->Dot(a, Sequence(1.0, 2.0)), -LARGEST);
}

// A vector whose numbers come from another heap than the library's, and how many such were freed.
int g_freed = 0;

Sequence FromTheHostsHeap(double x, double y) {
    Sequence v;
    v.items = static_cast<double*>(std::malloc(2 * sizeof(double)));
    v.items[0] = x;
    v.items[1] = y;
    v.size = v.capacity = 2;
    v.free = [](double* items) {
        ++g_freed;
        std::free(items);
    };
    return v;
}

TEST_F(ContractGeometry, NumbersAreFreedByTheFunctionThatCameWithThem) {
    const auto vectors = Make<IVector>("EuclideanVector");
    const auto ellipsoid = Make<IEllipsoidOfRevolution>("EllipsoidOfRevolution");
    g_freed = 0;
    {
        const Sequence argument = FromTheHostsHeap(3.0, 4.0);
        EXPECT_EQ(vectors->Length(argument), 5.0);
        EXPECT_EQ(g_freed, 0) << "an argument stays the caller's";
    }
    EXPECT_EQ(g_freed, 1);
    Sequence output = FromTheHostsHeap(1.0, 2.0);
    const auto hosts = output.free;
    EXPECT_TRUE(ellipsoid->GetNormal(Geodez(0.0, 0.0), &output));
    EXPECT_EQ(g_freed, 2) << "what an output held goes back to the host";
    EXPECT_NE(output.free, hosts);
    ExpectItems(output, {1.0, 0.0, 0.0});
}

// At latitude 0, longitude 0 the axes are those of space: up is x, east is y, north is z.
TEST_F(ContractGeometry, Ellipsoid) {
    const auto ellipsoid = MakeByClassId<IEllipsoidOfRevolution>(Id("4A5D89C2-2D2E-49B0-BD6D-09D0455EEA3E"));
    const auto zero = Geodez(0.0, 0.0);
    Sequence east, north, out;
    EXPECT_TRUE(ellipsoid->GetLocalAxes(zero, &east, &north));
    ExpectItems(east, {0.0, 1.0, 0.0});
    ExpectItems(north, {0.0, 0.0, 1.0});
    EXPECT_TRUE(ellipsoid->GetNormal(zero, &out));
    ExpectItems(out, {1.0, 0.0, 0.0});
    EXPECT_TRUE(ellipsoid->GetDirection(zero, 30.0, &out));
    ExpectItems(out, {0.0, 0.5, std::sqrt(0.75)});
    EXPECT_TRUE(ellipsoid->CoordToEcefVector(zero, &out));
    ExpectItems(out, {SEMI_MAJOR, 0.0, 0.0}, 1e-9);

    const auto coord = Geodez(0.0, 0.0);
    const Sequence ninetyEast(0.0, SEMI_MAJOR + 100.0, 0.0);
    EXPECT_TRUE(ellipsoid->EcefVectorToCoord(&ninetyEast, coord));
    EXPECT_NEAR(GeographicOf(coord)->GetLongitude(), 90.0, 1e-12);
    EXPECT_NEAR(coord->GetHeight(), 100.0, 1e-6) << "metres";
}

// Eastward on the equator, a circle: s metres along it are s / a radians, and a chord of s metres spans
// 2 asin(s / 2a). The searches end within a centimetre, 1e-7 degrees.
TEST_F(ContractGeometry, PointsAtADistance) {
    const auto ellipsoid = MakeByClassId<IEllipsoidOfRevolution>(Id("4A5D89C2-2D2E-49B0-BD6D-09D0455EEA3E"));
    const auto zero = Geodez(0.0, 0.0);
    const auto coord = Geodez(0.0, 0.0);
    constexpr double DEGREE = 57.29577951308232;
    constexpr double S = 500000.0;  // where the two differ by 129 m
    constexpr double CENTIMETRE = 1e-7;
    EXPECT_TRUE(ellipsoid->PointAtGeodesicDistance(zero, 90.0, S, coord));
    EXPECT_NEAR(GeographicOf(coord)->GetLongitude(), S / SEMI_MAJOR * DEGREE, CENTIMETRE);
    EXPECT_TRUE(ellipsoid->PointAtChordDistance(zero, 90.0, S, coord));
    EXPECT_NEAR(GeographicOf(coord)->GetLongitude(), 2.0 * std::asin(S / (2.0 * SEMI_MAJOR)) * DEGREE,
                2.0 * CENTIMETRE);

    // Straight down from a place above the equator.
    const auto above = Geodez(0.0, 0.0);
    EXPECT_TRUE(above->SetHeight(1000.0));
    const Sequence down(-1.0, 0.0, 0.0);
    const auto near = Geodez(0.0, 0.0), far = Geodez(0.0, 0.0);
    EXPECT_TRUE(ellipsoid->IntersectLine(above, &down, near, far));
    EXPECT_NEAR(GeographicOf(near)->GetLongitude(), 0.0, 1e-9);
    EXPECT_NEAR(std::fabs(GeographicOf(far)->GetLongitude()), 180.0, 1e-9);
}

TEST_F(ContractGeometry, TangentPlaneItself) {
    const auto plane = Make<ITangentPlane>("TangentPlane");
    EXPECT_TRUE(plane->SetOrigin(Geodez(0.0, 90.0)));
    const auto origin = Geodez(1.0, 1.0);
    EXPECT_TRUE(plane->GetOrigin(origin));
    EXPECT_EQ(RecordOf(origin).At<double>(8), 90.0);
    const auto again = Geodez(1.0, 1.0);
    Sequence east, north, out;
    EXPECT_TRUE(plane->GetFrame(again, &east, &north));
    EXPECT_EQ(RecordOf(again).At<double>(8), 90.0);
    ExpectItems(east, {-1.0, 0.0, 0.0});
    ExpectItems(north, {0.0, 0.0, 1.0});
    EXPECT_TRUE(plane->GetNormal(&out));
    ExpectItems(out, {0.0, 1.0, 0.0});
    EXPECT_TRUE(plane->GetDirection(270.0, &out));
    ExpectItems(out, {1.0, 0.0, 0.0});
}

// A degree east on the equator, seen from longitude 0: in the plane y is space's x east and z north.
TEST_F(ContractGeometry, TangentPlaneOfAPlace) {
    const auto plane = Make<ITangentPlane>("TangentPlane");
    EXPECT_TRUE(plane->SetOrigin(Geodez(0.0, 0.0)));
    constexpr double RADIAN = 0.0174532925199433;
    const auto degreeEast = Geodez(0.0, 1.0);
    EXPECT_NEAR(plane->GetAzimuth(degreeEast), 90.0, 1e-9);
    double x = 0.0, y = 0.0, z = 0.0;
    EXPECT_TRUE(plane->GetPlaneCoords(degreeEast, &x, &y, &z));
    constexpr double METRES_HERE = 1e-6;
    EXPECT_NEAR(x, SEMI_MAJOR * std::sin(RADIAN), METRES_HERE);
    EXPECT_NEAR(y, 0.0, METRES_HERE);
    EXPECT_NEAR(z, SEMI_MAJOR * (std::cos(RADIAN) - 1.0), METRES_HERE);

    const auto back = Geodez(0.0, 0.0);
    EXPECT_TRUE(plane->PlaneCoordsToCoord(x, y, z, back));
    EXPECT_NEAR(GeographicOf(back)->GetLongitude(), 1.0, 1e-9);

    const Sequence point(SEMI_MAJOR + 10.0, 3.0, 4.0), direction(-2.0, 0.0, 0.0);
    EXPECT_NEAR(plane->IntersectRay(&point, &direction, &x, &y), 5.0, METRES_HERE);
    EXPECT_NEAR(x, 3.0, METRES_HERE);
    EXPECT_NEAR(y, 4.0, METRES_HERE);

    const auto out = Geodez(0.0, 0.0);
    const Sequence outward(1.0, 0.0, 0.0);
    EXPECT_NEAR(plane->ProjectAlong(degreeEast, &outward, out), SEMI_MAJOR * (1.0 - std::cos(RADIAN)), 1e-6);
    const auto longitudeAt = [](double east) { return std::atan2(east, SEMI_MAJOR) / RADIAN; };
    EXPECT_NEAR(GeographicOf(out)->GetLongitude(), longitudeAt(SEMI_MAJOR * std::sin(RADIAN)), 1e-9);
    // The arc is 1.4 m shorter than the tangent of its angle, and the chord 1.4 m shorter than the arc.
    EXPECT_TRUE(plane->MapByGeodesic(degreeEast, out));
    EXPECT_NEAR(GeographicOf(out)->GetLongitude(), longitudeAt(SEMI_MAJOR * RADIAN), 1e-8);
    EXPECT_TRUE(plane->MapByChord(degreeEast, out));
    EXPECT_NEAR(GeographicOf(out)->GetLongitude(), longitudeAt(2.0 * SEMI_MAJOR * std::sin(RADIAN / 2.0)),
                1e-8);
}

TEST_F(ContractGeometry, CirclesAndEllipses) {
    const auto centre = Geodez(90.0, 0.0);
    const auto points = Make<IArray>("Array");
    const auto at = [&](uint32_t index) {
        const Record record = RecordOf(As<ICoord>(points->GetAt(index)));
        EXPECT_EQ(record.type, ECEF);
        EXPECT_NEAR(record.At<double>(16), SEMI_MINOR, 1e-3);
        return std::pair(record.At<double>(0), record.At<double>(8));
    };
    constexpr double METRES_HERE = 1e-6;
    // At the pole on the meridian 0 north is away from it, the direction of -x, and east is y.
    const auto circle = MakeByClassId<ICircleOnTangentPlane>(Id("F601D12D-BB6D-4D39-879C-7934B673EF28"));
    EXPECT_TRUE(circle->MakeCircle(centre, 0.0, 90.0, 1000.0, points, 2, true));
    ASSERT_EQ(points->GetCount(), 2u);
    EXPECT_NEAR(at(0).first, -1000.0, METRES_HERE);
    EXPECT_NEAR(at(1).second, 1000.0, METRES_HERE);
    EXPECT_TRUE(circle->MakeCircle(centre, 0.0, 90.0, 1000.0, points, 4, false));
    ASSERT_EQ(points->GetCount(), 4u);
    EXPECT_NEAR(at(1).second, -1000.0, METRES_HERE) << "the other way round";

    const auto ellipse = MakeByClassId<IEllipseOnTangentPlane>(Id("6174F97A-BC76-43C0-94FB-64E69B7A4F7D"));
    EXPECT_TRUE(ellipse->MakeEllipse(centre, 90.0, 2000.0, 500.0, 0.0, 90.0, points, 2, true));
    ASSERT_EQ(points->GetCount(), 2u);
    EXPECT_NEAR(at(0).second, 2000.0, METRES_HERE) << "the long axis lies east";
    EXPECT_NEAR(at(1).first, 500.0, METRES_HERE);
}

TEST_F(ContractGeometry, LineIntersectionParameters) {
    const auto made = MakeByClassId<ILineIntersectionParameters>(Id("D3101BAF-3656-4536-B013-FEB1D16E8824"));
    const auto crossing = Pixel(1.0, 1.0), start = Pixel(2.0, 2.0), end = Pixel(3.0, 3.0);
    EXPECT_EQ(made->GetIntersection(), nullptr);
    EXPECT_EQ(made->GetSegmentIndex(), 0xFFFFFFFFu);
    EXPECT_EQ(made->GetParameter(), -LARGEST);
    EXPECT_TRUE(made->SetIntersection(crossing));
    EXPECT_TRUE(made->SetLineStart(start));
    EXPECT_TRUE(made->SetLineEnd(end));
    EXPECT_FALSE(made->SetSegmentIndex(0));
    EXPECT_TRUE(made->SetSegmentIndex(4));
    EXPECT_TRUE(made->SetParameter(0.25));
    EXPECT_EQ(made->GetIntersection(), crossing.Get());
    EXPECT_EQ(made->GetLineStart(), start.Get());
    EXPECT_EQ(made->GetLineEnd(), end.Get());
    EXPECT_EQ(made->GetSegmentIndex(), 4u);
    EXPECT_EQ(made->GetParameter(), 0.25);
}

TEST_F(ContractGeometry, IntersectionResults) {
    const auto results = MakeByClassId<IIntersectionResults>(Id("4770F202-2EF5-4ADA-9318-56B81E8C3093"));
    const Guid parameters = Id("D3101BAF-3656-4536-B013-FEB1D16E8824");
    const auto first = MakeByClassId<ILineIntersectionParameters>(parameters);
    const auto second = MakeByClassId<ILineIntersectionParameters>(parameters);
    EXPECT_EQ(results->GetCount(), 0);
    EXPECT_FALSE(results->Add(first, nullptr));
    EXPECT_TRUE(results->Add(first, second));
    EXPECT_TRUE(results->Add(second, second));
    EXPECT_EQ(results->GetCount(), 2);
    EXPECT_EQ(results->GetFirstAt(0), first.Get());
    EXPECT_EQ(results->GetSecondAt(0), second.Get());
    EXPECT_FALSE(results->RemoveAt(2));
    EXPECT_TRUE(results->RemoveAt(0));
    EXPECT_EQ(results->GetFirstAt(0), second.Get());
    results->Clear();
    EXPECT_EQ(results->GetCount(), 0);
}

TEST_F(ContractGeometry, TheToleranceOfLines) {
    const auto lines = Make<ILinePoints>("LinePoints");
    EXPECT_EQ(lines->GetPixelTolerance(), 0.25);
    EXPECT_FALSE(lines->SetPixelTolerance(-1.0));
    EXPECT_TRUE(lines->SetPixelTolerance(0.5));
    EXPECT_EQ(lines->GetPixelTolerance(), 0.5);
}

// The middles of the chains from latitude 50, longitude 6 to 60, 12 on a Mercator map, by
//     echo 6 50 | cs2cs -f %.6f +proj=longlat +datum=WGS84 +to EPSG:3395    and the same for 12 60
// (667916.944760 6413524.594164 and 1335833.889519 8362698.548501), the mean of the two taken back, and by
//     echo 50 6 60 12 | GeodSolve -i -p 9    and GeodSolve -p 6 for half the distance along its azimuth.
TEST_F(ContractGeometry, DensifiedLines) {
    const auto lines = Make<ILinePoints>("LinePoints");
    const MapMercatorParams params{0.0, {0.0, 0.0}};
    const auto map =
        MapOn(Held<IProjection>(Make<IProjectionFactory>("ProjectionFactory")->CreateMercator(&params)));
    const auto a = Geodez(50.0, 6.0), b = Geodez(60.0, 12.0);
    const auto chain = Make<IArray>("Array");
    const auto goesThrough = [&](double latitude, double longitude) {
        constexpr double DEGREES = 1e-5;  // a metre, a twelfth of a pixel
        for (uint32_t i = 0; i < chain->GetCount(); ++i) {
            const auto place = GeographicOf(As<ICoord>(chain->GetAt(i)));
            if (std::fabs(place->GetLatitude() - latitude) < DEGREES &&
                std::fabs(place->GetLongitude() - longitude) < DEGREES) {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(lines->DensifyCoordStraight(map, a, b, chain));
    EXPECT_TRUE(goesThrough(55.0, 9.0));
    EXPECT_TRUE(lines->DensifyMapStraight(map, a, b, chain));
    EXPECT_TRUE(goesThrough(55.315163530, 9.0));
    EXPECT_TRUE(lines->DensifyGeodesic(map, a, b, chain));
    EXPECT_TRUE(goesThrough(55.03847739180, 8.62563069436));
    // Straight in van der Grinten's plane, without any map.
    EXPECT_TRUE(lines->DensifyInReference(a, b, Reference(2, VDG), chain));
    EXPECT_EQ(chain->GetCount(), 33u) << "halved five times";
}

// The middle of a straight line between two places of a zone's border lies beside it.
TEST_F(ContractGeometry, ADensifiedBorder) {
    const auto lines = Make<ILinePoints>("LinePoints");
    const auto chain = Make<IArray>("Array");
    const auto south = Utm(0.0, 0.0), north = Utm(0.0, 0.0);
    const auto zones = Make<IZoneCoordOperations>("ZoneCoordOperations");
    EXPECT_TRUE(zones->GetEastNeighbour(Utm(600000.0, 5500000.0), south));
    EXPECT_TRUE(zones->GetEastNeighbour(Utm(600000.0, 6500000.0), north));
    EXPECT_TRUE(lines->DensifyCoordStraightZoned(Sheet(), south, north, chain));
    ASSERT_GT(chain->GetCount(), 2u);
    for (uint32_t i = 0; i < chain->GetCount(); ++i)
        EXPECT_NEAR(GeographicOf(As<ICoord>(chain->GetAt(i)))->GetLongitude(), 12.0, 1e-6);
}

TEST_F(ContractGeometry, CrossingLines) {
    const auto lines = Make<ILinePoints>("LinePoints");
    const auto map = Sheet();
    const auto results = MakeByClassId<IIntersectionResults>(Id("4770F202-2EF5-4ADA-9318-56B81E8C3093"));
    const auto points = Make<IArray>("Array");
    // A cross at pixel (10, 20), a quarter and a half along its lines, in pixels and on the ground.
    const auto pixelA = List(Pixel(0.0, 20.0), Pixel(40.0, 20.0));
    const auto pixelB = List(Pixel(10.0, 0.0), Pixel(10.0, 40.0));
    const auto groundA = List(Utm(400000.0, 5599600.0), Utm(400400.0, 5599600.0));
    const auto groundB = List(Utm(400100.0, 5600000.0), Utm(400100.0, 5599200.0));
    const auto expectQuarterAndHalf = [&] {
        ASSERT_EQ(results->GetCount(), 1);
        const auto first = As<ILineIntersectionParameters>(results->GetFirstAt(0));
        const auto second = As<ILineIntersectionParameters>(results->GetSecondAt(0));
        EXPECT_NEAR(first->GetParameter(), 0.25, 1e-6);
        EXPECT_NEAR(second->GetParameter(), 0.5, 1e-6);
        EXPECT_EQ(first->GetSegmentIndex(), 1u);
    };
    EXPECT_TRUE(lines->IntersectPixelLines(pixelA, pixelB, results));
    expectQuarterAndHalf();
    EXPECT_FALSE(lines->IntersectPixelLines(groundA, groundB, results)) << "no pixels";
    EXPECT_TRUE(lines->IntersectPixelLinesToArray(pixelA, pixelB, points));
    ASSERT_EQ(points->GetCount(), 1u);
    ExpectPixel(As<ICoord>(points->GetAt(0)), 10.0, 20.0);
    EXPECT_TRUE(lines->IntersectOnMap(map, groundA, groundB, results));
    expectQuarterAndHalf();
    EXPECT_TRUE(lines->IntersectOnMapToArray(map, groundA, groundB, points));
    ASSERT_EQ(points->GetCount(), 1u);
    ExpectUtm(As<ICoord>(points->GetAt(0)), 400100.0, 5599600.0);
}

TEST_F(ContractGeometry, PointsAndLines) {
    const auto lines = Make<ILinePoints>("LinePoints");
    const auto map = Sheet();
    const auto a = Pixel(0.0, 0.0), b = Pixel(10.0, 0.0), p = Pixel(4.0, 3.0);
    EXPECT_TRUE(lines->IsPointOnLine(map, Pixel(4.0, 0.0), List(a, b)));
    EXPECT_FALSE(lines->IsPointOnLine(map, p, List(a, b)));
    EXPECT_EQ(lines->GetSignedDistance(map, p, a, b), 3.0);
    EXPECT_EQ(lines->GetSignedDistance(map, p, b, a), -3.0);
    const auto foot = Pixel(0.0, 0.0);
    EXPECT_TRUE(lines->GetFootPoint(map, p, a, b, foot));
    ExpectPixel(foot, 4.0, 0.0);
}

}  // namespace
}  // namespace contract
