// Game path records and paths templates: reading with defaults, writing, creating, deleting.

#include "core/workspace.h"
#include "games/gamelist.h"
#include "games/gamerecord.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::gamerecord_test {
namespace {

using test::crlf;
using test::TempWorkspace;

const std::vector<std::string> kCreationLines{"c:\\quake2\\",
                                              "c:\\quake2\\baseq2\\maps\\",
                                              "quake2.exe",
                                              "",
                                              "c:\\quake2\\baseq2\\players",
                                              "_i.pcx",
                                              ""};

struct Loaded {
    std::optional<GamePathRecord> record;
    std::vector<std::string> errors;
};

Loaded load(const TempWorkspace& ws, const std::string& game) {
    Loaded loaded;
    StepRunner runner(collectAndIgnore(loaded.errors));
    loaded.record = LoadGameRecord(ws.root(), game, runner);
    return loaded;
}

std::vector<std::string> fullRecordLines(const std::string& startType, const std::string& flag1,
                                         const std::string& flag2) {
    return {"d:\\games\\q2\\",
            "d:\\games\\q2\\baseq2\\maps\\",
            "q2.exe",
            "e:\\",
            "d:\\games\\q2\\baseq2\\players",
            "_i.pcx",
            "d:\\run.bat",
            "tris.md2",
            startType,
            flag1,
            flag2,
            "d:\\readme"};
}

TEST(GameRecord, SevenCreationLinesLoadWithReadDefaultsForTheRest) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Mygame/Mygame.Gme", kCreationLines);
    const Loaded loaded = load(ws, "Mygame");
    ASSERT_TRUE(loaded.record);
    EXPECT_TRUE(loaded.errors.empty());
    EXPECT_EQ(loaded.record->txtLocationOfExe, "c:\\quake2\\");
    EXPECT_EQ(loaded.record->txtMapLocation, "c:\\quake2\\baseq2\\maps\\");
    EXPECT_EQ(loaded.record->txtModelName, "tris.md2");
    EXPECT_EQ(loaded.record->cboStartType, 0);
    EXPECT_STREQ(kStartTypes[loaded.record->cboStartType], "Hidden");
    EXPECT_TRUE(loaded.record->chkLaunchBatchDirect);
    EXPECT_TRUE(loaded.record->chkFinishSample);
    EXPECT_EQ(loaded.record->txtMapReadMe, "c:\\quake2\\baseq2\\maps\\");
}

TEST(GameRecord, EmptyRecordFileLoadsEveryReadDefault) {
    TempWorkspace ws;
    ws.write("Game-Paths/Mygame/Mygame.Gme", "");
    const Loaded loaded = load(ws, "Mygame");
    ASSERT_TRUE(loaded.record);
    GamePathRecord expected;
    expected.txtLocationOfExe = "c:\\quake2";
    expected.txtMapLocation = "c:\\quake2\\baseq2\\maps";
    expected.txtEXEName = "quake2.exe";
    expected.txtModels = "c:\\quake2\\baseq2\\players";
    expected.txtSkinFilter = "_i.pcx";
    expected.txtModelName = "tris.md2";
    expected.cboStartType = 0;
    expected.chkLaunchBatchDirect = true;
    expected.chkFinishSample = true;
    expected.txtMapReadMe = "c:\\quake2\\baseq2\\maps";
    EXPECT_EQ(*loaded.record, expected);
}

TEST(GameRecord, FlagLinesReadOffOnlyForZeroAndFalse) {
    const std::vector<std::pair<std::string, bool>> cases{
        {"false", false}, {" FALSE ", false}, {"0", false}, {" 0 ", false},
        {"2", true},      {"True", true},     {"", true}};
    for (const auto& [text, on] : cases) {
        TempWorkspace ws;
        ws.writeLines("Game-Paths/G/G.Gme", fullRecordLines(" 0 ", text, text));
        const Loaded loaded = load(ws, "G");
        ASSERT_TRUE(loaded.record);
        EXPECT_EQ(loaded.record->chkLaunchBatchDirect, on) << "\"" << text << "\"";
        EXPECT_EQ(loaded.record->chkFinishSample, on) << "\"" << text << "\"";
    }
}

