// Shared parts of the tests of the objects for geometry in space.
#pragma once

#include "numerics/special_values.h"
#include "support/live_objects.h"
#include "support/managed_library.h"
#include "support/objects.h"
#include "support/space.h"
#include "tessara/ellipsoid_of_revolution.h"

namespace tessara::testing {

class SpaceTest : public BalancedTest {
  protected:
    static constexpr std::int32_t DATUM_GER = 3;  // Bessel's ellipsoid, some 170 m from WGS84 in Vienna

    Vector XyzAt(const IRef<ICoord>& coord) {
        Vector xyz;
        EXPECT_TRUE(ellipsoid->CoordToEcefVector(coord.Get(), &xyz));
        return xyz;
    }

    ManagedLibrary library;
    IRef<IEllipsoidOfRevolution> ellipsoid{CreateClassEllipsoidOfRevolution()};
};

}  // namespace tessara::testing
