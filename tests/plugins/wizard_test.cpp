// AutoExec wizard command lists: the bot's own file, the game's default list, saving.

#include "plugins/wizard.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::wizard_test {
namespace {

using test::crlf;
using test::TempWorkspace;

UseDefaultQuestion answer(bool yes, int* asked = nullptr) {
    return [yes, asked] {
        if (asked)
            ++*asked;
        return yes;
    };
}

TEST(WizardCommands, OwnFileIsReadInPairsWithoutAsking) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/ExecCommands.cfg", {"set a 1", "Sets a", " bind x ", ""});
    int asked = 0;
    const WizardLoad load = LoadWizardCommands(ws.root(), "B", answer(true, &asked));
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(load.source, WizardSource::Own);
    EXPECT_EQ(load.commands, (std::vector<WizardCommand>{{"set a 1", "Sets a"}, {" bind x ", ""}}));
}

TEST(WizardCommands, OddNumberOfLinesGivesAnEmptyLastDescriptionWhichIsSavedAsALine) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/ExecCommands.cfg", {"one", "first", "two"});
    const WizardLoad load = LoadWizardCommands(ws.root(), "B", answer(false));
    ASSERT_EQ(load.commands.size(), 2u);
    EXPECT_EQ(load.commands[1], (WizardCommand{"two", ""}));
    EXPECT_TRUE(SaveWizardCommands(ws.root(), "B", load.commands));
    EXPECT_EQ(ws.read("Plug-Ins/B/ExecCommands.cfg"), crlf({"one", "first", "two", ""}));
}

TEST(WizardCommands, NoOwnFileAndYesTakesTheGamesDefaultListAndOkCreatesTheBotsFile) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Setup.cfg", {"Action", "Eraser"});
    const std::string defaults = crlf({"sv_gravity 800", "Normal gravity", "timelimit 20", "Twenty minutes"});
    ws.write("Game-Paths/Action/ExecCommands.cfg", defaults);
    int asked = 0;
    const WizardLoad load = LoadWizardCommands(ws.root(), "B", answer(true, &asked));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(load.source, WizardSource::GameDefault);
    EXPECT_EQ(load.commands, (std::vector<WizardCommand>{{"sv_gravity 800", "Normal gravity"},
                                                         {"timelimit 20", "Twenty minutes"}}));
    EXPECT_TRUE(SaveWizardCommands(ws.root(), "B", load.commands));
    EXPECT_EQ(ws.read("Plug-Ins/B/ExecCommands.cfg"), defaults);
}

TEST(WizardCommands, NoOwnFileAndNoGivesAnEmptyList) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Setup.cfg", {"Action"});
    ws.writeLines("Game-Paths/Action/ExecCommands.cfg", {"a", "b"});
    const WizardLoad load = LoadWizardCommands(ws.root(), "B", answer(false));
    EXPECT_EQ(load.source, WizardSource::Declined);
    EXPECT_TRUE(load.commands.empty());
}

TEST(WizardCommands, MissingSetupGivesStartFromScratch) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/B");
    ws.writeLines("Game-Paths/Quake2/ExecCommands.cfg", {"a", "b"});
    const WizardLoad load = LoadWizardCommands(ws.root(), "B", answer(true));
    EXPECT_EQ(load.source, WizardSource::NoneAvailable);
    EXPECT_TRUE(load.commands.empty());
    EXPECT_EQ(kWizardStartFromScratch,
              "Oh.  You don't seem to have one of those either.  Sorry, you'll have to start from scratch");
}

TEST(WizardCommands, EmptyFirstSetupLineGivesStartFromScratch) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Setup.cfg", {"", "Eraser"});
    const WizardLoad load = LoadWizardCommands(ws.root(), "B", answer(true));
    EXPECT_EQ(load.source, WizardSource::NoneAvailable);
    EXPECT_TRUE(load.commands.empty());
}

