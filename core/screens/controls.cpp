#include "core/screens/controls.h"

#include "core/screens/commandfocus.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <algorithm>

namespace rd {

namespace {

// A command button that leaves room around its caption: at least the style's own size, and at
// least a line's height of the button's font on either side of the caption, so a long caption does
// not touch the button's edges (a short one gets the style's usual width, as OK and Cancel do).
class CommandButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    QSize sizeHint() const override {
        QSize size = QPushButton::sizeHint();
        const QFontMetrics metrics = fontMetrics();
        const int caption = metrics.size(Qt::TextShowMnemonic, text()).width();
        size.setWidth(std::max(size.width(), caption + 2 * metrics.height()));
        return size;
    }
};

} // namespace

QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption, bool enabled) {
    QPushButton* button = new CommandButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setEnabled(enabled);
    button->setAutoDefault(false);
    // Run from the keyboard, it takes the focus first (once for the whole program).
    keyboardCommandsTakeFocus();
    return button;
}

QAction* makeMenuEntry(QMenu* menu, const char* name, const QString& caption) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(QString::fromLatin1(name));
    return action;
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
