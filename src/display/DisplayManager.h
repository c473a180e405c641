#pragma once

#include <QObject>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariantList>

class QScreen;
class SettingsManager;

// Turns Qt's screens into displays with ids that survive restarts, remembers
// which displays the user has switched on and picks the control display, the
// one that carries the toolbar.
class DisplayManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DisplayManager)
    Q_PROPERTY(QVariantList displays READ displays NOTIFY displaysChanged FINAL)
    Q_PROPERTY(QString controlDisplayId READ controlDisplayId NOTIFY controlDisplayIdChanged FINAL)

public:
    // The lists live in the settings manager's store (the same organisation
    // and application) under keys of their own; it offers no raw key access,
    // so the store is opened here and the argument only ties the two in order.
    explicit DisplayManager(SettingsManager *settings, QObject *parent = nullptr);
    ~DisplayManager() override;

    QVariantList displays() const { return m_displays; }
    QString controlDisplayId() const { return m_controlDisplayId; }

    Q_INVOKABLE void setDisplayEnabled(const QString &displayId, bool enabled);
    Q_INVOKABLE void setControlDisplay(const QString &displayId);
    Q_INVOKABLE bool canDisableDisplay(const QString &displayId) const;
    Q_INVOKABLE bool isDisplayEnabled(const QString &displayId) const;
    Q_INVOKABLE void resetDisplayDefaults();
    Q_INVOKABLE QString displayIdForScreen(const QString &screenName) const;

    QString displayIdForScreen(const QScreen *screen) const;
    QStringList connectedDisplayIds() const;
    QString primaryDisplayId() const;

signals:
    void displaysChanged();
    void controlDisplayIdChanged();

private:
    void watchScreen(QScreen *screen);
    void rebuildDisplays();
    bool normalizeSelection();
    QString fallbackControlDisplayId(const QString &excludedId) const;
    QVariantMap rowFor(const QScreen *screen) const;
    void storeEnabledIds();
    void storeControlDisplayId();

    QVariantList m_displays;
    QStringList m_enabledIds;
    QStringList m_knownIds;
    QString m_controlDisplayId;
    QSettings m_store;
};
