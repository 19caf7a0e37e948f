// The folder commands of the main window: delete bot, delete and rename profile, add bot.

#include "core/errors.h"
#include "profiles/botcommands.h"
#include "profiles/profiles.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::botcommands_test {
namespace {

using test::crlf;
using test::TempWorkspace;
using Names = std::vector<std::string>;

TEST(DeleteBot, EmptyFolderIsRemovedWithoutDeletingAnyFile) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Empty");
    ws.folder("Plug-Ins/Other");
    DeleteBot(ws.root(), "Empty");
    EXPECT_FALSE(ws.exists("Plug-Ins/Empty"));
    EXPECT_EQ(listPluginBots(ws.root()), Names{"Other"});
}

TEST(DeleteBot, FilesAreDeletedThenTheFolder) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2"});
    ws.writeLines("Plug-Ins/Eraser/Skills.cfg", {"1"});
    DeleteBot(ws.root(), "eraser");
    EXPECT_FALSE(ws.exists("Plug-Ins/Eraser"));
}

TEST(DeleteBot, SubFolderRaisesAfterTheFilesAreDeleted) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2"});
    ws.writeLines("Plug-Ins/Eraser/routes/dm1.zipped", {"r"});
    EXPECT_THROW(DeleteBot(ws.root(), "Eraser"), FileError);
    EXPECT_FALSE(ws.exists("Plug-Ins/Eraser/Setup.cfg"));
    EXPECT_TRUE(ws.exists("Plug-Ins/Eraser/routes/dm1.zipped"));
}

TEST(DeleteBot, QuestionText) {
    EXPECT_EQ(kDeleteBotQuestion,
              "Delete this recognised bot, are you sure?  If you do this, you won't be able to "
              "add any more profiles for this bot!");
}

TEST(DeleteProfile, FilesAndFolderAreDeleted) {
    TempWorkspace ws;
    ws.writeLines("Fred/profile.cfg", {"Eraser"});
    ws.writeLines("Fred/bots.cfg", {"x"});
    DeleteProfile(ws.root(), "Fred");
    EXPECT_FALSE(ws.exists("Fred"));
}

TEST(DeleteProfile, EmptyProfileFolderRaises) {
    TempWorkspace ws;
    ws.folder("Fred");
    EXPECT_THROW(DeleteProfile(ws.root(), "Fred"), FileError);
    EXPECT_TRUE(ws.exists("Fred"));
}

TEST(DeleteProfile, SubFolderRaisesAfterTheFilesAreDeleted) {
    TempWorkspace ws;
    ws.writeLines("Fred/profile.cfg", {"Eraser"});
    ws.folder("Fred/inner");
    EXPECT_THROW(DeleteProfile(ws.root(), "Fred"), FileError);
    EXPECT_FALSE(ws.exists("Fred/profile.cfg"));
    EXPECT_TRUE(ws.exists("Fred/inner"));
}

TEST(RenameProfile, RenamesTheFolderAndKeepsProfileCfg) {
    TempWorkspace ws;
    ws.write("Fred/profile.cfg", crlf({"Eraser"}));
    EXPECT_EQ(RenameProfile(ws.root(), "Fred", "Wilma"), ProfileRenameResult::Renamed);
    EXPECT_FALSE(ws.exists("Fred"));
    EXPECT_EQ(ws.read("Wilma/profile.cfg"), crlf({"Eraser"}));
    EXPECT_EQ(readProfileOwner(ws.root(), "Wilma"), "Eraser");
}

TEST(RenameProfile, OwnNameInOtherLetterCaseSucceeds) {
    TempWorkspace ws;
    ws.write("Fred/profile.cfg", crlf({"Eraser"}));
    EXPECT_EQ(RenameProfile(ws.root(), "Fred", "FRED"), ProfileRenameResult::Renamed);
    EXPECT_EQ(listProfiles(ws.root()), Names{"FRED"});
    EXPECT_EQ(ws.read("FRED/profile.cfg"), crlf({"Eraser"}));
}

TEST(RenameProfile, NameTakenByAnotherFolderRaisesAndTouchesNothing) {
    TempWorkspace ws;
    ws.write("Fred/profile.cfg", crlf({"Eraser"}));
    ws.folder("wilma");
    EXPECT_THROW(RenameProfile(ws.root(), "Fred", "Wilma"), FileError);
    EXPECT_EQ(ws.read("Fred/profile.cfg"), crlf({"Eraser"}));
    EXPECT_TRUE(ws.exists("wilma"));
}

TEST(RenameProfile, EmptyAnswerDoesNothing) {
    TempWorkspace ws;
    ws.folder("Fred");
    EXPECT_EQ(RenameProfile(ws.root(), "Fred", ""), ProfileRenameResult::NoName);
    EXPECT_TRUE(ws.exists("Fred"));
}

TEST(RenameProfile, NamesWithSeparatorsOrDotsAreRefusedBeforeAnythingIsTouched) {
    for (const std::string name : {"a/b", "a\\b", ".", ".."}) {
        TempWorkspace ws;
        ws.write("Fred/profile.cfg", crlf({"Eraser"}));
        EXPECT_EQ(RenameProfile(ws.root(), "Fred", name), ProfileRenameResult::RefusedName) << name;
        EXPECT_EQ(listProfiles(ws.root()), Names{"Fred"}) << name;
    }
}

