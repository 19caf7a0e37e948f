#include "core/nativefile.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace foldercache_test {

using namespace rd;
using rd::test::TempWorkspace;

// What the path helpers say about one name, asked in a fixed order.
struct Answers {
    fs::path resolved;
    bool file = false;
    bool folder = false;
    bool entry = false;
    bool operator==(const Answers&) const = default;
};

Answers ask(const fs::path& folder, const std::string& name) {
    const fs::path resolved = resolvePath(folder, name);
    return {resolved, fileExists(joinName(folder, name)), folderExists(joinName(folder, name)),
            entryExists(joinName(folder, name))};
}

// A folder with every kind of entry the helpers tell apart: names that differ only in case, a
// file, a folder, and on POSIX a link to each, a link that points nowhere and a pipe.
void fill(TempWorkspace& ws) {
    ws.write("game/Setup.cfg", "a\r\n");
    ws.write("game/SETUP.CFG", "b\r\n");
    ws.write("game/readme.TXT", "c\r\n");
    ws.folder("game/Maps");
    ws.folder("game/baseq2/players");
    for (int i = 0; i < 40; ++i) // enough entries for the look-ups to leave the short path
        ws.write("game/extra" + std::to_string(i) + ".pak", "");
#ifndef _WIN32
    fs::create_symlink(ws.path("game/readme.TXT"), ws.path("game/linked.txt"));
    fs::create_symlink(ws.path("game/Maps"), ws.path("game/LinkedMaps"));
    fs::create_symlink(ws.path("game/nowhere"), ws.path("game/Dangling.cfg"));
    ASSERT_EQ(::mkfifo(ws.path("game/Pipe.pak").c_str(), 0600), 0);
#endif
}

const std::vector<std::string> kQuestions = {
    "Setup.cfg",    "setup.cfg", "SETUP.CFG",   "Setup.CFG",  "readme.txt", "README.TXT",
    "maps",         "MAPS",      "Maps",        "baseq2",     "BASEQ2",     "extra7.PAK",
    "EXTRA39.pak",  "missing",   "Missing.cfg", "linked.TXT", "linkedmaps", "dangling.cfg",
    "Dangling.cfg", "pipe.pak",  "Pipe.pak",    ".",          ".."};

TEST(FolderCache, AnswersAreTheSameWithAndWithoutTheCache) {
    TempWorkspace ws;
    fill(ws);
    const fs::path folder = ws.path("game");
    std::vector<Answers> direct;
    for (const auto& name : kQuestions)
        direct.push_back(ask(folder, name));
    {
        // Questions before the folder is listed, then after.
        FolderCache cache;
        for (std::size_t i = 0; i < kQuestions.size(); ++i)
            EXPECT_EQ(ask(folder, kQuestions[i]), direct[i]) << kQuestions[i] << " before listing";
        const auto listed = listDirectory(folder);
        EXPECT_EQ(listed.size(), listDirectory(folder).size());
        for (std::size_t i = 0; i < kQuestions.size(); ++i)
            EXPECT_EQ(ask(folder, kQuestions[i]), direct[i]) << kQuestions[i] << " after listing";
    }
    {
        // The folder listed first.
        FolderCache cache;
        listFiles(folder);
        for (std::size_t i = 0; i < kQuestions.size(); ++i)
            EXPECT_EQ(ask(folder, kQuestions[i]), direct[i]) << kQuestions[i] << " listed first";
    }
}

TEST(FolderCache, TheExactSpellingWinsThenTheFirstInListingOrder) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows file systems ignore case: SETUP.CFG and Setup.cfg name one file";
#endif
    TempWorkspace ws;
    fill(ws);
    const fs::path folder = ws.path("game");
    FolderCache cache;
    listDirectory(folder);
    EXPECT_EQ(resolvePath(folder, "SETUP.CFG").filename(), "SETUP.CFG");
    EXPECT_EQ(resolvePath(folder, "Setup.cfg").filename(), "Setup.cfg");
    // "SETUP.CFG" comes before "Setup.cfg" in listing order (ties by bytes).
    EXPECT_EQ(resolvePath(folder, "setup.Cfg").filename(), "SETUP.CFG");
}

TEST(FolderCache, AMissingNameKeepsItsSpellingBelowAFolderFoundInAnyCase) {
    TempWorkspace ws;
    fill(ws);
    const fs::path folder = ws.path("game");
    FolderCache cache;
    listDirectory(folder);
    EXPECT_EQ(resolvePath(folder, "MAPS/nothing").filename(), "nothing");
    EXPECT_EQ(resolvePath(folder, "MAPS/nothing").parent_path().filename(), "Maps");
}

