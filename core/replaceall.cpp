#include "core/replaceall.h"

#include "core/errors.h"
#include "core/text.h"

#include <algorithm>

namespace rd {

namespace {

bool sameBytes(std::string_view a, std::string_view b, bool caseSensitive) {
    return caseSensitive ? a == b : equalsNoCase(a, b);
}

// Some search and replacement pairs make the text grow with every round for ever (for example
// "ab" by "bbaa" in "aab"). Such a text is given up as too long instead of eating all memory.
constexpr std::size_t kLongestText = std::size_t{16} << 20;

} // namespace

std::string ReplaceAll(std::string_view source, std::string_view find, std::string_view replacement,
                       bool caseSensitive) {
    if (source.empty() || find.empty())
        return std::string(source);
    const bool refused = caseSensitive ? replacement.find(find) != std::string_view::npos
                                       : findNoCase(replacement, find) != std::string::npos;
    if (refused)
        return std::string(source);

    // Searching again from the beginning after every replacement finds the first occurrence that
    // ends earliest. The text in front of a replacement held no occurrence and is unchanged, so
    // only the last find.size() - 1 bytes before it can start a new one. The text is therefore
    // read once from left to right: `done` is settled, `ahead` holds what is still to be read in
    // reverse order (its back is the next byte), so putting a replacement in front of the rest
    // costs only the replacement's length.
    std::string done;
    std::string ahead(source.rbegin(), source.rend());
    done.reserve(source.size());
    const std::size_t n = find.size();
    while (!ahead.empty()) {
        done.push_back(ahead.back());
        ahead.pop_back();
        if (done.size() < n ||
            !sameBytes(std::string_view(done).substr(done.size() - n), find, caseSensitive))
            continue;
        done.resize(done.size() - n);
        if (done.size() + ahead.size() + replacement.size() > kLongestText)
            throw RosterError("Out of string space");
        ahead.append(replacement.rbegin(), replacement.rend());
        const std::size_t again = std::min(n - 1, done.size());
        for (std::size_t i = 0; i < again; ++i) {
            ahead.push_back(done.back());
            done.pop_back();
        }
    }
    return done;
}

} // namespace rd
