#include "app/LanguageLoader.h"
#include "app/LogFile.h"
#include "app/SingleInstanceLock.h"
#include "app/ThemeFonts.h"
#include "platform/TerminationWatcher.h"
#include "platform/linux/LinuxSessionCapabilities.h"
#include "settings/AvailableLanguages.h"

#include <QCoreApplication>
#include <QFile>
#include <QFont>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextLayout>
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

    // Each offered language loads exactly when it is marked supported; a
    // code without a file stays English and says nothing.
    void languageLoading_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<bool>("loaded");
        for (const LanguageRow &row : availableLanguageRows)
            QTest::newRow(row.code) << QString::fromUtf8(row.code)
                                    << (row.supported && std::string_view(row.code) != "en");
        QTest::newRow("empty") << "" << false;
        QTest::newRow("unknown code") << "xx" << false;
    }

    void languageLoading()
    {
        QFETCH(QString, language);
        QFETCH(bool, loaded);
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
        QTranslator translator;
        QCOMPARE(LanguageLoader::load(translator, language), loaded);
        QCOMPARE(translator.isEmpty(), !loaded);
        const QString cursor = translator.translate("ModeBadge", "Cursor");
        QCOMPARE(cursor.isEmpty(), !loaded);
        QVERIFY(cursor != QLatin1String("Cursor"));
    }

    // A damaged file replaces a good translation with none, never with a part.
    void damagedTranslationLoadsNothing_data()
    {
        QTest::addColumn<QByteArray>("damage");
        QFile file(QStringLiteral(":/translations/glimmora_de.qm"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray good = file.readAll();
        QVERIFY(good.size() > 64);
        QTest::newRow("cut in half") << good.left(good.size() / 2);
        QTest::newRow("cut one byte short") << good.chopped(1);
        QTest::newRow("magic number only") << good.left(16);
        QByteArray badLength = good;
        // The first block's length, just after the magic number and tag.
        badLength[17] = char(0x7f);
        QTest::newRow("block longer than the file") << badLength;
        QTest::newRow("not a translation") << QByteArray("<TS version=\"2.1\"></TS>");
    }

    void damagedTranslationLoadsNothing()
    {
        QFETCH(QByteArray, damage);
        QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("glimmora_de.qm")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(damage) == damage.size());
        file.close();

        QTranslator translator;
        QVERIFY(LanguageLoader::load(translator, QStringLiteral("de")));
        QVERIFY(!LanguageLoader::load(translator, QStringLiteral("de"),
                                      dir.filePath(QStringLiteral("glimmora_"))));
        QVERIFY(translator.isEmpty());
        QCOMPARE(translator.translate("ModeBadge", "Cursor"), QString());
    }

    // Chinese, Japanese and Korean texts show as glyphs in each face of the
    // theme, not as empty boxes: the bundled faces have no such glyphs.
    void cjkTranslationsHaveGlyphs_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("familyList");
        ThemeFonts::addBundledFonts();
        ThemeFonts::installFamilyLists();
        for (const char *language : { "ja", "ko", "zh-CN" }) {
            for (const QString &list : ThemeFonts::familyLists())
                QTest::addRow("%s in %s", language, qPrintable(list)) << language << list;
        }
    }

    void cjkTranslationsHaveGlyphs()
    {
        QFETCH(QString, language);
        QFETCH(QString, familyList);
        QTranslator translator;
        QVERIFY(LanguageLoader::load(translator, language));
        const QString text = translator.translate("OnboardingCard", "Welcome to Glimmora")
            + translator.translate("ShortcutReferenceCard", "tap to toggle · hold to peek");
        QTextLayout layout(text, QFont(familyList));
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        const QList<QGlyphRun> runs = layout.glyphRuns();
        QVERIFY(!runs.isEmpty());
        for (const QGlyphRun &run : runs) {
            const QList<quint32> glyphs = run.glyphIndexes();
            QVERIFY2(!glyphs.contains(0u), qPrintable(run.rawFont().familyName()));
        }
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
        QTest::addColumn<bool>("compositing");
        QTest::addColumn<QString>("backend");
        QTest::addColumn<QString>("reportedSession");
        // hotkeys, click-through, input visualisation, portal required, magnifier
        QTest::addColumn<QList<bool>>("answers");

        const auto row = [](const char *name, const char *platform, const char *type,
                            const char *wayland, bool shape, bool xinput2, const char *backend,
                            const char *session, QList<bool> answers, bool compositing = true) {
            QTest::newRow(name) << QString(platform) << QString(type) << QString(wayland) << shape
                                << xinput2 << compositing << QString(backend) << QString(session)
                                << answers;
        };
        const QList<bool> x11 { true, true, true, false, true };
        const QList<bool> xwayland { false, true, false, true, false };
        row("native X11 with both extensions", "xcb", "x11", "", true, true, "X11", "x11", x11);
        row("X11 without SHAPE has no click-through", "xcb", "", "", false, true, "X11", "x11",
            { true, false, true, false, true });
        row("X11 without XInput 2 shows no keys", "xcb", "x11", "", true, false, "X11", "x11",
            { true, true, false, false, true });
        row("X11 without a compositing manager has no magnifier", "xcb", "x11", "", true, true,
            "X11", "x11", { true, true, true, false, false }, false);
        row("XWayland by session type", "xcb", "wayland", "wayland-0", true, true, "XWayland",
            "wayland", xwayland);
        row("XWayland by WAYLAND_DISPLAY alone", "xcb", "", "wayland-0", true, true, "XWayland",
            "wayland", xwayland);
        row("tty session type with a Wayland socket is not Wayland", "xcb", "tty", "wayland-0",
            true, true, "X11", "tty", x11);
        row("native Wayland platform", "wayland", "wayland", "wayland-0", false, false, "Wayland",
            "wayland", { false, false, false, true, false });
        row("offscreen has nothing", "offscreen", "", "", false, false, "offscreen", "x11",
            { false, false, false, false, false });
    }

    void sessionAnswers()
    {
        QFETCH(QString, platform);
        QFETCH(QString, sessionType);
        QFETCH(QString, waylandDisplay);
        QFETCH(bool, shape);
        QFETCH(bool, xinput2);
        QFETCH(bool, compositing);
        QFETCH(QString, backend);
        QFETCH(QString, reportedSession);
        QFETCH(QList<bool>, answers);

        const LinuxSessionCapabilities caps(
            { platform, sessionType, waylandDisplay, shape, xinput2, compositing });
        QCOMPARE(caps.windowingBackend(), backend);
        QCOMPARE(caps.sessionType(), reportedSession);
        QCOMPARE(caps.usesX11Backend(), platform == QLatin1String("xcb"));
        QCOMPARE((QList<bool> { caps.hotkeysAvailable(), caps.clickThroughAvailable(),
                                caps.inputVisualizationAvailable(), caps.portalRequired(),
                                caps.magnifierAvailable() }),
                 answers);
        // The summary names every feature that is missing, and why the
        // magnifier is off where a desktop could have one.
        const QString summary = caps.summary();
        QCOMPARE(summary.contains(QStringLiteral("Not available")),
                 answers.mid(0, 3).contains(false) || !answers.at(4));
        QCOMPARE(summary.contains(QStringLiteral("portal")), answers.at(3));
        if (!answers.at(0))
            QVERIFY(summary.contains(QStringLiteral("global hotkeys")));
        QCOMPARE(summary.contains(QStringLiteral("compositing manager")),
                 backend == QLatin1String("X11") && !answers.at(4));
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
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    TestStartupPieces test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_startuppieces.moc"
