#include "Song.h"

#include "Settings.h"
#include "SongFiles.h"
#include "TestMain.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <id3v2tag.h>

#include <ctime>

using Settings::Key;

class TestDanceEventTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void anEventIsALine();
    void separatorsBecomeBlanks();
    void theTempoIsNotCleaned();
    void linesAreRead_data();
    void linesAreRead();
    void readingReplacesTheList();
    void atMost64000LinesAreRead();
    void aHugeTextIsReadInNoTime();
    void theHourThatComesTwiceKeepsItsOrder();

    void theCacheHoldsCompactJson();
    void cacheTextsAreRead_data();
    void cacheTextsAreRead();
    void readingTouchesNoSetting();
    void textsWithoutEventsLeaveTheList_data();
    void textsWithoutEventsLeaveTheList();
    void aJsonOfMillionsIsCut();
    void jsonGoesIntoAGivenObject();
    void eventsAreFoundInAnObject_data();
    void eventsAreFoundInAnObject();

    void theFrameHoldsTheLines();
    void theFrameOfAnEmptyListGoes();
    void theUpperCaseFrameIsRead();
    void aFrameOfOldGetsItsFourthField();
    void aNulLosesNoEvent();
    void aReloadDropsWhatWasNotSaved();
    void aPlayIsInTheFileOnceItIsSaved();

private:
    QDir files() const { return QDir(directory->path()); }

    std::unique_ptr<QTemporaryDir> directory;
};

namespace {

constexpr qint64 tenOClock = 1700042400;

std::shared_ptr<DanceEvent> eventAt(qint64 seconds)
{
    return std::make_shared<DanceEvent>(u"Training"_qs, QString(), QString(),
                                        QDateTime::fromSecsSinceEpoch(seconds));
}

DanceEventList eventsAt(const QList<qint64> &dates)
{
    DanceEventList list;
    for (const qint64 seconds : dates)
        list.append(eventAt(seconds));
    return list;
}

} // namespace

void TestDanceEventTexts::initTestCase()
{
    createSongStores();
}

void TestDanceEventTexts::cleanupTestCase()
{
    destroySongStores();
}

void TestDanceEventTexts::init()
{
    directory = std::make_unique<QTemporaryDir>();
    Settings::instance()->clear();
    setCurrentDanceEvent(nullptr);
}

void TestDanceEventTexts::anEventIsALine()
{
    DanceEventList list;
    QCOMPARE(list.toTagText(), QString());
    list.append(std::make_shared<DanceEvent>(u"Training"_qs, u"Dienstag"_qs, u"5"_qs,
                                             QDateTime::fromSecsSinceEpoch(1600000000)));
    list.append(eventAt(tenOClock));
    QCOMPARE(list.toTagText(), u"1600000000\tTraining\tDienstag\t5\n1700042400\tTraining\t\t\n"_qs);
}

void TestDanceEventTexts::separatorsBecomeBlanks()
{
    DanceEventList list;
    list.append(std::make_shared<DanceEvent>(u"a\tb\nc\t"_qs, u"\n\td"_qs, QString(),
                                             QDateTime::fromSecsSinceEpoch(tenOClock)));
    QCOMPARE(list.toTagText(), u"1700042400\ta b c \t  d\t\n"_qs);
    QCOMPARE(list.at(0)->getCategory(), u"a\tb\nc\t"_qs);
}

void TestDanceEventTexts::theTempoIsNotCleaned()
{
    DanceEventList list = eventsAt({tenOClock, tenOClock + 1});
    list.at(0)->setTempo(u"1\t2"_qs);
    QCOMPARE(list.toTagText(), u"1700042400\tTraining\t\t1\t2\n1700042401\tTraining\t\t\n"_qs);
    list.fromTagText(list.toTagText());
    QCOMPARE(list, eventsAt({tenOClock + 1}));
}

