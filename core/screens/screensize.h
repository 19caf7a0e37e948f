#pragma once
// Sizes from the font: the size a screen opens at and the widths of list columns, worked out in
// characters and lines of the user font, so that every screen shows its content whatever font
// size the launcher asks for.

#include <QFontMetrics>

class QTreeView;
class QWidget;

namespace rd {

// The metrics of the font the controls of `screen` get: the user font where one is set (see
// userfont.h), the screen's own font otherwise.
QFontMetrics userFontMetrics(const QWidget* screen);

// Makes `screen` open `chars` average characters wide and `lines` lines high in the user font,
// or larger where its layout asks for more, where a list's columns need more width
// (fitColumnsToContent) or where a field's whole text should show (showWholeText); never larger
// than the desktop it opens on. A list then narrower than its columns narrows its widest columns
// so that every column can be seen (squeezeColumnsIntoView). The size is worked out when the
// screen is first shown, when its fonts and contents are final.
void openAtTextSize(QWidget* screen, double chars, double lines);

// Asks the screen `control` (a text box or a label) lies on to open wide enough to show the
// control's whole text, as it stands when the screen is first shown (see openAtTextSize).
void showWholeText(QWidget* control);

// Sizes every column of `view` but the last from its caption and its rows in the view's font, none
// wider than `maxChars` average characters and none narrower than its caption; the last column
// stretches over the rest of the list. The screen the view lies on then opens wide enough for all
// the columns (see openAtTextSize). Call it once the rows are in and the user font is applied.
void fitColumnsToContent(QTreeView* view, int maxChars = 40);

// When `view` is narrower than its columns, narrows the columns that are wider than their captions
// until every column lies within the view (a column never gets narrower than its caption).
void squeezeColumnsIntoView(QTreeView* view);

} // namespace rd
