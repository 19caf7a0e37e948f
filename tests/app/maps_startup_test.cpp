// Start-up on the word CustomMaps: the map category chooser is the first screen.
#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace maps_startup_test {

using rd::test::ProgramRun;
using rd::test::runProgram;
using rd::test::TempWorkspace;

// Starts rosterdesk offscreen on a workspace with one game; returns its start-up report.
std::map<std::string, std::string> start(const std::vector<std::string>& args) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {"c:\\quake2\\"});
    const ProgramRun r = runProgram(ROSTERDESK_EXE, args,
                                    {{"ROSTERDESK_ROOT", ws.root().string()},
                                     {"QT_QPA_PLATFORM", "offscreen"},
                                     {"ROSTERDESK_REPORT_START", "1"}});
    EXPECT_EQ(r.status, 0) << r.err;
    std::map<std::string, std::string> report;
    std::size_t pos = 0;
    while (pos < r.out.size()) {
        const std::size_t end = r.out.find('\n', pos);
        const std::string line = r.out.substr(pos, end - pos);
        if (const std::size_t eq = line.find('='); eq != std::string::npos)
            report[line.substr(0, eq)] = line.substr(eq + 1);
        pos = end == std::string::npos ? r.out.size() : end + 1;
    }
    return report;
}

TEST(MapsStartup, CustomMapsOpensTheCategoryChooserFirst) {
    auto report = start({"CustomMaps"});
    EXPECT_EQ(report["route"], "CustomMaps");
    EXPECT_EQ(report["screen"], "frmCustomMapEditor");
}

TEST(MapsStartup, TheWordIsFoundWithoutRegardToCase) {
    auto report = start({"customMAPS"});
    EXPECT_EQ(report["route"], "CustomMaps");
    EXPECT_EQ(report["screen"], "frmCustomMapEditor");
}

TEST(MapsStartup, TheWordIsFoundInsideALongerWord) {
    auto report = start({"/CustomMaps"});
    EXPECT_EQ(report["route"], "CustomMaps");
    EXPECT_EQ(report["screen"], "frmCustomMapEditor");
}

TEST(MapsStartup, CustomMapsWithAFontSizeAppliesIt) {
    auto report = start({"FONTSIZE=12", "CustomMaps"});
    EXPECT_EQ(report["screen"], "frmCustomMapEditor");
    EXPECT_EQ(report["fontSize"], "12");
}

TEST(MapsStartup, CustomSpaceMapsOpensTheMainWindow) {
    auto report = start({"Custom", "Maps"});
    EXPECT_EQ(report["route"], "MainWindow");
    EXPECT_EQ(report["screen"], "frmMain");
}

TEST(MapsStartup, WithoutGamesTheChooserSaysSoAndTheProgramEnds) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Eraser");
    // No start-up report: the program has to end by itself once the chooser has closed itself.
    const ProgramRun r = runProgram("timeout", {"60", ROSTERDESK_EXE, "CustomMaps"},
                                    {{"ROSTERDESK_ROOT", ws.root().string()},
                                     {"QT_QPA_PLATFORM", "offscreen"},
                                     {"ROSTERDESK_PROMPTS", "print"}});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "prompt: message title=\"Roster Desk\" icon=Exclamation buttons=Ok "
              "text=\"No games have yet been created.\\r\\nMost likely, you have not installed Tarnwick "
              "properly.Run the main program first before trying this\" answer=Ok\n");
}

} // namespace maps_startup_test
