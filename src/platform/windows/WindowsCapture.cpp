#include "platform/windows/WindowsCapture.h"

#include "recording/RecordingLog.h"

#include <cstring>
#include <dxgi.h>
#include <inspectable.h>
#include <windows.graphics.capture.interop.h>
#include <windows.graphics.directx.direct3d11.interop.h>

using namespace winrt::Windows::Graphics::Capture;
using namespace winrt::Windows::Graphics::DirectX;
using namespace winrt::Windows::Graphics::DirectX::Direct3D11;

namespace {

constexpr int FramePoolBuffers = 2;

QString systemMessage(HRESULT hr)
{
    wchar_t buffer[512] = {};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, DWORD(hr), 1033, buffer, 512, nullptr);
    return QString::fromWCharArray(buffer, int(length)).trimmed();
}

HMONITOR monitorFor(const QRect &rect)
{
    // One past the last pixel on the right and at the bottom.
    RECT r { rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height() };
    return MonitorFromRect(&r, MONITOR_DEFAULTTONEAREST);
}

QRect adjustedRect(const QRect &rect, HMONITOR monitor)
{
    QRect base = rect;
    MONITORINFO info {};
    info.cbSize = sizeof(info);
    if (monitor && GetMonitorInfoW(monitor, &info)) {
        base = QRect(QPoint(info.rcMonitor.left, info.rcMonitor.top),
                     QSize(info.rcMonitor.right - info.rcMonitor.left,
                           info.rcMonitor.bottom - info.rcMonitor.top));
    }
    return QRect(base.topLeft(), QSize(qMax(base.width(), 2) & ~1, qMax(base.height(), 2) & ~1));
}

} // namespace

std::unique_ptr<FrameSource> FrameSource::create()
{
    return std::make_unique<WindowsCapture>();
}

bool WindowsCapture::TextureDesc::operator==(const TextureDesc &other) const
{
    const D3D11_TEXTURE2D_DESC &a = desc;
    const D3D11_TEXTURE2D_DESC &b = other.desc;
    return a.Width == b.Width && a.Height == b.Height && a.Format == b.Format
        && a.SampleDesc.Count == b.SampleDesc.Count && a.SampleDesc.Quality == b.SampleDesc.Quality
        && a.Usage == b.Usage && a.BindFlags == b.BindFlags && a.CPUAccessFlags == b.CPUAccessFlags
        && a.MiscFlags == b.MiscFlags;
}

QDebug operator<<(QDebug debug, const WindowsCapture::TextureDesc &desc)
{
    QDebugStateSaver saver(debug);
    debug.nospace() << "size " << desc.desc.Width << "x" << desc.desc.Height << " format "
                    << int(desc.desc.Format) << " bindFlags " << desc.desc.BindFlags;
    return debug;
}

QString WindowsCapture::wrapHresult(const QString &what, HRESULT hr)
{
    const QString message = systemMessage(hr);
    if (!message.isEmpty())
        return QStringLiteral("%1: %2").arg(what, message);
    return QStringLiteral("%1 (HRESULT 0x%2)").arg(what).arg(quint32(hr), 8, 16, QLatin1Char('0'));
}

WindowsCapture::WindowsCapture()
    : m_pool(
        QStringLiteral("WindowsCapture"),
        [this](const TextureDesc &wanted) {
            Texture texture;
            if (FAILED(m_device->CreateTexture2D(&wanted.desc, nullptr, texture.put())))
                return Texture();
            return texture;
        },
        // The pool's own reference counts as one; Release after AddRef
        // shows whether the encoder holds more.
        [](const Texture &texture) {
            texture->AddRef();
            return texture->Release() >= 2;
        })
{
    m_handOver.setNoFrameError(QStringLiteral("Windows Graphics Capture did not produce a frame."));
}

WindowsCapture::~WindowsCapture()
{
    stop();
}

