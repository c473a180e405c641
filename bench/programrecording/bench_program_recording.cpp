// What a presenter pays for a recording: the real program is started as a
// user starts it, "Record display" is clicked in its toolbar while an xterm
// changes its text ten times a second and the pointer rests, and the whole
// process's CPU per recorded second is set beside ffmpeg's x11grab with
// libx264 ultrafast recording the same display in the same run. Twice: with
// the toolbar shown ("Always show controls", the default) and slid out.
// Frames written and lost come from ffprobe; resident memory is read as the
// recording starts, once its queues have filled (10 s in), and as it ends.
// GLIMMORA_BENCH_SECONDS sets each recording's length (default 60; the memory
// target is for 600). GLIMMORA_BENCH_BINARY runs another build of the program.
#include "ProgramHome.h"
#include "ToolbarClicks.h"
#include "XTestSession.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const QRect controlScreen(0, 0, 1920, 1080);

struct Cpu
{
    double total = 0;
    double llvmpipe = 0; // the software renderer's threads
};

// User and system time of a process from /proc, in seconds.
double statSeconds(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray line = file.readAll();
    // Fields after the name, which is in parentheses and may hold spaces.
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    const double ticks = double(sysconf(_SC_CLK_TCK));
    return (fields.value(11).toDouble() + fields.value(12).toDouble()) / ticks;
}

Cpu cpuOf(qint64 pid)
{
    Cpu cpu;
    cpu.total = statSeconds(QStringLiteral("/proc/%1/stat").arg(pid));
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(pid));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile comm(tasks.filePath(task + QStringLiteral("/comm")));
        if (comm.open(QIODevice::ReadOnly) && comm.readAll().startsWith("llvmpipe"))
            cpu.llvmpipe += statSeconds(tasks.filePath(task + QStringLiteral("/stat")));
    }
    return cpu;
}

double residentMb(qint64 pid)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly | QIODevice::Text))
        return -1;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toDouble() / 1024.0;
    }
    return -1;
}

double loadAverage()
{
    double load[1] = { 0 };
    return getloadavg(load, 1) > 0 ? load[0] : -1;
}

struct Frames
{
    int written = 0;
    int lost = 0;
};

// Frames in the file, and the frame numbers missing between its first and
// its last frame at 30 fps, from the packets' presentation times (the
// program stamps each frame with its time, so a lost one leaves a gap).
Frames probe(const QString &path)
{
    QProcess ffprobe;
    ffprobe.start(QStringLiteral("ffprobe"),
                  { "-v", "error", "-select_streams", "v:0", "-show_entries", "packet=pts_time",
                    "-of", "json", path });
    Frames frames;
    if (!ffprobe.waitForFinished(120000) || ffprobe.exitCode() != 0)
        return frames;
    QList<double> times;
    const QJsonArray packets = QJsonDocument::fromJson(ffprobe.readAllStandardOutput())
                                   .object()
                                   .value("packets")
                                   .toArray();
    for (const QJsonValue &packet : packets)
        times.append(packet.toObject().value("pts_time").toString().toDouble());
    std::sort(times.begin(), times.end());
    frames.written = int(times.size());
    if (!times.isEmpty()) {
        const int expected = int(std::lround((times.last() - times.first()) * 30)) + 1;
        frames.lost = qMax(0, expected - frames.written);
    }
    return frames;
}

struct Run
{
    bool ok = false;
    double seconds = 0;
    Cpu cpu;
    Frames frames;
    double rssStartMb = 0;
    double rssSettledMb = 0;
    double rssEndMb = 0;
};

QString onlyFile(const QString &folder, const QString &pattern)
{
    const QStringList names =
        QDir(folder).entryList({ pattern }, QDir::Files | QDir::Hidden, QDir::Name);
    return names.size() == 1 ? QDir(folder).filePath(names.first()) : QString();
}

bool waitFor(const std::function<bool()> &condition, int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QThread::msleep(50);
    }
    return true;
}

