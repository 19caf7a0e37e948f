// The game editor on screen: loading a record into its fields, the automatic fill of the maps
// and models folders, the choosers, the batch file buttons, saving, cancelling and damaged
// records.

#include "core/screens/frmZoom.h"
#include "core/screens/help.h"
#include "core/screens/userfont.h"
#include "dialogs/frmFindFolder.h"
#include "games/screens/frmEditGame.h"
#include "games/screens/frmGameTemplate.h"
#include "tests/games/screens/games_screens_support.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

namespace frmEditGame_test {

using namespace rd;
using rd::test::crlf;
using rd::test::DesktopRecorder;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

const char* const kRecord = "Game-Paths/Quake2/Quake2.Gme";

const std::vector<std::string> kCreationLines{"c:\\quake2\\",
                                              "c:\\quake2\\baseq2\\maps\\",
                                              "quake2.exe",
                                              "",
                                              "c:\\quake2\\baseq2\\players",
                                              "_i.pcx",
                                              ""};

const std::vector<std::string> kFullRecord{"d:\\games\\q2\\",
                                           "d:\\games\\q2\\baseq2\\maps\\",
                                           "quake2.exe",
                                           "e:\\",
                                           "d:\\games\\q2\\baseq2\\players",
                                           "_i.pcx",
                                           "d:\\games\\q2\\server.bat",
                                           "tris.md2",
                                           " 2 ",
                                           " 0 ",
                                           " 1 ",
                                           "d:\\games\\q2\\readme"};

// Opens the editor on a workspace, shown as the active window.
std::unique_ptr<frmEditGame> openEditor(const TempWorkspace& ws, const std::string& game = "Quake2") {
    auto form = std::make_unique<frmEditGame>(ws.root(), game);
    EXPECT_TRUE(rd::test::showActive(form.get()));
    return form;
}

QStringList fieldTexts(const frmEditGame& form) {
    QStringList out;
    for (QLineEdit* box : form.textBoxes())
        out << box->text();
    return out;
}

// Leaves the program folder box with the Tab key.
void tabOutOf(QWidget* box) {
    QTest::keyClick(box, Qt::Key_Tab);
}

TEST(GameEditor, ShowsTheGameNameAndEveryFieldOfTheRecord) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    PromptRecorder prompts;
    frmEditGame form(ws.root(), "Quake2");
    EXPECT_EQ(form.windowTitle(), QString("Edit Game"));
    EXPECT_EQ(form.lblGameName->text(), QString("Quake2"));
    EXPECT_EQ(fieldTexts(form),
              (QStringList{"d:\\games\\q2\\", "d:\\games\\q2\\baseq2\\maps\\", "quake2.exe", "e:\\",
                           "d:\\games\\q2\\baseq2\\players", "_i.pcx", "d:\\games\\q2\\server.bat",
                           "tris.md2", "d:\\games\\q2\\readme"}));
    EXPECT_EQ(form.cboStartType->currentIndex(), 2);
    EXPECT_EQ(form.cboStartType->currentText(), QString("Minimized with Focus"));
    EXPECT_FALSE(form.chkLaunchBatchDirect->isChecked());
    EXPECT_TRUE(form.chkFinishSample->isChecked());
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(GameEditor, EveryLabelCaptionAndHintReadsAsTheLauncherShowsIt) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kCreationLines);
    frmEditGame form(ws.root(), "Quake2");
    EXPECT_EQ(form.lblGamePathsFor->text(), QString("Game Paths For:"));
    ASSERT_EQ(form.SSTab1->count(), 2);
    EXPECT_EQ(form.SSTab1->tabText(0), QString("&Paths"));
    EXPECT_EQ(form.SSTab1->tabText(1), QString("&Advanced"));

    const std::vector<std::pair<QLabel*, QWidget*>> labelled = {
        {form.lblLocationOfExe, form.txtLocationOfExe},
        {form.lblEXEName, form.txtEXEName},
        {form.lblMapLocation, form.txtMapLocation},
        {form.lblCDPath, form.txtCDPath},
        {form.lblModels, form.txtModels},
        {form.lblMapReadMe, form.txtMapReadMe},
        {form.lblSkinFilter, form.txtSkinFilter},
        {form.lblBatchFile, form.txtBatchFile},
        {form.lblModelName, form.txtModelName},
        {form.lblStartType, form.cboStartType}};
    const QStringList labels{
        "Location of Game EXE File:", "Name of Game EXE File:", "Location of Maps:",
        "Optional CD Data Path:",     "Location of Models:",    "Location of Map ReadMe's:",
        "Skin File Filter:",          "Launch Batch File:",     "Model Name to Display:",
        "How to Start the Game:"};
    for (std::size_t i = 0; i < labelled.size(); ++i) {
        EXPECT_EQ(labelled[i].first->text(), labels[static_cast<qsizetype>(i)]);
        EXPECT_EQ(labelled[i].first->buddy(), labelled[i].second)
            << labels[static_cast<qsizetype>(i)].toStdString();
    }
    // The fields sit on their tabs.
    for (QWidget* w : {static_cast<QWidget*>(form.txtLocationOfExe), static_cast<QWidget*>(form.txtEXEName),
                       static_cast<QWidget*>(form.txtMapLocation), static_cast<QWidget*>(form.txtCDPath),
                       static_cast<QWidget*>(form.txtModels)})
        EXPECT_TRUE(form.SSTab1->widget(0)->isAncestorOf(w)) << w->objectName().toStdString();
    for (QWidget* w :
         {static_cast<QWidget*>(form.txtMapReadMe), static_cast<QWidget*>(form.txtSkinFilter),
          static_cast<QWidget*>(form.txtBatchFile), static_cast<QWidget*>(form.txtModelName),
          static_cast<QWidget*>(form.cboStartType), static_cast<QWidget*>(form.chkLaunchBatchDirect),
          static_cast<QWidget*>(form.chkFinishSample), static_cast<QWidget*>(form.cmdBatchNote),
          static_cast<QWidget*>(form.cmdTemplate)})
        EXPECT_TRUE(form.SSTab1->widget(1)->isAncestorOf(w)) << w->objectName().toStdString();

    QStringList types;
    for (int i = 0; i < form.cboStartType->count(); ++i)
        types << form.cboStartType->itemText(i);
    EXPECT_EQ(types,
              (QStringList{"Hidden", "Normal with Focus", "Minimized with Focus", "Maximized with Focus",
                           "Normal with no Focus", "Minimized with no Focus"}));
    EXPECT_EQ(form.lblStartTypeHint->text(),
              QString("Keep this set to \"hidden\" unless you have good reason to change it"));
    EXPECT_EQ(form.chkLaunchBatchDirect->text(), QString("Launch Directly from Batch File?"));
    EXPECT_EQ(form.lblLaunchBatchDirectHint->text(),
              QString("The alternative is to run the batch file, wait for it to exit and then launch"));
    EXPECT_EQ(form.chkFinishSample->text(), QString("Make Sure Sample is Finished Before Launching?"));

    const std::vector<std::pair<const char*, const char*>> buttons = {
        {"cmdChooseGameDir", "..."},
        {"cmdMapLocation", "..."},
        {"cmdCDpath", "..."},
        {"cmdChooseModel", "..."},
        {"cmdChooseMapReadme", "..."},
        {"cmdChooseBatch", "..."},
        {"cmdEditBatch", "&Edit"},
        {"cmdBatchNote", "Click Here for an Important Note on Batch Files"},
        {"cmdTemplate", "Edit Built-in Paths Template (Advanced Users Only)"},
        {"cmdOK", "&OK"},
        {"cmdCancel", "&Cancel"}};
    for (const auto& [name, caption] : buttons) {
        auto* button = form.findChild<QPushButton*>(name);
        ASSERT_NE(button, nullptr) << name;
        EXPECT_EQ(button->text(), QString(caption)) << name;
        if (QString(caption) == "...") {
            EXPECT_FALSE(button->accessibleName().isEmpty()) << name;
        }
    }
}

