#include "display/DisplayIdentity.h"
#include "display/DisplayManager.h"

#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

// Runs against the test display's two RandR monitors, LEFT at x 0 and RIGHT at
// x 1920, and unplugs RIGHT live with xrandr.
class TestDisplayManagerX11 : public QObject
{
    Q_OBJECT

private:
    static QScreen *screenNamed(const QString &name)
    {
        for (QScreen *screen : QGuiApplication::screens()) {
            if (screen->name() == name)
                return screen;
        }
        return nullptr;
    }
    static QVariantMap rowWithId(const DisplayManager &manager, const QString &id)
    {
        for (const QVariant &row : manager.displays()) {
            if (row.toMap().value(QStringLiteral("id")).toString() == id)
                return row.toMap();
        }
        return {};
    }
    // Unplugs or plugs RIGHT and waits until the manager has seen it.
    static void setRightPlugged(const DisplayManager &manager, bool plugged)
    {
        const QStringList args = plugged
            ? QStringList { "--setmonitor", "RIGHT", "1920/508x1080/286+1920+0", "none" }
            : QStringList { "--delmonitor", "RIGHT" };
        QCOMPARE(QProcess::execute(QStringLiteral("xrandr"), args), 0);
        QTRY_COMPARE_WITH_TIMEOUT(manager.displays().size(), plugged ? 2 : 1, 5000);
    }

    QString leftId;
    QString rightId;

private slots:
    void initTestCase()
    {
        QCOMPARE(QGuiApplication::screens().size(), 2);
        QVERIFY(screenNamed(QStringLiteral("LEFT")) && screenNamed(QStringLiteral("RIGHT")));
        leftId = DisplayIdentity::displayId(screenNamed(QStringLiteral("LEFT")));
        rightId = DisplayIdentity::displayId(screenNamed(QStringLiteral("RIGHT")));
    }

    void init() { QSettings().clear(); }

    void cleanup()
    {
        // Whatever a test did, the next one and the next program see both monitors.
        if (!screenNamed(QStringLiteral("RIGHT"))) {
            QSignalSpy added(qApp, &QGuiApplication::screenAdded);
            QProcess::execute(QStringLiteral("xrandr"),
                              { "--setmonitor", "RIGHT", "1920/508x1080/286+1920+0", "none" });
            added.wait(5000);
        }
    }

    void firstStartEnablesEveryDisplay()
    {
        DisplayManager manager(nullptr);
        QCOMPARE(manager.connectedDisplayIds(), (QStringList { leftId, rightId }));
        // No EDID on these monitors: the ids and names come from the output names.
        QCOMPARE(rightId, QStringLiteral("nm_RIGHT_1920x0"));
        const QVariantMap right = rowWithId(manager, rightId);
        QCOMPARE(right.value(QStringLiteral("displayName")).toString(), QStringLiteral("RIGHT"));
        QVERIFY(right.value(QStringLiteral("enabled")).toBool());
        QCOMPARE(right.value(QStringLiteral("resolution")).toString(),
                 QStringLiteral("1920 × 1080"));
        QCOMPARE(right.value(QStringLiteral("scalePercent")).toString(), QStringLiteral("100%"));
        QCOMPARE(right.value(QStringLiteral("geometry")).toMap().value(QStringLiteral("x")).toInt(),
                 1920);

        // The primary display is the control display, and only it.
        const QString primary = manager.primaryDisplayId();
        QCOMPARE(manager.controlDisplayId(), primary);
        for (const QVariant &row : manager.displays()) {
            const QVariantMap map = row.toMap();
            const bool isPrimary = map.value(QStringLiteral("id")).toString() == primary;
            QCOMPARE(map.value(QStringLiteral("isPrimary")).toBool(), isPrimary);
            QCOMPARE(map.value(QStringLiteral("isControl")).toBool(), isPrimary);
        }
        QCOMPARE(manager.displayIdForScreen(QStringLiteral("RIGHT")), rightId);
    }

    void switchedOffDisplayStaysOffAcrossRestartsAndReplugs()
    {
        {
            DisplayManager manager(nullptr);
            manager.setControlDisplay(leftId);
            manager.setDisplayEnabled(rightId, false);
            // The last enabled display cannot go.
            manager.setDisplayEnabled(leftId, false);
            QVERIFY(manager.isDisplayEnabled(leftId));
        }
        DisplayManager restarted(nullptr);
        QCOMPARE(restarted.controlDisplayId(), leftId);
        QCOMPARE(rowWithId(restarted, rightId).value(QStringLiteral("enabled")).toBool(), false);
        setRightPlugged(restarted, false);
        setRightPlugged(restarted, true);
        QCOMPARE(rowWithId(restarted, rightId).value(QStringLiteral("enabled")).toBool(), false);
    }

    void unpluggedControlFallsBackAndReturnsNotControl()
    {
        DisplayManager manager(nullptr);
        manager.setControlDisplay(rightId);
        QCOMPARE(manager.controlDisplayId(), rightId);
        QSignalSpy controlSpy(&manager, &DisplayManager::controlDisplayIdChanged);
        setRightPlugged(manager, false);
        QCOMPARE(manager.controlDisplayId(), leftId);
        QVERIFY(controlSpy.count() >= 1);
        // The unplugged display keeps its place among the enabled ones.
        QVERIFY(manager.isDisplayEnabled(rightId));
        QVERIFY(!manager.canDisableDisplay(leftId));

        setRightPlugged(manager, true);
        const QVariantMap back = rowWithId(manager, rightId);
        QCOMPARE(back.value(QStringLiteral("enabled")).toBool(), true);
        QCOMPARE(back.value(QStringLiteral("isControl")).toBool(), false);
        QCOMPARE(manager.controlDisplayId(), leftId);
    }
};

int main(int argc, char *argv[])
{
    // Never the user's own settings: a private configuration directory.
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    QGuiApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("GlimmoraDisplayTest"));
    TestDisplayManagerX11 test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_displaymanager_x11.moc"
