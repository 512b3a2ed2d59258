#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

// The small files that tell the next start of the program what a save was about when it was cut
// off. They lie in the music directory, so that they stay with the songs that they are about, or
// where that can't be written in the program's own data directory.
namespace SaveNotes {

// Where a note about this file is to lie, the better place first.
QStringList directoriesFor(const QString &path);
// Every place in which notes can lie at present.
QStringList allDirectories();

// A new note, open for writing and reading and kept to this process; null when no place takes one.
// The suffix tells what kind of note it is.
std::unique_ptr<QFile> create(const QString &path, const QString &suffix);

// Removes a note that is open. Nobody finds it whole while it goes.
void remove(QFile &note);

// Hands every note whose writer lives no more to use, open for reading, and removes it when use
// answers true.
void forEach(const QString &directory, const std::function<bool(QFile &note)> &use);

// The file a note is about: told relative to the note's directory, as the whole may have moved,
// else as it was called then.
struct Name
{
    QString relative;
    QString absolute;
};
Name nameOf(const QString &path, const QFile &note);
QString pathOf(const Name &name, const QFile &note);

} // namespace SaveNotes
