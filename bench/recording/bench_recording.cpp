// Records a moving full-screen 1920x1080 pattern with the recording pipeline
// (X11 capture, H.264 in fragmented MP4), then the same with ffmpeg's x11grab
// and libx264 ultrafast as the reference, and prints frames written, frames
// lost and CPU seconds per recorded second of both, and their ratio.
// A lost frame is a picture missing from the video: for the pipeline a frame
// number that no tick reached plus what the encoder dropped, for ffmpeg the
// frames it duplicated or dropped to hold its constant rate.
// GLIMMORA_BENCH_SECONDS sets the length of each recording (default 60).
#include "PatternWindow.h"
#include "X11RecordingSupport.h"
#include "recording/RecordingWorker.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <cstdio>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double seconds(const timeval &tv)
{
    return double(tv.tv_sec) + double(tv.tv_usec) / 1e6;
}

double cpuSeconds(const rusage &usage)
{
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

struct Result
{
    double cpuSeconds = 0;
    int written = 0;
    qint64 lost = 0;
};

Result recordWithPipeline(const QString &path, int durationSeconds)
{
    rusage before {};
    getrusage(RUSAGE_SELF, &before);
    RecordingWorker worker(X11Recording::realBackend());
    QObject::connect(&worker, &RecordingWorker::startFailed, [](const QString &error) {
        std::fprintf(stderr, "pipeline did not start: %s\n", qPrintable(error));
        QCoreApplication::exit(1);
    });
    worker.start(path, path + QStringLiteral(".cursor.jsonl"), QStringLiteral("bench"),
                 QRect(0, 0, 1920, 1080), 30, 1);
    QTimer::singleShot(durationSeconds * 1000, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    const RecordingWorker::Stats stats = worker.stats();
    worker.finish();
    rusage after {};
    getrusage(RUSAGE_SELF, &after);
    Result result;
    result.cpuSeconds = cpuSeconds(after) - cpuSeconds(before);
    result.written = X11Recording::probe(path).frames;
    const qint64 encoderDrops = qMax<qint64>(0, stats.writtenFrames - result.written);
    result.lost = stats.skippedFrames + encoderDrops;
    std::printf(
        "pipeline: worker's dropped counter %lld = %lld ticks without a new frame number"
        " (no picture lost) + %lld frame numbers skipped by late ticks;"
        " %lld dropped by the encoder; capture wait avg %lld ms, max %lld ms\n",
        static_cast<long long>(stats.droppedFrames),
        static_cast<long long>(stats.droppedFrames - stats.skippedFrames),
        static_cast<long long>(stats.skippedFrames), static_cast<long long>(encoderDrops),
        static_cast<long long>(stats.totalCaptureMs / qMax<qint64>(1, stats.capturedFrames)),
        static_cast<long long>(stats.maxCaptureMs));
    return result;
}

Result recordWithFfmpeg(const QString &path, int durationSeconds)
{
    const QByteArray input = qgetenv("DISPLAY") + "+0,0";
    const QByteArray duration = QByteArray::number(durationSeconds);
    const QByteArray out = path.toLocal8Bit();
    const QString progressPath = path + QStringLiteral(".progress");
    const QByteArray progress = progressPath.toLocal8Bit();
    const pid_t pid = fork();
    if (pid == 0) {
        execlp("ffmpeg", "ffmpeg", "-hide_banner", "-loglevel", "error", "-y", "-progress",
               progress.constData(), "-f", "x11grab", "-framerate", "30", "-video_size",
               "1920x1080", "-i", input.constData(), "-t", duration.constData(), "-c:v", "libx264",
               "-preset", "ultrafast", out.constData(), static_cast<char *>(nullptr));
        _exit(127);
    }
    Result result;
    int status = 0;
    rusage usage {};
    if (pid < 0 || wait4(pid, &status, 0, &usage) != pid || !WIFEXITED(status)
        || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "ffmpeg failed (status %d)\n", status);
        return result;
    }
    result.cpuSeconds = cpuSeconds(usage);
    result.written = X11Recording::probe(path).frames;
    // The last report of the progress file holds the totals.
    QFile report(progressPath);
    qint64 duplicated = 0;
    qint64 dropped = 0;
    if (report.open(QIODevice::ReadOnly | QIODevice::Text)) {
        for (const QByteArray &line : report.readAll().split('\n')) {
            if (line.startsWith("dup_frames="))
                duplicated = line.mid(11).toLongLong();
            else if (line.startsWith("drop_frames="))
                dropped = line.mid(12).toLongLong();
        }
    }
    result.lost = duplicated + dropped;
    std::printf("ffmpeg: %lld frames duplicated, %lld dropped to hold 30 fps\n",
                static_cast<long long>(duplicated), static_cast<long long>(dropped));
    return result;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc > 1 && qstrcmp(argv[1], "--pattern") == 0) {
        QGuiApplication app(argc, argv);
        QScreen *left = X11Recording::screenNamed(QStringLiteral("LEFT"));
        PatternWindow pattern(left ? left : QGuiApplication::primaryScreen());
        pattern.setGeometry(0, 0, 1920, 1080);
        pattern.show();
        return app.exec();
    }

    QCoreApplication app(argc, argv);
    const int duration = qEnvironmentVariableIsSet("GLIMMORA_BENCH_SECONDS")
        ? qMax(2, qEnvironmentVariableIntValue("GLIMMORA_BENCH_SECONDS"))
        : 60;
    QTemporaryDir dir;
    QProcess pattern;
    pattern.start(QCoreApplication::applicationFilePath(), { QStringLiteral("--pattern") });
    if (!pattern.waitForStarted()) {
        std::fprintf(stderr, "could not start the pattern window\n");
        return 1;
    }
    QThread::msleep(1500);

    std::printf("recording %d s of a moving 1920x1080 pattern at 30 fps, twice\n", duration);
    std::fflush(stdout);
    const Result ours = recordWithPipeline(dir.filePath(QStringLiteral("pipeline.mp4")), duration);
    const Result reference = recordWithFfmpeg(dir.filePath(QStringLiteral("ffmpeg.mp4")), duration);
    pattern.kill();
    pattern.waitForFinished();

    const double oursPerSecond = ours.cpuSeconds / duration;
    const double referencePerSecond = reference.cpuSeconds / duration;
    std::printf("%-10s %8s %8s %12s\n", "", "written", "lost", "CPU s per s");
    std::printf("%-10s %8d %8lld %12.3f\n", "pipeline", ours.written,
                static_cast<long long>(ours.lost), oursPerSecond);
    std::printf("%-10s %8d %8lld %12.3f\n", "ffmpeg", reference.written,
                static_cast<long long>(reference.lost), referencePerSecond);
    const double ratio = referencePerSecond > 0 ? oursPerSecond / referencePerSecond : 0;
    std::printf("CPU ratio pipeline/ffmpeg: %.2f (target <= 1.0); frames lost by the pipeline: "
                "%lld (target 0)\n",
                ratio, static_cast<long long>(ours.lost));
    double load[3] = { 0, 0, 0 };
    if (getloadavg(load, 3) > 0)
        std::printf("load average during the run: %.2f\n", load[0]);
    return ours.written > 0 && reference.written > 0 ? 0 : 1;
}
