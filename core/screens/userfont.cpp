#include "core/screens/userfont.h"

#include "core/screens/qtext.h"

#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QWidget>

namespace rd {

namespace {
UserFont current;

bool skipped(const QWidget* w) {
    if (auto* bar = qobject_cast<const QScrollBar*>(w))
        return bar->orientation() == Qt::Horizontal;
    return qobject_cast<const QMenu*>(w) != nullptr || qobject_cast<const QMenuBar*>(w) != nullptr;
}
} // namespace

void setUserFont(const UserFont& font) {
    current = font;
}
const UserFont& userFont() {
    return current;
}

void applyUserFont(QWidget* screen) {
    if (!screen || (current.name.empty() && current.size == 0))
        return;
    const QString family = fromBytes(current.name);
    const auto controls = screen->findChildren<QWidget*>();
    // Skipped controls keep their own font even where a container around them gets the user font.
    for (QWidget* control : controls)
        if (skipped(control)) {
            QFont own = control->font();
            own.setPointSizeF(own.pointSizeF()); // marks size and family as the control's own
            own.setFamilies(own.families().isEmpty() ? QStringList{own.family()} : own.families());
            control->setFont(own);
        }
    for (QWidget* control : controls) {
        if (skipped(control))
            continue;
        QFont font = control->font();
        if (current.size > 0)
            font.setPointSize(current.size);
        if (!current.name.empty())
            font.setFamilies({family});
        control->setFont(font);
    }
}

} // namespace rd
