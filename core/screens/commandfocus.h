#pragma once
// Commands run from the keyboard take the focus first, as a click does. An access key (Alt and
// the button's underlined letter), Enter on a dialog's default button and Escape on its cancel
// button move the focus to the button before it acts, so the field being left runs its focus-loss
// check (which may refuse the text and keep the command from running) before the command reads
// the fields. One event filter on the application does this for every button of every screen;
// makeButton() installs it.

class QPushButton;

namespace rd {

// Installs the filter on the running application (once; later calls do nothing).
void keyboardCommandsTakeFocus();

// Marks the button that Escape runs in its dialog (the dialog's Cancel). A dialog without one
// keeps Qt's own Escape, which closes it.
void setCancelButton(QPushButton* button);

} // namespace rd
