#pragma once

#include "hotkeys/KeyCode.h"

#include <QObject>
#include <QString>

#include <memory>

// System-wide hotkeys and a view of every key press, the two things the
// hotkey service needs of the window system.
class HotkeyBackend : public QObject
{
    Q_OBJECT

public:
    explicit HotkeyBackend(QObject *parent = nullptr)
        : QObject(parent)
    {
    }
    ~HotkeyBackend() override = default;

    // False where the window system cannot provide global keys (no display,
    // or a session whose native windows these calls do not reach); the
    // reason is a sentence for the log.
    virtual bool isAvailable() const = 0;
    virtual QString unavailableReason() const = 0;

    // Takes the combination for this program under `id`. False means the
    // system refused it: another program holds it, or another id of ours.
    virtual bool registerHotkey(int id, const KeyCombination &combination) = 0;
    virtual void unregisterHotkey(int id) = 0;

    // Begins delivering hotkeyPressed and keyEvent. Calling it again does
    // nothing.
    virtual void start() = 0;

    // Whether another program holds the whole keyboard now, as a screen
    // locker or a password prompt does: its keys are not the presenter's.
    // Asked only when a key would be acted on or shown. Where the window
    // system keeps such keys from the program anyway, the answer is no.
    virtual bool keyboardGrabbedElsewhere() { return false; }

    static std::unique_ptr<HotkeyBackend> create();

signals:
    // A registered combination was pressed.
    void hotkeyPressed(int id);
    // Any key went down or up anywhere on the desktop, with the modifiers
    // held at that moment. The key reaches the focused program as well.
    void keyEvent(int key, bool down, int modifiers);

private:
    Q_DISABLE_COPY_MOVE(HotkeyBackend)
};
