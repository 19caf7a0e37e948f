#pragma once
// How the desktop knows the program: its icon in every window's title bar, the task bar and the
// window switcher, and the desktop entry it belongs to.

class QApplication;

namespace rd {

// The name of the program's desktop entry (without ".desktop"); its icon has the same name.
inline constexpr const char* kDesktopFileName = "org.rosterdesk.RosterDesk";

// Gives every window of `app` the program's icon (drawn from the program's own SVG picture) and
// tells the desktop which desktop entry the program's windows belong to. Call once at start-up.
void setProgramIdentity(QApplication* app);

} // namespace rd
