#include "FileTools.h"
#include "TestMain.h"
#include "TimeTexts.h"
#include "Version.h"

#include <QCoreApplication>

#include <unistd.h>

class TestTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void duration_data();
    void duration();
    void positionTime_data();
    void positionTime();
    void runTime_data();
    void runTime();
    void cleanName_data();
    void cleanName();
    void version();
    void writableDirectory();
    void directoryWithoutDeleting();
};

void TestTexts::duration_data()
{
    QTest::addColumn<int>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << 0 << QString();
    QTest::newRow("seconds") << 59 << QStringLiteral("0:59");
    QTest::newRow("minutes") << 125 << QStringLiteral("2:05");
    QTest::newRow("just an hour") << 3600 << QStringLiteral("1:00:00");
    QTest::newRow("hours") << 3725 << QStringLiteral("1:02:05");
}

void TestTexts::duration()
{
    QFETCH(int, seconds);
    QTEST(durationText(seconds), "text");
}

void TestTexts::positionTime_data()
{
    QTest::addColumn<int>("ms");
    QTest::addColumn<QString>("text");
    QTest::newRow("start") << 0 << QStringLiteral("00:00:000");
    QTest::newRow("to the millisecond") << 62345 << QStringLiteral("01:02:345");
    QTest::newRow("before the start") << -300 << QStringLiteral("-00:00:300");
    QTest::newRow("wraps at an hour") << 3600000 + 61001 << QStringLiteral("01:01:001");
    QTest::newRow("smallest") << INT_MIN << QStringLiteral("-31:23:648");
}

void TestTexts::positionTime()
{
    QFETCH(int, ms);
    QTEST(positionTimeText(ms), "text");
}

void TestTexts::runTime_data()
{
    QTest::addColumn<int>("ms");
    QTest::addColumn<QString>("text");
    QTest::newRow("start") << 0 << QStringLiteral("00:00");
    QTest::newRow("under a second") << 999 << QStringLiteral("00:00");
    QTest::newRow("minutes") << 125400 << QStringLiteral("02:05");
    QTest::newRow("half a second before") << -500 << QStringLiteral("-00:01");
    QTest::newRow("a second before") << -1000 << QStringLiteral("-00:02");
    QTest::newRow("a millisecond before") << -1 << QStringLiteral("-00:01");
}

void TestTexts::runTime()
{
    QFETCH(int, ms);
    QTEST(runTimeText(ms), "text");
}

void TestTexts::cleanName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("clean");
    QTest::newRow("colon, question mark") << QStringLiteral("Who: me?") << QStringLiteral("Who me");
    QTest::newRow("all forbidden") << QStringLiteral("a<>:\"/\\|?*b") << QStringLiteral("ab");
    QTest::newRow("control characters") << QStringLiteral("a\tb\nc") << QStringLiteral("abc");
    QTest::newRow("kept") << QStringLiteral("Über #1 (50%) é") << QStringLiteral("Über #1 (50%) é");
}

void TestTexts::cleanName()
{
    QFETCH(QString, name);
    QTEST(cleanFileName(name), "clean");
}

void TestTexts::version()
{
    QCOMPARE(Version::number(), QVersionNumber(8, 0, 0));
    QCOMPARE(Version::shortText(), QStringLiteral("8"));
    QCOMPARE(Version::logText(), QStringLiteral("8.0.0 2024-12-6"));
}

void TestTexts::writableDirectory()
{
    const QTemporaryDir directory;
    QVERIFY(isDirectoryWritable(directory.path()));
    QVERIFY(QDir(directory.path()).isEmpty());
    QVERIFY(!isDirectoryWritable(directory.filePath(QStringLiteral("missing"))));
    if (geteuid() == 0)
        QSKIP("root writes everywhere");
    QFile::setPermissions(directory.path(), QFile::ReadOwner | QFile::ExeOwner);
    QVERIFY(!isDirectoryWritable(directory.path()));
    QFile::setPermissions(directory.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void TestTexts::directoryWithoutDeleting()
{
    if (geteuid() == 0)
        QSKIP("root removes everything");
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("TarveloTestFile")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QFile::setPermissions(directory.path(), QFile::ReadOwner | QFile::ExeOwner);
    QVERIFY(!isDirectoryWritable(directory.path()));
    QVERIFY(file.exists());
    QFile::setPermissions(directory.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TARVELO_TEST_MAIN(TestTexts, QCoreApplication)
#include "tst_Texts.moc"
