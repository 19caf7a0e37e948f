// Where the desktop program finds its workspace, and the launcher folders it offers from the
// usual Wine prefixes.
#include "core/launcherfolder.h"
#include "tests/support/wine_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace launcherfolder_test {

using namespace rd;
namespace fs = std::filesystem;
using rd::test::ScopedEnvironment;
using rd::test::TempWorkspace;

TEST(LauncherFolder, TheEnvironmentComesFirst) {
    TempWorkspace program;
    program.folder("Plug-Ins");
    const ScopedEnvironment env({{"ROSTERDESK_ROOT", "/some/where"}});
    const auto root = desktopWorkspaceRoot(program.root(), program.root());
    ASSERT_TRUE(root);
    EXPECT_EQ(root->folder, fs::path("/some/where"));
    EXPECT_EQ(root->source, RootSource::Environment);
    EXPECT_STREQ(rootSourceName(root->source), "ROSTERDESK_ROOT");
}

TEST(LauncherFolder, AProgramPlacedInTheLaunchersFolderWorksOnThatFolder) {
    const ScopedEnvironment env({{"ROSTERDESK_ROOT", ""}});
    TempWorkspace program;
    program.folder("PLUG-INS");
    TempWorkspace remembered;
    remembered.folder("Game-Paths");
    auto root = desktopWorkspaceRoot(program.root(), remembered.root());
    ASSERT_TRUE(root);
    EXPECT_EQ(root->folder, program.root());
    EXPECT_EQ(root->source, RootSource::ProgramFolder);
    TempWorkspace games;
    games.folder("game-paths");
    root = desktopWorkspaceRoot(games.root(), {});
    ASSERT_TRUE(root);
    EXPECT_EQ(root->folder, games.root());
}

TEST(LauncherFolder, AnInstalledProgramUsesTheRememberedFolder) {
    const ScopedEnvironment env({{"ROSTERDESK_ROOT", std::nullopt}});
    TempWorkspace program; // like /usr/bin: no Plug-Ins, no Game-Paths
    program.write("Plug-Ins", "a file, not the folder");
    TempWorkspace remembered;
    remembered.folder("Plug-Ins");
    const auto root = desktopWorkspaceRoot(program.root(), remembered.root());
    ASSERT_TRUE(root);
    EXPECT_EQ(root->folder, remembered.root());
    EXPECT_EQ(root->source, RootSource::Remembered);
}

TEST(LauncherFolder, WithNothingRememberedOrARememberedFolderGoneTheUserIsAsked) {
    const ScopedEnvironment env({{"ROSTERDESK_ROOT", std::nullopt}});
    TempWorkspace program;
    TempWorkspace current; // a workspace, yet never taken silently
    current.folder("Plug-Ins");
    current.folder("Game-Paths");
    EXPECT_FALSE(desktopWorkspaceRoot(program.root(), {}));
    EXPECT_FALSE(desktopWorkspaceRoot(program.root(), current.path("gone")));
    TempWorkspace emptied; // still there, but no longer the launcher's folder
    EXPECT_FALSE(desktopWorkspaceRoot(program.root(), emptied.root()));
}

TEST(LauncherFolder, ALauncherFolderHoldsBothOfItsFolders) {
    TempWorkspace ws;
    ws.folder("a/Plug-Ins");
    ws.folder("b/PLUG-INS");
    ws.folder("b/game-paths");
    ws.write("c/Plug-Ins", "a file");
    ws.folder("c/Game-Paths");
    EXPECT_TRUE(holdsLauncherData(ws.path("a")));
    EXPECT_FALSE(isLauncherFolder(ws.path("a")));
    EXPECT_TRUE(isLauncherFolder(ws.path("b")));
    EXPECT_FALSE(isLauncherFolder(ws.path("c")));
    EXPECT_TRUE(holdsLauncherData(ws.path("c")));
}

#ifndef _WIN32

// A home folder with prefixes where Wine, Lutris and winetricks make them.
struct Home {
    TempWorkspace ws;
    fs::path home = ws.path("home");

