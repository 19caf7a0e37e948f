#include "core/screens/shorttext.h"

#include <QAbstractItemView>
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

} // namespace

QString shownText(const QString& text) {
    if (text.size() <= kShownTextLength)
        return text;
    return text.left(kShownTextLength) + QChar(0x2026);
}

void showLongTextsShortened(QAbstractItemView* view) {
    view->setItemDelegate(new ShortTextDelegate(view));
}

} // namespace rd
