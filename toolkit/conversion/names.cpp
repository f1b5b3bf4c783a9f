#include "conversion/names.h"

#include "conversion/closest.h"
#include "conversion/made.h"
#include "conversion/quote.h"
#include "tessara/host/text.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {
namespace {

// A common name of UTMREF.
constexpr const char* MILITARY_REFERENCES = "MGRS";

// The library only maps numbers to names, so that the function searches all numbers.
template <class NameOf>
std::optional<std::int32_t> NumberOf(const std::string& name, std::int32_t count, NameOf nameOf) {
    if (name.empty()) return std::nullopt;
    const IRef<ITessaraString> wanted = Made<ITessaraString>(NewObject<host::Text>());
    wanted->AssignText(name.c_str());
    for (std::int32_t number = 0; number < count; ++number) {
        if (wanted->CompareTextNoCase(nameOf(number).c_str()) == 0) return number;
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
    const IRef<ICoordinateSystem> system = Made(CreateClassCoordinateSystem());
    const IRef<ITessaraString> name = Made<ITessaraString>(NewObject<host::Text>());
    if (system->SetSystem(number)) system->GetName(name.Get());
    return name->GetText();
}

std::string DatumName(std::int32_t number) {
    const IRef<IGeoDate> datum = Made(CreateClassGeoDate());
    const IRef<ITessaraString> name = Made<ITessaraString>(NewObject<host::Text>());
    if (datum->SetDatum(number)) datum->GetName(name.Get());
    return name->GetText();
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
    const auto isAlias = [](std::int32_t /*number*/) { return std::string(MILITARY_REFERENCES); };
    return NumberOf(name, 1, isAlias) ? std::optional<std::int32_t>(KOORD_UTMREF) : std::nullopt;
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
