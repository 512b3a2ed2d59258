#include "Log.h"

#include "Settings.h"
#include "Version.h"

#include <QDir>
#include <QStandardPaths>
#include <QtDebug>

#include <array>
#include <cstdio>
#include <ctime>

namespace Log {

namespace {

struct State
{
    QString path;
    QtMessageHandler previousHandler = nullptr;
    std::FILE *file = nullptr;
};

// Never destroyed: messages may come as long as the process lives.
State &state()
{
    static State *const instance = new State;
    return *instance;
}

QByteArray timeStamp()
{
    std::array<char, 128> buffer{};
    const std::time_t now = std::time(nullptr);
    std::strftime(buffer.data(), buffer.size(), "%Y-%m-%d %H:%M:%S: ", std::localtime(&now));
    return buffer.data();
}

void writeLine(const QByteArray &line)
{
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), state().file);
    std::fputs("\n", state().file);
    std::fflush(state().file);
}

} // namespace

void startLogging()
{
    State &log = state();
    if (log.file)
        return;
    const QString directory = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(directory);
    log.path = directory + QStringLiteral("/tarvelolog.txt");
    qDebug().noquote() << "Logfile =" << log.path;
    log.file = std::fopen(log.path.toUtf8().constData(), "a");
    // A second start without a file must not make the handler its own predecessor.
    const QtMessageHandler before = qInstallMessageHandler(logMessageHandler);
    if (before != logMessageHandler)
        log.previousHandler = before;
    qDebug().noquote() << "Program Start:" << Version::logText();
}

void restartLogging()
{
    State &log = state();
    if (log.file)
        std::fclose(log.file);
    log.file = nullptr;
    qInstallMessageHandler(log.previousHandler);
    QFile::remove(log.path);
    startLogging();
}

QString logFileName()
{
    return state().path;
}

void logMessageHandler(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const State &log = state();
    if (log.file && Settings::value(Settings::Key::LoggingEnabled).toBool())
        writeLine(timeStamp() + qFormatLogMessage(type, context, text).toUtf8());
    if (log.previousHandler)
        log.previousHandler(type, context, text);
}

} // namespace Log
