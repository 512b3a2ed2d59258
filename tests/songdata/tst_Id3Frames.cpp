#include "Song.h"

#include "Samples.h"
#include "SongFiles.h"
#include "TestMain.h"

#include <QGuiApplication>

#include <id3v2tag.h>
#include <popularimeterframe.h>
#include <synchronizedlyricsframe.h>
#include <textidentificationframe.h>

using namespace TagLib::ID3v2;

class TestId3Frames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void everyTextFrameIsReadAndWritten_data();
    void everyTextFrameIsReadAndWritten();
    void upperCaseDescriptionsAreRead_data();
    void upperCaseDescriptionsAreRead();
    void theExactDescriptionComesFirst();
    void anEmptyTextLeavesNoFrame();
    void doubleFramesAreReplacedByOne();
    void aFrameThatAlreadyShowsTheTextStays();
    void numbersHaveACommaInTheFile();
    void anEmptyTempoKeepsTheDefault();
    void bpmIsWrittenAsAnInteger_data();
    void bpmIsWrittenAsAnInteger();
    void theFirstRatingCounts();
    void aNewRatingIsAFrameOfItsOwn();
    void aRatingNobodyKnowsIsNotWritten();
    void theVersionIsStamped();
    void oldPositionsComeEarlier();
    void oldPositionsStayEarlierAfterReloads();
    void positionsWithoutATagDontMove();
    void positionsAreWrittenInOrder();
    void aSongWithoutPositionsHasAnEmptyFrame();
    void theFirstLyricsFrameIsTaken();

private:
    QDir files() const { return QDir(directory->path()); }

    std::unique_ptr<QTemporaryDir> directory;
};

namespace {

TextIdentificationFrame *textFrame(const char *id, const TagLib::StringList &texts)
{
    auto *frame = new TextIdentificationFrame(id, TagLib::String::UTF8);
    frame->setText(texts);
    return frame;
}

void addLyrics(Tag &tag, unsigned int time, const char *text)
{
    auto *frame = new SynchronizedLyricsFrame(TagLib::String::UTF8);
    SynchronizedLyricsFrame::SynchedTextList entries;
    entries.append(SynchronizedLyricsFrame::SynchedText(time, text));
    frame->setSynchedText(entries);
    tag.addFrame(frame);
}

QString frameText(const QJsonObject &dump, const QString &id)
{
    const QJsonArray frames = SongFiles::frames(dump, id);
    return frames.size() == 1 ? frames.at(0).toObject().value(u"text").toArray().at(0).toString()
                              : QStringLiteral("%1 frames").arg(frames.size());
}

constexpr const char *descriptions[]
    = {"SongId",        "LastTempo", "LastPitch", "LastVolume", "CloggingLevel",
       "Choreographer", "AdaptedBy", "CueOwner",  "ISWC",       "Version"};
constexpr const char *properties[]
    = {"song_id",       "tempo",      "pitch",     "volume",  "level",
       "choreographer", "adapted_by", "cue_owner", "iswc_id", "version_tarvelo"};

} // namespace

void TestId3Frames::initTestCase()
{
    createSongStores();
}

void TestId3Frames::cleanupTestCase()
{
    destroySongStores();
}

void TestId3Frames::init()
{
    directory = std::make_unique<QTemporaryDir>();
}

void TestId3Frames::everyTextFrameIsReadAndWritten_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("Latin-1") << u"Grüße"_qs;
    QTest::newRow("more") << u"Łódź 日本 💃 – „x“"_qs;
    QTest::newRow("with a NUL look-alike") << u"a\\0b"_qs;
}

void TestId3Frames::everyTextFrameIsReadAndWritten()
{
    QFETCH(QString, text);
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    for (const char *property :
         {"song_id", "level", "choreographer", "adapted_by", "cue_owner", "iswc_id"})
        song.setProperty(property, QString(text + QString::fromLatin1(property)));
    QVERIFY(song.save());

    const QJsonObject dump = SongFiles::dump(path);
    const Song again(path, false);
    for (size_t row = 0; row < std::size(descriptions); ++row) {
        const QString expected = text + QString::fromLatin1(properties[row]);
        if (song.property(properties[row]).toString() != expected)
            continue;
        QCOMPARE(SongFiles::userTexts(dump, QString::fromLatin1(descriptions[row])),
                 QStringList{expected});
        QCOMPARE(again.property(properties[row]).toString(), expected);
    }
    QCOMPARE(SongFiles::frames(dump, u"TXXX"_qs).size(), 10);
}

