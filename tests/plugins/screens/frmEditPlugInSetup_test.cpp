// The plug-in setup editor: loading into the controls, every rule of its four tabs, and the
// bytes OK writes (and Cancel does not).

#include "core/screens/frmZoom.h"
#include "core/screens/help.h"
#include "plugins/screens/frmEditAutoWiz.h"
#include "plugins/screens/frmEditPlugInSetup.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>

namespace frmEditPlugInSetup_test {

using namespace rd;
using rd::test::crlf;
using rd::test::ModalDriver;
using rd::test::PromptCall;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

const std::vector<std::string> kSetup = {
    "Quake2", "Eraser",       " 0 ",   "bots.cfg",     " 0 ",        "chat.txt", " 2 ", "maps.txt",
    " 1 ",    "autoexec.cfg", " 1 ",   "launcher.cfg", " 0 ",        "tw.cfg",   " 0 ", " 2 ",
    "routes", "*.zipped",     "skins", "eraser.txt",   "male/grunt", " 0 ",      " 3"};
const std::vector<std::string> kChatFiles = {"insults.txt", "chat1.txt"};
const std::vector<std::string> kSkills = {"2", "Low", "Mid", "Top"};

void fillBot(const TempWorkspace& ws) {
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", kSetup);
    ws.writeLines("Plug-Ins/Eraser/ChatFiles.cfg", kChatFiles);
    ws.writeLines("Plug-Ins/Eraser/Skills.cfg", kSkills);
    ws.folder("Game-Paths/Quake2");
    ws.folder("Game-Paths/LanParty");
    ws.write("Game-Paths/Stray.Gme", "x");
}

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

// Every file of the workspace with its bytes, to check that nothing changed.
std::map<std::string, std::string> snapshot(const TempWorkspace& ws) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(ws.root())) {
        const std::string relative = std::filesystem::relative(entry.path(), ws.root()).string();
        files[relative] =
            entry.is_regular_file() ? rd::test::readBytes(entry.path()) : std::string("<folder>");
    }
    return files;
}

struct Editor {
    Editor(const TempWorkspace& ws, const std::string& bot = "Eraser") : form(ws.root(), bot) {
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&form));
    }
    frmEditPlugInSetup form;
};

void select(QListWidget* list, const QString& text) {
    const auto items = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1) << text.toStdString();
    list->setCurrentItem(items.first());
}

void clickOption(QRadioButton* option) {
    QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(6, option->height() / 2));
}

void retype(QLineEdit* box, const QString& text) {
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
}

