#include "typed/text_writer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "conversion/fields.h"
#include "conversion/made.h"
#include "conversion/units.h"
#include "tessara/host/text.h"

namespace tessara::toolkit {
namespace {

// The library writes the metres in a square without leading zeros, but their digits count from the left.
std::string FillMetres(const std::string& text) {
    const std::size_t begin = text.find_last_of(' ') + 1;
    const std::size_t end = std::min(text.find('.', begin), text.size());
    const std::size_t missing = SQUARE_DIGITS - std::min<std::size_t>(end - begin, SQUARE_DIGITS);
    return text.substr(0, begin) + std::string(missing, '0') + text.substr(begin);
}

}  // namespace

TextWriter::TextWriter(const Reference& target, const TextStyle& style)
    : target_(target),
      style_(style),
      string_(Made(CreateClassCoordinateString())),
      text_(Made<ITessaraString>(NewObject<host::Text>())) {
    if (target.system != KOORD_UTMREF) return;
    if (style.reference) references_.emplace(target, *style.reference);
    if (style.isDisplay && !style.reference)
        references_.emplace(target, ReferenceDigits{DisplayedDigits(), true});
}

bool TextWriter::HasOneText() const {
    return target_.system == KOORD_ECEF || (target_.system == KOORD_UTMREF && style_.reference.has_value());
}

// The digits of each axis, for the coarser resolution.
int TextWriter::DisplayedDigits() const {
    const double side = std::max(style_.northResolution.value_or(1.0), style_.eastResolution.value_or(1.0));
    int digits = SQUARE_DIGITS;
    for (double step = 10.0; digits > 0 && step <= side; step *= 10.0)
        --digits;
    return digits;
}

std::vector<std::string> TextWriter::Write(const CKoord& record, const CKoord& source) const {
    if (!IsFinite(record)) return {};
    if (references_) {
        std::string reference;
        if (references_->Write(source, &reference) != KOORD_OK) return {};
        if (style_.reference) return {reference};
        return {reference, reference};
    }
    const bool isLetterGrid = target_.system == KOORD_BNG || target_.system == KOORD_ING;
    if (style_.isDisplay && isLetterGrid) {
        const auto p = Load<LetterGridPayload>(record);
        const std::string text =
            SquareText(std::string{p.square, p.subSquare}, static_cast<std::int32_t>(p.easting),
                       static_cast<std::int32_t>(p.northing), DisplayedDigits());
        return {text, text};
    }
    if (!string_->SetCoord(Made(host::CoordOf(record)).Get())) return {};
    if (style_.northResolution) string_->SetNorthPrecision(*style_.northResolution);
    if (style_.eastResolution) string_->SetEastPrecision(*style_.eastResolution);
    if (target_.system == KOORD_ECEF) return CartesianText();
    std::vector<std::string> texts{LibraryText(true), LibraryText(false)};
    if (target_.system == KOORD_UTMREF) {
        for (std::string& text : texts)
            text = FillMetres(text);
    }
    // The library's display text of a northing is the same in both hemispheres.
    if (style_.isDisplay && target_.system == KOORD_UTM)
        texts[0].insert(0, 1, Load<UtmPayload>(record).hemisphere);
    return texts;
}

std::string TextWriter::LibraryText(bool isNorth) const {
    using Operation = bool (ICoordinateString::*)(ITessaraString*);
    const Operation plain = isNorth ? &ICoordinateString::GetNorthText : &ICoordinateString::GetEastText;
    const Operation display =
        isNorth ? &ICoordinateString::GetNorthDisplayText : &ICoordinateString::GetEastDisplayText;
    // A failed display text leaves the plain text or an empty one.
    (string_.Get()->*(style_.isDisplay ? display : plain))(text_.Get());
    return host::ToUtf8(text_);
}

std::vector<std::string> TextWriter::CartesianText() const {
    std::array<IRef<ITessaraString>, 3> texts;
    for (IRef<ITessaraString>& text : texts)
        text = Made<ITessaraString>(NewObject<host::Text>());
    // The objects keep the decimals of the axes, so these are reset before each text.
    if (!style_.northResolution) string_->SetDefaultNorthPrecision();
    if (!style_.eastResolution) string_->SetDefaultEastPrecision();
    if (!string_->GetCartesianTexts(texts[0].Get(), texts[1].Get(), texts[2].Get())) return {};
    return {std::string(texts[0]->GetText()) + ' ' + texts[1]->GetText() + ' ' + texts[2]->GetText()};
}

}  // namespace tessara::toolkit
