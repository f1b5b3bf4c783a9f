// The figures of the contests as a table and as JSON.
#pragma once

#include <string>

#include "bench/peers/contest.h"

namespace tessara::bench {

void PrintHeading();
void PrintRow(const std::string& name, const Figures& figures);

struct Row {
    std::string name;
    Figures figures;
};

// False for a file that can't be written.
bool WriteJson(const std::vector<Row>& rows, const std::string& path);

}  // namespace tessara::bench
