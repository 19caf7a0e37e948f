#include "core/screens/controls.h"

#include "core/screens/commandfocus.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>

namespace rd {

QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption, bool enabled) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setEnabled(enabled);
    button->setAutoDefault(false);
    // Run from the keyboard, it takes the focus first (once for the whole program).
    keyboardCommandsTakeFocus();
    return button;
}

QHBoxLayout* okCancelRow(QWidget* parent, QPushButton*& ok, QPushButton*& cancel) {
    ok = makeButton(parent, "cmdOK", QStringLiteral("&OK"));
    cancel = makeButton(parent, "cmdCancel", QStringLiteral("&Cancel"));
    setCancelButton(cancel);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(ok);
    row->addWidget(cancel);
    return row;
}

void makeTypedOnly(QComboBox* combo) {
    combo->setEditable(true);
    combo->setCompleter(nullptr);
    combo->setInsertPolicy(QComboBox::NoInsert);
}

} // namespace rd
