// What the workspace helpers ask of the operating system: the program's own folder, names in the
// launcher's code page on disk, and (on Windows) drive-letter paths and file systems that ignore
// case.

#include "core/errors.h"
#include "core/nativeprocess.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "tests/support/workspace_data.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>

namespace platform_test {

using namespace rd;
using rd::test::TempWorkspace;

TEST(Platform, TheProgramsFolderHoldsTheRunningProgram) {
    const fs::path program = native::runningProgram(nullptr);
    EXPECT_EQ(program.stem(), "core_data_tests");
    EXPECT_TRUE(fs::is_regular_file(program)) << program;
    EXPECT_EQ(programFolder(nullptr), program.parent_path());
}

TEST(Platform, CodePageNamesSurviveTheFileSystem) {
    TempWorkspace ws;
    const std::string name = "\xC9quipe \x80 \xFC"; // "Équipe € ü" in the code page
    fs::create_directories(joinName(ws.root(), name));
    writeAllLines(resolvePath(joinName(ws.root(), name), "profile.cfg"), {"Eraser"});
    const auto entries = listDirectory(ws.root());
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].name, name);
    EXPECT_TRUE(entries[0].isFolder);
    EXPECT_TRUE(fileExists(resolvePath(ws.root(), name + "\\PROFILE.CFG")));
    EXPECT_EQ(nameOf(joinName(ws.root(), name)), name);
}

#ifdef _WIN32

// A folder of its own under the system's temporary folder (on the C: drive under Wine).
struct SystemTempFolder {
    fs::path path;
    SystemTempFolder() {
        path = fs::temp_directory_path() /
               ("rosterdesk-drive-" + std::to_string(std::random_device{}() % 1000000));
        fs::create_directories(path);
    }
    ~SystemTempFolder() {
        std::error_code ec;
        fs::remove_all(path, ec);
    }
};

TEST(PlatformWindows, DataPathsWithALowerCaseDriveLetterOpen) {
    SystemTempFolder temp;
    fs::create_directories(temp.path / "Quake2" / "BaseQ2" / "Maps");
    // As a record holds it: c:\...\quake2\baseq2\maps\, in other letters' case than on disk.
    const std::string text = lowerCase(pathText(temp.path / "Quake2" / "BaseQ2" / "Maps")) + "\\";
    ASSERT_EQ(text.substr(1, 2), ":\\") << text;
    const fs::path path = pathFromData(text);
    EXPECT_TRUE(path.is_absolute()) << path;
    EXPECT_TRUE(folderExists(path)) << path;
    EXPECT_TRUE(fs::equivalent(path, temp.path / "Quake2" / "BaseQ2" / "Maps"));
}

TEST(PlatformWindows, DataPathsWithForwardSlashesAfterTheDriveOpen) {
    SystemTempFolder temp;
    fs::create_directories(temp.path / "quake2");
    std::string text = pathText(temp.path / "quake2");
    for (auto& c : text)
        if (c == '\\')
            c = '/';
    EXPECT_TRUE(folderExists(pathFromData(text))) << text;
}

TEST(PlatformWindows, NamesInAnotherCaseFindTheSpellingOnDisk) {
    TempWorkspace ws;
    ws.write("plug-ins/eraser/setup.cfg", "Quake2\r\n");
    const fs::path resolved = resolvePath(ws.root(), "PLUG-INS\\Eraser\\SETUP.CFG");
    EXPECT_EQ(resolved, ws.root() / "plug-ins" / "eraser" / "setup.cfg");
    EXPECT_TRUE(fileExists(ws.root() / "Plug-Ins" / "ERASER" / "Setup.Cfg"));
}

TEST(PlatformWindows, DevicesAreNotPlainFiles) {
    TempWorkspace ws;
    EXPECT_THROW(LineReader(ws.root() / "NUL"), FileError);
}

#endif

TEST(Platform, RenamingChangesTheLetterCaseAlone) {
    TempWorkspace ws;
    ws.write("Fred/profile.cfg", "Eraser\r\n");
    std::error_code ec;
    renameEntry(ws.path("Fred"), ws.path("FRED"), ec);
    ASSERT_FALSE(ec) << ec.message();
    EXPECT_TRUE(ws.listed("FRED"));
    EXPECT_FALSE(ws.listed("Fred"));
    EXPECT_EQ(ws.read("FRED/profile.cfg"), "Eraser\r\n");
    EXPECT_EQ(listDirectory(ws.root()).size(), 1u);
}

} // namespace platform_test
