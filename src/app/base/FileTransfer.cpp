#include "FileTransfer.h"

#include "PlatformFiles.h"

#include <QDateTime>
#include <QFileInfo>
#include <QTemporaryFile>

#include <filesystem>

namespace {

enum class Time { Present, OfSource };

QString directoryOf(const QString &path)
{
    return QFileInfo(path).absolutePath();
}

bool copyContent(QFile &from, QFile &to)
{
    constexpr qint64 blockSize = 256 * 1024;
    QByteArray block(blockSize, Qt::Uninitialized);
    qint64 count = 0;
    while ((count = from.read(block.data(), blockSize)) > 0) {
        if (to.write(block.constData(), count) != count)
            return false;
    }
    return count == 0 && from.error() == QFileDevice::NoError;
}

// Somebody who writes to the file meanwhile would have half of his work copied.
bool copyUnchanged(QFile &from, QFile &to)
{
    const auto before = Platform::fileState(from);
    if (!before || !copyContent(from, to))
        return false;
    const auto after = Platform::fileState(from);
    return after && after->isUnchanged(*before);
}

// A copy that fails to take the name of the target goes with its object.
bool copyWhole(const QString &from, const QString &to, Time time)
{
    constexpr qint64 nanoseconds = 1'000'000;
    QFile source(from);
    // Reading a pipe or a device would never end.
    if (!QFileInfo(from).isFile() || !source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    QTemporaryFile copy(directoryOf(to) + QStringLiteral("/.tarvelo-XXXXXX"));
    if (!copy.open() || !copyUnchanged(source, copy) || !copy.flush())
        return false;
    copy.setPermissions(source.permissions());
    const auto state = Platform::fileState(source);
    if (time == Time::OfSource && state)
        Platform::setFileTime(copy, QDateTime::fromMSecsSinceEpoch(state->modified / nanoseconds));
    if (!Platform::syncFile(copy) || !copy.rename(to))
        return false;
    copy.setAutoRemove(false);
    Platform::syncDirectory(directoryOf(to));
    return true;
}

// Killed between the copy and the removal there are two whole files.
bool moveByCopy(const QString &from, const QString &to)
{
    const auto before = Platform::fileState(from);
    if (!before || !copyWhole(from, to, Time::OfSource))
        return false;
    const auto after = Platform::fileState(from);
    if (after && after->isUnchanged(*before) && QFile::remove(from))
        return true;
    QFile::remove(to);
    return false;
}

bool leadsElsewhereFrom(const QString &from, const QString &to)
{
    std::error_code error;
    const std::filesystem::path link(QFile::encodeName(from).toStdString());
    const std::filesystem::path target = std::filesystem::read_symlink(link, error);
    return !error && target.is_relative()
           && QFileInfo(directoryOf(from)).canonicalFilePath()
                  != QFileInfo(directoryOf(to)).canonicalFilePath();
}

} // namespace

bool FileTransfer::copy(const QString &from, const QString &to)
{
    return copyWhole(from, to, Time::Present);
}

bool FileTransfer::move(const QString &from, const QString &to)
{
    return leadsElsewhereFrom(from, to) ? moveByCopy(from, to) : moveAsIs(from, to);
}

bool FileTransfer::moveAsIs(const QString &from, const QString &to)
{
    const Platform::Renaming renaming = Platform::renameNew(from, to);
    return renaming == Platform::Renaming::Done
           || (renaming == Platform::Renaming::OtherFileSystem && moveByCopy(from, to));
}