    void prefix(const std::string& relative) const { ws.folder("home/" + relative + "/drive_c"); }
    void launcher(const std::string& relative) const {
        ws.folder("home/" + relative + "/Plug-Ins");
        ws.folder("home/" + relative + "/Game-Paths");
    }
};

TEST(LauncherFolder, TheUsualPrefixesAreWINEPREFIXDotWineGamesAndWineprefixes) {
    Home h;
    h.prefix(".wine");
    h.prefix("Games/tarnwick");      // Lutris: ~/Games/<game>
    h.prefix("Games/quake/prefix");  // a prefix one folder further down
    h.ws.folder("home/Games/notes"); // no drive_c: not a prefix
    h.prefix(".local/share/wineprefixes/bots");
    h.prefix("../elsewhere");
    const ScopedEnvironment env({{"HOME", h.home.string()}, {"WINEPREFIX", h.ws.path("elsewhere").string()}});
    EXPECT_EQ(usualWinePrefixes(),
              (std::vector<fs::path>{h.ws.path("elsewhere"), h.home / ".wine", h.home / "Games/quake/prefix",
                                     h.home / "Games/tarnwick", h.home / ".local/share/wineprefixes/bots"}));
    // WINEPREFIX naming ~/.wine offers it once.
    const ScopedEnvironment same({{"WINEPREFIX", (h.home / ".wine").string()}});
    EXPECT_EQ(usualWinePrefixes().size(), 4u);
}

TEST(LauncherFolder, LauncherFoldersAreFoundInDriveCUpToThreeFoldersDeep) {
    Home h;
    h.prefix(".wine");
    h.launcher(".wine/drive_c/Tarnwick");
    h.launcher(".wine/drive_c/Program Files/Tarnwick Launcher");
    h.launcher(".wine/drive_c/Games/Bots/Tarnwick");
    h.launcher(".wine/drive_c/a/b/c/Too Deep");
    h.ws.folder("home/.wine/drive_c/OnlyPlugins/Plug-Ins");
    h.launcher(".wine/drive_c/windows/Tarnwick"); // Wine's own folder is not searched
    h.launcher(".wine/drive_c/Tarnwick/Nested");  // inside a launcher folder: a profile
    h.prefix("Games/tarnwick");
    h.launcher("Games/tarnwick/drive_c/TARNWICK");
    const fs::path c = h.home / ".wine/drive_c";
    EXPECT_EQ(findLauncherFolders({h.home / ".wine", h.home / "Games/tarnwick"}),
              (std::vector<fs::path>{c / "Games/Bots/Tarnwick", c / "Program Files/Tarnwick Launcher",
                                     c / "Tarnwick", h.home / "Games/tarnwick/drive_c/TARNWICK"}));
}

TEST(LauncherFolder, TheSearchFollowsNoLinksAndEndsOnALoop) {
    Home h;
    h.prefix(".wine");
    h.launcher("Documents/Tarnwick");
    const fs::path c = h.home / ".wine/drive_c";
    fs::create_directories(c / "users/player");
    fs::create_directory_symlink(h.home / "Documents", c / "users/player/Documents");
    fs::create_directory_symlink(".", c / "users/player/again"); // a loop
    fs::create_directory_symlink("/", c / "root");               // the whole system
    h.launcher(".wine/drive_c/Tarnwick");
    EXPECT_EQ(findLauncherFolders({h.home / ".wine"}), std::vector<fs::path>{c / "Tarnwick"});
}

TEST(LauncherFolder, NoPrefixesNoLauncherFolders) {
    Home h;
    h.ws.folder("home");
    const ScopedEnvironment env({{"HOME", h.home.string()}, {"WINEPREFIX", std::nullopt}});
    EXPECT_TRUE(usualWinePrefixes().empty());
    EXPECT_TRUE(findLauncherFolders(usualWinePrefixes()).empty());
}

#endif

} // namespace launcherfolder_test
