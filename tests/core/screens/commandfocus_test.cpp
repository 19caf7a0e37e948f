// Commands run from the keyboard take the focus first, as a click does: an access key, Enter on
// the default button and Escape on the cancel button move the focus to the button before it
// acts, so the field being left runs its focus-loss check first; a check that keeps the focus in
// its field keeps the command from running.

#include "core/screens/controls.h"

#include <QDialog>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace commandfocus_test {

using namespace rd;

// A dialog with a text box whose focus-loss check is logged (and may refuse, keeping the focus),
// a command button "&Apply", and the OK (default) and Cancel buttons of every editor.
class Form : public QDialog {
public:
    Form() {
        txtValue = new QLineEdit(this);
        cmdApply = makeButton(this, "cmdApply", QStringLiteral("&Apply"));
        QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
        cmdOK->setDefault(true);
        auto* top = new QVBoxLayout(this);
        top->addWidget(txtValue);
        top->addWidget(cmdApply);
        top->addLayout(buttons);
        txtValue->installEventFilter(this);
        for (QPushButton* button : {cmdApply, cmdOK, cmdCancel})
            connect(button, &QPushButton::clicked, this,
                    [this, button] { log << button->objectName() + " clicked, focus on " + focusName(); });
    }

    QString focusName() const { return focusWidget() ? focusWidget()->objectName() : QStringLiteral("none"); }

    QLineEdit* txtValue = nullptr;
    QPushButton* cmdApply = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QStringList log;
    bool refuse = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == txtValue && event->type() == QEvent::FocusOut &&
            static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason) {
            log << QStringLiteral("check of ") + txtValue->text();
            if (refuse)
                txtValue->setFocus(Qt::OtherFocusReason); // the text is refused: the focus stays
        }
        return QDialog::eventFilter(watched, event);
    }
};

struct Shown {
    Form form;
    Shown() {
        form.txtValue->setObjectName(QStringLiteral("txtValue"));
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        form.txtValue->setFocus();
        QTest::keyClicks(form.txtValue, QStringLiteral("abc"));
    }
    // Waits for the button's click (an access key shows the button pressed for a moment first).
    bool waitForLog(int entries) {
        return QTest::qWaitFor([&] { return form.log.size() >= entries; }, 2000);
    }
};

TEST(CommandFocus, AnAccessKeyMovesTheFocusToItsButtonBeforeTheButtonActs) {
    Shown s;
    QTest::keyClick(s.form.txtValue, Qt::Key_A, Qt::AltModifier);
    ASSERT_TRUE(s.waitForLog(2));
    EXPECT_EQ(s.form.log, (QStringList{"check of abc", "cmdApply clicked, focus on cmdApply"}));
}

TEST(CommandFocus, EnterRunsTheDefaultButtonAfterTheFieldIsLeft) {
    Shown s;
    QTest::keyClick(s.form.txtValue, Qt::Key_Return);
    EXPECT_EQ(s.form.log, (QStringList{"check of abc", "cmdOK clicked, focus on cmdOK"}));
}

TEST(CommandFocus, EnterOnTheKeypadDoesTheSame) {
    Shown s;
    QTest::keyClick(s.form.txtValue, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(s.form.log, (QStringList{"check of abc", "cmdOK clicked, focus on cmdOK"}));
}

TEST(CommandFocus, EscapeRunsTheCancelButtonAfterTheFieldIsLeft) {
    Shown s;
    QTest::keyClick(s.form.txtValue, Qt::Key_Escape);
    EXPECT_EQ(s.form.log, (QStringList{"check of abc", "cmdCancel clicked, focus on cmdCancel"}));
}

TEST(CommandFocus, ACheckThatKeepsTheFocusKeepsTheCommandFromRunning) {
    Shown s;
    s.form.refuse = true;
    QTest::keyClick(s.form.txtValue, Qt::Key_Return);
    QTest::keyClick(s.form.txtValue, Qt::Key_A, Qt::AltModifier);
    QTest::qWait(300);
    EXPECT_EQ(s.form.log, (QStringList{"check of abc", "check of abc"}));
    EXPECT_EQ(s.form.focusName(), QString("txtValue"));
    EXPECT_TRUE(s.form.isVisible());
}

TEST(CommandFocus, ADisabledDefaultButtonDoesNothingOnEnter) {
    Shown s;
    s.form.cmdOK->setEnabled(false);
    QTest::keyClick(s.form.txtValue, Qt::Key_Return);
    EXPECT_TRUE(s.form.log.isEmpty());
    EXPECT_EQ(s.form.focusName(), QString("txtValue"));
}

TEST(CommandFocus, EscapeInADialogWithoutACancelButtonStillClosesIt) {
    QDialog dialog;
    auto* box = new QLineEdit(&dialog);
    auto* ok = makeButton(&dialog, "cmdOK", QStringLiteral("&OK"));
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(box);
    layout->addWidget(ok);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

} // namespace commandfocus_test
