// Writes positions as texts that can be read back: a north and an east text, or one text with both.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tessara/tessara.h"
#include "typed/military.h"

namespace tessara::toolkit {

struct TextStyle {
    bool isDisplay = false;                 // display texts
    std::optional<double> northResolution;  // in units of the system
    std::optional<double> eastResolution;
    std::optional<ReferenceDigits> reference;  // military references as one text
};

// Writes texts of one reference. Not for concurrent use.
class TextWriter {
  public:
    TextWriter(const Reference& target, const TextStyle& style);

    // Whether positions have one text rather than two.
    [[nodiscard]] bool HasOneText() const;

    // The two texts, or one, of a record converted to the reference from `source`. Empty if a number of the
    // record is not finite.
    [[nodiscard]] std::vector<std::string> Write(const CKoord& record, const CKoord& source) const;

  private:
    [[nodiscard]] std::string LibraryText(bool isNorth) const;
    [[nodiscard]] std::vector<std::string> CartesianText() const;
    [[nodiscard]] int DisplayedDigits() const;

    Reference target_;
    TextStyle style_;
    std::optional<ReferenceWriter> references_;
    IRef<ICoordinateString> string_;
    IRef<ITessaraString> text_;
};

}  // namespace tessara::toolkit
