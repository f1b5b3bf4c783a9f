// Positions as texts that can be read back: a north and an east text, or one that has both.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tessara/tessara.h"
#include "typed/military.h"

namespace tessara::toolkit {

struct TextStyle {
    bool isDisplay = false;                 // the forms for a screen
    std::optional<double> northResolution;  // in units of the system
    std::optional<double> eastResolution;
    std::optional<ReferenceDigits> reference;  // military references as one string
};

// Of one reference. For one thread at a time.
class TextWriter {
  public:
    TextWriter(const Reference& target, const TextStyle& style);

    // Whether positions have one text and not two.
    [[nodiscard]] bool HasOneText() const;

    // Two texts, or one, of a record that was converted to the reference from `source`. None where a number
    // of it isn't finite.
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
