// Saving never leaves half a file: the lines go to a temporary file beside the old one, which
// is flushed to the disk and renamed over it. Whatever fails on the way (a full disk, a file size
// limit, a folder in the file's place, a vanished folder), the old file stays byte for byte and
// no temporary file is left; what a killed program left is removed by the next save.

#include "core/errors.h"
#include "core/filesave.h"
#include "core/nativefile.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace filesave_test {

using namespace rd;
using rd::test::crlf;
using rd::test::expectSavesSurviveFaults;
using rd::test::InjectedSaveFault;
using rd::test::saveLeftoversIn;
using rd::test::TempWorkspace;
namespace fs = std::filesystem;
using Step = native::SaveFault::Step;

const std::vector<std::string> kOld{"old first line", "old second line", "old third line"};
const std::vector<std::string> kNew{"new first line", "", "a longer new line with more in it", "last"};

std::string failureOf(const std::function<void()>& save) {
    try {
        save();
    } catch (const FileError& e) {
        return e.what();
    }
    return "no error";
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(FileSave, TheBytesOnDiskAreExactlyTheLinesEachWithCrLf) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    writeAllLines(ws.path("a.cfg"), kNew);
    EXPECT_EQ(ws.read("a.cfg"), "new first line\r\n\r\na longer new line with more in it\r\nlast\r\n");
    EXPECT_TRUE(saveLeftoversIn(ws.root()).empty());
}

TEST(FileSave, ALargeFileIsWrittenWholeAcrossTheWriteBuffer) {
    TempWorkspace ws;
    std::vector<std::string> lines;
    for (int i = 0; i < 20000; ++i)
        lines.push_back("line " + std::to_string(i) + std::string(static_cast<std::size_t>(i % 97), 'x'));
    lines.push_back(std::string(200000, 'y')); // one line longer than the buffer
    lines.push_back("after");
    writeAllLines(ws.path("big.cfg"), lines);
    EXPECT_EQ(ws.read("big.cfg"), crlf(lines));
}

TEST(FileSave, FailuresAtTheFirstByteTheMiddleAndTheLastLineLeaveTheOldFileWholeAndRetryWritesTheNew) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    const auto descriptions = expectSavesSurviveFaults(
        ws.path("a.cfg"),
        [&](StepRunner& runner) { runner.step([&] { writeAllLines(ws.path("a.cfg"), kNew); }); }, crlf(kNew));
    ASSERT_EQ(descriptions.size(), 5u);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_TRUE(contains(descriptions[i], "Device I/O error while writing " + pathText(ws.path("a.cfg"))))
            << descriptions[i];
    EXPECT_TRUE(contains(descriptions[0], "No space left on device")) << descriptions[0];
    EXPECT_EQ(descriptions[4],
              "Permission denied: " + pathText(ws.path("a.cfg")) + " (the file cannot be replaced)");
}

TEST(FileSave, AFailedSaveOfANewFileLeavesNoFileAtAll) {
    TempWorkspace ws;
    ws.folder("games");
    expectSavesSurviveFaults(
        ws.path("games/new.cfg"),
        [&](StepRunner& runner) { runner.step([&] { writeAllLines(ws.path("games/new.cfg"), kNew); }); },
        crlf(kNew));
}

TEST(FileSave, ADiskFullWhenTheTemporaryFileIsMadeLeavesTheOldFile) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    InjectedSaveFault fault({Step::Create, 0});
    const std::string error = failureOf([&] { writeAllLines(ws.path("a.cfg"), kNew); });
    EXPECT_TRUE(contains(error, "Device I/O error while writing " + pathText(ws.path("a.cfg")))) << error;
    EXPECT_EQ(ws.read("a.cfg"), crlf(kOld));
    EXPECT_TRUE(saveLeftoversIn(ws.root()).empty());
}

TEST(FileSave, AFolderThatRefusesNewFilesIsReportedAsSuch) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    InjectedSaveFault fault({Step::Create, 0, native::SaveFailure::Denied});
    EXPECT_EQ(failureOf([&] { writeAllLines(ws.path("a.cfg"), kNew); }),
              "Permission denied: " + pathText(ws.path("a.cfg")) + " (its folder cannot be written to)");
    EXPECT_EQ(ws.read("a.cfg"), crlf(kOld));
}

TEST(FileSave, AWriterDroppedWithoutCloseLeavesTheOldFileAndNoTemporaryFile) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    {
        LineWriter writer(ws.path("a.cfg"));
        writer.writeLine("half");
        EXPECT_EQ(saveLeftoversIn(ws.root()).size(), 1u); // the save is under way beside the file
    }
    EXPECT_EQ(ws.read("a.cfg"), crlf(kOld));
    EXPECT_TRUE(saveLeftoversIn(ws.root()).empty());
}

