#include "Keyboard.h"
#include "Settings.h"
#include "TestMain.h"

#include <QGuiApplication>
#include <QProcess>
#include <QSettings>

// The program itself, started as a user starts it.
class TestProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void startsAndEnds();
    void secondInstanceIsRefused();
    void simultaneousStartsGiveOneWindow();
    void killedProgramStartsAgain();
    void iniInTheWorkingDirectoryIsUsed();
    void iniElsewhereIsLeftAlone();
    void missingMusicDirectoryIsToldBeforeTheWindow();
    void firstRunWithoutACountry();

private:
    std::unique_ptr<QProcess> start(const QStringList &environment = {});
    static QString text(QProcess &process);

    QTemporaryDir music;
};

void TestProgram::initTestCase()
{
    if (!qEnvironmentVariableIsSet("TARVELO_SESSION"))
        QSKIP("needs scripts/test-session");
    Settings::setValue(Settings::Key::Version, QStringLiteral("8.0.0"));
    Settings::setValue(Settings::Key::Language, QStringLiteral("de_DE"));
    Settings::setValue(Settings::Key::MusicDir, music.path());
    Settings::setValue(Settings::Key::FontSize, 15);
    Settings::setValue(Settings::Key::MaxFontSizeLyrics, 70);
    Settings::instance()->sync();
}

void TestProgram::cleanup()
{
    QProcess::execute(QStringLiteral("pkill"), {QStringLiteral("-KILL"), QStringLiteral("-P"),
                                                QString::number(QCoreApplication::applicationPid()),
                                                QStringLiteral("-x"), QStringLiteral("tarvelo")});
}

std::unique_ptr<QProcess> TestProgram::start(const QStringList &environment)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::MergedChannels);
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    for (const QString &variable : environment)
        variables.insert(variable.section(QLatin1Char('='), 0, 0),
                         variable.section(QLatin1Char('='), 1));
    process->setProcessEnvironment(variables);
    process->start(QStringLiteral(TARVELO_PROGRAM), QStringList());
    return process;
}

QString TestProgram::text(QProcess &process)
{
    return QString::fromUtf8(process.readAll());
}

void TestProgram::startsAndEnds()
{
    const auto program = start();
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Tarvelo 8")));
    QVERIFY(Keyboard::press({QStringLiteral("ctrl+x")}));
    QTRY_COMPARE(program->state(), QProcess::NotRunning);
    QCOMPARE(program->exitStatus(), QProcess::NormalExit);
    QCOMPARE(program->exitCode(), 0);
    const QString log = text(*program);
    QVERIFY2(log.indexOf(QStringLiteral("Load Font = "))
                 < log.indexOf(QStringLiteral("Logfile = ")),
             qPrintable(log));
    QVERIFY(log.contains(QStringLiteral("Program Start: 8.0.0 2024-12-6")));
    QVERIFY(log.indexOf(QStringLiteral("Save Settings"))
            < log.indexOf(QStringLiteral("Program ending")));
}

void TestProgram::secondInstanceIsRefused()
{
    const auto first = start();
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Tarvelo 8")));
    const auto second = start();
    QVERIFY(QTest::qWaitFor([] { return Keyboard::programWindows() == 2; }, 10000));
    QVERIFY(Keyboard::press({QStringLiteral("Return")}));
    QTRY_COMPARE(second->state(), QProcess::NotRunning);
    QCOMPARE(second->exitCode(), 1);
    QCOMPARE(first->state(), QProcess::Running);
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Tarvelo 8")));
    QVERIFY(Keyboard::press({QStringLiteral("ctrl+x")}));
    QTRY_COMPARE(first->state(), QProcess::NotRunning);
    QCOMPARE(first->exitCode(), 0);
}

void TestProgram::simultaneousStartsGiveOneWindow()
{
    const auto one = start();
    const auto other = start();
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Tarvelo 8")));
    QVERIFY(QTest::qWaitFor([] { return Keyboard::programWindows() == 2; }, 10000));
    const QStringList titles = Keyboard::windowTitles();
    QCOMPARE(titles.count(QStringLiteral("Tarvelo 8")), 1);
    QVERIFY(one->state() == QProcess::Running && other->state() == QProcess::Running);
    // Whichever window has the keys: Return answers the box, Ctrl+X ends the program.
    const auto ended = [&] {
        return int(one->state() == QProcess::NotRunning)
               + int(other->state() == QProcess::NotRunning);
    };
    QVERIFY(Keyboard::press({QStringLiteral("Return")}));
    if (!QTest::qWaitFor([&] { return ended() == 1; }, 3000)) {
        QVERIFY(Keyboard::press({QStringLiteral("alt+Tab"), QStringLiteral("Return")}));
        QTRY_COMPARE(ended(), 1);
    }
    const QProcess &refused = one->state() == QProcess::NotRunning ? *one : *other;
    QCOMPARE(refused.exitCode(), 1);
}

