#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

// The program itself, started as a user starts it and seen from outside. Needs a screen of its own
// with a window manager, as scripts/test-session makes it.
class ProgramRun
{
public:
    // With settings of its own and these directories. Comes back when the window is on the screen.
    ProgramRun(const QString &music, const QString &cache);
    // Ends it as a user does.
    ~ProgramRun();

    // From the start of the process to the painted window.
    double startMs() const { return shownMs; }
    // Types keys, by names such as "Return".
    void press(const QStringList &keys);
    // Of one processor, in this time from now.
    double processorPercent(int seconds) const;
    // In memory now.
    double megabytes() const;

    ProgramRun(const ProgramRun &) = delete;
    ProgramRun &operator=(const ProgramRun &) = delete;

private:
    QTemporaryDir home;
    QProcess process;
    double shownMs = 0;
};
