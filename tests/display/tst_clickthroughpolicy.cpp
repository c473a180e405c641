#include "display/ClickThroughPolicy.h"

#include <QTest>

Q_DECLARE_METATYPE(ClickThroughState)

using namespace ClickThroughPolicy;

namespace {
// A toolbar 400x60 centred at the top of a 1920x1080 control display at x 1920.
const QRect controlScreen(1920, 0, 1920, 1080);
const QRectF toolbar(1920 + 760, 14, 400, 60);

ClickThroughState idleState()
{
    ClickThroughState state;
    state.toolbarRect = toolbar;
    return state;
}

// Whether the area the window system is given holds the point; checked at
// whole pixels, the pointer's positions on X11.
bool inInputArea(const ClickThroughState &state, QPointF point, const std::optional<QRect> &screen)
{
    const std::optional<QRegion> area = hudInputArea(state, screen);
    return !area || area->contains(point.toPoint());
}
} // namespace

class TestClickThroughPolicy : public QObject
{
    Q_OBJECT

private slots:
    void overlayTable_data()
    {
        QTest::addColumn<bool>("overlayEnabled");
        QTest::addColumn<QString>("tool");
        QTest::addColumn<bool>("dragging");
        QTest::addColumn<bool>("moving");
        QTest::addColumn<bool>("clickThrough");

        const auto row = [](const char *name, bool enabled, const char *tool, bool dragging,
                            bool moving, bool clickThrough) {
            QTest::newRow(name) << enabled << QString::fromLatin1(tool) << dragging << moving
                                << clickThrough;
        };
        row("paused with a drawing tool passes through", false, "pen", false, false, true);
        row("paused while moving passes through", false, "arrow", false, true, true);
        row("spotlight passes through", true, "spotlight", false, false, true);
        row("spotlight while dragging passes through", true, "spotlight", true, false, true);
        row("cursor passes through", true, "cursor", false, false, true);
        row("pen takes the mouse", true, "pen", false, false, false);
        row("eraser takes the mouse", true, "eraser", false, false, false);
        row("unknown tool counts as drawing", true, "lasso", false, false, false);
        row("tool names are case-sensitive", true, "Cursor", false, false, false);
        row("pen while dragging the toolbar passes through", true, "pen", true, false, true);
        row("pen while moving the toolbar passes through", true, "pen", false, true, true);
    }

    void overlayTable()
    {
        QFETCH(bool, overlayEnabled);
        QFETCH(QString, tool);
        QFETCH(bool, dragging);
        QFETCH(bool, moving);
        QFETCH(bool, clickThrough);

        ClickThroughState state;
        state.overlayEnabled = overlayEnabled;
        state.currentTool = tool;
        state.toolbarDragging = dragging;
        state.toolbarMoving = moving;
        QCOMPARE(overlayClickThrough(state), clickThrough);
    }

    void hudTable_data()
    {
        QTest::addColumn<ClickThroughState>("state");
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<bool>("interactive");

        // Far from every rectangle and below the toolbar band.
        const QPointF away(2500, 700);
        const QRectF box(100, 500, 50, 40);
        const QPointF inBox(120, 520);

        ClickThroughState s = idleState();
        QTest::newRow("nothing under the pointer") << s << away << false;

        // Each of these states makes the whole HUD take the mouse.
        const struct
        {
            const char *name;
            bool ClickThroughState::*flag;
            bool value;
        } modes[] = {
            { "onboarding covers the HUD", &ClickThroughState::firstRunDone, false },
            { "region selection", &ClickThroughState::regionSelecting, true },
            { "settings open, anywhere", &ClickThroughState::settingsVisible, true },
            { "modal active", &ClickThroughState::modalActive, true },
            { "toolbar dragging", &ClickThroughState::toolbarDragging, true },
            { "toolbar moving", &ClickThroughState::toolbarMoving, true },
        };
        for (const auto &mode : modes) {
            s = idleState();
            s.*mode.flag = mode.value;
            QTest::newRow(mode.name) << s << away << true;
        }

        const struct
        {
            const char *name;
            QRectF ClickThroughState::*field;
        } rects[] = {
            { "controlsRevealRect", &ClickThroughState::controlsRevealRect },
            { "statusBarRect", &ClickThroughState::statusBarRect },
            { "helpButtonRect", &ClickThroughState::helpButtonRect },
            { "shortcutCardRect", &ClickThroughState::shortcutCardRect },
            { "modalRect", &ClickThroughState::modalRect },
            { "toastRect", &ClickThroughState::toastRect },
        };
        for (const auto &r : rects) {
            s = idleState();
            s.*r.field = box;
            QTest::addRow("inside %s", r.name) << s << inBox << true;
            QTest::addRow("top-left corner of %s is inside", r.name) << s << box.topLeft() << true;
            QTest::addRow("bottom-right corner of %s is inside", r.name)
                << s << box.bottomRight() << true;
            QTest::addRow("just outside %s", r.name)
                << s << QPointF(box.right() + 0.5, box.bottom()) << false;
            s.*r.field = QRectF(inBox, QSizeF(0, 40));
            QTest::addRow("zero-width %s contains nothing", r.name) << s << inBox << false;
            s.*r.field = QRectF(box.bottomRight(), QSizeF(-50, -40));
            QTest::addRow("negative %s contains nothing", r.name) << s << inBox << false;
        }

        s = idleState();
        QTest::newRow("over the toolbar") << s << toolbar.center() << true;
        s = idleState();
        s.toolbarVisible = false;
        QTest::newRow("hidden toolbar leaves its rect") << s << toolbar.center() << false;
    }

