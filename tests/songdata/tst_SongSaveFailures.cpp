#include "SaveLab.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QRandomGenerator>

#include <cerrno>
#include <sys/syscall.h>

using namespace Qt::StringLiterals;

// System calls of a save that fail: the song is whole, what save() answers is true, and nothing
// is left behind once the program has been started again.
class TestSongSaveFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void aFailingCallHarmsNothing_data() { addSaveCases(); }
    void aFailingCallHarmsNothing();
    void aFailingDiskHarmsNothing_data() { addSaveCases(); }
    void aFailingDiskHarmsNothing();
    void aSaveAfterAFailedOneIsWhole_data() { addSaveCases(); }
    void aSaveAfterAFailedOneIsWhole();
    void aFailingRecoveryHarmsNothing_data() { addSaveCases(); }
    void aFailingRecoveryHarmsNothing();
};

namespace {

struct Trouble
{
    const char *name;
    int error;
    bool (*strikes)(const TracedChild::Call &call);
};

const Trouble troubles[] = {
    {"full", ENOSPC, Calls::needsRoom},
    {"broken", EIO,
     [](const TracedChild::Call &call) { return Calls::isWrite(call) || Calls::isSync(call); }},
    {"read-only", EROFS, Calls::changesFiles},
};

QString complaintAfter(const SaveLab &lab, TracedChild::End end)
{
    if (end == TracedChild::End::Crashed)
        return u"the save crashed"_s;
    if (!SaveLab::recover())
        return u"the next start crashed"_s;
    return end == TracedChild::End::True ? lab.complaintUnlessNew() : lab.complaint();
}

// From here on, up to the end or to a call of getppid().
void strike(TracedChild &child, const Trouble &trouble)
{
    do {
        if (child.call().number == SYS_getppid)
            return;
        if (child.call().isEntry && trouble.strikes(child.call()))
            child.failCall(trouble.error);
    } while (child.step());
}

// How many calls of a kind to go on for the next round.
int strideOfCalls()
{
    return isShort() ? 12 : 1;
}

int firstCall()
{
    return 1 + QRandomGenerator::global()->bounded(strideOfCalls());
}

} // namespace

void TestSongSaveFailures::initTestCase()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer makes system calls of its own, and they must not fail.");
#endif
    if (!TracedChild::isPossible())
        QSKIP("Processes can't be traced here.");
}

void TestSongSaveFailures::aFailingCallHarmsNothing()
{
    LAB_OF_ROW(lab);
    int faults = 0;
    for (const int error : {EIO, ENOSPC}) {
        for (int call = firstCall();; call += strideOfCalls()) {
            lab->reset();
            TracedChild child(lab->saving());
            if (!child.stepToCall(Calls::isAboutFiles, call))
                break;
            const QString place = child.place();
            child.failCall(error);
            const TracedChild::End end = child.finish();
            const QString atOnce = lab->complaintAboutBytes();
            QVERIFY2(atOnce.isEmpty(), qPrintable(place + u"at once: "_s + atOnce));
            const QString complaint = complaintAfter(*lab, end);
            QVERIFY2(complaint.isEmpty(), qPrintable(place + complaint));
            ++faults;
        }
    }
    QVERIFY(faults > 5);
    qInfo("%d faults", faults);
}

// What fails once fails until the end: nothing can be taken back either.
void TestSongSaveFailures::aFailingDiskHarmsNothing()
{
    LAB_OF_ROW(lab);
    int faults = 0;
    for (const Trouble &trouble : troubles) {
        for (int call = 1;; call += isShort() ? 4 : 1) {
            lab->reset();
            TracedChild child(lab->saving());
            if (!child.stepToCall(trouble.strikes, call))
                break;
            const QString place = QLatin1String(trouble.name) + u", "_s + child.place();
            strike(child, trouble);
            const QString complaint = complaintAfter(*lab, child.end());
            QVERIFY2(complaint.isEmpty(), qPrintable(place + complaint));
            ++faults;
        }
    }
    QVERIFY(faults > 0);
    qInfo("%d beginnings of a fault", faults);
}

void TestSongSaveFailures::aSaveAfterAFailedOneIsWhole()
{
    LAB_OF_ROW(lab);
    const auto music = SongBytes::read(lab->newBytes())->audio;
    for (const Trouble &trouble : troubles) {
        for (int call = 1;; call += isShort() ? 4 : 1) {
            lab->reset();
            TracedChild child(lab->savingTwice());
            bool isSecond = false;
            const auto isMeant = [&](const TracedChild::Call &made) {
                isSecond = isSecond || made.number == SYS_getppid;
                return isSecond || trouble.strikes(made);
            };
            if (!child.stepToCall(isMeant, call) || isSecond)
                break;
            const QString place = QLatin1String(trouble.name) + u", "_s + child.place();
            strike(child, trouble);
            const TracedChild::End end = child.finish();
            QVERIFY2(end == TracedChild::End::True,
                     qPrintable(place + u"the second save failed"_s));
            QVERIFY(SaveLab::recover());
            const auto song = SongBytes::read(SaveLab::read(lab->song()));
            QVERIFY2(song, qPrintable(place + u"no mp3 any more"_s));
            QVERIFY2(song->userText("SongId") == "00000002", qPrintable(place + u"not new"_s));
            QVERIFY2(song->audio == music, qPrintable(place + u"other music"_s));
            const QString complaint = lab->complaintAboutFile();
            QVERIFY2(complaint.isEmpty(), qPrintable(place + complaint));
        }
    }
}

// A disk that can't be read at one start may be read at the next: nothing is given up before.
void TestSongSaveFailures::aFailingRecoveryHarmsNothing()
{
    LAB_OF_ROW(lab);
    int faults = 0;
    bool wasKilled = true;
    for (int stop = 1; wasKilled; stop += isShort() ? 31 : 5) {
        bool wasStruck = true;
        for (int call = 1; wasKilled && wasStruck; call += isShort() ? 7 : 1) {
            lab->reset();
            TracedChild save(lab->saving());
            wasKilled = save.stepTo(stop);
            save.kill();
            TracedChild recovery(SaveLab::recovering());
            wasStruck = recovery.stepToCall(Calls::isAboutFiles, call);
            if (wasStruck)
                recovery.failCall(EIO);
            recovery.finish();
            const QString complaint
                = SaveLab::recover() ? lab->complaint() : u"the next start crashed"_s;
            QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
            faults += wasStruck ? 1 : 0;
        }
    }
    qInfo("%d failing recoveries", faults);
}

TARVELO_TEST_MAIN(TestSongSaveFailures, QCoreApplication)
#include "tst_SongSaveFailures.moc"
