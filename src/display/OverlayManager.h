#pragma once

#include "platform/KeyboardFocus.h"
#include "platform/WindowPassThrough.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRegion>
#include <QSet>
#include <QString>
#include <QWindow>

#include <memory>

// Holds the overlay windows by key (a display id, or "hud") and applies the
// mouse pass-through value to them: one global value plus per-window
// overrides that differ from it.
class OverlayManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(OverlayManager)
    Q_PROPERTY(bool clickThrough READ clickThrough NOTIFY clickThroughChanged FINAL)

public:
    explicit OverlayManager(
        std::unique_ptr<WindowPassThrough> passThrough = WindowPassThrough::create(),
        std::unique_ptr<KeyboardFocus> keyboard = KeyboardFocus::create(),
        QObject *parent = nullptr);
    ~OverlayManager() override;

    bool clickThrough() const { return m_clickThrough; }

    // The value the window under `id` has now: its override, else the global one.
    bool effectiveClickThrough(const QString &id) const;
    bool isRegistered(const QString &id) const { return m_windows.contains(id); }

    void setClickThrough(bool enabled);
    void setWindowClickThrough(const QString &displayId, bool enabled);
    // Lets the window under `id` take the mouse only inside `area`, in global
    // logical coordinates, where the platform can shape input; false where it
    // cannot. setWindowClickThrough returns it to a whole-window value.
    bool setWindowInputArea(const QString &id, const QRegion &area);
    // Lends the keyboard to the window under `id` while a dialog in it needs
    // the keys, and hands it back to the window that had it after.
    void setKeyboardLent(const QString &id, bool lent);
    void registerWindow(const QString &id, QWindow *window);
    void unregisterWindow(const QString &id);

    // Keeps the window out of screen grabs where the platform can.
    void excludeFromCapture(QWindow *window);
    // What is seen of the window: `area` in its own coordinates, or all of it.
    void setVisibleArea(QWindow *window, const std::optional<QRegion> &area);

signals:
    void clickThroughChanged();

private:
    void applyClickThrough(QWindow *window, bool value);

    std::unique_ptr<WindowPassThrough> m_passThrough;
    std::unique_ptr<KeyboardFocus> m_keyboard;
    QHash<QString, QPointer<QWindow>> m_windows;
    QHash<QString, bool> m_overrides;
    // Windows that take the mouse in an area: the global value leaves them alone.
    QSet<QString> m_shaped;
    bool m_clickThrough = true;
};
