#pragma once

#include <QString>
#include <QStringList>

class QDir;

// The names of the readable regular files in the directory that match its name filters, in the
// file system's order. A link to a pipe or a device is none.
QStringList filesIn(const QDir &directory);

struct EntriesIn
{
    QStringList files;
    QStringList directories;
};
// These files, and the names of the directories that can be entered. The directory is read once.
EntriesIn entriesIn(const QDir &directory);

// Also right for a name that begins with ":", which QDir takes for a path of its own.
QString pathIn(const QDir &directory, const QString &name);
