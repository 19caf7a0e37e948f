#include "core/screens/frmZoom.h"
#include "core/screens/userfont.h"
#include "core/screens/zoomtextbox.h"
#include "tests/support/modal_driver_screens.h"

#include <QFont>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace zoom_test {

using namespace rd;
using rd::test::ModalDriver;

// A little screen with one text box that has the zoom key.
struct Screen {
    QWidget window;
    QLineEdit* txtName;
    explicit Screen(const QString& text, const QString& title = QString(), bool multiLine = false) {
        window.setObjectName("frmTest");
        txtName = new QLineEdit(text, &window);
        txtName->setObjectName("txtName");
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(txtName);
        giveZoomKey(txtName, title, multiLine);
    }
};

QPlainTextEdit* textOf(QDialog* dialog) {
    return dialog->findChild<QPlainTextEdit*>("txtText");
}
QPushButton* button(QDialog* dialog, const char* name) {
    return dialog->findChild<QPushButton*>(name);
}

// Replaces the editor's text by typing: select everything, then type the lines with Enter between.
void typeLines(QDialog* dialog, const QStringList& lines) {
    QPlainTextEdit* txt = textOf(dialog);
    txt->selectAll();
    QTest::keyClick(txt, Qt::Key_Delete);
    for (int i = 0; i < lines.size(); ++i) {
        if (i > 0)
            QTest::keyClick(txt, Qt::Key_Return);
        QTest::keyClicks(txt, lines[i]);
    }
}

