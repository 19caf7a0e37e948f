// Value and text lists on screen: the list chooser (frmChooseList), the list editor (frmEditList)
// and the item editor (frmEditItem), checked on the bytes of the list files.

#include "definitions/screens/frmChooseList.h"
#include "definitions/screens/frmEditItem.h"
#include "definitions/screens/frmEditList.h"
#include "tests/definitions/screens/screen_steps.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

namespace lists_screens_test {

using namespace rd;
using namespace rd::test;

class Lists : public ::testing::Test {
protected:
    void SetUp() override {
        ws.writeLines("Game-Paths/Quake2/weapons.val", {"Blaster", "1", "Railgun", "9"});
        ws.writeLines("Game-Paths/Quake2/skill.val", {"Easy", "0", "Hard"});
        ws.writeLines("Game-Paths/Quake2/maps.lst", {"q2dm1", "q2dm2", "base1"});
        ws.write("Game-Paths/Quake2/notes.txt", "not a list");
        ws.writeLines("Game-Paths/shared.lst", {"one"});
    }
    std::unique_ptr<frmChooseList> chooser(const std::string& game, bool valueList) {
        auto form = std::make_unique<frmChooseList>(ws.root(), game, valueList, &field);
        EXPECT_TRUE(showActive(form.get()));
        return form;
    }
    std::unique_ptr<frmEditList> listEditor(const std::string& file, bool valueList) {
        auto form = std::make_unique<frmEditList>(ws.path("Game-Paths/Quake2"), file, valueList);
        EXPECT_TRUE(showActive(form.get()));
        return form;
    }
    static QStringList files(const frmChooseList& form) {
        QStringList out;
        for (int i = 0; i < form.File1->count(); ++i)
            out << form.File1->item(i)->text();
        return out;
    }
    static void selectFile(frmChooseList& form, const QString& name) {
        const auto found = form.File1->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1);
        const QRect rect = form.File1->visualItemRect(found.first());
        QTest::mouseClick(form.File1->viewport(), Qt::LeftButton, {}, rect.center());
    }

    TempWorkspace ws;
    PromptRecorder prompts;
    QLineEdit field;
};

// Fills the item editor and presses OK.
void fillItem(QDialog* dialog, const QString& text, const QString& value = QString()) {
    auto* item = qobject_cast<frmEditItem*>(dialog);
    ASSERT_NE(item, nullptr);
    ASSERT_TRUE(makeActive(item));
    typeInto(item->txtText, text);
    if (item->txtValue->isVisible())
        typeInto(item->txtValue, value);
    click(item->cmdOK);
}

TEST_F(Lists, ChooserShowsTheGamesValueListsUnderItsTitle) {
    auto form = chooser("Quake2", true);
    EXPECT_EQ(form->objectName(), QString("frmChooseList"));
    EXPECT_EQ(form->windowTitle(), QString("Choose a Quake2 Value List"));
    EXPECT_EQ(files(*form), (QStringList{"skill.val", "weapons.val"}));
    EXPECT_EQ(form->cmdNew->text(), QString("&New"));
    EXPECT_EQ(form->cmdNew->toolTip(), QString("Create a new list"));
    EXPECT_EQ(form->cmdEdit->text(), QString("&Edit"));
    EXPECT_EQ(form->cmdEdit->toolTip(), QString("Edit currently selected list"));
    EXPECT_EQ(form->cmdOK->text(), QString("&OK"));
    EXPECT_EQ(form->cmdCancel->text(), QString("&Cancel"));
    EXPECT_FALSE(form->File1->accessibleName().isEmpty());
}

TEST_F(Lists, ChooserForTextListsShowsTheTextLists) {
    auto form = chooser("Quake2", false);
    EXPECT_EQ(form->windowTitle(), QString("Choose a Quake2 Text List"));
    EXPECT_EQ(files(*form), (QStringList{"maps.lst"}));
}

TEST_F(Lists, AnEmptyGameNameUsesTheGamePathsFolderItself) {
    auto form = chooser("", false);
    EXPECT_EQ(form->windowTitle(), QString("Choose a  Text List"));
    EXPECT_EQ(files(*form), (QStringList{"shared.lst"}));
}

