#include "platform/windows/WindowsHotkeyBackend.h"

#include "hotkeys/HotkeyLogging.h"

#include <QCoreApplication>

std::unique_ptr<HotkeyBackend> HotkeyBackend::create()
{
    return std::make_unique<WindowsHotkeyBackend>();
}

// The neutral key codes and modifier bits are passed through unchanged.
static_assert(KeyModifier::Alt == MOD_ALT && KeyModifier::Ctrl == MOD_CONTROL
              && KeyModifier::Shift == MOD_SHIFT && KeyModifier::Win == MOD_WIN);
static_assert(KeyCode::Backspace == VK_BACK && KeyCode::Tab == VK_TAB && KeyCode::Enter == VK_RETURN
              && KeyCode::Escape == VK_ESCAPE && KeyCode::Space == VK_SPACE);
static_assert(KeyCode::Shift == VK_SHIFT && KeyCode::Control == VK_CONTROL
              && KeyCode::Alt == VK_MENU && KeyCode::LeftWin == VK_LWIN
              && KeyCode::RightWin == VK_RWIN && KeyCode::LeftShift == VK_LSHIFT
              && KeyCode::RightShift == VK_RSHIFT && KeyCode::LeftControl == VK_LCONTROL
              && KeyCode::RightControl == VK_RCONTROL && KeyCode::LeftAlt == VK_LMENU
              && KeyCode::RightAlt == VK_RMENU);
static_assert(KeyCode::PageUp == VK_PRIOR && KeyCode::PageDown == VK_NEXT && KeyCode::End == VK_END
              && KeyCode::Home == VK_HOME && KeyCode::Left == VK_LEFT && KeyCode::Up == VK_UP
              && KeyCode::Right == VK_RIGHT && KeyCode::Down == VK_DOWN
              && KeyCode::Insert == VK_INSERT && KeyCode::Delete == VK_DELETE);
static_assert(KeyCode::F1 == VK_F1 && KeyCode::F24 == VK_F24 && KeyCode::Digit0 == '0'
              && KeyCode::Digit9 == '9' && KeyCode::LetterA == 'A' && KeyCode::LetterZ == 'Z');

namespace {

// The hook's plain callback finds its object through this pointer.
WindowsHotkeyBackend *hookInstance = nullptr;

bool isDown(int virtualKey)
{
    return GetAsyncKeyState(virtualKey) < 0;
}

} // namespace

WindowsHotkeyBackend::WindowsHotkeyBackend(QObject *parent)
    : HotkeyBackend(parent)
{
    hookInstance = this;
}

WindowsHotkeyBackend::~WindowsHotkeyBackend()
{
    if (m_hook)
        UnhookWindowsHookEx(m_hook);
    for (int id : std::as_const(m_registeredIds))
        UnregisterHotKey(nullptr, id);
    if (m_filterInstalled && QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
    if (hookInstance == this)
        hookInstance = nullptr;
}

bool WindowsHotkeyBackend::registerHotkey(int id, const KeyCombination &combination)
{
    // The neutral modifier bits are the MOD_ flags, and the keys virtual keys.
    const UINT modifiers = static_cast<UINT>(combination.modifiers) | MOD_NOREPEAT;
    UnregisterHotKey(nullptr, id);
    if (!RegisterHotKey(nullptr, id, modifiers, static_cast<UINT>(combination.key)))
        return false;
    m_registeredIds.insert(id);
    return true;
}

void WindowsHotkeyBackend::unregisterHotkey(int id)
{
    UnregisterHotKey(nullptr, id);
    m_registeredIds.remove(id);
}

void WindowsHotkeyBackend::start()
{
    if (!m_filterInstalled && QCoreApplication::instance()) {
        QCoreApplication::instance()->installNativeEventFilter(this);
        m_filterInstalled = true;
    }
    if (m_hook)
        return;
    m_hook = SetWindowsHookExW(WH_KEYBOARD_LL, &WindowsHotkeyBackend::hookProc,
                               GetModuleHandleW(nullptr), 0);
    if (!m_hook)
        qCInfo(lcHotkeys) << "WindowsHotkeyBackend: the keyboard hook could not be installed";
}

bool WindowsHotkeyBackend::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "windows_generic_MSG" && eventType != "windows_dispatcher_MSG")
        return false;
    const auto *msg = static_cast<const MSG *>(message);
    if (!msg || msg->message != WM_HOTKEY)
        return false;
    const int id = static_cast<int>(msg->wParam);
    if (!m_registeredIds.contains(id))
        return false;
    emit hotkeyPressed(id);
    return true;
}

LRESULT CALLBACK WindowsHotkeyBackend::hookProc(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HC_ACTION && hookInstance) {
        const auto *info = reinterpret_cast<const KBDLLHOOKSTRUCT *>(lParam);
        const bool down = wParam == WM_KEYDOWN || wParam == WM_SYSKEYDOWN;
        emit hookInstance->keyEvent(static_cast<int>(info->vkCode), down, heldModifiers());
    }
    // Observe only: the key always goes on to the program in front.
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

int WindowsHotkeyBackend::heldModifiers()
{
    int modifiers = KeyModifier::None;
    if (isDown(VK_CONTROL) || isDown(VK_LCONTROL) || isDown(VK_RCONTROL))
        modifiers |= KeyModifier::Ctrl;
    if (isDown(VK_MENU) || isDown(VK_LMENU) || isDown(VK_RMENU))
        modifiers |= KeyModifier::Alt;
    if (isDown(VK_SHIFT) || isDown(VK_LSHIFT) || isDown(VK_RSHIFT))
        modifiers |= KeyModifier::Shift;
    if (isDown(VK_LWIN) || isDown(VK_RWIN))
        modifiers |= KeyModifier::Win;
    return modifiers;
}
