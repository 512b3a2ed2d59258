#include "FrozenTableView.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "TestMain.h"
#include "TestSongs.h"

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QMimeData>

using namespace Qt::StringLiterals;
using Side = SongListPanel::Side;

// Songs that are dragged from one list to another or within one: real views, real data.
class TestSongDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void fromTheLibraryIntoAPlaylist_data();
    void fromTheLibraryIntoAPlaylist();
    void withinAPlaylist_data();
    void withinAPlaylist();
    void ontoTheLibrary();
    void ontoTheFilterRow();
    void filesFromOutside();
    void theFrozenRowTakesNothing();
    void theMouseBeginsADrag();
    void nothingSelectedIsNotDragged();

private:
    // Answers whether the view under the point took the songs. Row 0 is below the last row.
    bool drop(const SongListPanel &target, int row, const QMimeData &data) const;
    std::unique_ptr<QMimeData> selectedData(const SongListPanel &source) const;
    void select(SongListPanel &panel, const QString &letters) const;
    QString letters() const { return TestSongs::letters(*left->list()); }

    std::unique_ptr<TestSongs> songs;
    std::unique_ptr<QWidget> window;
    SongListPanel *left = nullptr;
    SongListPanel *right = nullptr;
};

void TestSongDrag::init()
{
    songs = std::make_unique<TestSongs>();
    songs->library(u"abcdef"_s);
    window = std::make_unique<QWidget>();
    left = new SongListPanel(Side::Left, &songs->manager, window.get());
    right = new SongListPanel(Side::Right, &songs->manager, window.get());
    left->setGeometry(0, 0, 400, 500);
    right->setGeometry(400, 0, 400, 500);
    window->resize(800, 500);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    left->setList(songs->playlist(u"evening.m3u8"_s, u"xyz"_s));
    QCoreApplication::processEvents();
}

void TestSongDrag::cleanup()
{
    window.reset();
    songs.reset();
}

void TestSongDrag::select(SongListPanel &panel, const QString &wanted) const
{
    panel.selection().clear();
    for (const QChar letter : wanted)
        panel.table()->selectionModel()->select(
            panel.filter()->index(panel.filter()->rowOf(songs->song(letter)), 0),
            QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

std::unique_ptr<QMimeData> TestSongDrag::selectedData(const SongListPanel &source) const
{
    const QModelIndexList rows = source.table()->selectionModel()->selectedIndexes();
    return std::unique_ptr<QMimeData>(source.filter()->mimeData(rows));
}

bool TestSongDrag::drop(const SongListPanel &target, int row, const QMimeData &data) const
{
    QWidget *viewport = target.table()->viewport();
    const QPoint place = row == 0
                             ? QPoint(20, viewport->height() - 5)
                             : target.table()->visualRect(target.filter()->index(row, 0)).center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &enter);
    if (!enter.isAccepted())
        return false;
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &move);
    if (!move.isAccepted())
        return false;
    QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(false);
    QApplication::sendEvent(viewport, &event);
    return event.isAccepted();
}

void TestSongDrag::fromTheLibraryIntoAPlaylist_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("after");
    QTest::newRow("one, on the first") << u"b"_s << 1 << u"bxyz"_s;
    QTest::newRow("one, below all") << u"b"_s << 0 << u"xyzb"_s;
    QTest::newRow("all in their order") << u"ace"_s << 2 << u"xaceyz"_s;
    QTest::newRow("all in their order, below all") << u"ace"_s << 0 << u"xyzace"_s;
}

void TestSongDrag::fromTheLibraryIntoAPlaylist()
{
    QFETCH(QString, selected);
    QFETCH(int, row);
    select(*right, selected);
    const auto data = selectedData(*right);
    QVERIFY(data->hasUrls());
    QVERIFY(drop(*left, row, *data));
    QTEST(letters(), "after");
    QCOMPARE(left->filter()->rowCount(), letters().size() + 1);
    QVERIFY(left->list()->isModified());
}

