#include "../playlists/TestLibrary.h"
#include "FrozenTableView.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "TestMain.h"
#include "TestSongs.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;

// What the keys do to the selection of a song list: the library with songs a, b, c ... in this
// order, and a playlist on the left side.
class TestSongListSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nothingSelected();
    void oneAndSeveral();
    void allButTheFilterRow();
    void tenThousandAtOnce();
    void moves_data();
    void moves();
    void movesOfSeveral();
    void anEmptyListHasNothingToSelect();
    void theFilterRowIsNoSong();
    void modifiersDontExtend();
    void extendingUp_data();
    void extendingUp();
    void extendingDown_data();
    void extendingDown();
    void extendingASingleSelection();
    void extendingIsSeen();
    void pages();
    void theRowIsSeen();
    void sidewaysNothingMoves();
    void ends();
    void neighboursWrapRound();
    void pagesOfThePlaylist();
    void entries_data();
    void entries();
    void theSameSong();
    void sameSongTwice();

private:
    void showPlaylist(const QString &letters);
    SongListSelection &library() { return right->selection(); }
    SongListSelection &playlist() { return left->selection(); }
    static QString letters(const SongListSelection &selection);
    // Selects these letters, all of them in the list, and no others.
    void select(SongListPanel &panel, const QString &letters);

    std::unique_ptr<TestSongs> songs;
    std::unique_ptr<SongListPanel> right;
    std::unique_ptr<SongListPanel> left;
};

void TestSongListSelection::init()
{
    songs = std::make_unique<TestSongs>();
    right = std::make_unique<SongListPanel>(SongListPanel::Side::Right, &songs->manager);
    left = std::make_unique<SongListPanel>(SongListPanel::Side::Left, &songs->manager);
    songs->library(u"abcdefgh"_s);
    for (SongListPanel *panel : {right.get(), left.get()}) {
        panel->setFontSize(12);
        panel->resize(600, 400);
        panel->show();
        QVERIFY(QTest::qWaitForWindowExposed(panel));
    }
}

void TestSongListSelection::cleanup()
{
    right.reset();
    left.reset();
    songs.reset();
}

void TestSongListSelection::showPlaylist(const QString &letters)
{
    left->setList(songs->playlist(u"evening.m3u8"_s, letters));
}

QString TestSongListSelection::letters(const SongListSelection &selection)
{
    QString all;
    for (const SongPtr &song : selection.songs())
        all.append(TestSongs::letter(song));
    return all;
}