void TestProgram::killedProgramStartsAgain()
{
    for (const int delay : {0, 60, 150, 400, 1500}) {
        const auto victim = start();
        QVERIFY(victim->waitForStarted());
        QTest::qWait(delay);
        victim->kill();
        QVERIFY(victim->waitForFinished());
    }
    const auto program = start();
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Tarvelo 8")));
    QVERIFY(Keyboard::press({QStringLiteral("ctrl+x")}));
    QTRY_COMPARE(program->state(), QProcess::NotRunning);
    QCOMPARE(program->exitCode(), 0);
}

void TestProgram::iniInTheWorkingDirectoryIsUsed()
{
    const QString native = Settings::instance()->fileName();
    QFile file(native);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray nativeBefore = file.readAll();
    file.close();
    QFile ini(QStringLiteral("Tarvelo.ini"));
    QVERIFY(ini.open(QIODevice::WriteOnly));
    ini.write("[General]\nversion=8.0.0\nlanguage=en_US\nfontSize=15\nmusicDir="
              + QFile::encodeName(music.path()) + "\n");
    ini.close();
    const auto program = start();
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Tarvelo 8")));
    QVERIFY(Keyboard::press({QStringLiteral("ctrl+x")}));
    QTRY_COMPARE(program->state(), QProcess::NotRunning);

    const QSettings written(QStringLiteral("Tarvelo.ini"), QSettings::IniFormat);
    const QString directory = QFileInfo(QStringLiteral(TARVELO_PROGRAM)).path();
    QCOMPARE(written.value(QStringLiteral("musicDir")).toString(),
             QDir(directory).relativeFilePath(music.path()));
    QCOMPARE(written.value(QStringLiteral("language")).toString(), QStringLiteral("en_US"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), nativeBefore);
    QVERIFY(ini.remove());
}

// A stick whose program is started from another directory: its settings are not found and stay as
// they are.
void TestProgram::iniElsewhereIsLeftAlone()
{
    QVERIFY(QDir().mkdir(QStringLiteral("stick")));
    QFile ini(QStringLiteral("stick/Tarvelo.ini"));
    const QByteArray content = "[General]\nversion=8.0.0\nlanguage=en_US\nmusicDir=Music\n";
    QVERIFY(ini.open(QIODevice::WriteOnly));
    ini.write(content);
    ini.close();
    const auto program = start();
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Tarvelo 8")));
    QVERIFY(Keyboard::press({QStringLiteral("ctrl+x")}));
    QTRY_COMPARE(program->state(), QProcess::NotRunning);
    QVERIFY(ini.open(QIODevice::ReadOnly));
    QCOMPARE(ini.readAll(), content);
    // The native store was used: its language is German still.
    Settings::instance()->sync();
    QCOMPARE(Settings::value(Settings::Key::Language).toString(), QStringLiteral("de_DE"));
}

void TestProgram::missingMusicDirectoryIsToldBeforeTheWindow()
{
    Settings::setValue(Settings::Key::MusicDir, QStringLiteral("/nowhere"));
    Settings::instance()->sync();
    const auto program = start();
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Fehler ...")));
    QVERIFY(!Keyboard::windowTitles().contains(QStringLiteral("Tarvelo 8")));
    QVERIFY(Keyboard::press({QStringLiteral("Return")}));
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Tarvelo 8")));
    QVERIFY(Keyboard::press({QStringLiteral("ctrl+x")}));
    QTRY_COMPARE(program->state(), QProcess::NotRunning);
    QCOMPARE(program->exitCode(), 0);
    Settings::setValue(Settings::Key::MusicDir, music.path());
    Settings::instance()->sync();
}

void TestProgram::firstRunWithoutACountry()
{
    const QTemporaryDir home;
    const auto program
        = start({QStringLiteral("XDG_CONFIG_HOME=") + home.path(), QStringLiteral("LC_ALL=C"),
                 QStringLiteral("LANG=C"), QStringLiteral("LANGUAGE=C")});
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Information ...")));
    QVERIFY(Keyboard::press({QStringLiteral("Return")}));
    QVERIFY(Keyboard::waitForWindow(QStringLiteral("Tarvelo 8")));
    QVERIFY(QTest::qWaitFor(
        [] { return !Keyboard::windowTitles().contains(QStringLiteral("Information ...")); }));
    QVERIFY(Keyboard::press({QStringLiteral("ctrl+x")}));
    QTRY_COMPARE(program->state(), QProcess::NotRunning);
    const QSettings written(home.filePath(QStringLiteral("Tarvelo Soft/Tarvelo.conf")),
                            QSettings::NativeFormat);
    QCOMPARE(written.value(QStringLiteral("language")).toString(), QStringLiteral("en_US"));
    QCOMPARE(written.value(QStringLiteral("highIntermediate")).toString(),
             QStringLiteral("Intermediate+"));
    QCOMPARE(written.value(QStringLiteral("version")).toString(), QStringLiteral("8.0.0"));
}

TARVELO_TEST_MAIN(TestProgram, QGuiApplication)
#include "tst_Program.moc"