TEST(PlugInSetupEditor, ShowsEveryTabGroupCaptionAndLabel) {
    TempWorkspace ws;
    fillBot(ws);
    frmEditPlugInSetup form(ws.root(), "Eraser");
    EXPECT_EQ(form.windowTitle(), QString("Edit Bot Plug-In Setup"));
    EXPECT_EQ(form.lblEditing->text(), QString("Editing Plug-In Bot"));
    EXPECT_EQ(form.lblPlugInName->text(), QString("Eraser"));
    ASSERT_EQ(form.SSTab1->count(), 4);
    EXPECT_EQ(form.SSTab1->tabText(0), QString("&Paths and Files"));
    EXPECT_EQ(form.SSTab1->tabText(1), QString("&File Copying"));
    EXPECT_EQ(form.SSTab1->tabText(2), QString("&Chat and AutoExec"));
    EXPECT_EQ(form.SSTab1->tabText(3), QString("&Skill Levels"));

    const std::vector<std::pair<QGroupBox*, int>> groups = {
        {form.fraPaths, 0},     {form.fraArena, 0}, {form.fraCopied, 1}, {form.fraAutoExec, 1},
        {form.fraBotConfig, 1}, {form.fraChat, 2},  {form.fraSkills, 3}};
    const QStringList titles = {
        "Paths",    "Arena Support", "Where the Files are Copied to:", "AutoExec File", "Bot Config File",
        "Bot Chat", "Skill Levels"};
    for (std::size_t i = 0; i < groups.size(); ++i) {
        EXPECT_EQ(groups[i].first->title(), titles[static_cast<int>(i)]);
        EXPECT_TRUE(form.SSTab1->widget(groups[i].second)->isAncestorOf(groups[i].first)) << i;
    }
    EXPECT_TRUE(form.SSTab1->widget(2)->isAncestorOf(form.cmdAutoWiz));

    const std::vector<std::pair<QLabel*, QString>> labels = {
        {form.lblGame, "Which Game?"},
        {form.lblBotFolder, "Bot Sub-Folder"},
        {form.lblRouteFolder, "Map Routes Sub-Folder:"},
        {form.lblRouteFilter, "Map Routes Filter:"},
        {form.lblExtraModelDir, "Special Skins Folder:"},
        {form.lblReadme, "Name of ReadMe File:"},
        {form.lblDefaultSkin, "Default Model/Skin:"},
        {form.lblStartArena, "Start at Arena Number:"},
        {form.lblStartSkill, "First skill in list is skill level"},
        {form.lblAutoWizNote,
         "To add scripts to the wizard, copy them into the main Tarnwick program folder with "
         "the file extension \".SPT\""}};
    for (const auto& [label, text] : labels)
        EXPECT_EQ(label->text(), text);
    const QStringList roles = {"Bots File:", "Chat File:", "Map List:", "AutoExec:", "Launcher:", "TW.Cfg"};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(form.lblFile[i]->text(), roles[static_cast<int>(i)]);
        EXPECT_EQ(form.lblFile[i]->buddy(), form.cboFolder[i]);
        EXPECT_EQ(comboTexts(form.cboFolder[i]), (QStringList{"Bot Path", "Game Path", "Maps Path"}));
        EXPECT_EQ(form.cboFolder[i]->objectName(), QString("cboFolder_%1").arg(i));
        EXPECT_EQ(form.txtFile[i]->objectName(), QString("txtFile_%1").arg(i));
        EXPECT_FALSE(form.txtFile[i]->accessibleName().isEmpty());
    }
    const QStringList autoExec = {"Copy File (as above)", "Add to LAUNCHER.CFG", "Add to TW.CFG"};
    const QStringList chat = {"None", "Eraser-style Bot File", "Individual Text Files (see list on right)"};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(form.optAutoExec[i]->text(), autoExec[static_cast<int>(i)]);
        EXPECT_EQ(form.optChat[i]->text(), chat[static_cast<int>(i)]);
        EXPECT_EQ(form.optChat[i]->objectName(), QString("optChat_%1").arg(i));
    }
    EXPECT_EQ(form.optSkills[0]->text(), QString("Use Built-in Eraser Skills"));
    EXPECT_EQ(form.optSkills[1]->text(), QString("Use Skills List (Left)"));
    EXPECT_EQ(form.optBotConfig[0]->text(), QString("Save in Eraser Format"));
    EXPECT_EQ(form.optBotConfig[1]->text(), QString("Use Bot Template"));
    EXPECT_EQ(form.chkUseArena->text(), QString("Bot Uses Arenas?"));

    const std::vector<std::pair<QPushButton*, QString>> buttons = {
        {form.cmdOK, "&OK"},
        {form.Cancel, "&Cancel"},
        {form.cmdAutoWiz, "Edit AutoE&xec Wizard Commands"},
        {form.cmdEditGame, "&Edit"},
        {form.cmdAddChat, "Add"},
        {form.cmdDeleteChat, "Delete"},
        {form.cmdAddSkill, "&Add"},
        {form.cmdRemoveSkill, "&Remove"},
        {form.cmdMoveSkillUP, "Move &Up"},
        {form.cmdMoveSkillDown, "Move &Down"}};
    for (const auto& [button, caption] : buttons)
        EXPECT_EQ(button->text(), caption) << button->objectName().toStdString();
    EXPECT_EQ(form.Cancel->objectName(), QString("Cancel"));
    EXPECT_EQ(form.lblGame->buddy(), form.cboGame);
    EXPECT_EQ(form.lblStartSkill->buddy(), form.txtStartSkill);
    EXPECT_FALSE(form.lstSkills->accessibleName().isEmpty());
    EXPECT_FALSE(form.lstChatfiles->accessibleName().isEmpty());
}

