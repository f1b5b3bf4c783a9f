// Two outlines on a screen: how they lie to each other, and into what they cut each other.
#include <cmath>
#include <initializer_list>
#include <iostream>

#include "tessara/tessara.h"

using namespace tessara;

namespace {

struct Pixel {
    double column, row;
};

IRef<IArray> Polygon(std::initializer_list<Pixel> corners) {
    IRef<IArray> polygon(CreateClassArray());
    for (const Pixel& corner : corners) {
        const IRef<ICoord> coord(CreateClassCoord());
        coord->SetPixel(corner.column, corner.row);
        polygon->Add(coord.Get());
    }
    return polygon;
}

// The area of a part, whose last corner is its first.
double AreaOf(IArray* part) {
    double twice = 0.0;
    for (std::uint32_t i = 0; i + 1 < part->GetCount(); ++i) {
        Pixel a{}, b{};
        IRef<ICoord>(part->GetAt(i))->GetPixel(&a.column, &a.row);
        IRef<ICoord>(part->GetAt(i + 1))->GetPixel(&b.column, &b.row);
        twice += a.column * b.row - b.column * a.row;
    }
    return std::abs(twice) / 2.0;
}

void WriteParts(const char* where, IArray* parts) {
    double area = 0.0;
    for (std::uint32_t i = 0; i < parts->GetCount(); ++i)
        area += AreaOf(IRef<IArray>(parts->GetAt(i)).Get());
    std::cout << where << ": " << parts->GetCount() << ", " << area << " pixels\n";
}

}  // namespace

int main() {
    // A bay that is open to the top, and a bar across its mouth.
    const IRef<IArray> bay =
        Polygon({{0, 0}, {100, 0}, {100, 300}, {300, 300}, {300, 0}, {400, 0}, {400, 400}, {0, 400}});
    const IRef<IArray> bar = Polygon({{50, 100}, {350, 100}, {350, 150}, {50, 150}});

    const IRef<ICoordinateArea> areas(CreateClassCoordinateArea());
    const IRef<IArray> neither(CreateClassArray()), onlyBar(CreateClassArray());
    const IRef<IArray> onlyBay(CreateClassArray()), both(CreateClassArray());
    const std::int32_t lie =
        areas->Overlay(bay.Get(), bar.Get(), neither.Get(), onlyBar.Get(), onlyBay.Get(), both.Get());
    if (lie != OVERLAY_CROSSING) return 1;
    WriteParts("enclosed by the two", neither.Get());
    WriteParts("only bar", onlyBar.Get());
    WriteParts("only bay", onlyBay.Get());
    WriteParts("both", both.Get());
}
