#pragma once
// Replacing every occurrence of a text inside another, the way the editors rewrite their
// fields (line breaks, markers, names inside lists).

#include <string>
#include <string_view>

namespace rd {

// Replaces every occurrence of `find` in `source` with `replacement` and returns the outcome.
// - An empty source or an empty search text gives the source back unchanged.
// - A replacement that equals or contains the search text (compared the same way as the search
//   itself) is never attempted: the source comes back unchanged.
// - Otherwise every search starts again at the beginning of the text rebuilt so far, so an
//   occurrence formed by a replacement together with its neighbours is replaced too.
// caseSensitive: byte-for-byte comparison; otherwise without regard to case (code-page rules).
// A pair that would make the text grow without end raises RosterError("Out of string space")
// once the text passes 16 MiB.
std::string ReplaceAll(std::string_view source, std::string_view find, std::string_view replacement,
                       bool caseSensitive);

} // namespace rd