TEST(WizardCommands, GameWithoutDefaultListGivesStartFromScratch) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Setup.cfg", {"Action"});
    ws.folder("Game-Paths/Action");
    EXPECT_EQ(LoadWizardCommands(ws.root(), "B", answer(true)).source, WizardSource::NoneAvailable);
}

TEST(WizardCommands, FilesAreFoundWithoutRegardToCase) {
    TempWorkspace ws;
    ws.writeLines("plug-ins/b/SETUP.CFG", {"action"});
    ws.writeLines("GAME-PATHS/Action/execcommands.CFG", {"x", "y"});
    const WizardLoad load = LoadWizardCommands(ws.root(), "B", answer(true));
    EXPECT_EQ(load.source, WizardSource::GameDefault);
    EXPECT_EQ(load.commands, (std::vector<WizardCommand>{{"x", "y"}}));
}

TEST(WizardCommands, DeletingEveryRowAndSavingLeavesTheOldFileUnchanged) {
    TempWorkspace ws;
    const std::string old = crlf({"a", "b"});
    ws.write("Plug-Ins/B/ExecCommands.cfg", old);
    EXPECT_FALSE(SaveWizardCommands(ws.root(), "B", {}));
    EXPECT_EQ(ws.read("Plug-Ins/B/ExecCommands.cfg"), old);
}

TEST(WizardCommands, EmptyListWithoutAFileWritesNothing) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/B");
    EXPECT_FALSE(SaveWizardCommands(ws.root(), "B", {}));
    EXPECT_FALSE(ws.listed("Plug-Ins/B/ExecCommands.cfg"));
}

TEST(WizardCommands, ListRoundTripsByteForByte) {
    TempWorkspace ws;
    const std::string bytes =
        crlf({"set deathmatch 1", "Deathmatch on", "", "empty command", "fraglimit  25 ", ""});
    ws.write("Plug-Ins/B/execcommands.cfg", bytes);
    const WizardLoad load = LoadWizardCommands(ws.root(), "B", answer(false));
    ASSERT_EQ(load.commands.size(), 3u);
    EXPECT_TRUE(SaveWizardCommands(ws.root(), "B", load.commands));
    EXPECT_EQ(ws.read("Plug-Ins/B/execcommands.cfg"), bytes);
    EXPECT_FALSE(ws.listed("Plug-Ins/B/ExecCommands.cfg"));
}

TEST(WizardCommands, BinaryGarbageAndLongLinesAreTakenAsTheyAre) {
    TempWorkspace ws;
    std::string garbage;
    for (int i = 0; i < 256; ++i)
        garbage += static_cast<char>(i);
    const std::string huge(10 * 1024 * 1024, 'w');
    ws.write("Plug-Ins/B/ExecCommands.cfg", garbage + "\r\n" + huge);
    const WizardLoad load = LoadWizardCommands(ws.root(), "B", answer(false));
    ASSERT_EQ(load.commands.size(), 2u);
    // The LF at byte 10 ends the first line; the lone CR at byte 13 stays in the second.
    EXPECT_EQ(load.commands[0], (WizardCommand{garbage.substr(0, 10), garbage.substr(11)}));
    EXPECT_EQ(load.commands[1], (WizardCommand{huge, ""}));
}

TEST(WizardCommands, FolderStandingWhereTheListShouldBeFallsBackAndSavingFails) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/B/ExecCommands.cfg");
    const WizardLoad load = LoadWizardCommands(ws.root(), "B", answer(false));
    EXPECT_EQ(load.source, WizardSource::Declined);
    try {
        SaveWizardCommands(ws.root(), "B", {{"a", "b"}});
        FAIL() << "saving over a folder did not fail";
    } catch (const std::exception& e) {
        EXPECT_NE(std::string(e.what()).find("is a folder"), std::string::npos) << e.what();
    }
}

} // namespace
} // namespace rd::wizard_test
