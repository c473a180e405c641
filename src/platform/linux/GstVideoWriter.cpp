#include "platform/linux/GstVideoWriter.h"

#include "platform/linux/GstSupport.h"
#include "recording/RecordingLog.h"

#include <gst/app/gstappsrc.h>
#include <gst/gst.h>
#include <gst/video/video.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

// The encoder has a queue to absorb a slow frame; the capture side has only
// its 33 ms tick. Its threads, and the ones they start (x264's, the
// converter's), therefore yield to everything else of the same user.
constexpr int encoderNiceness = 10;

GstBusSyncReply lowerStreamingThreads(GstBus *, GstMessage *message, gpointer)
{
    if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_STREAM_STATUS) {
        GstStreamStatusType type;
        GstElement *owner = nullptr;
        gst_message_parse_stream_status(message, &type, &owner);
        // Posted from the new streaming thread itself, before it does any work.
        if (type == GST_STREAM_STATUS_TYPE_ENTER)
            setpriority(PRIO_PROCESS, id_t(gettid()), encoderNiceness);
    }
    return GST_BUS_PASS;
}

} // namespace

std::unique_ptr<VideoWriter> VideoWriter::create()
{
    return std::make_unique<GstVideoWriter>();
}

GstVideoWriter::GstVideoWriter()
{
    GstSupport::ensureInitialised();
}

GstVideoWriter::~GstVideoWriter()
{
    finish();
    release();
}

// x264 has no quality/speed knob of 0..100: the fast end (75) is "ultrafast",
// which holds 1080p30 on two cores with room to spare, and the quality end
// (45) one step slower. The bitrate is the mean of the table in kbit/s; a
// peak-constrained mode gets a one-second VBV buffer, unconstrained three.
GstVideoWriter::X264Options GstVideoWriter::x264Options(const H264Settings &settings)
{
    X264Options options {};
    options.speedPreset = settings.qualityVsSpeed >= 75 ? "ultrafast" : "superfast";
    options.bitrateKbps = unsigned(settings.bitrate / 1000);
    options.vbvBufferMs = settings.rateControl == H264Settings::PeakConstrainedVbr ? 1000 : 3000;
    options.keyIntMax = unsigned(settings.keyframeSpacing);
    options.profile = settings.profile == H264Settings::High ? "high" : "main";
    return options;
}

bool GstVideoWriter::openSink(const QString &path, const CaptureSession &,
                              const H264Settings &settings, QString *error)
{
    release();
    const X264Options options = x264Options(settings);
    m_pipeline = gst_pipeline_new("glimmora-writer");
    GstElement *appsrc = gst_element_factory_make("appsrc", nullptr);
    GstElement *convert = gst_element_factory_make("videoconvert", nullptr);
    GstElement *rawFilter = gst_element_factory_make("capsfilter", nullptr);
    GstElement *encoder = gst_element_factory_make("x264enc", nullptr);
    GstElement *h264Filter = gst_element_factory_make("capsfilter", nullptr);
    GstElement *muxer = gst_element_factory_make("mp4mux", nullptr);
    GstElement *sink = gst_element_factory_make("filesink", nullptr);
    GstElement *elements[] = { appsrc, convert, rawFilter, encoder, h264Filter, muxer, sink };
    for (GstElement *element : elements) {
        if (!element) {
            for (GstElement *e : elements) {
                if (e)
                    gst_object_unref(e);
            }
            *error = QStringLiteral("GStreamer elements for H.264/MP4 writing are missing "
                                    "(appsrc, videoconvert, x264enc, mp4mux, filesink).");
            return false;
        }
    }

    GstCaps *inputCaps = gst_caps_new_simple(
        "video/x-raw", "format", G_TYPE_STRING, "BGRx", "width", G_TYPE_INT,
        settings.frameSize.width(), "height", G_TYPE_INT, settings.frameSize.height(), "framerate",
        GST_TYPE_FRACTION, settings.fps, 1, nullptr);
    g_object_set(appsrc, "caps", inputCaps, "is-live", TRUE, "format", GST_FORMAT_TIME,
                 "do-timestamp", FALSE, "block", FALSE, "max-bytes", guint64(0), nullptr);
    gst_caps_unref(inputCaps);
    g_object_set(convert, "n-threads", guint(2), nullptr);
    GstCaps *rawCaps = gst_caps_new_simple("video/x-raw", "format", G_TYPE_STRING, "I420", nullptr);
    g_object_set(rawFilter, "caps", rawCaps, nullptr);
    gst_caps_unref(rawCaps);
    gst_util_set_object_arg(G_OBJECT(encoder), "speed-preset", options.speedPreset);
    gst_util_set_object_arg(G_OBJECT(encoder), "tune", "zerolatency");
    g_object_set(encoder, "bitrate", options.bitrateKbps, "vbv-buf-capacity", options.vbvBufferMs,
                 "key-int-max", options.keyIntMax, nullptr);
    GstCaps *h264Caps =
        gst_caps_new_simple("video/x-h264", "profile", G_TYPE_STRING, options.profile, nullptr);
    g_object_set(h264Filter, "caps", h264Caps, nullptr);
    gst_caps_unref(h264Caps);
    g_object_set(muxer, "fragment-duration", guint(1000), nullptr);
    gst_util_set_object_arg(G_OBJECT(muxer), "fragment-mode", "first-moov-then-finalise");
    g_object_set(sink, "location", path.toUtf8().constData(), nullptr);
    GstBus *bus = gst_element_get_bus(m_pipeline);
    gst_bus_set_sync_handler(bus, lowerStreamingThreads, nullptr, nullptr);
    gst_object_unref(bus);

    gst_bin_add_many(GST_BIN(m_pipeline), appsrc, convert, rawFilter, encoder, h264Filter, muxer,
                     sink, nullptr);
    m_appsrc = GST_ELEMENT(gst_object_ref(appsrc));
    if (!gst_element_link_many(appsrc, convert, rawFilter, encoder, h264Filter, muxer, sink,
                               nullptr)) {
        *error = QStringLiteral("Could not link the H.264/MP4 writing pipeline.");
        return false;
    }
    const bool stateFailed =
        gst_element_set_state(m_pipeline, GST_STATE_PLAYING) == GST_STATE_CHANGE_FAILURE;
    QString busText;
    if (GstSupport::popBusError(m_pipeline, &busText) || stateFailed) {
        *error =
            QStringLiteral("Could not start writing %1: %2")
                .arg(path,
                     busText.isEmpty() ? QStringLiteral("the pipeline did not start") : busText);
        return false;
    }
    return true;
}

