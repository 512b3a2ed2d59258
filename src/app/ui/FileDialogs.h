#pragma once

#include <QString>

#include <functional>

class QWidget;

// The file dialogs, behind one function a kind, so that a test can choose instead of a user.

// An existing directory, empty when the user left without one.
QString chooseDirectory(QWidget *parent, const QString &title, const QString &start);

using DirectoryChooser = std::function<QString(const QString &title, const QString &start)>;
// An empty function brings the real dialog back.
void setDirectoryChooser(const DirectoryChooser &chooser);
