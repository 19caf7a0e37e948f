// The cards of the installed-maps catalogue's rows: each row's map is read from the archive or
// the loose file the row was found in.

#include "maps/mapcard.h"

#include "core/steprunner.h"
#include "tests/support/bsp_writer_data.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::mapcard_test {

using test::BspBuilder;
using test::TempWorkspace;

// A small map titled `title`.
std::string mapTitled(const std::string& title) {
    BspBuilder builder;
    builder.addRoom(0, 0, 128, 128, 0, 96);
    return test::buildBsp(
        builder.build(test::entityText({{{"classname", "worldspawn"}, {"message", title}}})));
}

// A game whose folders hold each map of the catalogue under a title naming where it lies.
void fillInstallation(const TempWorkspace& ws) {
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme",
                  {ws.path("q2").string(), ws.path("q2/baseq2/maps").string(), "quake2.exe"});
    ws.write("q2/pak0.pak", test::buildPak({{"maps/q2ctf1.bsp", mapTitled("main pak0 q2ctf1")}}));
    ws.write("q2/baseq2/pak0.pak",
             test::buildPak({{"pics/colormap.pcx", std::string(777, 'c')},
                             {"MAPS/Q2DM1.BSP", mapTitled("baseq2 pak0 q2dm1")},
                             {"maps/dm/lava.bsp", mapTitled("baseq2 pak0 dm/lava")},
                             {"maps/q2dm1.bsp", mapTitled("baseq2 pak0 second q2dm1")}}));
    ws.write("q2/baseq2/PAK1.PAK", test::buildPak({{"maps/q2dm1.bsp", mapTitled("baseq2 PAK1 q2dm1")}}));
    ws.write("q2/eraser/pak0.pak", test::buildPak({{"maps/eraser1.bsp", mapTitled("eraser pak0")}}));
    ws.write("q2/crbot/pak0.pak", test::buildPak({{"maps/crbot1.bsp", mapTitled("crbot pak0")}}));
    ws.write("q2/ace/pak0.pak", test::buildPak({{"maps/ace1.bsp", mapTitled("ace pak0")}}));
    ws.write("q2/baseq2/maps/E1M1.BSP", mapTitled("loose E1M1"));
    ws.write("q2/baseq2/maps/a.bsp.BSP", mapTitled("loose a"));
}

std::string titleOf(const TempWorkspace& ws, const CatalogueRow& row) {
    const CardResult result = CatalogueCard(ws.root(), "Quake2", row);
    EXPECT_TRUE(result.ok()) << row.name << " " << row.source << ": " << result.reason;
    EXPECT_EQ(result.card.name, row.name);
    return result.card.title;
}

TEST(CatalogueCard, EachRowIsReadFromTheArchiveItWasFoundIn) {
    TempWorkspace ws;
    fillInstallation(ws);
    std::vector<std::string> errors;
    const Catalogue catalogue = BuildCatalogue(ws.root(), "Quake2", collectAndIgnore(errors));
    std::vector<std::string> titles;
    for (const CatalogueRow& row : catalogue.rows)
        titles.push_back(row.name + "|" + row.source + "|" + titleOf(ws, row));
    EXPECT_EQ(titles, (std::vector<std::string>{
                          "q2ctf1|Quake2 pak0.pak|main pak0 q2ctf1",
                          "q2ctf1|CTF pak0.pak|main pak0 q2ctf1",
                          "q2dm1|BaseQ2 pak0.pak|baseq2 pak0 q2dm1",
                          "dm/lava|BaseQ2 pak0.pak|baseq2 pak0 dm/lava",
                          // The second q2dm1 of one archive is never reached: the first entry of that
                          // name is the map the catalogue's row stands for.
                          "q2dm1|BaseQ2 pak0.pak|baseq2 pak0 q2dm1",
                          "q2dm1|BaseQ2 PAK1.PAK|baseq2 PAK1 q2dm1",
                          "eraser1|Eraser pak0.pak|eraser pak0",
                          "crbot1|CRbot pak0.pak|crbot pak0",
                          "ace1|ACE pak0.pak|ace pak0",
                          "a|Custom Maps|loose a",
                          "E1M1|Custom Maps|loose E1M1",
                      }));
}

