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

        QTest::newRow("paused with a drawing tool passes through")
            << false << "pen" << false << false << true;
        QTest::newRow("paused while moving passes through")
            << false << "arrow" << false << true << true;
        QTest::newRow("spotlight passes through") << true << "spotlight" << false << false << true;
        QTest::newRow("spotlight while dragging passes through")
            << true << "spotlight" << true << false << true;
        QTest::newRow("cursor passes through") << true << "cursor" << false << false << true;
        QTest::newRow("pen takes the mouse") << true << "pen" << false << false << false;
        QTest::newRow("eraser takes the mouse") << true << "eraser" << false << false << false;
        QTest::newRow("unknown tool counts as drawing")
            << true << "lasso" << false << false << false;
        QTest::newRow("tool names are case-sensitive")
            << true << "Cursor" << false << false << false;
        QTest::newRow("pen while dragging the toolbar passes through")
            << true << "pen" << true << false << true;
        QTest::newRow("pen while moving the toolbar passes through")
            << true << "pen" << false << true << true;
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

        s = idleState();
        s.firstRunDone = false;
        QTest::newRow("onboarding covers the HUD") << s << away << true;
        s = idleState();
        s.regionSelecting = true;
        QTest::newRow("region selection") << s << away << true;
        s = idleState();
        s.settingsVisible = true;
        QTest::newRow("settings open, anywhere") << s << away << true;
        s = idleState();
        s.modalActive = true;
        QTest::newRow("modal active") << s << away << true;
        s = idleState();
        s.toolbarDragging = true;
        QTest::newRow("toolbar dragging") << s << away << true;
        s = idleState();
        s.toolbarMoving = true;
        QTest::newRow("toolbar moving") << s << away << true;

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
    }

    void toolbarZone_data()
    {
        QTest::addColumn<ClickThroughState>("state");
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<bool>("onControlScreen");
        QTest::addColumn<bool>("inZone");

        const ClickThroughState s = idleState();
        // The band: x from 1920 + (1920 - 400) / 2 - 24 = 2656 to 3104, y 0 to 116.
        QTest::newRow("toolbar margin left edge")
            << s << QPointF(toolbar.left() - 8, 40) << false << true;
        QTest::newRow("toolbar margin top edge")
            << s << QPointF(2800, toolbar.top() - 8) << false << true;
        QTest::newRow("beyond the 8 margin, off the control display")
            << s << QPointF(toolbar.left() - 8.5, 40) << false << false;
        QTest::newRow("below the toolbar, off the control display")
            << s << QPointF(2800, 110) << false << false;
        QTest::newRow("band left edge on the control display")
            << s << QPointF(2656, 100) << true << true;
        QTest::newRow("band right edge") << s << QPointF(3104, 100) << true << true;
        QTest::newRow("band bottom edge") << s << QPointF(2800, 116) << true << true;
        QTest::newRow("band top edge") << s << QPointF(2700, 0) << true << true;
        QTest::newRow("left of the band") << s << QPointF(2655.5, 100) << true << false;
        QTest::newRow("right of the band") << s << QPointF(3104.5, 100) << true << false;
        QTest::newRow("below the band") << s << QPointF(2800, 116.5) << true << false;

        ClickThroughState hidden = s;
        hidden.toolbarVisible = false;
        QTest::newRow("hidden toolbar has no band")
            << hidden << QPointF(2800, 100) << true << false;
        QTest::newRow("hidden toolbar has no margin")
            << hidden << QPointF(toolbar.left() - 4, 40) << true << false;
        ClickThroughState empty = s;
        empty.toolbarRect = QRectF();
        QTest::newRow("empty toolbar rect has no band")
            << empty << QPointF(2880, 50) << true << false;
        empty.toastRect = QRectF(2700, 90, 300, 40);
        QTest::newRow("toast counts without a toolbar")
            << empty << QPointF(2800, 100) << false << true;
        ClickThroughState toast = hidden;
        toast.toastRect = QRectF(2700, 90, 300, 40);
        QTest::newRow("toast of a hidden toolbar, right edge")
            << toast << QPointF(3000, 130) << false << true;
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
    }
};

QTEST_GUILESS_MAIN(TestClickThroughPolicy)
#include "tst_clickthroughpolicy.moc"
