#pragma once
// The key lookup the launcher uses for key=value items inside free text (command lines).

#include <string>
#include <string_view>

namespace rd {

// The value of `key`= anywhere in `text` (key matched without regard to case, also inside a
// longer word). A value that begins with a double quote or an apostrophe runs to the next such
// character; any other value runs to the next blank. Appends "=" to the caller's `key`, so
// callers that need their key again pass a copy.
std::string KeyLookup(std::string_view text, std::string& key);

// Convenience form that leaves the caller's key alone.
inline std::string lookupKey(std::string_view text, std::string key) {
    return KeyLookup(text, key);
}

} // namespace rd
