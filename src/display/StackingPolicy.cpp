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

qsizetype topMostOrdinary(const QList<StackedWindow> &bottomToTop, const QList<uint32_t> &ours)
{
    for (qsizetype i = bottomToTop.size() - 1; i >= 0; --i) {
        const StackedWindow &window = bottomToTop.at(i);
        if (window.viewable && !window.overrideRedirect && !ours.contains(window.id))
            return i;
    }
    return -1;
}

} // namespace

QList<RestackStep> StackingPolicy::restack(const QList<StackedWindow> &bottomToTop,
                                           const QList<uint32_t> &ours)
{
    const QList<qsizetype> positions = viewablePositions(bottomToTop, ours);
    if (positions.isEmpty())
        return {};
    const qsizetype ordinary = topMostOrdinary(bottomToTop, ours);
    const bool inOrder = std::is_sorted(positions.cbegin(), positions.cend());
    if (inOrder && ordinary < positions.constFirst())
        return {};

    QList<RestackStep> steps;
    // Without any ordinary window ours keep their place and only their order
    // is mended, which never lifts one above a window it was below.
    uint32_t sibling = ordinary >= 0 ? bottomToTop.at(ordinary).id : 0;
    for (qsizetype position : positions) {
        const uint32_t window = bottomToTop.at(position).id;
        if (sibling != 0)
            steps.append({ window, sibling });
        sibling = window;
    }
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
