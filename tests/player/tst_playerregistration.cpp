#include "DanceEvent.h"
#include "LogCapture.h"
#include "PlayerFixture.h"
#include "Settings.h"
#include "SongFiles.h"
#include "SongStore.h"
#include "TestMain.h"

#include <QCoreApplication>

#include <id3v2tag.h>

using namespace Qt::StringLiterals;

// A play becomes an event in the song's file once it has lasted long enough.
class TestPlayerRegistration : public QObject, PlayerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void isWrittenOnceWithTheTempo();
    void songTimeCounts();
    void namesTheCurrentEvent();
    void aShortPlayIsNone();
    void pausesDontCountAndLoseNothing();
    void aStartCountsAnew();
    void aLoopIsOnePlay();
    void aFileThatCantBeWrittenIsTriedOnce();
    void ninetySecondsWithoutASetting();

private:
    void setThreshold(int seconds);
    QStringList eventsInFile() const;
};

void TestPlayerRegistration::initTestCase()
{
    if (const char *obstacle = PlayerFixture::obstacle())
        QSKIP(obstacle);
    createSongStores();
}

void TestPlayerRegistration::cleanupTestCase()
{
    destroySongStores();
}

void TestPlayerRegistration::init()
{
    setThreshold(1);
    begin();
    SongFiles::edit(song->getFilename(), [](TagLib::ID3v2::Tag &tag) { tag.removeFrames("TXXX"); });
    song->getDanceEvents().clear();
    song->setTempo(0);
}

void TestPlayerRegistration::cleanup()
{
    setCurrentDanceEvent({});
    end();
}

void TestPlayerRegistration::setThreshold(int seconds)
{
    Settings::setValue(Settings::Key::RegisterPlay, seconds);
}

// Lines of seconds, category, name and tempo.
QStringList TestPlayerRegistration::eventsInFile() const
{
    const QStringList texts
        = SongFiles::userTexts(SongFiles::dump(song->getFilename()), u"DanceEvents"_s);
    return texts.join(QString()).split(u'\n', Qt::SkipEmptyParts);
}

void TestPlayerRegistration::isWrittenOnceWithTheTempo()
{
    const LogCapture logged;
    player->setSong(song);
    player->setTempo(5);
    player->start();
    QVERIFY(playBeyond(1700));
    QVERIFY(eventsInFile().isEmpty());
    QVERIFY(playBeyond(3500));
    const QStringList events = eventsInFile();
    QCOMPARE(events.size(), 1);
    QCOMPARE(events.at(0).section(u'\t', 3), u"5"_s);
    QCOMPARE(song->getLastTempo(), u"5"_s);
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(song->getFilename()), u"LastTempo"_s),
             QStringList{u"5"_s});
    QVERIFY(player->isPlaying());
    QCOMPARE(logged.count(u"Written Event for song "_s), 1);
}

// At -40 % two seconds of the song take more than three.
void TestPlayerRegistration::songTimeCounts()
{
    song->setTempo(-40);
    player->setSong(song);
    player->start();
    QElapsedTimer clock;
    clock.start();
    QTRY_COMPARE_WITH_TIMEOUT(song->getDanceEvents().count(), 1, 8000);
    QVERIFY2(clock.elapsed() > 3000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(song->getDanceEvents().at(0)->getTempo(), u"-40"_s);
}

void TestPlayerRegistration::namesTheCurrentEvent()
{
    setCurrentDanceEvent(std::make_shared<DanceEvent>(u"Training"_s, u"Tuesday"_s, QString()));
    player->setSong(song);
    player->start();
    QTRY_COMPARE_WITH_TIMEOUT(song->getDanceEvents().count(), 1, 6000);
    QCOMPARE(eventsInFile().at(0).section(u'\t', 1), u"Training\tTuesday\t0"_s);
}

void TestPlayerRegistration::aShortPlayIsNone()
{
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(1600));
    player->stop();
    passTicks();
    QCOMPARE(song->getDanceEvents().count(), 0);
}

void TestPlayerRegistration::pausesDontCountAndLoseNothing()
{
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(1200));
    player->pause();
    QTest::qWait(1200);
    QCOMPARE(song->getDanceEvents().count(), 0);
    player->resume();
    QTRY_COMPARE_WITH_TIMEOUT(song->getDanceEvents().count(), 1, 3000);
    // Had the pause lost what was played, it would be three seconds.
    QVERIFY2(player->getPlaytime() < 2800, qPrintable(QString::number(player->getPlaytime())));
    player->pause();
    player->resume();
    QVERIFY(playBeyond(5000));
    QCOMPARE(song->getDanceEvents().count(), 1);
}

void TestPlayerRegistration::aStartCountsAnew()
{
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(1500));
    player->startFromPart(2);
    QVERIFY(playBeyond(4000));
    QCOMPARE(song->getDanceEvents().count(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(song->getDanceEvents().count(), 1, 3000);
    player->start();
    QTRY_COMPARE_WITH_TIMEOUT(song->getDanceEvents().count(), 2, 5000);
}

void TestPlayerRegistration::aLoopIsOnePlay()
{
    player->setSong(song);
    player->startLoop(1, 1);
    QTRY_COMPARE_WITH_TIMEOUT(song->getDanceEvents().count(), 1, 6000);
    QTest::qWait(2500);
    QCOMPARE(song->getDanceEvents().count(), 1);
}

void TestPlayerRegistration::aFileThatCantBeWrittenIsTriedOnce()
{
    const LogCapture logged;
    const QString file = song->getFilename();
    QVERIFY(QFile::setPermissions(file, QFileDevice::ReadOwner));
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(4200));
    QVERIFY(QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    QCOMPARE(logged.count(u"critical: Save File failed:"_s), 1);
    QCOMPARE(song->getDanceEvents().count(), 1);
    QVERIFY(eventsInFile().isEmpty());
    QVERIFY(player->isPlaying());
}

void TestPlayerRegistration::ninetySecondsWithoutASetting()
{
    Settings::remove(Settings::Key::RegisterPlay);
    const LogCapture logged;
    player->setSong(song);
    player->start();
    player->start();
    QCOMPARE(logged.count(u"toBeWritten After= 90"_s), 1);
    setThreshold(30);
    player->stop();
    player->stop();
    QCOMPARE(logged.count(u"toBeWritten After= 30"_s), 1);
}

TARVELO_TEST_MAIN(TestPlayerRegistration, QCoreApplication)
#include "tst_playerregistration.moc"
