// The paths template editor on screen: built-in values, loading and saving Template.cfg, its
// notes, and what it does not have (choosers, zoom keys).

#include "core/screens/help.h"
#include "games/screens/frmGameTemplate.h"
#include "tests/games/screens/games_screens_support.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

namespace frmGameTemplate_test {

using namespace rd;
using rd::test::crlf;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

const char* const kTemplate = "Game-Paths/Quake2/Template.cfg";

QStringList fieldTexts(const frmGameTemplate& form) {
    QStringList out;
    for (QLineEdit* box : form.textBoxes())
        out << box->text();
    return out;
}

std::unique_ptr<frmGameTemplate> openTemplate(const TempWorkspace& ws) {
    auto form = std::make_unique<frmGameTemplate>(ws.root(), "Quake2");
    EXPECT_TRUE(rd::test::showActive(form.get()));
    return form;
}

TEST(GameTemplateEditor, WithoutATemplateStartsFromTheBuiltInValues) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    PromptRecorder prompts;
    frmGameTemplate form(ws.root(), "Quake2");
    EXPECT_EQ(form.windowTitle(), QString("Edit Game Paths Template"));
    EXPECT_EQ(form.lblEditingFor->text(), QString("Editing Game Paths Template for:"));
    EXPECT_EQ(form.lblGameName->text(), QString("Quake2"));
    EXPECT_EQ(fieldTexts(form), (QStringList{"<PATH>", "<PATH>baseq2\\maps", "", "", "<PATH>baseq2\\players",
                                             "_i.pcx", "", "tris.md2", "<PATH>baseq2\\maps"}));
    EXPECT_EQ(form.cboStartType->currentIndex(), -1);
    EXPECT_FALSE(form.chkLaunchBatchDirect->isChecked());
    EXPECT_FALSE(form.chkFinishSample->isChecked());
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_FALSE(ws.exists(kTemplate));
}

TEST(GameTemplateEditor, LoadsTheGamesTemplateWithTheTemplateDefaultsForMissingLines) {
    TempWorkspace ws;
    ws.writeLines(kTemplate, {"<PATH>", "<PATH>data\\maps", "q2.exe", "<PATH>cd"});
    frmGameTemplate form(ws.root(), "Quake2");
    EXPECT_EQ(fieldTexts(form),
              (QStringList{"<PATH>", "<PATH>data\\maps", "q2.exe", "<PATH>cd", "<PATH>baseq2\\players",
                           "_i.pcx", "", "tris.md2", "<PATH>data\\maps"}));
    EXPECT_EQ(form.cboStartType->currentText(), QString("Hidden"));
    EXPECT_TRUE(form.chkLaunchBatchDirect->isChecked());
    EXPECT_TRUE(form.chkFinishSample->isChecked());
}

TEST(GameTemplateEditor, TemplateIsFoundWhateverTheCaseOfItsName) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows file systems ignore case: the name in other letters is the same file";
#endif
    TempWorkspace ws;
    ws.writeLines("game-paths/Quake2/TEMPLATE.CFG", {"<PATH>x"});
    auto form = openTemplate(ws);
    EXPECT_EQ(form->txtLocationOfExe->text(), QString("<PATH>x"));
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    EXPECT_FALSE(ws.exists("game-paths/Quake2/Template.cfg"));
    EXPECT_EQ(ws.read("game-paths/Quake2/TEMPLATE.CFG"),
              crlf({"<PATH>x", "<PATH>baseq2\\maps", "quake2.exe", "", "<PATH>baseq2\\players", "_i.pcx", "",
                    "tris.md2", " 0 ", " 1 ", " 1 ", "<PATH>baseq2\\maps"}));
}

TEST(GameTemplateEditor, OkWritesTheTwelveLinesAsTyped) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    auto form = openTemplate(ws);
    rd::test::clickInto(form->txtEXEName);
    rd::test::typeInto(form->txtEXEName, "quake2.exe");
    rd::test::clickInto(form->txtLocationOfExe);
    rd::test::typeInto(form->txtLocationOfExe, "<PATH>");
    rd::test::clickInto(form->txtCDPath); // no automatic fill in the template
    form->SSTab1->setCurrentIndex(1);
    rd::test::clickInto(form->txtBatchFile);
    rd::test::typeInto(form->txtBatchFile, "<PATH>start.bat");
    form->cboStartType->setFocus();
    QTest::keyClick(form->cboStartType, Qt::Key_Home);
    form->chkFinishSample->setFocus();
    QTest::keyClick(form->chkFinishSample, Qt::Key_Space);
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(ws.read(kTemplate),
              crlf({"<PATH>", "<PATH>baseq2\\maps", "quake2.exe", "", "<PATH>baseq2\\players", "_i.pcx",
                    "<PATH>start.bat", "tris.md2", " 0 ", " 0 ", " 1 ", "<PATH>baseq2\\maps"}));
}