TEST(PlugInSetupEditor, LoadsTheRecordIntoTheControls) {
    TempWorkspace ws;
    fillBot(ws);
    PromptRecorder prompts;
    frmEditPlugInSetup form(ws.root(), "Eraser");
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(comboTexts(form.cboGame), (QStringList{"LanParty", "Quake2"}));
    EXPECT_EQ(form.cboGame->currentText(), QString("Quake2"));
    EXPECT_EQ(form.txtBotFolder->text(), QString("Eraser"));
    EXPECT_EQ(form.cboFolder[2]->currentText(), QString("Maps Path"));
    EXPECT_EQ(form.cboFolder[3]->currentText(), QString("Game Path"));
    EXPECT_EQ(form.txtFile[4]->text(), QString("launcher.cfg"));
    EXPECT_TRUE(form.optAutoExec[0]->isChecked());
    EXPECT_TRUE(form.optChat[2]->isChecked());
    EXPECT_EQ(form.txtRouteFolder->text(), QString("routes"));
    EXPECT_EQ(form.txtRouteFilter->text(), QString("*.zipped"));
    EXPECT_EQ(form.txtExtraModelDir->text(), QString("skins"));
    EXPECT_EQ(form.txtReadme->text(), QString("eraser.txt"));
    EXPECT_EQ(form.txtDefaultSkin->text(), QString("male/grunt"));
    EXPECT_TRUE(form.optBotConfig[0]->isChecked());
    EXPECT_TRUE(form.chkUseArena->isChecked());
    EXPECT_EQ(form.txtStartArena->text(), QString(" 3"));
    EXPECT_EQ(texts(form.lstChatfiles), (QStringList{"insults.txt", "chat1.txt"}));
    EXPECT_EQ(form.txtStartSkill->text(), QString("2"));
    EXPECT_EQ(texts(form.lstSkills), (QStringList{"Low", "Mid", "Top"}));
    EXPECT_TRUE(form.optSkills[1]->isChecked());
}

TEST(PlugInSetupEditor, OkWithoutChangesWritesTheSameBytesBack) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(e.form.isVisible());
    EXPECT_EQ(e.form.result(), QDialog::Accepted);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg"), crlf(kSetup));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ChatFiles.cfg"), crlf(kChatFiles));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Skills.cfg"), crlf(kSkills));
}

TEST(PlugInSetupEditor, EditsOnEveryTabLandOnDiskWithOk) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    PromptRecorder prompts;
    // Paths and Files
    f.cboGame->setFocus();
    f.cboGame->lineEdit()->selectAll();
    QTest::keyClicks(f.cboGame->lineEdit(), "LanParty");
    retype(f.txtBotFolder, "Eraser2");
    retype(f.txtRouteFolder, "nav");
    retype(f.txtRouteFilter, "*.rt2");
    retype(f.txtExtraModelDir, "");
    retype(f.txtReadme, "readme.txt");
    retype(f.txtDefaultSkin, "female/athena");
    retype(f.txtStartArena, "7");
    // File Copying
    f.SSTab1->setCurrentIndex(1);
    f.cboFolder[0]->setCurrentIndex(1);
    retype(f.txtFile[5], "tw2.cfg");
    clickOption(f.optAutoExec[1]);
    clickOption(f.optBotConfig[1]);
    // Chat and AutoExec
    f.SSTab1->setCurrentIndex(2);
    prompts.answerInput(QString("greetings.txt"));
    QTest::mouseClick(f.cmdAddChat, Qt::LeftButton);
    // Skill Levels
    f.SSTab1->setCurrentIndex(3);
    select(f.lstSkills, "Top");
    QTest::mouseClick(f.cmdMoveSkillUP, Qt::LeftButton);
    retype(f.txtStartSkill, "3");
    QTest::mouseClick(f.cmdOK, Qt::LeftButton);

    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg"),
              crlf({"LanParty", "Eraser2",    " 1 ",           "bots.cfg",     " 0 ", "chat.txt",
                    " 2 ",      "maps.txt",   " 1 ",           "autoexec.cfg", " 1 ", "launcher.cfg",
                    " 0 ",      "tw2.cfg",    " 1 ",           " 2 ",          "nav", "*.rt2",
                    "",         "readme.txt", "female/athena", " 1 ",          "7"}));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ChatFiles.cfg"), crlf({"insults.txt", "chat1.txt", "greetings.txt"}));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Skills.cfg"), crlf({"3", "Low", "Top", "Mid"}));
}

TEST(PlugInSetupEditor, CancelAfterChangesLeavesAllThreeFilesUntouched) {
    TempWorkspace ws;
    fillBot(ws);
    const auto before = snapshot(ws);
    Editor e(ws);
    auto& f = e.form;
    PromptRecorder prompts;
    retype(f.txtBotFolder, "Changed");
    f.chkUseArena->click();
    clickOption(f.optAutoExec[2]);
    clickOption(f.optSkills[0]);
    select(f.lstChatfiles, "chat1.txt");
    QTest::mouseClick(f.cmdDeleteChat, Qt::LeftButton);
    prompts.answerInput(QString("Insane"));
    QTest::mouseClick(f.cmdAddSkill, Qt::LeftButton);
    retype(f.txtStartSkill, "two");
    QTest::mouseClick(f.Cancel, Qt::LeftButton);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(f.result(), QDialog::Rejected);
    EXPECT_EQ(snapshot(ws), before);
}

