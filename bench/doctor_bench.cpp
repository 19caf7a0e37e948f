// The workspace doctor on a workspace of 10,000 profiles, 200 plug-in bots and 20 games with full
// definition files, beside a baseline that loads the same files in one process the way
// rosterdesk-cli resave does (each file through its own loader, nothing saved; the profiles'
// profile.cfg through the profile owner reader), from a list of files made before timing.

#include "definitions/dmflags.h"
#include "definitions/lists.h"
#include "definitions/options.h"
#include "doctor/doctor.h"
#include "games/gamerecord.h"
#include "maps/arenas.h"
#include "maps/categories.h"
#include "models/genders.h"
#include "plugins/setupfiles.h"
#include "plugins/wizard.h"
#include "profiles/profiles.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/workspace_data.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using rd::test::TempWorkspace;

constexpr int kProfiles = 10000;
constexpr int kBots = 200;
constexpr int kGames = 20;

std::string option(const std::string& name, int type, const std::string& key, const std::string& parameter,
                   const std::string& checked, const std::string& where) {
    return name + "\r\n" + std::to_string(type) + "\r\n" + key + "\t" + parameter + "\t" + checked + "\t\t" +
           where + "\tWhat " + name + " does\r\n";
}

std::string flag(const std::string& name, int checked, int unchecked) {
    return name + "\r\n\r\n<DMFlags>\t" + std::to_string(checked) + "\t" + std::to_string(unchecked) +
           "\tWhat " + name + " does\r\n";
}

// A full option definition file: four categories of ten options of every type.
std::string optionFile(const std::string& prefix) {
    std::string text;
    int n = 0;
    for (int category = 0; category < 4; ++category) {
        text += "[" + prefix + " Category " + std::to_string(category) + "]\r\n";
        for (int i = 0; i < 10; ++i, ++n) {
            const std::string key = prefix.substr(0, 2) + std::to_string(n);
            const std::string set = "+set " + key + " %s";
            switch (n % 6) {
            case 0:
                text += option("Number " + key, 3, key, "0:" + std::to_string(10 + n), set, "0");
                break;
            case 1:
                text += option("Skill " + key, 7, key, "skill.val", set, "1");
                break;
            case 2:
                text += option("Map " + key, 6, key, "maps.lst", set, "2");
                break;
            case 3: // ENABLE: Checked names the category to enable
                text += option("Enable " + key, 9, key, "", prefix + " Category " + std::to_string(category),
                               "0");
                break;
            default:
                text += option("Switch " + key, n % 3, key, "", set, "0");
            }
        }
    }
    return text;
}

std::string flagFile() {
    std::string text = "[Items]\r\n";
    for (int bit = 0; bit < 26; ++bit)
        text += bit % 2 ? flag("Flag " + std::to_string(bit), 1 << bit, 0)
                        : flag("Flag " + std::to_string(bit), 0, 1 << bit);
    return text;
}

std::string lines(const std::vector<std::string>& content) {
    return rd::test::crlf(content);
}

struct Workspace {
    TempWorkspace ws;
    TempWorkspace installation;
    // The files and their loaders, as rosterdesk-cli resave would load them.
    std::vector<std::function<void()>> loads;
};

