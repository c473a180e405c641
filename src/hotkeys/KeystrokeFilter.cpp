#include "hotkeys/KeystrokeFilter.h"

#include "hotkeys/KeyCode.h"
#include "hotkeys/KeyNames.h"

#include <QStringList>

QString KeystrokeFilter::text(int key, int modifiers) const
{
    if (!enabled)
        return QString();
    const QString keyName = KeyNames::name(key);
    if (keyName.isEmpty())
        return QString();

    const KeyNames::KeyClass keyClass = KeyNames::keyClass(key);
    const bool isModifier = keyClass == KeyNames::KeyClass::Modifier;
    const bool anyModifier = modifiers != KeyModifier::None;
    const bool shown = (modifierKeys && isModifier)
        || (functionKeys && keyClass == KeyNames::KeyClass::Function)
        || (navigationKeys && keyClass == KeyNames::KeyClass::Navigation)
        || (alphaNumericKeys && keyClass == KeyNames::KeyClass::AlphaNumeric)
        || (modifierKeys && anyModifier);
    if (!shown)
        return QString();

    // A modifier key names only itself; other keys lead with what is held,
    // in the order a presenter reads them.
    QStringList parts;
    if (!isModifier) {
        if (modifiers & KeyModifier::Win)
            parts << QStringLiteral("Win");
        if (modifiers & KeyModifier::Ctrl)
            parts << QStringLiteral("Ctrl");
        if (modifiers & KeyModifier::Alt)
            parts << QStringLiteral("Alt");
        if (modifiers & KeyModifier::Shift)
            parts << QStringLiteral("Shift");
    }
    parts << keyName;
    return parts.join(u'+');
}
