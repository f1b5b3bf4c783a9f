#include "conversion/names.h"

#include "conversion/quote.h"
#include "tessara/host/text.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {
namespace {

// The library gives names to numbers, and no number to a name: a search goes through them all.
template <class NameOf>
std::optional<std::int32_t> NumberOf(const std::string& name, std::int32_t count, NameOf nameOf) {
    if (name.empty()) return std::nullopt;
    const IRef<ITessaraString> wanted(NewObject<host::Text>());
    wanted->AssignText(name.c_str());
    for (std::int32_t number = 0; number < count; ++number) {
        if (wanted->CompareTextNoCase(nameOf(number).c_str()) == 0) return number;
    }
    return std::nullopt;
}

}  // namespace

std::string SystemName(std::int32_t number) {
    const IRef<ICoordinateSystem> system(CreateClassCoordinateSystem());
    const IRef<ITessaraString> name(NewObject<host::Text>());
    if (system->SetSystem(number)) system->GetName(name.Get());
    return name->GetText();
}

std::string DatumName(std::int32_t number) {
    const IRef<IGeoDate> datum(CreateClassGeoDate());
    const IRef<ITessaraString> name(NewObject<host::Text>());
    if (datum->SetDatum(number)) datum->GetName(name.Get());
    return name->GetText();
}

std::optional<std::int32_t> SystemByName(const std::string& name) {
    return NumberOf(name, KOORD_TYPE_COUNT, SystemName);
}

std::optional<std::int32_t> DatumByName(const std::string& name) {
    return NumberOf(name, DATUM_COUNT, DatumName);
}

std::string WrongSystem(const std::string& name) {
    return SystemByName(name) ? "" : "no system is called " + Quote(name) + "; `tessara systems` lists them";
}

std::string WrongDatum(const std::string& name) {
    return DatumByName(name) ? "" : "no datum is called " + Quote(name) + "; `tessara datums` lists them";
}

}  // namespace tessara::toolkit
