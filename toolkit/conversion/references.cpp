#include "conversion/references.h"

#include "conversion/made.h"
#include "conversion/names.h"

namespace tessara::toolkit {
namespace {

// The pieces of SYSTEM[:PARAMETERS][@DATUM].
struct Pieces {
    std::string system;
    std::optional<std::string> parameters;
    std::optional<std::string> datum;
};

// Removes the text after a separator, and the separator; returns nothing without one.
std::optional<std::string> TakeBehind(char sign, std::string* text) {
    const std::size_t at = text->find(sign);
    if (at == std::string::npos) return std::nullopt;
    std::string behind = text->substr(at + 1);
    text->resize(at);
    return behind;
}

Pieces Split(const std::string& name) {
    Pieces pieces{name, {}, {}};
    pieces.datum = TakeBehind('@', &pieces.system);
    pieces.parameters = TakeBehind(':', &pieces.system);
    return pieces;
}

}  // namespace

std::string Reference::Name() const {
    const std::string given = parameters.empty() ? "" : ":" + TextOf(parameters);
    return SystemName(system) + given + "@" + DatumName(datum);
}

std::optional<Reference> ReferenceByName(const std::string& name, std::int32_t defaultDatum) {
    if (!WrongReference(name).empty()) return std::nullopt;
    const Pieces pieces = Split(name);
    Reference reference{.datum = pieces.datum ? *DatumByName(*pieces.datum) : defaultDatum,
                        .system = *SystemByName(pieces.system)};
    if (pieces.parameters) reference.parameters = *ReadParameters(reference.system, *pieces.parameters);
    return reference;
}

std::string WrongReference(const std::string& name) {
    const Pieces pieces = Split(name);
    std::string wrong = WrongSystem(pieces.system);
    if (wrong.empty() && pieces.parameters)
        wrong = WrongParameters(*SystemByName(pieces.system), *pieces.parameters);
    return wrong.empty() && pieces.datum ? WrongDatum(*pieces.datum) : wrong;
}

bool AreAlike(const Reference& one, const Reference& other) {
    return one.system == other.system && one.datum == other.datum;
}

CKoord DefaultRecord(const Reference& reference) {
    const IRef<ICoord> coord = Made(CreateClassCoord());
    coord->SetReference(MakeReference(reference).Get());
    CKoord record = host::RecordOf(coord);
    StoreParameters(reference.parameters, &record);
    return record;
}

IRef<ICoordinateReference> MakeReference(const Reference& reference) {
    IRef<ICoordinateReference> made = Made(CreateClassCoordinateReference());
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
