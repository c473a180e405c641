#include "hotkeys/HotkeySequence.h"

#include <QRegularExpression>

namespace HotkeySequence {

namespace {

int letterOrDigitKey(const QString &part)
{
    if (part.size() != 1)
        return KeyCode::None;
    const char16_t c = part.front().unicode();
    if (c >= u'a' && c <= u'z')
        return KeyCode::LetterA + (c - u'a');
    if (c >= u'0' && c <= u'9')
        return KeyCode::Digit0 + (c - u'0');
    return KeyCode::None;
}

int functionKey(const QString &part)
{
    if (part.size() < 2 || !part.startsWith(u'f'))
        return KeyCode::None;
    bool ok = false;
    const int number = QStringView(part).mid(1).toInt(&ok, 10);
    if (!ok || number < 1 || number > 24 || !part.at(1).isDigit())
        return KeyCode::None;
    return KeyCode::F1 + number - 1;
}

} // namespace

std::optional<KeyCombination> parse(const QString &sequence)
{
    static const QRegularExpression separators(QStringLiteral("[+\\s]+"));
    KeyCombination combination;
    const QStringList parts = sequence.split(separators, Qt::SkipEmptyParts);
    for (const QString &raw : parts) {
        const QString part = raw.trimmed().toLower();
        if (part == u"ctrl" || part == u"control") {
            combination.modifiers |= KeyModifier::Ctrl;
        } else if (part == u"shift") {
            combination.modifiers |= KeyModifier::Shift;
        } else if (part == u"alt" || part == u"option") {
            combination.modifiers |= KeyModifier::Alt;
        } else if (part == u"win" || part == u"meta" || part == u"super") {
            combination.modifiers |= KeyModifier::Win;
        } else if (part == u"esc" || part == u"escape") {
            combination.key = KeyCode::Escape;
        } else if (const int key = letterOrDigitKey(part)) {
            combination.key = key;
        } else if (const int fkey = functionKey(part)) {
            combination.key = fkey;
        }
    }
    if (combination.key == KeyCode::None)
        return std::nullopt;
    return combination;
}

bool mayRegisterGlobally(const KeyCombination &combination)
{
    return combination.modifiers != KeyModifier::None
        || (combination.key >= KeyCode::F1 && combination.key <= KeyCode::F24);
}

} // namespace HotkeySequence
