#include "SaveLab.h"
#include "SongFiles.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QProcess>
#include <QRandomGenerator>

#include <thread>

using namespace Qt::StringLiterals;

// A save that is killed, wherever that may be, leaves the whole old or the whole new song once
// the program has been started again.
class TestSongKills : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void anUndisturbedSaveIsWhole_data() { addSaveCases(); }
    void anUndisturbedSaveIsWhole();
    void aKillAtAnyStepHarmsNothing_data() { addSaveCases(); }
    void aKillAtAnyStepHarmsNothing();
    void aKillInTheMiddleOfAWriteHarmsNothing_data() { addSaveCases(); }
    void aKillInTheMiddleOfAWriteHarmsNothing();
    void aKilledRecoveryHarmsNothing_data() { addSaveCases(); }
    void aKilledRecoveryHarmsNothing();
    void otherFormatsSurviveKills_data();
    void otherFormatsSurviveKills();
    void killsAtRandomHarmNothing_data();
    void killsAtRandomHarmNothing();

private:
    // How many kills there were; problem tells what was wrong after the last of them.
    int killAtStops(SaveLab &lab);
    static QString complaintAfterStart(const SaveLab &lab, const TracedChild &child);

    QString problem;
};

namespace {

// The start of the program as a process of its own, as a user makes it.
bool startProgram()
{
    QProcess program;
    program.start(QStringLiteral(TARVELO_SONG_SAVER), QStringList());
    return program.waitForFinished() && program.exitStatus() == QProcess::NormalExit;
}

QString checksum(const QByteArray &bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
}

// What a tag reader of others makes of the song: its audio's checksum and title.
std::pair<QString, QString> foreignLook(const QString &path)
{
    const QJsonObject look = SongFiles::dump(path);
    return {look.value(u"audio").toString(), look.value(u"song")[u"title"].toString()};
}

} // namespace

void TestSongKills::initTestCase()
{
    if (!TracedChild::isPossible())
        QSKIP("Processes can't be traced here.");
}

void TestSongKills::anUndisturbedSaveIsWhole()
{
    QFETCH(int, change);
    LAB_OF_ROW(lab);
    const auto old = SongBytes::read(lab->oldBytes());
    const auto changed = SongBytes::read(lab->newBytes());
    QVERIFY(old && changed);
    QCOMPARE(SaveStates::numberIn(*changed, SaveStates::Change(change)), 2);
    QCOMPARE(changed->audio, old->audio);
    QVERIFY(changed->id3v1.size() >= old->id3v1.size());
    QCOMPARE(changed->ape.isEmpty(), old->ape.isEmpty());
    QCOMPARE(lab->complaint(), QString());
    QVERIFY(lab->saveAs(2));
    QCOMPARE(lab->complaintUnlessNew(), QString());
    QCOMPARE(foreignLook(lab->song()), std::pair(checksum(old->audio), u"Title 00000002"_s));
}

void TestSongKills::aKillAtAnyStepHarmsNothing()
{
    LAB_OF_ROW(lab);
    QVERIFY2(killAtStops(*lab) > 5, qPrintable(problem));
    QCOMPARE(problem, QString());
}

int TestSongKills::killAtStops(SaveLab &lab)
{
    problem.clear();
    int kills = 0;
    for (int stop = firstStop(lab, 10); problem.isEmpty(); stop += strideOfStops(lab, 10)) {
        lab.reset();
        TracedChild child(lab.saving());
        if (!child.stepTo(stop))
            break;
        child.kill();
        problem = complaintAfterStart(lab, child);
        ++kills;
    }
    if (problem.isEmpty())
        qInfo("%d kills", kills);
    return kills;
}

QString TestSongKills::complaintAfterStart(const SaveLab &lab, const TracedChild &child)
{
    const QString complaint = SaveLab::recover() ? lab.complaint() : u"the next start crashed"_s;
    return complaint.isEmpty() ? complaint : child.place() + complaint;
}

void TestSongKills::aKillInTheMiddleOfAWriteHarmsNothing()
{
    LAB_OF_ROW(lab);
    int kills = 0;
    for (;; ++kills) {
        lab->reset();
        TracedChild child(lab->saving());
        if (!child.stepToCall(Calls::isWrite, kills + 1))
            break;
        child.halveCall();
        child.step();
        child.kill();
        QCOMPARE(complaintAfterStart(*lab, child), QString());
    }
    QVERIFY(kills > 0);
    qInfo("%d kills", kills);
}

