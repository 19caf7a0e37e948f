// The number range dialog (frmNumberRange): opening on a parameter, the scroll bars, and the
// range OK writes back.

#include "definitions/screens/frmNumberRange.h"
#include "tests/definitions/screens/screen_steps.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <gtest/gtest.h>
#include <memory>

namespace number_range_test {

using namespace rd;
using namespace rd::test;

struct RangeScreen {
    QLineEdit parameter;
    std::unique_ptr<frmNumberRange> dialog;
    explicit RangeScreen(const QString& text) : parameter(text) {
        dialog = std::make_unique<frmNumberRange>(&parameter);
        EXPECT_TRUE(showActive(dialog.get()));
    }
    void ok(const QString& min, const QString& max, const QString& decimals) {
        typeInto(dialog->txtMin, min);
        typeInto(dialog->txtmax, max);
        typeInto(dialog->txtDecimal, decimals);
        click(dialog->cmdOK);
    }
};

TEST(NumberRange, ShowsItsTitleLabelsAndBars) {
    RangeScreen s("1:10");
    frmNumberRange& d = *s.dialog;
    EXPECT_EQ(d.objectName(), QString("frmNumberRange"));
    EXPECT_EQ(d.windowTitle(), QString("Number Range"));
    EXPECT_EQ(d.lblMin->text(), QString("Minimum Value:"));
    EXPECT_EQ(d.lblMax->text(), QString("Maximum Value:"));
    EXPECT_EQ(d.lblDecimal->text(), QString("Decimal Places:"));
    EXPECT_EQ(d.lblMin->buddy(), d.txtMin);
    EXPECT_EQ(d.lblMax->buddy(), d.txtmax);
    EXPECT_EQ(d.lblDecimal->buddy(), d.txtDecimal);
    for (QScrollBar* bar : {d.scrlMin, d.scrlMax, d.scrlDecimal})
        EXPECT_FALSE(bar->accessibleName().isEmpty());
    EXPECT_EQ(d.cmdOK->text(), QString("&OK"));
    EXPECT_EQ(d.cmdCancel->text(), QString("&Cancel"));
    EXPECT_EQ(d.txtMin->text(), QString("1"));
    EXPECT_EQ(d.txtmax->text(), QString("10"));
    EXPECT_EQ(d.txtDecimal->text(), QString("0"));
}

TEST(NumberRange, Min10Max1Decimals0Gives1To10) {
    RangeScreen s("");
    s.ok("10", "1", "0");
    EXPECT_EQ(s.parameter.text(), QString("1:10"));
    EXPECT_FALSE(s.dialog->isVisible());
}

TEST(NumberRange, Min1Point5Max10Decimals2Gives1Point50To10Point00) {
    RangeScreen s("");
    s.ok("1.5", "10", "2");
    EXPECT_EQ(s.parameter.text(), QString("1.50:10.00"));
}

TEST(NumberRange, Min2Point345WithOneDecimalIsRoundedTo2Point3) {
    RangeScreen s("");
    s.ok("2.345", "5", "1");
    EXPECT_EQ(s.parameter.text(), QString("2.3:5.0"));
}

TEST(NumberRange, HalvesRoundAwayFromZeroAndThePointIsAlwaysAFullStop) {
    RangeScreen s("");
    s.ok("0.25", "-0.25", "1");
    EXPECT_EQ(s.parameter.text(), QString("-0.3:0.3"));
}

TEST(NumberRange, OpeningOnQuarterColonFiveShowsTwoDecimals) {
    RangeScreen s("0.25:5");
    EXPECT_EQ(s.dialog->txtMin->text(), QString("0.25"));
    EXPECT_EQ(s.dialog->txtmax->text(), QString("5"));
    EXPECT_EQ(s.dialog->txtDecimal->text(), QString("2"));
    EXPECT_EQ(s.dialog->scrlDecimal->value(), 2);
}

TEST(NumberRange, OpeningOnTextWithoutARangeShowsZeros) {
    RangeScreen s("abc");
    EXPECT_EQ(s.dialog->txtMin->text(), QString("0"));
    EXPECT_EQ(s.dialog->txtmax->text(), QString("0"));
    EXPECT_EQ(s.dialog->txtDecimal->text(), QString("0"));
}

TEST(NumberRange, AMinimumOfAbcLeavesTheParameterUnchanged) {
    RangeScreen s("3:7");
    s.ok("abc", "9", "0");
    EXPECT_EQ(s.parameter.text(), QString("3:7"));
    EXPECT_FALSE(s.dialog->isVisible());
}

TEST(NumberRange, MovingAScrollBarWritesItsValueIntoItsField) {
    RangeScreen s("5:10");
    frmNumberRange& d = *s.dialog;
    EXPECT_EQ(d.scrlMin->value(), 5);
    d.scrlMin->setFocus();
    QTest::keyClick(d.scrlMin, Qt::Key_Right);
    EXPECT_EQ(d.txtMin->text(), QString("6"));
    d.scrlMax->setFocus();
    QTest::keyClick(d.scrlMax, Qt::Key_Left);
    QTest::keyClick(d.scrlMax, Qt::Key_PageUp);
    EXPECT_EQ(d.txtmax->text(), QString("19"));
    d.scrlDecimal->setFocus();
    QTest::keyClick(d.scrlDecimal, Qt::Key_Right);
    EXPECT_EQ(d.txtDecimal->text(), QString("1"));
    click(d.cmdOK);
    EXPECT_EQ(s.parameter.text(), QString("6.0:19.0"));
}

TEST(NumberRange, ABarFollowsTheNumberTypedIntoItsField) {
    RangeScreen s("");
    typeInto(s.dialog->txtMin, "40");
    EXPECT_EQ(s.dialog->scrlMin->value(), 40);
    EXPECT_EQ(s.dialog->txtMin->text(), QString("40"));
}

TEST(NumberRange, CancelLeavesTheParameterUnchanged) {
    RangeScreen s("1:10");
    typeInto(s.dialog->txtMin, "20");
    click(s.dialog->cmdCancel);
    EXPECT_EQ(s.parameter.text(), QString("1:10"));
    EXPECT_FALSE(s.dialog->isVisible());
}

TEST(NumberRange, WithoutAParameterFieldOKChangesNothing) {
    frmNumberRange dialog(nullptr);
    ASSERT_TRUE(showActive(&dialog));
    typeInto(dialog.txtMin, "1");
    click(dialog.cmdOK);
    EXPECT_FALSE(dialog.isVisible());
}

} // namespace number_range_test
