#include "Song.h"

#include "Settings.h"
#include "SongFiles.h"
#include "TestMain.h"

#include <QGuiApplication>
#include <QPointer>

#include <id3v2tag.h>

#include <limits>

using Settings::Key;

class TestCountDownList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void theListOwnsItsItems();
    void theEarliestStartCounts();
    void theTextIsCompactJson();
    void everythingStoredIsReadBack();
    void itemsAreRead_data();
    void itemsAreRead();
    void textsWithoutItems_data();
    void textsWithoutItems();
    void aJsonOfMillionsIsCut();
    void jsonGoesIntoAGivenObject();
    void countdownsAreFoundInAnObject_data();
    void countdownsAreFoundInAnObject();

    void theFrameHoldsTheText();
    void theFrameOfAnEmptyListGoes();
    void theFrameOfAForeignerIsRead();
    void aMissingFrameLeavesTheList();
    void savingRenewsTheCountdowns();

private:
    QDir files() const { return QDir(directory->path()); }

    std::unique_ptr<QTemporaryDir> directory;
};

namespace {

constexpr qint64 smallest = std::numeric_limits<qint64>::min();
constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr int smallestInt = std::numeric_limits<int>::min();
constexpr int largestInt = std::numeric_limits<int>::max();

CountDownItem *addTo(CountDownList &list, qint64 ignition, int start, int end)
{
    CountDownItem *item = list.addNew();
    item->setIgnition(ignition);
    item->setCountStart(start);
    item->setCountEnd(end);
    item->setComment(u"Start"_qs);
    item->setEnabled(true);
    return item;
}

} // namespace

void TestCountDownList::initTestCase()
{
    createSongStores();
}

void TestCountDownList::init()
{
    directory = std::make_unique<QTemporaryDir>();
    Settings::instance()->clear();
}

void TestCountDownList::cleanupTestCase()
{
    destroySongStores();
}

void TestCountDownList::theListOwnsItsItems()
{
    CountDownList list;
    CountDownItem *first = list.addNew();
    QPointer<CountDownItem> second = list.addNew();
    QPointer<CountDownItem> third = list.addNew();
    QCOMPARE(list.count(), 3);
    QCOMPARE(list.at(0), first);
    QCOMPARE(list.at(1), second.data());
    QCOMPARE(first->getIgnition(), smallest);
    QVERIFY(!first->hasIgnition());
    QVERIFY(!first->isEnabled());
    list.removeAt(1);
    QVERIFY(!second);
    QCOMPARE(list.at(1), third.data());
    list.clear();
    QCOMPARE(list.count(), 0);
    QVERIFY(!third);
    QPointer<CountDownItem> fourth = list.addNew();
    list.fromText(u"{}"_qs);
    QVERIFY(!fourth);
}

void TestCountDownList::theEarliestStartCounts()
{
    CountDownList list;
    QCOMPARE(list.earliestStart(), 999999999);
    addTo(list, 20000, 9, 0);
    addTo(list, 10000, 9, 0);
    addTo(list, 30000, 9, 0);
    CountDownItem *off = addTo(list, 5000, 9, 0);
    off->setEnabled(false);
    list.addNew()->setEnabled(true);
    list.reset(120);
    QCOMPARE(list.earliestStart(), 5500);
    off->setEnabled(true);
    QCOMPARE(list.earliestStart(), 500);

    list.clear();
    addTo(list, largest, 9, 0);
    list.reset(120);
    QCOMPARE(list.earliestStart(), 999999999);
    addTo(list, smallest + 1, 9, 0);
    list.reset(120);
    QCOMPARE(list.earliestStart(), smallestInt);
}

void TestCountDownList::theTextIsCompactJson()
{
    CountDownList list;
    QCOMPARE(list.toText(), QString());
    addTo(list, 10000, 9, 0)->setComment(u"Gruß"_qs);
    list.addNew();
    QCOMPARE(list.toText(),
             QString::fromUtf8(
                 R"({"countdowns":[{"comment":"Gruß","count_end":0,"count_start":9,"enabled":true,)"
                 R"("ignition":10000},{"comment":"","count_end":0,"count_start":0,"enabled":false,)"
                 R"("ignition":-9223372036854775808}]})"));
}

