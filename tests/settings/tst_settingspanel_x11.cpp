// The settings panel of the Linux look in the program's own windows on the
// real X server, with a plain client below it that holds the focus: F6 opens
// it, its clicks stay in it, a switch changes the store and what shows, the
// hotkey editor moves a global key, and the display list follows a monitor
// coming and going.
#include "AssembledApp.h"
#include "ProbeClient.h"
#include "TestStore.h"
#include "XTestKeyboard.h"
#include "XTestSession.h"
#include "app/AppController.h"
#include "display/DisplayManager.h"
#include "hotkeys/HotkeyManager.h"
#include "settings/SettingsManager.h"

#include <QProcess>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QtQuickTest/quicktest.h>

#include <memory>
#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Qt::StringLiterals;

namespace {

const QRect leftMonitor(0, 0, 1920, 1080);
const QRect rightMonitor(1920, 0, 1920, 1080);

void run(const QString &program, const QStringList &arguments)
{
    QProcess::execute(program, arguments);
}

} // namespace

class TestSettingsPanelX11 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void f6OpensThePanelAndItKeepsItsClicks();
    void switchTurnsADisplayOffInStoreAndOnScreen();
    void editorMovesTheGlobalKey();
    void displayRowsFollowAMonitorUnplug();

private:
    QQuickItem *item(const QString &objectName) const { return m_app->hudItem(objectName); }
    // Clicks the middle of a HUD element through the X server.
    void clickItem(const QString &objectName);
    bool rightOverlayShown();

    TestStore m_store;
    XTestSession m_user;
    XTestKeyboard m_keyboard;
    ProbeClient m_client;
    std::unique_ptr<AssembledApp> m_app;
};

void TestSettingsPanelX11::initTestCase()
{
    QVERIFY(m_user.isValid());
    QVERIFY(m_keyboard.isValid());
    m_store.write({ { u"general/firstRunDone"_s, true }, { u"general/uiScale"_s, 1.0 } });
    QVERIFY(m_client.start(leftMonitor));
    QTRY_COMPARE(m_user.inputFocus(), m_client.window());
    m_app = std::make_unique<AssembledApp>(true);
    QVERIFY(m_app->isValid());
    QVERIFY(m_app->hotkeys());
    QVERIFY(QTest::qWaitForWindowExposed(m_app->hud()));
    QTRY_VERIFY(rightOverlayShown());
}

void TestSettingsPanelX11::cleanupTestCase()
{
    m_app.reset();
    // A failed unplug test must not leave the next test one monitor short.
    run(u"xrandr"_s, { u"--setmonitor"_s, u"RIGHT"_s, u"1920/508x1080/286+1920+0"_s, u"none"_s });
}

void TestSettingsPanelX11::clickItem(const QString &objectName)
{
    // A list that changed lays its rows out again at the next polish.
    QVERIFY(QQuickTest::qWaitForPolish(m_app->hud()));
    QQuickItem *target = item(objectName);
    QVERIFY2(target, qPrintable(objectName));
    m_user.click(target->mapToGlobal(QPointF(target->width() / 2, target->height() / 2)).toPoint());
}

bool TestSettingsPanelX11::rightOverlayShown()
{
    const QList<uint32_t> windows = m_user.mappedWindowsOf(QCoreApplication::applicationPid());
    return std::any_of(windows.cbegin(), windows.cend(),
                       [&](uint32_t window) { return m_user.geometry(window) == rightMonitor; });
}

void TestSettingsPanelX11::f6OpensThePanelAndItKeepsItsClicks()
{
    m_keyboard.tap({ XKB_KEY_F6 });
    QTRY_VERIFY(m_app->controller().settingsVisible());
    QQuickItem *panel = item(u"settingsWindowLinux"_s);
    QVERIFY(panel);
    QTRY_VERIFY(panel->isVisible());
    QCOMPARE(panel->x(), qRound((m_app->hud()->width() - panel->width()) / 2));
    QTRY_VERIFY(item(u"LinuxGeneralTab.qml"_s));

    // Over the panel, on its header and on the space between its groups,
    // neither a click nor a wheel turn reaches the client below.
    const QPoint topLeft = panel->mapToGlobal(QPointF(0, 0)).toPoint();
    const int pressesBefore = m_client.pressCount();
    m_user.click(topLeft + QPoint(int(panel->width() / 2), 20));
    m_user.click(topLeft + QPoint(8, int(panel->height()) - 8));
    m_user.click(topLeft + QPoint(8, int(panel->height()) - 8), 5);
    // Nothing can signal that a press did not arrive: give the client time.
    QTest::qWait(300);
    QCOMPARE(m_client.pressCount(), pressesBefore);
    QVERIFY(m_app->controller().settingsVisible());
    QCOMPARE(m_user.inputFocus(), m_client.window());
}