// The power that failed once may fail again.
void TestSongKills::aKilledRecoveryHarmsNothing()
{
    LAB_OF_ROW(lab);
    int kills = 0;
    // Every fourth stop in the long form: two nested rounds of all of them would take hours.
    const int stride = isShort() ? qMax(1, lab->stops() / 3) : 4;
    for (int stop = firstStop(*lab, 6); stop < lab->stops(); stop += stride) {
        bool wasKilled = true;
        for (int recoveryStop = 1; wasKilled; recoveryStop += isShort() ? 15 : 1) {
            lab->reset();
            TracedChild save(lab->saving());
            save.stepTo(stop);
            save.kill();
            TracedChild recovery(SaveLab::recovering());
            wasKilled = recovery.stepTo(recoveryStop);
            recovery.kill();
            QCOMPARE(complaintAfterStart(*lab, save), QString());
            kills += wasKilled ? 1 : 0;
        }
    }
    qInfo("%d killed recoveries", kills);
}

void TestSongKills::otherFormatsSurviveKills_data()
{
    QTest::addColumn<QString>("suffix");
    for (const char *suffix : {"flac", "ogg", "m4a"})
        QTest::newRow(suffix) << QString::fromLatin1(suffix);
}

void TestSongKills::otherFormatsSurviveKills()
{
    QFETCH(QString, suffix);
    for (const auto change : {SaveStates::Change::Fits, SaveStates::Change::Grows}) {
        SaveLab lab(SaveLab::Place::Library, change, SaveLab::Start::Tagged, suffix);
        if (!lab.obstacle().isEmpty())
            QSKIP(qPrintable(lab.obstacle()));
        const QJsonObject before = SongFiles::dump(lab.song());
        QVERIFY2(killAtStops(lab) > 5, qPrintable(problem));
        QCOMPARE(problem, QString());
        lab.reset();
        QVERIFY(lab.saveAs(2));
        QCOMPARE(lab.complaintUnlessNew(), QString());
        const QJsonObject after = SongFiles::dump(lab.song());
        QVERIFY(!after.value(u"audio").toString().isEmpty());
        QCOMPARE(after.value(u"audio"), before.value(u"audio"));
        QVERIFY(after.value(u"tags") != before.value(u"tags"));
    }
}

void TestSongKills::killsAtRandomHarmNothing_data()
{
    QTest::addColumn<QString>("change");
    for (const char *change : {"fits", "grows", "shrinks"})
        QTest::newRow(change) << QString::fromLatin1(change);
}

// A process of its own, killed after some of its saves by chance.
void TestSongKills::killsAtRandomHarmNothing()
{
    QFETCH(QString, change);
    const auto kind = SaveStates::changeNamed(change.toLatin1());
    SaveLab lab(SaveLab::Place::Library, kind, SaveLab::Start::AllTags);
    const auto before = SongBytes::read(lab.oldBytes());
    QVERIFY(before);
    const int rounds = roundsToTry(12);
    int last = 1;
    int saves = 0;
    for (int round = 0; round < rounds; ++round) {
        QProcess saver;
        saver.start(QStringLiteral(TARVELO_SONG_SAVER),
                    {lab.song(), change, QString::number(last + 1)});
        QVERIFY(saver.waitForReadyRead());
        std::this_thread::sleep_for(
            std::chrono::microseconds(QRandomGenerator::global()->bounded(30000)));
        saver.kill();
        QVERIFY(saver.waitForFinished());
        const QByteArrayList reports = saver.readAllStandardOutput().split('\n');
        QVERIFY2(!reports.join().contains("failed"), reports.join(' ').constData());
        const int reported = reports.at(reports.size() - 2).mid(6).toInt();
        QVERIFY(startProgram());

        const auto song = SongBytes::read(SaveLab::read(lab.song()));
        QVERIFY(song);
        const int number = SaveStates::numberIn(*song, kind);
        QVERIFY2(number == reported || number == reported + 1,
                 qPrintable(u"state %1 after %2"_s.arg(number).arg(reported)));
        QCOMPARE(song->audio, before->audio);
        QCOMPARE(song->id3v1.size(), before->id3v1.size());
        QCOMPARE(song->ape.isEmpty(), before->ape.isEmpty());
        QCOMPARE(lab.complaintAboutFile(), QString());
        if (round % 25 == 0) {
            const auto look = foreignLook(lab.song());
            QCOMPARE(look.first, checksum(before->audio));
            QCOMPARE(look.second, QString::fromLatin1(song->text("TIT2")));
        }
        saves += reported - last;
        last = number;
    }
    qInfo("%d kills, %d saves between them", rounds, saves);
}

TARVELO_TEST_MAIN(TestSongKills, QCoreApplication)
#include "tst_SongKills.moc"
