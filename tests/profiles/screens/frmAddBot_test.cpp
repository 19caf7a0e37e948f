// The add-bot dialog: refusals, the new folder, the copy of a base bot's files, the main
// window's list, and the setup editor it opens for the new bot.

#include "core/screens/frmZoom.h"
#include "core/screens/help.h"
#include "plugins/screens/frmEditPlugInSetup.h"
#include "profiles/screens/frmAddBot.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>

namespace frmAddBot_test {

using namespace rd;
using rd::test::crlf;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

QStringList texts(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

QStringList comboTexts(const QComboBox* combo) {
    QStringList out;
    for (int i = 0; i < combo->count(); ++i)
        out << combo->itemText(i);
    return out;
}

// The main window's bots list as the dialog sees it.
struct Bots {
    explicit Bots(const QStringList& names) { list.addItems(names); }
    QListWidget list;
};

// What the setup editor showed when the dialog opened it.
struct EditorSeen {
    bool opened = false;
    QString name, game, botFolder, routeFilter;
    QStringList skills;
    bool skillsListChosen = false;
};

ModalDriver watchEditor(EditorSeen& seen) {
    return ModalDriver([&seen](QDialog* dialog) {
        if (auto* editor = qobject_cast<frmEditPlugInSetup*>(dialog)) {
            seen.opened = true;
            seen.name = editor->lblPlugInName->text();
            seen.game = editor->cboGame->currentText();
            seen.botFolder = editor->txtBotFolder->text();
            seen.routeFilter = editor->txtRouteFilter->text();
            seen.skills = texts(editor->lstSkills);
            seen.skillsListChosen = editor->optSkills[1]->isChecked();
        }
        dialog->reject();
    });
}

void typeName(frmAddBot& dialog, const QString& name) {
    dialog.txtBotName->setFocus();
    QTest::keyClicks(dialog.txtBotName, name);
}

TEST(AddBotDialog, ShowsItsTitleLabelsAndTheBotsToBaseOn) {
    TempWorkspace ws;
    Bots bots({"ACE", "Eraser"});
    frmAddBot dialog(ws.root(), &bots.list);
    EXPECT_EQ(dialog.windowTitle(), QString("Create New Plug-In Bot"));
    EXPECT_EQ(dialog.lblBotName->text(), QString("Name of the New Bot:"));
    EXPECT_EQ(dialog.lblBotbase->text(), QString("Base on Which Other Bot:"));
    EXPECT_EQ(dialog.lblBotName->buddy(), dialog.txtBotName);
    EXPECT_EQ(dialog.lblBotbase->buddy(), dialog.cboBotbase);
    EXPECT_EQ(dialog.cmdOK->text(), QString("&OK"));
    EXPECT_EQ(dialog.cmdCancel->text(), QString("&Cancel"));
    EXPECT_EQ(comboTexts(dialog.cboBotbase), (QStringList{"", "ACE", "Eraser"}));
    EXPECT_EQ(dialog.cboBotbase->currentIndex(), 0);
    EXPECT_FALSE(dialog.cboBotbase->isEditable());
}

TEST(AddBotDialog, AnEmptyNameIsRefusedAndTheDialogStaysOpen) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    Bots bots({});
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    PromptRecorder prompts;
    QTest::mouseClick(dialog.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("No bot name given!"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(bots.list.count(), 0);
}

TEST(AddBotDialog, ANameThatExistsInOtherLetterCaseIsRefused) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows file systems ignore case: the name in other letters is the same file";
#endif
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2"});
    Bots bots({"Eraser"});
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    typeName(dialog, "ERASER");
    PromptRecorder prompts;
    QTest::mouseClick(dialog.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Bot plug-in already exists with this name"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(ws.exists("Plug-Ins/ERASER"));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg"), crlf({"Quake2"}));
    EXPECT_EQ(texts(&bots.list), (QStringList{"Eraser"}));
}

TEST(AddBotDialog, NamesWithSeparatorsOrDotsAreRefusedBeforeAnythingIsTouched) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    Bots bots({});
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    for (const QString bad : {"New/Bot", "New\\Bot", ".", ".."}) {
        dialog.txtBotName->clear();
        typeName(dialog, bad);
        PromptRecorder prompts;
        QTest::mouseClick(dialog.cmdOK, Qt::LeftButton);
        ASSERT_EQ(prompts.calls().size(), 1u) << bad.toStdString();
        EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
        EXPECT_TRUE(prompts.last().text.contains("name")) << prompts.last().text.toStdString();
        EXPECT_TRUE(dialog.isVisible());
    }
    EXPECT_EQ(bots.list.count(), 0);
    EXPECT_TRUE(std::filesystem::is_empty(ws.path("Plug-Ins")));
}

