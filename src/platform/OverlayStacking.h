#pragma once

#include <QList>
#include <QObject>

#include <memory>

class QWindow;

// Keeps the program's windows above the desktop's ordinary windows, in their
// own order, whenever the window system reports that another window was
// mapped or restacked, and never above another program's override-redirect
// window that came later: a screen locker, a menu, a tooltip stays on top.
// It also tells when the session is locked, from a locker's window above
// ours or from the desktop where it reports it; nothing is restacked then.
class OverlayStacking : public QObject
{
    Q_OBJECT

public:
    explicit OverlayStacking(QObject *parent = nullptr)
        : QObject(parent)
    {
    }
    ~OverlayStacking() override = default;

    // The windows to keep in place, bottom to top; hidden ones and ones not
    // yet created take their place once they are shown.
    virtual void setWindows(const QList<QWindow *> &bottomToTop) = 0;
    virtual bool sessionLocked() const = 0;

    static std::unique_ptr<OverlayStacking> create();

signals:
    void sessionLockedChanged();

private:
    Q_DISABLE_COPY_MOVE(OverlayStacking)
};
