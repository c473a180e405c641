#include "LogCapture.h"
#include "RecordingFakes.h"
#include "recording/RecordingWorker.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// The paced worker with fake source, writer and pointer.
class TestRecordingWorker : public QObject
{
    Q_OBJECT

    static QList<QJsonObject> readLines(const QString &path)
    {
        QList<QJsonObject> lines;
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            return lines;
        while (!file.atEnd())
            lines.append(QJsonDocument::fromJson(file.readLine()).object());
        return lines;
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::shared_ptr<FakeScript> m_script;

    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }

    // Starts a recording of the right monitor into v.mp4.
    void start(RecordingWorker &worker, const QString &metadata = QString())
    {
        worker.start(path("v.mp4"), metadata, QStringLiteral("id-1"), QRect(1920, 0, 1920, 1080),
                     30, 1);
    }

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_script = std::make_shared<FakeScript>();
    }

    void recordsFramesAndCursorLines()
    {
        RecordingWorker worker(fakeBackend(m_script));
        QSignalSpy started(&worker, &RecordingWorker::started);
        QSignalSpy stopped(&worker, &RecordingWorker::stopped);
        const QString metadata = path("meta/v.cursor.jsonl");
        start(worker, metadata);
        QCOMPARE(started.size(), 1);
        QTRY_VERIFY_WITH_TIMEOUT(worker.stats().writtenFrames >= 6, 5000);
        worker.finish();
        QCOMPARE(stopped.size(), 1);
        QCOMPARE(stopped.first(), (QVariantList { true, path("v.mp4"), QString() }));

        const QList<QJsonObject> lines = readLines(metadata);
        QVERIFY(lines.size() >= 7);
        QCOMPARE(lines.first().value("type").toString(), u"glimmora-recording-metadata"_s);
        QCOMPARE(lines.first().value("coordinateSpace").toString(), u"global-screen"_s);
        QCOMPARE(lines.first().value("recordingId").toString(), u"id-1"_s);
        const RecordingWorker::Stats stats = worker.stats();
        QCOMPARE(qint64(lines.size() - 1), stats.capturedFrames);
        qint64 lastT = -1;
        for (const QJsonObject &line : lines.mid(1)) {
            QCOMPARE(line.value("type").toString(), u"cursor"_s);
            QCOMPARE(line.value("recordingId").toString(), u"id-1"_s);
            QCOMPARE(line.value("x").toInt(), 2000);
            QCOMPARE(line.value("relativeX").toInt(), 80);
            QCOMPARE(line.value("relativeY").toInt(), 30);
            QCOMPARE(line.value("buttons").toInt(), 1);
            QVERIFY(line.value("tMs").toInteger() > lastT);
            lastT = line.value("tMs").toInteger();
        }
        // The video's timeline is the cursor file's, in 100 ns units.
        QCOMPARE(qint64(m_script->sampleTimes.size()), stats.writtenFrames);
        QCOMPARE(m_script->sampleTimes.back(), lastT * 10000);
        QCOMPARE(m_script->stops, 1);
        worker.finish();
        QCOMPARE(stopped.size(), 1);
    }

    void cursorUnknownLeavesOutTheCoordinates()
    {
        m_script->cursor.reset();
        RecordingWorker worker(fakeBackend(m_script));
        start(worker, path("c.jsonl"));
        QTRY_VERIFY(worker.stats().capturedFrames >= 1);
        worker.finish();
        QStringList keys = readLines(path("c.jsonl")).value(1).keys();
        keys.sort();
        QCOMPARE(keys, (QStringList { "buttons", "recordingId", "tMs", "type" }));
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), (QStringList { "c.jsonl", "v.mp4" }));
    }

    void startFailures_data()
    {
        QTest::addColumn<QString>("sessionError");
        QTest::addColumn<QString>("openError");
        QTest::addColumn<QString>("metadata");
        QTest::addColumn<QString>("error"); // %1: the metadata path
        QTest::newRow("capture session") << "Off the screen."
                                         << ""
                                         << "m.jsonl"
                                         << "Off the screen.";
        QTest::newRow("writer") << ""
                                << "Could not open file."
                                << "m.jsonl"
                                << "Could not open file.";
        QTest::newRow("cursor file") << ""
                                     << ""
                                     << "blocker/m.jsonl"
                                     << "Could not create recording metadata file: %1";
        QTest::newRow("a second start") << ""
                                        << ""
                                        << ""
                                        << "Recorder already started.";
    }

    void startFailures()
    {
        QFETCH(QString, sessionError);
        QFETCH(QString, openError);
        QFETCH(QString, metadata);
        QFETCH(QString, error);
        QFile blocker(path("blocker"));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        m_script->sessionError = sessionError;
        m_script->openError = openError;
        RecordingWorker worker(fakeBackend(m_script));
        QSignalSpy startFailed(&worker, &RecordingWorker::startFailed);
        QSignalSpy stopped(&worker, &RecordingWorker::stopped);
        const QString metadataPath = metadata.isEmpty() ? QString() : path(qPrintable(metadata));
        if (metadata.isEmpty())
            start(worker); // the one that runs
        worker.start(path("w.mp4"), metadataPath, QStringLiteral("id"), QRect(0, 0, 64, 48), 30, 1);
        QCOMPARE(startFailed.size(), 1);
        QCOMPARE(startFailed.first().first().toString(),
                 error.contains(QLatin1String("%1")) ? error.arg(metadataPath) : error);
        if (metadata.isEmpty()) {
            // The running recording is left alone.
            const qint64 before = worker.stats().writtenFrames;
            QTRY_VERIFY(worker.stats().writtenFrames > before + 2);
            QCOMPARE(m_script->outputPath, path("v.mp4"));
        } else {
            QTest::qWait(100);
            QCOMPARE(m_script->deliveries, 0);
        }
        // The path was taken, so a finish still reports it as written.
        worker.finish();
        QCOMPARE(stopped.size(), 1);
        QCOMPARE(stopped.first().at(0).toBool(), true);
        QCOMPARE(stopped.first().at(1).toString(), path(metadata.isEmpty() ? "v.mp4" : "w.mp4"));
    }

    void frameFailureMessages_data()
    {
        QTest::addColumn<QString>("submitError");
        QTest::addColumn<QString>("deliverError");
        QTest::addColumn<bool>("silent");
        QTest::addColumn<QString>("message");
        QTest::newRow("writer's error first") << "gone"
                                              << "" << false << "gone";
        QTest::newRow("then the source's") << ""
                                           << "no frame" << false << "no frame";
        QTest::newRow("else a fixed text") << ""
                                           << "" << true << "Recording frame capture failed.";
    }

    void frameFailureMessages()
    {
        QFETCH(QString, submitError);
        QFETCH(QString, deliverError);
        QFETCH(bool, silent);
        m_script->submitError = submitError;
        m_script->deliverError = deliverError;
        m_script->deliverWithoutText = silent;
        RecordingWorker worker(fakeBackend(m_script));
        QSignalSpy failed(&worker, &RecordingWorker::failed);
        QSignalSpy stopped(&worker, &RecordingWorker::stopped);
        start(worker);
        QVERIFY(failed.wait(2000));
        QTEST(failed.first().first().toString(), "message");
        QCOMPARE(stopped.size(), 0);
        worker.finish();
        QCOMPARE(stopped.size(), 1);
    }

    void pauseStopsTheTicksButNotTheClock()
    {
        RecordingWorker worker(fakeBackend(m_script));
        start(worker);
        QTRY_VERIFY(worker.stats().writtenFrames >= 2);
        worker.pause();
        const qint64 written = worker.stats().writtenFrames;
        const qint64 dropped = worker.stats().droppedFrames;
        QTest::qWait(400);
        QCOMPARE(worker.stats().writtenFrames, written);
        worker.resume();
        QTRY_VERIFY(worker.stats().writtenFrames > written);
        QVERIFY2(worker.stats().droppedFrames >= dropped + 9,
                 "the pause is counted as dropped frames");
        LogCapture log;
        worker.finish();
        QCOMPARE(log.matching(QStringLiteral("RecordingWorker stats:")).size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestRecordingWorker)
#include "tst_recordingworker.moc"