TEST(GameEditor, SevenCreationLinesShowTheReadDefaultsForTheRest) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kCreationLines);
    frmEditGame form(ws.root(), "Quake2");
    EXPECT_EQ(form.txtModelName->text(), QString("tris.md2"));
    EXPECT_EQ(form.cboStartType->currentText(), QString("Hidden"));
    EXPECT_TRUE(form.chkLaunchBatchDirect->isChecked());
    EXPECT_TRUE(form.chkFinishSample->isChecked());
    // The read-me folder is line 2 of the file, trailing backslash included.
    EXPECT_EQ(form.txtMapReadMe->text(), QString("c:\\quake2\\baseq2\\maps\\"));
}

TEST(GameEditor, EmptyRecordShowsEveryReadDefault) {
    TempWorkspace ws;
    ws.write(kRecord, "");
    frmEditGame form(ws.root(), "Quake2");
    EXPECT_EQ(fieldTexts(form), (QStringList{"c:\\quake2", "c:\\quake2\\baseq2\\maps", "quake2.exe", "",
                                             "c:\\quake2\\baseq2\\players", "_i.pcx", "", "tris.md2",
                                             "c:\\quake2\\baseq2\\maps"}));
    EXPECT_EQ(form.cboStartType->currentIndex(), 0);
    EXPECT_TRUE(form.chkLaunchBatchDirect->isChecked());
    EXPECT_TRUE(form.chkFinishSample->isChecked());
}

