// The desktop's word on the lock, through a screen saver service on a session
// bus of the test's own.
#include "platform/linux/DBusScreenLockWatch.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

namespace {

// What a desktop's screen saver service answers and announces.
class ScreenSaver : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    bool active = true;

public slots:
    bool GetActive() const { return active; }

public:
    void announce(bool value)
    {
        active = value;
        QDBusMessage signal = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/ScreenSaver"),
            QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("ActiveChanged"));
        signal << value;
        QDBusConnection::sessionBus().send(signal);
    }
};

} // namespace

class tst_ScreenLockWatch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_bus.start(QStringLiteral("dbus-daemon"),
                    { "--session", "--nofork", "--print-address=1" });
        QVERIFY(m_bus.waitForStarted());
        QTRY_VERIFY(m_bus.canReadLine());
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
        QVERIFY(QDBusConnection::sessionBus().isConnected());
    }

    void cleanupTestCase()
    {
        m_bus.kill();
        m_bus.waitForFinished();
    }

    void followsTheScreenSaver()
    {
        ScreenSaver saver;
        QDBusConnection bus = QDBusConnection::sessionBus();
        QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/ScreenSaver"), &saver,
                                   QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.ScreenSaver")));

        // Already active at the start: locked from the first moment.
        DBusScreenLockWatch watch;
        QVERIFY(watch.locked());
        QSignalSpy changes(&watch, &DBusScreenLockWatch::lockedChanged);
        saver.announce(false);
        QVERIFY(changes.wait());
        QVERIFY(!watch.locked());
        saver.announce(true);
        QVERIFY(changes.wait());
        QVERIFY(watch.locked());
        QCOMPARE(changes.count(), 2);
    }

private:
    QProcess m_bus;
};

QTEST_GUILESS_MAIN(tst_ScreenLockWatch)
#include "tst_screenlockwatch.moc"
