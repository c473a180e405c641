#include "display/StackingPolicy.h"

#include <algorithm>

namespace {

// Positions in the stack of the viewable windows of ours, in wanted order.
QList<qsizetype> viewablePositions(const QList<StackedWindow> &bottomToTop,
                                   const QList<uint32_t> &ours)
{
    QList<qsizetype> positions;
    for (uint32_t id : ours) {
        for (qsizetype i = 0; i < bottomToTop.size(); ++i) {
            if (bottomToTop.at(i).id == id && bottomToTop.at(i).viewable) {
                positions.append(i);
                break;
            }
        }
    }
    return positions;
}

qsizetype topMostOrdinary(const QList<StackedWindow> &bottomToTop, const QList<uint32_t> &ours,
                          qsizetype before)
{
    for (qsizetype i = before - 1; i >= 0; --i) {
        const StackedWindow &window = bottomToTop.at(i);
        if (window.viewable && !window.overrideRedirect && !ours.contains(window.id))
            return i;
    }
    return -1;
}

// The lowest viewable window of `later`, or the end of the stack.
qsizetype ceiling(const QList<StackedWindow> &bottomToTop, const QList<uint32_t> &later)
{
    for (qsizetype i = 0; i < bottomToTop.size(); ++i) {
        if (bottomToTop.at(i).viewable && later.contains(bottomToTop.at(i).id))
            return i;
    }
    return bottomToTop.size();
}

} // namespace

QList<RestackStep> StackingPolicy::restack(const QList<StackedWindow> &bottomToTop,
                                           const QList<uint32_t> &ours,
                                           const QList<uint32_t> &later)
{
    const QList<qsizetype> positions = viewablePositions(bottomToTop, ours);
    if (positions.isEmpty())
        return {};
    const qsizetype top = ceiling(bottomToTop, later);
    const qsizetype ordinary = topMostOrdinary(bottomToTop, ours, top);
    const bool inOrder = std::is_sorted(positions.cbegin(), positions.cend());
    if (inOrder && ordinary < positions.constFirst() && positions.constLast() < top)
        return {};

    QList<RestackStep> steps;
    const uint32_t first = bottomToTop.at(positions.constFirst()).id;
    if (ordinary >= 0)
        steps.append({ first, bottomToTop.at(ordinary).id, false });
    else if (top < bottomToTop.size())
        steps.append({ first, bottomToTop.at(top).id, true });
    // Without any window to go by ours keep their place and only their order
    // is mended, which never lifts one above a window it was below.
    for (qsizetype i = 1; i < positions.size(); ++i)
        steps.append(
            { bottomToTop.at(positions.at(i)).id, bottomToTop.at(positions.at(i - 1)).id, false });
    return steps;
}

QList<uint32_t> StackingPolicy::windowsAboveOurs(const QList<StackedWindow> &bottomToTop,
                                                 const QList<uint32_t> &ours)
{
    QList<qsizetype> positions = viewablePositions(bottomToTop, ours);
    if (positions.isEmpty())
        return {};
    const qsizetype top = *std::max_element(positions.cbegin(), positions.cend());
    QList<uint32_t> above;
    for (qsizetype i = top + 1; i < bottomToTop.size(); ++i) {
        const StackedWindow &window = bottomToTop.at(i);
        if (window.viewable && window.overrideRedirect && !window.fromThisProgram)
            above.append(window.id);
    }
    return above;
}

bool StackingPolicy::coversAMonitor(const QRect &window, const QList<QRect> &monitors)
{
    return std::any_of(monitors.cbegin(), monitors.cend(), [&](const QRect &monitor) {
        return !monitor.isEmpty() && window.contains(monitor);
    });
}
