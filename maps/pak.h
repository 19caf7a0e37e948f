#pragma once
// Quake 2 PAK archives, read only for their directory: the maps a game has installed, packed in
// archives or lying loose in its map folder, make the catalogue the add-map screen offers.

#include "core/steprunner.h"
#include "core/winepaths.h"

#include "games/gamerecord.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

// Appends the names in the archive's directory to `target` (not cleared). With `mapsOnly`, only
// map entries ("maps*.bsp*" once lower-cased), reduced to bare map names; otherwise every entry's
// whole 56-character lower-cased name, NUL padding included. Returns true when the directory was
// read to its end (or to the end of the file), false when there is no such file or the directory
// cannot be reached; names read before a failure stay in `target`.
bool ScanPak(const std::filesystem::path& pakPath, std::vector<std::string>& target, bool mapsOnly);

// One row of the installed-maps catalogue.
struct CatalogueRow {
    std::string name;   // the map name (row text)
    std::string source; // where it was found: "<title> <archive>" or "Custom Maps"
    bool operator==(const CatalogueRow&) const = default;
};

inline constexpr const char* kAddPakTrapTitle = "Adding a Bot - AddPak";

// Scans every "PAK*.PAK" archive of `folder` (a folder as read from a game record; a drive path
// resolves through the workspace's Wine prefix `wine`) in listing order and appends one row per
// map found, sourced trim(title) + " " + archive name. Each archive is one step under `trap`.
void AddPak(std::string_view folder, std::string_view title, std::vector<CatalogueRow>& rows,
            StepRunner& trap, const WinePrefix& wine);

// The folders whose archives the catalogue scans, in its order: the title a row's source begins
// with, and the folder below the game's main folder ("" for the main folder itself, which is
// scanned twice).
struct CatalogueArchiveFolder {
    std::string_view title;
    std::string_view subFolder;
};
inline constexpr CatalogueArchiveFolder kCatalogueArchiveFolders[] = {
    {"Quake2", ""},       {"CTF", ""},        {"BaseQ2", "baseq2"},
    {"Eraser", "eraser"}, {"CRbot", "crbot"}, {"ACE", "ace"}};
// The source of the rows of loose maps.
inline constexpr std::string_view kLooseMapsSource = "Custom Maps";

// The catalogue of a game's installed maps: the archives of the main folder (twice, as "Quake2"
// and "CTF"), of its baseq2, eraser, crbot and ace sub-folders, then the loose *.bsp files of the
// map folder as "Custom Maps".
struct Catalogue {
    bool recordFound = false;
    std::string message; // "Could not find " + the record's path when it is missing
    std::vector<CatalogueRow> rows;
};
Catalogue BuildCatalogue(const std::filesystem::path& root, std::string_view game, TrapHandler trap);
// The catalogue's rows for a main folder and a map folder as a record holds them (lines 1 and 2;
// a separator is appended to either when it has none), drive paths resolved through `wine`.
std::vector<CatalogueRow> CatalogueRows(std::string_view mainFolder, std::string_view mapFolder,
                                        StepRunner& trap, const WinePrefix& wine);

// A loose map file's name with ".bsp" cut off: first found without regard to case, then with it.
std::string looseMapName(std::string_view fileName);

// Where a map's data lies in an archive, as its directory entry gives it.
struct PakEntryPlace {
    std::int32_t position = 0;
    std::int32_t length = 0;
};
// The first entry of the archive's directory that ScanPak (maps only) turns into `mapName`
// (compared as it stands); nothing when no entry does or the directory cannot be read.
std::optional<PakEntryPlace> FindPakMap(const std::filesystem::path& pakPath, std::string_view mapName);

} // namespace rd
