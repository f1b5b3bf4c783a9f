// In builds that count objects by class (tessara/internal/object_census.h), every test ends with no object
// alive.
#pragma once

namespace tessara::testing {

// Fails the test for each class of which objects are alive.
void ExpectNoLivingObjects();

}  // namespace tessara::testing
