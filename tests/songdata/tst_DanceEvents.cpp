#include "DanceEventList.h"

#include "Settings.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <limits>

using Settings::Key;

class TestDanceEvents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aNewEventIsNow();
    void anEventHoldsWhatItIsMadeOf();
    void aDefaultEventIsOfTheLastCategory();
    void aChangedCategoryIsRemembered();
    void anEqualCategoryIsNotRemembered();
    void tempoBecomesText_data();
    void tempoBecomesText();
    void damagedDatesAreNotValid_data();
    void damagedDatesAreNotValid();
    void thereIsNoCurrentEventAtFirst();

    void aPlayIsRegisteredNow();
    void aPlayBelongsToTheCurrentEvent();
    void playsAreKeptInTheirOrder();
    void playsAreCountedRounded_data();
    void playsAreCountedRounded();
    void roundingGoesByStoredSeconds();
    void roundingChangesNoEvent();
    void theLastDateIsTheLatest();
    void textsAreCollected_data();
    void textsAreCollected();
    void aHistoryOfDifferentNamesIsCollectedInNoTime();
    void copiesShareTheirEvents();
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

bool isNow(const QDateTime &date)
{
    const qint64 age = date.secsTo(QDateTime::currentDateTime());
    return age >= 0 && age < 60;
}

QString lastCategory()
{
    return Settings::value(Key::LastDanceEventCategory).toString();
}

void freshSettings()
{
    Settings::instance()->clear();
    setCurrentDanceEvent(nullptr);
}

} // namespace

void TestDanceEvents::init()
{
    freshSettings();
}

void TestDanceEvents::aNewEventIsNow()
{
    const DanceEvent event;
    QVERIFY(isNow(event.getDate()));
    QCOMPARE(event.getCategory(), QString());
    QCOMPARE(event.getName(), QString());
    QCOMPARE(event.getTempo(), QString());
    QVERIFY(isNow(DanceEvent(u"a"_qs, u"b"_qs, u"c"_qs).getDate()));
}

void TestDanceEvents::anEventHoldsWhatItIsMadeOf()
{
    const QDateTime date = QDateTime::fromSecsSinceEpoch(tenOClock);
    DanceEvent event(u"Convention"_qs, u"Ulm"_qs, u"-2.5"_qs, date);
    QCOMPARE(event.getCategory(), u"Convention"_qs);
    QCOMPARE(event.getName(), u"Ulm"_qs);
    QCOMPARE(event.getTempo(), u"-2.5"_qs);
    QCOMPARE(event.getDate(), date);
    QCOMPARE(event.seconds(), tenOClock);
    QVERIFY(!Settings::contains(Key::LastDanceEventCategory));

    event.setName(u"Bonn"_qs);
    event.setTempo(u"x"_qs);
    event.setDate(date.addSecs(5));
    QCOMPARE(event.getName(), u"Bonn"_qs);
    QCOMPARE(event.getTempo(), u"x"_qs);
    QCOMPARE(event.seconds(), tenOClock + 5);
}

void TestDanceEvents::aDefaultEventIsOfTheLastCategory()
{
    QCOMPARE(DanceEvent::createDefault()->getCategory(), QString());
    Settings::setValue(Key::LastDanceEventCategory, u"Special"_qs);
    const auto event = DanceEvent::createDefault();
    QCOMPARE(event->getCategory(), u"Special"_qs);
    QCOMPARE(event->getName(), QString());
    QCOMPARE(event->getTempo(), QString());
    QVERIFY(isNow(event->getDate()));
}

void TestDanceEvents::aChangedCategoryIsRemembered()
{
    DanceEvent event;
    event.setCategory(u"Convention"_qs);
    QCOMPARE(event.getCategory(), u"Convention"_qs);
    QCOMPARE(lastCategory(), u"Convention"_qs);
    event.setCategory(QString());
    QCOMPARE(lastCategory(), QString());
    QVERIFY(Settings::contains(Key::LastDanceEventCategory));
}

void TestDanceEvents::anEqualCategoryIsNotRemembered()
{
    DanceEvent event(u"Training"_qs, QString(), QString());
    Settings::setValue(Key::LastDanceEventCategory, u"Special"_qs);
    event.setCategory(u"Training"_qs);
    QCOMPARE(lastCategory(), u"Special"_qs);
}

void TestDanceEvents::tempoBecomesText_data()
{
    QTest::addColumn<double>("percent");
    QTest::addColumn<QString>("text");

    QTest::newRow("recorded speed") << 0.0 << u"0"_qs;
    QTest::newRow("faster") << 1.05 * 100 - 100 << u"5"_qs;
    QTest::newRow("slower") << -3.5 << u"-3.5"_qs;
    QTest::newRow("six digits") << 12.3456789 << u"12.3457"_qs;
    QTest::newRow("small") << 0.00001 << u"1e-05"_qs;
}

void TestDanceEvents::tempoBecomesText()
{
    QFETCH(double, percent);
    DanceEvent event;
    event.setTempoPercent(percent);
    QTEST(event.getTempo(), "text");
}

