#include "definitions/lists.h"

#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::lists_test {
namespace {

using test::crlf;
using test::TempWorkspace;

TEST(ValueList, ThreeLinesLoadAsTwoItemsTheSecondValuedByItsText) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/weapons.val", {"Railgun", "17", "BFG"});
    const auto items = LoadList(ws.path("Game-Paths/Quake2/weapons.val"), true);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0], (ListItem{"Railgun", "17"}));
    EXPECT_EQ(items[1], (ListItem{"BFG", "BFG"}));
}

TEST(TextList, EveryLineIsAnItemValuedByItsText) {
    TempWorkspace ws;
    ws.writeLines("maps.lst", {"q2dm1", "", "q2dm8"});
    const auto items = LoadList(ws.path("maps.lst"), false);
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[1], (ListItem{"", ""}));
    EXPECT_EQ(items[2], (ListItem{"q2dm8", "q2dm8"}));
}

TEST(ValueList, SaveWritesTextThenValuePerItem) {
    TempWorkspace ws;
    EXPECT_TRUE(SaveList(ws.path("skill.val"), {{"Easy", "0"}, {"Hard", "2"}}, true));
    EXPECT_EQ(ws.read("skill.val"), crlf({"Easy", "0", "Hard", "2"}));
}

TEST(TextList, SaveWritesTheTextAlone) {
    TempWorkspace ws;
    EXPECT_TRUE(SaveList(ws.path("names.lst"), {{"Alpha", "ignored"}, {"Beta", "Beta"}}, false));
    EXPECT_EQ(ws.read("names.lst"), crlf({"Alpha", "Beta"}));
}

TEST(ValueList, OddLineRoundTripGainsItsValueLine) {
    TempWorkspace ws;
    ws.writeLines("w.val", {"Railgun", "17", "BFG"});
    SaveList(ws.path("w.val"), LoadList(ws.path("w.val"), true), true);
    EXPECT_EQ(ws.read("w.val"), crlf({"Railgun", "17", "BFG", "BFG"}));
}

TEST(ValueList, EmptiedListOnOkLeavesTheOldFileUnchanged) {
    TempWorkspace ws;
    ws.writeLines("w.val", {"Railgun", "17"});
    EXPECT_FALSE(SaveList(ws.path("w.val"), {}, true));
    EXPECT_EQ(ws.read("w.val"), crlf({"Railgun", "17"}));
}

TEST(ListKind, NewValueListTypedAsWeaponsValBecomesWeaponsValVal) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    const auto outcome = newList(ws.path("Game-Paths/Quake2"), "weapons.val", true);
    EXPECT_EQ(outcome.refusal, std::nullopt);
    EXPECT_EQ(outcome.fileName, "weapons.val.val");
    EXPECT_EQ(newListFileName("maps", false), "maps.lst");
}

TEST(ListKind, FileNamedXUpperCaseValIsAValueList) {
    EXPECT_TRUE(isValueListName("x.VAL"));
    EXPECT_TRUE(isValueListName("a.val.lst"));
    EXPECT_FALSE(isValueListName("x.lst"));
    EXPECT_FALSE(isValueListName("values"));
}

TEST(ListKind, NewListWhoseFileExistsIsRefused) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Weapons.val", {"a", "1"});
    const auto outcome = newList(ws.path("Game-Paths/Quake2"), "weapons", true);
    EXPECT_EQ(outcome.refusal, std::optional<std::string>("A list already exists with this name"));
    EXPECT_EQ(outcome.fileName, "");
}

TEST(ListKind, EmptyNewListNameDoesNothing) {
    TempWorkspace ws;
    const auto outcome = newList(ws.root(), "", true);
    EXPECT_EQ(outcome.refusal, std::nullopt);
    EXPECT_EQ(outcome.fileName, "");
}

TEST(ListKind, NewListNameWithSeparatorIsRefused) {
    TempWorkspace ws;
    for (const char* name : {"a/b", "a\\b", ".", ".."}) {
        const auto outcome = newList(ws.root(), name, false);
        EXPECT_TRUE(outcome.refusal.has_value()) << name;
        EXPECT_EQ(outcome.fileName, "") << name;
    }
}

TEST(ListKind, EmptyGameNameMeansTheGamePathsFolder) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    EXPECT_EQ(listFolder(ws.root(), ""), ws.path("Game-Paths"));
    EXPECT_EQ(listFolder(ws.root(), "QUAKE2"), ws.path("Game-Paths/Quake2"));
}

} // namespace
} // namespace rd::lists_test
