#include "platform/windows/WindowsCapture.h"

#include "platform/windows/WinErrorText.h"
#include "recording/RecordingLog.h"

namespace {

void report(QString *error, const QString &text)
{
    if (error)
        *error = text;
}

QSize evenSize(int width, int height)
{
    return QSize(qMax(width, 2) & ~1, qMax(height, 2) & ~1);
}

HMONITOR monitorFor(const QRect &rect)
{
    // One past the last pixel on the right and at the bottom.
    RECT r { rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height() };
    return MonitorFromRect(&r, MONITOR_DEFAULTTONEAREST);
}

// The whole monitor is captured, whatever part of it was asked for.
QRect adjustedRect(const QRect &rect, HMONITOR monitor)
{
    QRect base = rect;
    MONITORINFO info {};
    info.cbSize = sizeof(info);
    if (monitor && GetMonitorInfoW(monitor, &info)) {
        const RECT &m = info.rcMonitor;
        base = QRect(QPoint(m.left, m.top), QSize(m.right - m.left, m.bottom - m.top));
    }
    return QRect(base.topLeft(), evenSize(base.width(), base.height()));
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
    const QSize size(static_cast<int>(desc.desc.Width), static_cast<int>(desc.desc.Height));
    debug << "size" << size << "format" << static_cast<int>(desc.desc.Format) << "bindFlags"
          << desc.desc.BindFlags;
    return debug;
}

WindowsCapture::WindowsCapture()
    : m_handOver(std::make_shared<HandOver>())
    , m_pool(
          { QStringLiteral("WindowsCapture: allocated encoder D3D texture"),
            QStringLiteral(
                "WindowsCapture: encoder texture pool is busy; allocated temporary D3D texture") },
          [this](const TextureDesc &wanted) {
              Texture texture;
              m_allocationResult =
                  m_device->CreateTexture2D(&wanted.desc, nullptr, texture.GetAddressOf());
              return texture;
          },
          // The pool's own reference counts as one; Release after AddRef
          // shows whether the encoder holds more.
          [](const Texture &texture) {
              texture.Get()->AddRef();
              return texture.Get()->Release() >= 2;
          })
{
    m_handOver->setNoFrameError(
        QStringLiteral("Windows Graphics Capture did not produce a frame."));
}

WindowsCapture::~WindowsCapture()
{
    stop();
}

bool WindowsCapture::ensureSession(const QRect &rect, CaptureSession *session, QString *error)
{
    if (!ensureRunning(rect, error))
        return false;
    if (!m_device) {
        report(error, QStringLiteral("Windows Graphics Capture D3D device is unavailable."));
        return false;
    }
    // The writer shares the device through its own reference.
    ID3D11Device *device = m_device.Get();
    device->AddRef();
    session->device = std::shared_ptr<void>(
        device, [](void *shared) { static_cast<ID3D11Device *>(shared)->Release(); });
    session->frameSize = m_recordFrameSize;
    return true;
}

bool WindowsCapture::ensureRunning(const QRect &rect, QString *error)
{
    if (rect.isEmpty()) {
        report(error, QStringLiteral("No active display found."));
        return false;
    }
    const HMONITOR monitor = monitorFor(rect);
    const QRect adjusted = adjustedRect(rect, monitor);
    if (m_captureRect == adjusted && m_monitor == monitor && m_wgc.isRunning())
        return true;
    return init(adjusted, error);
}

bool WindowsCapture::init(const QRect &rect, QString *error)
{
    stop();
    const HRESULT apartment = WgcSession::initApartment();
    // A thread already in the single-threaded apartment is fine as it is.
    if (FAILED(apartment) && apartment != RPC_E_CHANGED_MODE) {
        report(error, WinErrorText::wrap(QStringLiteral("Failed to initialize WinRT"), apartment));
        return false;
    }
    if (!WgcSession::isSupported()) {
        report(
            error,
            QStringLiteral("Windows Graphics Capture is not supported on this Windows version."));
        return false;
    }
    m_handOver->restart();
    m_monitor = monitorFor(rect);
    if (!m_monitor) {
        report(error, QStringLiteral("Could not find a monitor for the capture area."));
        return false;
    }
    const HRESULT hr = D3D11CreateDevice(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr,
                                         D3D11_CREATE_DEVICE_BGRA_SUPPORT, nullptr, 0,
                                         D3D11_SDK_VERSION, m_device.ReleaseAndGetAddressOf(),
                                         nullptr, m_context.ReleaseAndGetAddressOf());
    if (FAILED(hr)) {
        report(
            error,
            WinErrorText::wrap(
                QStringLiteral("Failed to create D3D11 device for Windows Graphics Capture"), hr));
        stop();
        return false;
    }
    if (!startCapture(rect, error)) {
        stop();
        return false;
    }
    return true;
}

bool WindowsCapture::startCapture(const QRect &rect, QString *error)
{
    const auto failed = [error](HRESULT hr, const QString &exceptionText) {
        if (exceptionText.isEmpty()) {
            report(
                error,
                WinErrorText::wrap(QStringLiteral("Failed to start Windows Graphics Capture"), hr));
        } else {
            report(
                error,
                QStringLiteral("Failed to start Windows Graphics Capture: %1").arg(exceptionText));
        }
        return false;
    };
    QString exceptionText;
    QSize itemSize;
    HRESULT hr = m_wgc.open(m_device.Get(), m_monitor, &itemSize, &exceptionText);
    if (FAILED(hr))
        return failed(hr, exceptionText);
    m_recordFrameSize = evenSize(itemSize.width(), itemSize.height());
    qCInfo(lcRecording) << "WindowsCapture: starting WGC"
                        << "monitorRect" << rect << "itemSize" << itemSize << "recordFrameSize"
                        << m_recordFrameSize << "poolSize" << m_pool.Size;
    m_captureRect = rect;
    hr = m_wgc.start([handOver = m_handOver](
                         WgcSession::Arrival &arrival) { onFrameArrived(*handOver, arrival); },
                     &exceptionText);
    if (FAILED(hr))
        return failed(hr, exceptionText);
    return true;
}

void WindowsCapture::onFrameArrived(HandOver &handOver, WgcSession::Arrival &arrival)
{
    HandOver::CallbackScope scope(handOver);
    if (!scope.active())
        return;
    // Taken even when a frame is pending, so that the newcomer goes back to
    // the frame pool at once instead of holding its second buffer.
    HRESULT hr = arrival.takeNext();
    if (hr == S_OK) {
        handOver.offer([&]() -> std::optional<Pending> {
            Pending pending;
            hr = arrival.texture(&pending.texture, &pending.frame);
            if (FAILED(hr))
                return std::nullopt;
            pending.texture->GetDesc(&pending.desc);
            return pending;
        });
    }
    if (FAILED(hr)) {
        qCWarning(lcRecording).noquote()
            << "Windows Graphics Capture frame failed:"
            << WinErrorText::wrap(QStringLiteral("Frame copy failed"), hr);
    }
}

bool WindowsCapture::deliverFrame(const QRect &rect, const Consumer &consumer, QString *error)
{
    if (!rect.isEmpty() && !consumer) {
        report(error, QStringLiteral("No Windows Graphics Capture D3D frame consumer provided."));
        return false;
    }
    if (!ensureRunning(rect, error))
        return false;
    Texture target;
    if (!m_handOver->take(
            [&](const Pending &pending) { return copyForEncoder(pending, &target, error); }, error))
        return false;
    // Outside the lock: the callback thread waits for the copy only.
    CapturedFrame frame;
    frame.size = m_recordFrameSize;
    frame.texture = target.Get();
    return consumer(frame);
}

bool WindowsCapture::copyForEncoder(const Pending &pending, Texture *target, QString *error)
{
    const int width = m_recordFrameSize.width();
    const int height = m_recordFrameSize.height();
    if (static_cast<int>(pending.desc.Width) < width
        || static_cast<int>(pending.desc.Height) < height) {
        report(error,
               QStringLiteral("Windows Graphics Capture frame size %1x%2 is smaller than "
                              "recorder size %3x%4.")
                   .arg(pending.desc.Width)
                   .arg(pending.desc.Height)
                   .arg(width)
                   .arg(height));
        return false;
    }
    TextureDesc wanted { pending.desc };
    wanted.desc.Width = static_cast<UINT>(width);
    wanted.desc.Height = static_cast<UINT>(height);
    wanted.desc.MipLevels = 1;
    wanted.desc.ArraySize = 1;
    wanted.desc.SampleDesc = { 1, 0 };
    wanted.desc.Usage = D3D11_USAGE_DEFAULT;
    wanted.desc.BindFlags = D3D11_BIND_SHADER_RESOURCE;
    wanted.desc.CPUAccessFlags = 0;
    wanted.desc.MiscFlags = 0;
    m_allocationResult = S_OK;
    *target = m_pool.acquire(wanted);
    if (!*target) {
        report(
            error,
            WinErrorText::wrap(QStringLiteral("Failed to copy Windows Graphics Capture D3D frame"),
                               m_allocationResult));
        return false;
    }
    // The monitor's top-left part at the even size: an odd last column or
    // row is cut off.
    const D3D11_BOX box { 0, 0, 0, wanted.desc.Width, wanted.desc.Height, 1 };
    m_context->CopySubresourceRegion(target->Get(), 0, 0, 0, 0, pending.texture.Get(), 0, &box);
    return true;
}

void WindowsCapture::stop()
{
    m_handOver->stop();
    m_wgc.close();
    const FrameHandOverStats stats = m_handOver->stats();
    if (stats.receivedFrames || stats.droppedBeforeWorker || stats.copiedForEncoder
        || m_pool.poolAllocations() || m_pool.temporaryAllocations()) {
        qCInfo(lcRecording) << "WindowsCapture WGC stats:"
                            << "received" << stats.receivedFrames << "droppedBeforeWorker"
                            << stats.droppedBeforeWorker << "copiedForEncoder"
                            << stats.copiedForEncoder << "poolAllocations"
                            << m_pool.poolAllocations() << "temporaryAllocations"
                            << m_pool.temporaryAllocations() << "poolSize" << m_pool.Size;
    }
    m_handOver->clear();
    m_pool.clear();
    m_context.Reset();
    m_device.Reset();
    m_captureRect = QRect();
    m_recordFrameSize = QSize();
    m_monitor = nullptr;
}
