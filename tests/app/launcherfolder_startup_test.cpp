// The installed rosterdesk finding the launcher's folder, run as a user starts it from the menu:
// no ROSTERDESK_ROOT, a program folder that is no workspace, its settings in the folder
// XDG_CONFIG_HOME names and a home folder whose ~/.wine holds the launcher. The first-start window
// is answered through the scripted prompts (an input box that names the folders found).

#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace launcherfolder_startup_test {

namespace fs = std::filesystem;
using rd::test::ProgramRun;
using rd::test::runProgram;
using rd::test::TempWorkspace;

struct Machine {
    TempWorkspace ws;
    fs::path home = ws.path("home");
    fs::path config = ws.path("config");
    fs::path launcher = ws.path("home/.wine/drive_c/Tarnwick");

    Machine() {
        ws.writeLines("home/.wine/drive_c/Tarnwick/Plug-Ins/Eraser/Setup.cfg", {"Quake2"});
        ws.writeLines("home/.wine/drive_c/Tarnwick/Game-Paths/Quake2/Quake2.Gme", {"C:\\quake2\\"});
        ws.writeLines("home/.wine/drive_c/Tarnwick/Clan Practice/profile.cfg", {"Eraser"});
        fs::create_directories(config);
    }
    fs::path settingsFile() const { return config / "RosterDesk" / "RosterDesk.conf"; }

    // Runs rosterdesk offscreen as the menu starts it (from the home folder), ended after 60
    // seconds at the latest (status 124).
    ProgramRun start(std::vector<std::pair<std::string, std::string>> extra = {}) const {
        std::vector<std::pair<std::string, std::string>> env{{"HOME", home.string()},
                                                             {"XDG_CONFIG_HOME", config.string()},
                                                             {"WINEPREFIX", ""},
                                                             {"ROSTERDESK_ROOT", ""},
                                                             {"QT_QPA_PLATFORM", "offscreen"},
                                                             {"ROSTERDESK_PROMPTS", "print"},
                                                             {"ROSTERDESK_REPORT_START", "1"}};
        env.insert(env.end(), extra.begin(), extra.end());
        std::string command = "cd " + rd::test::shellQuote(home.string()) + " && exec timeout 60 " +
                              rd::test::shellQuote(ROSTERDESK_EXE);
        return runProgram("sh", {"-c", command}, env);
    }
};

bool asked(const ProgramRun& r) {
    return r.out.find("prompt: input title=\"Choose Launcher Folder\"") != std::string::npos;
}

TEST(LauncherFolderStartup, TheFirstStartAsksOffersTheFolderFoundAndCancelEndsWithNothingWritten) {
    Machine m;
    const ProgramRun r = m.start();
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_TRUE(asked(r)) << r.out;
    EXPECT_NE(r.out.find("Launcher folders found:\\n" + m.launcher.string() + "\""), std::string::npos)
        << r.out;
    EXPECT_NE(r.out.find("answer=(cancelled)"), std::string::npos) << r.out;
    // The program ended there: no workspace, no screen, and no settings file.
    EXPECT_EQ(r.out.find("root="), std::string::npos) << r.out;
    EXPECT_FALSE(fs::exists(m.settingsFile()));
    EXPECT_TRUE(fs::is_empty(m.config));
}

TEST(LauncherFolderStartup, TheFolderChosenIsUsedRememberedAndTakenWithoutAskingAtTheNextStart) {
    Machine m;
    const ProgramRun first = m.start({{"ROSTERDESK_INPUTS", m.launcher.string()}});
    EXPECT_EQ(first.status, 0) << first.err;
    EXPECT_TRUE(asked(first)) << first.out;
    EXPECT_NE(first.out.find("root=" + m.launcher.string() + "\nrootFrom=chosen\n"), std::string::npos)
        << first.out;
    EXPECT_NE(first.out.find("screen=frmMain\n"), std::string::npos) << first.out;
    ASSERT_TRUE(fs::exists(m.settingsFile()));
    EXPECT_NE(rd::test::readBytes(m.settingsFile()).find("launcherFolder=" + m.launcher.string()),
              std::string::npos);

    const ProgramRun next = m.start();
    EXPECT_EQ(next.status, 0) << next.err;
    EXPECT_FALSE(asked(next)) << next.out;
    EXPECT_NE(next.out.find("root=" + m.launcher.string() + "\nrootFrom=remembered\n"), std::string::npos)
        << next.out;
}

TEST(LauncherFolderStartup, ARememberedFolderThatNoLongerExistsIsAskedForAgain) {
    Machine m;
    ASSERT_EQ(m.start({{"ROSTERDESK_INPUTS", m.launcher.string()}}).status, 0);
    const fs::path moved = m.ws.path("LAN Party/Tarnwick");
    fs::create_directories(moved.parent_path());
    fs::rename(m.launcher, moved);
    const ProgramRun r = m.start({{"ROSTERDESK_INPUTS", moved.string()}});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_TRUE(asked(r)) << r.out;
    EXPECT_NE(r.out.find("root=" + moved.string() + "\nrootFrom=chosen\n"), std::string::npos) << r.out;
    EXPECT_NE(rd::test::readBytes(m.settingsFile()).find(moved.string()), std::string::npos);
}

TEST(LauncherFolderStartup, TheCurrentFolderIsNeverTakenSilently) {
    Machine m;
    // Started from inside the launcher's folder: still asked.
    std::string command = "cd " + rd::test::shellQuote(m.launcher.string()) + " && exec timeout 60 " +
                          rd::test::shellQuote(ROSTERDESK_EXE);
    const ProgramRun r = runProgram("sh", {"-c", command},
                                    {{"HOME", m.home.string()},
                                     {"XDG_CONFIG_HOME", m.config.string()},
                                     {"WINEPREFIX", ""},
                                     {"ROSTERDESK_ROOT", ""},
                                     {"QT_QPA_PLATFORM", "offscreen"},
                                     {"ROSTERDESK_PROMPTS", "print"},
                                     {"ROSTERDESK_REPORT_START", "1"}});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_TRUE(asked(r)) << r.out;
    EXPECT_EQ(r.out.find("root="), std::string::npos) << r.out;
}

TEST(LauncherFolderStartup, TheDesktopActionAsksEvenWithARememberedFolder) {
    Machine m;
    ASSERT_EQ(m.start({{"ROSTERDESK_INPUTS", m.launcher.string()}}).status, 0);
    const ProgramRun r = m.start({{"ROSTERDESK_CHOOSE_FOLDER", "1"}});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_TRUE(asked(r)) << r.out;
    EXPECT_EQ(r.out.find("root="), std::string::npos) << r.out;
    // Cancelled: the remembered folder stays.
    EXPECT_NE(rd::test::readBytes(m.settingsFile()).find(m.launcher.string()), std::string::npos);
}

TEST(LauncherFolderStartup, ROSTERDESK_ROOTNeedsNoQuestionAndIsReportedSo) {
    Machine m;
    const ProgramRun r = m.start({{"ROSTERDESK_ROOT", m.launcher.string()}});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_FALSE(asked(r)) << r.out;
    EXPECT_NE(r.out.find("root=" + m.launcher.string() + "\nrootFrom=ROSTERDESK_ROOT\n"), std::string::npos)
        << r.out;
    EXPECT_FALSE(fs::exists(m.settingsFile()));
}

} // namespace launcherfolder_startup_test
