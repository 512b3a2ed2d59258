#pragma once

#include <QAudioFormat>
#include <QString>

class Song;

// What the libraries take for the same work when nobody is between them and the samples.
namespace BareAudio {

// Stretches the decoded song in the decoder's own buffers with the player's settings; the answer is
// the number of frames that came out, and stretchMs the time for it.
qint64 stretch(const Song &song, double tempo, double &stretchMs);

// Decodes the file into buffers that nobody keeps; the answer is the number of their frames.
qint64 decode(const QString &file, const QAudioFormat &format);

} // namespace BareAudio
