// The kernel beside PROJ and GeographicLib: the same positions, the same arrays of 4096, one thread, one run,
// medians of five. Before anything is timed the libraries are held against each other on all positions; a
// disagreement ends the program, for a comparison of different tasks says nothing.
//
//     peers [--json FILE] [NAME ...]     only the tasks whose names begin with a NAME

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "bench/peers/contests.h"
#include "bench/peers/report.h"

namespace tessara::bench {
namespace {

struct Options {
    std::string json;
    std::vector<std::string_view> names;
    [[nodiscard]] bool Wants(const Contest& contest) const {
        const auto isPrefix = [&](std::string_view name) { return contest.name.starts_with(name); };
        return names.empty() || std::any_of(names.begin(), names.end(), isPrefix);
    }
};

Options ReadOptions(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument != "--json") {
            options.names.push_back(argument);
        } else if (++i < count) {
            options.json = arguments[i];
        } else {
            Fail("--json needs a file");
        }
    }
    return options;
}

std::vector<Contest> AllContests() {
    std::vector<Contest> contests;
    AddGrids(&contests);
    AddReferences(&contests);
    AddShifts(&contests);
    AddGeodesics(&contests);
    AddRequests(&contests);
    return contests;
}

void RequireAgreement(const Contest& contest) {
    for (const Contestant* peer : {&contest.proj, &contest.geographicLib}) {
        if (!peer->Exists()) continue;
        const double difference = LargestDifference(contest, *peer);
        if (difference <= contest.tolerance) continue;
        const char* name = peer == &contest.proj ? "PROJ" : "GeographicLib";
        Fail(contest.name + ": " + name + " differs by " + std::to_string(difference) + " m");
    }
}

int Main(int count, char** arguments) {
    const Options options = ReadOptions(count, arguments);
    std::vector<Contest> contests = AllContests();
    std::erase_if(contests, [&](const Contest& contest) { return !options.Wants(contest); });
    for (const Contest& contest : contests)
        RequireAgreement(contest);

    PrintHeading();
    std::vector<Row> rows;
    for (const Contest& contest : contests) {
        rows.push_back({contest.name, Time(contest)});
        PrintRow(contest.name, rows.back().figures);
    }
    if (!options.json.empty() && !WriteJson(rows, options.json)) Fail("can't write " + options.json);
    return 0;
}

}  // namespace
}  // namespace tessara::bench

int main(int count, char** arguments) {
    return tessara::bench::Main(count, arguments);
}
