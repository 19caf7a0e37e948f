// The BOT route of the command line: the plug-in setup editor as the first screen.

#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace bots_startup_test {

using rd::test::ProgramRun;
using rd::test::runProgram;
using rd::test::TempWorkspace;

// Starts rosterdesk offscreen with the command line, ended after 60 seconds at the latest
// (status 124); message boxes are printed and answered with their escape buttons.
ProgramRun startRosterDesk(const TempWorkspace& ws, const std::vector<std::string>& args, bool reportStart) {
    std::vector<std::string> command = {"60", ROSTERDESK_EXE};
    command.insert(command.end(), args.begin(), args.end());
    std::vector<std::pair<std::string, std::string>> env = {{"ROSTERDESK_ROOT", ws.root().string()},
                                                            {"QT_QPA_PLATFORM", "offscreen"},
                                                            {"ROSTERDESK_PROMPTS", "print"}};
    if (reportStart)
        env.push_back({"ROSTERDESK_REPORT_START", "1"});
    return runProgram("timeout", command, env);
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

void botWorkspace(const TempWorkspace& ws) {
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2", "Eraser"});
    ws.folder("Game-Paths/Quake2");
}

TEST(BotStartup, BotOnTheCommandLineOpensTheSetupEditor) {
    TempWorkspace ws;
    botWorkspace(ws);
    const ProgramRun run = startRosterDesk(ws, {"BOT=Eraser"}, true);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(contains(run.out, "route=PluginEditor\n")) << run.out;
    EXPECT_TRUE(contains(run.out, "argument=Eraser\n")) << run.out;
    EXPECT_TRUE(contains(run.out, "screen=frmEditPlugInSetup\n")) << run.out;
}

TEST(BotStartup, TheKeyInsideALongerWordCountsToo) {
    TempWorkspace ws;
    botWorkspace(ws);
    const ProgramRun run = startRosterDesk(ws, {"ROBOT=Eraser"}, true);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(contains(run.out, "argument=Eraser\n")) << run.out;
    EXPECT_TRUE(contains(run.out, "screen=frmEditPlugInSetup\n")) << run.out;
}

TEST(BotStartup, TheEditorLoadsTheBotItWasStartedFor) {
    TempWorkspace ws;
    // A Setup.cfg that ends early is reported while the editor loads: proof that it read the bot.
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2"});
    const ProgramRun run = startRosterDesk(ws, {"bot=eraser"}, true);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(contains(run.out, "prompt: message title=\"Loading Bot Plug-In Setup\" icon=Exclamation "
                                  "buttons=AbortRetryIgnore text=\"Sod it!  Something has gone wrong!\\n"))
        << run.out;
    EXPECT_TRUE(contains(run.out, "screen=frmEditPlugInSetup\n")) << run.out;
}

TEST(BotStartup, AMissingBotShowsCouldNotFindAndTheProgramEnds) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/ACE");
    // No start-up report: the program has to end by itself once the editor has closed.
    const ProgramRun run = startRosterDesk(ws, {"BOT=Eraser"}, false);
    EXPECT_EQ(run.status, 0) << run.out << run.err;
    EXPECT_EQ(run.out, "prompt: message title=\"Roster Desk\" icon=Exclamation buttons=Ok "
                       "text=\"Could not find Eraser\" answer=Ok\n");
    EXPECT_FALSE(ws.exists("Plug-Ins/Eraser"));
}

TEST(BotStartup, AQuotedBotNameWithBlanksIsOneName) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    const ProgramRun run = startRosterDesk(ws, {"BOT='Eraser", "Two'"}, false);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(contains(run.out, "text=\"Could not find Eraser Two\" answer=Ok\n")) << run.out;
}

} // namespace bots_startup_test
