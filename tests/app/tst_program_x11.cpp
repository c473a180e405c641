#include "ProgramHome.h"
#include "XTestSession.h"

#include <QRegularExpression>
#include <QTest>

// The real program on the test display, started twice in one throw-away home,
// with no tray host.
class TestProgramX11 : public QObject
{
    Q_OBJECT

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
};

QTEST_GUILESS_MAIN(TestProgramX11)
#include "tst_program_x11.moc"
