// The scroll-bar stepping routine: a scroll bar as the spin control of a number box.

#include "core/screens/scrollstep.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace scrollstep_test {

using rd::steppedNumberText;

TEST(ScrollStep, OneStepUpOrDownFromTheBoxNumber) {
    EXPECT_EQ(steppedNumberText("7", true, 0, 10), QString("8"));
    EXPECT_EQ(steppedNumberText("7", false, 0, 10), QString("6"));
    EXPECT_EQ(steppedNumberText(" 3 ", true, 0, 10), QString("4"));
}

TEST(ScrollStep, TextThatIsNoNumberCountsAsZero) {
    EXPECT_EQ(steppedNumberText("abc", true, -5, 5), QString("1"));
    EXPECT_EQ(steppedNumberText("", false, -5, 5), QString("-1"));
    EXPECT_EQ(steppedNumberText("3x", true, -5, 5), QString("1"));
}

TEST(ScrollStep, TheResultIsClampedWhenTheLimitsDiffer) {
    EXPECT_EQ(steppedNumberText("10", true, 1, 10), QString("10"));
    EXPECT_EQ(steppedNumberText("1", false, 1, 10), QString("1"));
    EXPECT_EQ(steppedNumberText("500", false, 1, 10), QString("10"));
    EXPECT_EQ(steppedNumberText("abc", false, 1, 10), QString("1"));
}

TEST(ScrollStep, EqualLimitsMeanNoClamping) {
    EXPECT_EQ(steppedNumberText("10", true, 0, 0), QString("11"));
    EXPECT_EQ(steppedNumberText("0", false, 5, 5), QString("-1"));
}

TEST(ScrollStep, NumbersAreWrittenAsPlainDigits) {
    EXPECT_EQ(steppedNumberText("2.5", true, 0, 100), QString("3")); // 2.5 rounds to 2 (halves to even)
    EXPECT_EQ(steppedNumberText("1e2", true, 0, 1000), QString("101"));
    EXPECT_EQ(steppedNumberText("1", false, -10, 10), QString("0"));
    EXPECT_EQ(steppedNumberText("-0", true, -10, 10), QString("1"));
}

TEST(ScrollStep, EveryChangeOfTheBarStepsOnceWhateverItsSize) {
    QWidget owner;
    auto* box = new QLineEdit(QStringLiteral("5"), &owner);
    auto* bar = new QScrollBar(Qt::Vertical, &owner);
    rd::ScrollStepper* stepper = rd::giveSpinControl(bar, box, 0, 100);
    const int start = bar->value();
    EXPECT_EQ(stepper->previousPosition(), start);
    bar->setValue(start - 30); // up, far
    EXPECT_EQ(box->text(), QString("6"));
    EXPECT_EQ(stepper->previousPosition(), start - 30);
    bar->setValue(start - 29); // down, a little
    EXPECT_EQ(box->text(), QString("5"));
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(box->text(), QString("4"));
}

TEST(ScrollStep, TheBarNeverRunsOutOfRoom) {
    QWidget owner;
    auto* box = new QLineEdit(QStringLiteral("0"), &owner);
    auto* bar = new QScrollBar(Qt::Vertical, &owner);
    rd::giveSpinControl(bar, box, 0, 0);
    bar->setValue(bar->minimum());
    EXPECT_EQ(box->text(), QString("1"));
    EXPECT_GT(bar->value(), bar->minimum()); // put back in the middle
    bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(box->text(), QString("2"));
    bar->setValue(bar->maximum());
    EXPECT_EQ(box->text(), QString("1"));
    EXPECT_LT(bar->value(), bar->maximum());
}

TEST(ScrollStep, UpAndDownInTheBoxStepTheNumber) {
    QWidget owner;
    auto* box = new QLineEdit(QStringLiteral("9"), &owner);
    auto* bar = new QScrollBar(Qt::Vertical, &owner);
    rd::giveSpinControl(bar, box, 1, 10);
    QTest::keyClick(box, Qt::Key_Up);
    EXPECT_EQ(box->text(), QString("10"));
    QTest::keyClick(box, Qt::Key_Up);
    EXPECT_EQ(box->text(), QString("10"));
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(box->text(), QString("9"));
    QTest::keyClicks(box, "5"); // other keys type as usual
    EXPECT_EQ(box->text(), QString("95"));
}

} // namespace scrollstep_test
