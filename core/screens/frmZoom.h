#pragma once
// The text zoom editor: a large, resizable editor for the text of a one-line box, with a font
// that can be made smaller (F2), larger (F3) and switched between Arial and Courier New (F10).

#include <QDialog>
#include <QString>

class QKeyEvent;
class QPlainTextEdit;
class QPushButton;

namespace rd {

// The text shown in the editor for a box's text. Multi-line mode shows every "<LF>" marker (in
// any case) as a line break. Everywhere a CR LF pair is a line break; a lone CR or LF is shown as
// the symbol U+240D / U+240A so it survives editing and is put back on OK.
QString zoomShownText(const QString& text, bool multiLineMode);
// The editor's outcome for its shown text: line breaks removed (the lines joined with nothing) or,
// in multi-line mode, turned into "<LF>"; lone CR and LF come back as they were.
QString zoomResultText(const QString& shown, bool multiLineMode);

class frmZoom : public QDialog {
    Q_OBJECT
public:
    // `text`: the box's current text. The caption is "Zoom" until the caller sets another.
    frmZoom(const QString& text, bool multiLineMode, QWidget* ownerScreen = nullptr);

    // The edited text after OK; empty after Cancel (and before OK), meaning "leave the box alone".
    QString result() const { return result_; }

    QPlainTextEdit* txtText;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();
    void reject() override;

public:
    // F2 / F3 / F10 inside txtText; returns whether the key was one of them.
    bool txtText_KeyDown(QKeyEvent* event);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool multiLineMode_;
    QString result_;
};

} // namespace rd
