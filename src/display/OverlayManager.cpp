#include "display/OverlayManager.h"

OverlayManager::OverlayManager(std::unique_ptr<WindowPassThrough> passThrough,
                               std::unique_ptr<KeyboardFocus> keyboard, QObject *parent)
    : QObject(parent)
    , m_passThrough(std::move(passThrough))
    , m_keyboard(std::move(keyboard))
{
}

OverlayManager::~OverlayManager() = default;

bool OverlayManager::effectiveClickThrough(const QString &id) const
{
    return m_overrides.value(id, m_clickThrough);
}

void OverlayManager::setClickThrough(bool enabled)
{
    if (enabled == m_clickThrough)
        return;
    m_clickThrough = enabled;
    m_overrides.clear();
    for (auto it = m_windows.cbegin(); it != m_windows.cend(); ++it) {
        if (!m_shaped.contains(it.key()))
            applyClickThrough(it.value(), enabled);
    }
    emit clickThroughChanged();
}

void OverlayManager::setWindowClickThrough(const QString &displayId, bool enabled)
{
    const auto it = m_windows.constFind(displayId);
    if (it == m_windows.constEnd())
        return;
    if (m_shaped.remove(displayId) > 0) {
        if (enabled != m_clickThrough)
            m_overrides.insert(displayId, enabled);
        else
            m_overrides.remove(displayId);
        applyClickThrough(it.value(), enabled);
        return;
    }
    if (enabled != m_clickThrough) {
        if (effectiveClickThrough(displayId) != enabled) {
            m_overrides.insert(displayId, enabled);
            applyClickThrough(it.value(), enabled);
        }
    } else if (m_overrides.remove(displayId) > 0) {
        applyClickThrough(it.value(), enabled);
    }
}

bool OverlayManager::setWindowInputArea(const QString &id, const QRegion &area)
{
    QWindow *window = m_windows.value(id);
    if (!window || !m_passThrough
        || !m_passThrough->setInputArea(window, area.translated(-window->position())))
        return false;
    m_shaped.insert(id);
    return true;
}

void OverlayManager::setKeyboardLent(const QString &id, bool lent)
{
    if (!m_keyboard)
        return;
    if (!lent)
        m_keyboard->giveBack();
    else if (QWindow *window = m_windows.value(id))
        m_keyboard->lendTo(window);
}

void OverlayManager::registerWindow(const QString &id, QWindow *window)
{
    if (!window)
        return;
    m_windows.insert(id, window);
    applyClickThrough(window, effectiveClickThrough(id));
}

void OverlayManager::unregisterWindow(const QString &id)
{
    m_windows.remove(id);
    m_overrides.remove(id);
    m_shaped.remove(id);
}

void OverlayManager::excludeFromCapture(QWindow *window)
{
    if (window && m_passThrough)
        m_passThrough->excludeFromCapture(window);
}

void OverlayManager::setVisibleArea(QWindow *window, const std::optional<QRegion> &area)
{
    if (window && m_passThrough)
        m_passThrough->setVisibleArea(window, area);
}

void OverlayManager::applyClickThrough(QWindow *window, bool value)
{
    if (window && m_passThrough)
        m_passThrough->setPassThrough(window, value);
}
