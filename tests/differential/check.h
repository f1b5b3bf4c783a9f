// A check compares the library with another program, or with a rule of mathematics, at random cases.
#pragma once

#include <cmath>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "support/random.h"

namespace tessara::differential {

using testing::Random;

// The largest difference so far, and the case in which it occurs.
struct Outcome {
    std::size_t cases = 0;
    double worst = 0.0;
    std::string place;

    // A difference that is no number counts as the largest.
    template <class Describe>
    void Note(double difference, Describe describe) {
        ++cases;
        if (difference <= worst || std::isnan(worst)) return;
        worst = difference;
        place = describe();
    }
};

struct Check {
    std::string subject;
    std::string reference;
    const char* unit;
    double limit;  // of the difference
    std::size_t cases;
    std::function<Outcome(Random&, std::size_t cases)> run;
};

using Checks = std::vector<Check>;

void AddConversions(Checks* checks);  // there and back, scale laws, zones
void AddDrawings(Checks* checks);     // polylines and extents beside dense samples
void AddOverlays(Checks* checks);     // beside GEOS
void AddPeers(Checks* checks);        // beside PROJ and GeographicLib; nothing without them

}  // namespace tessara::differential
