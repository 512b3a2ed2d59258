#include "FileTools.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

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
