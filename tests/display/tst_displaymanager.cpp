#include "display/DisplayIdentity.h"
#include "display/DisplayManager.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

// The selection rules on the one offscreen screen, with stored lists that
// name displays which are not connected.
class TestDisplayManager : public QObject
{
    Q_OBJECT

private:
    QString screenId;

    static QStringList stored(const char *key)
    {
        return QSettings().value(QStringLiteral("displays/") + QLatin1String(key)).toStringList();
    }

private slots:
    void initTestCase()
    {
        QCOMPARE(QGuiApplication::screens().size(), 1);
        screenId = DisplayIdentity::displayId(QGuiApplication::primaryScreen());
        QVERIFY(!screenId.isEmpty());
    }

    void init() { QSettings().clear(); }

    void storedSelection_data()
    {
        // "*" stands for the offscreen screen's id.
        QTest::addColumn<QStringList>("storedKnown");
        QTest::addColumn<QStringList>("storedEnabled");
        QTest::addColumn<QString>("storedControl");
        QTest::addColumn<QStringList>("enabledAfter");

        const QString absent = QStringLiteral("sn_ABSENT");
        const QString here = QStringLiteral("*");
        QTest::newRow("first start enables the screen and makes it control")
            << QStringList() << QStringList() << QString() << QStringList { here };
        QTest::newRow("new screen beside an absent control display takes the control")
            << QStringList { absent } << QStringList { absent } << absent
            << QStringList { absent, here };
        QTest::newRow("known switched-off screen is enabled when nothing else is connected")
            << QStringList { absent, here } << QStringList { absent } << absent
            << QStringList { absent, here };
        QTest::newRow("empty enabled list falls back to the primary")
            << QStringList { here } << QStringList() << QString() << QStringList { here };
    }

    void storedSelection()
    {
        QFETCH(QStringList, storedKnown);
        QFETCH(QStringList, storedEnabled);
        QFETCH(QString, storedControl);
        QFETCH(QStringList, enabledAfter);

        storedKnown.replaceInStrings(QStringLiteral("*"), screenId);
        enabledAfter.replaceInStrings(QStringLiteral("*"), screenId);
        QSettings store;
        if (!storedKnown.isEmpty())
            store.setValue(QStringLiteral("displays/knownIds"), storedKnown);
        if (!storedEnabled.isEmpty())
            store.setValue(QStringLiteral("displays/enabledIds"), storedEnabled);
        if (!storedControl.isEmpty())
            store.setValue(QStringLiteral("displays/controlDisplayId"), storedControl);

        DisplayManager manager(nullptr);
        QCOMPARE(manager.controlDisplayId(), screenId);
        QVERIFY(manager.isDisplayEnabled(screenId));
        QCOMPARE(stored("enabledIds"), enabledAfter);
        QCOMPARE(stored("controlDisplayId"), QStringList { screenId });
        QVERIFY(stored("knownIds").contains(screenId));
    }

    void absentEnabledIdsDoNotAllowDisablingTheLastConnected()
    {
        QSettings().setValue(QStringLiteral("displays/enabledIds"),
                             QStringList { QStringLiteral("sn_ABSENT") });
        DisplayManager manager(nullptr);
        QVERIFY(manager.isDisplayEnabled(QStringLiteral("sn_ABSENT")));
        QVERIFY(!manager.canDisableDisplay(screenId));
        QSignalSpy spy(&manager, &DisplayManager::displaysChanged);
        manager.setDisplayEnabled(screenId, false);
        QVERIFY(manager.isDisplayEnabled(screenId));
        QCOMPARE(spy.count(), 0);
    }

    void refusedControlChoicesAreSilent_data()
    {
        QTest::addColumn<QString>("choice");
        QTest::newRow("empty id") << QString();
        QTest::newRow("not enabled") << QStringLiteral("sn_OTHER");
        QTest::newRow("enabled but not connected") << QStringLiteral("sn_ABSENT");
        QTest::newRow("already the control display") << QStringLiteral("*");
    }

    void refusedControlChoicesAreSilent()
    {
        QFETCH(QString, choice);
        if (choice == QLatin1String("*"))
            choice = screenId;
        QSettings().setValue(QStringLiteral("displays/enabledIds"),
                             QStringList { QStringLiteral("sn_ABSENT") });
        DisplayManager manager(nullptr);
        QSignalSpy control(&manager, &DisplayManager::controlDisplayIdChanged);
        QSignalSpy displays(&manager, &DisplayManager::displaysChanged);
        manager.setControlDisplay(choice);
        QCOMPARE(manager.controlDisplayId(), screenId);
        QCOMPARE(control.count(), 0);
        QCOMPARE(displays.count(), 0);
    }

    void enablingAnAbsentIdKeepsTheControl()
    {
        DisplayManager manager(nullptr);
        manager.setDisplayEnabled(QStringLiteral("sn_LATER"), true);
        QVERIFY(manager.isDisplayEnabled(QStringLiteral("sn_LATER")));
        QCOMPARE(manager.controlDisplayId(), screenId);
        QCOMPARE(manager.displays().size(), 1);
        // Now two enabled ids, but only one of them connected.
        QVERIFY(!manager.canDisableDisplay(screenId));
    }

    void resetRestoresTheConnectedScreenAndAlwaysSignals()
    {
        QSettings().setValue(QStringLiteral("displays/enabledIds"),
                             QStringList { QStringLiteral("sn_ABSENT") });
        DisplayManager manager(nullptr);
        QSignalSpy control(&manager, &DisplayManager::controlDisplayIdChanged);
        manager.resetDisplayDefaults();
        QCOMPARE(control.count(), 1);
        QVERIFY(!manager.isDisplayEnabled(QStringLiteral("sn_ABSENT")));
        QCOMPARE(manager.controlDisplayId(), screenId);
        // Known ids are never forgotten.
        QVERIFY(stored("knownIds").contains(screenId));
    }
};

int main(int argc, char *argv[])
{
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    QGuiApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("GlimmoraDisplayTest"));
    TestDisplayManager test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_displaymanager.moc"
