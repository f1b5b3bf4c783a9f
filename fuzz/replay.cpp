// Runs a target over a stored corpus, without a fuzzer: replay_TARGET FILE_OR_DIRECTORY... An input that
// exceeds the time limit is a failure. An input that crashes the target ends the program; its name is the
// last one printed.
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/byte_reader.h"
#include "support/sanitized.h"

namespace {

namespace fs = std::filesystem;

// The build with sanitizers is not optimised and up to 10 times slower.
constexpr double LIMIT_MS = tessara::testing::IS_SANITIZED ? 1000.0 : 100.0;

std::vector<fs::path> FilesOf(int count, char** arguments) {
    std::vector<fs::path> files;
    for (int i = 1; i < count; ++i) {
        if (!fs::is_directory(arguments[i])) {
            files.emplace_back(arguments[i]);
            continue;
        }
        for (const auto& entry : fs::directory_iterator(arguments[i]))
            files.push_back(entry.path());
    }
    return files;
}

// Processor time, which is independent of other processes.
double RunOnce(const std::vector<char>& input) {
    const std::clock_t start = std::clock();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// The best of several runs: under load even processor time has spikes, but a slow input is slow in every run.
double MillisecondsFor(const std::vector<char>& input) {
    double best = RunOnce(input);
    for (int again = 0; again < 4 && best > LIMIT_MS; ++again)
        best = std::min(best, RunOnce(input));
    return best;
}

}  // namespace

int main(int count, char** arguments) {
    const std::vector<fs::path> files = FilesOf(count, arguments);
    int tooSlow = 0;
    for (const fs::path& file : files) {
        std::fprintf(stderr, "%s\r", file.filename().c_str());
        std::ifstream stream(file, std::ios::binary);
        const std::vector<char> input(std::istreambuf_iterator<char>(stream), {});
        const double milliseconds = MillisecondsFor(input);
        if (milliseconds <= LIMIT_MS) continue;
        ++tooSlow;
        std::fprintf(stderr, "%s: %.0f ms, more than %.0f\n", file.c_str(), milliseconds, LIMIT_MS);
    }
    std::printf("%zu inputs, %d of them too slow\n", files.size(), tooSlow);
    return files.empty() || tooSlow > 0 ? 1 : 0;
}
