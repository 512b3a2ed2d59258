#include "SongManager.h"

#include "FileSystem.h"
#include "Settings.h"
#include "TestMain.h"

#include <QGuiApplication>

using namespace Qt::StringLiterals;

// Two lists of one file would overwrite each other's entries: the song manager holds one alone.
class TestPlaylistTwins : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void anOpenPlaylistIsNotDoubled();
    void missingPlaylistsAreNotMistakenForOneAnother();
    void savingUnderAnotherName();
    void savingUnderItsOwnName();
    void savingOverAnotherList();
    void savingAPlaylistHeldAcrossAScan();
    void removingAPlaylistHeldAcrossAScan();
    void removingALinkLeavesItsFile();

private:
    QString lists(const QString &name) const { return home->path() + u"/lists/"_s + name; }
    void putList(const QString &name, const QByteArray &content) const;
    QByteArray content(const QString &list) const;
    QStringList fileNames() const;
    static QStringList entries(const PlaylistPtr &list);

    std::unique_ptr<QTemporaryDir> home;
    std::unique_ptr<SongManager> manager;
};

namespace {

const QByteArray head = "\xef\xbb\xbf#EXTM3U\n"_ba;

} // namespace

void TestPlaylistTwins::init()
{
    home = std::make_unique<QTemporaryDir>();
    manager = std::make_unique<SongManager>();
    QVERIFY(QDir().mkpath(lists({})));
    Settings::setValue(Settings::Key::PlaylistDir, home->path() + u"/lists"_s);
}

