#pragma once

#include "platform/FrameSource.h"
#include "recording/EncoderSlotPool.h"
#include "recording/FrameHandOver.h"

#include <QDebug>
#include <QRect>
#include <QSize>

#include <d3d11.h>
#include <winrt/Windows.Graphics.Capture.h>
#include <winrt/Windows.Graphics.DirectX.Direct3D11.h>
#include <winrt/base.h>

// Windows Graphics Capture source: a free-threaded frame pool on the monitor
// of the rectangle; its callback thread feeds the hand-over, and a delivered
// frame is a region copy into a pooled encoder texture that stays busy while
// the encoder holds a reference to it. Frames never leave the GPU.
class WindowsCapture : public FrameSource
{
public:
    WindowsCapture();
    ~WindowsCapture() override;
    WindowsCapture(const WindowsCapture &) = delete;
    WindowsCapture &operator=(const WindowsCapture &) = delete;

    bool ensureSession(const QRect &rect, CaptureSession *session, QString *error) override;
    bool deliverFrame(const QRect &rect, const Consumer &consumer, QString *error) override;
    void stop() override;

    // "%1: %2" with the system's message for `hr`, or "%1 (HRESULT 0x%2)".
    static QString wrapHresult(const QString &what, HRESULT hr);

    struct TextureDesc
    {
        D3D11_TEXTURE2D_DESC desc {};
        bool operator==(const TextureDesc &other) const;
    };

private:
    struct Pending
    {
        winrt::Windows::Graphics::Capture::Direct3D11CaptureFrame frame { nullptr };
        winrt::com_ptr<ID3D11Texture2D> texture;
        D3D11_TEXTURE2D_DESC desc {};
    };
    using Texture = winrt::com_ptr<ID3D11Texture2D>;

    bool init(const QRect &rect, QString *error);
    void
    onFrameArrived(const winrt::Windows::Graphics::Capture::Direct3D11CaptureFramePool &sender);

    winrt::com_ptr<ID3D11Device> m_device;
    winrt::com_ptr<ID3D11DeviceContext> m_context;
    winrt::Windows::Graphics::DirectX::Direct3D11::IDirect3DDevice m_winrtDevice { nullptr };
    winrt::Windows::Graphics::Capture::GraphicsCaptureItem m_item { nullptr };
    winrt::Windows::Graphics::Capture::Direct3D11CaptureFramePool m_framePool { nullptr };
    winrt::Windows::Graphics::Capture::GraphicsCaptureSession m_session { nullptr };
    winrt::event_token m_frameArrivedToken {};
    QRect m_captureRect;
    QSize m_recordFrameSize;
    HMONITOR m_monitor = nullptr;
    FrameHandOver<Pending> m_handOver;
    EncoderSlotPool<Texture, TextureDesc> m_pool;
};

QDebug operator<<(QDebug debug, const WindowsCapture::TextureDesc &desc);
