#pragma once

#include "platform/FrameSource.h"
#include "recording/FrameHandOver.h"

#include <QRect>
#include <QSize>

#include <memory>

typedef struct _GstElement GstElement;
typedef struct _GstSample GstSample;
typedef struct _GstAppSink GstAppSink;

// X11 frame source: ximagesrc (XShm, no pointer, no damage tracking) cropped
// to the display's rectangle, into an appsink whose streaming thread is the
// callback thread of the hand-over. A delivered frame is the captured shared
// memory image itself, mapped, with no copy: ximagesrc recycles the image
// once the writer lets go of it, so it needs no encoder buffer pool of ours.
class GstFrameSource : public FrameSource
{
public:
    GstFrameSource();
    ~GstFrameSource() override;
    GstFrameSource(const GstFrameSource &) = delete;
    GstFrameSource &operator=(const GstFrameSource &) = delete;

    bool ensureSession(const QRect &rect, CaptureSession *session, QString *error) override;
    bool deliverFrame(const QRect &rect, const Consumer &consumer, QString *error) override;
    void stop() override;

    // The ximagesrc crop of `rect`: inclusive end coordinates, each side even
    // and at least 2. False with an error when the area is not wholly on a
    // root window of `rootSize` (ximagesrc would silently grab everything).
    struct Crop
    {
        int startX = 0;
        int startY = 0;
        int endX = 0;
        int endY = 0;
        QSize frameSize;
    };
    static bool cropFor(const QRect &rect, const QSize &rootSize, Crop *crop, QString *error);

    // The recording worker asks every 33 ms, a little more often than 30 times
    // a second. A source at 30 fps falls behind that: each tick then waits up
    // to a whole frame for the next picture, and the cursor record, taken
    // before that wait, runs a frame ahead of the picture it goes with. A
    // slightly faster source keeps a picture waiting at each tick; the spare
    // pictures, about two a second, are counted as hand-over drops.
    static constexpr int CaptureFramesPerSecond = 32;

private:
    using Sample = std::shared_ptr<GstSample>;

    bool init(const QRect &rect, QString *error);
    bool busError(QString *error);
    static int onNewSample(GstAppSink *sink, void *self);

    GstElement *m_pipeline = nullptr;
    QRect m_captureRect;
    QSize m_frameSize;
    FrameHandOver<Sample> m_handOver;
};
