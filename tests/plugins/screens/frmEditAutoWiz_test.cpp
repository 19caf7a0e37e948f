// The AutoExec wizard command editor and its command dialog.

#include "core/screens/frmZoom.h"
#include "core/screens/help.h"
#include "plugins/screens/frmEditAutoWiz.h"
#include "plugins/screens/frmEditWiz.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace frmEditAutoWiz_test {

using namespace rd;
using rd::test::crlf;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

const std::vector<std::string> kOwn = {"set deathmatch 1", "Play deathmatch rules",
                                       "set fraglimit 25", "End at 25 frags",
                                       "bot_num 6",        "Number of bots"};

// The rows as "command|description".
QStringList rows(const QTreeWidget* view) {
    QStringList out;
    for (int i = 0; i < view->topLevelItemCount(); ++i)
        out << view->topLevelItem(i)->text(0) + "|" + view->topLevelItem(i)->text(1);
    return out;
}

struct Editor {
    explicit Editor(const TempWorkspace& ws, const std::string& bot = "Eraser") : form(ws.root(), bot) {
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&form));
    }
    frmEditAutoWiz form;
};

void selectRow(QTreeWidget* view, int row) {
    view->setCurrentItem(view->topLevelItem(row));
}

// Answers the command dialog with the two texts typed in and OK.
ModalDriver typeIntoCommandDialog(const QString& command, const QString& description,
                                  QString* caption = nullptr, QStringList* shown = nullptr) {
    return ModalDriver([=](QDialog* dialog) {
        auto* wiz = qobject_cast<frmEditWiz*>(dialog);
        ASSERT_NE(wiz, nullptr);
        if (caption)
            *caption = wiz->windowTitle();
        if (shown)
            *shown = {wiz->txtCommand->text(), wiz->txtDescription->text()};
        for (auto [box, text] :
             {std::pair{wiz->txtCommand, command}, std::pair{wiz->txtDescription, description}}) {
            box->selectAll();
            QTest::keyClick(box, Qt::Key_Delete);
            QTest::keyClicks(box, text);
        }
        QTest::mouseClick(wiz->cmdOK, Qt::LeftButton);
    });
}

TEST(AutoExecWizardEditor, CaptionColumnsMenuAndOwnListAreShown) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    PromptRecorder prompts;
    Editor e(ws);
    auto& f = e.form;
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(f.windowTitle(), QString("Eraser : Editing AutoExec Wizard Commands"));
    EXPECT_EQ(f.lvCommands->headerItem()->text(0), QString("Command"));
    EXPECT_EQ(f.lvCommands->headerItem()->text(1), QString("Description"));
    EXPECT_EQ(f.Label1->text(), QString("Right click a command for options"));
    EXPECT_EQ(f.cmdOK->text(), QString("&OK"));
    EXPECT_EQ(f.cmdCancel->text(), QString("&Cancel"));
    QStringList menu;
    for (QAction* a : f.mnuPopup->actions())
        menu << a->objectName() + "=" + a->text();
    EXPECT_EQ(menu, (QStringList{"mnuPopupEdit=&Edit", "mnuPopupAdd=&Add", "mnuPopupMoveUp=Move &Up",
                                 "mnuPopupMoveDown=&Move Down", "mnuPopupDelete=&Delete"}));
    EXPECT_EQ(f.mnuPopup->defaultAction(), f.mnuPopupEdit);
    EXPECT_EQ(rows(f.lvCommands),
              (QStringList{"set deathmatch 1|Play deathmatch rules", "set fraglimit 25|End at 25 frags",
                           "bot_num 6|Number of bots"}));
    EXPECT_FALSE(f.lvCommands->accessibleName().isEmpty());
}

