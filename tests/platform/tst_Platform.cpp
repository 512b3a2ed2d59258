#include "FileNames.h"
#include "Platform.h"

#include "TestMain.h"

#include <sys/stat.h>
#include <unistd.h>

class TestPlatform : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aTrashedFileCanBeRestored_data();
    void aTrashedFileCanBeRestored();
    void filesOfOneNameLieSideBySide();
    void aLinkGoesAndItsTargetStays();
    void theHomeTrashMayBeALink();
    void aRelativePathIsToldWhole();
    void nothingGoesToTheTrash();
    void aDirectoryDoesNotGoToTheTrash();
    void withoutATrashTheFileStays_data();
    void withoutATrashTheFileStays();
    void aFileThatMayNotGoStays();
    void anotherFileSystemHasATrashOfItsOwn_data();
    void anotherFileSystemHasATrashOfItsOwn();

    void writeBitsGoAndReadBitsStay();
    void writingComesBackToTheOwner();
    void permissionsOfNothingFail();
    void aForeignFileStaysAsItIs();

    void theMemoryIsThisMachines();
    void theConsoleStaysOnUnix();
    void theXServerIsChosenWhereThereIsOne_data();
    void theXServerIsChosenWhereThereIsOne();

private:
    QString write(const QString &name, const QByteArray &content = "music") const;
    QString trash(const QString &part) const;

    std::unique_ptr<QTemporaryDir> directory;
};

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

mode_t modeOf(const QString &path)
{
    struct stat status
    { };
    ::stat(QFile::encodeName(path).constData(), &status);
    return status.st_mode & 07777;
}

} // namespace

void TestPlatform::init()
{
    // Beside the trash, on the same file system.
    directory = std::make_unique<QTemporaryDir>(QDir::current().filePath(u"music-XXXXXX"_qs));
    qputenv("XDG_DATA_HOME", QFile::encodeName(directory->filePath(u"data"_qs)));
}

QString TestPlatform::write(const QString &name, const QByteArray &content) const
{
    const QString path = directory->path() + u'/' + name;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qWarning() << "No test file" << path;
    return path;
}

QString TestPlatform::trash(const QString &part) const
{
    return directory->filePath(u"data/Trash/"_qs + part);
}

void TestPlatform::aTrashedFileCanBeRestored_data()
{
    addOddFileNames();
    QTest::newRow("no suffix") << u"song"_qs;
}

void TestPlatform::aTrashedFileCanBeRestored()
{
    QFETCH(QString, name);
    const QString path = write(name);
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    QVERIFY(Platform::moveToRecycleBin(path));
    QVERIFY(!QFile::exists(path));

    const QStringList files = QDir(trash(u"files"_qs)).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QVERIFY(name.startsWith(files.at(0).left(40)));
    QCOMPARE(contentOf(trash(u"files/"_qs + files.at(0))), QByteArray("music"));
    const QList<QByteArray> lines
        = contentOf(trash(u"info/"_qs + files.at(0) + u".trashinfo"_qs)).split('\n');
    QCOMPARE(lines.at(0), QByteArray("[Trash Info]"));
    QVERIFY(lines.at(1).startsWith("Path=/"));
    QCOMPARE(QString::fromUtf8(QByteArray::fromPercentEncoding(lines.at(1).mid(5))), path);
    QVERIFY(lines.at(2).startsWith("DeletionDate="));
    const QDateTime deleted
        = QDateTime::fromString(QString::fromLatin1(lines.at(2).mid(13)), Qt::ISODate);
    QVERIFY(deleted >= before && deleted <= QDateTime::currentDateTime());
    QCOMPARE(modeOf(trash(QString())), mode_t{0700});
}

void TestPlatform::filesOfOneNameLieSideBySide()
{
    for (const char *content : {"one", "two", "three"})
        QVERIFY(Platform::moveToRecycleBin(write(u"song.mp3"_qs, content)));
    QCOMPARE(QDir(trash(u"files"_qs)).entryList(QDir::Files).size(), 3);
    QCOMPARE(QDir(trash(u"info"_qs)).entryList(QDir::Files).size(), 3);
    QCOMPARE(contentOf(trash(u"files/song.mp3"_qs)), QByteArray("one"));
    QCOMPARE(contentOf(trash(u"files/song-1.mp3"_qs)), QByteArray("two"));
    QCOMPARE(contentOf(trash(u"files/song-2.mp3"_qs)), QByteArray("three"));
}

