#pragma once
// The number range parameter of a NUMBER option ("min:max", optionally with decimals) as the
// range dialog reads and writes it. The decimal point is always "." whatever the locale.

#include <optional>
#include <string>
#include <string_view>

namespace rd {

// What the range dialog shows when it opens on a parameter.
struct NumberRangeFields {
    std::string min;      // txtMin: the minimum when numeric, else "0"
    std::string max;      // txtmax: the maximum when numeric, else "0"
    std::string decimals; // txtDecimal: the characters after the first "." of the minimum
};
NumberRangeFields parseNumberRange(std::string_view parameter);

// `value` rounded to `decimals` places and written with at least one digit before the point
// and exactly `decimals` digits after it (halves away from zero, on the decimal digits).
std::string formatFixed(double value, int decimals);

// The parameter the dialog writes on OK, or nothing when the field stays unchanged (minimum or
// maximum not numeric). Decimal places above 30 are taken as 30.
std::optional<std::string> formatNumberRange(std::string_view min, std::string_view max,
                                             std::string_view decimals);

} // namespace rd