    void hudTable()
    {
        QFETCH(ClickThroughState, state);
        QFETCH(QPointF, point);
        QFETCH(bool, interactive);
        // The pointer is taken as off the control display here; the band
        // below the toolbar has its own test.
        QCOMPARE(hudInteractive(state, point, std::nullopt), interactive);
        if (point == QPointF(point.toPoint()))
            QCOMPARE(inInputArea(state, point, std::nullopt), interactive);
    }

    void toolbarZone_data()
    {
        QTest::addColumn<ClickThroughState>("state");
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<bool>("onControlScreen");
        QTest::addColumn<bool>("inZone");

        const auto row = [](const char *name, const ClickThroughState &state, QPointF point,
                            bool onControlScreen, bool inZone) {
            QTest::newRow(name) << state << point << onControlScreen << inZone;
        };
        const ClickThroughState s = idleState();
        const qreal left = toolbar.left();
        // The band: x from 1920 + (1920 - 400) / 2 - 24 = 2656 to 3104, y 0 to 116.
        row("toolbar margin left edge", s, { left - 8, 40 }, false, true);
        row("toolbar margin top edge", s, { 2800, toolbar.top() - 8 }, false, true);
        row("beyond the 8 margin, off the control display", s, { left - 8.5, 40 }, false, false);
        row("below the toolbar, off the control display", s, { 2800, 110 }, false, false);
        row("band left edge on the control display", s, { 2656, 100 }, true, true);
        row("band right edge", s, { 3104, 100 }, true, true);
        row("band bottom edge", s, { 2800, 116 }, true, true);
        row("band top edge", s, { 2700, 0 }, true, true);
        row("left of the band", s, { 2655.5, 100 }, true, false);
        row("right of the band", s, { 3104.5, 100 }, true, false);
        row("below the band", s, { 2800, 116.5 }, true, false);

        ClickThroughState hidden = s;
        hidden.toolbarVisible = false;
        row("hidden toolbar has no band", hidden, { 2800, 100 }, true, false);
        row("hidden toolbar has no margin", hidden, { left - 4, 40 }, true, false);
        ClickThroughState empty = s;
        empty.toolbarRect = QRectF();
        row("empty toolbar rect has no band", empty, { 2880, 50 }, true, false);
        empty.toastRect = QRectF(2700, 90, 300, 40);
        row("toast counts without a toolbar", empty, { 2800, 100 }, false, true);
        ClickThroughState toast = hidden;
        toast.toastRect = QRectF(2700, 90, 300, 40);
        row("toast of a hidden toolbar, right edge", toast, { 3000, 130 }, false, true);
    }

    void toolbarZone()
    {
        QFETCH(ClickThroughState, state);
        QFETCH(QPointF, point);
        QFETCH(bool, onControlScreen);
        QFETCH(bool, inZone);
        const std::optional<QRect> screen =
            onControlScreen ? std::optional<QRect>(controlScreen) : std::nullopt;
        QCOMPARE(isPointInToolbarZone(state, point, screen), inZone);
        // The zone makes the HUD interactive on its own.
        QCOMPARE(hudInteractive(state, point, screen), inZone);
        if (point == QPointF(point.toPoint()))
            QCOMPARE(inInputArea(state, point, screen), inZone);
    }
};

QTEST_GUILESS_MAIN(TestClickThroughPolicy)
#include "tst_clickthroughpolicy.moc"
