#include "core/screens/listhelpers.h"

#include "core/conversions.h"

#include <QComboBox>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace rd {

namespace {

const char* const kTreeProperty = "rosterdeskTree";

void swapData(QTreeWidgetItem* a, QTreeWidgetItem* b, int column, int role) {
    const QVariant kept = a->data(column, role);
    a->setData(column, role, b->data(column, role));
    b->setData(column, role, kept);
}

void swapText(QTreeWidgetItem* a, QTreeWidgetItem* b, int column) {
    const QString kept = a->text(column);
    a->setText(column, b->text(column));
    b->setText(column, kept);
}

// Sorting off so the new order stays; the header keeps answering clicks so a screen that sorts by
// column on a header click still can.
void switchSortingOff(QTreeWidget* view) {
    QHeaderView* header = view->header();
    const bool clickable = header->sectionsClickable();
    view->setSortingEnabled(false);
    header->setSortIndicatorShown(false);
    header->setSectionsClickable(clickable);
}

std::vector<QTreeWidgetItem*> treeNodes(QTreeWidget* tree) {
    std::vector<QTreeWidgetItem*> nodes;
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        nodes.push_back(*it);
    return nodes;
}

void swapPlainList(QListWidget* list, int a, int b) {
    if (a < 0 || b < 0 || a >= list->count() || b >= list->count())
        return;
    const QString kept = list->item(a)->text();
    list->item(a)->setText(list->item(b)->text());
    list->item(b)->setText(kept);
    list->setCurrentRow(b);
}

void swapDropDown(QComboBox* combo, int a, int b) {
    if (a < 0 || b < 0 || a >= combo->count() || b >= combo->count())
        return;
    const QString kept = combo->itemText(a);
    combo->setItemText(a, combo->itemText(b));
    combo->setItemText(b, kept);
    combo->setCurrentIndex(b);
}

void swapListView(QTreeWidget* view, int a, int b) {
    const int count = view->topLevelItemCount();
    if (a < 1 || b < 1 || a > count || b > count)
        return;
    switchSortingOff(view);
    QTreeWidgetItem* itemA = view->topLevelItem(a - 1);
    QTreeWidgetItem* itemB = view->topLevelItem(b - 1);
    swapData(itemA, itemB, 0, kListTagRole);
    swapText(itemA, itemB, 0);
    swapData(itemA, itemB, 0, Qt::DecorationRole);
    swapData(itemA, itemB, 0, kSmallIconRole);
    swapData(itemA, itemB, 0, kIconRole);
    for (int column = 1; column < view->columnCount(); ++column)
        swapText(itemA, itemB, column);
    view->setCurrentItem(itemB);
}

void swapTree(QTreeWidget* tree, int a, int b) {
    const std::vector<QTreeWidgetItem*> nodes = treeNodes(tree);
    const int count = static_cast<int>(nodes.size());
    if (a < 1 || b < 1 || a > count || b > count)
        return;
    switchSortingOff(tree);
    QTreeWidgetItem* nodeA = nodes[static_cast<std::size_t>(a - 1)];
    QTreeWidgetItem* nodeB = nodes[static_cast<std::size_t>(b - 1)];
    swapData(nodeA, nodeB, 0, kListTagRole);
    swapText(nodeA, nodeB, 0);
    swapData(nodeA, nodeB, 0, Qt::DecorationRole);
    swapData(nodeA, nodeB, 0, kSmallIconRole);
    swapData(nodeA, nodeB, 0, kSelectedImageRole);
    tree->setCurrentItem(nodeB);
}

class MoveKeyFilter : public QObject {
public:
    MoveKeyFilter(QWidget* control, std::function<void(MoveKey)> moved)
        : QObject(control), control_(control), moved_(std::move(moved)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !(watched == control_ || watched->parent() == control_))
            return false;
        const MoveKey key = moveKeyOf(static_cast<QKeyEvent*>(event));
        if (key == MoveKey::None)
            return false;
        const bool selected =
            key == MoveKey::Up ? moveSelectedEntryUp(control_) : moveSelectedEntryDown(control_);
        if (selected && moved_)
            moved_(key);
        return true;
    }

private:
    QWidget* control_;
    std::function<void(MoveKey)> moved_;
};

} // namespace

void setSmallIcon(QTreeWidgetItem* item, int index, const QIcon& icon) {
    item->setData(0, kSmallIconRole, index);
    item->setIcon(0, icon);
}

