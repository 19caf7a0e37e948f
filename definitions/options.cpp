#include "definitions/options.h"

#include "core/conversions.h"
#include "core/errors.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "games/gamelist.h"

#include <algorithm>

namespace rd {

namespace fs = std::filesystem;

const std::array<const char*, kOptionTypeCount> kOptionTypeCaptions = {
    "Yes or No Checkbox", "Tristate Checkbox", "Normal Text String", "Number",   "Model/Skin",
    "Weapon List",        "Text List",         "Value List",         "Filename", "Enable/Disable Categories",
    "Always Add",         "Folder name",
};

const std::array<const char*, kOptionTypeCount> kOptionTypeHelp = {
    "This gives the user a definite choice of yes or no.",
    "This gives the user three options - yes, no or 'don't care'.  If 'don't care' is selected then the "
    "option "
    "will be ignored by Tarnwick",
    "This gives the user a text box to type in with no set rules as to what they are allowed to type.",
    "This allows the user to either type in a number or use a scrollbar to select the number.  You must give "
    "minimum and maximum values separated by a colon (:).",
    "This brings up the model/skin requester and returns the model and skin in 'model/skin' format",
    "This functions exactly like the VALUE LIST.  The only difference is that a weapon icon is displayed in "
    "the "
    "list",
    "This brings up a list of text values.  The user can then select an item in the list and the actual text "
    "is "
    "returned.",
    "This brings up a list of text values.  The user can then select an item in the list which will return a "
    "number.",
    "This returns a filename from the disk.",
    "This gives a checkbox which will then enable and/or disable a category",
    "The syntax will always be added providing the category is enabled",
    "This returns a folder from disk.",
};

std::vector<std::string> SplitTabFields(std::string_view line, std::size_t count) {
    std::vector<std::string> fields(count);
    std::string_view rest = line;
    bool exhausted = false;
    for (std::size_t i = 0; i < count && !exhausted; ++i) {
        const std::size_t tab = rest.find('\t');
        if (tab == std::string_view::npos) {
            fields[i] = std::string(rest);
            exhausted = true;
        } else {
            fields[i] = std::string(rest.substr(0, tab));
            rest.remove_prefix(tab + 1);
        }
    }
    return fields;
}

std::string categoryName(std::string_view line) {
    std::string name(line);
    while (name.size() >= 2 && name.front() == '[')
        name.erase(0, 1);
    while (name.size() >= 2 && name.back() == ']')
        name.pop_back();
    return name;
}

std::vector<OptionRow> LoadDefinitions(const fs::path& path) {
    return readDefinitionFile(path, nullptr);
}

std::vector<OptionRow> readDefinitionFile(const fs::path& path, std::vector<RowPlace>* places) {
    std::vector<OptionRow> rows;
    if (places)
        places->clear();
    if (!fileExists(path))
        return rows;
    LineReader reader(resolvePath(path.parent_path(), nameOf(path)));
    std::size_t lineNumber = 0;
    // The next line, counting the lines that are really there.
    const auto next = [&](bool& present) {
        present = !reader.atEnd();
        if (present)
            ++lineNumber;
        return reader.readLine("");
    };
    bool present = false;
    while (!reader.atEnd()) {
        std::string line = next(present);
        RowPlace place{lineNumber, -1};
        if (line.empty() || line.front() != '[') {
            OptionRow row;
            row.name = std::move(line);
            row.type = next(present);
            const std::string third = next(present);
            if (present)
                place.tabs = static_cast<int>(std::count(third.begin(), third.end(), '\t'));
            const auto fields = SplitTabFields(third, 6);
            row.key = fields[0];
            row.parameter = fields[1];
            row.checked = fields[2];
            row.unchecked = fields[3];
            row.where = fields[4];
            row.helpText = fields[5];
            rows.push_back(std::move(row));
        } else {
            rows.push_back(OptionRow::category(categoryName(line)));
        }
        if (places)
            places->push_back(place);
    }
    return rows;
}

void SaveDefinitions(const fs::path& path, const std::vector<OptionRow>& rows) {
    LineWriter writer(resolvePath(path.parent_path(), nameOf(path)));
    for (const auto& row : rows) {
        if (row.isCategory) {
            writer.writeLine("[" + row.name + "]");
            continue;
        }
        writer.writeLine(row.name);
        writer.writeLine(row.type);
        writer.writeLine(row.key + '\t' + row.parameter + '\t' + row.checked + '\t' + row.unchecked + '\t' +
                         row.where + '\t' + row.helpText);
    }
    writer.close();
}

bool IsKeyUnique(const std::vector<OptionRow>& rows, std::string_view key,
                 std::optional<std::size_t> editing) {
    const std::string wanted = upperCase(key);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (editing && *editing == i)
            continue;
        if (upperCase(rows[i].key) == wanted)
            return false;
    }
    return true;
}