TEST(PlugInSetupEditor, OpeningForANameWithNoFolderSaysCouldNotFindAndClosesWithoutWriting) {
    TempWorkspace ws;
    fillBot(ws);
    const auto before = snapshot(ws);
    PromptRecorder prompts;
    frmEditPlugInSetup form(ws.root(), "Ghost");
    EXPECT_EQ(form.tag(), QString("UNLOAD"));
    EXPECT_EQ(form.lblPlugInName->text(), QString("Ghost"));
    form.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }, 3000));
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Could not find Ghost"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(snapshot(ws), before);
}

TEST(PlugInSetupEditor, OpenedModallyForAMissingBotReturnsByItself) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    PromptRecorder prompts;
    EditPlugInSetup(nullptr, ws.root(), "Ghost");
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Could not find Ghost"));
    EXPECT_TRUE(std::filesystem::is_empty(ws.path("Plug-Ins")));
}

TEST(PlugInSetupEditor, TheGameNameStaysEvenWhenItIsNoGameFolder) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg",
                  {"Quake3", "Eraser",   " 0 ", "bots.cfg",     " 0 ", "chat.txt",
                   " 0 ",    "maps.txt", " 0 ", "autoexec.cfg", " 0 ", "launcher.cfg",
                   " 0 ",    "tw.cfg",   " 0 ", " 0 ",          "",    "*.zipped",
                   "",       "",         "",    " 0 ",          ""});
    ws.folder("Game-Paths/Quake2");
    Editor e(ws);
    EXPECT_EQ(comboTexts(e.form.cboGame), (QStringList{"Quake2"}));
    EXPECT_EQ(e.form.cboGame->currentText(), QString("Quake3"));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg").substr(0, 8), std::string("Quake3\r\n"));
}

TEST(PlugInSetupEditor, ChatControlsAreEnabledOnlyForIndividualTextFiles) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(2);
    EXPECT_TRUE(f.lstChatfiles->isEnabled());
    for (int choice : {0, 1}) {
        clickOption(f.optChat[static_cast<std::size_t>(choice)]);
        EXPECT_FALSE(f.lstChatfiles->isEnabled());
        EXPECT_FALSE(f.cmdAddChat->isEnabled());
        EXPECT_FALSE(f.cmdDeleteChat->isEnabled());
    }
    clickOption(f.optChat[2]);
    EXPECT_TRUE(f.lstChatfiles->isEnabled());
    EXPECT_TRUE(f.cmdAddChat->isEnabled());
    EXPECT_TRUE(f.cmdDeleteChat->isEnabled());
}

TEST(PlugInSetupEditor, TheAutoExecRowIsEnabledOnlyWhileItsFileIsCopied) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(1);
    EXPECT_TRUE(f.cboFolder[3]->isEnabled());
    EXPECT_TRUE(f.txtFile[3]->isEnabled());
    clickOption(f.optAutoExec[1]);
    EXPECT_FALSE(f.cboFolder[3]->isEnabled());
    EXPECT_FALSE(f.txtFile[3]->isEnabled());
    EXPECT_TRUE(f.txtFile[2]->isEnabled());
    clickOption(f.optAutoExec[2]);
    EXPECT_FALSE(f.txtFile[3]->isEnabled());
    clickOption(f.optAutoExec[0]);
    EXPECT_TRUE(f.cboFolder[3]->isEnabled());
    EXPECT_TRUE(f.txtFile[3]->isEnabled());
}

TEST(PlugInSetupEditor, TheStartArenaShowsOnlyWhileTheBotUsesArenasAndAClearedBoxSavesAnEmptyLine) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    EXPECT_TRUE(f.txtStartArena->isVisible());
    EXPECT_TRUE(f.scrlStartArena->isVisible());
    QTest::mouseClick(f.chkUseArena, Qt::LeftButton, {}, QPoint(6, f.chkUseArena->height() / 2));
    EXPECT_FALSE(f.chkUseArena->isChecked());
    EXPECT_FALSE(f.lblStartArena->isVisible());
    EXPECT_FALSE(f.txtStartArena->isVisible());
    EXPECT_FALSE(f.scrlStartArena->isVisible());
    QTest::mouseClick(f.cmdOK, Qt::LeftButton);
    auto expected = kSetup;
    expected.back() = "";
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg"), crlf(expected));
}

