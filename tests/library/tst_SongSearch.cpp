#include "../playlists/TestLibrary.h"
#include "Clock.h"
#include "FilterSource.h"
#include "FilterTexts.h"
#include "PlainSongFilter.h"
#include "PlaylistMaster.h"
#include "Settings.h"
#include "SongListFilter.h"
#include "SongManager.h"
#include "TestMain.h"

#include <QAbstractItemModelTester>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

// Search and filters over whole song tables: what is prepared changes no result.
class TestSongSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void sameAsThePlainRule_data();
    void sameAsThePlainRule();
    void letterByLetter_data();
    void letterByLetter();
    void changedSongsAreFoundAsTheyAre_data();
    void changedSongsAreFoundAsTheyAre();
    void changesWithinAnEvent();
    void changesOfTheTable();
    void theSourceIsReadEachTime();
    void everythingIsShownAtTheStart();
    void onlyTheListThatIsSearched();
    void spansOfDates();
    void todayIsReadEachTime();
    void orderAfterAChangeOfFilters();
    void preparedInIdleTime();
    void theSelectedSongStaysKnown();

private:
    struct Source : FilterSource
    {
        QString searchText() const override { return text; }
        TempoBorders tempoBorders() const override { return borders; }
        bool isStartingUp() const override { return startingUp; }

        QString text;
        TempoBorders borders{85, 98, 112, 125};
        bool startingUp = false;
    };

    void fill(int songs, QRandomGenerator &random);
    SongPtr put(const QString &name);
    void show();
    void search(const QString &text);
    QString names() const;

    std::unique_ptr<SongManager> manager;
    std::unique_ptr<TestLibrary> library;
    std::unique_ptr<Source> source;
    std::unique_ptr<SongListTableModel> model;
    std::unique_ptr<SongListFilter> filter;
};

namespace {

QString pick(QRandomGenerator &random, const QStringList &all)
{
    return all.at(random.bounded(static_cast<int>(all.size())));
}

const QStringList words{u"rocky"_s,     u"Über"_s,       u"Élan"_s,  u"Fluss"_s,  u"fancy"_s,
                        u"Double"_s,    u"basic"_s,      u"Ain't"_s, u"(Down)"_s, u"R&B"_s,
                        u"1+1"_s,       u"Straße"_s,     u"Жук"_s,   u"中文"_s,   u"ΣΊΣΥΦΟΣ"_s,
                        u"rock-step"_s, u"[intro]"_s,    u"a/b"_s,   u"ﬁne"_s,    u"𐐀x"_s,
                        u"Ⅷ"_s,         u"\"quoted\""_s, u"éé"_s,    u"TOP"_s,    u"İstanbul"_s};

// Half of a letter can't be typed.
QString beginning(const QString &text, int length)
{
    const QString begin = text.left(length);
    return begin.endsWith(u'\xd801') ? begin.chopped(1) : begin;
}

QString someText(QRandomGenerator &random, int most)
{
    QStringList some;
    for (int count = random.bounded(most + 1); count > 0; --count)
        some.append(pick(random, words));
    return some.join(u' ');
}

QDateTime someTime(QRandomGenerator &random, QDate today)
{
    return QDateTime(today.addDays(-random.bounded(80)),
                     QTime(random.bounded(24), random.bounded(60)), Qt::UTC);
}

QString someSearch(QRandomGenerator &random)
{
    static const QStringList others{
        u""_s,          u" "_s, u"-"_s,       u"\""_s,          u"\"\""_s, u"2024"_s, u"202402"_s,
        u"20240229T"_s, u"★"_s, u":00.000"_s, u"2024-02-29T"_s, u"mp3"_s,  u"/m"_s,   u"zzz"_s};
    QStringList tokens;
    for (int count = 1 + random.bounded(3); count > 0; --count) {
        QString token = random.bounded(3) == 0 ? pick(random, others) : pick(random, words);
        if (random.bounded(2) == 0)
            token = beginning(token, 1 + random.bounded(4));
        if (random.bounded(3) == 0)
            token = random.bounded(2) == 0 ? token.toUpper() : token.toLower();
        if (random.bounded(4) == 0)
            token = u'"' + token + (random.bounded(4) == 0 ? u"x"_s : u" "_s) + pick(random, words)
                    + (random.bounded(4) == 0 ? QString() : u"\""_s);
        tokens.append(token);
    }
    return tokens.join(random.bounded(5) == 0 ? u"  "_s : u" "_s);
}

QString someFilter(QRandomGenerator &random, int column)
{
    switch (random.bounded(5)) {
    case 0:
        return pick(random, FilterTexts::choices());
    case 1:
        return beginning(someText(random, 2), 5);
    default:
        break;
    }
    switch (column) {
    case BpmColumn:
        return pick(random, FilterTexts::tempoBands());
    case FileDateColumn:
    case EventDateColumn:
        return pick(random, FilterTexts::datePresets());
    case RatingColumn:
        return pick(random, FilterTexts::ratings());
    case YearColumn:
        return pick(random, {u"2016"_s, u"1990-1999"_s, u"0000-1960"_s, u"12"_s});
    case HasPositionsColumn:
    case HasChoreographyColumn:
    case WritableColumn:
    case HasCountDownsColumn:
    case SelectedColumn:
        return pick(random, {u"✓"_s, u"-"_s});
    case EventCategoryColumn:
        return pick(random, {u"training"_s, u"Show"_s, u"train"_s});
    case DirectoryColumn:
        return pick(random, {u"/"_s, u"/M1"_s, u"/m2"_s});
    case LevelColumn:
        return pick(random, {u"easy"_s, u"Hoch"_s, u"Intermediate-Advanced"_s});
    default:
        return pick(random, {u"1"_s, u"0"_s, u":0"_s, u","_s, u"o"_s, u"É"_s});
    }
}

} // namespace

