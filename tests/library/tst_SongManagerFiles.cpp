#include "SongManager.h"

#include "FileSystem.h"
#include "FullDisk.h"
#include "LogCapture.h"
#include "Samples.h"
#include "Settings.h"
#include "SongImportTalk.h"
#include "SongStore.h"
#include "SongStoreCache.h"
#include "TestMain.h"

#include <QDirIterator>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QStorageInfo>

#include <algorithm>
#include <memory>
#include <numeric>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// Copying, moving, deleting and importing hundreds of songs, stopped at any step by whatever stops
// such a thing: afterwards the library, the lists and the disk agree, and every song is there.
class TestSongManagerFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void stoppedAtAStep_data();
    void stoppedAtAStep();
    void allDone_data();
    void allDone();
    void stoppedDeletes_data();
    void stoppedDeletes();
    void deletedSongsLeaveTheLists();
    void deletedSongsStayMissingInLists();
    void anExistingFileIsNeverOverwritten_data();
    void anExistingFileIsNeverOverwritten();
    void aCopyIsAWholeSong();
    void aMovedSongKeepsItsTime_data();
    void aMovedSongKeepsItsTime();
    void aMovedRelativeLinkStillPlays();
    void theOldRecordSavesToTheMovedFile();
    void aRemovedRecordWritesToNoFile();
    void anOldCacheFileIsNotTaken();
    void importedSongs_data();
    void importedSongs();
    void anImportThatCanNotBegin_data();
    void anImportThatCanNotBegin();
    void anImportWithoutAListener();
    void listsAreToldOnce();

private:
    QString path(int number) const;
    QString music() const { return home->path() + u"/music"_s; }
    void putSongs(int count);
    void loadLibrary();
    SongPtr song(int number) const { return manager->getSong(path(number)); }
    QList<SongPtr> allSongs(int count) const;
    void close(const QString &directory);
    void open(const QString &directory);
    QString farDirectory();
    void compareWithDisk(const QStringList &directories) const;
    static QList<int> numbersIn(const QString &directory);
    static QByteArray content(const QString &file);

    std::unique_ptr<QTemporaryDir> home;
    std::unique_ptr<QTemporaryDir> far; // on another file system
    std::unique_ptr<SongManager> manager;
    QByteArray tone;
};

namespace {

constexpr int many = 200;
constexpr int entriesApart = 20; // in the playlist file

// Answers the same to everything, and notes it.
class Listener : public SongImportTalk
{
public:
    explicit Listener(bool answer)
        : goesOn(answer)
    { }
    void tellNoMusicDirectory() override { told.append(u"no directory"_s); }
    void tellDirectoryFailed(const QString &directory) override
    {
        told.append(u"failed "_s + directory);
    }
    void importBegins(int files) override { told.append(u"begin %1"_s.arg(files)); }
    void importStepped() override { ++steps; }
    bool askAfterFailure(const QString &source, const QString &target) override
    {
        told.append(source + u" -> "_s + target);
        return goesOn;
    }
    void importEnds(int count, const QString &directory) override
    {
        told.append(u"end %1 %2"_s.arg(QString::number(count), directory));
    }

    bool goesOn;
    int steps = 0;
    QStringList told;
};

enum class Work { Copy, Move, MoveFar };
enum class Stop {
    TargetExists,
    TargetIsClosed,
    TargetIsGone,
    SourceIsGone,
    SourceIsClosed,
    SourceDirectoryIsClosed,
    DiskIsFull
};

} // namespace

Q_DECLARE_METATYPE(Work)
Q_DECLARE_METATYPE(Stop)

void TestSongManagerFiles::initTestCase()
{
    const QString file = QDir::current().filePath(u"tone.mp3"_s);
    QVERIFY(Samples::writeTone(file, {0.2, 440, 44100, 1}));
    tone = content(file);
    createSongStores();
}

void TestSongManagerFiles::cleanupTestCase()
{
    destroySongStores();
}

