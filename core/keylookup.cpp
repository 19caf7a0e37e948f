#include "core/keylookup.h"

#include "core/text.h"

namespace rd {

std::string KeyLookup(std::string_view text, std::string& key) {
    key += "=";
    const std::size_t found = findNoCase(text, key);
    if (found == std::string::npos)
        return {};
    const std::size_t start = found + key.size(); // just after the "="
    if (start >= text.size())
        return {};
    char delimiter = ' ';
    if (text[start] == '"' || text[start] == '\'')
        delimiter = text[start];
    std::size_t end = text.find(delimiter, start + 1);
    if (end == std::string::npos)
        end = text.size() - 1;
    std::string value = trim(text.substr(start, end - start + 1));
    while (!value.empty() && value.back() == delimiter)
        value.pop_back();
    while (!value.empty() && value.front() == delimiter)
        value.erase(0, 1);
    return value;
}

} // namespace rd
