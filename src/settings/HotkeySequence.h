#pragma once

#include <QString>

namespace HotkeySequence {

// The canonical text of a key sequence: modifiers in the order Ctrl, Alt,
// Shift, Win, then at most one key, joined by "+". Plus signs and white space
// both separate tokens, so a literal plus key cannot be written. The result is
// not validated: modifiers alone or an unknown key word come back as they are.
QString canonical(const QString &sequence);

} // namespace HotkeySequence
