#include "platform/linux/LinuxSessionCapabilities.h"

#include <QGuiApplication>
#include <QStringList>

#include <cstdlib>
#include <xcb/shape.h>
#include <xcb/xcb.h>
#include <xcb/xinput.h>

std::unique_ptr<SessionCapabilities> SessionCapabilities::create()
{
    return std::make_unique<LinuxSessionCapabilities>();
}

LinuxSessionCapabilities::LinuxSessionCapabilities()
    : LinuxSessionCapabilities(currentFacts())
{
}

LinuxSessionCapabilities::LinuxSessionCapabilities(const Facts &facts)
    : m_answers(evaluate(facts))
{
}

LinuxSessionCapabilities::Facts LinuxSessionCapabilities::currentFacts()
{
    Facts facts;
    facts.platformName = QGuiApplication::platformName();
    facts.xdgSessionType = qEnvironmentVariable("XDG_SESSION_TYPE");
    facts.waylandDisplay = qEnvironmentVariable("WAYLAND_DISPLAY");
    if (facts.platformName != QLatin1String("xcb"))
        return facts;
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t *connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return facts;
    const xcb_query_extension_reply_t *shape = xcb_get_extension_data(connection, &xcb_shape_id);
    facts.shapeExtension = shape && shape->present;
    const xcb_query_extension_reply_t *input = xcb_get_extension_data(connection, &xcb_input_id);
    if (input && input->present) {
        xcb_input_xi_query_version_reply_t *version = xcb_input_xi_query_version_reply(
            connection, xcb_input_xi_query_version(connection, 2, 2), nullptr);
        facts.xinput2Extension = version && version->major_version >= 2;
        free(version);
    }
    xcb_intern_atom_reply_t *selection = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, 13, "_NET_WM_CM_S0"), nullptr);
    if (selection) {
        xcb_get_selection_owner_reply_t *owner = xcb_get_selection_owner_reply(
            connection, xcb_get_selection_owner(connection, selection->atom), nullptr);
        facts.compositingManager = owner && owner->owner != XCB_NONE;
        free(owner);
        free(selection);
    }
    return facts;
}

namespace {
QString listed(const QStringList &features)
{
    if (features.size() <= 1)
        return features.join(QString());
    return features.mid(0, features.size() - 1).join(QStringLiteral(", ")) + QStringLiteral(" and ")
        + features.last();
}

QString availabilitySentence(const QString &session, const LinuxSessionCapabilities::Answers &a)
{
    QStringList available;
    QStringList missing;
    (a.hotkeysAvailable ? available : missing) << QStringLiteral("global hotkeys");
    (a.clickThroughAvailable ? available : missing) << QStringLiteral("click-through");
    (a.inputVisualizationAvailable ? available : missing) << QStringLiteral("keystroke display");
    (a.magnifierAvailable ? available : missing) << QStringLiteral("magnifier");
    QString text = session + QStringLiteral(".");
    if (!available.isEmpty())
        text += QStringLiteral(" Available: ") + listed(available) + QStringLiteral(".");
    if (!missing.isEmpty()) {
        text += QStringLiteral(" Not available: ") + listed(missing)
            + (a.portalRequired ? QStringLiteral(" (these need the desktop portal).")
                                : QStringLiteral("."));
    }
    return text;
}
} // namespace

LinuxSessionCapabilities::Answers LinuxSessionCapabilities::evaluate(const Facts &facts)
{
    Answers a;
    const bool waylandSession =
        facts.xdgSessionType.compare(QLatin1String("wayland"), Qt::CaseInsensitive) == 0
        || (facts.xdgSessionType.isEmpty() && !facts.waylandDisplay.isEmpty());
    if (!facts.xdgSessionType.isEmpty())
        a.sessionType = facts.xdgSessionType.toLower();
    else
        a.sessionType = waylandSession ? QStringLiteral("wayland") : QStringLiteral("x11");
    a.usesX11Backend = facts.platformName == QLatin1String("xcb");

    if (a.usesX11Backend && !waylandSession) {
        a.windowingBackend = QStringLiteral("X11");
        a.hotkeysAvailable = true;
        a.clickThroughAvailable = facts.shapeExtension;
        a.inputVisualizationAvailable = facts.xinput2Extension;
        a.magnifierAvailable = facts.compositingManager;
        a.summary = availabilitySentence(QStringLiteral("X11 session"), a);
        if (!a.magnifierAvailable)
            a.summary += QStringLiteral(" The magnifier needs a compositing manager to see the "
                                        "screen below its lens, and none runs.");
    } else if (a.usesX11Backend) {
        // XWayland lets an X client shape its own windows but shows it no
        // keys of other clients and refuses global grabs.
        a.windowingBackend = QStringLiteral("XWayland");
        a.clickThroughAvailable = facts.shapeExtension;
        a.portalRequired = true;
        a.summary = availabilitySentence(QStringLiteral("Wayland session through XWayland"), a);
    } else if (facts.platformName == QLatin1String("wayland")) {
        a.windowingBackend = QStringLiteral("Wayland");
        a.portalRequired = true;
        a.summary = availabilitySentence(QStringLiteral("Native Wayland"), a);
    } else {
        a.windowingBackend = facts.platformName;
        a.summary = availabilitySentence(
            QStringLiteral("No desktop session (platform %1)").arg(facts.platformName), a);
    }
    return a;
}