TEST(AutoExecWizardEditor, AnOddNumberOfLinesGivesAnEmptyLastDescriptionSavedAsALine) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", {"one", "first", "two"});
    Editor e(ws);
    EXPECT_EQ(rows(e.form.lvCommands), (QStringList{"one|first", "two|"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(e.form.isVisible());
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ExecCommands.cfg"), crlf({"one", "first", "two", ""}));
}

TEST(AutoExecWizardEditor, WithoutItsOwnListAYesBringsTheGamesListAndOkMakesItTheBotsOwn) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2", "Eraser"});
    ws.writeLines("Game-Paths/Quake2/ExecCommands.cfg",
                  {"set maxclients 16", "Room for 16", "set sv_gravity 800", "Normal gravity"});
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    Editor e(ws);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text,
              QString("There is no AutoExec Wizard commands list for this specific bot Would you "
                      "like to use the one from the default folder?"));
    EXPECT_EQ(prompts.last().buttons, PromptButtons::YesNo);
    EXPECT_EQ(prompts.last().icon, PromptIcon::Information);
    EXPECT_EQ(prompts.last().title, QString("Eraser"));
    EXPECT_EQ(rows(e.form.lvCommands),
              (QStringList{"set maxclients 16|Room for 16", "set sv_gravity 800|Normal gravity"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ExecCommands.cfg"), ws.read("Game-Paths/Quake2/ExecCommands.cfg"));
}

TEST(AutoExecWizardEditor, WithoutItsOwnListANoOpensAnEmptyList) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2"});
    ws.writeLines("Game-Paths/Quake2/ExecCommands.cfg", {"a", "b"});
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::No);
    Editor e(ws);
    EXPECT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(e.form.lvCommands->topLevelItemCount(), 0);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(ws.exists("Plug-Ins/Eraser/ExecCommands.cfg"));
}

TEST(AutoExecWizardEditor, WithoutSetupCfgTheStartFromScratchMessageAndAnEmptyList) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Eraser");
    ws.writeLines("Game-Paths/Quake2/ExecCommands.cfg", {"a", "b"});
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    Editor e(ws);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(
        prompts.last().text,
        QString(
            "Oh.  You don't seem to have one of those either.  Sorry, you'll have to start from scratch"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(e.form.lvCommands->topLevelItemCount(), 0);
}

TEST(AutoExecWizardEditor, ASetupCfgWithAnEmptyFirstLineAlsoStartsFromScratch) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"", "Eraser"});
    ws.writeLines("Game-Paths/Quake2/ExecCommands.cfg", {"a", "b"});
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    Editor e(ws);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_TRUE(prompts.last().text.startsWith("Oh.  You don't seem to have one of those either."));
    EXPECT_EQ(e.form.lvCommands->topLevelItemCount(), 0);
}

TEST(AutoExecWizardEditor, AddingWithTheThirdRowSelectedInsertsTheFourthRow) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", {"a", "1", "b", "2", "c", "3", "d", "4"});
    Editor e(ws);
    selectRow(e.form.lvCommands, 2);
    QString caption;
    QStringList shown;
    ModalDriver driver = typeIntoCommandDialog("new", "fresh", &caption, &shown);
    QTest::keyClick(e.form.lvCommands, Qt::Key_Insert);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(caption, QString("Add New Command to the Wizard"));
    EXPECT_EQ(shown, (QStringList{"", ""}));
    EXPECT_EQ(rows(e.form.lvCommands), (QStringList{"a|1", "b|2", "c|3", "new|fresh", "d|4"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ExecCommands.cfg"),
              crlf({"a", "1", "b", "2", "c", "3", "new", "fresh", "d", "4"}));
}

TEST(AutoExecWizardEditor, AddingWithNothingSelectedAppends) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", {"a", "1", "b", "2"});
    Editor e(ws);
    e.form.lvCommands->clearSelection();
    ModalDriver driver = typeIntoCommandDialog("z", "");
    e.form.mnuPopupAdd->trigger();
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(rows(e.form.lvCommands), (QStringList{"a|1", "b|2", "z|"}));
}

