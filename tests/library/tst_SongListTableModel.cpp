#include "SongListTableModel.h"

#include "Settings.h"
#include "SongManager.h"
#include "TestMain.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QDataStream>
#include <QFont>
#include <QGuiApplication>
#include <QMimeData>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

// The table that shows one list of songs: what each cell tells, the filter row, and what is done to
// the list through it. Its songs are files that nobody could play; the records are set by the test.
class TestSongListTableModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

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
    void filterTexts();
    void anEmptyListHasTheFilterRow();
    void withoutAListThereIsNoRow();
    void theLibraryIsFollowed();
    void everyChangeIsTold();
    void rowsAreRemovedOneByOne();
    void removingFromTheLibraryRemovesTheFile();
    void movingUp_data();
    void movingUp();
    void movingDown_data();
    void movingDown();
    void theLibraryHasNoOrder();
    void songsAreAdded();
    void songsAreAddedToTheLibrary();
    void formats();
    void dragged();
    void nothingDragged();
    void dropsInAnotherList_data();
    void dropsInAnotherList();
    void dropsInTheSameList_data();
    void dropsInTheSameList();
    void whatIsNotDropped();
    void brokenDrags();

private:
    SongPtr song(const QString &name);
    // The model shows a playlist of these songs, one a letter.
    void show(const QString &letters);
    QString letters(const PlaylistPtr &list) const;
    QString letters() const { return letters(model->getPlaylist()); }
    QModelIndex cell(int row, int column = 0) const { return model->index(row, column); }
    std::unique_ptr<QMimeData> drag(const SongListTableModel &from, const QList<int> &rows) const;

    std::unique_ptr<QTemporaryDir> music;
    std::unique_ptr<SongManager> manager;
    std::unique_ptr<SongListTableModel> model;
};

void TestSongListTableModel::init()
{
    music = std::make_unique<QTemporaryDir>();
    Settings::setValue(Settings::Key::MusicDir, music->path());
    manager = std::make_unique<SongManager>();
    model = std::make_unique<SongListTableModel>(manager.get());
    SongListTableModel::setHighIntermediateName({});
    new QAbstractItemModelTester(
        model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest, model.get());
    QLocale::setDefault(QLocale(u"de"_s));
}

void TestSongListTableModel::cleanup()
{
    model.reset();
    manager.reset();
}

SongPtr TestSongListTableModel::song(const QString &name)
{
    const QString path = music->filePath(name);
    manager->addSong(path);
    return manager->getSong(path);
}

void TestSongListTableModel::show(const QString &letters)
{
    const PlaylistPtr list(new PlaylistFile(manager.get()));
    for (const QChar letter : letters)
        list->add(song(letter).data()->getFilename());
    model->setPlaylist(list);
}

QString TestSongListTableModel::letters(const PlaylistPtr &list) const
{
    QString names;
    for (const SongPtr &entry : list->songs())
        names.append(QFileInfo(entry->getFilename()).fileName());
    return names;
}

// The rows' whole width, as a table's selection has them.
std::unique_ptr<QMimeData> TestSongListTableModel::drag(const SongListTableModel &from,
                                                        const QList<int> &rows) const
{
    QModelIndexList indexes;
    for (const int row : rows) {
        for (int column = 0; column < from.columnCount(); ++column)
            indexes.append(from.index(row, column));
    }
    return std::unique_ptr<QMimeData>(from.mimeData(indexes));
}

void TestSongListTableModel::columns_data()
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

void TestSongListTableModel::columns()
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

void TestSongListTableModel::columnsOutsideTheTable()
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

void TestSongListTableModel::headingsAreSideways()
{
    QVERIFY(!model->headerData(0, Qt::Vertical).isValid());
    QVERIFY(!model->headerData(0, Qt::Vertical, Qt::FontRole).isValid());
}

void TestSongListTableModel::cells_data()
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

void TestSongListTableModel::cells()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(int, column);
    model->setPlaylist(manager->getMasterList());
    QVERIFY(song(u"song.mp3"_s)->setProperty(property.constData(), value));
    QTEST(cell(1, column).data(), "shown");
    QTEST(cell(1, column).data(Qt::ToolTipRole), "shown");
}

