#include "SongAudioDataQt.h"

#include <QCoreApplication>
#include <QMetaEnum>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>
#include <QUrl>
#include <QtDebug>

namespace {

constexpr int headBuffers = 20;
constexpr int headWaitMs = 100;
constexpr int silentMs = 2000;

// The last reference may go while the decoder stands inside one of its own signals.
void discard(QAudioDecoder *decoder)
{
    decoder->disconnect();
    decoder->stop();
    decoder->deleteLater();
}

} // namespace

SongAudioDataQt::SongAudioDataQt() = default;

SongAudioDataQt::~SongAudioDataQt() = default;

void SongAudioDataQt::decode(const QString &filename, const QAudioFormat &format)
{
    started = false;
    buffers.clear();
    startDecoder(filename, format);
    waitForHead();
}

void SongAudioDataQt::startDecoder(const QString &filename, const QAudioFormat &format)
{
    decoder = std::shared_ptr<QAudioDecoder>(new QAudioDecoder, &discard);
    growing = true;
    connect(decoder.get(), qOverload<QAudioDecoder::Error>(&QAudioDecoder::error), this,
            &SongAudioDataQt::onError);
    connect(decoder.get(), &QAudioDecoder::finished, this, &SongAudioDataQt::onFinished);
    connect(decoder.get(), &QAudioDecoder::bufferReady, this, &SongAudioDataQt::onBufferReady);
    // fromLocalFile keeps "#", "?" and "%" in the path, and the back end wants a scheme.
    decoder->setSource(QUrl::fromLocalFile(filename));
    decoder->setAudioFormat(format);
    decoder->start();
    QTimer::singleShot(silentMs, this, &SongAudioDataQt::giveUpSilent);
}

// The back end sometimes tells neither an end nor an error of a broken file.
void SongAudioDataQt::giveUpSilent()
{
    if (!growing || !buffers.isEmpty() || (decoder && decoder->isDecoding()))
        return;
    qDebug() << "The decoder has fallen silent.";
    endGrowing();
}

void SongAudioDataQt::waitForHead()
{
    const QPointer<SongAudioDataQt> alive(this);
    const QSignalSpy spy(this, &SongAudioDataQt::decodingStarted);
    QTimer timer;
    timer.setSingleShot(true);
    // A coarse one may be over five percent early.
    timer.setTimerType(Qt::PreciseTimer);
    timer.start(headWaitMs);
    while (alive && spy.isEmpty() && timer.remainingTime() >= 1)
        QCoreApplication::processEvents();
    if (alive && spy.isEmpty())
        qDebug() << "Cannot decode mp3 File. Probably this is Windows N and Windows Media Player "
                    "needs to be installed.";
}

void SongAudioDataQt::onBufferReady()
{
    if (decoder && decoder->bufferAvailable())
        appendBuffer();
}

void SongAudioDataQt::appendBuffer()
{
    const QPointer<SongAudioDataQt> alive(this);
    buffers.append(std::make_shared<QAudioBuffer>(decoder->read()));
    if (!started && buffers.size() > headBuffers) {
        started = true;
        Q_EMIT decodingStarted();
    }
    if (alive)
        Q_EMIT bufferAdded();
}

void SongAudioDataQt::onFinished()
{
    decoder.reset();
    endGrowing();
}

void SongAudioDataQt::onError(QAudioDecoder::Error error)
{
    const QMetaEnum names = QMetaEnum::fromType<QAudioDecoder::Error>();
    qDebug().noquote()
        << "Decoder Error:"
        << QStringLiteral("QAudioDecoder::%1").arg(QString::fromLatin1(names.valueToKey(error)));
    endGrowing();
}

void SongAudioDataQt::endGrowing()
{
    if (!growing)
        return;
    growing = false;
    Q_EMIT decodingEnded();
}
