#include "FilterChoices.h"

#include "FilterTexts.h"
#include "SongColumns.h"
#include "TestMain.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

// What the boxes of a filter row offer.
class TestFilterChoices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void whichColumns_data();
    void whichColumns();
    void tempoBands();
    void levels();
    void theLevelOfManyNames();
    void genres();
    void choreographers();
    void categories();
    void categoriesWithinOthers();
    void directories();
    void dates_data();
    void dates();
    void ratings();
    void years_data();
    void years();

private:
    Song &add();
    void addEvents(const QStringList &categories);
    // Without the empty entry in front and the two at the end.
    QStringList choices(int column) const;

    QList<SongPtr> songs;
    QStringList found;
    QString highIntermediate;
    int year = 2026;
};

static const QStringList bothEntries{u"<Kein Eintrag>"_s, u"<Irgendein Eintrag>"_s};

void TestFilterChoices::init()
{
    songs.clear();
    found.clear();
    highIntermediate.clear();
    year = 2026;
}

Song &TestFilterChoices::add()
{
    const SongPtr song(new Song(u"/music/%1.mp3"_s.arg(songs.size()), true));
    songs.append(song);
    return *song;
}

void TestFilterChoices::addEvents(const QStringList &categories)
{
    Song &song = add();
    for (const QString &category : categories)
        song.getDanceEvents().append(std::make_shared<DanceEvent>(
            category, QString(), QString(), QDateTime::fromSecsSinceEpoch(1700000000)));
}

QStringList TestFilterChoices::choices(int column) const
{
    QStringList list = filterChoices(column, {songs, found, highIntermediate, year});
    if (list.isEmpty() || !list.takeFirst().isEmpty() || list.mid(list.size() - 2) != bothEntries)
        return {u"not framed"_s};
    return list.mid(0, list.size() - 2);
}

void TestFilterChoices::whichColumns_data()
{
    QTest::addColumn<int>("column");
    for (int column = -1; column <= SongColumnCount; ++column)
        QTest::addRow("%d", column) << column;
}

void TestFilterChoices::whichColumns()
{
    QFETCH(int, column);
    const SongColumnRow *row = songColumn(column);
    const QStringList list = filterChoices(column, {songs, found, highIntermediate, year});
    QCOMPARE(list.isEmpty(), !row || !row->combo);
    if (!list.isEmpty())
        QCOMPARE(list.constFirst(), QString());
}

void TestFilterChoices::tempoBands()
{
    QCOMPARE(choices(BpmColumn), (QStringList{u"Sehr langsam"_s, u"Langsam"_s, u"Normal"_s,
                                              u"Schnell"_s, u"Sehr schnell"_s}));
}

void TestFilterChoices::levels()
{
    for (const QString &level : {u"easy"_s, u"Basic"_s, QString(), u"Easy"_s, u"Basic"_s})
        add().setLevel(level);
    QCOMPARE(choices(LevelColumn), (QStringList{u"Basic"_s, u"Easy"_s, u"easy"_s}));
}

void TestFilterChoices::theLevelOfManyNames()
{
    for (const QString &level :
         {u"intermediate-advanced"_s, u"Intermediate+"_s, u"Easy"_s, u"Intermediate-Advanced"_s})
        add().setLevel(level);
    highIntermediate = u"Intermediate+"_s;
    QCOMPARE(choices(LevelColumn), (QStringList{u"Easy"_s, u"Intermediate+"_s}));
    highIntermediate = u"High Intermediate"_s;
    QCOMPARE(choices(LevelColumn),
             (QStringList{u"Easy"_s, u"High Intermediate"_s, u"Intermediate+"_s}));
}

void TestFilterChoices::genres()
{
    for (const QString &genre : {u"Pop"_s, u"bluegrass"_s, u"Country, Rock"_s, u"Pop"_s, QString()})
        add().setGenre(genre);
    QCOMPARE(choices(GenreColumn), (QStringList{u"bluegrass"_s, u"Country, Rock"_s, u"Pop"_s}));
}

