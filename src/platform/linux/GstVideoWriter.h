#pragma once

#include "platform/VideoWriter.h"

typedef struct _GstElement GstElement;

// H.264 in a fragmented MP4 through GStreamer: appsrc -> videoconvert ->
// x264enc -> mp4mux -> filesink. Fragments of about a second keep everything
// but the last one playable if the process dies; finish sends end-of-stream
// and waits, bounded, for the muxer to write the final index.
class GstVideoWriter : public VideoWriter
{
public:
    GstVideoWriter();
    ~GstVideoWriter() override;

    // How the encoder settings map onto x264enc.
    struct X264Options
    {
        const char *speedPreset;
        unsigned bitrateKbps;
        unsigned vbvBufferMs;
        unsigned keyIntMax;
        const char *profile;
    };
    static X264Options x264Options(const H264Settings &settings);

    static constexpr int FinaliseTimeoutMs = 5000;
    // Frames waiting for the encoder, about a quarter of a second at 30 fps.
    static constexpr unsigned MaxQueuedFrames = 8;

protected:
    const char *logName() const override { return "GstVideoWriter"; }
    bool openSink(const QString &path, const CaptureSession &session, const H264Settings &settings,
                  QString *error) override;
    bool submitFrame(const CapturedFrame &frame, qint64 sampleTime, qint64 duration,
                     QString *error) override;
    bool closeSink(bool opened, QString *error) override;

private:
    void release();

    GstElement *m_pipeline = nullptr;
    GstElement *m_appsrc = nullptr;
    quint64 m_encoderDrops = 0;
};
