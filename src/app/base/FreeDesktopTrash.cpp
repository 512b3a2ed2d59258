#include "FreeDesktopTrash.h"

#include "FileTransfer.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QUrl>

#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Trash
{
    QString directory;
    // Paths in this trash are told relative to this one; empty: they are absolute.
    QString root;
};

const QLatin1String infoSuffix(".trashinfo");

// A link to one is none, unless it may be.
bool isOwnDirectory(const QString &path, bool mayBeLink)
{
    struct stat status
    { };
    const QByteArray name = QFile::encodeName(path);
    const int result
        = mayBeLink ? ::stat(name.constData(), &status) : ::lstat(name.constData(), &status);
    return result == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::getuid();
}

// The common trash counts only as its administrator has to make it: a real directory in which
// nobody can touch the files of others.
bool isCommonTrash(const QString &path)
{
    struct stat status
    { };
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode)
           && (status.st_mode & S_ISVTX) != 0;
}

// The home trash may lie elsewhere behind a link; on a volume others could have put one there.
bool prepare(const Trash &trash)
{
    for (const char *part : {"", "/files", "/info"}) {
        const QString path = trash.directory + QLatin1String(part);
        if (!QDir().mkpath(path) || !isOwnDirectory(path, trash.root.isEmpty()))
            return false;
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    return true;
}

QList<Trash> trashesFor(const QFileInfo &file)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QDir().mkpath(data);
    const Trash home{data + QStringLiteral("/Trash"), QString()};
    const QStorageInfo volume(file.absolutePath());
    if (!volume.isValid() || volume == QStorageInfo(data))
        return {home};

    QList<Trash> trashes;
    const QString root = volume.rootPath();
    const QDir top(root);
    const QString user = QString::number(::getuid());
    if (isCommonTrash(top.filePath(QStringLiteral(".Trash"))))
        trashes.append({top.filePath(QStringLiteral(".Trash/")) + user, root});
    trashes.append({top.filePath(QStringLiteral(".Trash-")) + user, root});
    trashes.append(home);
    return trashes;
}

// The file's name, cut and numbered so that the name of its information file fits as well.
QString nameInTrash(const QFileInfo &file, int attempt)
{
    constexpr qsizetype longestName = 255;
    const QString number = attempt == 0 ? QString() : u'-' + QString::number(attempt);
    const QString ending = file.suffix().isEmpty() ? number : number + u'.' + file.suffix();
    QString stem = file.suffix().isEmpty() ? file.fileName() : file.completeBaseName();
    while (QFile::encodeName(stem + ending + infoSuffix).size() > longestName && !stem.isEmpty())
        stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
    return stem + ending;
}

QByteArray information(const Trash &trash, const QFileInfo &file)
{
    const QString path = file.absoluteFilePath();
    // A directory on the way may be a link from elsewhere; the file itself stays the link it is.
    const QString place = QFileInfo(file.absolutePath()).canonicalFilePath();
    const QString told = trash.root.isEmpty()
                             ? path
                             : QDir(trash.root).relativeFilePath(place + u'/' + file.fileName());
    return "[Trash Info]\nPath=" + QUrl::toPercentEncoding(told, "/") + "\nDeletionDate="
           + QDateTime::currentDateTime().toString(Qt::ISODate).toLatin1() + '\n';
}

bool writeInformation(QFile &target, const QByteArray &content)
{
    return target.open(QIODevice::WriteOnly | QIODevice::NewOnly)
           && target.write(content) == content.size() && target.flush();
}

bool moveInto(const Trash &trash, const QFileInfo &file)
{
    constexpr int attempts = 10000;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const QString name = nameInTrash(file, attempt);
        const QString target = trash.directory + QStringLiteral("/files/") + name;
        QFile info(trash.directory + QStringLiteral("/info/") + name + infoSuffix);
        if (info.exists() || QFileInfo::exists(target))
            continue;
        if (writeInformation(info, information(trash, file))
            && FileTransfer::moveAsIs(file.absoluteFilePath(), target))
            return true;
        info.remove();
        return false;
    }
    return false;
}

} // namespace

bool FreeDesktopTrash::take(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists() || file.isDir())
        return false;
    for (const Trash &trash : trashesFor(file)) {
        if (prepare(trash) && moveInto(trash, file))
            return true;
    }
    return false;
}
