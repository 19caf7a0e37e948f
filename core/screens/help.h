#pragma once
// Help: the program's own user guide (HTML pages compiled in as a Qt resource) in a help window.
//
// Every screen has a page named after the screen (its objectName + ".html", for example
// "frmEditGame.html"); F1 anywhere opens the page of the window it is pressed in, or the index
// when that screen has no page. The key is installed once for the whole application.

#include <QDialog>
#include <QString>
#include <filesystem>

class QApplication;
class QPushButton;
class QTextBrowser;

namespace rd {

// The guide's front page.
inline const QString kHelpIndexPage = QStringLiteral("index.html");

// The resource address of a guide page, for example "qrc:/guide/index.html".
QString helpPageUrl(const QString& page);
// Whether the guide holds that page.
bool helpPageExists(const QString& page);
// The page F1 opens on `screen`: its objectName + ".html" when the guide has it, else the index.
QString helpPageFor(const QWidget* screen);

// Opens a help window at `page` over `owner` (owned by it, so it stays usable while `owner` is a
// modal dialog). Returns the window, which deletes itself when closed.
class frmHelp;
frmHelp* showHelp(QWidget* owner, const QString& page = kHelpIndexPage);

// F1 in any window of `app` opens the page of that window. Call once at start-up.
void installHelpKey(QApplication* app);

// The main window's Help Index: warns when the workspace has no RosterDesk.hlp ("Can't find
// help file 'RosterDesk.hlp'"), then in either case opens the guide at its index.
frmHelp* HelpIndex(QWidget* owner, const std::filesystem::path& root);

class frmHelp : public QDialog {
    Q_OBJECT
public:
    explicit frmHelp(QWidget* owner = nullptr);

    void showPage(const QString& page);
    // The page shown, as its file name ("index.html").
    QString currentPage() const;

    QTextBrowser* txtPage = nullptr;
    QPushButton* cmdBack = nullptr;
    QPushButton* cmdForward = nullptr;
    QPushButton* cmdIndex = nullptr;
    QPushButton* cmdClose = nullptr;
};

} // namespace rd