const Workspace& workspace() {
    static const auto built = [] {
        auto w = std::make_unique<Workspace>();
        auto& ws = w->ws;
        const fs::path root = ws.root();

        // One installation for every game.
        std::vector<rd::test::PakEntry> maps;
        for (int m = 0; m < 40; ++m)
            maps.push_back({"maps/map" + std::to_string(m) + ".bsp", "IBSP"});
        w->installation.folder("quake2/baseq2/maps");
        rd::test::writePak(w->installation.path("quake2/baseq2/pak0.pak"), maps);
        w->installation.write("quake2/baseq2/maps/loose.bsp", "IBSP");
        for (const char* model : {"male", "female", "cyborg", "crakhor"})
            w->installation.folder(std::string("quake2/baseq2/players/") + model);
        const std::string install = w->installation.root().string();

        for (int g = 0; g < kGames; ++g) {
            const std::string game = "Game" + std::to_string(g);
            const std::string folder = "Game-Paths/" + game + "/";
            const std::vector<std::string> record = {install + "/quake2/",
                                                     install + "/quake2/baseq2/maps/",
                                                     "quake2.exe",
                                                     "",
                                                     install + "/quake2/baseq2/players",
                                                     "_i.pcx",
                                                     "",
                                                     "tris.md2",
                                                     " 0 ",
                                                     " 1 ",
                                                     " 1 ",
                                                     install + "/quake2/baseq2/maps/"};
            ws.write(folder + game + ".Gme", lines(record));
            ws.write(folder + "Template.cfg",
                     lines({"<PATH>", "<PATH>baseq2\\maps", "quake2.exe", "", "<PATH>baseq2\\players",
                            "_i.pcx", "", "tris.md2", " 0 ", " 1 ", " 1 ", "<PATH>baseq2\\maps"}));
            ws.write(folder + "ExecCommands.cfg",
                     lines({"set deathmatch 1", "Deathmatch", "set fraglimit 30", "Frags"}));
            ws.write(folder + "Options.cfg", optionFile("Game"));
            ws.write(folder + "Opt-User.cfg", optionFile("User"));
            ws.write(folder + "DMflags.cfg", flagFile());
            ws.write(folder + "DMcustom.cfg", flagFile());
            ws.write(folder + "skill.val",
                     lines({"Easy", "0", "Medium", "1", "Hard", "2", "Nightmare", "3"}));
            ws.write(folder + "weapons.val", lines({"Blaster", "1", "Shotgun", "2", "Railgun", "9"}));
            ws.write(folder + "maps.lst", lines({"map0", "map1", "map2", "map3"}));
            for (int c = 0; c < 5; ++c) {
                std::vector<std::string> category = {c % 2 ? "[ARENA]" : "[V2]"};
                for (int m = 0; m < 20; ++m) {
                    category.push_back("map" + std::to_string((c * 7 + m) % 40));
                    category.push_back("Map title " + std::to_string(m));
                }
                ws.write(folder + "Category" + std::to_string(c) + ".map", lines(category));
                ws.write(folder + "map" + std::to_string(c) + ".ra2",
                         lines({"Upper Deck", "Rail Room", "Pit"}));
            }
            ws.write(folder + "Female.cfg", lines({"female", "crakhor"}));

            auto& loads = w->loads;
            const fs::path base = rd::gameFolder(root, game);
            loads.push_back([=] {
                rd::StepRunner runner(nullptr);
                benchmark::DoNotOptimize(rd::readGameRecordFile(base / (game + ".Gme"), runner));
            });
            loads.push_back([=] {
                rd::StepRunner runner(nullptr);
                benchmark::DoNotOptimize(rd::readTemplateFile(base / "Template.cfg", runner));
            });
            loads.push_back([=] { benchmark::DoNotOptimize(rd::readWizardFile(base / "ExecCommands.cfg")); });
            for (const char* file : {"Options.cfg", "Opt-User.cfg"})
                loads.push_back([=] { benchmark::DoNotOptimize(rd::LoadDefinitions(base / file)); });
            for (const char* file : {"DMflags.cfg", "DMcustom.cfg"})
                loads.push_back([=] { benchmark::DoNotOptimize(rd::LoadDMflags(base / file)); });
            for (const char* file : {"skill.val", "weapons.val", "maps.lst"})
                loads.push_back(
                    [=] { benchmark::DoNotOptimize(rd::LoadList(base / file, rd::isValueListName(file))); });
            for (int c = 0; c < 5; ++c) {
                const fs::path category = base / ("Category" + std::to_string(c) + ".map");
                const fs::path arenas = base / ("map" + std::to_string(c) + ".ra2");
                loads.push_back([=] { benchmark::DoNotOptimize(rd::LoadCategory(category)); });
                loads.push_back([=] { benchmark::DoNotOptimize(rd::LoadArenas(arenas)); });
            }
            loads.push_back([=] { benchmark::DoNotOptimize(rd::readFemaleList(base / "Female.cfg")); });
        }

        for (int b = 0; b < kBots; ++b) {
            const std::string bot = "Bot" + std::to_string(b);
            const std::string folder = "Plug-Ins/" + bot + "/";
            ws.write(folder + "Setup.cfg", lines({"Game" + std::to_string(b % kGames),
                                                  bot,
                                                  " 0 ",
                                                  "bots.cfg",
                                                  " 0 ",
                                                  "chat.txt",
                                                  " 2 ",
                                                  "maps.txt",
                                                  " 1 ",
                                                  "autoexec.cfg",
                                                  " 1 ",
                                                  "launcher.cfg",
                                                  " 0 ",
                                                  "tw.cfg",
                                                  " 0 ",
                                                  " 1 ",
                                                  "routes",
                                                  "*.zipped",
                                                  "skins",
                                                  "readme.txt",
                                                  "male/grunt",
                                                  " 0 ",
                                                  ""}));
            ws.write(folder + "ChatFiles.cfg", lines({"insults.txt", "taunts.txt"}));
            ws.write(folder + "Skills.cfg", lines({"2", "Novice", "Average", "Expert"}));
            ws.write(folder + "ExecCommands.cfg", lines({"bot_num 6", "Bots to start with"}));
            ws.write(folder + "Options.cfg", optionFile("Bot"));
            ws.write(folder + "DMflags.cfg", flagFile());

            auto& loads = w->loads;
            const fs::path base = rd::pluginFolder(root, bot);
            loads.push_back([=] {
                rd::StepRunner runner(nullptr);
                benchmark::DoNotOptimize(rd::LoadPluginSetup(base, runner));
            });
            loads.push_back([=] { benchmark::DoNotOptimize(rd::readWizardFile(base / "ExecCommands.cfg")); });
            loads.push_back([=] { benchmark::DoNotOptimize(rd::LoadDefinitions(base / "Options.cfg")); });
            loads.push_back([=] { benchmark::DoNotOptimize(rd::LoadDMflags(base / "DMflags.cfg")); });
        }

        for (int p = 0; p < kProfiles; ++p) {
            const std::string profile = "Profile " + std::to_string(p);
            ws.write(profile + "/profile.cfg", lines({"Bot" + std::to_string(p % kBots),
                                                      "skill=" + std::to_string(p % 5), "maps=map1,map2"}));
            w->loads.push_back([=] { benchmark::DoNotOptimize(rd::readProfileOwner(root, profile)); });
        }
        return w;
    }();
    return *built;
}

void Doctor(benchmark::State& state) {
    const auto& w = workspace();
    std::size_t findings = 0;
    for (auto _ : state) {
        const auto found = rd::Diagnose(w.ws.root());
        findings = found.size();
        benchmark::DoNotOptimize(found.data());
    }
    if (findings != 0)
        state.SkipWithError("the benchmark's workspace is not clean");
    state.counters["findings"] = static_cast<double>(findings);
}

void BaselineResaveStyleLoading(benchmark::State& state) {
    const auto& w = workspace();
    for (auto _ : state)
        for (const auto& load : w.loads)
            load();
    state.counters["files"] = static_cast<double>(w.loads.size());
}

} // namespace

BENCHMARK(Doctor)->Unit(benchmark::kMillisecond);
BENCHMARK(BaselineResaveStyleLoading)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
