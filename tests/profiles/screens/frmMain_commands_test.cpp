// The main window's bot and profile commands: delete bot, rename and delete profile, edit and
// add bot, and the bots list following the keyboard.

#include "core/screens/prompts.h"
#include "plugins/screens/frmEditPlugInSetup.h"
#include "profiles/screens/frmAddBot.h"
#include "profiles/screens/frmMain.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace frmMain_commands_test {

using namespace rd;
using rd::test::crlf;
using rd::test::ModalDriver;
using rd::test::PromptCall;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

QStringList texts(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

void select(QListWidget* list, const QString& text) {
    const auto items = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1) << text.toStdString();
    list->setCurrentItem(items.first());
}

void clickCheckBox(QCheckBox* box) {
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
}

void fillWorkspace(const TempWorkspace& ws) {
    ws.writeLines("Plug-Ins/ACE/Setup.cfg", {"Quake2", "ace"});
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2", "Eraser"});
    ws.writeLines("Plug-Ins/Eraser/Skills.cfg", {"1", "Low", "High"});
    ws.folder("Plug-Ins/Zombie");
    ws.folder("Game-Paths/Quake2");
    ws.writeLines("Alpha/profile.cfg", {"Eraser", "skill=3"});
    ws.writeLines("Beta/profile.cfg", {"ACE"});
    ws.writeLines("Gamma/profile.cfg", {"eraser"});
    ws.writeLines("Gamma/bots.cfg", {"bot1"});
}

struct Window {
    explicit Window(const TempWorkspace& ws) : form(ws.root()) {
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    frmMain form;
};

TEST(MainWindowCommands, BotAndProfileButtonsAreEnabled) {
    TempWorkspace ws;
    frmMain form(ws.root());
    for (QPushButton* b :
         {form.cmdAddBot, form.cmdEditBot, form.cmdDeleteBot, form.cmdRename, form.cmdDeleteProfile})
        EXPECT_TRUE(b->isEnabled()) << b->objectName().toStdString();
}

TEST(MainWindowCommands, BothListsAreNamedForScreenReadersByTheirLabels) {
    TempWorkspace ws;
    frmMain form(ws.root());
    EXPECT_EQ(form.lstRecognisedBots->accessibleName(), QString("Recognised Bots"));
    EXPECT_EQ(form.lstProfiles->accessibleName(), QString("Available Profiles"));
    EXPECT_EQ(form.lblRecognisedBots->buddy(), form.lstRecognisedBots);
    EXPECT_EQ(form.lblProfiles->buddy(), form.lstProfiles);
}

TEST(MainWindowCommands, DeleteBotAsksItsQuestionThenDeletesTheFilesTheFolderAndTheEntry) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstRecognisedBots, "Eraser");
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    QTest::mouseClick(w.form.cmdDeleteBot, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text,
              QString("Delete this recognised bot, are you sure?  If you do this, you won't be "
                      "able to add any more profiles for this bot!"));
    EXPECT_EQ(prompts.last().buttons, PromptButtons::YesNoCancel);
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().title, QString("Eraser"));
    EXPECT_FALSE(ws.exists("Plug-Ins/Eraser"));
    EXPECT_TRUE(ws.exists("Plug-Ins/ACE/Setup.cfg"));
    EXPECT_EQ(texts(w.form.lstRecognisedBots), (QStringList{"ACE", "Zombie"}));
    EXPECT_TRUE(w.form.isVisible());
}

TEST(MainWindowCommands, DeletingABotWhoseFolderIsEmptyRemovesTheFolder) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstRecognisedBots, "Zombie");
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    QTest::mouseClick(w.form.cmdDeleteBot, Qt::LeftButton);
    EXPECT_FALSE(ws.exists("Plug-Ins/Zombie"));
    EXPECT_TRUE(ws.exists("Plug-Ins"));
    EXPECT_EQ(texts(w.form.lstRecognisedBots), (QStringList{"ACE", "Eraser"}));
}

TEST(MainWindowCommands, DeleteBotAnsweredNoOrCancelChangesNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstRecognisedBots, "Eraser");
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::No);
    prompts.answer(PromptAnswer::Cancel);
    QTest::mouseClick(w.form.cmdDeleteBot, Qt::LeftButton);
    QTest::mouseClick(w.form.cmdDeleteBot, Qt::LeftButton);
    EXPECT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Skills.cfg"), crlf({"1", "Low", "High"}));
    EXPECT_EQ(texts(w.form.lstRecognisedBots), (QStringList{"ACE", "Eraser", "Zombie"}));
    EXPECT_TRUE(w.form.isVisible());
}

TEST(MainWindowCommands, DeletingABotLeavesTheProfileListAsItWas) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    clickCheckBox(w.form.chkOnlyShow);
    select(w.form.lstRecognisedBots, "Eraser");
    ASSERT_EQ(texts(w.form.lstProfiles), (QStringList{"Alpha", "Gamma"}));
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    QTest::mouseClick(w.form.cmdDeleteBot, Qt::LeftButton);
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Alpha", "Gamma"}));
    EXPECT_TRUE(w.form.lstRecognisedBots->selectedItems().isEmpty());
}

