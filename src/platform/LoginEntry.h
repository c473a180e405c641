#pragma once

#include <QString>

#include <memory>

// The user's "start this program at login" registration. Each platform keeps
// it in its own place; the settings store only asks for it to be added or
// removed.
class LoginEntry
{
public:
    virtual ~LoginEntry() = default;

    // Registers the executable at executablePath to start at the user's login,
    // replacing an older registration. Returns false when it could not be written.
    virtual bool add(const QString &executablePath) = 0;

    // Removes the registration; true when none is left afterwards.
    virtual bool remove() = 0;

    static std::unique_ptr<LoginEntry> create();
};
