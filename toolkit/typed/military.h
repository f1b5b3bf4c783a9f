// Writes military references as one text: 32UPU9160234791.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "conversion/conversion.h"
#include "tessara/ckoord.h"

namespace tessara::toolkit {

struct ReferenceDigits {
    int count = 5;  // of each axis: 5 for metres, 0 for the square of 100 km
    bool isTruncated =
        false;  // writes the square that contains the position, not the one with the nearest corner
};

// The digits for a side such as 10m or 1km; nothing for a text other than 1m, 10m, ... 100km.
[[nodiscard]] std::optional<int> DigitsOfSide(std::string_view side);

// Writes the references of positions on one datum.
class ReferenceWriter {
  public:
    // `target` is UTMREF, optionally with a wanted zone.
    ReferenceWriter(const Reference& target, const ReferenceDigits& digits);

    // Returns the status of the conversion to UTM; `text` is unchanged on failure.
    [[nodiscard]] KoordStatus Write(const CKoord& source, std::string* text) const;

  private:
    [[nodiscard]] std::optional<UtmrefPayload> NearestMetre(const CKoord& source) const;
    [[nodiscard]] std::optional<UtmrefPayload> At(const CKoord& utm, double easting, double northing) const;

    std::int32_t datum_;
    ReferenceDigits digits_;
    bool isNearestMetre_;
    Conversion toUtm_;
};

// The letters of a square and the leading digits of both axes: a reference without zone and band.
[[nodiscard]] std::string SquareText(std::string_view letters, std::int32_t easting, std::int32_t northing,
                                     int digits);

}  // namespace tessara::toolkit
