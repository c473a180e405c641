#pragma once

#include <QString>

#include <memory>

// What the desktop session we run in lets the program do. The settings pages
// show it so that a user on a restricted session learns why a feature is off.
class SessionCapabilities
{
public:
    virtual ~SessionCapabilities() = default;

    virtual QString sessionType() const = 0;
    virtual QString windowingBackend() const = 0;
    virtual QString summary() const = 0;
    virtual bool usesX11Backend() const = 0;
    virtual bool hotkeysAvailable() const = 0;
    virtual bool clickThroughAvailable() const = 0;
    virtual bool inputVisualizationAvailable() const = 0;
    virtual bool portalRequired() const = 0;
    // Whether the magnifier can read the screen below its own window.
    virtual bool magnifierAvailable() const = 0;

    static std::unique_ptr<SessionCapabilities> create();
};
