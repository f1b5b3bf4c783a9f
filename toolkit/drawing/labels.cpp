#include "drawing/labels.h"

#include <algorithm>
#include <cmath>

#include "lines/words.h"

namespace tessara::toolkit {
namespace {

// Fractions of the font size.
constexpr double ASCENT = 0.80;  // including letters with accents
constexpr double DESCENT = 0.24;
constexpr double MIDDLE = 0.36;  // of figures and capitals, above the baseline
constexpr double NARROW = 0.42;
constexpr double FIGURE = 0.65;
constexpr double LETTER = 0.70;
constexpr double CAPITAL = 0.79;
constexpr double WIDE = 1.0;

constexpr double GAP = 2.0;    // between two texts
constexpr double CELL = 64.0;  // about as large as a text

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

double AdvanceOf(char c) {
    if (std::string_view(" !'(),-./:;IJ[]fijlrt|").find(c) != std::string_view::npos) return NARROW;
    if (c >= '0' && c <= '9') return FIGURE;
    if (c >= 'a' && c <= 'z' && c != 'm' && c != 'w') return LETTER;
    if (c >= 'A' && c <= 'Z' && c != 'M' && c != 'W') return CAPITAL;
    return WIDE;
}

}  // namespace

bool Box::Overlaps(const Box& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
}

bool Box::Contains(const Box& other) const {
    return left <= other.left && other.right <= right && top <= other.top && other.bottom <= bottom;
}

Box Box::Grown(double by) const {
    return {left - by, top - by, right + by, bottom + by};
}

double TextWidth(std::string_view utf8, double size) {
    double width = 0.0;
    for (const char c : utf8) {
        if (!IsContinuation(c)) width += AdvanceOf(c);
    }
    return width * size;
}

std::vector<std::string> WrapText(const std::string& utf8, double size, double width) {
    std::vector<std::string> lines(1);
    for (const std::string& word : WordsOf(utf8)) {
        const std::string longer = lines.back().empty() ? word : lines.back() + " " + word;
        if (TextWidth(longer, size) <= width) {
            lines.back() = longer;
            continue;
        }
        if (!lines.back().empty()) lines.emplace_back();
        for (const char c : word) {
            if (!IsContinuation(c) && !lines.back().empty() && TextWidth(lines.back() + c, size) > width)
                lines.emplace_back();
            lines.back() += c;
        }
    }
    return lines;
}

Box PlacedText::Bounds() const {
    const double width = TextWidth(text, size);
    const double part = anchor == Anchor::START ? 0.0 : anchor == Anchor::MIDDLE ? 0.5 : 1.0;
    const double left = at.x - part * width;
    return {left, at.y - ASCENT * size, left + width, at.y + DESCENT * size};
}

PlacedText TextAbove(const PicturePoint& point, double clearance, std::string text, double size) {
    return {{point.x, point.y - clearance - DESCENT * size}, Anchor::MIDDLE, size, std::move(text)};
}

PlacedText TextBelow(const PicturePoint& point, double clearance, std::string text, double size) {
    return {{point.x, point.y + clearance + ASCENT * size}, Anchor::MIDDLE, size, std::move(text)};
}

PlacedText TextLeftOf(const PicturePoint& point, double clearance, std::string text, double size) {
    return {{point.x - clearance, point.y + MIDDLE * size}, Anchor::END, size, std::move(text)};
}

PlacedText TextRightOf(const PicturePoint& point, double clearance, std::string text, double size) {
    return {{point.x + clearance, point.y + MIDDLE * size}, Anchor::START, size, std::move(text)};
}

std::vector<PlacedText> TextsAround(const PicturePoint& point, double clearance, const std::string& text,
                                    double size) {
    const auto above = TextAbove(point, clearance, text, size);
    const auto below = TextBelow(point, clearance, text, size);
    const auto left = TextLeftOf(point, clearance, text, size);
    const auto right = TextRightOf(point, clearance, text, size);
    const auto corner = [](const PlacedText& row, const PlacedText& column) {
        PlacedText placed = column;
        placed.at.y = row.at.y;
        return placed;
    };
    return {right,
            corner(above, right),
            corner(below, right),
            left,
            corner(above, left),
            corner(below, left),
            above,
            below};
}

std::vector<LabelPlacer::Cell> LabelPlacer::CellsOf(const Box& box) {
    const auto cell = [](double value) { return std::llround(std::floor(value / CELL)); };
    std::vector<Cell> cells;
    for (std::int64_t x = cell(box.left); x <= cell(box.right); ++x) {
        for (std::int64_t y = cell(box.top); y <= cell(box.bottom); ++y)
            cells.emplace_back(x, y);
    }
    return cells;
}

void LabelPlacer::Block(const Box& box) {
    for (const Cell& cell : CellsOf(box))
        taken_[cell].push_back(box);
}

bool LabelPlacer::IsFree(const Box& box) const {
    const auto isFree = [&](const Cell& cell) {
        const auto found = taken_.find(cell);
        return found == taken_.end() ||
               std::none_of(found->second.begin(), found->second.end(),
                            [&box](const Box& taken) { return taken.Overlaps(box); });
    };
    const std::vector<Cell> cells = CellsOf(box);
    return std::all_of(cells.begin(), cells.end(), isFree);
}

std::optional<PlacedText> LabelPlacer::Place(const std::vector<PlacedText>& candidates,
                                             const std::optional<Box>& area) {
    for (const PlacedText& candidate : candidates) {
        const Box box = candidate.Bounds();
        if (area && !area->Contains(box)) continue;
        if (!IsFree(box.Grown(GAP))) continue;
        Block(box);
        return candidate;
    }
    return std::nullopt;
}

}  // namespace tessara::toolkit
