#include "LogCapture.h"
#include "PatternWindow.h"
#include "RecordingFileHelpers.h"
#include "X11RecordingSupport.h"
#include "recording/RecordingFiles.h"
#include "recording/RecordingManager.h"
#include "settings/SettingsManager.h"

#include <QDirIterator>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/mount.h>
#include <unistd.h>

using namespace X11Recording;
using namespace RecordingFileHelpers;

// Recordings of the RIGHT monitor on the real X server, and what the user is
// left with when things go wrong: a disk that fills up, a killed process, a
// display that goes away.
class TestRecordingX11 : public QObject
{
    Q_OBJECT

    QScreen *m_right = nullptr;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<SettingsManager> m_settings;
    std::unique_ptr<PatternWindow> m_pattern;
    QStringList m_mounts;

    QString folder() const { return m_dir->filePath(QStringLiteral("videos")); }

    // Mounts a small tmpfs at `path` (root only); false when that is not possible.
    bool mountTmpfs(const QString &path, const QString &options)
    {
        QDir().mkpath(path);
        if (::geteuid() != 0)
            return false;
        if (::mount("tmpfs", path.toLocal8Bit().constData(), "tmpfs", 0,
                    options.toLocal8Bit().constData())
            != 0) {
            return false;
        }
        m_mounts.append(path);
        return true;
    }

    static int xrandr(const QStringList &args)
    {
        return QProcess::execute(QStringLiteral("xrandr"), args);
    }

    void waitForRecording(RecordingManager &manager)
    {
        QTRY_COMPARE_WITH_TIMEOUT(manager.state(), RecordingManager::Recording, 10000);
    }

private slots:
    void initTestCase()
    {
        m_right = screenNamed(QStringLiteral("RIGHT"));
        if (!m_right)
            QSKIP("No RIGHT monitor: run under scripts/with-test-display.sh");
        if (QStandardPaths::findExecutable(QStringLiteral("ffprobe")).isEmpty())
            QSKIP("ffprobe is not installed");
    }