void TestId3Frames::upperCaseDescriptionsAreRead_data()
{
    QTest::addColumn<QByteArray>("description");
    QTest::addColumn<QByteArray>("property");
    for (size_t row = 0; row < std::size(descriptions); ++row)
        QTest::newRow(descriptions[row])
            << QByteArray(descriptions[row]) << QByteArray(properties[row]);
}

void TestId3Frames::upperCaseDescriptionsAreRead()
{
    QFETCH(QByteArray, description);
    QFETCH(QByteArray, property);
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [&](Tag &tag) {
        SongFiles::addUserText(tag, description.toUpper().constData(), "2,5");
    });
    Song song(path, false);
    const QString expected = property == "version_tarvelo" ? u"0"_qs : u"2.5"_qs;
    QCOMPARE(song.property(property.constData()).toString().replace(u',', u'.'), expected);
    QVERIFY(song.save());

    const QJsonObject dump = SongFiles::dump(path);
    const QString written = property == "version_tarvelo" ? u"2"_qs : u"2,5"_qs;
    QCOMPARE(SongFiles::userTexts(dump, QString::fromLatin1(description)), QStringList{written});
    if (description != description.toUpper())
        QCOMPARE(SongFiles::userTexts(dump, QString::fromLatin1(description.toUpper())),
                 QStringList());
}

void TestId3Frames::theExactDescriptionComesFirst()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) {
        SongFiles::addUserText(tag, "CUEOWNER", "upper");
        SongFiles::addUserText(tag, "cueowner", "lower");
        SongFiles::addUserText(tag, "CueOwner", "exact");
    });
    Song song(path, false);
    QCOMPARE(song.getCueOwner(), u"exact"_qs);
    QVERIFY(song.save());
    const QJsonObject dump = SongFiles::dump(path);
    QCOMPARE(SongFiles::userTexts(dump, u"CueOwner"_qs), QStringList{u"exact"_qs});
    QCOMPARE(SongFiles::userTexts(dump, u"CUEOWNER"_qs), QStringList());
    QCOMPARE(SongFiles::userTexts(dump, u"cueowner"_qs), QStringList{u"lower"_qs});
}

void TestId3Frames::anEmptyTextLeavesNoFrame()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) {
        SongFiles::addUserText(tag, "CloggingLevel", "Easy");
        SongFiles::addUserText(tag, "CLOGGINGLEVEL", "Hard");
    });
    Song song(path, false);
    song.setLevel(QString());
    QVERIFY(song.save());
    const QJsonObject dump = SongFiles::dump(path);
    QCOMPARE(SongFiles::userTexts(dump, u"CloggingLevel"_qs), QStringList());
    QCOMPARE(SongFiles::userTexts(dump, u"CLOGGINGLEVEL"_qs), QStringList());
    QCOMPARE(Song(path, false).getLevel(), QString());
}

void TestId3Frames::doubleFramesAreReplacedByOne()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) {
        SongFiles::addUserText(tag, "Choreographer", "first");
        SongFiles::addUserText(tag, "Choreographer", "second");
    });
    Song song(path, false);
    QCOMPARE(song.getChoreographer(), u"first"_qs);
    QVERIFY(song.save());
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(path), u"Choreographer"_qs),
             QStringList{u"first"_qs});
    song.setChoreographer(u"third"_qs);
    QVERIFY(song.save());
    QCOMPARE(Song(path, false).getChoreographer(), u"third"_qs);
    song.setChoreographer(QString());
    QVERIFY(song.save());
    QCOMPARE(Song(path, false).getChoreographer(), QString());
}

void TestId3Frames::aFrameThatAlreadyShowsTheTextStays()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) {
        auto *frame = new UserTextIdentificationFrame(TagLib::String::UTF8);
        frame->setDescription("Choreographer");
        TagLib::StringList names;
        names.append("one");
        names.append("two");
        frame->setText(names);
        tag.addFrame(frame);
    });
    Song song(path, false);
    QCOMPARE(song.getChoreographer(), u"one"_qs);
    QVERIFY(song.save());
    const QJsonArray frames = SongFiles::frames(SongFiles::dump(path), u"TXXX"_qs);
    QCOMPARE(frames.at(0).toObject().value(u"text").toArray(), (QJsonArray{u"one"_qs, u"two"_qs}));
}

