#include "TestDesktop.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

namespace {

bool run(const QString &program, const QStringList &arguments)
{
    return QProcess::execute(program, arguments) == 0;
}

// The first display number after ours that no server holds.
QString freeDisplay()
{
    const int ours = qEnvironmentVariable("DISPLAY").section(u':', 1).section(u'.', 0, 0).toInt();
    for (int n = ours + 1; n < ours + 40; ++n) {
        if (!QFile::exists(QStringLiteral("/tmp/.X11-unix/X%1").arg(n))
            && !QFile::exists(QStringLiteral("/tmp/.X%1-lock").arg(n)))
            return QStringLiteral(":%1").arg(n);
    }
    return {};
}

} // namespace

TestDesktop::TestDesktop(Manager manager)
    : m_manager(manager)
    , m_savedDisplay(qgetenv("DISPLAY"))
{
}

TestDesktop::~TestDesktop()
{
    // Clients before the server, the server last.
    for (auto it = m_processes.rbegin(); it != m_processes.rend(); ++it) {
        (*it)->terminate();
        if (!(*it)->waitForFinished(3000)) {
            (*it)->kill();
            (*it)->waitForFinished(3000);
        }
        delete *it;
    }
    qputenv("DISPLAY", m_savedDisplay);
}

QString TestDesktop::name(Manager manager)
{
    switch (manager) {
    case Manager::None:
        return QStringLiteral("no window manager");
    case Manager::Openbox:
        return QStringLiteral("openbox");
    case Manager::I3:
        return QStringLiteral("i3");
    case Manager::Xfwm4:
        return QStringLiteral("xfwm4");
    case Manager::Mutter:
        return QStringLiteral("mutter");
    }
    return {};
}

QProcess *TestDesktop::launch(const QString &program, const QStringList &arguments)
{
    auto *process = new QProcess;
    // Servers and window managers talk a lot; none of it is the test's.
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(program, arguments);
    m_processes.append(process);
    return process->waitForStarted(10000) ? process : nullptr;
}

bool TestDesktop::startServer(bool composited)
{
    m_display = freeDisplay();
    if (m_display.isEmpty() || !m_dir.isValid())
        return false;
    if (!launch(QStringLiteral("Xtigervnc"),
                { m_display, "-geometry", "3840x1080", "-depth", "24", "-SecurityTypes", "None",
                  "-localhost", "-rfbport", "-1", "-AlwaysShared" }))
        return false;
    qputenv("DISPLAY", m_display.toLatin1());
    const bool up = QTest::qWaitFor(
        [] {
            xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
            const bool ok = !xcb_connection_has_error(connection);
            xcb_disconnect(connection);
            return ok;
        },
        15000);
    if (!up || !run("xrandr", { "--setmonitor", "LEFT", "1920/508x1080/286+0+0", "VNC-0" })
        || !run("xrandr", { "--setmonitor", "RIGHT", "1920/508x1080/286+1920+0", "none" })
        || !run("xsetroot", { "-solid", "#808080" }))
        return false;
    if (m_manager == Manager::Xfwm4 || m_manager == Manager::Mutter || !composited)
        return true;
    return startCompositor();
}

bool TestDesktop::startCompositor()
{
    return launch(QStringLiteral("xcompmgr"), { "-n" }) && waitForCompositor();
}

bool TestDesktop::startWindowManager()
{
    const uint32_t before = rootWindowProperty("_NET_SUPPORTING_WM_CHECK");
    switch (m_manager) {
    case Manager::None:
        return true;
    case Manager::Openbox:
        m_windowManager = launch(QStringLiteral("openbox"), { "--sm-disable" });
        break;
    case Manager::I3: {
        // Without a file of its own i3 would start its first-run wizard;
        // this one has no bar and no key bindings.
        QFile config(m_dir.filePath(QStringLiteral("i3.conf")));
        if (!config.open(QIODevice::WriteOnly)
            || config.write("font pango:monospace 8\nfocus_follows_mouse no\n") < 0)
            return false;
        config.close();
        m_windowManager = launch(QStringLiteral("i3"), { "-c", config.fileName() });
        break;
    }
    case Manager::Xfwm4:
        m_windowManager = launch(QStringLiteral("xfwm4"), { "--compositor=on" });
        break;
    case Manager::Mutter:
        m_windowManager = launch(QStringLiteral("dbus-launch"),
                                 { "--exit-with-session", "mutter", "--x11", "--replace" });
        break;
    }
    return m_windowManager && waitForWindowManager(before) && waitForCompositor();
}

