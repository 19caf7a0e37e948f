#pragma once
// The AutoExec wizard's command dialog: one command and its description, edited straight into
// the command editor's list (nothing is written to disk here).

#include <QDialog>
#include <QPointer>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace rd {

// Shows the dialog modally over `owner` on row `index` of `commands` (1 for the first row), or
// with index 0 to add a new command below the selected row (at the end when none is selected).
void EditWizardCommand(QWidget* owner, QTreeWidget* commands, int index);

class frmEditWiz : public QDialog {
    Q_OBJECT
public:
    frmEditWiz(QTreeWidget* commands, int index, QWidget* owner = nullptr);

    QLabel* lblCommand = nullptr;
    QLineEdit* txtCommand = nullptr;
    QLabel* lblDescription = nullptr;
    QLineEdit* txtDescription = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    QPointer<QTreeWidget> commands_;
    int index_;
};

} // namespace rd
