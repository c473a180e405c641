#pragma once

#include "platform/HotkeyBackend.h"

#include <QAbstractNativeEventFilter>
#include <QSet>

#include <windows.h>

// Global keys on Windows: RegisterHotKey for the hotkeys, whose WM_HOTKEY
// arrives through the native event filter, and a low-level keyboard hook
// that observes every key and always passes it on.
class WindowsHotkeyBackend : public HotkeyBackend, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    explicit WindowsHotkeyBackend(QObject *parent = nullptr);
    ~WindowsHotkeyBackend() override;

    bool isAvailable() const override { return true; }
    QString unavailableReason() const override { return QString(); }
    bool registerHotkey(int id, const KeyCombination &combination) override;
    void unregisterHotkey(int id) override;
    void start() override;

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    static LRESULT CALLBACK hookProc(int code, WPARAM wParam, LPARAM lParam);
    static int heldModifiers();

    QSet<int> m_registeredIds;
    HHOOK m_hook = nullptr;
    bool m_filterInstalled = false;
};
