// The deathmatch flag list (frmDMflags) and flag editor (frmEditDMflag), checked on the bytes of
// the flag definition files.

#include "core/screens/frmZoom.h"
#include "core/screens/listhelpers.h"
#include "definitions/screens/frmDMflags.h"
#include "definitions/screens/frmEditDMflag.h"
#include "tests/definitions/screens/screen_steps.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace dmflags_screens_test {

using namespace rd;
using namespace rd::test;

const std::vector<std::string> kSample = {
    "[Items]",
    "No Health",
    "",
    "<DMFlags>\t1\t0\tHealth items are not spawned",
    "Weapons Stay",
    "",
    "<DMFlags>\t4\t0\tWeapons stay where they are",
    "[Players]",
    "Falling Damage",
    "",
    "<DMFlags>\t0\t8\tPlayers are hurt when they fall",
};
const char* const kFile = "Plug-Ins/Eraser/DMcustom.cfg";

class FlagList : public ::testing::Test {
protected:
    void SetUp() override { ws.writeLines(kFile, kSample); }
    std::unique_ptr<frmDMflags> open() {
        auto form = std::make_unique<frmDMflags>(ws.path(kFile));
        EXPECT_TRUE(showActive(form.get()));
        return form;
    }
    frmEditDMflag* edit(frmDMflags& form, bool newRow, int index) {
        editor = std::make_unique<frmEditDMflag>(form.lvFlags, newRow, index); // owned here, not by the list
        EXPECT_TRUE(showActive(editor.get()));
        return editor.get();
    }
    // Types into an editable drop-down key by key, after clearing it.
    static void typeNumber(QComboBox* combo, const QString& text) { typeInto(combo->lineEdit(), text); }
    std::string savedAfter(frmDMflags& form) {
        click(form.cmdOK);
        EXPECT_FALSE(form.isVisible());
        return ws.read(kFile);
    }

    TempWorkspace ws;
    PromptRecorder prompts;
    std::unique_ptr<frmEditDMflag> editor;
};

std::vector<std::string> withRow(std::vector<std::string> lines, std::size_t at,
                                 const std::vector<std::string>& rows) {
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), rows.begin(), rows.end());
    return lines;
}

TEST_F(FlagList, ShowsTheFileAndTheFiveColumns) {
    auto form = open();
    EXPECT_EQ(form->objectName(), QString("frmDMflags"));
    EXPECT_EQ(form->windowTitle(), QString("Deathmatch Flags Editor"));
    EXPECT_EQ(form->lblFilename->text().toStdString(), ws.path(kFile).string());
    EXPECT_EQ(form->lblFilename->toolTip(), form->lblFilename->text());
    EXPECT_EQ(headerTexts(form->lvFlags), (QStringList{"Name", "Checked", "Unchecked", "Bitmap", "Help"}));
    EXPECT_EQ(columnTexts(form->lvFlags),
              (QStringList{"Items", "No Health", "Weapons Stay", "Players", "Falling Damage"}));
    EXPECT_EQ(columnTexts(form->lvFlags, 2), (QStringList{"", "0", "0", "", "8"}));
    EXPECT_EQ(smallIconIndex(form->lvFlags->topLevelItem(0)), 1);
    EXPECT_EQ(smallIconIndex(form->lvFlags->topLevelItem(1)), 0);
    EXPECT_FALSE(form->lvFlags->accessibleName().isEmpty());
}

TEST_F(FlagList, OpensShowingEveryColumnAndItsCaption) {
    auto form = open();
    QCoreApplication::processEvents();
    QHeaderView* header = form->lvFlags->header();
    EXPECT_TRUE(header->stretchLastSection());
    for (int column = 0; column < header->count(); ++column) {
        EXPECT_GE(header->sectionSize(column), header->sectionSizeHint(column)) << "column " << column;
        EXPECT_LE(header->sectionViewportPosition(column) + header->sectionSize(column),
                  form->lvFlags->viewport()->width())
            << "column " << column << " lies behind the scroll bar";
    }
    EXPECT_EQ(
        form->lvFlags->toolTip(),
        QString("Right-click for commands. Insert adds, Delete removes, Enter edits, Ctrl+U / Ctrl+D move."));
}