Run recordWithProgram(XTestSession &user, bool toolbarShown, int seconds)
{
    Run run;
    ProgramHome home;
    if (qEnvironmentVariableIsSet("GLIMMORA_BENCH_BINARY"))
        home.setProgram(qEnvironmentVariable("GLIMMORA_BENCH_BINARY"));
    const QString videos = home.filePath(QStringLiteral("videos"));
    QByteArray settings = "[capture]\nsaveFolder=" + videos.toUtf8() + "\n";
    if (!toolbarShown)
        settings.prepend("overlayControlsAlwaysVisible=false\n");
    QProcess program;
    user.moveTo(QPoint(960, 800));
    if (!home.start(program, settings)
        || !waitFor([&] { return home.logLinesWith(QStringLiteral("Glimmora started.")) > 0; },
                    60000)) {
        std::fprintf(stderr, "the program did not start\n");
        return run;
    }
    if (!ToolbarClicks::startDisplayRecording(user, controlScreen)) {
        std::fprintf(stderr, "the toolbar's record menu was not found\n");
        return run;
    }
    // The pointer rests away from the controls, so a hidden toolbar slides out.
    user.moveTo(QPoint(960, 800));
    if (!waitFor([&] { return !onlyFile(videos, QStringLiteral(".*.mp4")).isEmpty(); }, 30000)) {
        std::fprintf(stderr, "no recording began:\n%s\n", qPrintable(home.log()));
        return run;
    }
    QThread::msleep(2000);
    const qint64 pid = program.processId();
    run.rssStartMb = residentMb(pid);
    // The pipeline's queues fill over the first seconds; growth after that
    // would be a leak.
    QThread::msleep(8000);
    run.rssSettledMb = residentMb(pid);

    const Cpu before = cpuOf(pid);
    QThread::sleep(seconds);
    const Cpu after = cpuOf(pid);
    run.rssEndMb = residentMb(pid);
    run.seconds = seconds;
    run.cpu = { after.total - before.total, after.llvmpipe - before.llvmpipe };

    ToolbarClicks::stopRecording(user, controlScreen);
    user.moveTo(QPoint(960, 800));
    QString video;
    waitFor(
        [&] {
            video = onlyFile(videos, QStringLiteral("Glimmora-*.mp4"));
            return !video.isEmpty();
        },
        30000);
    program.terminate();
    program.waitForFinished(20000);
    if (video.isEmpty()) {
        std::fprintf(stderr, "the recording was not saved:\n%s\n", qPrintable(home.log()));
        return run;
    }
    run.frames = probe(video);
    run.ok = run.frames.written > 0;
    // Where frames went: the worker's and the writer's own counts.
    for (const QString &line : home.log().split(u'\n')) {
        if (line.contains(QLatin1String("stats:")) || line.contains(QLatin1String("dropped")))
            std::printf("  %s\n", qPrintable(line.section(QLatin1String("] "), 1)));
    }
    return run;
}

Run recordWithFfmpeg(int seconds)
{
    Run run;
    QTemporaryDir dir;
    const QByteArray input = qgetenv("DISPLAY") + "+0,0";
    const QByteArray duration = QByteArray::number(seconds);
    const QByteArray out = dir.filePath(QStringLiteral("ffmpeg.mp4")).toLocal8Bit();
    const QString progressPath = dir.filePath(QStringLiteral("progress"));
    const QByteArray progress = progressPath.toLocal8Bit();
    const pid_t pid = fork();
    if (pid == 0) {
        execlp("ffmpeg", "ffmpeg", "-hide_banner", "-loglevel", "error", "-y", "-progress",
               progress.constData(), "-f", "x11grab", "-framerate", "30", "-video_size",
               "1920x1080", "-i", input.constData(), "-t", duration.constData(), "-c:v", "libx264",
               "-preset", "ultrafast", out.constData(), static_cast<char *>(nullptr));
        _exit(127);
    }
    int status = 0;
    rusage usage {};
    if (pid < 0 || wait4(pid, &status, 0, &usage) != pid || !WIFEXITED(status)
        || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "ffmpeg failed (status %d)\n", status);
        return run;
    }
    run.seconds = seconds;
    run.cpu.total = usage.ru_utime.tv_sec + usage.ru_stime.tv_sec
        + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
    run.frames = probe(QString::fromLocal8Bit(out));
    run.ok = run.frames.written > 0;
    // ffmpeg holds its constant rate by repeating or dropping pictures, which
    // leaves no gap in its file: what it lost is in its last progress report.
    QFile report(progressPath);
    if (report.open(QIODevice::ReadOnly | QIODevice::Text)) {
        int duplicated = 0;
        int dropped = 0;
        for (const QByteArray &line : report.readAll().split('\n')) {
            if (line.startsWith("dup_frames="))
                duplicated = line.mid(11).toInt();
            else if (line.startsWith("drop_frames="))
                dropped = line.mid(12).toInt();
        }
        run.frames.lost = duplicated + dropped;
    }
    return run;
}

