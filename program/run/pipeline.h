// Passes files from reader to converters to writer, block by block, in constant memory.
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
    std::vector<std::string> names;      // at least one; "-" is standard input
    std::optional<std::string> rejects;  // the file of --rejects
    unsigned jobs = 1;
};

// Thrown after the last outcome of a conversion that --on-error stop ends.
struct Stopped {};

// Writes results to standard output, in the order of the input, and errors to standard error. The stages are
// constructed from the conversion and the console, and have the members
//   void Read(std::istream&, const std::string& file, take)  gives `take` one Block of a file after the other
//   Outcome Convert(const Block&) const                      for several blocks at once
//   void Write(const Outcome&)                               in the order of the blocks
//   void Finish()                                            after the last file
// All blocks of a file are written before the next file is read.
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
        // All results before the stop have been written.
    }
    stages.Finish();
    return console.Finish();
}

}  // namespace tessara::program
