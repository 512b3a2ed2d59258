#include "FileSystem.h"
#include "Song.h"

#include "SongAudioData.h"
#include "SongFiles.h"
#include "TestMain.h"

#include <QGuiApplication>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QStorageInfo>

#include <unistd.h>

class TestSong : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aSongOfNoFileHasDefaults();
    void propertiesComeInTheirOrder();
    void propertiesAreReadOnlyWhereTheyHaveToBe();
    void propertiesReachTheMembers();
    void bpmIsAnInteger_data();
    void bpmIsAnInteger();
    void numbersTakeCommaOrPoint();
    void numbersAreShort();
    void anEmptyVersionChangesNothing();
    void ratingShowsStars_data();
    void ratingShowsStars();
    void starsBecomeARating_data();
    void starsBecomeARating();
    void exportNamesAreFileNames_data();
    void exportNamesAreFileNames();
    void exportNamesDontCutACharacterInTwo();

    void writeProtectionGoesAndComes();
    void writeProtectionOfNothingFails();
    void aRemovedFileLiesInTheTrash();

    void aMissingFileIsNotDecoded();
    void aSongIsDecodedInItsOwnFormat();
    void releasedAudioIsGone();
    void withoutAudioThereIsNoBpm();
    void bpmIsFoundInTheSecondQuarter();

private:
    QDir files() const { return QDir(directory->path()); }

    std::unique_ptr<QTemporaryDir> directory;
};

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void TestSong::init()
{
    directory = std::make_unique<QTemporaryDir>();
    createSongStores();
}

void TestSong::cleanup()
{
    destroySongStores();
}

void TestSong::aSongOfNoFileHasDefaults()
{
    const QString path = files().filePath(u"nothing.mp3"_qs);
    const Song song(path, true);
    QCOMPARE(song.getFilename(), path);
    QVERIFY(song.isMissingFile());
    QVERIFY(song.isReadonly());
    QVERIFY(!song.getModified().isValid());
    QVERIFY(!song.isCached());
    QVERIFY(!song.isSelected());
    QVERIFY(song.getCover().isNull());
    QVERIFY(!song.hasPositions());
    QVERIFY(!song.hasChoreography());
    QCOMPARE(song.getRating(), -1);
    QCOMPARE(song.getLastTempo(), u"0.0"_qs);
    QCOMPARE(song.getLastPitch(), u"0.0"_qs);
    QCOMPARE(song.getLastVolume(), u"1.0"_qs);
    for (const char *empty : {"bpm", "title", "year", "tracknum", "tags", "song_id", "level"})
        QCOMPARE(song.property(empty).toString(), QString());
    for (const char *zero : {"bpmauto", "playlength", "version_tarvelo", "version_choreo"})
        QCOMPARE(song.property(zero).toInt(), 0);
}

void TestSong::propertiesComeInTheirOrder()
{
    const QString names = QStringLiteral(
        "filename song_id iswc_id artist album title bpm bpmauto year level modified playlength "
        "comment tags genre rating_stars choreographer adapted_by cue_owner cover tracknum "
        "volume pitch tempo cuesheet version_choreo version_pos readonly version_tarvelo "
        "missingFileFlag cached positionsYN choreoYN selected");
    QStringList found;
    const QMetaObject &meta = Song::staticMetaObject;
    for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index)
        found.append(QString::fromLatin1(meta.property(index).name()));
    QCOMPARE(found.join(u' '), names);
}

void TestSong::propertiesAreReadOnlyWhereTheyHaveToBe()
{
    const QStringList readOnly = QStringLiteral("filename bpmauto modified playlength cover "
                                                "cuesheet readonly version_tarvelo cached "
                                                "positionsYN choreoYN")
                                     .split(u' ');
    const QMetaObject &meta = Song::staticMetaObject;
    for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index) {
        const QMetaProperty property = meta.property(index);
        const bool expected = !readOnly.contains(QString::fromLatin1(property.name()));
        QVERIFY2(property.isWritable() == expected, property.name());
    }
}

