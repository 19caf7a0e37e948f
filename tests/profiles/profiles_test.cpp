#include "profiles/profiles.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace profiles_test {

using namespace rd;
using rd::test::TempWorkspace;

const OwnerErrorHandler noErrors = [](const std::string& d) { ADD_FAILURE() << "unexpected error: " << d; };

TEST(Profiles, PlugInsAndGamePathsInAnyCaseAreNeverProfiles) {
    TempWorkspace ws;
    for (const char* f : {"Plug-Ins", "game-paths", "Team A", "Team B"})
        ws.folder(f);
    EXPECT_EQ(listProfiles(ws.root()), (std::vector<std::string>{"Team A", "Team B"}));
}

TEST(Profiles, APlainFileAtTheRootIsNotAProfile) {
    TempWorkspace ws;
    ws.folder("Team A");
    ws.write("Team X", "not a folder");
    EXPECT_EQ(listProfiles(ws.root()), (std::vector<std::string>{"Team A"}));
}

TEST(Profiles, PluginBotsAreTheFoldersOfPlugIns) {
    TempWorkspace ws;
    ws.folder("PLUG-INS/Eraser");
    ws.folder("PLUG-INS/ACE");
    ws.write("PLUG-INS/readme.txt", "x");
    EXPECT_EQ(listPluginBots(ws.root()), (std::vector<std::string>{"ACE", "Eraser"}));
}

TEST(Profiles, MissingPlugInsFolderGivesNoBots) {
    TempWorkspace ws;
    ws.folder("Team A");
    EXPECT_TRUE(listPluginBots(ws.root()).empty());
}

TEST(Profiles, OwnerIsTheFirstLineOfProfileCfg) {
    TempWorkspace ws;
    ws.writeLines("Team A/profile.cfg", {"Eraser", "anything=else"});
    EXPECT_EQ(readProfileOwner(ws.root(), "Team A"), "Eraser");
}

TEST(Profiles, ProfileWithoutItsFileBelongsToNoBot) {
    TempWorkspace ws;
    ws.folder("Team A");
    EXPECT_EQ(readProfileOwner(ws.root(), "Team A"), "");
}

TEST(Profiles, ProfileCfgIsFoundWhateverItsCase) {
    TempWorkspace ws;
    ws.writeLines("Team A/PROFILE.CFG", {"ACE"});
    EXPECT_EQ(readProfileOwner(ws.root(), "Team A"), "ACE");
}

TEST(Profiles, UnreadableProfileCfgIsReportedAndBelongsToNoBot) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows file systems hold no named pipes";
#else
    TempWorkspace ws;
    ws.folder("Team A");
    ASSERT_EQ(::mkfifo(ws.path("Team A/profile.cfg").c_str(), 0600), 0);
    std::vector<std::string> reported;
    EXPECT_EQ(ReadProfileOwner(ws.root(), "Team A", [&](const std::string& d) { reported.push_back(d); }),
              "");
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_NE(reported[0].find("not a plain file"), std::string::npos);
#endif
}

TEST(Profiles, WithTheFilterSetOnlyProfilesOfTheSelectedBotAreShown) {
    TempWorkspace ws;
    ws.writeLines("Lower/profile.cfg", {"eraser"});
    ws.writeLines("Longer/profile.cfg", {"Eraser2"});
    ws.folder("Missing");
    ws.writeLines("Other/profile.cfg", {"ACE"});
    EXPECT_EQ(GetProfileList(ws.root(), true, std::string("Eraser"), noErrors),
              (std::vector<std::string>{"Lower"}));
}

TEST(Profiles, WithTheFilterSetAndNoBotSelectedTheListIsEmpty) {
    TempWorkspace ws;
    ws.writeLines("Team A/profile.cfg", {"Eraser"});
    EXPECT_TRUE(GetProfileList(ws.root(), true, std::nullopt, noErrors).empty());
}

TEST(Profiles, WithTheFilterClearEveryProfileIsShownAndNoFileIsRead) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows file systems hold no named pipes";
#else
    TempWorkspace ws;
    ws.folder("Team A");
    ASSERT_EQ(::mkfifo(ws.path("Team A/profile.cfg").c_str(), 0600), 0); // would be reported if read
    ws.folder("Team B");
    EXPECT_EQ(GetProfileList(ws.root(), false, std::string("Eraser"), noErrors),
              (std::vector<std::string>{"Team A", "Team B"}));
#endif
}

TEST(Profiles, OnlyTheFirstLineOfProfileCfgIsCompared) {
    TempWorkspace ws;
    ws.write("Team A/profile.cfg", std::string("Eraser\r\n\x01\xFF garbage \0 Eraser2\r\n", 26));
    ws.writeLines("Team B/profile.cfg", {"ACE", "Eraser"});
    EXPECT_EQ(GetProfileList(ws.root(), true, std::string("ERASER"), noErrors),
              (std::vector<std::string>{"Team A"}));
}

} // namespace profiles_test