void printRow(const char *what, const Run &run)
{
    if (!run.ok) {
        std::printf("%-26s failed\n", what);
        return;
    }
    std::printf("%-26s %8.3f %9.3f %8d %6d %10.1f %8.1f %8.1f\n", what, run.cpu.total / run.seconds,
                run.cpu.llvmpipe / run.seconds, run.frames.written, run.frames.lost, run.rssStartMb,
                run.rssSettledMb, run.rssEndMb);
}

const char *verdict(bool met)
{
    return met ? "met" : "missed";
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const int seconds = qEnvironmentVariableIsSet("GLIMMORA_BENCH_SECONDS")
        ? qMax(5, qEnvironmentVariableIntValue("GLIMMORA_BENCH_SECONDS"))
        : 60;
    qputenv("GLIMMORA_ENABLE_RECORDING", "1");
    XTestSession user;
    if (!user.isValid()) {
        std::fprintf(stderr, "no X server\n");
        return 1;
    }
    // The presenter's window: text that changes ten times a second.
    QProcess xterm;
    xterm.start(QStringLiteral("xterm"),
                { "-geometry", "100x30+300+300", "-e", "sh", "-c",
                  "while :; do date +%H:%M:%S.%N; sleep 0.1; done" });
    if (!xterm.waitForStarted(10000)) {
        std::fprintf(stderr, "could not start xterm\n");
        return 1;
    }
    QThread::msleep(1500);
    const double loadBefore = loadAverage();

    std::printf("recording %d s of a 1920x1080 display at 30 fps: an xterm changing its text ten"
                " times a second, the pointer still\n",
                seconds);
    std::fflush(stdout);
    const Run shown = recordWithProgram(user, true, seconds);
    const Run hidden = recordWithProgram(user, false, seconds);
    const Run reference = recordWithFfmpeg(seconds);
    xterm.kill();
    xterm.waitForFinished();

    std::printf("%-26s %8s %9s %8s %6s %10s %8s %8s\n", "", "CPU s/s", "llvmpipe", "written",
                "lost", "RSS start", "at 10 s", "RSS end");
    printRow("glimmora, toolbar shown", shown);
    printRow("glimmora, toolbar slid out", hidden);
    printRow("ffmpeg x11grab", reference);
    if (!shown.ok || !hidden.ok || !reference.ok)
        return 1;

    const double ffmpegPerSecond = reference.cpu.total / reference.seconds;
    const double shownRatio = shown.cpu.total / shown.seconds / ffmpegPerSecond;
    const double hiddenRatio = hidden.cpu.total / hidden.seconds / ffmpegPerSecond;
    std::printf("CPU with the toolbar shown: %.2fx ffmpeg (target <= 1.5x): %s\n", shownRatio,
                verdict(shownRatio <= 1.5));
    std::printf("CPU with the toolbar slid out: %.2fx ffmpeg (target <= 1.2x): %s\n", hiddenRatio,
                verdict(hiddenRatio <= 1.2));
    const int lost = shown.frames.lost + hidden.frames.lost;
    std::printf("frames lost by the program: %d and %d (target 0; ffmpeg lost %d): %s\n",
                shown.frames.lost, hidden.frames.lost, reference.frames.lost, verdict(lost == 0));
    const double growth =
        qMax(shown.rssEndMb - shown.rssSettledMb, hidden.rssEndMb - hidden.rssSettledMb);
    std::printf("resident memory growth after the first 10 s: %.1f MB in %d s (target < 5 MB"
                " over 600 s): %s\n",
                growth, seconds, verdict(growth < 5.0));
    std::printf("load average: %.2f before, %.2f after\n", loadBefore, loadAverage());
    return 0;
}