TEST(GameRecord, LineTwelveDefaultsToLineTwoAsRead) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", {"a", "maps here"});
    const Loaded loaded = load(ws, "G");
    ASSERT_TRUE(loaded.record);
    EXPECT_EQ(loaded.record->txtMapReadMe, "maps here");
}

TEST(GameRecord, TextFieldsAreTakenWithoutTrimming) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", {"  c:\\q2  ", " maps "});
    const Loaded loaded = load(ws, "G");
    ASSERT_TRUE(loaded.record);
    EXPECT_EQ(loaded.record->txtLocationOfExe, "  c:\\q2  ");
    EXPECT_EQ(loaded.record->txtMapReadMe, " maps ");
}

TEST(GameRecord, MissingRecordIsNotFoundWithTheFullPathInTheMessage) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Mygame");
    const Loaded loaded = load(ws, "Mygame");
    EXPECT_FALSE(loaded.record);
    const std::string message = gameNotFoundMessage(gameRecordPath(ws.root(), "Mygame"));
    EXPECT_EQ(message, (ws.root() / "Game-Paths" / "Mygame" / "Mygame.Gme").string() + " - not found");
}

TEST(GameRecord, RecordIsFoundWhateverTheCaseOfItsName) {
    TempWorkspace ws;
    ws.writeLines("game-paths/MYGAME/mygame.GME", {"x:\\q2"});
    const Loaded loaded = load(ws, "Mygame");
    ASSERT_TRUE(loaded.record);
    EXPECT_EQ(loaded.record->txtLocationOfExe, "x:\\q2");
}

TEST(GameRecord, StartTypeThatIsNotANumberFailsIntoTheTrapAndIgnoreGoesOn) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", fullRecordLines("Normal", "0", "0"));
    const Loaded loaded = load(ws, "G");
    ASSERT_TRUE(loaded.record);
    ASSERT_EQ(loaded.errors.size(), 1u);
    EXPECT_EQ(loaded.errors[0], "Type mismatch");
    EXPECT_EQ(loaded.record->cboStartType, -1);
    // The fields after the failing one are still read.
    EXPECT_FALSE(loaded.record->chkLaunchBatchDirect);
    EXPECT_FALSE(loaded.record->chkFinishSample);
    EXPECT_EQ(loaded.record->txtMapReadMe, "d:\\readme");
}

TEST(GameRecord, StartTypeFailureCanAbortTheLoad) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", fullRecordLines("Normal", "0", "0"));
    StepRunner runner([](const std::string&) { return TrapChoice::Abort; });
    const auto record = LoadGameRecord(ws.root(), "G", runner);
    ASSERT_TRUE(record);
    EXPECT_TRUE(runner.aborted());
    EXPECT_EQ(record->txtMapReadMe, "");
}

TEST(GameRecord, StartTypeOutsideTheListIsAFailure) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", fullRecordLines(" 6 ", "1", "1"));
    const Loaded loaded = load(ws, "G");
    ASSERT_EQ(loaded.errors.size(), 1u);
    EXPECT_EQ(loaded.errors[0], "Invalid property value");
}

TEST(GameRecord, TrapLeadOfTheLoader) {
    EXPECT_EQ(kGameLoadTrapLead, "Oh no!  Something's up here...");
}

TEST(GameRecord, SaveWritesNumbersInPrintFormAndReadsThemBack) {
    TempWorkspace ws;
    ws.folder("Game-Paths/G");
    GamePathRecord record;
    record.txtLocationOfExe = "c:\\q2\\";
    record.cboStartType = 3;
    record.chkLaunchBatchDirect = false;
    record.chkFinishSample = true;
    SaveGameRecord(ws.root(), "G", record);
    EXPECT_EQ(ws.read("Game-Paths/G/G.Gme"),
              crlf({"c:\\q2\\", "", "", "", "", "", "", "", " 3 ", " 0 ", " 1 ", ""}));
    const Loaded loaded = load(ws, "G");
    ASSERT_TRUE(loaded.record);
    EXPECT_EQ(*loaded.record, record);
}

