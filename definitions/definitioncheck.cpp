#include "definitions/definitioncheck.h"

#include "core/conversions.h"
#include "core/errors.h"
#include "core/text.h"
#include "core/workspace.h"
#include "definitions/lists.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <unordered_map>
#include <utility>

namespace rd {

namespace fs = std::filesystem;

namespace {

// The option types that name a list file in their parameter: WEAPON, TEXT LIST, VALUE LIST.
bool namesListFile(int type) {
    return type == 5 || type == 6 || type == 7;
}
constexpr int kNumberType = 3;
constexpr int kEnableType = 9;

// The type index of an option, or nothing when it is not one of 0 to 11.
std::optional<int> typeIndex(const std::string& text) {
    try {
        const int value = toInt16(text);
        if (value >= 0 && value < static_cast<int>(kOptionTypeCount))
            return value;
    } catch (const ConversionError&) {
    }
    return std::nullopt;
}

bool isWholeNumber(const std::string& text) {
    if (!isNumeric(text))
        return false;
    const double value = leadingValue(text);
    return value == std::floor(value) && value >= std::numeric_limits<std::int32_t>::min() &&
           value <= std::numeric_limits<std::int32_t>::max();
}

} // namespace

ListFolder::ListFolder(fs::path folder) : folder_(std::move(folder)) {
    for (const auto& name : listFiles(folder_, "*.*"))
        files_.insert(upperCase(name));
}

bool ListFolder::holds(std::string_view name) const {
    if (name.find_first_of("\\/") != std::string_view::npos)
        return fileExists(resolvePath(folder_, name));
    return files_.contains(upperCase(name));
}

std::optional<OptionFile> loadOptionFile(const fs::path& path, Findings& out) {
    if (!fileExists(path))
        return std::nullopt;
    OptionFile file{path, {}, {}};
    try {
        file.rows = readDefinitionFile(path, &file.places);
    } catch (const std::exception& e) {
        out.push_back(
            {Severity::Error, path, std::nullopt, std::string("the file cannot be read: ") + e.what()});
        return std::nullopt;
    }
    return file;
}

std::vector<std::string> categoryNames(const std::vector<OptionFile>& files) {
    std::vector<std::string> names;
    for (const auto& file : files)
        for (const auto& row : file.rows)
            if (row.isCategory)
                names.push_back(row.name);
    return names;
}

void checkOptionFile(const OptionFile& file, const ListFolder* lists, const std::string& listFolderName,
                     const std::vector<std::string>& categories, Findings& out) {
    const fs::path& path = file.path;
    std::unordered_map<std::string, std::size_t> keys; // upper-cased key -> row
    for (std::size_t i = 0; i < file.rows.size(); ++i) {
        const OptionRow& row = file.rows[i];
        if (row.isCategory)
            continue;
        const std::size_t first = file.places[i].line;
        // Messages name the option; the name is quoted only when there is something to say.
        const auto option = [&row] { return "the option " + inQuotes(row.name); };
        if (file.places[i].tabs < 0) {
            out.push_back({Severity::Error, path, first,
                           "the file ends inside " + option() +
                               ": it needs three lines (name, type, then key, "
                               "parameter, syntax, where and help text)"});
            continue;
        }
        if (file.places[i].tabs < 5)
            out.push_back(
                {Severity::Error, path, first + 2,
                 "the third line of " + option() + " holds " + std::to_string(file.places[i].tabs) +
                     " TABs, not the five between key, parameter, checked, unchecked, where and help "
                     "text; the fields after the last TAB are empty"});

        if (row.key.empty()) {
            out.push_back({Severity::Error, path, first + 2, option() + " has no key"});
        } else {
            const auto [clash, added] = keys.emplace(upperCase(row.key), i);
            if (!added) {
                const OptionRow& other = file.rows[clash->second];
                out.push_back({Severity::Error, path, first + 2,
                               "the key " + inQuotes(row.key) + " of " + option() + " is also the key " +
                                   inQuotes(other.key) + " of the option " + inQuotes(other.name) +
                                   " (line " + std::to_string(file.places[clash->second].line) +
                                   "); keys must differ without regard to case"});
            }
        }

        const std::optional<int> type = typeIndex(row.type);
        if (!type) {
            out.push_back(
                {Severity::Error, path, first + 1,
                 "the type of " + option() + " is " + inQuotes(row.type) + ", not one of the types 0 to 11"});
        } else if (*type == kNumberType) {
            if (!NormaliseNumberRange(row.parameter).accepted)
                out.push_back({Severity::Error, path, first + 2,
                               "the range " + inQuotes(row.parameter) + " of the NUMBER " +
                                   option().substr(4) +
                                   " is not min:max with two numbers; the option editor refuses it"});
        } else if (namesListFile(*type) && lists) {
            if (row.parameter.empty())
                out.push_back({Severity::Error, path, first + 2, option() + " names no list file"});
            else if (!lists->holds(row.parameter))
                out.push_back({Severity::Error, path, first + 2,
                               "the list file " + inQuotes(row.parameter) + " of " + option() +
                                   " is not in " + listFolderName});
        } else if (*type == kEnableType) {
            for (const auto& named : {std::pair{&row.checked, "enables"}, {&row.unchecked, "disables"}}) {
                const std::string& name = *named.first;
                if (name.empty())
                    continue;
                if (std::none_of(categories.begin(), categories.end(), [&name](const std::string& category) {
                        return equalsNoCase(category, name);
                    }))
                    out.push_back({Severity::Error, path, first + 2,
                                   option() + " " + named.second + " the category " + inQuotes(name) +
                                       ", which none of the definition files of its game and bots holds"});
            }
        }

        // With fewer than four TABs the Where is missing, which the TAB finding says.
        if (file.places[i].tabs >= 4 && row.where != "0" && row.where != "1" && row.where != "2")
            out.push_back(
                {Severity::Error, path, first + 2,
                 "the Where of " + option() + " is " + inQuotes(row.where) +
                     ", not 0 (command line), 1 (console before the map change) or 2 (console after "
                     "it)"});
    }
}

void checkFlagFile(const fs::path& path, Findings& out) {
    if (!fileExists(path))
        return;
    std::vector<RowPlace> places;
    std::vector<FlagRow> rows;
    try {
        rows = readFlagFile(path, &places);
    } catch (const std::exception& e) {
        out.push_back(
            {Severity::Error, path, std::nullopt, std::string("the file cannot be read: ") + e.what()});
        return;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const FlagRow& row = rows[i];
        if (row.isCategory)
            continue;
        const auto flag = [&row] { return "the flag " + inQuotes(row.name); };
        const std::size_t third = places[i].line + 2;
        if (places[i].tabs < 0) {
            out.push_back({Severity::Error, path, places[i].line,
                           "the file ends inside " + flag() +
                               ": it needs three lines (name, an empty line, then "
                               "bitmap, checked, unchecked and help)"});
            continue;
        }
        bool whole = true;
        for (const auto& [value, which] :
             {std::pair{&row.checked, "checked"}, {&row.unchecked, "unchecked"}}) {
            if (isWholeNumber(*value))
                continue;
            whole = false;
            out.push_back({Severity::Error, path, third,
                           std::string("the ") + which + " value " + inQuotes(*value) + " of " + flag() +
                               " is not a whole number"});
        }
        if (!whole)
            continue;
        const bool checkedZero = leadingValue(row.checked) == 0;
        const bool uncheckedZero = leadingValue(row.unchecked) == 0;
        if (checkedZero && uncheckedZero)
            out.push_back({Severity::Error, path, third,
                           "the checked and unchecked values of " + flag() +
                               " are both zero, so the flag changes nothing; exactly one must be zero"});
        else if (!checkedZero && !uncheckedZero)
            out.push_back({Severity::Error, path, third,
                           "the checked and unchecked values of " + flag() +
                               " are both non-zero; exactly one must be zero"});
    }
}

void checkListFile(const fs::path& path, Findings& out) {
    std::vector<std::string> lines;
    try {
        lines = readAllLines(path);
    } catch (const std::exception& e) {
        out.push_back(
            {Severity::Error, path, std::nullopt, std::string("the file cannot be read: ") + e.what()});
        return;
    }
    if (isValueListName(nameOf(path)) && lines.size() % 2 == 1)
        out.push_back({Severity::Warning, path, lines.size(),
                       "the last item " + inQuotes(lines.back()) +
                           " has no value line, so the launcher takes its text as its value"});
}

} // namespace rd
