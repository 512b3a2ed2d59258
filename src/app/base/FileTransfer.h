#pragma once

#include <QString>

// Music files that get a second place or another one. Nothing here ever overwrites a file or
// leaves half of one: at the target there is nothing or the whole file, also when the process is
// killed or the disk is full. All answer false, with everything as it was, when that can't be done;
// the directory of the target has to be there.
namespace FileTransfer {

// The copy has the permissions of the file and the present time.
bool copy(const QString &from, const QString &to);

// The file keeps its time; to another file system it goes by way of a copy, and the old one is
// removed only when that is on the disk. A link stays a link, where it leads as before: one that
// would not becomes the file that it led to.
bool move(const QString &from, const QString &to);

// The same, but any link is taken as it is.
bool moveAsIs(const QString &from, const QString &to);

} // namespace FileTransfer
