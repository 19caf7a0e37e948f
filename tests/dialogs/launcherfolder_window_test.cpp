// The first-start window of the desktop program, and how the program finds its workspace: the
// launcher folders found are offered, Cancel ends with nothing written, a choice is remembered and
// used at the next start, and a remembered folder that is gone is asked for again.
#include "core/screens/help.h"
#include "dialogs/frmFindFolder.h"
#include "dialogs/frmLauncherFolder.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/wine_data.h"
#include "tests/support/workspace_data.h"

#include <QDir>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTextBrowser>
#include <QTreeView>
#include <gtest/gtest.h>

namespace launcherfolder_window_test {

using namespace rd;
namespace fs = std::filesystem;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;
using rd::test::ScopedEnvironment;
using rd::test::TempWorkspace;

QString shown(const fs::path& path) {
    return QDir::toNativeSeparators(QString::fromStdU16String(path.u16string()));
}

// A home folder whose ~/.wine holds the launcher (drive_c/Tarnwick) and a second launcher folder
// elsewhere; the program is installed in a folder of its own; settings go to a file of the test.
struct Machine {
    TempWorkspace ws;
    fs::path home = ws.path("home");
    fs::path launcher = ws.path("home/.wine/drive_c/Tarnwick");
    fs::path other = ws.path("LAN/Tarnwick");
    fs::path program = ws.path("usr/bin");
    ScopedEnvironment env{
        {{"HOME", home.string()}, {"WINEPREFIX", std::nullopt}, {"ROSTERDESK_ROOT", std::nullopt}}};

    Machine() {
        for (const fs::path& folder : {launcher, other}) {
            fs::create_directories(folder / "Plug-Ins");
            fs::create_directories(folder / "Game-Paths");
        }
        fs::create_directories(program);
    }
    fs::path settingsFile() const { return ws.path("config/RosterDesk.conf"); }
    std::unique_ptr<QSettings> settings() const {
        return std::make_unique<QSettings>(QString::fromStdString(settingsFile().string()),
                                           QSettings::IniFormat);
    }
};

// An answer to the question, keeping what it was offered.
struct Asker {
    std::optional<fs::path> answer;
    std::vector<std::vector<fs::path>> offers;
    AskLauncherFolder ask() {
        return [this](const std::vector<fs::path>& found) {
            offers.push_back(found);
            return answer;
        };
    }
};

TEST(LauncherFolderWindow, OffersTheFoldersFoundAndSaysPlainlyWhatItWants) {
    Machine m;
    frmLauncherFolder window({m.launcher, m.other});
    EXPECT_EQ(window.objectName(), QString("frmLauncherFolder"));
    EXPECT_EQ(window.windowTitle(), QString("Choose Launcher Folder"));
    EXPECT_TRUE(window.lblExplain->text().contains("Choose the launcher's folder: the folder that holds its "
                                                   "Plug-Ins and Game-Paths folders."));
    ASSERT_EQ(window.lstFound->count(), 2);
    EXPECT_EQ(window.lstFound->item(0)->text(), shown(m.launcher));
    EXPECT_EQ(window.lstFound->item(1)->text(), shown(m.other));
    EXPECT_EQ(window.lstFound->currentRow(), 0);
    EXPECT_EQ(window.txtFolder->text(), shown(m.launcher));
    EXPECT_FALSE(window.lblNoneFound->isVisibleTo(&window));
    EXPECT_EQ(window.lblFound->text(), QString("&Launcher folders found:"));
    EXPECT_EQ(window.lblFound->buddy(), window.lstFound);
    EXPECT_EQ(window.lstFound->accessibleName(), QString("Launcher folders found:"));
    EXPECT_EQ(window.lblFolder->buddy(), window.txtFolder);
    EXPECT_EQ(window.cmdBrowse->text(), QString("&Browse..."));
    EXPECT_EQ(window.cmdOK->text(), QString("&OK"));
    EXPECT_EQ(window.cmdCancel->text(), QString("&Cancel"));
}

TEST(LauncherFolderWindow, ArrowKeysChooseAnotherFolderAndOkTakesIt) {
    Machine m;
    frmLauncherFolder window({m.launcher, m.other});
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.lstFound->setFocus();
    QTest::keyClick(window.lstFound, Qt::Key_Down);
    EXPECT_EQ(window.txtFolder->text(), shown(m.other));
    QTest::keyClick(&window, Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.result() == QDialog::Accepted; }, 3000));
    EXPECT_EQ(window.chosenFolder(), m.other);
}

