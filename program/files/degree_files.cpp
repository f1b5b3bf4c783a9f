#include "files/degree_files.h"

namespace tessara::program {
namespace {

// Results of so few lines stay in the cache.
constexpr BlockLimits LIMITS{512, true};

class DegreeStages {
  public:
    using Block = LineBlock;

    DegreeStages(const DegreeConversion& conversion, Console& console)
        : conversion_(conversion), console_(console) {}

    void Read(std::istream& stream, const std::string& file, const std::function<void(LineBlock)>& take) {
        LineReader lines(stream);
        ReadLines(&lines, {file, 1, 0, {}}, LIMITS, take);
    }

    [[nodiscard]] Outcome Convert(const LineBlock& block) const {
        const DegreeConverter converter(conversion_);
        return ConvertLines(block, [&](std::string_view line, const Place& place, std::string* out) {
            return converter.Convert(line, place, out);
        });
    }

    void Write(const Outcome& outcome) { console_.Take(outcome); }
    void Finish() {}

  private:
    const DegreeConversion& conversion_;
    Console& console_;
};

}  // namespace

ExitCode ConvertDegreeFiles(const InputFiles& files, const DegreeConversion& conversion) {
    return ConvertFiles<DegreeStages>(files, conversion);
}

}  // namespace tessara::program