bool TestDesktop::replaceWindowManager()
{
    QProcess *previous = m_windowManager;
    if (!previous || m_manager != Manager::Openbox)
        return false;
    const uint32_t before = rootWindowProperty("_NET_SUPPORTING_WM_CHECK");
    m_windowManager = launch(QStringLiteral("openbox"), { "--replace", "--sm-disable" });
    return m_windowManager && waitForWindowManager(before)
        && (previous->state() == QProcess::NotRunning || previous->waitForFinished(10000));
}

void TestDesktop::activate(uint32_t window)
{
    const QString id = QString::number(window);
    switch (m_manager) {
    case Manager::None:
        run("xdotool", { "windowraise", id });
        break;
    case Manager::I3:
        // i3 tiles: nothing overlaps, so focusing is all there is.
        run("i3-msg", { "-q", QStringLiteral("[id=%1] focus").arg(id) });
        return;
    default:
        run("xdotool", { "windowactivate", "--sync", id });
        break;
    }
    // xfwm4 keeps the focus where it was when a newer window is mapped.
    run("xdotool", { "windowfocus", "--sync", id });
}

bool TestDesktop::waitForWindowManager(uint32_t previousCheckWindow)
{
    const bool announced = QTest::qWaitFor(
        [&] {
            const uint32_t check = rootWindowProperty("_NET_SUPPORTING_WM_CHECK");
            return check != 0 && check != previousCheckWindow;
        },
        30000);
    if (!announced)
        return false;
    // Announced is not yet managing: a window mapped while the manager
    // still sets itself up may stay unmapped. A window of our own goes
    // through it first, asked again now and then.
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 50, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
    QElapsedTimer sinceMap;
    const bool managing = QTest::qWaitFor(
        [&] {
            if (!sinceMap.isValid() || sinceMap.elapsed() > 2000) {
                xcb_map_window(connection, window);
                sinceMap.start();
            }
            xcb_get_window_attributes_reply_t *attributes = xcb_get_window_attributes_reply(
                connection, xcb_get_window_attributes(connection, window), nullptr);
            const bool viewable = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
            std::free(attributes);
            return viewable;
        },
        30000);
    xcb_disconnect(connection);
    return managing;
}

bool TestDesktop::waitForCompositor()
{
    return QTest::qWaitFor(
        [] {
            xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
            xcb_intern_atom_reply_t *atom = xcb_intern_atom_reply(
                connection, xcb_intern_atom(connection, 0, 13, "_NET_WM_CM_S0"), nullptr);
            xcb_get_selection_owner_reply_t *owner = atom
                ? xcb_get_selection_owner_reply(
                    connection, xcb_get_selection_owner(connection, atom->atom), nullptr)
                : nullptr;
            const bool composited = owner && owner->owner != XCB_NONE;
            std::free(owner);
            std::free(atom);
            xcb_disconnect(connection);
            return composited;
        },
        30000);
}

uint32_t TestDesktop::rootWindowProperty(const char *name)
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return 0;
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_intern_atom_reply_t *atom = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, uint16_t(std::strlen(name)), name), nullptr);
    xcb_get_property_reply_t *reply = atom
        ? xcb_get_property_reply(
            connection, xcb_get_property(connection, 0, root, atom->atom, XCB_ATOM_WINDOW, 0, 1),
            nullptr)
        : nullptr;
    uint32_t value = 0;
    if (reply && reply->format == 32 && xcb_get_property_value_length(reply) >= 4)
        value = *static_cast<uint32_t *>(xcb_get_property_value(reply));
    std::free(reply);
    std::free(atom);
    xcb_disconnect(connection);
    return value;
}
