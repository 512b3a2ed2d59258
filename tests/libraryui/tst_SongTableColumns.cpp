#include "FilterTableView.h"
#include "FrozenTableView.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "SongTableColumns.h"
#include "TestMain.h"
#include "TestSongs.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>

using namespace Qt::StringLiterals;
using Beside = SongTableColumns::Beside;

// The columns of a song table and the menu of their headings.
class TestSongTableColumns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void placesBeside_data();
    void placesBeside();
    void theMenu();
    void aHiddenColumnComesBeside_data();
    void aHiddenColumnComesBeside();
    void theColumnIsHidden();
    void theLastColumnStays();
    void theColumnIsFitted();
    void aDoubleClickFits();
    void allColumnsAreFitted();
    void fittedBeforeItIsShown();
    void manySongsAreFitted();
    void noMenuBesideTheHeadings();

private:
    QHeaderView *header() const { return panel->table()->horizontalHeader(); }
    // The menu that the right mouse button brings over the heading of a column.
    QMenu *menuOf(int column);
    QMenu *submenu(QMenu *menu, const QString &title) const;
    QList<int> shown() const;

    std::unique_ptr<TestSongs> songs;
    std::unique_ptr<SongListPanel> panel;
};

void TestSongTableColumns::init()
{
    QLocale::setDefault(QLocale(u"de_DE"_s));
    songs = std::make_unique<TestSongs>();
    songs->library(u"cab"_s);
    panel = std::make_unique<SongListPanel>(SongListPanel::Side::Right, &songs->manager);
    panel->resize(3000, 500);
    panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(panel.get()));
}

void TestSongTableColumns::cleanup()
{
    panel.reset();
    songs.reset();
}

