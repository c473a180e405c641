#pragma once

#include <QObject>

#include <atomic>

class QQuickWindow;

// Tells when a window has put on screen a frame that holds its state as it
// was at a given moment. The scene graph renders on a thread of its own, so
// the frame presented just after a change may still be one made before it.
class PresentedFrameWatch : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PresentedFrameWatch)

public:
    explicit PresentedFrameWatch(QQuickWindow *window);

    // Asks the window for a frame; presented() follows once a frame made
    // from the state as it is now has been shown.
    void watch();

signals:
    void presented();

private:
    QQuickWindow *m_window;
    // Written on the GUI thread, read on the render thread while the GUI
    // thread waits for the synchronisation, or the other way round.
    std::atomic<quint64> m_asked { 0 };
    std::atomic<quint64> m_synchronised { 0 };
    std::atomic<quint64> m_told { 0 };
};
