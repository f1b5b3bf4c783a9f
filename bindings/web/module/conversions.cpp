// Conversions of columns for JavaScript.
#include "conversion/statuses.h"
#include "exports.h"
#include "prepared.h"
#include "references.h"

namespace tessara::web {
namespace {

// `zone W 1`: name, kind and letters of each field.
void Describe(std::span<const OutputField> fields) {
    for (const OutputField& field : fields) {
        Answer() += std::string(field.name) + ' ' + static_cast<char>(KindOf(field)) + ' ' +
                    std::to_string(int{field.count}) + '\n';
    }
}

}  // namespace

// The answer has the handle, the fields of the source, an empty line, and the fields of the target.
TESSARA_EXPORT(prepare)
Outcome Prepare(const char* from, std::size_t fromSize, const char* to, std::size_t toSize) {
    return Try([&] {
        auto made = std::make_unique<PreparedConversion>(ReferenceOf(std::string(from, fromSize)),
                                                         ReferenceOf(std::string(to, toSize)));
        const PreparedConversion& conversion = *made;
        Answer() = std::to_string(Conversions().Add(std::move(made))) + '\n';
        Describe(conversion.SourceFields());
        Answer() += '\n';
        Describe(conversion.TargetFields());
    });
}

TESSARA_EXPORT(forget) void Forget(std::int32_t handle) {
    Conversions().Remove(handle);
}

// Places and strides of columns in the form of SourceColumns and TargetColumns.
TESSARA_EXPORT(convert)
Outcome Convert(std::int32_t handle, const SourceColumns* from, const TargetColumns* to, std::size_t count) {
    return Try([&] { Conversions().At(handle).Convert(*from, *to, count); });
}

// One row; the status of the conversion.
TESSARA_EXPORT(convertRow)
KoordStatus ConvertRow(std::int32_t handle, const Slot* from, std::uint32_t given, Slot* to) {
    const PreparedConversion* const conversion = Conversions().Find(handle);
    return conversion != nullptr ? conversion->ConvertRow(from, given, to) : KOORD_ERR_GENERAL;
}

// The code of a status, a line break, and its reason.
TESSARA_EXPORT(statusText) Outcome StatusText(std::int32_t status) {
    return Try(
        [&] { Answer() = std::string(toolkit::StatusCode(status)) + '\n' + toolkit::StatusReason(status); });
}

}  // namespace tessara::web
