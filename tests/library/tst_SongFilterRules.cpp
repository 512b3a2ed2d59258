#include "FilterTexts.h"
#include "SongFilterRules.h"
#include "TestMain.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

// What the filter of each column lets through.
class TestSongFilterRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTexts();
    void tempoBandsMeet();
    void passes_data();
    void passes();
    void fileDates_data();
    void fileDates();
    void eventDates_data();
    void eventDates();
};

namespace {

FilterTerms terms()
{
    FilterTerms now;
    now.tempoBorders = {85, 98, 112, 125};
    now.today = QDate(2024, 2, 29);
    return now;
}

const DateSpan february{QDate(2024, 2, 1), QDate(2024, 2, 29)};

} // namespace

void TestSongFilterRules::theTexts()
{
    QCOMPARE(FilterTexts::choices(), (QStringList{u"<Kein Eintrag>"_s, u"<Irgendein Eintrag>"_s}));
    QCOMPARE(FilterTexts::tempoBands(), (QStringList{u"Sehr langsam"_s, u"Langsam"_s, u"Normal"_s,
                                                     u"Schnell"_s, u"Sehr schnell"_s}));
    QCOMPARE(FilterTexts::ratings(),
             (QStringList{u"★"_s, u"★★"_s, u"★★★"_s, u"★★★★"_s, u"★★★★★"_s, u"★+"_s, u"★★+"_s,
                          u"★★★+"_s, u"★★★★+"_s, u"-★"_s, u"-★★"_s, u"-★★★"_s, u"-★★★★"_s}));
    QCOMPARE(FilterTexts::yearRange(0, 1960), u"0000-1960"_s);
    QCOMPARE(FilterTexts::yearRange(1960, 1969), u"1960-1969"_s);
}

// Each number of beats from 1 on belongs to exactly one band.
void TestSongFilterRules::tempoBandsMeet()
{
    for (int bpm = 0; bpm < 400; ++bpm) {
        int bands = 0;
        for (const TempoBand &band : tempoBands())
            bands += band.contains(bpm, terms().tempoBorders) ? 1 : 0;
        QCOMPARE(bands, bpm == 0 ? 0 : 1);
    }
}

