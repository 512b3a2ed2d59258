#include "DirectoryTools.h"
#include "FileNames.h"
#include "TestMain.h"

#include <QCoreApplication>

#include <unistd.h>

using namespace Qt::StringLiterals;

// A directory copied and counted with all that lies below it.
class TestDirectories : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void everythingIsCopied();
    void everyFileIsTold();
    void everyFileNameIsCopied_data();
    void everyFileNameIsCopied();
    void anEmptyDirectoryIsCopied();
    void whatIsMissingCantBeCopied_data();
    void whatIsMissingCantBeCopied();
    void aFileThatIsThereEndsTheCopy();
    void anErrorBelowEndsTheCopy();
    void anUnreadableFileEndsTheCopy();
    void aCopyIntoItselfEnds_data();
    void aCopyIntoItselfEnds();
    void linkedDirectoriesAreFollowedOnce();
    void whatIsMissingCantBeCounted();

private:
    QString write(const QString &name, const QByteArray &content = "content") const;
    static QByteArray read(const QString &path);
    QString source() const { return directory->filePath(u"source"_qs); }
    QString target() const { return directory->filePath(u"target"_qs); }

    std::unique_ptr<QTemporaryDir> directory;
};

void TestDirectories::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(source()));
}

QString TestDirectories::write(const QString &name, const QByteArray &content) const
{
    const QString path = directory->path() + u'/' + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qWarning() << "No test file" << path;
    return path;
}

QByteArray TestDirectories::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void TestDirectories::everythingIsCopied()
{
    write(u"source/one"_qs, "1");
    write(u"source/sub/two"_qs, "2");
    write(u"source/sub/deep/three"_qs, "3");
    QVERIFY(QDir().mkpath(source() + u"/empty"_qs));
    QCOMPARE(countFiles(source()), 3);
    QCOMPARE(copyDirectory(source(), target()), QString());
    QCOMPARE(read(target() + u"/one"_qs), QByteArray("1"));
    QCOMPARE(read(target() + u"/sub/two"_qs), QByteArray("2"));
    QCOMPARE(read(target() + u"/sub/deep/three"_qs), QByteArray("3"));
    QVERIFY(QFileInfo(target() + u"/empty"_qs).isDir());
    QCOMPARE(countFiles(target()), 3);
    QCOMPARE(read(source() + u"/one"_qs), QByteArray("1"));
}

void TestDirectories::everyFileIsTold()
{
    for (int number = 0; number < 5; ++number)
        write(u"source/%1/file"_qs.arg(number));
    int told = 0;
    QCOMPARE(copyDirectory(source(), target(), [&] { QCOMPARE(countFiles(target()), ++told); }),
             QString());
    QCOMPARE(told, 5);
}

void TestDirectories::everyFileNameIsCopied_data()
{
    addOddFileNames();
}

void TestDirectories::everyFileNameIsCopied()
{
    QFETCH(QString, name);
    write(u"source/"_qs + name, "here");
    write(u"source/in "_qs + name.left(50) + u'/' + name, "below");
    QCOMPARE(countFiles(source()), 2);
    QCOMPARE(copyDirectory(source(), target()), QString());
    QCOMPARE(read(target() + u'/' + name), QByteArray("here"));
    QCOMPARE(read(target() + u"/in "_qs + name.left(50) + u'/' + name), QByteArray("below"));
}

void TestDirectories::anEmptyDirectoryIsCopied()
{
    QCOMPARE(countFiles(source()), 0);
    QCOMPARE(copyDirectory(source(), target()), QString());
    QVERIFY(QFileInfo(target()).isDir());
}

void TestDirectories::whatIsMissingCantBeCopied_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("shown");
    QTest::newRow("missing") << u"/nowhere/at all"_qs << u"/nowhere/at all"_qs;
    QTest::newRow("reads like a tag") << u"/a<b>&c"_qs << u"/a&lt;b&gt;&amp;c"_qs;
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("a file") << u"/etc/passwd"_qs << u"/etc/passwd"_qs;
}

