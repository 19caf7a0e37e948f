#include "core/screens/commandfocus.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QShortcutEvent>

namespace rd {

namespace {

const char* const kCancelButton = "rdCancelButton";

// Moves the focus to `button` as a click would. False when the command must not run: the button
// went away, or a focus-loss check kept the focus where it was.
bool focusFirst(QAbstractButton* button) {
    if (!(button->focusPolicy() & Qt::TabFocus) || button->hasFocus())
        return true;
    QPointer<QAbstractButton> alive(button);
    button->setFocus(Qt::ShortcutFocusReason);
    return alive && alive->window()->focusWidget() == alive;
}

// The button of `dialog` itself (not of a dialog it owns) that `take` picks, visible.
template <typename Pick> QPushButton* buttonOf(QDialog* dialog, Pick take) {
    const auto buttons = dialog->findChildren<QPushButton*>();
    for (QPushButton* button : buttons)
        if (button->window() == dialog && button->isVisible() && take(button))
            return button;
    return nullptr;
}

// Runs the default or cancel button for Enter or Escape that reached the dialog unused by the
// control with the focus. True when the key was used.
bool runDialogKey(QDialog* dialog, QKeyEvent* key) {
    const Qt::KeyboardModifiers modifiers = key->modifiers();
    const bool enter =
        (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
        (modifiers == Qt::NoModifier || (modifiers == Qt::KeypadModifier && key->key() == Qt::Key_Enter));
    const bool escape = key->key() == Qt::Key_Escape && modifiers == Qt::NoModifier;
    QPushButton* button = nullptr;
    if (enter)
        button = buttonOf(dialog, [](QPushButton* b) { return b->isDefault(); });
    else if (escape)
        button = buttonOf(dialog, [](QPushButton* b) { return b->property(kCancelButton).toBool(); });
    if (!button)
        return false; // the dialog's own handling (Escape closes a dialog without a cancel button)
    key->accept();
    if (!button->isEnabled())
        return true;
    QPointer<QPushButton> alive(button);
    if (focusFirst(button) && alive && alive->isEnabled() && alive->isVisible())
        alive->click();
    return true;
}

class CommandFocus : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Shortcut) {
            // A button's access key: the focus moves first; the button then acts as usual.
            auto* button = qobject_cast<QAbstractButton*>(watched);
            if (button && button->isEnabled() && button->isVisible() &&
                !static_cast<QShortcutEvent*>(event)->isAmbiguous() && !focusFirst(button))
                return true;
        } else if (event->type() == QEvent::KeyPress) {
            // A key reaches a dialog when no control inside it took it.
            if (auto* dialog = qobject_cast<QDialog*>(watched))
                return runDialogKey(dialog, static_cast<QKeyEvent*>(event));
        }
        return false;
    }
};

} // namespace

void keyboardCommandsTakeFocus() {
    static QPointer<CommandFocus> installed;
    if (installed || !qApp)
        return;
    installed = new CommandFocus(qApp);
    qApp->installEventFilter(installed);
}

void setCancelButton(QPushButton* button) {
    button->setProperty(kCancelButton, true);
}

} // namespace rd
