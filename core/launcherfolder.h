#pragma once
// Where the desktop program finds its workspace. A copy of RosterDesk placed in the launcher's
// folder works on that folder; a RosterDesk installed apart from the launcher (a package, a menu
// entry) remembers the launcher's folder it was pointed at once, and otherwise asks for it,
// offering the launcher folders it finds in the usual Wine prefixes. It never takes the current
// folder silently. (rosterdesk-cli keeps its own rule: --root, ROSTERDESK_ROOT, its own folder.)

#include <filesystem>
#include <optional>
#include <vector>

namespace rd {

// How the desktop program's workspace was found.
enum class RootSource {
    Environment,   // ROSTERDESK_ROOT
    ProgramFolder, // the folder that holds the program is a workspace
    Remembered,    // the folder chosen at an earlier start
    Chosen,        // chosen in the first-start window now
};

// The name the start-up report gives a source: "ROSTERDESK_ROOT", "program folder",
// "remembered", "chosen".
const char* rootSourceName(RootSource source);

struct DesktopRoot {
    std::filesystem::path folder;
    RootSource source = RootSource::Environment;
};

// Whether `folder` holds a Plug-Ins or a Game-Paths folder (in any letter case): a workspace.
bool holdsLauncherData(const std::filesystem::path& folder);
// Whether `folder` holds both Plug-Ins and Game-Paths: the launcher's folder as its installer
// leaves it.
bool isLauncherFolder(const std::filesystem::path& folder);

// The desktop program's workspace when it can be found without asking: the folder named by
// ROSTERDESK_ROOT when that is set and not empty; else `programFolder` when it holds Plug-Ins or
// Game-Paths; else `remembered` (the folder chosen at an earlier start, empty when none) when it
// still holds Plug-Ins or Game-Paths. Nothing when the user must be asked.
std::optional<DesktopRoot> desktopWorkspaceRoot(const std::filesystem::path& programFolder,
                                                const std::filesystem::path& remembered);

// The usual Wine prefixes of this user, in this order and each once: the folder WINEPREFIX names,
// ~/.wine, the prefixes below ~/Games (a folder, or a folder inside one, holding drive_c) and
// those in ~/.local/share/wineprefixes. Only folders that hold drive_c count. None on Windows.
std::vector<std::filesystem::path> usualWinePrefixes();

// The launcher folders (holding Plug-Ins and Game-Paths) inside the drive_c of each prefix, up to
// three folders deep (drive_c/Tarnwick, drive_c/Program Files/Tarnwick, drive_c/Games/Bots/
// Tarnwick), in the prefixes' order and then in listing order. Links are not followed, the
// Windows folder is skipped and the search stops after a few thousand folders, so a large or
// looping prefix cannot hold it up.
std::vector<std::filesystem::path> findLauncherFolders(const std::vector<std::filesystem::path>& prefixes);

} // namespace rd
