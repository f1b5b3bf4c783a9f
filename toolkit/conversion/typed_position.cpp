#include "conversion/typed_position.h"

#include "conversion/names.h"
#include "conversion/text_forms.h"
#include "tessara/host/text.h"

namespace tessara::toolkit {

TypedPosition::TypedPosition(const Reference& reference)
    : reference_(reference),
      libraryReference_(MakeReference(reference)),
      string_(CreateClassCoordinateString()),
      north_(NewObject<host::Text>()),
      east_(NewObject<host::Text>()) {}

std::string TypedPosition::Read(const std::string& north, const std::string& east) {
    // A text of the library ends at its first NUL.
    const bool areWhole = north.find('\0') == std::string::npos && east.find('\0') == std::string::npos;
    north_->AssignText(north.c_str());
    east_->AssignText(east.c_str());
    if (areWhole && string_->ParseCoord(libraryReference_.Get(), north_.Get(), east_.Get())) return {};

    const std::string system = SystemName(reference_.system);
    const std::string never = WhyNeverTyped(reference_.system);
    if (!never.empty()) return system + " can't be typed: " + never;
    if (!areWhole || !AreReadable(reference_.system, north, east))
        return "not readable as " + system + ", which is " + FormsOf(reference_.system);
    const std::string partly = WhyPartlyTyped(reference_.system);
    return "not a legal position of " + reference_.Name() + (partly.empty() ? "" : ", of which " + partly);
}

}  // namespace tessara::toolkit
