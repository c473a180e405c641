#include "AssembledApp.h"
#include "XTestSession.h"
#include "app/AppController.h"
#include "app/TrayHeaderWidget.h"
#include "app/TrayManager.h"
#include "app/TrayRow.h"
#include "settings/SettingsManager.h"

#include <QApplication>
#include <QMenu>
#include <QProcess>
#include <QQuickItem>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSystemTrayIcon>
#include <QTest>

// The program's windows and managers built in this process: its tray icon in
// a real tray host, and its texts while the language changes.
class TestTrayX11 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_session.isValid());
        // An XEmbed tray along the bottom of the control display, where no
        // control of the overlay lies.
        m_trayer.start(QStringLiteral("trayer"),
                       { QStringLiteral("--edge"), QStringLiteral("bottom"),
                         QStringLiteral("--align"), QStringLiteral("right"),
                         QStringLiteral("--widthtype"), QStringLiteral("request"),
                         QStringLiteral("--height"), QStringLiteral("32"),
                         QStringLiteral("--monitor"), QStringLiteral("0") });
        QVERIFY2(m_trayer.waitForStarted(10000), "trayer is not installed");
        QTRY_VERIFY_WITH_TIMEOUT(!m_session.mappedWindowsOf(m_trayer.processId()).isEmpty(), 15000);

        m_app = std::make_unique<AssembledApp>();
        QVERIFY(m_app->isValid());
        m_app->settings().setLanguage(QStringLiteral("en"));
        m_app->settings().setFirstRunDone(true);
        m_tray = std::make_unique<TrayManager>();
        m_tray->initialise(&m_app->controller(), &m_app->settings(), &m_app->displays());
    }

    void cleanupTestCase()
    {
        m_tray.reset();
        m_app.reset();
        m_trayer.kill();
        m_trayer.waitForFinished(5000);
    }

    void trayMenuDrivesTheProgram()
    {
        SettingsManager &settings = m_app->settings();
        AppController &controller = m_app->controller();
        controller.setTool(QStringLiteral("cursor"));
        settings.setConfirmQuit(true);

        // Embedded: the window under the icon is ours, inside trayer's panel.
        const auto pidOf = [&](uint32_t window) {
            return qint64(m_session.cardinalProperty(window, "_NET_WM_PID"));
        };
        const auto embedded = [&] {
            const QList<uint32_t> chain =
                m_session.windowsAt(m_tray->trayIcon()->geometry().center());
            return chain.size() >= 2 && pidOf(chain.first()) == m_trayer.processId()
                && pidOf(chain.last()) == QCoreApplication::applicationPid();
        };
        QTRY_VERIFY_WITH_TIMEOUT(embedded(), 15000);
        const QPoint icon = m_tray->trayIcon()->geometry().center();

        // A right click opens the menu as a window of its own on the screen.
        QMenu *menu = m_tray->menu();
        m_session.click(icon, 3);
        QTRY_VERIFY_WITH_TIMEOUT(menu->isVisible(), 10000);
        QTRY_VERIFY(m_session.mappedWindowsOf(QCoreApplication::applicationPid())
                        .contains(uint32_t(menu->winId())));
        auto *header = menu->findChild<TrayHeaderWidget *>();
        QVERIFY(header);
        QCOMPARE(header->subtitle(), QStringLiteral("Overlay on · 2 displays"));

        // Each click acts at once and leaves the menu open.
        const QList<TrayRow *> rows = menu->findChildren<TrayRow *>();
        const auto row = [&](const char *label) {
            const auto it = std::find_if(rows.cbegin(), rows.cend(), [&](TrayRow *r) {
                return r->label() == QString::fromUtf8(label);
            });
            return it == rows.cend() ? nullptr : *it;
        };
        const auto clickRow = [&](const char *label) {
            m_session.click(row(label)->mapToGlobal(row(label)->rect().center()));
        };
        const auto checked = [&](const char *label) {
            return row(label)->isChecked();
        };
        for (const char *label : { "Spotlight", "Drawing Mode", "Click Effects",
                                   "Keystroke Display", "Always show controls", "Pause overlay",
                                   "Settings…", "Choose displays…", "Quit Glimmora" })
            QVERIFY2(row(label), label);

        const bool ripple = settings.clickRippleEnabled();
        clickRow("Click Effects");
        QTRY_COMPARE(settings.clickRippleEnabled(), !ripple);
        QCOMPARE(checked("Click Effects"), !ripple);
        QVERIFY(menu->isVisible());

        clickRow("Spotlight");
        QTRY_COMPARE(controller.currentTool(), QStringLiteral("spotlight"));
        QVERIFY(checked("Spotlight"));
        QVERIFY(!checked("Drawing Mode"));

        clickRow("Pause overlay");
        QTRY_VERIFY(!controller.overlayEnabled());
        QCOMPARE(header->subtitle(), QStringLiteral("Overlay paused"));
        // Paused, both mode switches show off and still change the tool.
        QVERIFY(!checked("Spotlight"));
        clickRow("Drawing Mode");
        QTRY_COMPARE(controller.currentTool(), QStringLiteral("pen"));
        QVERIFY(!checked("Drawing Mode"));

        clickRow("Pause overlay");
        QTRY_VERIFY(controller.overlayEnabled());
        QVERIFY(checked("Drawing Mode"));

        QSignalSpy quitAsked(&controller, &AppController::quitRequested);
        clickRow("Quit Glimmora");
        QTRY_COMPARE(quitAsked.count(), 1);
        clickRow("Settings…");
        QTRY_VERIFY(controller.settingsVisible());
        QVERIFY(menu->isVisible());
        controller.hideSettings();
        menu->hide();
    }

    // The mode badge and the toolbar change language at once, without a
    // restart, and a code without a translation leaves English, quietly.
    void languageSwitchesWhileRunning()
    {
        SettingsManager &settings = m_app->settings();
        m_app->controller().setTool(QStringLiteral("cursor"));
        QQuickItem *badge = m_app->hudItem(QStringLiteral("badgeLabel"));
        QQuickItem *undo = m_app->hudItem(QStringLiteral("undoButton"));
        QVERIFY(badge && undo);
        const auto texts = [&] {
            return QStringList { badge->property("text").toString(),
                                 undo->property("toolTip").toString() };
        };
        const QStringList english { QStringLiteral("Glimmora · Cursor"),
                                    QStringLiteral("Undo  Ctrl+Z") };
        QCOMPARE(texts(), english);

        settings.setLanguage(QStringLiteral("de"));
        QCOMPARE(texts(),
                 QStringList({ QStringLiteral("Glimmora · Zeiger"),
                               QStringLiteral("Rückgängig  Ctrl+Z") }));
        settings.setLanguage(QStringLiteral("en"));
        QCOMPARE(texts(), english);

        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
        for (const QString &code : { QStringLiteral("ja"), QStringLiteral("nl"), QString() }) {
            settings.setLanguage(code);
            QCOMPARE(settings.language(), code);
            QCOMPARE(texts() == english, code != QLatin1String("ja"));
        }
    }

private:
    XTestSession m_session;
    QProcess m_trayer;
    std::unique_ptr<AssembledApp> m_app;
    std::unique_ptr<TrayManager> m_tray;
};

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    TestTrayX11 test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_tray_x11.moc"
