#include "conversion/azimuths.h"

#include "conversion/numbers.h"

namespace tessara::toolkit {

std::string FormatAzimuth(double degrees) {
    const std::string text = FormatNumber(degrees, DEGREE_DECIMALS);
    return text == FormatNumber(360.0, DEGREE_DECIMALS) ? FormatNumber(0.0, DEGREE_DECIMALS) : text;
}

}  // namespace tessara::toolkit
