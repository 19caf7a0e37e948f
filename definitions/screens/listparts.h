#pragma once
// Parts the definition screens share: the category icon, labelled fields, and the mouse and keys
// of the list screens (popup menu, Insert, Delete, Enter, the context-menu key, double-click).

#include "core/screens/qtext.h"

#include <QIcon>
#include <QList>
#include <QString>
#include <QTreeWidget>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

class QAction;
class QGroupBox;
class QLabel;
class QMenu;
class QPushButton;
class QWidget;

namespace rd {

// The small picture that marks a category row (image-list index 1), drawn here.
QIcon categoryIcon();
inline constexpr int kCategoryIconIndex = 1;

// Marks a list-view row as a category: the icon, normal and small.
void markCategory(QTreeWidgetItem* item, const QIcon& icon);
bool isCategoryRow(const QTreeWidgetItem* item);
// A new category row named `name` (in `column`).
QTreeWidgetItem* makeCategoryItem(int column, const QString& name, const QIcon& icon);

// Fills `view` in one batch with the rows of a definition file: a category row shows its name in
// `nameColumn` with the category icon, any other row is written by `setRow` into an item made by
// `newItem`.
template <class Row, class SetRow, class NewItem>
void fillDefinitionRows(QTreeWidget* view, const std::vector<Row>& rows, int nameColumn, const QIcon& icon,
                        SetRow setRow, NewItem newItem) {
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(rows.size()));
    for (const Row& row : rows) {
        if (row.isCategory) {
            items.append(makeCategoryItem(nameColumn, fromBytes(row.name), icon));
        } else {
            QTreeWidgetItem* item = newItem();
            setRow(item, row);
            items.append(item);
        }
    }
    view->setUpdatesEnabled(false);
    view->addTopLevelItems(items);
    view->setUpdatesEnabled(true);
}

template <class Row, class SetRow>
void fillDefinitionRows(QTreeWidget* view, const std::vector<Row>& rows, int nameColumn, const QIcon& icon,
                        SetRow setRow) {
    fillDefinitionRows(view, rows, nameColumn, icon, setRow, [] { return new QTreeWidgetItem; });
}

// A label named `name` with `caption`, the buddy of `buddy` (so Alt+letter and screen readers
// find the field by it).
QLabel* makeLabel(QWidget* parent, const char* name, const QString& caption, QWidget* buddy);

// Makes a small button ("...", "?") only as wide as its caption needs in the screen's font.
void fitToCaption(QPushButton* button);

// The report-style list view of a list screen: one row per entry, whole rows selected.
QTreeWidget* makeReportView(QWidget* parent, const char* name, const QStringList& columns);

// What the keys and the mouse of a list screen run.
struct ListCommands {
    std::function<void()> add;    // Insert
    std::function<void()> remove; // Delete
    std::function<void()> edit;   // Enter, double-click
};

// Gives `view` the list screens' mouse and keys: a right-button release over the list opens
// `popup` at the pointer, the context-menu key opens it at the selected row; Insert, Delete and
// Enter run the commands; a double-click edits. The popup opens without blocking.
void giveListCommands(QTreeWidget* view, QMenu* popup, ListCommands commands);

// Opens `popup` at the selected row of `view` (its top left corner when none is selected).
void openPopupAtSelection(QTreeWidget* view, QMenu* popup);

// The selected row of a list view, 1-based; 0 when nothing is selected.
int selectedRow(const QTreeWidget* view);
// Makes `item` the selected row and shows it.
void selectRow(QTreeWidget* view, QTreeWidgetItem* item);

// The frame at the top of the option and flag lists, `fraFilename`, that shows the file being
// edited in `lblFilename` (the path also as its tooltip; a path too long for the label shows
// shortened in the middle).
struct FileFrame {
    QGroupBox* frame = nullptr;
    QLabel* label = nullptr;
};
FileFrame makeFileFrame(QWidget* parent);
void showFilePath(QLabel* label, const std::filesystem::path& path);

// The popup menu of the option and flag lists, `mnuPopup`: Edit (the default), Add, Delete, Move
// Up, Move Down and, after separators, "Add &New Category" named `categoryEntryName`.
struct DefinitionPopup {
    QMenu* menu = nullptr;
    QAction* edit = nullptr;
    QAction* add = nullptr;
    QAction* remove = nullptr;
    QAction* moveUp = nullptr;
    QAction* moveDown = nullptr;
    QAction* category = nullptr;
};
DefinitionPopup makeDefinitionPopup(QWidget* parent, const char* categoryEntryName);

// Removes row `row` (1-based) of `view` and selects the row that took its place, or the new last
// row, so the keys go on working.
void removeRowAndSelectNext(QTreeWidget* view, int row);

// Adds a category row named `name` below the selected row (at the end when none is selected),
// in `column`, and selects it.
void addCategoryBelowSelection(QTreeWidget* view, int column, const QString& name, const QIcon& icon);

// A file path as the user reads it (native separators).
QString pathForScreen(const std::filesystem::path& path);

} // namespace rd