void TestSongSearch::init()
{
    QLocale::setDefault(QLocale(u"de_DE"_s));
    Settings::setValue(Settings::Key::MusicDir, u"/music"_s);
    SongListTableModel::setHighIntermediateName(u"Hoch"_s);
    Clock::setClock([] { return QDateTime(QDate(2024, 2, 29), QTime(12, 0)); });
    manager = std::make_unique<SongManager>();
    library = std::make_unique<TestLibrary>();
    source = std::make_unique<Source>();
    model = std::make_unique<SongListTableModel>(manager.get());
    filter = std::make_unique<SongListFilter>(model.get(), true);
    filter->setSource(source.get());
    new QAbstractItemModelTester(
        filter.get(), QAbstractItemModelTester::FailureReportingMode::QtTest, filter.get());
}

void TestSongSearch::cleanup()
{
    filter.reset();
    model.reset();
    source.reset();
    library.reset();
    manager.reset();
    Clock::setClock({});
    SongListTableModel::setHighIntermediateName({});
}

SongPtr TestSongSearch::put(const QString &name)
{
    return library->put(u"/music/%1"_s.arg(name));
}

void TestSongSearch::fill(int songs, QRandomGenerator &random)
{
    const QDate today(2024, 2, 29);
    for (int number = 0; number < songs; ++number) {
        const SongPtr song = put(
            u"m%1/%2 %3.mp3"_s.arg(number % 4).arg(number).arg(someText(random, 1).remove(u'/')));
        song->setTitle(someText(random, 3));
        song->setArtist(someText(random, 2));
        song->setLevel(
            pick(random, {QString(), u"Easy"_s, u"intermediate-advanced"_s, u"Basic"_s}));
        song->setBpm(QString::number(random.bounded(3) * 40 + random.bounded(60)));
        song->setComment(someText(random, 4));
        song->setGenre(pick(random, {QString(), u"rocky"_s, u"Élan"_s}));
        song->setYear(pick(random, {QString(), u"0"_s, u"1955"_s, u"1995"_s, u"2016"_s}));
        song->setChoreographer(someText(random, 2));
        if (random.bounded(4) != 0)
            song->setModified(someTime(random, today));
        song->setTempo(random.bounded(20) - 10);
        song->setRatingStars(random.bounded(6));
        song->setCueOwner(someText(random, 1));
        song->setAlbum(someText(random, 1));
        song->setTrackNum(QString::number(number % 13));
        song->setPlayLength(random.bounded(400));
        song->setSelected(number % 3 == 0);
        song->setMissingFile(number % 11 == 0);
        song->setVersionPos(number % 3);
        for (int count = random.bounded(4); count > 0; --count)
            song->getDanceEvents().append(std::make_shared<DanceEvent>(
                pick(random, {u"Training"_s, u"show"_s, u"training 2"_s, QString()}),
                someText(random, 1), QString(), someTime(random, today)));
        for (int count = random.bounded(3); count > 0; --count)
            song->getPositions().insert(0, Position(count, u"A"_s, someText(random, 3)));
    }
}

