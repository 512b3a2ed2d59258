#pragma once

#include <QFile>

#include <vector>

// A WAV file of 16-bit PCM with the canonical header of 44 bytes. The sizes in it are right once
// the file is closed; sound beyond 4 GB is not provided for. What can't be written is told to
// nobody.
class WavFile : public QFile
{
    Q_OBJECT

public:
    // Channel count and frames a second.
    WavFile(int channels, int sampleRate);
    ~WavFile() override;

    using QFile::open;
    // Begins the file anew, as an empty one.
    bool open(const QString &name);
    // Samples of all channels, frame by frame.
    void append(const std::vector<qint16> &samples);
    void close() override;

private:
    QByteArray header() const;

    int channels;
    int sampleRate;
    quint32 dataSize = 0;
};
