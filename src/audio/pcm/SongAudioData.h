#pragma once

#include <QAudioBuffer>
#include <QList>
#include <QObject>
#include <QString>

#include <memory>

class QAudioDecoder;
class QAudioFormat;

// A song's whole decoded audio in memory, in the decoder's own buffers, growing while decoding
// runs. Lives on the GUI thread, as do all its readers; a reader asks for the count anew at each
// step. Buffers are shared by pointer: nobody copies the samples.
class SongAudioData : public QObject
{
    Q_OBJECT

public:
    SongAudioData();
    ~SongAudioData() override;

    // Starts decoding the file into 16-bit buffers of this format (the file's own rate and channel
    // count). Returns as soon as more than 20 buffers are there or 100 ms have passed; decoding
    // goes on in the background. Runs the event loop while it waits. A failure only shows as
    // buffers that stay away, and in the log.
    virtual void decode(const QString &filename, const QAudioFormat &format) = 0;

    int count() const { return static_cast<int>(buffers.size()); }
    // No bounds check.
    const std::shared_ptr<QAudioBuffer> &at(int index) const { return buffers.at(index); }
    // True while more buffers may come: decoding has begun and neither finished nor failed.
    bool isGrowing() const { return growing; }

Q_SIGNALS:
    // A buffer has been appended.
    void bufferAdded();
    // No more buffers will come; isGrowing() is false from here on.
    void decodingEnded();

protected:
    QList<std::shared_ptr<QAudioBuffer>> buffers;
    std::shared_ptr<QAudioDecoder> decoder;
    bool started = false;
    bool growing = false;
};
