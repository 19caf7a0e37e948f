#include "core/screens/listhelpers.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace listhelpers_test {

using namespace rd;

QIcon colouredIcon(Qt::GlobalColor colour) {
    QPixmap pixmap(16, 16);
    pixmap.fill(colour);
    return QIcon(pixmap);
}

void fillPlainList(QListWidget& list) {
    list.setObjectName("lstItems");
    for (const char* text : {"alpha", "beta", "gamma"})
        list.addItem(text);
    giveMoveKeys(&list);
}

void fillDropDown(QComboBox& combo) {
    combo.setObjectName("cboItems");
    combo.addItems({"alpha", "beta", "gamma"});
    giveMoveKeys(&combo);
}

// Three columns, each row with a tag, a small icon with its index, a large-icon index and two
// sub-items.
void fillListView(QTreeWidget& view) {
    view.setObjectName("lvItems");
    view.setColumnCount(3);
    view.setHeaderLabels({"Name", "Value", "Help"});
    view.setRootIsDecorated(false);
    const Qt::GlobalColor colours[] = {Qt::red, Qt::green, Qt::blue};
    for (int i = 0; i < 3; ++i) {
        auto* item = new QTreeWidgetItem(&view);
        item->setText(0, QString("name%1").arg(i + 1));
        item->setText(1, QString("value%1").arg(i + 1));
        item->setText(2, QString("help%1").arg(i + 1));
        item->setData(0, kListTagRole, QString("tag%1").arg(i + 1));
        setSmallIcon(item, i + 1, colouredIcon(colours[i]));
        item->setData(0, kIconRole, 10 + i);
    }
    giveMoveKeys(&view);
}

void select(QTreeWidget& view, QTreeWidgetItem* item) {
    view.setCurrentItem(item);
    ASSERT_TRUE(item->isSelected());
}

// Plain list ---------------------------------------------------------------------------------

