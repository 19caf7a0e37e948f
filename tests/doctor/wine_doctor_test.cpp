// The doctor on a launcher installed under Wine: drive paths resolve through the prefix, and a
// drive that no prefix maps is reported instead of being called missing.

#include "doctor/doctor.h"
#include "tests/doctor/doctor_support.h"
#include "tests/support/process_data.h"
#include "tests/support/wine_data.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace wine_doctor_test {

using namespace rd;
namespace fs = std::filesystem;
using rd::test::FakeWinePrefix;

TEST(WineDoctor, TheDemoInstallationUnderWineIsClean) {
    const fs::path demo = fs::path(ROSTERDESK_DEMO) / "wine" / "drive_c" / "Tarnwick";
    ASSERT_TRUE(fs::is_directory(demo)) << demo;
    const auto run = rd::test::runProgram(ROSTERDESK_CLI, {"--root", demo.string(), "doctor"});
    EXPECT_EQ(run.out, "[]\n");
    EXPECT_EQ(run.status, 0) << run.err;
}

#ifndef _WIN32

// A game whose record names folders on C: (in other letter cases than on disk).
struct Game : FakeWinePrefix {
    Game() {
        folder("Quake2/baseq2/maps");
        folder("Quake2/baseq2/players/male");
    }
    void record(const std::string& main, const std::string& maps, const std::string& models) const {
        writeLines("Tarnwick/Game-Paths/Quake2/Quake2.Gme", {main, maps, "quake2.exe", "", models, "_i.pcx",
                                                             "", "tris.md2", " 0 ", " 1 ", " 1 ", maps});
    }
};

TEST(WineDoctor, DriveCFoldersThatExistAreNotReported) {
    Game g;
    g.record("C:\\QUAKE2\\", "c:\\quake2\\baseq2\\maps\\", "C:/Quake2/BaseQ2/Players");
    const auto found = Diagnose(g.root());
    EXPECT_TRUE(found.empty()) << rd::test::describe(found);
}

TEST(WineDoctor, AFolderMissingOnAMappedDriveDoesNotExist) {
    Game g;
    g.record("C:\\Quake2\\", "C:\\Quake2\\baseq2\\maps\\", "C:\\Quake3\\players");
    EXPECT_TRUE(rd::test::onlyFinding(Diagnose(g.root()), Severity::Error, "Game-Paths/Quake2/Quake2.Gme", 5,
                                      {"the models folder \"C:\\Quake3\\players\" does not exist"}));
}

TEST(WineDoctor, ADriveNoPrefixMapsIsReportedAsAWindowsPath) {
    Game g;
    g.record("C:\\Quake2\\", "D:\\Quake2\\baseq2\\maps\\", "C:\\Quake2\\baseq2\\players");
    EXPECT_TRUE(rd::test::onlyFinding(Diagnose(g.root()), Severity::Warning, "Game-Paths/Quake2/Quake2.Gme",
                                      2,
                                      {"the maps folder \"D:\\Quake2\\baseq2\\maps\\\" is a Windows path, "
                                       "and no Wine prefix maps drive D:"}));
}

TEST(WineDoctor, CliDoctorReportsTheUnmappedDrive) {
    Game g;
    g.record("e:\\games\\quake2\\", "C:\\Quake2\\baseq2\\maps\\", "C:\\Quake2\\baseq2\\players");
    const auto run = rd::test::runProgram(ROSTERDESK_CLI, {"--root", g.root().string(), "doctor"});
    EXPECT_EQ(run.status, 1) << run.err;
    const auto json = nlohmann::json::parse(run.out);
    ASSERT_EQ(json.size(), 1u) << run.out;
    EXPECT_EQ(json[0]["severity"], "warning");
    EXPECT_EQ(json[0]["line"], 1);
    EXPECT_EQ(json[0]["message"], "the game's program folder \"e:\\games\\quake2\\\" is a Windows path, and "
                                  "no Wine prefix maps drive E:");
}

#endif

} // namespace wine_doctor_test
