#include "platform/linux/DBusFolderRevealer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QUrl>

Q_LOGGING_CATEGORY(lcReveal, "glimmora.platform")

std::unique_ptr<FolderRevealer> FolderRevealer::create()
{
    return std::make_unique<DBusFolderRevealer>();
}

void DBusFolderRevealer::reveal(const QString &filePath)
{
    const QFileInfo info(filePath);
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList { QUrl::fromLocalFile(info.absoluteFilePath()).toString() } << QString();
    const QDBusMessage reply = QDBusConnection::sessionBus().call(call, QDBus::Block, 3000);
    if (reply.type() != QDBusMessage::ErrorMessage)
        return;
    qCInfo(lcReveal).noquote() << "DBusFolderRevealer: no file manager on the bus ("
                               << reply.errorName() << "), opening the folder";
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(info.absolutePath())))
        qCWarning(lcReveal).noquote()
            << "DBusFolderRevealer: could not open" << info.absolutePath();
}
