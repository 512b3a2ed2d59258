#include "BareScan.h"

#include <QDataStream>
#include <QDateTime>
#include <QDir>

#include <fileref.h>
#include <id3v2tag.h>
#include <mpegfile.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

qsizetype readTag(const QString &path)
{
    TagLib::FileRef file(QFile::encodeName(path).constData(), true,
                         TagLib::AudioProperties::Average);
    if (file.isNull())
        qFatal("A song without a tag.");
    const TagLib::Tag *tag = file.tag();
    qsizetype size = file.audioProperties()->lengthInSeconds();
    for (const TagLib::String &text :
         {tag->artist(), tag->album(), tag->comment(), tag->genre(), tag->title()})
        size += text.size();
    if (auto *mpeg = dynamic_cast<TagLib::MPEG::File *>(file.file()))
        for (const TagLib::ID3v2::Frame *frame : mpeg->ID3v2Tag()->frameList())
            size += frame->toString().size();
    return size;
}

qsizetype readTexts(QDataStream &in, int count)
{
    qsizetype size = 0;
    for (QString text; count > 0; --count) {
        in >> text;
        size += text.size();
    }
    return size;
}

qsizetype readNumbers(QDataStream &in, int count)
{
    qsizetype sum = 0;
    for (qint32 number = 0; count > 0; --count) {
        in >> number;
        sum += number;
    }
    return sum;
}

qsizetype readFields(QDataStream &in)
{
    qsizetype size = readNumbers(in, 2);
    for (const int texts : {7, 5})
        size += readTexts(in, texts) + readNumbers(in, 1);
    size += readNumbers(in, 2) + readTexts(in, 6);
    quint32 positions = 0;
    in >> positions;
    for (; positions > 0; --positions)
        size += readTexts(in, 2) + readNumbers(in, 1);
    QByteArray document;
    in >> document;
    size += document.size() + readTexts(in, 3);
    if (in.status() != QDataStream::Ok || !in.atEnd())
        qFatal("The cache file has other fields.");
    return size;
}

} // namespace

qsizetype BareScan::readTags(const QStringList &files)
{
    qsizetype size = 0;
    for (const QString &path : files)
        size += readTag(path);
    return size;
}

QList<BareScan::CacheFile> BareScan::cacheFiles(const QString &directory)
{
    QList<CacheFile> files;
    for (const QFileInfo &info : QDir(directory).entryInfoList(QDir::Files)) {
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly))
            qFatal("A cache file can't be read.");
        files.append({info.filePath(), file.readAll()});
    }
    return files;
}

qsizetype BareScan::write(const QList<CacheFile> &files, const QString &directory)
{
    qsizetype size = 0;
    for (const CacheFile &cacheFile : files) {
        const QString path = directory + cacheFile.path.mid(cacheFile.path.lastIndexOf(u'/'));
        QFile file(path + u".new"_s);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            qFatal("A cache file can't be written.");
        size += file.write(cacheFile.bytes);
        file.close();
        std::rename(QFile::encodeName(file.fileName()).constData(),
                    QFile::encodeName(path).constData());
    }
    return size;
}

qsizetype BareScan::read(const QList<CacheFile> &files)
{
    qsizetype size = 0;
    for (const CacheFile &cacheFile : files) {
        const QFileInfo info(cacheFile.path);
        if (!info.lastModified().isValid())
            qFatal("A cache file is gone.");
        QFile file(cacheFile.path);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("A cache file can't be read.");
        QDataStream in(&file);
        size += readFields(in);
    }
    return size;
}