void TestSongSearch::show()
{
    const PlaylistPtr list(new PlaylistMaster(library.get()));
    list->refresh();
    model->setPlaylist(list);
}

void TestSongSearch::search(const QString &text)
{
    source->text = text;
    filter->applyFilters();
}

QString TestSongSearch::names() const
{
    QStringList all;
    for (int row = 1; row < filter->rowCount(); ++row)
        all.append(QFileInfo(filter->song(row)->getFilename()).fileName());
    all.sort();
    return all.join(u' ');
}

void TestSongSearch::sameAsThePlainRule_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 4; ++seed)
        QTest::addRow("library %u", seed) << seed;
}

void TestSongSearch::sameAsThePlainRule()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    fill(120, random);
    show();
    filter->sort(TitleColumn);
    PlainSongFilter plain(*model);
    plain.today = Clock::today();
    int shown = 0;
    int left = 0;
    for (int round = 0; round < 250; ++round) {
        plain.search = random.bounded(4) == 0 ? QString() : someSearch(random);
        model->clearFilterTexts();
        for (int count = random.bounded(3); count > 0 || plain.search.isEmpty(); --count) {
            const int column = random.bounded(SongColumnCount);
            model->setFilterText(someFilter(random, column), column);
            if (count <= 0)
                break;
        }
        for (const int number : {0, 1}) {
            plain.from[number] = QDate(2024, 2, 1 + random.bounded(28));
            plain.to[number] = random.bounded(4) == 0 ? QDate() : plain.from[number].addDays(9);
            filter->setDateRange(number == 0 ? FileDateColumn : EventDateColumn, plain.from[number],
                                 plain.to[number]);
        }
        search(plain.search);
        for (int row = 0; row < model->rowCount(); ++row) {
            const bool accepted = filter->mapFromSource(model->index(row, 0)).isValid();
            ++(accepted ? shown : left);
            if (accepted == plain.accepts(row))
                continue;
            QStringList filters;
            for (int column = 0; column < SongColumnCount; ++column)
                filters.append(model->filterText(column));
            QFAIL(qPrintable(u"row %1, search '%2', filters '%3'"_s.arg(row).arg(
                plain.search, filters.join(u'|'))));
        }
    }
    // Neither of them is the rule.
    QVERIFY(shown > 1500);
    QVERIFY(left > 1500);
}

void TestSongSearch::letterByLetter_data()
{
    QTest::addColumn<QString>("typed");
    for (const QString &typed : {u"rocky u\u0308ber \u00c9lan"_s, u"\"fancy double\" r"_s,
                                 u"a\"b c\"d"_s, u"u\u0308\u0301b"_s, u"  basic  (down)"_s,
                                 u"20240 2"_s, u"- rock-step"_s, u"\u0436ro"_s, u"\"\" x"_s})
        QTest::newRow(qPrintable(typed)) << typed;
}

