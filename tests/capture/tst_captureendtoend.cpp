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
const QRect rightPattern(2400, 500, 300, 200);
const QRect left(0, 0, 1920, 1080);
const QRect right(1920, 0, 1920, 1080);

QString run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(10000);
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

// Empty when the two pictures agree pixel for pixel; else where they differ.
QString difference(const QImage &got, const QImage &want)
{
    if (got.size() != want.size())
        return QStringLiteral("sizes differ");
    int count = 0;
    QPoint first;
    for (int y = 0; y < want.height(); ++y) {
        for (int x = 0; x < want.width(); ++x) {
            const QRgb a = got.pixel(x, y);
            const QRgb b = want.pixel(x, y);
            if (qAbs(qRed(a) - qRed(b)) > 2 || qAbs(qGreen(a) - qGreen(b)) > 2
                || qAbs(qBlue(a) - qBlue(b)) > 2) {
                if (count++ == 0)
                    first = QPoint(x, y);
            }
        }
    }
    return count == 0 ? QString()
                      : QStringLiteral("%1 pixels differ, the first at %2,%3")
                            .arg(count)
                            .arg(first.x())
                            .arg(first.y());
}

} // namespace

// The whole road of a screenshot through the real program: the hotkey, a drag
// on the dimmed screen for a region, the file. The program must hide its
// overlay and everything of its controls before the grab, so the file shows
// the desktop as it is without the program.
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
        m_rightPattern.start(QStringLiteral(PATTERN_WINDOW),
                             { QString::number(rightPattern.x()), QString::number(rightPattern.y()),
                               QString::number(rightPattern.width()),
                               QString::number(rightPattern.height()), "quadrants" });
        QVERIFY(m_rightPattern.waitForReadyRead(5000));
        QTRY_VERIFY_WITH_TIMEOUT(m_user.rootPixel(rightPattern.topLeft()) != grey, 5000);
        // The displays as they look without the program.
        m_withoutProgram = { m_user.rootImage(left), m_user.rootImage(right) };

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
        for (QProcess *process : { &m_program, &m_pattern, &m_rightPattern }) {
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
        // Once the start's and any earlier capture's feedback has faded.
        QTRY_COMPARE_WITH_TIMEOUT(m_user.rootPixel(background), grey, 10000);
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
        QTRY_COMPARE_WITH_TIMEOUT(m_user.rootPixel(background), grey, 10000);
    }

    // The key caps of the hotkey, the toast of the capture before, the cards
    // and the toolbar: nothing of them is in the file, on either display.
    void fullScreenByHotkeyHoldsNothingOfTheControls()
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_user.rootPixel(QPoint(1200, 800)), grey, 10000);
        for (int i = 0; i < 2; ++i) {
            const QString differs = captureByHotkeyAgainst(m_withoutProgram.first);
            QVERIFY2(differs.isEmpty(), qPrintable(differs));
        }

        // The presenter drags the toolbar by its handle over to the right
        // display, in steps a hand makes.
        m_user.moveTo(QPoint(960, 20));
        QTest::qWait(300);
        m_user.press(1);
        for (const QPoint step :
             { QPoint(1000, 60), QPoint(1600, 200), QPoint(2400, 300), QPoint(2880, 300) }) {
            QTest::qWait(100);
            m_user.moveTo(step);
        }
        QTest::qWait(200);
        m_user.release(1);
        // The mode badge in the top left corner has moved with the controls.
        const auto badgeOn = [&](int left) {
            const QImage corner = m_user.rootImage(QRect(left + 30, 30, 150, 24));
            int dark = 0;
            for (int y = 0; y < corner.height(); ++y) {
                for (int x = 0; x < corner.width(); ++x)
                    dark += qRed(corner.pixel(x, y)) < 0x40;
            }
            return dark > corner.width() * corner.height() / 2;
        };
        QTRY_VERIFY_WITH_TIMEOUT(badgeOn(1920) && !badgeOn(0), 10000);
        const QString differs = captureByHotkeyAgainst(m_withoutProgram.second);
        QVERIFY2(differs.isEmpty(), qPrintable(differs));
    }

private:
    // Takes a screenshot of the control display by its hotkey and compares the
    // new file with `want`; empty when they agree.
    QString captureByHotkeyAgainst(const QImage &want)
    {
        const QDir shots(m_home.filePath("shots"));
        const qsizetype before = shots.entryList({ "Glimmora-*.png" }, QDir::Files).size();
        run("xdotool", { "key", "ctrl+shift+s" });
        if (!QTest::qWaitFor(
                [&] { return shots.entryList({ "Glimmora-*.png" }, QDir::Files).size() > before; },
                10000))
            return QStringLiteral("no new file");
        const QStringList newestFirst =
            shots.entryList({ "Glimmora-*.png" }, QDir::Files, QDir::Time);
        return difference(
            QImage(shots.filePath(newestFirst.first())).convertToFormat(QImage::Format_RGB32),
            want);
    }

    ProgramHome m_home;
    XTestSession m_user;
    QProcess m_pattern;
    QProcess m_rightPattern;
    QPair<QImage, QImage> m_withoutProgram;
    QProcess m_program;
};

QTEST_MAIN(TestCaptureEndToEnd)
#include "tst_captureendtoend.moc"
