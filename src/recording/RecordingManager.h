#pragma once

#include "recording/RecordingBackend.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QRect>
#include <QString>
#include <QTimer>

class QScreen;
class QThread;
class RecordingWorker;
class SettingsManager;

// Owns one screen recording at a time on the GUI thread: decides whether a
// recording may start, names its files, writes the recovery manifest, runs a
// RecordingWorker on a thread of its own, counts seconds, and promotes the
// working files to their final names when the worker has finished.
class RecordingManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecordingManager)

public:
    // QML compares the plain numbers.
    enum State { Idle = 0, Recording = 1, Paused = 2, Saving = 3, Failed = 4, Initializing = 5 };

    // `settings` may be null: quality 1, default save folder.
    explicit RecordingManager(SettingsManager *settings, RecordingBackend backend = {},
                              QObject *parent = nullptr);
    ~RecordingManager() override;

    // A null screen means the primary screen.
    void start(QScreen *screen = nullptr);
    void togglePause();
    void stop();
    // At quit: stops a recording that is under way and turns the event loop
    // until its files are finalised and promoted, or until the 6 s the stop
    // path allows are over; the destructor then waits only for what is left.
    void stopForQuit();

    State state() const { return m_state; }
    int elapsedSeconds() const { return m_elapsedSeconds; }

    // The save folder of recordings and of the recovery scan.
    QString resolveSaveFolder() const;

signals:
    void stateChanged(RecordingManager::State state);
    void elapsedSecondsChanged(int seconds);
    void finished(bool success, const QString &path);

private:
    void setState(State state);
    void clearPaths();
    void failStart();
    void onStarted();
    void onStartFailed(const QString &error);
    void onFailed(const QString &error);
    void onStopped(bool success, const QString &path, const QString &error);
    void releaseWorker();
    void onThreadFinished();
    void onScreenRemoved(QScreen *screen);

    SettingsManager *m_settings = nullptr;
    RecordingBackend m_backend;
    State m_state = Idle;
    int m_elapsedSeconds = 0;
    qint64 m_startedAtMs = 0;
    QScreen *m_screen = nullptr;
    QString m_finalPath;
    QString m_workingPath;
    QString m_finalMetadataPath;
    QString m_workingMetadataPath;
    QString m_manifestPath;
    QString m_recordingId;
    QTimer m_elapsedTimer;
    QThread *m_thread = nullptr;
    RecordingWorker *m_worker = nullptr;
    quint64 m_attempt = 0;
    QDeadlineTimer m_shutdownDeadline { QDeadlineTimer::Forever };
};

Q_DECLARE_METATYPE(RecordingManager::State)
