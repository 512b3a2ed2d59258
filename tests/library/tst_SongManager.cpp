#include "SongManager.h"

#include "FileSystem.h"
#include "Samples.h"
#include "Settings.h"
#include "SongStore.h"
#include "TestMain.h"

#include <QGuiApplication>
#include <QSignalSpy>

#include <sys/stat.h>
#include <unistd.h>

class TestSongManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void everyMusicFileIsFound();
    void otherFilesAreNotFound();
    void theScanTellsItsCountFirst();
    void theCounterRunsOverAllDirectories();
    void theCounterBeginsAnew();
    void aMissingDirectoryIsAnEmptyLibrary_data();
    void aMissingDirectoryIsAnEmptyLibrary();
    void aBrokenFileIsASong();
    void withoutADirectoryNothingIsCleared();
    void whatIsNoFileIsNotFound();
    void anyNameIsFound_data();
    void anyNameIsFound();
    void linksToAncestorsAreNotEntered();
    void directoriesThatLinkOneAnotherComeToAnEnd();
    void aSongOnTwoPathsIsTwoSongs();
    void unreadableFilesAndDirectoriesAreLeftOut();
    void songsHeldByOthersOutliveAScan();
    void addingTellsTheLists();
    void addingTwiceDoesNothing();
    void addingNeverFails();
    void lookingUpNothingAnswersEmpty();

private:
    bool hasLinks() const { return FileSystem::hasLinks(directory->path()); }
    QString put(const QString &name) const;
    QStringList namesFound() const;

    std::unique_ptr<QTemporaryDir> directory;
    std::unique_ptr<SongManager> manager;
    QString tone;
};

void TestSongManager::initTestCase()
{
    createSongStores();
    tone = QDir::current().filePath(u"tone.mp3"_qs);
    QVERIFY(Samples::writeTone(tone, {0.5, 440, 44100, 1}));
}

void TestSongManager::cleanupTestCase()
{
    destroySongStores();
}

void TestSongManager::init()
{
    directory = std::make_unique<QTemporaryDir>();
    manager = std::make_unique<SongManager>();
    Settings::setValue(Settings::Key::MusicDir, directory->path());
}

QString TestSongManager::put(const QString &name) const
{
    const QString path = directory->path() + u'/' + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile::copy(tone, path);
    return path;
}

// Relative to the music directory, in order.
QStringList TestSongManager::namesFound() const
{
    QStringList names;
    for (auto song = manager->getSongs().cbegin(); song != manager->getSongs().cend(); ++song) {
        if (song.key() == song.value()->getFilename())
            names.append(QDir(directory->path()).relativeFilePath(song.key()));
    }
    names.sort();
    return names;
}

void TestSongManager::everyMusicFileIsFound()
{
    const QStringList names{u"a.mp3"_qs,         u"b.m4a"_qs,      u"c.flac"_qs, u"d.ogg"_qs,
                            u"deep/er/e.mp3"_qs, u"deep/f.OGG"_qs, u"x.MP3"_qs,  u"y.Mp3"_qs};
    for (const QString &name : names)
        put(name);
    manager->loadSongList();
    QCOMPARE(namesFound(), names);
    const SongPtr song = manager->getSong(directory->filePath(u"deep/er/e.mp3"_qs));
    QVERIFY(song);
    QCOMPARE(song->getFrequency(), 44100);
}

void TestSongManager::otherFilesAreNotFound()
{
    for (const QString &name : {u"z.wav"_qs, u"mp3"_qs, u"a.mp3.txt"_qs, u".hidden.mp3"_qs,
                                u".hidden/a.mp3"_qs, u"a.mp"_qs})
        put(name);
    QVERIFY(QDir(directory->path()).mkpath(u"directory.mp3"_qs));
    QSignalSpy counted(manager.get(), &SongManager::notifySongCount);
    QSignalSpy scanned(manager.get(), &SongManager::notifySongScanned);
    manager->loadSongList();
    QCOMPARE(counted.at(0).at(0).toInt(), 0);
    QCOMPARE(scanned.size(), 0);
    QCOMPARE(namesFound(), QStringList());
}