void TestDanceEventTexts::linesAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("written");

    const auto row = [](const char *name, const char16_t *text, const char16_t *written) {
        QTest::newRow(name) << QString::fromUtf16(text) << QString::fromUtf16(written);
    };
    row("four fields", u"1600000000\tA\tB\t5\n", u"1600000000\tA\tB\t5\n");
    row("three fields, of old", u"1600000000\tA\tB\n", u"1600000000\tA\tB\t\n");
    row("two fields", u"1600000000\tA\n1600000001\tA\tB\t\n", u"1600000001\tA\tB\t\n");
    row("five fields", u"1600000000\tA\tB\t5\t\n1600000001\tA\tB\t\n", u"1600000001\tA\tB\t\n");
    row("no fields", u"1600000000\n", u"");
    row("empty texts", u"1600000000\t\t\t\n", u"1600000000\t\t\t\n");
    row("empty lines", u"\n\n1600000000\tA\tB\t5\n\n\n", u"1600000000\tA\tB\t5\n");
    row("no line feed at the end", u"1600000000\tA\tB\t5", u"1600000000\tA\tB\t5\n");
    row("order stays", u"1600000002\tA\t\t\n1600000001\tB\t\t\n",
        u"1600000002\tA\t\t\n1600000001\tB\t\t\n");
    row("date too early", u"99999999\tA\tB\t5\n", u"");
    row("earliest date", u"100000000\tA\tB\t5\n", u"100000000\tA\tB\t5\n");
    row("latest date", u"3000000000\tA\tB\t5\n", u"3000000000\tA\tB\t5\n");
    row("date too late", u"3000000001\tA\tB\t5\n", u"");
    row("no number", u"today\tA\tB\t5\n", u"");
    row("no date", u"\tA\tB\t5\n", u"");
    row("largest number", u"9223372036854775807\tA\tB\t5\n", u"");
    row("smallest number", u"-9223372036854775808\tA\tB\t5\n", u"");
    row("beyond all numbers", u"99999999999999999999\tA\tB\t5\n", u"");
    row("other letters", u"1600000000\tGrüße\t日本 💃\t5\n", u"1600000000\tGrüße\t日本 💃\t5\n");
}

void TestDanceEventTexts::linesAreRead()
{
    QFETCH(QString, text);
    DanceEventList list;
    list.fromTagText(text);
    QTEST(list.toTagText(), "written");
    DanceEventList again;
    again.fromTagText(list.toTagText());
    QCOMPARE(again, list);
}

void TestDanceEventTexts::readingReplacesTheList()
{
    DanceEventList list = eventsAt({tenOClock, tenOClock});
    list.fromTagText(u"1600000000\tA\tB\t5\n"_qs);
    QCOMPARE(list.count(), 1);
    QCOMPARE(list.at(0)->getCategory(), u"A"_qs);
    list.fromTagText(QString());
    QCOMPARE(list.count(), 0);
}

void TestDanceEventTexts::atMost64000LinesAreRead()
{
    DanceEventList list;
    list.fromTagText(u"1600000000\t\t\t\n"_qs.repeated(64001));
    QCOMPARE(list.count(), 64000);
    list.fromTagText(u"\n1600000000\t\t\t\n"_qs.repeated(64000));
    QCOMPARE(list.count(), 64000);
    list.fromTagText(u"no event\n"_qs.repeated(63999) + u"1600000000\t\t\t\n"_qs.repeated(2));
    QCOMPARE(list.count(), 1);
}

void TestDanceEventTexts::aHugeTextIsReadInNoTime()
{
    constexpr qsizetype huge = 20000000;
    QElapsedTimer time;
    time.start();
    DanceEventList list;
    for (const QChar filler : {u'\t', u'\n', u'x'}) {
        list.fromTagText(QString(huge, filler));
        QCOMPARE(list.count(), 0);
    }
    QVERIFY2(time.elapsed() < 5000, qPrintable(QString::number(time.elapsed())));
}

void TestDanceEventTexts::theHourThatComesTwiceKeepsItsOrder()
{
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "Europe/Berlin");
    tzset();
    // 2:30 in summer time and, an hour later, 2:30 in winter time.
    const DanceEventList list = eventsAt({1698539400, 1698543000});
    DanceEventList fromTag;
    fromTag.fromTagText(list.toTagText());
    DanceEventList fromCache;
    fromCache.fromCacheText(list.toCacheText());
    const QList<qint64> read{fromTag.at(0)->seconds(), fromTag.at(1)->seconds(),
                             fromCache.at(0)->seconds(), fromCache.at(1)->seconds()};
    zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
    tzset();
    QCOMPARE(read, (QList<qint64>{1698539400, 1698543000, 1698539400, 1698543000}));
}

void TestDanceEventTexts::theCacheHoldsCompactJson()
{
    DanceEventList list;
    QCOMPARE(list.toCacheText(), QString());
    list.append(std::make_shared<DanceEvent>(u"Übung"_qs, u"a\tb\nc"_qs, u"-2.5"_qs,
                                             QDateTime::fromSecsSinceEpoch(1600000000)));
    QCOMPARE(list.toCacheText(), QString::fromUtf8(R"({"events":[{"category":"Übung",)"
                                                   R"("date":1600000000,"name":"a\tb\nc",)"
                                                   R"("tempo":"-2.5"}]})"));
    DanceEventList again;
    again.fromCacheText(list.toCacheText());
    QCOMPARE(again, list);
}

