#include "app/AppController.h"
#include "display/DisplayManager.h"
#include "display/OverlayManager.h"
#include "recording/RecordingManager.h"
#include "settings/SettingsManager.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {
class FakePointerButtons final : public PointerButtons
{
public:
    explicit FakePointerButtons(std::shared_ptr<int> mask)
        : m_mask(std::move(mask))
    {
    }
    int buttonMask() const override { return *m_mask; }

private:
    std::shared_ptr<int> m_mask;
};

// Input "arrived" while the shared flag is set. It can wake a resting poll
// when the test lets it, through the callback it keeps.
struct ActivityScript
{
    bool input = true;
    bool canWake = false;
    int reads = 0;
    // The buttons pressed in that input, also those released again since.
    int pressed = 0;
    std::function<void()> wake;
};

class FakePointerActivity final : public PointerActivity
{
public:
    explicit FakePointerActivity(std::shared_ptr<ActivityScript> script)
        : m_script(std::move(script))
    {
    }
    bool takeActivity() override
    {
        ++m_script->reads;
        return m_script->input;
    }
    int pressedButtons() const override { return m_script->pressed; }
    bool wakeOnInput(std::function<void()> onInput) override
    {
        if (m_script->canWake)
            m_script->wake = std::move(onInput);
        return m_script->canWake;
    }

private:
    std::shared_ptr<ActivityScript> m_script;
};

class FakeFolderRevealer final : public FolderRevealer
{
public:
    explicit FakeFolderRevealer(std::shared_ptr<QStringList> revealed)
        : m_revealed(std::move(revealed))
    {
    }
    void reveal(const QString &filePath) override { m_revealed->append(filePath); }

private:
    std::shared_ptr<QStringList> m_revealed;
};

class NullPassThrough final : public WindowPassThrough
{
public:
    void setPassThrough(QWindow *, bool) override { }
    void excludeFromCapture(QWindow *) override { }
};

// One step of the poll: the tool in use, the buttons held at the tick and
// those pressed in the input since the tick before.
struct PollStep
{
    QString tool;
    int mask;
    int pressed = 0;
};
} // namespace

Q_DECLARE_METATYPE(QList<PollStep>)

class TestAppController : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<SettingsManager> settings;
    std::unique_ptr<DisplayManager> displays;
    std::unique_ptr<OverlayManager> overlays;
    std::unique_ptr<AppController> controller;
    std::shared_ptr<int> buttons;
    std::shared_ptr<ActivityScript> activity;
    std::shared_ptr<QStringList> revealed;
    QWindow hud;

    void build(RecordingManager *recording = nullptr)
    {
        controller.reset();
        buttons = std::make_shared<int>(0);
        activity = std::make_shared<ActivityScript>();
        revealed = std::make_shared<QStringList>();
        controller = std::make_unique<AppController>(
            settings.get(), overlays.get(), nullptr, nullptr, displays.get(), recording,
            std::make_unique<FakePointerButtons>(buttons),
            std::make_unique<FakePointerActivity>(activity),
            std::make_unique<FakeFolderRevealer>(revealed));
    }

    // The screen's own centre: far from any hit rectangle unless a test puts one there.
    static QPoint screenCentre() { return QGuiApplication::primaryScreen()->geometry().center(); }

