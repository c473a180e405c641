#include "LogCapture.h"
#include "RecordingFakes.h"
#include "recording/RecordingFiles.h"
#include "recording/RecordingManager.h"
#include "settings/SettingsManager.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

// The lifecycle of a recording on the GUI thread, with a real worker thread
// and fake platform pieces. Runs without a GUI, so there are no screens.
class TestRecordingManager : public QObject
{
    Q_OBJECT

    using State = RecordingManager::State;

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<SettingsManager> m_settings;
    std::shared_ptr<FakeScript> m_script;

    QString folder() const { return m_dir->filePath(QStringLiteral("videos")); }

    static QList<int> states(const QSignalSpy &spy)
    {
        QList<int> list;
        for (const QList<QVariant> &args : spy)
            list.append(args.first().value<RecordingManager::State>());
        return list;
    }

    QStringList filesUnder(const QString &root) const
    {
        QStringList files;
        QDirIterator it(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext())
            files.append(QDir(root).relativeFilePath(it.next()));
        files.sort();
        return files;
    }

    QString workingVideo() const
    {
        const QStringList names = QDir(folder()).entryList({ QStringLiteral(".*.recording.mp4") },
                                                           QDir::Files | QDir::Hidden);
        return names.size() == 1 ? QDir(folder()).filePath(names.first()) : QString();
    }

    static QJsonObject readJson(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QJsonDocument::fromJson(file.readAll()).object();
    }

    static void blockWithDirectory(const QString &path)
    {
        QDir().mkpath(path);
        QFile file(path + QStringLiteral("/keep"));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

    // Starts a recording and waits until it runs.
    void startRecording(RecordingManager &manager)
    {
        QSignalSpy stateSpy(&manager, &RecordingManager::stateChanged);
        manager.start();
        QCOMPARE(manager.state(), RecordingManager::Initializing);
        QTRY_COMPARE(manager.state(), RecordingManager::Recording);
        QTRY_VERIFY(!workingVideo().isEmpty());
    }

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_settings = std::make_unique<SettingsManager>();
        m_settings->setCaptureSaveFolder(folder());
        m_settings->setRecordQuality(2);
        m_script = std::make_shared<FakeScript>();
    }

    void cleanup()
    {
        m_settings.reset();
        m_dir.reset();
    }

    void recordsAndSaves()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy stateSpy(&manager, &RecordingManager::stateChanged);
        QSignalSpy elapsedSpy(&manager, &RecordingManager::elapsedSecondsChanged);
        QSignalSpy finished(&manager, &RecordingManager::finished);
        startRecording(manager);
        QCOMPARE(elapsedSpy.size(), 1);
        QCOMPARE(elapsedSpy.first().first().toInt(), 0);

        const QString working = workingVideo();
        const QString manifest = RecordingFiles::manifestPathFor(working);
        const QJsonObject json = readJson(manifest);
        QCOMPARE(json.value("status").toString(), QStringLiteral("recording"));
        QCOMPARE(json.value("qualityPreset").toInt(), 2);
        QVERIFY(elapsedSpy.wait(1500));
        QCOMPARE(manager.elapsedSeconds(), 1);

