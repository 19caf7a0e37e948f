#include "definitions/screens/listparts.h"

#include "core/screens/listhelpers.h"
#include "core/screens/screensize.h"
#include "core/screens/shorttext.h"

#include <QDir>
#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace rd {

namespace {

// A folder with a tab: the category a group of rows is filed under.
QPixmap drawCategory(int size) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 16.0, size / 16.0);
    const QColor outline(122, 84, 16);
    painter.setPen(QPen(outline, 1.0));
    // The tab at the back.
    QPainterPath tab;
    tab.moveTo(1.5, 4.5);
    tab.lineTo(1.5, 2.5);
    tab.lineTo(6.0, 2.5);
    tab.lineTo(7.5, 4.0);
    tab.lineTo(7.5, 4.5);
    painter.setBrush(QColor(214, 164, 52));
    painter.drawPath(tab);
    // The body, lighter towards the top.
    QLinearGradient body(0, 4, 0, 14);
    body.setColorAt(0.0, QColor(255, 226, 130));
    body.setColorAt(1.0, QColor(232, 182, 62));
    painter.setBrush(body);
    painter.drawRoundedRect(QRectF(1.5, 4.5, 13.0, 9.0), 1.0, 1.0);
    // A line across the front, as a folder's edge.
    painter.setPen(QPen(QColor(255, 244, 200), 1.0));
    painter.drawLine(QPointF(2.5, 6.0), QPointF(13.5, 6.0));
    return picture;
}

class ListCommandFilter : public QObject {
public:
    ListCommandFilter(QTreeWidget* view, QMenu* popup, ListCommands commands)
        : QObject(view), view_(view), viewport_(view->viewport()), popup_(popup),
          commands_(std::move(commands)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        // The viewport is known from the start: it still has events while the view is being
        // destroyed, when the view can no longer be asked for it.
        if (watched == viewport_) {
            if (event->type() == QEvent::MouseButtonRelease) {
                auto* mouse = static_cast<QMouseEvent*>(event);
                if (mouse->button() == Qt::RightButton) {
                    popup_->popup(viewport_->mapToGlobal(mouse->position().toPoint()));
                    return true;
                }
            } else if (event->type() == QEvent::MouseButtonDblClick) {
                auto* mouse = static_cast<QMouseEvent*>(event);
                if (mouse->button() == Qt::LeftButton) {
                    run(commands_.edit);
                    return true;
                }
            } else if (event->type() == QEvent::ContextMenu) {
                return true; // the popup opens on the release of the right button
            }
            return false;
        }
        if (watched == view_ && event->type() == QEvent::KeyPress) {
            auto* key = static_cast<QKeyEvent*>(event);
            if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
                return false;
            switch (key->key()) {
            case Qt::Key_Insert:
                run(commands_.add);
                return true;
            case Qt::Key_Delete:
                run(commands_.remove);
                return true;
            case Qt::Key_Return:
            case Qt::Key_Enter:
                run(commands_.edit);
                return true;
            case Qt::Key_Menu:
                openPopupAtSelection(view_, popup_);
                return true;
            default:
                return false;
            }
        }
        if (watched == view_ && event->type() == QEvent::ContextMenu)
            return true; // the key is handled above; the mouse on the viewport
        return false;
    }

private:
    static void run(const std::function<void()>& command) {
        if (command)
            command();
    }

    QTreeWidget* view_;
    QWidget* viewport_;
    QMenu* popup_;
    ListCommands commands_;
};

} // namespace

QIcon categoryIcon() {
    QIcon icon;
    icon.addPixmap(drawCategory(16));
    icon.addPixmap(drawCategory(32));
    return icon;
}

void markCategory(QTreeWidgetItem* item, const QIcon& icon) {
    setSmallIcon(item, kCategoryIconIndex, icon);
    item->setData(0, kIconRole, kCategoryIconIndex);
}

bool isCategoryRow(const QTreeWidgetItem* item) {
    return smallIconIndex(item) == kCategoryIconIndex;
}

QLabel* makeLabel(QWidget* parent, const char* name, const QString& caption, QWidget* buddy) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(QString::fromLatin1(name));
    if (buddy)
        label->setBuddy(buddy);
    return label;
}

void fitToCaption(QPushButton* button) {
    const int margin = button->style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, button);
    const int width = button->fontMetrics().horizontalAdvance(button->text()) + 2 * margin + 12;
    button->setFixedWidth(std::max(width, button->fontMetrics().height() * 2));
}

