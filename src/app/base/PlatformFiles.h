#pragma once

#include <QDateTime>
#include <QFile>
#include <QString>

#include <memory>
#include <optional>

// What a safe write needs of the platform beside QFile: one source file a platform.
namespace Platform {

// What tells one file, and one state of it, from another.
struct FileState
{
    quint64 device = 0;
    quint64 number = 0;
    qint64 size = 0;
    // Time of the last change, in nanoseconds since the epoch.
    qint64 modified = 0;
    // Names under which the file is known.
    quint64 links = 0;
    // No directory, pipe or device.
    bool isRegular = true;

    bool isSameFile(const FileState &other) const
    {
        return device == other.device && number == other.number;
    }
    // The same file, and nobody has written to it.
    bool isUnchanged(const FileState &other) const
    {
        return isSameFile(other) && size == other.size && modified == other.modified;
    }
    // Whether it can be the same state, seen after the disk was mounted anew: numbers are others
    // then, and some file systems keep times in steps of two seconds.
    bool looksLike(const FileState &other) const
    {
        constexpr qint64 step = 2'000'000'000;
        return size == other.size && qAbs(modified - other.modified) <= step;
    }
};

// Empty when there is none or it can't be asked. Links are followed.
std::optional<FileState> fileState(const QString &path);
std::optional<FileState> fileState(const QFile &open);

// Whether there is surely no file of this name: false also where that can't be told.
bool isMissing(const QString &path);

// The path without any link in it. Empty when it can't be told.
QString canonicalPath(const QString &path);

// Gives a file that may be written the present time. Its owner or not, whoever may write may that.
bool touchFile(QFile &open);
// Gives it this time. False when that can't be told to the file system; whether it took it is for
// fileState() to tell.
bool setFileTime(QFile &open, const QDateTime &modified);

// Closes a file without waiting: to free the blocks of a removed one takes some 20 ms for a song,
// too long where music plays.
void closeApart(std::unique_ptr<QFile> open);

// Waits until the file's content, or the directory's entries, are on the disk. A file system that
// knows no such thing, or a directory that may not be read, counts as done.
bool syncFile(const QFile &open);
bool syncDirectory(const QString &path);

// Gives a file the owner, the permissions and the extended attributes of another one. False when
// not all of them could be given.
bool takeOverAttributes(const QFile &from, const QFile &to);

enum class Exchange {
    // Each has the other's name now.
    Swapped,
    // The platform can't swap: the old file is gone, newer has its name.
    Replaced,
    Failed
};
// Gives newer the name of older, in one step: at no moment is there no file of this name. Both
// must exist and lie in one directory.
Exchange exchangeFiles(const QString &newer, const QString &older);
// Whether that goes while somebody has one of them open.
bool canExchangeOpenFiles();

// Gives a file another name, in one step also where a file of that name exists: that one is gone.
bool renameOver(const QString &from, const QString &to);

enum class Renaming {
    Done,
    // Nothing has changed: only a copy could get there.
    OtherFileSystem,
    Failed
};
// Gives a file another name, in one step; fails where a file of that name exists.
Renaming renameNew(const QString &from, const QString &to);

// Keeps an open file to this process until it is closed. False when another process has it.
bool lockFile(const QFile &open);

} // namespace Platform
