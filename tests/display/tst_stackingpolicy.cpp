#include "display/StackingPolicy.h"

#include <QTest>

namespace {

// A stack written bottom to top: a, b, c ordinary windows; S, M, H ours (a
// secondary overlay, the main overlay, the HUD, wanted in that order); L, N
// other programs' override-redirect windows; P a popup menu of our own.
// A trailing "~" marks a window that is not viewable.
QList<StackedWindow> stackOf(const QString &text)
{
    QList<StackedWindow> stack;
    for (const QString &token : text.split(u' ', Qt::SkipEmptyParts)) {
        const QChar name = token.at(0);
        StackedWindow window;
        window.id = name.unicode();
        window.viewable = !token.endsWith(u'~');
        window.overrideRedirect = QStringLiteral("SMHLNP").contains(name);
        window.fromThisProgram = QStringLiteral("SMHP").contains(name);
        stack.append(window);
    }
    return stack;
}

const QList<uint32_t> ours { 'S', 'M', 'H' };

// "S>b" puts S directly above b.
QString stepsText(const QList<RestackStep> &steps)
{
    QStringList parts;
    for (const RestackStep &step : steps)
        parts << QStringLiteral("%1>%2").arg(QChar(step.window)).arg(QChar(step.sibling));
    return parts.join(u' ');
}

QString windowsText(const QList<uint32_t> &windows)
{
    QString text;
    for (uint32_t window : windows)
        text += QChar(window);
    return text;
}

} // namespace

class tst_StackingPolicy : public QObject
{
    Q_OBJECT

private slots:
    void restack_data();
    void restack();
    void windowsAboveOurs_data();
    void windowsAboveOurs();
    void coversAMonitor_data();
    void coversAMonitor();
};

void tst_StackingPolicy::restack_data()
{
    QTest::addColumn<QString>("stack");
    QTest::addColumn<QString>("steps");
    QTest::newRow("in place: nothing to do") << "a b S M H"
                                             << "";
    QTest::newRow("a window mapped or raised above: all go above it, in order") << "a S M H b"
                                                                                << "S>b M>S H>M";
    QTest::newRow("a window raised between them") << "a S b M H"
                                                  << "S>b M>S H>M";
    QTest::newRow("another program's later menu or locker stays above") << "a S M H L"
                                                                        << "";
    QTest::newRow("the HUD below an overlay is put back on top") << "a S H M"
                                                                 << "S>a M>S H>M";
    QTest::newRow("without ordinary windows only the order is mended") << "H M S"
                                                                       << "M>S H>M";
    QTest::newRow("an ordinary window that is not viewable counts for nothing") << "a S M b~ H"
                                                                                << "";
    QTest::newRow("a hidden window of ours is left alone") << "a S~ M H b"
                                                           << "M>b H>M";
    QTest::newRow("our own popup is no ordinary window") << "a S M H P"
                                                         << "";
    QTest::newRow("nothing of ours on screen") << "a S~ M~ H~ b"
                                               << "";
    QTest::newRow("a buried override-redirect window does not hold them down") << "a L S M H b"
                                                                               << "S>b M>S H>M";
}

void tst_StackingPolicy::restack()
{
    QFETCH(QString, stack);
    QFETCH(QString, steps);
    QCOMPARE(stepsText(StackingPolicy::restack(stackOf(stack), ours)), steps);
}

void tst_StackingPolicy::windowsAboveOurs_data()
{
    QTest::addColumn<QString>("stack");
    QTest::addColumn<QString>("above");
    QTest::newRow("another program's override-redirect window on top") << "a S M H L"
                                                                       << "L";
    QTest::newRow("ordinary windows, our popup and hidden windows do not count") << "a S M H b P N~"
                                                                                 << "";
    QTest::newRow("one below ours does not count") << "L a S M H"
                                                   << "";
    QTest::newRow("above the top-most viewable one of ours") << "a S M L H~ N"
                                                             << "LN";
    QTest::newRow("nothing of ours on screen") << "a S~ M~ H~ L"
                                               << "";
}

void tst_StackingPolicy::windowsAboveOurs()
{
    QFETCH(QString, stack);
    QFETCH(QString, above);
    QCOMPARE(windowsText(StackingPolicy::windowsAboveOurs(stackOf(stack), ours)), above);
}

void tst_StackingPolicy::coversAMonitor_data()
{
    QTest::addColumn<QRect>("window");
    QTest::addColumn<bool>("covers");
    QTest::newRow("the whole screen") << QRect(0, 0, 3840, 1080) << true;
    QTest::newRow("exactly the right monitor") << QRect(1920, 0, 1920, 1080) << true;
    QTest::newRow("a pixel short of it") << QRect(1920, 0, 1919, 1080) << false;
    QTest::newRow("a monitor's size across both") << QRect(960, 0, 1920, 1080) << false;
    QTest::newRow("a menu") << QRect(100, 100, 300, 400) << false;
}

void tst_StackingPolicy::coversAMonitor()
{
    QFETCH(QRect, window);
    QFETCH(bool, covers);
    const QList<QRect> monitors { QRect(0, 0, 1920, 1080), QRect(1920, 0, 1920, 1080) };
    QCOMPARE(StackingPolicy::coversAMonitor(window, monitors), covers);
}

QTEST_GUILESS_MAIN(tst_StackingPolicy)
#include "tst_stackingpolicy.moc"