TEST(PlugInSetupEditor, AddingAChatFileAlreadyListedInOtherCaseIsRefused) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(2);
    PromptRecorder prompts;
    prompts.answerInput(QString("CHAT1.TXT"));
    QTest::mouseClick(f.cmdAddChat, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.calls()[0].kind, PromptCall::Kind::Input);
    EXPECT_EQ(prompts.calls()[0].text, QString("Type in the name of a chat file to add"));
    EXPECT_EQ(prompts.calls()[0].title, QString("Roster Desk"));
    EXPECT_EQ(prompts.last().text, QString("Chat file is already in the list!"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(texts(f.lstChatfiles), (QStringList{"insults.txt", "chat1.txt"}));
}

TEST(PlugInSetupEditor, AddingChatFilesAppendsAndAnEmptyAnswerDoesNothing) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(2);
    select(f.lstChatfiles, "insults.txt");
    PromptRecorder prompts;
    prompts.answerInput(QString("taunts.txt"));
    prompts.answerInput(QString(""));
    prompts.answerInput(std::nullopt);
    QTest::mouseClick(f.cmdAddChat, Qt::LeftButton);
    QTest::mouseClick(f.cmdAddChat, Qt::LeftButton);
    QTest::mouseClick(f.cmdAddChat, Qt::LeftButton);
    EXPECT_EQ(prompts.calls().size(), 3u);
    EXPECT_EQ(texts(f.lstChatfiles), (QStringList{"insults.txt", "chat1.txt", "taunts.txt"}));
}

TEST(PlugInSetupEditor, DeleteChatRemovesTheSelectedEntryAndNothingWithoutOne) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(2);
    f.lstChatfiles->clearSelection();
    QTest::mouseClick(f.cmdDeleteChat, Qt::LeftButton);
    EXPECT_EQ(f.lstChatfiles->count(), 2);
    select(f.lstChatfiles, "insults.txt");
    QTest::mouseClick(f.cmdDeleteChat, Qt::LeftButton);
    EXPECT_EQ(texts(f.lstChatfiles), (QStringList{"chat1.txt"}));
    QTest::mouseClick(f.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ChatFiles.cfg"), crlf({"chat1.txt"}));
}

TEST(PlugInSetupEditor, AddingASkillWithMidSelectedInsertsAfterIt) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(3);
    select(f.lstSkills, "Mid");
    PromptRecorder prompts;
    prompts.answerInput(QString("X"));
    QTest::mouseClick(f.cmdAddSkill, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Type in the name of the skill level to add here:"));
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Low", "Mid", "X", "Top"}));
}

TEST(PlugInSetupEditor, AddingASkillWithTheFirstEntrySelectedAppendsIt) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(3);
    select(f.lstSkills, "Low");
    PromptRecorder prompts;
    prompts.answerInput(QString("X"));
    QTest::mouseClick(f.cmdAddSkill, Qt::LeftButton);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Low", "Mid", "Top", "X"}));
}

TEST(PlugInSetupEditor, AddingASkillWithNothingSelectedAppendsItAndNamesMayRepeat) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.lstSkills->clearSelection();
    PromptRecorder prompts;
    prompts.answerInput(QString("Mid"));
    prompts.answerInput(QString(""));
    QTest::mouseClick(f.cmdAddSkill, Qt::LeftButton);
    QTest::mouseClick(f.cmdAddSkill, Qt::LeftButton);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Low", "Mid", "Top", "Mid"}));
    QTest::mouseClick(f.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Skills.cfg"), crlf({"2", "Low", "Mid", "Top", "Mid"}));
}

TEST(PlugInSetupEditor, RemoveSkillTakesTheSelectedEntryAndNothingWithoutOne) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.lstSkills->clearSelection();
    QTest::mouseClick(f.cmdRemoveSkill, Qt::LeftButton);
    EXPECT_EQ(f.lstSkills->count(), 3);
    select(f.lstSkills, "Mid");
    QTest::mouseClick(f.cmdRemoveSkill, Qt::LeftButton);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Low", "Top"}));
}