TEST(AutoExecWizardEditor, EnterAndDoubleClickEditTheSelectedRow) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    Editor e(ws);
    auto& f = e.form;
    selectRow(f.lvCommands, 1);
    QString caption;
    QStringList shown;
    {
        ModalDriver driver = typeIntoCommandDialog("set fraglimit 30", "End at 30 frags", &caption, &shown);
        QTest::keyClick(f.lvCommands, Qt::Key_Return);
        ASSERT_TRUE(driver.acted());
    }
    EXPECT_EQ(caption, QString("Edit AutoExec Wizard"));
    EXPECT_EQ(shown, (QStringList{"set fraglimit 25", "End at 25 frags"}));
    EXPECT_EQ(f.lvCommands->topLevelItem(1)->text(0), QString("set fraglimit 30"));
    EXPECT_EQ(f.lvCommands->topLevelItem(1)->text(1), QString("End at 30 frags"));
    {
        ModalDriver driver = typeIntoCommandDialog("bot_num 8", "", nullptr, &shown);
        const QRect rect = f.lvCommands->visualItemRect(f.lvCommands->topLevelItem(2));
        QTest::mouseClick(f.lvCommands->viewport(), Qt::LeftButton, {}, rect.center());
        QTest::mouseDClick(f.lvCommands->viewport(), Qt::LeftButton, {}, rect.center());
        ASSERT_TRUE(driver.acted());
    }
    EXPECT_EQ(shown, (QStringList{"bot_num 6", "Number of bots"}));
    EXPECT_EQ(f.lvCommands->topLevelItem(2)->text(0), QString("bot_num 8"));
    EXPECT_EQ(f.lvCommands->topLevelItem(2)->text(1), QString("")); // empty texts are accepted
    QTest::mouseClick(f.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ExecCommands.cfg"),
              crlf({"set deathmatch 1", "Play deathmatch rules", "set fraglimit 30", "End at 30 frags",
                    "bot_num 8", ""}));
}

TEST(AutoExecWizardEditor, CancellingTheCommandDialogChangesNothing) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    Editor e(ws);
    selectRow(e.form.lvCommands, 0);
    ModalDriver driver([](QDialog* dialog) {
        auto* wiz = qobject_cast<frmEditWiz*>(dialog);
        QTest::keyClicks(wiz->txtCommand, "changed");
        QTest::mouseClick(wiz->cmdCancel, Qt::LeftButton);
    });
    e.form.mnuPopupEdit->trigger();
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(e.form.lvCommands->topLevelItem(0)->text(0), QString("set deathmatch 1"));
    ModalDriver adding([](QDialog* dialog) { qobject_cast<frmEditWiz*>(dialog)->cmdCancel->click(); });
    e.form.mnuPopupAdd->trigger();
    EXPECT_EQ(e.form.lvCommands->topLevelItemCount(), 3);
}

TEST(AutoExecWizardEditor, CtrlUOnTheFirstRowAndCtrlDOnTheLastChangeNothing) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    Editor e(ws);
    auto& f = e.form;
    const QStringList before = rows(f.lvCommands);
    f.lvCommands->setFocus();
    selectRow(f.lvCommands, 0);
    QTest::keyClick(f.lvCommands, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(rows(f.lvCommands), before);
    EXPECT_EQ(f.lvCommands->currentItem(), f.lvCommands->topLevelItem(0));
    selectRow(f.lvCommands, 2);
    QTest::keyClick(f.lvCommands, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(rows(f.lvCommands), before);
    EXPECT_EQ(f.lvCommands->currentItem(), f.lvCommands->topLevelItem(2));
}

TEST(AutoExecWizardEditor, MovingARowTakesTheSelectionWithIt) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    Editor e(ws);
    auto& f = e.form;
    f.lvCommands->setFocus();
    selectRow(f.lvCommands, 2);
    QTest::keyClick(f.lvCommands, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(rows(f.lvCommands),
              (QStringList{"set deathmatch 1|Play deathmatch rules", "bot_num 6|Number of bots",
                           "set fraglimit 25|End at 25 frags"}));
    EXPECT_EQ(f.lvCommands->currentItem(), f.lvCommands->topLevelItem(1));
    f.mnuPopupMoveUp->trigger();
    f.mnuPopupMoveDown->trigger();
    f.mnuPopupMoveDown->trigger();
    EXPECT_EQ(rows(f.lvCommands).last(), QString("bot_num 6|Number of bots"));
    QTest::mouseClick(f.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ExecCommands.cfg"),
              crlf({"set deathmatch 1", "Play deathmatch rules", "set fraglimit 25", "End at 25 frags",
                    "bot_num 6", "Number of bots"}));
}

TEST(AutoExecWizardEditor, DeleteAsksWithTheCommandAsTitleAndOnlyYesRemoves) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    Editor e(ws);
    auto& f = e.form;
    selectRow(f.lvCommands, 1);
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::No);
    prompts.answer(PromptAnswer::Yes);
    QTest::keyClick(f.lvCommands, Qt::Key_Delete);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Delete this item, are you sure?"));
    EXPECT_EQ(prompts.last().title, QString("set fraglimit 25"));
    EXPECT_EQ(prompts.last().buttons, PromptButtons::YesNo);
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(f.lvCommands->topLevelItemCount(), 3);
    f.mnuPopupDelete->trigger();
    EXPECT_EQ(rows(f.lvCommands),
              (QStringList{"set deathmatch 1|Play deathmatch rules", "bot_num 6|Number of bots"}));
}

