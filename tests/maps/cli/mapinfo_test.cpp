// rosterdesk-cli mapinfo: the card of a map of the game's catalogue as JSON, run through the built
// program on a temporary workspace.

#include "tests/support/bsp_writer_data.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace rd::mapinfo_test {

using nlohmann::json;
using test::BspBuilder;
using test::TempWorkspace;

test::ProgramRun mapinfo(const TempWorkspace& ws, const std::vector<std::string>& args) {
    std::vector<std::string> all = {"--root", ws.root().string(), "mapinfo"};
    all.insert(all.end(), args.begin(), args.end());
    return test::runProgram(ROSTERDESK_CLI, all);
}

void fillInstallation(const TempWorkspace& ws) {
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {ws.path("q2").string(), ws.path("q2/maps").string()});
    BspBuilder builder;
    builder.addRoom(-64.5f, 0, 192, 128, -16, 112);
    builder.addRoom(256, 0, 512, 0.1f, 0, 128);
    const std::string edge = test::buildBsp(builder.build(test::entityText({
        {{"classname", "worldspawn"}, {"message", "The Edge \xE9t\xE9\\nby us"}},
        {{"classname", "info_player_deathmatch"}},
        {{"classname", "info_player_deathmatch"}},
        {{"classname", "info_player_start"}},
        {{"classname", "info_player_team2"}},
        {{"classname", "item_flag_team2"}},
        {{"classname", "weapon_railgun"}},
        {{"classname", "weapon_shotgun"}},
    })));
    ws.write("q2/baseq2/pak0.pak", test::buildPak({{"pics/x.pcx", "x"}, {"maps/q2dm1.bsp", edge}}));
    BspBuilder plain;
    plain.addRoom(0, 0, 64, 64, 0, 64);
    ws.write("q2/maps/Plain.bsp",
             test::buildBsp(plain.build(test::entityText({{{"classname", "worldspawn"}}}))));
    std::string broken = test::buildBsp(plain.build(test::entityText({})));
    test::setBspLump(broken, test::kLumpEdges, 100, 1 << 20);
    ws.write("q2/maps/broken.bsp", broken);
}

TEST(CliMapinfo, PrintsTheCardOfTheMapAsJson) {
    TempWorkspace ws;
    fillInstallation(ws);
    const auto run = mapinfo(ws, {"Quake2", "Q2DM1"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.json(), json::parse(R"({"name": "q2dm1", "source": "BaseQ2 pak0.pak",
        "title": "The Edge \u00e9t\u00e9 by us", "deathmatchSpawns": 2, "singleStarts": 1, "teamSpawns": [0, 1],
        "ctf": true, "weapons": ["weapon_shotgun", "weapon_railgun"],
        "bounds": {"min": [-64.5, 0, -16], "max": [512, 128, 128]}, "planEdges": 8})"));
    // The keys come in this order.
    EXPECT_LT(run.out.find("\"name\""), run.out.find("\"source\""));
    EXPECT_LT(run.out.find("\"weapons\""), run.out.find("\"bounds\""));
    EXPECT_LT(run.out.find("\"bounds\""), run.out.find("\"planEdges\""));
}

TEST(CliMapinfo, ALooseMapWithoutAMessageHasAnEmptyTitle) {
    TempWorkspace ws;
    fillInstallation(ws);
    const auto run = mapinfo(ws, {"Quake2", "plain"});
    ASSERT_EQ(run.status, 0) << run.err;
    const json card = run.json();
    EXPECT_EQ(card["name"], "Plain");
    EXPECT_EQ(card["source"], "Custom Maps");
    EXPECT_EQ(card["title"], "");
    EXPECT_EQ(card["weapons"], json::array());
    EXPECT_EQ(card["planEdges"], 4);
}

TEST(CliMapinfo, AMapNotInTheCatalogueIsStatusTwo) {
    TempWorkspace ws;
    fillInstallation(ws);
    const auto run = mapinfo(ws, {"Quake2", "q2dm9"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "Map not found: q2dm9\n");
}

TEST(CliMapinfo, AGameWithoutARecordIsStatusTwo) {
    TempWorkspace ws;
    const auto run = mapinfo(ws, {"Nothing", "q2dm1"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err.rfind("Could not find ", 0), 0u) << run.err;
}

TEST(CliMapinfo, ADamagedMapPrintsItsErrorWithStatusOne) {
    TempWorkspace ws;
    fillInstallation(ws);
    const auto run = mapinfo(ws, {"Quake2", "broken"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.json(), json::parse(R"({"name": "broken", "source": "Custom Maps",
        "error": "damaged map: the edge lump runs past the end of the map"})"));
    EXPECT_EQ(run.err, "broken: damaged map: the edge lump runs past the end of the map\n");
}

TEST(CliMapinfo, NeedsAGameAndAMap) {
    TempWorkspace ws;
    EXPECT_EQ(mapinfo(ws, {"Quake2"}).status, 2);
}

#ifdef _WIN32
TEST(CliMapinfoOnWindows, ReadsMapsThroughARecordWithDriveLetterPaths) {
    TempWorkspace ws;
    const std::string main = std::filesystem::path(ws.path("Quake2")).make_preferred().string() + "\\";
    ASSERT_EQ(main.substr(1, 2), ":\\") << main;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {main, main + "baseq2\\maps\\"});
    BspBuilder builder;
    builder.addRoom(0, 0, 128, 64, 0, 64);
    const std::string map = test::buildBsp(
        builder.build(test::entityText({{{"classname", "worldspawn"}, {"message", "Through Z"}}})));
    ws.write("Quake2/baseq2/pak0.pak",
             test::buildPak({{"pics/a.pcx", std::string(5000, 'a')}, {"maps/z.bsp", map}}));
    ws.write("Quake2/baseq2/maps/Loose.bsp", map);
    const std::string root = std::filesystem::path(ws.root()).make_preferred().string();
    for (const char* name : {"z", "loose"}) {
        const auto run = test::runProgram(ROSTERDESK_CLI, {"--root", root, "mapinfo", "Quake2", name});
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.json()["title"], "Through Z");
        EXPECT_EQ(run.json()["planEdges"], 4);
    }
}
#endif

} // namespace rd::mapinfo_test
