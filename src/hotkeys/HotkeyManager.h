#pragma once

#include "hotkeys/KeystrokeFilter.h"
#include "platform/HotkeyBackend.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>

#include <memory>

// Makes the hotkey map work while another program has the focus and feeds
// the keystroke display. Combinations with a modifier and function keys are
// taken system-wide; bare letters, digits and Esc are only observed and act
// as commands while the overlay is on and the settings are hidden. Every key
// reaches the program in front as well.
class HotkeyManager : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("HotkeyManager is created by the application")
    Q_PROPERTY(
        int hotkeyConflictRevision READ hotkeyConflictRevision NOTIFY hotkeyConflictsChanged FINAL)
    // While true, bare keys of the map act wherever the focus is, so a window
    // shortcut of the same key would act a second time.
    Q_PROPERTY(bool commandKeysActive READ commandKeysActive NOTIFY commandKeysActiveChanged FINAL)

public:
    explicit HotkeyManager(std::unique_ptr<HotkeyBackend> backend = HotkeyBackend::create(),
                           QObject *parent = nullptr);
    ~HotkeyManager() override;

    int hotkeyConflictRevision() const { return m_conflictRevision; }
    // True when the system refused the action's combination.
    Q_INVOKABLE bool hotkeyHasConflict(const QString &action) const;

    void setKeystrokeFilter(bool enabled, bool modifier, bool function, bool navigation,
                            bool alphaNumeric);
    // Whether bare keys may run commands (overlay on, settings hidden, no
    // dialog open).
    void setCommandKeysActive(bool active);
    bool commandKeysActive() const { return m_commandKeysActive; }
    // Releases every registration and registers the map anew.
    void setHotkeys(const QVariantMap &sequences);
    // Registers the map (the default one if none was given) and begins
    // observing keys.
    void start();

    // False where the window system gives no global keys; every action
    // that needs a registration then shows as a conflict.
    bool globalHotkeysAvailable() const;

signals:
    void toggleOverlayRequested();
    void settingsRequested();
    void toolRequested(const QString &tool);
    void exitToCursorRequested();
    void undoRequested();
    void redoRequested();
    void clearRequested();
    void captureFullScreenRequested();
    void captureRegionRequested();
    void toggleToolbarRequested();
    void quitRequested();
    void keystrokeRequested(const QString &combo);
    void hotkeyConflictsChanged();
    void commandKeysActiveChanged();

private:
    void unregisterAll();
    void onHotkeyPressed(int id);
    void onKeyEvent(int key, bool down, int modifiers);
    void dispatch(const QString &action, const QString &sequence);

    // A bare key the observer runs as a command, parsed once per map.
    struct BareCommand
    {
        QString action;
        QString sequence;
        KeyCombination combination;
    };

    std::unique_ptr<HotkeyBackend> m_backend;
    QList<int> m_registeredIds;
    QVariantMap m_sequences;
    QList<BareCommand> m_bareCommands;
    QHash<int, QString> m_actionForId;
    QHash<QString, bool> m_conflicts;
    int m_conflictRevision = 0;
    KeystrokeFilter m_filter;
    bool m_commandKeysActive = true;
    bool m_started = false;

    Q_DISABLE_COPY_MOVE(HotkeyManager)
};
