#include "core/winepaths.h"

#include "core/nativeprocess.h"

#include "core/workspace.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <system_error>

namespace rd {

namespace fs = std::filesystem;

namespace {

// A path without a trailing separator ("/a/b/" is "/a/b"; "/" stays).
fs::path withoutTrailingSeparator(fs::path path) {
    if (!path.has_filename() && path.has_relative_path())
        path = path.parent_path();
    return path;
}

// An absolute, lexically normal path without a trailing separator.
fs::path normalPath(const fs::path& path) {
    std::error_code ec;
    const fs::path absolute = fs::absolute(path, ec);
    return withoutTrailingSeparator((ec ? path : absolute).lexically_normal());
}

#ifndef _WIN32

// The nearest parent of `path` that holds a dosdevices folder.
std::optional<fs::path> prefixAbove(const fs::path& path) {
    for (fs::path folder = path.parent_path();; folder = folder.parent_path()) {
        std::error_code ec;
        if (fs::is_directory(folder / "dosdevices", ec))
            return folder;
        if (folder == folder.parent_path() || folder.empty())
            return std::nullopt;
    }
}

#endif

// The components of `path` after `base`, when `base` is `path` or one of its parents
// (component by component: "/work" does not hold "/workshop").
std::optional<std::vector<fs::path>> componentsAfter(const fs::path& base, const fs::path& path) {
    auto b = base.begin();
    auto p = path.begin();
    for (; b != base.end(); ++b, ++p)
        if (p == path.end() || *b != *p)
            return std::nullopt;
    return std::vector<fs::path>(p, path.end());
}

} // namespace

const WineDrive* WinePrefix::drive(char letter) const {
    const auto upper = driveLetterOf(std::string{letter, ':'});
    if (!upper)
        return nullptr;
    for (const auto& drive : drives)
        if (drive.letter == *upper)
            return &drive;
    return nullptr;
}

std::optional<char> driveLetterOf(std::string_view text) {
    if (text.size() < 2 || text[1] != ':')
        return std::nullopt;
    const char c = text[0];
    if (c >= 'a' && c <= 'z')
        return static_cast<char>(c - 'a' + 'A');
    if (c >= 'A' && c <= 'Z')
        return c;
    return std::nullopt;
}

WinePrefix readWinePrefix(const fs::path& folder) {
    WinePrefix prefix;
    prefix.folder = normalPath(folder);
    const fs::path devices = prefix.folder / "dosdevices";
    std::error_code ec;
    fs::directory_iterator it(devices, ec);
    for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
        const fs::path entry = it->path();
        const std::string name = entry.filename().string();
        const auto letter = driveLetterOf(name);
        if (!letter || name.size() != 2 || prefix.drive(*letter))
            continue;
        WineDrive drive;
        drive.letter = *letter;
        std::error_code linkEc;
        if (fs::is_symlink(fs::symlink_status(entry, linkEc))) {
            const fs::path to = fs::read_symlink(entry, linkEc);
            drive.link = linkEc ? entry : withoutTrailingSeparator((devices / to).lexically_normal());
        } else {
            drive.link = entry;
        }
        // canonical follows every link and fails on links that loop or lead nowhere.
        std::error_code targetEc;
        const fs::path target = fs::canonical(entry, targetEc);
        if (!targetEc && fs::is_directory(target, targetEc))
            drive.target = target;
        prefix.drives.push_back(std::move(drive));
    }
    std::sort(prefix.drives.begin(), prefix.drives.end(),
              [](const WineDrive& a, const WineDrive& b) { return a.letter < b.letter; });
    return prefix;
}

WinePrefix findWinePrefix(const fs::path& root) {
#ifdef _WIN32
    (void)root;
    return {};
#else
    const fs::path given = normalPath(root);
    if (const auto found = prefixAbove(given))
        return readWinePrefix(*found);
    std::error_code ec;
    const fs::path real = withoutTrailingSeparator(fs::weakly_canonical(given, ec));
    if (!ec && real != given)
        if (const auto found = prefixAbove(real))
            return readWinePrefix(*found);
    if (const auto named = native::environmentValue("WINEPREFIX"))
        return readWinePrefix(fs::path(*named));
    if (const auto home = native::environmentValue("HOME")) {
        const fs::path wine = fs::path(*home) / ".wine";
        if (fs::is_directory(wine, ec))
            return readWinePrefix(wine);
    }
    return {};
#endif
}

fs::path resolveDrivePath(std::string_view text, const WinePrefix& prefix) {
    const auto letter = driveLetterOf(text);
    if (!letter)
        return {};
    const WineDrive* drive = prefix.drive(*letter);
    if (!drive)
        return {};
    return resolvePath(drive->folder(), text.substr(2));
}

fs::path pathFromData(std::string_view text, const WinePrefix& prefix) {
#ifndef _WIN32
    if (driveLetterOf(text))
        return resolveDrivePath(text, prefix);
#else
    (void)prefix;
#endif
    return pathFromData(text);
}

std::optional<std::string> drivePathOf(const fs::path& path, const WinePrefix& prefix) {
    if (!prefix.mapsDrives() || path.empty())
        return std::nullopt;
    // The path as given and with its links followed, each against the drives' folders as their
    // links name them and as the links lead: a folder reached through a link inside drive_c stays
    // on C:, and a prefix reached through a linked home folder is still found.
    const fs::path given = normalPath(path);
    std::error_code ec;
    fs::path real = withoutTrailingSeparator(fs::weakly_canonical(given, ec));
    if (ec)
        real.clear();
    const WineDrive* best = nullptr;
    std::ptrdiff_t bestDepth = -1;
    std::vector<fs::path> bestRest;
    for (const fs::path* form : {&given, static_cast<const fs::path*>(&real)}) {
        if (form->empty())
            continue;
        for (const auto& drive : prefix.drives) {
            for (const fs::path* base : {&drive.link, &drive.target}) {
                if (base->empty())
                    continue;
                auto rest = componentsAfter(*base, *form);
                const std::ptrdiff_t depth = std::distance(base->begin(), base->end());
                if (rest && depth > bestDepth) {
                    best = &drive;
                    bestDepth = depth;
                    bestRest = std::move(*rest);
                }
            }
        }
    }
    if (!best)
        return std::nullopt;
    std::string text{best->letter, ':', '\\'};
    for (std::size_t i = 0; i < bestRest.size(); ++i) {
        if (i > 0)
            text += '\\';
        text += nameOf(bestRest[i]);
    }
    return text;
}

std::string launcherPathText(std::string_view text, const WinePrefix& prefix) {
    if (!prefix.mapsDrives() || text.empty() || driveLetterOf(text) || text.front() != '/')
        return std::string(text);
    const auto drivePath = drivePathOf(pathFromData(text), prefix);
    if (!drivePath)
        return std::string(text);
    const bool trailing = text.back() == '/' || text.back() == '\\';
    return trailing ? withTrailingSeparator(*drivePath) : *drivePath;
}

} // namespace rd
