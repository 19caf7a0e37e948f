#include "definitions/dmflags.h"

#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::dmflags_test {
namespace {

using test::crlf;
using test::TempWorkspace;

FlagRow flag(std::string name, std::string checked, std::string unchecked, std::string help) {
    FlagRow row;
    row.name = std::move(name);
    row.checked = std::move(checked);
    row.unchecked = std::move(unchecked);
    row.bitmap = kDefaultBitmap;
    row.help = std::move(help);
    return row;
}

TEST(FlagFile, ExampleLoadsCategoryAndFlag) {
    TempWorkspace ws;
    ws.writeLines("DMflags.cfg", {"[Items]", "Example Flag", "", "<DMFlags>\t4\t0\tWhat the flag does"});
    const auto rows = LoadDMflags(ws.path("DMflags.cfg"));
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0], FlagRow::category("Items"));
    EXPECT_EQ(rows[1], flag("Example Flag", "4", "0", "What the flag does"));
}

TEST(FlagFile, SaveWritesNameEmptyLineAndFourTabFields) {
    TempWorkspace ws;
    SaveDMflags(ws.path("DMcustom.cfg"),
                {FlagRow::category("Items"), flag("No Health", "1", "0", "No health")});
    EXPECT_EQ(ws.read("DMcustom.cfg"), "[Items]\r\nNo Health\r\n\r\n<DMFlags>\t1\t0\tNo health\r\n");
}

TEST(FlagFile, SecondLineIsIgnoredOnReading) {
    TempWorkspace ws;
    ws.writeLines("DMflags.cfg", {"Weapons Stay", "junk", "<DMFlags>\t4\t0\tStay"});
    const auto rows = LoadDMflags(ws.path("DMflags.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0], flag("Weapons Stay", "4", "0", "Stay"));
    SaveDMflags(ws.path("DMflags.cfg"), rows);
    EXPECT_EQ(ws.read("DMflags.cfg"), crlf({"Weapons Stay", "", "<DMFlags>\t4\t0\tStay"}));
}

TEST(FlagFile, EmptyThirdLineLoadsEmptyFieldsAndSavesAsThreeTabs) {
    TempWorkspace ws;
    ws.writeLines("DMflags.cfg", {"Bare", "", ""});
    const auto rows = LoadDMflags(ws.path("DMflags.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].name, "Bare");
    EXPECT_EQ(rows[0].checked, "");
    EXPECT_EQ(rows[0].unchecked, "");
    EXPECT_EQ(rows[0].bitmap, "");
    EXPECT_EQ(rows[0].help, "");
    SaveDMflags(ws.path("DMflags.cfg"), rows);
    EXPECT_EQ(ws.read("DMflags.cfg"), "Bare\r\n\r\n\t\t\t\r\n");
}

TEST(FlagFile, HelpWithTabLosesThePartAfterTheTabOnReload) {
    TempWorkspace ws;
    SaveDMflags(ws.path("DMflags.cfg"), {flag("Quad Drop", "16384", "0", "drops\tthe quad")});
    const auto rows = LoadDMflags(ws.path("DMflags.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].help, "drops");
}

TEST(FlagFile, CategoryBracketsStrippedWhileLengthAtLeastTwo) {
    TempWorkspace ws;
    ws.writeLines("DMflags.cfg", {"[[Rules]]", "[]", "["});
    const auto rows = LoadDMflags(ws.path("DMflags.cfg"));
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0], FlagRow::category("Rules"));
    EXPECT_EQ(rows[1], FlagRow::category("]"));
    EXPECT_EQ(rows[2], FlagRow::category("["));
}

TEST(FlagFile, MissingFileIsAnEmptySet) {
    TempWorkspace ws;
    EXPECT_TRUE(LoadDMflags(ws.path("DMflags.cfg")).empty());
}

TEST(FlagFile, FileCutShortAfterNameGivesEmptyFields) {
    TempWorkspace ws;
    ws.write("DMflags.cfg", "Cut");
    const auto rows = LoadDMflags(ws.path("DMflags.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].name, "Cut");
    EXPECT_EQ(rows[0].bitmap, "");
}

TEST(FlagEditor, NonNumericCheckedSavesAsZero) {
    const auto check = checkFlagValues("abc", "8");
    EXPECT_EQ(check.refusal, std::nullopt);
    EXPECT_EQ(check.checked, "0");
    EXPECT_EQ(check.unchecked, "8");
}

TEST(FlagEditor, BothNonZeroRefusedWithSecondWarning) {
    EXPECT_EQ(checkFlagValues("4", "4").refusal,
              std::optional<std::string>("Either the checked value or the unchecked value must be zero."));
}

TEST(FlagEditor, BothZeroRefusedWithFirstWarning) {
    EXPECT_EQ(checkFlagValues("0", "0").refusal,
              std::optional<std::string>("The checked value or the unchecked value can't both be zero"));
    EXPECT_EQ(checkFlagValues("x", "").refusal,
              std::optional<std::string>("The checked value or the unchecked value can't both be zero"));
}

TEST(FlagEditor, ValueThatIsNoPowerOfTwoIsAccepted) {
    const auto check = checkFlagValues("12", "0");
    EXPECT_EQ(check.refusal, std::nullopt);
    EXPECT_EQ(check.checked, "12");
}

TEST(FlagEditor, NumbersKeepTheirTypedForm) {
    const auto check = checkFlagValues(" 0 ", "0.6");
    EXPECT_EQ(check.refusal, std::nullopt);
    EXPECT_EQ(check.checked, " 0 ");
    EXPECT_EQ(check.unchecked, "0.6");
}

TEST(FlagEditor, ValueBeyondThirtyTwoBitsIsRefusedWithoutCrashing) {
    const auto check = checkFlagValues("4294967296", "0");
    ASSERT_TRUE(check.refusal.has_value());
    EXPECT_EQ(*check.refusal, kFlagsOutOfRange);
}

TEST(FlagEditor, DropDownsOfferZeroOneAndPowersOfTwoUpTo33554432) {
    const auto values = dmflagValues();
    ASSERT_EQ(values.size(), 27u);
    EXPECT_EQ(values[0], "0");
    EXPECT_EQ(values[1], "1");
    EXPECT_EQ(values[2], "2");
    EXPECT_EQ(values[3], "4");
    EXPECT_EQ(values[15], "16384");
    EXPECT_EQ(values[26], "33554432");
}

} // namespace
} // namespace rd::dmflags_test
