// The contests of bench/peers, as comparisons at other positions in each round.
#include <string>
#include <utility>

#include "differential/check.h"

#ifdef TESSARA_HAS_PEERS
#include "bench/peers/contests.h"
#endif

namespace tessara::differential {

#ifdef TESSARA_HAS_PEERS
namespace {

using bench::Contest;
using bench::Contestant;

using Adder = void (*)(std::vector<Contest>*);

Outcome LargestOf(Random& random, std::size_t cases, Adder add, std::size_t which,
                  Contestant Contest::*peer) {
    Outcome outcome;
    for (std::size_t round = 0; round * bench::POSITIONS < cases; ++round) {
        bench::positionsSeed = random.Bits();
        std::vector<Contest> contests;
        add(&contests);
        const double difference = bench::LargestDifference(contests[which], contests[which].*peer);
        outcome.Note(difference, [&] { return "positions of seed " + std::to_string(bench::positionsSeed); });
        outcome.cases += bench::POSITIONS - 1;
    }
    return outcome;
}

void AddContests(Checks* checks, Adder add) {
    constexpr std::size_t CASES = 16 * bench::POSITIONS;
    std::vector<Contest> contests;
    add(&contests);
    for (std::size_t which = 0; which < contests.size(); ++which) {
        const Contest& contest = contests[which];
        // Near the axes of van der Grinten's projection PROJ loses digits, up to a metre.
        if (contest.name.starts_with("VDG")) continue;
        const std::pair<Contestant Contest::*, const char*> peers[] = {
            {&Contest::proj, "PROJ"}, {&Contest::geographicLib, "GeographicLib"}};
        for (const auto& [peer, name] : peers) {
            if (!(contest.*peer).Exists()) continue;
            checks->push_back({contest.name, name, "m", contest.tolerance, CASES,
                               [=, peer = peer](Random& random, std::size_t cases) {
                                   return LargestOf(random, cases, add, which, peer);
                               }});
        }
    }
}

}  // namespace

void AddPeers(Checks* checks) {
    for (const Adder add : {bench::AddGrids, bench::AddReferences, bench::AddShifts, bench::AddGeodesics})
        AddContests(checks, add);
}
#else
void AddPeers(Checks*) {}
#endif

}  // namespace tessara::differential
