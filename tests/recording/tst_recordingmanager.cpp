#include "LogCapture.h"
#include "RecordingFakes.h"
#include "RecordingFileHelpers.h"
#include "recording/RecordingFiles.h"
#include "recording/RecordingManager.h"
#include "settings/SettingsManager.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace RecordingFileHelpers;
using namespace Qt::StringLiterals;

// The lifecycle of a recording on the GUI thread, with a real worker thread
// and fake platform pieces. Runs without a GUI, so there are no screens.
class TestRecordingManager : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<SettingsManager> m_settings;
    std::shared_ptr<FakeScript> m_script;

    QString folder() const { return m_dir->filePath(u"videos"_s); }
    QString workingVideo() const { return onlyFile(folder(), u".*.recording.mp4"_s); }

    static QList<int> states(const QSignalSpy &spy)
    {
        QList<int> list;
        for (const QList<QVariant> &args : spy)
            list.append(args.first().value<RecordingManager::State>());
        return list;
    }

    // The final name a working file is promoted to.
    static QString finalFor(const QString &working)
    {
        const QFileInfo info(working);
        return info.dir().filePath(info.fileName().mid(1).replace(u".recording.mp4"_s, u".mp4"_s));
    }

    // Starts a recording and waits until it runs.
    void startRecording(RecordingManager &manager)
    {
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
        const QJsonObject json = readJson(RecordingFiles::manifestPathFor(working));
        QCOMPARE(json.value("status").toString(), u"recording"_s);
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
        QCOMPARE(finalPath, finalFor(working));
        const QString name = QFileInfo(finalPath).fileName();
        QCOMPARE(filesUnder(folder()),
                 (QStringList { ".glimmora/metadata/" + name + ".cursor.jsonl", name }));
        const QStringList saved = log.matching(u"RecordingManager: metadata saved"_s);
        QCOMPARE(saved.size(), 1);
        QVERIFY(saved.first().contains(RecordingFiles::metadataPathFor(finalPath)));
    }

    // A start while recording or paused only logs; a pause holds the seconds.
    void secondStartAndPause()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        startRecording(manager);
        QSignalSpy finished(&manager, &RecordingManager::finished);
        QSignalSpy stateSpy(&manager, &RecordingManager::stateChanged);
        QSignalSpy elapsedSpy(&manager, &RecordingManager::elapsedSecondsChanged);
        LogCapture log;
        manager.start();
        QCOMPARE(log.matching(u"RecordingManager: cannot start \u2014 already in state 1"_s).size(),
                 1);
        manager.togglePause();
        manager.start();
        QCOMPARE(log.matching(u"already in state 2"_s).size(), 1);
        QCOMPARE(states(stateSpy), QList<int> { 2 });
        QVERIFY(!elapsedSpy.wait(1300));
        manager.togglePause();
        QCOMPARE(manager.state(), RecordingManager::Recording);
        QVERIFY(elapsedSpy.wait(1500));
        QCOMPARE(manager.elapsedSeconds(), 1);
        QCOMPARE(finished.size(), 0);
        manager.stop();
        QVERIFY(finished.wait(3000));
    }

    void startFailures_data()
    {
        QTest::addColumn<bool>("noScreen");
        QTest::addColumn<QString>("logLine");
        QTest::newRow("no screen at all") << true << "RecordingManager: no active display found.";
        QTest::newRow("manifest cannot be written")
            << false << "RecordingManager: could not write recovery manifest for";
    }

    void startFailures()
    {
        QFETCH(bool, noScreen);
        QFETCH(QString, logLine);
        RecordingBackend backend = fakeBackend(m_script);
        if (noScreen)
            backend.captureRect = &RecordingBackend::captureRectForScreen;
        else
            touch(folder() + u"/.glimmora"_s); // a file where the folder must go
        RecordingManager manager(m_settings.get(), backend);
        QSignalSpy finished(&manager, &RecordingManager::finished);
        LogCapture log;
        manager.start();
        QCOMPARE(manager.state(), RecordingManager::Failed);
        QCOMPARE(finished.size(), 1);
        QCOMPARE(finished.first(), (QVariantList { false, QString() }));
        QCOMPARE(log.matching(logLine).size(), 1);
        QVERIFY(!QFileInfo::exists(folder() + u"/.glimmora/recovery"_s));
        QCOMPARE(m_script->sessions, 0);
    }

    void workerStartFailureMarksTheManifest()
    {
        m_script->sessionError = u"Capture area is not on the screen."_s;
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy finished(&manager, &RecordingManager::finished);
        QSignalSpy stateSpy(&manager, &RecordingManager::stateChanged);
        LogCapture log;
        manager.start();
        QVERIFY(finished.wait(3000));
        QCOMPARE(manager.state(), RecordingManager::Failed);
        QCOMPARE(states(stateSpy), (QList<int> { 5, 4 }));
        QCOMPARE(finished.first().at(0).toBool(), false);
        QCOMPARE(log.matching(u"Recorder::start failed:"_s).size(), 1);
        const QString manifest = onlyFile(folder() + u"/.glimmora/recovery"_s, u".*"_s);
        const QJsonObject json = readJson(manifest);
        QCOMPARE(json.value("status").toString(), u"needs-recovery"_s);
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

    void stopOrStartAgainWhileInitialising_data()
    {
        QTest::addColumn<bool>("startAgain");
        QTest::newRow("stop saves what there is") << false;
        QTest::newRow("a second start abandons the first attempt") << true;
    }

    void stopOrStartAgainWhileInitialising()
    {
        QFETCH(bool, startAgain);
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy stateSpy(&manager, &RecordingManager::stateChanged);
        QSignalSpy finished(&manager, &RecordingManager::finished);
        QSignalSpy elapsedSpy(&manager, &RecordingManager::elapsedSecondsChanged);
        manager.start();
        if (startAgain) {
            manager.start();
            QTRY_COMPARE(manager.state(), RecordingManager::Recording);
        }
        manager.stop();
        QCOMPARE(manager.state(), RecordingManager::Saving);
        QVERIFY(finished.wait(3000));
        QTest::qWait(200);
        QCOMPARE(finished.size(), 1);
        QVERIFY(finished.first().at(0).toBool());
        QVERIFY(QFileInfo::exists(finished.first().at(1).toString()));
        QCOMPARE(manager.state(), RecordingManager::Idle);
        if (!startAgain) {
            QCOMPARE(states(stateSpy), (QList<int> { 5, 3, 0 }));
            QVERIFY2(elapsedSpy.isEmpty(), "a late started is ignored");
        }
    }

    void runtimeFaultEndsAsASavedRecording()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy finished(&manager, &RecordingManager::finished);
        startRecording(manager);
        LogCapture log;
        {
            QMutexLocker lock(&m_script->mutex);
            m_script->deliverError = u"X11 screen capture did not produce a frame."_s;
        }
        QVERIFY(finished.wait(3000));
        QCOMPARE(manager.state(), RecordingManager::Idle);
        QVERIFY(finished.first().at(0).toBool());
        QVERIFY(!log.matching(u"Recording worker failed:"_s).isEmpty());
    }

    void endingFailures_data()
    {
        QTest::addColumn<QString>("closeError");
        QTest::addColumn<QString>("logLine");
        QTest::newRow("finalising fails") << "could not write the index"
                                          << "Recorder::finish failed:";
        QTest::newRow("the final name is taken by a folder")
            << QString() << "RecordingManager: could not promote recording:";
    }

    void endingFailures()
    {
        QFETCH(QString, closeError);
        QFETCH(QString, logLine);
        m_script->closeError = closeError;
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy finished(&manager, &RecordingManager::finished);
        startRecording(manager);
        const QString working = workingVideo();
        const QString final = finalFor(working);
        if (closeError.isEmpty())
            touch(final + u"/keep"_s);
        LogCapture log;
        manager.stop();
        QVERIFY(finished.wait(3000));
        QCOMPARE(manager.state(), RecordingManager::Failed);
        QCOMPARE(finished.first(), (QVariantList { false, QString() }));
        QCOMPARE(log.matching(logLine).size(), 1);
        QVERIFY2(QFileInfo::exists(working), "the working video stays");
        QVERIFY(QFileInfo::exists(RecordingFiles::metadataPathFor(working)));
        const QJsonObject json = readJson(RecordingFiles::manifestPathFor(working));
        QCOMPARE(json.value("status").toString(), u"needs-recovery"_s);
        QCOMPARE(json.value("error").toString(),
                 closeError.isEmpty() ? u"Could not rename %1 to %2."_s.arg(working, final)
                                      : closeError);
    }

    // At quit the outcome is settled before stopForQuit returns: after it the
    // event loop is gone and could not deliver the worker's report.
    void quitSettlesTheRecordingFirst_data()
    {
        QTest::addColumn<bool>("starting");
        QTest::addColumn<QString>("closeError");
        QTest::newRow("recording") << false << QString();
        QTest::newRow("still starting") << true << QString();
        QTest::newRow("finalising fails, as on a full disk") << false << "No space left on device";
    }

    void quitSettlesTheRecordingFirst()
    {
        QFETCH(bool, starting);
        QFETCH(QString, closeError);
        m_script->closeError = closeError;
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy finished(&manager, &RecordingManager::finished);
        if (starting)
            manager.start();
        else
            startRecording(manager);
        manager.stopForQuit();
        QCOMPARE(finished.size(), 1);
        const bool saved = closeError.isEmpty();
        QCOMPARE(manager.state(), saved ? RecordingManager::Idle : RecordingManager::Failed);
        const QStringList files = filesUnder(folder());
        QCOMPARE(files.filter(u".glimmora/recovery/"_s).size(), saved ? 0 : 1);
        QCOMPARE(files.filter(QRegularExpression(u"^Glimmora-.*\\.mp4$"_s)).size(), saved ? 1 : 0);
        manager.stopForQuit(); // nothing left to stop
        QCOMPARE(finished.size(), 1);
    }

    void lostCursorFileStillSaves()
    {
        RecordingManager manager(m_settings.get(), fakeBackend(m_script));
        QSignalSpy finished(&manager, &RecordingManager::finished);
        startRecording(manager);
        const QString working = workingVideo();
        const QString final = finalFor(working);
        touch(RecordingFiles::metadataPathFor(final) + u"/keep"_s);
        LogCapture log;
        manager.stop();
        QVERIFY(finished.wait(3000));
        QCOMPARE(manager.state(), RecordingManager::Idle);
        QCOMPARE(finished.first(), (QVariantList { true, final }));
        QVERIFY(!QFileInfo::exists(RecordingFiles::manifestPathFor(working)));
        QCOMPARE(log.matching(u"RecordingManager: could not promote recording metadata:"_s).size(),
                 1);
        QCOMPARE(log.matching(u"RecordingManager: metadata saved"_s),
                 QStringList { u"RecordingManager: metadata saved \"\""_s });
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
        const QStringList found = log.matching(u"RecordingManager: recoverable recording found"_s);
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
