#include "Song.h"

#include "SongFiles.h"
#include "TestMain.h"

#include <QDirIterator>
#include <QGuiApplication>
#include <QJsonDocument>

// Real files of others: what the record shows, and what a save leaves, is held against another
// tag reader.
class TestSongCorpus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void songsShowWhatAnotherReaderFinds();
    void savingKeepsEverythingElse();
    void brokenFilesBecomeSongs_data();
    void brokenFilesBecomeSongs();

private:
    QStringList musicFiles(const QStringList &suffixes) const;
};

namespace {

struct Exception
{
    const char *file;
    const char *reason;
};

// Left out of the comparisons.
constexpr Exception readDifferently[]
    = {{"synced_lyrics_no_terminator_latin1.mp3",
        "a text without its end is times and texts to one library, nothing to the other"}};
// Not saved: the file ends before its tag does.
constexpr Exception cutShort[]
    = {{"tinytag/UTF16.mp3", "ends inside a picture"},
       {"id3v22.TCO.genre.mp3", "ends inside a picture"},
       {"id3v24_genre_null_byte.mp3", "ends inside a picture"},
       {"lofty/aacfile_read_from__01 -  aalborg_IDX_9_RAND_168952727934877251846138.mp3",
        "the header alone"},
       {"compressed_id3_frame.mp3", "cut inside the padding"},
       {"id3_comment_utf_16_double_bom.mp3", "cut inside the padding"},
       {"utf16_no_bom.mp3", "cut inside the padding"}};

template <size_t count> bool isListed(const QString &file, const Exception (&exceptions)[count])
{
    return std::any_of(
        std::begin(exceptions), std::end(exceptions),
        [&](const Exception &exception) { return file.endsWith(QLatin1String(exception.file)); });
}

QJsonArray positionsOf(const Song &song)
{
    QJsonArray entries;
    for (int index = 0; index < song.getPositions().count(); ++index) {
        const Position &position = song.getPositions().at(index);
        entries.append(QJsonArray{position.getTime(), position.getPart(), position.getSteps()});
    }
    return entries;
}

QJsonObject shownBy(const Song &song)
{
    return {{u"artist"_qs, song.getArtist()},
            {u"album"_qs, song.getAlbum()},
            {u"comment"_qs, song.getComment()},
            {u"genre"_qs, song.getGenre()},
            {u"title"_qs, song.getTitle()},
            {u"tracknum"_qs, song.getTrackNum()},
            {u"year"_qs, song.getYear()},
            {u"bpm"_qs, song.getBpm()},
            {u"rating"_qs, song.getRating()},
            {u"positions"_qs, positionsOf(song)},
            {u"song_id"_qs, song.getSongId()},
            {u"tempo"_qs, song.getLastTempo()},
            {u"pitch"_qs, song.getLastPitch()},
            {u"volume"_qs, song.getLastVolume()},
            {u"level"_qs, song.getLevel()},
            {u"choreographer"_qs, song.getChoreographer()},
            {u"adapted_by"_qs, song.getAdaptedBy()},
            {u"cue_owner"_qs, song.getCueOwner()},
            {u"version"_qs, song.getVersionTag()},
            {u"iswc_id"_qs, song.getIswcId()}};
}

// One line for each field that differs.
QStringList differences(const QJsonObject &actual, const QJsonObject &expected)
{
    QStringList lines;
    for (const QString &key : expected.keys()) {
        if (actual.value(key) != expected.value(key))
            lines.append(key + u": "_qs
                         + QString::fromUtf8(
                             QJsonDocument(QJsonArray{actual.value(key), expected.value(key)})
                                 .toJson(QJsonDocument::Compact)));
    }
    return lines;
}

} // namespace

void TestSongCorpus::initTestCase()
{
    if (corpusDirectory().isEmpty())
        QSKIP("TARVELO_CORPUS is not set.");
    createSongStores();
}

void TestSongCorpus::cleanupTestCase()
{
    destroySongStores();
}

