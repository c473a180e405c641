// Frames per second and CPU of the whole process with the spotlight following
// a moving pointer (over a bare display and over a drawing), with the
// spotlight on and the pointer still, and with the magnifier on; beside a
// reference window that redraws a full-screen rectangle every frame in the
// same run.
#include "AssembledApp.h"
#include "XTestSession.h"
#include "app/AppController.h"
#include "app/RenderingFootprint.h"
#include "display/DisplayManager.h"
#include "drawing/DrawingModel.h"
#include "settings/SettingsManager.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <thread>

namespace {

double processCpuSeconds()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec
        + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

struct Figures
{
    double fps = 0;
    double cpuPercent = 0;
};

// Runs the event loop for `seconds` and counts the frames `window` presents.
// When `moving`, a thread of the bench moves the pointer in a circle at the
// 125 Hz of a common mouse, so that the pointer, not the bench, sets the pace
// and the event loop runs as it would for a user.
Figures measure(QQuickWindow *window, XTestSession &user, bool moving, double seconds)
{
    int frames = 0;
    const auto connection =
        QObject::connect(window, &QQuickWindow::frameSwapped, window, [&frames] { ++frames; });
    std::atomic_bool stop = false;
    std::thread mover;
    if (moving) {
        mover = std::thread([&user, &stop] {
            for (int step = 0; !stop; ++step) {
                const double angle = step * 0.025;
                user.moveTo(
                    QPoint(960 + int(300 * std::cos(angle)), 540 + int(300 * std::sin(angle))));
                std::this_thread::sleep_for(std::chrono::milliseconds(8));
            }
        });
    }
    const double cpuBefore = processCpuSeconds();
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    QTimer::singleShot(int(seconds * 1000), &loop, &QEventLoop::quit);
    loop.exec();
    const double elapsed = clock.elapsed() / 1000.0;
    const double cpu = processCpuSeconds() - cpuBefore;
    stop = true;
    if (mover.joinable())
        mover.join();
    QObject::disconnect(connection);
    return { frames / elapsed, 100.0 * cpu / elapsed };
}

void print(const char *what, const Figures &figures, const Figures &reference)
{
    std::printf("%-34s %6.1f fps (%.2f of reference)  %5.1f%% of one core\n", what, figures.fps,
                reference.fps > 0 ? figures.fps / reference.fps : 0.0, figures.cpuPercent);
}

} // namespace

int main(int argc, char *argv[])
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(QStringLiteral("config"))));
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(QStringLiteral("data"))));
    // The windows as the program makes them.
    RenderingFootprint::trim();
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    const double seconds = qEnvironmentVariableIsSet("GLIMMORA_BENCH_SECONDS")
        ? qEnvironmentVariable("GLIMMORA_BENCH_SECONDS").toDouble()
        : 5.0;
    XTestSession user;

    Figures reference;
    {
        // A full-screen window that redraws every frame: what this machine's
        // software renderer can present at most.
        QQuickWindow window;
        window.setColor(Qt::transparent);
        window.setGeometry(0, 0, 1920, 1080);
        QQuickItem spinner(window.contentItem());
        window.show();
        if (!QTest::qWaitForWindowExposed(&window)) {
            std::fprintf(stderr, "bench_presentation: the reference window never showed\n");
            return 1;
        }
        QObject::connect(&window, &QQuickWindow::frameSwapped, &window,
                         [&window] { window.update(); });
        window.update();
        reference = measure(&window, user, false, seconds);
    }

    AssembledApp app;
    if (!app.isValid()) {
        std::fprintf(stderr, "bench_presentation: the program's windows could not be made\n");
        return 1;
    }
    app.settings().setFirstRunDone(true);
    QQuickWindow *overlay = nullptr;
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        auto *quickWindow = qobject_cast<QQuickWindow *>(window);
        if (quickWindow && quickWindow != app.hud() && quickWindow->isVisible()
            && quickWindow->geometry().contains(QPoint(960, 540)))
            overlay = quickWindow;
    }
    app.controller().setTool(QStringLiteral("spotlight"));
    QTest::qWait(500);

    const Figures moving = measure(overlay, user, true, seconds);
    QTest::qWait(500);
    const Figures still = measure(overlay, user, false, seconds);

    // A presenter who has drawn on the slide: one stroke across the display.
    app.drawing().beginStroke(QPointF(200, 200), QStringLiteral("pen"), 6,
                              QStringLiteral("#F4C24A"), app.displays().controlDisplayId());
    app.drawing().appendPoint(QPointF(1700, 900));
    app.drawing().endStroke();
    QTest::qWait(500);
    const Figures overDrawing = measure(overlay, user, true, seconds);
    app.drawing().clear();

    app.controller().setTool(QStringLiteral("cursor"));
    app.controller().setMagnifierEnabled(true);
    QTest::qWait(500);
    const Figures magnifier = measure(app.hud(), user, true, seconds);

    std::printf("1920x1080, software renderer, %.0f s each\n", seconds);
    print("reference: redraw every frame", reference, reference);
    print("spotlight, pointer moving", moving, reference);
    print("spotlight, pointer still", still, reference);
    print("spotlight moving over a drawing", overDrawing, reference);
    print("magnifier, pointer moving", magnifier, reference);
    const auto verdict = [](bool met) {
        return met ? "met" : "missed";
    };
    std::printf("target: spotlight moving at 60 fps: %s\n", verdict(moving.fps >= 59));
    std::printf("target: spotlight still under 2%% of a core: %s\n", verdict(still.cpuPercent < 2));
    std::printf("target: spotlight moving over a drawing at 60 fps and <= 35%% of a core: %s\n",
                verdict(overDrawing.fps >= 59 && overDrawing.cpuPercent <= 35));
    std::printf("target: magnifier moving at 60 fps and <= 30%% of a core: %s\n",
                verdict(magnifier.fps >= 59 && magnifier.cpuPercent <= 30));
    double load[1] = { 0 };
    if (getloadavg(load, 1) > 0)
        std::printf("load average: %.2f\n", load[0]);
    return 0;
}