void TestCountDownList::everythingStoredIsReadBack()
{
    CountDownList list;
    addTo(list, smallest, smallestInt, largestInt)->setComment(u"a\0\n\"日本"_qs);
    addTo(list, largest, -1, 1)->setEnabled(false);
    Settings::setValue(Key::CountDownType, 2);
    list.reset(120);
    CountDownList again;
    again.fromText(list.toText());
    QCOMPARE(again.toText(), list.toText());
    QCOMPARE(again.at(0)->getIgnition(), smallest);
    QCOMPARE(again.at(0)->getCountStart(), smallestInt);
    QCOMPARE(again.at(0)->getCountEnd(), largestInt);
    QCOMPARE(again.at(0)->getComment(), u"a\0\n\"日本"_qs);
    QVERIFY(again.at(0)->isEnabled());
    QVERIFY(!again.at(1)->isEnabled());
    QCOMPARE(again.at(0)->getType(), 1);
    QCOMPARE(again.at(0)->getStartTime(), 0);
    QCOMPARE(again.at(0)->getBeatLength(), 0);
}

void TestCountDownList::itemsAreRead_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<qint64>("ignition");
    QTest::addColumn<int>("countStart");
    QTest::addColumn<int>("countEnd");
    QTest::addColumn<QString>("comment");
    QTest::addColumn<bool>("enabled");

    const auto row = [](const char *name, const char *entry, qint64 ignition, int start, int end,
                        const QString &comment, bool enabled) {
        QTest::newRow(name) << QString::fromUtf8(entry) << ignition << start << end << comment
                            << enabled;
    };
    row("all", R"({"ignition":5,"count_start":1,"count_end":8,"comment":"c","enabled":true})", 5, 1,
        8, u"c"_qs, true);
    row("one key", R"({"count_start":4})", 0, 4, 0, QString(), false);
    row("nothing", "{}", 0, 0, 0, QString(), false);
    row("no object", "7", 0, 0, 0, QString(), false);
    row("texts for numbers",
        R"({"ignition":"5","count_start":"1","count_end":true,"comment":"c","enabled":true})", 0, 0,
        0, u"c"_qs, true);
    row("numbers for texts", R"({"ignition":5,"comment":1,"enabled":1})", 5, 0, 0, QString(),
        false);
    row("null", R"({"ignition":null,"count_start":null,"comment":null,"enabled":null})", 0, 0, 0,
        QString(), false);
    row("with a point", R"({"ignition":5.0,"count_start":1e1,"count_end":-1.0})", 5, 10, -1,
        QString(), false);
    row("negative", R"({"ignition":-500,"count_start":-9,"count_end":-1})", -500, -9, -1, QString(),
        false);
    row("limits",
        R"({"ignition":-9223372036854775808,"count_start":2147483647,"count_end":-2147483648})",
        smallest, largestInt, smallestInt, QString(), false);
    row("beyond the limits", R"({"ignition":1e300,"count_start":2147483648,"count_end":-1e300})", 0,
        0, 0, QString(), false);
    row("just beyond", R"({"ignition":9223372036854775808,"count_start":-2147483649})", 0, 0, 0,
        QString(), false);
}

void TestCountDownList::itemsAreRead()
{
    QFETCH(QString, entry);
    CountDownList list;
    list.fromText(u"{\"countdowns\":["_qs + entry + u"]}"_qs);
    QCOMPARE(list.count(), 1);
    QTEST(list.at(0)->getIgnition(), "ignition");
    QTEST(list.at(0)->getCountStart(), "countStart");
    QTEST(list.at(0)->getCountEnd(), "countEnd");
    QTEST(list.at(0)->getComment(), "comment");
    QTEST(list.at(0)->isEnabled(), "enabled");
}

void TestCountDownList::textsWithoutItems_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");

    QTest::newRow("empty") << QString() << 1;
    QTest::newRow("no JSON") << u"{\"countdowns\":[{}"_qs << 1;
    QTest::newRow("deeper than anybody writes") << QString(100000, u'[') << 1;
    QTest::newRow("an object without countdowns") << u"{}"_qs << 0;
    QTest::newRow("countdowns that are no array") << u"{\"countdowns\":5}"_qs << 0;
    QTest::newRow("an array") << u"[{}]"_qs << 0;
    QTest::newRow("an empty array") << u"{\"countdowns\":[]}"_qs << 0;
}

void TestCountDownList::textsWithoutItems()
{
    QFETCH(QString, text);
    CountDownList list;
    addTo(list, 10000, 9, 0);
    list.fromText(text);
    QTEST(list.count(), "count");
}

void TestCountDownList::aJsonOfMillionsIsCut()
{
    CountDownList list;
    list.fromText(u"{\"countdowns\":[0"_qs + u",0"_qs.repeated(2000000) + u"]}"_qs);
    QCOMPARE(list.count(), 64000);
}

