#include "Settings.h"
#include "TableModelFixture.h"
#include "TestMain.h"

#include <QColor>
#include <QFont>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

// What each cell of a song table tells, in each role.
class TestSongListCells : public QObject, TableModelFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { prepareModel(); }
    void cleanup() { dropModel(); }

    void columns_data();
    void columns();
    void columnsOutsideTheTable();
    void headingsAreSideways();
    void cells_data();
    void cells();
    void aFileDate();
    void eventsAreTold();
    void eventsAreCountedByTheirRounding();
    void positionsAreJoined();
    void marks();
    void aMissingFile();
    void theIndexIsTheRow();
    void directories_data();
    void directories();
    void directoryList();
    void aLevelHasItsNameOfToday();
    void rolesOfASongRow();
    void rolesOfTheFilterRow();
    void flags();
};

void TestSongListCells::columns_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("properties"); // c combo, s searched, v first descending
    QTest::addColumn<QString>("hidden");     // at the first start: r right, l left
    QTest::addColumn<QString>("alignments"); // of cells and heading: l, c, r
    int number = 0;
    const auto row = [&number](const char *heading, int type, const char *properties,
                               const char *hidden, const char *alignments) {
        QTest::newRow(heading) << number++ << type << QString::fromUtf8(properties)
                               << QString::fromUtf8(hidden) << QString::fromUtf8(alignments);
    };
    row("Titel", 10, "s", "", "ll");
    row("Auswahl", 1, "v", "rl", "cl");
    row("Künstler", 10, "s", "", "ll");
    row("Level", 10, "cs", "", "ll");
    row("BPM", 2, "c", "", "rr");
    row("Index", 2, "", "rl", "rr");
    row("Kommentar", 10, "s", "l", "ll");
    row("Genre", 10, "cs", "l", "ll");
    row("Jahr", 2, "csv", "l", "cc");
    row("Länge", 15, "", "l", "rr");
    row("Positionen J/N", 1, "v", "l", "cl");
    row("Choreografie J/N", 1, "v", "l", "cl");
    row("Choreograf", 10, "cs", "", "ll");
    row("Dateidatum", 16, "csv", "l", "rc");
    row("Verzeichnis", 10, "c", "l", "ll");
    row("Letztes Tempo", 6, "", "", "rr");
    row("Bewertung", 10, "cv", "l", "ll");
    row("Besitzer", 10, "s", "rl", "ll");
    row("Angepasst von", 10, "s", "rl", "ll");
    row("Event Anzahl", 2, "v", "l", "rr");
    row("Event Datum", 16, "csv", "l", "rc");
    row("Event Kategorie", 10, "cs", "l", "ll");
    row("Event", 10, "s", "l", "ll");
    row("Album", 10, "s", "rl", "ll");
    row("Track-Nr.", 2, "", "rl", "rr");
    row("Positionen", 10, "s", "rl", "ll");
    row("Pfad", 10, "s", "r", "ll");
    row("Cloud ID", 10, "", "rl", "ll");
    row("Version Choreografie", 2, "v", "rl", "rr");
    row("Version Positionen", 2, "v", "rl", "rr");
    row("Datei beschreibbar", 1, "v", "rl", "cl");
    row("Countdown J/N", 1, "v", "rl", "cl");
    row("ISWC Nummer", 10, "s", "rl", "ll");
}

void TestSongListCells::columns()
{
    QFETCH(int, number);
    QFETCH(QString, properties);
    QFETCH(QString, hidden);
    QFETCH(QString, alignments);
    model->setPlaylist(manager->getMasterList());
    song(u"a"_s);
    const auto header = [&](int role) { return model->headerData(number, Qt::Horizontal, role); };
    const auto aligned = [](QChar letter) {
        const QHash<QChar, Qt::Alignment> sides{
            {u'l', Qt::AlignLeft}, {u'c', Qt::AlignHCenter}, {u'r', Qt::AlignRight}};
        return sides.value(letter) | Qt::AlignVCenter;
    };
    QCOMPARE(header(Qt::DisplayRole).toString(), QString::fromUtf8(QTest::currentDataTag()));
    QTEST(SongListTableModel::columnType(number), "type");
    QCOMPARE(SongListTableModel::isComboColumn(number), properties.contains(u'c'));
    QCOMPARE(SongListTableModel::isSearchable(number), properties.contains(u's'));
    QCOMPARE(header(Qt::InitialSortOrderRole).toInt(),
             int(properties.contains(u'v') ? Qt::DescendingOrder : Qt::AscendingOrder));
    QCOMPARE(header(Qt::FontRole).value<QFont>().weight(), 700);
    QCOMPARE(header(Qt::TextAlignmentRole).value<Qt::Alignment>(), aligned(alignments.at(1)));
    for (const int row : {0, 1})
        QCOMPARE(cell(row, number).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
                 aligned(alignments.at(0)));
    const unsigned bits = songColumn(number)->hidden;
    QCOMPARE((bits & HiddenRight) != 0, hidden.contains(u'r'));
    QCOMPARE((bits & HiddenLeft) != 0, hidden.contains(u'l'));
    QCOMPARE(SongListTableModel::hasChoiceEntries(number),
             properties.contains(u'c') && number != 13 && number != 14);
}

