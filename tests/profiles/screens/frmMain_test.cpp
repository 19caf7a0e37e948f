#include "core/screens/help.h"
#include "core/screens/userfont.h"
#include "profiles/screens/frmMain.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace frmMain_test {

using namespace rd;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

QStringList texts(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

void clickItem(QListWidget* list, const QString& text) {
    const auto items = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1);
    const QRect rect = list->visualItemRect(items.first());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
}

// A workspace with two bots and profiles that test every rule of the filter.
void fillWorkspace(const TempWorkspace& ws) {
    ws.folder("Plug-Ins/Eraser");
    ws.folder("Plug-Ins/Eraser2");
    ws.write("Plug-Ins/notes.txt", "x");
    ws.folder("game-paths/Quake2");
    ws.writeLines("Alpha/profile.cfg", {"eraser", "whatever"});
    ws.writeLines("Beta/PROFILE.CFG", {"Eraser"});
    ws.writeLines("Gamma/profile.cfg", {"Eraser2"});
    ws.folder("Delta");
    ws.write("Team X", "a plain file");
}

// Clicks the check box on its indicator (a click beyond its text would miss it).
void clickCheckBox(QCheckBox* box) {
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
}

struct UserFontReset {
    ~UserFontReset() { setUserFont({}); }
};

TEST(MainWindow, ShowsTheBotsAndEveryProfileInListingOrder) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmMain form(ws.root());
    EXPECT_EQ(form.windowTitle(), QString("Roster Desk"));
    EXPECT_EQ(texts(form.lstRecognisedBots), (QStringList{"Eraser", "Eraser2"}));
    EXPECT_EQ(texts(form.lstProfiles), (QStringList{"Alpha", "Beta", "Delta", "Gamma"}));
    EXPECT_EQ(form.lstProfiles->currentRow(), 0);
    EXPECT_EQ(form.readyMark(), QString("OK"));
}

TEST(MainWindow, CheckingTheBoxWithNoBotSelectedEmptiesTheProfileList) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmMain form(ws.root());
    clickCheckBox(form.chkOnlyShow);
    EXPECT_TRUE(form.chkOnlyShow->isChecked());
    EXPECT_EQ(form.lstProfiles->count(), 0);
    EXPECT_EQ(form.readyMark(), QString("OK"));
}

TEST(MainWindow, WithTheBoxSetClickingABotShowsOnlyItsProfiles) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmMain form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    clickCheckBox(form.chkOnlyShow);
    ASSERT_TRUE(form.chkOnlyShow->isChecked());
    ASSERT_EQ(form.lstProfiles->count(), 0);
    clickItem(form.lstRecognisedBots, "Eraser");
    ASSERT_EQ(form.lstRecognisedBots->currentItem()->text(), QString("Eraser"));
    // "eraser" matches in other case; "Eraser2" begins with the bot's name but is another bot;
    // Delta has no profile.cfg.
    EXPECT_EQ(texts(form.lstProfiles), (QStringList{"Alpha", "Beta"}));
    EXPECT_EQ(form.lstProfiles->currentRow(), 0);
    clickItem(form.lstRecognisedBots, "Eraser2");
    EXPECT_EQ(texts(form.lstProfiles), (QStringList{"Gamma"}));
}

TEST(MainWindow, ClearingTheBoxShowsEveryProfileAgain) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmMain form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    clickCheckBox(form.chkOnlyShow);
    clickItem(form.lstRecognisedBots, "Eraser2");
    clickCheckBox(form.chkOnlyShow);
    EXPECT_EQ(texts(form.lstProfiles), (QStringList{"Alpha", "Beta", "Delta", "Gamma"}));
}

TEST(MainWindow, ClickingABotWithTheBoxClearDoesNotRebuildTheList) {
    TempWorkspace ws;
    fillWorkspace(ws);
    frmMain form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    form.lstProfiles->setCurrentRow(2);
    ws.folder("Epsilon"); // would appear if the list were rebuilt
    clickItem(form.lstRecognisedBots, "Eraser");
    EXPECT_EQ(form.lstProfiles->count(), 4);
    EXPECT_EQ(form.lstProfiles->currentRow(), 2);
}

