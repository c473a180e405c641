#include "LogCapture.h"
#include "RecordingFakes.h"
#include "recording/RecordingWorker.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

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

    const QRect m_rect { 1920, 0, 1920, 1080 };

private slots:
    void recordsFramesAndCursorLines()
    {
        QTemporaryDir dir;
        auto script = std::make_shared<FakeScript>();
        RecordingWorker worker(fakeBackend(script));
        QSignalSpy started(&worker, &RecordingWorker::started);
        QSignalSpy stopped(&worker, &RecordingWorker::stopped);
        const QString video = dir.filePath(QStringLiteral("v.mp4"));
        const QString metadata = dir.filePath(QStringLiteral("meta/v.cursor.jsonl"));
        worker.start(video, metadata, QStringLiteral("id-1"), m_rect, 30, 1);
        QCOMPARE(started.size(), 1);
        QTRY_VERIFY_WITH_TIMEOUT(worker.stats().writtenFrames >= 6, 5000);
        worker.finish();
        QCOMPARE(stopped.size(), 1);
        QCOMPARE(stopped.first().at(0).toBool(), true);
        QCOMPARE(stopped.first().at(1).toString(), video);
        QCOMPARE(stopped.first().at(2).toString(), QString());

        const QList<QJsonObject> lines = readLines(metadata);
        QVERIFY(lines.size() >= 7);
        QCOMPARE(lines.first().value("type").toString(),
                 QStringLiteral("glimmora-recording-metadata"));
        QCOMPARE(lines.first().value("coordinateSpace").toString(),
                 QStringLiteral("global-screen"));
        QCOMPARE(lines.first().value("recordingId").toString(), QStringLiteral("id-1"));
        const RecordingWorker::Stats stats = worker.stats();
        QCOMPARE(qint64(lines.size() - 1), stats.capturedFrames);
        qint64 lastT = -1;
        for (qsizetype i = 1; i < lines.size(); ++i) {
            const QJsonObject &line = lines.at(i);
            QCOMPARE(line.value("type").toString(), QStringLiteral("cursor"));
            QCOMPARE(line.value("recordingId").toString(), QStringLiteral("id-1"));
            QCOMPARE(line.value("x").toInt(), 2000);
            QCOMPARE(line.value("relativeX").toInt(), 80);
            QCOMPARE(line.value("relativeY").toInt(), 30);
            QCOMPARE(line.value("buttons").toInt(), 1);
            QVERIFY(line.value("tMs").toInteger() > lastT);
            lastT = line.value("tMs").toInteger();
        }
        QCOMPARE(qint64(script->sampleTimes.size()), stats.writtenFrames);
        QCOMPARE(script->sampleTimes.back(), lastT * 10000);
        QCOMPARE(script->stops, 1);

        worker.finish();
        QCOMPARE(stopped.size(), 1);
    }

    void cursorUnknownLeavesOutTheCoordinates()
    {
        QTemporaryDir dir;
        auto script = std::make_shared<FakeScript>();
        script->cursor.reset();
        RecordingWorker worker(fakeBackend(script));
        const QString metadata = dir.filePath(QStringLiteral("c.jsonl"));
        worker.start(dir.filePath(QStringLiteral("v.mp4")), metadata, QStringLiteral("id"), m_rect,
                     30, 1);
        QTRY_VERIFY(worker.stats().capturedFrames >= 1);
        worker.finish();
        const QList<QJsonObject> lines = readLines(metadata);
        QVERIFY(lines.size() >= 2);
        QStringList keys = lines.at(1).keys();
        keys.sort();
        QCOMPARE(keys, (QStringList { "buttons", "recordingId", "tMs", "type" }));
    }

    void withoutMetadataPathNoCursorFile()
    {
        QTemporaryDir dir;
        auto script = std::make_shared<FakeScript>();
        RecordingWorker worker(fakeBackend(script));
        worker.start(dir.filePath(QStringLiteral("v.mp4")), QString(), QStringLiteral("id"), m_rect,
                     30, 1);
        QTRY_VERIFY(worker.stats().writtenFrames >= 2);
        worker.finish();
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList { "v.mp4" });
    }

    void startFailures_data()
    {
        QTest::addColumn<QString>("sessionError");
        QTest::addColumn<QString>("openError");
        QTest::addColumn<bool>("blockedMetadata");
        QTest::addColumn<QString>("error");
        QTest::newRow("capture session") << "Capture area is not on the screen." << QString()
                                         << false << "Capture area is not on the screen.";
        QTest::newRow("writer") << QString() << "Could not open file." << false
                                << "Could not open file.";
        QTest::newRow("cursor file")
            << QString() << QString() << true << "Could not create recording metadata file: %1";
    }

    void startFailures()
    {
        QFETCH(QString, sessionError);
        QFETCH(QString, openError);
        QFETCH(bool, blockedMetadata);
        QFETCH(QString, error);
        QTemporaryDir dir;
        QFile blocker(dir.filePath(QStringLiteral("blocker")));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        auto script = std::make_shared<FakeScript>();
        script->sessionError = sessionError;
        script->openError = openError;
        RecordingWorker worker(fakeBackend(script));
        QSignalSpy started(&worker, &RecordingWorker::started);
        QSignalSpy startFailed(&worker, &RecordingWorker::startFailed);
        QSignalSpy stopped(&worker, &RecordingWorker::stopped);
        const QString video = dir.filePath(QStringLiteral("v.mp4"));
        const QString metadata = dir.filePath(blockedMetadata ? QStringLiteral("blocker/m.jsonl")
                                                              : QStringLiteral("m.jsonl"));
        worker.start(video, metadata, QStringLiteral("id"), m_rect, 30, 1);
        QCOMPARE(started.size(), 0);
        QCOMPARE(startFailed.size(), 1);
        QCOMPARE(startFailed.first().first().toString(),
                 error.contains(QLatin1String("%1")) ? error.arg(metadata) : error);
        if (!blockedMetadata)
            QCOMPARE(readLines(metadata).size(), 1);
        QTest::qWait(100);
        QCOMPARE(script->deliveries, 0);
        // The path was taken, so a finish still reports it as written.
        worker.finish();
        QCOMPARE(stopped.size(), 1);
        QCOMPARE(stopped.first().at(0).toBool(), true);
        QCOMPARE(stopped.first().at(1).toString(), video);
    }

    void secondStartLeavesTheRecordingAlone()
    {
        QTemporaryDir dir;
        auto script = std::make_shared<FakeScript>();
        RecordingWorker worker(fakeBackend(script));
        QSignalSpy startFailed(&worker, &RecordingWorker::startFailed);
        QSignalSpy stopped(&worker, &RecordingWorker::stopped);
        const QString video = dir.filePath(QStringLiteral("v.mp4"));
        worker.start(video, QString(), QStringLiteral("id"), m_rect, 30, 1);
        worker.start(dir.filePath(QStringLiteral("w.mp4")), QString(), QStringLiteral("id2"),
                     m_rect, 30, 1);
        QCOMPARE(startFailed.size(), 1);
        QCOMPARE(startFailed.first().first().toString(),
                 QStringLiteral("Recorder already started."));
        const qint64 before = worker.stats().writtenFrames;
        QTRY_VERIFY(worker.stats().writtenFrames > before + 2);
        worker.finish();
        QCOMPARE(stopped.first().at(1).toString(), video);
        QCOMPARE(script->outputPath, video);
    }

    void frameFailureMessages_data()
    {
        QTest::addColumn<QString>("submitError");
        QTest::addColumn<QString>("deliverError");
        QTest::addColumn<bool>("silent");
        QTest::addColumn<QString>("message");
        QTest::newRow("writer's error first")
            << "encoder gone" << QString() << false << "encoder gone";
        QTest::newRow("then the source's") << QString() << "no frame" << false << "no frame";
        QTest::newRow("else a fixed text")
            << QString() << QString() << true << "Recording frame capture failed.";
    }

    void frameFailureMessages()
    {
        QFETCH(QString, submitError);
        QFETCH(QString, deliverError);
        QFETCH(bool, silent);
        QTemporaryDir dir;
        auto script = std::make_shared<FakeScript>();
        script->submitError = submitError;
        script->deliverError = deliverError;
        script->deliverWithoutText = silent;
        RecordingWorker worker(fakeBackend(script));
        QSignalSpy failed(&worker, &RecordingWorker::failed);
        QSignalSpy stopped(&worker, &RecordingWorker::stopped);
        worker.start(dir.filePath(QStringLiteral("v.mp4")), QString(), QStringLiteral("id"), m_rect,
                     30, 1);
        QVERIFY(failed.wait(2000));
        QTEST(failed.first().first().toString(), "message");
        QCOMPARE(stopped.size(), 0);
        worker.finish();
        QCOMPARE(stopped.size(), 1);
    }

    void finaliseFailureIsReported()
    {
        QTemporaryDir dir;
        auto script = std::make_shared<FakeScript>();
        script->closeError = QStringLiteral("could not write the index");
        RecordingWorker worker(fakeBackend(script));
        QSignalSpy stopped(&worker, &RecordingWorker::stopped);
        worker.start(dir.filePath(QStringLiteral("v.mp4")), QString(), QStringLiteral("id"), m_rect,
                     30, 1);
        worker.finish();
        QCOMPARE(stopped.size(), 1);
        QCOMPARE(stopped.first().at(0).toBool(), false);
        QCOMPARE(stopped.first().at(1).toString(), QString());
        QCOMPARE(stopped.first().at(2).toString(), QStringLiteral("could not write the index"));
    }

    void pauseStopsTheTicksButNotTheClock()
    {
        QTemporaryDir dir;
        auto script = std::make_shared<FakeScript>();
        RecordingWorker worker(fakeBackend(script));
        worker.start(dir.filePath(QStringLiteral("v.mp4")), QString(), QStringLiteral("id"), m_rect,
                     30, 1);
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
