#pragma once

#include "platform/VideoWriter.h"

#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

// H.264 in MP4 through the Media Foundation sink writer, fed with Direct3D 11
// textures that stay on the GPU into the encoder. Encoder options are best
// effort: an encoder without ICodecAPI records with the media type's bitrate.
class WindowsRecorder : public VideoWriter
{
public:
    WindowsRecorder() = default;
    ~WindowsRecorder() override;

protected:
    const char *logName() const override { return "WindowsRecorder"; }
    const char *frameNoun() const override { return "D3D frame"; }
    void logStarted(const QString &path) const override;
    bool openSink(const QString &path, const CaptureSession &session, const H264Settings &settings,
                  QString *error) override;
    bool submitFrame(const CapturedFrame &frame, qint64 sampleTime, qint64 duration,
                     QString *error) override;
    bool closeSink(bool opened, QString *error) override;

private:
    void applyEncoderOptions(const H264Settings &settings);

    Microsoft::WRL::ComPtr<IMFSinkWriter> m_writer;
    Microsoft::WRL::ComPtr<IMFDXGIDeviceManager> m_deviceManager;
    DWORD m_streamIndex = 0;
    UINT m_resetToken = 0;
    QSize m_frameSize;
    bool m_firstFrameLogged = false;
};
