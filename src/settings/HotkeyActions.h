#pragma once

#include <array>

// One row of the hotkey table: the action's identifier, its default sequence
// in canonical form, and the row text of the settings page.
struct HotkeyAction
{
    const char *id;
    const char *defaultSequence;
    const char *label;
};

// Every action that can have a hotkey, in the order of the default table.
// The settings page lists captureFullScreen before captureRegion.
inline constexpr std::array<HotkeyAction, 17> hotkeyActions { {
    { "toggleOverlay", "F5", "Toggle overlay" },
    { "openSettings", "F6", "Open settings" },
    { "cursor", "Alt+1", "Cursor mode" },
    { "spotlight", "Alt+2", "Activate spotlight" },
    { "pen", "Alt+3", "Pen tool" },
    { "arrow", "Alt+4", "Arrow tool" },
    { "rectangle", "Alt+5", "Rect tool" },
    { "circle", "Alt+6", "Ellipse tool" },
    { "highlighter", "Alt+7", "Highlight tool" },
    { "eraser", "Alt+8", "Eraser tool" },
    { "exitToCursor", "Esc", "Exit drawing" },
    { "undo", "Ctrl+Z", "Undo" },
    { "redo", "Ctrl+Shift+Z", "Redo" },
    { "clear", "Ctrl+Shift+K", "Clear all" },
    { "captureRegion", "Ctrl+Shift+A", "Capture region" },
    { "captureFullScreen", "Ctrl+Shift+S", "Capture screen" },
    { "quit", "Ctrl+Shift+Q", "Quit Glimmora" },
} };