TEST(PlugInSetupEditor, DoubleClickRenamesASkillLevel) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(3);
    PromptRecorder prompts;
    prompts.answerInput(QString("Medium"));
    prompts.answerInput(QString(""));
    const QRect rect = f.lstSkills->visualItemRect(f.lstSkills->item(1));
    QTest::mouseClick(f.lstSkills->viewport(), Qt::LeftButton, {}, rect.center());
    QTest::mouseDClick(f.lstSkills->viewport(), Qt::LeftButton, {}, rect.center());
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Type in the new name for the skill level below"));
    EXPECT_EQ(prompts.last().defaultText, QString("Mid"));
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Low", "Medium", "Top"}));
    QTest::mouseDClick(f.lstSkills->viewport(), Qt::LeftButton, {}, rect.center());
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Low", "Medium", "Top"})); // an empty answer keeps the name
}

TEST(PlugInSetupEditor, MoveSkillUpAndDownKeepTheSelectionAndStopAtTheEnds) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    select(f.lstSkills, "Low");
    QTest::mouseClick(f.cmdMoveSkillUP, Qt::LeftButton);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Low", "Mid", "Top"}));
    EXPECT_EQ(f.lstSkills->currentRow(), 0);
    QTest::mouseClick(f.cmdMoveSkillDown, Qt::LeftButton);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Mid", "Low", "Top"}));
    EXPECT_EQ(f.lstSkills->currentItem()->text(), QString("Low"));
    QTest::mouseClick(f.cmdMoveSkillDown, Qt::LeftButton);
    QTest::mouseClick(f.cmdMoveSkillDown, Qt::LeftButton);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Mid", "Top", "Low"}));
    EXPECT_EQ(f.lstSkills->currentRow(), 2);
}

TEST(PlugInSetupEditor, ChoosingTheSkillsListWhileItIsEmptyFallsBackToTheBuiltInSkills) {
    TempWorkspace ws;
    fillBot(ws);
    ws.write("Plug-Ins/Eraser/Skills.cfg", "");
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(3);
    ASSERT_TRUE(f.optSkills[0]->isChecked());
    PromptRecorder prompts;
    clickOption(f.optSkills[1]);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text,
              QString("You can't - the skills list is empty.  Try adding in some skills first"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(f.optSkills[0]->isChecked());
    EXPECT_FALSE(f.optSkills[1]->isChecked());
}

TEST(PlugInSetupEditor, ChoosingTheBuiltInSkillsDeletesSkillsCfgOnOk) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    clickOption(e.form.optSkills[0]);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(ws.exists("Plug-Ins/Eraser/Skills.cfg"));
}

TEST(PlugInSetupEditor, LeavingTheStartSkillBoxWithTextThatIsNoNumberMakesItZero) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(3);
    QApplication::setActiveWindow(&f);
    retype(f.txtStartSkill, "two");
    QTest::keyClick(f.txtStartSkill, Qt::Key_Tab);
    EXPECT_EQ(f.txtStartSkill->text(), QString("0"));
    retype(f.txtStartSkill, "2");
    PromptRecorder prompts;                           // the input box the button opens is cancelled
    QTest::mouseClick(f.cmdAddSkill, Qt::LeftButton); // focus moves to the button
    EXPECT_EQ(f.txtStartSkill->text(), QString("2"));
}

TEST(PlugInSetupEditor, TheStartArenaSpinControlStepsByOneWhateverTheMove) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    QScrollBar* bar = f.scrlStartArena;
    ASSERT_EQ(f.txtStartArena->text(), QString(" 3"));
    bar->triggerAction(QAbstractSlider::SliderSingleStepSub); // up
    EXPECT_EQ(f.txtStartArena->text(), QString("4"));
    bar->setValue(bar->value() - 40); // a big move up is still one step
    EXPECT_EQ(f.txtStartArena->text(), QString("5"));
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd); // down
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(f.txtStartArena->text(), QString("3"));
    retype(f.txtStartArena, "abc");
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd); // 0 - 1, clamped to the first arena
    EXPECT_EQ(f.txtStartArena->text(), QString("1"));
    retype(f.txtStartArena, "999");
    bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(f.txtStartArena->text(), QString("999"));
    retype(f.txtStartArena, "12345"); // typing is not limited
    EXPECT_EQ(f.txtStartArena->text(), QString("12345"));
    QTest::keyClick(f.txtStartArena, Qt::Key_Down); // the arrow keys step from the keyboard
    EXPECT_EQ(f.txtStartArena->text(), QString("999"));
    QTest::keyClick(f.txtStartArena, Qt::Key_Down);
    EXPECT_EQ(f.txtStartArena->text(), QString("998"));
}

