// Compares the kernel with PROJ and GeographicLib: the same positions, the same arrays of 4096, one thread,
// one run, medians of five. Before the measurement, the program compares the results of the libraries for all
// positions, and ends if they disagree, because the tasks would then differ.
//
//     peers [--json FILE] [NAME ...]     only the tasks whose names begin with a NAME
//     peers --arrays [NAME ...]          a million positions in one call instead

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "bench/peers/array_contests.h"
#include "bench/peers/contests.h"
#include "bench/peers/report.h"

namespace tessara::bench {
namespace {

struct Options {
    std::string json;
    bool arrays = false;
    std::vector<std::string_view> names;
    [[nodiscard]] bool Wants(const std::string& task) const {
        const auto isPrefix = [&](std::string_view name) { return task.starts_with(name); };
        return names.empty() || std::any_of(names.begin(), names.end(), isPrefix);
    }
};

Options ReadOptions(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--arrays") {
            options.arrays = true;
        } else if (argument != "--json") {
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

void CompareArrays(const Options& options) {
    std::vector<ArrayTask> tasks;
    AddGridArrays(&tasks);
    AddShiftArrays(&tasks);
    const double copying = TimeOfCopying();
    PrintArrayHeading(copying);
    for (const ArrayTask& task : tasks) {
        if (options.Wants(task.name)) PrintArrayRow(task.name, TimeArrays(task), copying);
    }
    CompareGeodesicArrays([&](const std::string& name) { return options.Wants(name); });
}

int Main(int count, char** arguments) {
    const Options options = ReadOptions(count, arguments);
    if (options.arrays) {
        CompareArrays(options);
        return 0;
    }
    std::vector<Contest> contests = AllContests();
    std::erase_if(contests, [&](const Contest& contest) { return !options.Wants(contest.name); });
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
