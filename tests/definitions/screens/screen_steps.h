#pragma once
// Steps the definition screen tests share: showing a screen as the active window, letting queued
// work run, finding controls, and working a list view and its popup menu with the mouse.

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

// Failed comparisons of texts print the texts.
inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}

namespace rd::test {

// Shows `w` and makes it the active window, so focus moves between its controls as for a user.
inline bool showActive(QWidget* w) {
    w->show();
    w->activateWindow();
    QApplication::setActiveWindow(w);
    return QTest::qWaitForWindowActive(w);
}

// Makes an open dialog the active window (a dialog opened from a popup menu may come up while
// the menu's window still holds the activation).
inline bool makeActive(QWidget* w) {
    w->activateWindow();
    QApplication::setActiveWindow(w);
    return QTest::qWaitForWindowActive(w);
}

// Lets the work queued by the last event run (a refusal waits until the focus change is over).
inline void settle() {
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

template <typename T> T* child(QWidget* parent, const char* name) {
    T* found = parent->findChild<T*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

// Clicks a control as a user does (the press gives it the focus when it takes focus by mouse).
inline void click(QWidget* w) {
    QTest::mouseClick(w, Qt::LeftButton, {}, QPoint(w->width() / 2, w->height() / 2));
}

// Clicks a check box or option button on its indicator (a click beyond its caption misses it).
inline void clickChoice(QWidget* choice) {
    QTest::mouseClick(choice, Qt::LeftButton, {}, QPoint(6, choice->height() / 2));
}

// Replaces a text box's text by typing: select all, delete, type.
inline void typeInto(QLineEdit* box, const QString& text) {
    box->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
}

// The texts of a list view's rows in one column.
inline QStringList columnTexts(const QTreeWidget* view, int column = 0) {
    QStringList out;
    for (int i = 0; i < view->topLevelItemCount(); ++i)
        out << view->topLevelItem(i)->text(column);
    return out;
}

inline QStringList headerTexts(const QTreeWidget* view) {
    QStringList out;
    for (int i = 0; i < view->columnCount(); ++i)
        out << view->headerItem()->text(i);
    return out;
}

// Clicks the row at `row` (0-based) of a list view.
inline void clickRow(QTreeWidget* view, int row, Qt::MouseButton button = Qt::LeftButton) {
    const QRect rect = view->visualItemRect(view->topLevelItem(row));
    QTest::mouseClick(view->viewport(), button, {}, rect.center());
}

inline void doubleClickRow(QTreeWidget* view, int row) {
    const QRect rect = view->visualItemRect(view->topLevelItem(row));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, rect.center());
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, rect.center());
}

// The popup's entries as captions, separators as "-".
inline QStringList menuEntries(const QMenu* menu) {
    QStringList out;
    for (const QAction* action : menu->actions())
        out << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return out;
}

inline QStringList menuNames(const QMenu* menu) {
    QStringList out;
    for (const QAction* action : menu->actions())
        if (!action->isSeparator())
            out << action->objectName();
    return out;
}

// Clicks an entry of an open popup menu.
inline void clickMenuEntry(QMenu* menu, QAction* action) {
    ASSERT_TRUE(menu->isVisible());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
}

// Opens the popup with a right-button click on `row` (0-based) and clicks `action`.
inline void popupCommand(QTreeWidget* view, QMenu* menu, int row, QAction* action) {
    clickRow(view, row, Qt::RightButton);
    ASSERT_TRUE(menu->isVisible());
    clickMenuEntry(menu, action);
}

} // namespace rd::test