TEST(FileSave, AFolderInPlaceOfTheFileIsRefusedBeforeAnythingIsWritten) {
    TempWorkspace ws;
    ws.folder("Setup.cfg");
    ws.write("Setup.cfg/inside.txt", "kept");
    const std::string error = failureOf([&] { writeAllLines(ws.path("Setup.cfg"), kNew); });
    EXPECT_EQ(error, "Path/File access error: " + pathText(ws.path("Setup.cfg")) + " is a folder");
    EXPECT_EQ(ws.read("Setup.cfg/inside.txt"), "kept");
    EXPECT_TRUE(saveLeftoversIn(ws.root()).empty());
}

TEST(FileSave, AFileThatVanishedSinceItWasReadIsWrittenAnew) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    const auto lines = readAllLines(ws.path("a.cfg"));
    fs::remove(ws.path("a.cfg"));
    writeAllLines(ws.path("a.cfg"), lines);
    EXPECT_EQ(ws.read("a.cfg"), crlf(kOld));
}

TEST(FileSave, AFolderThatVanishedSinceTheFileWasReadIsReportedAndRetryWritesOnceItIsBack) {
    TempWorkspace ws;
    ws.writeLines("game/a.cfg", kOld);
    const auto lines = readAllLines(ws.path("game/a.cfg"));
    fs::remove_all(ws.path("game"));
    std::vector<std::string> descriptions;
    StepRunner runner([&](const std::string& description) {
        descriptions.push_back(description);
        ws.folder("game");
        return TrapChoice::Retry;
    });
    runner.step([&] { writeAllLines(ws.path("game/a.cfg"), lines); });
    ASSERT_EQ(descriptions.size(), 1u);
    EXPECT_EQ(descriptions[0], "Path not found: " + pathText(ws.path("game/a.cfg")));
    EXPECT_EQ(ws.read("game/a.cfg"), crlf(kOld));
    EXPECT_TRUE(saveLeftoversIn(ws.path("game")).empty());
}

TEST(FileSave, IgnoreAfterAFailureKeepsTheOldFileWhole) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    InjectedSaveFault fault({Step::Write, 20});
    StepRunner runner([](const std::string&) { return TrapChoice::Ignore; });
    EXPECT_FALSE(runner.step([&] { writeAllLines(ws.path("a.cfg"), kNew); }));
    EXPECT_EQ(ws.read("a.cfg"), crlf(kOld));
    EXPECT_TRUE(saveLeftoversIn(ws.root()).empty());
}

// Temporary names ------------------------------------------------------------------------------

TEST(FileSave, TemporaryFilesAreHiddenNamedAfterTheirFileAndRecognised) {
    EXPECT_EQ(saveTemporaryName("Options.cfg", 4711), ".Options.cfg.4711.rdsave");
    const auto leftover = saveLeftoverOf(".Options.cfg.4711.rdsave");
    ASSERT_TRUE(leftover);
    EXPECT_EQ(leftover->file, "Options.cfg");
    EXPECT_EQ(leftover->processId, 4711u);
    EXPECT_TRUE(saveLeftoverOf(".Quake2.Gme.12.RDSAVE"));
    for (const char* other : {"Options.cfg", ".Options.cfg", "Options.cfg.4711.rdsave", ".Options.cfg.rdsave",
                              ".Options.cfg.47x1.rdsave", "..4711.rdsave", ".rdsave"})
        EXPECT_FALSE(saveLeftoverOf(other)) << other;
    // No pattern of the launcher's listings takes one for a data file.
    for (const char* pattern : {"*.cfg", "*.map", "*.ra2", "*.val", "*.lst", "*.gme", "*.spt", "*.bsp"})
        EXPECT_FALSE(wildcardMatch(pattern, saveTemporaryName("Female.cfg", 99))) << pattern;
}

TEST(FileSave, TheNextSaveRemovesWhatAKilledSaveOfTheSameFileLeft) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    // Process ids that no running program has: far above any system's limit.
    ws.write(saveTemporaryName("a.cfg", 3999999990), "half a fi");
    ws.write(saveTemporaryName("A.CFG", 3999999991), "half a fi");
    ws.write(saveTemporaryName("b.cfg", 3999999992), "another file's");
    writeAllLines(ws.path("a.cfg"), kNew);
    EXPECT_EQ(ws.read("a.cfg"), crlf(kNew));
    EXPECT_EQ(saveLeftoversIn(ws.root()), std::vector<std::string>{saveTemporaryName("b.cfg", 3999999992)});
}