void TestSongListTableModel::aFileDate()
{
    model->setPlaylist(manager->getMasterList());
    const QDateTime utc(QDate(2016, 1, 31), QTime(23, 30), Qt::UTC);
    song(u"a"_s)->setModified(utc);
    const QVariant shown = cell(1, FileDateColumn).data();
    QCOMPARE(shown.metaType().id(), int(QMetaType::QDateTime));
    QCOMPARE(shown.toDateTime(), utc);
    QCOMPARE(shown.toDateTime().timeSpec(), Qt::LocalTime);
}

void TestSongListTableModel::eventsAreTold()
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

void TestSongListTableModel::eventsAreCountedByTheirRounding()
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

void TestSongListTableModel::positionsAreJoined()
{
    model->setPlaylist(manager->getMasterList());
    const SongPtr danced = song(u"a"_s);
    danced->getPositions().insert(0, {0, u"A"_s, u"Basic"_s});
    danced->getPositions().insert(1, {1000, u"B"_s, u"Triple\nTurn"_s});
    QCOMPARE(cell(1, PositionTextsColumn).data().toString(), u"Basic\nTriple\nTurn"_s);
    QCOMPARE(cell(1, HasPositionsColumn).data().toString(), u"✓"_s);
}

void TestSongListTableModel::marks()
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

void TestSongListTableModel::aMissingFile()
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

void TestSongListTableModel::theIndexIsTheRow()
{
    show(u"abc"_s);
    for (const int row : {1, 2, 3})
        QCOMPARE(cell(row, IndexColumn).data(), QVariant(row));
}

void TestSongListTableModel::directories_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("directory");
    QTest::newRow("the music directory itself") << u"a.mp3"_s << u"/"_s;
    QTest::newRow("below it") << u"Pop/a.mp3"_s << u"/Pop"_s;
    QTest::newRow("deep below it") << u"Pop/Old/a.mp3"_s << u"/Pop/Old"_s;
    QTest::newRow("beside it") << u"../Other/a.mp3"_s << u"/../Other"_s;
}

void TestSongListTableModel::directories()
{
    QFETCH(QString, file);
    const PlaylistPtr list(new PlaylistFile(manager.get()));
    list->add(QDir::cleanPath(music->filePath(file)));
    model->setPlaylist(list);
    QTEST(cell(1, DirectoryColumn).data().toString(), "directory");
}

void TestSongListTableModel::directoryList()
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

void TestSongListTableModel::aLevelHasItsNameOfToday()
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

void TestSongListTableModel::rolesOfASongRow()
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

void TestSongListTableModel::rolesOfTheFilterRow()
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

void TestSongListTableModel::flags()
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

void TestSongListTableModel::filterTexts()
{
    for (int column = 0; column < model->columnCount(); ++column)
        QCOMPARE(model->filterText(column), QString());
    model->setFilterText(u"before any list"_s, 0);
    show(u"a"_s);
    QSignalSpy changed(model.get(), &SongListTableModel::dataChanged);
    QSignalSpy told(model.get(), &SongListTableModel::notifyModelChanged);
    model->setFilterText(u"easy"_s, LevelColumn);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), cell(0, LevelColumn));
    QCOMPARE(model->filterText(LevelColumn), u"easy"_s);
    QCOMPARE(model->filterText(0), u"before any list"_s);
    QCOMPARE(told.size(), 0);
    show(u"b"_s);
    QCOMPARE(model->filterText(LevelColumn), u"easy"_s);
    model->clearFilterTexts();
    for (int column = 0; column < model->columnCount(); ++column)
        QCOMPARE(model->filterText(column), QString());
}

void TestSongListTableModel::anEmptyListHasTheFilterRow()
{
    show({});
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(cell(0).data(Qt::UserRole), QVariant(-1));
    QVERIFY(!model->isMaster());
}

void TestSongListTableModel::withoutAListThereIsNoRow()
{
    QCOMPARE(model->rowCount(), 0);
    QVERIFY(!model->isMaster());
    show(u"ab"_s);
    model->setPlaylist({});
    QCOMPARE(model->rowCount(), 0);
    model->moveRowsUp(2, 1);
    model->moveRowsDown(1, 1);
    model->addSongs({song(u"c"_s)});
    model->rebuildDirList();
    QCOMPARE(SongListTableModel::getDirList(), QStringList());
    QVERIFY(!model->removeRow(1));
}

