// Every screen of the program, met the way a person and a screen reader meet it: each field and
// list is named by its label, each button by its caption, and F1 opens the screen's own page.
#include "app/allscreens/allscreens.h"
#include "core/screens/help.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

namespace every_screen_test {

namespace fs = std::filesystem;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

// The demo workspace, copied so that nothing a screen does can change it.
struct DemoCopy {
    TempWorkspace ws;
    fs::path root = ws.path("demo");
    DemoCopy() { fs::copy(ROSTERDESK_DEMO_WORKSPACE, root, fs::copy_options::recursive); }
};

// The widget a screen reader announces for a control: its label (a QLabel whose buddy it is) or
// its accessible name.
QString spokenName(QWidget* screen, QWidget* control) {
    if (!control->accessibleName().isEmpty())
        return control->accessibleName();
    for (QLabel* label : screen->findChildren<QLabel*>())
        if (label->buddy() == control && !label->text().isEmpty())
            return label->text();
    return QString();
}

bool isPartOfAnotherControl(QWidget* w) {
    for (QWidget* p = w->parentWidget(); p; p = p->parentWidget())
        if (qobject_cast<QComboBox*>(p) || qobject_cast<QAbstractSpinBox*>(p) ||
            qobject_cast<QAbstractItemView*>(p))
            return true;
    return false;
}

TEST(EveryScreen, OpensInTurnWithItsOwnName) {
    DemoCopy demo;
    PromptRecorder prompts;
    QStringList seen;
    ASSERT_TRUE(rd::forEachScreen(demo.root, [&](QWidget* screen) {
        seen << screen->objectName();
        return true;
    }));
    EXPECT_EQ(seen, rd::allScreenNames());
    EXPECT_TRUE(prompts.calls().empty()) << "a screen raised a message while it opened on the demo";
}

TEST(EveryScreen, EveryFieldAndListIsNamedByItsLabel) {
    DemoCopy demo;
    PromptRecorder prompts;
    rd::forEachScreen(demo.root, [&](QWidget* screen) {
        screen->show();
        const QString where = screen->objectName();
        for (QWidget* w : screen->findChildren<QWidget*>()) {
            if (!w->isVisibleTo(screen) || w->window() != screen || isPartOfAnotherControl(w))
                continue;
            const bool field = qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
                               qobject_cast<QAbstractSpinBox*>(w) || qobject_cast<QPlainTextEdit*>(w) ||
                               qobject_cast<QTextEdit*>(w);
            const bool list = qobject_cast<QAbstractItemView*>(w) != nullptr;
            if (field) {
                EXPECT_FALSE(spokenName(screen, w).isEmpty())
                    << where.toStdString() << ": " << w->objectName().toStdString() << " has no label";
            }
            if (list) {
                // Qt does not name list views after their buddy label: they need the name themselves.
                EXPECT_FALSE(w->accessibleName().isEmpty())
                    << where.toStdString() << ": list " << w->objectName().toStdString() << " has no name";
            }
            if (auto* button = qobject_cast<QPushButton*>(w)) {
                EXPECT_FALSE(button->text().isEmpty() && button->accessibleName().isEmpty())
                    << where.toStdString() << ": button " << w->objectName().toStdString() << " has no name";
            }
            if (field || list) {
                EXPECT_FALSE(w->objectName().isEmpty()) << where.toStdString() << ": a control has no name";
            }
        }
        screen->hide();
        return true;
    });
}

TEST(EveryScreen, F1OpensTheScreensOwnPage) {
    DemoCopy demo;
    PromptRecorder prompts;
    rd::forEachScreen(demo.root, [&](QWidget* screen) {
        screen->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(screen));
        QWidget* target = screen->focusWidget() ? screen->focusWidget() : screen;
        QTest::keyClick(target, Qt::Key_F1);
        if (auto* own = qobject_cast<rd::frmHelp*>(screen)) {
            // In the help window F1 tells how to use help, in the same window.
            EXPECT_EQ(own->currentPage(), QStringLiteral("frmHelp.html"));
            screen->hide();
            return true;
        }
        rd::frmHelp* help = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* h = qobject_cast<rd::frmHelp*>(w); h && h->isVisible() && h != screen)
                help = h;
        EXPECT_NE(help, nullptr) << screen->objectName().toStdString();
        if (help) {
            EXPECT_EQ(help->currentPage(), screen->objectName() + QStringLiteral(".html"))
                << screen->objectName().toStdString();
            help->close();
        }
        QApplication::processEvents();
        screen->hide();
        return true;
    });
}

TEST(EveryScreen, EveryControlAMouseCanFocusTheKeyboardCanReachToo) {
    DemoCopy demo;
    PromptRecorder prompts;
    rd::forEachScreen(demo.root, [&](QWidget* screen) {
        screen->show();
        for (QWidget* w : screen->findChildren<QWidget*>()) {
            if (!w->isVisibleTo(screen) || w->window() != screen || isPartOfAnotherControl(w))
                continue;
            // (A label whose text can be selected takes the focus on a click; it is no control.)
            if ((w->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus && !qobject_cast<QLabel*>(w)) {
                EXPECT_EQ(w->focusPolicy() & Qt::TabFocus, Qt::TabFocus)
                    << screen->objectName().toStdString() << ": " << w->objectName().toStdString() << " ("
                    << w->metaObject()->className() << ") cannot be reached with Tab";
            }
        }
        screen->hide();
        return true;
    });
}

TEST(EveryScreen, NoEditableDropDownCompletesWhatIsTyped) {
    DemoCopy demo;
    PromptRecorder prompts;
    int editable = 0;
    rd::forEachScreen(demo.root, [&](QWidget* screen) {
        for (QComboBox* combo : screen->findChildren<QComboBox*>()) {
            if (!combo->isEditable())
                continue;
            ++editable;
            EXPECT_EQ(combo->completer(), nullptr)
                << screen->objectName().toStdString() << ": " << combo->objectName().toStdString()
                << " completes what is typed";
            EXPECT_EQ(combo->insertPolicy(), QComboBox::NoInsert)
                << screen->objectName().toStdString() << ": " << combo->objectName().toStdString()
                << " adds what is typed to its list";
        }
        return true;
    });
    EXPECT_GT(editable, 0);
}

} // namespace every_screen_test
