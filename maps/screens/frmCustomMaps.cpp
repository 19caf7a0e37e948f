#include "maps/screens/frmCustomMaps.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/listhelpers.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"
#include "maps/categories.h"
#include "maps/mapcard.h"
#include "maps/screens/cardloader.h"
#include "maps/screens/frmAddMaps.h"
#include "maps/screens/frmEditCustomMap.h"
#include "maps/screens/mapcardpane.h"
#include "maps/screens/maplist.h"

#include <QAction>
#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace rd {

frmCustomMaps::frmCustomMaps(std::filesystem::path root, std::string game, std::string category,
                             std::filesystem::path path, QWidget* parent)
    : QDialog(parent), root_(std::move(root)), game_(std::move(game)), category_(std::move(category)),
      path_(std::move(path)) {
    setObjectName(QStringLiteral("frmCustomMaps"));
    setWindowTitle(QStringLiteral("Custom Maps - ") + fromBytes(category_));
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);

    lblMaps = new QLabel(QStringLiteral("&Maps:"), this);
    lblMaps->setObjectName(QStringLiteral("lblMaps"));
    lvMaps = new QTreeWidget(this);
    lvMaps->setObjectName(QStringLiteral("lvMaps"));
    setUpMapList(lvMaps, QStringLiteral("Map Name"), QStringLiteral("Title"));
    lvMaps->setContextMenuPolicy(Qt::PreventContextMenu);
    lblMaps->setBuddy(lvMaps);
    lvMaps->setAccessibleName(QStringLiteral("Maps:"));
    lvMaps->setToolTip(
        QStringLiteral("Right-click for commands, Get Installed Maps... among them. Insert adds, "
                       "Delete removes, Enter edits, Ctrl+U / Ctrl+D move."));

    fraMapCard = new MapCardPane(this);
    cardLoader = new CardLoader(this);

    chkArena = new QCheckBox(QStringLiteral("This Map Category Contains Arenas"), this);
    chkArena->setObjectName(QStringLiteral("chkArena"));

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);

    mnuPopup = new QMenu(this);
    mnuPopup->setObjectName(QStringLiteral("mnuPopup"));
    mnuPopupEdit = makeMenuEntry(mnuPopup, "mnuPopupEdit", QStringLiteral("&Edit"));
    mnuPopupAdd = makeMenuEntry(mnuPopup, "mnuPopupAdd", QStringLiteral("&Add"));
    mnuPopupGet = makeMenuEntry(mnuPopup, "mnuPopupGet", QStringLiteral("&Get Installed Maps..."));
    mnuPopup->addSeparator();
    mnuPopupMoveUp = makeMenuEntry(mnuPopup, "mnuPopupMoveUp", QStringLiteral("Move &Up"));
    mnuPopupMoveDown = makeMenuEntry(mnuPopup, "mnuPopupMoveDown", QStringLiteral("&Move Down"));
    mnuPopup->addSeparator();
    mnuPopupDelete = makeMenuEntry(mnuPopup, "mnuPopupDelete", QStringLiteral("&Delete"));
    mnuPopup->setDefaultAction(mnuPopupEdit);

    auto* mapList = new QVBoxLayout;
    mapList->addWidget(lblMaps);
    mapList->addWidget(lvMaps, 1);
    auto* listAndCard = new QHBoxLayout;
    listAndCard->addLayout(mapList, 3);
    listAndCard->addWidget(fraMapCard, 2);

    auto* top = new QVBoxLayout(this);
    top->addLayout(listAndCard, 1);
    top->addWidget(chkArena);
    top->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmCustomMaps::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmCustomMaps::cmdCancel_Click);
    connect(mnuPopupEdit, &QAction::triggered, this, &frmCustomMaps::mnuPopupEdit_Click);
    connect(mnuPopupAdd, &QAction::triggered, this, &frmCustomMaps::mnuPopupAdd_Click);
    connect(mnuPopupGet, &QAction::triggered, this, &frmCustomMaps::mnuPopupGet_Click);
    connect(mnuPopupMoveUp, &QAction::triggered, this, &frmCustomMaps::mnuPopupMoveUp_Click);
    connect(mnuPopupMoveDown, &QAction::triggered, this, &frmCustomMaps::mnuPopupMoveDown_Click);
    connect(mnuPopupDelete, &QAction::triggered, this, &frmCustomMaps::mnuPopupDelete_Click);
    connect(lvMaps, &QTreeWidget::itemDoubleClicked, this, &frmCustomMaps::lvMaps_DblClick);
    connect(lvMaps->header(), &QHeaderView::sectionClicked, this, &frmCustomMaps::lvMaps_ColumnClick);
    connect(lvMaps, &QTreeWidget::currentItemChanged, this, &frmCustomMaps::lvMaps_Click);
    connect(lvMaps, &QTreeWidget::itemSelectionChanged, this, &frmCustomMaps::lvMaps_Click);
    connect(lvMaps, &QTreeWidget::itemChanged, this, &frmCustomMaps::lvMaps_Click);
    connect(cardLoader, &CardLoader::cardRead, fraMapCard, &MapCardPane::showResult);
    lvMaps->installEventFilter(this);
    lvMaps->viewport()->installEventFilter(this);

    openAtTextSize(this, 86, 30);
    Form_Load();
    // Room for the card beside the list, in the user's font.
    resize(size().expandedTo(sizeHint()));
}

