#pragma once

#include <QDateTime>
#include <QString>
#include <QtMessageHandler>

namespace LogFile {

// Absolute path of glimmora.log in the application data directory (the
// temporary directory when there is none); creates the directory.
QString path();

// One line of the log: local time with milliseconds, the level word in
// brackets, the text, and the source location when the context has one.
QString formatLine(QtMsgType type, const QMessageLogContext &context, const QString &message,
                   const QDateTime &time);

// Appends every message to the log file, opening and closing it each time so
// that a crash loses nothing. Safe to call from any thread.
void messageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message);

} // namespace LogFile
