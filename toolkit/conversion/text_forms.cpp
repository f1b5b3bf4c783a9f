#include "conversion/text_forms.h"

#include <algorithm>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/systems.h"

namespace tessara::toolkit {
namespace {

// How the two texts of a system are described to who types them, and why some can't be typed, in part or at
// all.
struct TextForm {
    std::int32_t system;
    const char* words;
    const char* whyNever = "";
    const char* whyPartly = "";
};

constexpr const char* NORTHING_EASTING = "`northing` and `easting`";

constexpr TextForm FORMS[] = {
    {KOORD_LONGPIXEL, "`row` and `column`"},
    {KOORD_FLOATPIXEL, "`row` and `column`"},
    {KOORD_UTM, "`hemisphere northing` and `zone easting`"},
    {KOORD_UTMREF, "`band row northing` and `zone column easting`"},
    {KOORD_GEODEZ, "`latitude` and `longitude`"},
    {KOORD_GEOGRAD, "`N|S degrees minutes seconds` and `E|W degrees minutes seconds`"},
    {KOORD_GEOREF, "`letter letter minutes`, for the latitude and for the longitude", "",
     "whole degrees can be typed"},
    {KOORD_GK, NORTHING_EASTING},
    {KOORD_BMN, NORTHING_EASTING},
    {KOORD_OEM, NORTHING_EASTING},
    {KOORD_CH, NORTHING_EASTING},
    {KOORD_ECEF, "", "three values don't fit into a north and an east text"},
    {KOORD_GEODEZMIN, "`N|S degrees minutes` and `E|W degrees minutes`"},
    {KOORD_GK6, NORTHING_EASTING},
    {KOORD_GKAT, NORTHING_EASTING, "the texts don't tell which of the three meridians is meant"},
    {KOORD_UPS, "`hemisphere northing` and `easting`", "", "only the north can be typed"},
    {KOORD_PO_MILITARY, NORTHING_EASTING},
    {KOORD_TM, NORTHING_EASTING, "the parameters of the projection aren't in the texts"},
    {KOORD_VDG, "`origin-latitude y` and `origin-longitude x`", "", "only the origin 0, 0 can be typed"},
    {KOORD_BNG, "`whole-northing square northing` and `whole-easting square easting`"},
    {KOORD_ING, "`whole-northing square northing` and `whole-easting square easting`"},
    {KOORD_RD, NORTHING_EASTING},
    {KOORD_LUREF, NORTHING_EASTING},
};

constexpr TextForm NO_FORM{NO_SYSTEM, ""};

const TextForm& FormOf(std::int32_t system) {
    const TextForm* const form = std::find_if(std::begin(FORMS), std::end(FORMS),
                                              [&](const TextForm& f) { return f.system == system; });
    return form != std::end(FORMS) ? *form : NO_FORM;
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

// The metres of a military reference may be missing, and so isn't asked for.
bool SkipField(FieldKind kind, std::string_view* text) {
    SkipBlanks(text);
    switch (kind) {
        case FieldKind::Letter:
            return SkipLetters(1, text);
        case FieldKind::LetterPair:
            return SkipLetters(2, text);
        case FieldKind::Whole16:
        case FieldKind::Whole32:
        case FieldKind::Minutes:
            return SkipNumber(true, text);
        case FieldKind::Number:
            return SkipNumber(false, text);
        case FieldKind::Metres:
        case FieldKind::None:
            break;
    }
    return true;
}

bool HasFields(std::span<const RecordField> fields, std::string_view text) {
    return std::all_of(fields.begin(), fields.end(),
                       [&](RecordField field) { return SkipField(field.kind, &text); });
}

}  // namespace

bool AreReadable(std::int32_t system, std::string_view north, std::string_view east) {
    return *FormOf(system).words != '\0' && HasFields(System_NorthText(system), north) &&
           HasFields(System_EastText(system), east);
}

std::string FormsOf(std::int32_t system) {
    return FormOf(system).words;
}

std::string WhyNeverTyped(std::int32_t system) {
    return FormOf(system).whyNever;
}

std::string WhyPartlyTyped(std::int32_t system) {
    return FormOf(system).whyPartly;
}

}  // namespace tessara::toolkit
