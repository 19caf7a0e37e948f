#include "core/launcherfolder.h"

#include "core/nativeprocess.h"
#include "core/text.h"
#include "core/workspace.h"

#include <cstdlib>
#include <set>
#include <string>
#include <system_error>

namespace rd {

namespace fs = std::filesystem;

namespace {

// A folder's entries, checked for the launcher's two folders.
struct LauncherEntries {
    bool plugins = false;
    bool gamePaths = false;
};

LauncherEntries launcherEntries(const std::vector<DirEntry>& entries) {
    LauncherEntries found;
    for (const auto& entry : entries) {
        if (!entry.isFolder)
            continue;
        found.plugins = found.plugins || equalsNoCase(entry.name, "Plug-Ins");
        found.gamePaths = found.gamePaths || equalsNoCase(entry.name, "Game-Paths");
    }
    return found;
}

bool isLink(const fs::path& path) {
    std::error_code ec;
    return fs::is_symlink(fs::symlink_status(path, ec));
}

// The deepest folder below drive_c a launcher folder is looked for in, and how many folders the
// whole search looks at before it gives up.
constexpr int kSearchDepth = 3;
constexpr int kSearchBudget = 5000;

struct Search {
    std::vector<fs::path> found;
    std::set<fs::path> seen; // the found folders with their links followed
    int budget = kSearchBudget;

    void add(const fs::path& folder) {
        std::error_code ec;
        const fs::path real = fs::weakly_canonical(folder, ec);
        if (seen.insert(ec ? folder : real).second)
            found.push_back(folder);
    }

    // Looks through the sub-folders of `folder`, which lies `depth` folders below drive_c.
    void below(const fs::path& folder, const std::vector<DirEntry>& entries, int depth) {
        for (const auto& entry : entries) {
            if (!entry.isFolder)
                continue;
            if (depth == 0 && equalsNoCase(entry.name, "windows"))
                continue; // Wine's own system folders: thousands of them, never the launcher
            if (--budget < 0)
                return;
            const fs::path child = joinName(folder, entry.name);
            if (isLink(child))
                continue;
            const std::vector<DirEntry> childEntries = listDirectory(child);
            const LauncherEntries launcher = launcherEntries(childEntries);
            if (launcher.plugins && launcher.gamePaths) {
                add(child); // its sub-folders are its bots, games and profiles
                continue;
            }
            if (depth + 1 < kSearchDepth)
                below(child, childEntries, depth + 1);
        }
    }
};

} // namespace

const char* rootSourceName(RootSource source) {
    switch (source) {
    case RootSource::Environment:
        return "ROSTERDESK_ROOT";
    case RootSource::ProgramFolder:
        return "program folder";
    case RootSource::Remembered:
        return "remembered";
    case RootSource::Chosen:
        return "chosen";
    }
    return "";
}

bool holdsLauncherData(const fs::path& folder) {
    return folderExists(resolvePath(folder, "Plug-Ins")) || folderExists(resolvePath(folder, "Game-Paths"));
}

bool isLauncherFolder(const fs::path& folder) {
    return folderExists(resolvePath(folder, "Plug-Ins")) && folderExists(resolvePath(folder, "Game-Paths"));
}

std::optional<DesktopRoot> desktopWorkspaceRoot(const fs::path& programFolder, const fs::path& remembered) {
    const char* env = std::getenv("ROSTERDESK_ROOT");
    if (env && *env)
        return DesktopRoot{fs::path(env), RootSource::Environment};
    if (holdsLauncherData(programFolder))
        return DesktopRoot{programFolder, RootSource::ProgramFolder};
    if (!remembered.empty() && holdsLauncherData(remembered))
        return DesktopRoot{remembered, RootSource::Remembered};
    return std::nullopt;
}

std::vector<fs::path> usualWinePrefixes() {
    std::vector<fs::path> prefixes;
#ifndef _WIN32
    std::set<fs::path> seen;
    const auto add = [&](const fs::path& folder) {
        std::error_code ec;
        if (!fs::is_directory(folder / "drive_c", ec))
            return;
        const fs::path real = fs::weakly_canonical(folder, ec);
        if (seen.insert(ec ? folder : real).second)
            prefixes.push_back(folder);
    };
    if (const auto named = native::environmentValue("WINEPREFIX"))
        add(fs::path(*named));
    if (const auto homeText = native::environmentValue("HOME")) {
        const fs::path home(*homeText);
        add(home / ".wine");
        const fs::path games = home / "Games";
        for (const auto& game : listFolders(games)) {
            const fs::path folder = joinName(games, game);
            add(folder);
            for (const auto& inner : listFolders(folder))
                add(joinName(folder, inner));
        }
        const fs::path wineprefixes = home / ".local" / "share" / "wineprefixes";
        for (const auto& name : listFolders(wineprefixes))
            add(joinName(wineprefixes, name));
    }
#endif
    return prefixes;
}

std::vector<fs::path> findLauncherFolders(const std::vector<fs::path>& prefixes) {
    Search search;
    for (const auto& prefix : prefixes) {
        const fs::path driveC = prefix / "drive_c";
        search.below(driveC, listDirectory(driveC), 0);
    }
    return search.found;
}

} // namespace rd
