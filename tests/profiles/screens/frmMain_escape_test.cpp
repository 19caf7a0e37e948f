// The main window ends the program only through "&Quit" or its close button: a stray Escape,
// from a list or from a button, leaves it open.

#include "profiles/screens/frmMain.h"
#include "tests/support/workspace_data.h"

#include <QCloseEvent>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace frmMain_escape_test {

using namespace rd;
using rd::test::TempWorkspace;

struct Shown {
    TempWorkspace ws;
    frmMain form{makeRoot(ws)};
    static std::filesystem::path makeRoot(const TempWorkspace& ws) {
        ws.folder("Plug-Ins/Eraser");
        ws.writeLines("Team A/profile.cfg", {"Eraser"});
        return ws.root();
    }
    Shown() {
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
};

TEST(MainWindowEscape, EscapeInTheBotListLeavesTheMainWindowOpen) {
    Shown s;
    s.form.lstRecognisedBots->setFocus();
    QTest::keyClick(s.form.lstRecognisedBots, Qt::Key_Escape);
    QTest::qWait(50);
    EXPECT_TRUE(s.form.isVisible());
    EXPECT_EQ(s.form.result(), 0);
}

TEST(MainWindowEscape, EscapeOnAButtonOrTheWindowItselfLeavesTheMainWindowOpen) {
    Shown s;
    s.form.cmdOK->setFocus();
    QTest::keyClick(s.form.cmdOK, Qt::Key_Escape);
    QTest::keyClick(&s.form, Qt::Key_Escape);
    QTest::qWait(50);
    EXPECT_TRUE(s.form.isVisible());
}

TEST(MainWindowEscape, TheWindowsCloseButtonStillClosesIt) {
    Shown s;
    EXPECT_TRUE(s.form.close()); // what the close button of the window's frame does
    EXPECT_FALSE(s.form.isVisible());
}

TEST(MainWindowEscape, QuitFromTheKeyboardStillClosesIt) {
    Shown s;
    s.form.lstProfiles->setFocus();
    QTest::keyClick(s.form.lstProfiles, Qt::Key_Q, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !s.form.isVisible(); }, 2000));
}

} // namespace frmMain_escape_test
