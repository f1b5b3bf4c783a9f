#include "objects/coord.h"

#include "kernel/numeric.h"
#include "objects/koord_access.h"
#include "records/default_koord.h"
#include "records/koord_shift.h"
#include "records/zones.h"
#include "systems/reference.h"
#include "tessara/coord_geographic.h"
#include "tessara/coordinate_reference.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

bool IsWgs84Geodez(const CKoord& koord) {
    return koord.datum == DATUM_WGS84 && koord.type == KOORD_GEODEZ;
}

FloatPixelPayload PixelOf(const CKoord& koord) {
    if (koord.type == KOORD_FLOATPIXEL) return Load<FloatPixelPayload>(koord);
    const auto pixel = Load<LongPixelPayload>(koord);
    return {static_cast<double>(pixel.x), static_cast<double>(pixel.y)};
}

}  // namespace

bool Coord::SetPixel(double x, double y) {
    koord_.type = KOORD_FLOATPIXEL;
    Store(koord_, FloatPixelPayload{x, y});
    valid_ = true;
    return true;
}

bool Coord::GetPixel(double* x, double* y) {
    if (!valid_ || !IsPixel(koord_) || x == nullptr || y == nullptr) return false;
    const FloatPixelPayload pixel = PixelOf(koord_);
    *x = pixel.x;
    *y = pixel.y;
    return true;
}

bool Coord::SetHeight(double height) {
    koord_.SetHeight(height);
    return true;
}

double Coord::GetHeight() {
    if (!valid_ && IsEarthCentre(koord_)) return 0.0;
    return koord_.GetHeight();
}

bool Coord::GetGeographic(ICoordGeographic* target) {
    const IRef<ICoordGeographic> geographic(target);
    if (!valid_ || !geographic.IsValid()) return false;
    CKoord wgs84;
    if (IsWgs84Geodez(koord_)) {
        wgs84 = koord_;
    } else if (KoordConvert(&koord_, &wgs84) != KOORD_OK) {
        return false;
    }
    const auto position = Load<GeodezPayload>(wgs84);
    return geographic->Set(position.longitude, position.latitude, koord_.GetHeight());
}

bool Coord::SetGeographic(ICoordGeographic* source) {
    valid_ = false;
    const IRef<ICoordGeographic> geographic(source);
    if (!geographic.IsValid()) return false;

    GeodezPayload position{};
    geographic->Get(&position.longitude, &position.latitude, &position.height);
    if (IsWgs84Geodez(koord_)) {
        Store(koord_, position);
    } else {
        CKoord wgs84;
        Store(wgs84, position);
        // The default record wants no zone, so the new position is written in its natural zone.
        if (zones::Exist(TypeOf(koord_))) ResetToDefault(&koord_);
        if (KoordConvert(&wgs84, &koord_) != KOORD_OK) return false;
    }
    koord_.SetHeight(position.height);
    valid_ = true;
    return true;
}

bool Coord::GetReference(ICoordinateReference* target) {
    const IRef<ICoordinateReference> reference(target);
    return reference.IsValid() && reference->SetDatum(DatumOf(koord_)) &&
           reference->SetSystem(TypeOf(koord_));
}

bool Coord::SetReference(ICoordinateReference* newReference) {
    const IRef<ICoordinateReference> reference(newReference);
    if (!reference.IsValid()) return false;
    const std::int32_t datum = reference->GetDatum();
    const std::int32_t system = reference->GetSystem();
    if (datum == DatumOf(koord_) && system == TypeOf(koord_)) return true;

    if (valid_) {
        const bool fromPixel = IsPixel(koord_);
        const bool toPixel = IsPixelType(system);
        if (fromPixel && toPixel) return SetPixelReference(datum, system);
        // Only a map can relate a pixel to a world position.
        if (fromPixel || toPixel) valid_ = false;
    }
    if (valid_) return ConvertTo(datum, system);
    SetEmptyReference(datum, system);
    return true;
}

// Converts between pixel forms, pixel datums, or both.
bool Coord::SetPixelReference(std::int32_t datum, std::int32_t system) {
    CKoord pixel;
    pixel.datum = static_cast<std::uint32_t>(datum);
    pixel.type = static_cast<std::uint32_t>(system);
    // A double represents every whole pixel exactly, so whole pixels survive the conversion.
    const FloatPixelPayload old = PixelOf(koord_);
    if (system == KOORD_LONGPIXEL) {
        Store(pixel, LongPixelPayload{RoundPixel(old.x), RoundPixel(old.y)});
    } else {
        Store(pixel, old);
    }
    koord_ = pixel;
    return true;
}

// Without a position the object takes the default record of the system or, if there is none, just the
// numbers of the reference.
void Coord::SetEmptyReference(std::int32_t datum, std::int32_t system) {
    koord_.datum = static_cast<std::uint32_t>(datum);
    koord_.type = static_cast<std::uint32_t>(system);
    ResetToDefault(&koord_);
}

bool Coord::ConvertTo(std::int32_t datum, std::int32_t system) {
    CKoord target;
    if (!DefaultKoord(datum, system, &target)) return false;
    // The copy doesn't remember for which ECEF values its height was computed. At the earth's centre, the
    // default of ECEF, it therefore keeps the height it was given, whatever the datum.
    const CKoord source(koord_);
    if (KoordConvert(&source, &target) != KOORD_OK) return false;
    target.SetHeight(source.GetHeight());
    koord_ = target;
    return true;
}

bool Coord::SetKoord(const CKoord* koord) {
    if (koord == nullptr) return false;
    koord_ = *koord;
    valid_ = true;
    return true;
}

bool Coord::GetKoord(CKoord* koord) {
    if (koord == nullptr) return false;
    *koord = koord_;
    return true;
}

bool Coord::ShiftEast(double delta) {
    return valid_ && koord::Shift(Axis::East, delta, &koord_);
}

bool Coord::ShiftNorth(double delta) {
    return valid_ && koord::Shift(Axis::North, delta, &koord_);
}

double Coord::EastDifference(ICoord* other) {
    return DifferenceTo(other, Axis::East);
}

double Coord::NorthDifference(ICoord* other) {
    return DifferenceTo(other, Axis::North);
}

double Coord::DifferenceTo(ICoord* other, Axis axis) {
    CKoord to;
    if (!valid_ || !KoordFromCoord(other, &to)) return UNKNOWN_DIFFERENCE;
    return koord::Difference(axis, koord_, to);
}

ICoord* CreateClassCoord() {
    return NewObject<Coord>();
}

}  // namespace tessara
