// Start-up on a game: GAME= on the command line opens the game editor as the first screen.

#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace games_startup_test {

using rd::test::crlf;
using rd::test::ProgramRun;
using rd::test::runProgram;
using rd::test::TempWorkspace;

const std::vector<std::string> kRecord{"c:\\quake2\\",
                                       "c:\\quake2\\baseq2\\maps\\",
                                       "quake2.exe",
                                       "",
                                       "c:\\quake2\\baseq2\\players",
                                       "_i.pcx",
                                       ""};

// A workspace with the game Quake2 and the plug-in bot Eraser.
void fillWorkspace(const TempWorkspace& ws) {
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", kRecord);
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2"});
}

// Runs rosterdesk offscreen on the workspace, ended after 60 seconds at the latest (status 124).
ProgramRun run(const TempWorkspace& ws, const std::vector<std::string>& args,
               std::vector<std::pair<std::string, std::string>> env) {
    env.push_back({"ROSTERDESK_ROOT", ws.root().string()});
    env.push_back({"QT_QPA_PLATFORM", "offscreen"});
    std::vector<std::string> command{"60", ROSTERDESK_EXE};
    command.insert(command.end(), args.begin(), args.end());
    return runProgram("timeout", command, env);
}

TEST(GamesStartup, GameOnTheCommandLineOpensTheGameEditor) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const ProgramRun r = run(ws, {"GAME=Quake2"}, {{"ROSTERDESK_REPORT_START", "1"}});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("route=GameEditor\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("argument=Quake2\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("screen=frmEditGame\n"), std::string::npos) << r.out;
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Quake2.Gme"), crlf(kRecord));
}

TEST(GamesStartup, GameOnTheCommandLineOpensTheEditorWithoutAMessage) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const ProgramRun r =
        run(ws, {"GAME=Quake2"}, {{"ROSTERDESK_REPORT_START", "1"}, {"ROSTERDESK_PROMPTS", "print"}});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out.find("prompt:"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("screen=frmEditGame\n"), std::string::npos) << r.out;
}

TEST(GamesStartup, BlankGameValueOpensTheEditorForBotEraserWhichIsNotFoundAndTheProgramEnds) {
    TempWorkspace ws;
    fillWorkspace(ws);
    // The value after "GAME=" runs from the blank to the next blank: the game is "BOT=Eraser".
    const ProgramRun r = run(ws, {"GAME=", "BOT=Eraser"}, {{"ROSTERDESK_PROMPTS", "print"}});
    EXPECT_EQ(r.status, 0) << r.err;
    const std::string expected = "prompt: message title=\"Roster Desk\" icon=Exclamation buttons=Ok text=\"" +
                                 (ws.root() / "Game-Paths" / "BOT=Eraser" / "BOT=Eraser.Gme").string() +
                                 " - not found\" answer=Ok\n";
    EXPECT_EQ(r.out, expected);
    // Nothing was written: Game-Paths holds the one game it held.
    std::vector<std::string> entries;
    for (const auto& entry : std::filesystem::directory_iterator(ws.path("Game-Paths")))
        entries.push_back(entry.path().filename().string());
    EXPECT_EQ(entries, std::vector<std::string>{"Quake2"});
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Quake2.Gme"), crlf(kRecord));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg"), crlf({"Quake2"}));
}

TEST(GamesStartup, MissingGameEndsTheProgramAlsoWithoutGamePaths) {
    TempWorkspace ws;
    const ProgramRun r = run(ws, {"game=Nothing"}, {{"ROSTERDESK_PROMPTS", "print"}});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("Nothing.Gme - not found\" answer=Ok\n"), std::string::npos) << r.out;
    EXPECT_FALSE(ws.exists("Game-Paths"));
}

} // namespace games_startup_test
