// The platform layer of the overlay windows on the real X server, with a
// plain X client standing in for the presenter's application below them.
#include "ProbeClient.h"
#include "XTestSession.h"
#include "platform/OverlayWindowStyle.h"
#include "platform/PointerActivity.h"
#include "platform/PointerButtons.h"
#include "platform/WindowPassThrough.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickWindow>
#include <QTest>

#include <cstdlib>
#include <xcb/xcb.h>

namespace {

xcb_connection_t *qtConnection()
{
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

// The user's clicks come through another connection; the server must have
// read ours first, as it would have by the time a person clicks.
void syncQt()
{
    std::free(
        xcb_get_input_focus_reply(qtConnection(), xcb_get_input_focus(qtConnection()), nullptr));
}

// Counts the presses that reach an overlay window.
class PressCounter : public QObject
{
public:
    int presses = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonPress)
            ++presses;
        return QObject::eventFilter(watched, event);
    }
};

std::unique_ptr<QQuickWindow> makeOverlay(const QRect &geometry, OverlayWindowStyle &style)
{
    auto window = std::make_unique<QQuickWindow>();
    window->setColor(Qt::transparent);
    window->setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool);
    window->setGeometry(geometry);
    style.apply(window.get(), OverlayWindowStyle::Focus::Never);
    return window;
}

const QRect clientArea(0, 0, 1400, 1000);
const QRect smallOverlay(100, 100, 500, 400);
const QRect largeOverlay(100, 100, 900, 800);

} // namespace

class tst_X11PassThrough : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void clickGoesWhereTheStateSays_data();
    void clickGoesWhereTheStateSays();
    void writesOnlyOnChange_data();
    void writesOnlyOnChange();
    void overlayStyle_data();
    void overlayStyle();
    void pointerButtonsReadTheServer_data();
    void pointerButtonsReadTheServer();
    void pointerActivitySeesDeviceInputOnly();
    void captureExclusionLogsOnce();

private:
    XTestSession m_user;
    ProbeClient m_client;
    std::unique_ptr<OverlayWindowStyle> m_style = OverlayWindowStyle::create();
};

void tst_X11PassThrough::initTestCase()
{
    QVERIFY2(QGuiApplication::platformName() == QLatin1String("xcb"), "needs the X server");
    QVERIFY(m_user.isValid());
    QVERIFY(m_client.start(clientArea));
    QTRY_COMPARE(m_user.inputFocus(), m_client.window());
}

enum class Between { Nothing, Resize, HideShow, Recreate };

void tst_X11PassThrough::clickGoesWhereTheStateSays_data()
{
    QTest::addColumn<Between>("between");
    QTest::newRow("on a fresh window") << Between::Nothing;
    QTest::newRow("after each resize, also in the newly covered area") << Between::Resize;
    QTest::newRow("after hide and show") << Between::HideShow;
    QTest::newRow("after the native window is re-created") << Between::Recreate;
}

void tst_X11PassThrough::clickGoesWhereTheStateSays()
{
    QFETCH(Between, between);
    auto passThrough = WindowPassThrough::create();
    auto overlay = makeOverlay(smallOverlay, *m_style);
    PressCounter counter;
    overlay->installEventFilter(&counter);
    overlay->show();
    QVERIFY(QTest::qWaitForWindowExposed(overlay.get()));

    bool large = false;
    for (bool wanted : { true, false, true, false, true }) {
        passThrough->setPassThrough(overlay.get(), wanted);
        switch (between) {
        case Between::Nothing:
            break;
        case Between::Resize: {
            large = !large;
            const QRect geometry = large ? largeOverlay : smallOverlay;
            overlay->setGeometry(geometry);
            QTRY_COMPARE(m_user.geometry(static_cast<uint32_t>(overlay->winId())), geometry);
            break;
        }
        case Between::HideShow:
            overlay->hide();
            overlay->show();
            QVERIFY(QTest::qWaitForWindowExposed(overlay.get()));
            break;
        case Between::Recreate:
            overlay->destroy();
            overlay->show();
            QVERIFY(QTest::qWaitForWindowExposed(overlay.get()));
            break;
        }
        syncQt();
        // The bottom-right corner: after growing, only the new area is there.
        const QPoint target = overlay->geometry().bottomRight() - QPoint(20, 20);
        const int clientBefore = m_client.pressCount();
        const int overlayBefore = counter.presses;
        m_user.click(target);
        if (wanted) {
            QTRY_COMPARE(m_client.pressCount(), clientBefore + 1);
            QCOMPARE(m_client.lastPress(), target);
            QCOMPARE(counter.presses, overlayBefore);
        } else {
            QTRY_COMPARE(counter.presses, overlayBefore + 1);
            QCOMPARE(m_client.pressCount(), clientBefore);
        }
    }
    QCOMPARE(m_user.inputFocus(), m_client.window());
    QCOMPARE(m_client.focusLosses(), 0);
}

