// What the datums are called and where they are used.
#include "conversion/datum_descriptions.h"
#include "exports.h"
#include "tessara/host/listings.h"

namespace tessara::web {

// A line for each datum: its name in the registries, region, area and accuracy in metres, apart by tabs.
TESSARA_EXPORT(datumDescriptions) Outcome DatumDescriptions() {
    return Try([] {
        for (const DatumRow& row : host::Datums()) {
            const toolkit::DatumDescription& datum =
                *toolkit::DescribeDatum(static_cast<std::int32_t>(row.id));
            Answer() += std::string(datum.name) + '\t' + datum.region + '\t' + datum.area + '\t' +
                        std::to_string(datum.accuracy) + '\n';
        }
    });
}

}  // namespace tessara::web