QStringList TestSongCorpus::musicFiles(const QStringList &suffixes) const
{
    QStringList files;
    for (const QString &room : {u"/tags"_qs, u"/music"_qs}) {
        QDirIterator entries(corpusDirectory() + room, suffixes, QDir::Files,
                             QDirIterator::Subdirectories);
        while (entries.hasNext())
            files.append(entries.next());
    }
    files.sort();
    return files;
}

void TestSongCorpus::songsShowWhatAnotherReaderFinds()
{
    const QStringList files = musicFiles({u"*.mp3"_qs});
    const QJsonArray expected = SongFiles::dump(files);
    QCOMPARE(expected.size(), files.size());
    int compared = 0;
    QStringList faults;
    for (int index = 0; index < files.size(); ++index) {
        const QJsonObject found = expected.at(index).toObject();
        if (found.contains(u"error"))
            qInfo() << "refused by the other reader:" << files.at(index)
                    << found.value(u"error").toString();
        if (found.contains(u"error") || isListed(files.at(index), readDifferently))
            continue;
        ++compared;
        const Song song(files.at(index), false);
        const QStringList lines = differences(shownBy(song), found.value(u"song").toObject());
        if (!lines.isEmpty())
            faults.append(files.at(index) + u'\n' + lines.join(u'\n'));
    }
    qInfo("%d of %d files compared", compared, int(files.size()));
    QVERIFY(compared > files.size() * 9 / 10);
    for (const QString &fault : faults)
        qWarning().noquote() << fault;
    QCOMPARE(faults.size(), 0);
}

namespace {

// Frames that a save writes itself, or that version 2.4 has not got any more. What the tag library
// changes besides: the flags of a frame that it doesn't understand (an encrypted one loses them),
// and a second ID3v2 tag right behind the first, which it overwrites.
bool isKept(const QJsonArray &frame)
{
    static const QStringList written{u"TBPM"_qs, u"POPM"_qs, u"SYLT"_qs, u"TIT2"_qs, u"TPE1"_qs,
                                     u"TALB"_qs, u"COMM"_qs, u"TCON"_qs, u"TRCK"_qs, u"TDRC"_qs,
                                     u"TYER"_qs, u"TDAT"_qs, u"TIME"_qs, u"TSIZ"_qs, u"TRDA"_qs,
                                     u"RVAD"_qs, u"EQUA"_qs, u"TORY"_qs, u"TDOR"_qs};
    static const QStringList ours{u"Version"_qs, u"LastTempo"_qs, u"LastPitch"_qs,
                                  u"LastVolume"_qs};
    const QString id = frame.at(0).toString();
    if (id == u"TXXX")
        return !ours.contains(frame.at(1).toObject().value(u"desc").toString());
    return !written.contains(id);
}

const QStringList generalTexts{u"artist"_qs, u"album"_qs, u"comment"_qs,
                               u"genre"_qs,  u"title"_qs, u"tracknum"_qs};

// An ID3v1 tag is written with the general fields, and not without any.
bool showsAnything(const QJsonObject &dump)
{
    const QJsonObject song = dump.value(u"song").toObject();
    return song.value(u"year").toString() != u"0"
           || std::any_of(
               std::begin(generalTexts), std::end(generalTexts),
               [&](const QString &key) { return !song.value(key).toString().isEmpty(); });
}

// Without the items that hold the general fields.
QJsonArray otherApeItems(const QJsonObject &dump)
{
    static const QStringList written{u"artist"_qs, u"album"_qs, u"comment"_qs, u"genre"_qs,
                                     u"title"_qs,  u"track"_qs, u"year"_qs};
    QJsonArray items;
    for (const QJsonValue &item : dump.value(u"ape").toArray()) {
        if (!written.contains(item.toArray().at(0).toString().toLower()))
            items.append(item);
    }
    return items;
}

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList keptFrames(const QJsonObject &dump)
{
    QStringList frames;
    for (const QJsonValue &frame : dump.value(u"frames").toArray()) {
        if (isKept(frame.toArray()))
            frames.append(
                QString::fromUtf8(QJsonDocument(frame.toArray()).toJson(QJsonDocument::Compact)));
    }
    frames.sort();
    return frames;
}

} // namespace

