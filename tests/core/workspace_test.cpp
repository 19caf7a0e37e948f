#include "core/workspace.h"
#include "tests/support/environment_data.h"
#include "tests/support/workspace_data.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace workspace_test {

using namespace rd;
using rd::test::TempWorkspace;

TEST(Workspace, RootComesFromTheEnvironmentWhenSet) {
    rd::test::setEnvironment("ROSTERDESK_ROOT", "/some/where");
    EXPECT_EQ(workspaceRoot("/opt/rosterdesk"), fs::path("/some/where"));
    rd::test::setEnvironment("ROSTERDESK_ROOT", "");
    EXPECT_EQ(workspaceRoot("/opt/rosterdesk"), fs::path("/opt/rosterdesk"));
    rd::test::unsetEnvironment("ROSTERDESK_ROOT");
    EXPECT_EQ(workspaceRoot("/opt/rosterdesk"), fs::path("/opt/rosterdesk"));
}

TEST(Workspace, ListingIsOrderedByNameWithoutRegardToCase) {
    TempWorkspace ws;
    for (const char* name : {"beta", "Alpha", "gamma", "ALPHA2", "Zed"})
        ws.folder(name);
    ws.write("delta.txt", "x");
    std::vector<std::string> names;
    for (const auto& e : listDirectory(ws.root()))
        names.push_back(e.name);
    EXPECT_EQ(names, (std::vector<std::string>{"Alpha", "ALPHA2", "beta", "delta.txt", "gamma", "Zed"}));
    EXPECT_EQ(listFolders(ws.root()), (std::vector<std::string>{"Alpha", "ALPHA2", "beta", "gamma", "Zed"}));
    EXPECT_EQ(listFiles(ws.root()), (std::vector<std::string>{"delta.txt"}));
}

TEST(Workspace, NamesThatDifferOnlyInCaseAreOrderedByBytes) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows file systems ignore case: b and B name one folder";
#endif
    TempWorkspace ws;
    ws.folder("b");
    ws.folder("B");
    EXPECT_EQ(listFolders(ws.root()), (std::vector<std::string>{"B", "b"}));
}

TEST(Workspace, MissingFolderListsAsEmpty) {
    TempWorkspace ws;
    EXPECT_TRUE(listDirectory(ws.path("nothing")).empty());
}

TEST(Workspace, WildcardsMatchWithoutRegardToCase) {
    EXPECT_TRUE(wildcardMatch("PAK*.PAK", "pak0.pak"));
    EXPECT_TRUE(wildcardMatch("*.Map", "DM.MAP"));
    EXPECT_TRUE(wildcardMatch("*.*", "README"));
    EXPECT_TRUE(wildcardMatch("*.bsp", "e1m1.BSP"));
    EXPECT_FALSE(wildcardMatch("*.bsp", "e1m1.bsp.txt"));
    EXPECT_TRUE(wildcardMatch("a?c", "abc"));
    EXPECT_FALSE(wildcardMatch("maps*.bsp*", "MAPS/X.BSP", true));
    EXPECT_TRUE(wildcardMatch("maps*.bsp*", std::string("maps/x.bsp\0\0", 12), true));
}

TEST(Workspace, FixedNamesResolveWhateverTheirCaseOnDisk) {
    TempWorkspace ws;
    ws.write("plug-ins/ERASER/setup.CFG", "Quake2\r\n");
    const auto p = resolvePath(ws.root(), "Plug-Ins\\Eraser\\Setup.cfg");
    EXPECT_EQ(p, ws.path("plug-ins/ERASER/setup.CFG"));
    EXPECT_TRUE(fileExists(p));
}

TEST(Workspace, MissingNamesKeepTheGivenSpelling) {
    TempWorkspace ws;
    ws.folder("Game-Paths");
    EXPECT_EQ(resolvePath(ws.root(), "game-paths/New Game/New Game.Gme"),
              ws.path("Game-Paths/New Game/New Game.Gme"));
}

TEST(Workspace, ExistenceTests) {
    TempWorkspace ws;
    ws.write("Game-Paths/file", "x");
    ws.folder("Game-Paths/Quake2");
    EXPECT_TRUE(fileExists(ws.path("Game-Paths/FILE")));
    EXPECT_FALSE(fileExists(ws.path("Game-Paths/Quake2")));
    EXPECT_TRUE(folderExists(ws.path("Game-Paths/QUAKE2")));
    EXPECT_FALSE(folderExists(ws.path("Game-Paths/file")));
    EXPECT_TRUE(entryExists(ws.path("Game-Paths/File")));
    EXPECT_TRUE(entryExists(ws.path("Game-Paths/quake2")));
    EXPECT_FALSE(entryExists(ws.path("Game-Paths/other")));
}

TEST(Workspace, NewNamesWithSeparatorsOrDotsAreRefused) {
    EXPECT_TRUE(refuseNewName("a/b"));
    EXPECT_TRUE(refuseNewName("a\\b"));
    EXPECT_TRUE(refuseNewName("."));
    EXPECT_TRUE(refuseNewName(".."));
    EXPECT_FALSE(refuseNewName("Team A"));
    EXPECT_FALSE(refuseNewName("...x"));
}

TEST(Workspace, TrailingSeparatorFollowsTheStyleOfThePath) {
    EXPECT_EQ(withTrailingSeparator("c:\\quake2"), "c:\\quake2\\");
    EXPECT_EQ(withTrailingSeparator("/games/q2"), "/games/q2/");
    EXPECT_EQ(withTrailingSeparator("quake2"), "quake2\\");
    EXPECT_EQ(withTrailingSeparator("/games/q2/"), "/games/q2/");
    EXPECT_EQ(withTrailingSeparator("c:\\q2/x"), "c:\\q2/x\\");
}

TEST(Workspace, PathsFromDataFilesAcceptBothSeparatorsAndAnyCase) {
    TempWorkspace ws;
    ws.folder("Quake2/BaseQ2/maps");
    const std::string text = ws.root().string() + "\\quake2\\baseq2/MAPS\\";
    EXPECT_EQ(pathFromData(text), ws.path("Quake2/BaseQ2/maps"));
}

} // namespace workspace_test
