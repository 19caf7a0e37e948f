#include "core/conversions.h"

#include "core/errors.h"
#include "core/text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace rd {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Length of the numeric prefix of s (0 when there is none).
std::size_t numericPrefix(std::string_view s) {
    std::size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-'))
        ++i;
    std::size_t digits = 0;
    bool point = false;
    while (i < s.size() && (isDigit(s[i]) || (s[i] == '.' && !point))) {
        if (s[i] == '.')
            point = true;
        else
            ++digits;
        ++i;
    }
    if (digits == 0)
        return 0;
    // A trailing lone '.' is part of the number ("5." is 5).
    std::size_t end = i;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
        std::size_t j = i + 1;
        if (j < s.size() && (s[j] == '+' || s[j] == '-'))
            ++j;
        std::size_t expDigits = 0;
        while (j < s.size() && isDigit(s[j])) {
            ++j;
            ++expDigits;
        }
        if (expDigits > 0)
            end = j;
    }
    return end;
}

double parsePrefix(std::string_view s, std::size_t len) {
    std::string_view num = s.substr(0, len);
    if (!num.empty() && num[0] == '+')
        num.remove_prefix(1);
    double value = 0;
    // from_chars does not depend on the process locale, so "1.5" means 1.5 everywhere.
    const auto result = std::from_chars(num.data(), num.data() + num.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return (!num.empty() && num[0] == '-') ? -std::numeric_limits<double>::infinity()
                                               : std::numeric_limits<double>::infinity();
    return value;
}

double numericValue(std::string_view text) {
    const std::string t = trim(text);
    if (!isNumeric(t))
        throw ConversionError("Type mismatch");
    return parsePrefix(t, t.size());
}

template <typename T> T toInteger(std::string_view text) {
    const double rounded = roundHalfEven(numericValue(text));
    if (!(rounded >= static_cast<double>(std::numeric_limits<T>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<T>::max())))
        throw ConversionError("Overflow");
    return static_cast<T>(rounded);
}

} // namespace

bool isNumeric(std::string_view text) {
    const std::string t = trim(text);
    return !t.empty() && numericPrefix(t) == t.size();
}

double leadingValue(std::string_view text) {
    const std::string t = trimLeft(text);
    const std::size_t len = numericPrefix(t);
    return len == 0 ? 0.0 : parsePrefix(t, len);
}

double roundHalfEven(double value) {
    if (!std::isfinite(value))
        return value;
    const double floorValue = std::floor(value);
    const double diff = value - floorValue;
    if (diff > 0.5)
        return floorValue + 1;
    if (diff < 0.5)
        return floorValue;
    return std::fmod(floorValue, 2.0) == 0 ? floorValue : floorValue + 1;
}

std::int16_t toInt16(std::string_view text) {
    return toInteger<std::int16_t>(text);
}
std::int32_t toInt32(std::string_view text) {
    return toInteger<std::int32_t>(text);
}
std::uint8_t toByte(std::string_view text) {
    return toInteger<std::uint8_t>(text);
}

std::string numericPrintForm(long long value) {
    std::string digits = std::to_string(value);
    if (value < 0)
        return digits + " ";
    return " " + digits + " ";
}

bool flagFromText(std::string_view text) {
    const std::string t = trim(text);
    return !(t == "0" || equalsNoCase(t, "FALSE"));
}

} // namespace rd
