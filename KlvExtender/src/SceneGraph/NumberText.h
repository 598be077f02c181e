#pragma once

#include <cstdint>
#include <string_view>

/// Numbers in the scene graph's text form.
///
/// Integers are decimal, hexadecimal (`0x1f`) or octal (`017`), negative ones for the signed types only; a
/// fraction or a number beyond the type's range is refused. Real numbers are rounded to the nearest value of
/// the type, `nan`, `inf` and their negatives included; one that only infinity comes near is refused, one
/// that is too small gives 0.
template <class Number>
bool readNumber(std::string_view word, Number& number);

/// What is left of a number after it was printed and read again: Coin prints 8 digits of a float and 16 of a
/// double.
float asPrinted(float number);
double asPrinted(double number);
