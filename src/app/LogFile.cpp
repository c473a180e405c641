#include "app/LogFile.h"

#include <QDir>
#include <QFile>
#include <QMutex>
#include <QStandardPaths>

namespace LogFile {

QString path()
{
    QString dir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (dir.isEmpty())
        dir = QDir::tempPath() + QStringLiteral("/Glimmora");
    QDir().mkpath(dir);
    return dir + QStringLiteral("/glimmora.log");
}

namespace {
QLatin1String levelWord(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return QLatin1String("debug");
    case QtInfoMsg:
        return QLatin1String("info");
    case QtWarningMsg:
        return QLatin1String("warning");
    case QtCriticalMsg:
        return QLatin1String("critical");
    case QtFatalMsg:
        return QLatin1String("fatal");
    }
    return QLatin1String("debug");
}
} // namespace

QString formatLine(QtMsgType type, const QMessageLogContext &context, const QString &message,
                   const QDateTime &time)
{
    QString line = time.toString(Qt::ISODateWithMs) + QStringLiteral(" [") + levelWord(type)
        + QStringLiteral("] ") + message;
    if (context.file && *context.file) {
        line += QStringLiteral(" (") + QString::fromUtf8(context.file) + QLatin1Char(':')
            + QString::number(context.line) + QLatin1Char(')');
    }
    return line + QLatin1Char('\n');
}

void messageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    static QMutex mutex;
    const QMutexLocker locker(&mutex);
    QFile file(path());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return;
    file.write(formatLine(type, context, message, QDateTime::currentDateTime()).toUtf8());
}

} // namespace LogFile
