#include "core/screens/userfont.h"
#include "dialogs/aboutanimation.h"
#include "dialogs/frmFindFolder.h"
#include "dialogs/frmPickFromLV.h"
#include "dialogs/frmRDabout.h"
#include "dialogs/version.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTreeWidget>
#include <cmath>
#include <gtest/gtest.h>

namespace about_test {

using namespace rd;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;

// Texts -----------------------------------------------------------------------------------------

TEST(AboutBox, HasItsCaptionAndOkButton) {
    frmRDabout about;
    EXPECT_EQ(about.windowTitle(), "About...");
    EXPECT_EQ(about.findChild<QPushButton*>("cmdOK")->text(), "&OK");
}

TEST(AboutBox, VersionReadsErsionMajorDotMinorRevision) {
    frmRDabout about;
    const QString text = about.findChild<QLabel*>("lblVersion")->text();
    EXPECT_EQ(
        text,
        QString("ersion %1.%2 revision %3").arg(kVersionMajor).arg(kVersionMinor).arg(kVersionRevision));
    EXPECT_TRUE(QRegularExpression("^ersion [0-9]+\\.[0-9]+ revision [0-9]+$").match(text).hasMatch());
    EXPECT_EQ(about.findChild<QLabel*>("lblVersionV")->text(), "V");
}

TEST(AboutBox, VersionTextFormsPlainDecimalNumbers) {
    EXPECT_EQ(aboutVersionText(2, 10, 7), "ersion 2.10 revision 7");
    EXPECT_EQ(aboutVersionText(1, 0, 0), "ersion 1.0 revision 0");
}

TEST(AboutBox, InfoHoldsThreePiecesJoinedByCrLfWithTrailingBlanksKept) {
    frmRDabout about;
    EXPECT_EQ(about.findChild<QLabel*>("lblInfo")->text(),
              QString("For full credits and all the usual crap  \r\n"
                      "that comes in one of these ABOUT type things, \r\n"
                      "please have a look at Tarnwick."));
}

TEST(AboutBox, LogoSpellsTheProgramsNameWithLargeInitials) {
    frmRDabout about;
    const auto* r = about.findChild<QLabel*>("lblLogoR");
    const auto* oster = about.findChild<QLabel*>("lblLogoOster");
    const auto* d = about.findChild<QLabel*>("lblLogoD");
    const auto* esk = about.findChild<QLabel*>("lblLogoEsk");
    ASSERT_TRUE(r && oster && d && esk);
    EXPECT_EQ(r->text() + oster->text() + d->text() + esk->text(), "RosterDesk");
    EXPECT_GT(r->font().pointSize(), oster->font().pointSize());
    EXPECT_GT(d->font().pointSize(), esk->font().pointSize());
    EXPECT_FALSE(about.findChild<QLabel*>("lblOwner")->text().isEmpty());
}

// The lowest row of `picture` inside `area` where something is drawn (a colour other than the
// background's, taken at the area's top left corner); -1 when nothing is.
int lowestInkRow(const QImage& picture, const QRect& area) {
    const QRgb background = picture.pixel(area.topLeft());
    for (int y = area.bottom(); y >= area.top(); --y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (qGray(picture.pixel(x, y)) < qGray(background) - 60)
                return y;
    return -1;
}

// The letters of the logo and of the version line have no descenders ("RosterDesk", "Version 1.0
// revision 0"), so where each label's letters end is the baseline they stand on.
TEST(AboutBox, LargeAndSmallLettersStandOnOneBaseline) {
    frmRDabout about;
    about.show();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return about.size() == about.fullSize() && !about.animating(); }, 5000));
    const QImage picture = about.grab().toImage();
    const auto baseline = [&](const char* name) {
        const auto* label = about.findChild<QLabel*>(name);
        return lowestInkRow(picture, label->geometry());
    };
    const int logo = baseline("lblLogoR");
    ASSERT_GT(logo, 0);
    for (const char* name : {"lblLogoOster", "lblLogoD", "lblLogoEsk"})
        EXPECT_LE(std::abs(baseline(name) - logo), 1) << name << " does not stand on the logo's baseline";
    const int version = baseline("lblVersionV");
    ASSERT_GT(version, 0);
    EXPECT_LE(std::abs(baseline("lblVersion") - version), 1) << "the version's small letters";
    about.hide();
}