TEST(GameRecord, NoStartTypeChosenIsSavedAsMinusOneAndReadsBackAsNone) {
    TempWorkspace ws;
    ws.folder("Game-Paths/G");
    GamePathRecord record;
    record.cboStartType = -1;
    SaveGameRecord(ws.root(), "G", record);
    const std::string bytes = ws.read("Game-Paths/G/G.Gme");
    EXPECT_EQ(bytes, crlf({"", "", "", "", "", "", "", "", "-1 ", " 0 ", " 0 ", ""}));
    const Loaded loaded = load(ws, "G");
    ASSERT_TRUE(loaded.record);
    EXPECT_TRUE(loaded.errors.empty());
    EXPECT_EQ(loaded.record->cboStartType, -1);
}

TEST(GameRecord, TwelveLineRecordRoundTripsByteForByte) {
    TempWorkspace ws;
    const std::string bytes = crlf(fullRecordLines(" 2 ", " 0 ", " 1 "));
    ws.write("Game-Paths/G/G.Gme", bytes);
    const Loaded loaded = load(ws, "G");
    ASSERT_TRUE(loaded.record);
    SaveGameRecord(ws.root(), "G", *loaded.record);
    EXPECT_EQ(ws.read("Game-Paths/G/G.Gme"), bytes);
}

TEST(GameRecord, SevenLineRecordSavesAsTwelveLinesWithReadDefaults) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", kCreationLines);
    const Loaded loaded = load(ws, "G");
    ASSERT_TRUE(loaded.record);
    SaveGameRecord(ws.root(), "G", *loaded.record);
    std::vector<std::string> expected = kCreationLines;
    expected.insert(expected.end(), {"tris.md2", " 0 ", " 1 ", " 1 ", "c:\\quake2\\baseq2\\maps\\"});
    EXPECT_EQ(ws.read("Game-Paths/G/G.Gme"), crlf(expected));
}

TEST(GameRecord, SaveRewritesTheRecordUnderItsExistingSpelling) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/g.gme", kCreationLines);
    SaveGameRecord(ws.root(), "G", GamePathRecord{});
    EXPECT_FALSE(ws.listed("Game-Paths/G/G.Gme"));
    EXPECT_EQ(ws.read("Game-Paths/G/g.gme"), crlf({"", "", "", "", "", "", "", "", "-1 ", " 0 ", " 0 ", ""}));
}

TEST(GameRecord, SavingOverAFolderRaisesAClearError) {
    TempWorkspace ws;
    ws.folder("Game-Paths/G/G.Gme");
    try {
        SaveGameRecord(ws.root(), "G", GamePathRecord{});
        FAIL() << "saving over a folder did not fail";
    } catch (const std::exception& e) {
        EXPECT_NE(std::string(e.what()).find("is a folder"), std::string::npos) << e.what();
    }
}

TEST(GameRecord, FolderStandingWhereTheRecordShouldBeIsNotFound) {
    TempWorkspace ws;
    ws.folder("Game-Paths/G/G.Gme");
    const Loaded loaded = load(ws, "G");
    EXPECT_FALSE(loaded.record);
}

TEST(GameRecord, BinaryGarbageLoadsWithoutCrashingAndReportsTheStartType) {
    TempWorkspace ws;
    std::string garbage;
    unsigned state = 12345;
    for (int i = 0; i < 4000; ++i) {
        state = state * 1103515245u + 12345u;
        garbage += static_cast<char>((state >> 16) & 0xFF);
        if (i % 100 == 99)
            garbage += '\n';
    }
    ws.write("Game-Paths/G/G.Gme", garbage);
    const Loaded loaded = load(ws, "G");
    ASSERT_TRUE(loaded.record);
    ASSERT_EQ(loaded.errors.size(), 1u);
    EXPECT_EQ(loaded.errors[0], "Type mismatch");
    EXPECT_EQ(loaded.record->cboStartType, -1);
}

TEST(GameRecord, TenMegabyteSingleLineIsOneField) {
    TempWorkspace ws;
    const std::string huge(10 * 1024 * 1024, 'x');
    ws.writeLines("Game-Paths/G/G.Gme", {"a", "b", "c", "d", "e", "f", "g", "h", huge});
    const Loaded loaded = load(ws, "G");
    ASSERT_TRUE(loaded.record);
    ASSERT_EQ(loaded.errors.size(), 1u);
    EXPECT_EQ(loaded.errors[0], "Type mismatch");
    EXPECT_TRUE(loaded.record->chkLaunchBatchDirect);
    EXPECT_EQ(loaded.record->txtMapReadMe, "b");
}

