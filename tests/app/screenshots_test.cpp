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
#include <utility>
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

const fs::path kPictures = fs::path(ROSTERDESK_SOURCE_DIR) / "docs" / "guide" / "screenshots";

// The screen a picture shows: the part of its name before a tab's name ("frmEditGame-Advanced").
std::string screenOf(const std::string& picture) {
    return picture.substr(0, picture.find('-'));
}

std::string readText(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

TEST(Screenshots, EveryScreenHasAGuidePageAndACommittedPicture) {
    const auto names = screens();
    ASSERT_GE(names.size(), 29u);
    const fs::path guide = fs::path(ROSTERDESK_SOURCE_DIR) / "docs" / "guide";
    for (const auto& name : names) {
        EXPECT_TRUE(fs::exists(guide / (name + ".html"))) << name << " has no guide page";
        EXPECT_TRUE(fs::exists(kPictures / (name + ".png"))) << name << " has no picture";
    }
    const std::set<std::string> known(names.begin(), names.end());
    for (const auto& picture : pngsIn(kPictures))
        EXPECT_TRUE(known.count(screenOf(picture)))
            << picture << ".png shows a screen the program does not have";
}

TEST(Screenshots, EachScreensPageShowsEveryPictureOfIt) {
    const fs::path guide = fs::path(ROSTERDESK_SOURCE_DIR) / "docs" / "guide";
    for (const auto& picture : pngsIn(kPictures)) {
        const std::string page = readText(guide / (screenOf(picture) + ".html"));
        EXPECT_NE(page.find("src=\"screenshots/" + picture + ".png\""), std::string::npos)
            << screenOf(picture) << ".html does not show " << picture << ".png";
    }
}

TEST(Screenshots, EveryScreenAndEveryFurtherTabRendersOnTheDemoWorkspace) {
    const rd::test::TempWorkspace scratch;
    const fs::path demo = scratch.path("demo");
    fs::copy(ROSTERDESK_DEMO_WORKSPACE, demo, fs::copy_options::recursive);
    const fs::path out = scratch.path("shots");
    const ProgramRun r =
        runProgram(ROSTERDESK_SCREENSHOTS, {demo.string(), out.string()}, {{"QT_QPA_PLATFORM", "offscreen"}});
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    const auto rendered = pngsIn(out);
    // The pictures the guide shows are the pictures the program makes, tabs included.
    EXPECT_EQ(rendered, pngsIn(kPictures));
    for (const char* tab :
         {"frmEditPlugInSetup-FileCopying", "frmEditPlugInSetup-ChatAndAutoExec",
          "frmEditPlugInSetup-SkillLevels", "frmEditGame-Advanced", "frmGameTemplate-Advanced"})
        EXPECT_TRUE(rendered.count(tab)) << tab;
    for (const auto& name : rendered)
        EXPECT_GT(fs::file_size(out / (name + ".png")), 1000u) << name;
}

// A PNG picture's width and height, from its header.
std::pair<unsigned, unsigned> pngSize(const fs::path& file) {
    const std::string bytes = readText(file);
    if (bytes.size() < 24 || bytes.compare(12, 4, "IHDR") != 0)
        return {0, 0};
    const auto number = [&](std::size_t at) {
        unsigned value = 0;
        for (std::size_t i = 0; i < 4; ++i)
            value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
        return value;
    };
    return {number(16), number(20)};
}

TEST(Screenshots, TheCommandLineAfterTheFoldersSetsTheFont) {
    const rd::test::TempWorkspace scratch;
    const fs::path demo = scratch.path("demo");
    fs::copy(ROSTERDESK_DEMO_WORKSPACE, demo, fs::copy_options::recursive);
    const ProgramRun large =
        runProgram(ROSTERDESK_SCREENSHOTS, {demo.string(), scratch.path("large").string(), "FONTSIZE=16"},
                   {{"QT_QPA_PLATFORM", "offscreen"}});
    ASSERT_EQ(large.status, 0) << large.err;
    // A larger font than the designed one makes a larger picture of the same screen than the
    // committed one (made at the designed size).
    const auto [smallWidth, smallHeight] = pngSize(kPictures / "frmGame.png");
    const auto [largeWidth, largeHeight] = pngSize(scratch.path("large") / "frmGame.png");
    EXPECT_GT(smallWidth, 0u);
    EXPECT_GT(largeWidth, smallWidth);
    EXPECT_GT(largeHeight, smallHeight);
}

} // namespace screenshots_test
