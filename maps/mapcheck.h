#pragma once
// The doctor's checks of a game's map categories and arena files against the maps the game has
// installed (its catalogue: the maps in its PAK archives and the loose maps of its maps folder).

#include "core/findings.h"
#include "maps/pak.h"

#include <filesystem>
#include <string>
#include <unordered_set>
#include <vector>

namespace rd {

// The installed maps' names, upper-cased, for look-ups without regard to case.
using InstalledMaps = std::unordered_set<std::string>;
InstalledMaps installedMaps(const std::vector<CatalogueRow>& catalogue);

// Reads a category file and checks that each of its maps is installed.
void checkCategoryFile(const std::filesystem::path& path, const InstalledMaps& installed, Findings& out);

// Reads an arena file and checks that its map (the file's name less its extension) is installed.
void checkArenaFile(const std::filesystem::path& path, const InstalledMaps& installed, Findings& out);

} // namespace rd
