#pragma once
// Option definition files ("Options.cfg", "Opt-User.cfg"): the launch options the launcher
// offers, grouped under category rows, and the rules for their names, keys and parameters.

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

// One row of a definition set: a category (name only) or an option with eight text fields,
// all kept exactly as typed or read.
struct OptionRow {
    bool isCategory = false;
    std::string name; // the category's name, or the option's Name
    std::string checked;
    std::string unchecked;
    std::string helpText;
    std::string type; // type index as decimal text
    std::string parameter;
    std::string where; // "0" command line, "1" console before the map change, "2" after it
    std::string key;

    static OptionRow category(std::string name) {
        OptionRow row;
        row.isCategory = true;
        row.name = std::move(name);
        return row;
    }
    bool operator==(const OptionRow&) const = default;
};

// A definition set: the file, the game whose lists the options use, and the rows in file order.
struct DefinitionSet {
    std::filesystem::path path;
    std::string gameName;
    std::vector<OptionRow> rows;
};

inline constexpr const char* kOptionsFile = "Options.cfg";
inline constexpr const char* kUserOptionsFile = "Opt-User.cfg";

// The rows of an option definition file; a missing file is an empty set.
std::vector<OptionRow> LoadDefinitions(const std::filesystem::path& path);

// Where a row of a definition file lies: the line it begins on (1-based) and, for an option or a
// flag, how many TABs its third line holds (-1 when the file ends before that line).
struct RowPlace {
    std::size_t line = 0;
    int tabs = -1;
    bool operator==(const RowPlace&) const = default;
};
// LoadDefinitions that also tells where each row lies (`places` gets one entry per row).
std::vector<OptionRow> readDefinitionFile(const std::filesystem::path& path, std::vector<RowPlace>* places);
// Rewrites the file whole: "[name]" per category, three lines per option.
void SaveDefinitions(const std::filesystem::path& path, const std::vector<OptionRow>& rows);

// Splits a line on TAB into `count` fields: the text up to the next TAB for each field in turn;
// once no TAB is left the rest goes to the current field and the later fields are empty.
std::vector<std::string> SplitTabFields(std::string_view line, std::size_t count = 6);

// A category line's name: leading '[' removed while the length is at least 2, then trailing ']'
// likewise.
std::string categoryName(std::string_view line);

// True when no row other than `editing` (none for a new row) has `key`, compared upper-cased.
// Category rows take part with their empty key.
bool IsKeyUnique(const std::vector<OptionRow>& rows, std::string_view key,
                 std::optional<std::size_t> editing = std::nullopt);

// A new unique key for an option named `name`.
std::string MakeKey(const std::vector<OptionRow>& rows, std::string_view name,
                    std::optional<std::size_t> editing = std::nullopt);

inline constexpr const char* kKeyClash = "An option already exists with that key, please try another.";
inline constexpr const char* kOptionNameBracket =
    "Sorry, the option name cannot begin with a [ (open square bracket) ";

// The refusal for an option name (one that begins with '['), or nothing.
std::optional<std::string> optionNameRefusal(std::string_view name);

// The parameter of a NUMBER option after the field loses focus.
struct NumberRangeCheck {
    bool accepted = true;
    std::string text; // the parameter as stored (unchanged when refused)
};
NumberRangeCheck NormaliseNumberRange(std::string_view text);
// The warning shown for a refused number range (five lines joined by CR LF).
std::string numberRangeWarning();

// The parameter of a FOLDER option after the field loses focus: "1" or "0".
std::string NormaliseFolderFlag(std::string_view text);
inline constexpr const char* kFolderFlagQuestion = "Include trailing slash in pathname returned?";

// Option types, by index 0 to 11.
inline constexpr std::size_t kOptionTypeCount = 12;
extern const std::array<const char*, kOptionTypeCount> kOptionTypeCaptions;
extern const std::array<const char*, kOptionTypeCount> kOptionTypeHelp;

// The keyword a type caption stands for (first match in the launcher's order, substring of
// the upper-cased caption), or "" when none matches.
std::string TypeKeyword(std::string_view caption);
// Whether options of this keyword use the parameter field.
bool TypeNeedsParameter(std::string_view keyword);

// Where a game's / a plug-in bot's definition files and lists lie.
std::filesystem::path gameDefinitionFolder(const std::filesystem::path& root, std::string_view game);
std::filesystem::path botDefinitionFolder(const std::filesystem::path& root, std::string_view bot);
// The game name of a bot's definition set: the first line of its Setup.cfg ("" without one).
std::string botGameName(const std::filesystem::path& root, std::string_view bot);

} // namespace rd
