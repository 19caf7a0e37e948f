#include "core/screens/errortrap.h"
#include "maps/arenas.h"
#include "maps/screens/frmEditArena.h"
#include "tests/maps/screens/maps_screen_helpers.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace frmEditArena_test {

using namespace rd;
using rd::test::clickEntry;
using rd::test::clickRow;
using rd::test::crlf;
using rd::test::doubleClickRow;
using rd::test::entryNames;
using rd::test::PopupDriver;
using rd::test::PromptCall;
using rd::test::PromptRecorder;
using rd::test::selectedRow;
using rd::test::TempWorkspace;
using rd::test::texts;

const char* const kFile = "Game-Paths/Quake2/q2dm1.ra2";

struct Editor {
    frmEditArena form;
    explicit Editor(const TempWorkspace& ws, const char* map = "q2dm1")
        : form(arenaPath(ws.root(), "Quake2", map), map) {
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&form));
    }
};

// A right-button press and release at `y` (viewport pixels) over the list; `entry` (may be null)
// is clicked in the popup, which otherwise is closed.
void rightClickAt(QListWidget* list, int y, const char* entry, QStringList* names = nullptr,
                  QString* defaultEntry = nullptr) {
    PopupDriver driver([=](QMenu* menu) {
        if (names)
            *names = entryNames(menu);
        if (defaultEntry)
            *defaultEntry = menu->defaultAction() ? menu->defaultAction()->objectName() : QString();
        if (entry)
            clickEntry(menu, entry);
        else
            menu->close();
    });
    QTest::mousePress(list->viewport(), Qt::RightButton, {}, QPoint(20, y));
    QTest::mouseRelease(list->viewport(), Qt::RightButton, {}, QPoint(20, y));
    EXPECT_TRUE(driver.acted());
}

int rowCentre(QListWidget* list, int row) {
    return list->visualItemRect(list->item(row)).center().y();
}

TEST(ArenaList, TheCaptionNamesTheMap) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    Editor e(ws);
    EXPECT_EQ(e.form.objectName(), QString("frmEditArena"));
    EXPECT_EQ(e.form.windowTitle(), QString("Editing q2dm1 Arenas"));
    EXPECT_EQ(e.form.lblArenas->buddy(), e.form.lstArenas);
    EXPECT_FALSE(e.form.lstArenas->accessibleName().isEmpty());
}

TEST(ArenaList, AFileWithAnEmptyLineLoadsThreeEntriesAndSavesTheSameThreeLines) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "", "b"});
    Editor e(ws);
    EXPECT_EQ(texts(e.form.lstArenas), (QStringList{"a", "", "b"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(e.form.isVisible());
    EXPECT_EQ(ws.read(kFile), crlf({"a", "", "b"}));
}

TEST(ArenaList, ALastLineWithoutItsLineEndLoadsAndSavingAddsIt) {
    TempWorkspace ws;
    ws.write(kFile, "Upper Deck\r\nRail Room");
    Editor e(ws);
    EXPECT_EQ(texts(e.form.lstArenas), (QStringList{"Upper Deck", "Rail Room"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"Upper Deck", "Rail Room"}));
}

TEST(ArenaList, AMissingFileLoadsEmptyAndOkCreatesIt) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    Editor e(ws);
    EXPECT_EQ(e.form.lstArenas->count(), 0);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_TRUE(ws.exists(kFile));
    EXPECT_EQ(ws.read(kFile), std::string());
}

TEST(ArenaList, AddingWithNoSelectionAppendsAndSelectsTheNewEntry) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "b"});
    PromptRecorder prompts;
    prompts.answerInput(QString("c"));
    Editor e(ws);
    e.form.lstArenas->setFocus();
    ASSERT_EQ(selectedRow(e.form.lstArenas), -1);
    QTest::keyClick(e.form.lstArenas, Qt::Key_Insert);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().kind, PromptCall::Kind::Input);
    EXPECT_EQ(prompts.last().text, QString("Type in the name of an arena to add here:"));
    EXPECT_EQ(texts(e.form.lstArenas), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(selectedRow(e.form.lstArenas), 2);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"a", "b", "c"}));
}

TEST(ArenaList, AddingWithTheFirstEntrySelectedInsertsAtPositionTwo) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "b", "c"});
    PromptRecorder prompts;
    prompts.answerInput(QString("new"));
    Editor e(ws);
    rightClickAt(e.form.lstArenas, rowCentre(e.form.lstArenas, 0), "mnuPopupAdd");
    EXPECT_EQ(texts(e.form.lstArenas), (QStringList{"a", "new", "b", "c"}));
    EXPECT_EQ(selectedRow(e.form.lstArenas), 1);
}

TEST(ArenaList, AddingAnEmptyNameOrCancellingDoesNothing) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a"});
    PromptRecorder prompts;
    prompts.answerInput(QString(""));
    prompts.answerInput(std::nullopt);
    Editor e(ws);
    QTest::keyClick(e.form.lstArenas, Qt::Key_Insert);
    QTest::keyClick(e.form.lstArenas, Qt::Key_Insert);
    EXPECT_EQ(texts(e.form.lstArenas), (QStringList{"a"}));
}

