#include "core/replaceall.h"

#include "core/text.h"

namespace rd {

namespace {

std::size_t findIn(std::string_view text, std::string_view find, std::size_t from, bool caseSensitive) {
    return caseSensitive ? text.find(find, from) : findNoCase(text, find, from);
}

} // namespace

std::string ReplaceAll(std::string_view source, std::string_view find, std::string_view replacement,
                       bool caseSensitive) {
    std::string text(source);
    if (source.empty() || find.empty())
        return text;
    if (findIn(replacement, find, 0, caseSensitive) != std::string_view::npos)
        return text;

    // Each search conceptually starts at the beginning of the rebuilt text. The part in front of
    // the last occurrence is unchanged and held no occurrence, so an occurrence can only start
    // where it would overlap the replacement: searching from there finds the same first one.
    std::size_t from = 0;
    for (;;) {
        const std::size_t at = findIn(text, find, from, caseSensitive);
        if (at == std::string::npos)
            break;
        text.replace(at, find.size(), replacement);
        from = at + 1 >= find.size() ? at + 1 - find.size() : 0;
    }
    return text;
}

} // namespace rd
