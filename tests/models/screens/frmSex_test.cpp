#include "core/screens/errortrap.h"
#include "core/screens/help.h"
#include "models/screens/frmSex.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QComboBox>
#include <QCursor>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace frmSex_test {

using namespace rd;
using rd::test::crlf;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

QStringList texts(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

int selectedRow(const QListWidget* list) {
    QListWidgetItem* current = list->currentItem();
    return current && current->isSelected() ? list->row(current) : -1;
}

// A game's record whose fifth line is `models`.
void writeRecord(const TempWorkspace& ws, const std::string& game, const std::string& models) {
    ws.writeLines("Game-Paths/" + game + "/" + game + ".Gme",
                  {"c:\\quake2\\", "c:\\quake2\\baseq2\\maps\\", "quake2.exe", "", models, "_i.pcx", ""});
}

// Quake2 with four models, two of them female; Tourney with two models and no female list.
void fillWorkspace(const TempWorkspace& ws) {
    for (const char* model : {"male", "female", "cyborg", "crakhor"})
        ws.folder(std::string("q2/baseq2/players/") + model);
    ws.write("q2/baseq2/players/readme.txt", "not a model");
    writeRecord(ws, "Quake2", ws.path("q2/baseq2/players").string());
    ws.writeLines("Game-Paths/Quake2/Female.cfg", {"female", "crakhor"});
    for (const char* model : {"grunt", "lisa"})
        ws.folder(std::string("tourney/players/") + model);
    writeRecord(ws, "Tourney", ws.path("tourney/players").string() + "/");
}

struct Editor {
    frmSex form;
    explicit Editor(const TempWorkspace& ws) : form(ws.root()) {
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&form));
    }
};

QPoint rowCentre(QListWidget* list, int row) {
    return list->visualItemRect(list->item(row)).center();
}

// A point of `target` (in its own coordinates) as seen from `source`'s viewport, where the mouse
// events of a drag keep arriving while the button is held.
QPoint seenFrom(QListWidget* source, QWidget* target, QPoint at) {
    return source->viewport()->mapFromGlobal(target->mapToGlobal(at));
}

bool cursorShows(const frmSex& form, int picture) {
    const QCursor* cursor = QApplication::overrideCursor();
    return cursor &&
           cursor->pixmap().toImage() == form.ImageList1[static_cast<std::size_t>(picture)].toImage();
}

