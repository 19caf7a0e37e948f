#include "definitions/numberrange.h"

#include "core/conversions.h"
#include "core/text.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace rd {

NumberRangeFields parseNumberRange(std::string_view parameter) {
    std::string min, max;
    const std::size_t colon = parameter.find(':');
    if (colon != std::string_view::npos && colon >= 1) {
        min = trim(parameter.substr(0, colon));
        max = trim(parameter.substr(colon + 1));
    }
    NumberRangeFields fields;
    fields.min = isNumeric(min) ? min : "0";
    fields.max = isNumeric(max) ? max : "0";
    const std::size_t point = min.find('.');
    fields.decimals = std::to_string(point == std::string::npos ? 0 : min.size() - point - 1);
    return fields;
}

namespace {

// Adds one unit in the last place of a string of decimal digits; returns the carry.
bool incrementDigits(std::string& digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] == '9') {
            digits[i] = '0';
        } else {
            ++digits[i];
            return false;
        }
    }
    return true;
}

} // namespace

std::string formatFixed(double value, int decimals) {
    if (decimals < 0)
        decimals = 0;
    if (!std::isfinite(value))
        return "0";
    // The shortest decimal form that reads back as the value, then rounded on its digits.
    char buffer[512];
    const auto res = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    std::string text = res.ec == std::errc() ? std::string(buffer, res.ptr) : std::string("0");
    bool negative = false;
    if (!text.empty() && text.front() == '-') {
        negative = true;
        text.erase(0, 1);
    }
    const std::size_t point = text.find('.');
    std::string whole = point == std::string::npos ? text : text.substr(0, point);
    std::string fraction = point == std::string::npos ? std::string() : text.substr(point + 1);
    const auto places = static_cast<std::size_t>(decimals);
    bool roundUp = fraction.size() > places && fraction[places] >= '5';
    fraction.resize(places, '0');
    if (roundUp) {
        std::string digits = whole + fraction;
        if (incrementDigits(digits))
            digits.insert(digits.begin(), '1');
        whole = digits.substr(0, digits.size() - places);
        fraction = digits.substr(digits.size() - places);
    }
    if (whole.empty())
        whole = "0";
    const bool zero = whole.find_first_not_of('0') == std::string::npos &&
                      fraction.find_first_not_of('0') == std::string::npos;
    std::string out = (negative && !zero) ? "-" : "";
    out += whole;
    if (places > 0)
        out += "." + fraction;
    return out;
}

std::optional<std::string> formatNumberRange(std::string_view min, std::string_view max,
                                             std::string_view decimals) {
    int places = 0;
    if (isNumeric(decimals)) {
        const double d = std::trunc(leadingValue(trim(decimals)));
        places = d < 0 ? 0 : d > 30 ? 30 : static_cast<int>(d);
    }
    if (!isNumeric(min) || !isNumeric(max))
        return std::nullopt;
    double low = leadingValue(trim(min));
    double high = leadingValue(trim(max));
    if (high < low)
        std::swap(low, high);
    return formatFixed(low, places) + ":" + formatFixed(high, places);
}

} // namespace rd