TEST(FolderCache, AFolderListedOnceAnswersForTheRestOfTheOperation) {
    TempWorkspace ws;
    ws.write("game/Setup.cfg", "a\r\n");
    const fs::path folder = ws.path("game");
    {
        FolderCache cache;
        EXPECT_EQ(listFolders(folder).size(), 0u);
        ws.write("game/Later.cfg", "made while the operation runs\r\n");
        EXPECT_FALSE(fileExists(ws.path("game/Later.cfg")));
        EXPECT_EQ(listFiles(folder).size(), 1u);
        {
            FolderCache inner; // shares what the outer one knows
            EXPECT_FALSE(fileExists(ws.path("game/Later.cfg")));
        }
        EXPECT_FALSE(fileExists(ws.path("game/later.cfg")));
    }
    // Outside the operation the disk is asked again.
    EXPECT_TRUE(fileExists(ws.path("game/later.cfg")));
    EXPECT_EQ(listFiles(folder).size(), 2u);
}

TEST(FolderCache, ANameLookedUpOnceIsNotLookedUpAgain) {
    TempWorkspace ws;
    ws.folder("game");
    FolderCache cache;
    EXPECT_FALSE(fileExists(ws.path("game/Setup.cfg"))); // the folder itself is never listed
    ws.write("game/Setup.cfg", "a\r\n");
    EXPECT_FALSE(fileExists(ws.path("game/Setup.cfg")));
    EXPECT_EQ(resolvePath(ws.path("game"), "Setup.cfg"), ws.path("game/Setup.cfg"));
}

TEST(FolderCache, AFolderThatCannotBeListedIsAskedAboutDirectly) {
    TempWorkspace ws;
    ws.write("plain.cfg", "not a folder\r\n");
    FolderCache cache;
    EXPECT_TRUE(listDirectory(ws.path("plain.cfg")).empty());
    EXPECT_TRUE(listDirectory(ws.path("missing")).empty());
    EXPECT_FALSE(fileExists(ws.path("missing/a.cfg")));
    EXPECT_TRUE(fileExists(ws.path("plain.cfg")));
}

// Files in folders the operation listed are opened relative to those folders: the same files, the
// same failures, whatever the path looks like.
TEST(FolderCache, FilesBelowAListedFolderOpenAsTheyDoWithoutTheCache) {
    TempWorkspace ws;
    ws.write("Profile 1/profile.cfg", "Crash\r\n");
    ws.write("Plug-Ins/Bot/Setup.cfg", "Quake2\r\n");
    ws.folder("Plug-Ins/Bot/Folder.cfg");
    const fs::path root = ws.root();
    const std::vector<fs::path> paths{
        root / "Profile 1" / "profile.cfg",      // the folder's folder was listed
        root / "Plug-Ins" / "Bot" / "Setup.cfg", // the folder itself was listed
        root / "Plug-Ins" / "Bot" / "Missing.cfg",
        root / "Plug-Ins" / "Bot" / "Folder.cfg",
        root / "Missing" / "profile.cfg",
        root / "Plug-Ins" / "Bot" / ".." / "Bot" / "Setup.cfg",
        pathFromUtf8(utf8Of(root) + "/Plug-Ins//Bot/Setup.cfg"),
        pathFromUtf8(utf8Of(root) + "/Plug-Ins/Bot/Setup.cfg/"),
        root / "Plug-Ins" / "." / "Bot" / "Setup.cfg",
    };
    struct Opened {
        native::OpenFailure failure;
        std::string firstLine;
        bool operator==(const Opened&) const = default;
    };
    const auto openAll = [&] {
        std::vector<Opened> opened;
        for (const auto& path : paths) {
            native::InputFile file = native::InputFile::open(path);
            char bytes[16] = {};
            const std::ptrdiff_t got = file.isOpen() ? file.read(bytes, sizeof bytes) : 0;
            opened.push_back(
                {file.failure(), std::string(bytes, got > 0 ? static_cast<std::size_t>(got) : 0)});
        }
        return opened;
    };
    const std::vector<Opened> without = openAll();
    EXPECT_EQ(without[0], (Opened{native::OpenFailure::None, "Crash\r\n"}));
    EXPECT_EQ(without[2].failure, native::OpenFailure::Missing);
    EXPECT_EQ(without[3].failure, native::OpenFailure::Folder);
    FolderCache cache;
    listDirectory(root);
    listDirectory(root / "Plug-Ins" / "Bot");
    EXPECT_EQ(openAll(), without);
}

#ifndef _WIN32
TEST(FolderCache, AListedFolderLendsItsDescriptorForTheOperationOnly) {
    TempWorkspace ws;
    ws.write("game/Setup.cfg", "a\r\n");
    EXPECT_EQ(native::FolderAnchors::current(), nullptr);
    {
        FolderCache cache;
        native::FolderAnchors* anchors = native::FolderAnchors::current();
        ASSERT_NE(anchors, nullptr);
        EXPECT_EQ(anchors->anchor(ws.path("game").native()), -1); // not listed yet
        listDirectory(ws.path("game"));
        const int folder = anchors->anchor(ws.path("game").native());
        EXPECT_GE(folder, 0);
        EXPECT_EQ(anchors->anchor(ws.path("game").native()), folder); // opened once
        EXPECT_EQ(anchors->anchor(ws.path("missing").native()), -1);
        listDirectory(ws.path("missing")); // listed, but there is no folder to lend
        EXPECT_EQ(anchors->anchor(ws.path("missing").native()), -1);
    }
    EXPECT_EQ(native::FolderAnchors::current(), nullptr);
}
#endif