void TestDanceEventTexts::cacheTextsAreRead_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("line");

    const auto row = [](const char *name, const char *entry, const char16_t *line) {
        QTest::newRow(name) << QString::fromUtf8(entry) << QString::fromUtf16(line);
    };
    row("all", R"({"category":"A","name":"B","date":1600000000,"tempo":"5"})",
        u"1600000000\tA\tB\t5\n");
    row("without tempo", R"({"category":"A","name":"B","date":1600000000})",
        u"1600000000\tA\tB\t\n");
    row("any date", R"({"category":"A","date":99999999})", u"99999999\tA\t\t\n");
    row("date before the epoch", R"({"date":-5})", u"-5\t\t\t\n");
    row("no date", R"({"category":"A"})", u"0\tA\t\t\n");
    row("date as text", R"({"date":"1600000000"})", u"0\t\t\t\n");
    row("date with a point", R"({"date":1600000000.0})", u"1600000000\t\t\t\n");
    row("date beyond all numbers", R"({"date":1e300})", u"0\t\t\t\n");
    row("date beyond all dates", R"({"date":9223372036854775807})", u"0\t\t\t\n");
    row("texts of other types", R"({"category":1,"name":null,"tempo":5,"date":7})", u"7\t\t\t\n");
    row("no object", "[1]", u"0\t\t\t\n");
    row("null", "null", u"0\t\t\t\n");
}

void TestDanceEventTexts::cacheTextsAreRead()
{
    QFETCH(QString, entry);
    DanceEventList list;
    list.fromCacheText(u"{\"events\":["_qs + entry + u"]}"_qs);
    QCOMPARE(list.count(), 1);
    QTEST(list.toTagText(), "line");
}

void TestDanceEventTexts::readingTouchesNoSetting()
{
    DanceEventList list;
    list.fromTagText(u"1600000000\tA\tB\t5\n"_qs);
    list.fromCacheText(eventsAt({tenOClock}).toCacheText());
    QVERIFY(!Settings::contains(Key::LastDanceEventCategory));
}

void TestDanceEventTexts::textsWithoutEventsLeaveTheList_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");

    QTest::newRow("empty") << QString() << 1;
    QTest::newRow("no JSON") << u"{\"events\":["_qs << 1;
    QTest::newRow("deeper than anybody writes") << QString(100000, u'[') << 1;
    QTest::newRow("an object without events") << u"{}"_qs << 0;
    QTest::newRow("events that are no array") << u"{\"events\":{}}"_qs << 0;
    QTest::newRow("an array") << u"[]"_qs << 0;
    QTest::newRow("an empty array") << u"{\"events\":[]}"_qs << 0;
}

void TestDanceEventTexts::textsWithoutEventsLeaveTheList()
{
    QFETCH(QString, text);
    DanceEventList list = eventsAt({tenOClock});
    list.fromCacheText(text);
    QTEST(list.count(), "count");
}

void TestDanceEventTexts::aJsonOfMillionsIsCut()
{
    DanceEventList list;
    list.fromCacheText(u"{\"events\":[0"_qs + u",0"_qs.repeated(2000000) + u"]}"_qs);
    QCOMPARE(list.count(), 64000);
}

void TestDanceEventTexts::jsonGoesIntoAGivenObject()
{
    QJsonObject object{{u"positions"_qs, 1}};
    eventsAt({tenOClock}).toJson(object);
    QCOMPARE(object.keys(), (QStringList{u"events"_qs, u"positions"_qs}));
    const QJsonObject entry = object.value(u"events").toArray().at(0).toObject();
    QCOMPARE(entry, (QJsonObject{{u"category"_qs, u"Training"_qs},
                                 {u"name"_qs, QString()},
                                 {u"date"_qs, tenOClock},
                                 {u"tempo"_qs, QString()}}));
    DanceEventList().toJson(object);
    QCOMPARE(object.value(u"events"), QJsonValue(QJsonArray()));
}

void TestDanceEventTexts::eventsAreFoundInAnObject_data()
{
    QTest::addColumn<QJsonObject>("object");
    QTest::addColumn<bool>("found");

    QTest::newRow("missing") << QJsonObject() << false;
    QTest::newRow("array") << QJsonObject{{u"events"_qs, QJsonArray()}} << true;
    QTest::newRow("object") << QJsonObject{{u"events"_qs, QJsonObject()}} << false;
    QTest::newRow("text") << QJsonObject{{u"events"_qs, u"[]"_qs}} << false;
}

void TestDanceEventTexts::eventsAreFoundInAnObject()
{
    QFETCH(QJsonObject, object);
    QTEST(DanceEventList::hasEvents(object), "found");
}

