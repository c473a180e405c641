#pragma once

#include <QObject>

// The window system's materials for a window: a dark title bar and the
// translucent backdrops of the desktop. Each operation takes the window as an
// object and does nothing for anything that is not a window with a native
// handle. Platforms without such materials do nothing at all.
class WinAcrylic : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(WinAcrylic)

public:
    explicit WinAcrylic(QObject *parent = nullptr)
        : QObject(parent)
    {
    }

    // The main-window material over the whole client area, rounded corners.
    Q_INVOKABLE void applyMica(QObject *window);
    // The transient-window material over the whole client area, rounded corners.
    Q_INVOKABLE void applyAcrylic(QObject *window);
    Q_INVOKABLE void applyDarkTitleBar(QObject *window);
};
