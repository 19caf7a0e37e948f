#pragma once
// What the game editor asks of the desktop outside its own windows: a file chosen in the system's
// open-file dialog, and a text editor started on a batch file. The real implementation uses
// QFileDialog and starts the editor; tests install their own that answers from a script and keeps
// every call, as they do for message boxes.

#include "core/winepaths.h"

#include <QString>

class QWidget;

namespace rd {

class Desktop {
public:
    virtual ~Desktop() = default;

    // The open-file dialog with `title`, starting at `fileName` (a path as the launcher's files
    // hold it; a drive path resolves through the workspace's Wine prefix `wine`), offering `filter`
    // written as the launcher writes it: descriptions and patterns separated by '|'
    // ("Batch Files (*.bat)|*.bat|All Files|*.*"). Returns the chosen file as this system names
    // it, or an empty text when the user cancelled.
    virtual QString chooseFileToOpen(QWidget* parent, const QString& title, const QString& fileName,
                                     const QString& filter, const WinePrefix& wine) = 0;

    // Starts a text editor on `file` in a normal window with the focus and returns at once,
    // without waiting for it: "notepad.exe " followed by the text on Windows, the desktop's editor
    // for the file elsewhere (a drive path resolved through `wine`). The file is not checked
    // first. False when nothing could be started.
    virtual bool startTextEditor(QWidget* parent, const QString& file, const WinePrefix& wine) = 0;

    // The desktop in use (the real one unless a test installed its own).
    static Desktop& current();
    // Installs `desktop` (not owned); nullptr restores the real one.
    static void install(Desktop* desktop);
};

// The launcher's filter ("Description|pattern|Description|pattern") as a Qt file dialog filter
// ("Description (pattern);;..."). A description that already shows its pattern in parentheses
// is kept as it is; "*.*" offers every file, with or without an extension.
QString qtFileFilter(const QString& launcherFilter);

// A path from a data file as this platform names it: both '\' and '/' separate folders, and each
// name is found whatever its letter case where it exists; a drive path resolves through the
// workspace's Wine prefix `wine` (an empty text when the prefix does not map the drive). Windows
// takes the text as it is.
QString platformPath(const QString& dataPath, const WinePrefix& wine);

} // namespace rd
