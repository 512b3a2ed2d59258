#pragma once

#include <QFile>
#include <QFileInfo>

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

// False too where a name is stored as another one.
inline bool takesName(const QString &directory, const QString &name)
{
    QFile file(directory + u'/' + name);
    if (file.exists())
        return true;
    return file.open(QIODevice::WriteOnly) && file.remove();
}

} // namespace FileSystem
