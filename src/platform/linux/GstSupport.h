#pragma once

#include <QString>

typedef struct _GstElement GstElement;

// Small helpers shared by the GStreamer frame source and writer.
namespace GstSupport {

// gst_init once per process; safe from any thread.
void ensureInitialised();

// Takes the first error waiting on the pipeline's bus, if any, as text.
bool popBusError(GstElement *pipeline, QString *error);

// Waits on the bus for end-of-stream or an error; false with the error text,
// or with a timeout text when neither came within `timeoutMs`.
bool waitForEos(GstElement *pipeline, int timeoutMs, QString *error);

} // namespace GstSupport
