#include "FileNames.h"
#include "FileSystem.h"
#include "PlatformFiles.h"
#include "Song.h"

#include "Samples.h"
#include "SongFiles.h"
#include "TestMain.h"

#include <QGuiApplication>
#include <QProcess>

#include <sys/stat.h>
#include <unistd.h>

class TestSongStoreTags : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void aFileWithoutATagHasDefaults();
    void anEmptyFileFails();
    void aFileOfNoMusicFails();
    void audioPropertiesAreRead();
    void anyFileNameWorks_data();
    void anyFileNameWorks();
    void savingTellsTheTime_data();
    void savingTellsTheTime();
    void aFileThatIsNoneAnyMoreIsNotSaved();
    void anEmptiedFileIsNotSaved();
    void aReadOnlyFileIsNotSaved();
    void aFullDiskLosesNothing_data();
    void aFullDiskLosesNothing();
    void nothingReadsBackDifferently();

private:
    QDir files() const { return QDir(directory->path()); }

    std::unique_ptr<QTemporaryDir> directory;
};

void TestSongStoreTags::initTestCase()
{
    createSongStores();
}

void TestSongStoreTags::cleanupTestCase()
{
    destroySongStores();
}

void TestSongStoreTags::init()
{
    directory = std::make_unique<QTemporaryDir>();
}

void TestSongStoreTags::aFileWithoutATagHasDefaults()
{
    const Song song(SongFiles::tone(files()), false);
    QCOMPARE(song.getYear(), u"0"_qs);
    QCOMPARE(song.getBpm(), u"0"_qs);
    QCOMPARE(song.getTrackNum(), QString());
    QCOMPARE(song.getRating(), 0);
    QCOMPARE(song.getLastTempo(), u"0.0"_qs);
    QCOMPARE(song.getLastPitch(), u"0.0"_qs);
    QCOMPARE(song.getLastVolume(), u"1.0"_qs);
    QCOMPARE(song.getVersionTag(), 0);
    QCOMPARE(song.getTitle(), QString());
    QVERIFY(!song.hasPositions());
    QVERIFY(song.getModified().isValid());
}

void TestSongStoreTags::anEmptyFileFails()
{
    const QString path = files().filePath(u"empty.mp3"_qs);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    Song song(path, false);
    QVERIFY(!song.reload());
    QCOMPARE(song.getRating(), -1);
    QCOMPARE(song.getBpm(), QString());
}

void TestSongStoreTags::aFileOfNoMusicFails()
{
    const QString path = files().filePath(u"text.ogg"_qs);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no music at all");
    file.close();
    Song song(path, false);
    QVERIFY(!song.reload());
    QCOMPARE(song.getYear(), QString());
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
    QVERIFY(!song.save());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("no music at all"));
}

void TestSongStoreTags::audioPropertiesAreRead()
{
    const QString path = files().filePath(u"mono.mp3"_qs);
    QVERIFY(Samples::writeTone(path, {3.2, 440, 22050, 1}));
    const Song song(path, false);
    QCOMPARE(song.getFrequency(), 22050);
    QCOMPARE(song.getChannels(), 1);
    QCOMPARE(song.getPlayLength(), 3);
}

void TestSongStoreTags::anyFileNameWorks_data()
{
    addOddFileNames();
}

void TestSongStoreTags::anyFileNameWorks()
{
    QFETCH(QString, name);
    if (!FileSystem::takesName(files().path(), name))
        QSKIP("This file system has no such names.");
    const QString path = SongFiles::tone(files(), name);
    Song song(path, false);
    QCOMPARE(song.getFrequency(), 44100);
    song.setTitle(name);
    QVERIFY(song.save());
    QCOMPARE(Song(path, false).getTitle(), name);
    QVERIFY(song.removeFromDisk());
    QVERIFY(!QFile::exists(path));
}

void TestSongStoreTags::savingTellsTheTime_data()
{
    QTest::addColumn<QString>("suffix");
    for (const char *suffix : {"mp3", "m4a", "flac", "ogg"})
        QTest::newRow(suffix) << QString::fromLatin1(suffix);
}

// Also where nothing has changed that the file can hold.
void TestSongStoreTags::savingTellsTheTime()
{
    QFETCH(QString, suffix);
    const QString path = files().filePath(u"tone."_qs + suffix);
    QVERIFY(Samples::writeTone(path, {.seconds = 1.5}));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime old = QDateTime::currentDateTime().addDays(-1);
    QVERIFY(Platform::setFileTime(file, old));
    file.close();
    Song song(path, false);
    QCOMPARE(song.getModified(), QFileInfo(path).lastModified());
    song.setLevel(u"Easy"_qs);
    QVERIFY(song.save());
    QVERIFY(song.getModified() > old.addSecs(3600));
    QVERIFY(QFileInfo(path).lastModified() > old.addSecs(3600));
}

