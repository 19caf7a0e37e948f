// The maps and models folders the game editor fills in from a Quake 2 program folder.

#include "games/programfolder.h"

#include <gtest/gtest.h>

namespace rd::programfolder_test {
namespace {

TEST(ProgramFolder, Quake2ProgramIsRecognisedWithoutRegardToCaseButAsTyped) {
    EXPECT_TRUE(isQuake2Program("quake2.exe"));
    EXPECT_TRUE(isQuake2Program("QUAKE2.EXE"));
    EXPECT_TRUE(isQuake2Program("Quake2.Exe"));
    EXPECT_FALSE(isQuake2Program(" quake2.exe"));
    EXPECT_FALSE(isQuake2Program("quake2.exe "));
    EXPECT_FALSE(isQuake2Program("q2.exe"));
    EXPECT_FALSE(isQuake2Program(""));
}

TEST(ProgramFolder, WindowsFolderGetsBackslashes) {
    EXPECT_EQ(quake2DataFolder("d:\\games\\q2", "maps"), "d:\\games\\q2\\baseq2\\maps");
    EXPECT_EQ(quake2DataFolder("d:\\games\\q2\\", "players"), "d:\\games\\q2\\baseq2\\players");
}

TEST(ProgramFolder, FolderWithoutSeparatorsGetsBackslashes) {
    EXPECT_EQ(quake2DataFolder("q2", "maps"), "q2\\baseq2\\maps");
    EXPECT_EQ(quake2DataFolder("", "maps"), "\\baseq2\\maps");
}

TEST(ProgramFolder, FolderWithOnlySlashesGetsSlashes) {
    EXPECT_EQ(quake2DataFolder("/opt/quake2", "maps"), "/opt/quake2/baseq2/maps");
    EXPECT_EQ(quake2DataFolder("/opt/quake2/", "players"), "/opt/quake2/baseq2/players");
}

TEST(ProgramFolder, MixedFolderKeepsItsEndingAndJoinsWithBackslashes) {
    EXPECT_EQ(quake2DataFolder("d:\\games/q2/", "maps"), "d:\\games/q2/baseq2\\maps");
}

} // namespace
} // namespace rd::programfolder_test
