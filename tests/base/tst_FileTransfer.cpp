#include "FileTransfer.h"

#include "FileNames.h"
#include "FileSystem.h"
#include "FullDisk.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QStorageInfo>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class TestFileTransfer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void anyName_data() { addOddFileNames(); }
    void anyName();
    void anyNameOnAnotherDisk_data() { addOddFileNames(); }
    void anyNameOnAnotherDisk();
    void whatIsNoFileIsNotCopied();
    void ontoItself();
    void theEndOfALargeFileCounts_data();
    void theEndOfALargeFileCounts();

private:
    QString put(const QString &name, const QByteArray &content = "music") const;
    QStringList names() const;
    static QByteArray content(const QString &path);

    std::unique_ptr<QTemporaryDir> directory;
};

namespace {

constexpr int largeFile = 256 * 1024 + 1000;

} // namespace

void TestFileTransfer::init()
{
    directory = std::make_unique<QTemporaryDir>();
}

QString TestFileTransfer::put(const QString &name, const QByteArray &content) const
{
    QFile file(directory->path() + u'/' + name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size()
               ? file.fileName()
               : QString();
}

QByteArray TestFileTransfer::content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList TestFileTransfer::names() const
{
    return QDir(directory->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void TestFileTransfer::anyName()
{
    QFETCH(QString, name);
    if (!FileSystem::takesName(directory->path(), name))
        QSKIP("The file system has no such name.");
    const QString from = put(u"plain.mp3"_s);
    const QString odd = directory->path() + u'/' + name;
    const QString back = directory->filePath(u"back.mp3"_s);
    QVERIFY(FileTransfer::copy(from, odd));
    QCOMPARE(content(odd), "music"_ba);
    QVERIFY(FileTransfer::move(odd, back));
    QVERIFY(FileTransfer::move(from, odd));
    QCOMPARE(content(back), "music"_ba);
    QCOMPARE(names().size(), 2);
    QVERIFY(names().contains(name));
}

void TestFileTransfer::anyNameOnAnotherDisk()
{
    QFETCH(QString, name);
    const QStorageInfo shared(u"/dev/shm"_s);
    if (!shared.isValid() || shared == QStorageInfo(directory->path()))
        QSKIP("There is no other file system here.");
    const QTemporaryDir far(u"/dev/shm/tarvelo-test-XXXXXX"_s);
    if (!FileSystem::takesName(directory->path(), name) || !FileSystem::takesName(far.path(), name))
        QSKIP("The file system has no such name.");
    const QString from = put(name);
    QVERIFY(FileTransfer::move(from, far.path() + u'/' + name));
    QCOMPARE(content(far.path() + u'/' + name), "music"_ba);
    QVERIFY(names().isEmpty());
    QVERIFY(FileTransfer::move(far.path() + u'/' + name, from));
    QCOMPARE(content(from), "music"_ba);
}

void TestFileTransfer::whatIsNoFileIsNotCopied()
{
    const QString target = directory->filePath(u"target"_s);
    const QString pipe = directory->filePath(u"pipe"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QVERIFY(!FileTransfer::copy(pipe, target));
    QVERIFY(!FileTransfer::copy(directory->path(), target));
    QVERIFY(!FileTransfer::copy(directory->filePath(u"nothing"_s), target));
    QVERIFY(!FileTransfer::copy(QString(), target));
    QVERIFY(!FileTransfer::move(directory->filePath(u"nothing"_s), target));
    QCOMPARE(names(), QStringList(u"pipe"_s));
}

void TestFileTransfer::ontoItself()
{
    const QString file = put(u"a.mp3"_s);
    QVERIFY(!FileTransfer::copy(file, file));
    QVERIFY(!FileTransfer::move(file, file));
    QCOMPARE(content(file), "music"_ba);
    QCOMPARE(names(), QStringList(u"a.mp3"_s));
}

void TestFileTransfer::theEndOfALargeFileCounts_data()
{
    QTest::addColumn<int>("room");
    // The last bytes are few, and wait in a buffer until the end.
    for (const int room : {0, 1, 4096, 256 * 1024, largeFile - 1})
        QTest::addRow("%d", room) << room;
}

void TestFileTransfer::theEndOfALargeFileCounts()
{
    QFETCH(int, room);
    const QString from = put(u"a.mp3"_s, QByteArray(largeFile, 'x'));
    bool copied = true;
    {
        const FullDisk disk(static_cast<rlim_t>(room));
        copied = FileTransfer::copy(from, directory->filePath(u"b.mp3"_s));
    }
    QVERIFY(!copied);
    QCOMPARE(names(), QStringList(u"a.mp3"_s));
    QVERIFY(FileTransfer::copy(from, directory->filePath(u"b.mp3"_s)));
    QCOMPARE(content(directory->filePath(u"b.mp3"_s)), content(from));
}

TARVELO_TEST_MAIN(TestFileTransfer, QCoreApplication)
#include "tst_FileTransfer.moc"
