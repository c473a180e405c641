#include "display/PresentedFrameWatch.h"

#include <QQuickWindow>

PresentedFrameWatch::PresentedFrameWatch(QQuickWindow *window)
    : QObject(window)
    , m_window(window)
{
    // Both on the render thread: a frame takes the GUI state at its
    // synchronisation, and reaches the screen when it is swapped.
    connect(
        window, &QQuickWindow::afterSynchronizing, this,
        [this] { m_synchronised = m_asked.load(); }, Qt::DirectConnection);
    connect(
        window, &QQuickWindow::frameSwapped, this,
        [this] {
            const quint64 shown = m_synchronised.load();
            if (shown > m_told.exchange(shown))
                QMetaObject::invokeMethod(this, &PresentedFrameWatch::presented,
                                          Qt::QueuedConnection);
        },
        Qt::DirectConnection);
}

void PresentedFrameWatch::watch()
{
    ++m_asked;
    m_window->update();
}
