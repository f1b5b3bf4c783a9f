// Reads the SVG of the program: its elements, and the places of lines and texts.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace tessara::testing {

struct SvgPoint {
    double x, y;
};

using SvgLine = std::vector<SvgPoint>;

struct SvgElement {
    std::string name;
    std::map<std::string, std::string> attributes;
    std::string text;
    std::string groups;  // the classes of what it stands in

    [[nodiscard]] std::string Attribute(const std::string& key) const;
    [[nodiscard]] double Number(const std::string& key) const;
    // Whether all words are among the classes of the element and of the groups around it.
    [[nodiscard]] bool Is(const std::string& words) const;
};

// Every element, in their order. A failure of the test if a tag is left open.
[[nodiscard]] std::vector<SvgElement> ReadSvg(const std::string& svg);

[[nodiscard]] std::vector<SvgElement> ElementsOf(const std::string& svg, const std::string& name,
                                                 const std::string& classes);

// What the texts with these classes say.
[[nodiscard]] std::set<std::string> TextsOf(const std::string& svg, const std::string& classes);

// The subpaths of all paths with these classes.
[[nodiscard]] std::vector<SvgLine> LinesOf(const std::string& svg, const std::string& classes);

// The distance from a point to the nearest of some lines.
[[nodiscard]] double DistanceTo(const std::vector<SvgLine>& lines, const SvgPoint& point);

struct SvgBox {
    double left, top, right, bottom;
};

// The room that a text takes up in DejaVu Sans, from the capitals' height down to the lowest letters.
[[nodiscard]] SvgBox BoxOf(const SvgElement& text);

}  // namespace tessara::testing
