// Saving the female list from the gender editor: a failed read of Female.cfg makes it the save
// target all the same (the game's record is never written over), and OK survives a full disk
// at the first byte, in the middle and in the last line, a failed flush and a refused rename.

#include "core/screens/errortrap.h"
#include "core/workspace.h"
#include "models/screens/frmSex.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace frmSex_saves_test {

using namespace rd;
using rd::test::crlf;
using rd::test::InjectedSaveFault;
using rd::test::PromptCall;
using rd::test::PromptRecorder;
using rd::test::saveFaultPoints;
using rd::test::saveLeftoversIn;
using rd::test::TempWorkspace;

QStringList texts(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

// Quake2 with four models, two of them in its female list.
void fillWorkspace(const TempWorkspace& ws) {
    for (const char* model : {"male", "female", "cyborg", "crakhor"})
        ws.folder(std::string("q2/baseq2/players/") + model);
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {"c:\\quake2\\", "c:\\quake2\\baseq2\\maps\\", "quake2.exe",
                                                   "", ws.path("q2/baseq2/players").string(), "_i.pcx", ""});
    ws.writeLines("Game-Paths/Quake2/Female.cfg", {"female", "crakhor"});
}

// Moves the first male model to the female list, as a keyboard user does.
void moveFirstMaleModel(frmSex& form) {
    form.lstBlokes->setFocus();
    form.lstBlokes->setCurrentRow(0);
    QTest::keyClick(form.lstBlokes, Qt::Key_Return);
}

#ifndef _WIN32

// Female.cfg as a pipe: it "exists", but reading it fails ("is not a plain file").
void makeFemaleListUnreadable(const TempWorkspace& ws) {
    std::filesystem::remove(ws.path("Game-Paths/Quake2/Female.cfg"));
    ASSERT_EQ(::mkfifo(ws.path("Game-Paths/Quake2/Female.cfg").c_str(), 0644), 0);
}

void expectFailedFemaleReadSavesToFemaleCfg(PromptAnswer answer) {
    TempWorkspace ws;
    fillWorkspace(ws);
    makeFemaleListUnreadable(ws);
    const std::string record = ws.read("Game-Paths/Quake2/Quake2.Gme");
    PromptRecorder prompts;
    prompts.answer(answer);
    // The user puts the file right while the message is up.
    prompts.onPrompt = [&](const PromptCall&) {
        std::filesystem::remove(ws.path("Game-Paths/Quake2/Female.cfg"));
    };
    frmSex form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Sex Editor - Initialisation"));
    EXPECT_TRUE(prompts.last().text.contains("is not a plain file")) << prompts.last().text.toStdString();
    EXPECT_EQ(form.saveTarget(), ws.path("Game-Paths/Quake2/Female.cfg"));
    // The male list read before the failure stays on screen.
    EXPECT_EQ(texts(form.lstBlokes), (QStringList{"crakhor", "cyborg", "female", "male"}));
    EXPECT_TRUE(texts(form.lstLadies).isEmpty());

    moveFirstMaleModel(form);
    prompts.onPrompt = nullptr;
    QTest::mouseClick(form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), crlf({"crakhor"}));
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Quake2.Gme"), record);
}

TEST(SexEditorSaves, AFailedReadOfFemaleCfgAnsweredIgnoreSavesToFemaleCfgNotOverTheRecord) {
    expectFailedFemaleReadSavesToFemaleCfg(PromptAnswer::Ignore);
}

TEST(SexEditorSaves, AFailedReadOfFemaleCfgAnsweredAbortSavesToFemaleCfgNotOverTheRecord) {
    expectFailedFemaleReadSavesToFemaleCfg(PromptAnswer::Abort);
}

#endif

TEST(SexEditorSaves, OkSurvivesAFullDiskAtTheFirstByteTheMiddleAndTheLastLineAndRetrySaves) {
    const std::string newBytes = crlf({"female", "crakhor", "cyborg"});
    for (const auto& point : saveFaultPoints(newBytes)) {
        SCOPED_TRACE(point.name);
        TempWorkspace ws;
        fillWorkspace(ws);
        const std::string old = ws.read("Game-Paths/Quake2/Female.cfg");
        PromptRecorder prompts;
        frmSex form(ws.root());
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
        moveFirstMaleModel(form);
        InjectedSaveFault fault(point.fault);
        prompts.answer(PromptAnswer::Retry);
        prompts.onPrompt = [&](const PromptCall&) {
            EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), old);
            EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());
            EXPECT_TRUE(form.isVisible());
            fault.lift();
        };
        QTest::mouseClick(form.cmdOK, Qt::LeftButton);
        ASSERT_EQ(prompts.calls().size(), 1u);
        EXPECT_EQ(prompts.last().title, QString("Saving Female Configuration File"));
        EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
        EXPECT_TRUE(prompts.last().text.startsWith(kTrapLead + "\n"));
        EXPECT_TRUE(prompts.last().text.contains(
            QString::fromStdString(pathText(ws.path("Game-Paths/Quake2/Female.cfg")))));
        EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), newBytes);
        EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());
        EXPECT_FALSE(form.isVisible());
    }
}

TEST(SexEditorSaves, IgnoreAfterAFailedSaveLeavesTheOldListWhole) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const std::string old = ws.read("Game-Paths/Quake2/Female.cfg");
    PromptRecorder prompts;
    frmSex form(ws.root());
    moveFirstMaleModel(form);
    InjectedSaveFault fault({native::SaveFault::Step::Write, 9});
    prompts.answer(PromptAnswer::Ignore);
    QTest::mouseClick(form.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), old);
    EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());
}

} // namespace frmSex_saves_test
