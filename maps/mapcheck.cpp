#include "maps/mapcheck.h"

#include "core/text.h"
#include "core/workspace.h"
#include "maps/arenas.h"
#include "maps/categories.h"

#include <exception>

namespace rd {

namespace fs = std::filesystem;

InstalledMaps installedMaps(const std::vector<CatalogueRow>& catalogue) {
    InstalledMaps names;
    for (const auto& row : catalogue)
        names.insert(upperCase(row.name));
    return names;
}

namespace {

void unreadable(const fs::path& path, const std::exception& e, Findings& out) {
    out.push_back({Severity::Error, path, std::nullopt, std::string("the file cannot be read: ") + e.what()});
}

} // namespace

void checkCategoryFile(const fs::path& path, const InstalledMaps& installed, Findings& out) {
    MapCategory category;
    std::vector<std::size_t> lines;
    try {
        category = readCategoryFile(path, &lines);
    } catch (const std::exception& e) {
        unreadable(path, e, out);
        return;
    }
    for (std::size_t i = 0; i < category.maps.size(); ++i) {
        const MapRow& map = category.maps[i];
        if (!installed.contains(upperCase(map.name)))
            out.push_back(
                {Severity::Warning, path, lines[i],
                 "the map " + inQuotes(map.name) +
                     " is not installed: it is in none of the game's PAK archives and not in its maps "
                     "folder"});
    }
}

void checkArenaFile(const fs::path& path, const InstalledMaps& installed, Findings& out) {
    try {
        LoadArenas(path);
    } catch (const std::exception& e) {
        unreadable(path, e, out);
        return;
    }
    std::string map = nameOf(path);
    map.resize(map.size() >= 4 ? map.size() - 4 : 0);
    if (!installed.contains(upperCase(map)))
        out.push_back(
            {Severity::Warning, path, std::nullopt,
             "these are arenas of the map " + inQuotes(map) +
                 ", which is not installed: it is in none of the game's PAK archives and not in its "
                 "maps folder"});
}

} // namespace rd