void TestSongListTableModel::theLibraryIsFollowed()
{
    model->setPlaylist(manager->getMasterList());
    QVERIFY(model->isMaster());
    QCOMPARE(model->rowCount(), 1);
    song(u"a"_s);
    song(u"b"_s);
    QCOMPARE(model->rowCount(), 3);
}

void TestSongListTableModel::everyChangeIsTold()
{
    show(u"abcd"_s);
    QSignalSpy told(model.get(), &SongListTableModel::notifyModelChanged);
    int expected = 0;
    const auto tells = [&](auto change) {
        change();
        QCOMPARE(told.size(), ++expected);
    };
    tells([&] { model->refresh(); });
    tells([&] { model->moveRowsUp(2, 1); });
    tells([&] { model->moveRowsDown(1, 1); });
    tells([&] { model->addSongs({song(u"a"_s)}); });
    tells([&] { model->removeRow(1); });
    tells([&] { model->setPlaylist(manager->getMasterList()); });
    const auto more = song(u"e"_s);
    ++expected; // the library's own word
    tells([&] { model->addSongs({SongPtr(new Song(music->filePath(u"f"_s), false))}); });
}

void TestSongListTableModel::rowsAreRemovedOneByOne()
{
    show(u"abcd"_s);
    QVERIFY(!model->removeRows(0, 1));
    QVERIFY(!model->removeRows(5, 1));
    QVERIFY(!model->removeRows(-1, 1));
    QVERIFY(!model->removeRows(1, 1, cell(1)));
    QVERIFY(model->removeRows(2, 3));
    QCOMPARE(letters(), u"acd"_s);
    QCOMPARE(model->rowCount(), 4);
    QVERIFY(model->removeRow(3));
    QCOMPARE(letters(), u"ac"_s);
}

void TestSongListTableModel::removingFromTheLibraryRemovesTheFile()
{
    // Where the desktop keeps what was removed.
    QDir().mkpath(QDir::homePath() + u"/.local/share"_s);
    const QString path = music->filePath(u"a"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    show(u"ab"_s);
    const PlaylistPtr list = model->getPlaylist();
    model->setPlaylist(manager->getMasterList());
    const int row = model->song(1)->getFilename() == path ? 1 : 2;
    const bool removed = model->removeRow(row);
    QCOMPARE(QFile::exists(path), !removed);
    QCOMPARE(model->rowCount(), removed ? 2 : 3);
    QVERIFY(removed);
}

void TestSongListTableModel::movingUp_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("after");
    QTest::newRow("one") << 2 << 1 << u"bacd"_s;
    QTest::newRow("the last") << 4 << 1 << u"abdc"_s;
    QTest::newRow("a block") << 3 << 2 << u"acdb"_s;
    QTest::newRow("all but the first") << 2 << 3 << u"bcda"_s;
    QTest::newRow("the first stays") << 1 << 1 << u"abcd"_s;
    QTest::newRow("the filter row stays") << 0 << 1 << u"abcd"_s;
    QTest::newRow("beyond the end") << 5 << 1 << u"abcd"_s;
    QTest::newRow("a block beyond the end") << 4 << 2 << u"abcd"_s;
    QTest::newRow("none") << 3 << 0 << u"abcd"_s;
}

void TestSongListTableModel::movingUp()
{
    QFETCH(int, row);
    QFETCH(int, count);
    show(u"abcd"_s);
    const QPersistentModelIndex moved = cell(row);
    const SongPtr before = model->song(row);
    model->moveRowsUp(row, count);
    QTEST(letters(), "after");
    if (before)
        QCOMPARE(moved.data(Qt::UserRole).value<SongPtr>(), before);
}

void TestSongListTableModel::movingDown_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("after");
    QTest::newRow("one") << 1 << 1 << u"bacd"_s;
    QTest::newRow("to the end") << 3 << 1 << u"abdc"_s;
    QTest::newRow("a block") << 1 << 2 << u"cabd"_s;
    QTest::newRow("all but the last") << 1 << 3 << u"dabc"_s;
    QTest::newRow("the last stays") << 4 << 1 << u"abcd"_s;
    QTest::newRow("the filter row stays") << 0 << 1 << u"abcd"_s;
    QTest::newRow("a block with the last stays") << 3 << 2 << u"abcd"_s;
    QTest::newRow("none") << 2 << 0 << u"abcd"_s;
}

