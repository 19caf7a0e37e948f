#pragma once
// Map cards of the installed-maps catalogue: a catalogue row leads back to the file it was found in
// (an archive of one of the game's folders, or a loose map of its map folder), and the map is read
// from there.

#include "maps/bsp.h"
#include "maps/pak.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

// Where a map's bytes lie: a loose file whole, or a stretch of an archive.
struct MapLocation {
    std::filesystem::path file;
    bool inArchive = false;
    std::int32_t position = 0; // in the archive, as its directory entry gives them
    std::int32_t length = 0;
};

// The file of a catalogue row found with the folders of the game's record (its lines 1 and 2, as
// stored): the archive its source names ("BaseQ2 pak0.pak": pak0.pak in the main folder's baseq2)
// and the first entry there that gives the row's name, or, for "Custom Maps", the first loose map
// of the map folder that does; drive paths resolve through the workspace's Wine prefix `wine`.
// Nothing when the row's map is not (or no longer) there.
std::optional<MapLocation> LocateCatalogueMap(std::string_view mainFolder, std::string_view mapFolder,
                                              const CatalogueRow& row, const WinePrefix& wine);

// The card of the map at `location` (its name is left for the caller).
CardResult ReadMapCard(const MapLocation& location, const std::atomic<bool>* cancel = nullptr);

// The card of a catalogue row of `game`: the game's record is read for its folders, the row's map
// located and read. Without a record the reason is the catalogue's "Could not find " message;
// a row whose map is not there any more gives "not found in any archive". The card's name is the
// row's name.
CardResult CatalogueCard(const std::filesystem::path& root, std::string_view game, const CatalogueRow& row,
                         const std::atomic<bool>* cancel = nullptr);

// The first row named `name` (without regard to case), or nullptr.
const CatalogueRow* FindCatalogueRow(const std::vector<CatalogueRow>& rows, std::string_view name);

// The card of the map named `name` in the game's catalogue (the first row of that name), built as
// the add-map screen builds it; errors while scanning archives are passed over. Without a record
// the reason is its "Could not find " message; a name the catalogue does not hold gives "not found
// in any archive".
CardResult FindMapCard(const std::filesystem::path& root, std::string_view game, std::string_view name,
                       const std::atomic<bool>* cancel = nullptr);

} // namespace rd
