#include "hotkeys/HotkeyManager.h"

#include "hotkeys/HotkeyActions.h"
#include "hotkeys/HotkeyLogging.h"
#include "hotkeys/HotkeySequence.h"

HotkeyManager::HotkeyManager(std::unique_ptr<HotkeyBackend> backend, QObject *parent)
    : QObject(parent)
    , m_backend(std::move(backend))
{
    Q_ASSERT(m_backend);
    connect(m_backend.get(), &HotkeyBackend::hotkeyPressed, this, &HotkeyManager::onHotkeyPressed);
    connect(m_backend.get(), &HotkeyBackend::keyEvent, this, &HotkeyManager::onKeyEvent);
}

HotkeyManager::~HotkeyManager()
{
    unregisterAll();
}

bool HotkeyManager::hotkeyHasConflict(const QString &action) const
{
    return m_conflicts.value(action, false);
}

void HotkeyManager::setKeystrokeFilter(bool enabled, bool modifier, bool function, bool navigation,
                                       bool alphaNumeric)
{
    m_filter = KeystrokeFilter { enabled, modifier, function, navigation, alphaNumeric };
}

void HotkeyManager::setCommandKeysActive(bool active)
{
    if (active == m_commandKeysActive)
        return;
    m_commandKeysActive = active;
    emit commandKeysActiveChanged();
}

void HotkeyManager::setHotkeys(const QVariantMap &sequences)
{
    m_sequences = sequences;
    unregisterAll();
    m_conflicts.clear();

    // In key order, so that the first of two equal bare keys wins.
    m_bareCommands.clear();
    for (auto it = m_sequences.cbegin(); it != m_sequences.cend(); ++it) {
        const QString sequence = it.value().toString();
        const auto combination = HotkeySequence::parse(sequence);
        if (combination && !HotkeySequence::mayRegisterGlobally(*combination))
            m_bareCommands.append({ it.key(), sequence, *combination });
    }

    for (const HotkeyActions::Action &entry : HotkeyActions::all()) {
        const QString action = QString::fromLatin1(entry.name);
        const auto combination = HotkeySequence::parse(m_sequences.value(action).toString());
        if (!combination)
            continue;
        if (!HotkeySequence::mayRegisterGlobally(*combination)) {
            m_conflicts.insert(action, false);
            continue;
        }
        m_backend->unregisterHotkey(entry.id);
        if (m_backend->registerHotkey(entry.id, *combination)) {
            m_registeredIds.append(entry.id);
            m_actionForId.insert(entry.id, action);
            m_conflicts.insert(action, false);
        } else {
            qCInfo(lcHotkeys) << "HotkeyManager: could not register" << action
                              << m_sequences.value(action).toString();
            m_conflicts.insert(action, true);
        }
    }

    ++m_conflictRevision;
    emit hotkeyConflictsChanged();
}

void HotkeyManager::start()
{
    if (!m_backend->isAvailable())
        qCWarning(lcHotkeys) << "HotkeyManager: global keys are unavailable:"
                             << m_backend->unavailableReason();
    if (m_sequences.isEmpty())
        m_sequences = HotkeyActions::defaultMap();
    setHotkeys(m_sequences);
    if (!m_started) {
        m_backend->start();
        m_started = true;
    }
}

bool HotkeyManager::globalHotkeysAvailable() const
{
    return m_backend->isAvailable();
}

void HotkeyManager::unregisterAll()
{
    for (int id : std::as_const(m_registeredIds))
        m_backend->unregisterHotkey(id);
    m_registeredIds.clear();
    m_actionForId.clear();
}

void HotkeyManager::onHotkeyPressed(int id)
{
    const QString action = m_actionForId.value(id);
    if (action.isEmpty())
        return;
    dispatch(action, m_sequences.value(action).toString());
}

void HotkeyManager::onKeyEvent(int key, bool down, int modifiers)
{
    // Auto-repeat is not told apart: a held key runs again like a new press.
    if (!down)
        return;

    const BareCommand *command = nullptr;
    if (m_commandKeysActive) {
        // Exact modifiers: a bare Esc does not match while Ctrl is held.
        const KeyCombination pressed { modifiers, key };
        for (const BareCommand &candidate : std::as_const(m_bareCommands)) {
            if (candidate.combination == pressed) {
                command = &candidate;
                break;
            }
        }
    }
    const QString text = command ? QString() : m_filter.text(key, modifiers);
    if (!command && text.isEmpty())
        return;
    // Observed keys arrive also while a locker or a password prompt holds
    // the keyboard; those are neither commands nor shown.
    if (m_backend->keyboardGrabbedElsewhere())
        return;
    if (command)
        dispatch(command->action, command->sequence);
    else
        emit keystrokeRequested(text);
}

void HotkeyManager::dispatch(const QString &action, const QString &sequence)
{
    // A command is always shown, whatever the class switches say.
    if (m_filter.enabled)
        emit keystrokeRequested(sequence);

    if (action == u"toggleOverlay") {
        emit toggleOverlayRequested();
    } else if (action == u"openSettings") {
        emit settingsRequested();
    } else if (action == u"spotlight" || action == u"pen" || action == u"arrow"
               || action == u"rectangle" || action == u"circle" || action == u"highlighter"
               || action == u"eraser" || action == u"cursor") {
        emit toolRequested(action);
    } else if (action == u"exitToCursor") {
        emit exitToCursorRequested();
    } else if (action == u"undo") {
        emit undoRequested();
    } else if (action == u"redo") {
        emit redoRequested();
    } else if (action == u"clear") {
        emit clearRequested();
    } else if (action == u"captureRegion") {
        emit captureRegionRequested();
    } else if (action == u"captureFullScreen") {
        emit captureFullScreenRequested();
    } else if (action == u"quit") {
        emit quitRequested();
    }
}
