#include "core/screens/programidentity.h"

#include <QApplication>
#include <QIcon>
#include <QString>

namespace rd {

void setProgramIdentity(QApplication* app) {
    const QString name = QString::fromLatin1(kDesktopFileName);
    // The icon installed for the desktop, or the same picture compiled into the program.
    app->setWindowIcon(
        QIcon::fromTheme(name, QIcon(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"))));
    QGuiApplication::setDesktopFileName(name);
}

} // namespace rd