void TestSongListTableModel::movingDown()
{
    QFETCH(int, row);
    QFETCH(int, count);
    show(u"abcd"_s);
    const QPersistentModelIndex moved = cell(row);
    const SongPtr before = model->song(row);
    model->moveRowsDown(row, count);
    QTEST(letters(), "after");
    if (before)
        QCOMPARE(moved.data(Qt::UserRole).value<SongPtr>(), before);
}

void TestSongListTableModel::theLibraryHasNoOrder()
{
    model->setPlaylist(manager->getMasterList());
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
        song(name);
    const QString before = letters();
    model->moveRowsUp(3, 1);
    model->moveRowsDown(1, 1);
    QCOMPARE(letters(), before);
}

void TestSongListTableModel::songsAreAdded()
{
    show(u"ab"_s);
    model->addSongs({song(u"b"_s), song(u"c"_s)});
    QCOMPARE(letters(), u"abbc"_s);
    QCOMPARE(model->rowCount(), 5);
    QVERIFY(model->getPlaylist()->isModified());
}

void TestSongListTableModel::songsAreAddedToTheLibrary()
{
    model->setPlaylist(manager->getMasterList());
    song(u"a"_s);
    QSignalSpy resets(model.get(), &SongListTableModel::modelReset);
    model->addSongs({SongPtr(new Song(music->filePath(u"b"_s), false)),
                     SongPtr(new Song(music->filePath(u"c"_s), false))});
    QCOMPARE(model->rowCount(), 4);
    QCOMPARE(resets.size(), 1);
}

void TestSongListTableModel::formats()
{
    show(u"a"_s);
    QCOMPARE(model->mimeTypes(), QStringList{u"application/tarvelo.plitem"_s});
    model->setPlaylist(manager->getMasterList());
    QCOMPARE(model->mimeTypes(),
             (QStringList{u"application/tarvelo.plitem"_s, u"text/uri-list"_s}));
    QCOMPARE(model->supportedDragActions(), Qt::DropActions(Qt::CopyAction));
    QCOMPARE(model->supportedDropActions(), Qt::DropActions(Qt::CopyAction));
}

void TestSongListTableModel::dragged()
{
    show(u"abcd"_s);
    const auto data = drag(*model, {0, 2, 4});
    QCOMPARE(data->urls(), (QList<QUrl>{QUrl::fromLocalFile(music->filePath(u"b"_s)),
                                        QUrl::fromLocalFile(music->filePath(u"d"_s))}));
    QDataStream stream(data->data(u"application/tarvelo.plitem"_s));
    qint32 id = 0;
    qint64 count = 0;
    stream >> id >> count;
    QCOMPARE(count, 2);
    SongListTableModel other(manager.get());
    other.setPlaylist(manager->getMasterList());
    qint32 otherId = 0;
    QDataStream(drag(other, {1})->data(u"application/tarvelo.plitem"_s)) >> otherId;
    QCOMPARE(otherId, id + 1);
    for (const auto &[name, index] : {std::pair(u"b"_s, 1), std::pair(u"d"_s, 3)}) {
        QString path;
        qint32 number = -1;
        stream >> path >> number;
        QCOMPARE(path, music->filePath(name));
        QCOMPARE(number, index);
    }
    QVERIFY(stream.atEnd());
}

void TestSongListTableModel::nothingDragged()
{
    show(u"a"_s);
    QVERIFY(!model->mimeData({}));
}

void TestSongListTableModel::dropsInAnotherList_data()
{
    QTest::addColumn<int>("parent"); // -1 below the last row
    QTest::addColumn<QString>("after");
    QTest::newRow("on the first song") << 1 << u"xyab"_s;
    QTest::newRow("on the second song") << 2 << u"axyb"_s;
    QTest::newRow("below the last row") << -1 << u"abxy"_s;
    QTest::newRow("on the filter row") << 0 << u"ab"_s;
}

