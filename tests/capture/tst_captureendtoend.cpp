#include "ProgramHome.h"
#include "XTestSession.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTest>

namespace {

constexpr QRgb grey = 0x808080;
constexpr QRgb patternColour = 0x3366cc;
const QRect pattern(300, 200, 400, 300); // on LEFT, the control display

QString run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(10000);
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

} // namespace

// The whole road of a region screenshot through the real program: the hotkey,
// a drag on the dimmed screen, the file. The program must hide its overlay
// before the grab, so the file shows the desktop undimmed.
class TestCaptureEndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_home.isValid());
        QVERIFY(m_user.isValid());
        m_pattern.start(QStringLiteral(PATTERN_WINDOW),
                        { QString::number(pattern.x()), QString::number(pattern.y()),
                          QString::number(pattern.width()), QString::number(pattern.height()),
                          "solid", QString::number(patternColour, 16) });
        QVERIFY(m_pattern.waitForReadyRead(5000));
        QTRY_COMPARE_WITH_TIMEOUT(m_user.rootPixel(pattern.topLeft()), patternColour, 5000);

        const QByteArray capture = "[capture]\nsaveFolder=" + m_home.filePath("shots").toUtf8()
            + "\nimageFormat=PNG\ncopyToClipboard=false\n";
        QVERIFY(m_home.start(m_program, capture));
        QTRY_VERIFY2_WITH_TIMEOUT(
            m_home.logLinesWith(QStringLiteral("Glimmora started.")) == 1,
            qPrintable(QStringLiteral("no start in the log:\n") + m_home.log()), 30000);
        QTest::qWait(1000); // the QML scene finishes loading after the first map
    }

    void cleanupTestCase()
    {
        for (QProcess *process : { &m_program, &m_pattern }) {
            if (process->state() == QProcess::NotRunning)
                continue;
            process->terminate();
            if (!process->waitForFinished(5000))
                process->kill();
        }
    }

    void regionByHotkeyAndDrag()
    {
        const QPoint background(1200, 800);
        QCOMPARE(m_user.rootPixel(background), grey);
        run("xdotool", { "key", "ctrl+shift+a" });
        // The selection overlay dims the control display.
        QTRY_VERIFY_WITH_TIMEOUT(qRed(m_user.rootPixel(background)) < 0x70, 5000);

        run("xdotool",
            { "mousemove", "250", "150", "mousedown", "1", "mousemove", "500", "350", "mousemove",
              "750", "550", "mouseup", "1" });

        const QDir shots(m_home.filePath("shots"));
        QTRY_COMPARE_WITH_TIMEOUT(shots.entryList({ "Glimmora-*.png" }, QDir::Files).size(), 1,
                                  10000);
        const QImage image(shots.filePath(shots.entryList({ "Glimmora-*.png" }).first()));
        QCOMPARE(image.size(), QSize(500, 400));
        const QPoint inside = pattern.topLeft() - QPoint(250, 150);
        QCOMPARE(image.pixel(inside) & 0xffffff, patternColour);
        QCOMPARE(image.pixel(inside + QPoint(-1, 0)) & 0xffffff, grey); // undimmed desktop
        QCOMPARE(image.pixel(inside + QPoint(399, 299)) & 0xffffff, patternColour);
        QCOMPARE(image.pixel(inside + QPoint(400, 299)) & 0xffffff, grey);
        // The overlay comes back undimmed after the capture.
        QTRY_COMPARE_WITH_TIMEOUT(m_user.rootPixel(background), grey, 5000);
    }

private:
    ProgramHome m_home;
    XTestSession m_user;
    QProcess m_pattern;
    QProcess m_program;
};

QTEST_MAIN(TestCaptureEndToEnd)
#include "tst_captureendtoend.moc"