void TestSongManagerFiles::init()
{
    home = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(music()));
    QVERIFY(QDir().mkpath(home->filePath(u"lists"_s)));
    QVERIFY(QDir().mkpath(home->filePath(u"target"_s)));
    Settings::setValue(Settings::Key::MusicDir, music());
    Settings::setValue(Settings::Key::PlaylistDir, home->filePath(u"lists"_s));
    manager = std::make_unique<SongManager>();
}

void TestSongManagerFiles::cleanup()
{
    for (const QString &directory : {music(), home->filePath(u"target"_s)})
        open(directory);
    manager.reset();
    far.reset();
}

QByteArray TestSongManagerFiles::content(const QString &file)
{
    QFile open(file);
    return open.open(QIODevice::ReadOnly) ? open.readAll() : QByteArray();
}

QString TestSongManagerFiles::path(int number) const
{
    return music() + u"/%1.mp3"_s.arg(number);
}

// Each one is told by the number at its end, whatever becomes of its name.
void TestSongManagerFiles::putSongs(int count)
{
    for (int number = 0; number < count; ++number) {
        QFile file(path(number));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(tone + "number" + QByteArray::number(number));
    }
}

// With all songs in the working list and some in the playlist file.
void TestSongManagerFiles::loadLibrary()
{
    manager->loadAllLists();
    const auto count = static_cast<int>(manager->getSongs().size());
    const PlaylistPtr list = manager->newPlaylist(home->filePath(u"lists/evening.m3u8"_s));
    for (int number = 0; number < count; ++number) {
        manager->getTempList()->add(path(number));
        if (number % entriesApart == 0 || number == count - 1)
            list->add(path(number));
    }
    QVERIFY(list->save());
}

QList<SongPtr> TestSongManagerFiles::allSongs(int count) const
{
    QList<SongPtr> list;
    for (int number = 0; number < count; ++number)
        list.append(song(number));
    return list;
}

void TestSongManagerFiles::close(const QString &directory)
{
    ::chmod(QFile::encodeName(directory).constData(), 0555);
}

void TestSongManagerFiles::open(const QString &directory)
{
    ::chmod(QFile::encodeName(directory).constData(), 0755);
}

QString TestSongManagerFiles::farDirectory()
{
    const QStorageInfo shared(u"/dev/shm"_s);
    if (!shared.isValid() || shared == QStorageInfo(home->path()))
        return {};
    far = std::make_unique<QTemporaryDir>(u"/dev/shm/tarvelo-test-XXXXXX"_s);
    return far->isValid() ? far->path() : QString();
}