void TestSongListCells::columnsOutsideTheTable()
{
    QCOMPARE(model->columnCount(), 33);
    for (const int number : {-1, 33, 1000}) {
        QCOMPARE(model->headerData(number, Qt::Horizontal).toString(), u"Unbekannt"_s);
        QVERIFY(!SongListTableModel::isComboColumn(number));
        QVERIFY(!SongListTableModel::isSearchable(number));
        QVERIFY(!SongListTableModel::hasChoiceEntries(number));
        QCOMPARE(model->filterText(number), QString());
        model->setFilterText(u"x"_s, number);
    }
}

void TestSongListCells::headingsAreSideways()
{
    QVERIFY(!model->headerData(0, Qt::Vertical).isValid());
    QVERIFY(!model->headerData(0, Qt::Vertical, Qt::FontRole).isValid());
}

void TestSongListCells::cells_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("column");
    QTest::addColumn<QVariant>("shown");
    const auto row = [](const char *name, const char *property, const QVariant &value, int column,
                        const QVariant &shown) {
        QTest::newRow(name) << QByteArray(property) << value << column << shown;
    };
    row("title", "title", u"Rocky Top"_s, 0, u"Rocky Top"_s);
    row("no title", "title", QString(), 0, u"song.mp3"_s);
    row("selected", "selected", true, 1, u"✓"_s);
    row("not selected", "selected", false, 1, u"-"_s);
    row("artist", "artist", u"Steppers"_s, 2, u"Steppers"_s);
    row("level", "level", u"Easy"_s, 3, u"Easy"_s);
    row("bpm", "bpm", u"120"_s, 4, 120);
    row("no bpm", "bpm", u"0"_s, 4, {});
    row("comment", "comment", u"slow end"_s, 6, u"slow end"_s);
    row("genre", "genre", u"Country"_s, 7, u"Country"_s);
    row("year", "year", u"2016"_s, 8, 2016);
    row("no year", "year", u"0"_s, 8, {});
    row("no length", "title", QString(), 9, QString());
    row("no positions", "title", QString(), 10, u"-"_s);
    row("no choreography", "title", QString(), 11, u"-"_s);
    row("choreographer", "choreographer", u"Ann, Bob"_s, 12, u"Ann, Bob"_s);
    row("no date", "title", QString(), 13, {});
    row("faster", "tempo", 2.0, 15, u"+2,0"_s);
    row("slower", "tempo", -3.5, 15, u"-3,5"_s);
    row("as recorded", "tempo", 0.0, 15, u"0,0"_s);
    row("no stars", "rating_stars", 0, 16, QString());
    row("a star", "rating_stars", 1, 16, u"★"_s);
    row("five stars", "rating_stars", 5, 16, u"★★★★★"_s);
    row("owner", "cue_owner", u"Cid"_s, 17, u"Cid"_s);
    row("adapted by", "adapted_by", u"Dee"_s, 18, u"Dee"_s);
    row("no events", "title", QString(), 19, {});
    row("no event date", "title", QString(), 20, {});
    row("album", "album", u"Hits"_s, 23, u"Hits"_s);
    row("track", "tracknum", u"7"_s, 24, u"7"_s);
    row("cloud id", "song_id", u"abc"_s, 27, u"abc"_s);
    row("version of the choreography", "version_choreo", 3, 28, 3);
    row("version of the positions", "version_pos", 4, 29, 4);
    row("iswc", "iswc_id", u"T-034"_s, 32, u"T-034"_s);
}

void TestSongListCells::cells()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(int, column);
    model->setPlaylist(manager->getMasterList());
    QVERIFY(song(u"song.mp3"_s)->setProperty(property.constData(), value));
    QTEST(cell(1, column).data(), "shown");
    QTEST(cell(1, column).data(Qt::ToolTipRole), "shown");
}