void TestSong::propertiesReachTheMembers()
{
    Song song(QString(), true);
    QVERIFY(song.setProperty("tempo", 5.5));
    QCOMPARE(song.getLastTempo(), u"5.5"_qs);
    QCOMPARE(song.property("tempo").toDouble(), 5.5);
    QVERIFY(song.setProperty("rating_stars", 4));
    QCOMPARE(song.getRating(), 194);
    QVERIFY(song.setProperty("bpm", u"120,7"_qs));
    QCOMPARE(song.getBpm(), u"120"_qs);
    for (const char *text :
         {"title", "artist", "album", "comment", "genre", "year", "tracknum", "tags", "song_id",
          "iswc_id", "level", "choreographer", "adapted_by", "cue_owner"}) {
        QVERIFY2(song.setProperty(text, QString::fromLatin1(text)), text);
        QCOMPARE(song.property(text).toString(), QString::fromLatin1(text));
    }
    QVERIFY(!song.property("positionsYN").toBool());
    song.getPositions().insert(0, Position(1, QString(), QString()));
    QVERIFY(song.property("positionsYN").toBool());
    song.getCuesheet().set("%PDF");
    QVERIFY(song.property("choreoYN").toBool());
    QCOMPARE(song.property("cuesheet").toByteArray(), QByteArray("%PDF"));
}

void TestSong::bpmIsAnInteger_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("bpm");

    QTest::newRow("integer") << u"120"_qs << u"120"_qs;
    QTest::newRow("comma") << u"120,7"_qs << u"120"_qs;
    QTest::newRow("point") << u"119.99"_qs << u"119"_qs;
    QTest::newRow("zero") << u"0"_qs << u"0"_qs;
    QTest::newRow("empty") << QString() << u"0"_qs;
    QTest::newRow("word") << u"fast"_qs << u"0"_qs;
    QTest::newRow("negative") << u"-5.7"_qs << u"-5"_qs;
    QTest::newRow("two commas") << u"1,2,3"_qs << u"0"_qs;
    QTest::newRow("not a number") << u"nan"_qs << u"0"_qs;
    QTest::newRow("infinite") << u"inf"_qs << u"0"_qs;
    QTest::newRow("far too large") << u"1e30"_qs << u"0"_qs;
}

void TestSong::bpmIsAnInteger()
{
    QFETCH(QString, text);
    Song song(QString(), true);
    song.setBpm(u"99"_qs);
    song.setBpm(text);
    QTEST(song.getBpm(), "bpm");
}

void TestSong::numbersTakeCommaOrPoint()
{
    Song song(QString(), true);
    song.setLastTempo(u"5,5"_qs);
    song.setLastPitch(u"-2.25"_qs);
    song.setLastVolume(u"0,8"_qs);
    QCOMPARE(song.getLastTempo(), u"5.5"_qs);
    QCOMPARE(song.getLastPitch(), u"-2.25"_qs);
    QCOMPARE(song.getLastVolume(), u"0.8"_qs);
    song.setLastTempo(QString());
    song.setLastPitch(QString());
    song.setLastVolume(QString());
    QCOMPARE(song.getLastTempo(), u"5.5"_qs);
    QCOMPARE(song.getLastPitch(), u"-2.25"_qs);
    QCOMPARE(song.getLastVolume(), u"0.8"_qs);
}

void TestSong::numbersAreShort()
{
    Song song(QString(), true);
    song.setTempo(5.0);
    song.setPitch(1.0 / 3.0);
    song.setVolume(0.1 + 0.2);
    QCOMPARE(song.getLastTempo(), u"5"_qs);
    QCOMPARE(song.getLastPitch(), u"0.333333"_qs);
    QCOMPARE(song.getLastVolume(), u"0.3"_qs);
}

void TestSong::anEmptyVersionChangesNothing()
{
    Song song(QString(), true);
    song.setVersionTag(u"2"_qs);
    song.setVersionTag(QString());
    QCOMPARE(song.getVersionTag(), 2);
    song.setVersionTag(u"x"_qs);
    QCOMPARE(song.getVersionTag(), 0);
}

void TestSong::ratingShowsStars_data()
{
    QTest::addColumn<int>("rating");
    QTest::addColumn<int>("stars");

    const QList<QPair<int, int>> rows{{-1, 0},  {0, 0},   {1, 1},   {2, 2},   {3, 3},   {4, 4},
                                      {5, 0},   {63, 0},  {64, 2},  {127, 2}, {128, 3}, {193, 3},
                                      {194, 4}, {254, 4}, {255, 5}, {300, 5}};
    for (const auto &[rating, stars] : rows)
        QTest::addRow("%d", rating) << rating << stars;
}

void TestSong::ratingShowsStars()
{
    QFETCH(int, rating);
    Song song(QString(), true);
    song.setRating(rating);
    QTEST(song.getRatingStars(), "stars");
}

