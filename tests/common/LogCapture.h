#pragma once

#include <QStringList>
#include <QtGlobal>

// Collects what is logged while it lives; nothing of it reaches the test's own output.
class LogCapture
{
public:
    LogCapture()
    {
        lines().clear();
        previous = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext &, const QString &text) {
                lines().append(prefix(type) + text);
            });
    }
    ~LogCapture() { qInstallMessageHandler(previous); }

    // "debug: ", "critical: " … and the text.
    static int count(const QString &part) { return static_cast<int>(lines().filter(part).size()); }

private:
    Q_DISABLE_COPY_MOVE(LogCapture)

    static QStringList &lines()
    {
        static QStringList all;
        return all;
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

    QtMessageHandler previous;
};
