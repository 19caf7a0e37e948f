#include "maps/pak.h"

#include "core/text.h"

#include "tests/support/pak_writer_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace rd::pak_test {
namespace {

using test::buildPak;
using test::buildRawPak;
using test::pakDirectoryEntry;
using test::TempWorkspace;

std::vector<std::string> scan(const TempWorkspace& ws, const std::string& bytes, bool mapsOnly,
                              bool* complete = nullptr) {
    ws.write("pak0.pak", bytes);
    std::vector<std::string> names;
    const bool result = ScanPak(ws.path("pak0.pak"), names, mapsOnly);
    if (complete)
        *complete = result;
    return names;
}

std::string padded(const std::string& name) {
    std::string out = name;
    out.resize(56, '\0');
    return out;
}

std::string directoryOf(const std::vector<std::string>& names) {
    std::string directory;
    for (const auto& name : names)
        directory += pakDirectoryEntry(name, 12, 0);
    return directory;
}

TEST(PakScan, SoundArchiveYieldsBareMapNames) {
    TempWorkspace ws;
    bool complete = false;
    const auto names = scan(
        ws,
        buildPak({{"maps/q2dm1.bsp", "BSP data"}, {"pics/colormap.pcx", "x"}, {"maps/q2dm2.bsp", "more"}}),
        true, &complete);
    EXPECT_TRUE(complete);
    EXPECT_EQ(names, (std::vector<std::string>{"q2dm1", "q2dm2"}));
}

TEST(PakScan, DirectoryLengthZeroReadsNoEntries) {
    TempWorkspace ws;
    bool complete = false;
    const auto names =
        scan(ws, buildRawPak("PACK", 12, 0, directoryOf({"maps/a.bsp"}), 12), false, &complete);
    EXPECT_TRUE(complete);
    EXPECT_TRUE(names.empty());
}

TEST(PakScan, DirectoryLengthOneToSixtyThreeReadsNoEntries) {
    for (const std::int32_t length : {1, 32, 63}) {
        TempWorkspace ws;
        bool complete = false;
        const auto names =
            scan(ws, buildRawPak("PACK", 12, length, directoryOf({"maps/a.bsp"}), 12), false, &complete);
        EXPECT_TRUE(complete) << length;
        EXPECT_TRUE(names.empty()) << length;
    }
}

TEST(PakScan, DirectoryLength130ReadsTwoEntries) {
    TempWorkspace ws;
    const auto names = scan(
        ws, buildRawPak("PACK", 12, 130, directoryOf({"maps/a.bsp", "maps/b.bsp", "maps/c.bsp"}), 12), true);
    EXPECT_EQ(names, (std::vector<std::string>{"a", "b"}));
}

TEST(PakScan, NegativeDirectoryLengthReadsNoEntries) {
    TempWorkspace ws;
    bool complete = false;
    const auto names =
        scan(ws, buildRawPak("PACK", 12, -64, directoryOf({"maps/a.bsp"}), 12), true, &complete);
    EXPECT_TRUE(complete);
    EXPECT_TRUE(names.empty());
}

TEST(PakScan, UpperCaseEntryYieldsLowerCaseName) {
    TempWorkspace ws;
    EXPECT_EQ(scan(ws, buildPak({{"MAPS/Q2DM1.BSP", ""}}), true), (std::vector<std::string>{"q2dm1"}));
}

TEST(PakScan, SubFolderStaysInTheNameWithForwardSlash) {
    TempWorkspace ws;
    EXPECT_EQ(scan(ws, buildPak({{"maps/dm/lava.bsp", ""}}), true), (std::vector<std::string>{"dm/lava"}));
}

TEST(PakScan, RepeatedBspExtensionIsCutAtTheFirst) {
    TempWorkspace ws;
    EXPECT_EQ(scan(ws, buildPak({{"maps/x.bsp.bsp", ""}}), true), (std::vector<std::string>{"x"}));
}

TEST(PakScan, NameWithoutSlashAfterMapsGivesAnEmptyName) {
    TempWorkspace ws;
    EXPECT_EQ(scan(ws, buildPak({{"mapsx.bsp", ""}}), true), (std::vector<std::string>{""}));
}

TEST(PakScan, BlanksAroundTheMapNameAreTrimmed) {
    TempWorkspace ws;
    EXPECT_EQ(scan(ws, buildPak({{"maps/ base1 .bsp", ""}}), true), (std::vector<std::string>{"base1"}));
}

TEST(PakScan, ReadmeIsSkippedWhenMapsOnly) {
    TempWorkspace ws;
    EXPECT_TRUE(scan(ws, buildPak({{"maps/readme.txt", "hello"}}), true).empty());
}

TEST(PakScan, EveryEntryIsTakenWholeWithNulPaddingWhenNotMapsOnly) {
    TempWorkspace ws;
    const auto names = scan(ws, buildPak({{"maps/readme.txt", "hello"}, {"Maps/Q2DM1.bsp", ""}}), false);
    ASSERT_EQ(names.size(), 2u);
    EXPECT_EQ(names[0], padded("maps/readme.txt"));
    EXPECT_EQ(names[0].size(), 56u);
    EXPECT_EQ(names[1], padded("maps/q2dm1.bsp"));
}

// Every byte of the code page in every position of a name is lowered as the code page lowers it,
// whether the bytes around it are plain ASCII or not.
TEST(PakScan, EveryByteOfTheCodePageIsLoweredInEveryPositionOfAName) {
    TempWorkspace ws;
    std::vector<std::string> names;
    for (int byte = 1; byte < 256; ++byte) {
        std::string name(56, '\0');
        for (std::size_t at = 0; at < 56; ++at)
            name[at] = (at * 7 + static_cast<std::size_t>(byte)) % 3 == 0 ? static_cast<char>(byte)
                       : at % 2 == 0                                      ? 'Q'
                                                                          : 'e';
        names.push_back(name);
    }
    std::string directory;
    for (const auto& name : names)
        directory += pakDirectoryEntry(name, 12, 0);
    const auto scanned =
        scan(ws, buildRawPak("PACK", 12, static_cast<std::int32_t>(directory.size()), directory, 12), false);
    ASSERT_EQ(scanned.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(scanned[i], lowerCase(names[i])) << "byte " << i + 1;
}

TEST(PakScan, AMapsFolderSpelledWithCodePageLettersNearbyIsFound) {
    TempWorkspace ws;
    const auto names =
        scan(ws, buildPak({{"MAPS/\xC0RENA.BSP", ""}, {"MaPs/\xDEx.bsp", ""}, {"MAP\xD3/x.bsp", ""}}), true);
    EXPECT_EQ(names, (std::vector<std::string>{"\xE0rena", "\xFEx"}));
}

TEST(PakScan, WrongIdentifierWithSoundDirectoryIsScannedNormally) {
    TempWorkspace ws;
    bool complete = false;
    EXPECT_EQ(scan(ws, buildPak({{"maps/base1.bsp", ""}}, "JUNK"), true, &complete),
              (std::vector<std::string>{"base1"}));
    EXPECT_TRUE(complete);
}

TEST(PakScan, MissingFileReturnsFalseAndAddsNothing) {
    TempWorkspace ws;
    std::vector<std::string> names{"kept"};
    EXPECT_FALSE(ScanPak(ws.path("pak9.pak"), names, true));
    EXPECT_EQ(names, (std::vector<std::string>{"kept"}));
}

TEST(PakScan, FolderIsNotAnArchive) {
    TempWorkspace ws;
    ws.folder("pak0.pak");
    std::vector<std::string> names;
    EXPECT_FALSE(ScanPak(ws.path("pak0.pak"), names, true));
    EXPECT_TRUE(names.empty());
}

#ifndef _WIN32 // named pipes live in the file system on POSIX systems only
TEST(PakScan, APipeNamedLikeAnArchiveIsNotReadAndDoesNotWait) {
    TempWorkspace ws;
    ws.folder("q2");
    ASSERT_EQ(::mkfifo(ws.path("q2/pak0.pak").c_str(), 0600), 0);
    std::vector<std::string> names;
    EXPECT_FALSE(ScanPak(ws.path("q2/pak0.pak"), names, true));
    EXPECT_TRUE(names.empty());
}
#endif

TEST(PakScan, TargetIsAppendedToNotCleared) {
    TempWorkspace ws;
    ws.write("pak0.pak", buildPak({{"maps/base2.bsp", ""}}));
    std::vector<std::string> names{"earlier"};
    EXPECT_TRUE(ScanPak(ws.path("pak0.pak"), names, true));
    EXPECT_EQ(names, (std::vector<std::string>{"earlier", "base2"}));
}

TEST(PakScan, NegativeDirectoryOffsetFailsAndKeepsEarlierNames) {
    TempWorkspace ws;
    ws.write("pak0.pak", buildRawPak("PACK", -5, 64, directoryOf({"maps/a.bsp"}), 12));
    std::vector<std::string> names{"earlier"};
    EXPECT_FALSE(ScanPak(ws.path("pak0.pak"), names, true));
    EXPECT_EQ(names, (std::vector<std::string>{"earlier"}));
}

TEST(PakScan, DirectoryRunningPastTheEndStopsThereAndSucceeds) {
    TempWorkspace ws;
    bool complete = false;
    const auto names =
        scan(ws, buildRawPak("PACK", 12, 64 * 1000, directoryOf({"maps/a.bsp", "maps/b.bsp"}), 12), true,
             &complete);
    EXPECT_TRUE(complete);
    EXPECT_EQ(names, (std::vector<std::string>{"a", "b"}));
}

TEST(PakScan, LyingHugeLengthReadsOnlyWhatTheFileHolds) {
    TempWorkspace ws;
    bool complete = false;
    const auto names =
        scan(ws, buildRawPak("PACK", 12, 0x7FFFFFFF, directoryOf({"maps/a.bsp"}), 12), false, &complete);
    EXPECT_TRUE(complete);
    ASSERT_EQ(names.size(), 1u);
    EXPECT_EQ(names[0], padded("maps/a.bsp"));
}

TEST(PakScan, PartialLastEntryIsNotTaken) {
    TempWorkspace ws;
    const std::string directory = directoryOf({"maps/a.bsp"}) + pakDirectoryEntry("maps/b.bsp").substr(0, 40);
    bool complete = false;
    EXPECT_EQ(scan(ws, buildRawPak("PACK", 12, 128, directory, 12), true, &complete),
              (std::vector<std::string>{"a"}));
    EXPECT_TRUE(complete);
}

TEST(PakScan, DirectoryOffsetBeyondTheFileGivesNothingAndSucceeds) {
    TempWorkspace ws;
    bool complete = false;
    EXPECT_TRUE(scan(ws, buildRawPak("PACK", 1 << 30, 640, "", 12), true, &complete).empty());
    EXPECT_TRUE(complete);
}

TEST(PakScan, HeaderCutShortReadsAsEmptyDirectory) {
    TempWorkspace ws;
    bool complete = false;
    EXPECT_TRUE(scan(ws, std::string("PAC"), false, &complete).empty());
    EXPECT_TRUE(complete);
    EXPECT_TRUE(scan(ws, std::string(), false, &complete).empty());
    EXPECT_TRUE(complete);
}

TEST(PakScan, DirectoryAtAnyOffsetIsFound) {
    TempWorkspace ws;
    const std::string directory = directoryOf({"maps/far.bsp"});
    EXPECT_EQ(scan(ws, buildRawPak("PACK", 5000, 64, directory, 5000), true),
              (std::vector<std::string>{"far"}));
    // Offset 0: the header itself is read as the first entry.
    std::string atZero = buildRawPak("maps", 0, 64, "/zero.bsp", 12);
    atZero.resize(64, '\0');
    EXPECT_EQ(scan(ws, atZero, true).size(), 1u);
}

TEST(PakScan, RemainderOfTheLengthIsIgnored) {
    TempWorkspace ws;
    EXPECT_EQ(scan(ws, buildRawPak("PACK", 12, 100, directoryOf({"maps/a.bsp", "maps/b.bsp"}), 12), true),
              (std::vector<std::string>{"a"}));
}

TEST(PakScan, ArchiveNameIsFoundWhateverItsCase) {
    TempWorkspace ws;
    ws.write("PAK0.PAK", buildPak({{"maps/base3.bsp", ""}}));
    std::vector<std::string> names;
    EXPECT_TRUE(ScanPak(ws.path("pak0.pak"), names, true));
    EXPECT_EQ(names, (std::vector<std::string>{"base3"}));
}

TEST(PakScan, FiftySixCharacterNameWithoutNulIsKept) {
    TempWorkspace ws;
    const std::string name = "maps/" + std::string(47, 'a') + ".bsp"; // 56 characters
    ASSERT_EQ(name.size(), 56u);
    EXPECT_EQ(scan(ws, buildPak({{name, ""}}), true), (std::vector<std::string>{std::string(47, 'a')}));
}

} // namespace
} // namespace rd::pak_test
