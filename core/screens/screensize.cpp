#include "core/screens/screensize.h"

#include "core/screens/qtext.h"
#include "core/screens/userfont.h"

#include <QAbstractItemDelegate>
#include <QEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QScreen>
#include <QStackedWidget>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTreeView>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace rd {

namespace {

// The width a list view or a field asks its screen for, kept on the control.
constexpr const char* kWantedWidth = "rdWantedWidth";
// Marks a field whose whole text the screen should show.
constexpr const char* kWholeText = "rdShowWholeText";
// How many rows of a list are measured for its columns' widths: about as many as a list shows
// when its screen opens.
constexpr int kRowsMeasured = 32;

// The last column of a view that is shown, or -1.
int lastShownSection(const QHeaderView* header) {
    for (int visual = header->count() - 1; visual >= 0; --visual) {
        const int logical = header->logicalIndex(visual);
        if (!header->isSectionHidden(logical))
            return logical;
    }
    return -1;
}

// The room a list view takes beside its columns: its frame and a vertical scroll bar.
int viewChrome(const QTreeView* view) {
    return 2 * view->frameWidth() + view->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, view);
}

// The width `field` needs to show its whole text. A field's size hint is the room for 17 "x"
// plus its frame and margins; the text takes the place of the 17 "x".
int wholeTextWidth(const QLineEdit* field) {
    const QFontMetrics metrics = field->fontMetrics();
    const int chrome = field->sizeHint().width() - 17 * metrics.horizontalAdvance(QLatin1Char('x'));
    return metrics.horizontalAdvance(field->text()) + chrome + metrics.averageCharWidth();
}

// How much wider `control` would like to be than it is now (0 when it is wide enough).
int missingWidth(const QWidget* control) {
    int wanted = 0;
    if (control->property(kWholeText).toBool()) {
        if (auto* field = qobject_cast<const QLineEdit*>(control))
            wanted = wholeTextWidth(field);
        else if (auto* label = qobject_cast<const QLabel*>(control))
            wanted = label->fontMetrics().horizontalAdvance(label->text()) + label->width() -
                     label->contentsRect().width();
    } else if (const QVariant width = control->property(kWantedWidth); width.isValid()) {
        wanted = width.toInt();
    }
    return std::max(0, wanted - control->width());
}

// Sizes its screen when the screen is first shown (before a dialog centres itself over its owner,
// which it does in its own show handler, after this filter).
class OpeningSize : public QObject {
public:
    OpeningSize(QWidget* screen, double chars, double lines) : QObject(screen), chars_(chars), lines_(lines) {
        setObjectName(QStringLiteral("rdOpeningSize"));
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched == parent() && !done_) {
            done_ = true;
            open(static_cast<QWidget*>(watched));
        }
        return false;
    }

private:
    void open(QWidget* screen) const {
        const QFontMetrics metrics = userFontMetrics(screen);
        QSize size(static_cast<int>(std::lround(chars_ * metrics.averageCharWidth())),
                   static_cast<int>(std::lround(lines_ * metrics.lineSpacing())));
        size = size.expandedTo(screen->sizeHint()).expandedTo(screen->minimumSizeHint());
        QSize desk(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        if (const QScreen* where = screen->screen())
            desk = where->availableGeometry().size();
        const auto place = [screen, &size, desk] {
            size = size.boundedTo(desk);
            screen->resize(size);
            if (QLayout* layout = screen->layout())
                layout->activate();
            // The pages of tabs not shown are laid out as the page shown, so that their controls
            // can be measured too.
            for (QStackedWidget* pages : screen->findChildren<QStackedWidget*>()) {
                const QWidget* shown = pages->currentWidget();
                for (int i = 0; shown && i < pages->count(); ++i) {
                    QWidget* page = pages->widget(i);
                    if (page == shown)
                        continue;
                    page->setGeometry(shown->geometry());
                    if (QLayout* layout = page->layout())
                        layout->activate();
                }
            }
        };
        place();

        // Controls on any page count, unless they are hidden themselves.
        int missing = 0;
        for (const QWidget* control : screen->findChildren<QWidget*>())
            if (!control->isHidden())
                missing = std::max(missing, missingWidth(control));
        if (missing > 0) {
            size.rwidth() += missing;
            place();
        }
        for (QTreeView* view : screen->findChildren<QTreeView*>())
            if (view->isVisibleTo(screen) && !view->isHeaderHidden())
                squeezeColumnsIntoView(view);
    }

    double chars_;
    double lines_;
    bool done_ = false;
};

} // namespace

QFontMetrics userFontMetrics(const QWidget* screen) {
    QFont font = screen->font();
    const UserFont& user = userFont();
    if (user.size > 0)
        font.setPointSize(user.size);
    if (!user.name.empty())
        font.setFamilies({fromBytes(user.name)});
    return QFontMetrics(font);
}

void openAtTextSize(QWidget* screen, double chars, double lines) {
    if (auto* old = screen->findChild<QObject*>(QStringLiteral("rdOpeningSize"), Qt::FindDirectChildrenOnly))
        delete old;
    screen->installEventFilter(new OpeningSize(screen, chars, lines));
}

void showWholeText(QWidget* control) {
    control->setProperty(kWholeText, true);
}

