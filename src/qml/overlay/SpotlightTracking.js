.pragma library

// How far the smoothed spotlight centre may lag before it jumps straight to
// the pointer: a large move never leaves a trail behind it.
function snapDistance(radius) {
    return Math.max(2.5, radius * 0.018);
}

// One tracking step from `smooth` towards `next` (points in item pixels).
// At least 72 % of the distance is covered per step, so smoothing only takes
// out jitter of a few pixels.
function follow(smooth, next, frameTimeSecs, radius, smoothingSeconds) {
    const dx = next.x - smooth.x;
    const dy = next.y - smooth.y;
    if (Math.sqrt(dx * dx + dy * dy) > snapDistance(radius))
        return Qt.point(next.x, next.y);
    const alpha = Math.max(0.72, Math.min(1.0, 1 - Math.exp(-frameTimeSecs / Math.max(0.001, smoothingSeconds))));
    return Qt.point(smooth.x + dx * alpha, smooth.y + dy * alpha);
}
