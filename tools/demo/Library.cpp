#include "Library.h"

#include "Band.h"

#include <Song.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSaveFile>
#include <QThreadPool>

using namespace Qt::StringLiterals;

namespace Demo {

namespace {

int partMs(const Score &score, int firstBeat)
{
    return qRound(score.beatMs(firstBeat));
}

QString encode(const Score &score, const QString &path)
{
    const std::vector<std::int16_t> samples = play(score);
    QProcess lame;
    lame.start(u"lame"_s, {u"--quiet"_s, u"-r"_s, u"-s"_s, QString::number(score.rate / 1000.0),
                           u"--signed"_s, u"--bitwidth"_s, u"16"_s, u"--little-endian"_s, u"-m"_s,
                           score.channels == 1 ? u"m"_s : u"j"_s, u"--cbr"_s, u"-b"_s, u"160"_s,
                           u"-q"_s, u"7"_s, u"-"_s, path});
    lame.write(reinterpret_cast<const char *>(samples.data()),
               static_cast<qint64>(samples.size()) * qint64(sizeof(std::int16_t)));
    lame.closeWriteChannel();
    if (!lame.waitForFinished(120000) || lame.exitCode() != 0)
        return u"lame could not write %1: %2 %3"_s.arg(
            path, lame.errorString(), QString::fromLocal8Bit(lame.readAllStandardError()));
    return {};
}

// The long work, on all processors.
QString encodeAll(const QDir &directory, const QList<Score> &scores)
{
    std::vector<QString> failures(static_cast<std::size_t>(scores.size()));
    QThreadPool pool;
    for (qsizetype i = 0; i < scores.size(); ++i) {
        const QString path = directory.filePath(scores.at(i).path);
        if (!directory.mkpath(QFileInfo(scores.at(i).path).path()))
            return u"There is no directory for %1."_s.arg(path);
        pool.start([&failure = failures[static_cast<std::size_t>(i)], &score = scores.at(i), path] {
            QFile::remove(path);
            failure = encode(score, path);
        });
    }
    pool.waitForDone();
    for (const QString &failure : failures)
        if (!failure.isEmpty())
            return failure;
    return {};
}

void describe(Song &song, const Score &score)
{
    song.setTitle(score.title);
    song.setArtist(score.artist);
    song.setAlbum(score.album);
    song.setGenre(score.genre);
    song.setComment(score.comment);
    song.setChoreographer(score.choreographer);
    song.setCueOwner(score.cueOwner);
    song.setLevel(score.level);
    song.setYear(QString::number(score.year));
    song.setTrackNum(QString::number(score.track));
    song.setBpm(QString::number(score.bpm));
    song.setRatingStars(score.stars);
    int beat = 0;
    for (const Part &part : score.parts) {
        SongPositions &positions = song.getPositions();
        positions.insert(positions.count(), {partMs(score, beat), part.name, part.steps});
        beat += part.beats();
    }
    for (const CountIn &countIn : score.countIns) {
        CountDownItem *item = song.getCountDowns().addNew();
        item->setIgnition(song.getPositions().at(countIn.part).getTime());
        item->setCountStart(countIn.from);
        item->setCountEnd(countIn.to);
        item->setComment(score.parts.at(countIn.part).name);
        item->setEnabled(true);
    }
}

QJsonObject facts(const Score &score)
{
    QJsonArray parts;
    int beat = 0;
    for (const Part &part : score.parts) {
        parts.append(QJsonObject{{u"ms"_s, partMs(score, beat)}, {u"part"_s, part.name}});
        beat += part.beats();
    }
    return {{u"file"_s, score.path},     {u"title"_s, score.title},
            {u"bpm"_s, score.bpm},       {u"firstBeatMs"_s, score.firstBeatMs},
            {u"beats"_s, score.beats()}, {u"parts"_s, parts}};
}

QString writeFacts(const QDir &directory, const QList<Score> &scores)
{
    QJsonArray songs;
    for (const Score &score : scores)
        songs.append(facts(score));
    QSaveFile file(directory.filePath(u"demo.json"_s));
    const QByteArray json = QJsonDocument(QJsonObject{{u"songs"_s, songs}}).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size() || !file.commit())
        return u"%1 could not be written: %2"_s.arg(file.fileName(), file.errorString());
    return {};
}

} // namespace

QString writeLibrary(const QString &directory, const QList<Score> &scores)
{
    const QDir root(directory);
    if (!root.mkpath(u"."_s))
        return u"The directory %1 could not be made."_s.arg(directory);
    if (const QString failure = encodeAll(root, scores); !failure.isEmpty())
        return failure;
    for (const Score &score : scores) {
        Song song(root.filePath(score.path), false);
        describe(song, score);
        if (!song.save())
            return u"The tag of %1 could not be written."_s.arg(song.getFilename());
    }
    return writeFacts(root, scores);
}

} // namespace Demo
