// Builds the demo workspaces: copies demo/workspace (the clean one) and demo/broken (the one the
// workspace doctor finds every kind of fault in) byte for byte, replacing @INSTALL@ with the fake
// installation's path and @WORKSPACE@ with the workspace's own, and writes a small fake Quake 2
// installation beside them. The clean workspace is made a second time as a real installation
// under Wine: a Wine-style prefix (wine/dosdevices/c: and z:) with the launcher's folder in
// drive_c/Tarnwick, the game in drive_c/Quake2 and records that hold C:\ paths.
//
//   rosterdesk-make-demo <demo folder> <output folder>

#include "demo/demo_maps.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/workspace_data.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using rd::test::PakEntry;

namespace {

// The paths the demo's files name: the fake installation (@INSTALL@) and the workspace itself
// (@WORKSPACE@), and whether they are written as Windows paths.
struct Places {
    std::string install;
    std::string workspace;
#ifdef _WIN32
    bool windowsPaths = true;
#else
    bool windowsPaths = false;
#endif
};

// Replaces every `marker` with `path`. For Windows paths the rest of such a path (up to the end of
// its line) takes backslashes too, so records hold Windows paths.
void placePath(std::string& text, const std::string& marker, const std::string& path, bool windowsPaths) {
    for (std::size_t at = text.find(marker); at != std::string::npos; at = text.find(marker, at)) {
        text.replace(at, marker.size(), path);
        at += path.size();
        for (; windowsPaths && at < text.size() && text[at] != '\r' && text[at] != '\n'; ++at)
            if (text[at] == '/')
                text[at] = '\\';
    }
}

std::string placeInstall(std::string text, const Places& places) {
    placePath(text, "@INSTALL@", places.install, places.windowsPaths);
    placePath(text, "@WORKSPACE@", places.workspace, places.windowsPaths);
    return text;
}

// Copies the workspace `source` into `target` byte for byte, placing the paths.
void copyWorkspace(const fs::path& source, const fs::path& target, const Places& places) {
    fs::remove_all(target);
    fs::create_directories(target);
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        const fs::path to = target / fs::relative(entry.path(), source);
        if (entry.is_directory()) {
            fs::create_directories(to);
            continue;
        }
        fs::create_directories(to.parent_path());
        rd::test::writeBytes(to, placeInstall(rd::test::readBytes(entry.path()), places));
    }
}

// Map data: a small real map of that name (demo_maps.cpp).
std::string bspBytes(const std::string& name) {
    return rd::demo::demoMapBytes(name);
}

std::vector<PakEntry> maps(const std::vector<std::string>& names, const std::string& folder = "maps/") {
    std::vector<PakEntry> entries;
    for (const auto& n : names)
        entries.push_back({folder + n + ".bsp", bspBytes(n)});
    return entries;
}

void writeInstall(const fs::path& install) {
    const fs::path q2 = install / "quake2";
    fs::create_directories(q2 / "baseq2" / "maps");
    fs::create_directories(q2 / "baseq2" / "players");

    rd::test::writePak(q2 / "pak0.pak", maps({"q2ctf1", "q2ctf2", "q2ctf3", "q2ctf4", "q2ctf5"}));

    auto base = maps({"base1", "base2", "base3", "fact1", "fact2", "q2dm1", "q2dm2", "q2dm3", "q2dm4",
                      "q2dm5", "q2dm6", "q2dm7", "q2dm8"});
    base.insert(base.begin(), {{"pics/colormap.pcx", "PCX"}, {"sound/world/amb10.wav", "RIFF"}});
    base.push_back({"maps/readme.txt", "Maps of the demo installation"});
    base.push_back({"players/male/tris.md2", "IDP2"});
    rd::test::writePak(q2 / "baseq2" / "pak0.pak", base);

    auto more = maps({"city1", "city2", "boss1"});
    more.push_back({"maps/dm/lava.bsp", bspBytes("lava")});
    rd::test::writePak(q2 / "baseq2" / "pak1.pak", more);

    for (const char* loose : {"ztn2dm1.bsp", "DM_Aftershock.BSP", "q2duel.bsp"})
        rd::test::writeBytes(q2 / "baseq2" / "maps" / loose, bspBytes(loose));
    for (const char* model : {"male", "female", "cyborg", "crakhor", "Lisa", "ratamahatta"}) {
        fs::create_directories(q2 / "baseq2" / "players" / model);
        rd::test::writeBytes(q2 / "baseq2" / "players" / model / "tris.md2", "IDP2");
    }
    rd::test::writeBytes(q2 / "quake2.exe", "MZ");
}

// The clean workspace as a real installation under Wine: the prefix `prefix` with the drives c:
// (its drive_c) and z: (the root), the game in drive_c/Quake2 and the launcher's folder in
// drive_c/Tarnwick, whose records name them as C:\ paths. Windows has no such links and needs
// none: there the records name drive_c by its Windows path.
fs::path writeWineDemo(const fs::path& source, const fs::path& prefix) {
    fs::remove_all(prefix); // the z: link is removed, not followed
    const fs::path driveC = prefix / "drive_c";
    const fs::path launcher = driveC / "Tarnwick";
    fs::create_directories(driveC);
    writeInstall(driveC);
#ifdef _WIN32
    const Places places{driveC.string(), launcher.string()};
#else
    fs::rename(driveC / "quake2", driveC / "Quake2"); // as the game's installer names it
    fs::create_directories(prefix / "dosdevices");
    fs::create_directory_symlink("../drive_c", prefix / "dosdevices" / "c:");
    fs::create_directory_symlink("/", prefix / "dosdevices" / "z:");
    const Places places{"C:", "C:\\Tarnwick", true};
#endif
    copyWorkspace(source, launcher, places);
    return launcher;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: rosterdesk-make-demo <demo folder> <output folder>\n";
        return 2;
    }
    const fs::path source = argv[1];
    const fs::path output = fs::absolute(argv[2]);
    const fs::path install = output / "install";
    try {
        fs::remove_all(install);
        writeInstall(install);
        for (const char* name : {"workspace", "broken"}) {
            copyWorkspace(source / name, output / name, Places{install.string(), (output / name).string()});
            std::cout << "Demo workspace: " << (output / name).string() << "\n";
        }
        const fs::path wine = writeWineDemo(source / "workspace", output / "wine");
        std::cout << "Demo workspace under Wine: " << wine.string() << "\n";
    } catch (const std::exception& e) {
        std::cerr << "rosterdesk-make-demo: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
