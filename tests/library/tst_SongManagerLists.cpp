#include "SongManager.h"

#include "FileSystem.h"
#include "LogCapture.h"
#include "Samples.h"
#include "Settings.h"
#include "SongStore.h"
#include "TestMain.h"

#include <QGuiApplication>
#include <QSignalSpy>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

// The lists of the song manager.
class TestSongManagerLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void withoutPlaylists();
    void playlistsOfTheirDirectoryAlone();
    void aMissingDirectoryHasNoPlaylists_data();
    void aMissingDirectoryHasNoPlaylists();
    void whatIsNoFileIsNoPlaylist();
    void sortedByName();
    void numbersAndNamesAgree();
    void entriesAreTheLibrarysSongs();
    void listsFollowTheLibrary();
    void listsAreRefreshedInOrder();
    void listsAreUpToDateWhenTheChangeIsTold();
    void playlistsAreLoadedWithTheSongs();
    void playlistsAreLoadedAnew();
    void newPlaylists();
    void removingPlaylists();
    void savingPlaylists();
    void savingTheWorkingListUnderAName();
    void aFailedSaveChangesNoList();
    void theLibraryCanNotBeSaved();
    void noListAtAll();
    void removedSongsLeaveThePlaylists();
    void removedSongsStayMissingInPlaylists();
    void theLibraryRemovesSongs();
    void songsThatCanNotBeRemovedStay();
    void renamedSongsStayInThePlaylists();

private:
    QString music(const QString &name) const { return home->path() + u"/music/"_s + name; }
    QString lists(const QString &name) const { return home->path() + u"/lists/"_s + name; }
    QString putSong(const QString &name) const;
    void putList(const QString &name, const QByteArray &content) const;
    QByteArray content(const QString &list) const;
    QStringList fileNames() const;
    static QStringList entries(const PlaylistPtr &list);

    std::unique_ptr<QTemporaryDir> home;
    std::unique_ptr<SongManager> manager;
    QString tone;
};

namespace {

const QByteArray head = "\xef\xbb\xbf#EXTM3U\n"_ba;

// Notes what its lists ask for.
class AskedManager : public SongManager
{
public:
    SongPtr getSong(const QString &filename) const override
    {
        questions.append(filename);
        return SongManager::getSong(filename);
    }
    const QHash<QString, SongPtr> &getSongs() const override
    {
        questions.append(u"all"_s);
        return SongManager::getSongs();
    }

    mutable QStringList questions;
};

} // namespace

void TestSongManagerLists::initTestCase()
{
    createSongStores();
    tone = QDir::current().filePath(u"tone.mp3"_s);
    QVERIFY(Samples::writeTone(tone, {0.5, 440, 44100, 1}));
}

void TestSongManagerLists::cleanupTestCase()
{
    destroySongStores();
}

void TestSongManagerLists::init()
{
    home = std::make_unique<QTemporaryDir>();
    manager = std::make_unique<SongManager>();
    QVERIFY(QDir().mkpath(music({})));
    QVERIFY(QDir().mkpath(lists({})));
    Settings::setValue(Settings::Key::MusicDir, home->path() + u"/music"_s);
    Settings::setValue(Settings::Key::PlaylistDir, home->path() + u"/lists"_s);
}

QString TestSongManagerLists::putSong(const QString &name) const
{
    QDir().mkpath(QFileInfo(music(name)).path());
    QFile::copy(tone, music(name));
    return music(name);
}