        LogCapture log;
        manager.stop();
        QCOMPARE(manager.state(), RecordingManager::Saving);
        QVERIFY(finished.wait(3000));
        QCOMPARE(manager.state(), RecordingManager::Idle);
        QCOMPARE(states(stateSpy), (QList<int> { 5, 1, 3, 0 }));
        QCOMPARE(finished.size(), 1);
        QVERIFY(finished.first().at(0).toBool());
        const QString finalPath = finished.first().at(1).toString();
        QCOMPARE(RecordingFiles::workingPathFor(finalPath), working);
        QCOMPARE(filesUnder(folder()),
                 (QStringList { ".glimmora/metadata/" + QFileInfo(finalPath).fileName()
                                    + ".cursor.jsonl",
                                QFileInfo(finalPath).fileName() }));
        QCOMPARE(log.matching(QStringLiteral("RecordingManager: metadata saved")).size(), 1);
        QVERIFY(log.matching(QStringLiteral("RecordingManager: metadata saved"))
                    .first()
                    .contains(RecordingFiles::metadataPathFor(finalPath)));
    }

    void secondStartOnlyLogs()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        startRecording(manager);
        QSignalSpy finished(&manager, &RecordingManager::finished);
        QSignalSpy stateSpy(&manager, &RecordingManager::stateChanged);
        LogCapture log;
        manager.start();
        QCOMPARE(manager.state(), RecordingManager::Recording);
        QCOMPARE(
            log.matching(QStringLiteral("RecordingManager: cannot start \u2014 already in state 1"))
                .size(),
            1);
        manager.togglePause();
        manager.start();
        QCOMPARE(log.matching(QStringLiteral("already in state 2")).size(), 1);
        QCOMPARE(finished.size(), 0);
        QCOMPARE(states(stateSpy), QList<int> { 2 });
        manager.stop();
        QVERIFY(finished.wait(3000));
    }

    void pauseStopsTheSecondsCounter()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        startRecording(manager);
        QSignalSpy elapsedSpy(&manager, &RecordingManager::elapsedSecondsChanged);
        manager.togglePause();
        QCOMPARE(manager.state(), RecordingManager::Paused);
        QVERIFY(!elapsedSpy.wait(1300));
        manager.togglePause();
        QCOMPARE(manager.state(), RecordingManager::Recording);
        QVERIFY(elapsedSpy.wait(1500));
        QCOMPARE(manager.elapsedSeconds(), 1);
        QSignalSpy finished(&manager, &RecordingManager::finished);
        manager.stop();
        QVERIFY(finished.wait(3000));
    }

    void startFailures_data()
    {
        QTest::addColumn<bool>("noScreen");
        QTest::addColumn<bool>("blockFolder");
        QTest::addColumn<QString>("logLine");
        QTest::newRow("no screen at all")
            << true << false << "RecordingManager: no active display found.";
        QTest::newRow("manifest cannot be written")
            << false << true << "RecordingManager: could not write recovery manifest for";
    }

    void startFailures()
    {
        QFETCH(bool, noScreen);
        QFETCH(bool, blockFolder);
        QFETCH(QString, logLine);
        RecordingBackend backend = fakeBackend(m_script);
        if (noScreen)
            backend.captureRect = &RecordingBackend::captureRectForScreen;
        if (blockFolder) {
            QDir().mkpath(folder());
            QFile blocker(folder() + QStringLiteral("/.glimmora"));
            QVERIFY(blocker.open(QIODevice::WriteOnly));
        }
        RecordingManager manager(m_settings.get(), backend);
        QSignalSpy finished(&manager, &RecordingManager::finished);
        LogCapture log;
        manager.start();
        QCOMPARE(manager.state(), RecordingManager::Failed);
        QCOMPARE(finished.size(), 1);
        QCOMPARE(finished.first().at(0).toBool(), false);
        QCOMPARE(finished.first().at(1).toString(), QString());
        QCOMPARE(log.matching(logLine).size(), 1);
        QVERIFY(!QFileInfo::exists(folder() + QStringLiteral("/.glimmora/recovery")));
        QCOMPARE(m_script->sessions, 0);
    }

    void workerStartFailureMarksTheManifest()
    {
        m_script->sessionError = QStringLiteral("Capture area is not on the screen.");
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy finished(&manager, &RecordingManager::finished);
        QSignalSpy stateSpy(&manager, &RecordingManager::stateChanged);
        LogCapture log;
        manager.start();
        QVERIFY(finished.wait(3000));
        QCOMPARE(manager.state(), RecordingManager::Failed);
        QCOMPARE(states(stateSpy), (QList<int> { 5, 4 }));
        QCOMPARE(finished.first().at(0).toBool(), false);
        QCOMPARE(log.matching(QStringLiteral("Recorder::start failed:")).size(), 1);
        const QStringList manifests = QDir(folder() + QStringLiteral("/.glimmora/recovery"))
                                          .entryList(QDir::Files | QDir::Hidden);
        QCOMPARE(manifests.size(), 1);
        const QJsonObject json =
            readJson(folder() + QStringLiteral("/.glimmora/recovery/") + manifests.first());
        QCOMPARE(json.value("status").toString(), QStringLiteral("needs-recovery"));
        QCOMPARE(json.value("error").toString(), m_script->sessionError);

        // The failed attempt's worker is gone: a stop passes through Saving
        // back to Failed, and a new start is allowed.
        manager.stop();
        QCOMPARE(states(stateSpy), (QList<int> { 5, 4, 3, 4 }));
        QCOMPARE(finished.size(), 2);
        m_script->sessionError.clear();
        finished.clear();
        manager.start();
        QTRY_COMPARE(manager.state(), RecordingManager::Recording);
        manager.stop();
        QVERIFY(finished.wait(3000));
        QCOMPARE(manager.state(), RecordingManager::Idle);
    }

    void stopDuringInitialisingSavesWhatThereIs()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy stateSpy(&manager, &RecordingManager::stateChanged);
        QSignalSpy finished(&manager, &RecordingManager::finished);
        QSignalSpy elapsedSpy(&manager, &RecordingManager::elapsedSecondsChanged);
        manager.start();
        manager.stop();
        QCOMPARE(manager.state(), RecordingManager::Saving);
        QVERIFY(finished.wait(3000));
        QCOMPARE(states(stateSpy), (QList<int> { 5, 3, 0 }));
        QVERIFY2(elapsedSpy.isEmpty(), "a late started is ignored");
        QVERIFY(finished.first().at(0).toBool());
        QVERIFY(QFileInfo::exists(finished.first().at(1).toString()));
    }

    void startAgainWhileInitialisingAbandonsTheFirstAttempt()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy finished(&manager, &RecordingManager::finished);
        manager.start();
        manager.start();
        QTRY_COMPARE(manager.state(), RecordingManager::Recording);
        manager.stop();
        QVERIFY(finished.wait(3000));
        QTest::qWait(200);
        QCOMPARE(finished.size(), 1);
        QVERIFY(finished.first().at(0).toBool());
        QCOMPARE(manager.state(), RecordingManager::Idle);
        QVERIFY(QFileInfo::exists(finished.first().at(1).toString()));
    }

    void runtimeFaultEndsAsASavedRecording()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy finished(&manager, &RecordingManager::finished);
        startRecording(manager);
        LogCapture log;
        {
            QMutexLocker lock(&m_script->mutex);
            m_script->deliverError = QStringLiteral("X11 screen capture did not produce a frame.");
        }
        QVERIFY(finished.wait(3000));
        QCOMPARE(manager.state(), RecordingManager::Idle);
        QVERIFY(finished.first().at(0).toBool());
        QVERIFY(!log.matching(QStringLiteral("Recording worker failed:")).isEmpty());
    }

    void endingFailures_data()
    {
        QTest::addColumn<QString>("closeError");
        QTest::addColumn<bool>("blockVideo");
        QTest::addColumn<QString>("logLine");
        QTest::newRow("finalising fails")
            << "could not write the index" << false << "Recorder::finish failed:";
        QTest::newRow("the final name is taken by a folder")
            << QString() << true << "RecordingManager: could not promote recording:";
    }

    void endingFailures()
    {
        QFETCH(QString, closeError);
        QFETCH(bool, blockVideo);
        QFETCH(QString, logLine);
        m_script->closeError = closeError;
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy finished(&manager, &RecordingManager::finished);
        startRecording(manager);
        const QString working = workingVideo();
        const QString final =
            QFileInfo(working).dir().filePath(QFileInfo(working).fileName().mid(1).replace(
                QStringLiteral(".recording.mp4"), QStringLiteral(".mp4")));
        if (blockVideo)
            blockWithDirectory(final);
        LogCapture log;
        manager.stop();
        QVERIFY(finished.wait(3000));
        QCOMPARE(manager.state(), RecordingManager::Failed);
        QCOMPARE(finished.first().at(0).toBool(), false);
        QCOMPARE(finished.first().at(1).toString(), QString());
        QCOMPARE(log.matching(logLine).size(), 1);
        QVERIFY2(QFileInfo::exists(working), "the working video stays");
        QVERIFY(QFileInfo::exists(RecordingFiles::metadataPathFor(working)));
        const QJsonObject json = readJson(RecordingFiles::manifestPathFor(working));
        QCOMPARE(json.value("status").toString(), QStringLiteral("needs-recovery"));
        const QString expected = blockVideo
            ? QStringLiteral("Could not rename %1 to %2.").arg(working, final)
            : closeError;
        QCOMPARE(json.value("error").toString(), expected);
    }

    void lostCursorFileStillSaves()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy finished(&manager, &RecordingManager::finished);
        startRecording(manager);
        const QString working = workingVideo();
        const QString final =
            QFileInfo(working).dir().filePath(QFileInfo(working).fileName().mid(1).replace(
                QStringLiteral(".recording.mp4"), QStringLiteral(".mp4")));
        blockWithDirectory(RecordingFiles::metadataPathFor(final));
        LogCapture log;
        manager.stop();
        QVERIFY(finished.wait(3000));
        QCOMPARE(manager.state(), RecordingManager::Idle);
        QVERIFY(finished.first().at(0).toBool());
        QCOMPARE(finished.first().at(1).toString(), final);
        QVERIFY(!QFileInfo::exists(RecordingFiles::manifestPathFor(working)));
        QCOMPARE(
            log.matching(QStringLiteral("RecordingManager: could not promote recording metadata:"))
                .size(),
            1);
        const QStringList saved = log.matching(QStringLiteral("RecordingManager: metadata saved"));
        QCOMPARE(saved.size(), 1);
        QCOMPARE(saved.first(), QStringLiteral("RecordingManager: metadata saved \"\""));
    }

    void stopWithoutWorker()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script, QRect()));
        QSignalSpy stateSpy(&manager, &RecordingManager::stateChanged);
        QSignalSpy finished(&manager, &RecordingManager::finished);
        manager.stop();
        QCOMPARE(finished.size(), 0);
        manager.start();
        QCOMPARE(manager.state(), RecordingManager::Failed);
        manager.stop();
        QCOMPARE(states(stateSpy), (QList<int> { 4, 3, 4 }));
        QCOMPARE(finished.size(), 2);
    }

    void destroyedWhileRecording()
    {
        QString working;
        {
            RecordingManager manager(m_settings.get(), fakeBackend(m_script));
            startRecording(manager);
            working = workingVideo();
        }
        // The worker finalised its file; the promotion needed the event loop.
        QTRY_VERIFY(m_script->stops >= 1);
        QVERIFY(QFileInfo::exists(working));
        QVERIFY(QFileInfo::exists(RecordingFiles::manifestPathFor(working)));

        LogCapture log;
        RecordingManager next(m_settings.get(), fakeBackend(m_script));
        const QStringList found =
            log.matching(QStringLiteral("RecordingManager: recoverable recording found"));
        QCOMPARE(found.size(), 1);
        QVERIFY(found.first().contains(working));
    }
};

int main(int argc, char *argv[])
{
    // Settings go to a throw-away store, never the user's.
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    QCoreApplication app(argc, argv);
    TestRecordingManager test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_recordingmanager.moc"