TEST(ZoomEditor, F2InATextBoxOpensTheEditorCaptionedZoomWithTheBoxText) {
    Screen screen("hello");
    QString caption, shown;
    ModalDriver driver([&](QDialog* d) {
        caption = d->windowTitle();
        shown = textOf(d)->toPlainText();
        QTest::mouseClick(button(d, "cmdCancel"), Qt::LeftButton);
    });
    QTest::keyClick(screen.txtName, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(caption, "Zoom");
    EXPECT_EQ(shown, "hello");
    EXPECT_EQ(screen.txtName->text(), "hello");
}

TEST(ZoomEditor, AGivenTitleReplacesTheCaption) {
    Screen screen("x", "Option Name");
    QString caption;
    ModalDriver driver([&](QDialog* d) {
        caption = d->windowTitle();
        d->reject();
    });
    QTest::keyClick(screen.txtName, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(caption, "Option Name");
}

TEST(ZoomEditor, ATitleCanBeWorkedOutWhenTheKeyIsPressed) {
    QWidget window;
    auto* label = new QLabel("Parameter", &window);
    auto* box = new QLineEdit(&window);
    giveZoomKey(box, [label] { return label->text(); });
    label->setText("Map Name");
    QString caption;
    ModalDriver driver([&](QDialog* d) {
        caption = d->windowTitle();
        d->reject();
    });
    QTest::keyClick(box, Qt::Key_F2);
    EXPECT_EQ(caption, "Map Name");
}

TEST(ZoomEditor, F2OpensWithAnyModifierHeld) {
    Screen screen("x");
    ModalDriver driver([&](QDialog* d) { d->reject(); });
    QTest::keyClick(screen.txtName, Qt::Key_F2, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_TRUE(driver.acted());
}

TEST(ZoomEditor, OtherKeysReachTheTextBox) {
    Screen screen("");
    QTest::keyClicks(screen.txtName, "abc");
    QTest::keyClick(screen.txtName, Qt::Key_F3);
    EXPECT_EQ(screen.txtName->text(), "abc");
}

TEST(ZoomEditor, TextTypedOnTwoLinesComesBackJoined) {
    Screen screen("old");
    ModalDriver driver([&](QDialog* d) {
        typeLines(d, {"ab", "cd"});
        QTest::mouseClick(button(d, "cmdOK"), Qt::LeftButton);
    });
    QTest::keyClick(screen.txtName, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(screen.txtName->text(), "abcd");
}

TEST(ZoomEditor, TheResultIsReturnedByZoomTextBox) {
    QWidget window;
    auto* box = new QLineEdit("start", &window);
    ModalDriver driver([&](QDialog* d) {
        typeLines(d, {"one", "two"});
        QTest::mouseClick(button(d, "cmdOK"), Qt::LeftButton);
    });
    const QString result = ZoomTextBox(box, &window, false, QString());
    EXPECT_EQ(result, "onetwo");
    EXPECT_EQ(box->text(), "onetwo");
}

TEST(ZoomEditor, DeletingTheWholeTextAndPressingOkLeavesTheBoxUnchanged) {
    Screen screen("keep me");
    ModalDriver driver([&](QDialog* d) {
        typeLines(d, {});
        QTest::mouseClick(button(d, "cmdOK"), Qt::LeftButton);
    });
    QTest::keyClick(screen.txtName, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(screen.txtName->text(), "keep me");
}

TEST(ZoomEditor, CancelLeavesTheBoxUnchanged) {
    Screen screen("keep me");
    QString result = "not run";
    ModalDriver driver([&](QDialog* d) {
        typeLines(d, {"changed"});
        QTest::mouseClick(button(d, "cmdCancel"), Qt::LeftButton);
    });
    result = ZoomTextBox(screen.txtName, &screen.window, false, QString());
    EXPECT_TRUE(result.isEmpty());
    EXPECT_EQ(screen.txtName->text(), "keep me");
}

TEST(ZoomEditor, EscapeCancels) {
    Screen screen("keep me");
    ModalDriver driver([&](QDialog* d) {
        typeLines(d, {"changed"});
        QTest::keyClick(textOf(d), Qt::Key_Escape);
    });
    QTest::keyClick(screen.txtName, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(screen.txtName->text(), "keep me");
}

TEST(ZoomEditor, MultiLineModeOpensMarkersAsLinesAndStoresLinesAsMarkers) {
    Screen screen("one<LF>two", QString(), true);
    QString shown;
    int blocks = 0;
    ModalDriver driver([&](QDialog* d) {
        shown = textOf(d)->toPlainText();
        blocks = textOf(d)->blockCount();
        QTest::mouseClick(button(d, "cmdOK"), Qt::LeftButton);
    });
    QTest::keyClick(screen.txtName, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(shown, "one\ntwo");
    EXPECT_EQ(blocks, 2);
    EXPECT_EQ(screen.txtName->text(), "one<LF>two");
}

TEST(ZoomEditor, MultiLineModeFindsMarkersInAnyCaseAndWritesThemInCapitals) {
    Screen screen("one<lf>two", QString(), true);
    int blocks = 0;
    ModalDriver driver([&](QDialog* d) {
        blocks = textOf(d)->blockCount();
        QTest::mouseClick(button(d, "cmdOK"), Qt::LeftButton);
    });
    QTest::keyClick(screen.txtName, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(blocks, 2);
    EXPECT_EQ(screen.txtName->text(), "one<LF>two");
}

TEST(ZoomEditor, MultiLineModeStoresTypedLinesAsMarkers) {
    Screen screen("x", QString(), true);
    ModalDriver driver([&](QDialog* d) {
        typeLines(d, {"a", "b", "c"});
        QTest::mouseClick(button(d, "cmdOK"), Qt::LeftButton);
    });
    QTest::keyClick(screen.txtName, Qt::Key_F2);
    EXPECT_EQ(screen.txtName->text(), "a<LF>b<LF>c");
}

TEST(ZoomEditor, ALoneCrOrLfIsLeftInPlaceOnOk) {
    Screen screen(QString("a\rb\nc"));
    QString shown;
    ModalDriver driver([&](QDialog* d) {
        shown = textOf(d)->toPlainText();
        textOf(d)->moveCursor(QTextCursor::End);
        QTest::keyClicks(textOf(d), "d");
        QTest::mouseClick(button(d, "cmdOK"), Qt::LeftButton);
    });
    QTest::keyClick(screen.txtName, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(screen.txtName->text(), QString("a\rb\ncd"));
    EXPECT_FALSE(shown.contains('\n')); // shown on one line
}

TEST(ZoomEditor, CrLfPairsInTheBoxAreJoinedWhileLoneOnesStay) {
    Screen screen(QString("a\r\nb\rc"));
    ModalDriver driver([&](QDialog* d) { QTest::mouseClick(button(d, "cmdOK"), Qt::LeftButton); });
    QTest::keyClick(screen.txtName, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(screen.txtName->text(), QString("ab\rc"));
}

// The editor's own keys, driven without a modal loop.

int pointSize(frmZoom& zoom) {
    return zoom.txtText->font().pointSize();
}
void setPointSize(frmZoom& zoom, int size) {
    QFont font = zoom.txtText->font();
    font.setPointSize(size);
    zoom.txtText->setFont(font);
}

TEST(ZoomEditorKeys, F2MakesTheFontOnePointSmallerAndF3OnePointLarger) {
    frmZoom zoom("text", false);
    setPointSize(zoom, 10);
    QTest::keyClick(zoom.txtText, Qt::Key_F2);
    EXPECT_EQ(pointSize(zoom), 9);
    QTest::keyClick(zoom.txtText, Qt::Key_F3);
    QTest::keyClick(zoom.txtText, Qt::Key_F3);
    EXPECT_EQ(pointSize(zoom), 11);
    EXPECT_EQ(zoom.txtText->toPlainText(), "text");
}

TEST(ZoomEditorKeys, F2AtSizeSixChangesNothing) {
    frmZoom zoom("text", false);
    setPointSize(zoom, 6);
    QTest::keyClick(zoom.txtText, Qt::Key_F2);
    EXPECT_EQ(pointSize(zoom), 6);
    setPointSize(zoom, 7);
    QTest::keyClick(zoom.txtText, Qt::Key_F2);
    QTest::keyClick(zoom.txtText, Qt::Key_F2);
    EXPECT_EQ(pointSize(zoom), 6);
}

TEST(ZoomEditorKeys, F3AtSize255ChangesNothing) {
    frmZoom zoom("text", false);
    setPointSize(zoom, 255);
    QTest::keyClick(zoom.txtText, Qt::Key_F3);
    EXPECT_EQ(pointSize(zoom), 255);
    setPointSize(zoom, 254);
    QTest::keyClick(zoom.txtText, Qt::Key_F3);
    QTest::keyClick(zoom.txtText, Qt::Key_F3);
    EXPECT_EQ(pointSize(zoom), 255);
}

TEST(ZoomEditorKeys, F10SwitchesBetweenArialAndCourierNew) {
    frmZoom zoom("text", false);
    QFont font = zoom.txtText->font();
    font.setFamilies({"Times"});
    zoom.txtText->setFont(font);
    QTest::keyClick(zoom.txtText, Qt::Key_F10);
    EXPECT_EQ(zoom.txtText->font().family(), "Arial");
    QTest::keyClick(zoom.txtText, Qt::Key_F10);
    EXPECT_EQ(zoom.txtText->font().family(), "Courier New");
    QTest::keyClick(zoom.txtText, Qt::Key_F10);
    EXPECT_EQ(zoom.txtText->font().family(), "Arial");
}

TEST(ZoomEditorKeys, F10TakesArialInAnyCaseAsArial) {
    frmZoom zoom("text", false);
    QFont font = zoom.txtText->font();
    font.setFamilies({"aRiAl"});
    zoom.txtText->setFont(font);
    QTest::keyClick(zoom.txtText, Qt::Key_F10);
    EXPECT_EQ(zoom.txtText->font().family(), "Courier New");
}

TEST(ZoomEditorLayout, TheTextBoxFillsTheScreenAboveTheButtons) {
    frmZoom zoom("text", false);
    zoom.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&zoom));
    zoom.resize(600, 400);
    QTest::qWait(10);
    const QRect small = zoom.txtText->geometry();
    zoom.resize(900, 700);
    QTest::qWait(10);
    const QRect large = zoom.txtText->geometry();
    EXPECT_GT(large.width(), small.width() + 250);
    EXPECT_GT(large.height(), small.height() + 250);
    EXPECT_LT(large.bottom(), zoom.cmdOK->geometry().top());
    EXPECT_LT(large.bottom(), zoom.cmdCancel->geometry().top());
    EXPECT_EQ(zoom.cmdOK->text(), "&OK");
    EXPECT_EQ(zoom.cmdCancel->text(), "&Cancel");
}

TEST(ZoomEditor, AMultiLineBoxGetsTheZoomKeyToo) {
    QWidget window;
    auto* box = new QPlainTextEdit("first", &window);
    giveZoomKey(box);
    ModalDriver driver([&](QDialog* d) {
        typeLines(d, {"ab", "cd"});
        QTest::mouseClick(button(d, "cmdOK"), Qt::LeftButton);
    });
    QTest::keyClick(box, Qt::Key_F2);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(box->toPlainText(), "abcd");
}

TEST(ZoomEditor, WidgetsThatHoldNoTextOpenNothing) {
    QWidget window;
    QLabel label("text", &window);
    ModalDriver driver([&](QDialog* d) { d->reject(); }, 500);
    EXPECT_TRUE(ZoomTextBox(&label, &window, false, QString()).isEmpty());
    EXPECT_FALSE(driver.acted());
    EXPECT_EQ(label.text(), "text");
}

TEST(ZoomEditor, TheEditorTakesTheUserFontWhenItLoads) {
    setUserFont(UserFont{14, "Courier New"});
    frmZoom zoom("text", false);
    setUserFont(UserFont{});
    EXPECT_EQ(zoom.txtText->font().pointSize(), 14);
    EXPECT_EQ(zoom.txtText->font().family(), "Courier New");
    EXPECT_EQ(zoom.cmdOK->font().pointSize(), 14);
}

} // namespace zoom_test
