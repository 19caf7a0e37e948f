#pragma once
// The pick-from-list dialog: choose one entry of another screen's list view, optionally only the
// entries of one kind, and write its text into a text box.

#include <QDialog>
#include <QPointer>
#include <QString>

class QLineEdit;
class QListWidget;
class QPushButton;
class QTreeWidget;

namespace rd {

// Opens the dialog modally over `owner`. The entries offered are the texts of the rows of
// `source` whose small-icon index (see core/screens/listhelpers.h) equals `kindFilter`, or every
// row when `kindFilter` is negative, in the source's order. `target` (may be null) receives the
// chosen text; its current text preselects the first entry equal to it without regard to case.
// `title` is the caption.
void PickFromLV(QWidget* owner, const QTreeWidget* source, QLineEdit* target, int kindFilter,
                const QString& title);

class frmPickFromLV : public QDialog {
    Q_OBJECT
public:
    // Copies the entries it offers; no reference to `source` is kept.
    frmPickFromLV(const QTreeWidget* source, QLineEdit* target, int kindFilter, const QString& title,
                  QWidget* owner = nullptr);

    QListWidget* List1;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();
    void List1_DblClick();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QLineEdit> target_;
};

} // namespace rd