TEST(MainWindow, MissingPlugInsLeavesTheBotListEmptyWithoutAnError) {
    TempWorkspace ws;
    ws.folder("Team A");
    PromptRecorder prompts;
    frmMain form(ws.root());
    EXPECT_EQ(form.lstRecognisedBots->count(), 0);
    EXPECT_EQ(texts(form.lstProfiles), (QStringList{"Team A"}));
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(MainWindow, RootWithoutOtherFoldersLeavesTheProfileListEmpty) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Eraser");
    ws.write("readme.txt", "x");
    PromptRecorder prompts;
    frmMain form(ws.root());
    EXPECT_EQ(form.lstProfiles->count(), 0);
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(MainWindow, UnreadableProfileCfgIsReportedUnderLoadingConfigFileWhileTheHourglassShows) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Eraser");
    ws.folder("Broken");
#ifdef _WIN32
    GTEST_SKIP() << "a named pipe in a file's place is POSIX only";
#else
    ASSERT_EQ(::mkfifo(ws.path("Broken/profile.cfg").c_str(), 0600), 0);
#endif
    ws.writeLines("Good/profile.cfg", {"Eraser"});
    frmMain form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    clickCheckBox(form.chkOnlyShow);

    PromptRecorder prompts;
    bool hourglass = false;
    QString markDuringRebuild = "unset";
    prompts.onPrompt = [&](const rd::test::PromptCall&) {
        hourglass =
            QApplication::overrideCursor() && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
        markDuringRebuild = form.readyMark();
    };
    clickItem(form.lstRecognisedBots, "Eraser");

    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.startsWith("Oh Lord, we have some problems..."));
    EXPECT_TRUE(prompts.last().text.contains("profile.cfg"));
    EXPECT_EQ(prompts.last().title, QString("Loading Config File"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(hourglass);
    EXPECT_EQ(markDuringRebuild, QString(""));
    EXPECT_EQ(texts(form.lstProfiles), (QStringList{"Good"}));
    EXPECT_EQ(form.readyMark(), QString("OK"));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(MainWindow, EveryButtonCarriesItsCaption) {
    TempWorkspace ws;
    frmMain form(ws.root());
    const std::vector<std::pair<const char*, const char*>> captions = {{"cmdAddBot", "&Add"},
                                                                       {"cmdEditBot", "&Edit"},
                                                                       {"cmdDeleteBot", "De&lete"},
                                                                       {"cmdRename", "&Rename"},
                                                                       {"cmdDeleteProfile", "&Delete"},
                                                                       {"cmdGame", "Edit &Game Paths"},
                                                                       {"cmdEditOptions", "Edit &Options"},
                                                                       {"cmdCustomMaps", "Custom &Map Lists"},
                                                                       {"cmdEditArena", "Edit Are&nas"},
                                                                       {"cmdLadies", "Se&x Editor"},
                                                                       {"cmdHelp", "&Help Index"},
                                                                       {"cmdAbout", "A&bout..."},
                                                                       {"cmdOK", "&Quit"}};
    for (const auto& [name, caption] : captions) {
        auto* button = form.findChild<QPushButton*>(name);
        ASSERT_NE(button, nullptr) << name;
        EXPECT_EQ(button->text(), QString(caption)) << name;
    }
    EXPECT_EQ(form.findChild<QCheckBox*>("chkOnlyShow")->text(),
              QString("Show profiles for selected bot only"));
    EXPECT_EQ(form.findChild<QLabel*>("lblRecognisedBots")->text(), QString("Recognised Bots:"));
    EXPECT_EQ(form.findChild<QLabel*>("lblProfiles")->text(), QString("Available Profiles"));
}

TEST(MainWindow, QuitClosesTheWindow) {
    TempWorkspace ws;
    frmMain form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    ASSERT_TRUE(form.isVisible());
    QTest::mouseClick(form.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
}

TEST(MainWindow, DoubleClickOnABotDoesWhatTheEditButtonDoes) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Eraser");
    frmMain form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QSignalSpy spy(form.cmdEditBot, &QPushButton::clicked);
    rd::test::ModalDriver driver([](QDialog* editor) { editor->reject(); }); // the setup editor it opens
    const QRect rect = form.lstRecognisedBots->visualItemRect(form.lstRecognisedBots->item(0));
    QTest::mouseClick(form.lstRecognisedBots->viewport(), Qt::LeftButton, {}, rect.center());
    QTest::mouseDClick(form.lstRecognisedBots->viewport(), Qt::LeftButton, {}, rect.center());
    EXPECT_EQ(spy.count(), 1);
    EXPECT_TRUE(driver.acted());
}

TEST(MainWindow, FontSizeReachesEveryControlButHorizontalScrollBars) {
    UserFontReset reset;
    TempWorkspace ws;
    ws.folder("Plug-Ins/Eraser");
    setUserFont({10, ""});
    frmMain form(ws.root());
    const QString designedFamily = QApplication::font().family();
    int checked = 0;
    for (QWidget* w : form.findChildren<QWidget*>()) {
        auto* bar = qobject_cast<QScrollBar*>(w);
        if (bar && bar->orientation() == Qt::Horizontal) {
            EXPECT_EQ(bar->font().pointSize(), QApplication::font().pointSize());
            continue;
        }
        EXPECT_EQ(w->font().pointSize(), 10) << w->objectName().toStdString();
        EXPECT_EQ(w->font().family(), designedFamily) << w->objectName().toStdString();
        ++checked;
    }
    EXPECT_GT(checked, 15);
}

TEST(MainWindow, FontNameAloneChangesTheTypefaceAndKeepsTheDesignedSizes) {
    UserFontReset reset;
    TempWorkspace ws;
    setUserFont({0, "Courier New"});
    frmMain form(ws.root());
    const int designedSize = QApplication::font().pointSize();
    for (QWidget* w : {static_cast<QWidget*>(form.cmdOK), static_cast<QWidget*>(form.lstProfiles),
                       static_cast<QWidget*>(form.chkOnlyShow), static_cast<QWidget*>(form.lblProfiles)}) {
        EXPECT_EQ(w->font().families().value(0), QString("Courier New")) << w->objectName().toStdString();
        EXPECT_EQ(w->font().pointSize(), designedSize) << w->objectName().toStdString();
    }
}

TEST(MainWindow, EmptyCommandLineKeepsTheDesignedFonts) {
    UserFontReset reset;
    TempWorkspace ws;
    setUserFont({});
    frmMain form(ws.root());
    for (QWidget* w : form.findChildren<QWidget*>())
        EXPECT_FALSE(w->testAttribute(Qt::WA_SetFont)) << w->objectName().toStdString();
}

TEST(MainWindow, AboutOpensTheAboutBox) {
    TempWorkspace ws;
    frmMain form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    ASSERT_TRUE(form.cmdAbout->isEnabled());
    QString opened;
    QString caption;
    rd::test::ModalDriver driver([&](QDialog* dialog) {
        opened = dialog->objectName();
        caption = dialog->windowTitle();
        dialog->done(QDialog::Accepted);
    });
    QTest::mouseClick(form.cmdAbout, Qt::LeftButton);
    EXPECT_TRUE(driver.acted());
    EXPECT_EQ(opened, QString("frmRDabout"));
    EXPECT_EQ(caption, QString("About..."));
}

TEST(MainWindow, HelpIndexWarnsOfTheMissingHelpFileAndOpensTheGuide) {
    TempWorkspace ws;
    PromptRecorder prompts;
    frmMain form(ws.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    ASSERT_TRUE(form.cmdHelp->isEnabled());
    QTest::mouseClick(form.cmdHelp, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Can't find help file 'RosterDesk.hlp'"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    auto* help = form.findChild<frmHelp*>("frmHelp");
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(help->currentPage(), QString("index.html"));
    help->close();
}

} // namespace frmMain_test
