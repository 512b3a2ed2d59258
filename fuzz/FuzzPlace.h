#pragma once

#include <QString>

// Where a target keeps its files.
namespace FuzzPlace {

// A directory of this run, with its slash: in memory where the machine offers that, as a run makes
// thousands of files a second and waits for the disk with many of them. The first call also moves
// the settings and the data of the program there, so that no user's own are read or changed; it
// comes before any other.
QString directory();

// The file in the directory has this content then; a target that can't write ends.
void write(const QString &path, const QByteArray &content);

} // namespace FuzzPlace