// Whole ones alone: who lacks its end has no number.
QList<int> TestSongManagerFiles::numbersIn(const QString &directory)
{
    QList<int> numbers;
    QDirIterator files(directory, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QByteArray bytes = content(files.next());
        const qsizetype place = bytes.lastIndexOf("number");
        numbers.append(place < 0 ? -1 : bytes.mid(place + 6).toInt());
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

void TestSongManagerFiles::compareWithDisk(const QStringList &directories) const
{
    QStringList onDisk;
    for (const QString &directory : directories) {
        QDirIterator files(directory, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext())
            onDisk.append(files.next());
    }
    onDisk.sort();
    QStringList inLibrary = manager->getSongs().keys();
    inLibrary.sort();
    QCOMPARE(inLibrary, onDisk);
    for (const QString &name : std::as_const(inLibrary))
        QCOMPARE(manager->getSong(name)->getFilename(), name);
    QCOMPARE(manager->getMasterList()->count(), inLibrary.size());
    for (int index = 1; manager->getPlaylist(index); ++index) {
        const PlaylistPtr list = manager->getPlaylist(index);
        QStringList names;
        for (const SongPtr &entry : list->songs()) {
            QVERIFY(!entry->isMissingFile());
            QCOMPARE(entry, manager->getSong(entry->getFilename()));
            names.append(entry->getFilename());
        }
        if (list->isNew())
            continue;
        PlaylistFile again(manager.get());
        again.load(list->fullPath());
        again.refresh();
        QStringList inFile;
        for (const SongPtr &entry : again.songs())
            inFile.append(entry->getFilename());
        QCOMPARE(inFile, names);
    }
}

void TestSongManagerFiles::stoppedAtAStep_data()
{
    QTest::addColumn<Work>("work");
    QTest::addColumn<Stop>("stop");
    QTest::addColumn<int>("step");
    struct Row
    {
        const char *name;
        Stop stop;
        QList<Work> works;
    };
    using enum Work;
    const QList<Row> rows{
        {"the target exists", Stop::TargetExists, {Copy, Move, MoveFar}},
        {"the target's directory is closed", Stop::TargetIsClosed, {Copy, Move, MoveFar}},
        {"the target's directory is gone", Stop::TargetIsGone, {Copy, Move, MoveFar}},
        {"the song is gone", Stop::SourceIsGone, {Copy, Move, MoveFar}},
        {"the song can't be read", Stop::SourceIsClosed, {Copy, MoveFar}},
        {"the song's directory is closed", Stop::SourceDirectoryIsClosed, {Move, MoveFar}},
        {"the disk is full", Stop::DiskIsFull, {Copy, MoveFar}},
    };
    const char *const names[] = {"copy", "move", "move to another disk"};
    for (const Row &row : rows) {
        for (const Work work : row.works) {
            for (const int step : {0, 1, many / 2, many - 1})
                QTest::addRow("%s: %s at %d", names[static_cast<int>(work)], row.name, step)
                    << work << row.stop << step;
        }
    }
}

void TestSongManagerFiles::stoppedAtAStep()
{
    QFETCH(Work, work);
    QFETCH(Stop, stop);
    QFETCH(int, step);
    if (::geteuid() == 0)
        QSKIP("Nothing stops root.");
    const QString target = work == Work::MoveFar ? farDirectory() : home->filePath(u"target"_s);
    if (target.isEmpty())
        QSKIP("There is no other file system here.");
    putSongs(many);
    loadLibrary();
    const QString stopped = path(step);
    const QString inTheWay = target + u'/' + QFileInfo(stopped).fileName();
    const QString aside = home->filePath(u"aside"_s);
    std::unique_ptr<FullDisk> disk;
    const auto put = [&] {
        switch (stop) {
        case Stop::TargetExists: {
            QFile file(inTheWay);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("in the way");
            return;
        }
        case Stop::TargetIsClosed:
            return close(target);
        case Stop::TargetIsGone:
            // A drive that was pulled.
            QVERIFY(QFile::rename(target, target + u"-away"_s));
            return;
        case Stop::SourceIsGone:
            QVERIFY(QFile::rename(stopped, aside));
            return;
        case Stop::SourceIsClosed:
            QCOMPARE(::chmod(QFile::encodeName(stopped).constData(), 0), 0);
            return;
        case Stop::SourceDirectoryIsClosed:
            return close(music());
        case Stop::DiskIsFull:
            disk = std::make_unique<FullDisk>(static_cast<rlim_t>(tone.size() / 2));
        }
    };
    int done = 0;
    if (step == 0)
        put();
    const auto follow = [&] {
        if (++done == step)
            put();
    };
    const LogCapture log;
    const SongPtr failed = work == Work::Copy
                               ? manager->copySongs(target, allSongs(many), follow)
                               : manager->moveSongs(target, allSongs(many), true, follow);
    disk.reset();
    open(target);
    open(music());
    if (stop == Stop::TargetIsGone)
        QVERIFY(QFile::rename(target + u"-away"_s, target));
    if (stop == Stop::SourceIsGone)
        QVERIFY(QFile::rename(aside, stopped));
    ::chmod(QFile::encodeName(stopped).constData(), 0644);

    QVERIFY(failed);
    QCOMPARE(failed->getFilename(), stopped);
    QCOMPARE(done, step);
    if (stop == Stop::TargetExists) {
        QCOMPARE(content(inTheWay), "in the way"_ba);
        QVERIFY(QFile::remove(inTheWay));
    }
    QCOMPARE(numbersIn(target).size(), step);
    QCOMPARE(numbersIn(music()).size(), work == Work::Copy ? many : many - step);
    QList<int> all
        = work == Work::Copy ? numbersIn(music()) : numbersIn(music()) + numbersIn(target);
    std::sort(all.begin(), all.end());
    for (int number = 0; number < many; ++number)
        QCOMPARE(all.value(number), number);
    compareWithDisk({music(), target});
}

void TestSongManagerFiles::allDone_data()
{
    QTest::addColumn<Work>("work");
    QTest::newRow("copy") << Work::Copy;
    QTest::newRow("move") << Work::Move;
    QTest::newRow("move to another disk") << Work::MoveFar;
}

void TestSongManagerFiles::allDone()
{
    QFETCH(Work, work);
    const QString target = work == Work::MoveFar ? farDirectory() : home->filePath(u"target"_s);
    if (target.isEmpty())
        QSKIP("There is no other file system here.");
    putSongs(many);
    loadLibrary();
    int steps = 0;
    const auto follow = [&] { ++steps; };
    const SongPtr failed = work == Work::Copy
                               ? manager->copySongs(target, allSongs(many), follow)
                               : manager->moveSongs(target, allSongs(many), true, follow);
    QVERIFY(!failed);
    QCOMPARE(steps, many);
    QList<int> numbers(many);
    std::iota(numbers.begin(), numbers.end(), 0);
    QCOMPARE(numbersIn(target), numbers);
    QCOMPARE(numbersIn(music()), work == Work::Copy ? numbers : QList<int>());
    compareWithDisk({music(), target});
}

void TestSongManagerFiles::stoppedDeletes_data()
{
    QTest::addColumn<bool>("isGone");
    QTest::addColumn<int>("step");
    for (const int step : {0, 1, many / 2, many - 1}) {
        QTest::addRow("in a closed directory, %d", step) << false << step;
        QTest::addRow("gone meanwhile, %d", step) << true << step;
    }
}

void TestSongManagerFiles::stoppedDeletes()
{
    QFETCH(bool, isGone);
    QFETCH(int, step);
    if (::geteuid() == 0)
        QSKIP("Nothing stops root.");
    putSongs(many);
    const QString closed = music() + u"/closed"_s;
    QVERIFY(QDir().mkpath(closed));
    const QString stopped = closed + u"/x.mp3"_s;
    QVERIFY(QFile::rename(path(step), stopped));
    loadLibrary();
    manager->getTempList()->removeSong(path(step));
    manager->getTempList()->add(stopped);
    manager->getPlaylist(2)->removeSong(path(step));
    QList<SongPtr> songs = allSongs(many);
    songs[step] = manager->getSong(stopped);
    const QString aside = home->filePath(u"aside"_s);
    if (isGone)
        QVERIFY(QFile::rename(stopped, aside));
    else
        close(closed);
    const SongPtr failed = manager->removeSongs(songs, true);
    open(closed);
    if (isGone)
        QVERIFY(QFile::rename(aside, stopped));
    QVERIFY(failed);
    QCOMPARE(failed->getFilename(), stopped);
    QCOMPARE(numbersIn(music()).size(), many - step);
    for (int number = 0; number < many; ++number)
        QCOMPARE(QFile::exists(path(number)), number > step);
    compareWithDisk({music()});
}

void TestSongManagerFiles::deletedSongsLeaveTheLists()
{
    putSongs(5);
    loadLibrary();
    manager->getTempList()->add(path(1));
    const QList<SongPtr> songs{song(0), song(1)};
    QVERIFY(!manager->removeSongs(songs, true));
    QCOMPARE(manager->getTempList()->count(), 3);
    QVERIFY(!QFile::exists(path(0)));
    compareWithDisk({music()});
}

void TestSongManagerFiles::deletedSongsStayMissingInLists()
{
    putSongs(2);
    loadLibrary();
    QVERIFY(!manager->removeSongs({song(0)}, false));
    QCOMPARE(manager->getTempList()->count(), 2);
    QVERIFY(manager->getTempList()->songs().at(0)->isMissingFile());
    QVERIFY(!manager->getSong(path(0)));
}

void TestSongManagerFiles::anExistingFileIsNeverOverwritten_data()
{
    QTest::addColumn<Work>("work");
    QTest::addColumn<bool>("isLink");
    QTest::newRow("copy") << Work::Copy << false;
    QTest::newRow("move") << Work::Move << false;
    QTest::newRow("move to another disk") << Work::MoveFar << false;
    QTest::newRow("copy onto a link to nowhere") << Work::Copy << true;
    QTest::newRow("move onto a link to nowhere") << Work::Move << true;
}

void TestSongManagerFiles::anExistingFileIsNeverOverwritten()
{
    QFETCH(Work, work);
    QFETCH(bool, isLink);
    const QString directory = work == Work::MoveFar ? farDirectory() : home->filePath(u"target"_s);
    if (directory.isEmpty())
        QSKIP("There is no other file system here.");
    putSongs(1);
    loadLibrary();
    const QString target = directory + u"/other.mp3"_s;
    QFile file(target);
    if (isLink)
        QVERIFY(QFile::link(u"nowhere"_s, target));
    else
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("other") == 5);
    file.close();
    const SongPtr before = song(0);
    QVERIFY(work == Work::Copy ? !manager->copySong(target, before, true)
                               : !manager->moveSong(target, before, true, true));
    QCOMPARE(song(0), before);
    QCOMPARE(content(target), isLink ? QByteArray() : "other"_ba);
    QCOMPARE(QFileInfo(target).isSymLink(), isLink);
    QCOMPARE(QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                       | QDir::NoDotAndDotDot),
             QStringList(u"other.mp3"_s));
    compareWithDisk({music()});
}

