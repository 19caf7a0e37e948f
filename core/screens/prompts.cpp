#include "core/screens/prompts.h"

#include <QInputDialog>
#include <QMessageBox>

namespace rd {

namespace {

class DialogPrompts : public Prompts {
public:
    PromptAnswer message(QWidget* parent, const QString& text, PromptIcon icon, const QString& title,
                         PromptButtons buttons) override {
        QMessageBox box(parent);
        box.setWindowTitle(title);
        box.setText(text);
        switch (icon) {
        case PromptIcon::None:
            box.setIcon(QMessageBox::NoIcon);
            break;
        case PromptIcon::Information:
            box.setIcon(QMessageBox::Information);
            break;
        case PromptIcon::Exclamation:
            box.setIcon(QMessageBox::Warning);
            break;
        case PromptIcon::Question:
            box.setIcon(QMessageBox::Question);
            break;
        case PromptIcon::Critical:
            box.setIcon(QMessageBox::Critical);
            break;
        }
        QMessageBox::StandardButtons set;
        QMessageBox::StandardButton escape = QMessageBox::NoButton;
        switch (buttons) {
        case PromptButtons::Ok:
            set = QMessageBox::Ok;
            escape = QMessageBox::Ok;
            break;
        case PromptButtons::OkCancel:
            set = QMessageBox::Ok | QMessageBox::Cancel;
            escape = QMessageBox::Cancel;
            break;
        case PromptButtons::YesNo:
            set = QMessageBox::Yes | QMessageBox::No;
            escape = QMessageBox::No;
            break;
        case PromptButtons::YesNoCancel:
            set = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
            escape = QMessageBox::Cancel;
            break;
        case PromptButtons::AbortRetryIgnore:
            set = QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
            escape = QMessageBox::Abort;
            break;
        case PromptButtons::RetryCancel:
            set = QMessageBox::Retry | QMessageBox::Cancel;
            escape = QMessageBox::Cancel;
            break;
        }
        box.setStandardButtons(set);
        box.setEscapeButton(escape);
        const int pressed = box.exec();
        switch (pressed) {
        case QMessageBox::Ok:
            return PromptAnswer::Ok;
        case QMessageBox::Yes:
            return PromptAnswer::Yes;
        case QMessageBox::No:
            return PromptAnswer::No;
        case QMessageBox::Abort:
            return PromptAnswer::Abort;
        case QMessageBox::Retry:
            return PromptAnswer::Retry;
        case QMessageBox::Ignore:
            return PromptAnswer::Ignore;
        default:
            return PromptAnswer::Cancel;
        }
    }

    std::optional<QString> input(QWidget* parent, const QString& prompt, const QString& title,
                                 const QString& defaultText) override {
        bool ok = false;
        const QString text =
            QInputDialog::getText(parent, title, prompt, QLineEdit::Normal, defaultText, &ok);
        if (!ok)
            return std::nullopt;
        return text;
    }
};

Prompts* installed = nullptr;

} // namespace

Prompts& Prompts::current() {
    static DialogPrompts real;
    return installed ? *installed : real;
}

void Prompts::install(Prompts* prompts) {
    installed = prompts;
}

PromptAnswer showMessage(QWidget* parent, const QString& text, PromptIcon icon, const QString& title,
                         PromptButtons buttons) {
    return Prompts::current().message(parent, text, icon, title, buttons);
}

std::optional<QString> askInput(QWidget* parent, const QString& prompt, const QString& title,
                                const QString& defaultText) {
    return Prompts::current().input(parent, prompt, title, defaultText);
}

} // namespace rd
