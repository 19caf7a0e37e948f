// The player models of a launcher installed under Wine: the record's C:\ models folder resolves
// through the prefix, for the gender lists and for rosterdesk-cli models.

#include "models/genders.h"
#include "tests/plugins/cli_run.h"
#include "tests/support/wine_data.h"

#include <gtest/gtest.h>

namespace wine_genders_test {

using namespace rd;
using rd::test::FakeWinePrefix;

#ifndef _WIN32

struct Models : FakeWinePrefix {
    Models() {
        for (const char* model : {"male", "Female", "cyborg"})
            folder(std::string("Quake2/BaseQ2/Players/") + model);
        writeLines(
            "Tarnwick/Game-Paths/Quake2/Quake2.Gme",
            {"C:\\quake2\\", "C:\\quake2\\baseq2\\maps\\", "quake2.exe", "", "C:\\quake2\\baseq2\\players"});
        writeLines("Tarnwick/Game-Paths/Quake2/Female.cfg", {"female"});
    }
};

TEST(WineGenders, TheModelsOfADriveCModelsFolderAreFound) {
    Models wine;
    const ModelGenders genders = LoadModelGenders(wine.root(), "Quake2");
    EXPECT_FALSE(genders.noModelsFolder);
    EXPECT_EQ(genders.male, (std::vector<std::string>{"cyborg", "male"}));
    EXPECT_EQ(genders.female, std::vector<std::string>{"female"});
}

TEST(WineGenders, CliModelsListsTheModelsOfADriveCModelsFolder) {
    Models wine;
    const auto run = rd::test::runCli(wine.root(), {"models", "Quake2"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), nlohmann::json::parse(R"({"male": ["cyborg", "male"], "female": ["female"]})"));
}

TEST(WineGenders, ADriveThePrefixDoesNotMapHasNoModels) {
    Models wine;
    wine.unlink("c:");
    const ModelGenders genders = LoadModelGenders(wine.root(), "Quake2");
    EXPECT_TRUE(genders.male.empty());
    EXPECT_EQ(genders.female, std::vector<std::string>{"female"});
}

#endif

} // namespace wine_genders_test
