#pragma once

#include "MainWindow.h"
#include "Settings.h"
#include "Tarvelo.h"

#include <QMessageBox>
#include <QObject>
#include <QTemporaryDir>

#include <memory>

// A window over a small library of its own, with an empty settings store and message boxes that
// are answered at once. What the tests of the window have in common.
class WindowFixture : public QObject
{
    Q_OBJECT

protected:
    struct Box
    {
        QString title;
        QString text;
    };

    void prepareSample();
    void prepareWindow();
    void dropWindow();
    // Message boxes get the answer that is set, dialogs are cancelled; until the window is dropped.
    void answerQuestions();

    // Brings the window up as main does.
    void start();
    // Settings of a later run, and three songs, of which the first two have twelve positions:
    // "Cotton Eyed Joe", "Rocky Top" (last tempo -7) and "Äpfel".
    void useLibrary();
    void key(int key, Qt::KeyboardModifiers modifiers = {});
    // Chooses the song with this title by keys.
    void select(const QString &title);
    // The menu entry with this text.
    QAction *action(const QString &text) const;
    template <typename Widget> Widget *find(const char *name) const
    {
        return window->findChild<Widget *>(QLatin1String(name));
    }

    std::unique_ptr<QTemporaryDir> music;
    QTemporaryDir samples;
    QList<Box> boxes; // shown so far
    QMessageBox::StandardButton answer = QMessageBox::Ok;
    std::unique_ptr<Tarvelo> tarvelo;
    std::unique_ptr<MainWindow> window;
};
