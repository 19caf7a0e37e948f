#pragma once
// The two-column map lists of the category editor and the add-map screen: each row is a map name
// (column 0) and a second text (column 1: the map's title, or where the map was found).

#include <QString>
#include <Qt>

class QTreeWidget;
class QTreeWidgetItem;

namespace rd {

// Makes `view` a report-style list of two columns with the given headers: whole rows selected,
// one at a time, no editing in place, headers that answer clicks (the screen decides the sort).
void setUpMapList(QTreeWidget* view, const QString& firstHeader, const QString& secondHeader);

// A new row (not yet in a list). Sorting compares the sorted column's texts without regard to
// case, then as written.
QTreeWidgetItem* newMapRow(const QString& name, const QString& second);

// The selected row, or nullptr when no row is selected.
QTreeWidgetItem* selectedMapRow(const QTreeWidget* view);

// Adds a row directly below the selected row, or at the end when no row is selected, and scrolls
// it into view. The selection stays where it was. Returns the new row.
QTreeWidgetItem* addMapRowBelowSelection(QTreeWidget* view, const QString& name, const QString& second);

// Sorts the rows once by `column` in `order` and shows the sort indicator. The view does not keep
// itself sorted afterwards, so rows added or moved later stay where they are put.
void sortMapList(QTreeWidget* view, int column, Qt::SortOrder order);

} // namespace rd
