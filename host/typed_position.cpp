#include "typed_position.h"

#include "names.h"
#include "tessara/host/text.h"
#include "text_forms.h"

namespace tessara::program {

TypedPosition::TypedPosition(const Reference& reference)
    : reference_(reference),
      libraryReference_(MakeReference(reference)),
      string_(CreateClassCoordinateString()),
      north_(NewObject<host::Text>()),
      east_(NewObject<host::Text>()) {}

std::string TypedPosition::Read(const std::string& north, const std::string& east) {
    north_->AssignText(north.c_str());
    east_->AssignText(east.c_str());
    if (string_->ParseCoord(libraryReference_.Get(), north_.Get(), east_.Get())) return {};

    const std::string system = SystemName(reference_.system);
    const std::string never = WhyNeverTyped(reference_.system);
    if (!never.empty()) return system + " can't be typed: " + never;
    if (!AreReadable(reference_.system, north, east))
        return "not readable as " + system + ", which is " + FormsOf(reference_.system);
    const std::string partly = WhyPartlyTyped(reference_.system);
    return "not a legal position of " + reference_.Name() + (partly.empty() ? "" : ", of which " + partly);
}

IRef<ICoordinateReference> MakeReference(const Reference& reference) {
    IRef<ICoordinateReference> made(CreateClassCoordinateReference());
    made->SetDatum(reference.datum);
    made->SetSystem(reference.system);
    return made;
}

std::string ToUtf8(std::string_view latin1) {
    std::string utf8;
    for (const char c : latin1) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | (code >> 6));
            utf8 += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return utf8;
}

}  // namespace tessara::program
