// Builds the demo workspaces: copies demo/workspace (the clean one) and demo/broken (the one the
// workspace doctor finds every kind of fault in) byte for byte, replacing @INSTALL@ with the fake
// installation's path, and writes a small fake Quake 2 installation beside them.
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

// Replaces every @INSTALL@ with the installation's path. On Windows the rest of such a path
// (up to the end of its line) takes backslashes too, so records hold Windows paths.
std::string placeInstall(std::string text, const std::string& install) {
    const std::string marker = "@INSTALL@";
    for (std::size_t at = text.find(marker); at != std::string::npos; at = text.find(marker, at)) {
        text.replace(at, marker.size(), install);
        at += install.size();
#ifdef _WIN32
        for (; at < text.size() && text[at] != '\r' && text[at] != '\n'; ++at)
            if (text[at] == '/')
                text[at] = '\\';
#endif
    }
    return text;
}

// Copies the workspace `source` into `target` byte for byte, placing the installation's path.
void copyWorkspace(const fs::path& source, const fs::path& target, const std::string& install) {
    fs::remove_all(target);
    fs::create_directories(target);
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        const fs::path to = target / fs::relative(entry.path(), source);
        if (entry.is_directory()) {
            fs::create_directories(to);
            continue;
        }
        fs::create_directories(to.parent_path());
        rd::test::writeBytes(to, placeInstall(rd::test::readBytes(entry.path()), install));
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
        const std::string installText = install.string();
        for (const char* name : {"workspace", "broken"}) {
            copyWorkspace(source / name, output / name, installText);
            std::cout << "Demo workspace: " << (output / name).string() << "\n";
        }
    } catch (const std::exception& e) {
        std::cerr << "rosterdesk-make-demo: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
