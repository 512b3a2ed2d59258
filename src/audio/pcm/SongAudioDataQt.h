#pragma once

#include "SongAudioData.h"

#include <QAudioDecoder>

// Decodes through Qt's media back end. May be destroyed at any moment, also while its own
// decode() waits: nothing of the former decoding reaches anybody from then on.
class SongAudioDataQt : public SongAudioData
{
    Q_OBJECT

public:
    SongAudioDataQt();
    ~SongAudioDataQt() override;

    void decode(const QString &filename, const QAudioFormat &format) override;

Q_SIGNALS:
    // Once a decoding, when more than 20 buffers are there; never for a song that has no more.
    void decodingStarted();

public Q_SLOTS:
    void onError(QAudioDecoder::Error error);
    void onFinished();
    void onBufferReady();

private:
    void startDecoder(const QString &filename, const QAudioFormat &format);
    void waitForHead();
    void appendBuffer();
    void giveUpSilent();
    void endGrowing();
};
