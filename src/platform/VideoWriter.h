#pragma once

#include "platform/CapturedFrame.h"
#include "recording/H264Settings.h"

#include <QString>

#include <memory>

// Turns frames into an MP4 file with one H.264 stream. The rules every
// platform shares live here (start once, frame checks, rising sample times,
// error texts); a platform supplies the three sink operations below.
// All calls come from one thread, the recording worker's.
class VideoWriter
{
public:
    VideoWriter() = default;
    virtual ~VideoWriter() = default;
    VideoWriter(const VideoWriter &) = delete;
    VideoWriter &operator=(const VideoWriter &) = delete;

    bool start(const QString &path, const CaptureSession &session, const QSize &frameSize, int fps,
               int qualityPreset);
    bool writeFrame(const CapturedFrame &frame, qint64 timestampMs);
    // Finalises the file. True on a writer that never started.
    bool finish();

    bool isStarted() const { return m_started; }
    QString lastError() const { return m_lastError; }
    const H264Settings &settings() const { return m_settings; }
    quint64 samplesSubmitted() const { return m_samplesSubmitted; }
    quint64 writeFailures() const { return m_writeFailures; }

    static std::unique_ptr<VideoWriter> create();

protected:
    // Each side of the frame size is rounded up to a multiple of this.
    virtual int sizeAlignment() const { return 2; }
    // Class name that begins the log lines of this writer.
    virtual const char *logName() const = 0;
    // What a frame is called in the size mismatch error.
    virtual const char *frameNoun() const { return "Frame"; }
    // The info line once the sink has started.
    virtual void logStarted(const QString &path) const;

    // Opens the sink. A failure may leave a half-built sink for closeSink.
    virtual bool openSink(const QString &path, const CaptureSession &session,
                          const H264Settings &settings, QString *error) = 0;
    // Hands one frame to the encoder; times in 100-nanosecond units.
    virtual bool submitFrame(const CapturedFrame &frame, qint64 sampleTime, qint64 duration,
                             QString *error) = 0;
    // Finalises (when `opened`) and releases the sink.
    virtual bool closeSink(bool opened, QString *error) = 0;

private:
    void fail(const QString &error);

    bool m_started = false;
    bool m_writing = false;
    H264Settings m_settings;
    SampleTimeline m_timeline;
    quint64 m_samplesSubmitted = 0;
    quint64 m_writeFailures = 0;
    QString m_lastError;
};
