#include <QGuiApplication>
#include <QQuickWindow>

#include <cstdio>

// Shows a transparent, frameless Qt Quick window. Says "ready" when it enters
// the event loop (where Glimmora logs its start) and "shown" once the first
// frame is on screen, then stays until killed.
int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    QQuickWindow window;
    window.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool);
    window.setColor(Qt::transparent);
    window.resize(1, 1);
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &app,
        [] {
            std::puts("shown");
            std::fflush(stdout);
        },
        Qt::SingleShotConnection);
    window.show();
    std::puts("ready");
    std::fflush(stdout);
    return QGuiApplication::exec();
}