// Drags row `row` of `source` with real mouse events and drops it at `dropAt` (in `dropOn`'s
// coordinates), passing over `via` on the way.
void drag(frmSex& form, QListWidget* source, int row, QWidget* via, QWidget* dropOn, QPoint dropAt) {
    const QPoint start = rowCentre(source, row);
    QTest::mousePress(source->viewport(), Qt::LeftButton, {}, start);
    ASSERT_EQ(selectedRow(source), row);
    QTest::mouseMove(source->viewport(), start + QPoint(2, 0));
    EXPECT_EQ(form.dragPicture(), -1) << "a small move is not a drag yet";
    QTest::mouseMove(source->viewport(), start + QPoint(QApplication::startDragDistance() + 4, 0));
    EXPECT_EQ(form.dragPicture(), frmSex::kPictureOverList);
    EXPECT_TRUE(cursorShows(form, frmSex::kPictureOverList));
    QTest::mouseMove(source->viewport(), seenFrom(source, via, via->rect().center()));
    EXPECT_EQ(form.dragPicture(), frmSex::kPictureAway);
    EXPECT_TRUE(cursorShows(form, frmSex::kPictureAway));
    QTest::mouseMove(source->viewport(), seenFrom(source, dropOn, dropAt));
    QTest::mouseRelease(source->viewport(), Qt::LeftButton, {}, seenFrom(source, dropOn, dropAt));
    EXPECT_EQ(form.dragPicture(), -1);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

// Loading --------------------------------------------------------------------------------------

TEST(SexEditor, ShowsEveryModelAsMaleExceptThoseTheFemaleListNames) {
    TempWorkspace ws;
    fillWorkspace(ws);
    PromptRecorder prompts;
    frmSex form(ws.root());
    EXPECT_EQ(form.objectName(), QString("frmSex"));
    EXPECT_EQ(form.windowTitle(), QString("Quake2 Sex Editor"));
    EXPECT_EQ(form.cboGame->currentText(), QString("Quake2"));
    EXPECT_EQ(texts(form.lstBlokes), (QStringList{"cyborg", "male"}));
    EXPECT_EQ(texts(form.lstLadies), (QStringList{"female", "crakhor"}));
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(form.saveTarget(), ws.path("Game-Paths/Quake2/Female.cfg"));
}

TEST(SexEditor, LabelsCarryTheirWordsAndNameTheirControls) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmSex form(ws.root());
    EXPECT_EQ(form.Label1->text(), QString("Edit Sex for Which Game:"));
    EXPECT_EQ(form.lblMale->text(), QString("Male Models"));
    EXPECT_EQ(form.lblFemale->text(), QString("Female Models"));
    EXPECT_EQ(form.lblinfo->text(), QString("double click or drag and drop to change between lists"));
    EXPECT_EQ(form.Label1->buddy(), form.cboGame);
    EXPECT_EQ(form.lblMale->buddy(), form.lstBlokes);
    EXPECT_EQ(form.lblFemale->buddy(), form.lstLadies);
    EXPECT_EQ(form.lstBlokes->accessibleName(), QString("Male Models"));
    EXPECT_EQ(form.lstLadies->accessibleName(), QString("Female Models"));
    EXPECT_EQ(form.cmdOK->text(), QString("&OK"));
    EXPECT_EQ(form.cmdCancel->text(), QString("&Cancel"));
}

TEST(SexEditor, AFemaleLineInOtherCaseTakesTheModelOutOfTheMaleListAndShowsAsWritten) {
    TempWorkspace ws;
    fillWorkspace(ws);
    ws.writeLines("Game-Paths/Quake2/Female.cfg", {"Male"});
    frmSex form(ws.root());
    EXPECT_EQ(texts(form.lstBlokes), (QStringList{"crakhor", "cyborg", "female"}));
    EXPECT_EQ(texts(form.lstLadies), (QStringList{"Male"}));
}

TEST(SexEditor, AFemaleLineWithoutAModelFolderStaysAndIsWrittenBack) {
    TempWorkspace ws;
    fillWorkspace(ws);
    ws.writeLines("Game-Paths/Quake2/Female.cfg", {"ghost", "female"});
    Editor e(ws);
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"ghost", "female"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(e.form.isVisible());
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), crlf({"ghost", "female"}));
}

TEST(SexEditor, TwoEqualFemaleLinesRemoveAtMostOneMaleEntryEach) {
    TempWorkspace ws;
    fillWorkspace(ws);
    ws.folder("q2/baseq2/players/Female"); // a second folder that differs only in case
    ws.writeLines("Game-Paths/Quake2/Female.cfg", {"FEMALE", "FEMALE", "female"});
    frmSex form(ws.root());
    EXPECT_EQ(texts(form.lstBlokes), (QStringList{"crakhor", "cyborg", "male"}));
    EXPECT_EQ(texts(form.lstLadies), (QStringList{"FEMALE", "FEMALE", "female"}));
}

TEST(SexEditor, AGameWithoutAFemaleListShowsEveryModelAsMaleAndSavingCreatesIt) {
    TempWorkspace ws;
    fillWorkspace(ws);
    ws.writeLines("Game-Paths/Quake2/Female.cfg", {"x"});
    Editor e(ws);
    e.form.cboGame->setFocus();
    QTest::keyClick(e.form.cboGame, Qt::Key_Down);
    ASSERT_EQ(e.form.cboGame->currentText(), QString("Tourney"));
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"grunt", "lisa"}));
    EXPECT_TRUE(texts(e.form.lstLadies).isEmpty());
    EXPECT_FALSE(ws.exists("Game-Paths/Tourney/Female.cfg"));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Game-Paths/Tourney/Female.cfg"), std::string());
}

