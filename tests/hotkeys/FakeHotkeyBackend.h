#pragma once

#include "platform/HotkeyBackend.h"

#include <QHash>
#include <QList>

// What the window system knows: combinations other programs hold, and ours
// by id. It outlives the backend, so a test can look after destruction.
struct FakeKeySystem
{
    QList<KeyCombination> heldElsewhere;
    QHash<int, KeyCombination> registered;
    bool available = true;
    int startCalls = 0;
    // Another program holds the whole keyboard, and how often that was asked.
    bool keyboardGrabbed = false;
    int grabQuestions = 0;
};

// Refuses like a window system: a combination held by another program, or
// one this program already registered under another id.
class FakeHotkeyBackend : public HotkeyBackend
{
    Q_OBJECT

public:
    explicit FakeHotkeyBackend(FakeKeySystem *system)
        : m_system(system)
    {
    }

    bool isAvailable() const override { return m_system->available; }
    QString unavailableReason() const override
    {
        return m_system->available ? QString() : QStringLiteral("fake system without keys");
    }
    bool registerHotkey(int id, const KeyCombination &combination) override
    {
        if (!m_system->available || m_system->heldElsewhere.contains(combination))
            return false;
        for (auto it = m_system->registered.cbegin(); it != m_system->registered.cend(); ++it) {
            if (it.key() != id && it.value() == combination)
                return false;
        }
        m_system->registered.insert(id, combination);
        return true;
    }
    void unregisterHotkey(int id) override { m_system->registered.remove(id); }
    void start() override { ++m_system->startCalls; }
    bool keyboardGrabbedElsewhere() override
    {
        ++m_system->grabQuestions;
        return m_system->keyboardGrabbed;
    }

    void pressHotkey(int id) { emit hotkeyPressed(id); }
    void tapKey(int key, int modifiers)
    {
        emit keyEvent(key, true, modifiers);
        emit keyEvent(key, false, modifiers);
    }

private:
    FakeKeySystem *m_system;
};