TEST(AboutBox, GrowsLargeEnoughForALargeUserFont) {
    setUserFont(UserFont{24, ""});
    frmRDabout about;
    setUserFont(UserFont{});
    about.show();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return !about.animating() && about.size() == about.fullSize(); }, 5000));
    const auto* info = about.findChild<QLabel*>("lblInfo");
    EXPECT_GT(about.width(), std::lround(6555 / about.twipsPerPixelX()));
    EXPECT_GE(info->width(), info->sizeHint().width()) << "the note to the launcher is cut";
    EXPECT_GE(info->height(), info->sizeHint().height());
    about.hide();
}

TEST(AboutBox, ClickingInfoShowsTheInformationMessage) {
    PromptRecorder prompts;
    frmRDabout about;
    about.show();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return about.size() == about.fullSize() && !about.animating(); }, 5000));
    auto* info = about.findChild<QLabel*>("lblInfo");
    QTest::mouseClick(info, Qt::LeftButton, Qt::NoModifier, info->rect().center());
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().text, "You may well be wondering what the HELL this is... well, then...");
    EXPECT_EQ(prompts.last().icon, PromptIcon::Information);
    EXPECT_EQ(prompts.last().title, kProgramTitle);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::Ok);
    about.hide();
}

// Animation steps -------------------------------------------------------------------------------

TEST(AboutAnimation, GrowsInTwentyStepsOfOneTwentiethAboutTheCentre) {
    const TwipRect start{3000, 2000, 655, 480};
    const auto frames = growFrames(start, 6555, 4680);
    ASSERT_EQ(frames.size(), 20u);
    const double widthStep = (6555 - 655) / 20.0;
    const double heightStep = (4680 - 480) / 20.0;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const TwipRect& f = frames[i];
        EXPECT_NEAR(f.width, 655 + widthStep * static_cast<double>(i + 1), 1e-6);
        EXPECT_NEAR(f.height, 480 + heightStep * static_cast<double>(i + 1), 1e-6);
        EXPECT_NEAR(f.left + f.width / 2, start.left + start.width / 2, 1e-6);
        EXPECT_NEAR(f.top + f.height / 2, start.top + start.height / 2, 1e-6);
    }
    EXPECT_NEAR(frames.back().width, 6555, 1e-6);
    EXPECT_NEAR(frames.back().height, 4680, 1e-6);
}

TEST(AboutAnimation, NothingGrowsWhenBothStepsAreTwentyTwipsOrLess) {
    EXPECT_TRUE(growFrames({0, 0, 6555 - 400, 4680 - 400}, 6555, 4680).empty());
    EXPECT_TRUE(growFrames({0, 0, 6555, 4680}, 6555, 4680).empty());
    EXPECT_TRUE(growFrames({0, 0, 7000, 5000}, 6555, 4680).empty());
    EXPECT_FALSE(growFrames({0, 0, 6555 - 420, 4680 - 400}, 6555, 4680).empty());
}

TEST(AboutAnimation, OneSideAtItsTargetStaysWhileTheOtherGrows) {
    const auto frames = growFrames({100, 100, 6555, 1000}, 6555, 4680);
    ASSERT_EQ(frames.size(), 20u);
    for (const TwipRect& f : frames) {
        EXPECT_EQ(f.width, 6555);
        EXPECT_EQ(f.left, 100);
    }
    EXPECT_NEAR(frames.back().height, 4680, 1e-6);
}

TEST(AboutAnimation, ShrinksInStepsOfOneTwentiethOfSizeLessOneUntilCollapsed) {
    const TwipRect start{1000, 1000, 6555, 4680};
    const auto frames = shrinkFrames(start);
    ASSERT_EQ(frames.size(), 20u);
    const double widthStep = (6555 - 1) / 20.0;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        EXPECT_NEAR(frames[i].width, 6555 - widthStep * static_cast<double>(i + 1), 1e-6);
        EXPECT_NEAR(frames[i].left + frames[i].width / 2, start.left + start.width / 2, 1e-6);
        EXPECT_NEAR(frames[i].top + frames[i].height / 2, start.top + start.height / 2, 1e-6);
    }
    EXPECT_NEAR(frames.back().width, 1, 1e-6);
    EXPECT_NEAR(frames.back().height, 1, 1e-6);
}

