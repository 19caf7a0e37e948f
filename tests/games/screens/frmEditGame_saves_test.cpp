// The game editor's OK from the keyboard and under faults: Alt+O and Enter leave the program
// folder box first, so its automatic maps and models folders are saved; a save struck by a full
// disk (at the first byte, in the middle, in the last line), a failed flush or a refused rename
// shows its message, leaves the record byte for byte and keeps the editor open, and OK after the
// fault is lifted saves.

#include "core/workspace.h"
#include "games/screens/frmEditGame.h"
#include "tests/games/screens/games_screens_support.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

namespace frmEditGame_saves_test {

using namespace rd;
using rd::test::crlf;
using rd::test::InjectedSaveFault;
using rd::test::PromptRecorder;
using rd::test::saveFaultPoints;
using rd::test::saveLeftoversIn;
using rd::test::TempWorkspace;

const char* const kRecord = "Game-Paths/Quake2/Quake2.Gme";

const std::vector<std::string> kCreationLines{"c:\\quake2\\",
                                              "c:\\quake2\\baseq2\\maps\\",
                                              "quake2.exe",
                                              "",
                                              "c:\\quake2\\baseq2\\players",
                                              "_i.pcx",
                                              ""};

// What OK saves after the program folder d:\games\q2 was typed and left.
const std::string kSavedWithNewFolder =
    crlf({"d:\\games\\q2", "d:\\games\\q2\\baseq2\\maps", "quake2.exe", "", "d:\\games\\q2\\baseq2\\players",
          "_i.pcx", "", "tris.md2", " 0 ", " 1 ", " 1 ", "c:\\quake2\\baseq2\\maps\\"});

std::unique_ptr<frmEditGame> openEditor(const TempWorkspace& ws) {
    auto form = std::make_unique<frmEditGame>(ws.root(), "Quake2");
    EXPECT_TRUE(rd::test::showActive(form.get()));
    return form;
}

// Types a new program folder and stays in the box.
void typeProgramFolder(frmEditGame& form) {
    rd::test::clickInto(form.txtLocationOfExe);
    rd::test::typeInto(form.txtLocationOfExe, "d:\\games\\q2");
    ASSERT_TRUE(form.txtLocationOfExe->hasFocus());
}

TEST(GameEditorKeyboard, AltOStraightFromTheProgramFolderSavesTheAutomaticMapsAndModelsFolders) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kCreationLines);
    PromptRecorder prompts;
    auto form = openEditor(ws);
    typeProgramFolder(*form);
    QTest::keyClick(form->txtLocationOfExe, Qt::Key_O, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !form->isVisible(); }, 2000));
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(ws.read(kRecord), kSavedWithNewFolder);
}

TEST(GameEditorKeyboard, EnterStraightFromTheProgramFolderSavesTheAutomaticMapsAndModelsFolders) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kCreationLines);
    PromptRecorder prompts;
    auto form = openEditor(ws);
    typeProgramFolder(*form);
    QTest::keyClick(form->txtLocationOfExe, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(ws.read(kRecord), kSavedWithNewFolder);
}

TEST(GameEditorSaves, OkSurvivesEveryFaultKeepsTheEditorOpenAndSavesOnceTheFaultIsLifted) {
    const std::string newBytes =
        crlf({"c:\\quake2\\", "c:\\quake2\\baseq2\\maps\\", "q2.exe", "", "c:\\quake2\\baseq2\\players",
              "_i.pcx", "", "tris.md2", " 0 ", " 1 ", " 1 ", "c:\\quake2\\baseq2\\maps\\"});
    for (const auto& point : saveFaultPoints(newBytes)) {
        SCOPED_TRACE(point.name);
        TempWorkspace ws;
        ws.writeLines(kRecord, kCreationLines);
        const std::string old = ws.read(kRecord);
        PromptRecorder prompts;
        auto form = openEditor(ws);
        rd::test::clickInto(form->txtEXEName);
        rd::test::typeInto(form->txtEXEName, "q2.exe");
        {
            InjectedSaveFault fault(point.fault);
            QTest::mouseClick(form->cmdOK, Qt::LeftButton);
        }
        ASSERT_EQ(prompts.calls().size(), 1u);
        EXPECT_EQ(prompts.last().title, QString("Saving Game Path IInfo"));
        EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
        EXPECT_TRUE(prompts.last().text.contains(QString::fromStdString(pathText(ws.path(kRecord)))))
            << prompts.last().text.toStdString();
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(ws.read(kRecord), old);
        EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());

        QTest::mouseClick(form->cmdOK, Qt::LeftButton);
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(ws.read(kRecord), newBytes);
        EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());
    }
}

} // namespace frmEditGame_saves_test
