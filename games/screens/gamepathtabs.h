#pragma once
// The two tabs of a game's fields that the game editor and the paths template editor share:
// "&Paths" and "&Advanced" with the twelve fields of a game's record, their labels and hints.
// The game editor adds its choosers and buttons beside the fields; the template editor has none.

#include "games/gamerecord.h"

#include <QString>
#include <array>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QWidget;

namespace rd {

class GamePathTabs {
public:
    QTabWidget* SSTab1 = nullptr;

    // "&Paths"
    QLabel* lblLocationOfExe = nullptr;
    QLineEdit* txtLocationOfExe = nullptr;
    QLabel* lblEXEName = nullptr;
    QLineEdit* txtEXEName = nullptr;
    QLabel* lblMapLocation = nullptr;
    QLineEdit* txtMapLocation = nullptr;
    QLabel* lblCDPath = nullptr;
    QLineEdit* txtCDPath = nullptr;
    QLabel* lblModels = nullptr;
    QLineEdit* txtModels = nullptr;

    // "&Advanced"
    QLabel* lblMapReadMe = nullptr;
    QLineEdit* txtMapReadMe = nullptr;
    QLabel* lblSkinFilter = nullptr;
    QLineEdit* txtSkinFilter = nullptr;
    QLabel* lblBatchFile = nullptr;
    QLineEdit* txtBatchFile = nullptr;
    QLabel* lblModelName = nullptr;
    QLineEdit* txtModelName = nullptr;
    QLabel* lblStartType = nullptr;
    QComboBox* cboStartType = nullptr;
    QLabel* lblStartTypeHint = nullptr;
    QCheckBox* chkLaunchBatchDirect = nullptr;
    QLabel* lblLaunchBatchDirectHint = nullptr;
    QCheckBox* chkFinishSample = nullptr;

    // The game editor's choosers and buttons (nullptr in the template editor).
    QPushButton* cmdChooseGameDir = nullptr;
    QPushButton* cmdMapLocation = nullptr;
    QPushButton* cmdCDpath = nullptr;
    QPushButton* cmdChooseModel = nullptr;
    QPushButton* cmdChooseMapReadme = nullptr;
    QPushButton* cmdChooseBatch = nullptr;
    QPushButton* cmdEditBatch = nullptr;
    QPushButton* cmdBatchNote = nullptr;
    QPushButton* cmdTemplate = nullptr;

    // The nine text boxes, in the order of the record's lines.
    std::array<QLineEdit*, 9> textBoxes() const;

protected:
    // Builds the tabs into `screen` (the choosers too when `withChoosers`).
    void buildGamePathTabs(QWidget* screen, bool withChoosers);

    // Puts a record into the fields. The texts shown are remembered: a field left as it was shown
    // is saved with the bytes it was read with (so a line too long for a text box, or bytes a
    // text box cannot hold, come back unchanged).
    void showRecord(const GamePathRecord& record);
    // The record as the fields hold it now.
    GamePathRecord recordShown() const;

private:
    GamePathRecord shownRecord_;
    std::array<QString, 9> shownTexts_;
};

} // namespace rd
