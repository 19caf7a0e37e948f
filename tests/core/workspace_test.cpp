#include "core/text.h"
#include "core/workspace.h"
#include "tests/support/environment_data.h"
#include "tests/support/workspace_data.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

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

// The rules spelled out the slow way: '*' tries every run, '?' takes one character.
bool referenceMatch(std::string_view pattern, std::string_view name, bool caseSensitive) {
    if (pattern.empty())
        return name.empty();
    if (pattern.front() == '*') {
        for (std::size_t skip = 0; skip <= name.size(); ++skip)
            if (referenceMatch(pattern.substr(1), name.substr(skip), caseSensitive))
                return true;
        return false;
    }
    if (name.empty())
        return false;
    const bool same =
        pattern.front() == '?' || (caseSensitive ? pattern.front() == name.front()
                                                 : upperByte(pattern.front()) == upperByte(name.front()));
    return same && referenceMatch(pattern.substr(1), name.substr(1), caseSensitive);
}

TEST(Workspace, WildcardsAgreeWithTheRulesSpelledOutForAnyPatternAndName) {
    std::mt19937 random(20261125);
    const char alphabet[] = {'a', 'A', 'b', '.', '*', '?', '\xE9', '\xC9', '\0'};
    for (int round = 0; round < 20000; ++round) {
        std::string pattern(random() % 6, ' ');
        for (auto& c : pattern)
            c = alphabet[random() % 9];
        if (round % 3 == 0 && !pattern.empty())
            pattern[0] = '*'; // the commonest form, "*" then a tail
        std::string name(random() % 7, ' ');
        for (auto& c : name)
            c = alphabet[random() % 9];
        const bool caseSensitive = round % 2 == 0;
        const bool expected = pattern == "*.*" || referenceMatch(pattern, name, caseSensitive);
        EXPECT_EQ(wildcardMatch(pattern, name, caseSensitive), expected)
            << "pattern \"" << pattern << "\" name \"" << name << "\"";
    }
}

TEST(Workspace, ListingOrderAgreesWithComparingWholeUpperCaseNamesForAnyNames) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows file systems ignore case: names differing only in case name one file";
#endif
    TempWorkspace ws;
    std::mt19937 random(1125);
    // Long shared beginnings, names that are beginnings of others, letters of the code page.
    const std::vector<std::string> parts{"map", "MAP", "0", "00", "1", "_", "\xE9", "\xC9", "z", "Z"};
    std::vector<std::string> names;
    while (names.size() < 300) {
        std::string name;
        const std::size_t count = 1 + random() % 8;
        for (std::size_t i = 0; i < count; ++i)
            name += parts[random() % parts.size()];
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
            ws.write(name, "x");
        }
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        const std::string ua = upperCase(a), ub = upperCase(b);
        return ua != ub ? ua < ub : a < b;
    });
    std::vector<std::string> listed;
    for (const auto& entry : listDirectory(ws.root()))
        listed.push_back(entry.name);
    EXPECT_EQ(listed, names);
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