TEST(GameTemplate, MissingTemplateGivesTheEditorsBuiltInValues) {
    TempWorkspace ws;
    ws.folder("Game-Paths/G");
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    const GamePathRecord record = LoadTemplate(ws.root(), "G", runner);
    GamePathRecord expected;
    expected.txtLocationOfExe = "<PATH>";
    expected.txtMapLocation = "<PATH>baseq2\\maps";
    expected.txtModels = "<PATH>baseq2\\players";
    expected.txtSkinFilter = "_i.pcx";
    expected.txtModelName = "tris.md2";
    expected.txtMapReadMe = "<PATH>baseq2\\maps";
    expected.cboStartType = -1;
    EXPECT_EQ(record, expected);
    EXPECT_TRUE(errors.empty());
}

TEST(GameTemplate, EmptyTemplateLoadsTheTemplateDefaults) {
    TempWorkspace ws;
    ws.write("Game-Paths/G/Template.cfg", "");
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    const GamePathRecord record = LoadTemplate(ws.root(), "G", runner);
    GamePathRecord expected;
    expected.txtLocationOfExe = "<PATH>";
    expected.txtMapLocation = "<PATH>baseq2\\maps";
    expected.txtEXEName = "quake2.exe";
    expected.txtModels = "<PATH>baseq2\\players";
    expected.txtSkinFilter = "_i.pcx";
    expected.txtModelName = "tris.md2";
    expected.cboStartType = 0;
    expected.chkLaunchBatchDirect = true;
    expected.chkFinishSample = true;
    expected.txtMapReadMe = "<PATH>baseq2\\maps";
    EXPECT_EQ(record, expected);
}

TEST(GameTemplate, LineTwelveDefaultsToLineTwoOfTheTemplate) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/template.CFG", {"<PATH>", "<PATH>mymaps"});
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    EXPECT_EQ(LoadTemplate(ws.root(), "G", runner).txtMapReadMe, "<PATH>mymaps");
}

TEST(GameTemplate, TemplateRoundTripsByteForByte) {
    TempWorkspace ws;
    const std::string bytes = crlf({"<PATH>", "<PATH>baseq2\\maps", "quake2.exe", "", "<PATH>baseq2\\players",
                                    "_i.pcx", "", "tris.md2", " 1 ", " 1 ", " 0 ", "<PATH>docs"});
    ws.write("Game-Paths/G/Template.cfg", bytes);
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    const GamePathRecord record = LoadTemplate(ws.root(), "G", runner);
    EXPECT_TRUE(errors.empty());
    std::filesystem::remove(ws.path("Game-Paths/G/Template.cfg"));
    SaveTemplate(ws.root(), "G", record);
    EXPECT_EQ(ws.read("Game-Paths/G/Template.cfg"), bytes);
}

TEST(GameTemplate, SavingBuiltInValuesWritesTwelveLines) {
    TempWorkspace ws;
    ws.folder("Game-Paths/G");
    SaveTemplate(ws.root(), "G", templateBuiltInValues());
    EXPECT_EQ(ws.read("Game-Paths/G/Template.cfg"),
              crlf({"<PATH>", "<PATH>baseq2\\maps", "", "", "<PATH>baseq2\\players", "_i.pcx", "", "tris.md2",
                    "-1 ", " 0 ", " 0 ", "<PATH>baseq2\\maps"}));
}

TEST(CreateGame, WritesExactlyTheSevenCreationLines) {
    TempWorkspace ws;
    ws.folder("Game-Paths");
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    EXPECT_EQ(CreateGame(ws.root(), "Mygame", runner), CreateGameResult::Created);
    EXPECT_TRUE(errors.empty());
    EXPECT_EQ(ws.read("Game-Paths/Mygame/Mygame.Gme"), crlf(kCreationLines));
    EXPECT_EQ(ListGames(ws.root()), std::vector<std::string>{"Mygame"});
}

TEST(CreateGame, NameOfAnExistingPlainFileIsRefused) {
    TempWorkspace ws;
    ws.write("Game-Paths/Mygame", "not a game");
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    EXPECT_EQ(CreateGame(ws.root(), "Mygame", runner), CreateGameResult::AlreadyExists);
    EXPECT_EQ(kGameAlreadyExists, "Game already exists..!");
    EXPECT_EQ(ws.read("Game-Paths/Mygame"), "not a game");
}

