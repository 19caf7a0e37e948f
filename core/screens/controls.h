#pragma once
// Small builders every screen uses for its controls, so each control carries its name as its
// objectName (tests and accessibility tools find it by that name) and dialogs look alike.

#include <QString>

class QAction;
class QComboBox;
class QHBoxLayout;
class QMenu;
class QPushButton;
class QWidget;

namespace rd {

// A push button with its caption, named `name`, with room around its caption (a line's height on
// either side, at least). It does not become the default button when it gets the focus, so Enter
// in a list or text box is left to that control.
QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption, bool enabled = true);

// An entry of a popup menu with its caption, named `name`.
QAction* makeMenuEntry(QMenu* menu, const char* name, const QString& caption);

// The row of a dialog's closing buttons, at its bottom right: cmdOK "&OK" and cmdCancel
// "&Cancel", created into `ok` and `cancel`. Escape runs cmdCancel.
QHBoxLayout* okCancelRow(QWidget* parent, QPushButton*& ok, QPushButton*& cancel);

// Makes a drop-down editable without completion: the text saved is the text typed (no inline
// completion to a longer entry of its list), and Enter does not add the text to the list.
void makeTypedOnly(QComboBox* combo);

} // namespace rd
