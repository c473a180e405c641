#pragma once

#include "platform/FrameSource.h"
#include "platform/windows/WgcSession.h"
#include "recording/EncoderSlotPool.h"
#include "recording/FrameHandOver.h"

#include <QDebug>
#include <QRect>
#include <QSize>

#include <d3d11.h>
#include <memory>
#include <wrl/client.h>

// Windows Graphics Capture source: a session on the monitor of the rectangle
// whose callback thread feeds the hand-over; a delivered frame is a region
// copy into a pooled encoder texture that stays busy while the encoder holds
// a reference to it. Frames never leave the GPU.
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

    struct TextureDesc
    {
        D3D11_TEXTURE2D_DESC desc {};
        bool operator==(const TextureDesc &other) const;
    };

private:
    using Texture = Microsoft::WRL::ComPtr<ID3D11Texture2D>;
    struct Pending
    {
        Texture texture;
        D3D11_TEXTURE2D_DESC desc {};
        std::shared_ptr<void> frame; // keeps the frame pool's buffer
    };
    using HandOver = FrameHandOver<Pending>;

    bool init(const QRect &rect, QString *error);
    bool ensureRunning(const QRect &rect, QString *error);
    bool startCapture(const QRect &rect, QString *error);
    bool copyForEncoder(const Pending &pending, Texture *target, QString *error);
    // On the system's callback thread; reaches only the hand-over, which the
    // callback co-owns so that a late callback never outlives it.
    static void onFrameArrived(HandOver &handOver, WgcSession::Arrival &arrival);

    Microsoft::WRL::ComPtr<ID3D11Device> m_device;
    Microsoft::WRL::ComPtr<ID3D11DeviceContext> m_context;
    WgcSession m_wgc;
    QRect m_captureRect;
    QSize m_recordFrameSize;
    HMONITOR m_monitor = nullptr;
    HRESULT m_allocationResult = S_OK;
    std::shared_ptr<HandOver> m_handOver;
    EncoderSlotPool<Texture, TextureDesc> m_pool;
};

QDebug operator<<(QDebug debug, const WindowsCapture::TextureDesc &desc);
