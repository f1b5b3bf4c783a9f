#include "text/coordinate_string.h"

#include <algorithm>
#include <exception>
#include <new>

#include "objects/koord_access.h"
#include "records/check_record.h"
#include "records/reference.h"
#include "tessara/coordinate_transfer.h"
#include "text/display_text.h"
#include "text/number_text.h"
#include "text/read_text.h"
#include "text/text_of.h"
#include "text/text_precision.h"
#include "text/write_text.h"

namespace tessara {
namespace {

constexpr int HEIGHT_DECIMALS = 3;

Axis OtherAxis(Axis axis) {
    return axis == Axis::North ? Axis::East : Axis::North;
}

// The three texts of one view of the position; they are emptied first. False if one of them is missing.
class ThreeTexts {
  public:
    ThreeTexts(ITessaraString* first, ITessaraString* second, ITessaraString* third)
        : texts_{IRef<ITessaraString>(first), IRef<ITessaraString>(second), IRef<ITessaraString>(third)} {}

    bool Clear() {
        if (!texts_[0].IsValid() || !texts_[1].IsValid() || !texts_[2].IsValid()) return false;
        for (const IRef<ITessaraString>& text : texts_)
            text->Clear();
        return true;
    }

    // False without memory; the texts are then empty.
    bool Write(const double (&values)[3], const int (&decimals)[3]) {
        try {
            for (int i = 0; i < 3; ++i)
                texts_[i]->AssignText(FixedText(values[i], decimals[i]).c_str());
        } catch (const std::exception&) {
            Clear();
            return false;
        }
        return true;
    }

