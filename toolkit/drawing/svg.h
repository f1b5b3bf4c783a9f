// Writes Scalable Vector Graphics element by element.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessara::toolkit {

using SvgAttributes = std::vector<std::pair<std::string_view, std::string>>;

class SvgWriter {
  public:
    // Starts a picture of a rectangle of the plane.
    SvgWriter(double left, double top, double width, double height);

    void Open(std::string_view element, const SvgAttributes& attributes);
    void Close();
    void Empty(std::string_view element, const SvgAttributes& attributes);
    void Text(std::string_view element, const SvgAttributes& attributes, std::string_view text);

    // Closes all open elements and returns the file.
    [[nodiscard]] std::string Finish();

  private:
    void Begin(std::string_view element, const SvgAttributes& attributes);

    std::string out_;
    std::vector<std::string> open_;
};

// Formats a length.
inline constexpr int SVG_DECIMALS = 2;
[[nodiscard]] std::string SvgNumber(double value, int decimals = SVG_DECIMALS);

}  // namespace tessara::toolkit
