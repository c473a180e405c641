#include "recording/RecordingWorker.h"

#include "recording/RecordingLog.h"

#include <QTimer>

RecordingWorker::RecordingWorker(RecordingBackend backend, QObject *parent)
    : QObject(parent)
    , m_backend(std::move(backend))
{
}

RecordingWorker::~RecordingWorker()
{
    finish();
}

RecordingWorker::Stats RecordingWorker::stats() const
{
    Stats s = m_stats;
    s.droppedFrames = m_pacer.droppedFrames();
    s.skippedFrames = m_pacer.skippedFrames();
    return s;
}

void RecordingWorker::start(const QString &outputPath, const QString &metadataPath,
                            const QString &recordingId, const QRect &captureRect, int fps,
                            int qualityPreset)
{
    if (m_recorder) {
        emit startFailed(QStringLiteral("Recorder already started."));
        return;
    }
    m_outputPath = outputPath;
    m_metadataPath = metadataPath;
    m_recordingId = recordingId;
    m_captureRect = captureRect;
    m_fps = fps;
    m_qualityPreset = qualityPreset;
    m_pacer.reset(fps);
    m_stats = {};
    m_captureInProgress = false;
    // The first frame's timestamp then holds the whole start-up latency.
    m_clock.start();

    if (!metadataPath.isEmpty() && !m_metadataFile.open(metadataPath, recordingId, fps)) {
        emit startFailed(
            QStringLiteral("Could not create recording metadata file: %1").arg(metadataPath));
        return;
    }

    m_recorder = m_backend.videoWriter();
    if (!m_source)
        m_source = m_backend.frameSource();
    if (!m_cursor)
        m_cursor = m_backend.cursorPosition();
    if (!m_buttons)
        m_buttons = m_backend.pointerButtons();

    CaptureSession session;
    QString error;
    if (!m_source->ensureSession(captureRect, &session, &error)) {
        abandonStart(error);
        return;
    }
    if (!m_recorder->start(outputPath, session, session.frameSize, fps, qualityPreset)) {
        abandonStart(m_recorder->lastError());
        return;
    }

    m_frameTimer = new QTimer(this);
    m_frameTimer->setTimerType(Qt::PreciseTimer);
    m_frameTimer->setSingleShot(true);
    connect(m_frameTimer, &QTimer::timeout, this, &RecordingWorker::captureFrame);
    scheduleNextTick();
    emit started();
}

void RecordingWorker::scheduleNextTick()
{
    if (m_frameTimer)
        m_frameTimer->start(int(m_pacer.msUntilNextTick(m_clock.elapsed())));
}

void RecordingWorker::abandonStart(const QString &error)
{
    m_recorder.reset();
    m_metadataFile.close();
    emit startFailed(error);
}

void RecordingWorker::captureFrame()
{
    if (!m_recorder)
        return;
    if (m_captureInProgress) {
        m_pacer.countBusyTick();
        return;
    }
    const qint64 elapsedMs = m_clock.elapsed();
    if (m_pacer.admit(elapsedMs))
        recordFrame(elapsedMs);
    // Aimed from the time after the work, so a slow frame does not make the
    // next tick come early into the slot it already passed.
    scheduleNextTick();
}

void RecordingWorker::recordFrame(qint64 elapsedMs)
{
    m_captureInProgress = true;
    QElapsedTimer stepTimer;
    stepTimer.start();

    if (m_metadataFile.isOpen()) {
        m_metadataFile.writeRecord(elapsedMs, m_cursor ? m_cursor->position() : std::nullopt,
                                   m_captureRect.topLeft(),
                                   m_buttons ? m_buttons->buttonMask() : 0);
    }

    QString writeError;
    QString sourceError;
    const bool delivered = m_source->deliverFrame(
        m_captureRect,
        [&](const CapturedFrame &frame) {
            const qint64 captureMs = stepTimer.elapsed();
            m_stats.totalCaptureMs += captureMs;
            m_stats.maxCaptureMs = qMax(m_stats.maxCaptureMs, captureMs);
            ++m_stats.capturedFrames;
            stepTimer.restart();
            if (!m_recorder->writeFrame(frame, elapsedMs)) {
                writeError = m_recorder->lastError();
                return false;
            }
            const qint64 writeMs = stepTimer.elapsed();
            m_stats.totalWriteMs += writeMs;
            m_stats.maxWriteMs = qMax(m_stats.maxWriteMs, writeMs);
            ++m_stats.writtenFrames;
            return true;
        },
        &sourceError);
    m_captureInProgress = false;

    if (!delivered) {
        QString message = writeError;
        if (message.isEmpty())
            message = sourceError;
        if (message.isEmpty())
            message = QStringLiteral("Recording frame capture failed.");
        emit failed(message);
    }
}

void RecordingWorker::pause()
{
    if (m_frameTimer)
        m_frameTimer->stop();
}

void RecordingWorker::resume()
{
    scheduleNextTick();
}

void RecordingWorker::finish()
{
    if (m_frameTimer) {
        m_frameTimer->stop();
        m_frameTimer->deleteLater();
        m_frameTimer = nullptr;
    }
    bool ok = true;
    QString error;
    const QString path = m_outputPath;
    if (m_recorder) {
        ok = m_recorder->finish();
        if (!ok)
            error = m_recorder->lastError();
        m_recorder.reset();
    }
    m_metadataFile.close();
    if (!path.isEmpty())
        logStats();
    if (m_source)
        m_source->stop();
    m_outputPath.clear();
    m_metadataPath.clear();
    m_recordingId.clear();
    if (!path.isEmpty())
        emit stopped(ok, ok ? path : QString(), error);
}

void RecordingWorker::logStats() const
{
    const Stats s = stats();
    if (s.capturedFrames == 0 && s.writtenFrames == 0 && s.droppedFrames == 0)
        return;
    qCInfo(lcRecording) << "RecordingWorker stats:"
                        << "captured" << s.capturedFrames << "written" << s.writtenFrames
                        << "dropped" << s.droppedFrames << "avgCaptureMs"
                        << s.totalCaptureMs / qMax<qint64>(s.capturedFrames, 1) << "maxCaptureMs"
                        << s.maxCaptureMs << "avgWriteMs"
                        << s.totalWriteMs / qMax<qint64>(s.writtenFrames, 1) << "maxWriteMs"
                        << s.maxWriteMs;
}