void TestSongListSelection::select(SongListPanel &panel, const QString &letters)
{
    panel.selection().clear();
    for (const QChar letter : letters) {
        const int row = panel.filter()->rowOf(songs->song(letter));
        QVERIFY(row > 0);
        panel.table()->selectionModel()->select(
            panel.filter()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
}

void TestSongListSelection::nothingSelected()
{
    QVERIFY(!library().song());
    QVERIFY(library().songs().isEmpty());
    QCOMPARE(library().row(), -1);
}

void TestSongListSelection::oneAndSeveral()
{
    QSignalSpy changed(right.get(), &SongListPanel::selectionChanged);
    select(*right, u"b"_s);
    QCOMPARE(TestSongs::letter(library().song()), u"b"_s);
    QCOMPARE(library().row(), 2);
    QVERIFY(!changed.isEmpty());
    select(*right, u"fbd"_s);
    QVERIFY(!library().song());
    QCOMPARE(letters(library()), u"bdf"_s);
    library().clear();
    QCOMPARE(letters(library()), QString());
}

void TestSongListSelection::allButTheFilterRow()
{
    library().selectAll();
    QCOMPARE(letters(library()), u"abcdefgh"_s);
    QVERIFY(!right->table()->selectionModel()->isRowSelected(0));
    showPlaylist(u"abc"_s);
    playlist().selectAll();
    QCOMPARE(letters(playlist()), QString());
}

void TestSongListSelection::tenThousandAtOnce()
{
    TestLibrary many;
    for (int number = 0; number < 10000; ++number)
        many.put(u"/music/%1.mp3"_s.arg(number));
    const PlaylistPtr list(new PlaylistMaster(&many));
    list->refresh();
    right->model()->setPlaylist(list);
    QElapsedTimer timer;
    timer.start();
    library().selectAll();
    QCOMPARE(library().rows().size(), 10000);
    QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    qDebug() << timer.elapsed() << "ms";
    right->setList(songs->manager.getMasterList());
}

void TestSongListSelection::moves_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<int>("step"); // down if positive
    QTest::addColumn<QString>("to");
    QTest::newRow("down") << u"b"_s << 1 << u"c"_s;
    QTest::newRow("up") << u"b"_s << -1 << u"a"_s;
    QTest::newRow("down at the end") << u"h"_s << 1 << u"h"_s;
    QTest::newRow("up at the top") << u"a"_s << -1 << u"a"_s;
    QTest::newRow("to the last") << u"g"_s << 1 << u"h"_s;
    QTest::newRow("page down") << u"b"_s << 5 << u"g"_s;
    QTest::newRow("page down to the last") << u"e"_s << 3 << u"h"_s;
    QTest::newRow("page down beyond the end") << u"e"_s << 4 << u"h"_s;
    QTest::newRow("page up") << u"g"_s << -5 << u"b"_s;
    QTest::newRow("page up to the filter row") << u"e"_s << -5 << u"a"_s;
    QTest::newRow("page up beyond the top") << u"c"_s << -7 << u"a"_s;
    QTest::newRow("end") << u"b"_s << 999999 << u"h"_s;
    QTest::newRow("home") << u"f"_s << -999999 << u"a"_s;
    QTest::newRow("nothing, down") << QString() << 1 << QString();
    QTest::newRow("nothing, end") << QString() << 999999 << QString();
    QTest::newRow("nothing, up") << QString() << -1 << u"h"_s;
    QTest::newRow("nothing, page up") << QString() << -3 << u"f"_s;
    QTest::newRow("nothing, home") << QString() << -999999 << u"a"_s;
}

void TestSongListSelection::moves()
{
    QFETCH(QString, from);
    QFETCH(int, step);
    select(*right, from);
    if (step > 0)
        library().scrollDown(step);
    else
        library().scrollUp(-step);
    QTEST(letters(library()), "to");
}

void TestSongListSelection::movesOfSeveral()
{
    select(*right, u"bd"_s);
    library().scrollDown(1);
    QCOMPARE(letters(library()), u"bd"_s);
    library().scrollDown(3);
    QCOMPARE(letters(library()), u"h"_s);
    select(*right, u"bd"_s);
    library().scrollUp(1);
    QCOMPARE(letters(library()), u"h"_s);
}

void TestSongListSelection::anEmptyListHasNothingToSelect()
{
    showPlaylist({});
    playlist().scrollUp(1);
    playlist().scrollDown(1);
    playlist().scrollUp(999999);
    playlist().extendUp();
    playlist().extendDown();
    playlist().selectAll();
    for (const SongPtr &song :
         {playlist().goToFirst(), playlist().goToLast(), playlist().goToNext(),
          playlist().goToPrevious(), playlist().goPageUp(), playlist().goPageDown(),
          playlist().nextEntry(), playlist().previousEntry()})
        QVERIFY(!song);
    QVERIFY(!left->table()->selectionModel()->hasSelection());
}

void TestSongListSelection::theFilterRowIsNoSong()
{
    right->table()->selectRow(0);
    QVERIFY(!library().song());
    QCOMPARE(library().rows(), QList<int>());
    right->table()->selectAll();
    QCOMPARE(letters(library()), u"abcdefgh"_s);
}

void TestSongListSelection::modifiersDontExtend()
{
    select(*right, u"b"_s);
    QTest::keyPress(right.get(), Qt::Key_Control, Qt::ControlModifier);
    library().scrollDown(2);
    QTest::keyRelease(right.get(), Qt::Key_Control);
    QTest::keyPress(right.get(), Qt::Key_Shift, Qt::ShiftModifier);
    library().scrollDown(1);
    QTest::keyRelease(right.get(), Qt::Key_Shift);
    QCOMPARE(letters(library()), u"e"_s);
}

void TestSongListSelection::extendingUp_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("one") << u"c"_s << u"bc"_s;
    QTest::newRow("several") << u"df"_s << u"cdf"_s;
    QTest::newRow("the second") << u"b"_s << u"ab"_s;
    QTest::newRow("the first") << u"a"_s << u"a"_s;
    QTest::newRow("nothing") << QString() << QString();
}

