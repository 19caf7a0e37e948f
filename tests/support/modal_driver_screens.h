#pragma once
// Drives a modal dialog from a test: the action runs as soon as the dialog is up (its exec() loop
// is running); a watchdog closes whatever modal dialog is still open after a few seconds and fails
// the test, so no test can hang on a dialog nobody answers.

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace rd::test {

class ModalDriver {
public:
    // `act` gets the first modal dialog that opens after construction.
    explicit ModalDriver(std::function<void(QDialog*)> act, int watchdogMs = 8000)
        : act_(std::move(act)), poll_(std::make_unique<QTimer>()), watchdogMs_(watchdogMs) {
        clock_.start();
        poll_->setInterval(5);
        QObject::connect(poll_.get(), &QTimer::timeout, [this] { tick(); });
        poll_->start();
    }
    ~ModalDriver() { poll_->stop(); }

    bool acted() const { return acted_; }

private:
    void tick() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!acted_ && dialog && dialog->isVisible()) {
            acted_ = true;
            act_(dialog);
            return;
        }
        if (clock_.elapsed() > watchdogMs_) {
            if (QWidget* stuck = QApplication::activeModalWidget()) {
                ADD_FAILURE() << "a modal dialog was left open: " << stuck->objectName().toStdString();
                if (auto* d = qobject_cast<QDialog*>(stuck))
                    d->done(QDialog::Rejected);
                else
                    stuck->close();
            } else {
                poll_->stop();
            }
        }
    }

    std::function<void(QDialog*)> act_;
    std::unique_ptr<QTimer> poll_;
    QElapsedTimer clock_;
    int watchdogMs_;
    bool acted_ = false;
};

} // namespace rd::test
