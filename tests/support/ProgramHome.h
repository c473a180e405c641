#pragma once

#include <QProcess>
#include <QTemporaryDir>

// A throw-away home for the real program on the test display: its own
// settings, data and temporary directory (where the single-instance lock
// lives), so that neither the user's settings nor another run's lock are touched.
class ProgramHome
{
public:
    ProgramHome();

    bool isValid() const { return m_valid; }
    // Another build of the program to start, e.g. to compare two builds.
    void setProgram(const QString &path) { m_program = path; }
    QString filePath(const QString &name) const { return m_dir.filePath(name); }
    // Writes the settings afresh, with `moreSettings` (INI lines) after the
    // general group, then starts the program; false if it did not start.
    bool start(QProcess &process, const QByteArray &moreSettings = {}) const;
    QString log() const;
    // Lines of the log that contain `text`.
    int logLinesWith(const QString &text) const;

    // Quits the way a presenter does: the quit shortcut on the program's focused
    // main window, so that it releases its lock as a killed one would not.
    static void pressQuitShortcut(const QProcess &process);

private:
    QTemporaryDir m_dir;
    QString m_program;
    bool m_valid = false;
};
