// What JavaScript does for the module: it knows the closest double of a decimal and the shortest decimal of a
// double, for which the module would need tables of powers of ten.
#pragma once

#include <cstddef>

#if defined(__wasm__)
#define TESSARA_IMPORT(name) __attribute__((import_module("tessara"), import_name(#name)))
#else
#define TESSARA_IMPORT(name)
#endif

extern "C" {

// The double closest to a text of digits, with a point and an exponent or without; 0 or infinity out of
// range.
TESSARA_IMPORT(readNumber) double tessara_read_number(const char* first, std::size_t size);

// Write a finite number that isn't negative, and return the size of the text. Nothing is written of a text
// that is longer than there is room.

// The fewest digits that are read as the same double, and of those the closest to it: 1.25e+2.
TESSARA_IMPORT(writeScientific)
std::size_t tessara_write_scientific(double value, char* text, std::size_t room);

// The exact value, rounded to so many decimals; half to even.
TESSARA_IMPORT(writeFixed)
std::size_t tessara_write_fixed(double value, int decimals, char* text, std::size_t room);
}
