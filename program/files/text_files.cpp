#include "files/text_files.h"

namespace tessara::program {
namespace {

constexpr BlockLimits LIMITS{4096};

bool IsSkipped(std::string_view line) {
    return line.find_first_not_of(" \t\r") == std::string_view::npos || line.starts_with('#');
}

// The first line that counts; false if there is none.
bool SkipToFirst(LineReader* lines, std::string* line) {
    while (lines->Next(line)) {
        if (!IsSkipped(*line)) return true;
    }
    return false;
}

class TextStages {
  public:
    using Block = LineBlock;

    TextStages(const TextLines& options, Console& console) : options_(options), console_(console) {}

    void Read(std::istream& stream, const std::string& file, const std::function<void(LineBlock)>& take) {
        LineReader lines(stream);
        std::string first;
        if (!SkipToFirst(&lines, &first)) return;

        format_ = {};
        format_.separator = SeparatorOf(first);
        LineBlock block{file, lines.Number(), 0, {}};
        if (!options_.columns) {
            block.Add(first);
        } else if (TakeHeader(file, first)) {
            ++block.firstLine;
        } else {
            return;
        }
        ReadLines(&lines, std::move(block), LIMITS, take);
    }

    [[nodiscard]] Outcome Convert(const LineBlock& block) const {
        TextConverter converter(options_.conversion);
        return ConvertLines(block, [&](std::string_view line, const Place& place, std::string* out) {
            if (IsSkipped(line)) return std::string();
            return converter.Convert(WithoutCarriageReturn(line), format_, place, out);
        });
    }

    void Write(const Outcome& outcome) { console_.Take(outcome); }
    void Finish() {}

  private:
    bool TakeHeader(const std::string& file, const std::string& line) {
        const auto& [north, east] = *options_.columns;
        format_.header = SplitColumns(WithoutCarriageReturn(line), format_.separator);
        format_.names = NamesOfColumns(format_.header);
        const std::optional<ColumnPair> pair = FindColumns(format_.header, north, east);
        if (!pair) {
            console_.Report(file + ": has no columns '" + north + "' and '" + east + "'\n");
            return false;
        }
        format_.pair = *pair;
        if (headerIsWritten_) return true;
        if (!options_.conversion.json) console_.Write(ConvertHeader(options_.conversion, format_) + '\n');
        // The rejected lines are a file of the same form.
        console_.Reject(line + '\n');
        headerIsWritten_ = true;
        return true;
    }

    const TextLines& options_;
    Console& console_;
    LineFormat format_;  // of the file that is read
    bool headerIsWritten_ = false;
};

}  // namespace

ExitCode ConvertTextFiles(const InputFiles& files, const TextLines& lines) {
    return ConvertFiles<TextStages>(files, lines);
}

}  // namespace tessara::program