TEST(GameEditor, FlagLinesShowUncheckedOnlyForZeroAndFalse) {
    const std::vector<std::pair<std::string, bool>> flags = {
        {"false", false}, {" FALSE ", false}, {"0", false}, {" 0 ", false},
        {"2", true},      {"True", true},     {"", true}};
    for (const auto& [text, on] : flags) {
        TempWorkspace ws;
        std::vector<std::string> lines = kFullRecord;
        lines[9] = text;
        lines[10] = text;
        ws.writeLines(kRecord, lines);
        frmEditGame form(ws.root(), "Quake2");
        EXPECT_EQ(form.chkLaunchBatchDirect->isChecked(), on) << "'" << text << "'";
        EXPECT_EQ(form.chkFinishSample->isChecked(), on) << "'" << text << "'";
    }
}

TEST(GameEditor, StartTypeMinusOneShowsNoEntryAndIsSavedAsMinusOne) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullRecord;
    lines[8] = "-1 ";
    ws.writeLines(kRecord, lines);
    auto form = openEditor(ws);
    EXPECT_EQ(form->cboStartType->currentIndex(), -1);
    EXPECT_EQ(form->cboStartType->currentText(), QString());
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(ws.read(kRecord), crlf(lines));
}

TEST(GameEditor, OkWritesTheTwelveLinesAsTypedWithNumbersInPrintForm) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kCreationLines);
    PromptRecorder prompts;
    auto form = openEditor(ws);
    rd::test::typeInto(form->txtEXEName, "q2.exe");
    rd::test::clickInto(form->txtCDPath);
    rd::test::typeInto(form->txtCDPath, "e:\\ ");
    form->SSTab1->setCurrentIndex(1);
    rd::test::clickInto(form->txtBatchFile);
    rd::test::typeInto(form->txtBatchFile, "d:\\run me.bat");
    rd::test::clickInto(form->txtSkinFilter);
    rd::test::typeInto(form->txtSkinFilter, "_I.PCX");
    form->cboStartType->setFocus();
    QTest::keyClick(form->cboStartType, Qt::Key_Down); // Hidden -> Normal with Focus
    QTest::keyClick(form->cboStartType, Qt::Key_Down); // -> Minimized with Focus
    form->chkLaunchBatchDirect->setFocus();
    QTest::keyClick(form->chkLaunchBatchDirect, Qt::Key_Space);
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(ws.read(kRecord), crlf({"c:\\quake2\\", "c:\\quake2\\baseq2\\maps\\", "q2.exe", "e:\\ ",
                                      "c:\\quake2\\baseq2\\players", "_I.PCX", "d:\\run me.bat", "tris.md2",
                                      " 2 ", " 0 ", " 1 ", "c:\\quake2\\baseq2\\maps\\"}));
}

TEST(GameEditor, CancelAfterEditsLeavesTheRecordByteForByte) {
    TempWorkspace ws;
    // Written without CR LF on the last line and with odd spacing: nothing may touch it.
    const std::string original = crlf({"x:\\q2", "x:\\q2\\maps", "quake2.exe", "", "x:\\q2\\players",
                                       "_i.pcx", "", "tris.md2", "3", "TRUE", "no"}) +
                                 "x:\\readme";
    ws.write(kRecord, original);
    auto form = openEditor(ws);
    rd::test::typeInto(form->txtLocationOfExe, "d:\\elsewhere");
    tabOutOf(form->txtLocationOfExe); // fills maps and models
    ASSERT_EQ(form->txtMapLocation->text(), QString("d:\\elsewhere\\baseq2\\maps"));
    form->chkFinishSample->click();
    form->cboStartType->setCurrentIndex(5);
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(ws.read(kRecord), original);
}

TEST(GameEditor, EscapeClosesWithoutWriting) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kCreationLines);
    auto form = openEditor(ws);
    rd::test::typeInto(form->txtEXEName, "other.exe");
    QTest::keyClick(form->txtEXEName, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(ws.read(kRecord), crlf(kCreationLines));
}

TEST(GameEditor, TypingAProgramFolderAndLeavingItFillsTheMapsAndModelsFolders) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kCreationLines);
    auto form = openEditor(ws);
    rd::test::clickInto(form->txtLocationOfExe);
    rd::test::typeInto(form->txtLocationOfExe, "d:\\games\\q2");
    // Nothing happens while the box has the focus.
    EXPECT_EQ(form->txtMapLocation->text(), QString("c:\\quake2\\baseq2\\maps\\"));
    tabOutOf(form->txtLocationOfExe);
    EXPECT_FALSE(form->txtLocationOfExe->hasFocus());
    EXPECT_EQ(form->txtMapLocation->text(), QString("d:\\games\\q2\\baseq2\\maps"));
    EXPECT_EQ(form->txtModels->text(), QString("d:\\games\\q2\\baseq2\\players"));
    EXPECT_EQ(form->txtLocationOfExe->text(), QString("d:\\games\\q2"));
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kRecord), crlf({"d:\\games\\q2", "d:\\games\\q2\\baseq2\\maps", "quake2.exe", "",
                                      "d:\\games\\q2\\baseq2\\players", "_i.pcx", "", "tris.md2", " 0 ",
                                      " 1 ", " 1 ", "c:\\quake2\\baseq2\\maps\\"}));
}

