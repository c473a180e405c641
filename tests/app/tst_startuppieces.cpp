#include "app/LanguageLoader.h"
#include "app/LogFile.h"
#include "app/SingleInstanceLock.h"
#include "platform/TerminationWatcher.h"
#include "platform/linux/LinuxSessionCapabilities.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTranslator>

#include <csignal>
#include <cstdio>
#include <string_view>
#include <unistd.h>

namespace {
QString lockKey()
{
    return QStringLiteral("GlimmoraTestLock_%1").arg(QCoreApplication::applicationPid());
}
} // namespace

class TestStartupPieces : public QObject
{
    Q_OBJECT

private slots:
    void logLineFormat_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("line");

        const QString stamp = QStringLiteral("2026-11-23T05:32:07.045 ");
        const std::pair<QtMsgType, const char *> levels[] = { { QtDebugMsg, "debug" },
                                                              { QtInfoMsg, "info" },
                                                              { QtWarningMsg, "warning" },
                                                              { QtCriticalMsg, "critical" },
                                                              { QtFatalMsg, "fatal" } };
        for (const auto &[type, name] : levels)
            QTest::newRow(name) << int(type) << QByteArray() << stamp + "[" + name + "] hello";
        QTest::newRow("with a source location")
            << int(QtWarningMsg) << QByteArray("src/app/Startup.cpp")
            << stamp + "[warning] hello (src/app/Startup.cpp:42)";
    }

    void logLineFormat()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, file);
        QFETCH(QString, line);
        const QMessageLogContext context(file.isEmpty() ? nullptr : file.constData(), 42,
                                         "function", "glimmora.test");
        const QDateTime time(QDate(2026, 11, 23), QTime(5, 32, 7, 45));
        QCOMPARE(LogFile::formatLine(QtMsgType(type), context, QStringLiteral("hello"), time),
                 line + QLatin1Char('\n'));
    }

    void handlerAppendsWholeLinesFromManyThreads()
    {
        QTemporaryDir data;
        qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
        const QString path = LogFile::path();
        QCOMPARE(path, data.path() + QStringLiteral("/Glimmora/glimmora.log"));
        QVERIFY(QFile::exists(data.path() + QStringLiteral("/Glimmora")));

        QFile::remove(path);
        const QMessageLogContext context;
        QList<QThread *> threads;
        for (int t = 0; t < 4; ++t) {
            threads.append(QThread::create([t, &context] {
                for (int i = 0; i < 50; ++i)
                    LogFile::messageHandler(QtInfoMsg, context,
                                            QStringLiteral("thread %1 line %2").arg(t).arg(i));
            }));
            threads.last()->start();
        }
        for (QThread *thread : std::as_const(threads)) {
            thread->wait();
            delete thread;
        }
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
        const QStringList lines =
            QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 200);
        const QRegularExpression shape(QStringLiteral(
            R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3} \[info\] thread \d line \d+$)"));
        for (const QString &line : lines)
            QVERIFY2(shape.match(line).hasMatch(), qPrintable(line));
        qunsetenv("XDG_DATA_HOME");
    }

    void lockAgainstAnotherProcess_data()
    {
        QTest::addColumn<QString>("ownerMode");
        QTest::addColumn<bool>("lockable");
        QTest::newRow("a live owner keeps the lock") << "hold" << false;
        QTest::newRow("an owner killed with SIGKILL leaves no lock behind") << "kill" << true;
        QTest::newRow("an owner that exited cleanly leaves no lock behind") << "exit" << true;
    }

    void lockAgainstAnotherProcess()
    {
        QFETCH(QString, ownerMode);
        QFETCH(bool, lockable);

        QProcess owner;
        owner.start(QCoreApplication::applicationFilePath(), { ownerMode, lockKey() });
        QVERIFY(owner.waitForReadyRead(10000));
        QCOMPARE(owner.readLine().trimmed(), QByteArray("locked"));
        if (ownerMode != QLatin1String("hold")) {
            QVERIFY(owner.waitForFinished(10000));
            if (ownerMode == QLatin1String("kill")) {
                QCOMPARE(owner.exitStatus(), QProcess::CrashExit);
                // The segment really outlived its owner: a plain create fails.
                QSharedMemory naive(lockKey());
                QVERIFY(!naive.create(1));
            }
        }

        SingleInstanceLock lock(lockKey());
        QCOMPARE(lock.tryLock(), lockable);
        owner.closeWriteChannel();
        owner.waitForFinished(10000);
    }

    void secondLockInTheSameProcessFails()
    {
        SingleInstanceLock first(lockKey());
        QVERIFY(first.tryLock());
        SingleInstanceLock second(lockKey());
        QVERIFY(!second.tryLock());
    }

    void languageLoading_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<bool>("loaded");
        QTest::newRow("English needs nothing") << "en" << false;
        QTest::newRow("empty needs nothing") << "" << false;
        QTest::newRow("a language without a file stays English") << "nl" << false;
    }

    void languageLoading()
    {
        QFETCH(QString, language);
        QFETCH(bool, loaded);
        QTranslator translator;
        QCOMPARE(LanguageLoader::load(translator, language), loaded);
        QVERIFY(translator.isEmpty());
    }

    void terminationSignalReachesTheEventLoopOnce_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("name");
        QTest::newRow("logout, service stop, kill") << int(SIGTERM) << "SIGTERM";
        QTest::newRow("Ctrl+C in a terminal") << int(SIGINT) << "SIGINT";
        QTest::newRow("the terminal closed") << int(SIGHUP) << "SIGHUP";
    }

    void terminationSignalReachesTheEventLoopOnce()
    {
        QFETCH(int, number);
        const std::unique_ptr<TerminationWatcher> watcher = TerminationWatcher::create();
        QSignalSpy requested(watcher.get(), &TerminationWatcher::terminationRequested);
        ::raise(number);
        // Nothing happens inside the handler: the request comes from the loop.
        QCOMPARE(requested.count(), 0);
        QVERIFY(requested.wait(5000));
        QCOMPARE(requested.count(), 1);
        QTEST(requested.first().first().toString(), "name");
        // A second one would now end the process at once.
        struct sigaction action = {};
        QCOMPARE(sigaction(number, nullptr, &action), 0);
        QVERIFY(action.sa_handler == SIG_DFL);
    }

    void sessionAnswers_data()
    {
        QTest::addColumn<QString>("platform");
        QTest::addColumn<QString>("sessionType");
        QTest::addColumn<QString>("waylandDisplay");
        QTest::addColumn<bool>("shape");
        QTest::addColumn<bool>("xinput2");
        QTest::addColumn<QString>("backend");
        QTest::addColumn<QString>("reportedSession");
        // hotkeys, click-through, input visualisation, portal required
        QTest::addColumn<QList<bool>>("answers");

        const auto row = [](const char *name, const char *platform, const char *type,
                            const char *wayland, bool shape, bool xinput2, const char *backend,
                            const char *session, QList<bool> answers) {
            QTest::newRow(name) << QString(platform) << QString(type) << QString(wayland) << shape
                                << xinput2 << QString(backend) << QString(session) << answers;
        };
        const QList<bool> x11 { true, true, true, false };
        const QList<bool> xwayland { false, true, false, true };
        row("native X11 with both extensions", "xcb", "x11", "", true, true, "X11", "x11", x11);
        row("X11 without SHAPE has no click-through", "xcb", "", "", false, true, "X11", "x11",
            { true, false, true, false });
        row("X11 without XInput 2 shows no keys", "xcb", "x11", "", true, false, "X11", "x11",
            { true, true, false, false });
        row("XWayland by session type", "xcb", "wayland", "wayland-0", true, true, "XWayland",
            "wayland", xwayland);
        row("XWayland by WAYLAND_DISPLAY alone", "xcb", "", "wayland-0", true, true, "XWayland",
            "wayland", xwayland);
        row("tty session type with a Wayland socket is not Wayland", "xcb", "tty", "wayland-0",
            true, true, "X11", "tty", x11);
        row("native Wayland platform", "wayland", "wayland", "wayland-0", false, false, "Wayland",
            "wayland", { false, false, false, true });
        row("offscreen has nothing", "offscreen", "", "", false, false, "offscreen", "x11",
            { false, false, false, false });
    }

    void sessionAnswers()
    {
        QFETCH(QString, platform);
        QFETCH(QString, sessionType);
        QFETCH(QString, waylandDisplay);
        QFETCH(bool, shape);
        QFETCH(bool, xinput2);
        QFETCH(QString, backend);
        QFETCH(QString, reportedSession);
        QFETCH(QList<bool>, answers);

        const LinuxSessionCapabilities caps(
            { platform, sessionType, waylandDisplay, shape, xinput2 });
        QCOMPARE(caps.windowingBackend(), backend);
        QCOMPARE(caps.sessionType(), reportedSession);
        QCOMPARE(caps.usesX11Backend(), platform == QLatin1String("xcb"));
        QCOMPARE((QList<bool> { caps.hotkeysAvailable(), caps.clickThroughAvailable(),
                                caps.inputVisualizationAvailable(), caps.portalRequired() }),
                 answers);
        // The summary names every feature that is missing.
        const QString summary = caps.summary();
        QCOMPARE(summary.contains(QStringLiteral("Not available")),
                 answers.mid(0, 3).contains(false));
        QCOMPARE(summary.contains(QStringLiteral("portal")), answers.at(3));
        if (!answers.at(0))
            QVERIFY(summary.contains(QStringLiteral("global hotkeys")));
    }
};

int main(int argc, char *argv[])
{
    // Helper role: hold the lock in a process of its own, then hold it,
    // die by SIGKILL or exit cleanly.
    const std::string_view mode(argc == 3 ? argv[1] : "");
    if (mode == "hold" || mode == "kill" || mode == "exit") {
        SingleInstanceLock lock(QString::fromLocal8Bit(argv[2]));
        if (!lock.tryLock())
            return 2;
        std::puts("locked");
        std::fflush(stdout);
        if (mode == "kill")
            ::kill(::getpid(), SIGKILL);
        if (mode == "hold") {
            char c;
            while (::read(STDIN_FILENO, &c, 1) > 0) { }
        }
        return 0;
    }
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    TestStartupPieces test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_startuppieces.moc"
