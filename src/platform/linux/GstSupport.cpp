#include "platform/linux/GstSupport.h"

#include <gst/gst.h>

namespace {

QString errorText(GstMessage *message)
{
    GError *gerror = nullptr;
    gchar *debug = nullptr;
    gst_message_parse_error(message, &gerror, &debug);
    QString text = QString::fromUtf8(gerror ? gerror->message : "unknown GStreamer error");
    if (debug)
        text += QStringLiteral(" (%1)").arg(QString::fromUtf8(debug));
    if (gerror)
        g_error_free(gerror);
    g_free(debug);
    return text;
}

} // namespace

void GstSupport::ensureInitialised()
{
    gst_init(nullptr, nullptr);
}

bool GstSupport::popBusError(GstElement *pipeline, QString *error)
{
    GstBus *bus = gst_element_get_bus(pipeline);
    GstMessage *message = gst_bus_pop_filtered(bus, GST_MESSAGE_ERROR);
    gst_object_unref(bus);
    if (!message)
        return false;
    *error = errorText(message);
    gst_message_unref(message);
    return true;
}

bool GstSupport::waitForEos(GstElement *pipeline, int timeoutMs, QString *error)
{
    GstBus *bus = gst_element_get_bus(pipeline);
    GstMessage *message =
        gst_bus_timed_pop_filtered(bus, GstClockTime(timeoutMs) * GST_MSECOND,
                                   GstMessageType(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
    gst_object_unref(bus);
    if (!message) {
        *error = QStringLiteral("Timed out after %1 ms waiting for the video file to be finalised.")
                     .arg(timeoutMs);
        return false;
    }
    const bool ok = GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS;
    if (!ok)
        *error = errorText(message);
    gst_message_unref(message);
    return ok;
}