std::string MakeKey(const std::vector<OptionRow>& rows, std::string_view name,
                    std::optional<std::size_t> editing) {
    std::string base(name.empty() ? std::string_view("Opt") : name);
    std::erase_if(base, [](char c) { return c == '=' || c == ' '; });
    if (base.size() > 5) {
        for (std::size_t n = 5; n <= base.size(); ++n) {
            const std::string prefix = base.substr(0, n);
            if (IsKeyUnique(rows, prefix, editing)) {
                base = prefix;
                break;
            }
        }
    }
    std::string key = base;
    for (unsigned long long counter = 1; !IsKeyUnique(rows, key, editing); ++counter)
        key = base + std::to_string(counter);
    return key;
}

std::optional<std::string> optionNameRefusal(std::string_view name) {
    if (!name.empty() && name.front() == '[')
        return std::string(kOptionNameBracket);
    return std::nullopt;
}

std::string numberRangeWarning() {
    return std::string("Incorrect format - this needs to be : ") + "\r\n" + "min:max" + "\r\n" +
           "Where 'min' is the minimum integer allowed and 'max' the maximum.  For example:" + "\r\n" +
           "1:10" + "\r\n" + "This specifies a range from 1 to 10";
}

NumberRangeCheck NormaliseNumberRange(std::string_view text) {
    NumberRangeCheck result{true, std::string(text)};
    if (text.empty())
        return result;
    const auto refused = [&result] {
        result.accepted = false;
        return result;
    };
    const std::size_t dash = text.find('-');
    if (dash != std::string_view::npos && dash == text.size() - 1)
        return refused();
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon == 0)
        return refused();
    const std::string minText = trim(text.substr(0, colon));
    const std::string maxText = trim(text.substr(colon + 1));
    if (!isNumeric(minText) || !isNumeric(maxText))
        return refused();
    std::int32_t low = 0, high = 0;
    try {
        low = toInt32(minText);
        high = toInt32(maxText);
    } catch (const ConversionError&) {
        // Beyond the 32-bit range: not a range the launcher can use.
        return refused();
    }
    if (low > high)
        result.text = maxText + ":" + minText;
    return result;
}

std::string NormaliseFolderFlag(std::string_view text) {
    const std::string upper = upperCase(text);
    if (upper == "TRUE" || upper == "YES" || upper == "OK" || upper == "1" || upper == "-1")
        return "1";
    return "0";
}

std::string TypeKeyword(std::string_view caption) {
    static constexpr std::array<const char*, 12> order = {
        "TRISTATE", "CHECKBOX", "NORMAL TEXT", "MODEL/SKIN", "ENABLE",    "ALWAYS",
        "FILENAME", "NUMBER",   "WEAPON",      "VALUE LIST", "TEXT LIST", "FOLDER"};
    const std::string upper = upperCase(caption);
    for (const char* keyword : order)
        if (upper.find(keyword) != std::string::npos)
            return keyword;
    return {};
}

bool TypeNeedsParameter(std::string_view keyword) {
    return keyword == "NUMBER" || keyword == "WEAPON" || keyword == "VALUE LIST" || keyword == "TEXT LIST" ||
           keyword == "FOLDER";
}

fs::path gameDefinitionFolder(const fs::path& root, std::string_view game) {
    return resolvePath(gamePathsFolder(root), game);
}

fs::path botDefinitionFolder(const fs::path& root, std::string_view bot) {
    return resolvePath(resolvePath(root, "Plug-Ins"), bot);
}

std::string botGameName(const fs::path& root, std::string_view bot) {
    const fs::path setup = resolvePath(botDefinitionFolder(root, bot), "Setup.cfg");
    if (!fileExists(setup))
        return {};
    LineReader reader(setup);
    return reader.readLine("");
}

} // namespace rd