void frmCustomMaps::Form_Load() {
    StepRunner trap(screenTrap(this, QStringLiteral("Custom Map Editor - loading")));
    trap.step([this] { applyUserFont(this); });
    MapCategory category;
    trap.step([&] { category = LoadCategory(path_); });
    QList<QTreeWidgetItem*> rows;
    rows.reserve(static_cast<qsizetype>(category.maps.size()));
    for (const MapRow& row : category.maps)
        rows.append(newMapRow(fromBytes(row.name), fromBytes(row.title)));
    lvMaps->setUpdatesEnabled(false);
    lvMaps->addTopLevelItems(rows);
    lvMaps->setUpdatesEnabled(true);
    fitColumnsToContent(lvMaps);
    chkArena->setChecked(category.arena);
}

void frmCustomMaps::cmdOK_Click() {
    MapCategory category;
    category.arena = chkArena->isChecked();
    category.maps.reserve(static_cast<std::size_t>(lvMaps->topLevelItemCount()));
    for (int i = 0; i < lvMaps->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = lvMaps->topLevelItem(i);
        category.maps.push_back(MapRow{toBytes(row->text(0)), toBytes(row->text(1))});
    }
    StepRunner trap(screenTrap(this, QStringLiteral("Custom Map Editor - saving")));
    trap.step([&] { SaveCategory(path_, category); });
    // Abort keeps the screen open with its rows, so nothing is lost.
    trap.step([this] { accept(); });
}

void frmCustomMaps::cmdCancel_Click() {
    reject();
}

void frmCustomMaps::openEntryDialog(bool newEntry) {
    frmEditCustomMap dialog(lvMaps, fromBytes(category_), newEntry, root_, game_, this);
    dialog.exec();
}

void frmCustomMaps::mnuPopupAdd_Click() {
    openEntryDialog(true);
}

void frmCustomMaps::mnuPopupEdit_Click() {
    if (selectedMapRow(lvMaps))
        openEntryDialog(false);
}

void frmCustomMaps::mnuPopupGet_Click() {
    frmAddMaps screen(root_, game_, false, nullptr, lvMaps, this);
    screen.exec();
}

void frmCustomMaps::mnuPopupDelete_Click() {
    QTreeWidgetItem* selected = selectedMapRow(lvMaps);
    if (!selected)
        return;
    const int position = lvMaps->indexOfTopLevelItem(selected);
    delete selected;
    if (position < lvMaps->topLevelItemCount()) {
        lvMaps->setCurrentItem(lvMaps->topLevelItem(position));
    } else {
        lvMaps->setCurrentItem(nullptr);
        lvMaps->clearSelection();
    }
}

void frmCustomMaps::moveSelectedRow(int offset) {
    QTreeWidgetItem* selected = selectedMapRow(lvMaps);
    if (!selected)
        return;
    const int target = lvMaps->indexOfTopLevelItem(selected) + offset;
    if (target < 0 || target >= lvMaps->topLevelItemCount())
        return;
    QTreeWidgetItem* other = lvMaps->topLevelItem(target);
    for (int column = 0; column < 2; ++column) {
        const QString kept = selected->text(column);
        selected->setText(column, other->text(column));
        other->setText(column, kept);
    }
    lvMaps->setCurrentItem(other);
    lvMaps->scrollToItem(other);
}

void frmCustomMaps::mnuPopupMoveUp_Click() {
    moveSelectedRow(-1);
}

void frmCustomMaps::mnuPopupMoveDown_Click() {
    moveSelectedRow(+1);
}

void frmCustomMaps::lvMaps_DblClick() {
    mnuPopupEdit_Click();
}

void frmCustomMaps::lvMaps_Click() {
    QTreeWidgetItem* selected = selectedMapRow(lvMaps);
    const QString name = selected ? selected->text(0) : QString();
    if (selected == cardRow_ && name == cardName_)
        return;
    cardRow_ = selected;
    cardName_ = name;
    if (!selected) {
        cardLoader->cancel();
        fraMapCard->showNothing();
        return;
    }
    fraMapCard->showReading();
    cardLoader->request([root = root_, game = game_, map = toBytes(name)](const std::atomic<bool>& cancel) {
        return FindMapCard(root, game, map, &cancel);
    });
}

void frmCustomMaps::lvMaps_ColumnClick(int column) {
    // Every click on a header sorts ascending by that column; a second click sorts the same way.
    sortMapList(lvMaps, column, Qt::AscendingOrder);
}

void frmCustomMaps::showPopup(const QPoint& globalPos) {
    mnuPopup->exec(globalPos, mnuPopupEdit);
}

bool frmCustomMaps::lvMaps_KeyDown(const QKeyEvent* event) {
    switch (moveKeyOf(event)) {
    case MoveKey::Up:
        mnuPopupMoveUp_Click();
        return true;
    case MoveKey::Down:
        mnuPopupMoveDown_Click();
        return true;
    case MoveKey::None:
        break;
    }
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        return false;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        mnuPopupEdit_Click();
        return true;
    case Qt::Key_Delete:
        mnuPopupDelete_Click();
        return true;
    case Qt::Key_Insert:
        mnuPopupAdd_Click();
        return true;
    case Qt::Key_Menu: {
        QTreeWidgetItem* current = lvMaps->currentItem();
        const QPoint at = current ? lvMaps->visualItemRect(current).center() : QPoint(0, 0);
        showPopup(lvMaps->viewport()->mapToGlobal(at));
        return true;
    }
    default:
        return false;
    }
}

bool frmCustomMaps::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lvMaps && event->type() == QEvent::KeyPress)
        return lvMaps_KeyDown(static_cast<QKeyEvent*>(event));
    if (watched == lvMaps->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::RightButton) {
            showPopup(mouse->globalPosition().toPoint());
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace rd
