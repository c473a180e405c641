#include "hotkeys/HotkeyActions.h"

#include <array>

namespace HotkeyActions {

namespace {

constexpr std::array<Action, 17> actions { {
    { "toggleOverlay", 1001 },
    { "openSettings", 1002 },
    { "cursor", 1003 },
    { "spotlight", 1004 },
    { "pen", 1005 },
    { "arrow", 1006 },
    { "rectangle", 1007 },
    { "circle", 1008 },
    { "highlighter", 1009 },
    { "eraser", 1010 },
    { "exitToCursor", 1011 },
    { "undo", 1012 },
    { "redo", 1013 },
    { "clear", 1014 },
    { "captureRegion", 1015 },
    { "captureFullScreen", 1016 },
    { "quit", 1017 },
} };

} // namespace

std::span<const Action> all()
{
    return actions;
}

QString actionForId(int id)
{
    for (const Action &action : actions) {
        if (action.id == id)
            return QString::fromLatin1(action.name);
    }
    return QString();
}

QVariantMap defaultMap()
{
    return {
        { QStringLiteral("toggleOverlay"), QStringLiteral("F5") },
        { QStringLiteral("openSettings"), QStringLiteral("F6") },
        { QStringLiteral("cursor"), QStringLiteral("Alt+1") },
        { QStringLiteral("spotlight"), QStringLiteral("Alt+2") },
        { QStringLiteral("pen"), QStringLiteral("Alt+3") },
        { QStringLiteral("arrow"), QStringLiteral("Alt+4") },
        { QStringLiteral("rectangle"), QStringLiteral("Alt+5") },
        { QStringLiteral("circle"), QStringLiteral("Alt+6") },
        { QStringLiteral("highlighter"), QStringLiteral("Alt+7") },
        { QStringLiteral("eraser"), QStringLiteral("Alt+8") },
        { QStringLiteral("exitToCursor"), QStringLiteral("Esc") },
        { QStringLiteral("undo"), QStringLiteral("Ctrl+Z") },
        { QStringLiteral("redo"), QStringLiteral("Ctrl+Shift+Z") },
        { QStringLiteral("clear"), QStringLiteral("Ctrl+Shift+K") },
        { QStringLiteral("captureRegion"), QStringLiteral("Ctrl+Shift+A") },
        { QStringLiteral("captureFullScreen"), QStringLiteral("Ctrl+Shift+S") },
        { QStringLiteral("quit"), QStringLiteral("Ctrl+Shift+Q") },
    };
}

} // namespace HotkeyActions
