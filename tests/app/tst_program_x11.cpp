#include "ProgramHome.h"
#include "ToolbarClicks.h"
#include "XTestSession.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

#include <csignal>

// The real program on the test display: started twice in one throw-away
// home with no tray host, and ended by a signal while it records.
class TestProgramX11 : public QObject
{
    Q_OBJECT

    static QStringList filesUnder(const QString &folder)
    {
        QStringList files;
        QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext())
            files.append(QDir(folder).relativeFilePath(it.next()));
        files.sort();
        return files;
    }

private slots:
    void secondInstanceStandsDownAndFirstQuitsCleanly()
    {
        ProgramHome home;
        QVERIFY(home.isValid());
        QProcess first;
        QVERIFY(home.start(first));
        const QString started = QStringLiteral("Glimmora started.");
        QTRY_COMPARE_WITH_TIMEOUT(home.logLinesWith(started), 1, 30000);

        QProcess second;
        QVERIFY(home.start(second));
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(home.logLinesWith(
                     QStringLiteral("[warning] Another instance of Glimmora is already running.")),
                 1);
        // The second instance built nothing.
        QCOMPARE(home.logLinesWith(QStringLiteral("Initializing managers...")), 1);
        QCOMPARE(first.state(), QProcess::Running);

        // Both processes wrote to the one log in the one line shape, the
        // start-up milestones in order at debug level.
        const QRegularExpression shape(QStringLiteral(
            R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3} \[(debug|info|warning|critical|fatal)\] .*$)"));
        const QStringList lines = home.log().split(u'\n', Qt::SkipEmptyParts);
        for (const QString &line : lines)
            QVERIFY2(shape.match(line).hasMatch(), qPrintable(line));
        qsizetype previous = -1;
        for (const char *milestone :
             { "Initializing managers...", "Loading QML engine...", "Glimmora started." }) {
            const auto it = std::find_if(lines.cbegin(), lines.cend(), [&](const QString &line) {
                return line.endsWith(QLatin1String("[debug] ") + QLatin1String(milestone));
            });
            QVERIFY2(it != lines.cend(), milestone);
            QVERIFY(it - lines.cbegin() > previous);
            previous = it - lines.cbegin();
        }

        // No tray host runs here, so the tray icon has nowhere to show; the
        // global quit hotkey still reaches the program, no window of it focused.
        XTestSession session;
        QVERIFY(session.isValid());
        QCOMPARE(session.selectionOwner("_NET_SYSTEM_TRAY_S0"), 0u);
        QCOMPARE(QProcess::execute(QStringLiteral("xdotool"),
                                   { QStringLiteral("key"), QStringLiteral("ctrl+shift+q") }),
                 0);
        QVERIFY(first.waitForFinished(20000));
        QCOMPARE(first.exitStatus(), QProcess::NormalExit);
        QCOMPARE(first.exitCode(), 0);
    }

    // What a logout or `kill` sends: the program quits the ordinary way, and
    // the recording under way ends up saved under its final name.
    void terminationSavesTheRecording()
    {
        ProgramHome home;
        QVERIFY(home.isValid());
        XTestSession user;
        QVERIFY(user.isValid());
        const QString videos = home.filePath(QStringLiteral("videos"));
        qputenv("GLIMMORA_ENABLE_RECORDING", "1");
        QProcess program;
        user.moveTo(QPoint(900, 700));
        QVERIFY(home.start(program, "[capture]\nsaveFolder=" + videos.toUtf8() + "\n"));
        qunsetenv("GLIMMORA_ENABLE_RECORDING");
        QTRY_COMPARE_WITH_TIMEOUT(home.logLinesWith(QStringLiteral("Glimmora started.")), 1, 30000);
        QVERIFY2(ToolbarClicks::startDisplayRecording(user, QRect(0, 0, 1920, 1080)),
                 "no record menu on screen");
        user.moveTo(QPoint(900, 700));
        const QRegularExpression working(QStringLiteral(R"(^\.Glimmora-.*\.recording\.mp4$)"));
        QTRY_VERIFY_WITH_TIMEOUT(!filesUnder(videos).filter(working).isEmpty(), 20000);
        // A second of frames has been taken: the cursor file, one line a
        // frame after its header, is flushed every 30 lines.
        const QString cursorFile = QDir(videos).filePath(
            QStringLiteral(".glimmora/metadata/") + filesUnder(videos).filter(working).first()
            + QStringLiteral(".cursor.jsonl"));
        const auto lines = [&] {
            QFile file(cursorFile);
            return file.open(QIODevice::ReadOnly) ? file.readAll().count('\n') : 0;
        };
        QTRY_VERIFY_WITH_TIMEOUT(lines() > 30, 20000);

        ::kill(pid_t(program.processId()), SIGTERM);
        // The stop path allows 6 s for the file; the rest is the quit itself.
        QVERIFY(program.waitForFinished(15000));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        QCOMPARE(home.logLinesWith(QStringLiteral("SIGTERM received")), 1);

        const QStringList files = filesUnder(videos);
        const QStringList videosSaved =
            files.filter(QRegularExpression(QStringLiteral(R"(^Glimmora-[0-9-]+\.mp4$)")));
        QVERIFY2(videosSaved.size() == 1, qPrintable(files.join(u' ')));
        // Neither the working name nor a recovery manifest is left.
        QVERIFY2(files.filter(working).isEmpty(), qPrintable(files.join(u' ')));
        QVERIFY2(files.filter(QStringLiteral("recovery")).isEmpty(), qPrintable(files.join(u' ')));
        QProcess ffprobe;
        ffprobe.start(QStringLiteral("ffprobe"),
                      { "-v", "error", "-count_packets", "-select_streams", "v:0", "-show_entries",
                        "stream=codec_name,nb_read_packets", "-of", "csv=p=0",
                        QDir(videos).filePath(videosSaved.first()) });
        QVERIFY(ffprobe.waitForFinished(30000));
        const QStringList probed =
            QString::fromUtf8(ffprobe.readAllStandardOutput()).trimmed().split(u',');
        QCOMPARE(probed.value(0), QStringLiteral("h264"));
        // A busy encoder may drop some of the first second's frames.
        QVERIFY2(probed.value(1).toInt() >= 10, qPrintable(probed.join(u',')));
    }
};

QTEST_GUILESS_MAIN(TestProgramX11)
#include "tst_program_x11.moc"
