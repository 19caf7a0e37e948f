#include "games/screens/frmGameTemplate.h"

#include "core/screens/controls.h"
#include "core/screens/errortrap.h"
#include "core/screens/prompts.h"
#include "core/screens/qtext.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/steprunner.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <exception>

namespace rd {

void EditGameTemplate(QWidget* owner, const std::filesystem::path& root, const std::string& game) {
    frmGameTemplate form(root, game, owner);
    form.exec();
}

frmGameTemplate::frmGameTemplate(std::filesystem::path root, std::string game, QWidget* owner)
    : QDialog(owner), root_(std::move(root)), game_(std::move(game)) {
    setObjectName(QStringLiteral("frmGameTemplate"));
    setWindowTitle(QStringLiteral("Edit Game Paths Template"));
    setSizeGripEnabled(true);

    lblEditingFor = new QLabel(QStringLiteral("Editing Game Paths Template for:"), this);
    lblEditingFor->setObjectName(QStringLiteral("lblEditingFor"));
    lblGameName = new QLabel(QStringLiteral("Game"), this);
    lblGameName->setObjectName(QStringLiteral("lblGameName"));
    lblGameName->setTextFormat(Qt::PlainText);
    QFont bold = lblGameName->font();
    bold.setBold(true);
    lblGameName->setFont(bold);

    buildGamePathTabs(this, false);

    lblPathNote = new QLabel(fromBytes(kTemplatePathRule), this);
    lblPathNote->setObjectName(QStringLiteral("lblPathNote"));
    lblPathNote->setTextFormat(Qt::PlainText);
    lblPathNote->setWordWrap(true);
    lblBackslashNote = new QLabel(fromBytes(kTemplateBackslashNote), this);
    lblBackslashNote->setObjectName(QStringLiteral("lblBackslashNote"));
    lblBackslashNote->setTextFormat(Qt::PlainText);
    lblBackslashNote->setWordWrap(true);

    QHBoxLayout* closing = okCancelRow(this, cmdOK, cmdCancel);
    cmdOK->setDefault(true);

    auto* heading = new QHBoxLayout;
    heading->addWidget(lblEditingFor);
    heading->addWidget(lblGameName, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(heading);
    layout->addWidget(lblPathNote);
    layout->addWidget(lblBackslashNote);
    layout->addWidget(SSTab1, 1);
    layout->addLayout(closing);

    connect(cmdOK, &QPushButton::clicked, this, &frmGameTemplate::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmGameTemplate::cmdCancel_Click);

    Form_Load();

    openAtTextSize(this, 80, 0);
    for (QLineEdit* box : textBoxes())
        showWholeText(box);
    txtLocationOfExe->setFocus();
}

void frmGameTemplate::Form_Load() {
    StepRunner trap(
        screenTrap(this, QStringLiteral("Loading Game Paths Template"), fromBytes(kGameLoadTrapLead)));
    trap.step([this] { applyUserFont(this); });
    lblGameName->setText(fromBytes(game_));
    GamePathRecord record = templateBuiltInValues();
    trap.step([&] { record = LoadTemplate(root_, game_, trap); });
    showRecord(record);
}

void frmGameTemplate::cmdOK_Click() {
    try {
        SaveTemplate(root_, game_, recordShown());
    } catch (const std::exception& e) {
        showMessage(this, fromBytes(e.what()), PromptIcon::Exclamation, fromBytes(kSaveGameTitle));
        return;
    }
    accept();
}

void frmGameTemplate::cmdCancel_Click() {
    reject();
}

} // namespace rd
