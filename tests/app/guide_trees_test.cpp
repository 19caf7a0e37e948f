// The user guide opened as files: from the source tree (docs/guide/) and as installed
// (share/doc/rosterdesk/guide/). Every link and picture of every page resolves in both, as it does
// in the guide built into the program (tests/core/screens/guide_test.cpp); the README's pictures
// resolve from the source tree.
#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace guide_trees_test {

namespace fs = std::filesystem;

std::string readText(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The local targets a text names through `pattern` (its first group): no web addresses, no
// anchors within the page; a target's own anchor is left off.
std::vector<std::string> localTargets(const std::string& text, const std::regex& pattern) {
    std::vector<std::string> out;
    for (auto it = std::sregex_iterator(text.begin(), text.end(), pattern); it != std::sregex_iterator();
         ++it) {
        std::string target = (*it)[1];
        if (target.empty() || target[0] == '#' || target.find(':') != std::string::npos)
            continue;
        if (const auto hash = target.find('#'); hash != std::string::npos)
            target.resize(hash);
        out.push_back(target);
    }
    return out;
}

// Every link and picture of every page in `guide` that names a file which is not there, as
// "page: target".
std::vector<std::string> brokenTargets(const fs::path& guide) {
    static const std::regex attribute(R"re((?:href|src)\s*=\s*"([^"]*)")re", std::regex::icase);
    std::vector<std::string> broken;
    for (const auto& entry : fs::directory_iterator(guide)) {
        if (entry.path().extension() != ".html")
            continue;
        for (const std::string& target : localTargets(readText(entry.path()), attribute))
            if (!fs::is_regular_file(guide / target))
                broken.push_back(entry.path().filename().string() + ": " + target);
    }
    return broken;
}

std::size_t pagesIn(const fs::path& guide) {
    std::size_t pages = 0;
    for (const auto& entry : fs::directory_iterator(guide))
        pages += entry.path().extension() == ".html";
    return pages;
}

TEST(GuideTrees, EveryLinkAndPictureResolvesInTheSourceTree) {
    const fs::path guide = fs::path(ROSTERDESK_SOURCE_DIR) / "docs" / "guide";
    ASSERT_GE(pagesIn(guide), 30u);
    for (const std::string& broken : brokenTargets(guide))
        ADD_FAILURE() << "docs/guide/" << broken;
}

TEST(GuideTrees, EveryLinkAndPictureResolvesInTheInstalledGuide) {
    const rd::test::TempWorkspace scratch;
    const fs::path prefix = scratch.path("prefix");
    const rd::test::ProgramRun install = rd::test::runProgram(
        CMAKE_COMMAND, {"--install", ROSTERDESK_BINARY_DIR, "--prefix", prefix.string()});
    ASSERT_EQ(install.status, 0) << install.out << install.err;
    const fs::path guide = prefix / "share" / "doc" / "rosterdesk" / "guide";
    EXPECT_EQ(pagesIn(guide), pagesIn(fs::path(ROSTERDESK_SOURCE_DIR) / "docs" / "guide"));
    EXPECT_TRUE(fs::is_regular_file(guide / "screenshots" / "frmMain.png"));
    for (const std::string& broken : brokenTargets(guide))
        ADD_FAILURE() << "installed guide/" << broken;
}

TEST(GuideTrees, TheReadmesPicturesAndLinksResolveInTheSourceTree) {
    const fs::path source = ROSTERDESK_SOURCE_DIR;
    static const std::regex markdownTarget(R"re(\]\(([^)\s]+)\))re");
    const auto targets = localTargets(readText(source / "README.md"), markdownTarget);
    EXPECT_FALSE(targets.empty());
    for (const std::string& target : targets)
        EXPECT_TRUE(fs::exists(source / target)) << "README.md names the missing " << target;
}

} // namespace guide_trees_test
