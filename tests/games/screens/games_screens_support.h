#pragma once
// What the game screens' tests share: a desktop that answers the file chooser from a script and
// keeps every call, a way to show a screen as the active window (so focus moves as a user moves
// it), and typing into a box as a user does.

#include "games/screens/desktop.h"

#include <QApplication>
#include <QLineEdit>
#include <QString>
#include <QTest>
#include <QWidget>
#include <deque>
#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

namespace rd::test {

class DesktopRecorder : public Desktop {
public:
    struct FileChoice {
        QString title;
        QString fileName;
        QString filter;
        std::filesystem::path winePrefix; // the prefix the chooser was handed (empty: none)
    };

    DesktopRecorder() { Desktop::install(this); }
    ~DesktopRecorder() override { Desktop::install(nullptr); }

    // The next file the chooser answers with (an empty text: cancelled). Without a script the
    // chooser is cancelled.
    void answerFile(const QString& file) { files_.push_back(file); }
    // Whether starting the text editor works.
    bool editorStarts = true;

    std::vector<FileChoice> choices;
    std::vector<QString> editorFiles;

    QString chooseFileToOpen(QWidget*, const QString& title, const QString& fileName, const QString& filter,
                             const WinePrefix& wine) override {
        choices.push_back({title, fileName, filter, wine.folder});
        if (files_.empty())
            return QString();
        const QString file = files_.front();
        files_.pop_front();
        return file;
    }

    bool startTextEditor(QWidget*, const QString& file, const WinePrefix&) override {
        editorFiles.push_back(file);
        return editorStarts;
    }

private:
    std::deque<QString> files_;
};

// Shows `screen` and waits until it is the active window, so focus changes reach its controls.
inline bool showActive(QWidget* screen) {
    screen->show();
    screen->activateWindow();
    return QTest::qWaitForWindowActive(screen);
}

// Clicks into a text box (as a user does to move the focus there).
inline void clickInto(QWidget* box) {
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->width() / 2, box->height() / 2));
}

// Replaces a text box's text by typing: select everything, then type the new text.
inline void typeInto(QLineEdit* box, const QString& text) {
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        QTest::keyClick(box, Qt::Key_Delete);
    else
        QTest::keyClicks(box, text);
}

} // namespace rd::test