TEST(ArenaList, EnterEditsTheSelectedNameInPlaceWithItAsTitleAndDefault) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "b", "c"});
    PromptRecorder prompts;
    prompts.answerInput(QString("Bee"));
    prompts.answerInput(QString(""));
    Editor e(ws);
    clickRow(e.form.lstArenas, 1);
    QTest::keyClick(e.form.lstArenas, Qt::Key_Return);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Type the new name for the arena here:"));
    EXPECT_EQ(prompts.last().title, QString("b"));
    EXPECT_EQ(prompts.last().defaultText, QString("b"));
    EXPECT_EQ(texts(e.form.lstArenas), (QStringList{"a", "Bee", "c"}));
    // An empty answer leaves the name as it is.
    doubleClickRow(e.form.lstArenas, 1);
    EXPECT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(texts(e.form.lstArenas), (QStringList{"a", "Bee", "c"}));
}

TEST(ArenaList, EditWithNothingSelectedAsksNothing) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a"});
    PromptRecorder prompts;
    Editor e(ws);
    e.form.lstArenas->setFocus();
    QTest::keyClick(e.form.lstArenas, Qt::Key_Return);
    QTest::keyClick(e.form.lstArenas, Qt::Key_Delete);
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_TRUE(e.form.isVisible());
}

TEST(ArenaList, DeleteAsksAndOnlyYesRemovesTheEntry) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "b", "c"});
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::No);
    prompts.answer(PromptAnswer::Cancel);
    prompts.answer(PromptAnswer::Yes);
    Editor e(ws);
    clickRow(e.form.lstArenas, 1);
    QTest::keyClick(e.form.lstArenas, Qt::Key_Delete);
    rightClickAt(e.form.lstArenas, rowCentre(e.form.lstArenas, 1), "mnuPopupDelete");
    EXPECT_EQ(texts(e.form.lstArenas), (QStringList{"a", "b", "c"}));
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().text, QString("Delete arena, are you sure?"));
    EXPECT_EQ(prompts.last().title, QString("b"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::YesNoCancel);
    QTest::keyClick(e.form.lstArenas, Qt::Key_Delete);
    EXPECT_EQ(texts(e.form.lstArenas), (QStringList{"a", "c"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"a", "c"}));
}

TEST(ArenaList, SavingAnEmptiedListWritesAFileOfZeroBytes) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "b"});
    PromptRecorder prompts;
    Editor e(ws);
    clickRow(e.form.lstArenas, 0);
    QTest::keyClick(e.form.lstArenas, Qt::Key_Delete);
    clickRow(e.form.lstArenas, 0);
    QTest::keyClick(e.form.lstArenas, Qt::Key_Delete);
    ASSERT_EQ(e.form.lstArenas->count(), 0);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_TRUE(ws.exists(kFile));
    EXPECT_EQ(ws.read(kFile), std::string());
}

TEST(ArenaList, MoveUpAndDownThroughThePopupAndNothingAtTheEnds) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "b", "c"});
    Editor e(ws);
    QListWidget* list = e.form.lstArenas;
    rightClickAt(list, rowCentre(list, 0), "mnuPopupMoveUp");
    EXPECT_EQ(texts(list), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(selectedRow(list), 0);
    rightClickAt(list, rowCentre(list, 0), "mnuPopupMoveDown");
    EXPECT_EQ(texts(list), (QStringList{"b", "a", "c"}));
    EXPECT_EQ(selectedRow(list), 1);
    rightClickAt(list, rowCentre(list, 2), "mnuPopupMoveDown");
    EXPECT_EQ(texts(list), (QStringList{"b", "a", "c"}));
    EXPECT_EQ(selectedRow(list), 2);
    rightClickAt(list, rowCentre(list, 2), "mnuPopupMoveUp");
    EXPECT_EQ(texts(list), (QStringList{"b", "c", "a"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"b", "c", "a"}));
}

