#include "Clock.h"
#include "DatePresets.h"
#include "FilterTexts.h"
#include "PreparedSong.h"
#include "Song.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QDir>

#include <ctime>

using namespace Qt::StringLiterals;

// Which dates the presets of the date filters let through.
class TestDatePresets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void theOrderOfThePresets();
    void matches_data();
    void matches();
    void everyDayOfManyYears();
    void spans();
    void textsAreNoPresets();
    void datesAreLocal_data();
    void datesAreLocal();
    void theClockCanBeTurned();
};

namespace {

QDate day(const char *text)
{
    return QDate::fromString(QLatin1String(text), Qt::ISODate);
}

bool lets(const QString &preset, QDate date, QDate today)
{
    return datePreset(preset)->matches(date, {today, {}});
}

void setTimeZone(const char *zone)
{
    qputenv("TZ", zone);
    tzset();
}

} // namespace

void TestDatePresets::cleanup()
{
    Clock::setClock({});
}

void TestDatePresets::theOrderOfThePresets()
{
    const QStringList texts = FilterTexts::datePresets();
    QCOMPARE(texts.size(), 21);
    QCOMPARE(texts.front(), FilterTexts::dateRange());
    QCOMPARE(texts.front(), u"Zeitspanne eingeben ..."_s);
    QCOMPARE(texts.mid(1, 3), (QStringList{u"Heute"_s, u"Seit Gestern"_s, u"Seit Vorgestern"_s}));
    QCOMPARE(texts.mid(14),
             (QStringList{u"Montags"_s, u"Dienstags"_s, u"Mittwochs"_s, u"Donnerstags"_s,
                          u"Freitags"_s, u"Samstags"_s, u"Sonntags"_s}));
}

void TestDatePresets::matches_data()
{
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("first"); // the first day that is let through, and the last
    QTest::addColumn<QDate>("last");
    const auto row = [](const char *name, const QString &preset, const char *today,
                        const char *first, const char *last) {
        QTest::newRow(name) << preset << day(today) << day(first) << day(last);
    };
    const char *ever = "2999-12-31";
    row("today", u"Heute"_s, "2024-02-29", "2024-02-29", "2024-02-29");
    row("today, year's end", u"Heute"_s, "2024-12-31", "2024-12-31", "2024-12-31");
    row("yesterday, new year", u"Seit Gestern"_s, "2025-01-01", "2024-12-31", ever);
    row("yesterday, leap day", u"Seit Gestern"_s, "2024-03-01", "2024-02-29", ever);
    row("yesterday, no leap day", u"Seit Gestern"_s, "2025-03-01", "2025-02-28", ever);
    row("two days, new year", u"Seit Vorgestern"_s, "2025-01-01", "2024-12-30", ever);
    row("two days, clock goes on", u"Seit Vorgestern"_s, "2024-04-01", "2024-03-30", ever);
    row("week, on a Monday", u"Diese Woche"_s, "2024-12-30", "2024-12-30", ever);
    row("week, on a Sunday", u"Diese Woche"_s, "2025-01-05", "2024-12-30", ever);
    row("week, over a leap day", u"Diese Woche"_s, "2024-03-03", "2024-02-26", ever);
    row("last week, on a Monday", u"Seit letzter Woche"_s, "2024-03-04", "2024-02-26", ever);
    row("last week, new year", u"Seit letzter Woche"_s, "2025-01-05", "2024-12-23", ever);
    row("week before last", u"Seit vorletzter Woche"_s, "2025-01-06", "2024-12-23", ever);
    row("three weeks", u"Seit 3 Wochen"_s, "2025-01-12", "2024-12-16", ever);
    row("three weeks, clock goes back", u"Seit 3 Wochen"_s, "2024-11-11", "2024-10-21", ever);
    row("month, its first day", u"Dieser Monat"_s, "2025-01-01", "2025-01-01", ever);
    row("month, its last day", u"Dieser Monat"_s, "2024-02-29", "2024-02-01", ever);
    // Thirty days before the first, however long the month was.
    row("last month of 31 days", u"Seit letztem Monat"_s, "2025-01-15", "2024-12-02", ever);
    row("last month of 30 days", u"Seit letztem Monat"_s, "2024-12-31", "2024-11-01", ever);
    row("last month of 29 days", u"Seit letztem Monat"_s, "2024-03-31", "2024-01-31", ever);
    row("last month of 28 days", u"Seit letztem Monat"_s, "2025-03-01", "2025-01-30", ever);
    row("a week ago", u"Heute vor einer Woche"_s, "2025-01-01", "2024-12-25", "2024-12-25");
    row("a week ago, leap day", u"Heute vor einer Woche"_s, "2024-03-07", "2024-02-29",
        "2024-02-29");
    row("two weeks ago", u"Heute vor zwei Wochen"_s, "2024-04-07", "2024-03-24", "2024-03-24");
    row("three weeks ago", u"Heute vor drei Wochen"_s, "2024-03-21", "2024-02-29", "2024-02-29");
    row("four weeks ago", u"Heute vor vier Wochen"_s, "2024-11-20", "2024-10-23", "2024-10-23");
}

