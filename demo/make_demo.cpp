// Builds the demo workspace: copies demo/workspace byte for byte (replacing @INSTALL@ with the
// fake installation's path) and writes a small fake Quake 2 installation beside it.
//
//   rosterdesk-make-demo <demo/workspace> <output folder>

#include "tests/support/pak_writer_data.h"
#include "tests/support/workspace_data.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using rd::test::PakEntry;

namespace {

std::string replaceAllText(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

// Map data: a few bytes that look like the start of a BSP file.
std::string bspBytes(const std::string& name) {
    return std::string("IBSP\x26\0\0\0", 8) + name;
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
        std::cerr << "usage: rosterdesk-make-demo <demo/workspace> <output folder>\n";
        return 2;
    }
    const fs::path source = argv[1];
    const fs::path output = fs::absolute(argv[2]);
    const fs::path workspace = output / "workspace";
    const fs::path install = output / "install";
    try {
        fs::remove_all(workspace);
        fs::remove_all(install);
        writeInstall(install);
        const std::string installText = install.string();
        for (const auto& entry : fs::recursive_directory_iterator(source)) {
            const fs::path target = workspace / fs::relative(entry.path(), source);
            if (entry.is_directory()) {
                fs::create_directories(target);
                continue;
            }
            fs::create_directories(target.parent_path());
            rd::test::writeBytes(target,
                                 replaceAllText(rd::test::readBytes(entry.path()), "@INSTALL@", installText));
        }
        std::cout << "Demo workspace: " << workspace.string() << "\n";
    } catch (const std::exception& e) {
        std::cerr << "rosterdesk-make-demo: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