void TestSong::starsBecomeARating_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("stars");
    QTest::addColumn<int>("rating");

    const QList<QPair<int, int>> rows{{1, 1},   {2, 64}, {3, 128}, {4, 194},
                                      {5, 255}, {6, 0},  {-1, 0}};
    for (const auto &[stars, rating] : rows)
        QTest::addRow("%d stars", stars) << 10 << stars << rating;
    QTest::newRow("same band stays") << 100 << 2 << 100;
    QTest::newRow("number of stars stays") << 3 << 3 << 3;
    QTest::newRow("no stars stay") << 40 << 0 << 40;
    QTest::newRow("to no stars") << 200 << 0 << 0;
    QTest::newRow("unloaded to no stars") << -1 << 0 << -1;
}

void TestSong::starsBecomeARating()
{
    QFETCH(int, before);
    QFETCH(int, stars);
    Song song(QString(), true);
    song.setRating(before);
    song.setRatingStars(stars);
    QTEST(song.getRating(), "rating");
}

void TestSong::exportNamesAreFileNames_data()
{
    QTest::addColumn<QStringList>("fields"); // title, artist, choreographer, level
    QTest::addColumn<QString>("levelShort");
    QTest::addColumn<int>("maxLength");
    QTest::addColumn<QString>("name");

    const QString none;
    QTest::newRow("title and artist")
        << QStringList{u"T"_qs, u"A"_qs, none, none} << none << 0 << u"T - A.pdf"_qs;
    QTest::newRow("nothing") << QStringList{none, none, none, none} << none << 0 << u" - .pdf"_qs;
    QTest::newRow("all") << QStringList{u"T"_qs, u"A"_qs, u"C"_qs, u"Easy"_qs} << u"HI"_qs << 0
                         << u"T - A - C - Easy.pdf"_qs;
    QTest::newRow("long level") << QStringList{u"T"_qs, u"A"_qs, none, u"Intermediate-Advanced"_qs}
                                << u"HI"_qs << 0 << u"T - A - HI.pdf"_qs;
    QTest::newRow("long level without a short form")
        << QStringList{u"T"_qs, u"A"_qs, none, u"Intermediate-Advanced"_qs} << none << 0
        << u"T - A.pdf"_qs;
    QTest::newRow("level like the long one")
        << QStringList{u"T"_qs, u"A"_qs, none, u"intermediate-advanced"_qs} << u"HI"_qs << 0
        << u"T - A - intermediate-advanced.pdf"_qs;
    QTest::newRow("forbidden characters")
        << QStringList{u"a<b>c:d\"e/f\\g|h?i*j"_qs, u"A"_qs, none, none} << none << 0
        << u"abcdefghij - A.pdf"_qs;
    QTest::newRow("control characters")
        << QStringList{u"a\tb\nc\u0001\u001f\u007f"_qs, u"A"_qs, none, none} << none << 0
        << u"abc\u007f - A.pdf"_qs;
    QTest::newRow("other characters")
        << QStringList{u"ü #%&'💃"_qs, u"Ä"_qs, none, none} << none << 0 << u"ü #%&'💃 - Ä.pdf"_qs;
    QTest::newRow("cut") << QStringList{u"Title"_qs, u"Artist"_qs, none, none} << none << 12
                         << u"Title - .pdf"_qs;
    QTest::newRow("just fits") << QStringList{u"Title"_qs, u"Artist"_qs, none, none} << none << 18
                               << u"Title - Artist.pdf"_qs;
    QTest::newRow("cut after cleaning")
        << QStringList{u"??Title"_qs, u"Artist"_qs, none, none} << none << 9 << u"Title.pdf"_qs;
    QTest::newRow("no room at all")
        << QStringList{u"Title"_qs, u"Artist"_qs, none, none} << none << 2 << u".pdf"_qs;
}

void TestSong::exportNamesAreFileNames()
{
    QFETCH(QStringList, fields);
    QFETCH(QString, levelShort);
    QFETCH(int, maxLength);
    Song song(QString(), true);
    song.setTitle(fields.at(0));
    song.setArtist(fields.at(1));
    song.setChoreographer(fields.at(2));
    song.setLevel(fields.at(3));
    QTEST(song.exportFileName(u"pdf"_qs, levelShort, maxLength), "name");
}

void TestSong::exportNamesDontCutACharacterInTwo()
{
    Song song(QString(), true);
    song.setTitle(u"ab💃"_qs);
    QCOMPARE(song.exportFileName(u"pdf"_qs, QString(), 7), u"ab.pdf"_qs);
    QCOMPARE(song.exportFileName(u"pdf"_qs, QString(), 8), u"ab💃.pdf"_qs);
}