TEST(MainWindowCommands, CommandsNeedingASelectionDoNothingWithoutOne) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Eraser");
    ws.folder("Game-Paths");
    Window w(ws); // no profile at all, and no bot selected
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    ASSERT_TRUE(w.form.lstRecognisedBots->selectedItems().isEmpty());
    QTest::mouseClick(w.form.cmdDeleteBot, Qt::LeftButton);
    QTest::mouseClick(w.form.cmdEditBot, Qt::LeftButton);
    QTest::mouseClick(w.form.cmdRename, Qt::LeftButton);
    QTest::mouseClick(w.form.cmdDeleteProfile, Qt::LeftButton);
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_TRUE(ws.exists("Plug-Ins/Eraser"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(MainWindowCommands, AnEntryWithOnlyTheFocusFrameIsNotASelection) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    w.form.lstProfiles->setCurrentRow(0, QItemSelectionModel::NoUpdate);
    w.form.lstProfiles->clearSelection();
    PromptRecorder prompts;
    QTest::mouseClick(w.form.cmdDeleteProfile, Qt::LeftButton);
    QTest::mouseClick(w.form.cmdRename, Qt::LeftButton);
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(MainWindowCommands, RenameProfileAsksWithTheCurrentNameAndRenamesTheFolderOnly) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstProfiles, "Alpha");
    PromptRecorder prompts;
    prompts.answerInput(QString("Omega Squad"));
    QTest::mouseClick(w.form.cmdRename, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().kind, PromptCall::Kind::Input);
    EXPECT_EQ(prompts.last().text, QString("Type in a new name for the profile below"));
    EXPECT_EQ(prompts.last().title, QString("Roster Desk"));
    EXPECT_EQ(prompts.last().defaultText, QString("Alpha"));
    EXPECT_FALSE(ws.exists("Alpha"));
    EXPECT_EQ(ws.read("Omega Squad/profile.cfg"), crlf({"Eraser", "skill=3"}));
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Omega Squad", "Beta", "Gamma"}));
}

TEST(MainWindowCommands, RenameProfileWithAnEmptyAnswerOrCancelDoesNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstProfiles, "Beta");
    PromptRecorder prompts;
    prompts.answerInput(QString(""));
    prompts.answerInput(std::nullopt);
    QTest::mouseClick(w.form.cmdRename, Qt::LeftButton);
    QTest::mouseClick(w.form.cmdRename, Qt::LeftButton);
    EXPECT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(ws.read("Beta/profile.cfg"), crlf({"ACE"}));
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Alpha", "Beta", "Gamma"}));
}

TEST(MainWindowCommands, RenamingAProfileToItsOwnNameInOtherLetterCaseSucceeds) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstProfiles, "Gamma");
    PromptRecorder prompts;
    prompts.answerInput(QString("GAMMA"));
    QTest::mouseClick(w.form.cmdRename, Qt::LeftButton);
    EXPECT_EQ(ws.read("GAMMA/profile.cfg"), crlf({"eraser"}));
    EXPECT_EQ(ws.read("GAMMA/bots.cfg"), crlf({"bot1"}));
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Alpha", "Beta", "GAMMA"}));
    EXPECT_TRUE(w.form.isVisible());
}

TEST(MainWindowCommands, RenameRefusesNamesWithSeparatorsOrDotsBeforeTouchingAnything) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstProfiles, "Alpha");
    for (const QString bad : {"Team/B", "Team\\B", ".", ".."}) {
        PromptRecorder prompts;
        prompts.answerInput(bad);
        QTest::mouseClick(w.form.cmdRename, Qt::LeftButton);
        ASSERT_EQ(prompts.calls().size(), 2u) << bad.toStdString();
        EXPECT_EQ(prompts.last().kind, PromptCall::Kind::Message);
        EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
        EXPECT_FALSE(prompts.last().text.isEmpty());
    }
    EXPECT_EQ(ws.read("Alpha/profile.cfg"), crlf({"Eraser", "skill=3"}));
    EXPECT_FALSE(ws.exists("Team"));
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Alpha", "Beta", "Gamma"}));
}

TEST(MainWindowCommands, DeleteProfileAsksThenDeletesTheFilesTheFolderAndTheEntry) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstProfiles, "Gamma");
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Yes);
    QTest::mouseClick(w.form.cmdDeleteProfile, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Delete this profile completely, are you sure?"));
    EXPECT_EQ(prompts.last().buttons, PromptButtons::YesNoCancel);
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().title, QString("Gamma"));
    EXPECT_FALSE(ws.exists("Gamma"));
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Alpha", "Beta"}));
}

TEST(MainWindowCommands, DeleteProfileAnsweredNoOrCancelChangesNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstProfiles, "Gamma");
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::No);
    prompts.answer(PromptAnswer::Cancel);
    QTest::mouseClick(w.form.cmdDeleteProfile, Qt::LeftButton);
    QTest::mouseClick(w.form.cmdDeleteProfile, Qt::LeftButton);
    EXPECT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(ws.read("Gamma/bots.cfg"), crlf({"bot1"}));
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Alpha", "Beta", "Gamma"}));
    EXPECT_TRUE(w.form.isVisible());
}

