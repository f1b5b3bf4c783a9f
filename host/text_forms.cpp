#include "text_forms.h"

#include <algorithm>

#include "tessara/kernel/koord.h"

namespace tessara::program {
namespace {

// Fields by one character each: a letter 'a', a pair of letters 'A', a whole number 'w', a number 'n'. What
// may be missing isn't listed.
struct TextForm {
    std::int32_t system;
    const char* northFields;
    const char* eastFields;
    const char* words;
};

constexpr const char* NORTHING_EASTING = "`northing` and `easting`";

constexpr TextForm FORMS[] = {
    {KOORD_LONGPIXEL, "w", "w", "`row` and `column`"},
    {KOORD_FLOATPIXEL, "n", "n", "`row` and `column`"},
    {KOORD_UTM, "an", "wn", "`hemisphere northing` and `zone easting`"},
    {KOORD_UTMREF, "aa", "wa", "`band row northing` and `zone column easting`"},
    {KOORD_GEODEZ, "n", "n", "`latitude` and `longitude`"},
    {KOORD_GEOGRAD, "awwn", "awwn", "`N|S degrees minutes seconds` and `E|W degrees minutes seconds`"},
    {KOORD_GEOREF, "aaw", "aaw", "`letter letter minutes`, for the latitude and for the longitude"},
    {KOORD_GK, "n", "n", NORTHING_EASTING},
    {KOORD_BMN, "n", "n", NORTHING_EASTING},
    {KOORD_OEM, "n", "n", NORTHING_EASTING},
    {KOORD_CH, "n", "n", NORTHING_EASTING},
    {KOORD_GEODEZMIN, "awn", "awn", "`N|S degrees minutes` and `E|W degrees minutes`"},
    {KOORD_GK6, "n", "n", NORTHING_EASTING},
    {KOORD_GKAT, "n", "n", NORTHING_EASTING},
    {KOORD_UPS, "an", "n", "`hemisphere northing` and `easting`"},
    {KOORD_PO_MILITARY, "n", "n", NORTHING_EASTING},
    {KOORD_TM, "n", "n", NORTHING_EASTING},
    {KOORD_VDG, "nn", "nn", "`origin-latitude y` and `origin-longitude x`"},
    {KOORD_BNG, "nAn", "nAn", "`whole-northing square northing` and `whole-easting square easting`"},
    {KOORD_ING, "nan", "nan", "`whole-northing square northing` and `whole-easting square easting`"},
    {KOORD_RD, "n", "n", NORTHING_EASTING},
    {KOORD_LUREF, "n", "n", NORTHING_EASTING},
};

const TextForm* FindForm(std::int32_t system) {
    const TextForm* const form = std::find_if(std::begin(FORMS), std::end(FORMS),
                                              [&](const TextForm& f) { return f.system == system; });
    return form != std::end(FORMS) ? form : nullptr;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Takes blanks from the start of a text.
void SkipBlanks(std::string_view* text) {
    text->remove_prefix(std::min(text->find_first_not_of(" \t\n\v\f\r"), text->size()));
}

// Takes digits; false if there are none.
bool SkipDigits(std::string_view* text) {
    const auto end = std::find_if_not(text->begin(), text->end(), IsDigit);
    const auto count = static_cast<std::size_t>(end - text->begin());
    text->remove_prefix(count);
    return count > 0;
}

bool SkipOne(std::string_view characters, std::string_view* text) {
    if (text->empty() || characters.find(text->front()) == std::string_view::npos) return false;
    text->remove_prefix(1);
    return true;
}

bool SkipNumber(bool isWhole, std::string_view* text) {
    SkipOne("+-", text);
    bool hasDigits = SkipDigits(text);
    if (isWhole) return hasDigits;
    if (SkipOne(".", text)) hasDigits = SkipDigits(text) || hasDigits;
    if (!hasDigits) return false;
    if (!SkipOne("eE", text)) return true;
    SkipOne("+-", text);
    return SkipDigits(text);
}

bool SkipLetters(std::size_t most, std::string_view* text) {
    if (text->empty()) return false;
    text->remove_prefix(std::min({most, text->size(), text->find_first_of(" \t\n\v\f\r")}));
    return true;
}

bool HasFields(std::string_view fields, std::string_view text) {
    return std::all_of(fields.begin(), fields.end(), [&](char field) {
        SkipBlanks(&text);
        if (field == 'a') return SkipLetters(1, &text);
        if (field == 'A') return SkipLetters(2, &text);
        return SkipNumber(field == 'w', &text);
    });
}

}  // namespace

bool AreReadable(std::int32_t system, std::string_view north, std::string_view east) {
    const TextForm* const form = FindForm(system);
    return form != nullptr && HasFields(form->northFields, north) && HasFields(form->eastFields, east);
}

std::string FormsOf(std::int32_t system) {
    const TextForm* const form = FindForm(system);
    return form != nullptr ? form->words : "";
}

std::string WhyNeverTyped(std::int32_t system) {
    switch (system) {
        case KOORD_ECEF:
            return "three values don't fit into a north and an east text";
        case KOORD_TM:
            return "the parameters of the projection aren't in the texts";
        case KOORD_GKAT:
            return "the texts don't tell which of the three meridians is meant";
        default:
            return {};
    }
}

std::string WhyPartlyTyped(std::int32_t system) {
    switch (system) {
        case KOORD_GEOREF:
            return "whole degrees can be typed";
        case KOORD_UPS:
            return "only the north can be typed";
        case KOORD_VDG:
            return "only the origin 0, 0 can be typed";
        default:
            return {};
    }
}

}  // namespace tessara::program