TEST(AutoExecWizardEditor, DeletingEveryRowAndOkLeavesTheOldFileUnchanged) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    Editor e(ws);
    auto& f = e.form;
    PromptRecorder prompts; // every question answered Yes
    while (f.lvCommands->topLevelItemCount() > 0) {
        selectRow(f.lvCommands, 0);
        f.mnuPopupDelete->trigger();
    }
    EXPECT_EQ(prompts.calls().size(), 3u);
    QTest::mouseClick(f.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ExecCommands.cfg"), crlf(kOwn));
}

TEST(AutoExecWizardEditor, CancelAfterEditsLeavesTheFileUntouched) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    Editor e(ws);
    auto& f = e.form;
    PromptRecorder prompts;
    selectRow(f.lvCommands, 0);
    f.mnuPopupDelete->trigger();
    selectRow(f.lvCommands, 1);
    f.mnuPopupMoveUp->trigger();
    f.lvCommands_ColumnClick(1);
    QTest::mouseClick(f.cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ExecCommands.cfg"), crlf(kOwn));
}

TEST(AutoExecWizardEditor, AHeaderClickSortsByThatColumnAndAMoveSwitchesSortingOff) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", {"c", "2", "a", "3", "b", "1"});
    Editor e(ws);
    auto& f = e.form;
    QHeaderView* header = f.lvCommands->header();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(1) + 5, header->height() / 2));
    EXPECT_EQ(rows(f.lvCommands), (QStringList{"b|1", "c|2", "a|3"}));
    EXPECT_TRUE(f.lvCommands->isSortingEnabled());
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(0) + 5, header->height() / 2));
    EXPECT_EQ(rows(f.lvCommands), (QStringList{"a|3", "b|1", "c|2"}));
    // A second click on the same column keeps the direction.
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(0) + 5, header->height() / 2));
    EXPECT_EQ(rows(f.lvCommands), (QStringList{"a|3", "b|1", "c|2"}));
    selectRow(f.lvCommands, 0);
    f.mnuPopupMoveDown->trigger();
    EXPECT_FALSE(f.lvCommands->isSortingEnabled());
    EXPECT_EQ(rows(f.lvCommands), (QStringList{"b|1", "a|3", "c|2"}));
    QTest::mouseClick(f.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ExecCommands.cfg"), crlf({"b", "1", "a", "3", "c", "2"}));
}

TEST(AutoExecWizardEditor, RightButtonReleaseSelectsTheRowAndOpensThePopup) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    Editor e(ws);
    auto& f = e.form;
    const QRect rect = f.lvCommands->visualItemRect(f.lvCommands->topLevelItem(2));
    QTest::mousePress(f.lvCommands->viewport(), Qt::RightButton, {}, rect.center());
    EXPECT_FALSE(f.mnuPopup->isVisible());
    QTest::mouseRelease(f.lvCommands->viewport(), Qt::RightButton, {}, rect.center());
    EXPECT_TRUE(f.mnuPopup->isVisible());
    EXPECT_EQ(f.lvCommands->currentItem(), f.lvCommands->topLevelItem(2));
    EXPECT_EQ(f.mnuPopup->defaultAction(), f.mnuPopupEdit);
    // Choosing Delete from the menu asks about the row under the pointer.
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::No);
    QTest::keyClick(f.mnuPopup, Qt::Key_D);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("bot_num 6"));
    EXPECT_FALSE(f.mnuPopup->isVisible());
}

