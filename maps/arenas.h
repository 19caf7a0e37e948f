#pragma once
// Arena files (Game-Paths\<game>\<map>.ra2): the arena names of one map, one per line.

#include "maps/categories.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

inline constexpr const char* kArenaFileExists = "An arena file already exists with that name";

// Names of the maps with arena files: every "*.Ra2" file, in listing order, less its last four
// characters.
std::vector<std::string> ListArenaMaps(const std::filesystem::path& root, std::string_view game);

// The path of a map's arena file: an existing file whatever its case, else <map>.ra2.
std::filesystem::path arenaPath(const std::filesystem::path& root, std::string_view game,
                                std::string_view map);

NewFileOutcome CreateArenaMap(const std::filesystem::path& root, std::string_view game, std::string_view map);
RenameOutcome RenameArenaMap(const std::filesystem::path& root, std::string_view game,
                             std::string_view oldName, std::string_view newName);
void DeleteArenaMap(const std::filesystem::path& root, std::string_view game, std::string_view map);

// The arena list screen's Add: an empty name does nothing (returns nothing); otherwise the name
// goes directly after the selected entry, or at the end when none is selected, and its index
// (the new selection) is returned.
std::optional<std::size_t> AddArena(std::vector<std::string>& arenas, std::optional<std::size_t> selected,
                                    std::string_view name);

// Every line of the file, empty ones included; a missing file is an empty list.
std::vector<std::string> LoadArenas(const std::filesystem::path& path);
// Rewrites the file whole, CR LF after every entry (an empty list gives an empty file).
void SaveArenas(const std::filesystem::path& path, const std::vector<std::string>& arenas);

} // namespace rd