bool GstVideoWriter::submitFrame(const CapturedFrame &frame, qint64 sampleTime, qint64 duration,
                                 QString *error)
{
    if (!frame.bits) {
        *error = QStringLiteral("Invalid frame data.");
        return false;
    }
    if (GstSupport::popBusError(m_pipeline, error))
        return false;
    // An encoder that falls behind drops frames rather than queueing them
    // without bound; each queued frame pins a captured image.
    if (gst_app_src_get_current_level_buffers(GST_APP_SRC(m_appsrc)) >= MaxQueuedFrames) {
        ++m_encoderDrops;
        return true;
    }
    // The buffer borrows the frame's pixels and keeps its owner alive until
    // the encoder lets go, which is what keeps the source's pool slot busy.
    const gsize size = gsize(frame.bytesPerLine) * gsize(frame.size.height());
    auto *owner = new std::shared_ptr<const void>(frame.owner);
    GstBuffer *buffer = gst_buffer_new_wrapped_full(
        GST_MEMORY_FLAG_READONLY, const_cast<unsigned char *>(frame.bits), size, 0, size, owner,
        [](gpointer data) { delete static_cast<std::shared_ptr<const void> *>(data); });
    if (frame.bytesPerLine != frame.size.width() * 4) {
        gsize offsets[GST_VIDEO_MAX_PLANES] = { 0 };
        gint strides[GST_VIDEO_MAX_PLANES] = { frame.bytesPerLine };
        gst_buffer_add_video_meta_full(buffer, GST_VIDEO_FRAME_FLAG_NONE, GST_VIDEO_FORMAT_BGRx,
                                       guint(frame.size.width()), guint(frame.size.height()), 1,
                                       offsets, strides);
    }
    GST_BUFFER_PTS(buffer) = GstClockTime(sampleTime) * 100;
    GST_BUFFER_DURATION(buffer) = GstClockTime(duration) * 100;
    const GstFlowReturn flow = gst_app_src_push_buffer(GST_APP_SRC(m_appsrc), buffer);
    if (flow != GST_FLOW_OK) {
        *error = QStringLiteral("Pushing a frame to the encoder failed: %1")
                     .arg(QString::fromUtf8(gst_flow_get_name(flow)));
        return false;
    }
    return true;
}

bool GstVideoWriter::closeSink(bool opened, QString *error)
{
    if (!m_pipeline)
        return true;
    if (m_encoderDrops)
        qCInfo(lcRecording) << "GstVideoWriter: frames dropped while the encoder was behind"
                            << m_encoderDrops;
    m_encoderDrops = 0;
    bool ok = true;
    if (opened) {
        if (GstSupport::popBusError(m_pipeline, error)) {
            ok = false;
        } else {
            gst_app_src_end_of_stream(GST_APP_SRC(m_appsrc));
            ok = GstSupport::waitForEos(m_pipeline, FinaliseTimeoutMs, error);
        }
    }
    release();
    return ok;
}

void GstVideoWriter::release()
{
    if (m_appsrc) {
        gst_object_unref(m_appsrc);
        m_appsrc = nullptr;
    }
    if (m_pipeline) {
        gst_element_set_state(m_pipeline, GST_STATE_NULL);
        gst_object_unref(m_pipeline);
        m_pipeline = nullptr;
    }
}