    void init()
    {
        // A test that unplugs RIGHT plugs it back; Qt sees it a moment later.
        QTRY_VERIFY_WITH_TIMEOUT((m_right = screenNamed(QStringLiteral("RIGHT"))) != nullptr, 5000);
        m_dir = std::make_unique<QTemporaryDir>();
        m_settings = std::make_unique<SettingsManager>();
        m_settings->setCaptureSaveFolder(folder());
        m_settings->setRecordQuality(1);
        m_pattern = std::make_unique<PatternWindow>(m_right);
        m_pattern->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_pattern.get()));
    }

    void cleanup()
    {
        m_pattern.reset();
        for (const QString &path : std::as_const(m_mounts))
            ::umount2(path.toLocal8Bit().constData(), MNT_DETACH);
        m_mounts.clear();
        m_settings.reset();
        m_dir.reset();
    }

    void recordsFiveSecondsOfTheRightMonitor()
    {
        // The server may keep the pointer on its first output, so take the
        // position it reports rather than the one asked for.
        QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), { "mousemove", "2500", "500" }), 0);
        QProcess where;
        where.start(QStringLiteral("xdotool"), { "getmouselocation", "--shell" });
        QVERIFY(where.waitForFinished(5000));
        const QString location = QString::fromUtf8(where.readAllStandardOutput());
        const int pointerX = location.section(QStringLiteral("X="), 1).section('\n', 0, 0).toInt();
        const int pointerY = location.section(QStringLiteral("Y="), 1).section('\n', 0, 0).toInt();
        QVERIFY2(pointerY == 500, qPrintable(location));
        RecordingManager manager(m_settings.get(), realBackend());
        QSignalSpy finished(&manager, &RecordingManager::finished);
        manager.start(m_right);
        waitForRecording(manager);
        QTest::qWait(2000);
        QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), { "mousedown", "1" }), 0);
        QTest::qWait(1000);
        QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), { "mouseup", "1" }), 0);
        QTest::qWait(2000);
        manager.stop();
        QVERIFY(finished.wait(10000));
        QCOMPARE(manager.state(), RecordingManager::Idle);
        QVERIFY(finished.first().at(0).toBool());
        const QString video = finished.first().at(1).toString();

        const Probe p = probe(video);
        QVERIFY2(p.error.isEmpty(), qPrintable(p.error));
        QCOMPARE(p.codec, QStringLiteral("h264"));
        QCOMPARE(p.width, 1920);
        QCOMPARE(p.height, 1080);
        // 150 frames on an idle machine; a loaded one loses some to late ticks,
        // never more than the timeline allows. (ffprobe's guessed rate is no
        // check: a tick that comes late to its slot leaves a shorter gap to
        // the next, and the guess doubles.)
        qInfo("recorded %d frames over %.2f s", p.frames, p.lastPacketSeconds);
        QVERIFY2(p.frames >= 90 && p.frames <= 155, qPrintable(QString::number(p.frames)));
        QVERIFY2(p.lastPacketSeconds >= 4.6 && p.lastPacketSeconds <= 5.6,
                 qPrintable(QString::number(p.lastPacketSeconds)));

        QFile cursor(RecordingFiles::metadataPathFor(video));
        QVERIFY(cursor.open(QIODevice::ReadOnly | QIODevice::Text));
        const QList<QByteArray> lines = cursor.readAll().split('\n');
        QVERIFY(lines.size() > 2);
        const QJsonObject header = QJsonDocument::fromJson(lines.first()).object();
        QCOMPARE(header.value("type").toString(), QStringLiteral("glimmora-recording-metadata"));
        const int records = int(lines.size()) - 2; // header and the empty tail
        // One line per frame tick; a loaded machine may drop a few frames the
        // encoder cannot keep up with, whose ticks still have their line.
        QVERIFY2(
            records >= p.frames - 2 && records <= p.frames + p.frames / 10 + 2,
            qPrintable(QStringLiteral("%1 cursor lines, %2 frames").arg(records).arg(p.frames)));
        int pressed = 0;
        for (int i = 1; i <= records; ++i) {
            const QJsonObject record = QJsonDocument::fromJson(lines.at(i)).object();
            QCOMPARE(record.value("type").toString(), QStringLiteral("cursor"));
            QCOMPARE(record.value("x").toInt(), pointerX);
            QCOMPARE(record.value("y").toInt(), pointerY);
            QCOMPARE(record.value("relativeX").toInt(), pointerX - 1920);
            QCOMPARE(record.value("relativeY").toInt(), pointerY);
            pressed += record.value("buttons").toInt() == 1 ? 1 : 0;
        }
        // About a second of the left button held, seen by the pointer poll.
        QVERIFY2(pressed >= 10 && pressed < records - 20, qPrintable(QString::number(pressed)));

        QVERIFY(QDir(folder() + QStringLiteral("/.glimmora/recovery"))
                    .isEmpty(QDir::Files | QDir::Hidden));
        QCOMPARE(filesUnder(folder()).size(), 2);
    }

    void diskFillingUpKeepsTheWorkingFiles()
    {
        // About two seconds of video at the balanced rate.
        if (!mountTmpfs(folder(), QStringLiteral("size=1m"))) {
            QDir().rmdir(folder());
            QSKIP("not root: cannot mount a small tmpfs to fill up");
        }
        RecordingManager manager(m_settings.get(), realBackend());
        QSignalSpy finished(&manager, &RecordingManager::finished);
        LogCapture log;
        manager.start(m_right);
        QVERIFY(finished.wait(30000));
        QCOMPARE(manager.state(), RecordingManager::Failed);
        QCOMPARE(finished.first().at(0).toBool(), false);
        QVERIFY(!log.matching(QStringLiteral("Recording worker failed:")).isEmpty());
        const QString working = onlyFile(folder(), QStringLiteral(".*.recording.mp4"));
        QVERIFY2(!working.isEmpty(), qPrintable(filesUnder(folder()).join(' ')));
        QVERIFY(QFileInfo(working).size() > 100000);
        QVERIFY(QFileInfo::exists(RecordingFiles::metadataPathFor(working)));
        const QJsonObject json = readJson(RecordingFiles::manifestPathFor(working));
        QCOMPARE(json.value("status").toString(), QStringLiteral("needs-recovery"));
        QVERIFY(!json.value("error").toString().isEmpty());
        QCOMPARE(json.value("workingPath").toString(), working);
    }

    void unpluggedDisplayEndsTheRecordingSaved()
    {
        RecordingManager manager(m_settings.get(), realBackend());
        QSignalSpy finished(&manager, &RecordingManager::finished);
        QSignalSpy removed(qGuiApp, &QGuiApplication::screenRemoved);
        manager.start(m_right);
        waitForRecording(manager);
        QTest::qWait(2000);
        m_pattern.reset();
        QCOMPARE(xrandr({ "--delmonitor", "RIGHT" }), 0);
        const auto restore = qScopeGuard([] {
            xrandr({ "--setmonitor", "RIGHT", "1920/508x1080/286+1920+0", "none" });
        });
        QVERIFY(removed.wait(5000));
        m_right = nullptr;
        QVERIFY(finished.wait(10000));
        QCOMPARE(manager.state(), RecordingManager::Idle);
        QVERIFY(finished.first().at(0).toBool());
        const Probe p = probe(finished.first().at(1).toString());
        QVERIFY2(p.error.isEmpty(), qPrintable(p.error));
        QCOMPARE(p.codec, QStringLiteral("h264"));
        QVERIFY2(p.frames > 0 && p.lastPacketSeconds >= 1.5,
                 qPrintable(QString::number(p.lastPacketSeconds)));
    }

    void killedRecordingStaysPlayableAndIsReported()
    {
        const QString host = QStringLiteral(RECORDING_HOST);
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), m_dir->filePath(QStringLiteral("config")));
        m_pattern.reset();
        QProcess recorder;
        recorder.setProcessEnvironment(env);
        recorder.start(host, { QStringLiteral("record"), folder() });
        QVERIFY(recorder.waitForStarted());
        QByteArray out;
        QTRY_VERIFY_WITH_TIMEOUT((out += recorder.readAllStandardOutput()).contains("RECORDING")
                                     || recorder.state() == QProcess::NotRunning,
                                 20000);
        QVERIFY2(out.contains("RECORDING"),
                 recorder.readAllStandardError().right(3000).constData());
        QTest::qWait(10000);
        ::kill(pid_t(recorder.processId()), SIGKILL);
        QVERIFY(recorder.waitForFinished(5000));

        const QString working = onlyFile(folder(), QStringLiteral(".*.recording.mp4"));
        QVERIFY2(!working.isEmpty(), qPrintable(filesUnder(folder()).join(' ')));
        const Probe p = probe(working);
        QVERIFY2(p.error.isEmpty(), qPrintable(p.error));
        QCOMPARE(p.codec, QStringLiteral("h264"));
        QVERIFY2(p.lastPacketSeconds >= 8.0, qPrintable(QString::number(p.lastPacketSeconds)));
        QVERIFY(QFileInfo::exists(RecordingFiles::manifestPathFor(working)));

        QProcess scan;
        scan.setProcessEnvironment(env);
        scan.start(host, { QStringLiteral("scan"), folder() });
        QVERIFY(scan.waitForFinished(15000));
        QCOMPARE(scan.exitCode(), 0);
        const QString log = QString::fromUtf8(scan.readAllStandardError());
        QVERIFY2(log.contains(QStringLiteral("RecordingManager: recoverable recording found")),
                 qPrintable(log));
        QVERIFY(log.contains(working));
    }
};

int main(int argc, char *argv[])
{
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    QGuiApplication app(argc, argv);
    TestRecordingX11 test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_recording_x11.moc"
