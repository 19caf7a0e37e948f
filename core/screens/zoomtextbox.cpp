#include "core/screens/zoomtextbox.h"

#include "core/screens/frmZoom.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <memory>
#include <optional>
#include <utility>

namespace rd {

namespace {

std::optional<QString> textOf(QWidget* box) {
    if (auto* line = qobject_cast<QLineEdit*>(box))
        return line->text();
    if (auto* edit = qobject_cast<QTextEdit*>(box))
        return edit->toPlainText();
    if (auto* plain = qobject_cast<QPlainTextEdit*>(box))
        return plain->toPlainText();
    return std::nullopt;
}

void setTextOf(QWidget* box, const QString& text) {
    if (auto* line = qobject_cast<QLineEdit*>(box))
        line->setText(text);
    else if (auto* edit = qobject_cast<QTextEdit*>(box))
        edit->setPlainText(text);
    else if (auto* plain = qobject_cast<QPlainTextEdit*>(box))
        plain->setPlainText(text);
}

class ZoomKeyFilter : public QObject {
public:
    ZoomKeyFilter(QWidget* box, std::function<QString()> title, bool multiLineMode)
        : QObject(box), box_(box), title_(std::move(title)), multiLineMode_(multiLineMode) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != box_ || event->type() != QEvent::KeyPress ||
            static_cast<QKeyEvent*>(event)->key() != Qt::Key_F2)
            return false;
        ZoomTextBox(box_, box_->window(), multiLineMode_, title_ ? title_() : QString());
        return true;
    }

private:
    QWidget* box_;
    std::function<QString()> title_;
    bool multiLineMode_;
};

} // namespace

QString ZoomTextBox(QWidget* textBox, QWidget* ownerScreen, bool multiLineMode, const QString& title) {
    const std::optional<QString> text = textBox ? textOf(textBox) : std::nullopt;
    if (!text)
        return QString();
    auto editor = std::make_unique<frmZoom>(*text, multiLineMode, ownerScreen);
    if (!title.isEmpty())
        editor->setWindowTitle(title);
    editor->setWindowModality(Qt::ApplicationModal);
    editor->exec();
    const QString result = editor->result();
    editor.reset();
    if (!result.isEmpty())
        setTextOf(textBox, result);
    return result;
}

void giveZoomKey(QWidget* textBox, const QString& title, bool multiLineMode) {
    giveZoomKey(
        textBox, [title] { return title; }, multiLineMode);
}

void giveZoomKey(QWidget* textBox, std::function<QString()> title, bool multiLineMode) {
    textBox->installEventFilter(new ZoomKeyFilter(textBox, std::move(title), multiLineMode));
}

} // namespace rd