TEST(GameEditor, ProgramFolderWithATrailingBackslashFillsTheSameFolders) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kCreationLines);
    auto form = openEditor(ws);
    rd::test::clickInto(form->txtLocationOfExe);
    rd::test::typeInto(form->txtLocationOfExe, "d:\\games\\q2\\");
    rd::test::clickInto(form->txtCDPath); // leaving by a click on another box
    EXPECT_EQ(form->txtMapLocation->text(), QString("d:\\games\\q2\\baseq2\\maps"));
    EXPECT_EQ(form->txtModels->text(), QString("d:\\games\\q2\\baseq2\\players"));
    EXPECT_EQ(form->txtLocationOfExe->text(), QString("d:\\games\\q2\\"));
}

TEST(GameEditor, ProgramFolderWrittenWithSlashesFillsFoldersWithSlashes) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kCreationLines);
    auto form = openEditor(ws);
    rd::test::clickInto(form->txtLocationOfExe);
    rd::test::typeInto(form->txtLocationOfExe, "/home/player/quake2");
    tabOutOf(form->txtLocationOfExe);
    EXPECT_EQ(form->txtMapLocation->text(), QString("/home/player/quake2/baseq2/maps"));
    EXPECT_EQ(form->txtModels->text(), QString("/home/player/quake2/baseq2/players"));
}

TEST(GameEditor, LeavingTheProgramFolderUnchangedChangesNothing) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullRecord;
    lines[1] = "z:\\my maps";
    lines[4] = "z:\\my models";
    ws.writeLines(kRecord, lines);
    auto form = openEditor(ws);
    rd::test::clickInto(form->txtLocationOfExe);
    tabOutOf(form->txtLocationOfExe);
    // Typed back to what it was is unchanged too.
    rd::test::clickInto(form->txtLocationOfExe);
    rd::test::typeInto(form->txtLocationOfExe, "d:\\games\\q2\\");
    rd::test::clickInto(form->txtEXEName);
    EXPECT_EQ(form->txtMapLocation->text(), QString("z:\\my maps"));
    EXPECT_EQ(form->txtModels->text(), QString("z:\\my models"));
}

TEST(GameEditor, AnotherProgramNameFillsNothing) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullRecord;
    lines[2] = "quake2.exe ";
    ws.writeLines(kRecord, lines);
    auto form = openEditor(ws);
    for (const QString& program : {QString("quake2.exe "), QString("q2.exe"), QString("")}) {
        rd::test::clickInto(form->txtEXEName);
        rd::test::typeInto(form->txtEXEName, program);
        rd::test::clickInto(form->txtLocationOfExe);
        rd::test::typeInto(form->txtLocationOfExe, "f:\\" + program);
        tabOutOf(form->txtLocationOfExe);
        EXPECT_EQ(form->txtMapLocation->text(), QString("d:\\games\\q2\\baseq2\\maps\\"))
            << program.toStdString();
        EXPECT_EQ(form->txtModels->text(), QString("d:\\games\\q2\\baseq2\\players"))
            << program.toStdString();
    }
}

TEST(GameEditor, ProgramNameIsComparedWithoutRegardToCase) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullRecord;
    lines[2] = "QUAKE2.Exe";
    ws.writeLines(kRecord, lines);
    auto form = openEditor(ws);
    rd::test::clickInto(form->txtLocationOfExe);
    rd::test::typeInto(form->txtLocationOfExe, "g:\\q2");
    tabOutOf(form->txtLocationOfExe);
    EXPECT_EQ(form->txtMapLocation->text(), QString("g:\\q2\\baseq2\\maps"));
}

