#include "TestMain.h"

#include <QCoreApplication>
#include <QProcess>

#include <memory>
#include <vector>

class TestInstanceGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneInstanceAtATime();
    void simultaneousStartsGiveExactlyOneInstance();
    void killedInstanceLeavesTheWayFree();
    void killAtAnyMomentLeavesTheWayFree();
    void killWhileHoldingTheSemaphoreLeavesTheWayFree();

private:
    using Probe = std::unique_ptr<QProcess>;
    static Probe start(const QStringList &arguments = {});
    static QByteArray answer(QProcess &probe);
    static int finish(QProcess &probe);
};

TestInstanceGuard::Probe TestInstanceGuard::start(const QStringList &arguments)
{
    auto probe = std::make_unique<QProcess>();
    probe->start(QStringLiteral(TARVELO_INSTANCE_PROBE), arguments);
    return probe;
}

QByteArray TestInstanceGuard::answer(QProcess &probe)
{
    while (!probe.canReadLine() && probe.waitForReadyRead(20000)) { }
    return probe.readLine().trimmed();
}

int TestInstanceGuard::finish(QProcess &probe)
{
    probe.closeWriteChannel();
    probe.waitForFinished(20000);
    return probe.exitCode();
}

void TestInstanceGuard::oneInstanceAtATime()
{
    const Probe first = start();
    QCOMPARE(answer(*first), "acquired");
    const Probe second = start();
    QCOMPARE(answer(*second), "refused");
    QCOMPARE(finish(*second), 1);
    QCOMPARE(finish(*first), 0);
    const Probe third = start();
    QCOMPARE(answer(*third), "acquired");
    QCOMPARE(finish(*third), 0);
}

void TestInstanceGuard::simultaneousStartsGiveExactlyOneInstance()
{
    for (int round = 0; round < 15; ++round) {
        std::vector<Probe> probes;
        for (int i = 0; i < 4; ++i)
            probes.push_back(start());
        int acquired = 0;
        for (const Probe &probe : probes)
            acquired += answer(*probe) == "acquired";
        for (const Probe &probe : probes)
            finish(*probe);
        QCOMPARE(acquired, 1);
    }
}

void TestInstanceGuard::killedInstanceLeavesTheWayFree()
{
    const Probe first = start();
    QCOMPARE(answer(*first), "acquired");
    first->kill();
    QVERIFY(first->waitForFinished());
    const Probe second = start();
    QCOMPARE(answer(*second), "acquired");
    // A living instance isn't taken for an orphan after that.
    const Probe third = start();
    QCOMPARE(answer(*third), "refused");
    finish(*third);
    QCOMPARE(finish(*second), 0);
}

void TestInstanceGuard::killAtAnyMomentLeavesTheWayFree()
{
    for (int delay = 0; delay < 30; ++delay) {
        const Probe victim = start();
        QVERIFY(victim->waitForStarted());
        QTest::qWait(delay);
        victim->kill();
        QVERIFY(victim->waitForFinished());
        const Probe next = start();
        QCOMPARE(answer(*next), "acquired");
        QCOMPARE(finish(*next), 0);
    }
}

void TestInstanceGuard::killWhileHoldingTheSemaphoreLeavesTheWayFree()
{
    const Probe victim = start({QStringLiteral("hold-semaphore")});
    QCOMPARE(answer(*victim), "holding");
    const Probe waiting = start();
    QVERIFY(!waiting->waitForReadyRead(300));
    victim->kill();
    QVERIFY(victim->waitForFinished());
    QCOMPARE(answer(*waiting), "acquired");
    QCOMPARE(finish(*waiting), 0);
}

TARVELO_TEST_MAIN(TestInstanceGuard, QCoreApplication)
#include "tst_InstanceGuard.moc"
