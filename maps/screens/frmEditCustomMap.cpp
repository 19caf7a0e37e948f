#include "maps/screens/frmEditCustomMap.h"

#include "core/screens/controls.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/screens/zoomtextbox.h"
#include "maps/screens/frmAddMaps.h"
#include "maps/screens/maplist.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace rd {

frmEditCustomMap::frmEditCustomMap(QTreeWidget* maps, const QString& category, bool newEntry,
                                   std::filesystem::path root, std::string game, QWidget* parent)
    : QDialog(parent), maps_(maps), root_(std::move(root)), game_(std::move(game)) {
    setObjectName(QStringLiteral("frmEditCustomMap"));
    setSizeGripEnabled(true);

    lblMapName = new QLabel(QStringLiteral("Map &Name:"), this);
    lblMapName->setObjectName(QStringLiteral("lblMapName"));
    txtMapName = new QLineEdit(this);
    txtMapName->setObjectName(QStringLiteral("txtMapName"));
    lblMapName->setBuddy(txtMapName);
    cmdGetMapName = makeButton(this, "cmdGetMapName", QStringLiteral("&Get Map Name..."));

    lblMapTitle = new QLabel(QStringLiteral("Map &Title:"), this);
    lblMapTitle->setObjectName(QStringLiteral("lblMapTitle"));
    txtMapTitle = new QLineEdit(this);
    txtMapTitle->setObjectName(QStringLiteral("txtMapTitle"));
    lblMapTitle->setBuddy(txtMapTitle);

    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    cmdOK->setDefault(true);

    auto* fields = new QGridLayout;
    fields->addWidget(lblMapName, 0, 0);
    fields->addWidget(txtMapName, 0, 1);
    fields->addWidget(cmdGetMapName, 0, 2);
    fields->addWidget(lblMapTitle, 1, 0);
    fields->addWidget(txtMapTitle, 1, 1, 1, 2);
    fields->setColumnStretch(1, 1);

    auto* top = new QVBoxLayout(this);
    top->addLayout(fields);
    top->addStretch(1);
    top->addLayout(buttons);

    setTabOrder(txtMapName, cmdGetMapName);
    setTabOrder(cmdGetMapName, txtMapTitle);
    setTabOrder(txtMapTitle, cmdOK);
    setTabOrder(cmdOK, cmdCancel);

    connect(cmdOK, &QPushButton::clicked, this, &frmEditCustomMap::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEditCustomMap::cmdCancel_Click);
    connect(cmdGetMapName, &QPushButton::clicked, this, &frmEditCustomMap::cmdGetMapName_Click);
    giveZoomKey(txtMapName);
    giveZoomKey(txtMapTitle);

    applyUserFont(this);
    QTreeWidgetItem* selected = selectedMapRow(maps_);
    adding_ = newEntry || !selected;
    if (adding_) {
        setWindowTitle(QStringLiteral("Add Map to ") + category);
    } else {
        setWindowTitle(QStringLiteral("Edit Map from ") + category);
        txtMapName->setText(selected->text(0));
        txtMapTitle->setText(selected->text(1));
    }
    openAtTextSize(this, 76, 0);
}

void frmEditCustomMap::cmdOK_Click() {
    QTreeWidgetItem* selected = selectedMapRow(maps_);
    QTreeWidgetItem* row = nullptr;
    if (!selected || adding_) {
        row = addMapRowBelowSelection(maps_, txtMapName->text(), QString());
    } else {
        row = selected;
        row->setText(0, txtMapName->text());
    }
    row->setText(1, txtMapTitle->text());
    accept();
}

void frmEditCustomMap::cmdCancel_Click() {
    reject();
}

void frmEditCustomMap::cmdGetMapName_Click() {
    frmAddMaps screen(root_, game_, true, txtMapName, nullptr, this);
    screen.exec();
}

} // namespace rd