void TestSongListTableModel::dropsInAnotherList()
{
    QFETCH(int, parent);
    show(u"xyz"_s);
    const auto data = drag(*model, {1, 2});
    SongListTableModel target(manager.get());
    const PlaylistPtr list(new PlaylistFile(manager.get()));
    for (const QString &name : {u"a"_s, u"b"_s})
        list->add(song(name)->getFilename());
    target.setPlaylist(list);
    QSignalSpy told(&target, &SongListTableModel::notifyModelChanged);
    QVERIFY(target.dropMimeData(data.get(), Qt::CopyAction, -1, -1, target.index(parent, 0)));
    QTEST(letters(list), "after");
    QCOMPARE(target.rowCount(), list->count() + 1);
    QCOMPARE(told.size(), 1);
    QCOMPARE(letters(), u"xyz"_s);
}

void TestSongListTableModel::dropsInTheSameList_data()
{
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<int>("parent");
    QTest::addColumn<QString>("after");
    QTest::newRow("further up") << QList<int>{4} << 2 << u"adbc"_s;
    QTest::newRow("to the top") << QList<int>{3} << 1 << u"cabd"_s;
    QTest::newRow("further down") << QList<int>{1} << 4 << u"bcad"_s;
    QTest::newRow("on itself") << QList<int>{2} << 2 << u"abcd"_s;
    QTest::newRow("on the next") << QList<int>{1} << 2 << u"abcd"_s;
    QTest::newRow("below the last row") << QList<int>{2} << -1 << u"acdb"_s;
    QTest::newRow("on the filter row") << QList<int>{2} << 0 << u"abcd"_s;
    QTest::newRow("of several the first") << QList<int>{3, 4} << 1 << u"cabd"_s;
}

void TestSongListTableModel::dropsInTheSameList()
{
    QFETCH(QList<int>, rows);
    QFETCH(int, parent);
    show(u"abcd"_s);
    const auto data = drag(*model, rows);
    QVERIFY(model->dropMimeData(data.get(), Qt::CopyAction, -1, -1, cell(parent)));
    QTEST(letters(), "after");
    QCOMPARE(model->rowCount(), 5);
}

void TestSongListTableModel::whatIsNotDropped()
{
    show(u"ab"_s);
    const auto songs = drag(*model, {1});
    QVERIFY(model->dropMimeData(nullptr, Qt::IgnoreAction, -1, -1, {}));
    QVERIFY(!model->dropMimeData(nullptr, Qt::CopyAction, -1, -1, {}));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(music->filePath(u"c"_s))});
    QVERIFY(!model->dropMimeData(&files, Qt::CopyAction, -1, -1, {}));
    QMimeData text;
    text.setText(u"a"_s);
    QVERIFY(!model->dropMimeData(&text, Qt::CopyAction, -1, -1, {}));
    QCOMPARE(letters(), u"ab"_s);
    model->setPlaylist(manager->getMasterList());
    QVERIFY(!model->dropMimeData(songs.get(), Qt::CopyAction, -1, -1, cell(1)));
    QCOMPARE(model->rowCount(), 3);
}

void TestSongListTableModel::brokenDrags()
{
    show(u"ab"_s);
    const QByteArray whole = drag(*model, {1, 2})->data(u"application/tarvelo.plitem"_s);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        show(u"ab"_s);
        QMimeData data;
        data.setData(u"application/tarvelo.plitem"_s, whole.first(length));
        SongListTableModel target(manager.get());
        const PlaylistPtr list(new PlaylistFile(manager.get()));
        target.setPlaylist(list);
        QVERIFY(target.dropMimeData(&data, Qt::CopyAction, -1, -1, {}));
        QVERIFY(list->count() < 2);
    }
    QByteArray endless;
    QDataStream(&endless, QIODevice::WriteOnly)
        << qint32(-7) << qint64(1) << u"/x.mp3"_s << qint32(99);
    endless[5] = 127; // a count beyond all measure
    QMimeData data;
    data.setData(u"application/tarvelo.plitem"_s, endless);
    QVERIFY(model->dropMimeData(&data, Qt::CopyAction, -1, -1, {}));
    QCOMPARE(letters().left(2), u"ab"_s);
    QCOMPARE(model->rowCount(), 4);
}

TARVELO_TEST_MAIN(TestSongListTableModel, QGuiApplication)
#include "tst_SongListTableModel.moc"