TEST_F(Lists, OKWritesTheChosenFileNameIntoTheField) {
    field.setText("old.val");
    auto form = chooser("Quake2", true);
    selectFile(*form, "weapons.val");
    click(form->cmdOK);
    EXPECT_EQ(field.text(), QString("weapons.val"));
    EXPECT_FALSE(form->isVisible());
}

TEST_F(Lists, DoubleClickOnAFileChoosesIt) {
    auto form = chooser("Quake2", true);
    const QRect rect = form->File1->visualItemRect(form->File1->item(0));
    QTest::mouseClick(form->File1->viewport(), Qt::LeftButton, {}, rect.center());
    QTest::mouseDClick(form->File1->viewport(), Qt::LeftButton, {}, rect.center());
    EXPECT_EQ(field.text(), QString("skill.val"));
    EXPECT_FALSE(form->isVisible());
}

TEST_F(Lists, OKWithNothingSelectedClosesAndLeavesTheField) {
    field.setText("kept.val");
    auto form = chooser("Quake2", true);
    click(form->cmdOK);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(field.text(), QString("kept.val"));
}

TEST_F(Lists, CancelLeavesTheField) {
    field.setText("kept.val");
    auto form = chooser("Quake2", true);
    selectFile(*form, "weapons.val");
    click(form->cmdCancel);
    EXPECT_EQ(field.text(), QString("kept.val"));
}

TEST_F(Lists, ANewValueListTypedAsWeaponsValBecomesWeaponsValVal) {
    auto form = chooser("Quake2", true);
    prompts.answerInput(QString("weapons.val"));
    QString title;
    bool valueKind = false;
    ModalDriver driver([&](QDialog* d) {
        auto* editor = qobject_cast<frmEditList*>(d);
        ASSERT_NE(editor, nullptr);
        title = editor->windowTitle();
        valueKind = editor->optType[0]->isChecked();
        EXPECT_EQ(editor->lvList->topLevelItemCount(), 0);
        ModalDriver item([](QDialog* i) { fillItem(i, "Rocket Launcher", "7"); });
        editor->lvList->setFocus();
        QTest::keyClick(editor->lvList, Qt::Key_Insert);
        EXPECT_TRUE(item.acted());
        click(editor->cmdOK);
    });
    click(form->cmdNew);
    ASSERT_TRUE(driver.acted());
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Type in name for new list"));
    EXPECT_EQ(title, QString("Edit List"));
    EXPECT_TRUE(valueKind);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/weapons.val.val"), crlf({"Rocket Launcher", "7"}));
    EXPECT_EQ(ws.read("Game-Paths/Quake2/weapons.val"), crlf({"Blaster", "1", "Railgun", "9"}));
    // The file list is read again and shows the new list, selected.
    EXPECT_EQ(files(*form), (QStringList{"skill.val", "weapons.val", "weapons.val.val"}));
    EXPECT_EQ(form->File1->currentItem()->text(), QString("weapons.val.val"));
}

TEST_F(Lists, ANewTextListGetsTheLstExtension) {
    auto form = chooser("Quake2", false);
    prompts.answerInput(QString("ctf"));
    ModalDriver driver([&](QDialog* d) {
        auto* editor = qobject_cast<frmEditList*>(d);
        EXPECT_TRUE(editor->optType[1]->isChecked());
        ModalDriver item([](QDialog* i) { fillItem(i, "q2ctf1"); });
        editor->lvList->setFocus();
        QTest::keyClick(editor->lvList, Qt::Key_Insert);
        click(editor->cmdOK);
    });
    click(form->cmdNew);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(ws.read("Game-Paths/Quake2/ctf.lst"), crlf({"q2ctf1"}));
}

