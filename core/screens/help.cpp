#include "core/screens/help.h"

#include "core/screens/controls.h"
#include "core/screens/prompts.h"
#include "core/screens/userfont.h"
#include "core/workspace.h"

#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace rd {

namespace {

// F1 anywhere in the application: the page of the window the key was pressed in.
class HelpKeyFilter : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1)
            return false;
        auto* widget = qobject_cast<QWidget*>(watched);
        if (!widget)
            return false;
        QWidget* screen = widget->window();
        if (auto* help = qobject_cast<frmHelp*>(screen)) {
            // In the help window itself: how to use help.
            help->showPage(helpPageFor(help));
            return true;
        }
        showHelp(screen, helpPageFor(screen));
        return true;
    }
};

QString pageOfUrl(const QUrl& url) {
    return url.fileName();
}

} // namespace

QString helpPageUrl(const QString& page) {
    return QStringLiteral("qrc:/guide/") + page;
}

bool helpPageExists(const QString& page) {
    return !page.isEmpty() && QFile::exists(QStringLiteral(":/guide/") + page);
}

QString helpPageFor(const QWidget* screen) {
    if (!screen)
        return kHelpIndexPage;
    const QString page = screen->objectName() + QStringLiteral(".html");
    return helpPageExists(page) ? page : kHelpIndexPage;
}

frmHelp* showHelp(QWidget* owner, const QString& page) {
    auto* help = new frmHelp(owner);
    help->setAttribute(Qt::WA_DeleteOnClose);
    help->showPage(helpPageExists(page) ? page : kHelpIndexPage);
    help->show();
    help->raise();
    help->activateWindow();
    return help;
}

void installHelpKey(QApplication* app) {
    static HelpKeyFilter* filter = nullptr;
    if (filter)
        return;
    filter = new HelpKeyFilter(app);
    app->installEventFilter(filter);
}

frmHelp* HelpIndex(QWidget* owner, const std::filesystem::path& root) {
    if (!fileExists(resolvePath(root, "RosterDesk.hlp")))
        showMessage(owner, QStringLiteral("Can't find help file 'RosterDesk.hlp'"), PromptIcon::Exclamation);
    // The guide opens at its index whether or not the file was found.
    return showHelp(owner, kHelpIndexPage);
}

frmHelp::frmHelp(QWidget* owner) : QDialog(owner) {
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(QStringLiteral("RosterDesk Help"));
    setWindowFlags(Qt::Window | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    setWindowModality(Qt::NonModal);

    txtPage = new QTextBrowser(this);
    txtPage->setObjectName(QStringLiteral("txtPage"));
    txtPage->setAccessibleName(QStringLiteral("Help page"));
    txtPage->setOpenExternalLinks(true);
    txtPage->setSearchPaths({QStringLiteral(":/guide")});

    cmdBack = makeButton(this, "cmdBack", QStringLiteral("&Back"), false);
    cmdForward = makeButton(this, "cmdForward", QStringLiteral("&Forward"), false);
    cmdIndex = makeButton(this, "cmdIndex", QStringLiteral("&Index"));
    cmdClose = makeButton(this, "cmdClose", QStringLiteral("&Close"));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdBack);
    buttons->addWidget(cmdForward);
    buttons->addWidget(cmdIndex);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtPage, 1);
    layout->addLayout(buttons);

    connect(cmdBack, &QPushButton::clicked, txtPage, &QTextBrowser::backward);
    connect(cmdForward, &QPushButton::clicked, txtPage, &QTextBrowser::forward);
    connect(cmdIndex, &QPushButton::clicked, this, [this] { showPage(kHelpIndexPage); });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
    connect(txtPage, &QTextBrowser::backwardAvailable, cmdBack, &QPushButton::setEnabled);
    connect(txtPage, &QTextBrowser::forwardAvailable, cmdForward, &QPushButton::setEnabled);
    connect(txtPage, &QTextBrowser::sourceChanged, this, [this] {
        const QString title = txtPage->documentTitle();
        setWindowTitle(title.isEmpty() ? QStringLiteral("RosterDesk Help")
                                       : QStringLiteral("RosterDesk Help - ") + title);
    });

    resize(720, 560);
    applyUserFont(this);
}

void frmHelp::showPage(const QString& page) {
    txtPage->setSource(QUrl(helpPageUrl(page)));
}

QString frmHelp::currentPage() const {
    return pageOfUrl(txtPage->source());
}

} // namespace rd