private slots:
    void init()
    {
        QSettings().clear();
        QCursor::setPos(screenCentre());
        settings = std::make_unique<SettingsManager>();
        settings->setFirstRunDone(true);
        displays = std::make_unique<DisplayManager>(settings.get());
        overlays = std::make_unique<OverlayManager>(std::make_unique<NullPassThrough>());
        overlays->registerWindow(QStringLiteral("hud"), &hud);
        build();
    }

    void cleanup()
    {
        controller.reset();
        overlays.reset();
        displays.reset();
        settings.reset();
    }

    void startsWithCursorAndTheDefaultColour()
    {
        settings->setDefaultDrawingTool(QStringLiteral("arrow"));
        settings->setDefaultDrawingColor(QStringLiteral("#5DA8F0"));
        build();
        QCOMPARE(controller->currentTool(), QStringLiteral("cursor"));
        QCOMPARE(controller->currentPenColor(), QStringLiteral("#5DA8F0"));
        QCOMPARE(controller->activeDisplayId(), displays->primaryDisplayId());

        // The default colour follows the setting; a picked colour does not go back to it.
        settings->setDefaultDrawingColor(QStringLiteral("#C57BE0"));
        QCOMPARE(controller->currentPenColor(), QStringLiteral("#C57BE0"));
    }

    void toolRules_data()
    {
        QTest::addColumn<QString>("tool");
        QTest::addColumn<bool>("showToolbarWhileDrawing");
        QTest::addColumn<bool>("toolbarVisible");
        QTest::addColumn<bool>("overlayClickThrough");

        QTest::newRow("pen keeps the toolbar when asked") << "pen" << true << true << false;
        QTest::newRow("pen hides the toolbar otherwise") << "pen" << false << false << false;
        QTest::newRow("highlighter hides it too") << "highlighter" << false << false << false;
        QTest::newRow("spotlight always shows it") << "spotlight" << false << true << true;
        QTest::newRow("any unknown tool counts as drawing") << "lasso" << false << false << false;
    }

    void toolRules()
    {
        QFETCH(QString, tool);
        QFETCH(bool, showToolbarWhileDrawing);
        QFETCH(bool, toolbarVisible);
        QFETCH(bool, overlayClickThrough);

        settings->setShowToolbarWhileDrawing(showToolbarWhileDrawing);
        QSignalSpy toolSpy(controller.get(), &AppController::currentToolChanged);
        // Listeners of the tool change already see the new pass-through value.
        bool clickThroughSeen = !overlayClickThrough;
        connect(controller.get(), &AppController::currentToolChanged, this,
                [&] { clickThroughSeen = overlays->clickThrough(); });
        controller->setTool(tool);
        controller->setTool(tool);
        QCOMPARE(toolSpy.count(), 1);
        QCOMPARE(controller->toolbarVisible(), toolbarVisible);
        QCOMPARE(overlays->clickThrough(), overlayClickThrough);
        QCOMPARE(clickThroughSeen, overlayClickThrough);
    }

    void cursorShowsAToolbarTheUserHid()
    {
        settings->setShowToolbarWhileDrawing(false);
        controller->setTool(QStringLiteral("pen"));
        controller->setTool(QStringLiteral("cursor"));
        QVERIFY(controller->toolbarVisible());
        controller->toggleToolbar();
        QVERIFY(!controller->toolbarVisible());
        // Setting the same tool again applies no rule.
        controller->setTool(QStringLiteral("cursor"));
        QVERIFY(!controller->toolbarVisible());
        controller->setTool(QStringLiteral("spotlight"));
        QVERIFY(controller->toolbarVisible());
    }

    void toolbarRuleFollowsTheSetting()
    {
        controller->setTool(QStringLiteral("pen"));
        QVERIFY(controller->toolbarVisible());
        settings->setShowToolbarWhileDrawing(false);
        QVERIFY(!controller->toolbarVisible());
    }

    void newDefaultToolTakesOverExceptFromSpotlight_data()
    {
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("after");
        QTest::newRow("from cursor") << "cursor"
                                     << "circle";
        QTest::newRow("from another drawing tool") << "pen"
                                                   << "circle";
        QTest::newRow("not from the spotlight") << "spotlight"
                                                << "spotlight";
    }

    void newDefaultToolTakesOverExceptFromSpotlight()
    {
        QFETCH(QString, current);
        QFETCH(QString, after);
        controller->setTool(current);
        settings->setDefaultDrawingTool(QStringLiteral("circle"));
        QCOMPARE(controller->currentTool(), after);
    }

    void pauseKeepsTheToolAndDefersTheRefresh()
    {
        controller->setTool(QStringLiteral("pen"));
        QVERIFY(!overlays->clickThrough());
        QSignalSpy spy(controller.get(), &AppController::overlayEnabledChanged);
        controller->toggleOverlay();
        QCOMPARE(spy.count(), 1);
        QVERIFY(!controller->overlayEnabled());
        QCOMPARE(controller->currentTool(), QStringLiteral("pen"));
        // The windows keep their mode until the next refresh.
        QVERIFY(!overlays->clickThrough());
        controller->refreshClickThroughState();
        QVERIFY(overlays->clickThrough());
        controller->setOverlayEnabled(false);
        QCOMPARE(spy.count(), 1);
    }

    void rectangleSettersCompareFirstAndRefresh_data()
    {
        QTest::addColumn<QString>("property");
        for (const char *name : { "toolbarRect", "helpButtonRect", "shortcutCardRect",
                                  "statusBarRect", "controlsRevealRect", "toastRect", "modalRect" })
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void rectangleSettersCompareFirstAndRefresh()
    {
        QFETCH(QString, property);
        const QMetaProperty meta = controller->metaObject()->property(
            controller->metaObject()->indexOfProperty(property.toLatin1().constData()));
        QVERIFY(meta.isWritable());
        QSignalSpy spy(controller.get(), meta.notifySignal());
        QVERIFY(!controller->hudInteractive());

        // A rectangle under the pointer makes the HUD take the mouse.
        const QRectF underPointer(QPointF(screenCentre()) - QPointF(20, 20), QSizeF(40, 40));
        QVERIFY(meta.write(controller.get(), underPointer));
        QVERIFY(meta.write(controller.get(), underPointer));
        QCOMPARE(spy.count(), 1);
        QVERIFY(controller->hudInteractive());
        QCOMPARE(overlays->effectiveClickThrough(QStringLiteral("hud")), false);

        QVERIFY(meta.write(controller.get(), QRectF()));
        QCOMPARE(spy.count(), 2);
        QVERIFY(!controller->hudInteractive());
        QCOMPARE(overlays->effectiveClickThrough(QStringLiteral("hud")), true);
    }

    void stateThatMakesTheWholeHudInteractive_data()
    {
        QTest::addColumn<QString>("what");
        QTest::newRow("settings") << "settings";
        QTest::newRow("modal") << "modal";
        QTest::newRow("toolbar move") << "move";
        QTest::newRow("toolbar drag") << "drag";
        QTest::newRow("region selection") << "region";
        QTest::newRow("first run") << "firstRun";
    }

    void stateThatMakesTheWholeHudInteractive()
    {
        QFETCH(QString, what);
        QVERIFY(!controller->hudInteractive());
        if (what == QLatin1String("settings")) {
            QSignalSpy spy(controller.get(), &AppController::settingsVisibleChanged);
            controller->showSettings();
            controller->showSettings();
            QCOMPARE(spy.count(), 1);
        } else if (what == QLatin1String("modal")) {
            controller->setModalActive(true);
        } else if (what == QLatin1String("move")) {
            controller->beginToolbarMove();
        } else if (what == QLatin1String("drag")) {
            controller->beginToolbarDrag();
        } else if (what == QLatin1String("region")) {
            controller->captureRegion();
            controller->refreshClickThroughState();
        } else {
            settings->setFirstRunDone(false);
            build();
        }
        QVERIFY(controller->hudInteractive());
        QCOMPARE(overlays->effectiveClickThrough(QStringLiteral("hud")), false);
    }

    void settingsOpenLeavesTheOverlayRuleAlone()
    {
        controller->setTool(QStringLiteral("pen"));
        controller->showSettings();
        QVERIFY(controller->hudInteractive());
        QVERIFY(!overlays->clickThrough());
        controller->hideSettings();
        QVERIFY(!controller->hudInteractive());
        // A drawing tool during a toolbar move lets the overlays pass the mouse.
        controller->beginToolbarMove();
        QVERIFY(overlays->clickThrough());
    }

    void pressEdgesInTheSpotlight_data()
    {
        QTest::addColumn<QList<PollStep>>("steps");
        QTest::addColumn<QList<int>>("clicks");

        const QString spot = QStringLiteral("spotlight");
        const QString pen = QStringLiteral("pen");
        QTest::newRow("a press is reported once while held")
            << QList<PollStep> { { spot, 1 }, { spot, 1 }, { spot, 0 }, { spot, 1 } }
            << QList<int> { 1, 1 };
        QTest::newRow("a second button while one is held reports only the new one")
            << QList<PollStep> { { spot, 1 }, { spot, 3 }, { spot, 7 } } << QList<int> { 1, 2, 4 };
        QTest::newRow("two buttons in one tick give one signal")
            << QList<PollStep> { { spot, 0 }, { spot, 5 } } << QList<int> { 5 };
        QTest::newRow("releases are not reported")
            << QList<PollStep> { { spot, 3 }, { spot, 1 }, { spot, 0 } } << QList<int> { 3 };
        QTest::newRow("other tools read no buttons")
            << QList<PollStep> { { pen, 1 }, { QStringLiteral("cursor"), 2 } } << QList<int> {};
        QTest::newRow("a button held when the spotlight starts counts on the first tick")
            << QList<PollStep> { { pen, 1 }, { spot, 1 }, { spot, 1 } } << QList<int> { 1 };
        QTest::newRow("leaving the spotlight forgets the held buttons")
            << QList<PollStep> { { spot, 2 }, { pen, 2 }, { spot, 2 } } << QList<int> { 2, 2 };
        QTest::newRow("unknown bits are ignored")
            << QList<PollStep> { { spot, 8 }, { spot, 9 } } << QList<int> { 1 };
        QTest::newRow("a click between two ticks is known from the input")
            << QList<PollStep> { { spot, 0, 1 }, { spot, 0 } } << QList<int> { 1 };
        QTest::newRow("a press seen in the input and still held counts once")
            << QList<PollStep> { { spot, 2, 2 }, { spot, 2 } } << QList<int> { 2 };
    }

    void pressEdgesInTheSpotlight()
    {
        QFETCH(QList<PollStep>, steps);
        QFETCH(QList<int>, clicks);
        QSignalSpy spy(controller.get(), &AppController::mouseClicked);
        for (const PollStep &step : steps) {
            controller->setTool(step.tool);
            *buttons = step.mask;
            activity->pressed = step.pressed;
            controller->pollPointer();
        }
        QList<int> seen;
        for (const QList<QVariant> &args : std::as_const(spy)) {
            seen.append(args.at(1).toInt());
            QCOMPARE(args.at(0).toPointF(), QPointF(screenCentre()));
        }
        QCOMPARE(seen, clicks);
    }

    void pollFollowsThePointer()
    {
        QSignalSpy moved(controller.get(), &AppController::mousePositionChanged);
        QSignalSpy display(controller.get(), &AppController::activeDisplayIdChanged);
        const QPoint inside = screenCentre() + QPoint(5, 7);
        QCursor::setPos(inside);
        controller->pollPointer();
        QCOMPARE(controller->mousePosition(), QPointF(inside));
        QCOMPARE(moved.count(), 1);
        controller->pollPointer();
        QCOMPARE(moved.count(), 1);
        QCOMPARE(display.count(), 0);

        // Off every screen the active display is none.
        QCursor::setPos(-5000, -5000);
        if (QCursor::pos() != QPoint(-5000, -5000))
            QSKIP("this platform keeps the pointer on a screen");
        controller->pollPointer();
        QCOMPARE(controller->activeDisplayId(), QString());
        QCOMPARE(display.count(), 1);
    }

    void quietTicksReadThePointerNowAndThen()
    {
        // The first tick after input reads; then only every sixteenth quiet one.
        controller->pollPointer();
        activity->input = false;
        const QPoint moved = screenCentre() + QPoint(3, 3);
        QCursor::setPos(moved);
        for (int tick = 1; tick < 16; ++tick) {
            controller->pollPointer();
            QVERIFY2(controller->mousePosition() != QPointF(moved),
                     qPrintable(QString::number(tick)));
        }
        controller->pollPointer();
        QCOMPARE(controller->mousePosition(), QPointF(moved));

        // Input reads at the very next tick.
        QCursor::setPos(screenCentre());
        activity->input = true;
        controller->pollPointer();
        QCOMPARE(controller->mousePosition(), QPointF(screenCentre()));

        // So does every tick while the toolbar is being moved.
        activity->input = false;
        controller->beginToolbarMove();
        QCursor::setPos(moved);
        controller->pollPointer();
        QCOMPARE(controller->mousePosition(), QPointF(moved));
        controller->endToolbarMove();
    }

    void aRestingPollSleepsUntilInputWakesIt()
    {
        activity->canWake = true;
        controller->pollPointer();
        activity->input = false;
        for (int tick = 0; tick < 16 && !activity->wake; ++tick)
            controller->pollPointer();
        QVERIFY2(activity->wake, "the sixteenth quiet tick rests");

        // At rest the timer reads the source a few times a second, not 62.
        activity->reads = 0;
        activity->wake = nullptr;
        QTest::qWait(1000);
        QVERIFY2(activity->reads <= 6, qPrintable(QString::number(activity->reads)));
        QVERIFY2(activity->wake, "each rest tick arms the wake-up again");

        // Input wakes it and is read at once.
        const QPoint moved = screenCentre() + QPoint(9, 2);
        QCursor::setPos(moved);
        activity->input = true;
        std::exchange(activity->wake, nullptr)();
        QCOMPARE(controller->mousePosition(), QPointF(moved));
        // Back at the 16 ms pace: ten ticks come long before two rest ticks would.
        activity->reads = 0;
        QTRY_VERIFY_WITH_TIMEOUT(activity->reads >= 10, 1500);
    }

    void theTimerPolls()
    {
        QSignalSpy moved(controller.get(), &AppController::mousePositionChanged);
        QCursor::setPos(screenCentre() + QPoint(11, 0));
        QVERIFY(moved.wait(1000));
    }

    void toolbarMoveOverTheControlDisplayCommitsNothing()
    {
        QSignalSpy moving(controller.get(), &AppController::toolbarMovingChanged);
        QSignalSpy target(controller.get(), &AppController::toolbarDragTargetDisplayIdChanged);
        controller->beginToolbarMove();
        controller->beginToolbarMove();
        QCOMPARE(moving.count(), 1);
        QCOMPARE(controller->toolbarDragTargetDisplayId(), displays->controlDisplayId());
        QVERIFY(controller->toolbarDragTargetEnabled());
        QCOMPARE(target.count(), 1);

        controller->updateToolbarDrag(QPointF(3, 4));
        QCOMPARE(controller->dragCursorPos(), QPointF(3, 4));
        QVERIFY(!controller->endToolbarMove());
        QVERIFY(!controller->toolbarMoving());
        QCOMPARE(controller->toolbarDragTargetDisplayId(), QString());
        QVERIFY(!controller->toolbarDragTargetEnabled());
        QVERIFY(!controller->endToolbarMove());
        QCOMPARE(moving.count(), 2);
    }

    void toolbarUpdatesOutsideAMoveAreIgnored()
    {
        QSignalSpy drag(controller.get(), &AppController::dragCursorPosChanged);
        controller->updateToolbarDrag(QPointF(3, 4));
        QCOMPARE(drag.count(), 0);
        QVERIFY(!controller->endToolbarDrag());
        QSignalSpy visual(controller.get(), &AppController::toolbarMoveVisualRectChanged);
        controller->updateToolbarMoveVisual(QPointF(1, 2), QSizeF(30, 40));
        controller->updateToolbarMoveVisual(QPointF(1, 2), QSizeF(30, 40));
        QCOMPARE(visual.count(), 1);
        QCOMPARE(controller->toolbarMoveVisualRect(), QRectF(1, 2, 30, 40));
    }

    void regionCapture_data()
    {
        QTest::addColumn<bool>("pausedBefore");
        QTest::addColumn<bool>("toolbarBefore");
        QTest::addColumn<bool>("commit");

        QTest::newRow("cancel restores a running overlay and toolbar") << false << true << false;
        QTest::newRow("cancel leaves a paused overlay paused") << true << true << false;
        QTest::newRow("cancel leaves a hidden toolbar hidden") << false << false << false;
        QTest::newRow("commit without capture behaves as cancel") << false << true << true;
        QTest::newRow("commit while paused stays paused") << true << false << true;
    }

    void regionCapture()
    {
        QFETCH(bool, pausedBefore);
        QFETCH(bool, toolbarBefore);
        QFETCH(bool, commit);

        controller->setOverlayEnabled(!pausedBefore);
        controller->setToolbarVisible(toolbarBefore);
        QSignalSpy requested(controller.get(), &AppController::regionCaptureRequested);
        QSignalSpy selecting(controller.get(), &AppController::regionSelectingChanged);
        controller->captureRegion();
        QCOMPARE(requested.count(), 1);
        QVERIFY(controller->regionSelecting());
        QVERIFY(!controller->overlayEnabled());
        QVERIFY(!controller->toolbarVisible());

        if (commit)
            controller->commitRegionCapture(10, 10, 200, 100);
        else
            controller->cancelRegionCapture();
        QVERIFY(!controller->regionSelecting());
        QCOMPARE(selecting.count(), 2);
        QCOMPARE(controller->overlayEnabled(), !pausedBefore);
        QCOMPARE(controller->toolbarVisible(), toolbarBefore);
        QVERIFY(!controller->captureInProgress());
    }

    void fullScreenCaptureWithoutBackendSaysSo()
    {
        QSignalSpy status(controller.get(), &AppController::captureStatusChanged);
        controller->captureFullScreen();
        QCOMPARE(status.count(), 1);
        QCOMPARE(controller->captureStatus(), QStringLiteral("Capture is not available."));
        QCOMPARE(controller->captureLastPath(), QString());
        QVERIFY(!controller->captureInProgress());
        QVERIFY(controller->toolbarVisible());
    }

    void recordingSwitch_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("available");
        QTest::newRow("unset") << QByteArray() << false;
        QTest::newRow("0") << QByteArray("0") << false;
        QTest::newRow("1") << QByteArray("1") << true;
        QTest::newRow("2") << QByteArray("2") << false;
        QTest::newRow("not a number") << QByteArray("yes") << false;
    }

    void recordingSwitch()
    {
        QFETCH(QByteArray, value);
        QFETCH(bool, available);
        if (value.isNull())
            qunsetenv("GLIMMORA_ENABLE_RECORDING");
        else
            qputenv("GLIMMORA_ENABLE_RECORDING", value);
        QCOMPARE(controller->recordingAvailable(), available);
        if (!available) {
            QTest::ignoreMessage(QtInfoMsg, "Recording is disabled for this build/channel.");
            controller->startRecording();
        }
        qunsetenv("GLIMMORA_ENABLE_RECORDING");
        QCOMPARE(controller->recordingState(), 0);
    }

    void finishedRecordingRevealsOnlyASavedFile_data()
    {
        QTest::addColumn<bool>("success");
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("openFolder");
        QTest::addColumn<bool>("saved");
        QTest::newRow("saved, folder wanted") << true << "/v/Glimmora-1.mp4" << true << true;
        QTest::newRow("saved, folder not wanted") << true << "/v/Glimmora-1.mp4" << false << true;
        QTest::newRow("failed") << false << "" << true << false;
        QTest::newRow("success without a path") << true << "" << true << false;
    }

    void finishedRecordingRevealsOnlyASavedFile()
    {
        QFETCH(bool, success);
        QFETCH(QString, path);
        QFETCH(bool, openFolder);
        QFETCH(bool, saved);
        QTemporaryDir folder;
        settings->setCaptureSaveFolder(folder.path());
        settings->setRecordOpenFolderAfterStop(openFolder);
        RecordingManager recording(settings.get());
        build(&recording);
        QSignalSpy savedSpy(controller.get(), &AppController::recordingSaved);
        emit recording.finished(success, path);
        QCOMPARE(savedSpy.count(), saved ? 1 : 0);
        const bool reveals = saved && openFolder;
        QCOMPARE(*revealed, reveals ? QStringList { path } : QStringList());
        // The file manager is not to be covered by the overlay.
        QCOMPARE(controller->overlayEnabled(), !reveals);
    }

    void repeatedKeystrokeSignalsEachTime()
    {
        QSignalSpy spy(controller.get(), &AppController::keystrokeChanged);
        controller->reportKeystroke(QStringLiteral("F5"));
        controller->reportKeystroke(QStringLiteral("F5"));
        QCOMPARE(spy.count(), 2);
        QCOMPARE(controller->lastKeystroke(), QStringLiteral("F5"));
    }

    void aLockTakesTheCardDownAndShowsNothingTypedIntoIt()
    {
        QSignalSpy spy(controller.get(), &AppController::keystrokeChanged);
        controller->reportKeystroke(QStringLiteral("Ctrl+C"));
        controller->setSessionLocked(true);
        QCOMPARE(spy.count(), 2);
        QCOMPARE(controller->lastKeystroke(), QString());
        controller->reportKeystroke(QStringLiteral("Shift+S"));
        QCOMPARE(spy.count(), 2);
        QCOMPARE(controller->lastKeystroke(), QString());
        controller->setSessionLocked(false);
        controller->reportKeystroke(QStringLiteral("Ctrl+C"));
        QCOMPARE(controller->lastKeystroke(), QStringLiteral("Ctrl+C"));
    }

    void summarySaysWhenNothingComposites()
    {
        QSignalSpy spy(controller.get(), &AppController::linuxCapabilitySummaryChanged);
        const QString note = QStringLiteral("No compositing manager runs");
        QVERIFY(!controller->linuxCapabilitySummary().contains(note));
        controller->setCompositing(false);
        QVERIFY(controller->linuxCapabilitySummary().contains(note));
        controller->setCompositing(false);
        controller->setCompositing(true);
        QVERIFY(!controller->linuxCapabilitySummary().contains(note));
        QCOMPARE(spy.count(), 2);
    }

    void quitAsksFirstWhenConfirmationIsOn()
    {
        QSignalSpy spy(controller.get(), &AppController::quitRequested);
        controller->requestQuit();
        QCOMPARE(spy.count(), 1);
        controller->confirmAndQuit(true);
        QVERIFY(!settings->confirmQuit());
    }

    void settingsPageRequestOpensSettings()
    {
        QSignalSpy page(controller.get(), &AppController::settingsPageRequested);
        controller->showSettingsPage(QStringLiteral("displays"));
        QVERIFY(controller->settingsVisible());
        QCOMPARE(page.count(), 1);
        QCOMPARE(page.at(0).at(0).toString(), QStringLiteral("displays"));
    }

    void penColourIsNotStored()
    {
        QSignalSpy spy(controller.get(), &AppController::currentPenColorChanged);
        controller->setCurrentPenColor(QStringLiteral("#805EC27A"));
        controller->setCurrentPenColor(QStringLiteral("#805EC27A"));
        QCOMPARE(spy.count(), 1);
        QCOMPARE(settings->defaultDrawingColor(), QStringLiteral("#F4C24A"));
    }
};

int main(int argc, char *argv[])
{
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    QGuiApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("GlimmoraControllerTest"));
    TestAppController test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_appcontroller.moc"