TEST_F(FlagList, PopupMenuEntriesInOrderWithEditAsTheBoldDefault) {
    auto form = open();
    EXPECT_EQ(menuEntries(form->mnuPopup), (QStringList{"&Edit", "&Add", "&Delete", "-", "Move &Up",
                                                        "&Move Down", "-", "Add &New Category"}));
    EXPECT_EQ(menuNames(form->mnuPopup),
              (QStringList{"mnuPopupEdit", "mnuPopupAdd", "mnuPopupDelete", "mnuPopupMoveUp",
                           "mnuPopupMoveDown", "mnuPopupCategoryNew"}));
    EXPECT_EQ(form->mnuPopup->defaultAction(), form->mnuPopupEdit);
    clickRow(form->lvFlags, 1, Qt::RightButton);
    EXPECT_TRUE(form->mnuPopup->isVisible());
    form->mnuPopup->close();
    QTest::keyClick(form->lvFlags, Qt::Key_Menu);
    EXPECT_TRUE(form->mnuPopup->isVisible());
    form->mnuPopup->close();
}

TEST_F(FlagList, AddNewCategoryAsksWithItsOwnWordsAndGoesBelowTheSelection) {
    auto form = open();
    prompts.answerInput(QString("Teams"));
    popupCommand(form->lvFlags, form->mnuPopup, 2, form->mnuPopupCategoryNew);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Deathmatch Flags Editor"));
    EXPECT_EQ(prompts.last().text, QString("Type in the name of the new category to add below"));
    EXPECT_EQ(savedAfter(*form), crlf(withRow(kSample, 7, {"[Teams]"})));
}

TEST_F(FlagList, EditOnACategoryRenamesItWithItsOwnWords) {
    auto form = open();
    prompts.answerInput(QString("Pick-ups"));
    ModalDriver driver([](QDialog* d) { d->reject(); }, 1500);
    clickRow(form->lvFlags, 0);
    QTest::keyClick(form->lvFlags, Qt::Key_Return);
    EXPECT_FALSE(driver.acted());
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Deathmatch Flags Editor"));
    EXPECT_EQ(prompts.last().text, QString("Type in the name of the category below"));
    EXPECT_EQ(prompts.last().defaultText, QString("Items"));
    auto expected = kSample;
    expected[0] = "[Pick-ups]";
    EXPECT_EQ(savedAfter(*form), crlf(expected));
}

TEST_F(FlagList, EmptyRenameLeavesTheCategory) {
    auto form = open();
    prompts.answerInput(QString(""));
    clickRow(form->lvFlags, 3);
    QTest::keyClick(form->lvFlags, Qt::Key_Return);
    EXPECT_EQ(form->lvFlags->topLevelItem(3)->text(0), QString("Players"));
}

