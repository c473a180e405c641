#pragma once

#include "platform/LoginEntry.h"

// The login entry as an XDG autostart file, glimmora.desktop in the
// autostart folder of the user's configuration directory.
class XdgAutostartEntry : public LoginEntry
{
public:
    // An empty filePath means autostart/glimmora.desktop under $XDG_CONFIG_HOME
    // (or ~/.config).
    explicit XdgAutostartEntry(const QString &filePath = QString());

    bool add(const QString &executablePath) override;
    bool remove() override;

    QString filePath() const { return m_filePath; }

private:
    QString m_filePath;
};