void TestSettingsPanelX11::switchTurnsADisplayOffInStoreAndOnScreen()
{
    QVERIFY(m_app->controller().settingsVisible());
    clickItem(u"linuxTab-4"_s);
    QTRY_VERIFY(item(u"displaySwitch-1"_s));
    const QString rightId = m_app->displays().displays().at(1).toMap().value(u"id"_s).toString();

    clickItem(u"displaySwitch-1"_s);
    QTRY_VERIFY(!m_app->displays().isDisplayEnabled(rightId));
    QTRY_VERIFY(!rightOverlayShown());
    QVERIFY(!m_store.value(u"displays/enabledIds"_s).toStringList().contains(rightId));

    clickItem(u"displaySwitch-1"_s);
    QTRY_VERIFY(m_app->displays().isDisplayEnabled(rightId));
    QTRY_VERIFY(rightOverlayShown());
    QVERIFY(m_store.value(u"displays/enabledIds"_s).toStringList().contains(rightId));
}

void TestSettingsPanelX11::editorMovesTheGlobalKey()
{
    QVERIFY(m_app->controller().settingsVisible());
    QQuickItem *panel = item(u"settingsWindowLinux"_s);
    clickItem(u"linuxTab-3"_s);
    QTRY_VERIFY(item(u"edit-pen"_s));
    clickItem(u"edit-pen"_s);
    QTRY_COMPARE(panel->property("hotkeyCaptureAction").toString(), u"pen"_s);
    // The editor takes the keyboard from the client for the time it is open.
    QTRY_COMPARE(m_user.inputFocus(), uint32_t(m_app->hud()->winId()));
    m_keyboard.tap({ XKB_KEY_Control_L, XKB_KEY_Alt_L, XKB_KEY_p });
    QTRY_COMPARE(panel->property("hotkeyCaptureValue").toString(), u"Ctrl+Alt+P"_s);
    clickItem(u"hotkeyEditorSave"_s);
    QTRY_COMPARE(m_app->settings().hotkeyForAction(u"pen"_s), u"Ctrl+Alt+P"_s);

    // The red dot closes the panel, and the mouse passes through again where
    // it was.
    const QPoint panelMiddle =
        panel->mapToGlobal(QPointF(panel->width() / 2, panel->height() / 2)).toPoint();
    clickItem(u"linuxCloseDot"_s);
    QTRY_VERIFY(!m_app->controller().settingsVisible());
    const int pressesBefore = m_client.pressCount();
    m_user.moveTo(panelMiddle);
    QTRY_VERIFY(!m_user.takesInputAt(uint32_t(m_app->hud()->winId()), panelMiddle));
    m_user.click(panelMiddle);
    QTRY_COMPARE(m_client.pressCount(), pressesBefore + 1);

    // With the client focused again, the old combination reaches it and the
    // new one picks the pen. Keys arrive in order, so once the new one has
    // acted, a grab still left on the old one would have shown.
    run(u"xdotool"_s, { u"windowfocus"_s, u"--sync"_s, QString::number(m_client.window()) });
    QTRY_COMPARE(m_user.inputFocus(), m_client.window());
    QSignalSpy tools(m_app->hotkeys(), &HotkeyManager::toolRequested);
    m_keyboard.tap({ XKB_KEY_Alt_L, XKB_KEY_3 });
    m_keyboard.tap({ XKB_KEY_Control_L, XKB_KEY_Alt_L, XKB_KEY_p });
    QTRY_COMPARE(m_app->controller().currentTool(), u"pen"_s);
    QCOMPARE(tools.count(), 1);
    QCOMPARE(tools.first().first().toString(), u"pen"_s);
    m_app->controller().setTool(u"cursor"_s);
}

void TestSettingsPanelX11::displayRowsFollowAMonitorUnplug()
{
    // Nothing the documents say while the list changes under them is welcome.
    QTest::failOnWarning(QRegularExpression(u"qrc:/"_s));
    m_app->controller().showSettingsPage(u"displays"_s);
    QTRY_VERIFY(item(u"displayRow-1"_s));

    run(u"xrandr"_s, { u"--delmonitor"_s, u"RIGHT"_s });
    QTRY_VERIFY_WITH_TIMEOUT(!item(u"displayRow-1"_s), 10000);
    QVERIFY(item(u"displayRow-0"_s));

    run(u"xrandr"_s, { u"--setmonitor"_s, u"RIGHT"_s, u"1920/508x1080/286+1920+0"_s, u"none"_s });
    QTRY_VERIFY_WITH_TIMEOUT(item(u"displayRow-1"_s), 10000);
    m_app->controller().hideSettings();
}

QTEST_MAIN(TestSettingsPanelX11)
#include "tst_settingspanel_x11.moc"
