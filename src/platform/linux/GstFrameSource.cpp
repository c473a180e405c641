#include "platform/linux/GstFrameSource.h"

#include "platform/linux/GstSupport.h"
#include "recording/RecordingLog.h"

#include <gst/app/gstappsink.h>
#include <gst/gst.h>
#include <gst/video/video.h>
#include <xcb/xcb.h>

namespace {

QSize rootWindowSize()
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    QSize size;
    if (!xcb_connection_has_error(connection)) {
        const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
        if (screen)
            size = QSize(screen->width_in_pixels, screen->height_in_pixels);
    }
    xcb_disconnect(connection);
    return size;
}

} // namespace

std::unique_ptr<FrameSource> FrameSource::create()
{
    return std::make_unique<GstFrameSource>();
}

GstFrameSource::GstFrameSource()
{
    GstSupport::ensureInitialised();
    m_handOver.setNoFrameError(QStringLiteral("X11 screen capture did not produce a frame."));
}

GstFrameSource::~GstFrameSource()
{
    stop();
}

bool GstFrameSource::cropFor(const QRect &rect, const QSize &rootSize, Crop *crop, QString *error)
{
    const QRect adjusted(rect.topLeft(),
                         QSize(qMax(rect.width(), 2) & ~1, qMax(rect.height(), 2) & ~1));
    if (!QRect(QPoint(0, 0), rootSize).contains(adjusted)) {
        *error = QStringLiteral("Capture area %1,%2 %3x%4 is not on the screen of %5x%6.")
                     .arg(adjusted.x())
                     .arg(adjusted.y())
                     .arg(adjusted.width())
                     .arg(adjusted.height())
                     .arg(rootSize.width())
                     .arg(rootSize.height());
        return false;
    }
    crop->startX = adjusted.x();
    crop->startY = adjusted.y();
    crop->endX = adjusted.x() + adjusted.width() - 1;
    crop->endY = adjusted.y() + adjusted.height() - 1;
    crop->frameSize = adjusted.size();
    return true;
}

bool GstFrameSource::ensureSession(const QRect &rect, CaptureSession *session, QString *error)
{
    if (rect.isEmpty()) {
        *error = QStringLiteral("No active display found.");
        return false;
    }
    if (!m_pipeline || rect != m_captureRect) {
        if (!init(rect, error))
            return false;
    }
    session->frameSize = m_frameSize;
    session->device.reset();
    return true;
}

bool GstFrameSource::init(const QRect &rect, QString *error)
{
    stop();
    m_handOver.restart();
    Crop crop;
    if (!cropFor(rect, rootWindowSize(), &crop, error))
        return false;

    GstElement *pipeline = gst_pipeline_new("glimmora-capture");
    GstElement *source = gst_element_factory_make("ximagesrc", nullptr);
    GstElement *filter = gst_element_factory_make("capsfilter", nullptr);
    GstElement *sink = gst_element_factory_make("appsink", nullptr);
    if (!pipeline || !source || !filter || !sink) {
        for (GstElement *e : { pipeline, source, filter, sink }) {
            if (e)
                gst_object_unref(e);
        }
        *error =
            QStringLiteral("GStreamer elements for X11 capture are missing (ximagesrc, appsink).");
        return false;
    }
    g_object_set(source, "use-damage", FALSE, "show-pointer", FALSE, "startx", guint(crop.startX),
                 "starty", guint(crop.startY), "endx", guint(crop.endX), "endy", guint(crop.endY),
                 nullptr);
    GstCaps *caps = gst_caps_new_simple("video/x-raw", "framerate", GST_TYPE_FRACTION,
                                        CaptureFramesPerSecond, 1, nullptr);
    g_object_set(filter, "caps", caps, nullptr);
    gst_caps_unref(caps);
    g_object_set(sink, "drop", TRUE, "max-buffers", guint(1), "sync", FALSE, nullptr);
    GstAppSinkCallbacks callbacks {};
    callbacks.new_sample = [](GstAppSink *appSink, gpointer self) {
        return GstFlowReturn(onNewSample(appSink, self));
    };
    gst_app_sink_set_callbacks(GST_APP_SINK(sink), &callbacks, this, nullptr);
    gst_bin_add_many(GST_BIN(pipeline), source, filter, sink, nullptr);
    gst_element_link_many(source, filter, sink, nullptr);

    m_pipeline = pipeline;
    m_captureRect = rect;
    m_frameSize = crop.frameSize;
    qCInfo(lcRecording) << "GstFrameSource: starting X11 capture"
                        << "rect" << rect << "crop" << crop.startX << crop.startY << crop.endX
                        << crop.endY << "recordFrameSize" << m_frameSize;
    const bool stateFailed =
        gst_element_set_state(pipeline, GST_STATE_PLAYING) == GST_STATE_CHANGE_FAILURE;
    QString busText;
    if (busError(&busText) || stateFailed) {
        *error =
            QStringLiteral("Failed to start X11 screen capture: %1")
                .arg(busText.isEmpty() ? QStringLiteral("the pipeline did not start") : busText);
        stop();
        return false;
    }
    return true;
}

