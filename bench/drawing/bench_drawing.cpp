// Repaint and commit cost of the committed-stroke layer of one 1920x1080
// overlay, with 10, 100 and 1000 strokes of 200 points. The item paints into
// an image through QPainter, as the scene graph's painter node does; the
// reference is one such stroke painted alone, measured in the same run.

#include "drawing/DrawingModel.h"
#include "drawing/DrawingRendererItem.h"
#include "drawing/StrokePainter.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

namespace {

const QSize kOverlay(1920, 1080);
constexpr int kPointsPerStroke = 200;

// A wandering pen stroke of about 400 px, like a quick circled word.
void drawStroke(DrawingModel &model, QRandomGenerator &random)
{
    QPointF point(random.bounded(100, 1820), random.bounded(100, 980));
    qreal heading = random.bounded(2 * M_PI);
    model.beginStroke(point, QStringLiteral("pen"), 6, QStringLiteral("#ff5252"), QString(), 2);
    for (int i = 1; i < kPointsPerStroke; ++i) {
        heading += (random.generateDouble() - 0.5) * 0.6;
        point += QPointF(std::cos(heading), std::sin(heading)) * 2.0;
        model.appendPoint(point);
    }
}

void repaint(DrawingRendererItem &item, QImage &target)
{
    // The painter node clears to the fill colour, then calls paint().
    QPainter painter(&target);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(target.rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    item.paint(&painter);
}

// Median of `runs` timings, in milliseconds; `prepare` runs untimed first.
// The machine is shared, so the best run is kept too: the cost undisturbed.
struct Timing
{
    double median;
    double best;
};

Timing timeMs(int runs, const std::function<void()> &prepare, const std::function<void()> &work)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        prepare();
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    std::sort(times.begin(), times.end());
    return { times[times.size() / 2], times.front() };
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    QRandomGenerator random(20261123);
    QImage target(kOverlay, QImage::Format_RGBA8888_Premultiplied);

    // Reference: one stroke of the same kind painted straight onto the layer.
    DrawingModel single;
    drawStroke(single, random);
    single.endStroke();
    const StrokePainter strokePainter = StrokePainter::live(QColor(0xF4C24A), 6);
    const double strokeMs =
        timeMs(
            21, [&] { target.fill(Qt::transparent); },
            [&] {
                QPainter painter(&target);
                painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
                strokePainter.paint(&painter, single.strokeList().first());
            })
            .best;
    std::printf("reference: one stroke of %d points painted alone: %.3f ms\n", kPointsPerStroke,
                strokeMs);
    std::printf("times in ms as median/best of the runs; ratios from the best\n");
    std::printf("%8s %16s %16s %16s %13s %11s\n", "strokes", "full repaint", "cached repaint",
                "commit", "full/(N*ref)", "commit/ref");

    struct Row
    {
        int strokes;
        double fullMs;
        double commitMs;
    };
    std::vector<Row> rows;
    for (const int count : { 10, 100, 1000 }) {
        DrawingModel model;
        for (int i = 0; i < count; ++i) {
            drawStroke(model, random);
            model.endStroke();
        }
        DrawingRendererItem item;
        item.setSize(kOverlay);
        item.setDrawingModel(&model);
        repaint(item, target);

        const int runs = count >= 1000 ? 7 : 15;
        // Every stroke painted anew: mirroring, display or undo change the
        // layer; without the retained layer every commit cost this.
        bool mirror = false;
        const Timing full = timeMs(
            runs, [&] { item.setMirrorAnnotations(mirror = !mirror); },
            [&] { repaint(item, target); });
        // Nothing changed, the window asked again (expose, resize of another item).
        const Timing cached = timeMs(
            runs, [] {}, [&] { repaint(item, target); });
        // A commit: the stroke ends, the model notifies, the layer repaints.
        const Timing commit = timeMs(
            runs,
            [&] {
                drawStroke(model, random);
                repaint(item, target);
            },
            [&] {
                model.endStroke();
                repaint(item, target);
            });
        rows.push_back({ count, full.best, commit.best });
        std::printf("%8d %7.2f/%-8.2f %7.2f/%-8.2f %7.2f/%-8.2f %13.2f %11.2f\n", count,
                    full.median, full.best, cached.median, cached.best, commit.median, commit.best,
                    full.best / (count * strokeMs), commit.best / strokeMs);
        std::fflush(stdout);
    }

    std::printf("growth per tenfold strokes (exponent 1 = linear, 0 = constant):\n");
    for (size_t i = 1; i < rows.size(); ++i) {
        const double strokeRatio = double(rows[i].strokes) / rows[i - 1].strokes;
        const double fullRatio = rows[i].fullMs / rows[i - 1].fullMs;
        const double commitRatio = rows[i].commitMs / rows[i - 1].commitMs;
        std::printf("  %4d -> %4d strokes: full x%.2f (exponent %.2f), commit x%.2f (exponent "
                    "%.2f)\n",
                    rows[i - 1].strokes, rows[i].strokes, fullRatio,
                    std::log(fullRatio) / std::log(strokeRatio), commitRatio,
                    std::log(commitRatio) / std::log(strokeRatio));
    }
    const Row &largest = rows.back();
    std::printf("commit with %d strokes: %.3f ms, %.0fx faster than a full repaint (under 16 ms: "
                "%s)\n",
                largest.strokes, largest.commitMs, largest.fullMs / largest.commitMs,
                largest.commitMs < 16.0 ? "yes" : "NO");
    return 0;
}