void TestSongManagerFiles::aCopyIsAWholeSong()
{
    putSongs(1);
    loadLibrary();
    song(0)->setTitle(u"Rocky Top"_s);
    QVERIFY(song(0)->save());
    QVERIFY(song(0)->setWriteProtection());
    const QString target = music() + u"/copy.mp3"_s;
    QVERIFY(manager->copySong(target, song(0), true));
    const SongPtr copy = manager->getSong(target);
    QVERIFY(copy && copy != song(0));
    QCOMPARE(copy->getTitle(), u"Rocky Top"_s);
    QVERIFY(copy->isReadonly());
    QCOMPARE(content(target), content(path(0)));
    QCOMPARE(QFileInfo(target).permissions(), QFileInfo(path(0)).permissions());
    QCOMPARE(manager->getMasterList()->count(), 2);
    QVERIFY(!manager->getTempList()->songs().contains(copy));
}

void TestSongManagerFiles::aMovedSongKeepsItsTime_data()
{
    QTest::addColumn<bool>("isFar");
    QTest::newRow("on the disk") << false;
    QTest::newRow("to another disk") << true;
}

void TestSongManagerFiles::aMovedSongKeepsItsTime()
{
    QFETCH(bool, isFar);
    const QString directory = isFar ? farDirectory() : home->filePath(u"target"_s);
    if (directory.isEmpty())
        QSKIP("There is no other file system here.");
    putSongs(1);
    const QDateTime time(QDate(2020, 2, 29), QTime(12, 0));
    QFile file(path(0));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    loadLibrary();
    QVERIFY(manager->moveSong(directory + u"/a.mp3"_s, song(0), true, true));
    QCOMPARE(QFileInfo(directory + u"/a.mp3"_s).lastModified(), time);
    QVERIFY(!QFile::exists(path(0)));
}

