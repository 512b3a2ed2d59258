#include "FileTools.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

bool isDirectoryWritable(const QString &dir)
{
    const QByteArray content = QByteArrayLiteral("9182736450");
    QFile file(dir + QStringLiteral("/TarveloTestFile"));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(content);
    file.close();
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const bool same = file.readAll() == content;
    file.close();
    return file.remove() && same;
}

QString cleanFileName(const QString &name)
{
    static const QRegularExpression forbidden(QStringLiteral("[<>:\"/\\\\|?*]"));
    QString clean = name;
    clean.removeIf([](QChar character) { return character < QLatin1Char(' '); });
    return clean.remove(forbidden);
}

void removeCacheFiles(const QString &dir)
{
    static const QRegularExpression cacheName(QStringLiteral("[0-9a-f]{32}"),
                                              QRegularExpression::CaseInsensitiveOption);
    if (dir.isEmpty())
        return;
    const QDir directory(dir);
    for (const QString &name : directory.entryList(QDir::Files)) {
        if (cacheName.match(name).hasMatch())
            QFile::remove(directory.filePath(name));
    }
}
