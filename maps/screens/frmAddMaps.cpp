#include "maps/screens/frmAddMaps.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "maps/mapcard.h"
#include "maps/pak.h"
#include "maps/screens/cardloader.h"
#include "maps/screens/mapcardpane.h"
#include "maps/screens/maplist.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <exception>

namespace rd {

frmAddMaps::frmAddMaps(std::filesystem::path root, std::string game, bool pickOne, QLineEdit* mapNameBox,
                       QTreeWidget* categoryMaps, QWidget* parent)
    : QDialog(parent), root_(std::move(root)), game_(std::move(game)), pickOne_(pickOne),
      mapNameBox_(mapNameBox), categoryMaps_(categoryMaps) {
    setObjectName(QStringLiteral("frmAddMaps"));
    setWindowTitle(QStringLiteral("Add Maps"));
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);

    lblFilter = new QLabel(QStringLiteral("&Filter:"), this);
    lblFilter->setObjectName(QStringLiteral("lblFilter"));
    txtFilter = new QLineEdit(this);
    txtFilter->setObjectName(QStringLiteral("txtFilter"));
    txtFilter->setPlaceholderText(QStringLiteral("part of a map name"));
    txtFilter->setClearButtonEnabled(true);
    lblFilter->setBuddy(txtFilter);

    lblMaps = new QLabel(QStringLiteral("Installed &Maps:"), this);
    lblMaps->setObjectName(QStringLiteral("lblMaps"));
    lvMaps = new QTreeWidget(this);
    lvMaps->setObjectName(QStringLiteral("lvMaps"));
    setUpMapList(lvMaps, QStringLiteral("Map Name"), QStringLiteral("Found In"));
    lblMaps->setBuddy(lvMaps);
    lvMaps->setAccessibleName(QStringLiteral("Installed Maps:"));

    fraMapCard = new MapCardPane(this);
    cardLoader = new CardLoader(this);

    cmdAdd = makeButton(this, "cmdAdd",
                        pickOne_ ? QStringLiteral("&Select This Map") : QStringLiteral("&Add This Map"));
    cmdClose = makeButton(this, "cmdClose", QStringLiteral("&Close"));

    auto* filterRow = new QHBoxLayout;
    filterRow->addWidget(lblFilter);
    filterRow->addWidget(txtFilter, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdAdd);
    buttons->addWidget(cmdClose);

    auto* mapList = new QVBoxLayout;
    mapList->addWidget(lblMaps);
    mapList->addWidget(lvMaps, 1);
    auto* listAndCard = new QHBoxLayout;
    listAndCard->addLayout(mapList, 3);
    listAndCard->addWidget(fraMapCard, 2);

    auto* top = new QVBoxLayout(this);
    top->addLayout(filterRow);
    top->addLayout(listAndCard, 1);
    top->addLayout(buttons);

    setTabOrder(txtFilter, lvMaps);
    setTabOrder(lvMaps, cmdAdd);
    setTabOrder(cmdAdd, cmdClose);

    connect(cmdAdd, &QPushButton::clicked, this, &frmAddMaps::cmdAdd_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmAddMaps::cmdClose_Click);
    connect(lvMaps, &QTreeWidget::itemDoubleClicked, this, &frmAddMaps::lvMaps_DblClick);
    connect(lvMaps->header(), &QHeaderView::sectionClicked, this, &frmAddMaps::lvMaps_ColumnClick);
    connect(txtFilter, &QLineEdit::textChanged, this, &frmAddMaps::txtFilter_Change);
    connect(lvMaps, &QTreeWidget::currentItemChanged, this, &frmAddMaps::lvMaps_Click);
    connect(lvMaps, &QTreeWidget::itemSelectionChanged, this, &frmAddMaps::lvMaps_Click);
    connect(cardLoader, &CardLoader::cardRead, fraMapCard, &MapCardPane::showResult);
    lvMaps->installEventFilter(this);

    openAtTextSize(this, 80, 33);
    Form_Load();
    // Room for the card beside the list, in the user's font.
    resize(size().expandedTo(sizeHint()));
}

