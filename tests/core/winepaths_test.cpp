// Wine drives: drive paths of the launcher's records resolve through the prefix's dosdevices
// links, and folders of this system are written back as the drive paths the launcher reads.
#include "core/winepaths.h"
#include "core/workspace.h"
#include "tests/support/wine_data.h"
#include "tests/support/workspace_data.h"

#include <chrono>
#include <gtest/gtest.h>

namespace winepaths_test {

using namespace rd;
using rd::test::FakeWinePrefix;
using rd::test::ScopedEnvironment;
using rd::test::TempWorkspace;

TEST(WinePaths, DriveLetterIsALetterAndAColonAtTheStart) {
    EXPECT_EQ(driveLetterOf("C:\\Quake2\\"), 'C');
    EXPECT_EQ(driveLetterOf("c:/quake2"), 'C');
    EXPECT_EQ(driveLetterOf("D:"), 'D');
    EXPECT_EQ(driveLetterOf("z:maps"), 'Z');
    EXPECT_EQ(driveLetterOf("/home/p/.wine"), std::nullopt);
    EXPECT_EQ(driveLetterOf("quake2"), std::nullopt);
    EXPECT_EQ(driveLetterOf("1:\\x"), std::nullopt);
    EXPECT_EQ(driveLetterOf("C"), std::nullopt);
    EXPECT_EQ(driveLetterOf(""), std::nullopt);
}

TEST(WinePaths, WithoutAPrefixNothingIsMappedOrWrittenInDriveForm) {
    const WinePrefix none;
    EXPECT_FALSE(none.mapsDrives());
    EXPECT_EQ(none.drive('C'), nullptr);
    EXPECT_EQ(drivePathOf("/tmp/x", none), std::nullopt);
    EXPECT_EQ(launcherPathText("/tmp/x/", none), "/tmp/x/");
}

#ifndef _WIN32

// A prefix with C: and Z:, a game installation in drive_c written in other letter cases than the
// records use.
struct Prefix : FakeWinePrefix {
    Prefix() {
        folder("QUAKE2/BaseQ2/Maps");
        folder("QUAKE2/BaseQ2/players/male");
    }
};

TEST(WinePaths, DrivesAreTheDosdevicesLinksNamedByALetter) {
    Prefix p;
    p.link("com1", "/dev/ttyS0");
    p.link("d::", "/dev/sr0");
    p.folder("cdrom");
    p.link("D:", "../drive_c/cdrom");
    const WinePrefix prefix = readWinePrefix(p.prefix());
    ASSERT_EQ(prefix.drives.size(), 3u);
    EXPECT_EQ(prefix.drives[0].letter, 'C');
    EXPECT_EQ(prefix.drives[1].letter, 'D');
    EXPECT_EQ(prefix.drives[2].letter, 'Z');
    EXPECT_EQ(prefix.drives[0].link, p.driveC());
    EXPECT_EQ(prefix.drives[0].target, fs::canonical(p.driveC()));
    EXPECT_EQ(prefix.drives[2].target, fs::path("/"));
    EXPECT_EQ(prefix.drive('c'), &prefix.drives[0]);
}

TEST(WinePaths, DrivePathResolvesThroughItsLinkWhateverTheLetterCaseOnDisk) {
    Prefix p;
    const WinePrefix prefix = readWinePrefix(p.prefix());
    const fs::path maps = fs::canonical(p.driveC("QUAKE2/BaseQ2/Maps"));
    EXPECT_EQ(pathFromData("C:\\Quake2\\baseq2\\maps\\", prefix), maps);
    EXPECT_EQ(pathFromData("c:/quake2/BASEQ2/maps", prefix), maps);
    EXPECT_TRUE(folderExists(pathFromData("C:\\quake2\\baseq2\\players\\MALE", prefix)));
    EXPECT_EQ(pathFromData("C:", prefix), fs::canonical(p.driveC()));
    // Texts that are not drive paths resolve as before.
    EXPECT_EQ(pathFromData(p.driveC("quake2/baseq2").string(), prefix), p.driveC("QUAKE2/BaseQ2"));
}

TEST(WinePaths, DriveZLeadsToTheRootOfThisSystem) {
    Prefix p;
    const WinePrefix prefix = readWinePrefix(p.prefix());
    p.temp.folder("Games/Q2");
    const std::string text = rd::test::zDrivePath(p.temp.path("games/q2"));
    EXPECT_EQ(pathFromData(text, prefix), fs::canonical(p.temp.path("Games/Q2")));
}

TEST(WinePaths, ADriveWithoutALinkStaysUnresolved) {
    Prefix p;
    const WinePrefix prefix = readWinePrefix(p.prefix());
    EXPECT_EQ(prefix.drive('D'), nullptr);
    EXPECT_TRUE(pathFromData("D:\\Games\\Quake2\\", prefix).empty());
    EXPECT_FALSE(folderExists(pathFromData("D:\\Games\\Quake2\\", prefix)));
    // Without any prefix a drive path names nothing either: not a folder "c:" below the current
    // folder.
    EXPECT_TRUE(pathFromData("C:\\Quake2\\").empty());
    EXPECT_TRUE(pathFromData("c:quake2").empty());
}

TEST(WinePaths, PrefixIsFoundFromTheWorkspacesParents) {
    Prefix p;
    const ScopedEnvironment env({{"WINEPREFIX", std::nullopt}, {"HOME", p.temp.path("home").string()}});
    const WinePrefix prefix = findWinePrefix(p.root());
    EXPECT_EQ(prefix.folder, p.prefix());
    ASSERT_EQ(prefix.drives.size(), 2u);
    // A workspace deeper down belongs to the same prefix.
    p.folder("Program Files/Tarnwick");
    EXPECT_EQ(findWinePrefix(p.driveC("Program Files/Tarnwick")).folder, p.prefix());
}

TEST(WinePaths, PrefixIsFoundFromAWorkspaceReachedThroughALink) {
    Prefix p;
    const ScopedEnvironment env({{"WINEPREFIX", std::nullopt}, {"HOME", p.temp.path("home").string()}});
    p.temp.folder("home");
    fs::create_directory_symlink(p.root(), p.temp.path("home/Tarnwick"));
    EXPECT_EQ(findWinePrefix(p.temp.path("home/Tarnwick")).folder, fs::canonical(p.prefix()));
}

TEST(WinePaths, PrefixComesFromWINEPREFIXForAWorkspaceOutsideEveryPrefix) {
    Prefix p;
    TempWorkspace outside;
    outside.folder("Plug-Ins");
    const ScopedEnvironment env(
        {{"WINEPREFIX", p.prefix().string()}, {"HOME", outside.path("home").string()}});
    const WinePrefix prefix = findWinePrefix(outside.root());
    EXPECT_EQ(prefix.folder, p.prefix());
    EXPECT_TRUE(prefix.mapsDrives());
    EXPECT_EQ(pathFromData("C:\\Quake2\\baseq2\\maps", prefix),
              fs::canonical(p.driveC("QUAKE2/BaseQ2/Maps")));
}

TEST(WinePaths, AWINEPREFIXWithoutDrivesMapsNothingAndHidesTheHomePrefix) {
    Prefix home;
    fs::rename(home.prefix(), home.temp.path(".wine"));
    TempWorkspace outside;
    const ScopedEnvironment env(
        {{"WINEPREFIX", outside.path("not-made-yet").string()}, {"HOME", home.temp.root().string()}});
    const WinePrefix prefix = findWinePrefix(outside.root());
    EXPECT_EQ(prefix.folder, outside.path("not-made-yet"));
    EXPECT_FALSE(prefix.mapsDrives());
}

TEST(WinePaths, PrefixComesFromTheHomeFoldersDotWineLast) {
    Prefix home;
    fs::rename(home.prefix(), home.temp.path(".wine"));
    TempWorkspace outside;
    {
        const ScopedEnvironment env({{"WINEPREFIX", std::nullopt}, {"HOME", home.temp.root().string()}});
        const WinePrefix prefix = findWinePrefix(outside.root());
        EXPECT_EQ(prefix.folder, home.temp.path(".wine"));
        ASSERT_NE(prefix.drive('C'), nullptr);
        EXPECT_EQ(prefix.drive('C')->target, fs::canonical(home.temp.path(".wine/drive_c")));
    }
    {
        const ScopedEnvironment env({{"WINEPREFIX", ""}, {"HOME", outside.root().string()}});
        const WinePrefix none = findWinePrefix(outside.root());
        EXPECT_TRUE(none.folder.empty());
        EXPECT_FALSE(none.mapsDrives());
    }
}

TEST(WinePaths, AFolderInDriveCIsWrittenOnDriveC) {
    Prefix p;
    const WinePrefix prefix = readWinePrefix(p.prefix());
    EXPECT_EQ(drivePathOf(p.driveC("QUAKE2/BaseQ2"), prefix), "C:\\QUAKE2\\BaseQ2");
    EXPECT_EQ(drivePathOf(fs::canonical(p.driveC("QUAKE2/BaseQ2/Maps")), prefix), "C:\\QUAKE2\\BaseQ2\\Maps");
    EXPECT_EQ(drivePathOf(p.driveC(), prefix), "C:\\");
    EXPECT_EQ(drivePathOf(p.driveC("QUAKE2/quake2.exe"), prefix), "C:\\QUAKE2\\quake2.exe");
}

TEST(WinePaths, AFolderOutsideDriveCIsWrittenOnDriveZ) {
    Prefix p;
    const WinePrefix prefix = readWinePrefix(p.prefix());
    p.temp.folder("elsewhere/Maps");
    const fs::path folder = fs::canonical(p.temp.path("elsewhere/Maps"));
    EXPECT_EQ(drivePathOf(folder, prefix), rd::test::zDrivePath(folder));
    EXPECT_EQ(drivePathOf("/", prefix), "Z:\\");
}

TEST(WinePaths, TheDriveWithTheLongestMatchWins) {
    Prefix p;
    p.folder("Games/Quake2");
    p.link("d:", "../drive_c/Games");
    const WinePrefix prefix = readWinePrefix(p.prefix());
    EXPECT_EQ(drivePathOf(p.driveC("Games/Quake2"), prefix), "D:\\Quake2");
    EXPECT_EQ(drivePathOf(p.driveC("QUAKE2"), prefix), "C:\\QUAKE2");
    EXPECT_EQ(pathFromData("d:\\quake2", prefix), fs::canonical(p.driveC("Games/Quake2")));
}

TEST(WinePaths, AFolderReachedThroughALinkInsideDriveCStaysOnDriveC) {
    // Wine links the user's Documents into drive_c/users/<name>; a folder chosen there is named
    // by its place on C:.
    Prefix p;
    p.temp.folder("home/Documents/Tarnwick");
    p.folder("users/player");
    fs::create_directory_symlink(p.temp.path("home/Documents"), p.driveC("users/player/Documents"));
    const WinePrefix prefix = readWinePrefix(p.prefix());
    EXPECT_EQ(drivePathOf(p.driveC("users/player/Documents/Tarnwick"), prefix),
              "C:\\users\\player\\Documents\\Tarnwick");
}

TEST(WinePaths, LinksThatLoopOrLeadNowhereNeitherHangNorCrash) {
    Prefix p;
    p.link("e:", "e:");                     // itself
    p.link("f:", "/no/such/folder/at/all"); // nowhere
    p.link("g:", "g-one");                  // g: -> g-one -> g-two -> g-one
    fs::create_symlink("g-two", p.prefix() / "dosdevices" / "g-one");
    fs::create_symlink("g-one", p.prefix() / "dosdevices" / "g-two");
    fs::create_symlink("loop", p.driveC("loop")); // a loop inside drive_c
    const auto start = std::chrono::steady_clock::now();

    const WinePrefix prefix = readWinePrefix(p.prefix());
    for (char letter : {'E', 'F', 'G'}) {
        const WineDrive* drive = prefix.drive(letter);
        ASSERT_NE(drive, nullptr) << letter;
        EXPECT_TRUE(drive->target.empty()) << letter;
        const std::string text = std::string{letter, ':', '\\'} + "Quake2\\baseq2";
        EXPECT_FALSE(folderExists(pathFromData(text, prefix))) << letter;
        EXPECT_TRUE(listDirectory(pathFromData(text, prefix)).empty()) << letter;
    }
    EXPECT_FALSE(folderExists(pathFromData("C:\\loop\\maps", prefix)));
    EXPECT_TRUE(listFolders(pathFromData("C:\\loop", prefix)).empty());
    EXPECT_EQ(drivePathOf(p.driveC("loop/maps"), prefix), "C:\\loop\\maps");
    EXPECT_EQ(findWinePrefix(p.driveC("loop/Tarnwick")).folder, p.prefix());
    // A dosdevices that is itself a loop maps nothing.
    TempWorkspace other;
    other.folder("pfx");
    fs::create_directory_symlink("dosdevices", other.path("pfx/dosdevices"));
    EXPECT_FALSE(readWinePrefix(other.path("pfx")).mapsDrives());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

TEST(WinePaths, ATypedPathOfThisSystemBecomesItsDrivePath) {
    Prefix p;
    const WinePrefix prefix = readWinePrefix(p.prefix());
    const std::string quake2 = p.driveC("quake2").string();
    EXPECT_EQ(launcherPathText(quake2, prefix), "C:\\QUAKE2");
    EXPECT_EQ(launcherPathText(quake2 + "/", prefix), "C:\\QUAKE2\\");
    EXPECT_EQ(launcherPathText("C:\\Quake2\\", prefix), "C:\\Quake2\\");
    EXPECT_EQ(launcherPathText("quake2\\baseq2", prefix), "quake2\\baseq2");
    EXPECT_EQ(launcherPathText("", prefix), "");
    EXPECT_EQ(launcherPathText(quake2 + "/", WinePrefix{}), quake2 + "/");
}

#else

TEST(WinePaths, WindowsNamesDrivesItselfAndFindsNoPrefix) {
    TempWorkspace ws;
    ws.folder("Quake2/baseq2");
    const WinePrefix prefix = findWinePrefix(ws.root());
    EXPECT_FALSE(prefix.mapsDrives());
    const std::string text = ws.path("quake2/BASEQ2").string();
    EXPECT_EQ(pathFromData(text, prefix), pathFromData(text));
    EXPECT_TRUE(folderExists(pathFromData(text, prefix)));
    EXPECT_EQ(launcherPathText(text, prefix), text);
}

#endif

} // namespace winepaths_test
