#include "display/DisplayManager.h"

#include "display/DisplayIdentity.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QScreen>

Q_LOGGING_CATEGORY(lcDisplay, "glimmora.display")

namespace {
const QString enabledIdsKey = QStringLiteral("displays/enabledIds");
const QString knownIdsKey = QStringLiteral("displays/knownIds");
const QString controlIdKey = QStringLiteral("displays/controlDisplayId");
} // namespace

DisplayManager::DisplayManager(SettingsManager * /*settings*/, QObject *parent)
    : QObject(parent)
{
    if (m_store.contains(enabledIdsKey))
        m_enabledIds = m_store.value(enabledIdsKey).toStringList();
    if (m_store.contains(knownIdsKey))
        m_knownIds = m_store.value(knownIdsKey).toStringList();
    if (m_store.contains(controlIdKey))
        m_controlDisplayId = m_store.value(controlIdKey).toString();

    connect(qApp, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
        watchScreen(screen);
        rebuildDisplays();
    });
    connect(qApp, &QGuiApplication::screenRemoved, this, &DisplayManager::rebuildDisplays);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, &DisplayManager::rebuildDisplays);
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens)
        watchScreen(screen);
    rebuildDisplays();
}

DisplayManager::~DisplayManager() = default;

void DisplayManager::watchScreen(QScreen *screen)
{
    connect(screen, &QScreen::geometryChanged, this, &DisplayManager::rebuildDisplays);
    connect(screen, &QScreen::availableGeometryChanged, this, &DisplayManager::rebuildDisplays);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &DisplayManager::rebuildDisplays);
}

QString DisplayManager::displayIdForScreen(const QScreen *screen) const
{
    return DisplayIdentity::displayId(screen);
}

QString DisplayManager::displayIdForScreen(const QString &screenName) const
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens) {
        if (screen->name() == screenName)
            return displayIdForScreen(screen);
    }
    return {};
}

QStringList DisplayManager::connectedDisplayIds() const
{
    QStringList ids;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        ids.append(displayIdForScreen(screen));
    return ids;
}

QString DisplayManager::primaryDisplayId() const
{
    return displayIdForScreen(QGuiApplication::primaryScreen());
}

bool DisplayManager::isDisplayEnabled(const QString &displayId) const
{
    return m_enabledIds.contains(displayId);
}

bool DisplayManager::canDisableDisplay(const QString &displayId) const
{
    if (!m_enabledIds.contains(displayId))
        return false;
    int connectedEnabled = 0;
    const QStringList connected = connectedDisplayIds();
    for (const QString &id : connected) {
        if (m_enabledIds.contains(id))
            ++connectedEnabled;
    }
    return connectedEnabled > 1;
}

void DisplayManager::setDisplayEnabled(const QString &displayId, bool enabled)
{
    const bool isEnabled = m_enabledIds.contains(displayId);
    if (enabled && !isEnabled) {
        m_enabledIds.append(displayId);
        if (m_controlDisplayId.isEmpty())
            m_controlDisplayId = displayId;
        storeControlDisplayId();
        storeEnabledIds();
        rebuildDisplays();
    } else if (!enabled && isEnabled) {
        if (!canDisableDisplay(displayId))
            return;
        if (displayId == m_controlDisplayId) {
            m_controlDisplayId = fallbackControlDisplayId(displayId);
            storeControlDisplayId();
            emit controlDisplayIdChanged();
        }
        m_enabledIds.removeAll(displayId);
        storeEnabledIds();
        rebuildDisplays();
    }
}

void DisplayManager::setControlDisplay(const QString &displayId)
{
    if (displayId.isEmpty() || !m_enabledIds.contains(displayId) || displayId == m_controlDisplayId
        || !connectedDisplayIds().contains(displayId))
        return;
    m_controlDisplayId = displayId;
    storeControlDisplayId();
    emit controlDisplayIdChanged();
    rebuildDisplays();
}

void DisplayManager::resetDisplayDefaults()
{
    m_enabledIds.clear();
    const QStringList connected = connectedDisplayIds();
    for (const QString &id : connected) {
        if (!id.isEmpty() && !m_enabledIds.contains(id))
            m_enabledIds.append(id);
    }
    const QString primary = primaryDisplayId();
    if (m_enabledIds.contains(primary))
        m_controlDisplayId = primary;
    else
        m_controlDisplayId = m_enabledIds.value(0);
    storeEnabledIds();
    storeControlDisplayId();
    emit controlDisplayIdChanged();
    rebuildDisplays();
}

