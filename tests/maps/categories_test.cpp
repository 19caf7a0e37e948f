#include "maps/categories.h"

#include "core/errors.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::categories_test {
namespace {

using test::crlf;
using test::TempWorkspace;

using Maps = std::vector<MapRow>;

TEST(CategoryFile, ArenaCategoryLoadsOneRowCheckedAndSavesBackByteForByte) {
    TempWorkspace ws;
    const std::string bytes = crlf({"[ARENA]", "q2dm1", "The Edge"});
    ws.write("Game-Paths/Quake2/Arenas.map", bytes);
    const auto category = LoadCategory(ws.path("Game-Paths/Quake2/Arenas.map"));
    EXPECT_TRUE(category.arena);
    EXPECT_EQ(category.maps, (Maps{{"q2dm1", "The Edge"}}));
    SaveCategory(ws.path("Game-Paths/Quake2/Arenas.map"), category);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Arenas.map"), bytes);
}

TEST(CategoryFile, OldLayoutTitlesEqualNamesAndSaveWritesHeaderAndFourLines) {
    TempWorkspace ws;
    ws.writeLines("old.map", {"q2dm1", "q2dm2"});
    auto category = LoadCategory(ws.path("old.map"));
    EXPECT_FALSE(category.arena);
    EXPECT_EQ(category.maps, (Maps{{"q2dm1", "q2dm1"}, {"q2dm2", "q2dm2"}}));
    SaveCategory(ws.path("old.map"), category);
    EXPECT_EQ(ws.read("old.map"), crlf({"[V2]", "q2dm1", "q2dm1", "q2dm2", "q2dm2"}));
    category.arena = true;
    SaveCategory(ws.path("old.map"), category);
    EXPECT_EQ(ws.read("old.map"), crlf({"[ARENA]", "q2dm1", "q2dm1", "q2dm2", "q2dm2"}));
}

TEST(CategoryFile, OddLineCountAfterHeaderGivesLastNameAnEmptyTitle) {
    TempWorkspace ws;
    ws.writeLines("dm.map", {"[V2]", "q2dm1", "The Edge", "q2dm2"});
    EXPECT_EQ(LoadCategory(ws.path("dm.map")).maps, (Maps{{"q2dm1", "The Edge"}, {"q2dm2", ""}}));
}

TEST(CategoryFile, EmptyNameInCurrentLayoutSkipsNameAndItsTitleLine) {
    TempWorkspace ws;
    ws.writeLines("dm.map", {"[V2]", "", "lost title", "q2dm3", "The Frag Pipe"});
    EXPECT_EQ(LoadCategory(ws.path("dm.map")).maps, (Maps{{"q2dm3", "The Frag Pipe"}}));
}

TEST(CategoryFile, EmptyLineInOldLayoutIsSkipped) {
    TempWorkspace ws;
    ws.writeLines("dm.map", {"q2dm1", "", "q2dm2"});
    EXPECT_EQ(LoadCategory(ws.path("dm.map")).maps, (Maps{{"q2dm1", "q2dm1"}, {"q2dm2", "q2dm2"}}));
}

TEST(CategoryFile, HeaderInTheMiddleSwitchesToTheCurrentLayout) {
    TempWorkspace ws;
    ws.writeLines("dm.map", {"q2dm1", "[ARENA]", "q2dm2", "Tokay's Towers"});
    const auto category = LoadCategory(ws.path("dm.map"));
    EXPECT_TRUE(category.arena);
    EXPECT_EQ(category.maps, (Maps{{"q2dm1", "q2dm1"}, {"q2dm2", "Tokay's Towers"}}));
}

TEST(CategoryFile, HeaderComparisonIsExactAndCaseSensitive) {
    TempWorkspace ws;
    ws.writeLines("dm.map", {"[v2]", "[Arena]", "q2dm1"});
    const auto category = LoadCategory(ws.path("dm.map"));
    EXPECT_FALSE(category.arena);
    EXPECT_EQ(category.maps, (Maps{{"[v2]", "[v2]"}, {"[Arena]", "[Arena]"}, {"q2dm1", "q2dm1"}}));
}

TEST(CategoryFile, HeaderAloneIsACategoryWithNoMaps) {
    TempWorkspace ws;
    SaveCategory(ws.path("empty.map"), MapCategory{});
    EXPECT_EQ(ws.read("empty.map"), "[V2]\r\n");
    const auto category = LoadCategory(ws.path("empty.map"));
    EXPECT_FALSE(category.arena);
    EXPECT_TRUE(category.maps.empty());
}

TEST(CategoryFile, MissingFileLoadsNoMapsAndNoArenaMark) {
    TempWorkspace ws;
    const auto category = LoadCategory(ws.path("none.map"));
    EXPECT_FALSE(category.arena);
    EXPECT_TRUE(category.maps.empty());
}

TEST(CategoryFile, SavingWithNoPathWritesNothing) {
    TempWorkspace ws;
    SaveCategory({}, MapCategory{true, {{"a", "b"}}});
    EXPECT_TRUE(std::filesystem::is_empty(ws.root()));
}

TEST(CategoryFile, SaveKeepsRowOrderAsGiven) {
    TempWorkspace ws;
    SaveCategory(ws.path("x.map"), MapCategory{false, {{"z", "Last"}, {"a", "First"}}});
    EXPECT_EQ(ws.read("x.map"), crlf({"[V2]", "z", "Last", "a", "First"}));
}

TEST(Categories, ListedInListingOrderLessTheirExtension) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/DM.MAP", {"[V2]"});
    ws.writeLines("Game-Paths/Quake2/ctf.map", {"[V2]"});
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {"c:\\quake2\\"});
    ws.writeLines("Game-Paths/Quake2/arena.ra2", {"a"});
    ws.folder("Game-Paths/Quake2/folder.map");
    EXPECT_EQ(ListCategories(ws.root(), "Quake2"), (std::vector<std::string>{"ctf", "DM"}));
}

