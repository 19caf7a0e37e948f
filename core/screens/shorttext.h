#pragma once
// Lists and list views that may show a line of a damaged file: such a line can run to millions of
// characters, and measuring and drawing it whole takes a list many seconds. These lists show only
// the beginning of a very long entry, marked with an ellipsis; the entry keeps its whole text, so
// nothing is lost when it is saved.

#include <QString>

class QAbstractItemView;
class QLabel;
class QWidget;

namespace rd {

// How many characters of an entry's text a list shows at most.
inline constexpr int kShownTextLength = 2000;

// The text shown for an entry: the text itself, or its first kShownTextLength characters and "…".
QString shownText(const QString& text);

// Gives `view` an item delegate that draws and measures every entry by its shown text.
void showLongTextsShortened(QAbstractItemView* view);

// A label for a file's path: when the label is too narrow for the whole path, it shows the path
// shortened in the middle ("/home/…/Options.cfg"); its text stays the whole path.
QLabel* makePathLabel(QWidget* parent);
// Whether `label` is a path label too narrow for its text, and so shows it shortened.
bool showsShortened(const QLabel* label);

} // namespace rd
