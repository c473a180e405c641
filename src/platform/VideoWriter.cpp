#include "platform/VideoWriter.h"

#include "recording/RecordingLog.h"

bool VideoWriter::start(const QString &path, const CaptureSession &session, const QSize &frameSize,
                        int fps, int qualityPreset)
{
    if (m_started) {
        m_lastError = QStringLiteral("Recorder already started.");
        return false;
    }
    if (path.isEmpty() || frameSize.isEmpty() || fps < 1) {
        fail(QStringLiteral("Invalid recorder parameters."));
        return false;
    }
    m_settings = H264Settings::forStream(H264Settings::alignedSize(frameSize, sizeAlignment()), fps,
                                         qualityPreset);
    m_timeline.reset();
    m_samplesSubmitted = 0;
    m_writeFailures = 0;
    qCDebug(lcRecording).nospace()
        << logName() << ": using H.264 bitrate " << m_settings.bitrate << " for frame size "
        << m_settings.frameSize << " at " << m_settings.fps << " fps, quality preset "
        << m_settings.qualityPreset << ", profile " << m_settings.profile << ", keyframe spacing "
        << m_settings.keyframeSpacing;
    m_started = true;
    QString error;
    if (!openSink(path, session, m_settings, &error)) {
        fail(error);
        return false;
    }
    m_writing = true;
    logStarted(path);
    return true;
}

void VideoWriter::logStarted(const QString &path) const
{
    qCInfo(lcRecording).noquote() << QLatin1String(logName()) + QLatin1String(": writer started")
                                  << "output" << path << "frameSize" << m_settings.frameSize
                                  << "fps" << m_settings.fps << "bitrate" << m_settings.bitrate;
}

bool VideoWriter::writeFrame(const CapturedFrame &frame, qint64 timestampMs)
{
    if (!m_writing) {
        m_lastError = QStringLiteral("Recorder not started.");
        return false;
    }
    if (!frame.isValid()) {
        m_lastError = QStringLiteral("Invalid frame data.");
        return false;
    }
    if (frame.size != m_settings.frameSize) {
        m_lastError = QStringLiteral("%1 size %2x%3 does not match recorder size %4x%5.")
                          .arg(QLatin1String(frameNoun()))
                          .arg(frame.size.width())
                          .arg(frame.size.height())
                          .arg(m_settings.frameSize.width())
                          .arg(m_settings.frameSize.height());
        return false;
    }
    const qint64 sampleTime = m_timeline.stamp(timestampMs);
    const qint64 duration = 10000000 / m_settings.fps;
    QString error;
    if (!submitFrame(frame, sampleTime, duration, &error)) {
        ++m_writeFailures;
        fail(error);
        return false;
    }
    ++m_samplesSubmitted;
    return true;
}

bool VideoWriter::finish()
{
    if (!m_started)
        return true;
    qCInfo(lcRecording).noquote() << QLatin1String(logName()) + QLatin1String(" session stats:")
                                  << "samplesSubmitted" << m_samplesSubmitted << "writeFailures"
                                  << m_writeFailures;
    QString error;
    const bool ok = closeSink(m_writing, &error);
    m_started = false;
    m_writing = false;
    if (!ok) {
        fail(error);
        return false;
    }
    return true;
}

void VideoWriter::fail(const QString &error)
{
    m_lastError = error;
    qCWarning(lcRecording).noquote().nospace() << logName() << ": " << error;
}