TEST_F(Lists, ANewListThatAlreadyExistsIsRefused) {
    auto form = chooser("Quake2", false);
    prompts.answerInput(QString("MAPS"));
    ModalDriver driver([](QDialog* d) { d->reject(); }, 1500);
    click(form->cmdNew);
    EXPECT_FALSE(driver.acted());
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().text, QString("A list already exists with this name"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
}

TEST_F(Lists, ListNamesThatCannotNameAFileAreRefusedBeforeAnythingIsTouched) {
    auto form = chooser("Quake2", true);
    ModalDriver driver([](QDialog* d) { d->reject(); }, 1500);
    for (const QString& name : {QString("../escape"), QString("sub\\dir"), QString("."), QString("..")}) {
        prompts.clear();
        prompts.answerInput(name);
        click(form->cmdNew);
        ASSERT_EQ(prompts.calls().size(), 2u) << name.toStdString();
        EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
        EXPECT_FALSE(prompts.last().text.isEmpty());
    }
    EXPECT_FALSE(driver.acted());
    EXPECT_FALSE(ws.exists("Game-Paths/escape.val"));
    EXPECT_FALSE(ws.exists("Game-Paths/Quake2/...val"));
    EXPECT_EQ(files(*form), (QStringList{"skill.val", "weapons.val"}));
}

TEST_F(Lists, ANewListWithAnEmptyNameDoesNothing) {
    auto form = chooser("Quake2", true);
    prompts.answerInput(QString(""));
    prompts.answerInput(std::nullopt);
    ModalDriver driver([](QDialog* d) { d->reject(); }, 1500);
    click(form->cmdNew);
    click(form->cmdNew);
    EXPECT_FALSE(driver.acted());
    EXPECT_EQ(prompts.calls().size(), 2u);
}

TEST_F(Lists, EditOpensTheListEditorOnTheSelectedList) {
    auto form = chooser("Quake2", true);
    selectFile(*form, "weapons.val");
    QStringList items, values;
    ModalDriver driver([&](QDialog* d) {
        auto* editor = qobject_cast<frmEditList*>(d);
        items = columnTexts(editor->lvList, 0);
        values = columnTexts(editor->lvList, 1);
        editor->reject();
    });
    click(form->cmdEdit);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(items, (QStringList{"Blaster", "Railgun"}));
    EXPECT_EQ(values, (QStringList{"1", "9"}));
}

TEST_F(Lists, EditWithNothingSelectedDoesNothing) {
    auto form = chooser("Quake2", true);
    ModalDriver driver([](QDialog* d) { d->reject(); }, 1500);
    click(form->cmdEdit);
    EXPECT_FALSE(driver.acted());
}

TEST_F(Lists, AFileNamedXDotVALIsAValueList) {
    ws.writeLines("Game-Paths/Quake2/x.VAL", {"Shown", "42"});
    auto form = chooser("Quake2", true);
    ASSERT_EQ(files(*form), (QStringList{"skill.val", "weapons.val", "x.VAL"}));
    selectFile(*form, "x.VAL");
    bool valueKind = false;
    int columns = 0;
    QString value;
    ModalDriver driver([&](QDialog* d) {
        auto* editor = qobject_cast<frmEditList*>(d);
        valueKind = editor->optType[0]->isChecked();
        columns = editor->lvList->columnCount();
        value = editor->lvList->topLevelItem(0)->text(1);
        editor->reject();
    });
    click(form->cmdEdit);
    ASSERT_TRUE(driver.acted());
    EXPECT_TRUE(valueKind);
    EXPECT_EQ(columns, 2);
    EXPECT_EQ(value, QString("42"));
}

TEST_F(Lists, AValueListFileOfThreeLinesLoadsAsTwoItems) {
    auto form = listEditor("skill.val", true);
    EXPECT_EQ(columnTexts(form->lvList, 0), (QStringList{"Easy", "Hard"}));
    EXPECT_EQ(columnTexts(form->lvList, 1), (QStringList{"0", "Hard"}));
    click(form->cmdOK);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/skill.val"), crlf({"Easy", "0", "Hard", "Hard"}));
}

TEST_F(Lists, ListEditorShowsTheKindDisabledAndTheColumns) {
    auto values = listEditor("weapons.val", true);
    EXPECT_EQ(values->objectName(), QString("frmEditList"));
    EXPECT_EQ(values->windowTitle(), QString("Edit List"));
    EXPECT_EQ(values->fraType->title(), QString("Type of List"));
    EXPECT_EQ(values->optType[0]->text(), QString("Value"));
    EXPECT_EQ(values->optType[1]->text(), QString("&Text"));
    EXPECT_TRUE(values->optType[0]->isChecked());
    EXPECT_FALSE(values->optType[0]->isEnabled());
    EXPECT_FALSE(values->optType[1]->isEnabled());
    EXPECT_EQ(headerTexts(values->lvList), (QStringList{"Item", "Value"}));
    auto texts = listEditor("maps.lst", false);
    EXPECT_TRUE(texts->optType[1]->isChecked());
    EXPECT_FALSE(texts->optType[1]->isEnabled());
    EXPECT_EQ(headerTexts(texts->lvList), (QStringList{"Item"}));
    EXPECT_EQ(columnTexts(texts->lvList), (QStringList{"q2dm1", "q2dm2", "base1"}));
}

TEST_F(Lists, ListEditorPopupEntriesInOrderWithEditAsDefault) {
    auto form = listEditor("weapons.val", true);
    EXPECT_EQ(menuEntries(form->mnuPopup), (QStringList{"&Edit", "-", "Add &Before", "Add &After", "-",
                                                        "Move &Up", "&Move Down", "-", "&Delete"}));
    EXPECT_EQ(menuNames(form->mnuPopup),
              (QStringList{"mnuPopupedit", "mnuPopupAdd_0", "mnuPopupAdd_1", "mnuPopupMoveUp",
                           "mnuPopupMoveDown", "mnuPopupDelete"}));
    EXPECT_EQ(form->mnuPopup->defaultAction(), form->mnuPopupedit);
}

TEST_F(Lists, AddBeforeAndAddAfterPlaceTheNewItemAroundTheSelection) {
    auto form = listEditor("maps.lst", false);
    {
        ModalDriver driver([](QDialog* d) { fillItem(d, "before2"); });
        popupCommand(form->lvList, form->mnuPopup, 1, form->mnuPopupAdd[0]);
        ASSERT_TRUE(driver.acted());
    }
    {
        ModalDriver driver([](QDialog* d) { fillItem(d, "after1"); });
        popupCommand(form->lvList, form->mnuPopup, 0, form->mnuPopupAdd[1]);
        ASSERT_TRUE(driver.acted());
    }
    {
        ModalDriver driver([](QDialog* d) { fillItem(d, "last"); });
        popupCommand(form->lvList, form->mnuPopup, 4, form->mnuPopupAdd[1]);
        ASSERT_TRUE(driver.acted());
    }
    click(form->cmdOK);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/maps.lst"),
              crlf({"q2dm1", "after1", "before2", "q2dm2", "base1", "last"}));
}

