#pragma once

#include "recording/CursorMetadataFile.h"
#include "recording/FramePacer.h"
#include "recording/RecordingBackend.h"

#include <QElapsedTimer>
#include <QObject>
#include <QRect>
#include <QString>

#include <memory>

class QTimer;

// Runs one recording on its own thread: a timer aimed at the middle of each
// frame's slot asks the frame source for a picture, stamps it with the
// recording's stopwatch, hands it to the writer and appends a cursor record. Driven by queued calls
// from RecordingManager; reports back by queued signals.
class RecordingWorker : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecordingWorker)

public:
    struct Stats
    {
        qint64 capturedFrames = 0;
        qint64 writtenFrames = 0;
        qint64 droppedFrames = 0;
        // Frame numbers no tick reached: the pictures missing from the video.
        qint64 skippedFrames = 0;
        qint64 totalCaptureMs = 0;
        qint64 totalWriteMs = 0;
        qint64 maxCaptureMs = 0;
        qint64 maxWriteMs = 0;
    };

    explicit RecordingWorker(RecordingBackend backend, QObject *parent = nullptr);
    ~RecordingWorker() override;

    Stats stats() const;

public slots:
    void start(const QString &outputPath, const QString &metadataPath, const QString &recordingId,
               const QRect &captureRect, int fps, int qualityPreset);
    void finish();
    void pause();
    void resume();
    void captureFrame();

signals:
    void started();
    void startFailed(const QString &error);
    void stopped(bool success, const QString &path, const QString &error);
    void failed(const QString &error);

private:
    void abandonStart(const QString &error);
    void scheduleNextTick();
    void recordFrame(qint64 elapsedMs);
    void logStats() const;

    RecordingBackend m_backend;
    QTimer *m_frameTimer = nullptr;
    std::unique_ptr<VideoWriter> m_recorder;
    std::unique_ptr<FrameSource> m_source;
    std::unique_ptr<CursorPosition> m_cursor;
    std::unique_ptr<PointerButtons> m_buttons;
    QElapsedTimer m_clock;
    QRect m_captureRect;
    QString m_outputPath;
    QString m_metadataPath;
    QString m_recordingId;
    CursorMetadataFile m_metadataFile;
    int m_fps = 30;
    int m_qualityPreset = 1;
    FramePacer m_pacer;
    Stats m_stats;
    bool m_captureInProgress = false;
};