TEST(AutoExecWizardEditor, TheContextMenuKeyOpensThePopup) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    Editor e(ws);
    auto& f = e.form;
    selectRow(f.lvCommands, 1);
    QTest::keyClick(f.lvCommands, Qt::Key_Menu);
    EXPECT_TRUE(f.mnuPopup->isVisible());
    f.mnuPopup->close();
}

TEST(AutoExecWizardEditor, AFileThatCannotBeReadIsReportedUnderTheAddingABotTitle) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Eraser");
#ifdef _WIN32
    GTEST_SKIP() << "a named pipe in a file's place is POSIX only";
#else
    ASSERT_EQ(::mkfifo(ws.path("Plug-Ins/Eraser/ExecCommands.cfg").c_str(), 0600), 0);
#endif
    PromptRecorder prompts;
    Editor e(ws);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Adding a Bot - clicking OK"));
    EXPECT_TRUE(prompts.last().text.startsWith("Sod it!  Something has gone wrong!\n"));
    EXPECT_EQ(e.form.lvCommands->topLevelItemCount(), 0);
}

TEST(AutoExecWizardEditor, ABinaryFileOpensWithoutACrash) {
    TempWorkspace ws;
    ws.write("Plug-Ins/Eraser/ExecCommands.cfg", std::string("\0\x01\xff\r\n\x80\x81\n\r\r", 10));
    PromptRecorder prompts;
    Editor e(ws);
    EXPECT_TRUE(prompts.calls().empty());
    // Three lines (a lone CR stays inside its line): two rows, the second without description.
    ASSERT_EQ(e.form.lvCommands->topLevelItemCount(), 2);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ExecCommands.cfg"),
              std::string("\0\x01\xff\r\n\x80\x81\r\n\r\r\r\n\r\n", 15));
}

TEST(AutoExecWizardCommandDialog, F2OpensTheZoomEditorOnEitherBox) {
    QTreeWidget list;
    list.setColumnCount(2);
    frmEditWiz dialog(&list, 0);
    dialog.show();
    for (QLineEdit* box : {dialog.txtCommand, dialog.txtDescription}) {
        QTest::keyClicks(box, "ab");
        ModalDriver driver([](QDialog* zoom) {
            auto* editor = qobject_cast<frmZoom*>(zoom);
            editor->txtText->setPlainText("ab\r\ncd");
            editor->cmdOK->click();
        });
        QTest::keyClick(box, Qt::Key_F2);
        EXPECT_TRUE(driver.acted());
        EXPECT_EQ(box->text(), QString("abcd"));
    }
    EXPECT_EQ(dialog.lblCommand->text(), QString("Command:"));
    EXPECT_EQ(dialog.lblDescription->text(), QString("Description:"));
    EXPECT_EQ(dialog.lblCommand->buddy(), dialog.txtCommand);
    EXPECT_EQ(dialog.lblDescription->buddy(), dialog.txtDescription);
}

TEST(AutoExecWizardCommandDialog, AnEditDialogOnARowKeepsTheDesignCaption) {
    QTreeWidget list;
    list.setColumnCount(2);
    list.addTopLevelItem(new QTreeWidgetItem(QStringList{"cmd", "desc"}));
    frmEditWiz dialog(&list, 1);
    EXPECT_EQ(dialog.windowTitle(), QString("Edit AutoExec Wizard"));
    EXPECT_EQ(dialog.txtCommand->text(), QString("cmd"));
    EXPECT_EQ(dialog.txtDescription->text(), QString("desc"));
}

TEST(AutoExecWizardEditor, F1OpensTheGuidePageOfEachWizardScreen) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", kOwn);
    Editor e(ws);
    QTest::keyClick(e.form.lvCommands, Qt::Key_F1);
    auto* help = e.form.findChild<frmHelp*>("frmHelp");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmEditAutoWiz.html"));
    help->close();
    frmEditWiz dialog(e.form.lvCommands, 1, &e.form);
    dialog.show();
    QTest::keyClick(dialog.txtCommand, Qt::Key_F1);
    auto* dialogHelp = dialog.findChild<frmHelp*>("frmHelp");
    ASSERT_NE(dialogHelp, nullptr);
    EXPECT_EQ(dialogHelp->currentPage(), QString("frmEditWiz.html"));
    dialogHelp->close();
}

} // namespace frmEditAutoWiz_test