void TestSongListSelection::extendingUp()
{
    QFETCH(QString, from);
    select(*right, from);
    library().extendUp();
    QTEST(letters(library()), "to");
}

void TestSongListSelection::extendingDown_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("one") << u"c"_s << u"cd"_s;
    QTest::newRow("several") << u"bd"_s << u"bde"_s;
    QTest::newRow("to the last") << u"g"_s << u"gh"_s;
    QTest::newRow("the last") << u"h"_s << u"h"_s;
    QTest::newRow("nothing") << QString() << QString();
}

void TestSongListSelection::extendingDown()
{
    QFETCH(QString, from);
    select(*right, from);
    library().extendDown();
    QTEST(letters(library()), "to");
    select(*right, from);
    right->table()->setEnabled(false);
    library().extendDown();
    QCOMPARE(letters(library()), from);
}

void TestSongListSelection::extendingASingleSelection()
{
    showPlaylist(u"abc"_s);
    select(*left, u"b"_s);
    playlist().extendUp();
    playlist().extendDown();
    QCOMPARE(letters(playlist()), u"b"_s);
}

void TestSongListSelection::extendingIsSeen()
{
    QString many;
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
        many.append(letter);
    songs->library(many);
    const auto isSeen = [this](int row) {
        const QRect place = right->table()->visualRect(right->filter()->index(row, 0));
        return place.top() >= right->table()->rowHeight(0)
               && place.bottom() <= right->table()->viewport()->height();
    };
    library().goToLast();
    for (int row = right->filter()->rowCount() - 2; row >= 1; --row) {
        library().extendUp();
        QVERIFY2(isSeen(row), qPrintable(QString::number(row)));
        QVERIFY(row < 3 || isSeen(row - 2));
    }
    library().goToFirst();
    for (int row = 2; row < right->filter()->rowCount(); ++row) {
        library().extendDown();
        QVERIFY2(isSeen(row), qPrintable(QString::number(row)));
    }
    QCOMPARE(library().rows().size(), right->filter()->rowCount() - 1);
}

void TestSongListSelection::pages()
{
    const int height = right->table()->rowHeight(1);
    QVERIFY(height > 0);
    const int visible = right->table()->viewport()->height() / height;
    QCOMPARE(library().visibleRows(), visible);
    QCOMPARE(library().pageStep(), visible - 1);
    right->resize(600, 70);
    QCoreApplication::processEvents();
    QCOMPARE(library().pageStep(), 1);
    showPlaylist({});
    QVERIFY(playlist().pageStep() >= 1);
}

void TestSongListSelection::theRowIsSeen()
{
    for (int number = 0; number < 100; ++number)
        songs->song(u"%1"_s.arg(number));
    const auto isSeen = [this] {
        const QRect place = right->table()->visualRect(right->filter()->index(library().row(), 0));
        return place.top() >= right->table()->rowHeight(0)
               && place.bottom() <= right->table()->viewport()->height();
    };
    library().scrollUp(1);
    QVERIFY(isSeen());
    for (int count = 0; count < 110; ++count) {
        library().scrollUp(1);
        QVERIFY2(isSeen(), qPrintable(QString::number(library().row())));
    }
    QCOMPARE(library().row(), 1);
    QCOMPARE(right->table()->verticalScrollBar()->value(), 0);
    for (int count = 0; count < 110; ++count) {
        library().scrollDown(1);
        QVERIFY(isSeen());
    }
    QCOMPARE(library().row(), right->filter()->rowCount() - 1);
    for (int count = 0; count < 20; ++count) {
        library().scrollUp(library().pageStep());
        QVERIFY(isSeen());
    }
}