TEST(AboutAnimation, NothingShrinksWhenBothStepsAreTwentyTwipsOrLess) {
    EXPECT_TRUE(shrinkFrames({0, 0, 401, 401}).empty());
    EXPECT_FALSE(shrinkFrames({0, 0, 421, 401}).empty());
}

// The box on screen -----------------------------------------------------------------------------

TEST(AboutBox, FullSizeIs6555By4680TwipsAtTheScreensResolution) {
#ifdef _WIN32
    GTEST_SKIP() << "Wine's stand-in fonts make the logo's texts wider than the box's own size, so the box "
                    "grows as it does for a large font";
#endif
    frmRDabout about;
    const QSize full = about.fullSize();
    EXPECT_EQ(full.width(), std::lround(6555 / about.twipsPerPixelX()));
    EXPECT_EQ(full.height(), std::lround(4680 / about.twipsPerPixelY()));
    EXPECT_GT(full.width(), 0);
}

TEST(AboutBox, OpensGrowingAboutItsCentreToItsFullSize) {
    frmRDabout about;
    const QSize full = about.fullSize();
    const QPoint centre = about.geometry().center();
    EXPECT_LT(about.width(), full.width());
    about.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return about.size() == full && !about.animating(); }, 5000));
    const auto& frames = about.framesShown();
    ASSERT_GE(frames.size(), 2u);
    for (std::size_t i = 1; i < frames.size(); ++i) {
        EXPECT_GE(frames[i].width(), frames[i - 1].width());
        EXPECT_GE(frames[i].height(), frames[i - 1].height());
    }
    EXPECT_LE(std::abs(about.geometry().center().x() - centre.x()), 2);
    EXPECT_LE(std::abs(about.geometry().center().y() - centre.y()), 2);
    about.hide();
}

TEST(AboutBox, OkShrinksTheBoxAwayAndThenCloses) {
    frmRDabout about;
    about.show();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return about.size() == about.fullSize() && !about.animating(); }, 5000));
    const std::size_t opened = about.framesShown().size();
    QTest::mouseClick(about.cmdOK, Qt::LeftButton);
    EXPECT_TRUE(about.isVisible()); // still shrinking
    ASSERT_TRUE(QTest::qWaitFor([&] { return !about.isVisible(); }, 5000));
    EXPECT_EQ(about.result(), QDialog::Accepted);
    const auto& frames = about.framesShown();
    ASSERT_GT(frames.size(), opened);
    EXPECT_LT(frames.back().width(), about.fullSize().width() / 10);
}

TEST(AboutBox, ShowAboutOpensModallyAndOkClosesIt) {
    PromptRecorder prompts;
    QWidget owner;
    QString caption;
    ModalDriver driver([&](QDialog* d) {
        caption = d->windowTitle();
        QTest::mouseClick(d->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    ShowAbout(&owner);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(caption, "About...");
}

TEST(SharedDialogs, EachDialogTakesTheUserFontWhenItLoads) {
    setUserFont(UserFont{13, "Arial"});
    frmRDabout about;
    frmFindFolder picker("");
    QTreeWidget source;
    frmPickFromLV pick(&source, nullptr, -1, "T");
    setUserFont(UserFont{});
    for (QWidget* control : {static_cast<QWidget*>(about.lblInfo), static_cast<QWidget*>(about.cmdOK),
                             static_cast<QWidget*>(picker.Drive1), static_cast<QWidget*>(picker.Dir1),
                             static_cast<QWidget*>(pick.List1), static_cast<QWidget*>(pick.cmdOK)}) {
        EXPECT_EQ(control->font().pointSize(), 13) << control->objectName().toStdString();
        EXPECT_EQ(control->font().family(), "Arial") << control->objectName().toStdString();
    }
}

} // namespace about_test
