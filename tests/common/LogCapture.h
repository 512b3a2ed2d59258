#pragma once

#include <QMutex>
#include <QMutexLocker>
#include <QStringList>
#include <QtGlobal>

// Collects what is logged while it lives, by any thread; nothing of it reaches the test's own
// output. One at a time.
class LogCapture
{
public:
    LogCapture()
    {
        clear();
        previous = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &,
                                             const QString &text) { append(prefix(type) + text); });
    }
    ~LogCapture() { qInstallMessageHandler(previous); }

    // "debug: ", "critical: " … and the text.
    static int count(const QString &part) { return static_cast<int>(all().filter(part).size()); }
    static QStringList all()
    {
        const QMutexLocker lock(&mutex);
        return lines;
    }

private:
    Q_DISABLE_COPY_MOVE(LogCapture)

    static void clear()
    {
        const QMutexLocker lock(&mutex);
        lines.clear();
    }
    static void append(const QString &line)
    {
        const QMutexLocker lock(&mutex);
        lines.append(line);
    }
    static QString prefix(QtMsgType type)
    {
        switch (type) {
        case QtDebugMsg:
            return QStringLiteral("debug: ");
        case QtInfoMsg:
            return QStringLiteral("info: ");
        case QtWarningMsg:
            return QStringLiteral("warning: ");
        default:
            return QStringLiteral("critical: ");
        }
    }

    static inline QMutex mutex;
    static inline QStringList lines;
    QtMessageHandler previous;
};
