#include "recording/RecordingManager.h"

#include "recording/RecordingFiles.h"
#include "recording/RecordingLog.h"
#include "recording/RecordingWorker.h"
#include "settings/SettingsManager.h"

#include <QDateTime>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QThread>
#include <QUuid>

namespace {
constexpr int RecordingFps = 30;
constexpr int ShutdownWaitMs = 6000;
} // namespace

RecordingManager::RecordingManager(SettingsManager *settings, RecordingBackend backend,
                                   QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_backend(std::move(backend))
{
    qRegisterMetaType<RecordingManager::State>("RecordingManager::State");
    RecordingFiles::scanRecoverableRecordings(resolveSaveFolder());
    m_elapsedTimer.setInterval(1000);
    m_elapsedTimer.setSingleShot(false);
    connect(&m_elapsedTimer, &QTimer::timeout, this, [this] {
        ++m_elapsedSeconds;
        emit elapsedSecondsChanged(m_elapsedSeconds);
    });
    if (qGuiApp)
        connect(qGuiApp, &QGuiApplication::screenRemoved, this, &RecordingManager::onScreenRemoved);
}

RecordingManager::~RecordingManager()
{
    if (m_state != Idle && m_state != Failed)
        stop();
    if (!m_thread)
        return;
    m_thread->quit();
    const QDeadlineTimer deadline =
        m_shutdownDeadline.isForever() ? QDeadlineTimer(ShutdownWaitMs) : m_shutdownDeadline;
    if (!m_thread->wait(deadline)) {
        qCWarning(lcRecording)
            << "RecordingWorker did not finish in 6 s \u2014 video may be incomplete.";
        // Destroying a running QThread aborts the process; leave it to finish
        // on its own instead.
        m_thread->setParent(nullptr);
    }
}

QString RecordingManager::resolveSaveFolder() const
{
    return RecordingFiles::resolveSaveFolder(m_settings ? m_settings->captureSaveFolder()
                                                        : QString());
}

void RecordingManager::start(QScreen *screen)
{
    if (m_state == Recording || m_state == Paused || m_state == Saving) {
        qCWarning(lcRecording) << "RecordingManager: cannot start \u2014 already in state"
                               << int(m_state);
        return;
    }
    if (m_thread) {
        m_thread->quit();
        m_thread->wait();
        m_thread = nullptr;
        m_worker = nullptr;
    }
    m_screen = screen ? screen : QGuiApplication::primaryScreen();
    m_finalPath = RecordingFiles::makeFinalPath(resolveSaveFolder(), QDateTime::currentDateTime());
    m_recordingId = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_workingPath = RecordingFiles::workingPathFor(m_finalPath);
    m_finalMetadataPath = RecordingFiles::metadataPathFor(m_finalPath);
    m_workingMetadataPath = RecordingFiles::metadataPathFor(m_workingPath);
    m_manifestPath = RecordingFiles::manifestPathFor(m_workingPath);
    m_elapsedSeconds = 0;
    m_startedAtMs = QDateTime::currentMSecsSinceEpoch();

    const QRect rect = m_backend.captureRect(m_screen);
    if (rect.isEmpty()) {
        qCWarning(lcRecording) << "RecordingManager: no active display found.";
        failStart();
        return;
    }
    const int quality = m_settings ? m_settings->recordQuality() : 1;
    if (!RecordingFiles::writeRecoveryManifest({ m_recordingId, m_finalPath, m_workingPath,
                                                 m_finalMetadataPath, m_workingMetadataPath, rect,
                                                 quality })) {
        qCWarning(lcRecording) << "RecordingManager: could not write recovery manifest for"
                               << m_workingPath;
        failStart();
        return;
    }

    m_thread = new QThread(this);
    m_worker = new RecordingWorker(m_backend);
    m_worker->moveToThread(m_thread);
    connect(m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    // A worker still reports while it goes down, also after its attempt was
    // given up; such reports belong to that attempt and are dropped.
    const quint64 attempt = ++m_attempt;
    connect(m_worker, &RecordingWorker::started, this, [this, attempt] {
        if (attempt == m_attempt)
            onStarted();
    });
    connect(m_worker, &RecordingWorker::startFailed, this, [this, attempt](const QString &error) {
        if (attempt == m_attempt)
            onStartFailed(error);
    });
    connect(m_worker, &RecordingWorker::failed, this, [this, attempt](const QString &error) {
        if (attempt == m_attempt)
            onFailed(error);
    });
    connect(m_worker, &RecordingWorker::stopped, this,
            [this, attempt](bool success, const QString &path, const QString &error) {
                if (attempt == m_attempt)
                    onStopped(success, path, error);
            });
    QThread *thread = m_thread;
    connect(thread, &QThread::finished, this, [this, thread] {
        if (m_thread == thread)
            onThreadFinished();
        else
            thread->deleteLater();
    });
    m_thread->start();
    QMetaObject::invokeMethod(
        m_worker,
        [worker = m_worker, working = m_workingPath, metadata = m_workingMetadataPath,
         id = m_recordingId, rect,
         quality] { worker->start(working, metadata, id, rect, RecordingFps, quality); },
        Qt::QueuedConnection);
    setState(Initializing);
}

void RecordingManager::togglePause()
{
    if (m_state == Recording) {
        m_elapsedTimer.stop();
        if (m_worker)
            QMetaObject::invokeMethod(m_worker, &RecordingWorker::pause, Qt::QueuedConnection);
        setState(Paused);
    } else if (m_state == Paused) {
        m_elapsedTimer.start();
        if (m_worker)
            QMetaObject::invokeMethod(m_worker, &RecordingWorker::resume, Qt::QueuedConnection);
        setState(Recording);
    }
}

void RecordingManager::stop()
{
    if (m_state == Idle || m_state == Saving)
        return;
    m_elapsedTimer.stop();
    setState(Saving);
    if (m_worker) {
        QMetaObject::invokeMethod(m_worker, &RecordingWorker::finish, Qt::QueuedConnection);
        return;
    }
    clearPaths();
    m_screen = nullptr;
    setState(Failed);
    emit finished(false, QString());
}

void RecordingManager::stopForQuit()
{
    if (m_state == Idle || m_state == Failed)
        return;
    m_shutdownDeadline = QDeadlineTimer(ShutdownWaitMs);
    QEventLoop loop;
    connect(this, &RecordingManager::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(m_shutdownDeadline.remainingTime(), &loop, &QEventLoop::quit);
    stop();
    // Without a worker the stop ends at once; otherwise the worker reports.
    if (m_state == Saving)
        loop.exec();
    if (m_state == Saving)
        qCWarning(lcRecording) << "RecordingManager: the recording was not saved in time at quit";
}

void RecordingManager::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged(m_state);
}

void RecordingManager::clearPaths()
{
    m_finalPath.clear();
    m_workingPath.clear();
    m_finalMetadataPath.clear();
    m_workingMetadataPath.clear();
    m_manifestPath.clear();
    m_recordingId.clear();
}

void RecordingManager::failStart()
{
    clearPaths();
    setState(Failed);
    emit finished(false, QString());
}

void RecordingManager::onStarted()
{
    if (m_state != Initializing)
        return;
    setState(Recording);
    m_elapsedTimer.start();
    emit elapsedSecondsChanged(0);
}

void RecordingManager::onStartFailed(const QString &error)
{
    qCWarning(lcRecording) << "Recorder::start failed:" << error;
    if (!m_manifestPath.isEmpty())
        RecordingFiles::markManifestNeedsRecovery(m_manifestPath, error);
    clearPaths();
    m_elapsedTimer.stop();
    setState(Failed);
    emit finished(false, QString());
    releaseWorker();
}

void RecordingManager::onFailed(const QString &error)
{
    qCWarning(lcRecording) << "Recording worker failed:" << error;
    stop();
}

void RecordingManager::onStopped(bool success, const QString &path, const QString &error)
{
    if (!success && !error.isEmpty())
        qCWarning(lcRecording) << "Recorder::finish failed:" << error;
    QString outPath;
    QString metadataOut;
    if (success) {
        QString promoteError;
        if (RecordingFiles::promoteRecording(path, m_finalPath, &promoteError)) {
            outPath = m_finalPath;
            QString metadataError;
            if (RecordingFiles::promoteMetadata(m_workingMetadataPath, m_finalMetadataPath,
                                                &metadataError)) {
                metadataOut = m_finalMetadataPath;
            } else {
                qCWarning(lcRecording)
                    << "RecordingManager: could not promote recording metadata:" << metadataError;
            }
            // A saved video with lost cursor data still counts as saved.
            QFile::remove(m_manifestPath);
        } else {
            success = false;
            qCWarning(lcRecording)
                << "RecordingManager: could not promote recording:" << promoteError;
            RecordingFiles::markManifestNeedsRecovery(m_manifestPath, promoteError);
        }
    } else if (!m_manifestPath.isEmpty()) {
        RecordingFiles::markManifestNeedsRecovery(m_manifestPath, error);
    }
    clearPaths();
    m_screen = nullptr;
    setState(success ? Idle : Failed);
    emit finished(success, outPath);
    if (success)
        qCInfo(lcRecording) << "RecordingManager: metadata saved" << metadataOut;
    releaseWorker();
}

void RecordingManager::releaseWorker()
{
    // The worker goes down with its thread, and may still report while it
    // finalises: that belongs to the attempt that is over now.
    ++m_attempt;
    m_worker = nullptr;
    if (m_thread)
        m_thread->quit();
}

void RecordingManager::onThreadFinished()
{
    m_thread->deleteLater();
    m_thread = nullptr;
    m_worker = nullptr;
}

void RecordingManager::onScreenRemoved(QScreen *screen)
{
    if (!screen || screen != m_screen)
        return;
    // The recorded display is gone: end the recording and keep what was
    // captured, as for any other capture fault.
    qCWarning(lcRecording) << "RecordingManager: recorded display removed; stopping";
    m_screen = nullptr;
    if (m_state == Recording || m_state == Paused || m_state == Initializing)
        stop();
}
