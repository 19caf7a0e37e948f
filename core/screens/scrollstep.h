#pragma once
// The scroll-bar stepping routine: a vertical scroll bar beside a number box works as its spin
// control. Every change of the bar's position steps the number by exactly one, whatever the
// size of the move: up when the bar moved up (towards its top arrow), down when it moved down.
// The number editor of the option definitions and the plug-in setup editor's start arena use it.

#include <QObject>
#include <QString>

class QLineEdit;
class QScrollBar;

namespace rd {

// The box's text after one step: its number (0 when the text is not numeric; a numeric text
// is rounded to a whole number, halves to even) plus or minus one, clamped to lower..upper when
// the two limits differ, written as plain digits ("-" before a negative number, no blanks).
QString steppedNumberText(const QString& text, bool up, double lower, double upper);

class ScrollStepper : public QObject {
    Q_OBJECT
public:
    // Sets the bar up as the spin control of `box` (owned by the bar). The bar keeps room to move
    // both ways: on reaching either end it is put back in its middle without a step. Up and Down
    // in the box step the number too, so the control works from the keyboard.
    ScrollStepper(QScrollBar* bar, QLineEdit* box, double lower, double upper);

    // The position the bar had before its last change.
    int previousPosition() const { return previous_; }

public slots:
    // The bar moved to `position`.
    void barChanged(int position);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QScrollBar* bar_;
    QLineEdit* box_;
    double lower_;
    double upper_;
    int previous_;
};

// One line for a screen: makes `bar` the spin control of `box` with the limits given.
ScrollStepper* giveSpinControl(QScrollBar* bar, QLineEdit* box, double lower, double upper);

} // namespace rd