void TestFilterChoices::choreographers()
{
    for (const QString &names : {u"Zoe, adam"_s, u"Bo  \t Smith ,Zoe"_s, u" , "_s, QString(),
                                 u"adam"_s, u"Änne,,Bo Smith"_s})
        add().setChoreographer(names);
    QCOMPARE(choices(ChoreographerColumn),
             (QStringList{u"adam"_s, u"Bo Smith"_s, u"Zoe"_s, u"Änne"_s}));
}

void TestFilterChoices::categories()
{
    addEvents({u"Training"_s, u"Auftritt"_s, u"Training"_s});
    addEvents({});
    addEvents({u"fest, Ball"_s, QString()});
    addEvents({u"Training"_s});
    QCOMPARE(choices(EventCategoryColumn),
             (QStringList{u"Auftritt"_s, u"Ball"_s, u"fest"_s, u"Training"_s}));
}

// The column doesn't show them, so that no filter would find them.
void TestFilterChoices::categoriesWithinOthers()
{
    addEvents({u"Fest"_s, u"Festival"_s});
    QCOMPARE(choices(EventCategoryColumn), (QStringList{u"Festival"_s}));
    addEvents({u"Fest"_s});
    QCOMPARE(choices(EventCategoryColumn), (QStringList{u"Fest"_s, u"Festival"_s}));
}

void TestFilterChoices::directories()
{
    found = {u"/"_s, u"/Zeta"_s, u"/alpha"_s};
    QCOMPARE(filterChoices(DirectoryColumn, {songs, found, highIntermediate, year}),
             (QStringList{QString(), u"/"_s, u"/Zeta"_s, u"/alpha"_s}));
    found.clear();
    QCOMPARE(filterChoices(DirectoryColumn, {songs, found, highIntermediate, year}),
             QStringList{QString()});
}

void TestFilterChoices::dates_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("file") << int(FileDateColumn);
    QTest::newRow("event") << int(EventDateColumn);
}

void TestFilterChoices::dates()
{
    QFETCH(int, column);
    const QStringList list = choices(column);
    QCOMPARE(list.mid(0, 3),
             (QStringList{u"Zeitspanne eingeben ..."_s, u"Heute"_s, u"Seit Gestern"_s}));
    QCOMPARE(list.constLast(), u"Sonntags"_s);
    QCOMPARE(list.size(), 21);
}

void TestFilterChoices::ratings()
{
    QCOMPARE(choices(RatingColumn),
             (QStringList{u"★"_s, u"★★"_s, u"★★★"_s, u"★★★★"_s, u"★★★★★"_s, u"★+"_s, u"★★+"_s,
                          u"★★★+"_s, u"★★★★+"_s, u"-★"_s, u"-★★"_s, u"-★★★"_s, u"-★★★★"_s}));
}

void TestFilterChoices::years_data()
{
    QTest::addColumn<int>("currentYear");
    QTest::addColumn<QString>("lastDecade");
    QTest::newRow("first of a decade") << 2020 << u"2020-2029"_s;
    QTest::newRow("within") << 2026 << u"2020-2029"_s;
    QTest::newRow("last of a decade") << 2029 << u"2020-2029"_s;
    QTest::newRow("the next one") << 2030 << u"2030-2039"_s;
    QTest::newRow("a clock that stands wrong") << 1970 << u"1970-1979"_s;
}

void TestFilterChoices::years()
{
    QFETCH(int, currentYear);
    QFETCH(QString, lastDecade);
    year = currentYear;
    const QStringList list = choices(YearColumn);
    QCOMPARE(list.mid(0, 3), (QStringList{u"0000-1960"_s, u"1960-1969"_s, u"1970-1979"_s}));
    QCOMPARE(list.at(list.size() - 6), lastDecade);
    for (int ago = 0; ago < 5; ++ago)
        QCOMPARE(list.at(list.size() - 1 - ago), QString::number(currentYear - ago));
    for (const QString &range : list.mid(0, list.size() - 5))
        QCOMPARE(range.size(), 9);
}

TARVELO_TEST_MAIN(TestFilterChoices, QCoreApplication)
#include "tst_FilterChoices.moc"
