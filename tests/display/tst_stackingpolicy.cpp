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

// "S>b" puts S directly above b, "S<L" directly below L.
QString stepsText(const QList<RestackStep> &steps)
{
    QStringList parts;
    for (const RestackStep &step : steps)
        parts << QStringLiteral("%1%2%3")
                     .arg(QChar(step.window))
                     .arg(QChar(step.below ? u'<' : u'>'))
                     .arg(QChar(step.sibling));
    return parts.join(u' ');
}

QList<uint32_t> idsOf(const QString &names)
{
    QList<uint32_t> ids;
    for (QChar name : names)
        ids.append(name.unicode());
    return ids;
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
    QTest::addColumn<QString>("later"); // other programs' windows that came above ours
    QTest::addColumn<QString>("steps");
    const auto row = [](const char *name, const char *stack, const char *later, const char *steps) {
        QTest::newRow(name) << QString(stack) << QString(later) << QString(steps);
    };
    row("in place: nothing to do", "a b S M H", "", "");
    row("a window mapped or raised above: all go above it, in order", "a S M H b", "",
        "S>b M>S H>M");
    row("a window raised between them", "a S b M H", "", "S>b M>S H>M");
    row("another program's later menu or locker stays above", "a S M H L", "L", "");
    row("the HUD below an overlay is put back on top", "a S H M", "", "S>a M>S H>M");
    row("without ordinary windows only the order is mended", "H M S", "", "M>S H>M");
    row("an ordinary window that is not viewable counts for nothing", "a S M b~ H", "", "");
    row("a hidden window of ours is left alone", "a S~ M H b", "", "M>b H>M");
    row("our own popup is no ordinary window", "a S M H P", "", "");
    row("nothing of ours on screen", "a S~ M~ H~ b", "", "");
    row("an override-redirect window below ours holds nothing down", "a L S M H b", "",
        "S>b M>S H>M");
    row("a window raised over a later menu is out of reach", "a S M H L b", "L", "");
    row("ours above a later window go back below it", "a L S M H", "L", "S>a M>S H>M");
    row("below a later window with no ordinary window under it", "L S M H", "L", "S<L M>S H>M");
    row("a window raised to just under a later one is reached", "a S M H b L", "L", "S>b M>S H>M");
}

void tst_StackingPolicy::restack()
{
    QFETCH(QString, stack);
    QFETCH(QString, later);
    QFETCH(QString, steps);
    QCOMPARE(stepsText(StackingPolicy::restack(stackOf(stack), ours, idsOf(later))), steps);
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
