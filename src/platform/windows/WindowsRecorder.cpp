#include "platform/windows/WindowsRecorder.h"

#include "recording/RecordingLog.h"

#include <codecapi.h>
#include <d3d11.h>
#include <mfapi.h>
#include <strmif.h>

namespace {

QString failed(const char *label, HRESULT hr)
{
    return QStringLiteral("%1 failed: %2")
        .arg(QLatin1String(label), WindowsRecorder::hresultText(hr));
}

} // namespace

std::unique_ptr<VideoWriter> VideoWriter::create()
{
    return std::make_unique<WindowsRecorder>();
}

WindowsRecorder::~WindowsRecorder()
{
    finish();
}

QString WindowsRecorder::hresultText(HRESULT hr)
{
    wchar_t buffer[512] = {};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, DWORD(hr), 1033, buffer, 512, nullptr);
    return QStringLiteral("HRESULT 0x%1: %2")
        .arg(quint32(hr), 8, 16, QLatin1Char('0'))
        .arg(QString::fromWCharArray(buffer, int(length)).trimmed());
}

bool WindowsRecorder::openSink(const QString &path, const CaptureSession &session,
                               const H264Settings &settings, QString *error)
{
    auto *device = static_cast<ID3D11Device *>(session.device.get());
    if (!device) {
        *error = QStringLiteral("D3D11 device is required for Windows GPU recording.");
        return false;
    }
    const auto fail = [error](const char *label, HRESULT result) {
        *error = failed(label, result);
        return false;
    };
    m_frameSize = settings.frameSize;
    m_firstFrameLogged = false;
    HRESULT hr = MFStartup(MF_VERSION, MFSTARTUP_LITE);
    if (FAILED(hr))
        return fail("MFStartup", hr);

    winrt::com_ptr<IMFAttributes> attributes;
    if (FAILED(hr = MFCreateAttributes(attributes.put(), 4)))
        return fail("MFCreateAttributes", hr);
    if (FAILED(hr = attributes->SetUINT32(MF_READWRITE_ENABLE_HARDWARE_TRANSFORMS, 1)))
        return fail("Set hardware transform attribute", hr);
    if (FAILED(hr = attributes->SetUINT32(MF_LOW_LATENCY, 1)))
        return fail("Set low-latency attribute", hr);
    if (FAILED(hr = attributes->SetUINT32(MF_SINK_WRITER_DISABLE_THROTTLING, 1)))
        return fail("Set disable-throttling attribute", hr);
    if (FAILED(hr = MFCreateDXGIDeviceManager(&m_resetToken, m_deviceManager.put())))
        return fail("MFCreateDXGIDeviceManager", hr);
    if (FAILED(hr = m_deviceManager->ResetDevice(device, m_resetToken)))
        return fail("IMFDXGIDeviceManager::ResetDevice", hr);
    if (FAILED(hr = attributes->SetUnknown(MF_SINK_WRITER_D3D_MANAGER, m_deviceManager.get())))
        return fail("Set MF_SINK_WRITER_D3D_MANAGER", hr);
    if (FAILED(hr = MFCreateSinkWriterFromURL(reinterpret_cast<LPCWSTR>(path.utf16()), nullptr,
                                              attributes.get(), m_writer.put())))
        return fail("MFCreateSinkWriterFromURL", hr);

    const UINT32 width = UINT32(settings.frameSize.width());
    const UINT32 height = UINT32(settings.frameSize.height());
    winrt::com_ptr<IMFMediaType> output;
    if (FAILED(hr = MFCreateMediaType(output.put())))
        return fail("MFCreateMediaType output", hr);
    output->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
    output->SetGUID(MF_MT_SUBTYPE, MFVideoFormat_H264);
    output->SetUINT32(MF_MT_AVG_BITRATE, UINT32(settings.bitrate));
    output->SetUINT32(MF_MT_INTERLACE_MODE, MFVideoInterlace_Progressive);
    output->SetUINT32(MF_MT_MPEG2_PROFILE, UINT32(settings.profile));
    output->SetUINT32(MF_MT_MAX_KEYFRAME_SPACING, UINT32(settings.keyframeSpacing));
    MFSetAttributeSize(output.get(), MF_MT_FRAME_SIZE, width, height);
    MFSetAttributeRatio(output.get(), MF_MT_FRAME_RATE, UINT32(settings.fps), 1);
    MFSetAttributeRatio(output.get(), MF_MT_PIXEL_ASPECT_RATIO, 1, 1);
    if (FAILED(hr = m_writer->AddStream(output.get(), &m_streamIndex)))
        return fail("IMFSinkWriter::AddStream H264", hr);

    winrt::com_ptr<IMFMediaType> input;
    if (FAILED(hr = MFCreateMediaType(input.put())))
        return fail("MFCreateMediaType input", hr);
    input->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
    input->SetGUID(MF_MT_SUBTYPE, MFVideoFormat_ARGB32);
    input->SetUINT32(MF_MT_INTERLACE_MODE, MFVideoInterlace_Progressive);
    MFSetAttributeSize(input.get(), MF_MT_FRAME_SIZE, width, height);
    MFSetAttributeRatio(input.get(), MF_MT_FRAME_RATE, UINT32(settings.fps), 1);
    MFSetAttributeRatio(input.get(), MF_MT_PIXEL_ASPECT_RATIO, 1, 1);
    if (FAILED(hr = m_writer->SetInputMediaType(m_streamIndex, input.get(), nullptr)))
        return fail("IMFSinkWriter::SetInputMediaType D3D ARGB32", hr);

    applyEncoderOptions(settings);

    if (FAILED(hr = m_writer->BeginWriting()))
        return fail("IMFSinkWriter::BeginWriting", hr);
    return true;
}

