#include "core/screens/frmZoom.h"

#include "core/screens/controls.h"

#include "core/replaceall.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"

#include <QFontInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringList>
#include <QVBoxLayout>

namespace rd {

namespace {

const QChar kLoneCr(0x240D);
const QChar kLoneLf(0x240A);
const QString kCrLf = QStringLiteral("\r\n");
const QString kMarker = QStringLiteral("<LF>");

// The search texts here are plain ASCII, so ReplaceAll can work on the UTF-8 form: no byte of a
// multi-byte UTF-8 sequence upper-cases to ASCII, and the sequences are never split.
QString replaceAll(const QString& source, const QString& find, const QString& replacement,
                   bool caseSensitive) {
    const QByteArray s = source.toUtf8();
    const QByteArray f = find.toUtf8();
    const QByteArray r = replacement.toUtf8();
    const std::string out =
        ReplaceAll(std::string_view(s.constData(), static_cast<std::size_t>(s.size())),
                   std::string_view(f.constData(), static_cast<std::size_t>(f.size())),
                   std::string_view(r.constData(), static_cast<std::size_t>(r.size())), caseSensitive);
    return QString::fromUtf8(out.data(), static_cast<qsizetype>(out.size()));
}

int pointSizeOf(const QWidget* widget) {
    const int size = widget->font().pointSize();
    return size > 0 ? size : QFontInfo(widget->font()).pointSize();
}

} // namespace

QString zoomShownText(const QString& text, bool multiLineMode) {
    const QString lines = multiLineMode ? replaceAll(text, kMarker, kCrLf, false) : text;
    QStringList shown = lines.split(kCrLf);
    for (QString& line : shown) {
        line.replace(QChar(u'\r'), kLoneCr);
        line.replace(QChar(u'\n'), kLoneLf);
    }
    return shown.join(QChar(u'\n'));
}

QString zoomResultText(const QString& shown, bool multiLineMode) {
    QString text = shown.split(QChar(u'\n')).join(kCrLf);
    text.replace(kLoneCr, QChar(u'\r'));
    text.replace(kLoneLf, QChar(u'\n'));
    return multiLineMode ? replaceAll(text, kCrLf, kMarker, true) : replaceAll(text, kCrLf, QString(), true);
}

frmZoom::frmZoom(const QString& text, bool multiLineMode, QWidget* ownerScreen)
    : QDialog(ownerScreen), multiLineMode_(multiLineMode) {
    setObjectName(QStringLiteral("frmZoom"));
    setWindowTitle(QStringLiteral("Zoom"));

    txtText = new QPlainTextEdit(this);
    txtText->setAccessibleName(QStringLiteral("Text"));
    txtText->setObjectName(QStringLiteral("txtText"));
    txtText->setTabChangesFocus(true);
    // The text box fills the screen above the buttons, which sit at the bottom right.
    QHBoxLayout* buttons = okCancelRow(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtText, 1);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmZoom::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmZoom::cmdCancel_Click);
    txtText->installEventFilter(this);

    applyUserFont(this);
    txtText->setPlainText(zoomShownText(text, multiLineMode));
    txtText->moveCursor(QTextCursor::End);
    txtText->setFocus();

    openAtTextSize(this, 72, 16);
}

void frmZoom::cmdOK_Click() {
    result_ = zoomResultText(txtText->toPlainText(), multiLineMode_);
    accept();
}

void frmZoom::cmdCancel_Click() {
    reject();
}

void frmZoom::reject() {
    result_.clear();
    QDialog::reject();
}

bool frmZoom::txtText_KeyDown(QKeyEvent* event) {
    QFont font = txtText->font();
    switch (event->key()) {
    case Qt::Key_F2: {
        const int size = pointSizeOf(txtText);
        if (size > 6) {
            font.setPointSize(size - 1);
            txtText->setFont(font);
        }
        return true;
    }
    case Qt::Key_F3: {
        const int size = pointSizeOf(txtText);
        if (size < 255) {
            font.setPointSize(size + 1);
            txtText->setFont(font);
        }
        return true;
    }
    case Qt::Key_F10:
        font.setFamilies({font.family().toUpper() != QStringLiteral("ARIAL")
                              ? QStringLiteral("Arial")
                              : QStringLiteral("Courier New")});
        txtText->setFont(font);
        return true;
    default:
        return false;
    }
}

bool frmZoom::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtText && event->type() == QEvent::KeyPress)
        return txtText_KeyDown(static_cast<QKeyEvent*>(event));
    return QDialog::eventFilter(watched, event);
}

} // namespace rd