TEST(Categories, CategoryNamedDeathmatchIsStoredAsDeathmatchMap) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    const auto outcome = CreateCategory(ws.root(), "Quake2", "Deathmatch");
    ASSERT_EQ(outcome.refusal, std::nullopt);
    EXPECT_EQ(outcome.path, ws.path("Game-Paths/Quake2/Deathmatch.map"));
    EXPECT_FALSE(ws.exists("Game-Paths/Quake2/Deathmatch.map")); // nothing until saved
    SaveCategory(outcome.path, MapCategory{});
    EXPECT_EQ(ListCategories(ws.root(), "Quake2"), (std::vector<std::string>{"Deathmatch"}));
}

TEST(Categories, CreatingAnExistingCategoryIsRefusedWhateverTheCase) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/dm.MAP", {"[V2]"});
    const auto outcome = CreateCategory(ws.root(), "Quake2", "DM");
    EXPECT_EQ(outcome.refusal, std::optional<std::string>("A map category already exists with that name"));
}

TEST(Categories, NamesWithSeparatorsOrDotsAreRefusedBeforeAnythingIsTouched) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/dm.map", {"[V2]"});
    for (const char* name : {"a/b", "a\\b", ".", ".."}) {
        EXPECT_TRUE(CreateCategory(ws.root(), "Quake2", name).refusal.has_value()) << name;
        const auto renamed = RenameCategory(ws.root(), "Quake2", "dm", name);
        EXPECT_EQ(renamed.result, RenameResult::Refused) << name;
    }
    EXPECT_EQ(ListCategories(ws.root(), "Quake2"), (std::vector<std::string>{"dm"}));
}

TEST(Categories, RenamingDmToUpperCaseDmDoesNothing) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/dm.map", {"[V2]"});
    EXPECT_EQ(RenameCategory(ws.root(), "Quake2", "dm", "DM").result, RenameResult::Unchanged);
    EXPECT_EQ(RenameCategory(ws.root(), "Quake2", "dm", "").result, RenameResult::Unchanged);
    EXPECT_TRUE(ws.exists("Game-Paths/Quake2/dm.map"));
    EXPECT_FALSE(ws.listed("Game-Paths/Quake2/DM.map"));
}

TEST(Categories, RenameGivesTheNewNameWithLowerCaseExtension) {
    TempWorkspace ws;
    ws.write("Game-Paths/Quake2/Old.MAP", crlf({"[V2]", "q2dm1", "The Edge"}));
    EXPECT_EQ(RenameCategory(ws.root(), "Quake2", "old", "Favourites").result, RenameResult::Renamed);
    EXPECT_FALSE(ws.exists("Game-Paths/Quake2/Old.MAP"));
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Favourites.map"), crlf({"[V2]", "q2dm1", "The Edge"}));
}

TEST(Categories, RenameOntoAnExistingCategoryIsRefused) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/a.map", {"[V2]"});
    ws.writeLines("Game-Paths/Quake2/b.map", {"[ARENA]"});
    const auto outcome = RenameCategory(ws.root(), "Quake2", "a", "B");
    EXPECT_EQ(outcome.result, RenameResult::Refused);
    EXPECT_EQ(outcome.refusal, "A map category already exists with that name");
    EXPECT_EQ(ws.read("Game-Paths/Quake2/a.map"), "[V2]\r\n");
}

TEST(Categories, DeleteRemovesTheFile) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/dm.map", {"[V2]"});
    ws.writeLines("Game-Paths/Quake2/ctf.map", {"[V2]"});
    DeleteCategory(ws.root(), "Quake2", "DM");
    EXPECT_EQ(ListCategories(ws.root(), "Quake2"), (std::vector<std::string>{"ctf"}));
}

TEST(Categories, DeletingAMissingCategoryRaisesAFileError) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    EXPECT_THROW(DeleteCategory(ws.root(), "Quake2", "none"), FileError);
}

} // namespace
} // namespace rd::categories_test
