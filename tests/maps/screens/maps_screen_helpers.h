#pragma once
// Helpers of the map and arena screen tests: reading what a list shows, clicking rows as a user
// does, and answering a popup menu that a screen opens.

#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QListWidget>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace rd::test {

// Every entry below `root` with its bytes ("<folder>" for a folder), to show that nothing changed.
inline std::map<std::string, std::string> snapshot(const std::filesystem::path& root) {
    std::map<std::string, std::string> out;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        const std::string key = std::filesystem::relative(entry.path(), root).string();
        out[key] = entry.is_directory() ? std::string("<folder>") : readBytes(entry.path());
    }
    return out;
}

inline QStringList texts(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

inline QStringList texts(const QComboBox* combo) {
    QStringList out;
    for (int i = 0; i < combo->count(); ++i)
        out << combo->itemText(i);
    return out;
}

// The rows of a two-column list view as "name|second".
inline QStringList rows(const QTreeWidget* view) {
    QStringList out;
    for (int i = 0; i < view->topLevelItemCount(); ++i)
        out << view->topLevelItem(i)->text(0) + "|" + view->topLevelItem(i)->text(1);
    return out;
}

// The rows a user sees (hidden rows left out).
inline QStringList shownRows(const QTreeWidget* view) {
    QStringList out;
    for (int i = 0; i < view->topLevelItemCount(); ++i)
        if (!view->topLevelItem(i)->isHidden())
            out << view->topLevelItem(i)->text(0) + "|" + view->topLevelItem(i)->text(1);
    return out;
}

// The selected row of a list view (0-based), -1 when none is selected.
inline int selectedRow(const QTreeWidget* view) {
    QTreeWidgetItem* current = view->currentItem();
    return current && current->isSelected() ? view->indexOfTopLevelItem(current) : -1;
}

inline int selectedRow(const QListWidget* list) {
    QListWidgetItem* current = list->currentItem();
    return current && current->isSelected() ? list->row(current) : -1;
}

inline void clickRow(QTreeWidget* view, int row, Qt::MouseButton button = Qt::LeftButton) {
    QTreeWidgetItem* item = view->topLevelItem(row);
    ASSERT_NE(item, nullptr);
    view->scrollToItem(item);
    QTest::mouseClick(view->viewport(), button, {}, view->visualItemRect(item).center());
}

inline void doubleClickRow(QTreeWidget* view, int row) {
    QTreeWidgetItem* item = view->topLevelItem(row);
    ASSERT_NE(item, nullptr);
    view->scrollToItem(item);
    const QPoint at = view->visualItemRect(item).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
}

inline void clickRow(QListWidget* list, int row) {
    QListWidgetItem* item = list->item(row);
    ASSERT_NE(item, nullptr);
    list->scrollToItem(item);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
}

inline void doubleClickRow(QListWidget* list, int row) {
    QListWidgetItem* item = list->item(row);
    ASSERT_NE(item, nullptr);
    list->scrollToItem(item);
    const QPoint at = list->visualItemRect(item).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

// Answers the next popup menu a screen opens: `act` gets the menu once it is shown. A watchdog
// closes a menu nobody answered and fails the test, so no test hangs in a menu.
class PopupDriver {
public:
    explicit PopupDriver(std::function<void(QMenu*)> act) : act_(std::move(act)), poll_(new QTimer) {
        clock_.start();
        poll_->setInterval(5);
        QObject::connect(poll_.get(), &QTimer::timeout, [this] { tick(); });
        poll_->start();
    }
    ~PopupDriver() { poll_->stop(); }
    bool acted() const { return acted_; }

private:
    void tick() {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!acted_ && menu && menu->isVisible()) {
            acted_ = true;
            poll_->stop();
            act_(menu);
            return;
        }
        if (clock_.elapsed() > 5000) {
            poll_->stop();
            if (menu) {
                ADD_FAILURE() << "a popup menu was left open";
                menu->close();
            }
        }
    }

    std::function<void(QMenu*)> act_;
    std::unique_ptr<QTimer> poll_;
    QElapsedTimer clock_;
    bool acted_ = false;
};

// Clicks a menu entry as the user does.
inline void clickEntry(QMenu* menu, const char* name) {
    QAction* entry = menu->findChild<QAction*>(QString::fromLatin1(name));
    if (!entry) {
        for (QAction* a : menu->actions())
            if (a->objectName() == QLatin1String(name))
                entry = a;
    }
    ASSERT_NE(entry, nullptr) << name;
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
}

// The names of a menu's entries in order ("-" for a separator) and the default entry's name.
inline QStringList entryNames(const QMenu* menu) {
    QStringList out;
    for (const QAction* a : menu->actions())
        out << (a->isSeparator() ? QStringLiteral("-") : a->objectName());
    return out;
}

} // namespace rd::test
