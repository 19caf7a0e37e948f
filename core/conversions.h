#pragma once
// Number conversions as the launcher's files use them.

#include <cstdint>
#include <string>
#include <string_view>

namespace rd {

// After removing blanks at both ends: an optional sign, digits with at most one '.', at least
// one digit, optionally an exponent (e/E, optional sign, digits).
bool isNumeric(std::string_view text);

// The value of the leading number: the longest numeric prefix after leading blanks, 0 if none.
double leadingValue(std::string_view text);

// Numeric text rounded to the nearest integer, halves to even. A text that is not numeric
// raises ConversionError("Type mismatch"); a value out of range raises ConversionError("Overflow").
std::int16_t toInt16(std::string_view text);
std::int32_t toInt32(std::string_view text);
std::uint8_t toByte(std::string_view text);

// Rounds a value to the nearest integer, halves to even.
double roundHalfEven(double value);

// Numeric print form: a blank or '-' in the sign's place, the digits, one trailing blank.
// 0 -> " 0 ", -1 -> "-1 ".
std::string numericPrintForm(long long value);

// Flags read back as off only for "0" or "FALSE" (any case) after trimming blanks.
bool flagFromText(std::string_view text);

} // namespace rd