TEST(CatalogueCard, ARowWhoseMapIsNoLongerThereIsNotFound) {
    TempWorkspace ws;
    fillInstallation(ws);
    EXPECT_EQ(CatalogueCard(ws.root(), "Quake2", {"q2dm9", "BaseQ2 pak0.pak"}).reason, kNotFoundInAnyArchive);
    EXPECT_EQ(CatalogueCard(ws.root(), "Quake2", {"q2dm1", "BaseQ2 pak7.pak"}).reason, kNotFoundInAnyArchive);
    EXPECT_EQ(CatalogueCard(ws.root(), "Quake2", {"e1m1", "Custom Maps"}).reason, kNotFoundInAnyArchive);
    EXPECT_EQ(CatalogueCard(ws.root(), "Quake2", {"q2dm1", "Elsewhere pak0.pak"}).reason,
              kNotFoundInAnyArchive);
}

TEST(CatalogueCard, AGameWithoutARecordSaysCouldNotFind) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    const CardResult result = CatalogueCard(ws.root(), "Quake2", {"q2dm1", "BaseQ2 pak0.pak"});
    EXPECT_EQ(result.reason,
              "Could not find " + ws.path("Game-Paths/Quake2/Quake2.Gme").make_preferred().string());
}

TEST(CatalogueCard, ADamagedMapInAnArchiveSaysWhatIsWrong) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {ws.path("q2").string(), ws.path("q2/maps").string()});
    std::string cut = mapTitled("cut");
    cut.resize(100);
    ws.write("q2/baseq2/pak0.pak", test::buildPak({{"maps/cut.bsp", cut}}));
    // An entry whose data lies past the end of the archive.
    ws.write("q2/baseq2/pak1.pak",
             test::buildRawPak("PACK", 12, 64, test::pakDirectoryEntry("maps/gone.bsp", 5000, 400), 12));
    EXPECT_EQ(CatalogueCard(ws.root(), "Quake2", {"cut", "BaseQ2 pak0.pak"}).reason,
              std::string(kDamagedMap) + "it ends inside its header");
    EXPECT_EQ(CatalogueCard(ws.root(), "Quake2", {"gone", "BaseQ2 pak1.pak"}).reason,
              std::string(kDamagedMap) + "its archive entry runs past the end of the archive");
}

TEST(FindMapCard, TakesTheFirstRowOfThatNameWithoutRegardToCase) {
    TempWorkspace ws;
    fillInstallation(ws);
    const CardResult result = FindMapCard(ws.root(), "Quake2", "Q2DM1");
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.name, "q2dm1");
    EXPECT_EQ(result.card.title, "baseq2 pak0 q2dm1");
    EXPECT_EQ(FindMapCard(ws.root(), "Quake2", "e1m1").card.title, "loose E1M1");
    EXPECT_EQ(FindMapCard(ws.root(), "Quake2", "DM/Lava").card.title, "baseq2 pak0 dm/lava");
}

TEST(FindMapCard, AMapTheCatalogueDoesNotHoldIsNotFoundInAnyArchive) {
    TempWorkspace ws;
    fillInstallation(ws);
    EXPECT_EQ(FindMapCard(ws.root(), "Quake2", "q2dm9").reason, "not found in any archive");
    EXPECT_EQ(FindMapCard(ws.root(), "Quake2", "").reason, "not found in any archive");
}

TEST(FindMapCard, AGameWithoutARecordSaysCouldNotFind) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    EXPECT_EQ(FindMapCard(ws.root(), "Quake2", "q2dm1").reason,
              "Could not find " + ws.path("Game-Paths/Quake2/Quake2.Gme").make_preferred().string());
}

TEST(FindPakMap, GivesTheFirstMapEntryOfThatNameWithItsPositionAndLength) {
    TempWorkspace ws;
    ws.write("pak0.pak",
             test::buildPak(
                 {{"maps/readme.txt", "12345"}, {"MAPS/Q2DM1.BSP", "abc"}, {"maps/q2dm1.bsp", "second"}}));
    const auto place = FindPakMap(ws.path("pak0.pak"), "q2dm1");
    ASSERT_TRUE(place.has_value());
    EXPECT_EQ(place->position, 12 + 5);
    EXPECT_EQ(place->length, 3);
    EXPECT_FALSE(FindPakMap(ws.path("pak0.pak"), "Q2DM1").has_value());
    EXPECT_FALSE(FindPakMap(ws.path("pak0.pak"), "readme").has_value());
    EXPECT_FALSE(FindPakMap(ws.path("none.pak"), "q2dm1").has_value());
}

} // namespace rd::mapcard_test