TEST_F(Lists, AddWithNothingSelectedAppendsTheItem) {
    auto form = listEditor("weapons.val", true);
    ModalDriver driver([](QDialog* d) { fillItem(d, "BFG10K", "0"); });
    form->mnuPopupAdd[0]->trigger();
    ASSERT_TRUE(driver.acted());
    click(form->cmdOK);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/weapons.val"),
              crlf({"Blaster", "1", "Railgun", "9", "BFG10K", "0"}));
}

TEST_F(Lists, EditAndDoubleClickOpenTheItemEditorOnTheSelectedItem) {
    auto form = listEditor("weapons.val", true);
    QString text, value, title;
    ModalDriver first([&](QDialog* d) {
        auto* item = qobject_cast<frmEditItem*>(d);
        title = item->windowTitle();
        text = item->txtText->text();
        value = item->txtValue->text();
        typeInto(item->txtValue, "10");
        click(item->cmdOK);
    });
    doubleClickRow(form->lvList, 1);
    ASSERT_TRUE(first.acted());
    EXPECT_EQ(title, QString("Edit List Item"));
    EXPECT_EQ(text, QString("Railgun"));
    EXPECT_EQ(value, QString("9"));
    ModalDriver second([](QDialog* d) { fillItem(d, "Blaster (default)", "1"); });
    clickRow(form->lvList, 0);
    QTest::keyClick(form->lvList, Qt::Key_Return);
    ASSERT_TRUE(second.acted());
    click(form->cmdOK);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/weapons.val"), crlf({"Blaster (default)", "1", "Railgun", "10"}));
}

TEST_F(Lists, DeleteRemovesTheItemWithoutAsking) {
    auto form = listEditor("maps.lst", false);
    clickRow(form->lvList, 1);
    QTest::keyClick(form->lvList, Qt::Key_Delete);
    popupCommand(form->lvList, form->mnuPopup, 0, form->mnuPopupDelete);
    EXPECT_TRUE(prompts.calls().empty());
    click(form->cmdOK);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/maps.lst"), crlf({"base1"}));
}