TEST(GameEditor, ProgramFolderChangedInTheZoomEditorFillsTheFoldersWhenTheBoxIsLeft) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kCreationLines);
    auto form = openEditor(ws);
    rd::test::clickInto(form->txtLocationOfExe);
    ModalDriver driver([](QDialog* dialog) {
        auto* zoom = qobject_cast<frmZoom*>(dialog);
        ASSERT_NE(zoom, nullptr);
        zoom->txtText->setFocus();
        zoom->txtText->selectAll();
        QTest::keyClicks(zoom->txtText, "h:\\zoomed");
        QTest::mouseClick(zoom->cmdOK, Qt::LeftButton);
    });
    QTest::keyClick(form->txtLocationOfExe, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(form->txtLocationOfExe->text(), QString("h:\\zoomed"));
    // The window manager gives the editor back the activation, and the box its focus.
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    EXPECT_TRUE(form->txtLocationOfExe->hasFocus());
    // The zoom editor's window taking the focus is not leaving the box; leaving it is.
    tabOutOf(form->txtLocationOfExe);
    EXPECT_EQ(form->txtMapLocation->text(), QString("h:\\zoomed\\baseq2\\maps"));
    EXPECT_EQ(form->txtModels->text(), QString("h:\\zoomed\\baseq2\\players"));
}

TEST(GameEditor, GameWhoseRecordWasRemovedShowsNotFoundAndClosesWithoutWriting) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Mygame");
    PromptRecorder prompts;
    ModalDriver driver([](QDialog* dialog) { dialog->done(QDialog::Rejected); }, 1500);
    EditGame(nullptr, ws.root(), "Mygame");
    EXPECT_FALSE(driver.acted()) << "the editor must not stay on screen";
    ASSERT_EQ(prompts.calls().size(), 1u);
    const QString expected =
        QString::fromStdString((ws.root() / "Game-Paths" / "Mygame" / "Mygame.Gme").string()) +
        " - not found";
    EXPECT_EQ(prompts.last().text, expected);
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::Ok);
    EXPECT_FALSE(ws.exists("Game-Paths/Mygame/Mygame.Gme"));
    EXPECT_TRUE(std::filesystem::is_empty(ws.path("Game-Paths/Mygame")));
}

TEST(GameEditor, ShownWithoutARecordItClosesItselfAtOnce) {
    TempWorkspace ws;
    PromptRecorder prompts;
    QPointer<frmEditGame> form = new frmEditGame(ws.root(), "BOT=Eraser");
    EXPECT_EQ(form->tag(), QString("UNLOAD"));
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.endsWith("BOT=Eraser.Gme - not found"));
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.isNull(); }, 3000));
    EXPECT_FALSE(ws.exists("Game-Paths"));
}

TEST(GameEditor, AsTheFirstScreenWithoutARecordItEndsTheProgramAfterTheRealMessageBox) {
    TempWorkspace ws;
    // No recorder: the real message box is shown, and answered as a user does.
    QString boxText;
    ModalDriver driver([&](QDialog* dialog) {
        auto* box = qobject_cast<QMessageBox*>(dialog);
        ASSERT_NE(box, nullptr);
        boxText = box->text();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    auto* form = new frmEditGame(ws.root(), "Mygame");
    EXPECT_TRUE(driver.acted());
    EXPECT_TRUE(boxText.endsWith("Mygame.Gme - not found"));
    // As the start-up shows its first screen: modeless, deleted when closed; the event loop ends
    // when the last window closes.
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->show();
    QTimer giveUp; // ends the loop if the editor stays open
    giveUp.setSingleShot(true);
    QObject::connect(&giveUp, &QTimer::timeout, [] { QApplication::exit(99); });
    giveUp.start(5000);
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_FALSE(ws.exists("Game-Paths"));
}

TEST(GameEditor, FolderStandingWhereTheRecordShouldBeIsNotFound) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2/Quake2.Gme");
    PromptRecorder prompts;
    frmEditGame form(ws.root(), "Quake2");
    EXPECT_EQ(form.tag(), QString("UNLOAD"));
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.endsWith("Quake2.Gme - not found"));
    EXPECT_TRUE(std::filesystem::is_directory(ws.path(kRecord)));
}

TEST(GameEditor, StartTypeThatIsNotANumberShowsTheLoadersMessage) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullRecord;
    lines[8] = "Hidden";
    ws.writeLines(kRecord, lines);
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Ignore);
    frmEditGame form(ws.root(), "Quake2");
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.startsWith("Oh no!  Something's up here...\n"));
    EXPECT_TRUE(prompts.last().text.contains("Type mismatch"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
    // Ignore goes on with the next fields.
    EXPECT_TRUE(form.tag().isEmpty());
    EXPECT_EQ(form.cboStartType->currentIndex(), -1);
    EXPECT_FALSE(form.chkLaunchBatchDirect->isChecked());
    EXPECT_TRUE(form.chkFinishSample->isChecked());
    EXPECT_EQ(form.txtMapReadMe->text(), QString("d:\\games\\q2\\readme"));
}

TEST(GameEditor, StartTypeFailureAbortedOpensWithWhatWasRead) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullRecord;
    lines[8] = "two";
    ws.writeLines(kRecord, lines);
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Abort);
    auto form = openEditor(ws);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->txtModelName->text(), QString("tris.md2"));
    EXPECT_EQ(form->txtMapReadMe->text(), QString());
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
    EXPECT_EQ(ws.read(kRecord), crlf(lines));
}