void TestCountDownList::jsonGoesIntoAGivenObject()
{
    QJsonObject object{{u"positions"_qs, 1}};
    CountDownList list;
    addTo(list, 10000, 9, 0);
    list.toJson(object);
    QCOMPARE(object.keys(), (QStringList{u"countdowns"_qs, u"positions"_qs}));
    CountDownList again;
    again.fromJson(object);
    QCOMPARE(again.toText(), list.toText());
    again.fromJson(QJsonObject());
    QCOMPARE(again.count(), 0);
    again.toJson(object);
    QCOMPARE(object.value(u"countdowns"), QJsonValue(QJsonArray()));
}

void TestCountDownList::countdownsAreFoundInAnObject_data()
{
    QTest::addColumn<QJsonObject>("object");
    QTest::addColumn<bool>("found");

    QTest::newRow("missing") << QJsonObject() << false;
    QTest::newRow("array") << QJsonObject{{u"countdowns"_qs, QJsonArray()}} << true;
    QTest::newRow("object") << QJsonObject{{u"countdowns"_qs, QJsonObject()}} << false;
    QTest::newRow("text") << QJsonObject{{u"countdowns"_qs, u"[]"_qs}} << false;
}

void TestCountDownList::countdownsAreFoundInAnObject()
{
    QFETCH(QJsonObject, object);
    QTEST(CountDownList::hasCountdowns(object), "found");
}

void TestCountDownList::theFrameHoldsTheText()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    addTo(song.getCountDowns(), 10000, 9, 0)->setComment(u"Gruß 日本"_qs);
    song.getCountDowns().addNew();
    QVERIFY(song.save());
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(path), u"Countdowns"_qs),
             QStringList{song.getCountDowns().toText()});
    const Song again(path, false);
    QCOMPARE(again.getCountDowns().toText(), song.getCountDowns().toText());
    QCOMPARE(again.getCountDowns().at(0)->getComment(), u"Gruß 日本"_qs);
    QVERIFY(!again.getCountDowns().at(1)->hasIgnition());
}

void TestCountDownList::theFrameOfAnEmptyListGoes()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](TagLib::ID3v2::Tag &tag) {
        SongFiles::addUserText(tag, "Countdowns", R"({"countdowns":[{"count_start":4}]})");
    });
    Song song(path, false);
    song.getCountDowns().clear();
    QVERIFY(song.save());
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(path), u"Countdowns"_qs), QStringList());
}

void TestCountDownList::theFrameOfAForeignerIsRead()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](TagLib::ID3v2::Tag &tag) {
        SongFiles::addUserText(tag, "COUNTDOWNS", R"( {"countdowns" : [ {"count_start":4} ]} )");
    });
    Song song(path, false);
    QCOMPARE(song.getCountDowns().count(), 1);
    const CountDownItem *item = song.getCountDowns().at(0);
    QVERIFY(!item->isEnabled());
    QCOMPARE(item->getIgnition(), 0);
    QCOMPARE(item->getCountStart(), 4);
    QCOMPARE(item->getCountEnd(), 0);
    QCOMPARE(item->getComment(), QString());
    QVERIFY(song.save());
    const QJsonObject dump = SongFiles::dump(path);
    QCOMPARE(SongFiles::userTexts(dump, u"COUNTDOWNS"_qs), QStringList());
    QCOMPARE(SongFiles::userTexts(dump, u"Countdowns"_qs),
             QStringList{song.getCountDowns().toText()});
}

void TestCountDownList::aMissingFrameLeavesTheList()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    QVERIFY(song.save());
    addTo(song.getCountDowns(), 10000, 9, 0);
    QVERIFY(song.reload());
    QCOMPARE(song.getCountDowns().count(), 1);
    QVERIFY(song.save());
    addTo(song.getCountDowns(), 20000, 9, 0);
    QVERIFY(song.reload());
    QCOMPARE(song.getCountDowns().count(), 1);
}

void TestCountDownList::savingRenewsTheCountdowns()
{
    Song song(SongFiles::tone(files()), false);
    song.setBpm(u"120"_qs);
    const CountDownItem *item = addTo(song.getCountDowns(), 10000, 9, 0);
    QCOMPARE(item->getStartTime(), 0);
    QVERIFY(song.save());
    QCOMPARE(item->getStartTime(), 5500);
    song.setBpm(u"60"_qs);
    QCOMPARE(item->getStartTime(), 5500);
    QVERIFY(QFile::remove(song.getFilename()));
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:"_qs));
    QVERIFY(!song.save());
    QCOMPARE(item->getStartTime(), 1000);
}

TARVELO_TEST_MAIN(TestCountDownList, QGuiApplication)
#include "tst_CountDownList.moc"