// Also while songs, filters and rows change between two letters.
void TestSongSearch::letterByLetter()
{
    QFETCH(QString, typed);
    QRandomGenerator random(static_cast<quint32>(typed.size()));
    fill(150, random);
    show();
    filter->sort(TitleColumn);
    PlainSongFilter plain(*model);
    plain.today = Clock::today();
    const auto check = [&](const QString &text) {
        plain.search = text;
        search(text);
        for (int row = 0; row < model->rowCount(); ++row)
            QCOMPARE(filter->mapFromSource(model->index(row, 0)).isValid(), plain.accepts(row));
    };
    for (int round = 0; round < 6; ++round) {
        for (qsizetype length = 0; length <= typed.size(); ++length) {
            check(typed.left(length));
            const SongPtr song = model->song(1 + random.bounded(100));
            if (round % 2 == 1)
                song->setTitle(typed.mid(length - 1, 6) + someText(random, 2));
            if (round == 2)
                song->getDanceEvents().append(
                    std::make_shared<DanceEvent>(u"Show"_s, typed, QString()));
            if (round == 3)
                model->setFilterText(pick(random, {QString(), u"o"_s}), ArtistColumn);
            if (round == 4 && length % 5 == 4) {
                put(u"new %1"_s.arg(length))->setTitle(typed);
                show();
            }
            if (round == 5)
                model->setFilterText(random.bounded(2) == 0 ? u"\u2713"_s : QString(),
                                     HasPositionsColumn);
        }
        for (qsizetype length = typed.size(); length >= 0; --length)
            check(typed.left(length));
    }
}

void TestSongSearch::changedSongsAreFoundAsTheyAre_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("search");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *property, const QVariant &value, const QString &search,
                        int column = -1, const QString &text = {}) {
        QTest::newRow(property) << QByteArray(property) << value << search << column << text;
    };
    for (const char *property : {"title", "artist", "level", "comment", "genre", "choreographer",
                                 "cue_owner", "adapted_by", "album", "iswc_id"})
        row(property, u"Élan 7"_s, u"elan"_s);
    row("year", u"2016"_s, u"2016"_s);
    row("bpm", u"90"_s, {}, BpmColumn, u"Langsam"_s);
    row("tempo", 5.0, {}, LastTempoColumn, u"+5"_s);
    row("rating_stars", 3, {}, RatingColumn, u"★★★"_s);
    row("tracknum", u"17"_s, {}, TrackNumberColumn, u"17"_s);
    row("song_id", u"id9"_s, {}, CloudIdColumn, u"id9"_s);
    row("version_pos", 4, {}, PositionsVersionColumn, u"4"_s);
    row("missingFileFlag", true, {}, LastTempoColumn, u"0"_s);
}

// Nobody tells of the change: the next search sees it.
void TestSongSearch::changedSongsAreFoundAsTheyAre()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(QString, search);
    QFETCH(int, column);
    QFETCH(QString, text);
    const SongPtr a = put(u"a"_s);
    put(u"b"_s);
    show();
    if (column >= 0)
        model->setFilterText(text, column);
    const bool goes = property == "missingFileFlag";
    this->search(search);
    QCOMPARE(names(), goes ? u"a b"_s : QString());
    QVERIFY(a->setProperty(property.constData(), value));
    filter->applyFilters();
    QCOMPARE(names(), goes ? u"b"_s : u"a"_s);
    QVERIFY(a->setProperty(property.constData(), goes ? QVariant(false) : QVariant(0)));
    filter->applyFilters();
    QCOMPARE(names(), goes ? u"a b"_s : QString());
}

