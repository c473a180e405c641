#include "ToolbarClicks.h"

#include "XTestSession.h"

#include <QDeadlineTimer>
#include <QImage>
#include <QThread>

namespace {

bool dark(QRgb pixel)
{
    return qMax(qRed(pixel), qMax(qGreen(pixel), qBlue(pixel))) < 0x40;
}

// The dark band of the pill in one picture of the top of the screen.
QRect pillIn(const QImage &top, const QPoint &origin)
{
    int first = -1;
    int last = -1;
    for (int y = 0; y < top.height(); ++y) {
        int count = 0;
        for (int x = 0; x < top.width(); ++x)
            count += dark(top.pixel(x, y)) ? 1 : 0;
        if (count > top.width() / 4) {
            first = first < 0 ? y : first;
            last = y;
        }
    }
    if (first < 0)
        return {};
    const int middle = (first + last) / 2;
    int left = -1;
    int right = -1;
    for (int x = 0; x < top.width(); ++x) {
        if (dark(top.pixel(x, middle))) {
            left = left < 0 ? x : left;
            right = x;
        }
    }
    return QRect(origin + QPoint(left, first), origin + QPoint(right, last));
}

// Polls until `probe` gives the same non-null answer twice in a row: the
// toolbar and its menus slide and fade in.
template<typename T, typename Probe>
T settled(Probe probe, int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    T previous {};
    while (!deadline.hasExpired()) {
        const T current = probe();
        if (!current.isNull() && current == previous)
            return current;
        previous = current;
        QThread::msleep(120);
    }
    return {};
}

// The controls window lets the mouse through until the pointer poll has seen
// the pointer over a control; a press before that would miss it.
void clickControl(XTestSession &user, QPoint point)
{
    user.moveTo(point);
    QThread::msleep(300);
    user.click(point);
}

} // namespace

namespace ToolbarClicks {

QRect findPill(XTestSession &user, const QRect &screen, int timeoutMs)
{
    const QRect top(screen.topLeft(), QSize(screen.width(), 200));
    return settled<QRect>([&] { return pillIn(user.rootImage(top), top.topLeft()); }, timeoutMs);
}

bool startDisplayRecording(XTestSession &user, const QRect &screen)
{
    user.moveTo(screen.topLeft() + QPoint(10, 4));
    const QRect pill = findPill(user, screen);
    if (pill.isNull())
        return false;
    const double scale = pill.height() / 42.0; // the pill is 42 high at scale 1
    // The record slot is the last control, 44 wide, inside a padding of 6.
    const QPoint slot(pill.right() - int(28 * scale), pill.center().y());
    clickControl(user, slot);

    // The menu hangs below the pill's right end; "Record display" is its last
    // row, 36 high above a margin of 6.
    const int column = pill.right() - int(20 * scale);
    const QRect below(column, pill.bottom() + 2, 1, int(300 * scale));
    const auto menuBottom = [&] {
        const QImage strip = user.rootImage(below);
        for (int y = strip.height() - 1; y >= 0; --y) {
            if (dark(strip.pixel(0, y)))
                return QPoint(column, below.top() + y);
        }
        return QPoint();
    };
    QPoint bottom = settled<QPoint>(menuBottom, 3000);
    if (bottom.isNull()) {
        // A click the controls window let through: once more.
        clickControl(user, slot);
        bottom = settled<QPoint>(menuBottom, 3000);
    }
    if (bottom.isNull())
        return false;
    clickControl(user, QPoint(pill.right() - int(110 * scale), bottom.y() - int(24 * scale)));
    return true;
}

bool stopRecording(XTestSession &user, const QRect &screen)
{
    user.moveTo(screen.topLeft() + QPoint(10, 4));
    const QRect pill = findPill(user, screen);
    if (pill.isNull())
        return false;
    const double scale = pill.height() / 42.0;
    // The stop square is the right-most thing of its red, wherever the slot ends.
    const QRect row(pill.left(), pill.center().y(), pill.width() + int(200 * scale), 1);
    const QImage pixels = user.rootImage(row & screen);
    for (int x = pixels.width() - 1; x >= 0; --x) {
        const QRgb pixel = pixels.pixel(x, 0);
        if (qAbs(qRed(pixel) - 0xC0) < 16 && qAbs(qGreen(pixel) - 0x40) < 16
            && qAbs(qBlue(pixel) - 0x40) < 16) {
            clickControl(user, QPoint(row.left() + x - int(5 * scale), row.top()));
            return true;
        }
    }
    return false;
}

} // namespace ToolbarClicks
