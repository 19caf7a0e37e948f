#include "maps/pak.h"

#include "tests/support/pak_writer_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::catalogue_test {
namespace {

using test::buildPak;
using test::buildRawPak;
using test::TempWorkspace;

using Rows = std::vector<CatalogueRow>;

// A game whose record points at an installation inside the workspace.
void writeRecord(const TempWorkspace& ws, const std::string& game, const std::string& main,
                 const std::string& maps) {
    ws.writeLines("Game-Paths/" + game + "/" + game + ".Gme", {main, maps, "quake2.exe"});
}

Catalogue catalogue(const TempWorkspace& ws, const std::string& game,
                    std::vector<std::string>* errors = nullptr) {
    std::vector<std::string> ignored;
    return BuildCatalogue(ws.root(), game, collectAndIgnore(errors ? *errors : ignored));
}

TEST(Catalogue, MissingRecordGivesCouldNotFindWithTheRecordPath) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    const auto result = catalogue(ws, "Quake2");
    EXPECT_FALSE(result.recordFound);
    EXPECT_EQ(result.message,
              "Could not find " + ws.path("Game-Paths/Quake2/Quake2.Gme").make_preferred().string());
    EXPECT_TRUE(result.rows.empty());
}

TEST(Catalogue, ArchivesOfOneFolderComeInListingOrder) {
    TempWorkspace ws;
    const std::string q2 = ws.path("q2").string();
    writeRecord(ws, "Quake2", q2 + "/", ws.path("q2/baseq2/maps").string());
    ws.write("q2/baseq2/pak1.pak", buildPak({{"maps/z1.bsp", ""}, {"maps/z2.bsp", ""}}));
    ws.write("q2/baseq2/pak0.pak", buildPak({{"maps/base1.bsp", ""}, {"maps/base2.bsp", ""}}));
    EXPECT_EQ(catalogue(ws, "Quake2").rows, (Rows{{"base1", "BaseQ2 pak0.pak"},
                                                  {"base2", "BaseQ2 pak0.pak"},
                                                  {"z1", "BaseQ2 pak1.pak"},
                                                  {"z2", "BaseQ2 pak1.pak"}}));
}

TEST(Catalogue, MainFolderArchiveIsListedTwiceAsQuake2AndCtf) {
    TempWorkspace ws;
    writeRecord(ws, "Quake2", ws.path("q2").string(), "");
    ws.write("q2/pak0.pak", buildPak({{"maps/q2ctf1.bsp", ""}, {"maps/q2ctf2.bsp", ""}}));
    EXPECT_EQ(catalogue(ws, "Quake2").rows, (Rows{{"q2ctf1", "Quake2 pak0.pak"},
                                                  {"q2ctf2", "Quake2 pak0.pak"},
                                                  {"q2ctf1", "CTF pak0.pak"},
                                                  {"q2ctf2", "CTF pak0.pak"}}));
}

TEST(Catalogue, FoldersAreScannedInTheFixedOrderThenLooseMaps) {
    TempWorkspace ws;
    writeRecord(ws, "Quake2", ws.path("q2").string() + "/", ws.path("q2/baseq2/maps").string());
    ws.write("q2/ace/PAK0.PAK", buildPak({{"maps/acemap.bsp", ""}}));
    ws.write("q2/crbot/pak0.pak", buildPak({{"maps/crmap.bsp", ""}}));
    ws.write("q2/eraser/pak0.pak", buildPak({{"maps/ermap.bsp", ""}}));
    ws.write("q2/baseq2/pak0.pak", buildPak({{"maps/base1.bsp", ""}}));
    ws.write("q2/ctf/pak0.pak", buildPak({{"maps/notscanned.bsp", ""}}));
    ws.write("q2/baseq2/maps/E1M1.BSP", "");
    ws.write("q2/baseq2/maps/a.bsp.BSP", "");
    ws.write("q2/baseq2/maps/notes.txt", "");
    EXPECT_EQ(catalogue(ws, "Quake2").rows, (Rows{{"base1", "BaseQ2 pak0.pak"},
                                                  {"ermap", "Eraser pak0.pak"},
                                                  {"crmap", "CRbot pak0.pak"},
                                                  {"acemap", "ACE PAK0.PAK"},
                                                  {"a", "Custom Maps"},
                                                  {"E1M1", "Custom Maps"}}));
}

