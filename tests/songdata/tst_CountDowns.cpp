#include "CountDownItem.h"

#include "Settings.h"
#include "TestMain.h"

#include <QCoreApplication>

#include <limits>

using Settings::Key;

class TestCountDowns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aNewItemIsOff();
    void theSettingGivesTheType_data();
    void theSettingGivesTheType();
    void beatsLeadUpToTheIgnition_data();
    void beatsLeadUpToTheIgnition();
    void withoutBpmTheBeatLengthStays();
    void anItemIsActiveAroundItsCount_data();
    void anItemIsActiveAroundItsCount();
    void beatsAreCounted_data();
    void beatsAreCounted();
    void nothingIsShownWithoutBeatsOrMusic();
    void anyNumberCanBeCountedWith();
    void eventsAreComparedByAllFields();
    void eventsTravelThroughSignals();
};

namespace {

constexpr qint64 smallest = std::numeric_limits<qint64>::min();
constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr int smallestInt = std::numeric_limits<int>::min();
constexpr int largestInt = std::numeric_limits<int>::max();

void fill(CountDownItem &item, qint64 ignition, int start, int end)
{
    item.setIgnition(ignition);
    item.setCountStart(start);
    item.setCountEnd(end);
    item.setComment(u"Start"_qs);
    item.setEnabled(true);
}

} // namespace

void TestCountDowns::init()
{
    Settings::instance()->clear();
}

void TestCountDowns::aNewItemIsOff()
{
    const CountDownItem item;
    QCOMPARE(item.getIgnition(), 0);
    QVERIFY(item.hasIgnition());
    QCOMPARE(item.getCountStart(), 0);
    QCOMPARE(item.getCountEnd(), 0);
    QCOMPARE(item.getComment(), QString());
    QVERIFY(!item.isEnabled());
    QCOMPARE(item.getType(), 1);
    QCOMPARE(item.getStartTime(), 0);
    QCOMPARE(item.getBeatLength(), 0);
}

void TestCountDowns::theSettingGivesTheType_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<int>("type");

    QTest::newRow("not set") << QVariant() << 1;
    QTest::newRow("simple") << QVariant(0) << 1;
    QTest::newRow("window") << QVariant(1) << 2;
    QTest::newRow("cool") << QVariant(2) << 3;
    QTest::newRow("text") << QVariant(u"2"_qs) << 3;
    QTest::newRow("rubbish") << QVariant(u"x"_qs) << 1;
    QTest::newRow("largest") << QVariant(largestInt) << largestInt;
}

void TestCountDowns::theSettingGivesTheType()
{
    QFETCH(QVariant, setting);
    if (setting.isValid())
        Settings::setValue(Key::CountDownType, setting);
    CountDownItem item;
    item.resetCountDown(0);
    QTEST(item.getType(), "type");
}

void TestCountDowns::beatsLeadUpToTheIgnition_data()
{
    QTest::addColumn<int>("bpm");
    QTest::addColumn<qint64>("ignition");
    QTest::addColumn<int>("countStart");
    QTest::addColumn<int>("countEnd");
    QTest::addColumn<qint64>("beatLength");
    QTest::addColumn<qint64>("startTime");

    const auto row = [](const char *name, int bpm, qint64 ignition, int start, int end,
                        qint64 beatLength, qint64 startTime) {
        QTest::newRow(name) << bpm << ignition << start << end << beatLength << startTime;
    };
    row("downwards", 120, 10000, 9, 0, 500, 5500);
    row("upwards", 120, 10000, 1, 8, 500, 6500);
    row("one number", 120, 10000, 4, 4, 500, 10000);
    row("beats are cut to milliseconds", 128, 10000, 9, 0, 468, 5788);
    row("before the music", 120, 1000, 9, 0, 500, -3500);
    row("slowest", 1, 10000, 1, 0, 60000, -50000);
    row("faster than can be counted", 60001, 10000, 9, 0, 0, 10000);
    row("less than nothing", -5, 10000, 1, 0, -12000, 22000);
    row("widest span", 1, 0, smallestInt, largestInt, 60000, -257698037700000);
    row("not set", 120, smallest, 9, 0, 500, smallest);
    row("largest, backwards", -1, largest, 9, 0, -60000, largest);
}

void TestCountDowns::beatsLeadUpToTheIgnition()
{
    QFETCH(int, bpm);
    QFETCH(qint64, ignition);
    QFETCH(int, countStart);
    QFETCH(int, countEnd);
    CountDownItem item;
    fill(item, ignition, countStart, countEnd);
    item.resetCountDown(bpm);
    QTEST(item.getBeatLength(), "beatLength");
    QTEST(item.getStartTime(), "startTime");
}

void TestCountDowns::withoutBpmTheBeatLengthStays()
{
    CountDownItem item;
    fill(item, 10000, 9, 0);
    item.resetCountDown(0);
    QCOMPARE(item.getStartTime(), 10000);
    QCOMPARE(item.getBeatLength(), 0);
    QCOMPARE(item.makeEvent(10000, true).type, 0);
    item.resetCountDown(120);
    item.resetCountDown(0);
    QCOMPARE(item.getStartTime(), 10000);
    QCOMPARE(item.getBeatLength(), 500);
    QCOMPARE(item.makeEvent(9000, true), (CountDownEvent{2, u"Start"_qs, 1}));
}

void TestCountDowns::anItemIsActiveAroundItsCount_data()
{
    QTest::addColumn<qint64>("now");
    QTest::addColumn<bool>("active");

    QTest::newRow("long before") << qint64{0} << false;
    QTest::newRow("a second before") << qint64{4500} << false;
    QTest::newRow("less than a second before") << qint64{4501} << true;
    QTest::newRow("at the start") << qint64{5500} << true;
    QTest::newRow("at the end") << qint64{10000} << true;
    QTest::newRow("less than a second after") << qint64{10999} << true;
    QTest::newRow("a second after") << qint64{11000} << false;
    QTest::newRow("at the end of time") << largest << false;
    QTest::newRow("at the beginning of time") << smallest << false;
}