void TestSongListSelection::sidewaysNothingMoves()
{
    QScrollBar *bar = right->table()->horizontalScrollBar();
    QVERIFY(bar->maximum() > 100);
    bar->setValue(100);
    library().scrollUp(1);
    library().scrollUp(2);
    library().scrollDown(1);
    library().select(songs->song(u"a"_s));
    QCOMPARE(bar->value(), 100);
}

void TestSongListSelection::ends()
{
    showPlaylist(u"cab"_s);
    QCOMPARE(TestSongs::letter(playlist().goToLast()), u"b"_s);
    QCOMPARE(TestSongs::letter(playlist().goToFirst()), u"c"_s);
    QCOMPARE(letters(playlist()), u"c"_s);
}

void TestSongListSelection::neighboursWrapRound()
{
    showPlaylist(u"cab"_s);
    QString seen;
    for (int count = 0; count < 4; ++count)
        seen.append(TestSongs::letter(playlist().goToNext()));
    QCOMPARE(seen, u"cabc"_s);
    seen.clear();
    for (int count = 0; count < 4; ++count)
        seen.append(TestSongs::letter(playlist().goToPrevious()));
    QCOMPARE(seen, u"bacb"_s);
    playlist().clear();
    QCOMPARE(TestSongs::letter(playlist().goToPrevious()), u"b"_s);
}

void TestSongListSelection::pagesOfThePlaylist()
{
    QString many;
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
        many.append(letter);
    showPlaylist(many + u"abcdefgh"_s);
    const int visible = playlist().visibleRows();
    QVERIFY(visible > 3 && visible < 20);
    playlist().goToFirst();
    playlist().goPageDown();
    QCOMPARE(playlist().row(), 1 + visible);
    playlist().goPageUp();
    QCOMPARE(playlist().row(), 1);
    QCOMPARE(TestSongs::letter(playlist().goPageUp()), u"A"_s);
    for (int count = 0; count < 20; ++count)
        playlist().goPageDown();
    QCOMPARE(playlist().row(), left->filter()->rowCount() - 1);
}

void TestSongListSelection::entries_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("next");
    QTest::addColumn<QString>("previous");
    QTest::newRow("in the middle") << u"a"_s << u"b"_s << u"c"_s;
    QTest::newRow("the last") << u"b"_s << QString() << u"a"_s;
    QTest::newRow("the first") << u"c"_s << u"a"_s << QString();
    QTest::newRow("nothing") << QString() << QString() << QString();
}

void TestSongListSelection::entries()
{
    QFETCH(QString, from);
    showPlaylist(u"cab"_s);
    select(*left, from);
    QTEST(TestSongs::letter(playlist().nextEntry()), "next");
    QTEST(letters(playlist()), "next");
    select(*left, from);
    QTEST(TestSongs::letter(playlist().previousEntry()), "previous");
    QTEST(letters(playlist()), "previous");
    select(*right, u"ab"_s);
    QVERIFY(!library().nextEntry());
    QCOMPARE(letters(library()), u"ab"_s);
}

void TestSongListSelection::theSameSong()
{
    showPlaylist(u"cab"_s);
    playlist().select(songs->song(u"b"_s));
    QCOMPARE(letters(playlist()), u"b"_s);
    playlist().select(songs->song(u"h"_s));
    QCOMPARE(letters(playlist()), QString());
    library().select(songs->song(u"h"_s));
    QCOMPARE(letters(library()), u"h"_s);
    library().select({});
    QCOMPARE(letters(library()), QString());
}

void TestSongListSelection::sameSongTwice()
{
    showPlaylist(u"aba"_s);
    playlist().goToLast();
    playlist().select(songs->song(u"a"_s));
    QCOMPARE(playlist().row(), 3);
    playlist().goToPrevious();
    playlist().select(songs->song(u"a"_s));
    QCOMPARE(playlist().row(), 1);
}

TARVELO_TEST_MAIN(TestSongListSelection, QApplication)
#include "tst_SongListSelection.moc"