void TestSongFilterRules::passes_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("let");
    QTest::addColumn<QStringList>("kept");
    const auto row = [](SongColumn column, const QString &filter, const QStringList &let,
                        const QStringList &kept) {
        QTest::addRow("%s: %s", songColumn(column)->heading, qPrintable(filter))
            << static_cast<int>(column) << filter << let << kept;
    };
    const QString none;
    row(TitleColumn, u"ROCK"_s, {u"rocky top"_s, u"the rock"_s}, {none, u"roc"_s});
    row(TitleColumn, u"über"_s, {u"den über"_s}, {u"den uber"_s});
    row(TitleColumn, u"<Kein Eintrag>"_s, {u"<kein eintrag>"_s}, {none, u"a"_s});
    row(ArtistColumn, u" "_s, {u"a b"_s}, {u"ab"_s, none});
    row(LevelColumn, u"Easy"_s, {u"easy"_s}, {u"easy-intermediate"_s, none});
    row(LevelColumn, u"<Kein Eintrag>"_s, {none}, {u"easy"_s});
    row(LevelColumn, u"<Irgendein Eintrag>"_s, {u"easy"_s}, {none});
    row(BpmColumn, u"Sehr langsam"_s, {u"1"_s, u"85"_s}, {none, u"86"_s});
    row(BpmColumn, u"Langsam"_s, {u"86"_s, u"98"_s}, {none, u"85"_s, u"99"_s});
    row(BpmColumn, u"Normal"_s, {u"99"_s, u"112"_s}, {none, u"98"_s, u"113"_s});
    row(BpmColumn, u"Schnell"_s, {u"113"_s, u"125"_s}, {none, u"112"_s, u"126"_s});
    row(BpmColumn, u"Sehr schnell"_s, {u"126"_s, u"300"_s}, {none, u"125"_s});
    row(BpmColumn, u"120"_s, {u"120"_s, u"90"_s, none}, {});
    row(BpmColumn, u"<Kein Eintrag>"_s, {none}, {u"85"_s});
    row(BpmColumn, u"<Irgendein Eintrag>"_s, {u"85"_s}, {none});
    row(YearColumn, u"1999"_s, {u"1999"_s}, {none, u"1998"_s, u"2000"_s});
    row(YearColumn, u"0000-1960"_s, {u"1"_s, u"1960"_s}, {none, u"1961"_s});
    row(YearColumn, u"1960-1969"_s, {u"1960"_s, u"1969"_s}, {none, u"1959"_s, u"1970"_s});
    row(YearColumn, u"1969-1960"_s, {}, {none, u"1960"_s, u"1965"_s});
    row(YearColumn, u"123456789"_s, {}, {none, u"1999"_s});
    row(YearColumn, u"<Kein Eintrag>"_s, {none}, {u"1999"_s});
    row(YearColumn, u"<Irgendein Eintrag>"_s, {u"1999"_s}, {none});
    row(GenreColumn, u"Bluegrass"_s, {u"bluegrass"_s}, {u"bluegrass pop"_s, none});
    row(ChoreographerColumn, u"Ann Lee"_s, {u"ann lee"_s, u"jo, ann lee"_s, u"joann leery"_s},
        {none, u"ann"_s});
    row(ChoreographerColumn, u"<Kein Eintrag>"_s, {none}, {u"ann"_s});
    row(DirectoryColumn, u"/Easy"_s, {u"/easy"_s}, {u"/easy/a"_s, u"/"_s});
    row(DirectoryColumn, u"<Kein Eintrag>"_s, {}, {none, u"/"_s});
    row(RatingColumn, u"★★★"_s, {u"★★★"_s}, {none, u"★★"_s, u"★★★★"_s});
    row(RatingColumn, u"★★★+"_s, {u"★★★"_s, u"★★★★"_s, u"★★★★★"_s}, {none, u"★"_s, u"★★"_s});
    // The sign counts as a place.
    row(RatingColumn, u"-★★★"_s, {none, u"★"_s, u"★★"_s, u"★★★"_s}, {u"★★★★"_s, u"★★★★★"_s});
    row(RatingColumn, u"-★"_s, {none, u"★"_s}, {u"★★"_s});
    row(RatingColumn, u"+"_s, {none, u"★"_s}, {});
    row(RatingColumn, u"<Kein Eintrag>"_s, {none}, {u"★"_s});
    row(RatingColumn, u"<Irgendein Eintrag>"_s, {u"★"_s}, {none});
    row(EventCategoryColumn, u"Training"_s,
        {u"training"_s, u"show, training"_s, u"training, show"_s},
        {none, u"show"_s, u"training 2"_s, u"show,training"_s});
    row(EventCategoryColumn, u"<Kein Eintrag>"_s, {none}, {u"show"_s});
    row(SelectedColumn, u"✓"_s, {u"✓"_s, u"-"_s, none}, {});
    for (const SongColumn column :
         {HasPositionsColumn, HasChoreographyColumn, WritableColumn, HasCountDownsColumn}) {
        row(column, u"✓"_s, {u"✓"_s}, {u"-"_s, none});
        row(column, u"-"_s, {u"-"_s}, {u"✓"_s, none});
    }
    row(LengthColumn, u"2:0"_s, {u"2:05"_s, u"12:00"_s}, {none, u"2:15"_s});
    row(LastTempoColumn, u"+2"_s, {u"+2,0"_s}, {u"-2,0"_s, u"2,0"_s, none});
    row(EventCountColumn, u"1"_s, {u"1"_s, u"21"_s}, {none, u"2"_s});
    row(PositionTextsColumn, u"b\nc"_s, {u"ab\ncd"_s}, {u"b c"_s});
}