void TestSongManagerFiles::aMovedRelativeLinkStillPlays()
{
    if (!FileSystem::hasLinks(home->path()))
        QSKIP("There are no links here.");
    putSongs(2);
    QVERIFY(QFile::link(u"0.mp3"_s, path(2)));
    loadLibrary();
    const QString target = home->filePath(u"target/link.mp3"_s);
    QVERIFY(manager->moveSong(target, song(2), true, true));
    QCOMPARE(content(target), content(path(0)));
    QVERIFY(!QFileInfo(path(2)).isSymLink());
    compareWithDisk({music(), home->filePath(u"target"_s)});
}

// Somebody had it open in an editor.
void TestSongManagerFiles::theOldRecordSavesToTheMovedFile()
{
    putSongs(1);
    loadLibrary();
    const SongPtr before = song(0);
    const QString target = home->filePath(u"target/a.mp3"_s);
    QVERIFY(manager->moveSong(target, before, true, true));
    const SongPtr moved = manager->getSong(target);
    QCOMPARE(Song::present(before), moved);
    QCOMPARE(before->getFilename(), path(0));
    // Another song comes to lie where it was.
    QVERIFY(QFile::copy(target, path(0)));
    const QByteArray other = content(path(0));
    before->setTitle(u"Edited"_s);
    before->getCuesheet().set("%PDF"_ba);
    QVERIFY(before->save());
    QCOMPARE(content(path(0)), other);
    QCOMPARE(moved->getTitle(), u"Edited"_s);
    const Song read(target, false);
    QCOMPARE(read.getTitle(), u"Edited"_s);
    QCOMPARE(read.getCuesheetData(), "%PDF"_ba);
    // And once more, as the record of a record.
    const QString further = home->filePath(u"target/b.mp3"_s);
    QVERIFY(manager->moveSong(further, moved, true, true));
    QCOMPARE(Song::present(before), manager->getSong(further));
    before->setTitle(u"Again"_s);
    QVERIFY(before->save());
    QCOMPARE(Song(further, false).getTitle(), u"Again"_s);
    QVERIFY(!QFile::exists(target));
}

