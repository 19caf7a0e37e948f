#pragma once
// Every screen of the program, opened one after the other on a workspace the way a user reaches
// it (the list screens with a row selected before their row editors open). The screenshots
// program takes a picture of each; the accessibility tests check each.

#include <QString>
#include <QStringList>
#include <filesystem>
#include <functional>

class QWidget;

namespace rd {

// The names of the screens forEachScreen opens, in its order.
QStringList allScreenNames();

// Opens every screen in turn on `root` (a workspace laid out like the demo one: a game Quake2
// with its options, flags, lists, categories and arena files, a bot Eraser with its wizard list)
// and hands it to `visit` while it is open; returns false as soon as `visit` does. The screens
// load their files as they do for a user; nothing is written.
bool forEachScreen(const std::filesystem::path& root, const std::function<bool(QWidget*)>& visit);

} // namespace rd
