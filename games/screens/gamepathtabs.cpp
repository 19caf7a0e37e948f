#include "games/screens/gamepathtabs.h"

#include "core/screens/controls.h"
#include "core/screens/qtext.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace rd {

namespace {

QLabel* makeLabel(QWidget* parent, const char* name, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

QLineEdit* makeTextBox(QWidget* parent, const char* name, QLabel* label) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(QString::fromLatin1(name));
    label->setBuddy(box);
    return box;
}

// A "..." chooser beside a field; it has no label of its own, so it is named for screen readers.
QPushButton* makeChooser(QWidget* parent, const char* name, const QString& accessibleName) {
    QPushButton* button = makeButton(parent, name, QStringLiteral("..."));
    button->setAccessibleName(accessibleName);
    const QFontMetrics metrics(button->font());
    button->setMaximumWidth(metrics.horizontalAdvance(QStringLiteral("....")) * 3);
    return button;
}

QLabel* makeHint(QWidget* parent, const char* name, const QString& text) {
    QLabel* hint = makeLabel(parent, name, text);
    hint->setWordWrap(true);
    return hint;
}

// The record's text fields in the order of textBoxes().
const std::array<std::string GamePathRecord::*, 9> kTextFields{
    &GamePathRecord::txtLocationOfExe, &GamePathRecord::txtMapLocation, &GamePathRecord::txtEXEName,
    &GamePathRecord::txtCDPath,        &GamePathRecord::txtModels,      &GamePathRecord::txtSkinFilter,
    &GamePathRecord::txtBatchFile,     &GamePathRecord::txtModelName,   &GamePathRecord::txtMapReadMe};

} // namespace

std::array<QLineEdit*, 9> GamePathTabs::textBoxes() const {
    return {txtLocationOfExe, txtMapLocation, txtEXEName,   txtCDPath,   txtModels,
            txtSkinFilter,    txtBatchFile,   txtModelName, txtMapReadMe};
}

