// The custom map list's OK under faults: a save struck by a full disk (at the first byte, in the
// middle, in the last line), a failed flush or a refused rename shows the trap, leaves the
// category file byte for byte and no temporary file, and Retry saves the list.

#include "core/screens/errortrap.h"
#include "core/workspace.h"
#include "maps/categories.h"
#include "maps/screens/frmCustomMaps.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace frmCustomMaps_saves_test {

using namespace rd;
using rd::test::crlf;
using rd::test::InjectedSaveFault;
using rd::test::PromptCall;
using rd::test::PromptRecorder;
using rd::test::saveFaultPoints;
using rd::test::saveLeftoversIn;
using rd::test::TempWorkspace;

const char* const kFile = "Game-Paths/Quake2/Deathmatch.map";

TEST(CategoryEditorSaves, OkSurvivesEveryFaultAndRetrySavesTheList) {
    const std::string newBytes = crlf({"[ARENA]", "m1", "One", "m2", "Two", "m3", "Three"});
    for (const auto& point : saveFaultPoints(newBytes)) {
        SCOPED_TRACE(point.name);
        TempWorkspace ws;
        ws.writeLines(kFile, {"[V2]", "m1", "One", "m2", "Two", "m3", "Three"});
        const std::string old = ws.read(kFile);
        PromptRecorder prompts;
        frmCustomMaps form(ws.root(), "Quake2", "Deathmatch",
                           categoryPath(ws.root(), "Quake2", "Deathmatch"));
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
        form.chkArena->setChecked(true);
        InjectedSaveFault fault(point.fault);
        prompts.answer(PromptAnswer::Retry);
        prompts.onPrompt = [&](const PromptCall&) {
            EXPECT_EQ(ws.read(kFile), old);
            EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());
            EXPECT_TRUE(form.isVisible());
            fault.lift();
        };
        QTest::mouseClick(form.cmdOK, Qt::LeftButton);
        ASSERT_EQ(prompts.calls().size(), 1u);
        EXPECT_EQ(prompts.last().title, QString("Custom Map Editor - saving"));
        EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
        EXPECT_TRUE(prompts.last().text.startsWith(kTrapLead + "\n"));
        EXPECT_TRUE(prompts.last().text.contains(QString::fromStdString(pathText(ws.path(kFile)))))
            << prompts.last().text.toStdString();
        EXPECT_EQ(ws.read(kFile), newBytes);
        EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());
        EXPECT_FALSE(form.isVisible());
    }
}

TEST(CategoryEditorSaves, AbortAfterAFailedSaveKeepsTheListOpenAndTheFileWhole) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "m1", "One"});
    PromptRecorder prompts;
    frmCustomMaps form(ws.root(), "Quake2", "Deathmatch", categoryPath(ws.root(), "Quake2", "Deathmatch"));
    form.chkArena->setChecked(true);
    InjectedSaveFault fault({native::SaveFault::Step::Write, 3});
    prompts.answer(PromptAnswer::Abort);
    QTest::mouseClick(form.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(form.result(), 0);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", "m1", "One"}));
    EXPECT_TRUE(saveLeftoversIn(ws.path("Game-Paths/Quake2")).empty());
}

} // namespace frmCustomMaps_saves_test