TEST_F(Lists, MovesReorderTheItems) {
    auto form = listEditor("weapons.val", true);
    clickRow(form->lvList, 1);
    QTest::keyClick(form->lvList, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(columnTexts(form->lvList, 1), (QStringList{"9", "1"}));
    popupCommand(form->lvList, form->mnuPopup, 0, form->mnuPopupMoveDown);
    popupCommand(form->lvList, form->mnuPopup, 0, form->mnuPopupMoveUp); // first row: nothing
    QTest::keyClick(form->lvList, Qt::Key_D, Qt::ControlModifier);
    click(form->cmdOK);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/weapons.val"), crlf({"Railgun", "9", "Blaster", "1"}));
}

TEST_F(Lists, EmptyingAListAndPressingOKLeavesTheOldFileUnchanged) {
    auto form = listEditor("maps.lst", false);
    const std::string before = ws.read("Game-Paths/Quake2/maps.lst");
    clickRow(form->lvList, 0);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(form->lvList, Qt::Key_Delete);
    ASSERT_EQ(form->lvList->topLevelItemCount(), 0);
    click(form->cmdOK);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(ws.read("Game-Paths/Quake2/maps.lst"), before);
}

TEST_F(Lists, CancelInTheListEditorLeavesTheFileByteForByte) {
    auto form = listEditor("weapons.val", true);
    const std::string before = ws.read("Game-Paths/Quake2/weapons.val");
    clickRow(form->lvList, 0);
    QTest::keyClick(form->lvList, Qt::Key_Delete);
    ModalDriver driver([](QDialog* d) { fillItem(d, "x", "y"); });
    QTest::keyClick(form->lvList, Qt::Key_Insert);
    ASSERT_TRUE(driver.acted());
    click(form->cmdCancel);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/weapons.val"), before);
}

TEST_F(Lists, AListLoadedAndSavedWithoutEditsComesBackByteForByte) {
    const std::string bytes = crlf({" Spaced ", "\xE9l\xE9ment", "", "\x81\x8D"});
    ws.write("Game-Paths/Quake2/odd.val", bytes);
    auto form = listEditor("odd.val", true);
    click(form->cmdOK);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/odd.val"), bytes);
}

TEST_F(Lists, ItemEditorHidesTheValueForATextList) {
    QTreeWidget view;
    view.setColumnCount(1);
    frmEditItem item(&view, true, 0, false);
    ASSERT_TRUE(showActive(&item));
    EXPECT_EQ(item.objectName(), QString("frmEditItem"));
    EXPECT_EQ(item.lblText->text(), QString("Text to Display in List:"));
    EXPECT_EQ(item.lblValue->text(), QString("Actual Value of Item:"));
    EXPECT_EQ(item.lblText->buddy(), item.txtText);
    EXPECT_FALSE(item.txtValue->isVisible());
    EXPECT_FALSE(item.lblValue->isVisible());
    frmEditItem valueItem(&view, true, 0, true);
    ASSERT_TRUE(showActive(&valueItem));
    EXPECT_TRUE(valueItem.txtValue->isVisible());
    EXPECT_TRUE(valueItem.lblValue->isVisible());
    EXPECT_EQ(valueItem.cmdOK->text(), QString("&OK"));
    EXPECT_EQ(valueItem.cmdCancel->text(), QString("&Cancel"));
}

TEST_F(Lists, ItemEditorCancelChangesNothing) {
    auto form = listEditor("maps.lst", false);
    ModalDriver driver([](QDialog* d) {
        auto* item = qobject_cast<frmEditItem*>(d);
        typeInto(item->txtText, "changed");
        click(item->cmdCancel);
    });
    doubleClickRow(form->lvList, 0);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(columnTexts(form->lvList), (QStringList{"q2dm1", "q2dm2", "base1"}));
}

TEST_F(Lists, F2ZoomsBothItemFields) {
    QTreeWidget view;
    view.setColumnCount(2);
    frmEditItem item(&view, true, 0, true);
    ASSERT_TRUE(showActive(&item));
    for (QLineEdit* box : {item.txtText, item.txtValue}) {
        QString caption;
        ModalDriver driver([&](QDialog* d) {
            caption = d->windowTitle();
            QTest::keyClicks(d->findChild<QPlainTextEdit*>("txtText"), "zoomed");
            click(d->findChild<QPushButton*>("cmdOK"));
        });
        box->setFocus();
        QTest::keyClick(box, Qt::Key_F2);
        ASSERT_TRUE(driver.acted());
        EXPECT_EQ(caption, QString("Zoom"));
        EXPECT_EQ(box->text(), QString("zoomed"));
    }
}

} // namespace lists_screens_test