QMenu *TestSongTableColumns::menuOf(int column)
{
    const QPoint place(header()->sectionViewportPosition(column) + 5, 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                            header()->viewport()->mapToGlobal(place));
    QApplication::sendEvent(header()->viewport(), &event);
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

QMenu *TestSongTableColumns::submenu(QMenu *menu, const QString &title) const
{
    for (const QAction *action : menu->actions())
        if (action->text() == title)
            return action->menu();
    return nullptr;
}

QList<int> TestSongTableColumns::shown() const
{
    QList<int> columns;
    for (int place = 0; place < header()->count(); ++place) {
        if (!header()->isSectionHidden(header()->logicalIndex(place)))
            columns.append(header()->logicalIndex(place));
    }
    return columns;
}

void TestSongTableColumns::placesBeside_data()
{
    QTest::addColumn<int>("hidden");
    QTest::addColumn<int>("other");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::newRow("from the right") << 9 << 3 << 3 << 4;
    QTest::newRow("from the left") << 1 << 3 << 2 << 3;
    QTest::newRow("neighbour on the right") << 4 << 3 << 3 << 4;
    QTest::newRow("neighbour on the left") << 2 << 3 << 2 << 3;
}

void TestSongTableColumns::placesBeside()
{
    QFETCH(int, hidden);
    QFETCH(int, other);
    QTEST(SongTableColumns::placeBeside(hidden, other, Beside::Left), "left");
    QTEST(SongTableColumns::placeBeside(hidden, other, Beside::Right), "right");
}

void TestSongTableColumns::theMenu()
{
    QMenu *menu = menuOf(ArtistColumn);
    QVERIFY(menu);
    // The table's own style would make it look like no other menu.
    QCOMPARE(menu->parentWidget(), panel.get());
    QStringList texts;
    for (const QAction *action : menu->actions())
        texts.append(action->text());
    QCOMPARE(texts, QStringList({u"Breite anpassen"_s, u"Spalte ausblenden"_s,
                                 u"Spalte links einblenden"_s, u"Spalte rechts einblenden"_s}));
    for (const QString &title : {u"Spalte links einblenden"_s, u"Spalte rechts einblenden"_s}) {
        QStringList columns;
        for (const QAction *action : submenu(menu, title)->actions())
            columns.append(action->text());
        QCOMPARE(columns.size(), SongColumnCount - shown().size());
        QVERIFY(columns.contains(u"ISWC Nummer"_s));
        QVERIFY(!columns.contains(u"Titel"_s));
    }
    const QAction *iswc = submenu(menu, u"Spalte rechts einblenden"_s)->actions().constLast();
    QCOMPARE(iswc->data().toString(), u"32 32 3"_s);
    menu->close();
}

void TestSongTableColumns::aHiddenColumnComesBeside_data()
{
    QTest::addColumn<QString>("side");
    QTest::addColumn<QString>("heading");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("clicked");
    for (const int clicked : {0, 2, 9, 22}) {
        for (const QString &side : {u"links"_s, u"rechts"_s}) {
            QTest::addRow("from the right, %s of %d", qPrintable(side), clicked)
                << side << u"ISWC Nummer"_s << 32 << clicked;
            QTest::addRow("from the left, %s of %d", qPrintable(side), clicked)
                << side << u"Auswahl"_s << 1 << clicked;
        }
    }
}

void TestSongTableColumns::aHiddenColumnComesBeside()
{
    QFETCH(QString, side);
    QFETCH(QString, heading);
    QFETCH(int, column);
    QFETCH(int, clicked);
    QList<int> expected = shown();
    expected.insert(expected.indexOf(clicked) + (side == u"links" ? 0 : 1), column);
    QMenu *menu = menuOf(clicked);
    QMenu *columns = submenu(menu, u"Spalte %1 einblenden"_s.arg(side));
    for (QAction *action : columns->actions())
        if (action->text() == heading)
            action->trigger();
    menu->close();
    QCOMPARE(shown(), expected);
    QVERIFY(!panel->table()->getFrozenView()->isColumnHidden(column));
    QCOMPARE(panel->table()->getFrozenView()->horizontalHeader()->visualIndex(column),
             header()->visualIndex(column));
}

void TestSongTableColumns::theColumnIsHidden()
{
    QMenu *menu = menuOf(LevelColumn);
    menu->actions().at(1)->trigger();
    menu->close();
    QVERIFY(panel->table()->isColumnHidden(LevelColumn));
    QVERIFY(panel->table()->getFrozenView()->isColumnHidden(LevelColumn));
}

void TestSongTableColumns::theLastColumnStays()
{
    for (const SongColumnRow &column : songColumns())
        panel->table()->setColumnHidden(column.column, column.column != LevelColumn);
    QMenu *menu = menuOf(LevelColumn);
    QVERIFY(!menu->actions().at(1)->isEnabled());
    menu->actions().at(1)->trigger();
    menu->close();
    QVERIFY(!panel->table()->isColumnHidden(LevelColumn));
}

void TestSongTableColumns::theColumnIsFitted()
{
    songs->song(u"a"_s)->setArtist(u"Somebody with a name"_s);
    songs->manager.updateAllLists();
    QMenu *menu = menuOf(ArtistColumn);
    menu->actions().at(0)->trigger();
    menu->close();
    const QFontMetrics metrics(panel->table()->font());
    QCOMPARE(panel->table()->columnWidth(ArtistColumn),
             metrics.horizontalAdvance(u"Somebody with a name"_s) + 10);
    QCOMPARE(panel->table()->getFrozenView()->columnWidth(ArtistColumn),
             panel->table()->columnWidth(ArtistColumn));
}

void TestSongTableColumns::aDoubleClickFits()
{
    panel->table()->setColumnWidth(YearColumn, 300);
    const QPoint border(
        header()->sectionViewportPosition(YearColumn) + header()->sectionSize(YearColumn) - 1, 5);
    QTest::mouseMove(header()->viewport(), border);
    QTest::mouseClick(header()->viewport(), Qt::LeftButton, {}, border);
    QTest::mouseDClick(header()->viewport(), Qt::LeftButton, {}, border);
    QCOMPARE(panel->table()->columnWidth(YearColumn),
             QFontMetrics(panel->table()->font()).horizontalAdvance(u"8888"_s) + 10);
}

void TestSongTableColumns::allColumnsAreFitted()
{
    for (const SongColumnRow &column : songColumns())
        panel->table()->setColumnWidth(column.column, 333);
    panel->fitAllColumns();
    const QFontMetrics metrics(panel->table()->font());
    QCOMPARE(panel->table()->columnWidth(BpmColumn), metrics.horizontalAdvance(u"800"_s) + 10);
    QCOMPARE(panel->table()->columnWidth(CommentColumn), 333);
    QCOMPARE(panel->table()->columnWidth(GenreColumn), 333);
    // A hidden one has its width when it comes.
    panel->table()->setColumnHidden(SelectedColumn, false);
    QCOMPARE(panel->table()->columnWidth(SelectedColumn), metrics.horizontalAdvance(u"✓"_s) + 10);
}

void TestSongTableColumns::fittedBeforeItIsShown()
{
    SongListPanel early(SongListPanel::Side::Right, &songs->manager);
    early.fitColumns({YearColumn});
    const int width = early.table()->columnWidth(YearColumn);
    QCOMPARE(width, QFontMetrics(early.table()->font()).horizontalAdvance(u"8888"_s) + 10);
    early.show();
    QCOMPARE(early.table()->columnWidth(YearColumn), width);
    QVERIFY(!early.columnConfig().isEmpty());
}

// Not all of their texts are measured.
void TestSongTableColumns::manySongsAreFitted()
{
    const PlaylistPtr list = songs->manager.getTempList();
    QStringList paths;
    for (int number = 0; number < 10'000; ++number)
        paths.append(songs->music.filePath(
            u"directory %1/Some song number %2.mp3"_s.arg(number % 40).arg(number)));
    list->addAll(paths);
    for (const SongPtr &song : list->songs()) {
        song->setArtist(song->getFilename().last(20));
        song->setChoreographer(u"Somebody, Somebody Else"_s);
        song->setLevel(u"Intermediate"_s);
    }
    panel->setList(list);
    panel->fitAllColumns();
    const QFontMetrics metrics(panel->table()->font());
    int most = 0;
    for (const SongPtr &song : list->songs())
        most = std::max(most, metrics.horizontalAdvance(song->getArtist()));
    QVERIFY(most <= 200);
    QCOMPARE(panel->table()->columnWidth(ArtistColumn), most + 10);
}

void TestSongTableColumns::noMenuBesideTheHeadings()
{
    SongTableColumns columns(panel->table(), HiddenRight, this);
    columns.popupMenu({}, -1);
    QVERIFY(!QApplication::activePopupWidget());
}

TARVELO_TEST_MAIN(TestSongTableColumns, QApplication)
#include "tst_SongTableColumns.moc"
