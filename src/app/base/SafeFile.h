#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

// Files that are written whole or not at all.
namespace SafeFile {

enum class Durability {
    // On the disk when the call answers.
    Synced,
    // After a power cut there may be an older file, or an empty one: for what can be made again.
    Unsynced
};

// Gives the file this content, making it where there is none; a symbolic link stays and what it
// leads to is written. Of a file that was there, owner, permissions and extended attributes stay.
// False, with the file as it was, when that failed. Synced works where only the file can be
// written and not its directory; Unsynced needs both, and its temporary file is called as the file
// is, with ".new" behind.
bool replace(const QString &path, const QByteArray &content, Durability durability);

// As Unsynced, and the file never shows another modification time than this one.
bool replaceDated(const QString &path, const QByteArray &content, const QDateTime &modified);

// Finishes, or clears away, what was cut off when a process that changed files was killed: in the
// music directory and in the program's own data directory. At every start, before songs are read.
void recover();
// In this directory alone.
void recoverIn(const QString &directory);

} // namespace SafeFile
