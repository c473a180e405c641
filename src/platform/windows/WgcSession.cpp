#include "platform/windows/WgcSession.h"

#include <dxgi.h>
#include <inspectable.h>
#include <windows.graphics.capture.interop.h>
#include <windows.graphics.directx.direct3d11.interop.h>
#include <winrt/Windows.Foundation.h>
#include <winrt/Windows.Graphics.Capture.h>
#include <winrt/Windows.Graphics.DirectX.Direct3D11.h>
#include <winrt/Windows.Graphics.DirectX.h>
#include <winrt/base.h>

namespace wgc = winrt::Windows::Graphics::Capture;
namespace wgdx = winrt::Windows::Graphics::DirectX;

struct WgcSession::Objects
{
    wgdx::Direct3D11::IDirect3DDevice device { nullptr };
    wgc::GraphicsCaptureItem item { nullptr };
    wgc::Direct3D11CaptureFramePool framePool { nullptr };
    wgc::GraphicsCaptureSession session { nullptr };
    winrt::event_token frameArrivedToken {};
};

namespace {

constexpr int FramePoolBuffers = 2;

template<typename Step>
HRESULT guarded(Step step, QString *exceptionText)
{
    try {
        step();
        return S_OK;
    } catch (const winrt::hresult_error &e) {
        return e.code();
    } catch (const std::exception &e) {
        if (exceptionText)
            *exceptionText = QString::fromUtf8(e.what());
        return E_UNEXPECTED;
    }
}

class PoolArrival final : public WgcSession::Arrival
{
public:
    explicit PoolArrival(const wgc::Direct3D11CaptureFramePool &pool)
        : m_pool(pool)
    {
    }

    HRESULT takeNext() override
    {
        const HRESULT hr = guarded([this] { m_frame = m_pool.TryGetNextFrame(); }, nullptr);
        if (FAILED(hr))
            return hr;
        return m_frame ? S_OK : S_FALSE;
    }

    HRESULT texture(Microsoft::WRL::ComPtr<ID3D11Texture2D> *texture,
                    std::shared_ptr<void> *holder) override
    {
        if (!m_frame)
            return E_POINTER;
        return guarded(
            [&] {
                auto access = m_frame.Surface()
                                  .as<::Windows::Graphics::DirectX::Direct3D11::
                                          IDirect3DDxgiInterfaceAccess>();
                winrt::check_hresult(access->GetInterface(
                    __uuidof(ID3D11Texture2D),
                    reinterpret_cast<void **>(texture->ReleaseAndGetAddressOf())));
                *holder = std::make_shared<wgc::Direct3D11CaptureFrame>(m_frame);
            },
            nullptr);
    }

private:
    const wgc::Direct3D11CaptureFramePool &m_pool;
    wgc::Direct3D11CaptureFrame m_frame { nullptr };
};

} // namespace

WgcSession::WgcSession()
    : d(std::make_unique<Objects>())
{
}

WgcSession::~WgcSession()
{
    close();
}

HRESULT WgcSession::initApartment()
{
    return guarded([] { winrt::init_apartment(winrt::apartment_type::multi_threaded); }, nullptr);
}

bool WgcSession::isSupported()
{
    bool supported = false;
    guarded([&] { supported = wgc::GraphicsCaptureSession::IsSupported(); }, nullptr);
    return supported;
}

HRESULT WgcSession::open(ID3D11Device *device, HMONITOR monitor, QSize *itemSize,
                         QString *exceptionText)
{
    return guarded(
        [&] {
            Microsoft::WRL::ComPtr<IDXGIDevice> dxgiDevice;
            winrt::check_hresult(device->QueryInterface(
                __uuidof(IDXGIDevice), reinterpret_cast<void **>(dxgiDevice.GetAddressOf())));
            winrt::com_ptr<::IInspectable> inspectable;
            winrt::check_hresult(
                CreateDirect3D11DeviceFromDXGIDevice(dxgiDevice.Get(), inspectable.put()));
            d->device = inspectable.as<wgdx::Direct3D11::IDirect3DDevice>();
            const auto interop = winrt::get_activation_factory<wgc::GraphicsCaptureItem,
                                                               IGraphicsCaptureItemInterop>();
            winrt::check_hresult(interop->CreateForMonitor(
                monitor, winrt::guid_of<wgc::GraphicsCaptureItem>(), winrt::put_abi(d->item)));
            const auto size = d->item.Size();
            *itemSize = QSize(size.Width, size.Height);
        },
        exceptionText);
}

HRESULT WgcSession::start(FrameArrived onFrame, QString *exceptionText)
{
    return guarded(
        [&] {
            // Free-threaded: frames arrive on a system thread, with no
            // dispatcher queue or message loop needed.
            d->framePool = wgc::Direct3D11CaptureFramePool::CreateFreeThreaded(
                d->device, wgdx::DirectXPixelFormat::B8G8R8A8UIntNormalized, FramePoolBuffers,
                d->item.Size());
            d->session = d->framePool.CreateCaptureSession(d->item);
            d->session.IsCursorCaptureEnabled(false);
            d->session.IsBorderRequired(false);
            d->frameArrivedToken = d->framePool.FrameArrived(
                [onFrame = std::move(onFrame)](const wgc::Direct3D11CaptureFramePool &sender,
                                               const winrt::Windows::Foundation::IInspectable &) {
                    PoolArrival arrival(sender);
                    onFrame(arrival);
                });
            d->session.StartCapture();
        },
        exceptionText);
}

bool WgcSession::isRunning() const
{
    return static_cast<bool>(d->session);
}

void WgcSession::close()
{
    // A session that fails to close is dropped all the same.
    guarded(
        [this] {
            if (d->framePool && d->frameArrivedToken.value != 0)
                d->framePool.FrameArrived(d->frameArrivedToken);
            if (d->session)
                d->session.Close();
            if (d->framePool)
                d->framePool.Close();
        },
        nullptr);
    *d = Objects();
}
