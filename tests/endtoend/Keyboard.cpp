#include "Keyboard.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QtTest>

namespace Keyboard {

namespace {

// The event loop goes on meanwhile: the music comes out of it.
bool run(QProcess &process, const QString &program, const QStringList &arguments)
{
    process.start(program, arguments);
    return QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }, 10000)
           && process.error() == QProcess::UnknownError;
}

} // namespace

bool press(const QStringList &keys)
{
    QProcess xdotool;
    return run(xdotool, QStringLiteral("xdotool"), QStringList{QStringLiteral("key")} + keys)
           && xdotool.exitCode() == 0;
}

bool useGermanLayout()
{
    QProcess setxkbmap;
    return run(setxkbmap, QStringLiteral("setxkbmap"), {QStringLiteral("de")})
           && setxkbmap.exitCode() == 0;
}

bool pressWithAltGr(const QString &key)
{
    const QString altGr = QStringLiteral("ISO_Level3_Shift");
    QProcess xdotool;
    return run(xdotool, QStringLiteral("xdotool"),
               {QStringLiteral("keydown"), altGr, QStringLiteral("key"), key,
                QStringLiteral("keyup"), altGr})
           && xdotool.exitCode() == 0;
}

int programWindows()
{
    QProcess xdotool;
    run(xdotool, QStringLiteral("xdotool"),
        {QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--class"),
         QStringLiteral("^tarvelo$")});
    return static_cast<int>(xdotool.readAllStandardOutput().count('\n'));
}

QStringList windowTitles()
{
    QProcess xdotool;
    run(xdotool, QStringLiteral("xdotool"),
        {QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
         QStringLiteral("."), QStringLiteral("getwindowname"), QStringLiteral("%@")});
    return QString::fromUtf8(xdotool.readAllStandardOutput())
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool waitForWindow(const QString &titleStart, int timeoutMs)
{
    return QTest::qWaitFor(
        [&titleStart] {
            const QStringList titles = windowTitles();
            return std::any_of(titles.cbegin(), titles.cend(), [&titleStart](const QString &title) {
                return title.startsWith(titleStart);
            });
        },
        timeoutMs);
}

} // namespace Keyboard
