// Model genders: the male and female lists of a game and the female list file.

#include "models/genders.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace rd::genders_test {
namespace {

using test::crlf;
using test::TempWorkspace;

// A game whose record names the workspace's own players folder (an absolute path).
void makeGame(const TempWorkspace& ws, const std::string& game, const std::vector<std::string>& models) {
    ws.writeLines("Game-Paths/" + game + "/" + game + ".Gme",
                  {"c:\\quake2\\", "c:\\quake2\\baseq2\\maps\\", "quake2.exe", "",
                   ws.path("players").string(), "_i.pcx", ""});
    ws.folder("players");
    for (const auto& model : models)
        ws.folder("players/" + model);
}

using Names = std::vector<std::string>;

TEST(ModelGenders, EmptyModelsLineSaysNoModelsFolderAndOkOverwritesTheRecord) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", {"c:\\quake2\\", "maps", "quake2.exe", "", "", "_i.pcx", ""});
    const ModelGenders genders = LoadModelGenders(ws.root(), "G");
    EXPECT_TRUE(genders.noModelsFolder);
    EXPECT_EQ(kNoModelsFolder, "No models folder specified");
    EXPECT_TRUE(genders.male.empty());
    EXPECT_TRUE(genders.female.empty());
    SaveFemaleList(genders.saveTarget, genders.female);
    EXPECT_EQ(ws.read("Game-Paths/G/G.Gme"), "");
    EXPECT_FALSE(ws.listed("Game-Paths/G/Female.cfg"));
}

TEST(ModelGenders, RecordIsFoundAsGmeWhateverItsCase) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", {"", "", "", "", ""});
    const ModelGenders genders = LoadModelGenders(ws.root(), "G");
    EXPECT_TRUE(genders.noModelsFolder);
    EXPECT_EQ(genders.saveTarget, ws.path("Game-Paths/G/G.Gme"));
}

TEST(ModelGenders, FemaleLineMatchesAModelFolderWithoutRegardToCase) {
    TempWorkspace ws;
    makeGame(ws, "G", {"male", "female", "cyborg"});
    ws.writeLines("Game-Paths/G/Female.cfg", {"Male"});
    const ModelGenders genders = LoadModelGenders(ws.root(), "G");
    EXPECT_FALSE(genders.noModelsFolder);
    EXPECT_EQ(genders.male, (Names{"cyborg", "female"}));
    EXPECT_EQ(genders.female, (Names{"Male"}));
}

TEST(ModelGenders, FemaleNameWithoutAModelFolderIsKeptAndWrittenBack) {
    TempWorkspace ws;
    makeGame(ws, "G", {"male"});
    ws.writeLines("Game-Paths/G/Female.cfg", {"crakhor"});
    const ModelGenders genders = LoadModelGenders(ws.root(), "G");
    EXPECT_EQ(genders.male, (Names{"male"}));
    EXPECT_EQ(genders.female, (Names{"crakhor"}));
    SaveFemaleList(genders.saveTarget, genders.female);
    EXPECT_EQ(ws.read("Game-Paths/G/Female.cfg"), crlf({"crakhor"}));
}

TEST(ModelGenders, TwoEqualFemaleLinesRemoveAtMostOneEntryEach) {
    TempWorkspace ws;
    makeGame(ws, "G", {"female", "Female2", "male"});
    // Only one folder matches "female"; the second line finds nothing more to remove.
    ws.writeLines("Game-Paths/G/Female.cfg", {"female", "FEMALE"});
    const ModelGenders genders = LoadModelGenders(ws.root(), "G");
    EXPECT_EQ(genders.male, (Names{"Female2", "male"}));
    EXPECT_EQ(genders.female, (Names{"female", "FEMALE"}));
}

TEST(ModelGenders, NoFemaleFileShowsEveryModelAsMaleAndSavingCreatesIt) {
    TempWorkspace ws;
    makeGame(ws, "G", {"male", "female", "cyborg"});
    ws.write("players/readme.txt", "not a model");
    ModelGenders genders = LoadModelGenders(ws.root(), "G");
    EXPECT_EQ(genders.male, (Names{"cyborg", "female", "male"}));
    EXPECT_TRUE(genders.female.empty());
    EXPECT_EQ(genders.saveTarget, ws.path("Game-Paths/G/Female.cfg"));
    genders.female.push_back("female");
    SaveFemaleList(genders.saveTarget, genders.female);
    EXPECT_EQ(ws.read("Game-Paths/G/Female.cfg"), crlf({"female"}));
}

