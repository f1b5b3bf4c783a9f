// The contests by subject.
#pragma once

#include <vector>

#include "bench/peers/contest.h"

namespace tessara::bench {

void AddGrids(std::vector<Contest>* contests);       // each coordinate system, both ways
void AddReferences(std::vector<Contest>* contests);  // letters and digits
void AddShifts(std::vector<Contest>* contests);      // between datums
void AddGeodesics(std::vector<Contest>* contests);
void AddRequests(std::vector<Contest>* contests);  // from texts to a text

}  // namespace tessara::bench
