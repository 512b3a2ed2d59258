#include "Log.h"
#include "Settings.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace {

QStringList passedOn;

void collect(QtMsgType, const QMessageLogContext &, const QString &text)
{
    passedOn.append(text);
}

QStringList logLines()
{
    QFile file(Log::logFileName());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

class TestLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void lifeOfTheLog();
    void cleanupTestCase();

private:
    QtMessageHandler testHandler = nullptr;
};

void TestLog::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Tarvelo Soft"));
    QCoreApplication::setApplicationName(QStringLiteral("Tarvelo"));
    testHandler = qInstallMessageHandler(collect);
}

void TestLog::cleanupTestCase()
{
    qInstallMessageHandler(testHandler);
}

// The log is one for the whole process, so its life is one story.
void TestLog::lifeOfTheLog()
{
    QVERIFY(Log::logFileName().isEmpty());

    // Off: the file is opened, and nothing but that.
    Log::startLogging();
    QVERIFY(Log::logFileName().endsWith(QStringLiteral("/Tarvelo Soft/Tarvelo/tarvelolog.txt")));
    QVERIFY(QFile::exists(Log::logFileName()));
    qDebug("unheard");
    QVERIFY(logLines().isEmpty());
    QVERIFY(passedOn.contains(QStringLiteral("unheard")));
    QVERIFY(passedOn.contains(QStringLiteral("Program Start: 8.0.0 2024-12-6")));
    QVERIFY(passedOn.contains(QStringLiteral("Logfile = ") + Log::logFileName()));

    // On: takes effect at the next message.
    Settings::setValue(Settings::Key::LoggingEnabled, true);
    qDebug("heard: Grüße");
    QCOMPARE(logLines().size(), 1);
    static const QRegularExpression line(
        QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d: .*heard: Grüße$"));
    QVERIFY2(line.match(logLines().constFirst()).hasMatch(), qPrintable(logLines().constFirst()));
    QVERIFY(passedOn.contains(QStringLiteral("heard: Grüße")));

    // A second start does nothing.
    Log::startLogging();
    QCOMPARE(logLines().size(), 1);

    // Clearing writes a fresh first line.
    Log::restartLogging();
    QCOMPARE(logLines().size(), 1);
    QVERIFY(logLines().constFirst().endsWith(QStringLiteral("Program Start: 8.0.0 2024-12-6")));

    // Off again: clearing still empties the file.
    Settings::setValue(Settings::Key::LoggingEnabled, false);
    Log::restartLogging();
    QVERIFY(QFile::exists(Log::logFileName()));
    QVERIFY(logLines().isEmpty());

    // A file that can't be opened: messages are passed on once, and nothing is reported.
    Settings::setValue(Settings::Key::LoggingEnabled, true);
    const QString path = Log::logFileName();
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkdir(path));
    Log::restartLogging();
    Log::startLogging();
    passedOn.clear();
    qDebug("no file");
    QCOMPARE(passedOn, QStringList{QStringLiteral("no file")});
    QVERIFY(QDir().rmdir(path));
}

TARVELO_TEST_MAIN(TestLog, QCoreApplication)
#include "tst_Log.moc"