TEST(PlainList, CtrlUOnTheFirstEntryDoesNothingAndTheSelectionStays) {
    QListWidget list;
    fillPlainList(list);
    list.setCurrentRow(0);
    QTest::keyClick(&list, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(list.item(0)->text(), "alpha");
    EXPECT_EQ(list.item(1)->text(), "beta");
    EXPECT_EQ(list.currentRow(), 0);
}

TEST(PlainList, CtrlDOnTheLastEntryDoesNothingAndTheSelectionStays) {
    QListWidget list;
    fillPlainList(list);
    list.setCurrentRow(2);
    QTest::keyClick(&list, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(list.item(1)->text(), "beta");
    EXPECT_EQ(list.item(2)->text(), "gamma");
    EXPECT_EQ(list.currentRow(), 2);
}

TEST(PlainList, CtrlDMovesTheSelectedEntryDownAndKeepsItSelected) {
    QListWidget list;
    fillPlainList(list);
    list.setCurrentRow(0);
    QTest::keyClick(&list, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(list.item(0)->text(), "beta");
    EXPECT_EQ(list.item(1)->text(), "alpha");
    EXPECT_EQ(list.currentRow(), 1);
}

TEST(PlainList, CtrlUMovesTheSelectedEntryUp) {
    QListWidget list;
    fillPlainList(list);
    list.setCurrentRow(2);
    QTest::keyClick(&list, Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(list.item(1)->text(), "gamma");
    EXPECT_EQ(list.item(2)->text(), "beta");
    EXPECT_EQ(list.currentRow(), 1);
}

TEST(PlainList, MoveKeysWithNothingSelectedDoNothing) {
    QListWidget list;
    fillPlainList(list);
    list.setCurrentRow(-1);
    QTest::keyClick(&list, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(list.item(0)->text(), "alpha");
    EXPECT_EQ(list.item(1)->text(), "beta");
    EXPECT_EQ(list.currentRow(), -1);
}

TEST(PlainList, SwappingTwoEntriesMovesOnlyTheirText) {
    QListWidget list;
    fillPlainList(list);
    list.item(0)->setData(Qt::UserRole, 100);
    list.item(2)->setData(Qt::UserRole, 300);
    SwapListEntries(&list, 0, 2);
    EXPECT_EQ(list.item(0)->text(), "gamma");
    EXPECT_EQ(list.item(2)->text(), "alpha");
    EXPECT_EQ(list.item(0)->data(Qt::UserRole).toInt(), 100);
    EXPECT_EQ(list.item(2)->data(Qt::UserRole).toInt(), 300);
    EXPECT_EQ(list.currentRow(), 2);
}

TEST(PlainList, SwapOutOfRangeDoesNothing) {
    QListWidget list;
    fillPlainList(list);
    list.setCurrentRow(1);
    SwapListEntries(&list, 1, 3);
    SwapListEntries(&list, -1, 1);
    EXPECT_EQ(list.item(1)->text(), "beta");
    EXPECT_EQ(list.item(2)->text(), "gamma");
    EXPECT_EQ(list.currentRow(), 1);
}

// Drop-down list -----------------------------------------------------------------------------

TEST(DropDownList, CtrlUOnTheFirstEntryDoesNothingAndTheSelectionStays) {
    QComboBox combo;
    fillDropDown(combo);
    combo.setCurrentIndex(0);
    QTest::keyClick(&combo, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(combo.itemText(0), "alpha");
    EXPECT_EQ(combo.itemText(1), "beta");
    EXPECT_EQ(combo.currentIndex(), 0);
}

TEST(DropDownList, CtrlDOnTheLastEntryDoesNothingAndTheSelectionStays) {
    QComboBox combo;
    fillDropDown(combo);
    combo.setCurrentIndex(2);
    QTest::keyClick(&combo, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(combo.itemText(1), "beta");
    EXPECT_EQ(combo.itemText(2), "gamma");
    EXPECT_EQ(combo.currentIndex(), 2);
}

TEST(DropDownList, CtrlDMovesOnlyTheTextDown) {
    QComboBox combo;
    fillDropDown(combo);
    combo.setItemData(0, 7);
    combo.setCurrentIndex(0);
    QTest::keyClick(&combo, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(combo.itemText(0), "beta");
    EXPECT_EQ(combo.itemText(1), "alpha");
    EXPECT_EQ(combo.itemData(0).toInt(), 7);
    EXPECT_EQ(combo.currentIndex(), 1);
}

// Multi-column list --------------------------------------------------------------------------

TEST(MultiColumnList, CtrlUOnTheFirstRowDoesNothingAndTheSelectionStays) {
    QTreeWidget view;
    fillListView(view);
    select(view, view.topLevelItem(0));
    QTest::keyClick(&view, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(view.topLevelItem(0)->text(0), "name1");
    EXPECT_EQ(view.topLevelItem(1)->text(0), "name2");
    EXPECT_EQ(view.currentItem(), view.topLevelItem(0));
}

TEST(MultiColumnList, CtrlDOnTheLastRowDoesNothingAndTheSelectionStays) {
    QTreeWidget view;
    fillListView(view);
    select(view, view.topLevelItem(2));
    QTest::keyClick(&view, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(view.topLevelItem(1)->text(0), "name2");
    EXPECT_EQ(view.topLevelItem(2)->text(0), "name3");
    EXPECT_EQ(view.currentItem(), view.topLevelItem(2));
}

TEST(MultiColumnList, CtrlDMovesTheSelectedRowDown) {
    QTreeWidget view;
    fillListView(view);
    select(view, view.topLevelItem(0));
    QTest::keyClick(&view, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(view.topLevelItem(0)->text(0), "name2");
    EXPECT_EQ(view.topLevelItem(1)->text(0), "name1");
    EXPECT_EQ(view.currentItem(), view.topLevelItem(1));
    EXPECT_EQ(selectedListEntry(&view), 2);
}

TEST(MultiColumnList, SwapInThreeColumnsExchangesTextTagIconsAndBothSubItems) {
    QTreeWidget view;
    fillListView(view);
    const qint64 redKey = view.topLevelItem(0)->icon(0).cacheKey();
    const qint64 blueKey = view.topLevelItem(2)->icon(0).cacheKey();
    SwapListEntries(&view, 1, 3);
    QTreeWidgetItem* first = view.topLevelItem(0);
    QTreeWidgetItem* last = view.topLevelItem(2);
    EXPECT_EQ(first->text(0), "name3");
    EXPECT_EQ(first->text(1), "value3");
    EXPECT_EQ(first->text(2), "help3");
    EXPECT_EQ(first->data(0, kListTagRole).toString(), "tag3");
    EXPECT_EQ(smallIconIndex(first), 3);
    EXPECT_EQ(first->data(0, kIconRole).toInt(), 12);
    EXPECT_EQ(first->icon(0).cacheKey(), blueKey);
    EXPECT_EQ(last->text(0), "name1");
    EXPECT_EQ(last->text(1), "value1");
    EXPECT_EQ(last->text(2), "help1");
    EXPECT_EQ(last->data(0, kListTagRole).toString(), "tag1");
    EXPECT_EQ(smallIconIndex(last), 1);
    EXPECT_EQ(last->data(0, kIconRole).toInt(), 10);
    EXPECT_EQ(last->icon(0).cacheKey(), redKey);
    EXPECT_EQ(view.topLevelItem(1)->text(0), "name2");
    EXPECT_EQ(view.currentItem(), last);
}

TEST(MultiColumnList, SortedListLosesItsSortIndicatorOnSwap) {
    QTreeWidget view;
    fillListView(view);
    view.setSortingEnabled(true);
    view.sortByColumn(1, Qt::DescendingOrder);
    ASSERT_TRUE(view.header()->isSortIndicatorShown());
    ASSERT_EQ(view.topLevelItem(0)->text(0), "name3");
    SwapListEntries(&view, 1, 2);
    EXPECT_FALSE(view.isSortingEnabled());
    EXPECT_FALSE(view.header()->isSortIndicatorShown());
    // The new order stays; nothing re-sorts it.
    EXPECT_EQ(view.topLevelItem(0)->text(0), "name2");
    EXPECT_EQ(view.topLevelItem(1)->text(0), "name3");
    EXPECT_EQ(view.topLevelItem(2)->text(0), "name1");
}

TEST(MultiColumnList, SwapOutOfRangeLeavesSortingOn) {
    QTreeWidget view;
    fillListView(view);
    view.setSortingEnabled(true);
    SwapListEntries(&view, 0, 1);
    SwapListEntries(&view, 3, 4);
    EXPECT_TRUE(view.isSortingEnabled());
}

TEST(MultiColumnList, RowWithoutSmallIconReadsAsIndexZero) {
    QTreeWidget view;
    auto* item = new QTreeWidgetItem(&view, QStringList{"plain"});
    EXPECT_EQ(smallIconIndex(item), 0);
}

// Tree ---------------------------------------------------------------------------------------

// root1 (child1a), root2: numbered root1=1, child1a=2, root2=3.
void fillTree(QTreeWidget& tree) {
    tree.setObjectName("tvItems");
    markAsTree(&tree);
    auto* root1 = new QTreeWidgetItem(&tree, QStringList{"root1"});
    root1->setData(0, kListTagRole, "t1");
    root1->setData(0, kSelectedImageRole, 11);
    setSmallIcon(root1, 1, colouredIcon(Qt::red));
    auto* child = new QTreeWidgetItem(root1, QStringList{"child1a"});
    child->setData(0, kListTagRole, "t2");
    auto* root2 = new QTreeWidgetItem(&tree, QStringList{"root2"});
    root2->setData(0, kListTagRole, "t3");
    root2->setData(0, kSelectedImageRole, 33);
    setSmallIcon(root2, 3, colouredIcon(Qt::blue));
    giveMoveKeys(&tree);
}

TEST(Tree, SwapExchangesTagTextAndImagesWhileChildrenStay) {
    QTreeWidget tree;
    fillTree(tree);
    SwapListEntries(&tree, 1, 3);
    QTreeWidgetItem* first = tree.topLevelItem(0);
    QTreeWidgetItem* second = tree.topLevelItem(1);
    EXPECT_EQ(first->text(0), "root2");
    EXPECT_EQ(first->data(0, kListTagRole).toString(), "t3");
    EXPECT_EQ(first->data(0, kSelectedImageRole).toInt(), 33);
    EXPECT_EQ(smallIconIndex(first), 3);
    ASSERT_EQ(first->childCount(), 1);
    EXPECT_EQ(first->child(0)->text(0), "child1a");
    EXPECT_EQ(second->text(0), "root1");
    EXPECT_EQ(second->data(0, kSelectedImageRole).toInt(), 11);
    EXPECT_EQ(second->childCount(), 0);
    EXPECT_EQ(tree.currentItem(), second);
}

TEST(Tree, CtrlUOnTheFirstNodeDoesNothingAndTheSelectionStays) {
    QTreeWidget tree;
    fillTree(tree);
    tree.setCurrentItem(tree.topLevelItem(0));
    QTest::keyClick(&tree, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(tree.topLevelItem(0)->text(0), "root1");
    EXPECT_EQ(tree.currentItem(), tree.topLevelItem(0));
}

TEST(Tree, CtrlDOnTheLastNodeDoesNothingAndTheSelectionStays) {
    QTreeWidget tree;
    fillTree(tree);
    tree.setCurrentItem(tree.topLevelItem(1));
    QTest::keyClick(&tree, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(tree.topLevelItem(1)->text(0), "root2");
    EXPECT_EQ(tree.currentItem(), tree.topLevelItem(1));
}

TEST(Tree, CtrlDOnAParentSwapsItWithItsFirstChild) {
    QTreeWidget tree;
    fillTree(tree);
    tree.setCurrentItem(tree.topLevelItem(0));
    QTest::keyClick(&tree, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(tree.topLevelItem(0)->text(0), "child1a");
    EXPECT_EQ(tree.topLevelItem(0)->child(0)->text(0), "root1");
    EXPECT_EQ(tree.currentItem(), tree.topLevelItem(0)->child(0));
}

// Other controls and helpers -----------------------------------------------------------------

TEST(SwapListEntries, AnyOtherControlIsLeftAlone) {
    QLineEdit box("unchanged");
    SwapListEntries(&box, 0, 1);
    EXPECT_EQ(box.text(), "unchanged");
}

TEST(MoveKeys, CtrlIsRequiredAndOtherLettersDoNothing) {
    QListWidget list;
    fillPlainList(list);
    list.setCurrentRow(0);
    QTest::keyClick(&list, Qt::Key_D, Qt::NoModifier);
    QTest::keyClick(&list, Qt::Key_D, Qt::AltModifier);
    QTest::keyClick(&list, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(list.item(0)->text(), "alpha");
    EXPECT_EQ(list.item(1)->text(), "beta");
}

TEST(MoveKeys, TheScreenHearsOfEachMove) {
    QListWidget list;
    list.addItems({"a", "b"});
    std::vector<MoveKey> heard;
    giveMoveKeys(&list, [&](MoveKey key) { heard.push_back(key); });
    list.setCurrentRow(0);
    QTest::keyClick(&list, Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(&list, Qt::Key_U, Qt::ControlModifier);
    ASSERT_EQ(heard.size(), 2u);
    EXPECT_EQ(heard[0], MoveKey::Down);
    EXPECT_EQ(heard[1], MoveKey::Up);
    EXPECT_EQ(list.item(0)->text(), "a");
}

TEST(MinInt16, GivesTheSmallerOfTwo) {
    EXPECT_EQ(MinInt16(3, 5), 3);
    EXPECT_EQ(MinInt16(5, 3), 3);
    EXPECT_EQ(MinInt16(-1, -1), -1);
    EXPECT_EQ(MinInt16(-32768, 32767), -32768);
}

// Entry under the pointer --------------------------------------------------------------------

int rowHeight(QListWidget& list) {
    return list.visualItemRect(list.item(0)).height();
}

TEST(ListEntryAtPointer, ARightClickBelowTheLastEntrySelectsTheLastEntry) {
    QListWidget list;
    list.addItems({"one", "two", "three"});
    list.resize(200, 400);
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    const int below = rowHeight(list) * 3 + 40;
    ASSERT_LT(below, list.viewport()->height());
    EXPECT_EQ(ListEntryAtPointer(&list, below), 2);
}

TEST(ListEntryAtPointer, GivesTheRowUnderThePointer) {
    QListWidget list;
    list.addItems({"one", "two", "three"});
    list.resize(200, 400);
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    const int h = rowHeight(list);
    EXPECT_EQ(ListEntryAtPointer(&list, 1), 0);
    EXPECT_EQ(ListEntryAtPointer(&list, h + h / 4), 1);
}

TEST(ListEntryAtPointer, CountsFromTheFirstVisibleRow) {
    QListWidget list;
    for (int i = 0; i < 100; ++i)
        list.addItem(QString("entry %1").arg(i));
    list.resize(200, 150);
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    list.scrollToItem(list.item(50), QAbstractItemView::PositionAtTop);
    const int top = list.indexAt(QPoint(1, 1)).row();
    ASSERT_GT(top, 0);
    EXPECT_EQ(ListEntryAtPointer(&list, 1), top);
    EXPECT_EQ(ListEntryAtPointer(&list, rowHeight(list) + 1), top + 1);
}

TEST(ListEntryAtPointer, AnEmptyListGivesMinusOne) {
    QListWidget list;
    list.resize(200, 200);
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    EXPECT_EQ(ListEntryAtPointer(&list, 10), -1);
}

TEST(DropDownList, EditableListTakesTheMoveKeysInItsTextToo) {
    QComboBox combo;
    combo.setEditable(true);
    fillDropDown(combo);
    combo.setCurrentIndex(1);
    QTest::keyClick(combo.lineEdit(), Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(combo.itemText(0), "beta");
    EXPECT_EQ(combo.itemText(1), "alpha");
    EXPECT_EQ(combo.currentIndex(), 0);
}

} // namespace listhelpers_test