void TestSongStoreTags::aFileThatIsNoneAnyMoreIsNotSaved()
{
    if (!FileSystem::hasLinks(files().path()))
        QSKIP("This file system has no links.");
    const QString path = SongFiles::tone(files());
    const QString pipe = files().filePath(u"pipe"_qs);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    Song song(path, false);
    QVERIFY(QFile::remove(path));
    for (const QString &other : {pipe, u"/dev/zero"_qs, files().path()}) {
        QVERIFY(QFile::link(other, path));
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
        QVERIFY(!song.save());
        QVERIFY(!song.reload());
        QVERIFY(QFile::remove(path));
    }
}

void TestSongStoreTags::anEmptiedFileIsNotSaved()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    QVERIFY(QFile::resize(path, 0));
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
    QVERIFY(!song.save());
    QCOMPARE(QFileInfo(path).size(), 0);
}

void TestSongStoreTags::aReadOnlyFileIsNotSaved()
{
    if (::geteuid() == 0)
        QSKIP("Root may write any file: run this as an ordinary user.");
    if (!FileSystem::hasModes(files().path()))
        QSKIP("This file system has no read-only files for us.");
    for (const QString &name : {u"tone.mp3"_qs, u"tone.flac"_qs, u"tone.ogg"_qs}) {
        const QString path = files().filePath(name);
        QVERIFY(Samples::writeTone(path));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray before = file.readAll();
        file.close();
        QVERIFY(file.setPermissions(QFile::ReadOwner));
        for (const QString &title : {QString(), u"new"_qs}) {
            Song song(path, false);
            QVERIFY(song.isReadonly());
            song.setTitle(title);
            QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
            QVERIFY(!song.save());
        }
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), before);
    }
}

void TestSongStoreTags::aFullDiskLosesNothing_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("kilobytes");
    QTest::addColumn<int>("comment");
    QTest::addColumn<QByteArray>("answer");
    for (const QString &suffix : {u"mp3"_qs, u"m4a"_qs, u"flac"_qs, u"ogg"_qs}) {
        const QByteArray name = suffix.toLatin1();
        QTest::addRow("%s, little text", name.constData())
            << suffix << 1024 << 10 << QByteArray("saved\n");
        QTest::addRow("%s, much text", name.constData())
            << suffix << 256 << 300000 << QByteArray("not saved\n");
    }
    for (const QString &suffix : {u"m4a"_qs, u"flac"_qs, u"ogg"_qs})
        QTest::addRow("%s, no room at all", qPrintable(suffix))
            << suffix << 72 << 10 << QByteArray();
}

// On a small file system of its own, which any user can have where there are user namespaces.
void TestSongStoreTags::aFullDiskLosesNothing()
{
    QFETCH(QString, suffix);
    QFETCH(int, kilobytes);
    QFETCH(int, comment);
    const QString path = files().filePath(u"tone."_qs + suffix);
    QVERIFY(Samples::writeTone(path, {.seconds = 1.5}));
    QVERIFY(files().mkpath(u"full"_qs));
    const QString script
        = u"mount -t tmpfs -o size=%1k none full || exit 77\n"
          "cp tone.%2 full && \"$0\" full/tone.%2 %3 && cp full/tone.%2 ."_qs.arg(kilobytes)
              .arg(suffix)
              .arg(comment);
    const QByteArray audio = SongFiles::dump(path).value(u"audio").toString().toLatin1();
    QProcess shell;
    shell.setWorkingDirectory(files().path());
    shell.start(u"unshare"_qs,
                {u"-Urm"_qs, u"sh"_qs, u"-c"_qs, script, QStringLiteral(TARVELO_SONG_PROBE)});
    QVERIFY(shell.waitForFinished());
    const QByteArray errors = shell.readAllStandardError();
    if (shell.exitCode() == 77 || errors.contains("unshare"))
        QSKIP("This user may not mount a small file system.");
    QVERIFY2(shell.exitCode() == 0, errors.constData());
    const QByteArray said = shell.readAllStandardOutput();
    QFETCH(QByteArray, answer);
    // Without room for a copy, what fits into the file's own padding is saved all the same.
    QVERIFY(answer.isEmpty() || said == answer);
    QCOMPARE(SongFiles::dump(path).value(u"audio").toString().toLatin1(), audio);
    QCOMPARE(Song(path, false).getComment().size() == comment, said == "saved\n");
}

void TestSongStoreTags::nothingReadsBackDifferently()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    song.setTempo(-3.5);
    song.setPitch(1.25);
    song.setVolume(0.75);
    song.setBpm(u"133"_qs);
    song.setRating(77);
    song.setTitle(u"T"_qs);
    song.getPositions().insert(0, Position(1234, u"A"_qs, u"steps"_qs));
    QVERIFY(song.save());
    const Song again(path, false);
    const QMetaObject &meta = Song::staticMetaObject;
    for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index) {
        const char *name = meta.property(index).name();
        if (qstrcmp(name, "modified") != 0 && qstrcmp(name, "year") != 0)
            QVERIFY2(again.property(name) == song.property(name), name);
    }
    QCOMPARE(again.getPositions(), song.getPositions());
}

TARVELO_TEST_MAIN(TestSongStoreTags, QGuiApplication)
#include "tst_SongStoreTags.moc"
