#pragma once

#include <QStringList>

// The bundled fonts and the family lists the QML theme names them by.
//
// The theme gives families as CSS-like lists ("Geist, Segoe UI Variable, ...").
// Qt 6 treats such a text as one family name, so each list is registered as a
// font substitution whose substitutes are its entries, in order.
namespace ThemeFonts {

// Resource paths of the bundled fonts, in the order they are added.
QStringList resourcePaths();

// Adds each bundled font to the application font database; one that fails to
// load is logged and skipped. Returns how many were added.
int addBundledFonts();

// The family lists of the theme, the same texts as fontFamily and monoFamily
// in AppTheme.qml. Chinese, Japanese and Korean text falls back to the
// WenQuanYi faces, which the set-up installs on Linux.
QStringList familyLists();

// Makes every family list of the theme resolve to its first available entry.
void installFamilyLists();

} // namespace ThemeFonts