void TestDanceEventTexts::theFrameHoldsTheLines()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    QCOMPARE(song.getDanceEvents().count(), 0);
    song.getDanceEvents().append(std::make_shared<DanceEvent>(
        u"Übung"_qs, u"a\tb 日本"_qs, u"-2.5"_qs, QDateTime::fromSecsSinceEpoch(1600000000)));
    song.getDanceEvents().append(eventAt(tenOClock));
    QVERIFY(song.save());
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(path), u"DanceEvents"_qs),
             QStringList{u"1600000000\tÜbung\ta b 日本\t-2.5\n1700042400\tTraining\t\t\n"_qs});
    const Song again(path, false);
    QCOMPARE(again.getDanceEvents().toTagText(), song.getDanceEvents().toTagText());
    QCOMPARE(again.getDanceEvents().at(0)->getName(), u"a b 日本"_qs);
}

void TestDanceEventTexts::theFrameOfAnEmptyListGoes()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](TagLib::ID3v2::Tag &tag) {
        SongFiles::addUserText(tag, "DanceEvents", "1600000000\tA\tB\t5\n");
        SongFiles::addUserText(tag, "DANCEEVENTS", "1600000001\tA\tB\t5\n");
    });
    Song song(path, false);
    QCOMPARE(song.getDanceEvents().count(), 1);
    song.getDanceEvents().clear();
    QVERIFY(song.save());
    const QJsonObject dump = SongFiles::dump(path);
    QCOMPARE(SongFiles::userTexts(dump, u"DanceEvents"_qs), QStringList());
    QCOMPARE(SongFiles::userTexts(dump, u"DANCEEVENTS"_qs), QStringList());
}

void TestDanceEventTexts::theUpperCaseFrameIsRead()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](TagLib::ID3v2::Tag &tag) {
        SongFiles::addUserText(tag, "DANCEEVENTS", "1600000000\tA\tB\t5\n");
    });
    Song song(path, false);
    QVERIFY(song.save());
    const QJsonObject dump = SongFiles::dump(path);
    QCOMPARE(SongFiles::userTexts(dump, u"DANCEEVENTS"_qs), QStringList());
    QCOMPARE(SongFiles::userTexts(dump, u"DanceEvents"_qs),
             QStringList{u"1600000000\tA\tB\t5\n"_qs});
}

void TestDanceEventTexts::aFrameOfOldGetsItsFourthField()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](TagLib::ID3v2::Tag &tag) {
        SongFiles::addUserText(tag, "DanceEvents", "1600000000\tA\tB\n12\tA\tB\t5\nrubbish\n");
    });
    Song song(path, false);
    QCOMPARE(song.getDanceEvents().at(0)->getTempo(), QString());
    QVERIFY(song.save());
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(path), u"DanceEvents"_qs),
             QStringList{u"1600000000\tA\tB\t\n"_qs});
}

void TestDanceEventTexts::aNulLosesNoEvent()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    song.getDanceEvents() = eventsAt({tenOClock, tenOClock + 1});
    song.getDanceEvents().at(0)->setName(u"a"_qs + QChar(0) + u"b"_qs);
    QVERIFY(song.save());
    const Song again(path, false);
    QCOMPARE(again.getDanceEvents().count(), 2);
    QCOMPARE(again.getDanceEvents().at(0)->getName(), u"a b"_qs);
    QCOMPARE(again.getDanceEvents().at(1)->seconds(), tenOClock + 1);
}

void TestDanceEventTexts::aReloadDropsWhatWasNotSaved()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    song.getDanceEvents() = eventsAt({tenOClock});
    QVERIFY(song.save());
    song.getDanceEvents().addPlay(0);
    QVERIFY(song.reload());
    QCOMPARE(song.getDanceEvents(), eventsAt({tenOClock}));
    song.getDanceEvents().clear();
    QVERIFY(song.save());
    song.getDanceEvents().addPlay(0);
    QVERIFY(song.reload());
    QCOMPARE(song.getDanceEvents().count(), 0);
}

void TestDanceEventTexts::aPlayIsInTheFileOnceItIsSaved()
{
    const QString path = SongFiles::tone(files());
    Settings::setValue(Key::LastDanceEventCategory, u"Training"_qs);
    Song song(path, false);
    song.getDanceEvents().addPlay(5);
    QVERIFY(song.save());
    const Song again(path, false);
    QCOMPARE(again.getDanceEvents(), song.getDanceEvents());
    QCOMPARE(again.getDanceEvents().at(0)->getTempo(), u"5"_qs);
}

TARVELO_TEST_MAIN(TestDanceEventTexts, QGuiApplication)
#include "tst_DanceEventTexts.moc"