TEST_F(FlagList, DeleteAsksTheFlagQuestionAndRemovesOnYes) {
    auto form = open();
    prompts.answer(PromptAnswer::Yes);
    prompts.answer(PromptAnswer::No);
    prompts.answer(PromptAnswer::Yes);
    clickRow(form->lvFlags, 2);
    QTest::keyClick(form->lvFlags, Qt::Key_Delete);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Delete this flag, are you sure?"));
    EXPECT_EQ(prompts.last().title, QString("Weapons Stay"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::YesNoCancel);
    popupCommand(form->lvFlags, form->mnuPopup, 2, form->mnuPopupDelete); // No: kept
    popupCommand(form->lvFlags, form->mnuPopup, 2, form->mnuPopupDelete); // a category, Yes
    std::vector<std::string> expected(kSample.begin(), kSample.begin() + 4);
    expected.insert(expected.end(), kSample.begin() + 8, kSample.end());
    EXPECT_EQ(savedAfter(*form), crlf(expected));
}

TEST_F(FlagList, AddOpensTheFlagEditorAndPutsTheFlagBelowTheSelection) {
    auto form = open();
    QString title;
    ModalDriver driver([&](QDialog* d) {
        auto* e = qobject_cast<frmEditDMflag*>(d);
        ASSERT_NE(e, nullptr);
        ASSERT_TRUE(makeActive(e));
        title = e->windowTitle();
        QTest::keyClicks(e->txtFlagName, "Quad Drop");
        QTest::keyClick(e->txtFlagName, Qt::Key_Tab);
        QTest::keyClicks(e->cboChecked->lineEdit(), "16384");
        QTest::keyClick(e->cboChecked->lineEdit(), Qt::Key_Tab);
        QTest::keyClicks(e->cboUnchecked->lineEdit(), "0");
        QTest::keyClicks(e->txtHelp, "The quad is dropped");
        click(e->cmdOK);
    });
    clickRow(form->lvFlags, 2);
    QTest::keyClick(form->lvFlags, Qt::Key_Insert);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(title, QString("Add New Deathmatch Flag"));
    EXPECT_EQ(savedAfter(*form),
              crlf(withRow(kSample, 7, {"Quad Drop", "", "<DMFlags>\t16384\t0\tThe quad is dropped"})));
}

TEST_F(FlagList, AddWithNothingSelectedAppendsAndWithTheLastRowSelectedToo) {
    auto form = open();
    for (int round = 0; round < 2; ++round) {
        ModalDriver driver([&](QDialog* d) {
            auto* e = qobject_cast<frmEditDMflag*>(d);
            QTest::keyClicks(e->txtFlagName, round == 0 ? "A" : "B");
            QTest::keyClicks(e->cboChecked->lineEdit(), "2");
            click(e->cmdOK);
        });
        if (round == 0)
            form->mnuPopupAdd->trigger();
        else
            popupCommand(form->lvFlags, form->mnuPopup, 5, form->mnuPopupAdd);
        ASSERT_TRUE(driver.acted());
    }
    auto expected = kSample;
    for (const char* name : {"A", "B"})
        expected.insert(expected.end(), {name, "", "<DMFlags>\t2\t\t"});
    // An Unchecked left empty is not a number: it is stored as "0".
    expected[expected.size() - 1] = "<DMFlags>\t2\t0\t";
    expected[expected.size() - 4] = "<DMFlags>\t2\t0\t";
    EXPECT_EQ(savedAfter(*form), crlf(expected));
}

TEST_F(FlagList, EditOnAFlagFillsTheEditor) {
    auto form = open();
    auto* e = edit(*form, false, 5);
    EXPECT_EQ(e->windowTitle(), QString("Editing Falling Damage"));
    EXPECT_EQ(e->txtFlagName->text(), QString("Falling Damage"));
    EXPECT_EQ(e->cboChecked->currentText(), QString("0"));
    EXPECT_EQ(e->cboUnchecked->currentText(), QString("8"));
    EXPECT_EQ(e->cboBitmap->currentText(), QString("<DMFlags>"));
    EXPECT_EQ(e->txtHelp->text(), QString("Players are hurt when they fall"));
}

TEST_F(FlagList, FlagEditorLabelsTooltipsAndDropDowns) {
    auto form = open();
    auto* e = edit(*form, true, 0);
    EXPECT_EQ(e->objectName(), QString("frmEditDMflag"));
    const std::vector<std::tuple<QLabel*, QString, QWidget*>> labels = {
        {e->lblFlagName, "Flag Name:", e->txtFlagName},
        {e->lblChecked, "Value to Add When Checked:", e->cboChecked},
        {e->lblUnchecked, "Value to Add When Unchecked:", e->cboUnchecked},
        {e->lblBitmap, "Bitmap (leave if unsure) :", e->cboBitmap},
        {e->lblHelp, "Help:", e->txtHelp}};
    for (const auto& [label, caption, buddy] : labels) {
        EXPECT_EQ(label->text(), caption);
        EXPECT_EQ(label->buddy(), buddy);
    }
    EXPECT_EQ(e->cboChecked->toolTip(),
              QString("If the option is selected, this number is added to DMflags"));
    EXPECT_EQ(e->cboUnchecked->toolTip(),
              QString("If the option is NOT selected, this number is added to DMflags"));
    EXPECT_EQ(e->cboBitmap->toolTip(), QString("Change this only if you want to set up your own bitmap"));
    for (QComboBox* combo : {e->cboChecked, e->cboUnchecked}) {
        ASSERT_EQ(combo->count(), 27);
        EXPECT_TRUE(combo->isEditable());
        EXPECT_EQ(combo->itemText(0), QString("0"));
        EXPECT_EQ(combo->itemText(1), QString("1"));
        EXPECT_EQ(combo->itemText(2), QString("2"));
        EXPECT_EQ(combo->itemText(3), QString("4"));
        EXPECT_EQ(combo->itemText(26), QString("33554432"));
    }
    ASSERT_EQ(e->cboBitmap->count(), 1);
    EXPECT_EQ(e->cboBitmap->itemText(0), QString("<DMFlags>"));
    EXPECT_EQ(e->cboBitmap->currentText(), QString("<DMFlags>"));
    EXPECT_TRUE(e->cboBitmap->isEditable());
    EXPECT_EQ(e->cmdOK->text(), QString("&OK"));
    EXPECT_EQ(e->cmdCancel->text(), QString("&Cancel"));
}

TEST_F(FlagList, CheckedAbcAndUnchecked8SaveAsZeroAnd8) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    typeNumber(e->cboChecked, "abc");
    typeNumber(e->cboUnchecked, "8");
    click(e->cmdOK);
    EXPECT_FALSE(e->isVisible());
    auto expected = kSample;
    expected[6] = "<DMFlags>\t0\t8\tWeapons stay where they are";
    EXPECT_EQ(savedAfter(*form), crlf(expected));
}

