// Systems and datums as lines whose fields stand apart by tabs.
#include "conversion/names.h"
#include "conversion/numbers.h"
#include "exports.h"
#include "tessara/host/listings.h"
#include "tessara/kernel/columns.h"

namespace tessara::web {
namespace {

void Add(const std::string& field) {
    Answer() += field + '\t';
}

}  // namespace

// Number, name, unit, and the names of the fields.
TESSARA_EXPORT(systems) Outcome Systems() {
    return Try([] {
        for (const NameRow& row : host::Systems()) {
            const auto number = static_cast<std::int32_t>(row.number);
            Add(std::to_string(number));
            Add(row.name);
            Add(toolkit::UnitName(System_Unit(number)));
            for (const OutputField& field : System_Outputs(number))
                Answer() += std::string(field.name) + ' ';
            Answer() += '\n';
        }
    });
}

// Number, name, ellipsoid, its axis and flattening, and the translation to WGS84.
TESSARA_EXPORT(datums) Outcome Datums() {
    return Try([] {
        for (const DatumRow& row : host::Datums()) {
            const char* const ellipsoid = host::EllipsoidName(row.ellipsoid);
            Add(std::to_string(row.id));
            Add(row.name);
            Add(ellipsoid != nullptr ? ellipsoid : "");
            for (const double number : {row.a, row.f, row.dx, row.dy, row.dz})
                Add(toolkit::FormatNumber(number));
            Answer() += '\n';
        }
    });
}

}  // namespace tessara::web