void DisplayManager::rebuildDisplays()
{
    bool added = false;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens) {
        const QString id = displayIdForScreen(screen);
        if (m_knownIds.contains(id))
            continue;
        // A display seen for the first time is switched on; a known one that
        // the user switched off stays off.
        m_knownIds.append(id);
        if (!m_enabledIds.contains(id))
            m_enabledIds.append(id);
        added = true;
    }
    if (added) {
        m_store.setValue(knownIdsKey, m_knownIds);
        storeEnabledIds();
    }

    const bool selectionChanged = normalizeSelection();

    QVariantList rows;
    for (const QScreen *screen : screens)
        rows.append(rowFor(screen));
    m_displays = rows;
    qCDebug(lcDisplay).noquote() << "DisplayManager: displays" << connectedDisplayIds().join(u',')
                                 << "control" << m_controlDisplayId;
    emit displaysChanged();
    if (selectionChanged)
        emit controlDisplayIdChanged();
}

bool DisplayManager::normalizeSelection()
{
    bool changed = false;
    const QStringList connected = connectedDisplayIds();
    if (m_enabledIds.isEmpty()) {
        QString choice = primaryDisplayId();
        if (choice.isEmpty())
            choice = connected.value(0);
        if (!choice.isEmpty()) {
            m_enabledIds.append(choice);
            storeEnabledIds();
            changed = true;
        }
    }
    if (m_controlDisplayId.isEmpty() || !m_enabledIds.contains(m_controlDisplayId)
        || !connected.contains(m_controlDisplayId)) {
        const QString fallback = fallbackControlDisplayId(QString());
        if (fallback != m_controlDisplayId) {
            m_controlDisplayId = fallback;
            storeControlDisplayId();
            changed = true;
        }
    }
    // The control display is always enabled.
    if (!m_controlDisplayId.isEmpty() && !m_enabledIds.contains(m_controlDisplayId)) {
        m_enabledIds.append(m_controlDisplayId);
        storeEnabledIds();
        changed = true;
    }
    return changed;
}

QString DisplayManager::fallbackControlDisplayId(const QString &excludedId) const
{
    const QString primary = primaryDisplayId();
    if (!primary.isEmpty() && primary != excludedId && m_enabledIds.contains(primary))
        return primary;
    const QStringList connected = connectedDisplayIds();
    for (const QString &id : m_enabledIds) {
        if (id != excludedId && connected.contains(id))
            return id;
    }
    for (const QString &id : connected) {
        if (id != excludedId)
            return id;
    }
    return {};
}

QVariantMap DisplayManager::rowFor(const QScreen *screen) const
{
    const QString id = displayIdForScreen(screen);
    const QRect geometry = screen->geometry();
    const qreal ratio = screen->devicePixelRatio();
    return {
        { QStringLiteral("id"), id },
        { QStringLiteral("displayName"), DisplayIdentity::displayName(ScreenIdentity::of(screen)) },
        { QStringLiteral("isPrimary"), screen == QGuiApplication::primaryScreen() },
        { QStringLiteral("isControl"), id == m_controlDisplayId },
        { QStringLiteral("enabled"), m_enabledIds.contains(id) },
        { QStringLiteral("canDisable"), canDisableDisplay(id) },
        { QStringLiteral("geometry"),
          QVariantMap { { QStringLiteral("x"), geometry.x() },
                        { QStringLiteral("y"), geometry.y() },
                        { QStringLiteral("width"), geometry.width() },
                        { QStringLiteral("height"), geometry.height() } } },
        { QStringLiteral("scaleFactor"), ratio },
        { QStringLiteral("resolution"),
          QStringLiteral("%1 × %2")
              .arg(qRound(geometry.width() * ratio))
              .arg(qRound(geometry.height() * ratio)) },
        { QStringLiteral("scalePercent"), QStringLiteral("%1%").arg(qRound(ratio * 100)) },
    };
}

void DisplayManager::storeEnabledIds()
{
    m_store.setValue(enabledIdsKey, m_enabledIds);
}

void DisplayManager::storeControlDisplayId()
{
    m_store.setValue(controlIdKey, m_controlDisplayId);
}
