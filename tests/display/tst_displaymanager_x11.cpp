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
    static bool xrandr(const QStringList &args)
    {
        return QProcess::execute(QStringLiteral("xrandr"), args) == 0;
    }
    static bool plugRight()
    {
        return xrandr({ QStringLiteral("--setmonitor"), QStringLiteral("RIGHT"),
                        QStringLiteral("1920/508x1080/286+1920+0"), QStringLiteral("none") });
    }
    static QScreen *screenNamed(const QString &name)
    {
        const QList<QScreen *> screens = QGuiApplication::screens();
        for (QScreen *screen : screens) {
            if (screen->name() == name)
                return screen;
        }
        return nullptr;
    }
    static QVariantMap rowWithId(const DisplayManager &manager, const QString &id)
    {
        const QVariantList rows = manager.displays();
        for (const QVariant &row : rows) {
            if (row.toMap().value(QStringLiteral("id")).toString() == id)
                return row.toMap();
        }
        return {};
    }

    QString leftId;
    QString rightId;

private slots:
    void initTestCase()
    {
        QCOMPARE(QGuiApplication::screens().size(), 2);
        QVERIFY(screenNamed(QStringLiteral("LEFT")));
        QVERIFY(screenNamed(QStringLiteral("RIGHT")));
        leftId = DisplayIdentity::displayId(screenNamed(QStringLiteral("LEFT")));
        rightId = DisplayIdentity::displayId(screenNamed(QStringLiteral("RIGHT")));
    }

    void cleanup()
    {
        // Whatever a test did, the next one and the next program see both monitors.
        if (!screenNamed(QStringLiteral("RIGHT"))) {
            QSignalSpy added(qApp, &QGuiApplication::screenAdded);
            plugRight();
            added.wait(5000);
        }
    }

    void firstStartEnablesEveryDisplay()
    {
        QSettings().clear();
        DisplayManager manager(nullptr);
        const QVariantList rows = manager.displays();
        QCOMPARE(rows.size(), 2);
        QCOMPARE(manager.connectedDisplayIds(), (QStringList { leftId, rightId }));
        QVERIFY(leftId != rightId);
        // No EDID on these monitors: the ids and names come from the output names.
        QCOMPARE(rightId, QStringLiteral("nm_RIGHT_1920x0"));

        const QVariantMap right = rowWithId(manager, rightId);
        QCOMPARE(right.value(QStringLiteral("displayName")).toString(), QStringLiteral("RIGHT"));
        QCOMPARE(right.value(QStringLiteral("enabled")).toBool(), true);
        QCOMPARE(right.value(QStringLiteral("canDisable")).toBool(), true);
        QCOMPARE(right.value(QStringLiteral("resolution")).toString(),
                 QStringLiteral("1920 × 1080"));
        QCOMPARE(right.value(QStringLiteral("scalePercent")).toString(), QStringLiteral("100%"));
        const QVariantMap geometry = right.value(QStringLiteral("geometry")).toMap();
        QCOMPARE(geometry.value(QStringLiteral("x")).toInt(), 1920);
        QCOMPARE(geometry.value(QStringLiteral("width")).toInt(), 1920);
        QCOMPARE(right.keys().size(), 10);

        // The primary display is the control display, and only it.
        const QString primary = manager.primaryDisplayId();
        QCOMPARE(manager.controlDisplayId(), primary);
        for (const QVariant &row : rows) {
            const QVariantMap map = row.toMap();
            const bool isPrimary = map.value(QStringLiteral("id")).toString() == primary;
            QCOMPARE(map.value(QStringLiteral("isPrimary")).toBool(), isPrimary);
            QCOMPARE(map.value(QStringLiteral("isControl")).toBool(), isPrimary);
        }
        QCOMPARE(manager.displayIdForScreen(QStringLiteral("RIGHT")), rightId);
        QVERIFY(manager.displayIdForScreen(QString()).isEmpty());
    }

    void switchedOffDisplayStaysOffAcrossRestarts()
    {
        QSettings().clear();
        {
            DisplayManager manager(nullptr);
            manager.setControlDisplay(leftId);
            manager.setDisplayEnabled(rightId, false);
            QVERIFY(!manager.isDisplayEnabled(rightId));
            // The last enabled display cannot go.
            QVERIFY(!manager.canDisableDisplay(leftId));
            manager.setDisplayEnabled(leftId, false);
            QVERIFY(manager.isDisplayEnabled(leftId));
        }
        DisplayManager restarted(nullptr);
        QCOMPARE(restarted.controlDisplayId(), leftId);
        QCOMPARE(rowWithId(restarted, rightId).value(QStringLiteral("enabled")).toBool(), false);
    }

    void unpluggedControlFallsBackAndReturnsNotControl()
    {
        QSettings().clear();
        DisplayManager manager(nullptr);
        manager.setControlDisplay(rightId);
        QCOMPARE(manager.controlDisplayId(), rightId);

        QSignalSpy controlSpy(&manager, &DisplayManager::controlDisplayIdChanged);
        QSignalSpy displaysSpy(&manager, &DisplayManager::displaysChanged);
        QVERIFY(xrandr({ QStringLiteral("--delmonitor"), QStringLiteral("RIGHT") }));
        QTRY_COMPARE_WITH_TIMEOUT(manager.displays().size(), 1, 5000);
        QVERIFY(displaysSpy.count() >= 1);
        QCOMPARE(manager.controlDisplayId(), leftId);
        QVERIFY(controlSpy.count() >= 1);
        // The unplugged display keeps its place among the enabled ones.
        QVERIFY(manager.isDisplayEnabled(rightId));
        QVERIFY(rowWithId(manager, rightId).isEmpty());
        QVERIFY(!manager.canDisableDisplay(leftId));

        QVERIFY(plugRight());
        QTRY_COMPARE_WITH_TIMEOUT(manager.displays().size(), 2, 5000);
        const QVariantMap back = rowWithId(manager, rightId);
        QCOMPARE(back.value(QStringLiteral("enabled")).toBool(), true);
        QCOMPARE(back.value(QStringLiteral("isControl")).toBool(), false);
        QCOMPARE(manager.controlDisplayId(), leftId);
    }

    void disabledDisplayUnpluggedAndBackStaysOff()
    {
        QSettings().clear();
        DisplayManager manager(nullptr);
        manager.setControlDisplay(leftId);
        manager.setDisplayEnabled(rightId, false);
        QVERIFY(xrandr({ QStringLiteral("--delmonitor"), QStringLiteral("RIGHT") }));
        QTRY_COMPARE_WITH_TIMEOUT(manager.displays().size(), 1, 5000);
        QVERIFY(plugRight());
        QTRY_COMPARE_WITH_TIMEOUT(manager.displays().size(), 2, 5000);
        QCOMPARE(rowWithId(manager, rightId).value(QStringLiteral("enabled")).toBool(), false);
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