void TestId3Frames::numbersHaveACommaInTheFile()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) {
        SongFiles::addUserText(tag, "LASTTEMPO", "5,5");
        SongFiles::addUserText(tag, "LastPitch", "-1.25");
    });
    Song song(path, false);
    QCOMPARE(song.getLastTempo(), u"5.5"_qs);
    QCOMPARE(song.getLastPitch(), u"-1.25"_qs);
    QVERIFY(song.save());
    const QJsonObject dump = SongFiles::dump(path);
    QCOMPARE(SongFiles::userTexts(dump, u"LastTempo"_qs), QStringList{u"5,5"_qs});
    QCOMPARE(SongFiles::userTexts(dump, u"LASTTEMPO"_qs), QStringList());
    QCOMPARE(SongFiles::userTexts(dump, u"LastPitch"_qs), QStringList{u"-1,25"_qs});
    QCOMPARE(SongFiles::userTexts(dump, u"LastVolume"_qs), QStringList{u"1,0"_qs});
}

void TestId3Frames::anEmptyTempoKeepsTheDefault()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) { SongFiles::addUserText(tag, "LastTempo", ""); });
    QCOMPARE(Song(path, false).getLastTempo(), u"0.0"_qs);
}

void TestId3Frames::bpmIsWrittenAsAnInteger_data()
{
    QTest::addColumn<QStringList>("inFile");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("written");

    QTest::newRow("none") << QStringList() << u"0"_qs << u"0"_qs << u"0 frames"_qs;
    QTest::newRow("new") << QStringList() << u"0"_qs << u"120,7"_qs << u"120"_qs;
    QTest::newRow("fraction in the file")
        << QStringList{u"128.5"_qs} << u"128"_qs << u"128"_qs << u"128"_qs;
    QTest::newRow("replaced") << QStringList{u"99"_qs} << u"99"_qs << u"120"_qs << u"120"_qs;
    QTest::newRow("removed") << QStringList{u"99"_qs} << u"99"_qs << u"0"_qs << u"0 frames"_qs;
    QTest::newRow("all removed") << QStringList{u"99"_qs, u"98"_qs} << u"99"_qs << u"x"_qs
                                 << u"0 frames"_qs;
    QTest::newRow("negative") << QStringList{u"99"_qs} << u"99"_qs << u"-5"_qs << u"0 frames"_qs;
}

void TestId3Frames::bpmIsWrittenAsAnInteger()
{
    QFETCH(QStringList, inFile);
    QFETCH(QString, set);
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [&](Tag &tag) {
        tag.setTitle("x");
        for (const QString &text : inFile)
            tag.addFrame(textFrame("TBPM", TagLib::String(text.toStdString())));
    });
    Song song(path, false);
    QTEST(song.getBpm(), "shown");
    song.setBpm(set);
    QVERIFY(song.save());
    QTEST(frameText(SongFiles::dump(path), u"TBPM"_qs), "written");
}

void TestId3Frames::theFirstRatingCounts()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) {
        for (const int rating : {196, 64}) {
            auto *frame = new PopularimeterFrame;
            frame->setEmail(rating == 196 ? "first@example.org" : "second@example.org");
            frame->setRating(rating);
            frame->setCounter(17);
            tag.addFrame(frame);
        }
    });
    Song song(path, false);
    QCOMPARE(song.getRating(), 196);
    QCOMPARE(song.getRatingStars(), 4);
    song.setRatingStars(5);
    QVERIFY(song.save());
    const QJsonArray frames = SongFiles::frames(SongFiles::dump(path), u"POPM"_qs);
    QCOMPARE(frames.size(), 2);
    const QJsonObject first{
        {u"email"_qs, u"first@example.org"_qs}, {u"rating"_qs, 255}, {u"count"_qs, 17}};
    QCOMPARE(frames.at(0).toObject(), first);
    QCOMPARE(frames.at(1).toObject().value(u"rating").toInt(), 64);
}

void TestId3Frames::aNewRatingIsAFrameOfItsOwn()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    song.setRatingStars(3);
    QVERIFY(song.save());
    const QJsonArray frames = SongFiles::frames(SongFiles::dump(path), u"POPM"_qs);
    QCOMPARE(frames.size(), 1);
    QCOMPARE(frames.at(0).toObject().value(u"rating").toInt(), 128);
    QCOMPARE(Song(path, false).getRating(), 128);
}

void TestId3Frames::aRatingNobodyKnowsIsNotWritten()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    song.setRating(-1);
    QVERIFY(song.save());
    QCOMPARE(SongFiles::frames(SongFiles::dump(path), u"POPM"_qs).size(), 0);
    song.setRating(300);
    QVERIFY(song.save());
    QCOMPARE(Song(path, false).getRating(), 255);
}

void TestId3Frames::theVersionIsStamped()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) { SongFiles::addUserText(tag, "Version", "1"); });
    Song song(path, false);
    QCOMPARE(song.getVersionTag(), 1);
    QVERIFY(song.save());
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(path), u"Version"_qs), QStringList{u"2"_qs});
    QCOMPARE(Song(path, false).getVersionTag(), 2);
}