bool WindowsCapture::ensureSession(const QRect &rect, CaptureSession *session, QString *error)
{
    if (rect.isEmpty()) {
        *error = QStringLiteral("No active display found.");
        return false;
    }
    const HMONITOR monitor = monitorFor(rect);
    const QRect adjusted = adjustedRect(rect, monitor);
    if (!(m_captureRect == adjusted && m_monitor == monitor && m_session)) {
        if (!init(adjusted, error))
            return false;
    }
    if (!m_device) {
        *error = QStringLiteral("Windows Graphics Capture D3D device is unavailable.");
        return false;
    }
    ID3D11Device *device = m_device.get();
    device->AddRef();
    session->device =
        std::shared_ptr<void>(device, [](void *d) { static_cast<ID3D11Device *>(d)->Release(); });
    session->frameSize = m_recordFrameSize;
    return true;
}

bool WindowsCapture::init(const QRect &rect, QString *error)
{
    stop();
    try {
        winrt::init_apartment(winrt::apartment_type::multi_threaded);
    } catch (const winrt::hresult_error &e) {
        if (e.code() != HRESULT(0x80010106)) { // RPC_E_CHANGED_MODE is fine
            *error = wrapHresult(QStringLiteral("Failed to initialize WinRT"), e.code());
            return false;
        }
    }
    if (!GraphicsCaptureSession::IsSupported()) {
        *error =
            QStringLiteral("Windows Graphics Capture is not supported on this Windows version.");
        return false;
    }
    m_handOver.restart();
    try {
        m_monitor = monitorFor(rect);
        if (!m_monitor) {
            *error = QStringLiteral("Could not find a monitor for the capture area.");
            return false;
        }
        const HRESULT hr = D3D11CreateDevice(
            nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, D3D11_CREATE_DEVICE_BGRA_SUPPORT, nullptr,
            0, D3D11_SDK_VERSION, m_device.put(), nullptr, m_context.put());
        if (FAILED(hr)) {
            *error = wrapHresult(
                QStringLiteral("Failed to create D3D11 device for Windows Graphics Capture"), hr);
            stop();
            return false;
        }
        auto dxgiDevice = m_device.as<IDXGIDevice>();
        winrt::com_ptr<::IInspectable> inspectable;
        winrt::check_hresult(
            CreateDirect3D11DeviceFromDXGIDevice(dxgiDevice.get(), inspectable.put()));
        m_winrtDevice = inspectable.as<IDirect3DDevice>();
        auto interop =
            winrt::get_activation_factory<GraphicsCaptureItem, IGraphicsCaptureItemInterop>();
        winrt::check_hresult(interop->CreateForMonitor(
            m_monitor, winrt::guid_of<GraphicsCaptureItem>(), winrt::put_abi(m_item)));
        const auto itemSize = m_item.Size();
        m_recordFrameSize = QSize(qMax(itemSize.Width, 2) & ~1, qMax(itemSize.Height, 2) & ~1);
        qCInfo(lcRecording) << "WindowsCapture: starting WGC"
                            << "monitorRect" << rect << "itemSize"
                            << QSize(itemSize.Width, itemSize.Height) << "recordFrameSize"
                            << m_recordFrameSize << "poolSize" << m_pool.Size;
        m_framePool = Direct3D11CaptureFramePool::CreateFreeThreaded(
            m_winrtDevice, DirectXPixelFormat::B8G8R8A8UIntNormalized, FramePoolBuffers, itemSize);
        m_session = m_framePool.CreateCaptureSession(m_item);
        m_session.IsCursorCaptureEnabled(false);
        m_session.IsBorderRequired(false);
        m_captureRect = rect;
        m_frameArrivedToken = m_framePool.FrameArrived(
            [this](const Direct3D11CaptureFramePool &sender,
                   const winrt::Windows::Foundation::IInspectable &) { onFrameArrived(sender); });
        m_session.StartCapture();
    } catch (const winrt::hresult_error &e) {
        stop();
        *error = wrapHresult(QStringLiteral("Failed to start Windows Graphics Capture"), e.code());
        return false;
    } catch (const std::exception &e) {
        stop();
        *error = QStringLiteral("Failed to start Windows Graphics Capture: %1")
                     .arg(QString::fromUtf8(e.what()));
        return false;
    }
    return true;
}