void tst_X11PassThrough::writesOnlyOnChange_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<int>("writes");
    QTest::newRow("the same state again writes nothing") << QStringList { "on", "on", "on" } << 1;
    QTest::newRow("every change writes") << QStringList { "on", "off", "on", "off" } << 4;
    // The server reports no change when a window without a region is reset,
    // so a leading "off" is not counted.
    QTest::newRow("a repeat after changes writes nothing")
        << QStringList { "off", "on", "off", "on", "on" } << 3;
    QTest::newRow("a re-created window holds its state without another write")
        << QStringList { "on", "recreate", "on", "on" } << 1;
}

void tst_X11PassThrough::writesOnlyOnChange()
{
    QFETCH(QStringList, steps);
    QFETCH(int, writes);
    auto passThrough = WindowPassThrough::create();
    auto overlay = makeOverlay(smallOverlay, *m_style);
    overlay->show();
    QVERIFY(QTest::qWaitForWindowExposed(overlay.get()));
    m_user.watchInputShape(static_cast<uint32_t>(overlay->winId()));

    int seen = 0;
    for (const QString &step : steps) {
        if (step == QLatin1String("recreate")) {
            seen += m_user.takeInputShapeChanges(static_cast<uint32_t>(overlay->winId()),
                                                 qtConnection());
            overlay->destroy();
            overlay->show();
            QVERIFY(QTest::qWaitForWindowExposed(overlay.get()));
            // The write that restores the state on the new window happens
            // while it is created, before anyone can watch it.
            m_user.watchInputShape(static_cast<uint32_t>(overlay->winId()));
        } else {
            passThrough->setPassThrough(overlay.get(), step == QLatin1String("on"));
        }
    }
    seen += m_user.takeInputShapeChanges(static_cast<uint32_t>(overlay->winId()), qtConnection());
    QCOMPARE(seen, writes);
}

void tst_X11PassThrough::overlayStyle_data()
{
    QTest::addColumn<bool>("flagsReplaced");
    QTest::addColumn<bool>("recreate");
    QTest::newRow("styled before it is shown") << false << false;
    QTest::newRow("its flags replaced after styling, as a document's binding does")
        << true << false;
    QTest::newRow("after the native window is re-created") << false << true;
}

void tst_X11PassThrough::overlayStyle()
{
    QFETCH(bool, flagsReplaced);
    QFETCH(bool, recreate);
    auto style = OverlayWindowStyle::create();
    QQuickWindow overlay;
    overlay.setColor(Qt::transparent);
    overlay.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool);
    overlay.setGeometry(smallOverlay);
    style->apply(&overlay, OverlayWindowStyle::Focus::Never);
    if (flagsReplaced)
        overlay.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint
                         | Qt::Tool);
    overlay.show();
    QVERIFY(QTest::qWaitForWindowExposed(&overlay));
    if (recreate) {
        overlay.destroy();
        overlay.show();
        QVERIFY(QTest::qWaitForWindowExposed(&overlay));
    }
    overlay.raise();
    const auto native = static_cast<uint32_t>(overlay.winId());
    QTRY_VERIFY(m_user.mappedWindowsOf(QCoreApplication::applicationPid()).contains(native));
    QVERIFY(m_user.isOverrideRedirect(native));
    QCOMPARE(m_user.cardinalProperty(native, "_NET_WM_BYPASS_COMPOSITOR"), 2u);
    const QList<uint32_t> states = m_user.atomProperty(native, "_NET_WM_STATE");
    QVERIFY(states.contains(m_user.atom("_NET_WM_STATE_SKIP_TASKBAR")));
    QVERIFY(states.contains(m_user.atom("_NET_WM_STATE_SKIP_PAGER")));
    QCOMPARE(m_user.geometry(native), smallOverlay);

    // Shown over the client and clicked, it still leaves the keyboard there.
    m_user.click(smallOverlay.center());
    QCOMPARE(m_user.inputFocus(), m_client.window());
    QCOMPARE(m_client.focusLosses(), 0);
}