  private:
    IRef<ITessaraString> texts_[3];
};

}  // namespace

CoordinateString::CoordinateString()
    : coord_(CreateClassCoord()), reference_(CreateClassCoordinateReference()) {
    if (!coord_.IsValid() || !reference_.IsValid()) throw std::bad_alloc();
    coord_->GetReference(reference_.Get());
}

std::int16_t& CoordinateString::PrecisionOf(Axis axis) {
    return axis == Axis::North ? northPrecision_ : eastPrecision_;
}

void CoordinateString::UnsetPrecisionsIfOther(std::int32_t system) {
    if (system == System()) return;
    northPrecision_ = PRECISION_UNSET;
    eastPrecision_ = PRECISION_UNSET;
}

// A foreign coordinate has no record here, but it has a reference.
void CoordinateString::UnsetPrecisionsForForeign(ICoord* coord) {
    const IRef<ICoord> foreign(coord);
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    if (!foreign.IsValid() || !reference.IsValid()) return;
    if (foreign->GetReference(reference.Get())) UnsetPrecisionsIfOther(reference->GetSystem());
}

bool CoordinateString::SetCoord(ICoord* coord) {
    CKoord koord;
    if (!KoordFromCoord(coord, &koord)) {
        UnsetPrecisionsForForeign(coord);
        return false;
    }
    const Reference reference = ReferenceOf(koord);
    if (!IsReferenceDatum(reference.datum) || !IsReferenceSystem(reference.system)) return false;
    UnsetPrecisionsIfOther(reference.system);
    return KoordToCoord(&koord, coord_.Get()) && coord_->GetReference(reference_.Get());
}

bool CoordinateString::GetCoord(ICoord* coord) {
    return CopyCoord(coord_.Get(), coord);
}

bool CoordinateString::ParseCoord(ICoordinateReference* reference, ITessaraString* north,
                                  ITessaraString* east) try {
    const IRef<ICoordinateReference> wanted(reference);
    const IRef<ITessaraString> northSource(north);
    const IRef<ITessaraString> eastSource(east);
    std::string northText;
    std::string eastText;
    if (!wanted.IsValid()) return false;
    if (!TextOf(northSource.Get(), &northText) || !TextOf(eastSource.Get(), &eastText)) return false;

    const std::int32_t system = wanted->GetSystem();
    tagKOORD record = MakeKoord(wanted->GetDatum(), system);
    if (!text::Read(northText, eastText, &record)) return false;
    const CKoord parsed(record);
    if (!IsLegalRecord(parsed)) return false;
    UnsetPrecisionsIfOther(system);
    return KoordToCoord(&parsed, coord_.Get()) && coord_->GetReference(reference_.Get());
} catch (const std::exception&) {
    return false;
}

bool CoordinateString::SetPrecision(Axis axis, double resolution) {
    PrecisionOf(axis) = precision::OfResolution(resolution, System());
    return true;
}

bool CoordinateString::SetDefaultPrecision(Axis axis) {
    PrecisionOf(axis) = precision::Default(System());
    return true;
}

bool CoordinateString::SetNorthPrecision(double resolution) {
    return SetPrecision(Axis::North, resolution);
}

bool CoordinateString::SetEastPrecision(double resolution) {
    return SetPrecision(Axis::East, resolution);
}

bool CoordinateString::SetDefaultNorthPrecision() {
    return SetDefaultPrecision(Axis::North);
}

bool CoordinateString::SetDefaultEastPrecision() {
    return SetDefaultPrecision(Axis::East);
}

bool CoordinateString::MakePlainText(Axis axis, std::string* text) {
    if (PrecisionOf(axis) == PRECISION_UNSET) SetDefaultPrecision(axis);
    CKoord koord;
    return KoordFromCoord(coord_.Get(), &koord) &&
           text::Write(axis, koord, precision::Decimals(PrecisionOf(axis)), text);
}

bool CoordinateString::GetText(Axis axis, ITessaraString* text) try {
    const IRef<ITessaraString> target(text);
    if (!target.IsValid()) return false;
    target->Clear();
    std::string plain;
    if (!MakePlainText(axis, &plain)) return false;
    target->AssignText(plain.c_str());
    return true;
} catch (const std::exception&) {
    return false;
}

bool CoordinateString::GetNorthText(ITessaraString* text) {
    return GetText(Axis::North, text);
}

bool CoordinateString::GetEastText(ITessaraString* text) {
    return GetText(Axis::East, text);
}

bool CoordinateString::GetDisplayText(Axis axis, ITessaraString* text) try {
    const IRef<ITessaraString> target(text);
    if (!target.IsValid() || !GetText(axis, text)) return false;

    PlainTexts plain;
    std::string& own = axis == Axis::North ? plain.north : plain.east;
    std::string& other = axis == Axis::North ? plain.east : plain.north;
    if (!TextOf(text, &own)) return false;
    if (text::DisplaysBothAxes(System()) && !MakePlainText(OtherAxis(axis), &other)) return false;

    std::string display;
    if (!text::Display(axis, System(), PrecisionOf(axis), plain, &display)) return false;
    target->AssignText(display.c_str());
    return true;
} catch (const std::exception&) {
    return false;
}

bool CoordinateString::GetNorthDisplayText(ITessaraString* text) {
    return GetDisplayText(Axis::North, text);
}

bool CoordinateString::GetEastDisplayText(ITessaraString* text) {
    return GetDisplayText(Axis::East, text);
}

// Converts the stored position to another system on its datum.
bool CoordinateString::ConvertHeld(std::int32_t system, CKoord* koord) {
    const IRef<ICoord> converted(CreateClassCoord());
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    const IRef<ICoordinateTransfer> transfer(CreateClassCoordinateTransfer());
    if (!converted.IsValid() || !reference.IsValid() || !transfer.IsValid()) return false;
    return reference->SetDatum(reference_->GetDatum()) && reference->SetSystem(system) &&
           converted->SetReference(reference.Get()) && transfer->Transfer(coord_.Get(), converted.Get()) &&
           KoordFromCoord(converted.Get(), koord);
}

bool CoordinateString::GetCartesianTexts(ITessaraString* x, ITessaraString* y, ITessaraString* z) {
    ThreeTexts texts(x, y, z);
    CKoord koord;
    if (!texts.Clear() || !ConvertHeld(KOORD_ECEF, &koord)) return false;
    const int decimals = std::max(precision::Decimals(northPrecision_), precision::Decimals(eastPrecision_));
    const auto ecef = Load<EcefPayload>(koord);
    return texts.Write({ecef.x, ecef.y, ecef.z}, {decimals, decimals, decimals});
}

bool CoordinateString::GetGeographicTexts(ITessaraString* latitude, ITessaraString* longitude,
                                          ITessaraString* height) {
    ThreeTexts texts(latitude, longitude, height);
    if (!texts.Clear()) return false;
    for (const Axis axis : {Axis::North, Axis::East}) {
        if (PrecisionOf(axis) == PRECISION_UNSET) SetDefaultPrecision(axis);
    }
    CKoord koord;
    if (!ConvertHeld(KOORD_GEODEZ, &koord)) return false;
    const auto position = Load<GeodezPayload>(koord);
    return texts.Write(
        {position.latitude, position.longitude, koord.GetHeight()},
        {precision::Decimals(northPrecision_), precision::Decimals(eastPrecision_), HEIGHT_DECIMALS});
}

ICoordinateString* CreateClassCoordinateString() {
    return NewObject<CoordinateString>();
}

}  // namespace tessara
