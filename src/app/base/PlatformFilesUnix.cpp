#include "PlatformFiles.h"

#include <QByteArrayList>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

Platform::FileState stateOf(const struct stat &found)
{
    return {found.st_dev,   found.st_ino,
            found.st_size,  found.st_mtim.tv_sec * 1'000'000'000LL + found.st_mtim.tv_nsec,
            found.st_nlink, S_ISREG(found.st_mode)};
}

bool isDoneOrUnknown(int answer)
{
    return answer == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}

// Nothing where it can't be read.
std::optional<QByteArray> attribute(int file, const char *name)
{
    const ssize_t size = fgetxattr(file, name, nullptr, 0);
    if (size < 0)
        return std::nullopt;
    QByteArray value(size, '\0');
    if (fgetxattr(file, name, value.data(), static_cast<std::size_t>(size)) != size)
        return std::nullopt;
    return value;
}

std::optional<QByteArrayList> attributeNames(int file)
{
    const ssize_t size = flistxattr(file, nullptr, 0);
    if (size < 0 && errno != ENOTSUP && errno != ENOSYS)
        return std::nullopt;
    if (size <= 0)
        return QByteArrayList();
    QByteArray names(size, '\0');
    if (flistxattr(file, names.data(), static_cast<std::size_t>(size)) != size)
        return std::nullopt;
    QByteArrayList list = names.split('\0');
    list.removeAll(QByteArray());
    return list;
}

bool copyAttributes(int from, int to)
{
    const auto names = attributeNames(from);
    if (!names)
        return false;
    for (const QByteArray &name : *names) {
        const char *key = name.constData();
        const auto value = attribute(from, key);
        if (!value)
            return false;
        const auto size = static_cast<std::size_t>(value->size());
        if (attribute(to, key) != value && fsetxattr(to, key, value->constData(), size, 0) != 0)
            return false;
    }
    return true;
}

} // namespace

std::optional<Platform::FileState> Platform::fileState(const QString &path)
{
    struct stat found
    { };
    if (stat(QFile::encodeName(path).constData(), &found) != 0)
        return std::nullopt;
    return stateOf(found);
}

std::optional<Platform::FileState> Platform::fileState(const QFile &open)
{
    struct stat found
    { };
    if (fstat(open.handle(), &found) != 0)
        return std::nullopt;
    return stateOf(found);
}

bool Platform::isMissing(const QString &path)
{
    struct stat found
    { };
    return stat(QFile::encodeName(path).constData(), &found) != 0
           && (errno == ENOENT || errno == ENOTDIR);
}

// Qt gives the link's own name where a link can't be read.
QString Platform::canonicalPath(const QString &path)
{
    const std::unique_ptr<char, decltype(&std::free)> found(
        realpath(QFile::encodeName(path).constData(), nullptr), &std::free);
    if (!found)
        return QString();
    const QString name = QFile::decodeName(found.get());
    if (QFile::encodeName(name) == found.get())
        return name;
    // A directory behind a link has a name that is no text: the way through the link is kept.
    return QFileInfo(path).isSymLink() ? QString() : QFileInfo(path).absoluteFilePath();
}

bool Platform::touchFile(QFile &open)
{
    return futimens(open.handle(), nullptr) == 0;
}

// Both times: some file systems take none at all where one of the two is to stay.
bool Platform::setFileTime(QFile &open, const QDateTime &modified)
{
    constexpr qint64 second = 1000;
    const qint64 ms = modified.toMSecsSinceEpoch();
    const qint64 rest = (ms % second + second) % second;
    const timespec time{static_cast<time_t>((ms - rest) / second),
                        static_cast<long>(rest * 1'000'000)};
    const timespec times[] = {time, time};
    return futimens(open.handle(), times) == 0;
}

void Platform::closeApart(std::unique_ptr<QFile> open)
{
    if (!open)
        return;
    const int last = dup(open->handle());
    open->close();
    try {
        std::thread([last] { close(last); }).detach();
    } catch (const std::system_error &) {
        // Without a thread to be had it is closed here.
        close(last);
    }
}

bool Platform::syncFile(const QFile &open)
{
    return isDoneOrUnknown(fsync(open.handle()));
}

bool Platform::syncDirectory(const QString &path)
{
    const int directory = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY);
    if (directory < 0)
        return true;
    const bool done = isDoneOrUnknown(fsync(directory));
    close(directory);
    return done;
}

bool Platform::takeOverAttributes(const QFile &from, const QFile &to)
{
    struct stat older
    { };
    struct stat newer
    { };
    if (fstat(from.handle(), &older) != 0 || fstat(to.handle(), &newer) != 0)
        return false;
    const bool ownerDiffers = older.st_uid != newer.st_uid || older.st_gid != newer.st_gid;
    if (ownerDiffers && fchown(to.handle(), older.st_uid, older.st_gid) != 0)
        return false;
    // Who changes the owner loses some of the mode: the mode comes after it.
    constexpr mode_t allBits = 07777;
    if (fchmod(to.handle(), older.st_mode & allBits) != 0)
        return false;
    return copyAttributes(from.handle(), to.handle());
}

Platform::Exchange Platform::exchangeFiles(const QString &newer, const QString &older)
{
    const QByteArray from = QFile::encodeName(newer);
    const QByteArray to = QFile::encodeName(older);
#ifdef RENAME_EXCHANGE
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_EXCHANGE) == 0)
        return Exchange::Swapped;
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP)
        return Exchange::Failed;
#endif
    return renameOver(newer, older) ? Exchange::Replaced : Exchange::Failed;
}

bool Platform::canExchangeOpenFiles()
{
    return true;
}

bool Platform::renameOver(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

Platform::Renaming Platform::renameNew(const QString &from, const QString &to)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    int answer = -1;
    errno = ENOSYS;
#ifdef RENAME_NOREPLACE
    answer
        = renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE);
#endif
    // Some file systems can't promise it: a file that comes in this moment would be lost.
    if (answer != 0 && (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP)) {
        struct stat found
        { };
        if (lstat(target.constData(), &found) == 0)
            return Renaming::Failed;
        answer = std::rename(source.constData(), target.constData());
    }
    if (answer == 0)
        return Renaming::Done;
    return errno == EXDEV ? Renaming::OtherFileSystem : Renaming::Failed;
}

bool Platform::lockFile(const QFile &open)
{
    // Some file systems know no locks: nobody else has it then.
    return flock(open.handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}