TEST_F(FlagList, BothValuesSetAreRefusedWithTheSecondWarning) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    typeNumber(e->cboChecked, "4");
    typeNumber(e->cboUnchecked, "4");
    click(e->cmdOK);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Either the checked value or the unchecked value must be zero."));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(e->isVisible());
    EXPECT_EQ(form->lvFlags->topLevelItem(2)->text(2), QString("0"));
}

TEST_F(FlagList, BothValuesZeroAreRefusedWithTheFirstWarning) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    typeNumber(e->cboChecked, "0");
    typeNumber(e->cboUnchecked, "0");
    click(e->cmdOK);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("The checked value or the unchecked value can't both be zero"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(e->isVisible());
}

TEST_F(FlagList, TextThatIsNoNumberShowsAsZeroWhenRefused) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    typeNumber(e->cboChecked, "lots");
    typeNumber(e->cboUnchecked, "none");
    click(e->cmdOK);
    EXPECT_EQ(prompts.last().text, QString("The checked value or the unchecked value can't both be zero"));
    EXPECT_EQ(e->cboChecked->currentText(), QString("0"));
    EXPECT_EQ(e->cboUnchecked->currentText(), QString("0"));
}

TEST_F(FlagList, ANumberTypedKeyByKeyStaysAsTypedAndNeedNotBeAPowerOfTwo) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    click(e->cboChecked->lineEdit());
    e->cboChecked->lineEdit()->selectAll();
    QTest::keyClick(e->cboChecked->lineEdit(), Qt::Key_Delete);
    QTest::keyClicks(e->cboChecked->lineEdit(), "12");
    EXPECT_EQ(e->cboChecked->currentText(), QString("12")); // not completed to "128"
    QTest::keyClick(e->cboChecked->lineEdit(), Qt::Key_Tab);
    EXPECT_EQ(e->cboChecked->currentText(), QString("12"));
    click(e->cmdOK);
    EXPECT_TRUE(prompts.calls().empty());
    auto expected = kSample;
    expected[6] = "<DMFlags>\t12\t0\tWeapons stay where they are";
    EXPECT_EQ(savedAfter(*form), crlf(expected));
}

TEST_F(FlagList, EnterInANumberDropDownAddsNothingToItsList) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    typeNumber(e->cboChecked, "12");
    QTest::keyClick(e->cboChecked->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(e->cboChecked->count(), 27);
    EXPECT_EQ(e->cboChecked->currentText(), QString("12"));
}

TEST_F(FlagList, AnOwnBitmapTypedKeyByKeyStaysAsTyped) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    typeNumber(e->cboBitmap, "<DM");
    QTest::keyClick(e->cboBitmap->lineEdit(), Qt::Key_Tab);
    EXPECT_EQ(e->cboBitmap->currentText(), QString("<DM"));
}

TEST_F(FlagList, NumbersBeyondTheIntegerRangeAreRefusedWithoutACrash) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    typeNumber(e->cboChecked, "99999999999");
    typeNumber(e->cboUnchecked, "0");
    click(e->cmdOK);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text,
              QString("The checked and unchecked values must each lie between -2147483648 and 2147483647."));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(e->isVisible());
    typeNumber(e->cboChecked, "1e300");
    click(e->cmdOK);
    EXPECT_EQ(prompts.calls().size(), 2u);
    EXPECT_TRUE(e->isVisible());
}

TEST_F(FlagList, AFlagWhoseThirdLineIsEmptyLoadsEmptyAndSavesThreeTabs) {
    ws.writeLines(kFile, {"[Items]", "Bare Flag", "", ""});
    auto form = open();
    const QTreeWidgetItem* row = form->lvFlags->topLevelItem(1);
    for (int column = 1; column < 5; ++column)
        EXPECT_EQ(row->text(column), QString("")) << column;
    EXPECT_EQ(savedAfter(*form), crlf({"[Items]", "Bare Flag", "", "\t\t\t"}));
}

