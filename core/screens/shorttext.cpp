#include "core/screens/shorttext.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>

namespace rd {

namespace {

class ShortTextDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->text.size() > kShownTextLength)
            option->text = shownText(option->text);
    }
};

class PathLabel : public QLabel {
public:
    using QLabel::QLabel;

    bool tooNarrow() const { return fontMetrics().horizontalAdvance(text()) > contentsRect().width(); }

protected:
    void paintEvent(QPaintEvent* event) override {
        if (!tooNarrow()) {
            QLabel::paintEvent(event);
            return;
        }
        QPainter painter(this);
        const QRect room = contentsRect();
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width());
        style()->drawItemText(&painter, room, QStyle::visualAlignment(layoutDirection(), alignment()),
                              palette(), isEnabled(), shown, foregroundRole());
    }
};

} // namespace

QLabel* makePathLabel(QWidget* parent) {
    auto* label = new PathLabel(parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

bool showsShortened(const QLabel* label) {
    const auto* path = dynamic_cast<const PathLabel*>(label);
    return path && path->tooNarrow();
}

QString shownText(const QString& text) {
    if (text.size() <= kShownTextLength)
        return text;
    return text.left(kShownTextLength) + QChar(0x2026);
}

void showLongTextsShortened(QAbstractItemView* view) {
    view->setItemDelegate(new ShortTextDelegate(view));
}

} // namespace rd
