#include "files/text_files.h"

#include "files/console.h"
#include "files/line_reader.h"
#include "files/ordered_jobs.h"

namespace tessara::program {
namespace {

constexpr std::size_t LINES_PER_BLOCK = 4096;
constexpr std::size_t BYTES_PER_BLOCK = std::size_t{1} << 20;  // of long lines there are fewer

// Lines that are converted in one go.
struct Block {
    std::string file;
    std::size_t firstLine = 0;
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

Output ConvertBlock(const TextConversion& conversion, const LineFormat& format, const Block& block) {
    LineConverter converter(conversion);
    Output output;
    Place place{block.file, block.firstLine};
    for (const std::string& line : block.lines) {
        const std::string wrong =
            IsSkipped(line) ? ""
                            : converter.Convert(WithoutCarriageReturn(line), format, place, &output.text);
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

// The first line that counts; false if there is none.
bool SkipToFirst(LineReader* lines, std::string* line) {
    while (lines->Next(line)) {
        if (!IsSkipped(*line)) return true;
    }
    return false;
}

// Adds lines as far as there is room for them. False if the block is empty then.
bool Fill(LineReader* lines, Block* block) {
    std::size_t bytes = 0;
    std::string line;
    while (block->lines.size() < LINES_PER_BLOCK && bytes < BYTES_PER_BLOCK && lines->Next(&line)) {
        bytes += line.size();
        block->lines.push_back(std::move(line));
    }
    return !block->lines.empty();
}

class FileConverter {
  public:
    FileConverter(const TextFiles& options, Console& console) : options_(options), console_(console) {}

    void ConvertStream(std::istream& stream, const std::string& file) {
        LineReader lines(stream);
        std::string first;
        if (!SkipToFirst(&lines, &first)) return;

        LineFormat format;
        format.separator = SeparatorOf(first);
        Block block{file, lines.Number(), {}};
        if (!options_.columns) {
            block.lines.push_back(std::move(first));
        } else if (TakeHeader(file, first, &format)) {
            ++block.firstLine;
        } else {
            return;
        }
        ConvertBlocks(&lines, format, std::move(block));
    }

  private:
    void ConvertBlocks(LineReader* lines, const LineFormat& format, Block block) {
        OrderedJobs<Output> jobs(options_.jobs, [this](const Output& output) { Write(output); });
        while (Fill(lines, &block)) {
            Block next{block.file, block.firstLine + block.lines.size(), {}};
            jobs.Start([this, &format, taken = std::move(block)] {
                return ConvertBlock(options_.conversion, format, taken);
            });
            block = std::move(next);
        }
        jobs.Finish();
    }

    void Write(const Output& output) {
        console_.Write(output.text);
        console_.Reject(output.rejects);
        if (!output.errors.empty()) console_.Report(output.errors);
        console_.Advance(output.lines, output.bytes);
    }

    bool TakeHeader(const std::string& file, const std::string& line, LineFormat* format) {
        const auto& [north, east] = *options_.columns;
        format->header = SplitColumns(WithoutCarriageReturn(line), format->separator);
        format->names = NamesOfColumns(format->header);
        const std::optional<ColumnPair> pair = FindColumns(format->header, north, east);
        if (!pair) {
            console_.Report(file + ": has no columns '" + north + "' and '" + east + "'\n");
            return false;
        }
        format->pair = *pair;
        if (headerIsWritten_) return true;
        if (!options_.conversion.json) console_.Write(ConvertHeader(options_.conversion, *format) + '\n');
        // The rejected lines are a file of the same form.
        console_.Reject(line + '\n');
        headerIsWritten_ = true;
        return true;
    }

    const TextFiles& options_;
    Console& console_;
    bool headerIsWritten_ = false;
};

}  // namespace

ExitCode ConvertTextFiles(const TextFiles& options) {
    Console console(options.files);
    if (!console.OpenRejects(options.rejects)) return EXIT_INCOMPLETE;
    FileConverter converter(options, console);
    console.ReadFiles(
        [&](std::istream& stream, const std::string& file) { converter.ConvertStream(stream, file); });
    return console.Finish();
}

}  // namespace tessara::program