#ifndef _WIN32
TEST(FileSave, ASaveOfTheSameFileByAProgramStillRunningIsLeftAlone) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    const auto running = static_cast<unsigned long>(::getppid()); // the program that started this one
    ws.write(saveTemporaryName("a.cfg", running), "in progress");
    writeAllLines(ws.path("a.cfg"), kNew);
    EXPECT_EQ(ws.read("a.cfg"), crlf(kNew));
    EXPECT_EQ(ws.read(saveTemporaryName("a.cfg", running)), "in progress");
}
#endif

// Copies ----------------------------------------------------------------------------------------

TEST(FileSave, ACopyIsWholeOrAbsent) {
    TempWorkspace ws;
    std::string bytes;
    for (int i = 0; i < 100000; ++i)
        bytes += static_cast<char>(i * 7);
    ws.write("from/bot.dat", bytes);
    ws.folder("to");
    {
        InjectedSaveFault fault({Step::Write, bytes.size() / 2});
        const std::string error =
            failureOf([&] { copyFileWhole(ws.path("from/bot.dat"), ws.path("to/bot.dat")); });
        EXPECT_TRUE(contains(error, "Device I/O error while writing " + pathText(ws.path("to/bot.dat"))))
            << error;
    }
    EXPECT_FALSE(ws.exists("to/bot.dat"));
    EXPECT_TRUE(saveLeftoversIn(ws.path("to")).empty());
    copyFileWhole(ws.path("from/bot.dat"), ws.path("to/bot.dat"));
    EXPECT_EQ(ws.read("to/bot.dat"), bytes);
}

TEST(FileSave, CopyingAMissingFileSaysWhichAndMakesNothing) {
    TempWorkspace ws;
    ws.folder("to");
    const std::string error = failureOf([&] { copyFileWhole(ws.path("gone.dat"), ws.path("to/gone.dat")); });
    EXPECT_EQ(error,
              "Path/File access error: cannot copy " + pathText(ws.path("gone.dat")) + " (file not found)");
    EXPECT_FALSE(ws.exists("to/gone.dat"));
}

// What the system does (Windows) ----------------------------------------------------------------

#ifdef _WIN32

TEST(FileSaveWindows, AReadOnlyFileIsRefusedAndKeptAsItWas) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    const fs::path path = ws.path("a.cfg");
    ASSERT_TRUE(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(failureOf([&] { writeAllLines(path, kNew); }), "Permission denied: " + pathText(path));
    EXPECT_EQ(ws.read("a.cfg"), crlf(kOld));
    EXPECT_TRUE(saveLeftoversIn(ws.root()).empty());
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(FileSaveWindows, TheSavedFileIsNotHiddenLikeItsTemporaryFileAndKeepsTheOldFilesAttributes) {
    TempWorkspace ws;
    {
        LineWriter writer(ws.path("new.cfg"));
        writer.writeLine("under way");
        const auto left = saveLeftoversIn(ws.root());
        ASSERT_EQ(left.size(), 1u);
        const DWORD temporary = ::GetFileAttributesW(ws.path(left[0]).c_str());
        ASSERT_NE(temporary, INVALID_FILE_ATTRIBUTES);
        EXPECT_NE(temporary & FILE_ATTRIBUTE_HIDDEN, 0u);
    }
    writeAllLines(ws.path("new.cfg"), kNew);
    const DWORD fresh = ::GetFileAttributesW(ws.path("new.cfg").c_str());
    ASSERT_NE(fresh, INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(fresh & FILE_ATTRIBUTE_HIDDEN, 0u);

    ws.writeLines("shown.cfg", kOld);
    writeAllLines(ws.path("shown.cfg"), kNew);
    EXPECT_EQ(::GetFileAttributesW(ws.path("shown.cfg").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0u);
    EXPECT_EQ(ws.read("shown.cfg"), crlf(kNew));
}

#endif

// What the system does (POSIX) ------------------------------------------------------------------

#ifndef _WIN32

// A file size limit as a quota or a full disk would impose it; the signal it raises is ignored,
// so the write fails with EFBIG as the program would see it.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &saved_);
        previous_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limited = saved_;
        limited.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &saved_);
        std::signal(SIGXFSZ, previous_);
    }

private:
    rlimit saved_{};
    void (*previous_)(int) = nullptr;
};