void TestId3Frames::oldPositionsComeEarlier()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) { addLyrics(tag, 500, "A\tB"); });
    Song song(path, false);
    QCOMPARE(song.getPositions().at(0), Position(-300, u"A"_qs, u"B"_qs));
    QVERIFY(song.save());
    QCOMPARE(song.getPositions().at(0).getTime(), -300);

    const QJsonObject frame = SongFiles::frames(SongFiles::dump(path), u"SYLT"_qs).at(0).toObject();
    const QJsonArray entries{QJsonArray{u"A\tB"_qs, 4294966996.0}};
    QCOMPARE(frame.value(u"text").toArray(), entries);
    QCOMPARE(Song(path, false).getPositions().at(0).getTime(), -300);
}

// A cancelled dialog reloads: that must not bring the old times back.
void TestId3Frames::oldPositionsStayEarlierAfterReloads()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) { addLyrics(tag, 2000, "A\tB"); });
    Song song(path, false);
    QVERIFY(song.reload());
    QVERIFY(song.reload());
    QCOMPARE(song.getPositions().at(0).getTime(), 1200);
    QVERIFY(song.save());
    QVERIFY(song.reload());
    QCOMPARE(song.getPositions().at(0).getTime(), 1200);

    SongFiles::edit(path, [](Tag &tag) {
        tag.removeFrame(UserTextIdentificationFrame::find(&tag, "Version"));
    });
    QVERIFY(song.reload());
    QCOMPARE(song.getVersionTag(), 0);
    QCOMPARE(song.getPositions().at(0).getTime(), 400);
}

// A load replaces what the record holds: only what came from the file is moved.
void TestId3Frames::positionsWithoutATagDontMove()
{
    const QString path = files().filePath(u"tone.flac"_qs);
    QVERIFY(Samples::writeTone(path));
    Song song(path, false);
    song.getPositions().insert(0, Position(2000, u"A"_qs, u"B"_qs));
    QVERIFY(song.reload());
    QCOMPARE(song.getPositions().count(), 0);
    song.getPositions().insert(0, Position(2000, u"A"_qs, u"B"_qs));
    QVERIFY(song.save());
    QCOMPARE(song.getPositions().at(0).getTime(), 2000);
}

void TestId3Frames::positionsAreWrittenInOrder()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    song.getPositions().insert(0, Position(900, u"C"_qs, u"c"_qs));
    song.getPositions().insert(1, Position(100, u"B"_qs, u"b"_qs));
    song.getPositions().insert(2, Position(100, u"A"_qs, u"größer\n日本"_qs));
    song.getPositions().insert(3, Position(50, QString(), QString()));
    QVERIFY(song.save());

    const QJsonArray frames = SongFiles::frames(SongFiles::dump(path), u"SYLT"_qs);
    QCOMPARE(frames.size(), 1);
    const QJsonObject frame = frames.at(0).toObject();
    QCOMPARE(frame.value(u"lang").toString(), u"eng"_qs);
    QCOMPARE(frame.value(u"format").toInt(), 2);
    QCOMPARE(frame.value(u"type").toInt(), 3);
    QCOMPARE(frame.value(u"desc").toString(), u"TarveloChoreoParts"_qs);
    const QJsonArray entries{QJsonArray{u"\t"_qs, 50}, QJsonArray{u"A\tgrößer\n日本"_qs, 100},
                             QJsonArray{u"B\tb"_qs, 100}, QJsonArray{u"C\tc"_qs, 900}};
    QCOMPARE(frame.value(u"text").toArray(), entries);
    QCOMPARE(Song(path, false).getPositions(), song.getPositions());
}

void TestId3Frames::aSongWithoutPositionsHasAnEmptyFrame()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    QVERIFY(song.save());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray frame("SYLT\0\0\0\x19\0\0\0eng\2\3TarveloChoreoParts\0TXXX", 39);
    QCOMPARE(file.readAll().count(frame), 1);
    QVERIFY(!Song(path, false).hasPositions());
}

void TestId3Frames::theFirstLyricsFrameIsTaken()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) {
        SongFiles::addUserText(tag, "Version", "2");
        addLyrics(tag, 70, "sung");
        addLyrics(tag, 80, "other");
    });
    Song song(path, false);
    QCOMPARE(song.getPositions().count(), 1);
    QCOMPARE(song.getPositions().at(0), Position(70, QString(), u"sung"_qs));
    QVERIFY(song.save());
    const Song again(path, false);
    QCOMPARE(again.getPositions().at(0), Position(70, QString(), u"sung"_qs));
}

TARVELO_TEST_MAIN(TestId3Frames, QGuiApplication)
#include "tst_Id3Frames.moc"
