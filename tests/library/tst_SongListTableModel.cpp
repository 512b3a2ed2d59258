#include "TableModelFixture.h"
#include "TestMain.h"

#include <QDataStream>
#include <QGuiApplication>
#include <QMimeData>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

// The table that shows one list of songs: its filter texts, and what is done to the list through
// it.
class TestSongListTableModel : public QObject, TableModelFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { prepareModel(); }
    void cleanup() { dropModel(); }

    void filterTexts();
    void anEmptyListHasTheFilterRow();
    void withoutAListThereIsNoRow();
    void theLibraryIsFollowed();
    void everyChangeIsTold();
    void rowsAreRemovedOneByOne();
    void removingFromTheLibraryRemovesTheFile();
    void moving_data();
    void moving();
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
};

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

void TestSongListTableModel::moving_data()
{
    QTest::addColumn<bool>("up");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("after");
    QTest::newRow("up: one") << true << 2 << 1 << u"bacd"_s;
    QTest::newRow("up: the last") << true << 4 << 1 << u"abdc"_s;
    QTest::newRow("up: a block") << true << 3 << 2 << u"acdb"_s;
    QTest::newRow("up: all but the first") << true << 2 << 3 << u"bcda"_s;
    QTest::newRow("up: the first stays") << true << 1 << 1 << u"abcd"_s;
    QTest::newRow("up: the filter row stays") << true << 0 << 1 << u"abcd"_s;
    QTest::newRow("up: beyond the end") << true << 5 << 1 << u"abcd"_s;
    QTest::newRow("up: a block beyond the end") << true << 4 << 2 << u"abcd"_s;
    QTest::newRow("up: none") << true << 3 << 0 << u"abcd"_s;
    QTest::newRow("down: one") << false << 1 << 1 << u"bacd"_s;
    QTest::newRow("down: to the end") << false << 3 << 1 << u"abdc"_s;
    QTest::newRow("down: a block") << false << 1 << 2 << u"cabd"_s;
    QTest::newRow("down: all but the last") << false << 1 << 3 << u"dabc"_s;
    QTest::newRow("down: the last stays") << false << 4 << 1 << u"abcd"_s;
    QTest::newRow("down: the filter row stays") << false << 0 << 1 << u"abcd"_s;
    QTest::newRow("down: a block with the last stays") << false << 3 << 2 << u"abcd"_s;
    QTest::newRow("down: none") << false << 2 << 0 << u"abcd"_s;
}

void TestSongListTableModel::moving()
{
    QFETCH(bool, up);
    QFETCH(int, row);
    QFETCH(int, count);
    show(u"abcd"_s);
    const QPersistentModelIndex moved = cell(row);
    const SongPtr before = model->song(row);
    if (up)
        model->moveRowsUp(row, count);
    else
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
