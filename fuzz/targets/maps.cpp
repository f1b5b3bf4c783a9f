// Conversions between pixels and positions of a map in both directions, as records and as objects.
#include <cstring>

#include "fuzz/draw.h"

namespace tessara::fuzz {
namespace {

void WorldOf(const MapParam& map, const tagKOORD& pixel, const tagKOORD& wanted) {
    tagKOORD first = wanted, second = wanted;
    const KoordStatus status = MapPixelToWorld(&map, &pixel, &first);
    Require(status <= KOORD_OK);
    Require(MapPixelToWorld(&map, &pixel, &second) == status);
    Require(std::memcmp(&first, &second, sizeof first) == 0);
    Require(first.datum == wanted.datum && first.type == wanted.type);
}

void PixelOf(const MapParam& map, const tagKOORD& world, const tagKOORD& wanted) {
    tagKOORD pixel = wanted;
    const KoordStatus status = MapWorldToPixel(&map, &world, &pixel);
    Require(status <= KOORD_OK);
    Require(pixel.datum == wanted.datum && pixel.type == wanted.type);
    if (status != KOORD_OK) Require(std::memcmp(&pixel, &wanted, sizeof pixel) == 0);
}

void Ask(ByteReader& bytes, const MapParam& record) {
    const IRef<IMapCoordOperations> map(CreateClassMapCoordOperations());
    IRef<IMapParamInternal>(map)->SetMapParam(&record);
    double x = 0.0, y = 0.0;
    std::int32_t column = 0, row = 0;
    const IRef<ICoord> coord = DrawCoord(bytes);
    const IRef<ICoord> other = DrawCoord(bytes);
    map->CoordToFloatPixel(coord.Get(), &x, &y);
    map->FloatPixelToCoord(x, y, other.Get());
    map->CoordToLongPixel(other.Get(), &column, &row);
    map->LongPixelToCoord(column, row, coord.Get());
    map->CoordToPixelCoord(coord.Get(), coord.Get());
    map->PixelCoordToCoord(coord.Get(), other.Get());
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara::fuzz;
    ByteReader bytes(data, size);
    const tessara::MapParam map = DrawMap(bytes);
    const std::int32_t datum = DrawDatum(bytes);
    const auto pixelType = static_cast<std::int32_t>(bytes.Below(3));
    const tessara::tagKOORD pixel = DrawRecord(bytes, datum, pixelType);
    const tessara::tagKOORD world = DrawRecord(bytes);
    WorldOf(map, pixel, world);
    PixelOf(map, world, pixel);
    Ask(bytes, map);
    return 0;
}
