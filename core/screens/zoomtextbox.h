#pragma once
// Opening the text zoom editor on a text box, and giving a text box the zoom key (F2).

#include <QString>
#include <functional>

class QWidget;

namespace rd {

// Opens the zoom editor modally over `ownerScreen` on the text of `textBox` (a QLineEdit,
// QTextEdit or QPlainTextEdit; any other widget is left alone and nothing opens). A non-empty
// `title` replaces the caption "Zoom". Returns the editor's result; when it is not empty it has
// also replaced the box's text, when it is empty (Cancel, or everything deleted) the box is left
// as it was.
QString ZoomTextBox(QWidget* textBox, QWidget* ownerScreen, bool multiLineMode, const QString& title);

// One line for a screen: F2 in `textBox` (with or without Shift, Ctrl or Alt) opens the zoom
// editor on it, owned by the box's window. Other keys reach the box as usual.
void giveZoomKey(QWidget* textBox, const QString& title = QString(), bool multiLineMode = false);
// The same with a caption worked out each time the key is pressed (for example a label's text).
void giveZoomKey(QWidget* textBox, std::function<QString()> title, bool multiLineMode = false);

} // namespace rd
