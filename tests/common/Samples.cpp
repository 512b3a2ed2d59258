#include "Samples.h"

#include <QDataStream>
#include <QFile>
#include <QProcess>
#include <QtDebug>

namespace Samples {

namespace {

bool runFfmpeg(const QStringList &input, const QString &path)
{
    QProcess ffmpeg;
    ffmpeg.start(QStringLiteral("ffmpeg"),
                 QStringList{QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-y")}
                     + input
                     + QStringList{QStringLiteral("-map_metadata"), QStringLiteral("-1"),
                                   QStringLiteral("-id3v2_version"), QStringLiteral("0"),
                                   QStringLiteral("file:") + path});
    if (!ffmpeg.waitForFinished(60000) || ffmpeg.exitCode() != 0) {
        qWarning() << "ffmpeg:" << ffmpeg.errorString() << ffmpeg.readAllStandardError();
        return false;
    }
    return true;
}

// Length in bytes of the frame that begins here, for MPEG 1 layer 3 at 44100 Hz.
int mp3FrameLength(const QByteArray &mp3, int at)
{
    static constexpr int kilobits[]
        = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0};
    const auto bits = static_cast<quint8>(mp3.at(at + 2));
    return 144000 * kilobits[bits >> 4] / 44100 + ((bits >> 1) & 1);
}

} // namespace

bool writeTone(const QString &path, const Tone &tone)
{
    const QString source = QStringLiteral("sine=frequency=%1:duration=%2:sample_rate=%3")
                               .arg(tone.hertz)
                               .arg(tone.seconds)
                               .arg(tone.rate);
    return runFfmpeg({QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"), source,
                      QStringLiteral("-ac"), QString::number(tone.channels)},
                     path);
}

bool writeWave(const QString &path, const QList<qint16> &samples, int rate, int channels)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const auto bytes = static_cast<quint32>(samples.size() * 2);
    QDataStream out(&file);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << bytes + 36;
    out.writeRawData("WAVEfmt ", 8);
    out << quint32(16) << quint16(1) << quint16(channels) << quint32(rate)
        << quint32(rate * channels * 2) << quint16(channels * 2) << quint16(16);
    out.writeRawData("data", 4);
    out << bytes;
    for (const qint16 sample : samples)
        out << sample;
    return out.status() == QDataStream::Ok;
}

bool encode(const QString &from, const QString &to)
{
    return runFfmpeg({QStringLiteral("-i"), QStringLiteral("file:") + from}, to);
}

bool writeMp3Frames(const QString &from, const QString &to, int count)
{
    QFile source(from);
    QFile file(to);
    if (!source.open(QIODevice::ReadOnly) || !file.open(QIODevice::WriteOnly))
        return false;
    const QByteArray mp3 = source.read(100000);
    const int begin = mp3FrameLength(mp3, 0);
    int end = begin;
    while (count-- > 0)
        end += mp3FrameLength(mp3, end);
    return file.write(mp3.mid(begin, end - begin)) == end - begin;
}

} // namespace Samples