TEST(AddBotDialog, BasedOnABotItCopiesTheFilesButNotTheSubFolderAndOpensTheEditorOnTheCopy) {
    TempWorkspace ws;
    const std::string setup = crlf({"Action", "Gladiator", " 1 ", "mybots.cfg"});
    ws.write("Plug-Ins/Eraser/Setup.cfg", setup);
    ws.writeLines("Plug-Ins/Eraser/Skills.cfg", {"2", "Low", "Mid", "Top"});
    ws.writeLines("Plug-Ins/Eraser/routes/q2dm1.zipped", {"route"});
    ws.folder("Game-Paths/Quake2");
    Bots bots({"ACE", "Eraser"});
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    typeName(dialog, "Eraser Clone");
    dialog.cboBotbase->setCurrentIndex(2);
    ASSERT_EQ(dialog.cboBotbase->currentText(), QString("Eraser"));

    PromptRecorder prompts;
    EditorSeen seen;
    ModalDriver driver = watchEditor(seen);
    QTest::mouseClick(dialog.cmdOK, Qt::LeftButton);

    EXPECT_EQ(ws.read("Plug-Ins/Eraser Clone/Setup.cfg"), setup);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser Clone/Skills.cfg"), crlf({"2", "Low", "Mid", "Top"}));
    EXPECT_FALSE(ws.exists("Plug-Ins/Eraser Clone/routes"));
    EXPECT_EQ(texts(&bots.list), (QStringList{"ACE", "Eraser", "Eraser Clone"}));
    EXPECT_EQ(bots.list.currentRow(), 2);
    EXPECT_TRUE(bots.list.item(2)->isSelected());
    ASSERT_TRUE(seen.opened);
    EXPECT_EQ(seen.name, QString("Eraser Clone"));
    EXPECT_EQ(seen.game, QString("Action"));
    EXPECT_EQ(seen.botFolder, QString("Gladiator"));
    EXPECT_EQ(seen.skills, (QStringList{"Low", "Mid", "Top"}));
    EXPECT_TRUE(seen.skillsListChosen);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    // The short Setup.cfg ends before its bot config line: reported while the editor loads.
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.startsWith("Sod it!  Something has gone wrong!"));
}

TEST(AddBotDialog, AnEmptyBaseCreatesAnEmptyFolderAndTheEditorShowsTheDefaults) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Action"});
    Bots bots({"Eraser"});
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    typeName(dialog, "Fresh");
    PromptRecorder prompts;
    EditorSeen seen;
    ModalDriver driver = watchEditor(seen);
    QTest::mouseClick(dialog.cmdOK, Qt::LeftButton);
    EXPECT_TRUE(ws.exists("Plug-Ins/Fresh"));
    EXPECT_TRUE(std::filesystem::is_empty(ws.path("Plug-Ins/Fresh")));
    ASSERT_TRUE(seen.opened);
    EXPECT_EQ(seen.name, QString("Fresh"));
    EXPECT_EQ(seen.game, QString("Quake2"));
    EXPECT_EQ(seen.botFolder, QString("Eraser"));
    EXPECT_EQ(seen.routeFilter, QString("*.zipped"));
    EXPECT_TRUE(seen.skills.isEmpty());
    EXPECT_TRUE(prompts.calls().empty());
    // The editor was cancelled: the new bot stays empty.
    EXPECT_TRUE(std::filesystem::is_empty(ws.path("Plug-Ins/Fresh")));
}