TEST(MainWindowCommands, WithTheBoxSetTheProfileListFollowsTheArrowKeysInTheBotsList) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    clickCheckBox(w.form.chkOnlyShow);
    ASSERT_EQ(w.form.lstProfiles->count(), 0);
    w.form.lstRecognisedBots->setFocus();
    select(w.form.lstRecognisedBots, "ACE");
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Beta"}));
    QTest::keyClick(w.form.lstRecognisedBots, Qt::Key_Down);
    ASSERT_EQ(w.form.lstRecognisedBots->currentItem()->text(), QString("Eraser"));
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Alpha", "Gamma"}));
    QTest::keyClick(w.form.lstRecognisedBots, Qt::Key_Down);
    EXPECT_EQ(w.form.lstProfiles->count(), 0); // Zombie has no profiles
    QTest::keyClick(w.form.lstRecognisedBots, Qt::Key_Home);
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Beta"}));
    QTest::keyClick(w.form.lstRecognisedBots, Qt::Key_E); // typing a letter selects Eraser
    EXPECT_EQ(texts(w.form.lstProfiles), (QStringList{"Alpha", "Gamma"}));
    EXPECT_EQ(w.form.readyMark(), QString("OK"));
}

TEST(MainWindowCommands, FocusArrivingInTheBotsListSelectsNoBot) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    clickCheckBox(w.form.chkOnlyShow);
    w.form.lstRecognisedBots->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    EXPECT_EQ(w.form.lstProfiles->count(), 0);
}

TEST(MainWindowCommands, EditOpensTheSetupEditorForTheSelectedBot) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstRecognisedBots, "ACE");
    PromptRecorder prompts; // ACE's short Setup.cfg is reported while the editor loads
    QString opened, name, folder;
    ModalDriver driver([&](QDialog* dialog) {
        opened = dialog->objectName();
        if (auto* editor = qobject_cast<frmEditPlugInSetup*>(dialog)) {
            name = editor->lblPlugInName->text();
            folder = editor->txtBotFolder->text();
        }
        dialog->reject();
    });
    QTest::mouseClick(w.form.cmdEditBot, Qt::LeftButton);
    EXPECT_TRUE(driver.acted());
    EXPECT_EQ(opened, QString("frmEditPlugInSetup"));
    EXPECT_EQ(name, QString("ACE"));
    EXPECT_EQ(folder, QString("ace"));
}

TEST(MainWindowCommands, DoubleClickOnABotOpensItsSetupEditor) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    PromptRecorder prompts;
    QString name;
    ModalDriver driver([&](QDialog* dialog) {
        if (auto* editor = qobject_cast<frmEditPlugInSetup*>(dialog))
            name = editor->lblPlugInName->text();
        dialog->reject();
    });
    const QRect rect = w.form.lstRecognisedBots->visualItemRect(w.form.lstRecognisedBots->item(1));
    QTest::mouseClick(w.form.lstRecognisedBots->viewport(), Qt::LeftButton, {}, rect.center());
    QTest::mouseDClick(w.form.lstRecognisedBots->viewport(), Qt::LeftButton, {}, rect.center());
    EXPECT_TRUE(driver.acted());
    EXPECT_EQ(name, QString("Eraser"));
}

TEST(MainWindowCommands, AddOpensTheAddBotDialog) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    QString opened, caption;
    ModalDriver driver([&](QDialog* dialog) {
        opened = dialog->objectName();
        caption = dialog->windowTitle();
        dialog->reject();
    });
    QTest::mouseClick(w.form.cmdAddBot, Qt::LeftButton);
    EXPECT_TRUE(driver.acted());
    EXPECT_EQ(opened, QString("frmAddBot"));
    EXPECT_EQ(caption, QString("Create New Plug-In Bot"));
}

TEST(MainWindowCommands, EveryCommandIsReachedFromTheKeyboard) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Window w(ws);
    select(w.form.lstProfiles, "Beta");
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::No);
    w.form.lstProfiles->setFocus();
    // A mnemonic presses its button as a click would (after the button has shown itself pressed).
    QTest::keyClick(w.form.lstProfiles, Qt::Key_D, Qt::AltModifier); // &Delete (profile)
    ASSERT_TRUE(QTest::qWaitFor([&] { return prompts.calls().size() == 1; }, 3000));
    EXPECT_EQ(prompts.last().title, QString("Beta"));
    prompts.answerInput(std::nullopt);
    QTest::keyClick(w.form.lstProfiles, Qt::Key_R, Qt::AltModifier); // &Rename
    ASSERT_TRUE(QTest::qWaitFor([&] { return prompts.calls().size() == 2; }, 3000));
    EXPECT_EQ(prompts.last().kind, PromptCall::Kind::Input);
}

} // namespace frmMain_commands_test
