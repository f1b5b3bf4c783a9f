#include "reference.h"

#include <stdexcept>

#include "conversion/names.h"

namespace tessara::python {

toolkit::Reference ReferenceOf(const std::string& name) {
    const auto reference = toolkit::ReferenceByName(name, DATUM_WGS84);
    if (!reference) throw std::invalid_argument(toolkit::WrongReference(name));
    return *reference;
}

std::int32_t DatumOf(const std::string& name) {
    const auto datum = toolkit::DatumByName(name);
    if (!datum) throw std::invalid_argument(toolkit::WrongDatum(name));
    return *datum;
}

}  // namespace tessara::python