void TestSongListCells::aFileDate()
{
    model->setPlaylist(manager->getMasterList());
    const QDateTime utc(QDate(2016, 1, 31), QTime(23, 30), Qt::UTC);
    song(u"a"_s)->setModified(utc);
    const QVariant shown = cell(1, FileDateColumn).data();
    QCOMPARE(shown.metaType().id(), int(QMetaType::QDateTime));
    QCOMPARE(shown.toDateTime(), utc);
    QCOMPARE(shown.toDateTime().timeSpec(), Qt::LocalTime);
}

void TestSongListCells::eventsAreTold()
{
    model->setPlaylist(manager->getMasterList());
    const SongPtr played = song(u"a"_s);
    const QDateTime late(QDate(2024, 5, 4), QTime(20, 0), Qt::UTC);
    const auto add = [&](const char *category, const char *name, const QDateTime &date) {
        played->getDanceEvents().append(std::make_shared<DanceEvent>(
            QString::fromUtf8(category), QString::fromUtf8(name), QString(), date));
    };
    add("Training", "Monday", late.addDays(-9));
    add("Convention", "Berlin", late);
    add("Training", "Tuesday", late.addDays(-2));
    QCOMPARE(cell(1, EventCountColumn).data(), QVariant(2));
    QCOMPARE(cell(1, EventDateColumn).data().toDateTime(), late);
    QCOMPARE(cell(1, EventDateColumn).data().toDateTime().timeSpec(), Qt::LocalTime);
    QCOMPARE(cell(1, EventCategoryColumn).data().toString(), u"Training, Convention"_s);
    QCOMPARE(cell(1, EventNameColumn).data().toString(), u"Tuesday, Berlin, Monday"_s);
}

void TestSongListCells::eventsAreCountedByTheirRounding()
{
    model->setPlaylist(manager->getMasterList());
    const SongPtr played = song(u"a"_s);
    const QDateTime ten(QDate(2024, 5, 4), QTime(10, 0), Qt::UTC);
    for (const int minutes : {0, 50, 100, 180})
        played->getDanceEvents().append(std::make_shared<DanceEvent>(
            QString(), QString(), QString(), ten.addSecs(minutes * 60)));
    const QHash<int, int> counts{{0, 4}, {3600, 2}, {86400, 1}};
    for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
        Settings::setValue(Settings::Key::EventRounding, count.key());
        QCOMPARE(cell(1, EventCountColumn).data(), QVariant(count.value()));
    }
}

void TestSongListCells::positionsAreJoined()
{
    model->setPlaylist(manager->getMasterList());
    const SongPtr danced = song(u"a"_s);
    danced->getPositions().insert(0, {0, u"A"_s, u"Basic"_s});
    danced->getPositions().insert(1, {1000, u"B"_s, u"Triple\nTurn"_s});
    QCOMPARE(cell(1, PositionTextsColumn).data().toString(), u"Basic\nTriple\nTurn"_s);
    QCOMPARE(cell(1, HasPositionsColumn).data().toString(), u"✓"_s);
}

