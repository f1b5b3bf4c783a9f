#include "conversion/references.h"

#include "conversion/names.h"

namespace tessara::toolkit {
namespace {

// The two halves of SYSTEM[@DATUM].
struct Halves {
    std::string system;
    std::optional<std::string> datum;
};

Halves Split(const std::string& name) {
    const std::size_t at = name.find('@');
    if (at == std::string::npos) return {name, std::nullopt};
    return {name.substr(0, at), name.substr(at + 1)};
}

}  // namespace

std::string Reference::Name() const {
    return SystemName(system) + "@" + DatumName(datum);
}

std::optional<Reference> ReferenceByName(const std::string& name, std::int32_t defaultDatum) {
    const Halves halves = Split(name);
    const std::optional<std::int32_t> system = SystemByName(halves.system);
    const std::optional<std::int32_t> datum =
        halves.datum ? DatumByName(*halves.datum) : std::optional(defaultDatum);
    if (!system || !datum) return std::nullopt;
    return Reference{*system, *datum};
}

std::string WrongReference(const std::string& name) {
    const Halves halves = Split(name);
    std::string wrong = WrongSystem(halves.system);
    return wrong.empty() && halves.datum ? WrongDatum(*halves.datum) : wrong;
}

IRef<ICoordinateReference> MakeReference(const Reference& reference) {
    IRef<ICoordinateReference> made(CreateClassCoordinateReference());
    made->SetDatum(reference.datum);
    made->SetSystem(reference.system);
    return made;
}

bool IsPixel(std::int32_t system) {
    return system == KOORD_LONGPIXEL || system == KOORD_FLOATPIXEL;
}

bool IsDegrees(std::int32_t system) {
    return system == KOORD_GEODEZ || system == KOORD_GEOGRAD || system == KOORD_GEODEZMIN;
}

}  // namespace tessara::toolkit
