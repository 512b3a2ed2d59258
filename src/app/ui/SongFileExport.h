#pragma once

#include <QString>

class QWidget;

// The questions before a song is written as a WAV file at the tempo of the moment.
namespace SongFileExport {

// The file name to begin with, beside the song: "/music/Rocky Top (-22%).wav".
QString proposal(const QString &songFile, const QString &tempoText);

// Asks for the file to write. songFile is the song's path, empty without a song, of which the
// user is told; tempoText is what the tempo display shows. Empty when there is nothing to write. A
// music file that is there is never written over: the user is told.
QString chooseTarget(QWidget *parent, const QString &songFile, const QString &tempoText);

} // namespace SongFileExport
