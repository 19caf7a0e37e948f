#pragma once
// What the map category chooser and the arena file chooser share: the games in a drop-down list,
// the chosen game's files (one per name, with a fixed extension) in a list, and New, Edit,
// Rename, Delete and Close. Each chooser gives its own words and opens its own editor.

#include "maps/categories.h"

#include <QDialog>
#include <QString>
#include <filesystem>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace rd {

class GameFileChooser : public QDialog {
    Q_OBJECT
public:
    // The mark of a screen that found nothing to show and closes itself as soon as it is shown.
    static inline const QString kUnloadTag = QStringLiteral("UNLOAD");

    // The screen's tag: "UNLOAD" when there were no games, empty otherwise.
    QString tag() const { return tag_; }

    QLabel* lblGame = nullptr;
    QComboBox* cboGame = nullptr;
    QLabel* lblMapNames = nullptr;
    QListWidget* lstMapNames = nullptr;
    QPushButton* cmdNew = nullptr;
    QPushButton* cmdEdit = nullptr;
    QPushButton* cmdRename = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdClose = nullptr;

public slots:
    void cboGame_Click();
    void lstMapNames_DblClick();
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdRename_Click();
    void cmdDelete_Click();
    void cmdClose_Click();

protected:
    // The words of one chooser.
    struct Words {
        const char* formName;
        QString caption;
        QString gameLabel; // the drop-down's label
        QString listLabel; // the list's label
        QString newPrompt; // the input box of New
        QString newTitle;  // its title, also the title of New's refusals
        QString deleteQuestion;
    };

    GameFileChooser(std::filesystem::path root, Words words, QWidget* parent);
    // Lists the games and fills the list for the first one. Called by each chooser's constructor
    // once it is complete (the list and the files are the chooser's own).
    void Form_Load();

    // The chooser's files and editor.
    virtual std::vector<std::string> listNames(const std::string& game) const = 0;
    virtual NewFileOutcome createName(const std::string& game, const std::string& name) const = 0;
    virtual RenameOutcome renameName(const std::string& game, const std::string& oldName,
                                     const std::string& newName) const = 0;
    virtual void deleteName(const std::string& game, const std::string& name) const = 0;
    virtual std::filesystem::path pathOf(const std::string& game, const std::string& name) const = 0;
    // Opens the editor modally on one file of a game (new or existing).
    virtual void openEditor(const std::string& game, const std::string& name,
                            const std::filesystem::path& path) = 0;

    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    const std::filesystem::path& root() const { return root_; }

private:
    std::string chosenGame() const;
    // The selected name, or nothing selected (false).
    bool selectedName(std::string& name, int& row) const;
    void fillNames();

    std::filesystem::path root_;
    Words words_;
    QString tag_;
};

} // namespace rd
