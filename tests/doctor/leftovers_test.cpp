// The doctor reports what an interrupted save left beside the file it was saving (a program
// killed while it wrote), in a bot's folder, a game's folder and Game-Paths itself, and changes
// nothing.

#include "core/filesave.h"
#include "tests/doctor/doctor_support.h"

#include <gtest/gtest.h>

namespace leftovers_test {

using namespace rd;
using rd::test::DoctorWorkspace;
using rd::test::onlyFinding;

TEST(DoctorLeftovers, ATemporaryFileOfAnInterruptedSaveInAGamesFolderIsReported) {
    DoctorWorkspace d;
    const std::string leftover = "Game-Paths/Quake2/" + saveTemporaryName("Options.cfg", 4711);
    d.ws.write(leftover, "half an opt");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, leftover, std::nullopt,
                            {"interrupted save", "\"Options.cfg\"", "kept as it was", "can be deleted"}));
    EXPECT_EQ(d.ws.read(leftover), "half an opt");
}

TEST(DoctorLeftovers, ATemporaryFileOfAnInterruptedSaveInABotsFolderIsReported) {
    DoctorWorkspace d;
    const std::string leftover = "Plug-Ins/Eraser/" + saveTemporaryName("Setup.Cfg", 12);
    d.ws.write(leftover, "Quake2\r\n");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, leftover, std::nullopt,
                            {"interrupted save", "\"Setup.Cfg\""}));
}

TEST(DoctorLeftovers, ATemporaryFileOfAnInterruptedSaveInGamePathsIsReported) {
    DoctorWorkspace d;
    const std::string leftover = "Game-Paths/" + saveTemporaryName("skill.val", 12);
    d.ws.write(leftover, "Easy\r\n");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, leftover, std::nullopt,
                            {"interrupted save", "\"skill.val\""}));
}

TEST(DoctorLeftovers, OtherHiddenFilesAreNoLeftovers) {
    DoctorWorkspace d;
    d.ws.write("Game-Paths/Quake2/.Options.cfg.swp", "an editor's");
    d.ws.write("Game-Paths/Quake2/.hidden", "x");
    const auto found = d.diagnose();
    EXPECT_TRUE(found.empty()) << rd::test::describe(found);
}

} // namespace leftovers_test