void TestPlatform::theHomeTrashMayBeALink()
{
    const QString elsewhere = directory->filePath(u"elsewhere"_qs);
    QVERIFY(QDir().mkpath(elsewhere) && QDir().mkpath(directory->filePath(u"data"_qs)));
    QVERIFY(QFile::link(elsewhere, directory->filePath(u"data/Trash"_qs)));
    QVERIFY(Platform::moveToRecycleBin(write(u"song.mp3"_qs)));
    QCOMPARE(contentOf(elsewhere + u"/files/song.mp3"_qs), QByteArray("music"));
}

void TestPlatform::aLinkGoesAndItsTargetStays()
{
    const QString target = write(u"song.mp3"_qs);
    const QString link = directory->filePath(u"link.mp3"_qs);
    QVERIFY(QFile::link(target, link));
    QVERIFY(Platform::moveToRecycleBin(link));
    QVERIFY(!QFileInfo(link).isSymLink());
    QCOMPARE(contentOf(target), QByteArray("music"));
}

void TestPlatform::aRelativePathIsToldWhole()
{
    const QString path = write(u"song.mp3"_qs);
    QVERIFY(Platform::moveToRecycleBin(QDir::current().relativeFilePath(path)));
    const QByteArray info = contentOf(trash(u"info/song.mp3.trashinfo"_qs));
    QVERIFY(info.contains("\nPath=" + QUrl::toPercentEncoding(path, "/") + '\n'));
}

void TestPlatform::nothingGoesToTheTrash()
{
    QVERIFY(!Platform::moveToRecycleBin(directory->filePath(u"nothing.mp3"_qs)));
    QVERIFY(!Platform::moveToRecycleBin(QString()));
    QCOMPARE(QDir(trash(u"info"_qs)).entryList(QDir::Files).size(), 0);
}

void TestPlatform::aDirectoryDoesNotGoToTheTrash()
{
    QVERIFY(!Platform::moveToRecycleBin(directory->path()));
    QVERIFY(directory->isValid() && QDir(directory->path()).exists());
}

void TestPlatform::withoutATrashTheFileStays_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::newRow("no data directory") << u"data"_qs;
    QTest::newRow("no trash") << u"data/Trash"_qs;
    QTest::newRow("no files") << u"data/Trash/files"_qs;
    QTest::newRow("no info") << u"data/Trash/info"_qs;
}

// A plain file stands where a directory has to be.
void TestPlatform::withoutATrashTheFileStays()
{
    QFETCH(QString, obstacle);
    QVERIFY(QDir().mkpath(QFileInfo(directory->filePath(obstacle)).path()));
    write(obstacle, "in the way");
    const QString path = write(u"song.mp3"_qs);
    QVERIFY(!Platform::moveToRecycleBin(path));
    QCOMPARE(contentOf(path), QByteArray("music"));
    QVERIFY(!QFile::exists(QDir::current().filePath(u"files"_qs)));
    QCOMPARE(contentOf(directory->filePath(obstacle)), QByteArray("in the way"));
}

