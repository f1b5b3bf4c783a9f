#include "conversion/text_forms.h"

#include <algorithm>
#include <iterator>

#include "tessara/kernel/koord.h"

namespace tessara::toolkit {
namespace {

struct TextForm {
    std::int32_t system;
    const char* words;
};

constexpr const char* NORTHING_EASTING = "`northing` and `easting`";
constexpr const char* MERIDIAN_FIRST = "`northing` and `easting`, or `meridian easting northing`";
constexpr const char* DEGREES =
    "latitude and longitude in degrees, minutes and seconds, with N, S, E and W before or after them";

constexpr TextForm FORMS[] = {
    {KOORD_LONGPIXEL, "`row` and `column`"},
    {KOORD_FLOATPIXEL, "`row` and `column`"},
    {KOORD_UTM, "`hemisphere northing` and `zone easting`, or `zone hemisphere easting northing`"},
    {KOORD_UTMREF, "`band row northing` and `zone column easting`, or one text like 32UPU9160234791"},
    {KOORD_GEODEZ, DEGREES},
    {KOORD_GEOGRAD, DEGREES},
    {KOORD_GEOREF, "one text like NKMD34530825, or `letter letter minutes` for latitude and longitude"},
    {KOORD_GK, NORTHING_EASTING},
    {KOORD_BMN, MERIDIAN_FIRST},
    {KOORD_OEM, MERIDIAN_FIRST},
    {KOORD_CH, NORTHING_EASTING},
    {KOORD_ECEF, "`x y z` in one text"},
    {KOORD_GEODEZMIN, DEGREES},
    {KOORD_GK6, NORTHING_EASTING},
    {KOORD_GKAT, MERIDIAN_FIRST},
    {KOORD_UPS, "`hemisphere northing` and `easting`, or `hemisphere easting northing`"},
    {KOORD_PO_MILITARY, NORTHING_EASTING},
    {KOORD_TM, NORTHING_EASTING},
    {KOORD_VDG, "`origin-latitude y` and `origin-longitude x`, or `x y`"},
    {KOORD_BNG, "one text like TQ3000080000, or the full `northing` and `easting`"},
    {KOORD_ING, "one text like O1590434671, or the full `northing` and `easting`"},
    {KOORD_RD, NORTHING_EASTING},
    {KOORD_LUREF, NORTHING_EASTING},
};

}  // namespace

std::string FormsOf(std::int32_t system) {
    const TextForm* const form = std::find_if(std::begin(FORMS), std::end(FORMS),
                                              [&](const TextForm& f) { return f.system == system; });
    return form != std::end(FORMS) ? form->words : "";
}

}  // namespace tessara::toolkit