void frmAddMaps::Form_Load() {
    applyUserFont(this);
    Catalogue catalogue;
    try {
        catalogue = BuildCatalogue(root_, game_, screenTrap(this, QString::fromLatin1(kAddPakTrapTitle)));
    } catch (const std::exception& error) {
        // Reading the game's record failed (for example it is not a plain file).
        reportFailure(this, QString::fromLatin1(kAddPakTrapTitle), error.what());
        return;
    }
    if (!catalogue.recordFound) {
        showMessage(this, fromBytes(catalogue.message), PromptIcon::Exclamation);
        return;
    }
    // One batch: the rows made first, then handed to the view at once. The rows of one archive
    // follow each other, so each source is converted once and its text shared.
    QList<QTreeWidgetItem*> rows;
    rows.reserve(static_cast<qsizetype>(catalogue.rows.size()));
    const std::string* lastSource = nullptr;
    QString source;
    for (const CatalogueRow& row : catalogue.rows) {
        if (!lastSource || *lastSource != row.source) {
            source = fromBytes(row.source);
            lastSource = &row.source;
        }
        rows.append(newMapRow(fromBytes(row.name), source));
    }
    lvMaps->setUpdatesEnabled(false);
    lvMaps->addTopLevelItems(rows);
    lvMaps->setUpdatesEnabled(true);
    fitColumnsToContent(lvMaps);
}

void frmAddMaps::cmdAdd_Click() {
    QTreeWidgetItem* selected = selectedMapRow(lvMaps);
    if (lvMaps->topLevelItemCount() == 0 || !selected || selected->isHidden())
        return;
    const QString name = selected->text(0);
    if (pickOne_) {
        if (mapNameBox_)
            mapNameBox_->setText(name);
        accept();
        return;
    }
    if (categoryMaps_)
        addMapRowBelowSelection(categoryMaps_, name, name);
}

void frmAddMaps::cmdClose_Click() {
    reject();
}

void frmAddMaps::lvMaps_DblClick() {
    cmdAdd_Click();
}

void frmAddMaps::lvMaps_Click() {
    QTreeWidgetItem* selected = selectedMapRow(lvMaps);
    if (selected && selected->isHidden())
        selected = nullptr;
    if (selected == cardRow_)
        return;
    cardRow_ = selected;
    if (!selected) {
        cardLoader->cancel();
        fraMapCard->showNothing();
        return;
    }
    fraMapCard->showReading();
    const CatalogueRow row{toBytes(selected->text(0)), toBytes(selected->text(1))};
    cardLoader->request([root = root_, game = game_, row](const std::atomic<bool>& cancel) {
        return CatalogueCard(root, game, row, &cancel);
    });
}

void frmAddMaps::lvMaps_ColumnClick(int column) {
    // The first click on a column sorts it ascending, the next one descending, and so on.
    QHeaderView* header = lvMaps->header();
    const bool again = header->isSortIndicatorShown() && header->sortIndicatorSection() == column;
    const Qt::SortOrder order =
        again && sortOrder_ == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    sortOrder_ = order;
    sortMapList(lvMaps, column, order);
}

void frmAddMaps::txtFilter_Change() {
    const QString wanted = txtFilter->text();
    // Rows are hidden by their number: asking a row itself whether it is hidden makes the view look
    // the row up in its list, which for every row of a big list takes seconds.
    const QModelIndex top;
    lvMaps->setUpdatesEnabled(false);
    for (int i = 0, n = lvMaps->topLevelItemCount(); i < n; ++i) {
        const bool hide =
            !wanted.isEmpty() && !lvMaps->topLevelItem(i)->text(0).contains(wanted, Qt::CaseInsensitive);
        if (lvMaps->isRowHidden(i, top) != hide)
            lvMaps->setRowHidden(i, top, hide);
    }
    lvMaps->setUpdatesEnabled(true);
    // A row the filter hides cannot stay chosen: Select would add a map the user does not see.
    if (QTreeWidgetItem* selected = selectedMapRow(lvMaps); selected && selected->isHidden()) {
        lvMaps->setCurrentItem(nullptr);
        lvMaps->clearSelection();
    }
}

bool frmAddMaps::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lvMaps && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
            !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
            cmdAdd_Click();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace rd
