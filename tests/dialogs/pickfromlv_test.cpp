#include "core/screens/listhelpers.h"
#include "dialogs/frmPickFromLV.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <memory>

namespace pickfromlv_test {

using namespace rd;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;

// An option list: categories carry small icon 1, options none.
std::unique_ptr<QTreeWidget> optionList() {
    auto list = std::make_unique<QTreeWidget>();
    list->setObjectName("lvOptions");
    list->setColumnCount(2);
    const struct {
        const char* name;
        int icon;
    } rows[] = {
        {"Game Options", 1}, {"timelimit", 0}, {"Bot Options", 1}, {"fraglimit", 0}, {"bot options", 1}};
    for (const auto& row : rows) {
        auto* item = new QTreeWidgetItem(list.get(), QStringList{row.name, "x"});
        if (row.icon)
            setSmallIcon(item, row.icon, QIcon());
    }
    return list;
}

QStringList entries(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

// Every test answers prompts from a recorder, so no real message box can stop it.
class PickFromList : public ::testing::Test {
protected:
    PromptRecorder prompts;
};

TEST_F(PickFromList, CaptionIsTheGivenTitle) {
    auto source = optionList();
    frmPickFromLV picker(source.get(), nullptr, 1, "Choose Category to Enable");
    EXPECT_EQ(picker.windowTitle(), "Choose Category to Enable");
    EXPECT_EQ(picker.cmdOK->text(), "&OK");
    EXPECT_EQ(picker.cmdCancel->text(), "&Cancel");
    EXPECT_NE(picker.findChild<QListWidget*>("List1"), nullptr);
}

TEST_F(PickFromList, KindFilterOffersOnlyEntriesWithThatSmallIconInTheSourceOrder) {
    auto source = optionList();
    frmPickFromLV picker(source.get(), nullptr, 1, "T");
    EXPECT_EQ(entries(picker.List1), (QStringList{"Game Options", "Bot Options", "bot options"}));
}

TEST_F(PickFromList, NegativeKindFilterOffersEveryEntry) {
    auto source = optionList();
    frmPickFromLV picker(source.get(), nullptr, -1, "T");
    EXPECT_EQ(entries(picker.List1),
              (QStringList{"Game Options", "timelimit", "Bot Options", "fraglimit", "bot options"}));
}

TEST_F(PickFromList, KindFilterZeroOffersTheEntriesWithoutIcon) {
    auto source = optionList();
    frmPickFromLV picker(source.get(), nullptr, 0, "T");
    EXPECT_EQ(entries(picker.List1), (QStringList{"timelimit", "fraglimit"}));
}

TEST_F(PickFromList, AKindNoEntryCarriesOpensEmptyAndOkAsksToSelectSomethingFirst) {
    auto source = optionList();
    QLineEdit target("unchanged");
    frmPickFromLV picker(source.get(), &target, 7, "T");
    picker.show();
    EXPECT_EQ(picker.List1->count(), 0);
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, "Select something first..!");
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().title, kProgramTitle);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::Ok);
    EXPECT_TRUE(picker.isVisible());
    EXPECT_EQ(target.text(), "unchanged");
}

TEST_F(PickFromList, TargetTextMatchingTwoEntriesInDifferentCasePreselectsTheFirst) {
    auto source = optionList();
    QLineEdit target("BOT OPTIONS");
    frmPickFromLV picker(source.get(), &target, 1, "T");
    ASSERT_NE(picker.List1->currentItem(), nullptr);
    EXPECT_EQ(picker.List1->currentRow(), 1);
    EXPECT_TRUE(picker.List1->currentItem()->isSelected());
}

TEST_F(PickFromList, TargetTextMatchingNothingSelectsNothing) {
    auto source = optionList();
    QLineEdit target("Nothing Like It");
    frmPickFromLV picker(source.get(), &target, -1, "T");
    picker.show();
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, "Select something first..!");
    EXPECT_EQ(target.text(), "Nothing Like It");
}

TEST_F(PickFromList, OkWritesTheChosenTextIntoTheTargetBox) {
    auto source = optionList();
    QLineEdit target("game options");
    frmPickFromLV picker(source.get(), &target, 1, "T");
    picker.show();
    picker.List1->setCurrentRow(2);
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    EXPECT_EQ(target.text(), "bot options");
    EXPECT_EQ(picker.result(), QDialog::Accepted);
    EXPECT_TRUE(prompts.calls().empty());
}

TEST_F(PickFromList, OkWithThePreselectedEntryWritesItsOwnSpelling) {
    auto source = optionList();
    QLineEdit target("game options");
    frmPickFromLV picker(source.get(), &target, 1, "T");
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    EXPECT_EQ(target.text(), "Game Options");
}

TEST_F(PickFromList, DoubleClickOnAnEntryChoosesIt) {
    auto source = optionList();
    QLineEdit target;
    frmPickFromLV picker(source.get(), &target, -1, "T");
    picker.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&picker));
    const QRect rect = picker.List1->visualItemRect(picker.List1->item(3));
    // A double click: the first click selects, the second press comes as the double click.
    QTest::mouseClick(picker.List1->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    QTest::mouseDClick(picker.List1->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    EXPECT_EQ(target.text(), "fraglimit");
    EXPECT_EQ(picker.result(), QDialog::Accepted);
}

TEST_F(PickFromList, CancelLeavesTheTargetAlone) {
    auto source = optionList();
    QLineEdit target("keep");
    frmPickFromLV picker(source.get(), &target, -1, "T");
    picker.List1->setCurrentRow(0);
    QTest::mouseClick(picker.cmdCancel, Qt::LeftButton);
    EXPECT_EQ(target.text(), "keep");
    EXPECT_EQ(picker.result(), QDialog::Rejected);
}

TEST_F(PickFromList, KeepsNoReferenceToTheSourceAfterOpening) {
    auto source = optionList();
    QLineEdit target;
    frmPickFromLV picker(source.get(), &target, 1, "T");
    source.reset();
    picker.List1->setCurrentRow(0);
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    EXPECT_EQ(target.text(), "Game Options");
}

TEST_F(PickFromList, WorksWithoutATargetBox) {
    auto source = optionList();
    frmPickFromLV picker(source.get(), nullptr, -1, "T");
    picker.List1->setCurrentRow(1);
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    EXPECT_EQ(picker.result(), QDialog::Accepted);
}

TEST_F(PickFromList, ModalPickerWritesIntoTheTargetBox) {
    auto source = optionList();
    QWidget screen;
    auto* txtParameter = new QLineEdit(&screen);
    QString caption;
    ModalDriver driver([&](QDialog* d) {
        caption = d->windowTitle();
        d->findChild<QListWidget*>("List1")->setCurrentRow(1);
        QTest::mouseClick(d->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    PickFromLV(&screen, source.get(), txtParameter, 1, "Choose Category to Enable");
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(caption, "Choose Category to Enable");
    EXPECT_EQ(txtParameter->text(), "Bot Options");
}

} // namespace pickfromlv_test
