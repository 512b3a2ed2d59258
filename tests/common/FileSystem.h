#pragma once

#include <QFile>
#include <QFileInfo>

#include <cstdio>

#include <fcntl.h>

// What the file system of a directory can do: not every one knows modes, links, or fine times.
namespace FileSystem {

inline bool hasModes(const QString &directory)
{
    QFile file(directory + QStringLiteral("/mode-probe"));
    const bool done = file.open(QIODevice::WriteOnly) && file.setPermissions(QFile::ReadOwner)
                      && !(QFileInfo(file).permissions() & QFile::WriteOwner);
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    file.remove();
    return done;
}

inline bool hasLinks(const QString &directory)
{
    const QString name = directory + QStringLiteral("/link-probe");
    return QFile::link(QStringLiteral("nowhere"), name) && QFile::remove(name);
}

inline bool canExchange(const QString &directory)
{
    QFile one(directory + QStringLiteral("/exchange-probe"));
    QFile other(directory + QStringLiteral("/exchange-probe-2"));
    const bool areThere = one.open(QIODevice::WriteOnly) && other.open(QIODevice::WriteOnly);
    const bool done
        = areThere
          && renameat2(AT_FDCWD, QFile::encodeName(one.fileName()).constData(), AT_FDCWD,
                       QFile::encodeName(other.fileName()).constData(), RENAME_EXCHANGE)
                 == 0;
    one.remove();
    other.remove();
    return done;
}

// False too where a name is stored as another one.
inline bool takesName(const QString &directory, const QString &name)
{
    QFile file(directory + u'/' + name);
    if (file.exists())
        return true;
    return file.open(QIODevice::WriteOnly) && file.remove();
}

} // namespace FileSystem
