#pragma once

#include <QRgb>

// The tray menu's own palette: the overlay's dark chrome, opaque, so that the
// menu looks the same over any desktop theme.
namespace TrayColors {
inline constexpr QRgb background = 0xFF14171C;
inline constexpr QRgb text = 0xFFECEEF2;
inline constexpr QRgb dim = 0xFFA4ABB8;
inline constexpr QRgb muted = 0xFF6B7280;
inline constexpr QRgb accent = 0xFFF4A65A;
inline constexpr QRgb off = 0xFF3A424F;
inline constexpr QRgb green = 0xFF5EC27A;
// White at alpha 18, behind a hovered row.
inline constexpr QRgb hover = 0x12FFFFFF;
} // namespace TrayColors
