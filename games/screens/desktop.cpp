#include "games/screens/desktop.h"

#include "core/screens/qtext.h"
#include "core/workspace.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QUrl>

namespace rd {

namespace {

class RealDesktop : public Desktop {
public:
    QString chooseFileToOpen(QWidget* parent, const QString& title, const QString& fileName,
                             const QString& filter, const WinePrefix& wine) override {
        const QString chosen =
            QFileDialog::getOpenFileName(parent, title, platformPath(fileName, wine), qtFileFilter(filter));
        return chosen.isEmpty() ? QString() : QDir::toNativeSeparators(chosen);
    }

    bool startTextEditor(QWidget*, const QString& file, [[maybe_unused]] const WinePrefix& wine) override {
#ifdef Q_OS_WIN
        // "notepad.exe " followed directly by the text, not quoted.
        QProcess notepad;
        notepad.setProgram(QStringLiteral("notepad.exe"));
        notepad.setNativeArguments(file);
        return notepad.startDetached();
#else
        const QString path = platformPath(file, wine);
        if (path.isEmpty())
            return false;
        return QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()));
#endif
    }
};

RealDesktop& realDesktop() {
    static RealDesktop desktop;
    return desktop;
}

Desktop* installed = nullptr;

} // namespace

Desktop& Desktop::current() {
    return installed ? *installed : realDesktop();
}

void Desktop::install(Desktop* desktop) {
    installed = desktop;
}

QString qtFileFilter(const QString& launcherFilter) {
    const QStringList parts = launcherFilter.split(QChar(u'|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString& description = parts.at(i);
        QString pattern = parts.at(i + 1);
        pattern.replace(QChar(u';'), QChar(u' '));
        if (pattern.trimmed() == QStringLiteral("*.*"))
            pattern = QStringLiteral("*");
        if (description.endsWith(QStringLiteral("(") + parts.at(i + 1) + QStringLiteral(")")))
            filters << description;
        else
            filters << description + QStringLiteral(" (") + pattern + QStringLiteral(")");
    }
    return filters.join(QStringLiteral(";;"));
}

QString platformPath(const QString& dataPath, [[maybe_unused]] const WinePrefix& wine) {
#ifdef Q_OS_WIN
    return dataPath;
#else
    if (dataPath.isEmpty())
        return QString();
    return QString::fromStdU16String(pathFromData(toBytes(dataPath), wine).u16string());
#endif
}

} // namespace rd
