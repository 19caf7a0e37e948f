#include "maps/screens/maplist.h"

#include "core/screens/shorttext.h"

#include <QHeaderView>
#include <QTreeWidget>

namespace rd {

namespace {

class MapRowItem : public QTreeWidgetItem {
public:
    MapRowItem(const QString& name, const QString& second) : QTreeWidgetItem(UserType) {
        setText(0, name);
        setText(1, second);
    }

    // The sorted column's text folded to one case, set for every row just before a sort, so each
    // of the many comparisons of a sort compares two ready texts.
    QString sortKey;

    bool operator<(const QTreeWidgetItem& other) const override {
        if (other.type() == UserType) {
            const auto& theirs = static_cast<const MapRowItem&>(other);
            if (sortKey != theirs.sortKey)
                return sortKey < theirs.sortKey;
        }
        const QTreeWidget* view = treeWidget();
        const int column = view ? view->sortColumn() : 0;
        const QString mine = text(column);
        const QString others = other.text(column);
        const int noCase = mine.compare(others, Qt::CaseInsensitive);
        return noCase != 0 ? noCase < 0 : mine < others;
    }
};

} // namespace

void setUpMapList(QTreeWidget* view, const QString& firstHeader, const QString& secondHeader) {
    view->setColumnCount(2);
    view->setHeaderLabels({firstHeader, secondHeader});
    view->setRootIsDecorated(false);
    view->setItemsExpandable(false);
    view->setUniformRowHeights(true);
    showLongTextsShortened(view);
    view->setAllColumnsShowFocus(true);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setSortingEnabled(false);
    view->header()->setSectionsClickable(true);
    view->header()->setSortIndicatorShown(false);
    view->header()->setStretchLastSection(true);
}

QTreeWidgetItem* newMapRow(const QString& name, const QString& second) {
    return new MapRowItem(name, second);
}

QTreeWidgetItem* selectedMapRow(const QTreeWidget* view) {
    QTreeWidgetItem* current = view->currentItem();
    return current && current->isSelected() ? current : nullptr;
}

QTreeWidgetItem* addMapRowBelowSelection(QTreeWidget* view, const QString& name, const QString& second) {
    QTreeWidgetItem* row = newMapRow(name, second);
    if (QTreeWidgetItem* selected = selectedMapRow(view))
        view->insertTopLevelItem(view->indexOfTopLevelItem(selected) + 1, row);
    else
        view->addTopLevelItem(row);
    view->scrollToItem(row);
    return row;
}

void sortMapList(QTreeWidget* view, int column, Qt::SortOrder order) {
    for (int i = 0, n = view->topLevelItemCount(); i < n; ++i) {
        QTreeWidgetItem* row = view->topLevelItem(i);
        if (row->type() == QTreeWidgetItem::UserType)
            static_cast<MapRowItem*>(row)->sortKey = row->text(column).toCaseFolded();
    }
    view->sortItems(column, order);
    view->header()->setSortIndicatorShown(true);
    view->header()->setSortIndicator(column, order);
    if (QTreeWidgetItem* selected = selectedMapRow(view))
        view->scrollToItem(selected);
}

} // namespace rd
