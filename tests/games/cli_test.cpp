// rosterdesk-cli over game path records and paths templates.

#include "tests/plugins/cli_run.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::cli_test {
namespace {

using test::crlf;
using test::runCli;
using test::TempWorkspace;

const std::vector<std::string> kCreationLines{"c:\\quake2\\",
                                              "c:\\quake2\\baseq2\\maps\\",
                                              "quake2.exe",
                                              "",
                                              "c:\\quake2\\baseq2\\players",
                                              "_i.pcx",
                                              ""};

TEST(CliGame, ShowPrintsTheTwelveFieldsInOrder) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Q/Q.Gme", kCreationLines);
    const auto run = runCli(ws.root(), {"show", "game", ws.path("Game-Paths/Q/Q.Gme").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto json = nlohmann::ordered_json::parse(run.out);
    const auto expected = nlohmann::ordered_json::parse(R"({
        "txtLocationOfExe": "c:\\quake2\\", "txtMapLocation": "c:\\quake2\\baseq2\\maps\\",
        "txtEXEName": "quake2.exe", "txtCDPath": "", "txtModels": "c:\\quake2\\baseq2\\players",
        "txtSkinFilter": "_i.pcx", "txtBatchFile": "", "txtModelName": "tris.md2", "cboStartType": 0,
        "chkLaunchBatchDirect": true, "chkFinishSample": true, "txtMapReadMe": "c:\\quake2\\baseq2\\maps\\"})");
    EXPECT_EQ(json, expected);
}

TEST(CliGame, MissingRecordIsStatusTwoWithNotFound) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Q");
    const std::string path = ws.path("Game-Paths/Q/Q.Gme").string();
    const auto run = runCli(ws.root(), {"show", "game", path});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, path + " - not found\n");
}

TEST(CliGame, StartTypeThatIsNotANumberIsReportedWithTheLoadersLead) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Q/Q.Gme", {"a", "b", "c", "d", "e", "f", "g", "h", "Hidden", "0", "1", "l"});
    const auto run = runCli(ws.root(), {"show", "game", ws.path("Game-Paths/Q/Q.Gme").string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "Oh no!  Something's up here...  Type mismatch\n");
    const auto json = run.json();
    EXPECT_EQ(json["cboStartType"], -1);
    EXPECT_EQ(json["chkLaunchBatchDirect"], false);
    EXPECT_EQ(json["txtMapReadMe"], "l");
}

TEST(CliGame, ResaveWritesASevenLineRecordAsTwelveLines) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Q/Q.Gme", kCreationLines);
    const auto run = runCli(ws.root(), {"resave", "game", ws.path("Game-Paths/Q/Q.Gme").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "null\n");
    std::vector<std::string> expected = kCreationLines;
    expected.insert(expected.end(), {"tris.md2", " 0 ", " 1 ", " 1 ", "c:\\quake2\\baseq2\\maps\\"});
    EXPECT_EQ(ws.read("Game-Paths/Q/Q.Gme"), crlf(expected));
}

TEST(CliGame, ResaveOverAFolderIsStatusTwo) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Q/Q.Gme");
    const auto run = runCli(ws.root(), {"resave", "game", ws.path("Game-Paths/Q/Q.Gme").string()});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find(" - not found"), std::string::npos);
}

TEST(CliGame, BinaryGarbageRecordGivesAClearErrorAndNoCrash) {
    TempWorkspace ws;
    std::string garbage;
    for (int i = 0; i < 4096; ++i)
        garbage += static_cast<char>((i * 131 + 7) % 256);
    ws.write("Game-Paths/Q/Q.Gme", garbage);
    const auto run = runCli(ws.root(), {"show", "game", ws.path("Game-Paths/Q/Q.Gme").string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("Oh no!  Something's up here..."), std::string::npos) << run.err;
    EXPECT_NO_THROW(run.json());
}

TEST(CliTemplate, MissingTemplateShowsTheBuiltInValues) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Q");
    const auto run = runCli(ws.root(), {"show", "template", ws.path("Game-Paths/Q/Template.cfg").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto expected = nlohmann::json::parse(R"({
        "txtLocationOfExe": "<PATH>", "txtMapLocation": "<PATH>baseq2\\maps", "txtEXEName": "", "txtCDPath": "",
        "txtModels": "<PATH>baseq2\\players", "txtSkinFilter": "_i.pcx", "txtBatchFile": "",
        "txtModelName": "tris.md2", "cboStartType": -1, "chkLaunchBatchDirect": false, "chkFinishSample": false,
        "txtMapReadMe": "<PATH>baseq2\\maps"})");
    EXPECT_EQ(run.json(), expected);
}

TEST(CliTemplate, ResaveRoundTripsATemplateByteForByte) {
    TempWorkspace ws;
    const std::string bytes = crlf({"<PATH>", "<PATH>baseq2\\maps", "quake2.exe", "", "<PATH>baseq2\\players",
                                    "_i.pcx", "", "tris.md2", " 5 ", " 0 ", " 1 ", "<PATH>docs"});
    ws.write("Game-Paths/Q/Template.cfg", bytes);
    const auto run = runCli(ws.root(), {"resave", "template", ws.path("Game-Paths/Q/Template.cfg").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(ws.read("Game-Paths/Q/Template.cfg"), bytes);
}

} // namespace
} // namespace rd::cli_test
