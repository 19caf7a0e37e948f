// rosterdesk-cli over model genders and female lists.

#include "tests/plugins/cli_run.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::cli_test {
namespace {

using test::crlf;
using test::runCli;
using test::TempWorkspace;

TEST(CliModels, MaleAndFemaleListsOfAGame) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Q/Q.Gme", {"", "", "", "", ws.path("players").string()});
    ws.folder("players/male");
    ws.folder("players/female");
    ws.folder("players/cyborg");
    ws.writeLines("Game-Paths/Q/Female.cfg", {"Female", "crakhor"});
    const auto run = runCli(ws.root(), {"models", "Q"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(),
              nlohmann::json::parse(R"({"male": ["cyborg", "male"], "female": ["Female", "crakhor"]})"));
}

TEST(CliModels, EmptyModelsFolderGivesEmptyListsTheMessageAndStatusOne) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Q/Q.Gme", {"c:\\quake2\\", "maps", "quake2.exe", "", ""});
    const auto run = runCli(ws.root(), {"models", "Q"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "No models folder specified\n");
    EXPECT_EQ(run.json(), nlohmann::json::parse(R"({"male": [], "female": []})"));
}

TEST(CliModels, UnknownGameIsStatusTwo) {
    TempWorkspace ws;
    ws.folder("Game-Paths");
    const auto run = runCli(ws.root(), {"models", "Ghost"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
}

TEST(CliModels, FolderStandingWhereTheRecordShouldBeIsReportedThroughTheTrap) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Q/Q.Gme");
    const auto run = runCli(ws.root(), {"models", "Q"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("Sod it!  Something has gone wrong!"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("is a folder"), std::string::npos) << run.err;
    EXPECT_EQ(run.json(), nlohmann::json::parse(R"({"male": [], "female": []})"));
}

TEST(CliFemales, ShowAndResaveRoundTripByteForByte) {
    TempWorkspace ws;
    const std::string bytes = crlf({"female", "", "Jezebel"});
    ws.write("Game-Paths/Q/Female.cfg", bytes);
    const auto show = runCli(ws.root(), {"show", "females", ws.path("Game-Paths/Q/Female.cfg").string()});
    ASSERT_EQ(show.status, 0) << show.err;
    EXPECT_EQ(show.json(), nlohmann::json::parse(R"(["female", "", "Jezebel"])"));
    const auto resave = runCli(ws.root(), {"resave", "females", ws.path("Game-Paths/Q/Female.cfg").string()});
    ASSERT_EQ(resave.status, 0) << resave.err;
    EXPECT_EQ(ws.read("Game-Paths/Q/Female.cfg"), bytes);
}

TEST(CliFemales, ShowOfABinaryFileKeepsEveryByteAsACodePoint) {
    TempWorkspace ws;
    ws.write("Game-Paths/Q/Female.cfg", std::string("a\0b\x80\xFF", 5));
    const auto show = runCli(ws.root(), {"show", "females", ws.path("Game-Paths/Q/Female.cfg").string()});
    ASSERT_EQ(show.status, 0) << show.err;
    EXPECT_EQ(show.json(), nlohmann::json::parse(R"(["a\u0000b\u20ac\u00ff"])"));
}

TEST(CliFemales, MissingFileIsStatusTwo) {
    TempWorkspace ws;
    const auto show = runCli(ws.root(), {"show", "females", ws.path("Game-Paths/Q/Female.cfg").string()});
    EXPECT_EQ(show.status, 2);
    EXPECT_EQ(show.out, "");
}

} // namespace
} // namespace rd::cli_test
