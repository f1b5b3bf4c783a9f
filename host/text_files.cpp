#include "text_files.h"

#include <deque>
#include <filesystem>
#include <fstream>
#include <future>
#include <iostream>

#include "console.h"
#include "rejects.h"

namespace tessara::program {
namespace {

constexpr std::size_t LINES_PER_BLOCK = 4096;

// Lines that are converted in one go.
struct Block {
    std::string file;
    std::size_t firstLine;
    std::vector<std::string> lines;
};

struct Output {
    std::string text;
    std::string errors;
    std::string rejects;
    std::size_t lines = 0;
    std::size_t bytes = 0;
};

bool IsSkipped(const std::string& line) {
    return line.find_first_not_of(" \t\r") == std::string::npos || line.starts_with('#');
}

// Without the carriage return of the other line ends.
std::string_view Contents(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

Output ConvertBlock(const TextConversion& conversion, const LineFormat& format, const Block& block) {
    LineConverter converter(conversion);
    Output output;
    Place place{block.file, block.firstLine};
    for (const std::string& line : block.lines) {
        const std::string wrong =
            IsSkipped(line) ? "" : converter.Convert(Contents(line), format, place, &output.text);
        if (!wrong.empty()) {
            output.errors += place.file + ":" + std::to_string(place.line) + ": " + wrong + '\n';
            output.rejects += line + '\n';
        }
        ++place.line;
        ++output.lines;
        output.bytes += line.size() + 1;
    }
    return output;
}

// Skipped lines before the first one that counts.
std::string ReadFirstLine(std::istream& stream, std::size_t* number) {
    std::string line;
    while (std::getline(stream, line)) {
        ++*number;
        if (!IsSkipped(line)) return line;
    }
    return {};
}

class FileConverter {
  public:
    explicit FileConverter(const TextFiles& options) : options_(options), console_(options.files) {}

    // What is wrong with the file for the rejects; empty if nothing is.
    std::string OpenRejects() { return rejects_.Open(options_.rejects, options_.files); }

    void ConvertFile(const std::string& file) {
        if (file == "-") return ConvertStream(file, std::cin);
        std::ifstream stream(file, std::ios::binary);
        if (!stream || std::filesystem::is_directory(file))
            return console_.Report(file + ": can't be read\n");
        ConvertStream(file, stream);
    }

    [[nodiscard]] ExitCode Code() {
        if (const std::string wrong = rejects_.Finish(); !wrong.empty()) console_.Report(wrong + '\n');
        return console_.Code();
    }

  private:
    void ConvertStream(const std::string& file, std::istream& stream) {
        Block block{file, 1, {}};
        std::size_t number = 0;
        const std::string first = ReadFirstLine(stream, &number);
        if (first.empty()) return;

        LineFormat format;
        format.separator = SeparatorOf(first);
        if (options_.columns) {
            if (!TakeHeader(file, first, &format)) return;
        } else {
            block.lines.push_back(first);
        }
        block.firstLine = number + (block.lines.empty() ? 1 : 0);
        ConvertBlocks(stream, format, std::move(block));
    }

    // As many blocks as there are jobs are on their way; they are written in their order.
    void ConvertBlocks(std::istream& stream, const LineFormat& format, Block block) {
        std::deque<std::future<Output>> running;
        const auto policy = options_.jobs > 1 ? std::launch::async : std::launch::deferred;
        while (Fill(stream, &block)) {
            Block next{block.file, block.firstLine + block.lines.size(), {}};
            running.push_back(std::async(policy, [this, &format, taken = std::move(block)] {
                return ConvertBlock(options_.conversion, format, taken);
            }));
            block = std::move(next);
            if (running.size() >= options_.jobs) WriteFirst(&running);
        }
        while (!running.empty())
            WriteFirst(&running);
    }

    // False if nothing is left.
    static bool Fill(std::istream& stream, Block* block) {
        for (std::string line; block->lines.size() < LINES_PER_BLOCK && std::getline(stream, line);)
            block->lines.push_back(std::move(line));
        return !block->lines.empty();
    }

    void WriteFirst(std::deque<std::future<Output>>* running) {
        const Output output = running->front().get();
        running->pop_front();
        console_.Write(output.text);
        rejects_.Write(output.rejects);
        if (!output.errors.empty()) console_.Report(output.errors);
        console_.Advance(output.lines, output.bytes);
    }

    bool TakeHeader(const std::string& file, const std::string& line, LineFormat* format) {
        const auto& [north, east] = *options_.columns;
        format->header = SplitColumns(Contents(line), format->separator);
        const std::optional<ColumnPair> pair = FindColumns(format->header, north, east);
        if (!pair) {
            console_.Report(file + ": has no columns '" + north + "' and '" + east + "'\n");
            return false;
        }
        format->pair = *pair;
        if (headerIsWritten_) return true;
        if (!options_.conversion.json) console_.Write(ConvertHeader(options_.conversion, *format) + '\n');
        // The rejected lines are a file of the same form.
        rejects_.Write(line + '\n');
        headerIsWritten_ = true;
        return true;
    }

    const TextFiles& options_;
    Console console_;
    Rejects rejects_;
    bool headerIsWritten_ = false;
};

}  // namespace

ExitCode ConvertTextFiles(const TextFiles& options) {
    FileConverter converter(options);
    if (const std::string wrong = converter.OpenRejects(); !wrong.empty()) {
        std::cerr << wrong << '\n';
        return EXIT_INCOMPLETE;
    }
    for (const std::string& file : options.files)
        converter.ConvertFile(file);
    if (options.files.empty()) converter.ConvertFile("-");
    return converter.Code();
}

}  // namespace tessara::program
