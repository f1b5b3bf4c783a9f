#include "conversion/names.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "conversion/ascii.h"
#include "conversion/closest.h"
#include "conversion/quote.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/names.h"

namespace tessara::toolkit {
namespace {

// A common name of UTMREF.
constexpr const char* MILITARY_REFERENCES = "MGRS";

bool IsSameName(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return LowerCase(a) == LowerCase(b); });
}

// The library only maps numbers to names, so that the function searches all numbers.
std::optional<std::int32_t> NumberOf(std::string_view name, std::int32_t count,
                                     std::string (*nameOf)(std::int32_t)) {
    if (name.empty()) return std::nullopt;
    for (std::int32_t number = 0; number < count; ++number) {
        if (IsSameName(name, nameOf(number))) return number;
    }
    return std::nullopt;
}

std::vector<std::string> AllNames(std::int32_t count, std::string (*nameOf)(std::int32_t)) {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(count));
    for (std::int32_t number = 0; number < count; ++number)
        names.push_back(nameOf(number));
    return names;
}

}  // namespace

std::string SystemName(std::int32_t number) {
    const char* const name = CoordinateType_Name(number);
    return name != nullptr ? name : "";
}

std::string DatumName(std::int32_t number) {
    const char* const name = Datum_Name(number);
    return name != nullptr ? name : "";
}

const char* UnitName(Unit unit) {
    switch (unit) {
        case Unit::Pixel:
            return "pixel";
        case Unit::Degree:
            return "degree";
        case Unit::Metre:
            break;
    }
    return "metre";
}

std::optional<std::int32_t> SystemByName(const std::string& name) {
    const std::optional<std::int32_t> number = NumberOf(name, KOORD_TYPE_COUNT, SystemName);
    if (number) return number;
    return IsSameName(name, MILITARY_REFERENCES) ? std::optional<std::int32_t>(KOORD_UTMREF) : std::nullopt;
}

std::optional<std::int32_t> DatumByName(const std::string& name) {
    return NumberOf(name, DATUM_COUNT, DatumName);
}

std::string WrongSystem(const std::string& name) {
    if (SystemByName(name)) return {};
    return "unknown system " + Quote(name) + DidYouMean(name, AllNames(KOORD_TYPE_COUNT, SystemName)) +
           " `tessara systems` lists all names";
}

std::string WrongDatum(const std::string& name) {
    if (DatumByName(name)) return {};
    return "unknown datum " + Quote(name) + DidYouMean(name, AllNames(DATUM_COUNT, DatumName)) +
           " `tessara datums` lists all names";
}

}  // namespace tessara::toolkit
