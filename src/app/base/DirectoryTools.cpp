#include "DirectoryTools.h"

#include "FileTools.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("DirectoryTools", text);
}

QString invalidDirectory(const QString &path)
{
    return translated(QT_TRANSLATE_NOOP("DirectoryTools", "Fehler: Ungültiges Verzeichnis '%1'!"))
        .arg(fileNameAsHtml(path));
}

// Canonical paths of the directories in which a walk stands, from its beginning down.
using Way = QStringList;

// QDir::filePath() takes a name that begins with a colon for a whole path.
QString pathIn(const QDir &dir, const QString &name)
{
    return dir.path() + u'/' + name;
}

QStringList subdirectories(const QDir &dir)
{
    return dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

QString copyBelow(const QDir &from, const QDir &to, Way way,
                  const std::function<void()> &fileCopied);

QString copySubdirectories(const QDir &from, const QDir &to, const Way &way,
                           const std::function<void()> &fileCopied)
{
    for (const QString &name : subdirectories(from)) {
        const QString error
            = copyBelow(QDir(pathIn(from, name)), QDir(pathIn(to, name)), way, fileCopied);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

QString copyFiles(const QDir &from, const QDir &to, const std::function<void()> &fileCopied)
{
    for (const QString &name : from.entryList(QDir::Files)) {
        const QString source = pathIn(from, name);
        if (!QFile::copy(source, pathIn(to, name)))
            return translated(QT_TRANSLATE_NOOP("DirectoryTools",
                                                "Fehler beim kopieren von Datei<br>'%1'!"))
                .arg(fileNameAsHtml(source));
        if (fileCopied)
            fileCopied();
    }
    return {};
}

QString copyBelow(const QDir &from, const QDir &to, Way way,
                  const std::function<void()> &fileCopied)
{
    const QString place = from.canonicalPath();
    if (place.isEmpty())
        return invalidDirectory(from.path());
    if (way.contains(place))
        return {};
    way.append(place);
    to.mkpath(QStringLiteral("."));
    const QString error = copySubdirectories(from, to, way, fileCopied);
    return error.isEmpty() ? copyFiles(from, to, fileCopied) : error;
}

int countBelow(const QDir &dir, Way way)
{
    const QString place = dir.canonicalPath();
    if (place.isEmpty())
        return -1;
    if (way.contains(place))
        return 0;
    way.append(place);
    int count = static_cast<int>(dir.entryList(QDir::Files).size());
    for (const QString &name : subdirectories(dir)) {
        const int below = countBelow(QDir(pathIn(dir, name)), way);
        if (below < 0)
            return -1;
        count += below;
    }
    return count;
}

} // namespace

QString copyDirectory(const QString &from, const QString &to,
                      const std::function<void()> &fileCopied)
{
    if (from.isEmpty() || !QFileInfo(from).isDir())
        return invalidDirectory(from);
    const QDir target(to);
    target.mkpath(QStringLiteral("."));
    // What is being written isn't copied once more where it lies below from.
    return copyBelow(QDir(from), target, {target.canonicalPath()}, fileCopied);
}

int countFiles(const QString &dir)
{
    return dir.isEmpty() ? -1 : countBelow(QDir(dir), {});
}
