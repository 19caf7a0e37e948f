#pragma once
// Helpers every list screen shares: moving a row up or down, finding the entry under the mouse
// pointer, and the Ctrl+U / Ctrl+D move keys.
//
// The list controls of the program and how the helpers see them:
// - plain list (QListWidget) and drop-down list (QComboBox): entries are texts, indexed from 0;
//   "no selection" is -1.
// - multi-column list (QTreeWidget used as a report-style list view): the top-level items are the
//   rows, indexed from 1; "no selection" is 0. A row keeps beside its text (column 0) and its
//   sub-items (columns 1..columnCount-1):
//     kListTagRole        its tag (any value),
//     Qt::DecorationRole  the small icon as shown,
//     kSmallIconRole      the small icon's index in the screen's image list (int); a row
//                         without one reads as index 0,
//     kIconRole           the large icon's index (int).
//   Screens that put icons on rows set both the decoration and kSmallIconRole (setSmallIcon).
// - tree (a QTreeWidget marked with markAsTree): nodes are numbered from 1 in the order they are
//   shown when everything is expanded (parents before their children). A node keeps its tag in
//   kListTagRole, its image as Qt::DecorationRole with the index in kSmallIconRole, and its
//   selected image's index in kSelectedImageRole. No screen of the program shows a tree today;
//   a QTreeWidget is a multi-column list unless it is marked.

#include <QIcon>
#include <QString>
#include <cstdint>
#include <functional>

class QKeyEvent;
class QListWidget;
class QTreeWidget;
class QTreeWidgetItem;
class QWidget;

namespace rd {

inline constexpr int kListTagRole = Qt::UserRole;
inline constexpr int kSmallIconRole = Qt::UserRole + 1;
inline constexpr int kIconRole = Qt::UserRole + 2;
inline constexpr int kSelectedImageRole = Qt::UserRole + 3;

// The tooltip of a list whose commands live in its popup menu and on keys, so that a user finds
// them.
inline const QString kListCommandsTip = QStringLiteral(
    "Right-click for commands. Insert adds, Delete removes, Enter edits, Ctrl+U / Ctrl+D move.");

// Gives a list-view row (or tree node) a small icon: the picture shown and its image-list index.
void setSmallIcon(QTreeWidgetItem* item, int index, const QIcon& icon);
// The small-icon index of a list-view row (0 when it has none).
int smallIconIndex(const QTreeWidgetItem* item);

// Marks a QTreeWidget as a tree for SwapListEntries (see the top of this file).
void markAsTree(QTreeWidget* tree);
bool isMarkedAsTree(const QTreeWidget* tree);

// Exchanges entries a and b of a list control and selects b; a is the entry being moved, b its
// new place. Indexes follow the control's own numbering (see above). When either index is out of
// range nothing happens at all, so a move past either end leaves the selection where it was.
// A multi-column list or tree has its sorting switched off first so the new order stays.
// Controls of any other kind are left alone.
void SwapListEntries(QWidget* control, int a, int b);

// The selected entry of a list control in its own numbering: -1 (plain and drop-down lists) or
// 0 (multi-column lists and trees) when nothing is selected.
int selectedListEntry(const QWidget* control);

// Move Up / Move Down of the list screens: swap the selected entry with the one above / below.
// Nothing happens when no entry is selected. Returns whether something was selected.
bool moveSelectedEntryUp(QWidget* control);
bool moveSelectedEntryDown(QWidget* control);

// Which move a key press asks for: Ctrl+U up, Ctrl+D down. The letter counts in either case and
// with any other modifier, as long as Ctrl is held.
enum class MoveKey { None, Up, Down };
MoveKey moveKeyOf(const QKeyEvent* event);

// Gives a list control the move keys: Ctrl+U / Ctrl+D run Move Up / Move Down on it and then call
// `moved` (if given) so the screen can note the change. Returns nothing; the filter lives as
// long as the control.
void giveMoveKeys(QWidget* control, std::function<void(MoveKey)> moved = {});

// The entry of a plain list under a vertical pointer position (pixels, in the list's viewport as
// mouse events report it): the row height and the first visible row decide, and a position below
// the last entry gives the last entry; an empty list gives -1. Right-button handlers select the
// result before they open their popup menu.
int ListEntryAtPointer(const QListWidget* list, double y);

// The smaller of two 16-bit integers (b when a > b, else a).
std::int16_t MinInt16(std::int16_t a, std::int16_t b);

} // namespace rd