TEST(SexEditor, SavingAnEmptyFemaleListWritesAnEmptyFile) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Editor e(ws);
    for (int i = 0; i < 2; ++i) {
        const QPoint at = rowCentre(e.form.lstLadies, 0);
        QTest::mouseClick(e.form.lstLadies->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(e.form.lstLadies->viewport(), Qt::LeftButton, {}, at);
    }
    ASSERT_EQ(e.form.lstLadies->count(), 0);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), std::string());
}

TEST(SexEditor, AnEmptyModelsLineSaysSoAndOkThenWritesTheEmptyListOverTheRecord) {
    TempWorkspace ws;
    fillWorkspace(ws);
    ws.folder("Game-Paths/Broken");
    writeRecord(ws, "Broken", "");
    PromptRecorder prompts;
    frmSex form(ws.root());
    ASSERT_EQ(form.cboGame->currentText(), QString("Broken"));
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("No models folder specified"));
    EXPECT_EQ(prompts.last().title, QString("Broken"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(form.lstBlokes->count(), 0);
    EXPECT_EQ(form.lstLadies->count(), 0);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_TRUE(form.isVisible()); // not an error: the screen stays open
    QTest::mouseClick(form.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(ws.read("Game-Paths/Broken/Broken.Gme"), std::string());
    EXPECT_FALSE(ws.exists("Game-Paths/Broken/Female.cfg"));
}

// Moving models ----------------------------------------------------------------------------------

TEST(SexEditor, DoubleClickMovesAModelToTheEndOfTheOtherListBothWays) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Editor e(ws);
    QTest::mouseClick(e.form.lstBlokes->viewport(), Qt::LeftButton, {}, rowCentre(e.form.lstBlokes, 1));
    QTest::mouseDClick(e.form.lstBlokes->viewport(), Qt::LeftButton, {}, rowCentre(e.form.lstBlokes, 1));
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"cyborg"}));
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"female", "crakhor", "male"}));
    QTest::mouseClick(e.form.lstLadies->viewport(), Qt::LeftButton, {}, rowCentre(e.form.lstLadies, 0));
    QTest::mouseDClick(e.form.lstLadies->viewport(), Qt::LeftButton, {}, rowCentre(e.form.lstLadies, 0));
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"cyborg", "female"}));
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"crakhor", "male"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), crlf({"crakhor", "male"}));
}

TEST(SexEditor, WithNothingSelectedADoubleClickMovesNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Editor e(ws);
    const QPoint below(20, e.form.lstBlokes->viewport()->height() - 3);
    QTest::mouseDClick(e.form.lstBlokes->viewport(), Qt::LeftButton, {}, below);
    e.form.lstBlokes_DblClick();
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"cyborg", "male"}));
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"female", "crakhor"}));
}

TEST(SexEditor, EnterMovesTheSelectedModelForKeyboardUsers) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Editor e(ws);
    e.form.lstBlokes->setFocus();
    QTest::keyClick(e.form.lstBlokes, Qt::Key_Down);
    QTest::keyClick(e.form.lstBlokes, Qt::Key_Up);
    ASSERT_EQ(selectedRow(e.form.lstBlokes), 0);
    QTest::keyClick(e.form.lstBlokes, Qt::Key_Return);
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"male"}));
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"female", "crakhor", "cyborg"}));
}

TEST(SexEditor, DraggingAMaleModelOntoTheFemaleListMovesIt) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Editor e(ws);
    drag(e.form, e.form.lstBlokes, 0, e.form.lblinfo, e.form.lstLadies->viewport(),
         e.form.lstLadies->viewport()->rect().center());
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"male"}));
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"female", "crakhor", "cyborg"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), crlf({"female", "crakhor", "cyborg"}));
}