void TestSongCorpus::savingKeepsEverythingElse()
{
    QTemporaryDir directory;
    const QStringList originals = musicFiles({u"*.mp3"_qs});
    QStringList copies;
    for (const QString &file : originals) {
        const QDir place(directory.filePath(QString::number(copies.size())));
        QVERIFY(place.mkpath(u"."_qs));
        copies.append(SongFiles::copyOf(file, place));
    }
    const QJsonArray before = SongFiles::dump(copies);
    QStringList faults;
    for (int index = 0; index < copies.size(); ++index) {
        Song song(copies.at(index), false);
        const bool expected = !isListed(originals.at(index), cutShort);
        if (song.save() != expected)
            faults.append(copies.at(index) + (expected ? u": not saved"_qs : u": saved"_qs));
        if (!expected && content(copies.at(index)) != content(originals.at(index)))
            faults.append(copies.at(index) + u": changed"_qs);
    }
    const QJsonArray after = SongFiles::dump(copies);
    int compared = 0;
    for (int index = 0; index < copies.size(); ++index) {
        const QJsonObject old = before.at(index).toObject();
        const QJsonObject now = after.at(index).toObject();
        if (old.contains(u"error") || isListed(originals.at(index), readDifferently)
            || isListed(originals.at(index), cutShort))
            continue;
        ++compared;
        QStringList lines;
        if (old.value(u"audio") != now.value(u"audio"))
            lines.append(u"audio"_qs);
        if (keptFrames(old) != keptFrames(now))
            lines.append(keptFrames(old).join(u'\n') + u"\n->\n"_qs + keptFrames(now).join(u'\n'));
        const QJsonArray comments = SongFiles::frames(now, u"COMM"_qs);
        for (const QJsonValue &comment : SongFiles::frames(old, u"COMM"_qs)) {
            if (!comments.contains(comment))
                lines.append(u"a comment is lost"_qs);
        }
        if (otherApeItems(old) != otherApeItems(now))
            lines.append(u"APE items"_qs);
        if (now.value(u"id3v1").toBool() != showsAnything(old))
            lines.append(u"ID3v1 tag"_qs);
        QJsonObject shown = old.value(u"song").toObject();
        shown.insert(u"version"_qs, 2);
        lines.append(differences(now.value(u"song").toObject(), shown));
        if (!lines.isEmpty())
            faults.append(copies.at(index) + u'\n' + lines.join(u'\n'));
    }
    qInfo("%d of %d files compared", compared, int(copies.size()));
    QVERIFY(compared > copies.size() * 9 / 10);
    for (const QString &fault : faults)
        qWarning().noquote() << fault;
    QCOMPARE(faults.size(), 0);
}

void TestSongCorpus::brokenFilesBecomeSongs_data()
{
    QTest::addColumn<QString>("file");
    for (const QString &file : musicFiles({u"*"_qs}))
        QTest::newRow(qPrintable(file.mid(corpusDirectory().size() + 1))) << file;
}

// Each in a process of its own, with little memory and little time.
void TestSongCorpus::brokenFilesBecomeSongs()
{
    QFETCH(QString, file);
    QTemporaryDir directory;
    QString copy = SongFiles::copyOf(file, QDir(directory.path()));
    const QString suffix = QFileInfo(copy).suffix();
    if (suffix == u"id3" || suffix == u"mp2") {
        QVERIFY(QFile::rename(copy, copy + u".mp3"_qs));
        copy += u".mp3"_qs;
    }
    const QString audio = SongFiles::dump(copy).value(u"audio").toString();
    QProcess probe;
    probe.start(QStringLiteral(TARVELO_SONG_PROBE), {copy});
    QVERIFY(probe.waitForFinished(20000));
    QCOMPARE(probe.exitStatus(), QProcess::NormalExit);
    QVERIFY2(probe.exitCode() == 0, probe.readAllStandardError().constData());
    if (!audio.isEmpty())
        QCOMPARE(SongFiles::dump(copy).value(u"audio").toString(), audio);
}

TARVELO_TEST_MAIN(TestSongCorpus, QGuiApplication)
#include "tst_SongCorpus.moc"
