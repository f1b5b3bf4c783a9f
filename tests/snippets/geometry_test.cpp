// The examples in the headers of geometry.
#include <gtest/gtest.h>

#include <vector>

#include "snippets/header_example.h"
#include "support/lines.h"
#include "support/space.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using testing::HeaderExample;

// In a straight line.
double DistanceBetween(const IRef<ICoord>& a, const IRef<ICoord>& b) {
    const IRef<IEllipsoidOfRevolution> ellipsoids(CreateClassEllipsoidOfRevolution());
    Vector from, to;
    EXPECT_TRUE(ellipsoids->CoordToEcefVector(a, &from) && ellipsoids->CoordToEcefVector(b, &to));
    return testing::Distance(from, to);
}

double GeodesicBetween(const IRef<ICoord>& a, const IRef<ICoord>& b) {
    const CKoord from = KoordOf(a), to = KoordOf(b);
    double distance = 0.0, azimuth = 0.0, back = 0.0;
    EXPECT_EQ(Geodesic_Inverse(&from, &to, DATUM_WGS84, &distance, &azimuth, &back), KOORD_OK);
    return distance;
}

TEST_F(HeaderExample, CircleOnTangentPlane) {
    const IRef<ICoord> munich = testing::Place(48.1375, 11.5755, 520.0);

    const tessara::IRef circles = tessara::CreateClassCircleOnTangentPlane();
    const tessara::IRef ring = tessara::CreateClassArray();
    circles->MakeCircle(munich, 0.0, 0.0, 10000.0, ring, 9, true);  // the ninth point is the first again

    ASSERT_EQ(ring->GetCount(), 9u);
    for (std::uint32_t i = 0; i < 9; ++i)
        EXPECT_NEAR(DistanceBetween(munich, testing::At(ring, i)), 10000.0, 1e-3) << i;
    EXPECT_NEAR(DistanceBetween(testing::At(ring, 0), testing::At(ring, 8)), 0.0, 1e-3);
    IsDone();
}

TEST_F(HeaderExample, EllipseOnTangentPlane) {
    const IRef<ICoord> munich = testing::Place(48.1375, 11.5755, 520.0);

    const tessara::IRef ellipses = tessara::CreateClassEllipseOnTangentPlane();
    const tessara::IRef points = tessara::CreateClassArray();
    ellipses->MakeEllipse(munich, 45.0, 200.0, 100.0, 0.0, 0.0, points, 5, true);
    // the first point is 200 m from the centre, the second 100 m

    ASSERT_EQ(points->GetCount(), 5u);
    EXPECT_NEAR(DistanceBetween(munich, testing::At(points, 0)), 200.0, 1e-3);
    EXPECT_NEAR(DistanceBetween(munich, testing::At(points, 1)), 100.0, 1e-3);
    IsDone();
}

TEST_F(HeaderExample, EllipsoidOfRevolution) {
    const IRef<ICoord> coord = testing::Place(0.0, 90.0);

    const tessara::IRef ellipsoids = tessara::CreateClassEllipsoidOfRevolution();
    tessara::Vector position, up;
    if (!ellipsoids->CoordToEcefVector(coord, &position) || !ellipsoids->GetNormal(coord, &up)) return;
    // latitude 0, longitude 90: position 0, 6378137, 0 and up 0, 1, 0

    // The equator's radius, to the roundings of the cosine of 90 degrees.
    EXPECT_LT(testing::Distance(position, {0.0, 6378137.0, 0.0}), 1e-6);
    EXPECT_LT(testing::Distance(up, {0.0, 1.0, 0.0}), 1e-12);
    IsDone();
}

TEST_F(HeaderExample, EuclideanVector) {
    const tessara::IRef vectors = tessara::CreateClassEuclideanVector();
    const tessara::Vector east{1.0, 0.0, 0.0}, north{0.0, 1.0, 0.0};
    const tessara::Vector up = vectors->Cross(east, north);  // 0, 0, 1

    EXPECT_EQ(up, (Vector{0.0, 0.0, 1.0}));
    IsDone();
}

TEST_F(HeaderExample, IntersectionResults) {
    const IRef<IArray> lineA = testing::PixelLine({{0.0, 0.0}, {10.0, 10.0}});
    const IRef<IArray> lineB = testing::PixelLine({{0.0, 10.0}, {10.0, 0.0}});
    std::vector<double> alongA;

    const tessara::IRef lines = tessara::CreateClassLinePoints();
    const tessara::IRef results = tessara::CreateClassIntersectionResults();
    if (!lines->IntersectPixelLines(lineA, lineB, results)) return;
    for (std::int32_t i = 0; i < results->GetCount(); ++i) {
        const tessara::IRef<tessara::ILineIntersectionParameters> onA(
            results->GetFirstAt(static_cast<std::uint32_t>(i)));
        alongA.push_back(onA->GetParameter());  // 0.5 of its segment, from (0, 0) to (10, 10)
    }

    EXPECT_EQ(alongA, std::vector{0.5});
    IsDone();
}

TEST_F(HeaderExample, LinePoints) {
    const IRef<IMapCoordOperations> map = testing::DegreeMap(-180.0, 90.0, 5.0);
    const IRef<ICoord> munich = testing::Place(48.1375, 11.5755, 520.0);
    const IRef<ICoord> tokyo = testing::Place(35.6895, 139.6917, 40.0);

    const tessara::IRef lines = tessara::CreateClassLinePoints();
    lines->SetPixelTolerance(0.5);
    const tessara::IRef points = tessara::CreateClassArray();
    if (!lines->DensifyGeodesic(map, munich, tokyo, points)) return;  // GEODEZ, at most 129 points

    // Every point is on the geodesic: its distances from the two ends add up to that of the ends.
    EXPECT_GT(points->GetCount(), 9u);
    EXPECT_LE(points->GetCount(), 129u);
    const double whole = GeodesicBetween(munich, tokyo);
    for (std::uint32_t i = 0; i < points->GetCount(); ++i) {
        const IRef<ICoord> point = testing::At(points, i);
        EXPECT_NEAR(GeodesicBetween(munich, point) + GeodesicBetween(point, tokyo), whole, 0.01) << i;
    }
    IsDone();
}

TEST_F(HeaderExample, TangentPlane) {
    const IRef<ICoord> foot = testing::Place(48.1375, 11.5755, 520.0);
    const IRef<ICoord> top = testing::Place(48.1375, 11.5755, 550.0);

    const tessara::IRef plane = tessara::CreateClassTangentPlane();
    double x = 0.0, y = 0.0, z = 0.0;
    if (!plane->SetOrigin(foot) || !plane->GetPlaneCoords(top, &x, &y, &z)) return;  // 0, 0, 30

    // To the roundings of earth-centred metres.
    EXPECT_NEAR(x, 0.0, 1e-6);
    EXPECT_NEAR(y, 0.0, 1e-6);
    EXPECT_NEAR(z, 30.0, 1e-6);
    IsDone();
}

}  // namespace
}  // namespace tessara