void TestSongManagerLists::putList(const QString &name, const QByteArray &content) const
{
    QDir().mkpath(QFileInfo(lists(name)).path());
    QFile file(lists(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray TestSongManagerLists::content(const QString &list) const
{
    QFile file(lists(list));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The names of the playlist files in their order.
QStringList TestSongManagerLists::fileNames() const
{
    return manager->getPlaylistNames().mid(2);
}

QStringList TestSongManagerLists::entries(const PlaylistPtr &list)
{
    QStringList paths;
    for (const SongPtr &song : list->songs())
        paths.append(song->getFilename());
    return paths;
}

void TestSongManagerLists::withoutPlaylists()
{
    QCOMPARE(manager->getPlaylist(0), manager->getMasterList());
    QCOMPARE(manager->getPlaylist(1), manager->getTempList());
    QVERIFY(manager->getMasterList()->isMaster());
    QVERIFY(manager->getTempList()->isNew());
    for (const int index : {-1, 2, 3, INT_MIN, INT_MAX})
        QVERIFY(!manager->getPlaylist(index));
    const QStringList names{u"<Musikbibliothek>"_s, u"<Neue Playlist>"_s};
    QCOMPARE(manager->getPlaylistNames(), names);
}

void TestSongManagerLists::playlistsOfTheirDirectoryAlone()
{
    QStringList names{u"a.m3u"_s, u"b.m3u8"_s, u"c.M3U"_s};
    if (FileSystem::takesName(home->path(), u":g.m3u8"_s))
        names.prepend(u":g.m3u8"_s);
    for (const QString &name : names + QStringList{u"d.pls"_s, u"e.m3u.txt"_s, u"deep/f.m3u"_s})
        putList(name, "a.mp3\n");
    QVERIFY(QDir().mkpath(lists(u"h.m3u"_s)));
    putSong(u"deep/a.mp3"_s);
    manager->loadAllLists();
    QCOMPARE(fileNames(), names);
    for (int index = 2; index < 2 + names.size(); ++index)
        QCOMPARE(entries(manager->getPlaylist(index)), QStringList(lists(u"a.mp3"_s)));
    // Songs are found at any depth.
    QVERIFY(manager->getSong(music(u"deep/a.mp3"_s)));
}

void TestSongManagerLists::aMissingDirectoryHasNoPlaylists_data()
{
    QTest::addColumn<QString>("directory");
    QTest::newRow("missing") << u"/nowhere/at/all"_s;
    // Not the working directory, in which a playlist lies.
    QTest::newRow("not set") << QString();
}

void TestSongManagerLists::aMissingDirectoryHasNoPlaylists()
{
    QFETCH(QString, directory);
    putList(u"a.m3u"_s, "");
    QFile::copy(lists(u"a.m3u"_s), QDir::current().filePath(u"a.m3u"_s));
    manager->loadPlaylists();
    QCOMPARE(fileNames().size(), 1);
    Settings::setValue(Settings::Key::PlaylistDir, directory);
    manager->loadPlaylists();
    QCOMPARE(fileNames().size(), 0);
}

void TestSongManagerLists::whatIsNoFileIsNoPlaylist()
{
    if (!FileSystem::hasLinks(home->path()))
        QSKIP("This file system knows no links.");
    const QString pipe = lists(u"pipe"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QVERIFY(QFile::link(pipe, lists(u"a.m3u"_s)));
    QVERIFY(QFile::link(u"/dev/zero"_s, lists(u"b.m3u"_s)));
    putList(u"c.m3u"_s, "");
    manager->loadPlaylists();
    QCOMPARE(fileNames(), QStringList(u"c.m3u"_s));
}

void TestSongManagerLists::sortedByName()
{
    for (const QString &name :
         {u"b.m3u"_s, u"C.m3u"_s, u"a.m3u8"_s, u"Ä.m3u"_s, u"10.m3u"_s, u"9.m3u"_s})
        putList(name, "");
    manager->loadPlaylists();
    const QStringList names{u"10.m3u"_s, u"9.m3u"_s, u"a.m3u8"_s,
                            u"b.m3u"_s,  u"C.m3u"_s, u"Ä.m3u"_s};
    QCOMPARE(fileNames(), names);
}

void TestSongManagerLists::numbersAndNamesAgree()
{
    putList(u"b.m3u"_s, "");
    putList(u"a.m3u"_s, "");
    manager->loadPlaylists();
    const QStringList names = manager->getPlaylistNames();
    QCOMPARE(names.size(), 4);
    for (int index = 0; index < names.size(); ++index)
        QCOMPARE(manager->getPlaylist(index)->name(), names.at(index));
    QVERIFY(!manager->getPlaylist(4));
}

void TestSongManagerLists::entriesAreTheLibrarysSongs()
{
    const QString song = putSong(u"a.mp3"_s);
    putList(u"list.m3u"_s, "../music/a.mp3\n../music/b.mp3\n");
    manager->loadAllLists();
    const PlaylistPtr list = manager->getPlaylist(2);
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->songs().at(0), manager->getSong(song));
    QVERIFY(list->songs().at(1)->isMissingFile());
    QCOMPARE(manager->getSongs().size(), 1);
    QCOMPARE(manager->getMasterList()->songs(), manager->getSongs().values());
}

void TestSongManagerLists::listsFollowTheLibrary()
{
    putList(u"list.m3u"_s, "../music/a.mp3\n");
    manager->loadAllLists();
    manager->getTempList()->add(music(u"a.mp3"_s));
    QVERIFY(manager->getTempList()->songs().at(0)->isMissingFile());
    const QString song = putSong(u"a.mp3"_s);
    manager->addSong(song);
    for (int index = 0; index < 3; ++index)
        QCOMPARE(manager->getPlaylist(index)->songs().at(0), manager->getSong(song));
}

void TestSongManagerLists::listsAreRefreshedInOrder()
{
    putList(u"c.m3u"_s, "c.mp3\n");
    putList(u"b.m3u"_s, "b.mp3\n");
    AskedManager asked;
    asked.loadPlaylists();
    asked.getTempList()->add(lists(u"a.mp3"_s));
    asked.questions.clear();
    asked.updateAllLists();
    const QStringList order{u"all"_s, lists(u"a.mp3"_s), lists(u"b.mp3"_s), lists(u"c.mp3"_s)};
    QCOMPARE(asked.questions, order);
}

void TestSongManagerLists::listsAreUpToDateWhenTheChangeIsTold()
{
    const QString song = putSong(u"a.mp3"_s);
    putList(u"list.m3u"_s, "../music/a.mp3\n");
    manager->loadPlaylists();
    int told = 0;
    connect(manager.get(), &SongManager::notifyListsChanged, this, [&] {
        ++told;
        QCOMPARE(manager->getMasterList()->count(), 1);
        QCOMPARE(manager->getPlaylist(2)->songs().at(0), manager->getSong(song));
    });
    manager->loadSongList();
    QCOMPARE(told, 1);
    manager->updateAllLists();
    QCOMPARE(told, 2);
}

void TestSongManagerLists::playlistsAreLoadedWithTheSongs()
{
    putList(u"list.m3u"_s, "");
    manager->loadSongList();
    QCOMPARE(fileNames(), QStringList());
    manager->loadAllLists();
    QCOMPARE(fileNames(), QStringList(u"list.m3u"_s));
}

void TestSongManagerLists::playlistsAreLoadedAnew()
{
    putList(u"list.m3u"_s, "a.mp3\n");
    manager->loadPlaylists();
    const PlaylistPtr old = manager->getPlaylist(2);
    old->add(u"/m/b.mp3"_s);
    manager->getTempList()->add(u"/m/c.mp3"_s);
    const PlaylistPtr temp = manager->getTempList();
    manager->loadPlaylists();
    QVERIFY(manager->getPlaylist(2) != old);
    QCOMPARE(entries(manager->getPlaylist(2)), QStringList(lists(u"a.mp3"_s)));
    QCOMPARE(old->count(), 2);
    QCOMPARE(manager->getTempList(), temp);
    QCOMPARE(entries(temp), QStringList(u"/m/c.mp3"_s));
}

void TestSongManagerLists::newPlaylists()
{
    putList(u"b.m3u"_s, "");
    manager->loadPlaylists();
    putList(u"deep/a.m3u"_s, "x.mp3\n");
    QSignalSpy changed(manager.get(), &SongManager::notifyListsChanged);
    const PlaylistPtr found = manager->newPlaylist(lists(u"deep/a.m3u"_s));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(manager->getPlaylist(2), found);
    QCOMPARE(entries(found), QStringList(lists(u"deep/x.mp3"_s)));
    const PlaylistPtr made = manager->newPlaylist(lists(u"c.m3u8"_s));
    QCOMPARE(manager->getPlaylist(4), made);
    QCOMPARE(made->count(), 0);
    QCOMPARE(made->songManager(), static_cast<SongLibrary *>(manager.get()));
    QVERIFY(!QFile::exists(lists(u"c.m3u8"_s)));
}

void TestSongManagerLists::removingPlaylists()
{
    for (const QString &name : {u"a.m3u"_s, u"b.m3u"_s, u"c.m3u"_s})
        putList(name, "");
    manager->loadPlaylists();
    QVERIFY(manager->removePlaylist(manager->getPlaylist(3)));
    const QStringList left{u"a.m3u"_s, u"c.m3u"_s};
    QCOMPARE(fileNames(), left);
    QVERIFY(!QFile::exists(lists(u"b.m3u"_s)));
    // Already gone, and no files.
    QVERIFY(QFile::remove(lists(u"a.m3u"_s)));
    for (const int index : {0, 1, 2})
        QVERIFY(!manager->removePlaylist(manager->getPlaylist(index)));
    QCOMPARE(fileNames(), left);
}

void TestSongManagerLists::savingPlaylists()
{
    putList(u"a.m3u"_s, "a.mp3\n");
    manager->loadPlaylists();
    manager->getPlaylist(2)->add(lists(u"b.mp3"_s));
    QVERIFY(manager->savePlaylist(manager->getPlaylist(2)));
    QCOMPARE(content(u"a.m3u"_s), head + "a.mp3\nb.mp3\n");
    QVERIFY(!manager->savePlaylist(manager->getPlaylist(0)));
    QVERIFY(!manager->savePlaylist(manager->getPlaylist(1)));
}

void TestSongManagerLists::savingTheWorkingListUnderAName()
{
    putList(u"b.m3u"_s, "");
    manager->loadPlaylists();
    const PlaylistPtr list = manager->getTempList();
    list->add(music(u"a.mp3"_s));
    QVERIFY(manager->savePlaylistAs(manager->getTempList(), lists(u"a.m3u8"_s)));
    QCOMPARE(content(u"a.m3u8"_s), head + "../music/a.mp3\n");
    const QStringList names{u"a.m3u8"_s, u"b.m3u"_s};
    QCOMPARE(fileNames(), names);
    QCOMPARE(manager->getPlaylist(2), list);
    QVERIFY(!list->isNew());
    QVERIFY(manager->getTempList() != list);
    QVERIFY(manager->getTempList()->isNew());
    QCOMPARE(manager->getTempList()->count(), 0);
}

void TestSongManagerLists::aFailedSaveChangesNoList()
{
    putList(u"a.m3u"_s, "x.mp3\n");
    manager->loadPlaylists();
    const PlaylistPtr list = manager->getPlaylist(2);
    const PlaylistPtr temp = manager->getTempList();
    temp->add(u"/m/a.mp3"_s);
    for (const QString &target : {QString(), lists(u"no/where.m3u"_s)}) {
        QVERIFY(!manager->savePlaylistAs(list, target));
        QVERIFY(!manager->savePlaylistAs(temp, target));
    }
    QCOMPARE(fileNames(), QStringList(u"a.m3u"_s));
    QCOMPARE(manager->getPlaylist(2), list);
    QCOMPARE(manager->getTempList(), temp);
    QCOMPARE(temp->count(), 1);
}

void TestSongManagerLists::theLibraryCanNotBeSaved()
{
    QVERIFY(!manager->savePlaylistAs(manager->getMasterList(), lists(u"a.m3u"_s)));
    QCOMPARE(fileNames(), QStringList());
    QVERIFY(!QFile::exists(lists(u"a.m3u"_s)));
}

void TestSongManagerLists::noListAtAll()
{
    QVERIFY(!manager->savePlaylist({}));
    QVERIFY(!manager->savePlaylistAs({}, lists(u"a.m3u"_s)));
    QVERIFY(!manager->removePlaylist({}));
}

void TestSongManagerLists::removedSongsLeaveThePlaylists()
{
    const QString gone = putSong(u"gone.mp3"_s);
    const QString stays = putSong(u"stays.mp3"_s);
    putList(u"a.m3u"_s, "../music/gone.mp3\n../music/stays.mp3\n../music/gone.mp3\n");
    putList(u"b.m3u"_s, "../music/stays.mp3\n");
    manager->loadAllLists();
    manager->getTempList()->add(gone);
    QSignalSpy changed(manager.get(), &SongManager::notifyListsChanged);
    {
        const LogCapture log;
        QVERIFY(manager->removeSong(manager->getSong(gone)->getFilename(), true));
        QCOMPARE(log.count(u"debug: Remove Song from filesystem: \"%1\""_s.arg(gone)), 1);
    }
    QCOMPARE(changed.size(), 1);
    QVERIFY(!QFile::exists(gone));
    QVERIFY(!manager->getSong(gone));
    QCOMPARE(entries(manager->getMasterList()), QStringList(stays));
    QCOMPARE(manager->getTempList()->count(), 0);
    QCOMPARE(entries(manager->getPlaylist(2)), QStringList(stays));
    QCOMPARE(content(u"a.m3u"_s), head + "../music/stays.mp3\n");
    // A list without the song isn't touched.
    QCOMPARE(content(u"b.m3u"_s), "../music/stays.mp3\n"_ba);
}

void TestSongManagerLists::removedSongsStayMissingInPlaylists()
{
    const QString gone = putSong(u"gone.mp3"_s);
    putList(u"a.m3u"_s, "../music/gone.mp3\n");
    manager->loadAllLists();
    QVERIFY(manager->removeSong(gone, false));
    QVERIFY(!QFile::exists(gone));
    QCOMPARE(manager->getMasterList()->count(), 0);
    QCOMPARE(entries(manager->getPlaylist(2)), QStringList(gone));
    QVERIFY(manager->getPlaylist(2)->songs().at(0)->isMissingFile());
    QCOMPARE(content(u"a.m3u"_s), "../music/gone.mp3\n"_ba);
}

void TestSongManagerLists::theLibraryRemovesSongs()
{
    const QString gone = putSong(u"gone.mp3"_s);
    putList(u"a.m3u"_s, "../music/gone.mp3\n");
    manager->loadAllLists();
    QVERIFY(manager->getMasterList()->removeEntryAt(0, true));
    QVERIFY(!QFile::exists(gone));
    QCOMPARE(manager->getMasterList()->count(), 0);
    QCOMPARE(content(u"a.m3u"_s), head);
}

void TestSongManagerLists::songsThatCanNotBeRemovedStay()
{
    const QString gone = putSong(u"gone.mp3"_s);
    putList(u"a.m3u"_s, "../music/gone.mp3\n");
    manager->loadAllLists();
    QVERIFY(QFile::remove(gone));
    QVERIFY(!manager->removeSong(gone, true));
    QVERIFY(manager->getSong(gone));
    QCOMPARE(content(u"a.m3u"_s), "../music/gone.mp3\n"_ba);
    QVERIFY(!manager->removeSong(u"/never/heard/of.mp3"_s, true));
}

void TestSongManagerLists::renamedSongsStayInThePlaylists()
{
    putList(u"a.m3u"_s, "../music/a.mp3\n../music/b.mp3\n");
    putList(u"b.m3u"_s, "../music/b.mp3\n");
    manager->loadAllLists();
    manager->getTempList()->add(music(u"a.mp3"_s));
    QSignalSpy changed(manager.get(), &SongManager::notifyListsChanged);
    manager->renameSong(music(u"a.mp3"_s), music(u"x/c.mp3"_s));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(content(u"a.m3u"_s), head + "../music/x/c.mp3\n../music/b.mp3\n");
    QCOMPARE(content(u"b.m3u"_s), "../music/b.mp3\n"_ba);
    QCOMPARE(entries(manager->getTempList()), QStringList(music(u"x/c.mp3"_s)));
}

TARVELO_TEST_MAIN(TestSongManagerLists, QGuiApplication)
#include "tst_SongManagerLists.moc"
