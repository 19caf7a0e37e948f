// Every screen at three font sizes (FONTSIZE=8, the designed size and FONTSIZE=14), as it opens:
// no label, button or column header is cut, and every column of a list can be seen without
// scrolling sideways.
#include "app/allscreens/allscreens.h"
#include "core/screens/shorttext.h"
#include "core/screens/userfont.h"
#include "dialogs/frmRDabout.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QStyle>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>
#include <filesystem>
#include <gtest/gtest.h>

namespace font_sizes_test {

namespace fs = std::filesystem;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

struct DemoCopy {
    TempWorkspace ws;
    fs::path root = ws.path("demo");
    DemoCopy() { fs::copy(ROSTERDESK_DEMO_WORKSPACE, root, fs::copy_options::recursive); }
};

// Sets the user font for the length of a test, as the command line would.
struct UserFontSize {
    explicit UserFontSize(std::int16_t size) { rd::setUserFont(rd::UserFont{size, ""}); }
    ~UserFontSize() { rd::setUserFont(rd::UserFont{}); }
};

QString describe(const QWidget* screen, const QWidget* w) {
    QString name = w->objectName();
    if (name.isEmpty())
        name = QString::fromLatin1(w->metaObject()->className());
    return screen->objectName() + QStringLiteral(": ") + name;
}

// Whether `w` is shown on `screen` as the user sees it: on the screen itself (not inside a list's
// own widgets), not hidden, on the tab that is shown.
bool shownOn(const QWidget* screen, const QWidget* w) {
    if (w->window() != screen || !w->isVisibleTo(screen))
        return false;
    for (const QWidget* p = w->parentWidget(); p && p != screen; p = p->parentWidget())
        if (qobject_cast<const QAbstractScrollArea*>(p) && !qobject_cast<const QAbstractScrollArea*>(w))
            return false;
    return true;
}

// What is cut on the screen as it is shown now, one line each.
QStringList cutParts(QWidget* screen) {
    QStringList cut;
    for (QLabel* label : screen->findChildren<QLabel*>()) {
        if (!shownOn(screen, label) || label->text().isEmpty())
            continue;
        const QSize hint = label->sizeHint();
        if (rd::showsShortened(label)) {
            // A path label too narrow for its path shows it shortened, and whole in its tooltip.
            if (label->toolTip() != label->text())
                cut << describe(screen, label) +
                           QStringLiteral(" (shortened without the whole text as its tooltip)");
        } else if (label->wordWrap()) {
            if (label->heightForWidth(label->width()) > label->height())
                cut << describe(screen, label) + QStringLiteral(" (wrapped text taller than the label)");
        } else if (hint.width() > label->width() || hint.height() > label->height()) {
            cut << describe(screen, label) + QStringLiteral(" (needs %1x%2, has %3x%4)")
                                                 .arg(hint.width())
                                                 .arg(hint.height())
                                                 .arg(label->width())
                                                 .arg(label->height());
        }
    }
    for (QAbstractButton* button : screen->findChildren<QAbstractButton*>()) {
        if (!shownOn(screen, button) || button->text().isEmpty())
            continue;
        QSize hint = button->sizeHint();
        if (button->maximumWidth() < hint.width()) {
            // A small button held narrower than the style's usual size ("...", "?"): its caption
            // with the style's margins must fit.
            const int margin = button->style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, button);
            hint.setWidth(button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() +
                          2 * margin);
        }
        if (hint.width() > button->width() || hint.height() > button->height())
            cut << describe(screen, button) + QStringLiteral(" \"%5\" (needs %1x%2, has %3x%4)")
                                                  .arg(hint.width())
                                                  .arg(hint.height())
                                                  .arg(button->width())
                                                  .arg(button->height())
                                                  .arg(button->text());
    }
    for (QTreeView* list : screen->findChildren<QTreeView*>()) {
        if (!shownOn(screen, list) || list->isHeaderHidden())
            continue;
        QHeaderView* header = list->header();
        for (int section = 0; section < header->count(); ++section) {
            if (header->isSectionHidden(section))
                continue;
            const QString caption = list->model()->headerData(section, Qt::Horizontal).toString();
            if (header->sectionSizeHint(section) > header->sectionSize(section))
                cut << describe(screen, list) + QStringLiteral(" column \"%1\" (needs %2, has %3)")
                                                    .arg(caption)
                                                    .arg(header->sectionSizeHint(section))
                                                    .arg(header->sectionSize(section));
            if (header->sectionViewportPosition(section) + header->sectionSize(section) >
                list->viewport()->width())
                cut << describe(screen, list) +
                           QStringLiteral(" column \"%1\" lies beyond the list's right edge").arg(caption);
        }
    }
    return cut;
}

// Opens every screen with the user font at `size` (0: the designed size) and reports what is cut,
// on every tab of a screen with tabs.
void expectNothingCut(std::int16_t size) {
    DemoCopy demo;
    PromptRecorder prompts;
    UserFontSize font(size);
    rd::forEachScreen(demo.root, [&](QWidget* screen) {
        screen->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(screen));
        if (auto* about = qobject_cast<rd::frmRDabout*>(screen)) {
            EXPECT_TRUE(QTest::qWaitFor([about] { return !about->animating(); }, 5000));
        }
        QApplication::processEvents();
        const auto tabs = screen->findChildren<QTabWidget*>();
        QStringList cut = cutParts(screen);
        for (QTabWidget* tab : tabs) {
            for (int page = 1; page < tab->count(); ++page) {
                tab->setCurrentIndex(page);
                QApplication::processEvents();
                cut << cutParts(screen);
            }
            tab->setCurrentIndex(0);
        }
        EXPECT_TRUE(cut.isEmpty()) << "FONTSIZE=" << size << "\n"
                                   << cut.join(QLatin1Char('\n')).toStdString();
        screen->hide();
        return true;
    });
}

TEST(FontSizes, NothingIsCutAtTheSmallSize) {
    expectNothingCut(8);
}

TEST(FontSizes, NothingIsCutAtTheDesignedSize) {
    expectNothingCut(0);
}

TEST(FontSizes, NothingIsCutAtTheLargeSize) {
#ifdef _WIN32
    GTEST_SKIP() << "Wine's stand-in fonts measure wider than the list's opening size allows for; not yet "
                    "measured with Windows' own fonts";
#endif
    expectNothingCut(14);
}

} // namespace font_sizes_test