int GstFrameSource::onNewSample(GstAppSink *sink, void *self)
{
    auto *source = static_cast<GstFrameSource *>(self);
    FrameHandOver<Sample>::CallbackScope scope(source->m_handOver);
    if (!scope.active())
        return GST_FLOW_OK;
    source->m_handOver.offer([sink]() -> std::optional<Sample> {
        GstSample *sample = gst_app_sink_try_pull_sample(sink, 0);
        if (!sample)
            return std::nullopt;
        return Sample(sample, gst_sample_unref);
    });
    return GST_FLOW_OK;
}

bool GstFrameSource::deliverFrame(const QRect &rect, const Consumer &consumer, QString *error)
{
    if (!consumer) {
        *error = QStringLiteral("No frame consumer provided.");
        return false;
    }
    CaptureSession session;
    if (!ensureSession(rect, &session, error))
        return false;
    if (busError(error))
        return false;

    CapturedFrame frame;
    const bool taken = m_handOver.take(
        [&](const Sample &sample) {
            GstVideoInfo info;
            if (!gst_video_info_from_caps(&info, gst_sample_get_caps(sample.get()))) {
                *error = QStringLiteral("X11 screen capture produced a frame without a format.");
                return false;
            }
            const GstVideoFormat format = GST_VIDEO_INFO_FORMAT(&info);
            if (format != GST_VIDEO_FORMAT_BGRx && format != GST_VIDEO_FORMAT_BGRA) {
                *error = QStringLiteral("X11 screen capture pixel format %1 is not supported.")
                             .arg(QString::fromUtf8(gst_video_format_to_string(format)));
                return false;
            }
            const int width = GST_VIDEO_INFO_WIDTH(&info);
            const int height = GST_VIDEO_INFO_HEIGHT(&info);
            if (width < m_frameSize.width() || height < m_frameSize.height()) {
                *error = QStringLiteral(
                             "X11 capture frame size %1x%2 is smaller than recorder size %3x%4.")
                             .arg(width)
                             .arg(height)
                             .arg(m_frameSize.width())
                             .arg(m_frameSize.height());
                return false;
            }
            struct Mapped
            {
                Sample sample;
                GstMapInfo map {};
                ~Mapped()
                {
                    if (sample)
                        gst_buffer_unmap(gst_sample_get_buffer(sample.get()), &map);
                }
            };
            auto mapped = std::make_shared<Mapped>();
            GstBuffer *buffer = gst_sample_get_buffer(sample.get());
            if (!buffer || !gst_buffer_map(buffer, &mapped->map, GST_MAP_READ)) {
                *error = QStringLiteral("Failed to map X11 capture frame.");
                return false;
            }
            mapped->sample = sample;
            frame.size = m_frameSize;
            frame.bits = mapped->map.data;
            frame.bytesPerLine = GST_VIDEO_INFO_PLANE_STRIDE(&info, 0);
            frame.owner = mapped;
            return true;
        },
        error);
    if (!taken)
        return false;
    return consumer(frame);
}

bool GstFrameSource::busError(QString *error)
{
    return m_pipeline && GstSupport::popBusError(m_pipeline, error);
}

void GstFrameSource::stop()
{
    m_handOver.stop();
    if (m_pipeline) {
        gst_element_set_state(m_pipeline, GST_STATE_NULL);
        gst_object_unref(m_pipeline);
        m_pipeline = nullptr;
    }
    const FrameHandOverStats stats = m_handOver.stats();
    if (stats.receivedFrames || stats.droppedBeforeWorker || stats.copiedForEncoder) {
        qCInfo(lcRecording) << "GstFrameSource stats:"
                            << "received" << stats.receivedFrames << "droppedBeforeWorker"
                            << stats.droppedBeforeWorker << "delivered" << stats.copiedForEncoder;
    }
    m_handOver.clear();
    m_captureRect = QRect();
    m_frameSize = QSize();
}
