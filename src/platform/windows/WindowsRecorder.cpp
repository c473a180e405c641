#include "platform/windows/WindowsRecorder.h"

#include "platform/windows/WinErrorText.h"
#include "recording/RecordingLog.h"

#include <QDir>

#include <codecapi.h>
#include <d3d11.h>
#include <mfapi.h>
#include <mferror.h>
#include <strmif.h>

using Microsoft::WRL::ComPtr;

// GetStatistics is told the size of the structure it fills.
static_assert(sizeof(MF_SINK_WRITER_STATISTICS) == 112);

std::unique_ptr<VideoWriter> VideoWriter::create()
{
    return std::make_unique<WindowsRecorder>();
}

WindowsRecorder::~WindowsRecorder()
{
    finish();
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
        *error = WinErrorText::stepFailed(label, result);
        return false;
    };
    m_frameSize = settings.frameSize;
    m_firstFrameLogged = false;
    // The container follows from the ".mp4" suffix.
    const std::wstring nativePath = QDir::toNativeSeparators(path).toStdWString();
    HRESULT hr = MFStartup(MF_VERSION, MFSTARTUP_LITE);
    if (FAILED(hr))
        return fail("MFStartup", hr);

    ComPtr<IMFAttributes> attributes;
    if (FAILED(hr = MFCreateAttributes(attributes.GetAddressOf(), 4)))
        return fail("MFCreateAttributes", hr);
    if (FAILED(hr = attributes->SetUINT32(MF_READWRITE_ENABLE_HARDWARE_TRANSFORMS, 1)))
        return fail("Set hardware transform attribute", hr);
    if (FAILED(hr = attributes->SetUINT32(MF_LOW_LATENCY, 1)))
        return fail("Set low-latency attribute", hr);
    if (FAILED(hr = attributes->SetUINT32(MF_SINK_WRITER_DISABLE_THROTTLING, 1)))
        return fail("Set disable-throttling attribute", hr);
    if (FAILED(hr = MFCreateDXGIDeviceManager(&m_resetToken,
                                              m_deviceManager.ReleaseAndGetAddressOf())))
        return fail("MFCreateDXGIDeviceManager", hr);
    if (FAILED(hr = m_deviceManager->ResetDevice(device, m_resetToken)))
        return fail("IMFDXGIDeviceManager::ResetDevice", hr);
    if (FAILED(hr = attributes->SetUnknown(MF_SINK_WRITER_D3D_MANAGER, m_deviceManager.Get())))
        return fail("Set MF_SINK_WRITER_D3D_MANAGER", hr);
    if (FAILED(hr = MFCreateSinkWriterFromURL(nativePath.c_str(), nullptr, attributes.Get(),
                                              m_writer.ReleaseAndGetAddressOf())))
        return fail("MFCreateSinkWriterFromURL", hr);

    const UINT32 width = UINT32(settings.frameSize.width());
    const UINT32 height = UINT32(settings.frameSize.height());
    ComPtr<IMFMediaType> output;
    if (FAILED(hr = MFCreateMediaType(output.GetAddressOf())))
        return fail("MFCreateMediaType output", hr);
    output->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
    output->SetGUID(MF_MT_SUBTYPE, MFVideoFormat_H264);
    output->SetUINT32(MF_MT_AVG_BITRATE, UINT32(settings.bitrate));
    output->SetUINT32(MF_MT_INTERLACE_MODE, MFVideoInterlace_Progressive);
    output->SetUINT32(MF_MT_MPEG2_PROFILE, UINT32(settings.profile));
    output->SetUINT32(MF_MT_MAX_KEYFRAME_SPACING, UINT32(settings.keyframeSpacing));
    MFSetAttributeSize(output.Get(), MF_MT_FRAME_SIZE, width, height);
    MFSetAttributeRatio(output.Get(), MF_MT_FRAME_RATE, UINT32(settings.fps), 1);
    MFSetAttributeRatio(output.Get(), MF_MT_PIXEL_ASPECT_RATIO, 1, 1);
    if (FAILED(hr = m_writer->AddStream(output.Get(), &m_streamIndex)))
        return fail("IMFSinkWriter::AddStream H264", hr);

    ComPtr<IMFMediaType> input;
    if (FAILED(hr = MFCreateMediaType(input.GetAddressOf())))
        return fail("MFCreateMediaType input", hr);
    input->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
    input->SetGUID(MF_MT_SUBTYPE, MFVideoFormat_ARGB32);
    input->SetUINT32(MF_MT_INTERLACE_MODE, MFVideoInterlace_Progressive);
    MFSetAttributeSize(input.Get(), MF_MT_FRAME_SIZE, width, height);
    MFSetAttributeRatio(input.Get(), MF_MT_FRAME_RATE, UINT32(settings.fps), 1);
    MFSetAttributeRatio(input.Get(), MF_MT_PIXEL_ASPECT_RATIO, 1, 1);
    if (FAILED(hr = m_writer->SetInputMediaType(m_streamIndex, input.Get(), nullptr))) {
        qCWarning(lcRecording) << "WindowsRecorder: the encoder refused the input type"
                               << "frameSize" << settings.frameSize << "fps" << settings.fps
                               << "d3dInput" << true;
        return fail("IMFSinkWriter::SetInputMediaType D3D ARGB32", hr);
    }

    applyEncoderOptions(settings);

    if (FAILED(hr = m_writer->BeginWriting()))
        return fail("IMFSinkWriter::BeginWriting", hr);
    return true;
}

