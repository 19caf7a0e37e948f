#include "core/screens/help.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace help_test {

using namespace rd;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

// Every help window open now (they are owned by the screens they were opened over).
QList<frmHelp*> openHelpWindows() {
    QList<frmHelp*> out;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* help = qobject_cast<frmHelp*>(w); help && help->isVisible())
            out << help;
    return out;
}

void closeHelpWindows() {
    for (frmHelp* help : openHelpWindows())
        help->close();
    QApplication::processEvents();
}

TEST(Help, TheGuideHasAnIndexAndAPageForTheMainWindow) {
    EXPECT_TRUE(helpPageExists("index.html"));
    EXPECT_TRUE(helpPageExists("frmMain.html"));
    EXPECT_FALSE(helpPageExists("no-such-page.html"));
}

TEST(Help, F1OpensThePageNamedAfterTheScreen) {
    QDialog screen;
    screen.setObjectName("frmMain");
    auto* box = new QLineEdit(&screen);
    (new QVBoxLayout(&screen))->addWidget(box);
    screen.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&screen));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_F1);
    const auto windows = openHelpWindows();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_EQ(windows.first()->currentPage(), QString("frmMain.html"));
    EXPECT_EQ(windows.first()->windowTitle(), QString("RosterDesk Help - The main window"));
    closeHelpWindows();
}

TEST(Help, F1OnAScreenWithoutAPageOpensTheIndex) {
    QDialog screen;
    screen.setObjectName("frmNothingLikeThis");
    screen.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&screen));
    QTest::keyClick(&screen, Qt::Key_F1);
    const auto windows = openHelpWindows();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_EQ(windows.first()->currentPage(), QString("index.html"));
    closeHelpWindows();
}

TEST(Help, TheHelpWindowStaysUsableOverAModalDialog) {
    QDialog screen;
    screen.setObjectName("frmMain");
    screen.setWindowModality(Qt::ApplicationModal);
    screen.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&screen));
    frmHelp* help = showHelp(&screen, "index.html");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(help));
    // A window owned by the modal dialog is not blocked by it.
    EXPECT_EQ(help->parentWidget(), &screen);
    EXPECT_TRUE(help->isWindow());
    EXPECT_EQ(help->windowModality(), Qt::NonModal);
    closeHelpWindows();
}

TEST(Help, HelpIndexWarnsWhenTheHelpFileIsMissingAndStillOpensTheIndex) {
    TempWorkspace ws;
    PromptRecorder prompts;
    QDialog owner;
    frmHelp* help = HelpIndex(&owner, ws.root());
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, QString("Can't find help file 'RosterDesk.hlp'"));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::Ok);
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("index.html"));
    closeHelpWindows();
}

TEST(Help, HelpIndexOpensTheIndexWithoutAWordWhenTheHelpFileIsThere) {
    TempWorkspace ws;
    ws.write("rosterdesk.HLP", "");
    PromptRecorder prompts;
    QDialog owner;
    frmHelp* help = HelpIndex(&owner, ws.root());
    EXPECT_TRUE(prompts.calls().empty());
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("index.html"));
    closeHelpWindows();
}

TEST(Help, LinksBetweenPagesWorkAndBackReturns) {
    QDialog owner;
    frmHelp* help = showHelp(&owner, "index.html");
    help->txtPage->setSource(QUrl("frmMain.html"));
    EXPECT_EQ(help->currentPage(), QString("frmMain.html"));
    EXPECT_FALSE(help->txtPage->toPlainText().isEmpty());
    ASSERT_TRUE(help->cmdBack->isEnabled());
    QTest::mouseClick(help->cmdBack, Qt::LeftButton);
    EXPECT_EQ(help->currentPage(), QString("index.html"));
    closeHelpWindows();
}

} // namespace help_test

namespace help_test {

// The pictures of the page the window shows, as laid out: their width and height on the page and
// their own size.
struct ShownPicture {
    double width = 0;
    double height = 0;
    QSize own;
};

std::vector<ShownPicture> shownPictures(frmHelp& help) {
    std::vector<ShownPicture> out;
    QTextDocument* document = help.txtPage->document();
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (!it.fragment().charFormat().isImageFormat())
                continue;
            const QTextImageFormat picture = it.fragment().charFormat().toImageFormat();
            const QImage own(QStringLiteral(":/guide/") + picture.name());
            // A picture without a size of its own on the page is shown at its own size.
            out.push_back({picture.width() > 0 ? picture.width() : own.width(),
                           picture.height() > 0 ? picture.height() : own.height(), own.size()});
        }
    return out;
}

TEST(Help, PicturesWiderThanTheWindowAreScaledDownToItsWidth) {
    frmHelp help;
    help.show();
    help.resize(360, 400);
    help.showPage(QStringLiteral("frmMain.html"));
    QApplication::processEvents();
    const auto pictures = shownPictures(help);
    ASSERT_FALSE(pictures.empty());
    for (const ShownPicture& picture : pictures) {
        ASSERT_FALSE(picture.own.isEmpty());
        ASSERT_GT(picture.own.width(), help.txtPage->viewport()->width()) << "the picture should be wider";
        EXPECT_LE(picture.width, help.txtPage->viewport()->width());
        EXPECT_NEAR(picture.height / picture.width, double(picture.own.height()) / picture.own.width(), 0.01)
            << "the picture keeps its proportions";
    }
    EXPECT_LE(help.txtPage->document()->idealWidth(), help.txtPage->viewport()->width());
    help.hide();
}

TEST(Help, PicturesFollowTheWindowsWidthAndNeverGrowBeyondTheirOwnSize) {
    frmHelp help;
    help.show();
    help.resize(360, 400);
    help.showPage(QStringLiteral("frmMain.html"));
    QApplication::processEvents();
    help.resize(1600, 900);
    QApplication::processEvents();
    const auto pictures = shownPictures(help);
    ASSERT_FALSE(pictures.empty());
    for (const ShownPicture& picture : pictures) {
        EXPECT_EQ(picture.width, picture.own.width());
        EXPECT_EQ(picture.height, picture.own.height());
    }
    help.hide();
}

} // namespace help_test