void GamePathTabs::buildGamePathTabs(QWidget* screen, bool withChoosers) {
    SSTab1 = new QTabWidget(screen);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));

    // "&Paths"
    auto* paths = new QWidget(SSTab1);
    paths->setObjectName(QStringLiteral("tabPaths"));
    auto* pathsGrid = new QGridLayout(paths);
    lblLocationOfExe = makeLabel(paths, "lblLocationOfExe", QStringLiteral("Location of Game EXE File:"));
    txtLocationOfExe = makeTextBox(paths, "txtLocationOfExe", lblLocationOfExe);
    lblEXEName = makeLabel(paths, "lblEXEName", QStringLiteral("Name of Game EXE File:"));
    txtEXEName = makeTextBox(paths, "txtEXEName", lblEXEName);
    lblMapLocation = makeLabel(paths, "lblMapLocation", QStringLiteral("Location of Maps:"));
    txtMapLocation = makeTextBox(paths, "txtMapLocation", lblMapLocation);
    lblCDPath = makeLabel(paths, "lblCDPath", QStringLiteral("Optional CD Data Path:"));
    txtCDPath = makeTextBox(paths, "txtCDPath", lblCDPath);
    lblModels = makeLabel(paths, "lblModels", QStringLiteral("Location of Models:"));
    txtModels = makeTextBox(paths, "txtModels", lblModels);

    // A label and its field on one row; with the choosers, a "..." button after them.
    const auto fieldRow = [withChoosers](QGridLayout* grid, int row, QLabel* label, QWidget* field,
                                         const char* chooserName = nullptr,
                                         const QString& chooserFor = QString()) -> QPushButton* {
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row, 1);
        if (!withChoosers || !chooserName)
            return nullptr;
        QPushButton* chooser = makeChooser(grid->parentWidget(), chooserName, chooserFor);
        grid->addWidget(chooser, row, 2);
        return chooser;
    };
    cmdChooseGameDir = fieldRow(pathsGrid, 0, lblLocationOfExe, txtLocationOfExe, "cmdChooseGameDir",
                                QStringLiteral("Choose Location of Game EXE File"));
    fieldRow(pathsGrid, 1, lblEXEName, txtEXEName);
    cmdMapLocation = fieldRow(pathsGrid, 2, lblMapLocation, txtMapLocation, "cmdMapLocation",
                              QStringLiteral("Choose Location of Maps"));
    cmdCDpath = fieldRow(pathsGrid, 3, lblCDPath, txtCDPath, "cmdCDpath",
                         QStringLiteral("Choose Optional CD Data Path"));
    cmdChooseModel = fieldRow(pathsGrid, 4, lblModels, txtModels, "cmdChooseModel",
                              QStringLiteral("Choose Location of Models"));
    pathsGrid->setColumnStretch(1, 1);
    pathsGrid->setRowStretch(5, 1);

    // "&Advanced"
    auto* advanced = new QWidget(SSTab1);
    advanced->setObjectName(QStringLiteral("tabAdvanced"));
    auto* grid = new QGridLayout(advanced);
    lblMapReadMe = makeLabel(advanced, "lblMapReadMe", QStringLiteral("Location of Map ReadMe's:"));
    txtMapReadMe = makeTextBox(advanced, "txtMapReadMe", lblMapReadMe);
    lblSkinFilter = makeLabel(advanced, "lblSkinFilter", QStringLiteral("Skin File Filter:"));
    txtSkinFilter = makeTextBox(advanced, "txtSkinFilter", lblSkinFilter);
    lblBatchFile = makeLabel(advanced, "lblBatchFile", QStringLiteral("Launch Batch File:"));
    txtBatchFile = makeTextBox(advanced, "txtBatchFile", lblBatchFile);
    lblModelName = makeLabel(advanced, "lblModelName", QStringLiteral("Model Name to Display:"));
    txtModelName = makeTextBox(advanced, "txtModelName", lblModelName);
    lblStartType = makeLabel(advanced, "lblStartType", QStringLiteral("How to Start the Game:"));
    cboStartType = new QComboBox(advanced);
    cboStartType->setObjectName(QStringLiteral("cboStartType"));
    for (const char* type : kStartTypes)
        cboStartType->addItem(QString::fromLatin1(type));
    lblStartType->setBuddy(cboStartType);
    lblStartTypeHint = makeHint(advanced, "lblStartTypeHint", fromBytes(kStartTypeHint));
    cboStartType->setAccessibleDescription(lblStartTypeHint->text());
    chkLaunchBatchDirect = new QCheckBox(QStringLiteral("Launch Directly from Batch File?"), advanced);
    chkLaunchBatchDirect->setObjectName(QStringLiteral("chkLaunchBatchDirect"));
    lblLaunchBatchDirectHint = makeHint(
        advanced, "lblLaunchBatchDirectHint",
        QStringLiteral("The alternative is to run the batch file, wait for it to exit and then launch"));
    chkLaunchBatchDirect->setAccessibleDescription(lblLaunchBatchDirectHint->text());
    chkFinishSample =
        new QCheckBox(QStringLiteral("Make Sure Sample is Finished Before Launching?"), advanced);
    chkFinishSample->setObjectName(QStringLiteral("chkFinishSample"));

    int row = 0;
    cmdChooseMapReadme = fieldRow(grid, row, lblMapReadMe, txtMapReadMe, "cmdChooseMapReadme",
                                  QStringLiteral("Choose Location of Map ReadMe's"));
    ++row;
    fieldRow(grid, row, lblSkinFilter, txtSkinFilter);
    ++row;
    fieldRow(grid, row, lblBatchFile, txtBatchFile);
    if (withChoosers) {
        cmdChooseBatch = makeChooser(advanced, "cmdChooseBatch", QStringLiteral("Choose Launch Batch File"));
        cmdEditBatch = makeButton(advanced, "cmdEditBatch", QStringLiteral("&Edit"));
        cmdEditBatch->setAccessibleDescription(QStringLiteral("Edit the launch batch file"));
        auto* batchButtons = new QHBoxLayout;
        batchButtons->addWidget(cmdChooseBatch);
        batchButtons->addWidget(cmdEditBatch);
        grid->addLayout(batchButtons, row, 2);
    }
    ++row;
    fieldRow(grid, row, lblModelName, txtModelName);
    ++row;
    fieldRow(grid, row, lblStartType, cboStartType);
    ++row;
    grid->addWidget(lblStartTypeHint, row, 1, 1, 2);
    ++row;
    grid->addWidget(chkLaunchBatchDirect, row, 0, 1, 3);
    ++row;
    grid->addWidget(lblLaunchBatchDirectHint, row, 0, 1, 3);
    ++row;
    grid->addWidget(chkFinishSample, row, 0, 1, 3);
    ++row;
    if (withChoosers) {
        cmdBatchNote = makeButton(advanced, "cmdBatchNote",
                                  QStringLiteral("Click Here for an Important Note on Batch Files"));
        cmdTemplate = makeButton(advanced, "cmdTemplate",
                                 QStringLiteral("Edit Built-in Paths Template (Advanced Users Only)"));
        auto* buttons = new QVBoxLayout;
        buttons->addWidget(cmdBatchNote);
        buttons->addWidget(cmdTemplate);
        grid->addLayout(buttons, row, 0, 1, 3, Qt::AlignLeft);
        ++row;
    }
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(row, 1);

    SSTab1->addTab(paths, QStringLiteral("&Paths"));
    SSTab1->addTab(advanced, QStringLiteral("&Advanced"));

    // Tab goes along each row, then down, as the fields are laid out.
    const std::initializer_list<QWidget*> order{txtLocationOfExe, cmdChooseGameDir,   txtEXEName,
                                                txtMapLocation,   cmdMapLocation,     txtCDPath,
                                                cmdCDpath,        txtModels,          cmdChooseModel,
                                                txtMapReadMe,     cmdChooseMapReadme, txtSkinFilter,
                                                txtBatchFile,     cmdChooseBatch,     cmdEditBatch,
                                                txtModelName,     cboStartType,       chkLaunchBatchDirect,
                                                chkFinishSample,  cmdBatchNote,       cmdTemplate};
    QWidget* previous = nullptr;
    for (QWidget* widget : order) {
        if (!widget)
            continue; // the template editor has no choosers
        if (previous)
            QWidget::setTabOrder(previous, widget);
        previous = widget;
    }
}

void GamePathTabs::showRecord(const GamePathRecord& record) {
    shownRecord_ = record;
    const auto boxes = textBoxes();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        boxes[i]->setText(fromBytes(record.*kTextFields[i]));
        boxes[i]->setCursorPosition(0);
        shownTexts_[i] = boxes[i]->text();
    }
    const bool listed = record.cboStartType >= 0 && record.cboStartType < cboStartType->count();
    cboStartType->setCurrentIndex(listed ? record.cboStartType : -1);
    chkLaunchBatchDirect->setChecked(record.chkLaunchBatchDirect);
    chkFinishSample->setChecked(record.chkFinishSample);
}

GamePathRecord GamePathTabs::recordShown() const {
    GamePathRecord record;
    const auto boxes = textBoxes();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const QString text = boxes[i]->text();
        record.*kTextFields[i] = text == shownTexts_[i] ? shownRecord_.*kTextFields[i] : toBytes(text);
    }
    record.cboStartType = cboStartType->currentIndex();
    record.chkLaunchBatchDirect = chkLaunchBatchDirect->isChecked();
    record.chkFinishSample = chkFinishSample->isChecked();
    return record;
}

} // namespace rd
