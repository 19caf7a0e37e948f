// rosterdesk-cli on Windows: a workspace named by a Windows path, whose record holds the game's
// folders as drive-letter paths. In the Windows build the tests' workspaces lie on drive Z:
// (the build machine's file system under Wine), so the record says Z:\...

#include "tests/support/pak_writer_data.h"
#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#ifdef _WIN32

namespace rd::windows_test {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using test::buildPak;
using test::TempWorkspace;

std::string windowsPath(const fs::path& path) {
    return fs::path(path).make_preferred().string();
}

TEST(CliOnWindows, CatalogueOfARecordWithDriveLetterPathsListsTheMaps) {
    TempWorkspace ws;
    const std::string main = windowsPath(ws.path("Quake2")) + "\\";
    // The workspace lies where the tests were told to put them (drive Z: in the Windows build).
    ASSERT_EQ(main.substr(0, 3), windowsPath(test::testTempFolder()).substr(0, 3)) << main;
    ASSERT_EQ(main.substr(1, 2), ":\\") << main;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {main, main + "baseq2\\maps\\"});
    ws.write("Quake2/baseq2/pak0.pak", buildPak({{"maps/q2dm1.bsp", ""}, {"maps/q2dm2.bsp", ""}}));
    ws.write("Quake2/baseq2/maps/Loose.bsp", "");
    const test::ProgramRun run =
        test::runProgram(ROSTERDESK_CLI, {"--root", windowsPath(ws.root()), "catalogue", "Quake2"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), json::parse(R"([{"name":"q2dm1","source":"BaseQ2 pak0.pak"},
        {"name":"q2dm2","source":"BaseQ2 pak0.pak"},{"name":"Loose","source":"Custom Maps"}])"));
}

TEST(CliOnWindows, RecordFoldersInOtherLettersCaseOpen) {
    TempWorkspace ws;
    // c:\QUAKE2\ style: the drive letter and every name in other case than on disk.
    std::string main = windowsPath(ws.path("quake2")) + "\\";
    for (auto& c : main)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    main[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(main[0])));
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {main, main + "BASEQ2\\MAPS"});
    ws.write("quake2/baseq2/pak0.pak", buildPak({{"maps/q2dm1.bsp", ""}}));
    ws.write("quake2/baseq2/maps/e1m1.bsp", "");
    const test::ProgramRun run =
        test::runProgram(ROSTERDESK_CLI, {"--root", windowsPath(ws.root()), "catalogue", "QUAKE2"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), json::parse(R"([{"name":"q2dm1","source":"BaseQ2 pak0.pak"},
        {"name":"e1m1","source":"Custom Maps"}])"));
}

TEST(CliOnWindows, OutputEndsInALineFeedAsOnEverySystem) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Eraser");
    const test::ProgramRun run = test::runProgram(ROSTERDESK_CLI, {"--root", windowsPath(ws.root()), "bots"});
    EXPECT_EQ(run.out, "[\n  \"Eraser\"\n]\n");
}

} // namespace
} // namespace rd::windows_test

#endif