void TestSongSearch::changesWithinAnEvent()
{
    const SongPtr a = put(u"a"_s);
    a->getDanceEvents().append(std::make_shared<DanceEvent>(u"Training"_s, u"Monday"_s, QString()));
    show();
    search(u"monday"_s);
    QCOMPARE(names(), u"a"_s);
    a->getDanceEvents().at(0)->setName(u"Friday"_s);
    // Who changed it tells of it in one of three ways.
    model->refresh();
    QCOMPARE(names(), QString());
    a->getDanceEvents().at(0)->setName(u"Monday"_s);
    filter->invalidate();
    QCOMPARE(names(), u"a"_s);
    a->getDanceEvents().at(0)->setName(u"Sunday"_s);
    Q_EMIT model->dataChanged(model->index(1, 0), model->index(1, SongColumnCount - 1));
    QCOMPARE(names(), QString());
    a->getDanceEvents().append(std::make_shared<DanceEvent>(u"Training"_s, u"Monday"_s, QString()));
    filter->applyFilters();
    QCOMPARE(names(), u"a"_s);
    a->getPositions().insert(0, Position(0, u"A"_s, u"Rock step"_s));
    search(u"\"rock step\""_s);
    QCOMPARE(names(), u"a"_s);
    a->getPositions().at(0).setSteps(u"Chug"_s);
    search(u"\"rock step\""_s);
    QCOMPARE(names(), QString());
}

void TestSongSearch::changesOfTheTable()
{
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
        put(name)->setTitle(u"Title "_s + name);
    show();
    search(u"title"_s);
    QCOMPARE(names(), u"a b c"_s);
    search(u"\"title b\""_s);
    QCOMPARE(names(), u"b"_s);
    library->songs.remove(u"/music/b"_s);
    put(u"d"_s)->setTitle(u"The title B"_s);
    show();
    QCOMPARE(names(), u"d"_s);
    SongListTableModel::setHighIntermediateName(u"Title B"_s);
    library->songs.value(u"/music/a"_s)->setLevel(u"Intermediate-Advanced"_s);
    filter->applyFilters();
    QCOMPARE(names(), u"a d"_s);
    SongListTableModel::setHighIntermediateName(u"Hoch"_s);
    filter->applyFilters();
    QCOMPARE(names(), u"d"_s);
    search({});
    model->setFilterText(u"/Sub"_s, DirectoryColumn);
    put(u"sub/e"_s);
    show();
    QCOMPARE(names(), u"e"_s);
    Settings::setValue(Settings::Key::MusicDir, u"/music/sub"_s);
    model->refresh();
    QCOMPARE(names(), QString());
    model->setPlaylist({});
    QCOMPARE(filter->rowCount(), 0);
    search(u"a"_s);
    QCOMPARE(filter->rowCount(), 0);
}

void TestSongSearch::theSourceIsReadEachTime()
{
    put(u"slow"_s)->setBpm(u"80"_s);
    put(u"fast"_s)->setBpm(u"120"_s);
    show();
    model->setFilterText(u"Sehr langsam"_s, BpmColumn);
    filter->applyFilters();
    QCOMPARE(names(), u"slow"_s);
    source->borders[0] = 130;
    filter->invalidate();
    QCOMPARE(names(), u"fast slow"_s);
    source->borders[0] = 100;
    model->refresh();
    QCOMPARE(names(), u"slow"_s);
    source->text = u"fast"_s;
    model->refresh();
    QCOMPARE(names(), QString());
    filter->setSource(nullptr);
    model->clearFilterTexts();
    filter->applyFilters();
    QCOMPARE(names(), u"fast slow"_s);
}

void TestSongSearch::everythingIsShownAtTheStart()
{
    put(u"a"_s);
    source->startingUp = true;
    source->text = u"zzz"_s;
    show();
    model->setFilterText(u"zzz"_s, TitleColumn);
    filter->applyFilters();
    QCOMPARE(names(), u"a"_s);
    source->startingUp = false;
    filter->applyFilters();
    QCOMPARE(names(), QString());
    QCOMPARE(filter->rowCount(), 1);
}

void TestSongSearch::onlyTheListThatIsSearched()
{
    put(u"a"_s);
    put(u"b"_s);
    show();
    search(u"zzz"_s);
    QCOMPARE(names(), QString());
    filter->setGlobalSearchEnabled(false);
    QCOMPARE(names(), u"a b"_s);
    model->setFilterText(u"b"_s, TitleColumn);
    filter->applyFilters();
    QCOMPARE(names(), u"b"_s);
    filter->setGlobalSearchEnabled(true);
    QCOMPARE(names(), QString());
}