TEST(Catalogue, LooseFilesKeepTheirCaseWhileArchiveNamesAreLowerCase) {
    TempWorkspace ws;
    writeRecord(ws, "Quake2", ws.path("q2").string(), ws.path("maps").string());
    ws.write("q2/baseq2/pak0.pak", buildPak({{"MAPS/Q2DM1.BSP", ""}}));
    ws.write("maps/Q2DM1.bsp", "");
    EXPECT_EQ(catalogue(ws, "Quake2").rows, (Rows{{"q2dm1", "BaseQ2 pak0.pak"}, {"Q2DM1", "Custom Maps"}}));
}

TEST(Catalogue, SameMapInTwoArchivesGivesTwoRows) {
    TempWorkspace ws;
    writeRecord(ws, "Quake2", ws.path("q2").string(), "");
    ws.write("q2/baseq2/pak0.pak", buildPak({{"maps/q2dm1.bsp", ""}}));
    ws.write("q2/baseq2/pak1.pak", buildPak({{"maps/q2dm1.bsp", ""}}));
    EXPECT_EQ(catalogue(ws, "Quake2").rows,
              (Rows{{"q2dm1", "BaseQ2 pak0.pak"}, {"q2dm1", "BaseQ2 pak1.pak"}}));
}

TEST(Catalogue, DamagedArchiveAddsNothingAndTheNextIsStillScanned) {
    TempWorkspace ws;
    writeRecord(ws, "Quake2", ws.path("q2").string(), "");
    ws.write("q2/baseq2/pak0.pak", buildRawPak("PACK", -1, 64, "", 12));
    ws.write("q2/baseq2/pak1.pak", buildPak({{"maps/ok.bsp", ""}}));
    std::vector<std::string> errors;
    EXPECT_EQ(catalogue(ws, "Quake2", &errors).rows, (Rows{{"ok", "BaseQ2 pak1.pak"}}));
    EXPECT_TRUE(errors.empty());
}

TEST(Catalogue, OnlyPakNamedArchivesAreScanned) {
    TempWorkspace ws;
    writeRecord(ws, "Quake2", ws.path("q2").string(), "");
    ws.write("q2/baseq2/extra.pak", buildPak({{"maps/hidden.bsp", ""}}));
    ws.write("q2/baseq2/pak0.pk3", buildPak({{"maps/hidden.bsp", ""}}));
    ws.write("q2/baseq2/pakextra.pak", buildPak({{"maps/shown.bsp", ""}}));
    EXPECT_EQ(catalogue(ws, "Quake2").rows, (Rows{{"shown", "BaseQ2 pakextra.pak"}}));
}

TEST(Catalogue, MissingFoldersListNothing) {
    TempWorkspace ws;
    writeRecord(ws, "Quake2", ws.path("nowhere").string(), ws.path("nowhere/maps").string());
    const auto result = catalogue(ws, "Quake2");
    EXPECT_TRUE(result.recordFound);
    EXPECT_TRUE(result.rows.empty());
}

TEST(AddPak, EmptyFolderAddsNothing) {
    std::vector<std::string> errors;
    StepRunner trap(collectAndIgnore(errors));
    Rows rows{{"kept", "x"}};
    AddPak("", "Quake2", rows, trap, WinePrefix{});
    EXPECT_EQ(rows, (Rows{{"kept", "x"}}));
}

TEST(AddPak, TitleIsTrimmedAndJoinedToArchiveNameByOneBlank) {
    TempWorkspace ws;
    ws.write("game/pak0.pak", buildPak({{"maps/m.bsp", ""}}));
    std::vector<std::string> errors;
    StepRunner trap(collectAndIgnore(errors));
    Rows rows;
    AddPak(ws.path("game").string(), "  My Title ", rows, trap, WinePrefix{});
    EXPECT_EQ(rows, (Rows{{"m", "My Title pak0.pak"}}));
}

TEST(AddPak, FolderWithBackslashesIsUnderstood) {
    TempWorkspace ws;
    ws.write("Game/Sub/pak0.pak", buildPak({{"maps/m.bsp", ""}}));
    std::vector<std::string> errors;
    StepRunner trap(collectAndIgnore(errors));
    Rows rows;
    std::string folder = ws.root().string() + "\\game\\SUB";
    AddPak(folder, "T", rows, trap, WinePrefix{});
    EXPECT_EQ(rows, (Rows{{"m", "T pak0.pak"}}));
}

TEST(LooseMapName, BspCutCaseInsensitiveFirstThenCaseSensitive) {
    EXPECT_EQ(looseMapName("E1M1.BSP"), "E1M1");
    EXPECT_EQ(looseMapName("a.bsp.BSP"), "a");
    EXPECT_EQ(looseMapName("b.BSP.bsp"), "b");
    EXPECT_EQ(looseMapName("q2dm1.bsp"), "q2dm1");
}

} // namespace
} // namespace rd::catalogue_test
