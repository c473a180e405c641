#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

// Starts the real program on the test display, each test with its own data,
// configuration and temporary directory, so neither the user's settings nor
// another run's single-instance lock are touched.
class TestProgramX11 : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> home;
    QProcessEnvironment environment;

    QString logPath() const
    {
        return home->path() + QStringLiteral("/data/Orvelline/Glimmora/glimmora.log");
    }

    QStringList logLines() const
    {
        QFile file(logPath());
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            return {};
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }

    int linesEndingWith(const QString &text) const
    {
        const QStringList lines = logLines();
        return int(std::count_if(lines.cbegin(), lines.cend(),
                                 [&](const QString &line) { return line.contains(text); }));
    }

    // No quit dialog: the shortcut quits at once. Written by hand before each
    // start, since QSettings writes the group "general" as "[%General]", which
    // another process reads back as "General"; "%65" spells the lower-case group.
    void writeConfig()
    {
        QVERIFY(QDir().mkpath(home->path() + QStringLiteral("/config/Orvelline")));
        QFile config(home->path() + QStringLiteral("/config/Orvelline/Glimmora.conf"));
        QVERIFY(config.open(QIODevice::WriteOnly));
        config.write("[gen%65ral]\nconfirmQuit=false\nfirstRunDone=true\n");
    }

    void start(QProcess &process)
    {
        writeConfig();
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(QStringLiteral(GLIMMORA_BINARY), {});
        QVERIFY(process.waitForStarted(10000));
    }

    static QString xdotool(const QStringList &args)
    {
        QProcess tool;
        tool.start(QStringLiteral("xdotool"), args);
        tool.waitForFinished(30000);
        return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
    }

    // Quits the way a presenter does: the quit shortcut on a focused window.
    static void pressQuitShortcut(const QProcess &process)
    {
        const QString window =
            xdotool({ QStringLiteral("search"), QStringLiteral("--sync"), QStringLiteral("--pid"),
                      QString::number(process.processId()), QStringLiteral("--name"),
                      QStringLiteral("^Glimmora$") })
                .section(u'\n', 0, 0);
        QVERIFY2(!window.isEmpty(), "the main window is not on the display");
        xdotool({ QStringLiteral("windowfocus"), QStringLiteral("--sync"), window });
        xdotool({ QStringLiteral("key"), QStringLiteral("ctrl+shift+q") });
    }

private slots:
    void init()
    {
        home = std::make_unique<QTemporaryDir>();
        QVERIFY(home->isValid());
        for (const char *sub : { "data", "config", "tmp" })
            QVERIFY(QDir(home->path()).mkdir(QString::fromLatin1(sub)));
        environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), home->path() + QStringLiteral("/data"));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                           home->path() + QStringLiteral("/config"));
        // The lock's key file lives in the temporary directory.
        environment.insert(QStringLiteral("TMPDIR"), home->path() + QStringLiteral("/tmp"));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    }

    void secondInstanceStandsDownAndFirstQuitsCleanly()
    {
        QProcess first;
        start(first);
        QTRY_COMPARE_WITH_TIMEOUT(linesEndingWith(QStringLiteral("Glimmora started.")), 1, 30000);

        QProcess second;
        start(second);
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(linesEndingWith(
                     QStringLiteral("[warning] Another instance of Glimmora is already running.")),
                 1);
        // The second instance built nothing.
        QCOMPARE(linesEndingWith(QStringLiteral("Initializing managers...")), 1);
        QCOMPARE(first.state(), QProcess::Running);

        pressQuitShortcut(first);
        QVERIFY(first.waitForFinished(20000));
        QCOMPARE(first.exitStatus(), QProcess::NormalExit);
        QCOMPARE(first.exitCode(), 0);
    }

    void logLinesHaveTheirFormatAndOrder()
    {
        QProcess program;
        start(program);
        QTRY_COMPARE_WITH_TIMEOUT(linesEndingWith(QStringLiteral("Glimmora started.")), 1, 30000);
        program.kill();
        program.waitForFinished(10000);

        // Every line survives the kill and has the one shape.
        const QRegularExpression shape(QStringLiteral(
            R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3} \[(debug|info|warning|critical|fatal)\] .*$)"));
        const QStringList lines = logLines();
        for (const QString &line : lines)
            QVERIFY2(shape.match(line).hasMatch(), qPrintable(line));
        const QStringList milestones { QStringLiteral("] Initializing managers..."),
                                       QStringLiteral("] Loading QML engine..."),
                                       QStringLiteral("] Glimmora started.") };
        qsizetype previous = -1;
        for (const QString &milestone : milestones) {
            const auto it = std::find_if(lines.cbegin(), lines.cend(), [&](const QString &line) {
                return line.endsWith(milestone) && line.contains(QStringLiteral(" [debug] "));
            });
            QVERIFY2(it != lines.cend(), qPrintable(milestone));
            QVERIFY(it - lines.cbegin() > previous);
            previous = it - lines.cbegin();
        }
    }

    void killedInstanceDoesNotLockTheNextStart()
    {
        QProcess crashed;
        start(crashed);
        QTRY_COMPARE_WITH_TIMEOUT(linesEndingWith(QStringLiteral("Glimmora started.")), 1, 30000);
        ::kill(pid_t(crashed.processId()), SIGKILL);
        QVERIFY(crashed.waitForFinished(10000));

        QProcess next;
        start(next);
        QTRY_COMPARE_WITH_TIMEOUT(linesEndingWith(QStringLiteral("Glimmora started.")), 2, 30000);
        QCOMPARE(linesEndingWith(QStringLiteral("Another instance")), 0);
        pressQuitShortcut(next);
        QVERIFY(next.waitForFinished(20000));
        QCOMPARE(next.exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(TestProgramX11)
#include "tst_program_x11.moc"
