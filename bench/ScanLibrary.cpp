#include "ScanLibrary.h"

#include "Bench.h"

#include <Library.h>
#include <Settings.h>
#include <Song.h>
#include <SongStore.h>

#include <QDir>

#include <filesystem>

using namespace Qt::StringLiterals;
using Bench::check;

namespace {

constexpr int songsPerDirectory = 100;
constexpr int eventsPerSong = 3;
constexpr int positionsPerSong = 12;
constexpr qsizetype documentSize = 1024 * 1024;

// Older than any cache file that is made of it.
void date(const QString &path)
{
    QFile file(path);
    check(file.open(QIODevice::ReadWrite)
              && file.setFileTime(QDateTime::currentDateTime().addSecs(-3600),
                                  QFileDevice::FileModificationTime),
          "No song can be dated.");
}

QString writeMusic(const QString &directory, Demo::Score score)
{
    score.path = u"song.mp3"_s;
    score.parts = score.parts.mid(0, 1);
    score.parts[0].chords = u"G"_s;
    if (const QString failure = Demo::writeLibrary(directory, {score}); !failure.isEmpty())
        qFatal("%s", qPrintable(failure));
    return QDir(directory).filePath(score.path);
}

void addPositions(Song &song, const QList<Demo::Part> &parts)
{
    song.getPositions().clear();
    for (int i = 0; i < positionsPerSong; ++i) {
        const Demo::Part &part = parts.at(i % parts.size());
        song.getPositions().insert(i, {i * 10000, part.name, part.steps});
    }
}

void addEvents(Song &song)
{
    song.getDanceEvents().clear();
    for (int i = 0; i < eventsPerSong; ++i)
        song.getDanceEvents().append(std::make_shared<DanceEvent>(
            u"Training"_s, u"Tuesday"_s, u"-2"_s, QDateTime::currentDateTime().addDays(-7 * i)));
}

template <class Put> QStringList fill(const QString &directory, int count, Put put)
{
    QStringList files;
    for (int i = 0; i < count; ++i) {
        const QString folder = u"%1/Folder %2"_s.arg(directory).arg(i / songsPerDirectory);
        QDir().mkpath(folder);
        files.append(u"%1/Song %2.mp3"_s.arg(folder).arg(i));
        put(files.constLast(), i);
    }
    return files;
}

// All of one length, and in no order.
QByteArray title(int number)
{
    return "Dance " + QByteArray::number(number * 7919LL % 100000).rightJustified(5, '0');
}

QByteArray read(const QString &path)
{
    QFile file(path);
    check(file.open(QIODevice::ReadOnly), "No song can be read.");
    return file.readAll();
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    check(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
          "No song can be written.");
}

} // namespace

QString ScanLibrary::makeSong(const QString &directory)
{
    const Demo::Score score = Demo::songs().constFirst();
    Song song(writeMusic(directory, score), false);
    song.setTitle(QString::fromLatin1(title(0)));
    addPositions(song, score.parts);
    addEvents(song);
    check(song.save(), "No song.");
    date(song.getFilename());
    return song.getFilename();
}

QString ScanLibrary::makeSongWithDocument(const QString &song, const QString &path)
{
    QFile::copy(song, path);
    Song copy(path, false);
    copy.getCuesheet().set("%PDF-1.4\n" + QByteArray(documentSize, 'x'));
    check(copy.save(), "No song with a choreography.");
    date(path);
    return path;
}

QStringList ScanLibrary::copies(const QString &song, const QString &directory, int count)
{
    QByteArray bytes = read(song);
    const qsizetype place = bytes.indexOf(title(0));
    check(place > 0, "The song has another title.");
    return fill(directory, count, [&](const QString &path, int number) {
        write(path, bytes.replace(place, title(number).size(), title(number)));
        date(path);
    });
}

QStringList ScanLibrary::links(const QString &song, const QString &directory, int count)
{
    return fill(directory, count, [&](const QString &path, int) {
        std::filesystem::create_hard_link(song.toStdU16String(), path.toStdU16String());
    });
}

void ScanLibrary::use(const QString &music, const QString &cache)
{
    Settings::instance()->setValue(u"musicDir"_s, music);
    Settings::instance()->setValue(u"cacheDir"_s, cache);
    Settings::instance()->sync();
    createSongStores();
}
