#include "FileTools.h"
#include "TestMain.h"
#include "TextTools.h"
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
    void nameAsHtml_data();
    void nameAsHtml();
    void longNameAsHtml_data();
    void longNameAsHtml();
    void appendedCharacter();
    void version();
    void buildDate_data();
    void buildDate();
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
    QTest::newRow("a second") << 1 << QStringLiteral("0:01");
    QTest::newRow("a minute") << 60 << QStringLiteral("1:00");
    QTest::newRow("ten minutes") << 610 << QStringLiteral("10:10");
    QTest::newRow("nearly an hour") << 3599 << QStringLiteral("59:59");
    QTest::newRow("just an hour") << 3600 << QStringLiteral("1:00:00");
    QTest::newRow("hours") << 3725 << QStringLiteral("1:02:05");
    QTest::newRow("many hours") << 100 * 3600 + 12 * 60 << QStringLiteral("100:12:00");
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
    QTest::newRow("nothing left") << QStringLiteral("???") << QString();
    QTest::newRow("lowest and highest control")
        << QStringLiteral("a\x01\x1f b") << QStringLiteral("a b");
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
    QVERIFY(!Version::releaseName().isEmpty());
}

void TestTexts::buildDate_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    const auto add = [](const char *language, const char *format, const char *text) {
        QTest::addRow("%s %s", language, format)
            << QString::fromLatin1(language) << QString::fromLatin1(format)
            << QString::fromUtf8(text);
    };
    add("de_DE", "S", "06.12.2024");
    add("de_DE", "L", "06 Dez. 2024");
    add("en_US", "S", "12/06/2024");
    add("en_US", "L", "06 Dec 2024");
    add("en_GB", "S", "06 Dec 2024");
    add("de_AT", "S", "06 Dez. 2024");
    add("fr_FR", "S", "06 déc. 2024");
    add("C", "S", "06 Dec 2024");
    add("C", "L", "06 Dec 2024");
    add("de_DE", "", "06 Dez. 2024");
    add("de_DE", "s", "06 Dez. 2024");
}

void TestTexts::buildDate()
{
    QFETCH(QString, language);
    QFETCH(QString, format);
    const QLocale before;
    QLocale::setDefault(QLocale(language));
    QTEST(Version::buildDate(format), "text");
    QLocale::setDefault(before);
}

void TestTexts::nameAsHtml_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("html");
    QTest::newRow("plain") << QStringLiteral("/a b/c.mp3") << QStringLiteral("/a b/c.mp3");
    QTest::newRow("like a tag") << QStringLiteral("a<br>b") << QStringLiteral("a&lt;br&gt;b");
    QTest::newRow("like an entity") << QStringLiteral("a&amp;b") << QStringLiteral("a&amp;amp;b");
    QTest::newRow("quotes") << QStringLiteral("a\"b'c") << QStringLiteral("a&quot;b'c");
    QTest::newRow("none") << QString() << QString();
}

void TestTexts::nameAsHtml()
{
    QFETCH(QString, name);
    QTEST(fileNameAsHtml(name), "html");
}

void TestTexts::longNameAsHtml_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("breaks");
    QTest::newRow("just short enough") << QString(24, u'x') << 0;
    QTest::newRow("a letter longer") << QString(25, u'x') << 24;
    QTest::newRow("longest") << QString(250, u'_') << 249;
    QTest::newRow("blanks") << QStringLiteral("aaaaaaaaaaaaaaaaaaaa bbbbbbbbbbbbbbbbbbbb") << 0;
    QTest::newRow("a long one among short ones")
        << QStringLiteral("a b/%1-c").arg(QString(30, u'x')) << 29;
    QTest::newRow("directories") << QStringLiteral("/aaaaaaaaaaaaaaaaaaaa/bbbbbbbbbbbbbbbbbb") << 0;
    QTest::newRow("faces") << QStringLiteral("💃🏽").repeated(30) << 29;
    QTest::newRow("entities") << QString(30, u'&') << 29;
}

void TestTexts::longNameAsHtml()
{
    QFETCH(QString, name);
    const QChar possibleBreak(0x200b);
    QString html = fileNameAsHtml(name);
    QTEST(static_cast<int>(html.count(possibleBreak)), "breaks");
    // Neither an entity nor a face is broken.
    QVERIFY(!html.contains(possibleBreak + QStringLiteral("🏽")));
    QCOMPARE(html.remove(possibleBreak), name.toHtmlEscaped());
}

void TestTexts::appendedCharacter()
{
    const QString text = QStringLiteral("ab");
    QCOMPARE(appendChar(text, u'ü'), QStringLiteral("abü"));
    QCOMPARE(appendChar({}, u'c'), QStringLiteral("c"));
    QCOMPARE(text, QStringLiteral("ab"));
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
