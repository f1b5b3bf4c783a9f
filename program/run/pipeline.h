// The way of files from reader to converters to writer, block by block, so that memory is constant.
#pragma once

#include <istream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "run/console.h"
#include "run/ordered_jobs.h"

namespace tessara::program {

struct InputFiles {
    std::vector<std::string> names;      // one at least; "-" is standard input
    std::optional<std::string> rejects;  // a file for the input that can't be used
    unsigned jobs = 1;
};

// Thrown behind the last piece that is written, where the rest of the input is left.
struct Stopped {};

// Writes to standard output what can be converted, in the order of the input, and to standard error what is
// wrong with the rest. The stages are made from what they convert to and the console, and are
//   void Read(std::istream&, const std::string& file, take)  gives `take` one Block of a file after the other
//   Outcome Convert(const Block&) const                      for several blocks at once
//   void Write(const Outcome&)                               in the order of the blocks
//   void Finish()                                            behind the last file
// While a file begins to be read, all blocks of those before it are written.
template <class Stages, class Conversion>
[[nodiscard]] ExitCode ConvertFiles(const InputFiles& files, const Conversion& conversion) {
    using Block = typename Stages::Block;

    Console console(files.names);
    if (!console.OpenRejects(files.rejects)) return EXIT_INCOMPLETE;
    Stages stages(conversion, console);
    const auto write = [&stages](const Outcome& outcome) {
        stages.Write(outcome);
        if (outcome.IsLast()) throw Stopped{};
    };
    try {
        console.ReadFiles([&](std::istream& stream, const std::string& file) {
            OrderedJobs<Outcome> jobs(files.jobs, write);
            stages.Read(stream, file, [&](Block block) {
                jobs.Start(
                    [&stages, taken = std::move(block)] { return std::as_const(stages).Convert(taken); });
            });
            jobs.Finish();
        });
    } catch (const Stopped&) {
        // What was to be written is written.
    }
    stages.Finish();
    return console.Finish();
}

}  // namespace tessara::program