void TestDanceEvents::damagedDatesAreNotValid_data()
{
    QTest::addColumn<QDateTime>("date");
    QTest::addColumn<bool>("valid");

    const auto at = [](qint64 seconds) { return QDateTime::fromSecsSinceEpoch(seconds); };
    QTest::newRow("too early") << at(99999999) << false;
    QTest::newRow("earliest") << at(100000000) << true;
    QTest::newRow("latest") << at(3000000000) << true;
    QTest::newRow("too late") << at(3000000001) << false;
    QTest::newRow("none") << QDateTime() << false;
    QTest::newRow("before the epoch") << at(-1600000000) << false;
    QTest::newRow("beyond all dates") << at(std::numeric_limits<qint64>::max()) << false;
}

void TestDanceEvents::damagedDatesAreNotValid()
{
    QFETCH(QDateTime, date);
    QTEST(DanceEvent(QString(), QString(), QString(), date).isValid(), "valid");
}

void TestDanceEvents::thereIsNoCurrentEventAtFirst()
{
    QVERIFY(!getCurrentDanceEvent());
    const auto event = eventAt(tenOClock);
    setCurrentDanceEvent(event);
    QCOMPARE(getCurrentDanceEvent(), event);
    setCurrentDanceEvent(nullptr);
    QVERIFY(!getCurrentDanceEvent());
}

void TestDanceEvents::aPlayIsRegisteredNow()
{
    Settings::setValue(Key::LastDanceEventCategory, u"Vorbereitung"_qs);
    DanceEventList list;
    list.addPlay(5.0);
    QCOMPARE(list.count(), 1);
    QCOMPARE(list.at(0)->getCategory(), u"Vorbereitung"_qs);
    QCOMPARE(list.at(0)->getName(), QString());
    QCOMPARE(list.at(0)->getTempo(), u"5"_qs);
    QVERIFY(isNow(list.at(0)->getDate()));
}

void TestDanceEvents::aPlayBelongsToTheCurrentEvent()
{
    Settings::setValue(Key::LastDanceEventCategory, u"Training"_qs);
    setCurrentDanceEvent(std::make_shared<DanceEvent>(u"Convention"_qs, u"Ulm"_qs, u"9"_qs,
                                                      QDateTime::fromSecsSinceEpoch(tenOClock)));
    DanceEventList list;
    list.addPlay(-2.5);
    QCOMPARE(list.at(0)->getCategory(), u"Convention"_qs);
    QCOMPARE(list.at(0)->getName(), u"Ulm"_qs);
    QCOMPARE(list.at(0)->getTempo(), u"-2.5"_qs);
    QVERIFY(isNow(list.at(0)->getDate()));
    QVERIFY(list.at(0) != getCurrentDanceEvent());
    QCOMPARE(lastCategory(), u"Convention"_qs);
}

void TestDanceEvents::playsAreKeptInTheirOrder()
{
    DanceEventList list = eventsAt({3000000000, tenOClock});
    list.addPlay(1.0);
    QCOMPARE(list.count(), 3);
    QCOMPARE(list.at(0)->seconds(), 3000000000);
    QCOMPARE(list.at(1)->seconds(), tenOClock);
    QCOMPARE(list.at(2)->getTempo(), u"1"_qs);
    list.removeAt(0);
    QCOMPARE(list.at(0)->seconds(), tenOClock);
    list.clear();
    QCOMPARE(list.count(), 0);
}

void TestDanceEvents::playsAreCountedRounded_data()
{
    QTest::addColumn<QList<qint64>>("dates");
    QTest::addColumn<int>("rounding");
    QTest::addColumn<int>("plays");

    constexpr qint64 minute = 60;
    const QList<qint64> evening{tenOClock, tenOClock + 50 * minute, tenOClock + 100 * minute,
                                tenOClock + 180 * minute};
    QTest::newRow("no play") << QList<qint64>() << 3600 << 0;
    QTest::newRow("one play") << QList<qint64>{tenOClock} << 3600 << 1;
    QTest::newRow("none") << evening << 0 << 4;
    QTest::newRow("hour") << evening << 3600 << 2;
    QTest::newRow("day") << evening << 86400 << 1;
    QTest::newRow("an hour apart") << QList<qint64>{tenOClock, tenOClock + 3600} << 3600 << 1;
    QTest::newRow("more than an hour") << QList<qint64>{tenOClock, tenOClock + 3601} << 3600 << 2;
    QTest::newRow("a chain counts once")
        << QList<qint64>{tenOClock, tenOClock + 3000, tenOClock + 6000, tenOClock + 9000} << 3600
        << 1;
    QTest::newRow("same second") << QList<qint64>{tenOClock, tenOClock} << 0 << 1;
    QTest::newRow("earlier than the one before")
        << QList<qint64>{tenOClock, tenOClock - 90000} << 0 << 1;
    QTest::newRow("after one that was earlier")
        << QList<qint64>{tenOClock, tenOClock - 90000, tenOClock} << 86400 << 2;
    QTest::newRow("any dates") << QList<qint64>{std::numeric_limits<qint64>::min(),
                                                std::numeric_limits<qint64>::max(),
                                                -9000000000000000, 9000000000000000}
                               << 3600 << 2;
}