void TestDirectories::whatIsMissingCantBeCopied()
{
    QFETCH(QString, from);
    QFETCH(QString, shown);
    QCOMPARE(copyDirectory(from, target()), u"Fehler: Ungültiges Verzeichnis '%1'!"_qs.arg(shown));
    QVERIFY(!QFile::exists(target()));
}

void TestDirectories::aFileThatIsThereEndsTheCopy()
{
    write(u"source/1"_qs, "new");
    write(u"source/2"_qs, "new");
    write(u"source/3"_qs, "new");
    write(u"target/2"_qs, "old");
    int told = 0;
    QCOMPARE(copyDirectory(source(), target(), [&told] { ++told; }),
             u"Fehler beim kopieren von Datei<br>'%1/2'!"_qs.arg(source()));
    QCOMPARE(told, 1);
    QCOMPARE(read(target() + u"/1"_qs), QByteArray("new"));
    QCOMPARE(read(target() + u"/2"_qs), QByteArray("old"));
    QVERIFY(!QFile::exists(target() + u"/3"_qs));
}

void TestDirectories::anErrorBelowEndsTheCopy()
{
    write(u"source/file"_qs);
    write(u"source/a & b/c"_qs);
    write(u"target/a & b/c"_qs);
    QCOMPARE(copyDirectory(source(), target()),
             u"Fehler beim kopieren von Datei<br>'%1/a &amp; b/c'!"_qs.arg(source()));
    QVERIFY(!QFile::exists(target() + u"/file"_qs));
}

void TestDirectories::anUnreadableFileEndsTheCopy()
{
    if (::geteuid() == 0)
        QSKIP("Root may read any file: run this as an ordinary user.");
    const QString path = write(u"source/secret"_qs);
    QVERIFY(QFile::setPermissions(path, {}));
    QCOMPARE(copyDirectory(source(), target()),
             u"Fehler beim kopieren von Datei<br>'%1'!"_qs.arg(path));
}

void TestDirectories::aCopyIntoItselfEnds_data()
{
    QTest::addColumn<QString>("below");
    QTest::newRow("at once") << u"/copy"_qs;
    QTest::newRow("further down") << u"/sub/copy"_qs;
    QTest::newRow("into a directory that is there") << u"/sub"_qs;
}

void TestDirectories::aCopyIntoItselfEnds()
{
    QFETCH(QString, below);
    write(u"source/file"_qs);
    QVERIFY(QDir().mkpath(source() + u"/sub"_qs));
    QCOMPARE(copyDirectory(source(), source() + below), QString());
    QCOMPARE(countFiles(source()), 2);
    QCOMPARE(read(source() + below + u"/file"_qs), QByteArray("content"));
}

void TestDirectories::linkedDirectoriesAreFollowedOnce()
{
    write(u"source/sub/file"_qs);
    write(u"elsewhere/other"_qs);
    QVERIFY(QFile::link(source(), source() + u"/sub/up"_qs));
    QVERIFY(QFile::link(source() + u"/sub"_qs, source() + u"/sub/self"_qs));
    QVERIFY(QFile::link(directory->filePath(u"elsewhere"_qs), source() + u"/linked"_qs));
    QCOMPARE(countFiles(source()), 2);
    int told = 0;
    QCOMPARE(copyDirectory(source(), target(), [&told] { ++told; }), QString());
    QCOMPARE(told, 2);
    QVERIFY(QFile::exists(target() + u"/sub/file"_qs));
    QVERIFY(QFileInfo(target() + u"/linked"_qs).isDir());
    QVERIFY(!QFileInfo(target() + u"/linked"_qs).isSymLink());
    QVERIFY(QFile::exists(target() + u"/linked/other"_qs));
}

void TestDirectories::whatIsMissingCantBeCounted()
{
    QCOMPARE(countFiles(directory->filePath(u"missing"_qs)), -1);
    QCOMPARE(countFiles(QString()), -1);
}

TARVELO_TEST_MAIN(TestDirectories, QCoreApplication)
#include "tst_Directories.moc"