TEST(CreateGame, NameOfAnExistingGameInOtherLetterCaseIsRefused) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/MyGame/MyGame.Gme", {"keep"});
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    EXPECT_EQ(CreateGame(ws.root(), "MYGAME", runner), CreateGameResult::AlreadyExists);
    EXPECT_EQ(ListGames(ws.root()), std::vector<std::string>{"MyGame"});
    EXPECT_EQ(ws.read("Game-Paths/MyGame/MyGame.Gme"), crlf({"keep"}));
}

TEST(CreateGame, EmptyNameDoesNothing) {
    TempWorkspace ws;
    ws.folder("Game-Paths");
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    EXPECT_EQ(CreateGame(ws.root(), "", runner), CreateGameResult::NoName);
    EXPECT_TRUE(ListGames(ws.root()).empty());
}

TEST(CreateGame, NamesWithSeparatorsOrDotsAreRefusedBeforeAnythingIsTouched) {
    for (const std::string name : {"a/b", "a\\b", ".", ".."}) {
        TempWorkspace ws;
        ws.folder("Game-Paths");
        std::vector<std::string> errors;
        StepRunner runner(collectAndIgnore(errors));
        EXPECT_EQ(CreateGame(ws.root(), name, runner), CreateGameResult::RefusedName) << name;
        EXPECT_TRUE(errors.empty());
        EXPECT_TRUE(std::filesystem::is_empty(ws.path("Game-Paths"))) << name;
    }
}

TEST(CreateGame, MissingGamePathsFolderFailsThroughTheTrap) {
    TempWorkspace ws;
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    EXPECT_EQ(CreateGame(ws.root(), "G", runner), CreateGameResult::Failed);
    EXPECT_EQ(errors.size(), 2u);
}

TEST(DeleteGame, DeletesTheFilesAndTheFolder) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", kCreationLines);
    ws.writeLines("Game-Paths/G/Template.cfg", {"x"});
    ws.writeLines("Game-Paths/H/H.Gme", kCreationLines);
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    EXPECT_TRUE(DeleteGame(ws.root(), "G", runner));
    EXPECT_TRUE(errors.empty());
    EXPECT_FALSE(ws.exists("Game-Paths/G"));
    EXPECT_EQ(ListGames(ws.root()), std::vector<std::string>{"H"});
}

TEST(DeleteGame, SubFolderMakesTheFolderRemovalFailAfterTheFilesAreDeleted) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", kCreationLines);
    ws.writeLines("Game-Paths/G/Female.cfg", {"crakhor"});
    ws.writeLines("Game-Paths/G/sub/keep.txt", {"keep"});
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    EXPECT_FALSE(DeleteGame(ws.root(), "G", runner));
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_FALSE(ws.listed("Game-Paths/G/G.Gme"));
    EXPECT_FALSE(ws.exists("Game-Paths/G/Female.cfg"));
    EXPECT_TRUE(ws.exists("Game-Paths/G/sub/keep.txt"));
    EXPECT_EQ(ListGames(ws.root()), std::vector<std::string>{"G"});
}

TEST(DeleteGame, FolderWithoutFilesReportsFileNotFoundAndIgnoreRemovesTheFolder) {
    TempWorkspace ws;
    ws.folder("Game-Paths/G");
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    EXPECT_TRUE(DeleteGame(ws.root(), "G", runner));
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].rfind("File not found", 0), 0u) << errors[0];
    EXPECT_FALSE(ws.exists("Game-Paths/G"));
}

TEST(DeleteGame, AbortAfterTheFirstFailureKeepsTheFolder) {
    TempWorkspace ws;
    ws.folder("Game-Paths/G");
    StepRunner runner([](const std::string&) { return TrapChoice::Abort; });
    EXPECT_FALSE(DeleteGame(ws.root(), "G", runner));
    EXPECT_TRUE(ws.exists("Game-Paths/G"));
}

TEST(ListGames, OnlyFoldersCountInListingOrder) {
    TempWorkspace ws;
    ws.folder("Game-Paths/quake2");
    ws.folder("Game-Paths/Action");
    ws.write("Game-Paths/Zfile", "");
    EXPECT_EQ(ListGames(ws.root()), (std::vector<std::string>{"Action", "quake2"}));
}

} // namespace
} // namespace rd::gamerecord_test