void TestSong::writeProtectionGoesAndComes()
{
    if (::geteuid() == 0)
        QSKIP("Root may write any file: run this as an ordinary user.");
    if (!FileSystem::hasModes(files().path()))
        QSKIP("This file system has no modes.");
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    QVERIFY(!song.isReadonly());
    QVERIFY(song.setWriteProtection());
    QVERIFY(song.isReadonly());
    QVERIFY(!QFileInfo(path).isWritable());
    QVERIFY(QFileInfo(path).isReadable());

    const Song again(path, false);
    QVERIFY(again.isReadonly());
    QCOMPARE(again.getPlayLength(), song.getPlayLength());
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
    QVERIFY(!song.save());

    QVERIFY(song.removeWriteProtection());
    QVERIFY(!song.isReadonly());
    QVERIFY(QFileInfo(path).isWritable());
    QVERIFY(song.save());
}

void TestSong::writeProtectionOfNothingFails()
{
    Song song(files().filePath(u"nothing.mp3"_qs), false);
    QVERIFY(!song.removeWriteProtection());
    QVERIFY(song.isReadonly());
    QVERIFY(!song.setWriteProtection());
}

void TestSong::aRemovedFileLiesInTheTrash()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    const QByteArray content = contentOf(path);
    QVERIFY(song.removeFromDisk());
    QVERIFY(!QFile::exists(path));
    // The test's own home may lie on another file system than its files.
    const QStorageInfo volume(files().path());
    const QString top = volume == QStorageInfo(QDir::homePath())
                            ? qEnvironmentVariable("XDG_DATA_HOME") + u"/Trash"_qs
                            : volume.rootPath() + u"/.Trash-"_qs + QString::number(::getuid());
    QCOMPARE(contentOf(top + u"/files/song.mp3"_qs), content);
}

void TestSong::aMissingFileIsNotDecoded()
{
    Song song(files().filePath(u"nothing.mp3"_qs), true);
    song.decodeAudio();
    QVERIFY(!song.getAudioData());
    QVERIFY(!song.getFormat().isValid());
}

void TestSong::aSongIsDecodedInItsOwnFormat()
{
    Song song(SongFiles::tone(files()), false);
    QVERIFY(!song.getAudioData());
    song.decodeAudio();
    QVERIFY(song.getAudioData() != nullptr);
    QCOMPARE(song.getFormat().sampleFormat(), QAudioFormat::Int16);
    QCOMPARE(song.getFormat().sampleRate(), 44100);
    QCOMPARE(song.getFormat().channelCount(), 2);
    QTRY_VERIFY(!song.getAudioData()->isGrowing());
    QVERIFY(song.audioBufferCount() > 20);
    QCOMPARE(song.audioBuffer(0)->format().sampleRate(), 44100);
}

void TestSong::releasedAudioIsGone()
{
    Song song(SongFiles::tone(files()), false);
    song.decodeAudio();
    const std::weak_ptr<SongAudioData> audio = song.getAudioData();
    song.releaseAudio();
    QVERIFY(!song.getAudioData());
    QVERIFY(audio.expired());
}

void TestSong::withoutAudioThereIsNoBpm()
{
    Song song(SongFiles::tone(files()), false);
    QCOMPARE(song.getBpmAuto(), 0);
    song.decodeAudio();
    song.setFrequency(0);
    QCOMPARE(song.getBpmAuto(), 0);
    song.setFrequency(44100);
    song.setChannels(0);
    QCOMPARE(song.getBpmAuto(), 0);
    song.setChannels(2);
    song.setFrequency(4000);
    QCOMPARE(song.getBpmAuto(), 0);
}

void TestSong::bpmIsFoundInTheSecondQuarter()
{
    if (corpusDirectory().isEmpty())
        QSKIP("TARVELO_CORPUS is not set.");
    const QString music = corpusDirectory() + u"/music/muldjord-armygeddon.48k.cbr128.mp3"_qs;
    Song song(SongFiles::copyOf(music, files()), false);
    song.decodeAudio();
    QSignalSpy ended(song.getAudioData().get(), &SongAudioData::decodingEnded);
    QVERIFY(!song.getAudioData()->isGrowing() || ended.wait(30000));
    // The truth is 170; the method may find the half of it.
    const int bpm = song.getBpmAuto();
    QVERIFY2(qAbs(bpm - 170) <= 1 || qAbs(bpm - 85) <= 1, qPrintable(QString::number(bpm)));
    song.releaseAudio();
    QCOMPARE(song.getBpmAuto(), bpm);
}

TARVELO_TEST_MAIN(TestSong, QGuiApplication)
#include "tst_Song.moc"
