#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

// The file dialogs, behind one function a kind, so that a test can choose instead of a user. All
// of them answer with an empty text when the user left without a choice.

// An existing directory.
QString chooseDirectory(QWidget *parent, const QString &title, const QString &start);
// A file to be written. proposal is a whole path, filter as in "Audio (*.wav *.mp3)". The user was
// asked already when there is such a file.
QString chooseSaveFile(QWidget *parent, const QString &title, const QString &proposal,
                       const QString &filter);
// An existing file; start is a directory or a whole path.
QString chooseOpenFile(QWidget *parent, const QString &title, const QString &start,
                       const QString &filter);

// Several existing files; start is a directory. Empty when the user left without a choice.
QStringList chooseOpenFiles(QWidget *parent, const QString &title, const QString &start,
                            const QString &filter);

using DirectoryChooser = std::function<QString(const QString &title, const QString &start)>;
using FileChooser
    = std::function<QString(const QString &title, const QString &start, const QString &filter)>;
using FilesChooser
    = std::function<QStringList(const QString &title, const QString &start, const QString &filter)>;
// An empty function brings the real dialog back.
void setDirectoryChooser(const DirectoryChooser &chooser);
void setSaveFileChooser(const FileChooser &chooser);
void setOpenFileChooser(const FileChooser &chooser);
void setOpenFilesChooser(const FilesChooser &chooser);
