#include "faults/operation.h"

namespace tessara::testing {
namespace {

using Scene = FaultScene;
using enum OutOfMemory;

template <auto Find>
bool FindsInSystem(Scene& s) {
    return (s.area.Get()->*Find)(s.utm.Get());
}

template <auto Find>
bool FindsInRect(Scene& s) {
    return (s.area.Get()->*Find)(s.map.Get(), s.rect.Get(), s.out.Get());
}

template <auto Find>
bool FindsOnMapLine(Scene& s) {
    return (s.area.Get()->*Find)(s.map.Get(), s.utmLine.Get(), s.out.Get());
}

template <auto Find>
bool FindsOnLine(Scene& s) {
    return (s.area.Get()->*Find)(s.utmLine.Get(), s.out.Get());
}

template <auto IsIn>
bool IsInside(Scene& s) {
    return (s.area.Get()->*IsIn)(s.map.Get(), s.inSquare.Get(), s.square.Get());
}

template <auto Overlay>
bool Overlays(Scene& s) {
    return (s.area.Get()->*Overlay)(s.map.Get(), s.square.Get(), s.moreSquare.Get(), s.list.Get(),
                                    s.list2.Get(), s.list3.Get(), s.list4.Get()) == OVERLAY_CROSSING;
}

template <auto Find>
bool FindsNeighbor(Scene& s) {
    return (s.neighbor.Get()->*Find)(s.utm.Get(), s.out.Get());
}

void OpenWindow(Scene& s) {
    SetWindow(s.grid, 100, 100, 220, 180);
}

template <auto Draw>
bool Draws(Scene& s) {
    return (s.grid.Get()->*Draw)(s.list.Get()) && s.list->GetCount() > 0;
}

template <auto Make>
bool MakesGrid(Scene& s) {
    return s.Keep((s.grids.Get()->*Make)(s.map.Get(), DATUM_WGS84, 1.0, 1.0));
}

constexpr const char* DRAWS_NO_PIXELS = "what carries pixels: the line is made of positions";

constexpr FaultyOperation AREA_OPERATIONS[] = {
    {"ICoordinateArea::GetSystemNorth", NEVER, FindsInSystem<&ICoordinateArea::GetSystemNorth>},
    {"ICoordinateArea::GetSystemEast", NEVER, FindsInSystem<&ICoordinateArea::GetSystemEast>},
    {"ICoordinateArea::GetSystemSouth", NEVER, FindsInSystem<&ICoordinateArea::GetSystemSouth>},
    {"ICoordinateArea::GetSystemWest", NEVER, FindsInSystem<&ICoordinateArea::GetSystemWest>},
    {"ICoordinateArea::GetSystemExtremes", NEVER,
     [](Scene& s) {
         return s.area->GetSystemExtremes(s.out.Get(), s.out2.Get(), s.out3.Get(), s.out4.Get());
     }},
    {"ICoordinateArea::GetMapRectNorth", TOLD, FindsInRect<&ICoordinateArea::GetMapRectNorth>},
    {"ICoordinateArea::GetMapRectEast", TOLD, FindsInRect<&ICoordinateArea::GetMapRectEast>},
    {"ICoordinateArea::GetMapRectSouth", TOLD, FindsInRect<&ICoordinateArea::GetMapRectSouth>},
    {"ICoordinateArea::GetMapRectWest", TOLD, FindsInRect<&ICoordinateArea::GetMapRectWest>},
    {"ICoordinateArea::GetMapRectExtremes", TOLD,
     [](Scene& s) {
         return s.area->GetMapRectExtremes(s.map.Get(), s.rect.Get(), s.out.Get(), s.out2.Get(), s.out3.Get(),
                                           s.out4.Get());
     }},
    {"ICoordinateArea::GetMapLineNorth", TOLD, FindsOnMapLine<&ICoordinateArea::GetMapLineNorth>,
     DRAWS_NO_PIXELS},
    {"ICoordinateArea::GetMapLineEast", TOLD, FindsOnMapLine<&ICoordinateArea::GetMapLineEast>,
     DRAWS_NO_PIXELS},
    {"ICoordinateArea::GetMapLineSouth", TOLD, FindsOnMapLine<&ICoordinateArea::GetMapLineSouth>,
     DRAWS_NO_PIXELS},
    {"ICoordinateArea::GetMapLineWest", TOLD, FindsOnMapLine<&ICoordinateArea::GetMapLineWest>,
     DRAWS_NO_PIXELS},
    {"ICoordinateArea::GetLineNorth", TOLD, FindsOnLine<&ICoordinateArea::GetLineNorth>},
    {"ICoordinateArea::GetLineEast", TOLD, FindsOnLine<&ICoordinateArea::GetLineEast>},
    {"ICoordinateArea::GetLineSouth", TOLD, FindsOnLine<&ICoordinateArea::GetLineSouth>},
    {"ICoordinateArea::GetLineWest", TOLD, FindsOnLine<&ICoordinateArea::GetLineWest>},
    {"ICoordinateArea::GetLineNorth on another datum", TOLD,
     [](Scene& s) { return s.area->GetLineNorth(s.degreeLine.Get(), s.outOnOtherDatum.Get()); }},
    {"ICoordinateArea::GetMapLineExtremes", TOLD,
     [](Scene& s) {
         return s.area->GetMapLineExtremes(s.map.Get(), s.square.Get(), s.out.Get(), s.out2.Get(),
                                           s.out3.Get(), s.out4.Get());
     },
     "what changes the reference of positions: the line is made of pixels"},
    {"ICoordinateArea::GetLineExtremes", TOLD,
     [](Scene& s) {
         return s.area->GetLineExtremes(s.degreeLine.Get(), s.out.Get(), s.out2.Get(), s.out3.Get(),
                                        s.out4.Get());
     }},
    {"ICoordinateArea::IsInsideCoordEdges", TOLD,
     [](Scene& s) {
         return s.area->IsInsideCoordEdges(s.map.Get(), At(s.utmPolygon, 0).Get(), s.utmPolygon.Get());
     }},
    {"ICoordinateArea::IsInsideCoordEdgesNoMap", TOLD,
     [](Scene& s) { return s.area->IsInsideCoordEdgesNoMap(At(s.utmPolygon, 0).Get(), s.utmPolygon.Get()); }},
    {"ICoordinateArea::IsInsideCoordEdgesNoMap of pixels", TOLD,
     [](Scene& s) { return s.area->IsInsideCoordEdgesNoMap(s.inSquare.Get(), s.square.Get()); }},
    {"ICoordinateArea::IsInsideMapEdges", TOLD, IsInside<&ICoordinateArea::IsInsideMapEdges>},
    {"ICoordinateArea::IsInsideTransferred", TOLD, IsInside<&ICoordinateArea::IsInsideTransferred>},
    {"ICoordinateArea::IsInsideOnMap", TOLD, IsInside<&ICoordinateArea::IsInsideOnMap>},
    {"ICoordinateArea::IsInsidePixels", TOLD,
     [](Scene& s) { return s.area->IsInsidePixels(s.inSquare.Get(), s.square.Get()); }},
    {"ICoordinateArea::SetTolerance", NEVER, [](Scene& s) { return s.area->SetTolerance(0.5); }},
    {"ICoordinateArea::GetTolerance", NEVER, [](Scene& s) { return s.area->GetTolerance() > 0.0; }},
    {"ICoordinateArea::OverlayOnMap", TOLD, Overlays<&ICoordinateArea::OverlayOnMap>},
    {"ICoordinateArea::Overlay", TOLD,
     [](Scene& s) {
         return s.area->Overlay(s.utmPolygon.Get(), s.moreUtmPolygon.Get(), s.list.Get(), s.list2.Get(),
                                s.list3.Get(), s.list4.Get()) == OVERLAY_CROSSING;
     }},
    {"ICoordinateArea::Overlay of pixels", TOLD,
     [](Scene& s) {
         return s.area->Overlay(s.square.Get(), s.moreSquare.Get(), s.list.Get(), s.list2.Get(),
                                s.list3.Get(), s.list4.Get()) == OVERLAY_CROSSING;
     }},
    {"ICoordinateArea::Overlay at the pole", TOLD,
     [](Scene& s) {
         return s.area->Overlay(s.polarPolygon.Get(), s.morePolarPolygon.Get(), s.list.Get(), s.list2.Get(),
                                s.list3.Get(), s.list4.Get()) == OVERLAY_CROSSING;
     }},
    {"ICoordinateArea::OverlayPixels", TOLD, Overlays<&ICoordinateArea::OverlayPixels>},
    {"ICoordinateArea::SplitPolygon", TOLD,
     [](Scene& s) { return s.area->SplitPolygon(s.map.Get(), s.bow.Get(), s.list.Get()); },
     "the room in which a stable sort merges"},

    {"ICoordinateAreaInternal::GetRectExtremes", TOLD,
     [](Scene& s) {
         const PixelRect rect{100, 100, 220, 180};
         return IRef<ICoordinateAreaInternal>(s.area)->GetRectExtremes(
             s.map.Get(), &rect, s.out.Get(), s.out2.Get(), s.out3.Get(), s.out4.Get());
     }},
    {"ICoordinateAreaInternal::GetRectExtremes over the end of the system", TOLD,
     [](Scene& s) {
         for (const auto* point : {&s.out, &s.out2, &s.out3, &s.out4})
             (*point)->SetReference(s.swissReference.Get());
         const PixelRect rect{-300, 200, 100, 400};
         return IRef<ICoordinateAreaInternal>(s.area)->GetRectExtremes(
             s.map.Get(), &rect, s.out.Get(), s.out2.Get(), s.out3.Get(), s.out4.Get());
     }},

    {"ICoordinateAverage::Average", NEVER,
     [](Scene& s) { return s.average->Average(s.utm.Get(), s.moreUtm.Get(), s.out.Get()); }},

    {"ICoordinateCompare::CompareNorthSouth", NEVER,
     [](Scene& s) { return s.compare->CompareNorthSouth(s.utm.Get(), s.moreUtm.Get()) == -1; }},
    {"ICoordinateCompare::CompareEastWest", NEVER,
     [](Scene& s) { return s.compare->CompareEastWest(s.utm.Get(), s.moreUtm.Get()) == -1; }},
    {"ICoordinateCompare::CompareEastWest of UTMREF", NEVER,
     [](Scene& s) { return s.compare->CompareEastWest(s.utmref.Get(), s.utmref.Get()) == 0; }},

    {"ICoordinateNeighbor::GetNorthNeighbor", NEVER, FindsNeighbor<&ICoordinateNeighbor::GetNorthNeighbor>},
    {"ICoordinateNeighbor::GetSouthNeighbor", NEVER, FindsNeighbor<&ICoordinateNeighbor::GetSouthNeighbor>},
    {"ICoordinateNeighbor::GetEastNeighbor", NEVER, FindsNeighbor<&ICoordinateNeighbor::GetEastNeighbor>},
    {"ICoordinateNeighbor::GetWestNeighbor", NEVER, FindsNeighbor<&ICoordinateNeighbor::GetWestNeighbor>},

    {"ICoordinateGrid::SetWindowFromPoints", TOLD,
     [](Scene& s) {
         return s.grid->SetWindowFromPoints(s.corner.Get(), s.otherCorner.Get(), s.corner.Get(),
                                            s.otherCorner.Get());
     }},
    {"ICoordinateGrid::SetWindowFromPoints over the date line", TOLD,
     [](Scene& s) {
         return s.gridAtDateLine->SetWindowFromPoints(s.corner.Get(), s.otherCorner.Get(), s.corner.Get(),
                                                      s.otherCorner.Get());
     }},
    {"ICoordinateGrid::SetWindow", TOLD,
     [](Scene& s) {
         return s.grid->SetWindow(s.degrees.Get(), s.moreDegrees.Get(), s.utm.Get(), s.moreUtm.Get());
     }},
    {"ICoordinateGrid::GetEastLines", TOLD, Draws<&ICoordinateGrid::GetEastLines>, nullptr, nullptr,
     OpenWindow},
    {"ICoordinateGrid::GetNorthLines", TOLD, Draws<&ICoordinateGrid::GetNorthLines>, nullptr, nullptr,
     OpenWindow},
    {"ICoordinateGrid::GetEastLinePixels", TOLD, Draws<&ICoordinateGrid::GetEastLinePixels>, nullptr, nullptr,
     OpenWindow},
    {"ICoordinateGrid::GetNorthLinePixels", TOLD, Draws<&ICoordinateGrid::GetNorthLinePixels>, nullptr,
     nullptr, OpenWindow},
    {"ICoordinateGrid::GetEastStep", NEVER, [](Scene& s) { return s.grid->GetEastStep() == 50000.0; }},
    {"ICoordinateGrid::GetNorthStep", NEVER, [](Scene& s) { return s.grid->GetNorthStep() == 50000.0; }},
    {"ICoordinateGrid::CopyMapTo", TOLD,
     [](Scene& s) { return s.gridOnTwoPoints->CopyMapTo(s.otherMap.Get()); }},
    {"ICoordinateGrid::GetReference", NEVER,
     [](Scene& s) { return s.grid->GetReference(s.referenceOut.Get()); }},

    {"ICoordinateGridFactory::CreateFloatPixelGrid", TOLD,
     MakesGrid<&ICoordinateGridFactory::CreateFloatPixelGrid>},
    {"ICoordinateGridFactory::CreateUtmGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateUtmGrid>},
    {"ICoordinateGridFactory::CreateUtmrefGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateUtmrefGrid>},
    {"ICoordinateGridFactory::CreateGeodezGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateGeodezGrid>},
    {"ICoordinateGridFactory::CreateGeodezminGrid", TOLD,
     MakesGrid<&ICoordinateGridFactory::CreateGeodezminGrid>},
    {"ICoordinateGridFactory::CreateGeogradGrid", TOLD,
     MakesGrid<&ICoordinateGridFactory::CreateGeogradGrid>},
    {"ICoordinateGridFactory::CreateGeorefGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateGeorefGrid>},
    {"ICoordinateGridFactory::CreateGkGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateGkGrid>},
    {"ICoordinateGridFactory::CreateBmnGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateBmnGrid>},
    {"ICoordinateGridFactory::CreateOemGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateOemGrid>},
    {"ICoordinateGridFactory::CreateChGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateChGrid>},
    {"ICoordinateGridFactory::CreateGk6Grid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateGk6Grid>},
    {"ICoordinateGridFactory::CreateGkAtGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateGkAtGrid>},
    {"ICoordinateGridFactory::CreateUpsGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateUpsGrid>},
    {"ICoordinateGridFactory::CreatePoMilitaryGrid", TOLD,
     MakesGrid<&ICoordinateGridFactory::CreatePoMilitaryGrid>},
    {"ICoordinateGridFactory::CreateTmGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateTmGrid>},
    {"ICoordinateGridFactory::CreateVdgGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateVdgGrid>},
    {"ICoordinateGridFactory::CreateBngGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateBngGrid>},
    {"ICoordinateGridFactory::CreateIngGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateIngGrid>},
    {"ICoordinateGridFactory::CreateRdGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateRdGrid>},
    {"ICoordinateGridFactory::CreateLurefGrid", TOLD, MakesGrid<&ICoordinateGridFactory::CreateLurefGrid>},
};

}  // namespace

OperationTable AreaOperations() {
    return AREA_OPERATIONS;
}

}  // namespace tessara::testing
