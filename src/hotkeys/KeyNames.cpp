#include "hotkeys/KeyNames.h"

#include "hotkeys/KeyCode.h"

namespace KeyNames {

QString name(int key)
{
    if (key >= KeyCode::F1 && key <= KeyCode::F24)
        return QStringLiteral("F%1").arg(key - KeyCode::F1 + 1);
    if ((key >= KeyCode::LetterA && key <= KeyCode::LetterZ)
        || (key >= KeyCode::Digit0 && key <= KeyCode::Digit9))
        return QString(QChar(key));
    switch (key) {
    case KeyCode::Backspace:
        return QStringLiteral("Backspace");
    case KeyCode::Tab:
        return QStringLiteral("Tab");
    case KeyCode::Enter:
        return QStringLiteral("Enter");
    case KeyCode::Shift:
    case KeyCode::LeftShift:
    case KeyCode::RightShift:
        return QStringLiteral("Shift");
    case KeyCode::Control:
    case KeyCode::LeftControl:
    case KeyCode::RightControl:
        return QStringLiteral("Ctrl");
    case KeyCode::Alt:
    case KeyCode::LeftAlt:
    case KeyCode::RightAlt:
        return QStringLiteral("Alt");
    case KeyCode::Escape:
        return QStringLiteral("Esc");
    case KeyCode::Space:
        return QStringLiteral("Space");
    case KeyCode::PageUp:
        return QStringLiteral("PageUp");
    case KeyCode::PageDown:
        return QStringLiteral("PageDown");
    case KeyCode::End:
        return QStringLiteral("End");
    case KeyCode::Home:
        return QStringLiteral("Home");
    case KeyCode::Left:
        return QStringLiteral("Left");
    case KeyCode::Up:
        return QStringLiteral("Up");
    case KeyCode::Right:
        return QStringLiteral("Right");
    case KeyCode::Down:
        return QStringLiteral("Down");
    case KeyCode::Insert:
        return QStringLiteral("Insert");
    case KeyCode::Delete:
        return QStringLiteral("Delete");
    case KeyCode::LeftWin:
    case KeyCode::RightWin:
        return QStringLiteral("Win");
    default:
        return QString();
    }
}

KeyClass keyClass(int key)
{
    if (key >= KeyCode::F1 && key <= KeyCode::F24)
        return KeyClass::Function;
    if ((key >= KeyCode::LetterA && key <= KeyCode::LetterZ)
        || (key >= KeyCode::Digit0 && key <= KeyCode::Digit9))
        return KeyClass::AlphaNumeric;
    switch (key) {
    case KeyCode::Shift:
    case KeyCode::LeftShift:
    case KeyCode::RightShift:
    case KeyCode::Control:
    case KeyCode::LeftControl:
    case KeyCode::RightControl:
    case KeyCode::Alt:
    case KeyCode::LeftAlt:
    case KeyCode::RightAlt:
    case KeyCode::LeftWin:
    case KeyCode::RightWin:
        return KeyClass::Modifier;
    case KeyCode::Backspace:
    case KeyCode::Tab:
    case KeyCode::Enter:
    case KeyCode::Escape:
    case KeyCode::PageUp:
    case KeyCode::PageDown:
    case KeyCode::End:
    case KeyCode::Home:
    case KeyCode::Left:
    case KeyCode::Up:
    case KeyCode::Right:
    case KeyCode::Down:
    case KeyCode::Insert:
    case KeyCode::Delete:
        return KeyClass::Navigation;
    default:
        return KeyClass::None;
    }
}

} // namespace KeyNames