// The scanner's rules, one byte at a time, as the launcher's reader sees a file.
LineEndings referenceEndings(const std::string& bytes) {
    LineEndings seen;
    bool lineStarted = false, loneReturn = false;
    auto endLine = [&](bool bare) {
        ++seen.lines;
        if (bare && seen.bareLineFeeds++ == 0)
            seen.firstBareLineFeed = seen.lines;
        if (loneReturn && seen.loneReturns++ == 0)
            seen.firstLoneReturn = seen.lines;
        lineStarted = loneReturn = false;
    };
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        if (c == '\n') {
            endLine(i == 0 || bytes[i - 1] != '\r');
            continue;
        }
        lineStarted = true;
        if (c == '\r' && (i + 1 == bytes.size() || bytes[i + 1] != '\n'))
            loneReturn = true;
    }
    if (lineStarted) {
        endLine(false);
        seen.lastLineUnterminated = true;
    }
    return seen;
}

TEST(LineEndingsScanner, AgreesWithAByteByByteReadingInAnyPieces) {
    std::mt19937 random(20261123);
    const char alphabet[] = {'\r', '\n', 'a', ' '};
    for (int round = 0; round < 3000; ++round) {
        std::string bytes(random() % 24, ' ');
        for (auto& c : bytes)
            c = alphabet[random() % 4];
        const LineEndings expected = referenceEndings(bytes);
        EXPECT_EQ(lineEndingsOf(bytes), expected) << "bytes " << round;
        LineEndingsScanner pieces;
        for (std::size_t at = 0; at < bytes.size();) {
            const std::size_t size = 1 + random() % 5;
            pieces.feed(std::string_view(bytes).substr(at, size));
            at += size;
        }
        EXPECT_EQ(pieces.finish(), expected) << "bytes " << round << " in pieces";
    }
}

TEST(LineEndingsAudit, FaultyFilesAreThoseWhoseLinesDoNotAllEndInCrLf) {
    TempWorkspace ws;
    ws.write("good.cfg", "a\r\nb\r\n");
    ws.write("bare.cfg", "a\nb\r\n");
    ws.write("open.cfg", "a\r\nb");
    LineEndingsAudit audit;
    for (const char* name : {"good.cfg", "bare.cfg", "open.cfg"})
        readAllLines(ws.path(name));
    ASSERT_EQ(audit.files().size(), 3u);
    const auto faulty = audit.faultyFiles();
    ASSERT_EQ(faulty.size(), 2u);
    EXPECT_EQ(faulty[0].path, ws.path("bare.cfg"));
    EXPECT_EQ(faulty[1].path, ws.path("open.cfg"));
    EXPECT_TRUE(audit.find(ws.path("good.cfg"))->clean());
}

TEST(LineEndingsAudit, AFileReadTwiceIsListedWhereItWasFirstReadWithItsLastReading) {
    TempWorkspace ws;
    ws.write("a.cfg", "a\nb\r\n");
    ws.write("b.cfg", "b\r\n");
    ws.write("c.cfg", "c\n");
    LineEndingsAudit audit;
    readAllLines(ws.path("a.cfg"));
    readAllLines(ws.path("b.cfg"));
    readAllLines(ws.path("c.cfg"));
    ws.write("a.cfg", "a\r\nb\r\n"); // mended between two readings
    ws.write("b.cfg", "b\n");        // spoiled between two readings
    readAllLines(ws.path("a.cfg"));
    readAllLines(ws.path("b.cfg"));
    const auto files = audit.files();
    ASSERT_EQ(files.size(), 3u);
    EXPECT_EQ(files[0].path, ws.path("a.cfg"));
    EXPECT_TRUE(files[0].endings.clean());
    EXPECT_EQ(files[1].path, ws.path("b.cfg"));
    EXPECT_EQ(files[2].path, ws.path("c.cfg"));
    const auto faulty = audit.faultyFiles();
    ASSERT_EQ(faulty.size(), 2u);
    EXPECT_EQ(faulty[0].path, ws.path("b.cfg"));
    EXPECT_EQ(faulty[0].endings.bareLineFeeds, 1u);
    EXPECT_EQ(faulty[1].path, ws.path("c.cfg"));
    EXPECT_TRUE(audit.find(ws.path("a.cfg"))->clean());
    EXPECT_FALSE(audit.find(ws.path("b.cfg"))->clean());
    EXPECT_EQ(audit.find(ws.path("d.cfg")), nullptr);
}

TEST(NoCaseNames, FindsANameWhateverItsCase) {
    const NoCaseNames names({"Eraser", "CRbot", "\xC9lite"});
    EXPECT_TRUE(names.contains("eraser"));
    EXPECT_TRUE(names.contains("CRBOT"));
    EXPECT_TRUE(names.contains("\xE9LITE"));
    EXPECT_FALSE(names.contains("Eraser2"));
    EXPECT_FALSE(NoCaseNames().contains(""));
}

} // namespace foldercache_test