TEST(GameEditor, BinaryGarbageOpensAndComesBackUnchangedWhereNothingWasEdited) {
    TempWorkspace ws;
    std::string garbage;
    unsigned state = 4711;
    std::vector<std::string> lines;
    for (int line = 0; line < 12; ++line) {
        std::string text;
        for (int i = 0; i < 60; ++i) {
            state = state * 1103515245u + 12345u;
            char c = static_cast<char>((state >> 16) & 0xFF);
            if (c == '\n' || c == '\r' || (c >= '0' && c <= '9'))
                c = '\0';
            text += c;
        }
        lines.push_back(text);
    }
    ws.writeLines(kRecord, lines);
    PromptRecorder prompts;
    prompts.answer(PromptAnswer::Ignore);
    auto form = openEditor(ws);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.startsWith("Oh no!  Something's up here..."));
    EXPECT_TRUE(form->isVisible());
    rd::test::clickInto(form->txtEXEName);
    rd::test::typeInto(form->txtEXEName, "quake2.exe");
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    std::vector<std::string> expected(lines.begin(), lines.begin() + 8);
    expected[2] = "quake2.exe";
    expected.insert(expected.end(), {"-1 ", " 1 ", " 1 ", lines[11]});
    EXPECT_EQ(ws.read(kRecord), crlf(expected));
}

TEST(GameEditor, TenMegabyteLineOpensAndIsWrittenBackWhole) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullRecord;
    lines[0] = std::string(10 * 1024 * 1024, 'q');
    ws.writeLines(kRecord, lines);
    PromptRecorder prompts;
    auto form = openEditor(ws);
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_TRUE(form->txtLocationOfExe->text().startsWith("qqqq"));
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(ws.read(kRecord), crlf(lines));
}

TEST(GameEditor, CancellingAFolderPickerKeepsTheTextBoxValue) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    auto form = openEditor(ws);
    const std::vector<std::pair<QPushButton*, QLineEdit*>> choosers = {
        {form->cmdChooseGameDir, form->txtLocationOfExe},
        {form->cmdMapLocation, form->txtMapLocation},
        {form->cmdCDpath, form->txtCDPath},
        {form->cmdChooseModel, form->txtModels},
        {form->cmdChooseMapReadme, form->txtMapReadMe}};
    for (const auto& [button, box] : choosers) {
        form->SSTab1->setCurrentWidget(button->parentWidget());
        const QString before = box->text();
        QString opened;
        ModalDriver driver([&](QDialog* dialog) {
            opened = dialog->objectName();
            QTest::mouseClick(dialog->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
        });
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_TRUE(driver.acted()) << button->objectName().toStdString();
        EXPECT_EQ(opened, QString("frmFindFolder"));
        EXPECT_EQ(box->text(), before) << button->objectName().toStdString();
    }
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
    EXPECT_EQ(ws.read(kRecord), crlf(kFullRecord));
}

