#include "recording/H264Settings.h"

#include <algorithm>

namespace {

qint64 baseBitrate(qint64 pixels)
{
    if (pixels <= 921600)
        return 2000000;
    if (pixels <= 2073600)
        return 3500000;
    if (pixels <= 3686400)
        return 6000000;
    if (pixels <= 8294400)
        return 10000000;
    return 14000000;
}

} // namespace

int H264Settings::bitrateFor(const QSize &frameSize, int fps, int qualityPreset)
{
    const qint64 pixels = qint64(frameSize.width()) * qint64(frameSize.height());
    const double fpsScale = std::clamp(fps / 30.0, 0.75, 2.0);
    const double qualityScale = qualityPreset <= 0 ? 0.7 : (qualityPreset == 1 ? 1.0 : 1.45);
    return int(double(baseBitrate(pixels)) * fpsScale * qualityScale);
}

H264Settings H264Settings::forStream(const QSize &frameSize, int fps, int qualityPreset)
{
    H264Settings s;
    s.frameSize = frameSize;
    s.fps = fps;
    s.qualityPreset = std::clamp(qualityPreset, 0, 2);
    s.bitrate = bitrateFor(frameSize, fps, s.qualityPreset);
    s.profile = s.qualityPreset == 2 ? High : Main;
    s.keyframeSpacing = std::max(fps * (s.qualityPreset == 0 ? 4 : 2), fps);
    s.rateControl = s.qualityPreset == 0 ? UnconstrainedVbr : PeakConstrainedVbr;
    static constexpr int qualities[] = { 55, 70, 85 };
    static constexpr int speeds[] = { 75, 75, 45 };
    s.quality = qualities[s.qualityPreset];
    s.qualityVsSpeed = speeds[s.qualityPreset];
    return s;
}

QSize H264Settings::alignedSize(const QSize &size, int multiple)
{
    const auto up = [multiple](int v) {
        return ((std::max(v, 0) + multiple - 1) / multiple) * multiple;
    };
    return QSize(up(size.width()), up(size.height()));
}

qint64 SampleTimeline::stamp(qint64 timestampMs)
{
    qint64 t = timestampMs * TicksPerMs;
    if (t <= m_lastSampleTime)
        t = m_lastSampleTime + TicksPerMs;
    m_lastSampleTime = t;
    return t;
}
