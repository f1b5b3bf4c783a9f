// Reads one or two typed texts as a position of any system, named or not, and describes the result.
#include <string>
#include <string_view>

#include "fuzz/byte_reader.h"
#include "tessara/kernel/constants.h"
#include "typed/typed_reader.h"

namespace tessara::fuzz {
namespace {

using toolkit::TypedResult;

// Pieces of positions, because random bytes are rarely a position.
std::string DrawTyped(ByteReader& bytes) {
    static constexpr const char* PIECES[] = {"48",
                                             "11.5755",
                                             "691602",
                                             "5334791",
                                             "32",
                                             "U",
                                             "N",
                                             "S",
                                             "E",
                                             "W",
                                             "916",
                                             "-",
                                             "+",
                                             ",",
                                             ";",
                                             "\t",
                                             " ",
                                             "\u00b0",
                                             "'",
                                             "\"",
                                             "\u2033",
                                             "d",
                                             "deg",
                                             "TQ",
                                             "NKMD",
                                             "IO",
                                             "PU",
                                             ".",
                                             "\u2212",
                                             "e-07",
                                             "0",
                                             "34500825",
                                             "9160234791",
                                             "600000",
                                             "1234567890123456789",
                                             "60",
                                             "59.9999999999",
                                             "\u00a0",
                                             "\xb0",
                                             "\xff"};
    if (bytes.Below(4) == 0) return bytes.Text(80);
    std::string text;
    for (std::uint32_t count = bytes.Below(14); count > 0; --count) {
        text += bytes.OneOf(PIECES);
        if (bytes.Below(2) == 0) text += ' ';
    }
    return text;
}

void RequireWithin(const toolkit::Piece& piece, std::string_view first, std::string_view second) {
    Require(piece.text < 2 && piece.begin <= piece.end);
    Require(piece.end <= (piece.text == 0 ? first : second).size());
}

void Look(const TypedResult& result, std::string_view first, std::string_view second) {
    for (const toolkit::Reading& reading : result.readings) {
        Require(reading.reference.system >= 0 && reading.reference.system < KOORD_TYPE_COUNT);
        Require(reading.northResolution > 0.0 && reading.eastResolution > 0.0);
        Require(!Describe(reading).empty() && !PictureOf(reading).empty());
    }
    Require(result.IsRead() != result.fault.IsThere());
    RequireWithin(result.fault.piece, first, second);
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara;
    using namespace tessara::fuzz;
    ByteReader bytes(data, size);
    const std::int32_t system = static_cast<std::int32_t>(bytes.Below(KOORD_TYPE_COUNT)) - 1;
    const std::int32_t datum =
        bytes.Below(2) == 0 ? DATUM_WGS84 : static_cast<std::int32_t>(bytes.Below(DATUM_COUNT));
    static constexpr toolkit::Order ORDERS[] = {toolkit::Order::Unknown, toolkit::Order::EastFirst,
                                                toolkit::Order::NorthFirst};
    const toolkit::TypedReader reader({{.datum = datum, .system = system}, bytes.OneOf(ORDERS)});
    const std::string first = DrawTyped(bytes);
    const std::string second = bytes.Below(8) == 0 ? first : DrawTyped(bytes);
    Look(reader.Read(first), first, {});
    Look(reader.Read(first, second), first, second);
    // The reader never skips a character that no position contains.
    Require(!reader.Read(first + '#').IsRead());
    Require(!reader.Read(first, second + '#').IsRead());
    return 0;
}