TEST(GameEditor, FolderPickerStartsAtTheBoxFolderAndItsChoiceReplacesTheText) {
#ifdef _WIN32
    GTEST_SKIP() << "under Wine the test folders lie on drive Z: (the build machine's root), which reports "
                    "no volume, so the picker starts on C:";
#endif
    TempWorkspace ws;
    ws.folder("install/Quake2/baseq2/maps");
    ws.folder("install/Quake2/baseq2/players");
    std::vector<std::string> lines = kFullRecord;
    // Written as a Windows user would, in other letter case: found all the same.
    const std::string maps = ws.path("install/quake2/BASEQ2").string() + "\\maps";
    lines[1] = maps;
    ws.writeLines(kRecord, lines);
    auto form = openEditor(ws);
    QString startedAt;
    ModalDriver driver([&](QDialog* dialog) {
        auto* picker = qobject_cast<frmFindFolder*>(dialog);
        ASSERT_NE(picker, nullptr);
        startedAt = picker->openFolder();
        QTest::mouseClick(picker->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(form->cmdMapLocation, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    const QString expected =
        QDir::toNativeSeparators(QString::fromStdString(ws.path("install/Quake2/baseq2/maps").string()));
    EXPECT_EQ(startedAt, QDir::fromNativeSeparators(expected));
    EXPECT_EQ(form->txtMapLocation->text(), expected);
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    lines[1] = expected.toStdString();
    EXPECT_EQ(ws.read(kRecord), crlf(lines));
}

TEST(GameEditor, BatchChooserOffersBatchFilesUnderItsTitleAndTakesTheChosenFile) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    DesktopRecorder desktop;
    desktop.answerFile("/srv/q2/start server.bat");
    auto form = openEditor(ws);
    form->SSTab1->setCurrentIndex(1);
    QTest::mouseClick(form->cmdChooseBatch, Qt::LeftButton);
    ASSERT_EQ(desktop.choices.size(), 1u);
    EXPECT_EQ(desktop.choices[0].title, QString("Choose a batch file to execute on launch"));
    EXPECT_EQ(desktop.choices[0].filter, QString("Batch Files (*.bat)|*.bat|All Files|*.*"));
    EXPECT_EQ(desktop.choices[0].fileName, QString("d:\\games\\q2\\server.bat"));
    EXPECT_EQ(form->txtBatchFile->text(), QString("/srv/q2/start server.bat"));
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    std::vector<std::string> lines = kFullRecord;
    lines[6] = "/srv/q2/start server.bat";
    EXPECT_EQ(ws.read(kRecord), crlf(lines));
}

TEST(GameEditor, CancellingTheBatchChooserKeepsTheBatchFile) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    DesktopRecorder desktop; // no answer: cancelled
    auto form = openEditor(ws);
    form->SSTab1->setCurrentIndex(1);
    QTest::mouseClick(form->cmdChooseBatch, Qt::LeftButton);
    ASSERT_EQ(desktop.choices.size(), 1u);
    EXPECT_EQ(form->txtBatchFile->text(), QString("d:\\games\\q2\\server.bat"));
}

TEST(GameEditor, BatchFileFilterBecomesAQtFilterOfferingEveryFile) {
    EXPECT_EQ(qtFileFilter("Batch Files (*.bat)|*.bat|All Files|*.*"),
              QString("Batch Files (*.bat);;All Files (*)"));
    EXPECT_EQ(qtFileFilter("Maps|*.bsp;*.pak"), QString("Maps (*.bsp *.pak)"));
}

TEST(GameEditor, EditStartsTheTextEditorOnTheBatchFileAsTypedWithoutCheckingIt) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    DesktopRecorder desktop;
    PromptRecorder prompts;
    auto form = openEditor(ws);
    form->SSTab1->setCurrentIndex(1);
    rd::test::clickInto(form->txtBatchFile);
    rd::test::typeInto(form->txtBatchFile, "no such folder\\go.bat");
    QTest::mouseClick(form->cmdEditBatch, Qt::LeftButton);
    ASSERT_EQ(desktop.editorFiles.size(), 1u);
    EXPECT_EQ(desktop.editorFiles[0], QString("no such folder\\go.bat"));
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_TRUE(form->isVisible());
    // The key works too (Alt+E on the Advanced tab).
    QTest::keyClick(form.get(), Qt::Key_E, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.editorFiles.size() == 2u; }, 3000));
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
    EXPECT_EQ(ws.read(kRecord), crlf(kFullRecord));
}

