#pragma once
// The doctor's check of a game: its record must exist, name folders that exist (the game's
// program, its maps and its player models) and hold a start type that is a number the game
// editor offers; the same start type rule holds for its paths template.

#include "core/findings.h"
#include "core/winepaths.h"
#include "games/gamerecord.h"

#include <filesystem>
#include <optional>
#include <string>

namespace rd {

struct GameCheck {
    std::optional<GamePathRecord> record; // nothing when the game has no record
    bool programFolderExists = false;     // line 1 names a folder that exists
    bool mapsFolderExists = false;        // line 2 names a folder that exists
    bool modelsFolderExists = false;      // line 5 names a folder that exists
};

// Checks the game `game` whose folder is `folder` (a sub-folder of Game-Paths); drive paths of the
// record resolve through the workspace's Wine prefix `wine`.
GameCheck checkGame(const std::filesystem::path& folder, const std::string& game, Findings& out,
                    const WinePrefix& wine);

} // namespace rd