TEST(RenameProfile, MissingProfileRaises) {
    TempWorkspace ws;
    EXPECT_THROW(RenameProfile(ws.root(), "Ghost", "Spirit"), FileError);
    EXPECT_FALSE(ws.exists("Spirit"));
}

AddBotOutcome add(const TempWorkspace& ws, const std::string& name, const std::string& base,
                  std::vector<std::string>* errors = nullptr) {
    std::vector<std::string> local;
    StepRunner runner(collectAndIgnore(errors ? *errors : local));
    return AddBot(ws.root(), name, base, runner);
}

TEST(AddBot, BaseBotsFilesAreCopiedButNotItsSubFolders) {
    TempWorkspace ws;
    const std::string setup = crlf({"Quake2", "Eraser", " 0 ", "bots.cfg"});
    const std::string skills = crlf({"2", "Easy"});
    ws.write("Plug-Ins/Eraser/Setup.cfg", setup);
    ws.write("Plug-Ins/Eraser/Skills.cfg", skills);
    ws.writeLines("Plug-Ins/Eraser/routes/dm1.zipped", {"r"});
    std::vector<std::string> errors;
    const AddBotOutcome outcome = add(ws, "Clone", "Eraser", &errors);
    EXPECT_EQ(outcome.result, AddBotResult::Created);
    EXPECT_FALSE(outcome.baseMissing);
    EXPECT_TRUE(errors.empty());
    EXPECT_EQ(ws.read("Plug-Ins/Clone/Setup.cfg"), setup);
    EXPECT_EQ(ws.read("Plug-Ins/Clone/Skills.cfg"), skills);
    EXPECT_FALSE(ws.exists("Plug-Ins/Clone/routes"));
    EXPECT_EQ(listPluginBots(ws.root()), (Names{"Clone", "Eraser"}));
}

TEST(AddBot, EmptyBaseCreatesAnEmptyFolder) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    EXPECT_EQ(add(ws, "New", "").result, AddBotResult::Created);
    EXPECT_TRUE(std::filesystem::is_empty(ws.path("Plug-Ins/New")));
}

TEST(AddBot, NameThatExistsInOtherLetterCaseIsRefused) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2"});
    EXPECT_EQ(add(ws, "ERASER", "").result, AddBotResult::AlreadyExists);
    EXPECT_EQ(kBotAlreadyExists, "Bot plug-in already exists with this name");
    EXPECT_EQ(listPluginBots(ws.root()), Names{"Eraser"});
}

TEST(AddBot, EmptyNameIsRefused) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    EXPECT_EQ(add(ws, "", "").result, AddBotResult::NoName);
    EXPECT_EQ(kNoBotName, "No bot name given!");
    EXPECT_TRUE(listPluginBots(ws.root()).empty());
}

TEST(AddBot, NamesWithSeparatorsOrDotsAreRefusedBeforeAnythingIsTouched) {
    for (const std::string name : {"a/b", "a\\b", ".", ".."}) {
        TempWorkspace ws;
        ws.folder("Plug-Ins");
        EXPECT_EQ(add(ws, name, "").result, AddBotResult::RefusedName) << name;
        EXPECT_TRUE(std::filesystem::is_empty(ws.path("Plug-Ins"))) << name;
    }
}

TEST(AddBot, MissingBaseLeavesTheNewBotEmptyAndSaysSo) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    const AddBotOutcome outcome = add(ws, "New", "Gone");
    EXPECT_EQ(outcome.result, AddBotResult::Created);
    EXPECT_TRUE(outcome.baseMissing);
    EXPECT_EQ(baseBotNotFoundMessage("Gone"), "Plugin bot Gone not found - new bot will be empty");
    EXPECT_TRUE(std::filesystem::is_empty(ws.path("Plug-Ins/New")));
}

TEST(AddBot, MissingPlugInsFolderFailsThroughTheTrap) {
    TempWorkspace ws;
    std::vector<std::string> errors;
    EXPECT_EQ(add(ws, "New", "", &errors).result, AddBotResult::Failed);
    EXPECT_EQ(errors.size(), 1u);
}

TEST(AddBot, BaseFilesDifferingOnlyInCaseAreCopiedOnce) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows file systems ignore case: SETUP.CFG and setup.cfg are one file";
#endif
    TempWorkspace ws;
    ws.write("Plug-Ins/Base/SETUP.CFG", "upper");
    ws.write("Plug-Ins/Base/setup.cfg", "lower");
    EXPECT_EQ(add(ws, "New", "base").result, AddBotResult::Created);
    // Listing order puts "SETUP.CFG" first (byte order breaks the tie); the second is skipped.
    EXPECT_EQ(ws.read("Plug-Ins/New/SETUP.CFG"), "upper");
    EXPECT_FALSE(ws.exists("Plug-Ins/New/setup.cfg"));
}

} // namespace
} // namespace rd::botcommands_test
