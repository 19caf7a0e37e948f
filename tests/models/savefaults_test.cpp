// The female model list never is left half written: a full disk at the first byte, in the
// middle or inside the last line, a failing flush or a refused rename leaves the old file byte
// for byte and no temporary file; Retry then saves the new list.

#include "models/genders.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace savefaults_test {

using namespace rd;
using rd::test::crlf;
using rd::test::expectSavesSurviveFaults;
using rd::test::TempWorkspace;

TEST(GenderSaveFaults, AFemaleListSurvivesEveryFaultAndRetrySavesIt) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Female.cfg", {"female", "crakhor"});
    const auto path = ws.path("Game-Paths/Quake2/Female.cfg");
    expectSavesSurviveFaults(
        path,
        [&](StepRunner& runner) {
            runner.step([&] { SaveFemaleList(path, {"female", "crakhor", "lisa", "athena"}); });
        },
        crlf({"female", "crakhor", "lisa", "athena"}));
}

} // namespace savefaults_test
