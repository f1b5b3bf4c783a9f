#include "conversion/closest.h"

#include <algorithm>
#include <cstddef>

#include "conversion/ascii.h"
#include "conversion/quote.h"

namespace tessara::toolkit {
namespace {

// All names are shorter; the time of a comparison is quadratic.
constexpr std::size_t LONGEST_NAME = 64;

// The edit distance with swaps of neighbouring letters (Damerau and Levenshtein).
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> twoBefore, before, current(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        current[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        twoBefore = std::move(before);
        before = std::move(current);
        current.assign(b.size() + 1, i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool isSame = LowerCase(a[i - 1]) == LowerCase(b[j - 1]);
            current[j] = std::min({before[j] + 1, current[j - 1] + 1, before[j - 1] + (isSame ? 0 : 1)});
            const bool isSwapped = i > 1 && j > 1 && LowerCase(a[i - 1]) == LowerCase(b[j - 2]) &&
                                   LowerCase(a[i - 2]) == LowerCase(b[j - 1]);
            if (isSwapped) current[j] = std::min(current[j], twoBefore[j - 2] + 1);
        }
    }
    return current[b.size()];
}

}  // namespace

bool IsAmong(std::string_view name, const std::vector<std::string>& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string ClosestName(std::string_view mistyped, const std::vector<std::string>& names) {
    std::string closest;
    if (mistyped.size() > LONGEST_NAME) return closest;
    std::size_t least = mistyped.size() / 3 + 1;
    for (const std::string& name : names) {
        if (name.empty()) continue;
        const std::size_t distance = Distance(mistyped, name);
        if (distance >= least) continue;
        least = distance;
        closest = name;
    }
    return closest;
}

std::string DidYouMean(std::string_view mistyped, const std::vector<std::string>& names) {
    const std::string closest = ClosestName(mistyped, names);
    return closest.empty() ? ";" : "; did you mean " + Quote(closest) + "?";
}

}  // namespace tessara::toolkit