TEST(ModelGenders, SavingAnEmptyFemaleListWritesAnEmptyFile) {
    TempWorkspace ws;
    makeGame(ws, "G", {"male"});
    ws.writeLines("Game-Paths/G/Female.cfg", {"x"});
    const ModelGenders genders = LoadModelGenders(ws.root(), "G");
    SaveFemaleList(genders.saveTarget, {});
    EXPECT_TRUE(ws.exists("Game-Paths/G/Female.cfg"));
    EXPECT_EQ(ws.read("Game-Paths/G/Female.cfg"), "");
}

TEST(ModelGenders, FemaleListRoundTripsByteForByteBlankLinesIncluded) {
    TempWorkspace ws;
    makeGame(ws, "G", {"female"});
    const std::string bytes = crlf({"female", "", " Jezebel ", "crakhor"});
    ws.write("Game-Paths/G/female.CFG", bytes);
    const ModelGenders genders = LoadModelGenders(ws.root(), "G");
    EXPECT_EQ(genders.female, (Names{"female", "", " Jezebel ", "crakhor"}));
    SaveFemaleList(genders.saveTarget, genders.female);
    EXPECT_EQ(ws.read("Game-Paths/G/female.CFG"), bytes);
    EXPECT_FALSE(ws.listed("Game-Paths/G/Female.cfg"));
}

TEST(ModelGenders, ModelsFolderWithoutTrailingSeparatorAndMissingFolderGiveNoModels) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/G/G.Gme", {"", "", "", "", ws.path("nowhere").string()});
    const ModelGenders genders = LoadModelGenders(ws.root(), "G");
    EXPECT_FALSE(genders.noModelsFolder);
    EXPECT_TRUE(genders.male.empty());
}

TEST(ModelGenders, MissingRecordRaisesForTheTrap) {
    TempWorkspace ws;
    ws.folder("Game-Paths/G");
    EXPECT_THROW(LoadModelGenders(ws.root(), "G"), std::exception);
}

TEST(ModelGenders, BinaryGarbageAndTenMegabyteLinesInTheFemaleListLoadWithoutCrashing) {
    TempWorkspace ws;
    makeGame(ws, "G", {"male"});
    std::string garbage;
    for (int i = 0; i < 256; ++i)
        if (i != '\n')
            garbage += static_cast<char>(i);
    const std::string huge(10 * 1024 * 1024, 'f');
    ws.write("Game-Paths/G/Female.cfg", garbage + "\n" + huge);
    const ModelGenders genders = LoadModelGenders(ws.root(), "G");
    ASSERT_EQ(genders.female.size(), 2u);
    EXPECT_EQ(genders.female[0], garbage);
    EXPECT_EQ(genders.female[1].size(), huge.size());
    EXPECT_EQ(genders.male, (Names{"male"}));
}

TEST(ModelGenders, FolderStandingWhereTheFemaleListShouldBeFailsOnSave) {
    TempWorkspace ws;
    makeGame(ws, "G", {"male"});
    ws.folder("Game-Paths/G/Female.cfg");
    const ModelGenders genders = LoadModelGenders(ws.root(), "G");
    EXPECT_EQ(genders.male, (Names{"male"}));
    try {
        SaveFemaleList(genders.saveTarget, {"male"});
        FAIL() << "saving over a folder did not fail";
    } catch (const std::exception& e) {
        EXPECT_NE(std::string(e.what()).find("is a folder"), std::string::npos) << e.what();
    }
}

#ifndef _WIN32
TEST(ModelGenders, AFemaleListThatCannotBeReadIsTheSaveTargetAndTheModelsReadSoFarStay) {
    TempWorkspace ws;
    makeGame(ws, "G", {"male", "female"});
    ASSERT_EQ(::mkfifo(ws.path("Game-Paths/G/Female.cfg").c_str(), 0644), 0);
    ModelGenders genders;
    EXPECT_THROW(LoadModelGenders(ws.root(), "G", genders), std::exception);
    EXPECT_EQ(genders.saveTarget, ws.path("Game-Paths/G/Female.cfg"));
    EXPECT_EQ(genders.male, (Names{"female", "male"}));
    EXPECT_TRUE(genders.female.empty());
}
#endif

} // namespace
} // namespace rd::genders_test
