#pragma once

#include "platform/SessionCapabilities.h"

// Windows has none of the session limits that the Linux pages explain.
class WinSessionCapabilities final : public SessionCapabilities
{
public:
    QString sessionType() const override { return {}; }
    QString windowingBackend() const override { return {}; }
    QString summary() const override { return {}; }
    bool usesX11Backend() const override { return false; }
    bool hotkeysAvailable() const override { return false; }
    bool clickThroughAvailable() const override { return false; }
    bool inputVisualizationAvailable() const override { return false; }
    bool portalRequired() const override { return false; }
    // Windows keeps the controls window out of screen grabs.
    bool magnifierAvailable() const override { return true; }
};
