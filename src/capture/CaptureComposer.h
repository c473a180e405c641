#pragma once

#include <QImage>
#include <QRect>

// The image steps of a still capture, in physical pixels throughout: the
// device pixel ratio of the inputs is ignored, so that a grab of a scaled
// screen and an annotation image rendered at that scale line up pixel for pixel.
namespace CaptureComposer {

// What of `grab` lies inside `region`, clipped to the grab. A null image when
// nothing of the region lies on the grab.
QImage cropToRegion(const QImage &grab, const QRect &region);

// The same cut of the annotation image, unscaled; a null image stays null.
// Parts of the region beyond the annotation image come out transparent.
QImage cutAnnotations(const QImage &annotations, const QImage &grab, const QRect &region);

// `annotations` drawn over `base` (source-over): at (0, 0) when both have one
// size, else stretched over the whole of `base`. Returns `base`'s format.
QImage overlayAnnotations(const QImage &base, const QImage &annotations);

} // namespace CaptureComposer