void WindowsRecorder::applyEncoderOptions(const H264Settings &settings)
{
    winrt::com_ptr<ICodecAPI> codec;
    HRESULT hr = m_writer->GetServiceForStream(m_streamIndex, GUID_NULL, IID_PPV_ARGS(codec.put()));
    if (FAILED(hr)) {
        qCDebug(lcRecording) << "WindowsRecorder: encoder ICodecAPI unavailable" << hresultText(hr);
        return;
    }
    const auto apply = [&](const char *label, const GUID &property, VARIANT value) {
        HRESULT result = codec->IsSupported(&property);
        if (FAILED(result)) {
            qCDebug(lcRecording) << "WindowsRecorder: encoder option unsupported" << label
                                 << hresultText(result);
            return;
        }
        result = codec->SetValue(&property, &value);
        if (FAILED(result)) {
            qCDebug(lcRecording) << "WindowsRecorder: encoder option rejected" << label
                                 << hresultText(result);
            return;
        }
        qCDebug(lcRecording) << "WindowsRecorder: encoder option applied" << label;
    };
    const auto number = [](int v) {
        VARIANT value;
        VariantInit(&value);
        value.vt = VT_I4;
        value.lVal = v;
        return value;
    };
    VARIANT yes;
    VariantInit(&yes);
    yes.vt = VT_BOOL;
    yes.boolVal = VARIANT_TRUE;
    apply("rate-control", CODECAPI_AVEncCommonRateControlMode, number(settings.rateControl));
    apply("mean-bitrate", CODECAPI_AVEncCommonMeanBitRate, number(settings.bitrate));
    apply("quality", CODECAPI_AVEncCommonQuality, number(settings.quality));
    apply("quality-vs-speed", CODECAPI_AVEncCommonQualityVsSpeed, number(settings.qualityVsSpeed));
    apply("realtime", CODECAPI_AVEncCommonRealTime, yes);
    apply("low-latency", CODECAPI_AVLowLatencyMode, yes);
    apply("max-keyframe-distance", CODECAPI_AVEncVideoMaxKeyframeDistance,
          number(settings.keyframeSpacing));
    apply("allow-frame-drops", CODECAPI_AVEncCommonAllowFrameDrops, yes);
}

bool WindowsRecorder::submitFrame(const CapturedFrame &frame, qint64 sampleTime, qint64 duration,
                                  QString *error)
{
    auto *texture = static_cast<ID3D11Texture2D *>(frame.texture);
    if (!texture) {
        *error = QStringLiteral("Invalid D3D frame.");
        return false;
    }
    if (!m_firstFrameLogged) {
        D3D11_TEXTURE2D_DESC desc {};
        texture->GetDesc(&desc);
        qCInfo(lcRecording) << "WindowsRecorder: first D3D frame"
                            << "textureSize" << QSize(int(desc.Width), int(desc.Height)) << "format"
                            << int(desc.Format) << "bindFlags" << desc.BindFlags << "usage"
                            << int(desc.Usage) << "recordFrameSize" << m_frameSize;
        m_firstFrameLogged = true;
    }
    const auto fail = [error](const char *label, HRESULT result) {
        *error = failed(label, result);
        return false;
    };
    // The buffer holds its own reference to the texture until the encoder is
    // done with it, which is what keeps the capture pool's slot busy.
    winrt::com_ptr<IMFMediaBuffer> buffer;
    HRESULT hr =
        MFCreateDXGISurfaceBuffer(__uuidof(ID3D11Texture2D), texture, 0, FALSE, buffer.put());
    if (FAILED(hr))
        return fail("MFCreateDXGISurfaceBuffer", hr);
    if (FAILED(hr = buffer->SetCurrentLength(DWORD(frame.size.width() * frame.size.height() * 4))))
        return fail("DXGI surface buffer SetCurrentLength", hr);
    winrt::com_ptr<IMFSample> sample;
    if (FAILED(hr = MFCreateSample(sample.put())))
        return fail("MFCreateSample D3D", hr);
    if (FAILED(hr = sample->AddBuffer(buffer.get())))
        return fail("IMFSample::AddBuffer D3D", hr);
    sample->SetSampleTime(sampleTime);
    sample->SetSampleDuration(duration);
    if (FAILED(hr = m_writer->WriteSample(m_streamIndex, sample.get()))) {
        *error = failed("IMFSinkWriter::WriteSample D3D", hr);
        qCWarning(lcRecording) << "WindowsRecorder: WriteSample failed"
                               << "timestampMs" << sampleTime / 10000;
        return false;
    }
    return true;
}

bool WindowsRecorder::closeSink(bool opened, QString *error)
{
    if (!m_writer)
        return true;
    MF_SINK_WRITER_STATISTICS stats {};
    stats.cb = sizeof(stats);
    if (SUCCEEDED(m_writer->GetStatistics(m_streamIndex, &stats))) {
        qCInfo(lcRecording) << "WindowsRecorder MF stats:"
                            << "samplesReceived" << stats.qwNumSamplesReceived << "samplesEncoded"
                            << stats.qwNumSamplesEncoded << "samplesProcessed"
                            << stats.qwNumSamplesProcessed << "queuedBytes"
                            << stats.dwByteCountQueued << "processedBytes"
                            << stats.qwByteCountProcessed;
    }
    HRESULT hr = S_OK;
    if (opened) {
        hr = m_writer->Finalize();
        if (hr == MF_E_INVALIDREQUEST)
            hr = S_OK;
    }
    m_writer = nullptr;
    m_deviceManager = nullptr;
    if (FAILED(hr)) {
        *error = failed("IMFSinkWriter::Finalize", hr);
        return false;
    }
    return true;
}