void TestDanceEvents::playsAreCountedRounded()
{
    QFETCH(QList<qint64>, dates);
    QFETCH(int, rounding);
    Settings::setValue(Key::EventRounding, rounding);
    QTEST(eventsAt(dates).countRounded(), "plays");
}

// A list counts the same before and after it was stored.
void TestDanceEvents::roundingGoesByStoredSeconds()
{
    Settings::setValue(Key::EventRounding, 0);
    const auto at = [](int ms) {
        return std::make_shared<DanceEvent>(QString(), QString(), QString(),
                                            QDateTime::fromMSecsSinceEpoch(tenOClock * 1000 + ms));
    };
    DanceEventList list;
    list.append(at(900));
    list.append(at(1100));
    QCOMPARE(list.countRounded(), 2);
    DanceEventList again;
    again.fromTagText(list.toTagText());
    QCOMPARE(again.countRounded(), 2);
}

void TestDanceEvents::roundingChangesNoEvent()
{
    const DanceEventList list = eventsAt({tenOClock, tenOClock + 10});
    Settings::setValue(Key::EventRounding, 3600);
    QCOMPARE(list.countRounded(), 1);
    QCOMPARE(list, eventsAt({tenOClock, tenOClock + 10}));
}

void TestDanceEvents::theLastDateIsTheLatest()
{
    QVERIFY(DanceEventList().lastDate().isNull());
    QCOMPARE(eventsAt({tenOClock}).lastDate().toSecsSinceEpoch(), tenOClock);
    QCOMPARE(eventsAt({tenOClock, tenOClock + 7, 5}).lastDate().toSecsSinceEpoch(), tenOClock + 7);
    QCOMPARE(eventsAt({-20, -10}).lastDate().toSecsSinceEpoch(), -10);
}

void TestDanceEvents::textsAreCollected_data()
{
    QTest::addColumn<QString>("texts");
    QTest::addColumn<QString>("collected");

    QTest::newRow("none") << QString() << QString();
    QTest::newRow("one") << u"Ulm"_qs << u"Ulm"_qs;
    QTest::newRow("newest first") << u"Ulm|Bonn"_qs << u"Bonn, Ulm"_qs;
    QTest::newRow("twice") << u"Ulm|Bonn|Ulm"_qs << u"Ulm, Bonn"_qs;
    QTest::newRow("within a longer one") << u"Ulm|Ulm 2020"_qs << u"Ulm 2020"_qs;
    QTest::newRow("longer than one before") << u"Ulm 2020|Ulm"_qs << u"Ulm, Ulm 2020"_qs;
    QTest::newRow("another case") << u"ulm|Ulm"_qs << u"Ulm, ulm"_qs;
    QTest::newRow("empty") << u"|Ulm|"_qs << u"Ulm"_qs;
    QTest::newRow("across two") << u"m, B|Bonn|Ulm"_qs << u"Ulm, Bonn"_qs;
}

void TestDanceEvents::textsAreCollected()
{
    QFETCH(QString, texts);
    DanceEventList names;
    DanceEventList categories;
    for (const QString &text : texts.split(u'|')) {
        names.append(std::make_shared<DanceEvent>(u"Training"_qs, text, QString()));
        categories.append(std::make_shared<DanceEvent>(text, u"Name"_qs, QString()));
    }
    QTEST(names.allNames(), "collected");
    QTEST(categories.allCategories(), "collected");
}

void TestDanceEvents::aHistoryOfDifferentNamesIsCollectedInNoTime()
{
    DanceEventList list;
    for (int number = 0; number < 64000; ++number)
        list.append(std::make_shared<DanceEvent>(
            QString(), QStringLiteral("Event number %1").arg(number), QString()));
    QElapsedTimer time;
    time.start();
    const QString names = list.allNames();
    QVERIFY2(time.elapsed() < 5000, qPrintable(QString::number(time.elapsed())));
    QVERIFY(names.startsWith(u"Event number 63999, Event number 63998, "_qs));
    QVERIFY(names.size() >= 65536 && names.size() < 66000);
}

void TestDanceEvents::copiesShareTheirEvents()
{
    const DanceEventList list = eventsAt({tenOClock});
    DanceEventList copy = list;
    QCOMPARE(copy, list);
    copy.at(0)->setName(u"changed"_qs);
    QCOMPARE(list.at(0)->getName(), u"changed"_qs);
    copy.append(eventAt(tenOClock));
    QCOMPARE(list.count(), 1);
    QVERIFY(!(copy == list));
}

TARVELO_TEST_MAIN(TestDanceEvents, QCoreApplication)
#include "tst_DanceEvents.moc"
