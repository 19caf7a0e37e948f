#pragma once
// The list chooser: picks (or creates) a game's value list (*.val) or text list (*.lst) and
// writes its file name into the option editor's parameter field.

#include <QDialog>
#include <QPointer>
#include <filesystem>
#include <string>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace rd {

class frmChooseList : public QDialog {
    Q_OBJECT
public:
    // `gameName`: whose lists (Game-Paths itself when empty); `valueList`: value lists or text
    // lists; `target`: the field that receives the chosen file name (may be null).
    frmChooseList(std::filesystem::path root, std::string gameName, bool valueList, QLineEdit* target,
                  QWidget* owner = nullptr);

    // The folder the lists are read from.
    const std::filesystem::path& folder() const { return folder_; }

    QListWidget* File1 = nullptr;
    QPushButton* cmdNew = nullptr;
    QPushButton* cmdEdit = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void File1_DblClick();
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    void Form_Load();
    // Reads the folder again; `select` (a file name) is selected when it is listed.
    void refreshFiles(const QString& select);
    QString selectedFile() const;

    std::string gameName_;
    bool valueList_;
    QPointer<QLineEdit> target_;
    std::filesystem::path folder_;
};

} // namespace rd
