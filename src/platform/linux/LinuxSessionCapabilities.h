#pragma once

#include "platform/SessionCapabilities.h"

// Reads the session from the Qt platform name, the session environment and
// the X server's extensions, once at construction.
class LinuxSessionCapabilities final : public SessionCapabilities
{
public:
    struct Facts
    {
        QString platformName; // QGuiApplication::platformName()
        QString xdgSessionType; // XDG_SESSION_TYPE
        QString waylandDisplay; // WAYLAND_DISPLAY
        bool shapeExtension = false; // the X server can give a window an empty input shape
        bool xinput2Extension = false; // the X server reports raw key events
        // A compositing manager owns the screen: windows keep pictures of
        // their own, which the magnifier reads below its lens.
        bool compositingManager = false;
    };

    struct Answers
    {
        QString sessionType;
        QString windowingBackend;
        QString summary;
        bool usesX11Backend = false;
        bool hotkeysAvailable = false;
        bool clickThroughAvailable = false;
        bool inputVisualizationAvailable = false;
        bool portalRequired = false;
        bool magnifierAvailable = false;
    };

    LinuxSessionCapabilities();
    explicit LinuxSessionCapabilities(const Facts &facts);

    static Facts currentFacts();
    static Answers evaluate(const Facts &facts);

    QString sessionType() const override { return m_answers.sessionType; }
    QString windowingBackend() const override { return m_answers.windowingBackend; }
    QString summary() const override { return m_answers.summary; }
    bool usesX11Backend() const override { return m_answers.usesX11Backend; }
    bool hotkeysAvailable() const override { return m_answers.hotkeysAvailable; }
    bool clickThroughAvailable() const override { return m_answers.clickThroughAvailable; }
    bool inputVisualizationAvailable() const override
    {
        return m_answers.inputVisualizationAvailable;
    }
    bool portalRequired() const override { return m_answers.portalRequired; }
    bool magnifierAvailable() const override { return m_answers.magnifierAvailable; }

private:
    Answers m_answers;
};
