#pragma once

#include "platform/VideoWriter.h"

#include <mfidl.h>
#include <mfreadwrite.h>
#include <winrt/base.h>

// H.264 in MP4 through the Media Foundation sink writer, fed with Direct3D 11
// textures that stay on the GPU into the encoder. Encoder options are best
// effort: an encoder without ICodecAPI records with the media type's bitrate.
class WindowsRecorder : public VideoWriter
{
public:
    WindowsRecorder() = default;
    ~WindowsRecorder() override;

    // "HRESULT 0x%1: %2" with the system's message.
    static QString hresultText(HRESULT hr);

protected:
    const char *logName() const override { return "WindowsRecorder"; }
    bool openSink(const QString &path, const CaptureSession &session, const H264Settings &settings,
                  QString *error) override;
    bool submitFrame(const CapturedFrame &frame, qint64 sampleTime, qint64 duration,
                     QString *error) override;
    bool closeSink(bool opened, QString *error) override;

private:
    void applyEncoderOptions(const H264Settings &settings);

    winrt::com_ptr<IMFSinkWriter> m_writer;
    winrt::com_ptr<IMFDXGIDeviceManager> m_deviceManager;
    DWORD m_streamIndex = 0;
    UINT m_resetToken = 0;
    QSize m_frameSize;
    bool m_firstFrameLogged = false;
};
