#pragma once

#include <QSize>
#include <QtGlobal>

// Encoder parameters of a recording, derived from frame size, frame rate and
// the quality preset (0 small file, 1 balanced, 2 high quality). The numbers
// are those of the Windows encoder options; each platform maps them onto its
// own encoder.
struct H264Settings
{
    enum Profile { Main = 77, High = 100 };
    enum RateControl { PeakConstrainedVbr = 1, UnconstrainedVbr = 2 };

    QSize frameSize;
    int fps = 30;
    int qualityPreset = 1;
    int bitrate = 0; // bits per second
    int profile = Main;
    int keyframeSpacing = 60; // frames
    int rateControl = PeakConstrainedVbr;
    int quality = 70; // 0..100
    int qualityVsSpeed = 75; // 0 fastest .. 100 best

    static H264Settings forStream(const QSize &frameSize, int fps, int qualityPreset);

    static int bitrateFor(const QSize &frameSize, int fps, int qualityPreset);

    // Each side rounded up to a multiple of `multiple`.
    static QSize alignedSize(const QSize &size, int multiple);
};

// Sample times that rise by at least one millisecond whatever the caller
// passes, in 100-nanosecond units.
class SampleTimeline
{
public:
    static constexpr qint64 TicksPerMs = 10000;

    qint64 stamp(qint64 timestampMs);
    qint64 lastSampleTime() const { return m_lastSampleTime; }
    void reset() { m_lastSampleTime = -1; }

private:
    qint64 m_lastSampleTime = -1;
};
