// Delete bot, rename profile and delete profile have no error trap: a failure ends the program
// with a fatal error report and a non-zero exit status. The main window runs in a child process
// (frmMain_driver) so the test can watch it end.

#include "core/screens/fatalerror.h"
#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace frmMain_fatal_test {

using rd::test::crlf;
using rd::test::ProgramRun;
using rd::test::runProgram;
using rd::test::TempWorkspace;

// Runs the main window on the workspace, selects `entry`, clicks `button`; message boxes are
// answered with `answers` (';' between them), input boxes with `inputs`.
ProgramRun drive(const TempWorkspace& ws, const std::string& button, const std::string& entry,
                 const std::string& answers, const std::string& inputs = "") {
#ifdef _WIN32 // the test's own time limit is ctest's
    return runProgram(FRMMAIN_DRIVER, {ws.root().string(), button, entry},
#else
    return runProgram("timeout", {"60", FRMMAIN_DRIVER, ws.root().string(), button, entry},
#endif
                      {{"QT_QPA_PLATFORM", "offscreen"},
                       {"ROSTERDESK_PROMPTS", "print"},
                       {"ROSTERDESK_ANSWERS", answers},
                       {"ROSTERDESK_INPUTS", inputs}});
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// The report's message box as the scripted prompts print it.
void expectFatalReport(const ProgramRun& run, const std::string& description) {
    EXPECT_EQ(run.status, rd::kFatalErrorStatus) << run.out << run.err;
    EXPECT_TRUE(contains(run.err, "Run-time error")) << run.err;
    EXPECT_TRUE(contains(run.err, description)) << run.err;
    EXPECT_TRUE(contains(run.out,
                         "prompt: message title=\"Roster Desk\" icon=Critical buttons=Ok text=\"Run-time "
                         "error: Roster Desk cannot go on and will close.\\n\\n"))
        << run.out;
    EXPECT_TRUE(contains(run.out, description)) << run.out;
    EXPECT_FALSE(contains(run.out, "main window still open")) << run.out;
}

TEST(MainWindowFatalErrors, DeletingABotWhoseFolderHoldsASubFolderEndsTheProgram) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2"});
    ws.writeLines("Plug-Ins/Eraser/routes/q2dm1.zipped", {"route"});
    const ProgramRun run = drive(ws, "cmdDeleteBot", "Eraser", "Yes");
    expectFatalReport(run, "is not empty");
    // The files directly in the folder went before the removal failed; nothing else was touched.
    EXPECT_FALSE(ws.exists("Plug-Ins/Eraser/Setup.cfg"));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/routes/q2dm1.zipped"), crlf({"route"}));
}

TEST(MainWindowFatalErrors, RenamingAProfileToATakenNameEndsTheProgram) {
    TempWorkspace ws;
    ws.writeLines("Team A/profile.cfg", {"Eraser"});
    ws.writeLines("Team B/profile.cfg", {"ACE"});
    const ProgramRun run = drive(ws, "cmdRename", "Team A", "", "team b");
    expectFatalReport(run, "already exists");
    EXPECT_EQ(ws.read("Team A/profile.cfg"), crlf({"Eraser"}));
    EXPECT_EQ(ws.read("Team B/profile.cfg"), crlf({"ACE"}));
}

TEST(MainWindowFatalErrors, DeletingAnEmptyProfileFolderEndsTheProgram) {
    TempWorkspace ws;
    ws.folder("Empty Team");
    const ProgramRun run = drive(ws, "cmdDeleteProfile", "Empty Team", "Yes");
    expectFatalReport(run, "File not found");
    EXPECT_TRUE(ws.exists("Empty Team"));
}

TEST(MainWindowFatalErrors, TheMainWindowSurvivesANoAndACancel) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/routes/q2dm1.zipped", {"route"});
    ws.folder("Empty Team");
    for (const std::string answer : {"No", "Cancel"}) {
        ProgramRun run = drive(ws, "cmdDeleteBot", "Eraser", answer);
        EXPECT_EQ(run.status, 0) << run.out << run.err;
        EXPECT_TRUE(contains(run.out, "answer=" + answer)) << run.out;
        EXPECT_TRUE(contains(run.out, "main window still open: yes")) << run.out;
        run = drive(ws, "cmdDeleteProfile", "Empty Team", answer);
        EXPECT_EQ(run.status, 0) << run.out << run.err;
        EXPECT_TRUE(contains(run.out, "main window still open: yes")) << run.out;
    }
    EXPECT_TRUE(ws.exists("Plug-Ins/Eraser/routes/q2dm1.zipped"));
    EXPECT_TRUE(ws.exists("Empty Team"));
}

} // namespace frmMain_fatal_test
