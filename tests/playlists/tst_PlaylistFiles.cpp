#include "PlaylistFile.h"

#include "FileSystem.h"
#include "FullDisk.h"
#include "LogCapture.h"
#include "Settings.h"
#include "TestLibrary.h"
#include "TestMain.h"

#include <QGuiApplication>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// A playlist and its file.
class TestPlaylistFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void names();
    void aListOfNoFileStandsForThePath();
    void loadingIsNoSuccess();
    void loadingLeavesTheSongsToTheCaller();
    void whatIsNoFileIsEmpty_data();
    void whatIsNoFileIsEmpty();
    void savedListsAreReadAgain();
    void savingElsewhereKeepsTheFiles();
    void aMovedFolderKeepsItsPaths();
    void savingNeedsAName();
    void savingIntoNowhereChangesNothing_data();
    void savingIntoNowhereChangesNothing();
    void aFullDiskLeavesTheOldFile();
    void aWriteProtectedFileStays();
    void aWriteProtectedDirectory();
    void linksStayLinks();
    void deletedSongsReachTheDisk();
    void renamedSongsReachTheDisk();
    void changesWaitForASave();
    void earlierChangesAreSavedWithThem();
    void unchangedListsAreNotSavedUnasked();
    void aFailedSaveLeavesTheListModified();
    void revertingReadsTheFileAgain();
    void revertingWithoutChangesReadsNothing();
    void removing();
    void namesThatAreHardToWrite_data();
    void namesThatAreHardToWrite();

private:
    QString path(const QString &name) const { return home->path() + u'/' + name; }
    void put(const QString &name, const QByteArray &content) const;
    QByteArray content(const QString &name) const;
    QStringList entries() const;

    std::unique_ptr<QTemporaryDir> home;
    std::unique_ptr<TestLibrary> library;
    std::unique_ptr<PlaylistFile> list;
};

namespace {

const QByteArray head = "\xef\xbb\xbf#EXTM3U\n"_ba;

bool isRoot()
{
    return ::geteuid() == 0;
}

} // namespace

void TestPlaylistFiles::init()
{
    home = std::make_unique<QTemporaryDir>();
    library = std::make_unique<TestLibrary>();
    list = std::make_unique<PlaylistFile>(library.get());
}

