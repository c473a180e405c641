#include "platform/linux/DBusScreenLockWatch.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QLoggingCategory>
#include <QStringList>

Q_LOGGING_CATEGORY(lcLockWatch, "glimmora.platform")

namespace {

struct ScreenSaver
{
    const char *service;
    const char *path;
};

// KDE and most other desktops answer under the freedesktop name, at either
// path; GNOME under its own.
constexpr ScreenSaver screenSavers[] = {
    { "org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver" },
    { "org.freedesktop.ScreenSaver", "/ScreenSaver" },
    { "org.gnome.ScreenSaver", "/org/gnome/ScreenSaver" },
};

const QString logindService = QStringLiteral("org.freedesktop.login1");
const QString sessionInterface = QStringLiteral("org.freedesktop.login1.Session");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
// Start-up asks the buses synchronously; a bus that does not answer this
// fast is treated as absent.
constexpr int startupCallMs = 1000;

} // namespace

DBusScreenLockWatch::DBusScreenLockWatch(QObject *parent)
    : QObject(parent)
{
    QStringList sources;
    for (const QString &source : { watchScreenSavers(), watchLogind() }) {
        if (!source.isEmpty())
            sources.append(source);
    }
    if (sources.isEmpty())
        qCInfo(lcLockWatch) << "DBusScreenLockWatch: no screen saver service and no logind"
                            << "session on the buses; a locker is recognised by its window alone";
    else
        qCInfo(lcLockWatch).noquote()
            << "DBusScreenLockWatch: following" << sources.join(QStringLiteral(" and "));
}

QString DBusScreenLockWatch::watchScreenSavers()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return {};
    QStringList present;
    for (const ScreenSaver &saver : screenSavers) {
        const QString service = QString::fromLatin1(saver.service);
        const QString path = QString::fromLatin1(saver.path);
        // Followed also when the service comes later: the bus delivers the
        // signal of whoever owns the name then.
        bus.connect(service, path, service, QStringLiteral("ActiveChanged"), this,
                    SLOT(onScreenSaverActiveChanged(bool)));
        if (!bus.interface() || !bus.interface()->isServiceRegistered(service))
            continue;
        const QDBusMessage reply = bus.call(
            QDBusMessage::createMethodCall(service, path, service, QStringLiteral("GetActive")),
            QDBus::Block, startupCallMs);
        if (reply.type() != QDBusMessage::ReplyMessage)
            continue;
        if (!present.contains(service))
            present.append(service);
        if (reply.arguments().value(0).toBool())
            setState(true, m_lockedHint);
    }
    return present.join(QStringLiteral(", "));
}

QString DBusScreenLockWatch::watchLogind()
{
    QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return {};
    QDBusMessage call = QDBusMessage::createMethodCall(
        logindService, QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("GetSessionByPID"));
    call << quint32(QCoreApplication::applicationPid());
    const QDBusMessage reply = bus.call(call, QDBus::Block, startupCallMs);
    if (reply.type() != QDBusMessage::ReplyMessage)
        return {};
    m_sessionPath = reply.arguments().value(0).value<QDBusObjectPath>().path();
    if (m_sessionPath.isEmpty())
        return {};
    bus.connect(logindService, m_sessionPath, propertiesInterface,
                QStringLiteral("PropertiesChanged"), this,
                SLOT(onSessionPropertiesChanged(QString, QVariantMap, QStringList)));
    readLockedHint();
    return QStringLiteral("logind's LockedHint");
}

void DBusScreenLockWatch::readLockedHint()
{
    QDBusMessage call = QDBusMessage::createMethodCall(logindService, m_sessionPath,
                                                       propertiesInterface, QStringLiteral("Get"));
    call << sessionInterface << QStringLiteral("LockedHint");
    const QDBusMessage reply = QDBusConnection::systemBus().call(call, QDBus::Block, startupCallMs);
    if (reply.type() == QDBusMessage::ReplyMessage)
        setState(m_screenSaverActive,
                 reply.arguments().value(0).value<QDBusVariant>().variant().toBool());
}

void DBusScreenLockWatch::onScreenSaverActiveChanged(bool active)
{
    setState(active, m_lockedHint);
}

void DBusScreenLockWatch::onSessionPropertiesChanged(const QString &interface,
                                                     const QVariantMap &changed,
                                                     const QStringList &invalidated)
{
    if (interface != sessionInterface)
        return;
    const QString hint = QStringLiteral("LockedHint");
    if (changed.contains(hint))
        setState(m_screenSaverActive, changed.value(hint).toBool());
    else if (invalidated.contains(hint))
        readLockedHint();
}

void DBusScreenLockWatch::setState(bool screenSaverActive, bool lockedHint)
{
    const bool was = locked();
    m_screenSaverActive = screenSaverActive;
    m_lockedHint = lockedHint;
    if (locked() == was)
        return;
    qCInfo(lcLockWatch) << "DBusScreenLockWatch: the desktop reports the session"
                        << (locked() ? "locked" : "unlocked");
    emit lockedChanged();
}