void WindowsCapture::onFrameArrived(const Direct3D11CaptureFramePool &sender)
{
    FrameHandOver<Pending>::CallbackScope scope(m_handOver);
    if (!scope.active())
        return;
    try {
        Direct3D11CaptureFrame frame = sender.TryGetNextFrame();
        if (!frame)
            return;
        m_handOver.offer([&]() -> std::optional<Pending> {
            Pending pending;
            auto access =
                frame.Surface()
                    .as<::Windows::Graphics::DirectX::Direct3D11::IDirect3DDxgiInterfaceAccess>();
            winrt::check_hresult(
                access->GetInterface(__uuidof(ID3D11Texture2D), pending.texture.put_void()));
            pending.texture->GetDesc(&pending.desc);
            pending.frame = frame;
            return pending;
        });
    } catch (const winrt::hresult_error &e) {
        qCWarning(lcRecording).noquote()
            << "Windows Graphics Capture frame failed:"
            << wrapHresult(QStringLiteral("Frame copy failed"), e.code());
    }
}

bool WindowsCapture::deliverFrame(const QRect &rect, const Consumer &consumer, QString *error)
{
    if (!consumer) {
        *error = QStringLiteral("No Windows Graphics Capture D3D frame consumer provided.");
        return false;
    }
    CaptureSession session;
    if (!ensureSession(rect, &session, error))
        return false;
    Texture target;
    const bool taken = m_handOver.take(
        [&](const Pending &pending) {
            if (int(pending.desc.Width) < m_recordFrameSize.width()
                || int(pending.desc.Height) < m_recordFrameSize.height()) {
                *error = QStringLiteral("Windows Graphics Capture frame size %1x%2 is smaller than "
                                        "recorder size %3x%4.")
                             .arg(pending.desc.Width)
                             .arg(pending.desc.Height)
                             .arg(m_recordFrameSize.width())
                             .arg(m_recordFrameSize.height());
                return false;
            }
            TextureDesc wanted { pending.desc };
            wanted.desc.Width = UINT(m_recordFrameSize.width());
            wanted.desc.Height = UINT(m_recordFrameSize.height());
            wanted.desc.MipLevels = 1;
            wanted.desc.ArraySize = 1;
            wanted.desc.SampleDesc = { 1, 0 };
            wanted.desc.Usage = D3D11_USAGE_DEFAULT;
            wanted.desc.BindFlags = D3D11_BIND_SHADER_RESOURCE;
            wanted.desc.CPUAccessFlags = 0;
            wanted.desc.MiscFlags = 0;
            target = m_pool.acquire(wanted);
            if (!target) {
                *error = QStringLiteral("Failed to copy Windows Graphics Capture D3D frame");
                return false;
            }
            const D3D11_BOX box {
                0, 0, 0, UINT(m_recordFrameSize.width()), UINT(m_recordFrameSize.height()), 1
            };
            m_context->CopySubresourceRegion(target.get(), 0, 0, 0, 0, pending.texture.get(), 0,
                                             &box);
            return true;
        },
        error);
    if (!taken)
        return false;
    CapturedFrame frame;
    frame.size = m_recordFrameSize;
    frame.texture = target.get();
    return consumer(frame);
}

void WindowsCapture::stop()
{
    m_handOver.stop();
    if (m_framePool && m_frameArrivedToken.value) {
        m_framePool.FrameArrived(m_frameArrivedToken);
        m_frameArrivedToken = {};
    }
    if (m_session)
        m_session.Close();
    if (m_framePool)
        m_framePool.Close();
    const FrameHandOverStats stats = m_handOver.stats();
    if (stats.receivedFrames || stats.droppedBeforeWorker || stats.copiedForEncoder
        || m_pool.poolAllocations() || m_pool.temporaryAllocations()) {
        qCInfo(lcRecording) << "WindowsCapture WGC stats:"
                            << "received" << stats.receivedFrames << "droppedBeforeWorker"
                            << stats.droppedBeforeWorker << "copiedForEncoder"
                            << stats.copiedForEncoder << "poolAllocations"
                            << m_pool.poolAllocations() << "temporaryAllocations"
                            << m_pool.temporaryAllocations() << "poolSize" << m_pool.Size;
    }
    m_session = nullptr;
    m_framePool = nullptr;
    m_item = nullptr;
    m_winrtDevice = nullptr;
    m_handOver.clear();
    m_pool.clear();
    m_context = nullptr;
    m_device = nullptr;
    m_captureRect = QRect();
    m_recordFrameSize = QSize();
    m_monitor = nullptr;
}
