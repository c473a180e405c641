#pragma once

#include "hotkeys/KeyCode.h"

#include <QString>

#include <optional>

// Reading of sequence texts such as "Ctrl+Shift+Z" into key combinations.
namespace HotkeySequence {

// Modifier words, letters, digits, F1 to F24 and Esc are understood; other
// words are passed over. No key means no combination.
std::optional<KeyCombination> parse(const QString &sequence);

// A combination with a modifier, or a function key, is taken system-wide;
// a bare letter, digit or Esc is only observed, so other programs keep it.
bool mayRegisterGlobally(const KeyCombination &combination);

} // namespace HotkeySequence
