#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

namespace programs_test {

using rd::test::ProgramRun;
using rd::test::runProgram;
using rd::test::TempWorkspace;

// Starts rosterdesk offscreen on a workspace with the given arguments; returns its report.
std::map<std::string, std::string> start(const TempWorkspace& ws, const std::vector<std::string>& args) {
    const ProgramRun r = runProgram(ROSTERDESK_EXE, args,
                                    {{"ROSTERDESK_ROOT", ws.root().string()},
                                     {"QT_QPA_PLATFORM", "offscreen"},
                                     {"ROSTERDESK_REPORT_START", "1"}});
    EXPECT_EQ(r.status, 0);
    std::map<std::string, std::string> report;
    std::size_t pos = 0;
    while (pos < r.out.size()) {
        const std::size_t end = r.out.find('\n', pos);
        const std::string line = r.out.substr(pos, end - pos);
        const std::size_t eq = line.find('=');
        if (eq != std::string::npos)
            report[line.substr(0, eq)] = line.substr(eq + 1);
        pos = end == std::string::npos ? r.out.size() : end + 1;
    }
    return report;
}

ProgramRun cli(const TempWorkspace& ws, std::vector<std::string> args) {
    args.insert(args.begin(), {"--root", ws.root().string()});
    return runProgram(ROSTERDESK_CLI, args);
}

TEST(Program, EmptyCommandLineShowsTheMainWindow) {
    TempWorkspace ws;
    auto report = start(ws, {});
    EXPECT_EQ(report["route"], "MainWindow");
    EXPECT_EQ(report["screen"], "frmMain");
    EXPECT_EQ(report["fontSize"], "0");
}

TEST(Program, WindowsCarryTheProgramsIconAndBelongToItsDesktopEntry) {
    TempWorkspace ws;
    auto report = start(ws, {});
    EXPECT_EQ(report["windowIcon"], "32x32") << "the program's windows have no icon";
    EXPECT_EQ(report["desktopFileName"], "org.rosterdesk.RosterDesk");
    // The desktop entry of that name is the one that is installed, and it names the same icon.
    const std::filesystem::path entry =
        std::filesystem::path(ROSTERDESK_SOURCE_DIR) / "packaging" / (report["desktopFileName"] + ".desktop");
    ASSERT_TRUE(std::filesystem::exists(entry)) << entry;
    std::ifstream in(entry);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_NE(text.find("\nIcon=" + report["desktopFileName"] + "\n"), std::string::npos) << text;
}

TEST(Program, GameOnTheCommandLineRoutesToTheGameEditor) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {"c:\\quake2\\"});
    auto report = start(ws, {"game=Quake2", "FONTSIZE=10.5"});
    EXPECT_EQ(report["route"], "GameEditor");
    EXPECT_EQ(report["argument"], "Quake2");
    EXPECT_EQ(report["fontSize"], "10");
    EXPECT_EQ(report["screen"], "frmEditGame");
}

TEST(Program, QuotedFontNameAcrossArgumentsIsJoinedBackTogether) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Eraser"); // the setup editor opens for it
    auto report = start(ws, {"FONTNAME='MS", "Sans", "Serif'", "BOT=Eraser"});
    EXPECT_EQ(report["fontName"], "MS Sans Serif");
    EXPECT_EQ(report["route"], "PluginEditor");
    EXPECT_EQ(report["argument"], "Eraser");
    EXPECT_EQ(report["screen"], "frmEditPlugInSetup");
}

TEST(Program, CustomMapsWordRoutesToTheCustomMapsEditor) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2"); // with no game the chooser would say so and close itself
    auto report = start(ws, {"/CustomMaps"});
    EXPECT_EQ(report["route"], "CustomMaps");
    EXPECT_EQ(report["screen"], "frmCustomMapEditor");
    EXPECT_EQ(start(ws, {"Custom", "Maps"})["route"], "MainWindow");
}

TEST(Cli, BotsAreListedInListingOrder) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/eraser");
    ws.folder("Plug-Ins/ACE");
    ws.write("Plug-Ins/file.txt", "x");
    const ProgramRun r = cli(ws, {"bots"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(nlohmann::json::parse(r.out), nlohmann::json({"ACE", "eraser"}));
}

TEST(Cli, ProfilesCarryTheirBotAndFilterByBotWithoutRegardToCase) {
    TempWorkspace ws;
    ws.writeLines("Team A/profile.cfg", {"eraser"});
    ws.writeLines("Team B/profile.cfg", {"Eraser2"});
    ws.folder("Team C");
    ws.folder("GAME-PATHS");
    ProgramRun r = cli(ws, {"profiles"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(nlohmann::json::parse(r.out), nlohmann::json::parse(R"([{"name":"Team A","bot":"eraser"},
        {"name":"Team B","bot":"Eraser2"},{"name":"Team C","bot":""}])"));
    r = cli(ws, {"profiles", "--bot", "ERASER"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(nlohmann::json::parse(r.out), nlohmann::json::parse(R"([{"name":"Team A","bot":"eraser"}])"));
}

TEST(Cli, NamesInTheCodePageComeOutAsUtf8) {
    TempWorkspace ws;
    ws.write("\xC3\x89quipe/profile.cfg", "Caf\xE9\r\n"); // folder name in UTF-8, file text in the code page
    const ProgramRun r = cli(ws, {"profiles"});
    EXPECT_EQ(nlohmann::json::parse(r.out),
              nlohmann::json::parse("[{\"name\":\"\xC3\x89quipe\",\"bot\":\"Caf\xC3\xA9\"}]"));
}

TEST(Cli, GamesAreTheFoldersOfGamePaths) {
    TempWorkspace ws;
    ws.folder("game-paths/Quake2");
    ws.folder("game-paths/LanParty");
    ws.write("game-paths/Stray.Gme", "x");
    const ProgramRun r = cli(ws, {"games"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(nlohmann::json::parse(r.out), nlohmann::json({"LanParty", "Quake2"}));
}

TEST(Cli, KeyLookupFromTheShell) {
    TempWorkspace ws;
    ProgramRun r = cli(ws, {"key", "-x BOT='Eraser two' GAME=Quake2", "BOT"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(nlohmann::json::parse(r.out), "Eraser two");
    r = cli(ws, {"key", "NAME='it's'", "NAME"});
    EXPECT_EQ(nlohmann::json::parse(r.out), "it");
}

TEST(Cli, UsageErrorsExitWithTwoAndPrintNothing) {
    TempWorkspace ws;
    ProgramRun r = cli(ws, {"key", "onlyone"});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "");
    r = cli(ws, {"no-such-command"});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "");
}

} // namespace programs_test