TEST(SexEditor, DraggingAFemaleModelOntoTheMaleListMovesIt) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Editor e(ws);
    drag(e.form, e.form.lstLadies, 1, e.form.cmdOK, e.form.lstBlokes->viewport(), QPoint(10, 5));
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"cyborg", "male", "crakhor"}));
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"female"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), crlf({"female"}));
}

TEST(SexEditor, DroppingAModelOnItsOwnListDoesNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Editor e(ws);
    drag(e.form, e.form.lstBlokes, 0, e.form.Label1, e.form.lstBlokes->viewport(),
         rowCentre(e.form.lstBlokes, 1));
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"cyborg", "male"}));
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"female", "crakhor"}));
    drag(e.form, e.form.lstLadies, 0, e.form.lblMale, e.form.lstLadies->viewport(), QPoint(5, 5));
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"female", "crakhor"}));
}

TEST(SexEditor, DroppingAModelAwayFromTheListsDoesNothing) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Editor e(ws);
    drag(e.form, e.form.lstBlokes, 1, e.form.lblinfo, e.form.cmdCancel, e.form.cmdCancel->rect().center());
    EXPECT_TRUE(e.form.isVisible());
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"cyborg", "male"}));
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"female", "crakhor"}));
}

TEST(SexEditor, TheTwoDragPicturesAreDrawnAndDiffer) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmSex form(ws.root());
    for (const QPixmap& picture : form.ImageList1) {
        EXPECT_FALSE(picture.isNull());
        EXPECT_EQ(picture.size(), QSize(32, 32));
    }
    EXPECT_NE(form.ImageList1[0].toImage(), form.ImageList1[1].toImage());
}

// Games, saving and cancelling -------------------------------------------------------------------

TEST(SexEditor, ChoosingAnotherGameDropsUnsavedMovesAndOnlyTheGameShownIsSaved) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const std::string before = ws.read("Game-Paths/Quake2/Female.cfg");
    Editor e(ws);
    QTest::mouseClick(e.form.lstBlokes->viewport(), Qt::LeftButton, {}, rowCentre(e.form.lstBlokes, 0));
    QTest::keyClick(e.form.lstBlokes, Qt::Key_Return);
    ASSERT_EQ(texts(e.form.lstLadies), (QStringList{"female", "crakhor", "cyborg"}));
    e.form.cboGame->setFocus();
    QTest::keyClick(e.form.cboGame, Qt::Key_Down);
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"grunt", "lisa"}));
    QTest::keyClick(e.form.cboGame, Qt::Key_Up);
    EXPECT_EQ(texts(e.form.lstLadies), (QStringList{"female", "crakhor"}));
    QTest::keyClick(e.form.cboGame, Qt::Key_Down);
    QTest::mouseClick(e.form.lstBlokes->viewport(), Qt::LeftButton, {}, rowCentre(e.form.lstBlokes, 1));
    QTest::keyClick(e.form.lstBlokes, Qt::Key_Return);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Game-Paths/Tourney/Female.cfg"), crlf({"lisa"}));
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), before);
}

TEST(SexEditor, CancelAfterMovesLeavesEveryFileByteForByte) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const std::string female = ws.read("Game-Paths/Quake2/Female.cfg");
    const std::string record = ws.read("Game-Paths/Quake2/Quake2.Gme");
    Editor e(ws);
    drag(e.form, e.form.lstBlokes, 0, e.form.lblinfo, e.form.lstLadies->viewport(), QPoint(5, 5));
    QTest::mouseClick(e.form.lstLadies->viewport(), Qt::LeftButton, {}, rowCentre(e.form.lstLadies, 0));
    QTest::keyClick(e.form.lstLadies, Qt::Key_Return);
    QTest::mouseClick(e.form.cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(e.form.isVisible());
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), female);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Quake2.Gme"), record);
    EXPECT_FALSE(ws.exists("Game-Paths/Tourney/Female.cfg"));
}

