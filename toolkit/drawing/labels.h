// Places texts in a picture without overlaps.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "map/map_sheet.h"

namespace tessara::toolkit {

struct Box {
    double left, top, right, bottom;

    [[nodiscard]] bool Overlaps(const Box& other) const;
    [[nodiscard]] bool Contains(const Box& other) const;
    [[nodiscard]] Box Grown(double by) const;
};

enum class Anchor { START, MIDDLE, END };

// A text, positioned by its baseline.
struct PlacedText {
    PicturePoint at;
    Anchor anchor;
    double size;  // of the font
    std::string text;

    [[nodiscard]] Box Bounds() const;
};

// An upper bound of the width in common sans-serif fonts.
[[nodiscard]] double TextWidth(std::string_view utf8, double size);

// Breaks a text into lines between words, and within words that are longer than a line.
[[nodiscard]] std::vector<std::string> WrapText(const std::string& utf8, double size, double width);

// A text beside a point, at least `clearance` away from it.
[[nodiscard]] PlacedText TextAbove(const PicturePoint& point, double clearance, std::string text,
                                   double size);
[[nodiscard]] PlacedText TextBelow(const PicturePoint& point, double clearance, std::string text,
                                   double size);
[[nodiscard]] PlacedText TextLeftOf(const PicturePoint& point, double clearance, std::string text,
                                    double size);
[[nodiscard]] PlacedText TextRightOf(const PicturePoint& point, double clearance, std::string text,
                                     double size);
// The eight directions, best first.
[[nodiscard]] std::vector<PlacedText> TextsAround(const PicturePoint& point, double clearance,
                                                  const std::string& text, double size);

// Boxes are stored by the cells that they touch, so that the time for a text does not grow with the number of
// texts.
class LabelPlacer {
  public:
    // Blocks a box.
    void Block(const Box& box);
    // Places the first free candidate within `area`, if there is one.
    std::optional<PlacedText> Place(const std::vector<PlacedText>& candidates,
                                    const std::optional<Box>& area = std::nullopt);
    [[nodiscard]] bool IsFree(const Box& box) const;

  private:
    using Cell = std::pair<std::int64_t, std::int64_t>;

    static std::vector<Cell> CellsOf(const Box& box);

    std::map<Cell, std::vector<Box>> taken_;
};

}  // namespace tessara::toolkit
