#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <memory>

// A presenter's desktop of its own for one test: a private X server laid out
// as the project's test display (two monitors LEFT and RIGHT, a grey
// background) with one of Debian's window managers, and a compositing
// manager: xcompmgr beside those that do not composite by themselves. While
// it exists DISPLAY names its server, for this process and what it starts;
// everything it started stops with it.
class TestDesktop
{
public:
    enum class Manager { None, Openbox, I3, Xfwm4, Mutter };

    explicit TestDesktop(Manager manager);
    ~TestDesktop();
    TestDesktop(const TestDesktop &) = delete;
    TestDesktop &operator=(const TestDesktop &) = delete;

    static QString name(Manager manager);

    // The X server with its monitors, and xcompmgr where the window manager
    // does not composite, unless told not to; false if it did not come up.
    bool startServer(bool composited = true);
    // xcompmgr started later, as a presenter does who notices the black.
    bool startCompositor();
    // The window manager, returning once it runs and composites; true at
    // once for Manager::None.
    bool startWindowManager();
    // The same window manager started again with --replace over the
    // running one, as a user does after changing its settings.
    bool replaceWindowManager();

    // Brings an application window forward and gives it the keyboard, the
    // way its window manager does when the presenter switches back to it;
    // without one the application raises and focuses itself.
    void activate(uint32_t window);

    // xfwm4 composites what lies on the RandR output it knows, which on this
    // server is the left monitor only.
    bool composesRightMonitor() const { return m_manager != Manager::Xfwm4; }

private:
    QProcess *launch(const QString &program, const QStringList &arguments);
    bool waitForWindowManager(uint32_t previousCheckWindow);
    bool waitForCompositor();
    uint32_t rootWindowProperty(const char *name);

    Manager m_manager;
    QByteArray m_savedDisplay;
    QString m_display;
    QTemporaryDir m_dir;
    QProcess *m_windowManager = nullptr;
    QList<QProcess *> m_processes;
};