TEST(SexEditor, WithNoGamesItSaysSoAndClosesItselfOnceShown) {
    TempWorkspace ws;
    ws.folder("Game-Paths");
    PromptRecorder prompts;
    QPointer<frmSex> form = new frmSex(ws.root());
    form->setAttribute(Qt::WA_DeleteOnClose);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text,
              QString("No games have yet been created.\r\nMost likely, you have not installed "
                      "Tarnwick properly.Run the main program first before trying this"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(form->tag(), QString("UNLOAD"));
    EXPECT_TRUE(form->saveTarget().empty());
    form->show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.isNull(); }, 2000));
}

// Damaged files ------------------------------------------------------------------------------------

TEST(SexEditor, AMissingRecordIsReportedUnderTheInitialisationTitle) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Ignore);
    frmSex form(ws.root());
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Sex Editor - Initialisation"));
    EXPECT_TRUE(prompts.last().text.startsWith(kTrapLead));
    EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
    EXPECT_EQ(form.lstBlokes->count(), 0);
    EXPECT_EQ(form.lstLadies->count(), 0);
}

TEST(SexEditor, ARecordThatIsAFolderIsReportedAndNothingIsWrittenIntoIt) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2/Quake2.Gme");
    PromptRecorder prompts;
    Editor e(ws);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Sex Editor - Initialisation"));
    prompts.clear();
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Saving Female Configuration File"));
    EXPECT_TRUE(std::filesystem::is_directory(ws.path("Game-Paths/Quake2/Quake2.Gme")));
}

TEST(SexEditor, AFemaleListThatIsAFolderLoadsEveryModelAsMaleAndSavingReportsTheError) {
    TempWorkspace ws;
    fillWorkspace(ws);
    std::filesystem::remove(ws.path("Game-Paths/Quake2/Female.cfg"));
    ws.folder("Game-Paths/Quake2/Female.cfg");
    PromptRecorder prompts;
    Editor e(ws);
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"crakhor", "cyborg", "female", "male"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Saving Female Configuration File"));
    EXPECT_TRUE(prompts.last().text.startsWith(kTrapLead));
    EXPECT_TRUE(e.form.isVisible()); // Abort keeps the lists on screen
}

TEST(SexEditor, AFemaleListOfBinaryGarbageOpensAndSavesBackItsLines) {
    TempWorkspace ws;
    fillWorkspace(ws);
    std::string line;
    for (int b = 0; b < 256; ++b)
        if (b != '\r' && b != '\n')
            line.push_back(static_cast<char>(b));
    ws.write("Game-Paths/Quake2/Female.cfg", crlf({line, "female"}));
    PromptRecorder prompts;
    Editor e(ws);
    EXPECT_EQ(e.form.lstLadies->count(), 2);
    EXPECT_EQ(texts(e.form.lstBlokes), (QStringList{"crakhor", "cyborg", "male"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), crlf({line, "female"}));
}

TEST(SexEditor, AFemaleListWithATenMegabyteLineOpens) {
    TempWorkspace ws;
    fillWorkspace(ws);
    const std::string line(10 * 1024 * 1024, 'f');
    ws.write("Game-Paths/Quake2/Female.cfg", crlf({line, "female"}));
    QElapsedTimer clock;
    clock.start();
    Editor e(ws);
    ASSERT_EQ(e.form.lstLadies->count(), 2);
    EXPECT_EQ(e.form.lstLadies->item(0)->text().size(), 10 * 1024 * 1024);
    e.form.repaint();
    EXPECT_LT(clock.elapsed(), 8000);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Female.cfg"), crlf({line, "female"}));
}

TEST(SexEditor, F1OpensItsPageInTheGuide) {
    TempWorkspace ws;
    fillWorkspace(ws);
    Editor e(ws);
    EXPECT_TRUE(helpPageExists("frmSex.html"));
    e.form.lstBlokes->setFocus();
    QTest::keyClick(e.form.lstBlokes, Qt::Key_F1);
    auto* help = e.form.findChild<frmHelp*>("frmHelp");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmSex.html"));
    help->close();
}

} // namespace frmSex_test