TEST(LauncherFolderWindow, DoubleClickTakesAFolder) {
    Machine m;
    frmLauncherFolder window({m.launcher, m.other});
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QRect row = window.lstFound->visualItemRect(window.lstFound->item(1));
    QTest::mouseClick(window.lstFound->viewport(), Qt::LeftButton, {}, row.center());
    QTest::mouseDClick(window.lstFound->viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(window.chosenFolder(), m.other);
}

TEST(LauncherFolderWindow, WithNothingFoundItSaysSoAndBrowseFindsTheFolder) {
#ifdef _WIN32
    GTEST_SKIP() << "under Wine the test folders lie on drive Z: (the build machine's root), which reports "
                    "no volume, so the picker starts on C:";
#endif
    Machine m;
    frmLauncherFolder window({});
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(window.lblNoneFound->isVisible());
    EXPECT_EQ(window.lblNoneFound->text(),
              QString("No launcher folder was found in the usual Wine prefixes: find it with Browse."));
    EXPECT_EQ(window.lstFound->count(), 0);
    QString startedAt;
    ModalDriver driver([&](QDialog* dialog) {
        auto* picker = qobject_cast<frmFindFolder*>(dialog);
        ASSERT_NE(picker, nullptr);
        startedAt = picker->openFolder();
        auto* model = qobject_cast<QFileSystemModel*>(picker->Dir1->model());
        picker->Dir1->setCurrentIndex(model->index(QString::fromStdString(m.other.string())));
        QTest::mouseClick(picker->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(window.cmdBrowse, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(startedAt, QDir::cleanPath(QString::fromStdString(m.home.string())));
    EXPECT_EQ(window.txtFolder->text(), shown(m.other));
    QTest::mouseClick(window.cmdOK, Qt::LeftButton);
    EXPECT_EQ(window.chosenFolder(), m.other);
}

TEST(LauncherFolderWindow, AFolderThatIsNotTheLaunchersIsRefusedAndTheWindowStaysOpen) {
#ifdef _WIN32
    GTEST_SKIP() << "under Wine the test folders lie on drive Z: (the build machine's root), which reports "
                    "no volume, so the picker starts on C:";
#endif
    Machine m;
    PromptRecorder prompts;
    frmLauncherFolder window({m.launcher});
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.txtFolder->setText(shown(m.home));
    QTest::mouseClick(window.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text,
              "\"" + shown(m.home) +
                  "\" holds neither Plug-Ins nor Game-Paths, so it is not the launcher's folder.");
    EXPECT_EQ(prompts.last().title, QString("Choose Launcher Folder"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::Ok);
    EXPECT_TRUE(window.isVisible());
    window.txtFolder->clear();
    QTest::mouseClick(window.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 2u);
    EXPECT_EQ(prompts.last().text,
              QString("Choose the launcher's folder first: pick one from the list, or find it with Browse."));
    EXPECT_TRUE(window.isVisible());
    // A folder typed with ~ for the home folder is taken.
    window.txtFolder->setText("~/.wine/drive_c/Tarnwick");
    QTest::mouseClick(window.cmdOK, Qt::LeftButton);
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(window.chosenFolder(), m.launcher);
}

TEST(LauncherFolderWindow, CancelChoosesNothing) {
    Machine m;
    frmLauncherFolder window({m.launcher});
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(window.result(), QDialog::Rejected);
    EXPECT_TRUE(window.chosenFolder().empty());
}

TEST(LauncherFolderWindow, F1OpensItsGuidePageWhichTheIndexLinksBesideThePageOnWine) {
    Machine m;
    frmLauncherFolder window({m.launcher});
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(helpPageFor(&window), QString("frmLauncherFolder.html"));
    EXPECT_TRUE(helpPageExists("wine.html"));
    QTextBrowser index;
    index.setSource(QUrl(helpPageUrl(kHelpIndexPage)));
    EXPECT_TRUE(index.toHtml().contains("frmLauncherFolder.html"));
    EXPECT_TRUE(index.toHtml().contains("wine.html"));
    window.lstFound->setFocus();
    QTest::keyClick(window.lstFound, Qt::Key_F1);
    auto* help = window.findChild<frmHelp*>("frmHelp");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmLauncherFolder.html"));
    help->close();
}

#ifndef _WIN32

TEST(DesktopWorkspace, TheFirstStartOffersTheLauncherFoldersOfTheUsualPrefixesAndCancelWritesNothing) {
    Machine m;
    auto settings = m.settings();
    Asker asker; // cancels
    EXPECT_FALSE(OpenDesktopWorkspace(m.program, *settings, false, asker.ask()));
    ASSERT_EQ(asker.offers.size(), 1u);
    EXPECT_EQ(asker.offers[0], std::vector<fs::path>{m.launcher});
    settings.reset();
    EXPECT_FALSE(fs::exists(m.settingsFile()));
    EXPECT_FALSE(fs::exists(m.ws.path("config")));
}

TEST(DesktopWorkspace, TheFolderChosenIsRememberedAndUsedAtTheNextStart) {
    Machine m;
    {
        auto settings = m.settings();
        Asker asker;
        asker.answer = m.other;
        const auto root = OpenDesktopWorkspace(m.program, *settings, false, asker.ask());
        ASSERT_TRUE(root);
        EXPECT_EQ(root->folder, m.other);
        EXPECT_EQ(root->source, RootSource::Chosen);
    }
    EXPECT_NE(rd::test::readBytes(m.settingsFile()).find(m.other.string()), std::string::npos);
    auto settings = m.settings();
    Asker never;
    const auto root = OpenDesktopWorkspace(m.program, *settings, false, never.ask());
    ASSERT_TRUE(root);
    EXPECT_EQ(root->folder, m.other);
    EXPECT_EQ(root->source, RootSource::Remembered);
    EXPECT_TRUE(never.offers.empty());
}

TEST(DesktopWorkspace, ARememberedFolderThatNoLongerExistsIsAskedForAgain) {
    Machine m;
    auto settings = m.settings();
    settings->setValue(kLauncherFolderSetting, QString::fromStdString(m.ws.path("gone/Tarnwick").string()));
    Asker asker;
    asker.answer = m.launcher;
    const auto root = OpenDesktopWorkspace(m.program, *settings, false, asker.ask());
    ASSERT_TRUE(root);
    EXPECT_EQ(asker.offers.size(), 1u);
    EXPECT_EQ(root->folder, m.launcher);
    EXPECT_EQ(settings->value(kLauncherFolderSetting).toString(),
              QString::fromStdString(m.launcher.string()));
}

TEST(DesktopWorkspace, ChooseLauncherFolderAsksEvenWithARememberedFolderAndCancelKeepsIt) {
    Machine m;
    auto settings = m.settings();
    settings->setValue(kLauncherFolderSetting, QString::fromStdString(m.other.string()));
    Asker asker;
    EXPECT_FALSE(OpenDesktopWorkspace(m.program, *settings, true, asker.ask()));
    EXPECT_EQ(asker.offers.size(), 1u);
    EXPECT_EQ(settings->value(kLauncherFolderSetting).toString(), QString::fromStdString(m.other.string()));
    asker.answer = m.launcher;
    const auto root = OpenDesktopWorkspace(m.program, *settings, true, asker.ask());
    ASSERT_TRUE(root);
    EXPECT_EQ(root->source, RootSource::Chosen);
    EXPECT_EQ(settings->value(kLauncherFolderSetting).toString(),
              QString::fromStdString(m.launcher.string()));
}

TEST(DesktopWorkspace, AProgramInTheLaunchersFolderNeitherAsksNorRemembers) {
    Machine m;
    auto settings = m.settings();
    Asker asker;
    const auto root = OpenDesktopWorkspace(m.launcher, *settings, false, asker.ask());
    ASSERT_TRUE(root);
    EXPECT_EQ(root->source, RootSource::ProgramFolder);
    EXPECT_TRUE(asker.offers.empty());
    asker.answer = m.other; // the desktop action: used for this run, not remembered
    EXPECT_EQ(OpenDesktopWorkspace(m.launcher, *settings, true, asker.ask())->folder, m.other);
    EXPECT_FALSE(settings->contains(kLauncherFolderSetting));
}

TEST(DesktopWorkspace, TheFirstStartWindowAnswersTheQuestion) {
    Machine m;
    auto settings = m.settings();
    QStringList offered;
    ModalDriver driver([&](QDialog* dialog) {
        auto* window = qobject_cast<frmLauncherFolder*>(dialog);
        ASSERT_NE(window, nullptr);
        for (int i = 0; i < window->lstFound->count(); ++i)
            offered << window->lstFound->item(i)->text();
        QTest::mouseClick(window->cmdOK, Qt::LeftButton);
    });
    const auto root = OpenDesktopWorkspace(m.program, *settings, false, LauncherFolderWindow);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(offered, QStringList{shown(m.launcher)});
    ASSERT_TRUE(root);
    EXPECT_EQ(root->folder, m.launcher);
    EXPECT_EQ(root->source, RootSource::Chosen);
}

TEST(DesktopWorkspace, WithNoOneAtTheScreenTheQuestionIsAnInputBox) {
    Machine m;
    PromptRecorder prompts;
    prompts.answerInput(shown(m.home)); // refused: not the launcher's folder
    prompts.answerInput(shown(m.other));
    const auto chosen = LauncherFolderPrompt({m.launcher});
    ASSERT_EQ(prompts.calls().size(), 3u);
    const auto& question = prompts.calls()[0];
    EXPECT_EQ(question.kind, rd::test::PromptCall::Kind::Input);
    EXPECT_EQ(question.title, QString("Choose Launcher Folder"));
    EXPECT_TRUE(question.text.endsWith("\n\nLauncher folders found:\n" + shown(m.launcher)))
        << question.text.toStdString();
    EXPECT_EQ(question.defaultText, shown(m.launcher));
    EXPECT_EQ(prompts.calls()[1].kind, rd::test::PromptCall::Kind::Message);
    EXPECT_TRUE(prompts.calls()[1].text.endsWith("so it is not the launcher's folder."));
    ASSERT_TRUE(chosen);
    EXPECT_EQ(*chosen, m.other);
    // Cancelled (the script has no more answers): nothing.
    EXPECT_FALSE(LauncherFolderPrompt({}));
    EXPECT_TRUE(
        prompts.last().text.endsWith("No launcher folder was found in the usual Wine prefixes: find it "
                                     "with Browse."));
}

#endif

} // namespace launcherfolder_window_test
