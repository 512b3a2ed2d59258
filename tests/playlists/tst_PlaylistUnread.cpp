#include "PlaylistFile.h"

#include "FileSystem.h"
#include "TestLibrary.h"
#include "TestMain.h"

#include <QGuiApplication>

#include <unistd.h>

using namespace Qt::StringLiterals;

// Playlist files that can't be read, or are beyond all measure: what stands in them isn't lost.
class TestPlaylistUnread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void anUnreadableFileIsNotReplaced();
    void aFileOfAClosedDirectoryIsNotReplaced();
    void aFileBeyondMeasureIsNotReplaced_data();
    void aFileBeyondMeasureIsNotReplaced();
    void theLongestListIsRead();
    void equalMissingEntriesShareASong();

private:
    QString path(const QString &name) const { return home->path() + u'/' + name; }
    void put(const QString &name, const QByteArray &content) const;
    QByteArray content(const QString &name) const;

    std::unique_ptr<QTemporaryDir> home;
    std::unique_ptr<TestLibrary> library;
    std::unique_ptr<PlaylistFile> list;
};

namespace {

bool isRoot()
{
    return ::geteuid() == 0;
}

} // namespace

void TestPlaylistUnread::init()
{
    home = std::make_unique<QTemporaryDir>();
    library = std::make_unique<TestLibrary>();
    list = std::make_unique<PlaylistFile>(library.get());
}

void TestPlaylistUnread::put(const QString &name, const QByteArray &content) const
{
    QDir().mkpath(QFileInfo(path(name)).path());
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray TestPlaylistUnread::content(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestPlaylistUnread::anUnreadableFileIsNotReplaced()
{
    if (isRoot())
        QSKIP("Root may read any file: run this as an ordinary user.");
    if (!FileSystem::hasModes(home->path()))
        QSKIP("This file system knows no modes.");
    put(u"list.m3u8"_s, "a.mp3\n");
    QVERIFY(QFile::setPermissions(path(u"list.m3u8"_s), QFile::WriteOwner));
    list->load(path(u"list.m3u8"_s));
    list->add(path(u"b.mp3"_s));
    QVERIFY(!list->save());
    // By any path.
    QVERIFY(QFile::link(home->path(), path(u"linked"_s)));
    QVERIFY(!list->saveAs(path(u"linked/list.m3u8"_s)));
    QVERIFY(!list->saveAs(path(u"./list.m3u8"_s)));
    QVERIFY(list->saveAs(path(u"other.m3u8"_s)));
    QVERIFY(list->save());
    QVERIFY(QFile::setPermissions(path(u"list.m3u8"_s), QFile::ReadOwner));
    QCOMPARE(content(u"list.m3u8"_s), "a.mp3\n"_ba);
}

void TestPlaylistUnread::aFileOfAClosedDirectoryIsNotReplaced()
{
    if (isRoot())
        QSKIP("Root may read any file: run this as an ordinary user.");
    if (!FileSystem::hasModes(home->path()))
        QSKIP("This file system knows no modes.");
    put(u"lists/list.m3u8"_s, "a.mp3\n");
    const QString lists = path(u"lists"_s);
    QVERIFY(QFile::setPermissions(lists, QFile::ReadOwner | QFile::WriteOwner));
    list->load(path(u"lists/list.m3u8"_s));
    QVERIFY(QFile::setPermissions(lists, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    list->add(path(u"b.mp3"_s));
    QVERIFY(!list->save());
    QCOMPARE(content(u"lists/list.m3u8"_s), "a.mp3\n"_ba);
}

void TestPlaylistUnread::aFileBeyondMeasureIsNotReplaced_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("too long") << QByteArray(16 * 1024 * 1024 + 1, 'a');
    QTest::newRow("too many entries") << QByteArray("a\n").repeated(100'001);
    QTest::newRow("nothing but line feeds") << QByteArray(16 * 1024 * 1024, '\n');
    QTest::newRow("nothing but carriage returns") << QByteArray(16 * 1024 * 1024, '\r');
}

void TestPlaylistUnread::aFileBeyondMeasureIsNotReplaced()
{
    QFETCH(QByteArray, bytes);
    put(u"list.m3u8"_s, bytes);
    list->load(path(u"list.m3u8"_s));
    list->refresh();
    QCOMPARE(list->count(), 0);
    list->add(path(u"b.mp3"_s));
    QVERIFY(!list->save());
    QVERIFY(content(u"list.m3u8"_s) == bytes);
}

void TestPlaylistUnread::theLongestListIsRead()
{
    put(u"list.m3u8"_s, QByteArray("a\n").repeated(100'000));
    list->load(path(u"list.m3u8"_s));
    list->refresh();
    QCOMPARE(list->count(), 100'000);
    QVERIFY(list->save());
}

void TestPlaylistUnread::equalMissingEntriesShareASong()
{
    put(u"list.m3u8"_s, "a.mp3\nb.mp3\na.mp3\n");
    list->load(path(u"list.m3u8"_s));
    list->refresh();
    QCOMPARE(list->songs().at(0), list->songs().at(2));
    QVERIFY(list->songs().at(0) != list->songs().at(1));
    QVERIFY(list->songs().at(0)->isMissingFile());
}

TARVELO_TEST_MAIN(TestPlaylistUnread, QGuiApplication)
#include "tst_PlaylistUnread.moc"
