#include "Waiting.h"

#include <SongAudioData.h>

#include <QEventLoop>
#include <QTimer>

void Waiting::milliseconds(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

void Waiting::forDecoder(const SongAudioData &audio)
{
    if (!audio.isGrowing())
        return;
    QEventLoop loop;
    QObject::connect(&audio, &SongAudioData::decodingEnded, &loop, &QEventLoop::quit);
    loop.exec();
}