namespace {

// The width the first rows of a column need, as the view's delegate draws them. The rows are
// measured straight from the model: nothing asks the view to lay out every row of a long list
// before it is shown.
int contentWidth(const QTreeView* view, int column, int rows) {
    const QAbstractItemModel* model = view->model();
    QAbstractItemDelegate* delegate = view->itemDelegateForColumn(column);
    if (!delegate)
        delegate = view->itemDelegate();
    if (!model || !delegate)
        return 0;
    QStyleOptionViewItem option;
    option.initFrom(view);
    option.font = view->font();
    const int icon = view->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, view);
    option.decorationSize = view->iconSize().isValid() ? view->iconSize() : QSize(icon, icon);
    option.decorationPosition = QStyleOptionViewItem::Left;
    option.decorationAlignment = Qt::AlignCenter;
    option.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    option.textElideMode = view->textElideMode();
    option.widget = view;
    // The first column of a tree also holds the rows' indentation.
    const int indentation =
        column == view->header()->logicalIndex(0) && view->rootIsDecorated() ? view->indentation() : 0;
    // Rows that differ only in their text need room for it and the same margins, so the delegate
    // measures the row whose text is widest; rows with a picture or a font of their own are
    // measured each. Laying out text is the costly part, so only the longest texts are laid out
    // to find the widest.
    constexpr std::size_t kLongestLaidOut = 4;
    std::vector<std::pair<qsizetype, QModelIndex>> longest; // (characters, row), longest first
    int widest = 0;
    const int count = std::min(model->rowCount(view->rootIndex()), rows);
    for (int row = 0; row < count; ++row) {
        const QModelIndex index = model->index(row, column, view->rootIndex());
        if (index.data(Qt::DecorationRole).isValid() || index.data(Qt::FontRole).isValid()) {
            widest = std::max(widest, delegate->sizeHint(option, index).width() + indentation);
            continue;
        }
        const qsizetype length = index.data(Qt::DisplayRole).toString().size();
        const auto at = std::find_if(longest.begin(), longest.end(),
                                     [length](const auto& entry) { return entry.first < length; });
        if (at != longest.end() || longest.size() < kLongestLaidOut) {
            longest.insert(at, {length, index});
            if (longest.size() > kLongestLaidOut)
                longest.pop_back();
        }
    }
    const QFontMetrics metrics(view->font());
    int widestText = -1;
    QModelIndex widestRow;
    for (const auto& [length, index] : longest) {
        const int text = metrics.horizontalAdvance(index.data(Qt::DisplayRole).toString());
        if (text > widestText) {
            widestText = text;
            widestRow = index;
        }
    }
    if (widestRow.isValid())
        widest = std::max(widest, delegate->sizeHint(option, widestRow).width() + indentation);
    return widest;
}

} // namespace

void fitColumnsToContent(QTreeView* view, int maxChars) {
    QHeaderView* header = view->header();
    const int last = lastShownSection(header);
    const int widest = maxChars * view->fontMetrics().averageCharWidth();
    // The header's own least width is the widest letter of the font, often wider than a short
    // caption ("Key"), and the stretched last column never gets narrower than it.
    header->setMinimumSectionSize(3 * header->fontMetrics().averageCharWidth());
    // The rows a list shows when it opens, and more, are measured; not every row of a long list.
    int total = 0;
    for (int section = 0; section < header->count(); ++section) {
        if (header->isSectionHidden(section))
            continue;
        const int caption = header->sectionSizeHint(section);
        const int rows = contentWidth(view, section, kRowsMeasured);
        const int width = std::max(caption, std::min(rows, widest));
        // A stretched last column never gets narrower than the size it was given before: its
        // caption's width, so that it can give way when the list is narrow.
        header->resizeSection(section, section == last && header->stretchLastSection() ? caption : width);
        total += width;
    }
    view->setProperty(kWantedWidth, total + viewChrome(view));
}

void squeezeColumnsIntoView(QTreeView* view) {
    QHeaderView* header = view->header();
    const int last = lastShownSection(header);
    if (last < 0)
        return;
    const bool stretching = header->stretchLastSection();
    // The columns the view can give room from, and how much each can give.
    std::vector<int> sections;
    std::vector<int> slack;
    int needed = 0;
    for (int section = 0; section < header->count(); ++section) {
        if (header->isSectionHidden(section))
            continue;
        const int caption = header->sectionSizeHint(section);
        if (section == last && stretching) {
            needed += std::max(caption, header->minimumSectionSize());
            continue;
        }
        const int width = header->sectionSize(section);
        needed += width;
        if (width > caption) {
            sections.push_back(section);
            slack.push_back(width - caption);
        }
    }
    const int room = view->width() - viewChrome(view);
    const int over = needed - room;
    if (over <= 0)
        return;
    int totalSlack = 0;
    for (int s : slack)
        totalSlack += s;
    if (totalSlack == 0)
        return;
    // Each column gives in proportion to what it can give, the remainder from the first ones.
    const int giving = std::min(over, totalSlack);
    int given = 0;
    std::vector<int> take(slack.size());
    for (std::size_t i = 0; i < slack.size(); ++i) {
        take[i] = static_cast<int>(static_cast<long long>(giving) * slack[i] / totalSlack);
        given += take[i];
    }
    for (std::size_t i = 0; i < slack.size() && given < giving; ++i) {
        const int more = std::min(slack[i] - take[i], giving - given);
        take[i] += more;
        given += more;
    }
    for (std::size_t i = 0; i < sections.size(); ++i)
        header->resizeSection(sections[i], header->sectionSize(sections[i]) - take[i]);
}

} // namespace rd
