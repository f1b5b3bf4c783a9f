#include "faults/operation.h"

namespace tessara::testing {
namespace {

using Scene = FaultScene;
using enum OutOfMemory;

ICoordInternal* Internal(const IRef<ICoord>& coord) {
    return FaceOf<ICoordInternal>(coord);
}

constexpr FaultyOperation OBJECT_OPERATIONS[] = {
    {"ICoord::SetPixel", NEVER, [](Scene& s) { return s.pixel->SetPixel(1.0, 2.0); }},
    {"ICoord::GetPixel", NEVER, [](Scene& s) { return s.pixel->GetPixel(&s.number, &s.number2); }},
    {"ICoord::SetHeight", NEVER, [](Scene& s) { return s.utm->SetHeight(500.0); }},
    {"ICoord::GetHeight", NEVER, [](Scene& s) { return s.utm->GetHeight() == 0.0; }},
    {"ICoord::GetGeographic", NEVER, [](Scene& s) { return s.utm->GetGeographic(s.geographic.Get()); }},
    {"ICoord::SetGeographic", NEVER, [](Scene& s) { return s.utm->SetGeographic(s.geographic.Get()); }},
    {"ICoord::SetReference", NEVER, [](Scene& s) { return s.utm->SetReference(s.gk.Get()); }},
    {"ICoord::SetReference of a pixel", NEVER,
     [](Scene& s) { return s.pixel->SetReference(s.longPixelReference.Get()); }},
    {"ICoord::GetReference", NEVER, [](Scene& s) { return s.utm->GetReference(s.referenceOut.Get()); }},

    {"ICoordInternal::SetKoord", NEVER,
     [](Scene& s) {
         const CKoord koord(Utm32(500000.0, 5000000.0));
         return Internal(s.out)->SetKoord(&koord);
     }},
    {"ICoordInternal::GetKoord", NEVER,
     [](Scene& s) {
         CKoord koord;
         return Internal(s.utm)->GetKoord(&koord);
     }},
    {"ICoordInternal::ShiftEast", NEVER, [](Scene& s) { return Internal(s.utm)->ShiftEast(10.0); }},
    {"ICoordInternal::ShiftEast of UTMREF", NEVER,
     [](Scene& s) { return Internal(s.utmref)->ShiftEast(10.0); }},
    {"ICoordInternal::ShiftNorth", NEVER, [](Scene& s) { return Internal(s.utm)->ShiftNorth(10.0); }},
    {"ICoordInternal::ShiftNorth of UTMREF", NEVER,
     [](Scene& s) { return Internal(s.utmref)->ShiftNorth(10.0); }},
    {"ICoordInternal::EastDifference", NEVER,
     [](Scene& s) { return Internal(s.utm)->EastDifference(s.moreUtm.Get()) != UNKNOWN_DIFFERENCE; }},
    {"ICoordInternal::NorthDifference", NEVER,
     [](Scene& s) { return Internal(s.utm)->NorthDifference(s.moreUtm.Get()) != UNKNOWN_DIFFERENCE; }},

    {"ICoordGeographic::Set", NEVER, [](Scene& s) { return s.geographic->Set(9.0, 50.0, 100.0); }},
    {"ICoordGeographic::Get", NEVER,
     [](Scene& s) { return s.geographic->Get(&s.number, &s.number2, &s.number3); }},
    {"ICoordGeographic::GetLatitude", NEVER, [](Scene& s) { return s.geographic->GetLatitude() == 48.0; }},
    {"ICoordGeographic::GetLongitude", NEVER, [](Scene& s) { return s.geographic->GetLongitude() == 11.5; }},
    {"ICoordGeographic::GetHeight", NEVER, [](Scene& s) { return s.geographic->GetHeight() == 0.0; }},
    {"ICoordGeographic::SetLatitude", NEVER, [](Scene& s) { return s.geographic->SetLatitude(50.0); }},
    {"ICoordGeographic::SetLongitude", NEVER, [](Scene& s) { return s.geographic->SetLongitude(9.0); }},
    {"ICoordGeographic::SetHeight", NEVER, [](Scene& s) { return s.geographic->SetHeight(100.0); }},

    {"ICoordinateReference::GetDatum", NEVER, [](Scene& s) { return s.gk->GetDatum() == 3; }},
    {"ICoordinateReference::SetDatum", NEVER, [](Scene& s) { return s.gk->SetDatum(DATUM_WGS84); }},
    {"ICoordinateReference::GetSystem", NEVER, [](Scene& s) { return s.gk->GetSystem() == KOORD_GK; }},
    {"ICoordinateReference::SetSystem", NEVER, [](Scene& s) { return s.gk->SetSystem(KOORD_UTM); }},
    {"ICoordinateReference::GetDatumName", NEVER,
     [](Scene& s) { return s.gk->GetDatumName(s.text.Get()), !s.text->IsEmpty(); }},
    {"ICoordinateReference::GetSystemName", NEVER,
     [](Scene& s) { return s.gk->GetSystemName(s.text.Get()), !s.text->IsEmpty(); }},

    {"ICoordinateSystem::GetSystem", NEVER, [](Scene& s) { return s.system->GetSystem() == KOORD_GK; }},
    {"ICoordinateSystem::SetSystem", NEVER, [](Scene& s) { return s.system->SetSystem(KOORD_UTM); }},
    {"ICoordinateSystem::GetName", NEVER,
     [](Scene& s) { return s.system->GetName(s.text.Get()), !s.text->IsEmpty(); }},

    {"IGeoDate::GetDatum", NEVER, [](Scene& s) { return s.datum->GetDatum() == DATUM_WGS84; }},
    {"IGeoDate::SetDatum", NEVER, [](Scene& s) { return s.datum->SetDatum(3); }},
    {"IGeoDate::GetName", NEVER, [](Scene& s) { return s.datum->GetName(s.text.Get()), !s.text->IsEmpty(); }},

    {"ICoordinateInit::InitCoord", NEVER, [](Scene& s) { return s.init->InitCoord(s.out.Get()); }},

    {"ICoordinateTransfer::Transfer", TOLD,
     [](Scene& s) { return s.transfer->Transfer(s.utm.Get(), s.out.Get()); }},
    {"ICoordinateTransfer::Transfer in place", NEVER,
     [](Scene& s) { return s.transfer->Transfer(s.utm.Get(), s.utm.Get()); }},
    {"ICoordinateTransfer::Transfer to another datum", TOLD,
     [](Scene& s) { return s.transfer->Transfer(s.utm.Get(), s.outOnOtherDatum.Get()); }},
    {"ICoordinateTransfer::TransferNorth", NEVER,
     [](Scene& s) { return s.transfer->TransferNorth(s.utm.Get(), s.moreUtm.Get()); }},
    {"ICoordinateTransfer::TransferEast", NEVER,
     [](Scene& s) { return s.transfer->TransferEast(s.utm.Get(), s.moreUtm.Get()); }},
    {"ICoordinateTransfer::TransferToMap", TOLD,
     [](Scene& s) { return s.transfer->TransferToMap(s.map.Get(), s.utm.Get(), s.out.Get()); }},
    {"ICoordinateTransfer::TransferToMap of a pixel", TOLD,
     [](Scene& s) { return s.transfer->TransferToMap(s.map.Get(), s.pixel.Get(), s.out.Get()); }},
    {"ICoordinateTransfer::TransferBetweenMaps", TOLD,
     [](Scene& s) {
         return s.transfer->TransferBetweenMaps(s.map.Get(), s.pixel.Get(), s.otherMap.Get(),
                                                s.morePixel.Get());
     }},

    {"IZoneCoordOperations::HasZones", TOLD, [](Scene& s) { return s.zones->HasZones(s.utm.Get()); }},
    {"IZoneCoordOperations::GetEastBorder", NEVER,
     [](Scene& s) { return s.zones->GetEastBorder(s.utm.Get(), s.out.Get()) > 0; }},
    {"IZoneCoordOperations::GetEastNeighbour", NEVER,
     [](Scene& s) { return s.zones->GetEastNeighbour(s.utm.Get(), s.out.Get()); }},
    {"IZoneCoordOperations::GetWestBorder", NEVER,
     [](Scene& s) { return s.zones->GetWestBorder(s.utm.Get(), s.out.Get()) > 0; }},
    {"IZoneCoordOperations::GetWestNeighbour", NEVER,
     [](Scene& s) { return s.zones->GetWestNeighbour(s.utm.Get(), s.out.Get()); }},
    {"IZoneCoordOperations::GetZoneCentre", NEVER,
     [](Scene& s) { return s.zones->GetZoneCentre(s.utm.Get(), s.out.Get()); }},
    {"IZoneCoordOperations::GetZoneNumber", NEVER,
     [](Scene& s) { return s.zones->GetZoneNumber(s.utm.Get()) == 32; }},
    {"IZoneCoordOperations::GetZoneFactor", NEVER,
     [](Scene& s) { return s.zones->GetZoneFactor(s.utm.Get()) != UNKNOWN_ZONE; }},
    {"IZoneCoordOperations::MoveToZone", NEVER, [](Scene& s) { return s.zones->MoveToZone(1, s.utm.Get()); }},
    {"IZoneCoordOperations::GetEastNeighbourAtEquator", NEVER,
     [](Scene& s) { return s.zones->GetEastNeighbourAtEquator(s.utm.Get(), s.out.Get()); }},
    {"IZoneCoordOperations::GetWestNeighbourAtEquator", NEVER,
     [](Scene& s) { return s.zones->GetWestNeighbourAtEquator(s.utm.Get(), s.out.Get()); }},
};

}  // namespace

OperationTable ObjectOperations() {
    return OBJECT_OPERATIONS;
}

}  // namespace tessara::testing
