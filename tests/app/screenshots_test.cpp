// Pictures of every screen: the screenshots program renders each one on the demo workspace, and
// every screen it knows has its guide page and its committed picture.
#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace screenshots_test {

namespace fs = std::filesystem;
using rd::test::ProgramRun;
using rd::test::runProgram;

std::vector<std::string> screens() {
    const ProgramRun r = runProgram(ROSTERDESK_SCREENSHOTS, {"--list"}, {{"QT_QPA_PLATFORM", "offscreen"}});
    EXPECT_EQ(r.status, 0) << r.err;
    std::vector<std::string> names;
    std::istringstream lines(r.out);
    for (std::string line; std::getline(lines, line);)
        if (!line.empty())
            names.push_back(line);
    return names;
}

std::set<std::string> pngsIn(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".png")
            names.insert(entry.path().stem().string());
    return names;
}

TEST(Screenshots, EveryScreenHasAGuidePageAndACommittedPicture) {
    const auto names = screens();
    ASSERT_GE(names.size(), 29u);
    const fs::path source = ROSTERDESK_SOURCE_DIR;
    for (const auto& name : names) {
        EXPECT_TRUE(fs::exists(source / "docs" / "guide" / (name + ".html"))) << name << " has no guide page";
        EXPECT_TRUE(fs::exists(source / "docs" / "screenshots" / (name + ".png")))
            << name << " has no picture";
    }
    EXPECT_EQ(pngsIn(source / "docs" / "screenshots"), std::set<std::string>(names.begin(), names.end()))
        << "docs/screenshots holds pictures of screens the program does not have";
}

TEST(Screenshots, EveryScreenRendersOnTheDemoWorkspace) {
    const rd::test::TempWorkspace scratch;
    const fs::path out = scratch.path("shots");
    const ProgramRun r = runProgram(ROSTERDESK_SCREENSHOTS, {ROSTERDESK_DEMO_WORKSPACE, out.string()},
                                    {{"QT_QPA_PLATFORM", "offscreen"}});
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    const auto names = screens();
    EXPECT_EQ(pngsIn(out), std::set<std::string>(names.begin(), names.end()));
    for (const auto& name : names)
        EXPECT_GT(fs::exists(out / (name + ".png")) ? fs::file_size(out / (name + ".png")) : 0u, 1000u)
            << name;
}

} // namespace screenshots_test
