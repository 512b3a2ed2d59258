#include "FileTools.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextBoundaryFinder>

namespace {

QStringList graphemesOf(const QString &text)
{
    QStringList graphemes;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype start = 0, end = finder.toNextBoundary(); end > start;
         start = end, end = finder.toNextBoundary())
        graphemes.append(text.mid(start, end - start));
    return graphemes;
}

// Whether a line may break behind this grapheme anyway.
bool mayBreakBehind(const QString &grapheme)
{
    return grapheme == u" " || grapheme == u"/" || grapheme == u"-";
}

// A stretch of a text without a place to break, with places if it is long.
QString breakable(const QStringList &stretch)
{
    constexpr qsizetype longest = 24;
    const QChar zeroWidthSpace(0x200b);
    return stretch.join(stretch.size() > longest ? QString(zeroWidthSpace) : QString());
}

} // namespace

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

QString fileNameAsHtml(const QString &name)
{
    QString text;
    QStringList stretch;
    for (const QString &grapheme : graphemesOf(name)) {
        if (mayBreakBehind(grapheme)) {
            text += breakable(stretch) + grapheme;
            stretch.clear();
        } else {
            stretch.append(grapheme);
        }
    }
    return (text + breakable(stretch)).toHtmlEscaped();
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
