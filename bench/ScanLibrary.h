#pragma once

#include <QString>
#include <QStringList>

// The libraries that the scan is measured with.
namespace ScanLibrary {

// A dance of some seconds of music in this directory (made when missing): a full tag with 3 events
// and 12 positions. Needs the song store chain.
QString makeSong(const QString &directory);
// A copy of the song with a choreography of a megabyte.
QString makeSongWithDocument(const QString &song, const QString &path);

// That many songs below the directory, a hundred in each folder, each a file with a title of its
// own (or a link to the same one, where none is written any more) that is an hour old.
QStringList copies(const QString &song, const QString &directory, int count);
QStringList links(const QString &song, const QString &directory, int count);

// What the settings tell from now on, with stores made anew. An empty cache means none.
void use(const QString &music, const QString &cache);

} // namespace ScanLibrary
