#include "core/screens/scrollstep.h"

#include "core/conversions.h"
#include "core/screens/qtext.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

namespace rd {

namespace {

constexpr int kBarEnd = 10000;
constexpr int kBarMiddle = kBarEnd / 2;

} // namespace

QString steppedNumberText(const QString& text, bool up, double lower, double upper) {
    const std::string bytes = toBytes(text);
    double value = isNumeric(bytes) ? roundHalfEven(leadingValue(bytes)) : 0.0;
    if (!std::isfinite(value))
        value = 0.0;
    value += up ? 1.0 : -1.0;
    if (lower != upper)
        value = std::clamp(value, std::min(lower, upper), std::max(lower, upper));
    if (value == 0.0)
        value = 0.0; // no "-0"
    return QString::number(value, 'f', 0);
}

ScrollStepper::ScrollStepper(QScrollBar* bar, QLineEdit* box, double lower, double upper)
    : QObject(bar), bar_(bar), box_(box), lower_(lower), upper_(upper) {
    {
        const QSignalBlocker quiet(bar_);
        bar_->setRange(0, kBarEnd);
        bar_->setSingleStep(1);
        bar_->setPageStep(1);
        bar_->setValue(kBarMiddle);
    }
    previous_ = bar_->value();
    connect(bar_, &QScrollBar::valueChanged, this, &ScrollStepper::barChanged);
    box_->installEventFilter(this);
}

void ScrollStepper::barChanged(int position) {
    if (position == previous_)
        return;
    box_->setText(steppedNumberText(box_->text(), position < previous_, lower_, upper_));
    previous_ = position;
    if (position <= bar_->minimum() || position >= bar_->maximum()) {
        const QSignalBlocker quiet(bar_);
        bar_->setValue(kBarMiddle);
        previous_ = kBarMiddle;
    }
}

bool ScrollStepper::eventFilter(QObject* watched, QEvent* event) {
    if (watched == box_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() == Qt::NoModifier || key->modifiers() == Qt::KeypadModifier) {
            if (key->key() == Qt::Key_Up && bar_->isEnabled()) {
                bar_->triggerAction(QAbstractSlider::SliderSingleStepSub);
                return true;
            }
            if (key->key() == Qt::Key_Down && bar_->isEnabled()) {
                bar_->triggerAction(QAbstractSlider::SliderSingleStepAdd);
                return true;
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

ScrollStepper* giveSpinControl(QScrollBar* bar, QLineEdit* box, double lower, double upper) {
    return new ScrollStepper(bar, box, lower, upper);
}

} // namespace rd