TEST(GameTemplateEditor, CancelAfterEditsWritesNothing) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    {
        auto form = openTemplate(ws);
        rd::test::clickInto(form->txtModels);
        rd::test::typeInto(form->txtModels, "<PATH>models");
        QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
        EXPECT_FALSE(form->isVisible());
        EXPECT_FALSE(ws.exists(kTemplate));
    }
    const std::string original = "<PATH>\r\nodd line\n no end";
    ws.write(kTemplate, original);
    auto form = openTemplate(ws);
    rd::test::clickInto(form->txtMapLocation);
    rd::test::typeInto(form->txtMapLocation, "changed");
    form->chkLaunchBatchDirect->click();
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
    EXPECT_EQ(ws.read(kTemplate), original);
}

TEST(GameTemplateEditor, ShowsItsTwoNotesAndHasNoChoosersNorBatchButtons) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    frmGameTemplate form(ws.root(), "Quake2");
    EXPECT_EQ(form.lblPathNote->text(), QString("Use <PATH> where you want the main path to go"));
    EXPECT_EQ(form.lblBackslashNote->text(),
              QString("Note that when this is replaced, the trailing backslash is automatically added"));
    EXPECT_EQ(form.SSTab1->tabText(0), QString("&Paths"));
    EXPECT_EQ(form.SSTab1->tabText(1), QString("&Advanced"));
    EXPECT_EQ(form.lblStartTypeHint->text(),
              QString("Keep this set to \"hidden\" unless you have good reason to change it"));
    EXPECT_EQ(form.lblLaunchBatchDirectHint->text(),
              QString("The alternative is to run the batch file, wait for it to exit and then launch"));
    for (const char* name :
         {"cmdChooseGameDir", "cmdMapLocation", "cmdCDpath", "cmdChooseModel", "cmdChooseMapReadme",
          "cmdChooseBatch", "cmdEditBatch", "cmdBatchNote", "cmdTemplate"})
        EXPECT_EQ(form.findChild<QPushButton*>(name), nullptr) << name;
    EXPECT_EQ(form.cmdOK->text(), QString("&OK"));
    EXPECT_EQ(form.cmdCancel->text(), QString("&Cancel"));
    EXPECT_EQ(form.lblLocationOfExe->buddy(), form.txtLocationOfExe);
    EXPECT_EQ(form.lblStartType->buddy(), form.cboStartType);
}

TEST(GameTemplateEditor, TextBoxesHaveNoZoomKey) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    auto form = openTemplate(ws);
    for (QLineEdit* box : form->textBoxes()) {
        form->SSTab1->setCurrentWidget(box->parentWidget());
        box->setFocus();
        ModalDriver driver([](QDialog* dialog) { dialog->done(QDialog::Rejected); });
        QTest::keyClick(box, Qt::Key_F2);
        EXPECT_FALSE(driver.acted()) << box->objectName().toStdString();
    }
}

TEST(GameTemplateEditor, StartTypeThatIsNotANumberShowsTheLoadersMessage) {
    TempWorkspace ws;
    ws.writeLines(kTemplate, {"<PATH>", "", "", "", "", "", "", "", "Hidden"});
    PromptRecorder prompts;
    frmGameTemplate form(ws.root(), "Quake2");
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.startsWith("Oh no!  Something's up here...\n"));
    EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
    EXPECT_EQ(form.txtLocationOfExe->text(), QString("<PATH>"));
}

TEST(GameTemplateEditor, FailedSaveShowsTheErrorUnderSavingGamePathIInfoAndStaysOpen) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    PromptRecorder prompts;
    auto form = openTemplate(ws);
    ws.folder(kTemplate); // a folder where the template is to be written
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Saving Game Path IInfo"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(form->isVisible());
}

TEST(GameTemplateEditor, F1OpensTheGuidePageOfTheTemplateEditor) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    auto form = openTemplate(ws);
    QTest::keyClick(form->txtModels, Qt::Key_F1);
    auto* help = form->findChild<frmHelp*>("frmHelp");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmGameTemplate.html"));
    help->close();
}

} // namespace frmGameTemplate_test
