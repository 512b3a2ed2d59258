#include "FilesIn.h"

#include <QDir>

EntriesIn entriesIn(const QDir &directory)
{
    EntriesIn entries;
    for (const QFileInfo &entry : directory.entryInfoList(
             QDir::Files | QDir::AllDirs | QDir::NoDot | QDir::NoDotDot, QDir::NoSort)) {
        if (entry.isDir() && entry.isExecutable())
            entries.directories.append(entry.fileName());
        // A link to a pipe or a device is listed too.
        if (entry.isFile() && entry.isReadable())
            entries.files.append(entry.fileName());
    }
    return entries;
}

QStringList filesIn(const QDir &directory)
{
    return entriesIn(directory).files;
}

QString pathIn(const QDir &directory, const QString &name)
{
    const QString path = directory.absolutePath();
    return path.endsWith(u'/') ? path + name : path + u'/' + name;
}
