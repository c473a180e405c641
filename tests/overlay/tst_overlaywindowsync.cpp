#include "display/OverlayWindowManager.h"

#include <QTest>

namespace {
QVariantMap display(const QString &id, bool enabled)
{
    return { { QStringLiteral("id"), id }, { QStringLiteral("enabled"), enabled } };
}
} // namespace

class tst_OverlayWindowSync : public QObject
{
    Q_OBJECT

private slots:
    void wantedSecondaryIds_data();
    void wantedSecondaryIds();
};

void tst_OverlayWindowSync::wantedSecondaryIds_data()
{
    QTest::addColumn<QVariantList>("displays");
    QTest::addColumn<QString>("control");
    QTest::addColumn<bool>("inMotion");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QStringList>("wanted");

    const QVariantList three { display("a", true), display("b", true), display("c", true) };
    const QVariantList bOff { display("a", true), display("b", false), display("c", true) };
    QTest::newRow("every enabled display but the control display")
        << three << "b" << false << "" << QStringList { "a", "c" };
    QTest::newRow("a display that is off gets none")
        << bOff << "a" << false << "" << QStringList { "c" };
    QTest::newRow("the drop target gets one while the toolbar moves, even when off")
        << bOff << "a" << true << "b" << QStringList { "c", "b" };
    QTest::newRow("the drop target is forgotten once the move ends")
        << bOff << "a" << false << "b" << QStringList { "c" };
    QTest::newRow("a target on the control display adds nothing")
        << bOff << "a" << true << "a" << QStringList { "c" };
    QTest::newRow("an enabled target is listed once")
        << bOff << "a" << true << "c" << QStringList { "c" };
    QTest::newRow("no target while moving adds nothing")
        << bOff << "a" << true << "" << QStringList { "c" };
    QTest::newRow("two screens sharing an id get one window")
        << QVariantList { display("a", true), display("b", true), display("b", true) } << "a"
        << false << "" << QStringList { "b" };
    QTest::newRow("no control display yet: every enabled display")
        << bOff << "" << false << "" << QStringList { "a", "c" };
    QTest::newRow("no displays at all")
        << QVariantList {} << "" << true << "x" << QStringList { "x" };
}

void tst_OverlayWindowSync::wantedSecondaryIds()
{
    QFETCH(QVariantList, displays);
    QFETCH(QString, control);
    QFETCH(bool, inMotion);
    QFETCH(QString, target);
    QFETCH(QStringList, wanted);
    QCOMPARE(OverlayWindowManager::wantedSecondaryIds(displays, control, inMotion, target), wanted);
}

QTEST_GUILESS_MAIN(tst_OverlayWindowSync)
#include "tst_overlaywindowsync.moc"
