// Runs a target without a fuzzer.
//
//     replay_TARGET FILE_OR_DIRECTORY...
//
// runs a stored corpus. An input that exceeds the time limit, which TESSARA_REPLAY_MS sets, is a failure. An
// input that crashes the target ends the program; its name is the last one printed.
//
//     replay_TARGET --random COUNT SEED FILE_OR_DIRECTORY...
//
// runs so many inputs, each of them one of the corpus with random changes. Nothing observes the target, so
// that this reaches more inputs in an hour than a fuzzer. An input that crashes the target is written to the
// file random-input.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/byte_reader.h"
#include "support/sanitized.h"
#include "support/setting.h"

namespace {

namespace fs = std::filesystem;

#ifdef __OPTIMIZE__
constexpr bool IS_OPTIMIZED = true;
#else
constexpr bool IS_OPTIMIZED = false;
#endif

// Inputs are stored if they take a fifth of it, as machines differ. Builds with sanitizers, and those without
// optimisation, are up to 10 times slower.
constexpr bool IS_QUICK = IS_OPTIMIZED && !tessara::testing::IS_SANITIZED;
const auto LIMIT_MS =
    static_cast<double>(tessara::testing::Setting("TESSARA_REPLAY_MS", IS_QUICK ? 500 : 5000));

using Input = std::vector<char>;

std::vector<fs::path> FilesOf(int first, int count, char** arguments) {
    std::vector<fs::path> files;
    for (int i = first; i < count; ++i) {
        if (!fs::is_directory(arguments[i])) {
            files.emplace_back(arguments[i]);
            continue;
        }
        for (const auto& entry : fs::directory_iterator(arguments[i]))
            files.push_back(entry.path());
    }
    return files;
}

Input ReadInput(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return Input(std::istreambuf_iterator<char>(stream), {});
}

void Run(const Input& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

// Processor time, which is independent of other processes.
double RunOnce(const Input& input) {
    const std::clock_t start = std::clock();
    Run(input);
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// The best of several runs: under load even processor time has spikes, but a slow input is slow in every run.
double MillisecondsFor(const Input& input) {
    double best = RunOnce(input);
    for (int again = 0; again < 4 && best > LIMIT_MS; ++again)
        best = std::min(best, RunOnce(input));
    return best;
}

int Replay(const std::vector<fs::path>& files) {
    int tooSlow = 0;
    for (const fs::path& file : files) {
        std::fprintf(stderr, "%s\r", file.filename().c_str());
        const double milliseconds = MillisecondsFor(ReadInput(file));
        if (milliseconds <= LIMIT_MS) continue;
        ++tooSlow;
        std::fprintf(stderr, "%s: %.0f ms, more than %.0f\n", file.c_str(), milliseconds, LIMIT_MS);
    }
    std::printf("%zu inputs, %d of them too slow\n", files.size(), tooSlow);
    return files.empty() || tooSlow > 0 ? 1 : 0;
}

Input randomInput;

extern "C" void SaveInput(int signal) {
    const int file = open("random-input", O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const ssize_t written = write(file, randomInput.data(), randomInput.size());
    std::signal(signal, SIG_DFL);
    // Without the file, the seed repeats the input.
    if (written >= 0) std::raise(signal);
    std::_Exit(1);
}

// Writes random bytes over an input, at one to four places, and sometimes cuts it off or lengthens it.
void Change(std::mt19937_64& random, Input* input) {
    std::uint64_t bits = random();
    const auto below = [&bits](std::size_t count) {
        const std::size_t drawn = (bits & 0xFFFF) % count;
        bits >>= 16;
        return drawn;
    };
    if (below(4) == 0) input->resize(below(2 * input->size() + 16), static_cast<char>(bits));
    if (input->empty()) return;
    for (std::size_t places = 1 + below(4); places > 0; --places) {
        bits = random();
        std::size_t at = below(input->size());
        for (std::size_t length = 1 + below(8) % 4; length > 0 && at < input->size();
             --length, ++at, bits >>= 8)
            (*input)[at] = static_cast<char>(bits);
    }
}

int RunAtRandom(std::uint64_t count, std::uint64_t seed, const std::vector<fs::path>& files) {
    std::vector<Input> corpus;
    corpus.reserve(files.size());
    for (const fs::path& file : files)
        corpus.push_back(ReadInput(file));
    if (corpus.empty()) return 1;
    for (const int signal : {SIGILL, SIGTRAP, SIGSEGV, SIGBUS, SIGFPE, SIGABRT})
        std::signal(signal, SaveInput);
    std::mt19937_64 random(seed);
    for (std::uint64_t i = 0; i < count; ++i) {
        randomInput = corpus[random() % corpus.size()];
        Change(random, &randomInput);
        Run(randomInput);
    }
    std::printf("%llu inputs with seed %llu\n", static_cast<unsigned long long>(count),
                static_cast<unsigned long long>(seed));
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    const bool isRandom = count > 4 && std::string_view(arguments[1]) == "--random";
    if (!isRandom) return Replay(FilesOf(1, count, arguments));
    const auto number = [arguments](int i) { return std::strtoull(arguments[i], nullptr, 10); };
    return RunAtRandom(number(2), number(3), FilesOf(4, count, arguments));
}