void WindowsRecorder::logStarted(const QString &path) const
{
    qCInfo(lcRecording) << "WindowsRecorder: Media Foundation writer started"
                        << "output" << path << "frameSize" << settings().frameSize << "fps"
                        << settings().fps << "bitrate" << settings().bitrate << "d3dInput" << true
                        << "inputSubtype"
                        << "ARGB32";
}

void WindowsRecorder::applyEncoderOptions(const H264Settings &settings)
{
    ComPtr<ICodecAPI> codec;
    HRESULT hr =
        m_writer->GetServiceForStream(m_streamIndex, GUID_NULL, IID_PPV_ARGS(codec.GetAddressOf()));
    if (FAILED(hr)) {
        qCDebug(lcRecording) << "WindowsRecorder: encoder ICodecAPI unavailable"
                             << WinErrorText::describe(hr);
        return;
    }
    const auto apply = [&](const char *label, const GUID &property, VARIANT value) {
        HRESULT result = codec->IsSupported(&property);
        if (FAILED(result)) {
            qCDebug(lcRecording) << "WindowsRecorder: encoder option unsupported" << label
                                 << WinErrorText::describe(result);
            return;
        }
        result = codec->SetValue(&property, &value);
        if (FAILED(result)) {
            qCDebug(lcRecording) << "WindowsRecorder: encoder option rejected" << label
                                 << WinErrorText::describe(result);
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
        *error = WinErrorText::stepFailed(label, result);
        return false;
    };
    // The buffer holds its own reference to the texture until the encoder is
    // done with it, which is what keeps the capture pool's slot busy.
    ComPtr<IMFMediaBuffer> buffer;
    HRESULT hr = MFCreateDXGISurfaceBuffer(__uuidof(ID3D11Texture2D), texture, 0, FALSE,
                                           buffer.GetAddressOf());
    if (FAILED(hr))
        return fail("MFCreateDXGISurfaceBuffer", hr);
    if (FAILED(hr = buffer->SetCurrentLength(DWORD(frame.size.width() * frame.size.height() * 4))))
        return fail("DXGI surface buffer SetCurrentLength", hr);
    ComPtr<IMFSample> sample;
    if (FAILED(hr = MFCreateSample(sample.GetAddressOf())))
        return fail("MFCreateSample D3D", hr);
    if (FAILED(hr = sample->AddBuffer(buffer.Get())))
        return fail("IMFSample::AddBuffer D3D", hr);
    sample->SetSampleTime(sampleTime);
    sample->SetSampleDuration(duration);
    if (FAILED(hr = m_writer->WriteSample(m_streamIndex, sample.Get()))) {
        *error = WinErrorText::stepFailed("IMFSinkWriter::WriteSample D3D", hr);
        qCWarning(lcRecording) << "WindowsRecorder: WriteSample failed"
                               << "timestampMs" << sampleTime / 10000 << "submitted"
                               << samplesSubmitted();
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
        *error = WinErrorText::stepFailed("IMFSinkWriter::Finalize", hr);
        return false;
    }
    return true;
}
