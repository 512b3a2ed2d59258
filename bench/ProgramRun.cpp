#include "ProgramRun.h"

#include "Bench.h"
#include "Desktop.h"
#include "ProcessUsage.h"
#include "StoredSettings.h"

#include <Version.h>

#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMs = 30000;
constexpr int lookMs = 2;

void waitForWindow(const QProcess &process)
{
    const QByteArray title = "Tarvelo " + Version::shortText().toUtf8();
    QElapsedTimer timer;
    timer.start();
    while (!Desktop::shows(process.processId(), title)) {
        Bench::check(!timer.hasExpired(patienceMs), "The program shows no window.");
        QThread::msleep(lookMs);
    }
}

} // namespace

// The settings are those of the working directory.
ProgramRun::ProgramRun(const QString &music, const QString &cache)
{
    QSettings store(home.filePath(u"Tarvelo.ini"_s), QSettings::IniFormat);
    StoredSettings::write(store, music, cache);
    process.setWorkingDirectory(home.path());
    process.setStandardErrorFile(QProcess::nullDevice());
    shownMs = Bench::once([this] {
        process.start(QStringLiteral(TARVELO_PROGRAM), QStringList());
        Bench::check(process.waitForStarted(), "The program doesn't start.");
        waitForWindow(process);
    });
}

ProgramRun::~ProgramRun()
{
    press({u"ctrl+x"_s});
    Bench::check(process.waitForFinished(), "The program doesn't end.");
}

void ProgramRun::press(const QStringList &keys)
{
    Bench::check(QProcess::execute(u"xdotool"_s, QStringList{u"key"_s} + keys) == 0,
                 "No key can be typed.");
}

double ProgramRun::processorPercent(int seconds) const
{
    return ProcessUsage::processorPercent(
        process.processId(), [seconds] { QThread::sleep(static_cast<unsigned long>(seconds)); });
}

double ProgramRun::megabytes() const
{
    return ProcessUsage::kilobytes(process.processId(), "VmRSS") / 1024;
}