TEST(FileSavePosix, AFileSizeLimitLeavesTheOldFileWholeWhereTruncatingWouldLeaveItCut) {
    TempWorkspace ws;
    std::vector<std::string> lines;
    for (int i = 0; i < 3000; ++i)
        lines.push_back("Option " + std::to_string(i) + "\t+set option_" + std::to_string(i) + " 1");
    ws.writeLines("Options.cfg", kOld);
    for (rlim_t limit : {rlim_t{0}, rlim_t{4096}, rlim_t{crlf(lines).size() - 3}}) {
        SCOPED_TRACE(limit);
        std::string error;
        {
            FileSizeLimit limited(limit);
            error = failureOf([&] { writeAllLines(ws.path("Options.cfg"), lines); });
        }
        EXPECT_TRUE(contains(error, "Device I/O error while writing " + pathText(ws.path("Options.cfg"))))
            << error;
        EXPECT_TRUE(contains(error, "File too large")) << error;
        EXPECT_EQ(ws.read("Options.cfg"), crlf(kOld));
        EXPECT_TRUE(saveLeftoversIn(ws.root()).empty());
    }
    writeAllLines(ws.path("Options.cfg"), lines);
    EXPECT_EQ(ws.read("Options.cfg"), crlf(lines));
}

TEST(FileSavePosix, TheFilesPermissionsStay) {
    TempWorkspace ws;
    ws.writeLines("a.cfg", kOld);
    ::chmod(ws.path("a.cfg").c_str(), 0640);
    writeAllLines(ws.path("a.cfg"), kNew);
    struct stat st {};
    ASSERT_EQ(::stat(ws.path("a.cfg").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    EXPECT_EQ(ws.read("a.cfg"), crlf(kNew));
}

TEST(FileSavePosix, ANewFileGetsTheUsualPermissions) {
    TempWorkspace ws;
    const mode_t mask = ::umask(022);
    writeAllLines(ws.path("n.cfg"), kNew);
    ::umask(mask);
    struct stat st {};
    ASSERT_EQ(::stat(ws.path("n.cfg").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0644u);
}

TEST(FileSavePosix, AFileReachedThroughASymbolicLinkIsSavedAtItsTargetAndTheLinkStays) {
    TempWorkspace ws;
    ws.writeLines("shared/Options.cfg", kOld);
    ws.folder("game");
    fs::create_symlink("../shared/Options.cfg", ws.path("game/Options.cfg"));
    writeAllLines(ws.path("game/Options.cfg"), kNew);
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(ws.path("game/Options.cfg"))));
    EXPECT_EQ(fs::read_symlink(ws.path("game/Options.cfg")), fs::path("../shared/Options.cfg"));
    EXPECT_EQ(ws.read("shared/Options.cfg"), crlf(kNew));
    EXPECT_TRUE(saveLeftoversIn(ws.path("game")).empty());
    EXPECT_TRUE(saveLeftoversIn(ws.path("shared")).empty());
}

TEST(FileSavePosix, ALinkThatLeadsNowhereIsSavedWhereItLeads) {
    TempWorkspace ws;
    ws.folder("shared");
    ws.folder("game");
    fs::create_symlink(ws.path("shared/Female.cfg"), ws.path("game/Female.cfg"));
    writeAllLines(ws.path("game/Female.cfg"), kNew);
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(ws.path("game/Female.cfg"))));
    EXPECT_EQ(ws.read("shared/Female.cfg"), crlf(kNew));
}

TEST(FileSavePosix, APipeInPlaceOfTheFileIsRefused) {
    TempWorkspace ws;
    ASSERT_EQ(::mkfifo(ws.path("a.cfg").c_str(), 0644), 0);
    const std::string error = failureOf([&] { writeAllLines(ws.path("a.cfg"), kNew); });
    EXPECT_EQ(error, "Path/File access error: " + pathText(ws.path("a.cfg")) + " is not a plain file");
    EXPECT_TRUE(saveLeftoversIn(ws.root()).empty());
}

// Permission bits stop only a program that does not run as root.
TEST(FileSavePosix, AReadOnlyFileOrFolderIsRefusedWithAClearMessage) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "running as root: permission bits do not stop a write";
    TempWorkspace ws;
    ws.writeLines("ro/a.cfg", kOld);
    ws.writeLines("rw/a.cfg", kOld);
    ::chmod(ws.path("rw/a.cfg").c_str(), 0444);
    EXPECT_EQ(failureOf([&] { writeAllLines(ws.path("rw/a.cfg"), kNew); }),
              "Permission denied: " + pathText(ws.path("rw/a.cfg")));
    EXPECT_EQ(ws.read("rw/a.cfg"), crlf(kOld));
    ::chmod(ws.path("ro").c_str(), 0555);
    EXPECT_EQ(failureOf([&] { writeAllLines(ws.path("ro/a.cfg"), kNew); }),
              "Permission denied: " + pathText(ws.path("ro/a.cfg")) + " (its folder cannot be written to)");
    ::chmod(ws.path("ro").c_str(), 0755);
    EXPECT_EQ(ws.read("ro/a.cfg"), crlf(kOld));
}

#endif

} // namespace filesave_test