void TestSongManagerFiles::aRemovedRecordWritesToNoFile()
{
    putSongs(2);
    loadLibrary();
    const SongPtr held = song(0);
    QVERIFY(!manager->removeSongs({held}, true));
    held->setTitle(u"Gone"_s);
    const LogCapture log;
    QVERIFY(!held->save());
    QVERIFY(!QFile::exists(path(0)));
    QVERIFY(QFile::copy(path(1), path(0)));
    QVERIFY(!held->save());
    QVERIFY(!held->removeFromDisk());
    QCOMPARE(content(path(0)), content(path(1)));
}

// It belongs to what lay there before.
void TestSongManagerFiles::anOldCacheFileIsNotTaken()
{
    const QTemporaryDir cache;
    Settings::setValue(Settings::Key::CacheDir, cache.path());
    createSongStores();
    putSongs(2);
    loadLibrary();
    song(1)->setTitle(u"First"_s);
    QVERIFY(song(1)->save());
    song(0)->setTitle(u"Second"_s);
    QVERIFY(song(0)->save());
    QVERIFY(Song(path(0), false).getTitle() == u"Second"_s);
    const auto cacheFile
        = [&](int number) { return cache.filePath(SongStoreCache::fileNameFor(path(number))); };
    QVERIFY(QFile::exists(cacheFile(0)));
    // Removed by somebody else, so that its cache file stays.
    QVERIFY(QFile::remove(path(0)));
    QVERIFY(manager->moveSong(path(0), song(1), true, true));
    QCOMPARE(song(0)->getTitle(), u"First"_s);
    QVERIFY(!QFile::exists(cacheFile(1)));
    Settings::setValue(Settings::Key::CacheDir, QString());
    createSongStores();
}

void TestSongManagerFiles::importedSongs_data()
{
    QTest::addColumn<QString>("fails"); // how the middle one does
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<int>("imported");
    QTest::newRow("all") << QString() << false << many;
    for (const char *reason : {"exists", "unreadable", "missing", "full"}) {
        QTest::addRow("%s, going on", reason) << QString::fromLatin1(reason) << true << many - 1;
        QTest::addRow("%s, stopping", reason) << QString::fromLatin1(reason) << false << many / 2;
    }
}

