// The game record and template writers never leave half a file: a full disk at the first byte,
// in the middle or inside the last line, a failing flush or a refused rename leaves the old file
// byte for byte and no temporary file; Retry then saves the new file. A new game whose record
// cannot be written gets no half record.

#include "games/gamerecord.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace savefaults_test {

using namespace rd;
using rd::test::crlf;
using rd::test::expectSavesSurviveFaults;
using rd::test::InjectedSaveFault;
using rd::test::saveFaultPoints;
using rd::test::saveLeftoversIn;
using rd::test::TempWorkspace;

GamePathRecord record() {
    GamePathRecord r;
    r.txtLocationOfExe = "d:\\games\\q2\\";
    r.txtMapLocation = "d:\\games\\q2\\baseq2\\maps";
    r.txtEXEName = "quake2.exe";
    r.txtModels = "d:\\games\\q2\\baseq2\\players";
    r.txtSkinFilter = "_i.pcx";
    r.cboStartType = 1;
    r.chkFinishSample = true;
    r.txtMapReadMe = "d:\\games\\q2\\readme";
    return r;
}

const std::string kRecordBytes =
    crlf({"d:\\games\\q2\\", "d:\\games\\q2\\baseq2\\maps", "quake2.exe", "",
          "d:\\games\\q2\\baseq2\\players", "_i.pcx", "", "", " 1 ", " 0 ", " 1 ", "d:\\games\\q2\\readme"});

TEST(GameSaveFaults, AGameRecordSurvivesEveryFaultAndRetrySavesIt) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme",
                  {"c:\\quake2\\", "c:\\quake2\\baseq2\\maps\\", "quake2.exe"});
    expectSavesSurviveFaults(
        ws.path("Game-Paths/Quake2/Quake2.Gme"),
        [&](StepRunner& runner) { runner.step([&] { SaveGameRecord(ws.root(), "Quake2", record()); }); },
        kRecordBytes);
}

TEST(GameSaveFaults, AGameTemplateSurvivesEveryFaultAndRetrySavesIt) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {"c:\\quake2\\"});
    ws.writeLines("Game-Paths/Quake2/Template.cfg", {"<PATH>"});
    expectSavesSurviveFaults(
        ws.path("Game-Paths/Quake2/Template.cfg"),
        [&](StepRunner& runner) { runner.step([&] { SaveTemplate(ws.root(), "Quake2", record()); }); },
        kRecordBytes);
}

TEST(GameSaveFaults, ANewGameWhoseRecordCannotBeWrittenGetsNoHalfRecordAndRetryWritesIt) {
    const std::vector<std::string> creation{"c:\\quake2\\",
                                            "c:\\quake2\\baseq2\\maps\\",
                                            "quake2.exe",
                                            "",
                                            "c:\\quake2\\baseq2\\players",
                                            "_i.pcx",
                                            ""};
    int n = 0;
    for (const auto& point : saveFaultPoints(crlf(creation))) {
        SCOPED_TRACE(point.name);
        TempWorkspace ws;
        ws.folder("Game-Paths");
        const std::string name = "Game" + std::to_string(++n);
        InjectedSaveFault fault(point.fault);
        std::vector<std::string> descriptions;
        StepRunner runner([&](const std::string& description) {
            descriptions.push_back(description);
            EXPECT_TRUE(ws.exists("Game-Paths/" + name));
            EXPECT_FALSE(ws.exists("Game-Paths/" + name + "/" + name + ".Gme"));
            EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/" + name)).empty());
            fault.lift();
            return TrapChoice::Retry;
        });
        EXPECT_EQ(CreateGame(ws.root(), name, runner), CreateGameResult::Created);
        EXPECT_EQ(descriptions.size(), 1u);
        EXPECT_EQ(ws.read("Game-Paths/" + name + "/" + name + ".Gme"), crlf(creation));
    }
}

} // namespace savefaults_test
