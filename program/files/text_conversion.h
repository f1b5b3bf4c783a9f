// From a line with the north and the east text of a position to the line with its texts in other references.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "conversion/references.h"
#include "conversion/typed_position.h"
#include "files/line_blocks.h"
#include "files/toolkit_names.h"
#include "lines/columns.h"

namespace tessara::program {

struct TextConversion {
    Reference from;
    std::vector<Reference> to;
    bool display = false;
    bool json = false;
    std::optional<double> northResolution;  // in units of the target
    std::optional<double> eastResolution;
};

// How the lines of a file are divided.
struct LineFormat {
    char separator = '\t';
    ColumnPair pair;
    std::vector<std::string> header;  // as it stands there; empty without one
    std::vector<std::string> names;   // of its columns, no two alike
};

// The names of the columns of the lines that are written.
[[nodiscard]] std::string ConvertHeader(const TextConversion& conversion, const LineFormat& format);

// What is written of a position in one target.
struct TargetTexts {
    std::string north;
    std::string east;
    CKoord koord;
};

// Does the conversion for one thread.
class TextConverter {
  public:
    explicit TextConverter(const TextConversion& conversion);

    // Gives the texts of a position in each target; otherwise says what is wrong.
    std::string ConvertPosition(const std::string& north, const std::string& east,
                                std::vector<TargetTexts>* results);

    // Appends the line that is to be written; otherwise says what is wrong.
    std::string Convert(std::string_view line, const LineFormat& format, const Place& place,
                        std::string* out);

  private:
    struct Target {
        Reference reference;
        IRef<ICoordinateReference> libraryReference;
        IRef<ICoordinateString> string;
    };

    [[nodiscard]] std::optional<TargetTexts> ConvertTo(const Target& target);
    [[nodiscard]] std::string TextOf(const Target& target, bool isNorth);
    [[nodiscard]] std::string ToJson(const std::vector<std::string>& columns, const LineFormat& format,
                                     const Place& place, const std::vector<TargetTexts>& results) const;

    const TextConversion& conversion_;
    TypedPosition position_;
    std::vector<Target> targets_;
    IRef<ICoord> coord_;
    IRef<ITessaraString> text_;
};

}  // namespace tessara::program
