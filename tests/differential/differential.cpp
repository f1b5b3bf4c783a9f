// Compares the library with other programs and with rules of mathematics at random cases, and writes the
// largest differences as a table in Markdown. Fails if one of them is above its limit.
//
//     differential [SEED [TIMES]]
//
// A seed of its own makes cases of its own; without one the clock gives it. TIMES multiplies the number of
// cases.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "differential/check.h"

namespace tessara::differential {
namespace {

Checks AllChecks() {
    Checks checks;
    AddConversions(&checks);
    AddDrawings(&checks);
    AddOverlays(&checks);
    AddPeers(&checks);
    return checks;
}

int Main(int count, char** arguments) {
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    const std::uint64_t seed =
        count > 1 ? std::strtoull(arguments[1], nullptr, 10) : static_cast<std::uint64_t>(now);
    const double times = count > 2 ? std::strtod(arguments[2], nullptr) : 1.0;
    std::printf("Seed %llu.\n\n", static_cast<unsigned long long>(seed));
    std::printf(
        "| Subject | Beside | Cases | Largest difference | Limit | Unit |\n|---|---|---:|---:|---:|---|\n");
    int failures = 0;
    for (const Check& check : AllChecks()) {
        Random random(seed);
        const auto cases = static_cast<std::size_t>(std::ceil(static_cast<double>(check.cases) * times));
        const Outcome outcome = check.run(random, cases);
        std::printf("| %s | %s | %zu | %.2g | %.2g | %s |\n", check.subject.c_str(), check.reference.c_str(),
                    outcome.cases, outcome.worst, check.limit, check.unit);
        std::fflush(stdout);
        // Written so that a NaN fails, too.
        if (outcome.cases > 0 && outcome.worst <= check.limit) continue;
        ++failures;
        std::fprintf(stderr, "differential: %s: %g %s at %s\n", check.subject.c_str(), outcome.worst,
                     check.unit, outcome.cases > 0 ? outcome.place.c_str() : "no case");
    }
    return failures == 0 ? 0 : 1;
}

}  // namespace
}  // namespace tessara::differential

int main(int count, char** arguments) {
    return tessara::differential::Main(count, arguments);
}
