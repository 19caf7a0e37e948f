#pragma once
// The add-bot dialog ("Create New Plug-In Bot"): a new plug-in bot's folder, empty or seeded with
// the files of another bot, listed in the main window's bots list and opened in the setup editor.

#include <QDialog>
#include <QPointer>
#include <filesystem>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace rd {

// Shows the dialog modally over `owner`. `recognisedBots` is the main window's bots list: its
// entries are offered as base bots, and the new bot is added to its end and selected.
void AddBotDialog(QWidget* owner, const std::filesystem::path& root, QListWidget* recognisedBots);

class frmAddBot : public QDialog {
    Q_OBJECT
public:
    frmAddBot(std::filesystem::path root, QListWidget* recognisedBots, QWidget* owner = nullptr);

    QLabel* lblBotName = nullptr;
    QLineEdit* txtBotName = nullptr;
    QLabel* lblBotbase = nullptr;
    QComboBox* cboBotbase = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    std::filesystem::path root_;
    QPointer<QListWidget> recognisedBots_;
};

} // namespace rd