void TestPlatform::aFileThatMayNotGoStays()
{
    if (::geteuid() == 0)
        QSKIP("Root may move any file: run this as an ordinary user.");
    QVERIFY(QDir(directory->path()).mkpath(u"closed"_qs));
    const QString path = write(u"closed/song.mp3"_qs);
    const QString closed = directory->filePath(u"closed"_qs);
    QVERIFY(QFile::setPermissions(closed, QFile::ReadOwner | QFile::ExeOwner));
    QVERIFY(!Platform::moveToRecycleBin(path));
    QCOMPARE(contentOf(path), QByteArray("music"));
    QCOMPARE(QDir(trash(u"info"_qs)).entryList(QDir::Files).size(), 0);
    QCOMPARE(QDir(trash(u"files"_qs)).entryList(QDir::Files).size(), 0);
    QVERIFY(QFile::setPermissions(closed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void TestPlatform::anotherFileSystemHasATrashOfItsOwn_data()
{
    QTest::addColumn<bool>("linked");
    QTest::newRow("straight") << false;
    QTest::newRow("through a linked directory") << true;
}

void TestPlatform::anotherFileSystemHasATrashOfItsOwn()
{
    QFETCH(bool, linked);
    const QStorageInfo shared(u"/dev/shm"_qs);
    if (!shared.isValid() || shared == QStorageInfo(directory->path())
        || !QFileInfo(shared.rootPath()).isWritable())
        QSKIP("No second file system to write to.");
    QTemporaryDir place(shared.rootPath() + u"/music-XXXXXX"_qs);
    const QString path = place.filePath(u"ü #.mp3"_qs);
    QVERIFY(QFile::copy(write(u"song.mp3"_qs), path));
    const QDir own(shared.rootPath() + u"/.Trash-"_qs + QString::number(::getuid()));
    const bool wasThere = own.exists();
    const QString link = directory->filePath(u"linked"_qs);
    QVERIFY(QFile::link(place.path(), link));
    QVERIFY(Platform::moveToRecycleBin(linked ? link + u"/ü #.mp3"_qs : path));
    QVERIFY(!QFile::exists(path));
    QCOMPARE(contentOf(own.filePath(u"files/ü #.mp3"_qs)), QByteArray("music"));
    const QByteArray told
        = QUrl::toPercentEncoding(QDir(shared.rootPath()).relativeFilePath(path), "/");
    QVERIFY(contentOf(own.filePath(u"info/ü #.mp3.trashinfo"_qs)).contains("\nPath=" + told));
    QFile::remove(own.filePath(u"files/ü #.mp3"_qs));
    QFile::remove(own.filePath(u"info/ü #.mp3.trashinfo"_qs));
    if (!wasThere)
        QVERIFY(QDir(own).removeRecursively());
}

void TestPlatform::writeBitsGoAndReadBitsStay()
{
    const QString path = write(u"song.mp3"_qs);
    ::chmod(QFile::encodeName(path).constData(), 0664);
    QVERIFY(Platform::setFileWritable(path, false));
    QCOMPARE(modeOf(path), mode_t{0444});
    if (::geteuid() != 0)
        QVERIFY(!QFileInfo(path).isWritable());
    QVERIFY(QFileInfo(path).isReadable());
}

void TestPlatform::writingComesBackToTheOwner()
{
    const QString path = write(u"song.mp3"_qs);
    ::chmod(QFile::encodeName(path).constData(), 0440);
    QVERIFY(Platform::setFileWritable(path, true));
    QCOMPARE(modeOf(path), mode_t{0640});
    QVERIFY(QFileInfo(path).isWritable());
}

void TestPlatform::permissionsOfNothingFail()
{
    QVERIFY(!Platform::setFileWritable(directory->filePath(u"nothing.mp3"_qs), true));
    QVERIFY(!Platform::setFileWritable(directory->filePath(u"nothing.mp3"_qs), false));
}

void TestPlatform::aForeignFileStaysAsItIs()
{
    if (::geteuid() == 0)
        QSKIP("Root may change any file: run this as an ordinary user.");
    QVERIFY(!Platform::setFileWritable(u"/etc/passwd"_qs, true));
}

void TestPlatform::theMemoryIsThisMachines()
{
    QFile file(u"/proc/meminfo"_qs);
    if (!file.open(QIODevice::ReadOnly))
        QSKIP("Nothing to compare with.");
    const QByteArray line = file.readLine(); // "MemTotal:       16265232 kB"
    QVERIFY(line.startsWith("MemTotal:"));
    const int kilobytes = line.mid(9).trimmed().split(' ').first().toInt();
    QCOMPARE(Platform::totalMemoryMB(), kilobytes / 1024);
}

void TestPlatform::theConsoleStaysOnUnix()
{
    const bool terminal = ::isatty(STDOUT_FILENO) != 0;
    Platform::detachConsole();
    QCOMPARE(::isatty(STDOUT_FILENO) != 0, terminal);
}

void TestPlatform::theXServerIsChosenWhereThereIsOne_data()
{
    QTest::addColumn<QByteArray>("platform");
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("X server") << QByteArray() << QByteArray(":0") << QByteArray("xcb;wayland");
    QTest::newRow("none") << QByteArray() << QByteArray() << QByteArray();
    QTest::newRow("the user's own choice")
        << QByteArray("offscreen") << QByteArray(":0") << QByteArray("offscreen");
}

void TestPlatform::theXServerIsChosenWhereThereIsOne()
{
    QFETCH(QByteArray, platform);
    QFETCH(QByteArray, display);
    const QByteArray platformBefore = qgetenv("QT_QPA_PLATFORM");
    const QByteArray displayBefore = qgetenv("DISPLAY");
    const auto restore = qScopeGuard([&] {
        qputenv("QT_QPA_PLATFORM", platformBefore);
        qputenv("DISPLAY", displayBefore);
    });
    qunsetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty())
        qputenv("QT_QPA_PLATFORM", platform);
    qputenv("DISPLAY", display);
    Platform::prepareDesktop();
    QTEST(qgetenv("QT_QPA_PLATFORM"), "expected");
}

TARVELO_TEST_MAIN(TestPlatform, QCoreApplication)
#include "tst_Platform.moc"
