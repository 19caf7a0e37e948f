#include "maps/arenas.h"

#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::arenas_test {
namespace {

using test::crlf;
using test::TempWorkspace;

using Lines = std::vector<std::string>;

TEST(ArenaFile, EmptyLineInTheMiddleIsAnEntryAndSavesBack) {
    TempWorkspace ws;
    const std::string bytes = crlf({"a", "", "b"});
    ws.write("Game-Paths/Quake2/q2dm1.ra2", bytes);
    const auto arenas = LoadArenas(ws.path("Game-Paths/Quake2/q2dm1.ra2"));
    EXPECT_EQ(arenas, (Lines{"a", "", "b"}));
    SaveArenas(ws.path("Game-Paths/Quake2/q2dm1.ra2"), arenas);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/q2dm1.ra2"), bytes);
}

TEST(ArenaFile, LastLineWithoutTerminatorLoadsAndGainsCrLfOnSave) {
    TempWorkspace ws;
    ws.write("q2dm1.ra2", "North\r\nSouth");
    const auto arenas = LoadArenas(ws.path("q2dm1.ra2"));
    EXPECT_EQ(arenas, (Lines{"North", "South"}));
    SaveArenas(ws.path("q2dm1.ra2"), arenas);
    EXPECT_EQ(ws.read("q2dm1.ra2"), "North\r\nSouth\r\n");
}

TEST(ArenaFile, DuplicatesAreKept) {
    TempWorkspace ws;
    ws.writeLines("q2dm1.ra2", {"Pit", "Pit"});
    EXPECT_EQ(LoadArenas(ws.path("q2dm1.ra2")), (Lines{"Pit", "Pit"}));
}

TEST(ArenaFile, SavingAnEmptiedListWritesZeroBytesAndTheMapStaysListed) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/q2dm1.ra2", {"a"});
    SaveArenas(arenaPath(ws.root(), "Quake2", "q2dm1"), {});
    EXPECT_EQ(ws.read("Game-Paths/Quake2/q2dm1.ra2"), "");
    EXPECT_EQ(ListArenaMaps(ws.root(), "Quake2"), (Lines{"q2dm1"}));
}

TEST(ArenaFile, MissingFileLoadsEmptyAndSavingCreatesIt) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    const auto created = CreateArenaMap(ws.root(), "Quake2", "q2dm3");
    ASSERT_EQ(created.refusal, std::nullopt);
    EXPECT_TRUE(LoadArenas(created.path).empty());
    SaveArenas(created.path, {"Hall"});
    EXPECT_EQ(ws.read("Game-Paths/Quake2/q2dm3.ra2"), "Hall\r\n");
}

TEST(ArenaList, AddingWithNoSelectionAppends) {
    Lines arenas{"a", "b"};
    EXPECT_EQ(AddArena(arenas, std::nullopt, "c"), std::optional<std::size_t>(2));
    EXPECT_EQ(arenas, (Lines{"a", "b", "c"}));
}

TEST(ArenaList, AddingWithTheFirstEntrySelectedInsertsAtPositionTwo) {
    Lines arenas{"a", "b"};
    EXPECT_EQ(AddArena(arenas, 0, "new"), std::optional<std::size_t>(1));
    EXPECT_EQ(arenas, (Lines{"a", "new", "b"}));
}

TEST(ArenaList, AddingAnEmptyNameDoesNothing) {
    Lines arenas{"a"};
    EXPECT_EQ(AddArena(arenas, 0, ""), std::nullopt);
    EXPECT_EQ(arenas, (Lines{"a"}));
}

TEST(ArenaList, DuplicateNamesAreAccepted) {
    Lines arenas{"Pit"};
    EXPECT_EQ(AddArena(arenas, 0, "Pit"), std::optional<std::size_t>(1));
    EXPECT_EQ(arenas, (Lines{"Pit", "Pit"}));
}

TEST(ArenaMaps, ListedLessTheirExtensionWhateverItsCase) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/q2dm1.ra2", {"a"});
    ws.writeLines("Game-Paths/Quake2/Base1.RA2", {"b"});
    ws.writeLines("Game-Paths/Quake2/dm.map", {"[V2]"});
    EXPECT_EQ(ListArenaMaps(ws.root(), "Quake2"), (Lines{"Base1", "q2dm1"}));
}

TEST(ArenaMaps, MapNameInAnotherCaseIsRefusedAsExisting) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/q2dm1.ra2", {"a"});
    EXPECT_EQ(CreateArenaMap(ws.root(), "Quake2", "q2DM1").refusal,
              std::optional<std::string>("An arena file already exists with that name"));
}

TEST(ArenaMaps, RenameNothingWhenEqualIgnoringCaseRefusedOntoExisting) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/q2dm1.ra2", {"a"});
    ws.writeLines("Game-Paths/Quake2/q2dm2.ra2", {"b"});
    EXPECT_EQ(RenameArenaMap(ws.root(), "Quake2", "q2dm1", "Q2DM1").result, RenameResult::Unchanged);
    const auto refused = RenameArenaMap(ws.root(), "Quake2", "q2dm1", "q2dm2");
    EXPECT_EQ(refused.result, RenameResult::Refused);
    EXPECT_EQ(refused.refusal, "An arena file already exists with that name");
    EXPECT_EQ(RenameArenaMap(ws.root(), "Quake2", "q2dm1", "Q2DM5").result, RenameResult::Renamed);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Q2DM5.ra2"), "a\r\n");
    EXPECT_EQ(ListArenaMaps(ws.root(), "Quake2"), (Lines{"q2dm2", "Q2DM5"}));
}

TEST(ArenaMaps, NamesWithSeparatorsAreRefused) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    EXPECT_TRUE(CreateArenaMap(ws.root(), "Quake2", "../escape").refusal.has_value());
    EXPECT_TRUE(CreateArenaMap(ws.root(), "Quake2", "..").refusal.has_value());
}

TEST(ArenaMaps, DeleteRemovesTheArenaFile) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/q2dm1.ra2", {"a"});
    DeleteArenaMap(ws.root(), "Quake2", "Q2DM1");
    EXPECT_TRUE(ListArenaMaps(ws.root(), "Quake2").empty());
}

} // namespace
} // namespace rd::arenas_test
