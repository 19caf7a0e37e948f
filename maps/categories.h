#pragma once
// Custom map category files (Game-Paths\<game>\<category>.map): a header line "[V2]" or
// "[ARENA]", then a map name and a display title per map. The older layout without a header,
// one map name per line, is still read; saving always writes the current layout.

#include "games/gamerecord.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

struct MapRow {
    std::string name;
    std::string title;
    bool operator==(const MapRow&) const = default;
};

struct MapCategory {
    bool arena = false; // "This Map Category Contains Arenas"
    std::vector<MapRow> maps;
    bool operator==(const MapCategory&) const = default;
};

inline constexpr const char* kCategoryExists = "A map category already exists with that name";
inline constexpr const char* kCategoryLoadingTitle = "Custom Map Editor - loading";
inline constexpr const char* kCategorySavingTitle = "Custom Map Editor - saving";

// Names of the game's categories: every "*.Map" file, in listing order, less its last four
// characters.
std::vector<std::string> ListCategories(const std::filesystem::path& root, std::string_view game);

// The path of a category's file: an existing file of that name whatever the case of its letters,
// otherwise <name>.map with the extension in lower case.
std::filesystem::path categoryPath(const std::filesystem::path& root, std::string_view game,
                                   std::string_view name);

// Creating a category: a name that cannot name a file, or whose file exists, is refused (the
// refusal's text); otherwise the path of the new category, of which nothing is written yet.
struct NewFileOutcome {
    std::optional<std::string> refusal;
    std::filesystem::path path;
};
NewFileOutcome CreateCategory(const std::filesystem::path& root, std::string_view game,
                              std::string_view name);

// Renaming: nothing happens when the new name is empty or equals the old one without regard to
// case (returns nothing and touches nothing). A new name that cannot name a file, or whose file
// exists, is refused with the refusal's text. Otherwise <old>.map becomes <new>.map.
enum class RenameResult { Unchanged, Refused, Renamed };
struct RenameOutcome {
    RenameResult result = RenameResult::Unchanged;
    std::string refusal;
};
RenameOutcome RenameCategory(const std::filesystem::path& root, std::string_view game,
                             std::string_view oldName, std::string_view newName);

void DeleteCategory(const std::filesystem::path& root, std::string_view game, std::string_view name);

// Reads a category file; a missing file gives no maps and no arena mark.
MapCategory LoadCategory(const std::filesystem::path& path);
// LoadCategory that also tells the line (1-based) of each map's name (`lines` gets one entry per map).
MapCategory readCategoryFile(const std::filesystem::path& path, std::vector<std::size_t>* lines);
// Rewrites the file whole in the current layout; an empty path writes nothing.
void SaveCategory(const std::filesystem::path& path, const MapCategory& category);

} // namespace rd