TEST(ArenaList, CtrlUAndCtrlDMoveTheSelectionAndDoNothingAtEitherEnd) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "b", "c"});
    Editor e(ws);
    QListWidget* list = e.form.lstArenas;
    clickRow(list, 0);
    QTest::keyClick(list, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(texts(list), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(selectedRow(list), 0);
    QTest::keyClick(list, Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(list, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(texts(list), (QStringList{"b", "c", "a"}));
    EXPECT_EQ(selectedRow(list), 2);
    QTest::keyClick(list, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(texts(list), (QStringList{"b", "c", "a"}));
    EXPECT_EQ(selectedRow(list), 2);
    QTest::keyClick(list, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(texts(list), (QStringList{"b", "a", "c"}));
    EXPECT_EQ(selectedRow(list), 1);
}

TEST(ArenaList, ARightClickBelowTheLastEntrySelectsTheLastEntryBeforeThePopup) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "b", "c"});
    Editor e(ws);
    clickRow(e.form.lstArenas, 0);
    int selectedWhenShown = -2;
    PopupDriver driver([&](QMenu* menu) {
        selectedWhenShown = selectedRow(e.form.lstArenas);
        menu->close();
    });
    const int below = e.form.lstArenas->viewport()->height() - 3;
    ASSERT_GT(below, rowCentre(e.form.lstArenas, 2) + 10);
    QTest::mousePress(e.form.lstArenas->viewport(), Qt::RightButton, {}, QPoint(20, below));
    EXPECT_EQ(selectedRow(e.form.lstArenas), 0); // nothing happens on the press
    QTest::mouseRelease(e.form.lstArenas->viewport(), Qt::RightButton, {}, QPoint(20, below));
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(selectedWhenShown, 2);
}

TEST(ArenaList, ThePopupHoldsItsEntriesInOrderWithEditAsDefault) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "b"});
    Editor e(ws);
    QStringList names;
    QString defaultEntry;
    rightClickAt(e.form.lstArenas, rowCentre(e.form.lstArenas, 1), nullptr, &names, &defaultEntry);
    EXPECT_EQ(names, (QStringList{"mnuPopupEdit", "mnuPopupAdd", "-", "mnuPopupMoveUp", "mnuPopupMoveDown",
                                  "-", "mnuPopupDelete"}));
    EXPECT_EQ(defaultEntry, QString("mnuPopupEdit"));
    EXPECT_EQ(selectedRow(e.form.lstArenas), 1);
}

TEST(ArenaList, TheContextMenuKeyOpensThePopup) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"a", "b"});
    PromptRecorder prompts;
    prompts.answerInput(QString("z"));
    Editor e(ws);
    clickRow(e.form.lstArenas, 0);
    PopupDriver driver([](QMenu* menu) { clickEntry(menu, "mnuPopupEdit"); });
    QTest::keyClick(e.form.lstArenas, Qt::Key_Menu);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(texts(e.form.lstArenas), (QStringList{"z", "b"}));
}

TEST(ArenaList, CancelAfterEditsLeavesTheFileByteForByte) {
    TempWorkspace ws;
    ws.write(kFile, "one\r\ntwo\r\n\r\nthree");
    const std::string before = ws.read(kFile);
    PromptRecorder prompts;
    prompts.answerInput(QString("added"));
    prompts.answerInput(QString("renamed"));
    Editor e(ws);
    QListWidget* list = e.form.lstArenas;
    clickRow(list, 1);
    QTest::keyClick(list, Qt::Key_Insert);
    QTest::keyClick(list, Qt::Key_Return);
    QTest::keyClick(list, Qt::Key_U, Qt::ControlModifier);
    clickRow(list, 3);
    QTest::keyClick(list, Qt::Key_Delete);
    ASSERT_NE(texts(list), (QStringList{"one", "two", "", "three"}));
    QTest::mouseClick(e.form.cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(e.form.isVisible());
    EXPECT_EQ(ws.read(kFile), before);
}

TEST(ArenaList, BinaryGarbageOpensAndSavesBackItsLines) {
    TempWorkspace ws;
    std::string line;
    for (int b = 0; b < 256; ++b)
        if (b != '\r' && b != '\n')
            line.push_back(static_cast<char>(b));
    ws.write(kFile, crlf({line, line}));
    PromptRecorder prompts;
    Editor e(ws);
    EXPECT_EQ(e.form.lstArenas->count(), 2);
    EXPECT_TRUE(prompts.calls().empty());
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({line, line}));
}

TEST(ArenaList, ATenMegabyteLineOpensAsOneEntry) {
    TempWorkspace ws;
    const std::string line(10 * 1024 * 1024, 'a');
    ws.write(kFile, crlf({"first", line}));
    QElapsedTimer clock;
    clock.start();
    Editor e(ws);
    ASSERT_EQ(e.form.lstArenas->count(), 2);
    EXPECT_EQ(e.form.lstArenas->item(1)->text().size(), 10 * 1024 * 1024);
    e.form.repaint();
    EXPECT_LT(clock.elapsed(), 8000); // drawn whole, such a line took a minute
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"first", line}));
}

TEST(ArenaList, AFolderWhereTheFileShouldBeOpensEmptyAndOkReportsTheError) {
    TempWorkspace ws;
    ws.folder(kFile);
    PromptRecorder prompts;
    Editor e(ws);
    EXPECT_EQ(e.form.lstArenas->count(), 0);
    EXPECT_TRUE(prompts.calls().empty());
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.startsWith(kTrapLead));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(e.form.isVisible());
    EXPECT_TRUE(std::filesystem::is_directory(ws.path(kFile)));
}

TEST(ArenaList, AFileThatCannotBeReadIsReportedWhenTheListOpens) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
#ifdef _WIN32
    GTEST_SKIP() << "a named pipe in a file's place is POSIX only";
#else
    ASSERT_EQ(::mkfifo(ws.path(kFile).c_str(), 0600), 0);
#endif
    PromptRecorder prompts;
    frmEditArena form(arenaPath(ws.root(), "Quake2", "q2dm1"), "q2dm1");
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.startsWith(kTrapLead));
    EXPECT_EQ(form.lstArenas->count(), 0);
}

} // namespace frmEditArena_test