void TestCountDowns::anItemIsActiveAroundItsCount()
{
    QFETCH(qint64, now);
    CountDownItem item;
    fill(item, 10000, 9, 0);
    item.resetCountDown(120);
    QTEST(item.isActive(now), "active");
    item.setEnabled(false);
    QVERIFY(!item.isActive(now));
}

void TestCountDowns::beatsAreCounted_data()
{
    QTest::addColumn<int>("countStart");
    QTest::addColumn<int>("countEnd");
    QTest::addColumn<qint64>("now");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("onShow");

    const auto row = [](const char *name, int start, int end, qint64 now, int count, bool onShow) {
        QTest::newRow(name) << start << end << now << count << onShow;
    };
    row("active already", 9, 0, 4501, 10, false);
    row("a beat too early", 9, 0, 5000, 10, false);
    row("just before the first", 9, 0, 5499, 9, true);
    row("first", 9, 0, 5500, 9, true);
    row("first goes on by truncation", 9, 0, 5501, 8, true);
    row("second", 9, 0, 6000, 8, true);
    row("last", 9, 0, 10000, 0, true);
    row("last stays", 9, 0, 10400, 0, true);
    row("last stays to its end", 9, 0, 10499, 0, true);
    row("over", 9, 0, 10500, -1, false);
    row("up: a beat too early", 1, 8, 6000, 0, false);
    row("up: first", 1, 8, 6500, 1, true);
    row("up: second", 1, 8, 7000, 2, true);
    row("up: last", 1, 8, 10000, 8, true);
    row("up: last stays", 1, 8, 10499, 8, true);
    row("up: over", 1, 8, 10500, 9, false);
    row("one number", 4, 4, 10000, 4, true);
    row("one number: a beat before", 4, 4, 9500, 3, false);
}

void TestCountDowns::beatsAreCounted()
{
    QFETCH(int, countStart);
    QFETCH(int, countEnd);
    QFETCH(qint64, now);
    QFETCH(int, count);
    QFETCH(bool, onShow);
    Settings::setValue(Key::CountDownType, 2);
    CountDownItem item;
    fill(item, 10000, countStart, countEnd);
    item.resetCountDown(120);
    QCOMPARE(item.makeEvent(now, true), (CountDownEvent{count, u"Start"_qs, onShow ? 3 : 0}));
}

void TestCountDowns::nothingIsShownWithoutBeatsOrMusic()
{
    CountDownItem item;
    fill(item, 10000, 9, 5);
    QCOMPARE(item.makeEvent(10000, true), (CountDownEvent{0, u"Start"_qs, 0}));
    item.resetCountDown(120);
    QCOMPARE(item.makeEvent(10000, false), (CountDownEvent{0, u"Start"_qs, 0}));
    QCOMPARE(item.makeEvent(10000, true), (CountDownEvent{5, u"Start"_qs, 1}));
    item.resetCountDown(-120);
    QCOMPARE(item.makeEvent(10000, true), (CountDownEvent{0, u"Start"_qs, 0}));
    item.resetCountDown(60001);
    QCOMPARE(item.makeEvent(10000, true), (CountDownEvent{0, u"Start"_qs, 0}));
}

// Looked at by the sanitizers: none of this may leave the limits of its type.
void TestCountDowns::anyNumberCanBeCountedWith()
{
    const QList<qint64> times{smallest, smallest + 1, -1, 0, 1, largest - 1, largest};
    const QList<int> numbers{smallestInt, -1, 0, 1, largestInt};
    CountDownItem item;
    for (const qint64 ignition : times) {
        for (const int start : numbers) {
            for (const int end : numbers) {
                fill(item, ignition, start, end);
                for (const int bpm : {smallestInt, -1, 1, 60000, largestInt}) {
                    item.resetCountDown(bpm);
                    for (const qint64 now : times) {
                        const CountDownEvent event = item.makeEvent(now, true);
                        QVERIFY(event.type == 0 || item.getBeatLength() > 0);
                        QVERIFY(ignition != smallest || now < 0 || !item.isActive(now));
                    }
                }
            }
        }
    }
    fill(item, largest, 0, largestInt);
    item.resetCountDown(60000);
    QCOMPARE(item.makeEvent(smallest, true), (CountDownEvent{0, u"Start"_qs, 1}));
}

void TestCountDowns::eventsAreComparedByAllFields()
{
    QCOMPARE(CountDownEvent(), (CountDownEvent{0, QString(), 0}));
    const CountDownEvent event{3, u"a"_qs, 1};
    QCOMPARE(event, (CountDownEvent{3, u"a"_qs, 1}));
    QVERIFY(event != (CountDownEvent{4, u"a"_qs, 1}));
    QVERIFY(event != (CountDownEvent{3, u"b"_qs, 1}));
    QVERIFY(event != (CountDownEvent{3, u"a"_qs, 2}));
}

void TestCountDowns::eventsTravelThroughSignals()
{
    QVERIFY(QMetaType::fromName("CountDownEvent").isValid());
    const QVariant variant = QVariant::fromValue(CountDownEvent{3, u"a"_qs, 1});
    QCOMPARE(variant.value<CountDownEvent>(), (CountDownEvent{3, u"a"_qs, 1}));
}

TARVELO_TEST_MAIN(TestCountDowns, QCoreApplication)
#include "tst_CountDowns.moc"