void TestSongManager::theScanTellsItsCountFirst()
{
    put(u"a.mp3"_qs);
    put(u"b/b.mp3"_qs);
    manager->loadSongList();
    QStringList order;
    connect(manager.get(), &SongManager::notifySongCount, this, [&](int count) {
        order.append(u"count %1 of %2"_qs.arg(count).arg(manager->getSongs().size()));
    });
    connect(manager.get(), &SongManager::notifySongScanned, this,
            [&](int x, const QString &name, bool cached) {
                order.append(u"song %1 of %2"_qs.arg(x).arg(manager->getSongs().size()));
                QVERIFY(name == u"a.mp3" || name == u"b.mp3");
                QVERIFY(!cached);
            });
    connect(manager.get(), &SongManager::notifyListsChanged, this,
            [&] { order.append(u"lists"_qs); });
    manager->loadAllLists();
    const QStringList expected{u"count 2 of 2"_qs, u"song 1 of 1"_qs, u"song 2 of 2"_qs,
                               u"lists"_qs, u"lists"_qs};
    QCOMPARE(order, expected);
}

void TestSongManager::theCounterRunsOverAllDirectories()
{
    for (int number = 0; number < 12; ++number)
        put(u"%1/%2.mp3"_qs.arg(number % 4).arg(number));
    QSignalSpy counted(manager.get(), &SongManager::notifySongCount);
    QSignalSpy scanned(manager.get(), &SongManager::notifySongScanned);
    manager->loadSongList();
    QCOMPARE(counted.at(0).at(0).toInt(), 12);
    QCOMPARE(scanned.size(), 12);
    for (int index = 0; index < 12; ++index)
        QCOMPARE(scanned.at(index).at(0).toInt(), index + 1);
}

void TestSongManager::theCounterBeginsAnew()
{
    put(u"a.mp3"_qs);
    QSignalSpy scanned(manager.get(), &SongManager::notifySongScanned);
    manager->loadSongList();
    manager->loadSongList();
    QCOMPARE(scanned.size(), 2);
    QCOMPARE(scanned.at(1).at(0).toInt(), 1);
}

void TestSongManager::aMissingDirectoryIsAnEmptyLibrary_data()
{
    QTest::addColumn<QString>("musicDir");
    QTest::newRow("missing") << u"/nowhere/at/all"_qs;
    // Not the working directory, in which a song lies.
    QTest::newRow("not set") << QString();
}

void TestSongManager::aMissingDirectoryIsAnEmptyLibrary()
{
    QFETCH(QString, musicDir);
    put(u"a.mp3"_qs);
    manager->loadSongList();
    QCOMPARE(manager->getSongs().size(), 1);
    Settings::setValue(Settings::Key::MusicDir, musicDir);
    QSignalSpy counted(manager.get(), &SongManager::notifySongCount);
    QSignalSpy changed(manager.get(), &SongManager::notifyListsChanged);
    manager->loadSongList();
    QCOMPARE(counted.size(), 1);
    QCOMPARE(counted.at(0).at(0).toInt(), 0);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(manager->getSongs().size(), 0);
}

void TestSongManager::aBrokenFileIsASong()
{
    QFile file(directory->filePath(u"broken.m4a"_qs));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no music");
    file.close();
    manager->loadSongList();
    QCOMPARE(namesFound(), QStringList{u"broken.m4a"_qs});
    QCOMPARE(manager->getSong(file.fileName())->getRating(), -1);
}

