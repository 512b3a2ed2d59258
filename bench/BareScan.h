#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// The least that a scan can be: the libraries alone, and nothing kept. Each answers a size, so that
// nothing of it is optimised away.
namespace BareScan {

// Every field and frame of every file, as text.
qsizetype readTags(const QStringList &files);

struct CacheFile
{
    QString path;
    QByteArray bytes;
};
QList<CacheFile> cacheFiles(const QString &directory);
// Each by a temporary file and a rename, into the directory, without waiting for the disk.
qsizetype write(const QList<CacheFile> &files, const QString &directory);
// Each field of each file, from the disk.
qsizetype read(const QList<CacheFile> &files);

} // namespace BareScan