int smallIconIndex(const QTreeWidgetItem* item) {
    const QVariant value = item->data(0, kSmallIconRole);
    return value.isValid() ? value.toInt() : 0;
}

void markAsTree(QTreeWidget* tree) {
    tree->setProperty(kTreeProperty, true);
}

bool isMarkedAsTree(const QTreeWidget* tree) {
    return tree->property(kTreeProperty).toBool();
}

void SwapListEntries(QWidget* control, int a, int b) {
    if (auto* list = qobject_cast<QListWidget*>(control))
        swapPlainList(list, a, b);
    else if (auto* combo = qobject_cast<QComboBox*>(control))
        swapDropDown(combo, a, b);
    else if (auto* view = qobject_cast<QTreeWidget*>(control))
        isMarkedAsTree(view) ? swapTree(view, a, b) : swapListView(view, a, b);
}

int selectedListEntry(const QWidget* control) {
    if (auto* list = qobject_cast<const QListWidget*>(control))
        return list->currentItem() && list->currentItem()->isSelected() ? list->currentRow() : -1;
    if (auto* combo = qobject_cast<const QComboBox*>(control))
        return combo->currentIndex();
    if (auto* view = qobject_cast<const QTreeWidget*>(control)) {
        QTreeWidgetItem* current = view->currentItem();
        if (!current || !current->isSelected())
            return 0;
        if (!isMarkedAsTree(view))
            return view->indexOfTopLevelItem(current) + 1;
        const std::vector<QTreeWidgetItem*> nodes = treeNodes(const_cast<QTreeWidget*>(view));
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            if (nodes[i] == current)
                return static_cast<int>(i) + 1;
        }
        return 0;
    }
    return -1;
}

namespace {
bool moveSelected(QWidget* control, int offset) {
    const int selected = selectedListEntry(control);
    const bool oneBased = qobject_cast<QTreeWidget*>(control) != nullptr;
    if (oneBased ? selected < 1 : selected < 0)
        return false;
    SwapListEntries(control, selected, selected + offset);
    return true;
}
} // namespace

bool moveSelectedEntryUp(QWidget* control) {
    return moveSelected(control, -1);
}
bool moveSelectedEntryDown(QWidget* control) {
    return moveSelected(control, +1);
}

MoveKey moveKeyOf(const QKeyEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier))
        return MoveKey::None;
    switch (event->key()) {
    case Qt::Key_U:
        return MoveKey::Up;
    case Qt::Key_D:
        return MoveKey::Down;
    default:
        return MoveKey::None;
    }
}

void giveMoveKeys(QWidget* control, std::function<void(MoveKey)> moved) {
    auto* filter = new MoveKeyFilter(control, std::move(moved));
    control->installEventFilter(filter);
    // An editable drop-down list types into its own line edit, which gets the keys first.
    if (auto* combo = qobject_cast<QComboBox*>(control); combo && combo->lineEdit())
        combo->lineEdit()->installEventFilter(filter);
}

int ListEntryAtPointer(const QListWidget* list, double y) {
    // The pointer position is worked in twips as the launcher's screens do: twips over the row
    // height, rounded, then back to rows by whole twips per pixel.
    const QScreen* screen = list->screen();
    const double dpi = screen ? screen->logicalDotsPerInchY() : 96.0;
    const int twipsPerPixel = std::max(1, static_cast<int>(roundHalfEven(1440.0 / dpi)));
    int rowHeight = list->count() > 0 ? list->visualItemRect(list->item(0)).height() : 0;
    if (rowHeight <= 0)
        rowHeight = std::max(1, list->fontMetrics().height());
    const double rows = roundHalfEven(y * twipsPerPixel / rowHeight);
    const long long row = static_cast<long long>(rows) / twipsPerPixel;
    const QModelIndex top = list->indexAt(QPoint(1, 1));
    const long long topIndex = top.isValid() ? top.row() : 0;
    const long long entry = std::clamp<long long>(row + topIndex, INT16_MIN, INT16_MAX);
    const int last = std::min<int>(list->count() - 1, INT16_MAX);
    return MinInt16(static_cast<std::int16_t>(entry), static_cast<std::int16_t>(last));
}

std::int16_t MinInt16(std::int16_t a, std::int16_t b) {
    return a > b ? b : a;
}

} // namespace rd