// What a killed save leaves in a music directory is cleared away there alone.
void TestSongManager::withoutADirectoryNothingIsCleared()
{
    const auto putNote = [](const QString &path) {
        QFile note(path);
        return note.open(QIODevice::WriteOnly) && note.write("nonsense") == 8;
    };
    const QString near = directory->filePath(u".tarvelo-x.journal"_qs);
    const QString far = QDir::current().filePath(u".tarvelo-x.journal"_qs);
    QVERIFY(putNote(near));
    QVERIFY(putNote(far));
    manager->loadSongList();
    QVERIFY(!QFile::exists(near));
    Settings::setValue(Settings::Key::MusicDir, QString());
    manager->loadSongList();
    QVERIFY(QFile::exists(far));
}

void TestSongManager::whatIsNoFileIsNotFound()
{
    if (!hasLinks())
        QSKIP("This file system knows no links.");
    const QString pipe = directory->filePath(u"pipe.mp3"_qs);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QVERIFY(QFile::link(pipe, directory->filePath(u"a.mp3"_qs)));
    QVERIFY(QFile::link(u"/dev/zero"_qs, directory->filePath(u"b.mp3"_qs)));
    QVERIFY(QFile::link(directory->filePath(u"nothing"_qs), directory->filePath(u"c.mp3"_qs)));
    put(u"d.mp3"_qs);
    QSignalSpy counted(manager.get(), &SongManager::notifySongCount);
    manager->loadSongList();
    QCOMPARE(counted.at(0).at(0).toInt(), 1);
    QCOMPARE(namesFound(), QStringList{u"d.mp3"_qs});
}

void TestSongManager::anyNameIsFound_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name :
         {u"  a .mp3"_qs, u"#.mp3"_qs, u"100%20.mp3"_qs, u":x.mp3"_qs, u"Gru\u0308ße ü.mp3"_qs,
          u"a?*[b].mp3"_qs, u"💃.mp3"_qs, QString(251, u'x') + u".mp3"_qs})
        QTest::newRow(qPrintable(name)) << name;
}

// Also as the name of its directory.
void TestSongManager::anyNameIsFound()
{
    QFETCH(QString, name);
    if (!FileSystem::takesName(directory->path(), name))
        QSKIP("This file system doesn't take the name.");
    const QString inside = name.left(100).remove(u".mp3"_qs) + u'd';
    QStringList names{name, inside + u"/a.mp3"_qs, inside + u'/' + name};
    for (const QString &path : names)
        put(path);
    manager->loadSongList();
    names.sort();
    QCOMPARE(namesFound(), names);
    for (const SongPtr &song : manager->getSongs())
        QCOMPARE(song->getFrequency(), 44100);
}

void TestSongManager::linksToAncestorsAreNotEntered()
{
    if (!hasLinks())
        QSKIP("This file system knows no links.");
    put(u"a.mp3"_qs);
    put(u"deep/er/b.mp3"_qs);
    QVERIFY(QFile::link(directory->path(), directory->filePath(u"deep/er/one"_qs)));
    QVERIFY(QFile::link(directory->path(), directory->filePath(u"deep/er/two"_qs)));
    QVERIFY(QFile::link(u"."_qs, directory->filePath(u"deep/three"_qs)));
    QVERIFY(QFile::link(u"../.."_qs, directory->filePath(u"deep/er/four"_qs)));
    QSignalSpy counted(manager.get(), &SongManager::notifySongCount);
    manager->loadSongList();
    const QStringList expected{u"a.mp3"_qs, u"deep/er/b.mp3"_qs};
    QCOMPARE(namesFound(), expected);
    QCOMPARE(counted.at(0).at(0).toInt(), 2);
}