void TestSongManagerFiles::importedSongs()
{
    QFETCH(QString, fails);
    QFETCH(bool, goesOn);
    if (::geteuid() == 0)
        QSKIP("Nothing stops root.");
    putSongs(many);
    QVERIFY(QFile::rename(music(), home->filePath(u"outside"_s)));
    QVERIFY(QDir().mkpath(music()));
    manager->loadAllLists();
    QStringList files;
    for (int number = 0; number < many; ++number)
        files.append(home->filePath(u"outside/%1.mp3"_s.arg(number)));
    const QString source = files.at(many / 2);
    const QString target = music() + u"/Import/%1.mp3"_s.arg(many / 2);
    std::unique_ptr<FullDisk> disk;
    if (fails == u"exists") {
        QVERIFY(QDir().mkpath(music() + u"/Import"_s));
        QVERIFY(QFile::copy(files.at(0), target));
        manager->loadAllLists();
    } else if (fails == u"unreadable") {
        QCOMPARE(::chmod(QFile::encodeName(source).constData(), 0), 0);
    } else if (fails == u"missing") {
        QVERIFY(QFile::remove(source));
    } else if (fails == u"full") {
        QFile file(source);
        QVERIFY(file.open(QIODevice::Append));
        file.write(QByteArray(200'000, 'x'));
        file.close();
        disk = std::make_unique<FullDisk>(100'000);
    }
    Listener listener(goesOn);
    manager->setImportTalk(&listener);
    QSignalSpy told(manager.get(), &SongManager::notifyListsChanged);
    const int count = manager->importSongs(files);
    manager->setImportTalk(nullptr);
    disk.reset();
    QTEST(count, "imported");
    QStringList expected{u"begin %1"_s.arg(many)};
    if (!fails.isEmpty())
        expected.append(source + u" -> "_s + target);
    expected.append(u"end %1 %2/Import/"_s.arg(QString::number(count), music()));
    QCOMPARE(listener.told, expected);
    QCOMPARE(told.size(), 1);
    QCOMPARE(manager->getSongs().size(), count + (fails == u"exists" ? 1 : 0));
    compareWithDisk({music()});
}

void TestSongManagerFiles::anImportThatCanNotBegin_data()
{
    QTest::addColumn<QString>("why");
    QTest::newRow("no music directory") << u"none"_s;
    QTest::newRow("a closed music directory") << u"closed"_s;
    QTest::newRow("a file of that name") << u"file"_s;
}

void TestSongManagerFiles::anImportThatCanNotBegin()
{
    QFETCH(QString, why);
    if (::geteuid() == 0)
        QSKIP("Nothing stops root.");
    putSongs(1);
    const QString source = home->filePath(u"new.mp3"_s);
    QVERIFY(QFile::copy(path(0), source));
    if (why == u"none")
        Settings::setValue(Settings::Key::MusicDir, QString());
    if (why == u"file")
        QVERIFY(QFile::copy(path(0), music() + u"/Import"_s));
    if (why == u"closed")
        close(music());
    Listener listener(true);
    manager->setImportTalk(&listener);
    QCOMPARE(manager->importSongs({source}), 0);
    manager->setImportTalk(nullptr);
    QCOMPARE(listener.told, QStringList(why == u"none" ? u"no directory"_s
                                                       : u"failed "_s + music() + u"/Import/"_s));
    QVERIFY(manager->getSongs().isEmpty());
}

void TestSongManagerFiles::anImportWithoutAListener()
{
    putSongs(2);
    const QString missing = home->filePath(u"missing.mp3"_s);
    QCOMPARE(manager->importSongs({path(0), missing, path(1)}), 1);
    QVERIFY(manager->getSong(music() + u"/Import/0.mp3"_s));
    // With a slash behind it, the directory is the same one.
    Settings::setValue(Settings::Key::MusicDir, music() + u'/');
    QCOMPARE(manager->importSongs({path(1)}), 1);
    QVERIFY(manager->getSong(music() + u"/Import/1.mp3"_s));
}

void TestSongManagerFiles::listsAreToldOnce()
{
    putSongs(4);
    loadLibrary();
    QSignalSpy told(manager.get(), &SongManager::notifyListsChanged);
    const QString target = home->filePath(u"target"_s);
    QVERIFY(!manager->copySongs(target, {song(0), song(1)}, {}));
    QCOMPARE(told.size(), 1);
    QVERIFY(!manager->moveSongs(home->path(), {song(0), song(1)}, true, {}));
    QCOMPARE(told.size(), 2);
    QVERIFY(!manager->removeSongs({song(2), song(3)}, true));
    QCOMPARE(told.size(), 3);
    QVERIFY(manager->copySong(target + u"/x.mp3"_s, manager->getSong(home->filePath(u"0.mp3"_s)),
                              false));
    QCOMPARE(told.size(), 3);
}

TARVELO_TEST_MAIN(TestSongManagerFiles, QGuiApplication)
#include "tst_SongManagerFiles.moc"
