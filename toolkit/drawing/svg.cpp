#include "drawing/svg.h"

#include "conversion/numbers.h"

namespace tessara::toolkit {
namespace {

// XML allows neither control characters nor invalid UTF-8.
std::string Escape(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
        }
    }
    return escaped;
}

}  // namespace

std::string SvgNumber(double value, int decimals) {
    return FormatPlain(value, decimals);
}

SvgWriter::SvgWriter(double left, double top, double width, double height) {
    Open("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                 {"width", SvgNumber(width)},
                 {"height", SvgNumber(height)},
                 {"viewBox", SvgNumber(left) + " " + SvgNumber(top) + " " + SvgNumber(width) + " " +
                                 SvgNumber(height)}});
}

void SvgWriter::Begin(std::string_view element, const SvgAttributes& attributes) {
    out_.append(2 * open_.size(), ' ');
    out_.append("<").append(element);
    for (const auto& [name, value] : attributes)
        out_.append(" ").append(name).append("=\"").append(Escape(value)).append("\"");
}

void SvgWriter::Open(std::string_view element, const SvgAttributes& attributes) {
    Begin(element, attributes);
    out_ += ">\n";
    open_.emplace_back(element);
}

void SvgWriter::Close() {
    const std::string element = open_.back();
    open_.pop_back();
    out_.append(2 * open_.size(), ' ');
    out_.append("</").append(element).append(">\n");
}

void SvgWriter::Empty(std::string_view element, const SvgAttributes& attributes) {
    Begin(element, attributes);
    out_ += "/>\n";
}

void SvgWriter::Text(std::string_view element, const SvgAttributes& attributes, std::string_view text) {
    Begin(element, attributes);
    out_.append(">").append(Escape(text)).append("</").append(element).append(">\n");
}

std::string SvgWriter::Finish() {
    while (!open_.empty())
        Close();
    return std::move(out_);
}

}  // namespace tessara::toolkit
