// A new bot's copies of its base bot's files are whole or absent: a full disk in the middle of
// a copy leaves no half file, and Retry copies it again. What an interrupted save left in the
// base bot's folder is not copied.

#include "core/filesave.h"
#include "core/workspace.h"
#include "profiles/botcommands.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace savefaults_test {

using namespace rd;
using rd::test::expectSavesSurviveFaults;
using rd::test::TempWorkspace;

TEST(BotCopyFaults, ACopyCutShortLeavesNoHalfFileAndRetryCopiesItWhole) {
    TempWorkspace ws;
    std::string routes;
    for (int i = 0; i < 5000; ++i)
        routes += "node " + std::to_string(i) + "\r\n";
    ws.write("Plug-Ins/Eraser/routes.dat", routes);
    ws.folder("Plug-Ins/Clone");
    expectSavesSurviveFaults(
        ws.path("Plug-Ins/Clone/routes.dat"),
        [&](StepRunner& runner) { EXPECT_TRUE(CopyBaseBotFiles(ws.root(), "Clone", "Eraser", runner)); },
        routes);
}

TEST(BotCopyFaults, WhatAnInterruptedSaveLeftInTheBaseBotIsNotCopied) {
    TempWorkspace ws;
    ws.write("Plug-Ins/Eraser/Setup.cfg", "Quake2\r\n");
    ws.write("Plug-Ins/Eraser/" + saveTemporaryName("Setup.cfg", 3999999990), "Quak");
    ws.folder("Plug-Ins/Clone");
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    EXPECT_TRUE(CopyBaseBotFiles(ws.root(), "Clone", "Eraser", runner));
    EXPECT_TRUE(errors.empty());
    EXPECT_EQ(ws.read("Plug-Ins/Clone/Setup.cfg"), "Quake2\r\n");
    EXPECT_EQ(listFiles(ws.path("Plug-Ins/Clone")), std::vector<std::string>{"Setup.cfg"});
}

} // namespace savefaults_test
