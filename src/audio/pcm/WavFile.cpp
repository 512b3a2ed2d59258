#include "WavFile.h"

#include <QtEndian>

namespace {

constexpr quint32 sampleBytes = 2;

template <typename Number> QByteArray littleEndian(Number number)
{
    number = qToLittleEndian(number);
    return QByteArray(reinterpret_cast<const char *>(&number), sizeof(number));
}

} // namespace

WavFile::WavFile(int channelCount, int rate)
    : channels(channelCount)
    , sampleRate(rate)
{ }

WavFile::~WavFile()
{
    WavFile::close();
}

bool WavFile::open(const QString &name)
{
    dataSize = 0;
    setFileName(name);
    if (!open(QIODevice::WriteOnly))
        return false;
    write(header());
    return true;
}

void WavFile::append(const std::vector<qint16> &samples)
{
    if (samples.empty())
        return;
    QByteArray bytes(static_cast<qsizetype>(samples.size() * sampleBytes), Qt::Uninitialized);
    qToLittleEndian<qint16>(samples.data(), static_cast<qsizetype>(samples.size()), bytes.data());
    if (isOpen())
        dataSize += static_cast<quint32>(qMax(write(bytes), qint64(0)));
}

void WavFile::close()
{
    if (!isOpen())
        return;
    seek(0);
    write(header());
    QFile::close();
}

QByteArray WavFile::header() const
{
    constexpr quint32 headerBytesBehindSize = 36;
    constexpr quint32 formatBytes = 16;
    constexpr quint16 pcm = 1;
    const auto frameBytes = static_cast<quint16>(static_cast<quint32>(channels) * sampleBytes);
    const auto rate = static_cast<quint32>(sampleRate);
    return "RIFF" + littleEndian(dataSize + headerBytesBehindSize) + "WAVEfmt "
           + littleEndian(formatBytes) + littleEndian(pcm)
           + littleEndian(static_cast<quint16>(channels)) + littleEndian(rate)
           + littleEndian(rate * frameBytes) + littleEndian(frameBytes)
           + littleEndian(static_cast<quint16>(sampleBytes * 8)) + "data" + littleEndian(dataSize);
}