void TestSongFilterRules::passes()
{
    QFETCH(int, column);
    QFETCH(QString, filter);
    QFETCH(QStringList, let);
    QFETCH(QStringList, kept);
    const ColumnFilter rule(static_cast<SongColumn>(column), filter);
    for (const QString &value : std::as_const(let))
        QVERIFY2(rule.passes({value, {}}, terms()), qPrintable(value));
    for (const QString &value : std::as_const(kept))
        QVERIFY2(!rule.passes({value, {}}, terms()), qPrintable(value));
}

void TestSongFilterRules::fileDates_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<bool>("hasSpan");
    QTest::addColumn<bool>("inSpan"); // whether the song of 15 February passes
    QTest::addColumn<bool>("beside"); // and that of 1 March
    QTest::newRow("span") << FilterTexts::dateRange() << true << true << false;
    QTest::newRow("span without an end") << FilterTexts::dateRange() << false << true << true;
    QTest::newRow("unknown") << u"2024-02-15"_s << false << true << true;
    QTest::newRow("choice") << FilterTexts::noEntry() << false << true << true;
    QTest::newRow("preset") << u"Heute vor zwei Wochen"_s << false << true << false;
}

void TestSongFilterRules::fileDates()
{
    QFETCH(QString, filter);
    QFETCH(bool, hasSpan);
    QFETCH(bool, inSpan);
    QFETCH(bool, beside);
    FilterTerms now = terms();
    now.eventDates = february; // not this column's
    if (hasSpan)
        now.fileDates = february;
    const ColumnFilter rule(FileDateColumn, filter);
    const QList<QDate> inside{QDate(2024, 2, 15)};
    const QList<QDate> outside{QDate(2024, 3, 1)};
    QCOMPARE(rule.passes({u"2024", inside}, now), inSpan);
    QCOMPARE(rule.passes({u"2024", outside}, now), beside);
    QVERIFY(!rule.passes({}, now));
}

void TestSongFilterRules::eventDates_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<bool>("hasSpan");
    QTest::addColumn<bool>("inSpan");
    QTest::addColumn<bool>("beside");
    QTest::addColumn<bool>("without"); // whether a song without events passes
    QTest::newRow("span") << FilterTexts::dateRange() << true << true << false << false;
    QTest::newRow("span without an end")
        << FilterTexts::dateRange() << false << false << false << false;
    QTest::newRow("unknown") << u"2024-02-15"_s << false << false << false << false;
    QTest::newRow("preset") << u"Heute vor zwei Wochen"_s << false << true << false << false;
    QTest::newRow("no entry") << FilterTexts::noEntry() << false << false << false << true;
    QTest::newRow("any entry") << FilterTexts::anyEntry() << false << true << true << false;
}

void TestSongFilterRules::eventDates()
{
    QFETCH(QString, filter);
    QFETCH(bool, hasSpan);
    QFETCH(bool, inSpan);
    QFETCH(bool, beside);
    QFETCH(bool, without);
    FilterTerms now = terms();
    now.fileDates = february;
    if (hasSpan)
        now.eventDates = february;
    const ColumnFilter rule(EventDateColumn, filter);
    // One of the events is enough, whichever.
    const QList<QDate> inside{QDate(2023, 1, 1), QDate(2024, 2, 15), QDate(2024, 3, 1)};
    const QList<QDate> outside{QDate(2023, 1, 1), QDate(2024, 3, 1)};
    QCOMPARE(rule.passes({u"2024", inside}, now), inSpan);
    QCOMPARE(rule.passes({u"2024", outside}, now), beside);
    QCOMPARE(rule.passes({}, now), without);
}

TARVELO_TEST_MAIN(TestSongFilterRules, QCoreApplication)
#include "tst_SongFilterRules.moc"
