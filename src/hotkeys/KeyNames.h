#pragma once

#include <QString>

// Names and classes of keys as the keystroke display shows them.
namespace KeyNames {

enum class KeyClass { None, Modifier, Function, Navigation, AlphaNumeric };

// "F5", "Ctrl", "PageUp", "A", ...; empty for a key without a name.
QString name(int key);

// Space has a name but no class, so it shows only with a modifier held.
KeyClass keyClass(int key);

} // namespace KeyNames