TEST(PlugInSetupEditor, F2OpensTheZoomEditorOnEveryTextBox) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    std::vector<QLineEdit*> boxes = {f.txtBotFolder, f.txtRouteFolder, f.txtRouteFilter, f.txtExtraModelDir,
                                     f.txtReadme,    f.txtDefaultSkin, f.txtStartArena,  f.txtStartSkill};
    boxes.insert(boxes.end(), f.txtFile.begin(), f.txtFile.end());
    for (QLineEdit* box : boxes) {
        f.SSTab1->setCurrentWidget(f.SSTab1->widget(0));
        for (int t = 0; t < f.SSTab1->count(); ++t) {
            if (f.SSTab1->widget(t)->isAncestorOf(box))
                f.SSTab1->setCurrentIndex(t);
        }
        const QString before = box->text();
        QString shown;
        ModalDriver driver([&](QDialog* dialog) {
            auto* zoom = qobject_cast<frmZoom*>(dialog);
            ASSERT_NE(zoom, nullptr);
            shown = zoom->txtText->toPlainText();
            zoom->txtText->setPlainText(QStringLiteral("zoomed\r\n") + box->objectName());
            zoom->cmdOK->click();
        });
        box->setFocus();
        QTest::keyClick(box, Qt::Key_F2);
        EXPECT_TRUE(driver.acted()) << box->objectName().toStdString();
        EXPECT_EQ(shown, before) << box->objectName().toStdString();
        EXPECT_EQ(box->text(), QStringLiteral("zoomed") + box->objectName());
    }
}

TEST(PlugInSetupEditor, SavingTheThirdAutoExecChoiceStoresTheSecond) {
    TempWorkspace ws;
    fillBot(ws);
    {
        Editor e(ws);
        clickOption(e.form.optAutoExec[2]);
        QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    }
    auto expected = kSetup;
    expected[14] = " 1 "; // line 15
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg"), crlf(expected));
    frmEditPlugInSetup again(ws.root(), "Eraser");
    EXPECT_TRUE(again.optAutoExec[1]->isChecked());
}

TEST(PlugInSetupEditor, ABotWithoutSetupFilesShowsTheDefaults) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Fresh");
    PromptRecorder prompts;
    Editor e(ws, "Fresh");
    auto& f = e.form;
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(f.cboGame->currentText(), QString("Quake2"));
    EXPECT_EQ(f.txtBotFolder->text(), QString("Eraser"));
    EXPECT_EQ(f.txtFile[0]->text(), QString("bots.cfg"));
    EXPECT_EQ(f.txtFile[5]->text(), QString("tw.cfg"));
    EXPECT_EQ(f.cboFolder[1]->currentText(), QString("Bot Path"));
    EXPECT_EQ(f.txtRouteFilter->text(), QString("*.zipped"));
    EXPECT_TRUE(f.optAutoExec[0]->isChecked());
    EXPECT_TRUE(f.optChat[0]->isChecked());
    EXPECT_TRUE(f.optSkills[0]->isChecked());
    EXPECT_TRUE(f.optBotConfig[0]->isChecked());
    EXPECT_FALSE(f.chkUseArena->isChecked());
    EXPECT_EQ(f.lstSkills->count(), 0);
    EXPECT_EQ(f.lstChatfiles->count(), 0);
}

TEST(PlugInSetupEditor, ADamagedSetupFileOpensWithWhatCanBeReadAfterTheTrapMessage) {
    TempWorkspace ws;
    ws.write("Plug-Ins/Eraser/Setup.cfg", std::string("Qua\0ke\xff\r\nbots\n\x01\x02\x03 junk\r\n", 22));
    ws.write("Plug-Ins/Eraser/Skills.cfg", std::string("\xfe\xff\0\0", 4));
    PromptRecorder prompts;
    for (int i = 0; i < 30; ++i)
        prompts.answer(PromptAnswer::Ignore);
    frmEditPlugInSetup form(ws.root(), "Eraser");
    ASSERT_FALSE(prompts.calls().empty());
    for (const auto& call : prompts.calls()) {
        EXPECT_EQ(call.title, QString("Loading Bot Plug-In Setup"));
        EXPECT_TRUE(call.text.startsWith("Sod it!  Something has gone wrong!"));
        EXPECT_EQ(call.buttons, PromptButtons::AbortRetryIgnore);
    }
    EXPECT_EQ(form.cboGame->currentText(), QString::fromUtf8("Qua\0ke\xc3\xbf", 8));
    EXPECT_EQ(form.txtBotFolder->text(), QString("bots"));
    EXPECT_EQ(form.cboFolder[0]->currentIndex(), 0); // "\x01\x02\x03 junk" has no leading number
}