QTreeWidget* makeReportView(QWidget* parent, const char* name, const QStringList& columns) {
    auto* view = new QTreeWidget(parent);
    view->setObjectName(QString::fromLatin1(name));
    view->setColumnCount(static_cast<int>(columns.size()));
    view->setHeaderLabels(columns);
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(true);
    view->setAllColumnsShowFocus(true);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setContextMenuPolicy(Qt::PreventContextMenu);
    view->header()->setStretchLastSection(true);
    return view;
}

void giveListCommands(QTreeWidget* view, QMenu* popup, ListCommands commands) {
    auto* filter = new ListCommandFilter(view, popup, std::move(commands));
    view->installEventFilter(filter);
    view->viewport()->installEventFilter(filter);
}

void openPopupAtSelection(QTreeWidget* view, QMenu* popup) {
    QPoint at(0, 0);
    if (QTreeWidgetItem* item = view->currentItem(); item && item->isSelected())
        at = view->visualItemRect(item).bottomLeft();
    popup->popup(view->viewport()->mapToGlobal(at));
}

int selectedRow(const QTreeWidget* view) {
    return selectedListEntry(view);
}

void selectRow(QTreeWidget* view, QTreeWidgetItem* item) {
    if (!item)
        return;
    view->setCurrentItem(item);
    item->setSelected(true);
    view->scrollToItem(item);
}

FileFrame makeFileFrame(QWidget* parent) {
    FileFrame parts;
    parts.frame = new QGroupBox(parent);
    parts.frame->setObjectName(QStringLiteral("fraFilename"));
    parts.label = makePathLabel(parts.frame);
    parts.label->setObjectName(QStringLiteral("lblFilename"));
    parts.label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    // The screen opens wide enough for the whole path where the desktop has the room.
    showWholeText(parts.label);
    parts.label->setAccessibleName(QStringLiteral("File"));
    auto* layout = new QVBoxLayout(parts.frame);
    layout->addWidget(parts.label);
    return parts;
}

void showFilePath(QLabel* label, const std::filesystem::path& path) {
    const QString file = pathForScreen(path);
    label->setText(file);
    label->setToolTip(file);
}

DefinitionPopup makeDefinitionPopup(QWidget* parent, const char* categoryEntryName) {
    DefinitionPopup popup;
    popup.menu = new QMenu(parent);
    popup.menu->setObjectName(QStringLiteral("mnuPopup"));
    const auto entry = [&popup](const char* name, const QString& caption) {
        QAction* action = popup.menu->addAction(caption);
        action->setObjectName(QString::fromLatin1(name));
        return action;
    };
    popup.edit = entry("mnuPopupEdit", QStringLiteral("&Edit"));
    popup.add = entry("mnuPopupAdd", QStringLiteral("&Add"));
    popup.remove = entry("mnuPopupDelete", QStringLiteral("&Delete"));
    popup.menu->addSeparator();
    popup.moveUp = entry("mnuPopupMoveUp", QStringLiteral("Move &Up"));
    popup.moveDown = entry("mnuPopupMoveDown", QStringLiteral("&Move Down"));
    popup.menu->addSeparator();
    popup.category = entry(categoryEntryName, QStringLiteral("Add &New Category"));
    popup.menu->setDefaultAction(popup.edit);
    return popup;
}

void removeRowAndSelectNext(QTreeWidget* view, int row) {
    delete view->topLevelItem(row - 1);
    const int count = view->topLevelItemCount();
    if (count > 0)
        selectRow(view, view->topLevelItem(std::min(row, count) - 1));
}

QTreeWidgetItem* makeCategoryItem(int column, const QString& name, const QIcon& icon) {
    auto* item = new QTreeWidgetItem;
    item->setText(column, name);
    markCategory(item, icon);
    return item;
}

void addCategoryBelowSelection(QTreeWidget* view, int column, const QString& name, const QIcon& icon) {
    QTreeWidgetItem* item = makeCategoryItem(column, name, icon);
    const int row = selectedRow(view);
    if (row > 0)
        view->insertTopLevelItem(row, item);
    else
        view->addTopLevelItem(item);
    selectRow(view, item);
}

QString pathForScreen(const std::filesystem::path& path) {
    QString text;
    try {
        text = QString::fromStdU16String(path.u16string());
    } catch (const std::exception&) {
        text = QString::fromLocal8Bit(path.string());
    }
    return QDir::toNativeSeparators(text);
}

} // namespace rd