TEST_F(FlagList, AHelpTextHoldingATabLosesThePartAfterItOnReload) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    // A TAB reaches the help text when a text holding one is pasted.
    QApplication::clipboard()->setText("before\tafter");
    typeInto(e->txtHelp, "");
    QTest::keyClick(e->txtHelp, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(e->txtHelp->text(), QString("before\tafter"));
    click(e->cmdOK);
    auto expected = kSample;
    expected[6] = "<DMFlags>\t4\t0\tbefore\tafter";
    EXPECT_EQ(savedAfter(*form), crlf(expected));
    auto reopened = open();
    EXPECT_EQ(reopened->lvFlags->topLevelItem(2)->text(4), QString("before"));
    click(reopened->cmdOK);
    // Saved again, the part after the TAB is gone for good.
    expected[6] = "<DMFlags>\t4\t0\tbefore";
    EXPECT_EQ(ws.read(kFile), crlf(expected));
}

TEST_F(FlagList, F2ZoomTitlesOfNameAndHelp) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    for (const auto& [box, title] :
         {std::pair<QLineEdit*, QString>{e->txtFlagName, "Deathmatch Flag Name"},
          std::pair<QLineEdit*, QString>{e->txtHelp, "Deathmatch Flag Help Text"}}) {
        QString caption;
        ModalDriver driver([&](QDialog* d) {
            caption = d->windowTitle();
            d->reject();
        });
        box->setFocus();
        QTest::keyClick(box, Qt::Key_F2);
        ASSERT_TRUE(driver.acted());
        EXPECT_EQ(caption, title);
    }
}

TEST_F(FlagList, EditorCancelLeavesTheRow) {
    auto form = open();
    auto* e = edit(*form, false, 3);
    typeInto(e->txtFlagName, "Renamed");
    click(e->cmdCancel);
    EXPECT_EQ(form->lvFlags->topLevelItem(2)->text(0), QString("Weapons Stay"));
}

TEST_F(FlagList, MovesReorderTheRows) {
    auto form = open();
    clickRow(form->lvFlags, 4);
    QTest::keyClick(form->lvFlags, Qt::Key_U, Qt::ControlModifier);
    popupCommand(form->lvFlags, form->mnuPopup, 0, form->mnuPopupMoveDown);
    const std::vector<std::string> expected = {kSample[1], kSample[2],  kSample[3], kSample[0],
                                               kSample[4], kSample[5],  kSample[6], kSample[8],
                                               kSample[9], kSample[10], kSample[7]};
    EXPECT_EQ(savedAfter(*form), crlf(expected));
}

TEST_F(FlagList, CancelAfterSeveralEditsLeavesTheFileByteForByte) {
    auto form = open();
    const std::string before = ws.read(kFile);
    prompts.answer(PromptAnswer::Yes);
    prompts.answerInput(QString("New"));
    clickRow(form->lvFlags, 1);
    QTest::keyClick(form->lvFlags, Qt::Key_Delete);
    form->mnuPopupCategoryNew->trigger();
    QTest::keyClick(form->lvFlags, Qt::Key_D, Qt::ControlModifier);
    ModalDriver driver([](QDialog* d) {
        auto* e = qobject_cast<frmEditDMflag*>(d);
        typeInto(e->txtFlagName, "Changed");
        click(e->cmdOK);
    });
    doubleClickRow(form->lvFlags, 1);
    ASSERT_TRUE(driver.acted());
    click(form->cmdCancel);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(ws.read(kFile), before);
}

TEST_F(FlagList, LoadedAndSavedWithoutEditsComesBackByteForByte) {
    const std::string bytes = crlf(
        {"[Objets \xE0 ramasser]", "Sant\xE9", "", "<Mine>\t 1 \t0\taide\x9D", "Two", "", "\t\t\t", "[]"});
    ws.write(kFile, bytes);
    auto form = open();
    EXPECT_EQ(savedAfter(*form), crlf({"[Objets \xE0 ramasser]", "Sant\xE9", "", "<Mine>\t 1 \t0\taide\x9D",
                                       "Two", "", "\t\t\t", "[]]"}));
    ws.write(kFile, crlf(kSample));
    auto again = open();
    EXPECT_EQ(savedAfter(*again), crlf(kSample));
}

TEST_F(FlagList, DamagedFlagFileOpensWithWhatCanBeRead) {
    ws.write(kFile, "[Items]\nNo Health\n\n<DMFlags>\t1\nCut Short");
    auto form = open();
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(columnTexts(form->lvFlags), (QStringList{"Items", "No Health", "Cut Short"}));
    EXPECT_EQ(savedAfter(*form),
              crlf({"[Items]", "No Health", "", "<DMFlags>\t1\t\t", "Cut Short", "", "\t\t\t"}));
}

} // namespace dmflags_screens_test
