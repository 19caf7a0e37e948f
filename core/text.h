#pragma once
// Byte strings in the launcher's code page (Windows-1252) and the case rules on them.
// The data layer keeps every line as the bytes stored in the file; conversion to UTF-8
// happens only at the edges (screens, command-line JSON).

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace rd {

// Upper case of one byte in Windows-1252: ASCII letters, the accented letters 0xE0-0xFE
// (not 0xF7), and the pairs s/S caron, oe/OE, z/Z caron, y/Y diaeresis.
char upperByteSlow(char c);
namespace detail {
struct UpperTable {
    char map[256];
    UpperTable() {
        for (int i = 0; i < 256; ++i)
            map[i] = upperByteSlow(static_cast<char>(i));
    }
};
inline const UpperTable upperTable;
} // namespace detail
inline char upperByte(char c) {
    return detail::upperTable.map[static_cast<unsigned char>(c)];
}
std::string upperCase(std::string_view s);
std::string lowerCase(std::string_view s);

bool equalsNoCase(std::string_view a, std::string_view b);
// Position of the first occurrence of needle in haystack at or after `from`, comparing
// without regard to case; std::string::npos when there is none.
std::size_t findNoCase(std::string_view haystack, std::string_view needle, std::size_t from = 0);
bool containsNoCase(std::string_view haystack, std::string_view needle);
// Ordering used for directory listings: without regard to case, ties by byte order.
bool lessNoCase(std::string_view a, std::string_view b);

// Names looked up without regard to case, each upper-cased once.
class NoCaseNames {
public:
    NoCaseNames() = default;
    explicit NoCaseNames(const std::vector<std::string>& names);
    bool contains(std::string_view name) const;

private:
    std::unordered_set<std::string> upper_;
};

// Removes blanks (spaces only, as the launcher's files mean it) at both ends / one end.
std::string trim(std::string_view s);
std::string trimLeft(std::string_view s);
std::string trimRight(std::string_view s);

// Windows-1252 bytes <-> UTF-8. Every byte maps to one code point (the five unassigned bytes
// to the C1 controls of the same value), so bytes -> UTF-8 -> bytes is the identity.
std::string cp1252ToUtf8(std::string_view bytes);
// Code points that Windows-1252 cannot hold become '?'. Invalid UTF-8 bytes are taken as
// Latin-1 bytes so nothing is lost silently.
std::string utf8ToCp1252(std::string_view utf8);

} // namespace rd