void TestPlaylistTwins::putList(const QString &name, const QByteArray &content) const
{
    QDir().mkpath(QFileInfo(lists(name)).path());
    QFile file(lists(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray TestPlaylistTwins::content(const QString &list) const
{
    QFile file(lists(list));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList TestPlaylistTwins::fileNames() const
{
    return manager->getPlaylistNames().mid(2);
}

QStringList TestPlaylistTwins::entries(const PlaylistPtr &list)
{
    QStringList paths;
    for (const SongPtr &song : list->songs())
        paths.append(song->getFilename());
    return paths;
}

void TestPlaylistTwins::anOpenPlaylistIsNotDoubled()
{
    putList(u"a.m3u"_s, "a.mp3\n");
    putList(u"b.m3u"_s, "b.mp3\n");
    manager->loadPlaylists();
    const PlaylistPtr before = manager->getPlaylist(2);
    const PlaylistPtr again = manager->newPlaylist(lists(u"../lists/a.m3u"_s));
    const QStringList names{u"a.m3u"_s, u"b.m3u"_s};
    QCOMPARE(fileNames(), names);
    QVERIFY(again != before);
    QCOMPARE(manager->getPlaylist(2), again);
    QCOMPARE(entries(again), QStringList(lists(u"a.mp3"_s)));
}

void TestPlaylistTwins::missingPlaylistsAreNotMistakenForOneAnother()
{
    manager->newPlaylist(lists(u"a.m3u"_s));
    manager->newPlaylist(lists(u"b.m3u"_s));
    manager->newPlaylist(lists(u"a.m3u"_s));
    const QStringList names{u"a.m3u"_s, u"b.m3u"_s};
    QCOMPARE(fileNames(), names);
}

void TestPlaylistTwins::savingUnderAnotherName()
{
    putList(u"b.m3u"_s, "x.mp3\n");
    manager->loadPlaylists();
    const PlaylistPtr list = manager->getPlaylist(2);
    const PlaylistPtr temp = manager->getTempList();
    list->add(lists(u"y.mp3"_s));
    QVERIFY(manager->savePlaylistAs(list, lists(u"a.m3u8"_s)));
    const QStringList names{u"a.m3u8"_s, u"b.m3u"_s};
    QCOMPARE(fileNames(), names);
    QCOMPARE(manager->getPlaylist(2), list);
    QCOMPARE(list->count(), 2);
    QCOMPARE(entries(manager->getPlaylist(3)), QStringList(lists(u"x.mp3"_s)));
    QVERIFY(!manager->getPlaylist(3)->isModified());
    QCOMPARE(content(u"a.m3u8"_s), head + "x.mp3\ny.mp3\n");
    QCOMPARE(content(u"b.m3u"_s), "x.mp3\n"_ba);
    QCOMPARE(manager->getTempList(), temp);
}

void TestPlaylistTwins::savingUnderItsOwnName()
{
    putList(u"a.m3u"_s, "x.mp3\n");
    manager->loadPlaylists();
    const PlaylistPtr list = manager->getPlaylist(2);
    QVERIFY(manager->savePlaylistAs(list, lists(u"../lists/a.m3u"_s)));
    QCOMPARE(fileNames(), QStringList(u"a.m3u"_s));
    QCOMPARE(manager->getPlaylist(2), list);
}

void TestPlaylistTwins::savingOverAnotherList()
{
    putList(u"a.m3u"_s, "a.mp3\n");
    putList(u"b.m3u"_s, "b.mp3\n");
    manager->loadPlaylists();
    const PlaylistPtr list = manager->getPlaylist(2);
    QVERIFY(manager->savePlaylistAs(list, lists(u"b.m3u"_s)));
    const QStringList names{u"a.m3u"_s, u"b.m3u"_s};
    QCOMPARE(fileNames(), names);
    QCOMPARE(manager->getPlaylist(3), list);
    manager->renameSong(lists(u"b.mp3"_s), lists(u"c.mp3"_s));
    QCOMPARE(content(u"b.m3u"_s), head + "a.mp3\n");
    // The working list too.
    manager->getTempList()->add(lists(u"d.mp3"_s));
    QVERIFY(manager->savePlaylistAs(manager->getTempList(), lists(u"b.m3u"_s)));
    QCOMPARE(fileNames(), names);
    QCOMPARE(entries(manager->getPlaylist(3)), QStringList(lists(u"d.mp3"_s)));
}

void TestPlaylistTwins::savingAPlaylistHeldAcrossAScan()
{
    putList(u"b.m3u"_s, "x.mp3\n");
    manager->loadPlaylists();
    const PlaylistPtr held = manager->getPlaylist(2);
    held->add(lists(u"y.mp3"_s));
    manager->loadPlaylists();
    QVERIFY(manager->getPlaylist(2) != held);
    QVERIFY(manager->savePlaylistAs(held, lists(u"a.m3u"_s)));
    const QStringList names{u"a.m3u"_s, u"b.m3u"_s};
    QCOMPARE(fileNames(), names);
    QCOMPARE(manager->getPlaylist(2), held);
    QCOMPARE(entries(manager->getPlaylist(3)), QStringList(lists(u"x.mp3"_s)));
    // Under its own name it takes the place of the list that was read instead.
    const PlaylistPtr other = manager->getPlaylist(3);
    manager->loadPlaylists();
    QVERIFY(manager->savePlaylistAs(other, lists(u"b.m3u"_s)));
    QCOMPARE(fileNames(), names);
    QCOMPARE(manager->getPlaylist(3), other);
}

void TestPlaylistTwins::removingAPlaylistHeldAcrossAScan()
{
    putList(u"a.m3u"_s, "a.mp3\n");
    putList(u"b.m3u"_s, "b.mp3\n");
    manager->loadPlaylists();
    const PlaylistPtr held = manager->getPlaylist(2);
    manager->loadPlaylists();
    QVERIFY(manager->removePlaylist(held));
    QVERIFY(!QFile::exists(lists(u"a.m3u"_s)));
    QCOMPARE(fileNames(), QStringList(u"b.m3u"_s));
}

void TestPlaylistTwins::removingALinkLeavesItsFile()
{
    if (!FileSystem::hasLinks(home->path()))
        QSKIP("This file system knows no links.");
    putList(u"a.m3u"_s, "a.mp3\n");
    QVERIFY(QFile::link(u"a.m3u"_s, lists(u"b.m3u"_s)));
    manager->loadPlaylists();
    QVERIFY(manager->removePlaylist(manager->getPlaylist(3)));
    QCOMPARE(fileNames(), QStringList(u"a.m3u"_s));
    QVERIFY(QFile::exists(lists(u"a.m3u"_s)));
}

TARVELO_TEST_MAIN(TestPlaylistTwins, QGuiApplication)
#include "tst_PlaylistTwins.moc"