void TestSongDrag::withinAPlaylist_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("after");
    QTest::newRow("up") << u"z"_s << 1 << u"zxy"_s;
    QTest::newRow("down") << u"x"_s << 3 << u"yxz"_s;
    QTest::newRow("below all") << u"x"_s << 0 << u"yzx"_s;
    QTest::newRow("on itself") << u"y"_s << 2 << u"xyz"_s;
}

void TestSongDrag::withinAPlaylist()
{
    QFETCH(QString, selected);
    QFETCH(int, row);
    select(*left, selected);
    QVERIFY(drop(*left, row, *selectedData(*left)));
    QTEST(letters(), "after");
}

void TestSongDrag::ontoTheLibrary()
{
    select(*left, u"y"_s);
    const int rows = right->filter()->rowCount();
    QVERIFY(!drop(*right, 1, *selectedData(*left)));
    QVERIFY(!drop(*right, 0, *selectedData(*left)));
    QCOMPARE(right->filter()->rowCount(), rows);
    QCOMPARE(letters(), u"xyz"_s);
}

void TestSongDrag::ontoTheFilterRow()
{
    select(*right, u"a"_s);
    const auto data = selectedData(*right);
    left->filter()->dropMimeData(data.get(), Qt::CopyAction, -1, -1, left->filter()->index(0, 0));
    QCOMPARE(letters(), u"xyz"_s);
}

void TestSongDrag::filesFromOutside()
{
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(songs->music.filePath(u"a"_s))});
    QVERIFY(!drop(*left, 1, files));
    QCOMPARE(letters(), u"xyz"_s);
    const int rows = right->filter()->rowCount();
    QVERIFY(!drop(*right, 1, files));
    QCOMPARE(right->filter()->rowCount(), rows);
    // A file that is there is imported, wherever it is dropped.
    const QTemporaryDir outside;
    for (const int row : {1, 0}) {
        QFile file(outside.filePath(QString::number(row)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("song") == 4);
        file.close();
        files.setUrls({QUrl::fromLocalFile(file.fileName())});
        QVERIFY(drop(*right, row, files));
        QVERIFY(songs->manager.getSong(songs->music.filePath(u"Import/%1"_s.arg(row))));
    }
    QCOMPARE(right->filter()->rowCount(), rows + 2);
}

void TestSongDrag::theFrozenRowTakesNothing()
{
    select(*right, u"a"_s);
    const auto data = selectedData(*right);
    const QPoint place(20, left->table()->horizontalHeader()->height() + 5);
    QWidget *under = left->table()->childAt(place);
    QVERIFY(under);
    QDragEnterEvent enter(QPoint(20, 5), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    enter.setAccepted(false);
    QApplication::sendEvent(under, &enter);
    QVERIFY(!enter.isAccepted());
}

// A screen without a window system ends it at once.
void TestSongDrag::theMouseBeginsADrag()
{
    select(*right, u"bc"_s);
    QWidget *from = right->table()->viewport();
    const QPoint begin = right->table()->visualRect(right->filter()->index(2, 0)).center();
    QTest::mousePress(from, Qt::LeftButton, {}, begin);
    // The first move tells that it is a drag, the second one begins it.
    for (const int distance : {40, 41}) {
        QVERIFY(!right->table()->findChild<QDrag *>());
        QMouseEvent move(QEvent::MouseMove, begin + QPoint(distance, 0),
                         from->mapToGlobal(begin + QPoint(distance, 0)), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(from, &move);
    }
    const auto *drag = right->table()->findChild<QDrag *>();
    QVERIFY(drag);
    QCOMPARE(drag->mimeData()->urls(),
             (QList<QUrl>{QUrl::fromLocalFile(songs->music.filePath(u"b"_s)),
                          QUrl::fromLocalFile(songs->music.filePath(u"c"_s))}));
}

void TestSongDrag::nothingSelectedIsNotDragged()
{
    struct View : FrozenTableView
    {
        using FrozenTableView::startDrag;
    };
    right->selection().clear();
    (right->table()->*(&View::startDrag))(Qt::CopyAction);
    QVERIFY(!right->table()->findChild<QDrag *>());
}

TARVELO_TEST_MAIN(TestSongDrag, QApplication)
#include "tst_SongDrag.moc"
