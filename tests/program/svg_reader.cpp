#include "program/svg_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <sstream>

namespace tessara::testing {
namespace {

std::string Unescape(std::string text) {
    for (const auto& [entity, letter] : {std::pair{"&lt;", "<"}, std::pair{"&gt;", ">"},
                                         std::pair{"&quot;", "\""}, std::pair{"&amp;", "&"}}) {
        for (std::size_t at = 0; (at = text.find(entity, at)) != std::string::npos; ++at)
            text.replace(at, std::string(entity).size(), letter);
    }
    return text;
}

double ToNumber(const std::string& text) {
    double value = NAN;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

// The inside of a tag: a name and attributes.
SvgElement ReadTag(const std::string& tag) {
    SvgElement element;
    element.name = tag.substr(0, tag.find_first_of(" /"));
    std::size_t at = element.name.size();
    while ((at = tag.find_first_not_of(" /", at)) != std::string::npos) {
        const std::size_t equals = tag.find("=\"", at);
        const std::size_t quote = tag.find('"', equals + 2);
        if (equals == std::string::npos || quote == std::string::npos) break;
        element.attributes[tag.substr(at, equals - at)] =
            Unescape(tag.substr(equals + 2, quote - equals - 2));
        at = quote + 1;
    }
    return element;
}

SvgLine ReadSubpath(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == 'L' || c == 'Z'; }, ' ');
    std::istringstream words(text);
    SvgLine line;
    for (std::string x, y; words >> x >> y;)
        line.push_back({ToNumber(x), ToNumber(y)});
    return line;
}

double DistanceToSegment(const SvgPoint& p, const SvgPoint& a, const SvgPoint& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    const double part =
        length2 == 0.0 ? 0.0 : std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length2, 0.0, 1.0);
    return std::hypot(a.x + part * dx - p.x, a.y + part * dy - p.y);
}

// Thousandths of the font size by code point.
const std::map<unsigned, double>& Advances() {
    static const std::map<unsigned, double> advances = [] {
        std::ifstream file(TESSARA_SOURCE_DIR "/tests/data/program/dejavu_sans.txt");
        std::map<unsigned, double> read;
        for (std::string line; std::getline(file, line);) {
            std::istringstream words(line);
            unsigned code = 0;
            double advance = 0.0;
            if (words >> code >> advance) read[code] = advance;
        }
        return read;
    }();
    return advances;
}

// Latin-1 is enough for the names in tests.
std::vector<unsigned> CodePoints(const std::string& utf8) {
    std::vector<unsigned> codes;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0U) == 0x80U) {
            codes.back() = (codes.back() << 6U) + (byte & 0x3FU);
        } else {
            codes.push_back(byte < 0x80U ? byte : byte & 0x1FU);
        }
    }
    return codes;
}

}  // namespace

std::string SvgElement::Attribute(const std::string& key) const {
    const auto found = attributes.find(key);
    return found == attributes.end() ? "" : found->second;
}

double SvgElement::Number(const std::string& key) const {
    return ToNumber(Attribute(key));
}

bool SvgElement::Is(const std::string& words) const {
    const std::string all = " " + groups + " " + Attribute("class") + " ";
    std::istringstream stream(words);
    for (std::string word; stream >> word;) {
        if (all.find(" " + word + " ") == std::string::npos) return false;
    }
    return true;
}

std::vector<SvgElement> ReadSvg(const std::string& svg) {
    std::vector<SvgElement> elements;
    std::vector<std::string> open;  // classes
    for (std::size_t at = 0; (at = svg.find('<', at)) != std::string::npos;) {
        const std::size_t end = svg.find('>', at);
        const std::string tag = svg.substr(at + 1, end - at - 1);
        at = end + 1;
        if (tag.starts_with('/')) {
            if (open.empty()) break;
            open.pop_back();
            continue;
        }
        SvgElement element = ReadTag(tag);
        for (const std::string& classes : open)
            element.groups += classes + " ";
        element.text = Unescape(svg.substr(at, svg.find('<', at) - at));
        if (!tag.ends_with('/')) open.push_back(element.Attribute("class"));
        elements.push_back(std::move(element));
    }
    EXPECT_TRUE(open.empty()) << open.size() << " elements have no end";
    return elements;
}

std::vector<SvgElement> ElementsOf(const std::string& svg, const std::string& name,
                                   const std::string& classes) {
    std::vector<SvgElement> elements = ReadSvg(svg);
    std::erase_if(elements, [&](const SvgElement& e) { return e.name != name || !e.Is(classes); });
    return elements;
}

std::set<std::string> TextsOf(const std::string& svg, const std::string& classes) {
    std::set<std::string> texts;
    for (const SvgElement& text : ElementsOf(svg, "text", classes))
        texts.insert(text.text);
    return texts;
}

std::vector<SvgLine> LinesOf(const std::string& svg, const std::string& classes) {
    std::vector<SvgLine> lines;
    for (const SvgElement& path : ElementsOf(svg, "path", classes)) {
        std::istringstream subpaths(path.Attribute("d"));
        for (std::string subpath; std::getline(subpaths, subpath, 'M');) {
            if (!subpath.empty()) lines.push_back(ReadSubpath(subpath));
        }
    }
    return lines;
}

double DistanceTo(const std::vector<SvgLine>& lines, const SvgPoint& point) {
    double distance = INFINITY;
    for (const SvgLine& line : lines) {
        for (std::size_t i = 1; i < line.size(); ++i)
            distance = std::min(distance, DistanceToSegment(point, line[i - 1], line[i]));
    }
    return distance;
}

SvgBox BoxOf(const SvgElement& text) {
    const double size = text.Number("font-size");
    double width = 0.0;
    for (const unsigned code : CodePoints(text.text)) {
        const auto advance = Advances().find(code);
        EXPECT_NE(advance, Advances().end()) << "no width of " << code << " in " << text.text;
        if (advance != Advances().end()) width += advance->second * size / 1000.0;
    }
    const std::string anchor = text.Attribute("text-anchor");
    const double part = anchor == "end" ? 1.0 : anchor == "middle" ? 0.5 : 0.0;
    const double left = text.Number("x") - part * width;
    return {left, text.Number("y") - 0.73 * size, left + width, text.Number("y") + 0.24 * size};
}

}  // namespace tessara::testing
