#pragma once
// The deathmatch flag editor: one flag row of a flag list, new or existing, written straight
// into the list's row on OK.

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace rd {

class frmEditDMflag : public QDialog {
    Q_OBJECT
public:
    // `list`: the flag list's view; `newRow`: whether a row is added; `index`: the row's 1-based
    // position (for a new row: where it goes, out of 1..count appends it).
    frmEditDMflag(QTreeWidget* list, bool newRow, int index, QWidget* owner = nullptr);

    QLabel* lblFlagName = nullptr;
    QLineEdit* txtFlagName = nullptr;
    QLabel* lblChecked = nullptr;
    QComboBox* cboChecked = nullptr;
    QLabel* lblUnchecked = nullptr;
    QComboBox* cboUnchecked = nullptr;
    QLabel* lblBitmap = nullptr;
    QComboBox* cboBitmap = nullptr;
    QLabel* lblHelp = nullptr;
    QLineEdit* txtHelp = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    void Form_Load();

    QTreeWidget* list_;
    bool newRow_;
    int index_;
};

} // namespace rd