TEST(GameEditor, EditSaysSoWhenNoTextEditorCanBeStarted) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    DesktopRecorder desktop;
    desktop.editorStarts = false;
    PromptRecorder prompts;
    auto form = openEditor(ws);
    form->SSTab1->setCurrentIndex(1);
    QTest::mouseClick(form->cmdEditBatch, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.contains("d:\\games\\q2\\server.bat"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(form->isVisible());
}

TEST(GameEditor, BatchNoteIsItsFourSentencesInOneInformationMessage) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    PromptRecorder prompts;
    auto form = openEditor(ws);
    form->SSTab1->setCurrentIndex(1);
    QTest::mouseClick(form->cmdBatchNote, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(
        prompts.last().text,
        QString(
            "If you are running a batch file that needs input from the user and you are launching directly "
            "from the batch file you must make sure it does not run 'hidden' otherwise it will get stuck "
            "in memory - in all other situations, you will want to run 'hidden'"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Information);
    EXPECT_EQ(prompts.last().title, QString("Roster Desk"));
    EXPECT_EQ(prompts.last().buttons, PromptButtons::Ok);
}

TEST(GameEditor, TemplateButtonOpensTheTemplateEditorForTheGame) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    auto form = openEditor(ws);
    form->SSTab1->setCurrentIndex(1);
    QString caption;
    QString game;
    ModalDriver driver([&](QDialog* dialog) {
        auto* templ = qobject_cast<frmGameTemplate*>(dialog);
        ASSERT_NE(templ, nullptr);
        caption = templ->windowTitle();
        game = templ->lblGameName->text();
        QTest::mouseClick(templ->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(form->cmdTemplate, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(caption, QString("Edit Game Paths Template"));
    EXPECT_EQ(game, QString("Quake2"));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Template.cfg"),
              crlf({"<PATH>", "<PATH>baseq2\\maps", "", "", "<PATH>baseq2\\players", "_i.pcx", "", "tris.md2",
                    "-1 ", " 0 ", " 0 ", "<PATH>baseq2\\maps"}));
    EXPECT_EQ(ws.read(kRecord), crlf(kFullRecord));
}

TEST(GameEditor, FailedSaveShowsTheErrorUnderSavingGamePathIInfoAndStaysOpen) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    PromptRecorder prompts;
    auto form = openEditor(ws);
    // The record is replaced by a folder while the editor is open: it cannot be written.
    std::filesystem::remove(ws.path(kRecord));
    ws.folder(kRecord);
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Saving Game Path IInfo"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_FALSE(prompts.last().text.isEmpty());
    EXPECT_FALSE(prompts.last().text.startsWith("Sod it!"));
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(std::filesystem::is_directory(ws.path(kRecord)));
}

TEST(GameEditor, F2OpensTheZoomEditorOnEachOfTheNineTextBoxes) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    auto form = openEditor(ws);
    for (QLineEdit* box : form->textBoxes()) {
        form->SSTab1->setCurrentWidget(box->parentWidget());
        box->setFocus();
        QString caption;
        QString shown;
        ModalDriver driver([&](QDialog* dialog) {
            auto* zoom = qobject_cast<frmZoom*>(dialog);
            ASSERT_NE(zoom, nullptr);
            caption = zoom->windowTitle();
            shown = zoom->txtText->toPlainText();
            zoom->txtText->setFocus();
            QTest::keyClick(zoom->txtText, Qt::Key_End, Qt::ControlModifier);
            QTest::keyClicks(zoom->txtText, "Z");
            QTest::mouseClick(zoom->cmdOK, Qt::LeftButton);
        });
        const QString before = box->text();
        QTest::keyClick(box, Qt::Key_F2);
        EXPECT_TRUE(driver.acted()) << box->objectName().toStdString();
        EXPECT_EQ(caption, QString("Zoom")) << box->objectName().toStdString();
        EXPECT_EQ(shown, before) << box->objectName().toStdString();
        EXPECT_EQ(box->text(), before + "Z") << box->objectName().toStdString();
    }
}

TEST(GameEditor, F1OpensTheGuidePageOfTheGameEditor) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    auto form = openEditor(ws);
    QTest::keyClick(form->txtEXEName, Qt::Key_F1);
    auto* help = form->findChild<frmHelp*>("frmHelp");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmEditGame.html"));
    help->close();
}

TEST(GameEditor, UserFontReachesEveryControl) {
    struct Reset {
        ~Reset() { setUserFont({}); }
    } reset;
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    setUserFont({13, ""});
    frmEditGame form(ws.root(), "Quake2");
    for (QWidget* w : {static_cast<QWidget*>(form.txtLocationOfExe), static_cast<QWidget*>(form.cboStartType),
                       static_cast<QWidget*>(form.chkFinishSample), static_cast<QWidget*>(form.cmdTemplate),
                       static_cast<QWidget*>(form.lblMapReadMe), static_cast<QWidget*>(form.cmdOK)})
        EXPECT_EQ(w->font().pointSize(), 13) << w->objectName().toStdString();
}

TEST(GameEditor, TabMnemonicsSwitchBetweenPathsAndAdvanced) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    auto form = openEditor(ws);
    ASSERT_EQ(form->SSTab1->currentIndex(), 0);
    QTest::keyClick(form.get(), Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(form->SSTab1->currentIndex(), 1);
    QTest::keyClick(form.get(), Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(form->SSTab1->currentIndex(), 0);
}

TEST(GameEditor, TabGoesAlongEachRowThenDownAsTheFieldsAreLaidOut) {
    TempWorkspace ws;
    ws.writeLines(kRecord, kFullRecord);
    auto form = openEditor(ws);
    const auto walk = [&](QWidget* from, int steps) {
        from->setFocus();
        QStringList names;
        for (int i = 0; i < steps; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            names << QApplication::focusWidget()->objectName();
        }
        return names;
    };
    EXPECT_EQ(walk(form->txtLocationOfExe, 10),
              (QStringList{"cmdChooseGameDir", "txtEXEName", "txtMapLocation", "cmdMapLocation", "txtCDPath",
                           "cmdCDpath", "txtModels", "cmdChooseModel", "cmdOK", "cmdCancel"}));
    form->SSTab1->setCurrentIndex(1);
    EXPECT_EQ(walk(form->txtMapReadMe, 13),
              (QStringList{"cmdChooseMapReadme", "txtSkinFilter", "txtBatchFile", "cmdChooseBatch",
                           "cmdEditBatch", "txtModelName", "cboStartType", "chkLaunchBatchDirect",
                           "chkFinishSample", "cmdBatchNote", "cmdTemplate", "cmdOK", "cmdCancel"}));
}

} // namespace frmEditGame_test
