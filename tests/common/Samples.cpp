#include "Samples.h"

#include <QProcess>
#include <QtDebug>

namespace Samples {

bool writeTone(const QString &path, const Tone &tone)
{
    const QString source = QStringLiteral("sine=frequency=%1:duration=%2:sample_rate=%3")
                               .arg(tone.hertz)
                               .arg(tone.seconds)
                               .arg(tone.rate);
    QProcess ffmpeg;
    ffmpeg.start(QStringLiteral("ffmpeg"),
                 {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-y"),
                  QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"), source,
                  QStringLiteral("-ac"), QString::number(tone.channels),
                  QStringLiteral("-map_metadata"), QStringLiteral("-1"),
                  QStringLiteral("-id3v2_version"), QStringLiteral("0"),
                  QStringLiteral("file:") + path});
    if (!ffmpeg.waitForFinished(60000) || ffmpeg.exitCode() != 0) {
        qWarning() << "ffmpeg:" << ffmpeg.errorString() << ffmpeg.readAllStandardError();
        return false;
    }
    return true;
}

} // namespace Samples
