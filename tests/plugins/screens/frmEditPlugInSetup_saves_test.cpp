// The plug-in setup editor's OK from the keyboard and under faults: Alt+O leaves the start skill
// box first, so its check turns "abc" into 0 before it is saved; the game typed is saved as
// typed, never completed to a longer game name; a save struck by a full disk (at the first
// byte, in the middle, in the last line), a failed flush or a refused rename shows the trap,
// leaves the setup files byte for byte, and Retry saves.

#include "core/screens/errortrap.h"
#include "core/workspace.h"
#include "plugins/screens/frmEditPlugInSetup.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace frmEditPlugInSetup_saves_test {

using namespace rd;
using rd::test::crlf;
using rd::test::InjectedSaveFault;
using rd::test::PromptCall;
using rd::test::PromptRecorder;
using rd::test::saveFaultPoints;
using rd::test::saveLeftoversIn;
using rd::test::TempWorkspace;

const std::vector<std::string> kSetup = {
    "Quake2", "Eraser",       " 0 ",   "bots.cfg",     " 0 ",        "chat.txt", " 2 ", "maps.txt",
    " 1 ",    "autoexec.cfg", " 1 ",   "launcher.cfg", " 0 ",        "tw.cfg",   " 0 ", " 2 ",
    "routes", "*.zipped",     "skins", "eraser.txt",   "male/grunt", " 0 ",      " 3"};
const std::vector<std::string> kSkills = {"2", "Low", "Mid", "Top"};

void fillBot(const TempWorkspace& ws) {
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", kSetup);
    ws.writeLines("Plug-Ins/Eraser/ChatFiles.cfg", {"insults.txt", "chat1.txt"});
    ws.writeLines("Plug-Ins/Eraser/Skills.cfg", kSkills);
    ws.folder("Game-Paths/Quake2");
    ws.folder("Game-Paths/LanParty");
}

struct Editor {
    explicit Editor(const TempWorkspace& ws) : form(ws.root(), "Eraser") {
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    frmEditPlugInSetup form;
};

void retype(QLineEdit* box, const QString& text) {
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
}

std::vector<std::string> withLine(std::vector<std::string> lines, std::size_t index,
                                  const std::string& text) {
    lines[index] = text;
    return lines;
}

TEST(PlugInSetupKeyboard, AltOStraightFromTheStartSkillBoxSavesItsCheckedValue) {
    TempWorkspace ws;
    fillBot(ws);
    PromptRecorder prompts;
    Editor e(ws);
    e.form.SSTab1->setCurrentIndex(3);
    retype(e.form.txtStartSkill, "abc");
    QTest::keyClick(e.form.txtStartSkill, Qt::Key_O, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !e.form.isVisible(); }, 2000));
    EXPECT_EQ(e.form.result(), QDialog::Accepted);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Skills.cfg"), crlf({"0", "Low", "Mid", "Top"}));
}

TEST(PlugInSetupKeyboard, TheGameTypedIsSavedAsTypedNotCompletedToALongerGameName) {
    TempWorkspace ws;
    fillBot(ws);
    PromptRecorder prompts;
    Editor e(ws);
    EXPECT_EQ(e.form.cboGame->completer(), nullptr);
    QLineEdit* box = e.form.cboGame->lineEdit();
    retype(box, "Quake");
    EXPECT_EQ(e.form.cboGame->currentText(), QString("Quake"));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg"), crlf(withLine(kSetup, 0, "Quake")));
}

TEST(PlugInSetupSaves, OkSurvivesEveryFaultInEachOfItsFilesAndRetrySavesThem) {
    const auto setup = withLine(kSetup, 0, "LanParty");
    struct File {
        const char* name;
        std::string bytes;
        int savesBefore;
    };
    const std::vector<File> files{{"Setup.cfg", crlf(setup), 0},
                                  {"ChatFiles.cfg", crlf({"insults.txt", "chat1.txt"}), 1},
                                  {"Skills.cfg", crlf(kSkills), 2}};
    for (const auto& file : files) {
        for (auto point : saveFaultPoints(file.bytes)) {
            SCOPED_TRACE(std::string(file.name) + ": " + point.name);
            TempWorkspace ws;
            fillBot(ws);
            const std::string path = std::string("Plug-Ins/Eraser/") + file.name;
            const std::string old = ws.read(path);
            PromptRecorder prompts;
            Editor e(ws);
            retype(e.form.cboGame->lineEdit(), "LanParty");
            point.fault.afterSaves = file.savesBefore;
            InjectedSaveFault fault(point.fault);
            prompts.answer(PromptAnswer::Retry);
            prompts.onPrompt = [&](const PromptCall&) {
                EXPECT_EQ(ws.read(path), old);
                EXPECT_TRUE(saveLeftoversIn(ws.path("Plug-Ins/Eraser")).empty());
                fault.lift();
            };
            QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
            ASSERT_EQ(prompts.calls().size(), 1u);
            EXPECT_EQ(prompts.last().title, QString("Saving Bot Plug-In Setup"));
            EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
            EXPECT_TRUE(prompts.last().text.startsWith(kTrapLead + "\n"));
            EXPECT_TRUE(prompts.last().text.contains(QString::fromStdString(pathText(ws.path(path)))))
                << prompts.last().text.toStdString();
            EXPECT_FALSE(e.form.isVisible());
            EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg"), crlf(setup));
            EXPECT_EQ(ws.read(path), file.bytes);
            EXPECT_TRUE(saveLeftoversIn(ws.path("Plug-Ins/Eraser")).empty());
        }
    }
}

} // namespace frmEditPlugInSetup_saves_test
