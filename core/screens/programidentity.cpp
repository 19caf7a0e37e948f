#include "core/screens/programidentity.h"

#include <QApplication>
#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace rd {

void setProgramIdentity(QApplication* app) {
    const QString name = QString::fromLatin1(kDesktopFileName);
    // The icon installed for the desktop, or the same picture compiled into the program: drawn
    // from its SVG where Qt can draw SVG, else from the sizes drawn beforehand.
    QIcon builtIn(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"));
    if (builtIn.pixmap(32, 32).isNull()) {
        builtIn = QIcon();
        for (const int size : {16, 24, 32, 48, 64, 128, 256})
            builtIn.addFile(QStringLiteral(":/icons/windows/rosterdesk-%1.png").arg(size), QSize(size, size));
    }
    app->setWindowIcon(QIcon::fromTheme(name, builtIn));
    QGuiApplication::setDesktopFileName(name);
}

} // namespace rd