void tst_X11PassThrough::pointerButtonsReadTheServer_data()
{
    QTest::addColumn<QList<int>>("xButtons");
    QTest::addColumn<int>("mask");
    QTest::newRow("left") << QList<int> { 1 } << int(PointerButtons::Left);
    QTest::newRow("middle is 4, though X numbers it 2")
        << QList<int> { 2 } << int(PointerButtons::Middle);
    QTest::newRow("right is 2, though X numbers it 3")
        << QList<int> { 3 } << int(PointerButtons::Right);
    QTest::newRow("left and right together")
        << QList<int> { 1, 3 } << int(PointerButtons::Left | PointerButtons::Right);
    QTest::newRow("none") << QList<int> {} << 0;
}

void tst_X11PassThrough::pointerButtonsReadTheServer()
{
    QFETCH(QList<int>, xButtons);
    QFETCH(int, mask);
    auto buttons = PointerButtons::create();
    // Over the client, which has the focus: nothing of ours is involved.
    m_user.moveTo(clientArea.center());
    for (int button : xButtons)
        m_user.press(button);
    const int seen = buttons->buttonMask();
    for (int button : xButtons)
        m_user.release(button);
    QCOMPARE(seen, mask);
    QCOMPARE(buttons->buttonMask(), 0);
}

namespace {
// QTRY would ask again after the answer it waited for, which a take has spent.
bool activityWithin(PointerActivity &activity, int timeoutMs)
{
    QDeadlineTimer deadline(timeoutMs);
    while (!activity.takeActivity()) {
        if (deadline.hasExpired())
            return false;
        QTest::qWait(5);
    }
    return true;
}
} // namespace

void tst_X11PassThrough::pointerActivitySeesDeviceInputOnly()
{
    auto activity = PointerActivity::create();
    m_user.moveTo(clientArea.center());
    m_user.sync();
    QTest::qWait(50);
    activity->takeActivity();
    QTest::qWait(50);
    QVERIFY2(!activity->takeActivity(), "a resting pointer reports input");

    m_user.moveTo(clientArea.center() + QPoint(20, 0));
    QVERIFY(activityWithin(*activity, 1000));
    QVERIFY(!activity->takeActivity());

    // A click without motion, over the client that has the focus.
    m_user.press(1);
    m_user.release(1);
    QVERIFY(activityWithin(*activity, 1000));
}

namespace {
int captureMessages = 0;
QtMessageHandler previousHandler = nullptr;

void countCaptureMessages(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (text.startsWith(QLatin1String("XcbWindowPassThrough:")) && text.contains("capture"))
        ++captureMessages;
    previousHandler(type, context, text);
}
} // namespace

void tst_X11PassThrough::captureExclusionLogsOnce()
{
    auto passThrough = WindowPassThrough::create();
    QWindow window;
    captureMessages = 0;
    previousHandler = qInstallMessageHandler(countCaptureMessages);
    passThrough->excludeFromCapture(&window);
    passThrough->excludeFromCapture(&window);
    qInstallMessageHandler(previousHandler);
    QCOMPARE(captureMessages, 1);
}

int main(int argc, char *argv[])
{
    qputenv("QSG_RENDER_LOOP", "basic");
    QGuiApplication app(argc, argv);
    tst_X11PassThrough test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_x11passthrough.moc"
