#pragma once
// Wine drives. The launcher is a Windows program: on Linux it runs under Wine, so its folder lies
// inside a Wine prefix (for example ~/.wine/drive_c/Tarnwick) and the paths its records hold are
// drive paths (C:\Quake2\baseq2\maps\). A prefix's dosdevices folder holds one link per drive,
// named "<letter>:" ("c:" usually leads to ../drive_c, "z:" to /): the mapping Wine itself uses.
//
// This is the one place that reads drive letters. It turns a drive path into a folder of this
// system, and a folder of this system back into the drive path the launcher reads. On Windows
// drive paths are the system's own: no prefix is ever found there and nothing is mapped.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

// One drive of a Wine prefix.
struct WineDrive {
    char letter = 0; // 'A' to 'Z'
    // The folder the drive's link names, absolute and lexically normal (links not followed).
    std::filesystem::path link;
    // The same folder with every link followed; empty when the link leads nowhere (a missing
    // folder, a file, or links that loop).
    std::filesystem::path target;

    // The folder paths on the drive start from: the target when there is one, else the link.
    const std::filesystem::path& folder() const { return target.empty() ? link : target; }
};

// A Wine prefix and its drives.
struct WinePrefix {
    std::filesystem::path folder;  // the prefix; empty when the workspace belongs to none
    std::vector<WineDrive> drives; // in letter order

    // The drive of that letter (either case), or nullptr when the prefix does not map it.
    const WineDrive* drive(char letter) const;
    // Whether paths are written in drive form: the prefix maps at least one drive.
    bool mapsDrives() const { return !drives.empty(); }
};

// The drive letter a path text starts with ("C:\x", "c:/x", "D:", "d:maps"), in upper case;
// nothing when the text does not start with a letter and a colon.
std::optional<char> driveLetterOf(std::string_view text);

// The drives of the prefix `folder`: its dosdevices entries named "<letter>:" (entries such as
// "com1" or "d::" are devices, not drives). A folder without dosdevices maps no drive.
WinePrefix readWinePrefix(const std::filesystem::path& folder);

// The Wine prefix the workspace `root` belongs to: the nearest parent of the root that holds a
// dosdevices folder (looked for along the path as given, then along the path with its links
// followed); else the folder WINEPREFIX names, when it is set (Wine then uses no other prefix,
// even one that maps no drive); else ~/.wine when it exists. None on Windows.
WinePrefix findWinePrefix(const std::filesystem::path& root);

// A drive path of a data file as a path of this system: the drive's folder joined with the rest
// of the path, each component resolved without regard to case where present. Empty when the
// prefix does not map the drive (the path stays unresolved).
std::filesystem::path resolveDrivePath(std::string_view text, const WinePrefix& prefix);

// A path read from a data file, with the workspace's Wine prefix: on Linux a drive path resolves
// through the prefix (empty when the prefix does not map the drive); every other text resolves
// as pathFromData(text) resolves it.
std::filesystem::path pathFromData(std::string_view text, const WinePrefix& prefix);

// A folder or file of this system as the launcher names it under the prefix: the drive whose
// folder is the longest match of the path, then the rest of the path joined with backslashes
// ("C:\Quake2\baseq2"; the drive's own folder is "C:\"). Nothing when no drive of the prefix holds
// the path.
std::optional<std::string> drivePathOf(const std::filesystem::path& path, const WinePrefix& prefix);

// A path text chosen or typed on screen, in the form the launcher reads: when the prefix maps
// drives, an absolute path of this system that one of them holds becomes its drive path, with a
// trailing backslash when the text ended in a separator. Any other text stays as it is.
std::string launcherPathText(std::string_view text, const WinePrefix& prefix);

} // namespace rd
