#pragma once

#include <QString>
#include <QVariantMap>

#include <span>

// The actions a hotkey can run, with the fixed ids under which they are
// registered with the system.
namespace HotkeyActions {

struct Action
{
    const char *name;
    int id;
};

// Seventeen actions, ids 1001 to 1017 in table order.
std::span<const Action> all();

// The action registered under `id`, or empty.
QString actionForId(int id);

// The map used when none is given; kept identical to the settings' defaults.
QVariantMap defaultMap();

} // namespace HotkeyActions