void TestDatePresets::matches()
{
    QFETCH(QString, preset);
    QFETCH(QDate, today);
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    QVERIFY(!lets(preset, first.addDays(-1), today));
    QVERIFY(lets(preset, first, today));
    QVERIFY(lets(preset, today, today) == (today >= first && today <= last));
    // What lies ahead counts as new.
    QVERIFY(lets(preset, last, today));
    QVERIFY(!lets(preset, last.addDays(1), today) || last.year() == 2999);
}

void TestDatePresets::everyDayOfManyYears()
{
    const QStringList weekdays = FilterTexts::datePresets().mid(14);
    for (QDate today(2023, 1, 1); today.year() < 2029; today = today.addDays(1)) {
        const QDate monday = today.addDays(1 - today.dayOfWeek());
        QVERIFY(lets(u"Diese Woche"_s, monday, today));
        QVERIFY(!lets(u"Diese Woche"_s, monday.addDays(-1), today));
        QVERIFY(lets(u"Dieser Monat"_s, QDate(today.year(), today.month(), 1), today));
        QVERIFY(!lets(u"Dieser Monat"_s, QDate(today.year(), today.month(), 1).addDays(-1), today));
        int days = 0;
        for (int number = 0; number < weekdays.size(); ++number)
            if (lets(weekdays.at(number), today, day("2024-02-29"))) {
                QCOMPARE(number + 1, today.dayOfWeek());
                ++days;
            }
        QCOMPARE(days, 1);
    }
}

void TestDatePresets::spans()
{
    const DatePreset *range = datePreset(FilterTexts::dateRange());
    const DateTerms terms{day("2024-06-01"), {day("2024-02-29"), day("2024-03-01")}};
    QVERIFY(terms.span.isValid());
    QVERIFY(!range->matches(day("2024-02-28"), terms));
    QVERIFY(range->matches(day("2024-02-29"), terms));
    QVERIFY(range->matches(day("2024-03-01"), terms));
    QVERIFY(!range->matches(day("2024-03-02"), terms));
    for (const DateSpan &open :
         {DateSpan(), DateSpan{day("2024-01-01"), {}}, DateSpan{{}, day("2024-01-01")}}) {
        QVERIFY(!open.isValid());
        QVERIFY(!range->matches(day("2024-01-01"), {day("2024-01-01"), open}));
    }
}

void TestDatePresets::textsAreNoPresets()
{
    for (const QString &text : {QString(), u"heute"_s, u"Gestern"_s, FilterTexts::noEntry()})
        QVERIFY(!datePreset(text));
}

void TestDatePresets::datesAreLocal_data()
{
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<QDate>("date");
    const auto utc = [](const char *date, int hour, int minute) {
        return QDateTime(day(date), QTime(hour, minute), Qt::UTC);
    };
    QTest::newRow("winter, before midnight") << utc("2024-12-31", 22, 59) << day("2024-12-31");
    QTest::newRow("winter, midnight") << utc("2024-12-31", 23, 0) << day("2025-01-01");
    QTest::newRow("summer, before midnight") << utc("2024-06-30", 21, 59) << day("2024-06-30");
    QTest::newRow("summer, midnight") << utc("2024-06-30", 22, 0) << day("2024-07-01");
    QTest::newRow("clock goes on") << utc("2024-03-31", 1, 0) << day("2024-03-31");
    QTest::newRow("night after it went on") << utc("2024-03-31", 22, 30) << day("2024-04-01");
    QTest::newRow("clock goes back") << utc("2024-10-27", 1, 0) << day("2024-10-27");
    QTest::newRow("night after it went back") << utc("2024-10-27", 22, 30) << day("2024-10-27");
    QTest::newRow("leap day") << utc("2024-02-28", 23, 30) << day("2024-02-29");
}

// A song of that time passes "today" on the day that a clock on the wall shows, and on no other.
void TestDatePresets::datesAreLocal()
{
    QFETCH(QDateTime, time);
    QFETCH(QDate, date);
    setTimeZone("Europe/Berlin");
    Song song(u"/music/a.mp3"_s, true);
    song.setModified(time);
    song.getDanceEvents().append(
        std::make_shared<DanceEvent>(QString(), QString(), QString(), time));
    const QDir music(u"/music"_s);
    const SongPlace place{1, music, QString()};
    const PreparedSong prepared(song, place);
    for (const SongColumn column : {FileDateColumn, EventDateColumn}) {
        const ColumnFilter today(column, u"Heute"_s);
        for (int days = -2; days <= 2; ++days) {
            FilterTerms terms;
            terms.today = date.addDays(days);
            QCOMPARE(prepared.passes(today, terms, song, place), days == 0);
        }
    }
    setTimeZone("UTC");
}

void TestDatePresets::theClockCanBeTurned()
{
    Clock::setClock([] { return QDateTime(QDate(2024, 2, 29), QTime(23, 59)); });
    QCOMPARE(Clock::today(), QDate(2024, 2, 29));
    Clock::setClock([] { return QDateTime(QDate(2024, 3, 1), QTime(0, 0)); });
    QCOMPARE(Clock::today(), QDate(2024, 3, 1));
    Clock::setClock({});
    QVERIFY(qAbs(Clock::now().secsTo(QDateTime::currentDateTime())) < 60);
}

TARVELO_TEST_MAIN(TestDatePresets, QCoreApplication)
#include "tst_DatePresets.moc"
