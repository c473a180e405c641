#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <cstdlib>

// Time from process start to "Glimmora started." in the log (logged as the
// event loop begins), and resident memory once started, each beside a minimal
// transparent Qt Quick window that reports the same moment, started the same
// way in the same run.
class BenchStartup : public QObject
{
    Q_OBJECT

private:
    struct Sample
    {
        double startMs;
        double rssMb;
        double shownMs = 0; // the reference only: first frame on screen
    };

    static double residentMb(qint64 pid)
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

    static Sample runGlimmora()
    {
        QTemporaryDir home;
        for (const char *sub : { "data", "config", "tmp" })
            QDir(home.path()).mkdir(QString::fromLatin1(sub));
        // The onboarding is done ("%65" keeps the group name lower-case).
        QDir().mkpath(home.path() + QStringLiteral("/config/Orvelline"));
        QFile config(home.path() + QStringLiteral("/config/Orvelline/Glimmora.conf"));
        if (config.open(QIODevice::WriteOnly))
            config.write("[gen%65ral]\nfirstRunDone=true\n");
        config.close();
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("XDG_DATA_HOME"), home.path() + QStringLiteral("/data"));
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), home.path() + QStringLiteral("/config"));
        env.insert(QStringLiteral("TMPDIR"), home.path() + QStringLiteral("/tmp"));
        const QString log = home.path() + QStringLiteral("/data/Orvelline/Glimmora/glimmora.log");

        QProcess process;
        process.setProcessEnvironment(env);
        QElapsedTimer clock;
        clock.start();
        process.start(QStringLiteral(GLIMMORA_BINARY), {});
        double startMs = -1;
        while (clock.elapsed() < 60000 && process.state() != QProcess::NotRunning) {
            QFile file(log);
            if (file.open(QIODevice::ReadOnly) && file.readAll().contains("] Glimmora started.")) {
                startMs = clock.nsecsElapsed() / 1e6;
                break;
            }
            QThread::msleep(2);
        }
        return finish(process, startMs);
    }

    static Sample runMinimalWindow()
    {
        QProcess process;
        QElapsedTimer clock;
        clock.start();
        process.start(QStringLiteral(MINIMAL_WINDOW_BINARY), {});
        double readyMs = -1;
        double shownMs = -1;
        QByteArray output;
        while (shownMs < 0 && process.waitForReadyRead(60000)) {
            output += process.readAll();
            if (readyMs < 0 && output.contains("ready"))
                readyMs = clock.nsecsElapsed() / 1e6;
            if (output.contains("shown"))
                shownMs = clock.nsecsElapsed() / 1e6;
        }
        Sample sample = finish(process, readyMs);
        sample.shownMs = shownMs;
        return sample;
    }

    static Sample finish(QProcess &process, double startMs)
    {
        // Memory once the start-up work has settled.
        QThread::msleep(1000);
        const double rss = residentMb(process.processId());
        process.kill();
        process.waitForFinished(10000);
        return { startMs, rss };
    }

    static double median(QList<double> values)
    {
        std::sort(values.begin(), values.end());
        return values.at(values.size() / 2);
    }

private slots:
    void startupAgainstMinimalWindow()
    {
        const int rounds = qEnvironmentVariableIntValue("BENCH_ROUNDS") > 0
            ? qEnvironmentVariableIntValue("BENCH_ROUNDS")
            : 7;
        QList<double> appMs, appMb, refMs, refMb, refShownMs;
        // Alternate, so that a busy moment of the machine hits both.
        for (int i = 0; i < rounds; ++i) {
            const Sample reference = runMinimalWindow();
            const Sample app = runGlimmora();
            QVERIFY2(reference.startMs > 0, "the minimal window never showed");
            QVERIFY2(app.startMs > 0, "Glimmora never logged its start");
            refMs << reference.startMs;
            refMb << reference.rssMb;
            refShownMs << reference.shownMs;
            appMs << app.startMs;
            appMb << app.rssMb;
        }
        const double aMs = median(appMs), rMs = median(refMs);
        const double aMb = median(appMb), rMb = median(refMb);
        qInfo("startup, median of %d rounds:", rounds);
        qInfo("  time to start   glimmora %8.1f ms   minimal window %8.1f ms   ratio %.2f", aMs,
              rMs, aMs / rMs);
        qInfo("  (the minimal window had its first frame on screen at %.1f ms)",
              median(refShownMs));
        qInfo("  resident memory glimmora %8.1f MB   minimal window %8.1f MB   ratio %.2f", aMb,
              rMb, aMb / rMb);
        qInfo("  target: time to start <= 1.5x the minimal window: %s",
              aMs / rMs <= 1.5 ? "met" : "missed");
        qInfo("  target: resident memory <= 1.5x the minimal window: %s",
              aMb / rMb <= 1.5 ? "met" : "missed");
        double load[1] = { 0 };
        if (getloadavg(load, 1) > 0)
            qInfo("  load average: %.2f", load[0]);
    }
};

QTEST_GUILESS_MAIN(BenchStartup)
#include "bench_startup.moc"
