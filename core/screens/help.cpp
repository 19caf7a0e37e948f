#include "core/screens/help.h"

#include "core/screens/controls.h"
#include "core/screens/prompts.h"
#include "core/screens/screensize.h"
#include "core/screens/userfont.h"
#include "core/workspace.h"

#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QImage>
#include <QKeyEvent>
#include <QPixmap>
#include <QPushButton>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

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

// The size a picture of the page has of its own (device-independent pixels), or an empty size.
QSize naturalSize(QTextBrowser* page, const QString& name) {
    QTextDocument* document = page->document();
    QVariant picture = document->resource(QTextDocument::ImageResource, QUrl(name));
    if (!picture.isValid())
        picture = page->loadResource(QTextDocument::ImageResource, document->baseUrl().resolved(QUrl(name)));
    if (picture.canConvert<QImage>()) {
        const QImage image = picture.value<QImage>();
        return (QSizeF(image.size()) / image.devicePixelRatio()).toSize();
    }
    if (picture.canConvert<QPixmap>()) {
        const QPixmap pixmap = picture.value<QPixmap>();
        return (QSizeF(pixmap.size()) / pixmap.devicePixelRatio()).toSize();
    }
    return QSize();
}

// Pictures wider than the window are shown scaled down to its width (keeping their proportions);
// the others at their own size.
void fitPicturesToWidth(QTextBrowser* page) {
    QTextDocument* document = page->document();
    const int room =
        page->viewport()->width() - 2 * static_cast<int>(std::ceil(document->documentMargin())) - 2;
    if (room <= 0)
        return;
    QTextCursor cursor(document);
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (!fragment.isValid() || !fragment.charFormat().isImageFormat())
                continue;
            QTextImageFormat picture = fragment.charFormat().toImageFormat();
            const QSize natural = naturalSize(page, picture.name());
            if (natural.isEmpty())
                continue;
            const double width = std::min(natural.width(), room);
            const double height = natural.height() * width / natural.width();
            if (picture.width() == width && picture.height() == height)
                continue;
            picture.setWidth(width);
            picture.setHeight(height);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(picture);
        }
    }
}

// Fits the page's pictures again whenever the window's width changes.
class PictureFitter : public QObject {
public:
    explicit PictureFitter(QTextBrowser* page) : QObject(page), page_(page), width_(-1) {}

    void fit() {
        width_ = page_->viewport()->width();
        fitPicturesToWidth(page_);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize && page_->viewport()->width() != width_)
            fit();
        return false;
    }

private:
    QTextBrowser* page_;
    int width_;
};

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
    auto* pictures = new PictureFitter(txtPage);
    txtPage->viewport()->installEventFilter(pictures);

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
    connect(txtPage, &QTextBrowser::sourceChanged, this, [this, pictures] {
        pictures->fit();
        const QString title = txtPage->documentTitle();
        setWindowTitle(title.isEmpty() ? QStringLiteral("RosterDesk Help")
                                       : QStringLiteral("RosterDesk Help - ") + title);
    });

    openAtTextSize(this, 120, 40);
    applyUserFont(this);
}

void frmHelp::showPage(const QString& page) {
    txtPage->setSource(QUrl(helpPageUrl(page)));
}

QString frmHelp::currentPage() const {
    return pageOfUrl(txtPage->source());
}

} // namespace rd