TEST(PlugInSetupEditor, TheSkillsListWorksFromTheKeyboard) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.SSTab1->setCurrentIndex(3);
    f.lstSkills->setFocus();
    select(f.lstSkills, "Mid");
    QTest::keyClick(f.lstSkills, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Mid", "Low", "Top"}));
    QTest::keyClick(f.lstSkills, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Low", "Mid", "Top"}));
    PromptRecorder prompts;
    prompts.answerInput(QString("Middle"));
    QTest::keyClick(f.lstSkills, Qt::Key_Return);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Low", "Middle", "Top"}));
    prompts.answerInput(QString("Extra"));
    QTest::keyClick(f.lstSkills, Qt::Key_Insert);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Low", "Middle", "Extra", "Top"}));
    select(f.lstSkills, "Low");
    QTest::keyClick(f.lstSkills, Qt::Key_Delete);
    EXPECT_EQ(texts(f.lstSkills), (QStringList{"Middle", "Extra", "Top"}));
    f.SSTab1->setCurrentIndex(2);
    f.lstChatfiles->setFocus();
    select(f.lstChatfiles, "chat1.txt");
    QTest::keyClick(f.lstChatfiles, Qt::Key_Delete);
    EXPECT_EQ(texts(f.lstChatfiles), (QStringList{"insults.txt"}));
}

TEST(PlugInSetupEditor, AutoExecWizardButtonOpensTheWizardEditorForThisBot) {
    TempWorkspace ws;
    fillBot(ws);
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", {"set fraglimit 20", "Frags"});
    Editor e(ws);
    e.form.SSTab1->setCurrentIndex(2);
    QString opened, caption;
    ModalDriver driver([&](QDialog* dialog) {
        opened = dialog->objectName();
        caption = dialog->windowTitle();
        dialog->reject();
    });
    QTest::mouseClick(e.form.cmdAutoWiz, Qt::LeftButton);
    EXPECT_TRUE(driver.acted());
    EXPECT_EQ(opened, QString("frmEditAutoWiz"));
    EXPECT_EQ(caption, QString("Eraser : Editing AutoExec Wizard Commands"));
}

TEST(PlugInSetupEditor, EditBesideTheGameOpensTheGameEditorForTheGameInTheBox) {
    TempWorkspace ws;
    fillBot(ws);
    ws.writeLines("Game-Paths/LanParty/LanParty.Gme", {"c:\\lan\\", "c:\\lan\\baseq2\\maps\\", "quake2.exe"});
    Editor e(ws);
    auto& f = e.form;
    f.cboGame->setCurrentIndex(f.cboGame->findText("LanParty"));
    QString opened, game;
    ModalDriver driver([&](QDialog* dialog) {
        opened = dialog->objectName();
        if (auto* name = dialog->findChild<QLabel*>("lblGameName"))
            game = name->text();
        dialog->reject();
    });
    QTest::mouseClick(f.cmdEditGame, Qt::LeftButton);
    EXPECT_TRUE(driver.acted());
    EXPECT_EQ(opened, QString("frmEditGame"));
    EXPECT_EQ(game, QString("LanParty"));
}

TEST(PlugInSetupEditor, EditBesideATypedGameWithoutARecordReportsItAndChangesNothing) {
    TempWorkspace ws;
    fillBot(ws);
    const auto before = snapshot(ws);
    Editor e(ws);
    auto& f = e.form;
    f.cboGame->setFocus();
    f.cboGame->lineEdit()->selectAll();
    QTest::keyClicks(f.cboGame->lineEdit(), "Quake3");
    PromptRecorder prompts;
    QTest::mouseClick(f.cmdEditGame, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.endsWith(" - not found")) << prompts.last().text.toStdString();
    EXPECT_TRUE(prompts.last().text.contains("Quake3"));
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(snapshot(ws), before);
}

TEST(PlugInSetupEditor, F1OpensTheGuidePageOfTheSetupEditor) {
    TempWorkspace ws;
    fillBot(ws);
    Editor e(ws);
    QTest::keyClick(e.form.txtBotFolder, Qt::Key_F1);
    auto* help = e.form.findChild<frmHelp*>("frmHelp");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmEditPlugInSetup.html"));
    help->close();
}

} // namespace frmEditPlugInSetup_test
