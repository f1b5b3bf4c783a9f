// Overlays two polygons on a screen: how they are related, and the parts into which they cut each other.
#include <cmath>
#include <initializer_list>
#include <iostream>

#include "tessara/tessara.h"

namespace {

struct Pixel {
    double column, row;
};

tessara::IRef<tessara::IArray> Polygon(std::initializer_list<Pixel> corners) {
    tessara::IRef polygon = tessara::CreateClassArray();
    for (const Pixel& corner : corners) {
        const tessara::IRef coord = tessara::CreateClassCoord();
        coord->SetPixel(corner.column, corner.row);
        polygon->Add(coord);
    }
    return polygon;
}

// The area of a part. Its last vertex equals its first.
double AreaOf(tessara::IArray* part) {
    double twice = 0.0;
    for (std::uint32_t i = 0; i + 1 < part->GetCount(); ++i) {
        Pixel a{}, b{};
        tessara::IRef<tessara::ICoord>(part->GetAt(i))->GetPixel(&a.column, &a.row);
        tessara::IRef<tessara::ICoord>(part->GetAt(i + 1))->GetPixel(&b.column, &b.row);
        twice += a.column * b.row - b.column * a.row;
    }
    return std::abs(twice) / 2.0;
}

void WriteParts(const char* where, tessara::IArray* parts) {
    double area = 0.0;
    for (std::uint32_t i = 0; i < parts->GetCount(); ++i)
        area += AreaOf(tessara::IRef<tessara::IArray>(parts->GetAt(i)).Get());
    std::cout << where << ": " << parts->GetCount() << ", " << area << " pixels\n";
}

}  // namespace

int main() {
    // A bay that is open to the top, and a bar across its mouth.
    const tessara::IRef<tessara::IArray> bay =
        Polygon({{0, 0}, {100, 0}, {100, 300}, {300, 300}, {300, 0}, {400, 0}, {400, 400}, {0, 400}});
    const tessara::IRef<tessara::IArray> bar = Polygon({{50, 100}, {350, 100}, {350, 150}, {50, 150}});

    const tessara::IRef areas = tessara::CreateClassCoordinateArea();
    const tessara::IRef<tessara::IArray> neither(tessara::CreateClassArray()),
        onlyBar(tessara::CreateClassArray());
    const tessara::IRef<tessara::IArray> onlyBay(tessara::CreateClassArray()),
        both(tessara::CreateClassArray());
    const std::int32_t lie = areas->Overlay(bay, bar, neither, onlyBar, onlyBay, both);
    if (lie != tessara::OVERLAY_CROSSING) return 1;
    WriteParts("enclosed by the two", neither);
    WriteParts("only bar", onlyBar);
    WriteParts("only bay", onlyBay);
    WriteParts("both", both);
}
