#include "core/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace rd {

namespace {

// Unicode code points of bytes 0x80-0x9F in Windows-1252; unassigned bytes keep their value.
constexpr std::array<char32_t, 32> kHigh = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                            0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t toCodePoint(unsigned char b) {
    if (b >= 0x80 && b <= 0x9F)
        return kHigh[b - 0x80];
    return b;
}

void appendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

unsigned char fromCodePoint(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF))
        return static_cast<unsigned char>(cp);
    for (std::size_t i = 0; i < kHigh.size(); ++i)
        if (kHigh[i] == cp)
            return static_cast<unsigned char>(0x80 + i);
    return '?';
}

} // namespace

char upperByteSlow(char c) {
    const auto b = static_cast<unsigned char>(c);
    if (b >= 'a' && b <= 'z')
        return static_cast<char>(b - 32);
    if (b >= 0xE0 && b <= 0xFE && b != 0xF7)
        return static_cast<char>(b - 32);
    switch (b) {
    case 0x9A:
        return static_cast<char>(0x8A); // s caron
    case 0x9C:
        return static_cast<char>(0x8C); // oe
    case 0x9E:
        return static_cast<char>(0x8E); // z caron
    case 0xFF:
        return static_cast<char>(0x9F); // y diaeresis
    default:
        return c;
    }
}

static char lowerByte(char c) {
    const auto b = static_cast<unsigned char>(c);
    if (b >= 'A' && b <= 'Z')
        return static_cast<char>(b + 32);
    if (b >= 0xC0 && b <= 0xDE && b != 0xD7)
        return static_cast<char>(b + 32);
    switch (b) {
    case 0x8A:
        return static_cast<char>(0x9A);
    case 0x8C:
        return static_cast<char>(0x9C);
    case 0x8E:
        return static_cast<char>(0x9E);
    case 0x9F:
        return static_cast<char>(0xFF);
    default:
        return c;
    }
}

std::string upperCase(std::string_view s) {
    std::string out(s);
    std::transform(out.begin(), out.end(), out.begin(), upperByte);
    return out;
}

std::string lowerCase(std::string_view s) {
    std::string out(s);
    std::transform(out.begin(), out.end(), out.begin(), lowerByte);
    return out;
}

NoCaseNames::NoCaseNames(const std::vector<std::string>& names) {
    upper_.reserve(names.size());
    for (const auto& name : names)
        upper_.insert(upperCase(name));
}

bool NoCaseNames::contains(std::string_view name) const {
    return upper_.count(upperCase(name)) != 0;
}

bool equalsNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (upperByte(a[i]) != upperByte(b[i]))
            return false;
    return true;
}

std::size_t findNoCase(std::string_view haystack, std::string_view needle, std::size_t from) {
    if (from > haystack.size())
        return std::string::npos;
    if (needle.empty())
        return from;
    if (needle.size() > haystack.size())
        return std::string::npos;
    for (std::size_t i = from; i + needle.size() <= haystack.size(); ++i) {
        std::size_t j = 0;
        while (j < needle.size() && upperByte(haystack[i + j]) == upperByte(needle[j]))
            ++j;
        if (j == needle.size())
            return i;
    }
    return std::string::npos;
}

bool containsNoCase(std::string_view haystack, std::string_view needle) {
    return findNoCase(haystack, needle) != std::string::npos;
}

bool lessNoCase(std::string_view a, std::string_view b) {
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        const auto x = static_cast<unsigned char>(upperByte(a[i]));
        const auto y = static_cast<unsigned char>(upperByte(b[i]));
        if (x != y)
            return x < y;
    }
    if (a.size() != b.size())
        return a.size() < b.size();
    return a < b;
}

std::string trimLeft(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size() && s[i] == ' ')
        ++i;
    return std::string(s.substr(i));
}

std::string trimRight(std::string_view s) {
    std::size_t n = s.size();
    while (n > 0 && s[n - 1] == ' ')
        --n;
    return std::string(s.substr(0, n));
}

std::string trim(std::string_view s) {
    return trimLeft(trimRight(s));
}

namespace {
bool isAscii(std::string_view s) {
    for (char c : s)
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    return true;
}
} // namespace

std::string cp1252ToUtf8(std::string_view bytes) {
    if (isAscii(bytes))
        return std::string(bytes);
    std::string out;
    out.reserve(bytes.size());
    for (char c : bytes)
        appendUtf8(out, toCodePoint(static_cast<unsigned char>(c)));
    return out;
}

std::string utf8ToCp1252(std::string_view utf8) {
    if (isAscii(utf8))
        return std::string(utf8);
    std::string out;
    out.reserve(utf8.size());
    std::size_t i = 0;
    while (i < utf8.size()) {
        const auto b = static_cast<unsigned char>(utf8[i]);
        char32_t cp = 0;
        std::size_t len = 0;
        if (b < 0x80) {
            cp = b;
            len = 1;
        } else if ((b & 0xE0) == 0xC0) {
            cp = b & 0x1F;
            len = 2;
        } else if ((b & 0xF0) == 0xE0) {
            cp = b & 0x0F;
            len = 3;
        } else if ((b & 0xF8) == 0xF0) {
            cp = b & 0x07;
            len = 4;
        }
        bool valid = len > 0 && i + len <= utf8.size();
        for (std::size_t k = 1; valid && k < len; ++k) {
            const auto cont = static_cast<unsigned char>(utf8[i + k]);
            if ((cont & 0xC0) != 0x80)
                valid = false;
            else
                cp = (cp << 6) | (cont & 0x3F);
        }
        if (!valid) {
            out += static_cast<char>(b);
            ++i;
            continue;
        }
        out += static_cast<char>(fromCodePoint(cp));
        i += len;
    }
    return out;
}

} // namespace rd