void TestSongManager::directoriesThatLinkOneAnotherComeToAnEnd()
{
    if (!hasLinks())
        QSKIP("This file system knows no links.");
    constexpr int count = 8;
    for (int from = 0; from < count; ++from) {
        put(u"%1/%1.mp3"_qs.arg(from));
        for (int to = 0; to < count; ++to) {
            const QString link = directory->filePath(u"%1/to%2"_qs.arg(from).arg(to));
            QVERIFY(to == from || QFile::link(u"../%1"_qs.arg(to), link));
        }
    }
    QSignalSpy counted(manager.get(), &SongManager::notifySongCount);
    manager->loadSongList();
    QCOMPARE(counted.at(0).at(0).toInt(), manager->getSongs().size());
    QVERIFY(manager->getSongs().size() <= 9 * count);
    for (int number = 0; number < count; ++number)
        QVERIFY(manager->getSong(directory->filePath(u"%1/%1.mp3"_qs.arg(number))));
}

void TestSongManager::aSongOnTwoPathsIsTwoSongs()
{
    if (!hasLinks())
        QSKIP("This file system knows no links.");
    const QString song = put(u"songs/a.mp3"_qs);
    QVERIFY(QFile::link(directory->filePath(u"songs"_qs), directory->filePath(u"more"_qs)));
    QVERIFY(QFile::link(song, directory->filePath(u"linked.mp3"_qs)));
    manager->loadSongList();
    const QStringList expected{u"linked.mp3"_qs, u"more/a.mp3"_qs, u"songs/a.mp3"_qs};
    QCOMPARE(namesFound(), expected);
}

void TestSongManager::unreadableFilesAndDirectoriesAreLeftOut()
{
    if (::geteuid() == 0)
        QSKIP("Root may read any file: run this as an ordinary user.");
    if (!FileSystem::hasModes(directory->path()))
        QSKIP("This file system knows no modes.");
    put(u"a.mp3"_qs);
    put(u"closed/c.mp3"_qs);
    QVERIFY(QFile::setPermissions(put(u"b.mp3"_qs), QFile::WriteOwner));
    const QString closed = directory->filePath(u"closed"_qs);
    QVERIFY(QFile::setPermissions(closed, QFile::ReadOwner));
    manager->loadSongList();
    QCOMPARE(namesFound(), QStringList{u"a.mp3"_qs});
    QVERIFY(QFile::setPermissions(closed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void TestSongManager::songsHeldByOthersOutliveAScan()
{
    const QString held = put(u"held.mp3"_qs);
    const QString free = put(u"free.mp3"_qs);
    manager->loadSongList();
    const SongPtr song = manager->getSong(held);
    const QWeakPointer<Song> dropped = manager->getSong(free);
    manager->loadSongList();
    QVERIFY(!dropped);
    QCOMPARE(song->getFilename(), held);
    QVERIFY(manager->getSong(held) != song);
}

void TestSongManager::addingTellsTheLists()
{
    QSignalSpy changed(manager.get(), &SongManager::notifyListsChanged);
    const QString path = put(u"a.mp3"_qs);
    QVERIFY(manager->addSong(path));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(manager->getSong(path)->getFilename(), path);
    QVERIFY(!manager->getSong(path)->isMissingFile());
}

void TestSongManager::addingTwiceDoesNothing()
{
    const QString path = put(u"a.mp3"_qs);
    manager->addSong(path);
    const SongPtr song = manager->getSong(path);
    QSignalSpy changed(manager.get(), &SongManager::notifyListsChanged);
    QVERIFY(manager->addSong(path));
    QCOMPARE(changed.size(), 0);
    QCOMPARE(manager->getSong(path), song);
}

void TestSongManager::addingNeverFails()
{
    QVERIFY(manager->addSong(u"/nowhere/at/all.mp3"_qs));
    QCOMPARE(manager->getSong(u"/nowhere/at/all.mp3"_qs)->getRating(), -1);
}

void TestSongManager::lookingUpNothingAnswersEmpty()
{
    QVERIFY(!manager->getSong(u"a.mp3"_qs));
    QVERIFY(!manager->getSong(QString()));
}

TARVELO_TEST_MAIN(TestSongManager, QGuiApplication)
#include "tst_SongManager.moc"