void TestSongListCells::marks()
{
    model->setPlaylist(manager->getMasterList());
    const SongPtr one = song(u"a"_s);
    QCOMPARE(cell(1, HasCountDownsColumn).data().toString(), u"-"_s);
    one->getCountDowns().addNew();
    QCOMPARE(cell(1, HasCountDownsColumn).data().toString(), u"✓"_s);
    QCOMPARE(cell(1, HasChoreographyColumn).data().toString(), u"-"_s);
    one->getCuesheet().set("%PDF-1.4");
    QCOMPARE(cell(1, HasChoreographyColumn).data().toString(), u"✓"_s);
    QCOMPARE(cell(1, WritableColumn).data().toString(), one->isReadonly() ? u"-"_s : u"✓"_s);
    QFile file(music->filePath(u"b"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    const SongPtr there = song(u"b"_s);
    const int row = model->song(1) == there ? 1 : 2;
    QVERIFY(!there->isReadonly());
    QCOMPARE(cell(row, WritableColumn).data().toString(), u"✓"_s);
    QVERIFY(there->setWriteProtection());
    QCOMPARE(cell(row, WritableColumn).data().toString(), u"-"_s);
}

void TestSongListCells::aMissingFile()
{
    const PlaylistPtr list(new PlaylistFile(manager.get()));
    list->add(u"/nowhere/gone.mp3"_s);
    model->setPlaylist(list);
    QVERIFY(model->song(1)->isMissingFile());
    for (int column = 0; column < model->columnCount(); ++column) {
        QCOMPARE(cell(1, column).data(Qt::BackgroundRole), QVariant(QColor(Qt::red)));
        QVERIFY(!cell(0, column).data(Qt::BackgroundRole).isValid());
    }
    for (const int column : {10, 11, 15, 30, 31})
        QVERIFY(!cell(1, column).data().isValid());
    QCOMPARE(cell(1, PathColumn).data().toString(), u"/nowhere/gone.mp3"_s);
    show(u"a"_s);
    QVERIFY(!cell(1).data(Qt::BackgroundRole).isValid());
}

void TestSongListCells::theIndexIsTheRow()
{
    show(u"abc"_s);
    for (const int row : {1, 2, 3})
        QCOMPARE(cell(row, IndexColumn).data(), QVariant(row));
}

void TestSongListCells::directories_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("directory");
    QTest::newRow("the music directory itself") << u"a.mp3"_s << u"/"_s;
    QTest::newRow("below it") << u"Pop/a.mp3"_s << u"/Pop"_s;
    QTest::newRow("deep below it") << u"Pop/Old/a.mp3"_s << u"/Pop/Old"_s;
    QTest::newRow("beside it") << u"../Other/a.mp3"_s << u"/../Other"_s;
}

void TestSongListCells::directories()
{
    QFETCH(QString, file);
    const PlaylistPtr list(new PlaylistFile(manager.get()));
    list->add(QDir::cleanPath(music->filePath(file)));
    model->setPlaylist(list);
    QTEST(cell(1, DirectoryColumn).data().toString(), "directory");
}

void TestSongListCells::directoryList()
{
    for (const QString &name : {u"Pop/a"_s, u"Pop/b"_s, u"c"_s, u"country/d"_s, u"Zydeco/e"_s})
        song(name);
    show({});
    model->rebuildDirList();
    QCOMPARE(SongListTableModel::getDirList(),
             (QStringList{u"/"_s, u"/Pop"_s, u"/Zydeco"_s, u"/country"_s}));
    QTemporaryDir other;
    Settings::setValue(Settings::Key::MusicDir, music->path() + u"/Pop"_s);
    model->rebuildDirList();
    QVERIFY(SongListTableModel::getDirList().contains(u"/../Zydeco"_s));
}

void TestSongListCells::aLevelHasItsNameOfToday()
{
    SongListTableModel second(manager.get());
    for (SongListTableModel *shown : {model.get(), &second})
        shown->setPlaylist(manager->getMasterList());
    song(u"a"_s)->setLevel(u"Intermediate-Advanced"_s);
    SongListTableModel::setHighIntermediateName(u"Intermediate+"_s);
    for (const SongListTableModel *shown : {model.get(), &second})
        QCOMPARE(shown->index(1, LevelColumn).data().toString(), u"Intermediate+"_s);
    song(u"a"_s)->setLevel(u"Easy"_s);
    QCOMPARE(cell(1, LevelColumn).data().toString(), u"Easy"_s);
}

void TestSongListCells::rolesOfASongRow()
{
    model->setPlaylist(manager->getMasterList());
    const SongPtr one = song(u"a"_s);
    for (const int column : {0, 1, 32})
        QCOMPARE(cell(1, column).data(Qt::UserRole).value<SongPtr>(), one);
    QVERIFY(!cell(1).data(Qt::EditRole).isValid());
    QVERIFY(!cell(1).data(Qt::CheckStateRole).isValid());
    QCOMPARE(model->song(1), one);
    for (const int row : {-1, 0, 2})
        QVERIFY(!model->song(row));
    QVERIFY(!model->data({}).isValid());
}

void TestSongListCells::rolesOfTheFilterRow()
{
    model->setPlaylist(manager->getMasterList());
    for (int column = 0; column < model->columnCount(); ++column) {
        model->setFilterText(u"text %1"_s.arg(column), column);
        const bool isBool = SongListTableModel::columnType(column) == QMetaType::Bool;
        QCOMPARE(cell(0, column).data(), isBool ? QVariant() : QVariant(u"text %1"_s.arg(column)));
        QCOMPARE(cell(0, column).data(Qt::EditRole).toString(), u"text %1"_s.arg(column));
        QCOMPARE(cell(0, column).data(Qt::UserRole), QVariant(-1));
        QVERIFY(!cell(0, column).data(Qt::ToolTipRole).isValid());
    }
}

void TestSongListCells::flags()
{
    show(u"a"_s);
    const Qt::ItemFlags usual = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren
                                | Qt::ItemIsDropEnabled | Qt::ItemIsDragEnabled;
    for (const int row : {0, 1}) {
        QCOMPARE(cell(row, 0).flags(), usual);
        QCOMPARE(cell(row, 1).flags(), usual | Qt::ItemIsEditable | Qt::ItemIsUserCheckable);
    }
    QCOMPARE(model->flags({}), Qt::ItemFlags(Qt::ItemIsDropEnabled));
}

TARVELO_TEST_MAIN(TestSongListCells, QGuiApplication)
#include "tst_SongListCells.moc"
