// Where texts stand in a picture so that none lies over another.
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

// A text by the place of its baseline.
struct PlacedText {
    PicturePoint at;
    Anchor anchor;
    double size;  // of the font
    std::string text;

    [[nodiscard]] Box Bounds() const;
};

// At most as wide as this in common sans-serif fonts.
[[nodiscard]] double TextWidth(std::string_view utf8, double size);

// The lines of a text that is broken between words, and within words that are longer than a line.
[[nodiscard]] std::vector<std::string> WrapText(const std::string& utf8, double size, double width);

// A text beside a point: `clearance` is the room around the point that it leaves free.
[[nodiscard]] PlacedText TextAbove(const PicturePoint& point, double clearance, std::string text,
                                   double size);
[[nodiscard]] PlacedText TextBelow(const PicturePoint& point, double clearance, std::string text,
                                   double size);
[[nodiscard]] PlacedText TextLeftOf(const PicturePoint& point, double clearance, std::string text,
                                    double size);
[[nodiscard]] PlacedText TextRightOf(const PicturePoint& point, double clearance, std::string text,
                                     double size);
// The four, and four between them, best first.
[[nodiscard]] std::vector<PlacedText> TextsAround(const PicturePoint& point, double clearance,
                                                  const std::string& text, double size);

// Takes no longer for many texts than for few: boxes are kept by the cells of the plane that they touch.
class LabelPlacer {
  public:
    // No text may stand here.
    void Block(const Box& box);
    // Takes the first candidate that is free and lies within `area`, if there is one.
    std::optional<PlacedText> Place(const std::vector<PlacedText>& candidates,
                                    const std::optional<Box>& area = std::nullopt);
    [[nodiscard]] bool IsFree(const Box& box) const;

  private:
    using Cell = std::pair<std::int64_t, std::int64_t>;

    static std::vector<Cell> CellsOf(const Box& box);

    std::map<Cell, std::vector<Box>> taken_;
};

}  // namespace tessara::toolkit
