#pragma once

#include <QString>
#include <QtGlobal>

// The log file "tarvelolog.txt" in the application data directory: one line a message, only while
// the setting loggingEnabled is true. The setting is asked anew at each message.
namespace Log {

// Opens the file and takes over Qt's messages; nothing if that has been done. Needs the
// organisation and application names. A file that can't be opened is silently done without.
void startLogging();
// Empties the log: closes and removes the file, then starts anew.
void restartLogging();
// Path of the log file; empty before the first start.
QString logFileName();

// Writes the message to the file if logging is on, then passes it on to the handler that was
// there before.
void logMessageHandler(QtMsgType type, const QMessageLogContext &context, const QString &text);

} // namespace Log