TEST(AddBotDialog, AMissingBaseBotIsReportedAndTheNewBotStaysEmpty) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    Bots bots({"Ghost"}); // listed in the main window, its folder gone since
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    typeName(dialog, "Haunt");
    dialog.cboBotbase->setCurrentIndex(1);
    PromptRecorder prompts;
    EditorSeen seen;
    ModalDriver driver = watchEditor(seen);
    QTest::mouseClick(dialog.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Plugin bot Ghost not found - new bot will be empty"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(std::filesystem::is_empty(ws.path("Plug-Ins/Haunt")));
    EXPECT_TRUE(seen.opened);
    EXPECT_EQ(seen.name, QString("Haunt"));
}

TEST(AddBotDialog, FailingToCreateTheFolderIsReportedUnderItsTitleAndTheDialogStaysOpen) {
    TempWorkspace ws; // no Plug-Ins folder: the new folder cannot be made
    Bots bots({});
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    typeName(dialog, "Nowhere");
    PromptRecorder prompts;
    QTest::mouseClick(dialog.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Adding a Bot - clicking OK"));
    EXPECT_TRUE(prompts.last().text.startsWith("Sod it!  Something has gone wrong!\n"));
    EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(bots.list.count(), 0);
    EXPECT_FALSE(ws.exists("Plug-Ins"));
}

TEST(AddBotDialog, CancelCreatesNothing) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2"});
    Bots bots({"Eraser"});
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    typeName(dialog, "Never");
    dialog.cboBotbase->setCurrentIndex(1);
    PromptRecorder prompts;
    QTest::mouseClick(dialog.cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(ws.exists("Plug-Ins/Never"));
    EXPECT_EQ(texts(&bots.list), (QStringList{"Eraser"}));
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(AddBotDialog, F2OpensTheZoomEditorOnTheName) {
    TempWorkspace ws;
    Bots bots({});
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    typeName(dialog, "Era");
    QString caption, shown;
    ModalDriver driver([&](QDialog* zoom) {
        auto* editor = qobject_cast<frmZoom*>(zoom);
        ASSERT_NE(editor, nullptr);
        caption = editor->windowTitle();
        shown = editor->txtText->toPlainText();
        editor->txtText->setPlainText("Eraser Mk2");
        editor->cmdOK->click();
    });
    QTest::keyClick(dialog.txtBotName, Qt::Key_F2);
    EXPECT_TRUE(driver.acted());
    EXPECT_EQ(caption, QString("Zoom"));
    EXPECT_EQ(shown, QString("Era"));
    EXPECT_EQ(dialog.txtBotName->text(), QString("Eraser Mk2"));
}

TEST(AddBotDialog, WorksFromTheKeyboard) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/ACE/Setup.cfg", {"Quake2", "ace"});
    ws.writeLines("Plug-Ins/Eraser/Skills.cfg", {"1", "Low"});
    Bots bots({"ACE", "Eraser"});
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    typeName(dialog, "Keys");
    QTest::keyClick(dialog.txtBotName, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), dialog.cboBotbase);
    QTest::keyClick(dialog.cboBotbase, Qt::Key_Down);
    QTest::keyClick(dialog.cboBotbase, Qt::Key_Down);
    ASSERT_EQ(dialog.cboBotbase->currentText(), QString("Eraser"));
    PromptRecorder prompts;
    EditorSeen seen;
    ModalDriver driver = watchEditor(seen);
    QTest::keyClick(dialog.cboBotbase, Qt::Key_Return); // the OK button is the default
    EXPECT_TRUE(seen.opened);
    EXPECT_EQ(ws.read("Plug-Ins/Keys/Skills.cfg"), crlf({"1", "Low"}));
}

TEST(AddBotDialog, F1OpensItsGuidePage) {
    TempWorkspace ws;
    Bots bots({});
    frmAddBot dialog(ws.root(), &bots.list);
    dialog.show();
    QTest::keyClick(dialog.txtBotName, Qt::Key_F1);
    auto* help = dialog.findChild<frmHelp*>("frmHelp");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmAddBot.html"));
    help->close();
}

} // namespace frmAddBot_test