void TestSongSearch::spansOfDates()
{
    const QDateTime noon(QDate(2024, 2, 10), QTime(12, 0), Qt::UTC);
    put(u"a"_s)->setModified(noon);
    put(u"b"_s)->setModified(noon.addDays(1));
    const SongPtr c = put(u"c"_s);
    c->getDanceEvents().append(std::make_shared<DanceEvent>(QString(), QString(), QString(), noon));
    show();
    for (const int column : {TitleColumn, FileDateColumn})
        filter->setDateRange(column, QDate(2024, 2, 1), QDate(2024, 2, 10));
    model->setFilterText(FilterTexts::dateRange(), FileDateColumn);
    filter->applyFilters();
    QCOMPARE(names(), u"a"_s);
    filter->setDateRange(FileDateColumn, {}, {});
    filter->applyFilters();
    QCOMPARE(names(), u"a b"_s);
    model->clearFilterTexts();
    model->setFilterText(FilterTexts::dateRange(), EventDateColumn);
    filter->applyFilters();
    QCOMPARE(names(), QString());
    filter->setDateRange(EventDateColumn, QDate(2024, 2, 10), QDate(2024, 2, 10));
    filter->applyFilters();
    QCOMPARE(names(), u"c"_s);
}

void TestSongSearch::todayIsReadEachTime()
{
    put(u"a"_s)->setModified(QDateTime(QDate(2024, 2, 29), QTime(12, 0), Qt::UTC));
    show();
    model->setFilterText(u"Heute"_s, FileDateColumn);
    filter->applyFilters();
    QCOMPARE(names(), u"a"_s);
    Clock::setClock([] { return QDateTime(QDate(2024, 3, 1), QTime(0, 0)); });
    filter->applyFilters();
    QCOMPARE(names(), QString());
}

void TestSongSearch::orderAfterAChangeOfFilters()
{
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
        put(name)->setTitle(u"Title "_s + name);
    show();
    filter->sort(TitleColumn);
    const auto order = [this] {
        QString all;
        for (int row = 1; row < filter->rowCount(); ++row)
            all += filter->song(row)->getTitle().right(1);
        return all;
    };
    search(u"title"_s);
    QCOMPARE(order(), u"abc"_s);
    library->songs.value(u"/music/a"_s)->setTitle(u"Title x"_s);
    search({});
    QCOMPARE(order(), u"bcx"_s);
    filter->sort(TitleColumn, Qt::DescendingOrder);
    QCOMPARE(order(), u"xcb"_s);
    search(u"title"_s);
    QCOMPARE(order(), u"xcb"_s);
    QCOMPARE(filter->index(0, 0).data(Qt::UserRole), QVariant(-1));
}

void TestSongSearch::preparedInIdleTime()
{
    QRandomGenerator random(9);
    fill(400, random);
    show();
    filter->sort(TitleColumn);
    const int before = filter->rowCount();
    QTest::qWait(300);
    QCOMPARE(filter->rowCount(), before);
    search(u"rocky"_s);
    QVERIFY(filter->rowCount() > 1 && filter->rowCount() < before);
}

void TestSongSearch::theSelectedSongStaysKnown()
{
    put(u"a"_s)->setTitle(u"Apple"_s);
    put(u"b"_s)->setTitle(u"Banjo"_s);
    show();
    filter->sort(TitleColumn);
    const QSignalSpy told(filter.get(), &SongListFilter::filtersApplied);
    const QPersistentModelIndex banjo = filter->index(2, 0);
    search(u"banjo"_s);
    QCOMPARE(banjo.row(), 1);
    search({});
    QCOMPARE(banjo.row(), 2);
    search(u"apple"_s);
    QVERIFY(!banjo.isValid());
    QCOMPARE(told.count(), 3);
}

TARVELO_TEST_MAIN(TestSongSearch, QGuiApplication)
#include "tst_SongSearch.moc"