void TestPlaylistFiles::put(const QString &name, const QByteArray &content) const
{
    QDir().mkpath(QFileInfo(path(name)).path());
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray TestPlaylistFiles::content(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Relative to the test's directory.
QStringList TestPlaylistFiles::entries() const
{
    list->refresh();
    QStringList entries;
    for (const SongPtr &song : list->songs())
        entries.append(QDir(home->path()).relativeFilePath(song->getFilename()));
    return entries;
}

void TestPlaylistFiles::names()
{
    Settings::setValue(Settings::Key::PlaylistDir, u"/some/lists"_s);
    QVERIFY(list->isNew());
    QCOMPARE(list->name(), u"<Neue Playlist>"_s);
    QCOMPARE(list->fullPath(), u"/some/lists/<Neue Playlist>"_s);
    list->load(path(u"a.b.m3u8"_s));
    QVERIFY(!list->isNew());
    QCOMPARE(list->name(), u"a.b.m3u8"_s);
    QCOMPARE(list->fullPath(), path(u"a.b.m3u8"_s));
}

void TestPlaylistFiles::aListOfNoFileStandsForThePath()
{
    list->add(u"/m/a.mp3"_s);
    QVERIFY(!list->load(path(u"new.m3u8"_s)));
    QVERIFY(!list->isNew());
    QVERIFY(!list->isModified());
    QCOMPARE(entries(), QStringList());
    QVERIFY(!QFile::exists(path(u"new.m3u8"_s)));
    QVERIFY(list->save());
    QCOMPARE(content(u"new.m3u8"_s), head);
}

void TestPlaylistFiles::loadingIsNoSuccess()
{
    put(u"a.m3u"_s, "#EXTM3U\n#EXTINF:1,A\na.mp3\n..\\b.mp3\n");
    QVERIFY(!list->load(path(u"a.m3u"_s)));
    QVERIFY(!list->isModified());
    const QStringList expected{u"a.mp3"_s, u"../b.mp3"_s};
    QCOMPARE(entries(), expected);
}

void TestPlaylistFiles::loadingLeavesTheSongsToTheCaller()
{
    put(u"a.m3u"_s, "a.mp3\n");
    list->add(u"/m/x.mp3"_s);
    list->load(path(u"a.m3u"_s));
    QCOMPARE(list->songs().at(0)->getFilename(), u"/m/x.mp3"_s);
    list->refresh();
    QCOMPARE(list->songs().at(0)->getFilename(), path(u"a.mp3"_s));
}

void TestPlaylistFiles::whatIsNoFileIsEmpty_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"directory", "pipe", "device"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestPlaylistFiles::whatIsNoFileIsEmpty()
{
    QFETCH(QString, kind);
    const QString place = path(u"a.m3u"_s);
    if (kind != u"directory" && !FileSystem::hasLinks(home->path()))
        QSKIP("This file system knows files and directories alone.");
    if (kind == u"directory")
        QVERIFY(QDir().mkpath(place));
    else if (kind == u"pipe")
        QCOMPARE(::mkfifo(QFile::encodeName(place).constData(), 0600), 0);
    else
        QVERIFY(QFile::link(u"/dev/zero"_s, place));
    QVERIFY(!list->load(place));
    QCOMPARE(entries(), QStringList());
}

void TestPlaylistFiles::savedListsAreReadAgain()
{
    for (const QString &name : {u"b.mp3"_s, u"a.mp3"_s, u"x/Grüße.mp3"_s, u"b.mp3"_s})
        list->add(path(name));
    list->add(u"/elsewhere/c.mp3"_s);
    const QStringList before = entries();
    QVERIFY(list->saveAs(path(u"list.m3u8"_s)));
    QVERIFY(!list->isModified());
    QVERIFY(!list->isNew());
    QCOMPARE(list->name(), u"list.m3u8"_s);
    QCOMPARE(content(u"list.m3u8"_s).left(head.size() + 20),
             head + "b.mp3\na.mp3\nx/Gr\xc3\xbc\xc3\x9f");
    list->load(path(u"list.m3u8"_s));
    QCOMPARE(entries(), before);
}

void TestPlaylistFiles::savingElsewhereKeepsTheFiles()
{
    put(u"one/list.m3u8"_s, "a.mp3\n../b.mp3\n");
    list->load(path(u"one/list.m3u8"_s));
    const QStringList before = entries();
    QVERIFY(QDir().mkpath(path(u"two/three"_s)));
    QVERIFY(list->saveAs(path(u"two/three/list.m3u8"_s)));
    QCOMPARE(content(u"two/three/list.m3u8"_s), head + "../../one/a.mp3\n../../b.mp3\n");
    list->load(path(u"two/three/list.m3u8"_s));
    QCOMPARE(entries(), before);
    QCOMPARE(content(u"one/list.m3u8"_s), "a.mp3\n../b.mp3\n"_ba);
}

void TestPlaylistFiles::aMovedFolderKeepsItsPaths()
{
    QVERIFY(QDir().mkpath(path(u"music/lists"_s)));
    list->add(path(u"music/a.mp3"_s));
    list->add(path(u"music/lists/b.mp3"_s));
    QVERIFY(list->saveAs(path(u"music/lists/list.m3u8"_s)));
    QVERIFY(QFile::rename(path(u"music"_s), path(u"moved"_s)));
    list->load(path(u"moved/lists/list.m3u8"_s));
    const QStringList expected{u"moved/a.mp3"_s, u"moved/lists/b.mp3"_s};
    QCOMPARE(entries(), expected);
}

void TestPlaylistFiles::savingNeedsAName()
{
    list->add(u"/m/a.mp3"_s);
    QVERIFY(!list->saveAs(QString()));
    QVERIFY(!list->save());
    QVERIFY(list->isModified());
    QVERIFY(list->isNew());
}

void TestPlaylistFiles::savingIntoNowhereChangesNothing_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("no directory") << u"no/where.m3u8"_s;
    QTest::newRow("a directory") << u"."_s;
    QTest::newRow("below a file") << u"list.m3u8/x.m3u8"_s;
    QTest::newRow("too long a name") << QString(300, u'x');
}

void TestPlaylistFiles::savingIntoNowhereChangesNothing()
{
    QFETCH(QString, target);
    put(u"list.m3u8"_s, "a.mp3\n");
    list->load(path(u"list.m3u8"_s));
    list->add(path(u"b.mp3"_s));
    QVERIFY(!list->saveAs(path(target)));
    QCOMPARE(list->fullPath(), path(u"list.m3u8"_s));
    QVERIFY(list->isModified());
    const QStringList expected{u"a.mp3"_s, u"b.mp3"_s};
    QCOMPARE(entries(), expected);
    QCOMPARE(content(u"list.m3u8"_s), "a.mp3\n"_ba);
}

void TestPlaylistFiles::aFullDiskLeavesTheOldFile()
{
    put(u"list.m3u8"_s, "a.mp3\n");
    list->load(path(u"list.m3u8"_s));
    for (int number = 0; number < 100; ++number)
        list->add(path(QString::number(number) + u".mp3"_s));
    bool saved = true;
    bool savedElsewhere = true;
    {
        const FullDisk disk(64);
        saved = list->save();
        savedElsewhere = list->saveAs(path(u"other.m3u8"_s));
    }
    QVERIFY(!saved);
    QVERIFY(!savedElsewhere);
    QVERIFY(list->isModified());
    QVERIFY(!QFile::exists(path(u"other.m3u8"_s)));
    QCOMPARE(content(u"list.m3u8"_s), "a.mp3\n"_ba);
    QCOMPARE(QDir(home->path()).entryList(QDir::Files), QStringList(u"list.m3u8"_s));
    QVERIFY(list->save());
    list->load(path(u"list.m3u8"_s));
    QCOMPARE(entries().size(), 101);
}

void TestPlaylistFiles::aWriteProtectedFileStays()
{
    if (isRoot())
        QSKIP("Root may write any file: run this as an ordinary user.");
    if (!FileSystem::hasModes(home->path()))
        QSKIP("This file system knows no modes.");
    put(u"list.m3u8"_s, "a.mp3\n");
    QVERIFY(QFile::setPermissions(path(u"list.m3u8"_s), QFile::ReadOwner));
    list->load(path(u"list.m3u8"_s));
    list->add(path(u"b.mp3"_s));
    QVERIFY(!list->save());
    QVERIFY(list->isModified());
    QCOMPARE(content(u"list.m3u8"_s), "a.mp3\n"_ba);
}

void TestPlaylistFiles::aWriteProtectedDirectory()
{
    if (isRoot())
        QSKIP("Root may write anywhere: run this as an ordinary user.");
    if (!FileSystem::hasModes(home->path()))
        QSKIP("This file system knows no modes.");
    put(u"lists/list.m3u8"_s, "a.mp3\n");
    const QString lists = path(u"lists"_s);
    QVERIFY(QFile::setPermissions(lists, QFile::ReadOwner | QFile::ExeOwner));
    list->load(path(u"lists/list.m3u8"_s));
    list->add(path(u"lists/b.mp3"_s));
    const bool saved = list->save();
    const bool savedNew = list->saveAs(path(u"lists/new.m3u8"_s));
    const bool removed = list->remove();
    QVERIFY(QFile::setPermissions(lists, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(saved);
    QCOMPARE(content(u"lists/list.m3u8"_s), head + "a.mp3\nb.mp3\n");
    QVERIFY(!savedNew);
    QCOMPARE(list->fullPath(), path(u"lists/list.m3u8"_s));
    QVERIFY(!removed);
    QVERIFY(QFile::exists(path(u"lists/list.m3u8"_s)));
}

void TestPlaylistFiles::linksStayLinks()
{
    if (!FileSystem::hasLinks(home->path()))
        QSKIP("This file system knows no links.");
    put(u"real/list.m3u8"_s, "");
    QVERIFY(QDir().mkpath(path(u"lists"_s)));
    QVERIFY(QFile::link(path(u"real/list.m3u8"_s), path(u"lists/list.m3u8"_s)));
    list->load(path(u"lists/list.m3u8"_s));
    list->add(path(u"lists/a.mp3"_s));
    QVERIFY(list->save());
    QVERIFY(QFileInfo(path(u"lists/list.m3u8"_s)).isSymLink());
    QCOMPARE(content(u"real/list.m3u8"_s), head + "a.mp3\n");
}

void TestPlaylistFiles::deletedSongsReachTheDisk()
{
    put(u"list.m3u8"_s, "a.mp3\nb.mp3\na.mp3\n");
    list->load(path(u"list.m3u8"_s));
    list->removeSong(path(u"a.mp3"_s));
    QCOMPARE(content(u"list.m3u8"_s), head + "b.mp3\n");
    QVERIFY(!list->isModified());
    QCOMPARE(list->count(), 1);
}

void TestPlaylistFiles::renamedSongsReachTheDisk()
{
    put(u"list.m3u8"_s, "a.mp3\nb.mp3\na.mp3\n");
    list->load(path(u"list.m3u8"_s));
    list->renameSong(path(u"a.mp3"_s), path(u"x/c.mp3"_s));
    QCOMPARE(content(u"list.m3u8"_s), head + "x/c.mp3\nb.mp3\nx/c.mp3\n");
    QVERIFY(!list->isModified());
    QCOMPARE(list->songs().at(2)->getFilename(), path(u"x/c.mp3"_s));
}

void TestPlaylistFiles::changesWaitForASave()
{
    put(u"list.m3u8"_s, "a.mp3\n");
    list->load(path(u"list.m3u8"_s));
    list->add(path(u"b.mp3"_s));
    list->moveTo(0, 1);
    list->removeEntry(path(u"a.mp3"_s), true);
    QVERIFY(list->isModified());
    QCOMPARE(content(u"list.m3u8"_s), "a.mp3\n"_ba);
}

// Also where the list doesn't hold the song.
void TestPlaylistFiles::earlierChangesAreSavedWithThem()
{
    put(u"list.m3u8"_s, "a.mp3\n");
    list->load(path(u"list.m3u8"_s));
    list->add(path(u"b.mp3"_s));
    list->removeSong(path(u"x.mp3"_s));
    QCOMPARE(content(u"list.m3u8"_s), head + "a.mp3\nb.mp3\n");
    QVERIFY(!list->isModified());
    list->removeEntryAt(0, true);
    list->renameSong(path(u"x.mp3"_s), path(u"y.mp3"_s));
    QCOMPARE(content(u"list.m3u8"_s), head + "b.mp3\n");
    QVERIFY(!list->isModified());
}

void TestPlaylistFiles::unchangedListsAreNotSavedUnasked()
{
    put(u"list.m3u8"_s, "a.mp3\n");
    list->load(path(u"list.m3u8"_s));
    list->removeSong(path(u"x.mp3"_s));
    list->renameSong(path(u"x.mp3"_s), path(u"y.mp3"_s));
    QCOMPARE(content(u"list.m3u8"_s), "a.mp3\n"_ba);
}

void TestPlaylistFiles::aFailedSaveLeavesTheListModified()
{
    if (isRoot())
        QSKIP("Root may write any file: run this as an ordinary user.");
    if (!FileSystem::hasModes(home->path()))
        QSKIP("This file system knows no modes.");
    put(u"list.m3u8"_s, "a.mp3\n");
    QVERIFY(QFile::setPermissions(path(u"list.m3u8"_s), QFile::ReadOwner));
    list->load(path(u"list.m3u8"_s));
    {
        const LogCapture log;
        list->removeSong(path(u"a.mp3"_s));
        QCOMPARE(log.count(u"warning: Save Playlist failed: \"%1\""_s.arg(path(u"list.m3u8"_s))),
                 1);
    }
    QVERIFY(list->isModified());
    QCOMPARE(list->count(), 0);
    QCOMPARE(content(u"list.m3u8"_s), "a.mp3\n"_ba);
}

void TestPlaylistFiles::revertingReadsTheFileAgain()
{
    put(u"list.m3u8"_s, "a.mp3\n");
    list->load(path(u"list.m3u8"_s));
    list->add(path(u"b.mp3"_s));
    put(u"list.m3u8"_s, "c.mp3\n");
    // The answer is that of the reading.
    QVERIFY(!list->revert());
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->songs().at(0)->getFilename(), path(u"c.mp3"_s));
    QVERIFY(!list->isModified());
}

void TestPlaylistFiles::revertingWithoutChangesReadsNothing()
{
    put(u"list.m3u8"_s, "a.mp3\n");
    list->load(path(u"list.m3u8"_s));
    put(u"list.m3u8"_s, "c.mp3\n");
    QVERIFY(list->revert());
    QCOMPARE(entries(), QStringList(u"a.mp3"_s));
}

void TestPlaylistFiles::removing()
{
    QVERIFY(!list->remove());
    list->load(path(u"list.m3u8"_s));
    QVERIFY(!list->remove());
    put(u"list.m3u8"_s, "a.mp3\n");
    list->load(path(u"list.m3u8"_s));
    QVERIFY(list->remove());
    QVERIFY(!QFile::exists(path(u"list.m3u8"_s)));
    QCOMPARE(entries(), QStringList(u"a.mp3"_s));
}

void TestPlaylistFiles::namesThatAreHardToWrite_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name :
         {u"#EXTINF song.mp3"_s, u"#EXTM3U"_s, u":x.mp3"_s, u" a .mp3 "_s, u"100%20#?.mp3"_s,
          u"Gru\u0308ße.mp3"_s, u"💃.mp3"_s, u"C:/a.mp3"_s, u"http:/x"_s, u"a\tb.mp3"_s})
        QTest::newRow(qPrintable(name)) << name;
}

// Also as the name of the list and of its directory.
void TestPlaylistFiles::namesThatAreHardToWrite()
{
    QFETCH(QString, name);
    if (!FileSystem::takesName(home->path(), QString(name).replace(u'/', u'-')))
        QSKIP("This file system doesn't take the name.");
    const QString directory = path(name);
    const QString file = directory + u'/' + QString(name).replace(u'/', u'-') + u".m3u8"_s;
    QVERIFY(QDir().mkpath(directory));
    list->add(path(u"other/"_s + name));
    list->add(directory + u'/' + name);
    list->add(directory + u"/a.mp3"_s);
    const QStringList before = entries();
    QVERIFY(list->saveAs(file));
    list->load(file);
    QCOMPARE(entries(), before);
}

TARVELO_TEST_MAIN(TestPlaylistFiles, QGuiApplication)
#include "tst_PlaylistFiles.moc"
