#include "platform/PassThroughStyle.h"

#include <QTest>

using namespace PassThroughStyle;

class tst_PassThroughStyle : public QObject
{
    Q_OBJECT

private slots:
    void styleToWrite_data();
    void styleToWrite();
};

void tst_PassThroughStyle::styleToWrite_data()
{
    QTest::addColumn<uint>("current");
    QTest::addColumn<bool>("passThrough");
    QTest::addColumn<bool>("writes");
    QTest::addColumn<uint>("written");

    const uint ready = Layered | Topmost;
    const uint other = 0x100; // an unrelated bit that must survive
    QTest::newRow("already passing through: nothing")
        << (ready | Transparent) << true << false << 0u;
    QTest::newRow("already taking the mouse: nothing") << ready << false << false << 0u;
    QTest::newRow("turn pass-through on")
        << (ready | other) << true << true << (ready | other | Transparent);
    QTest::newRow("turn pass-through off")
        << (ready | Transparent | other) << false << true << (ready | other);
    QTest::newRow("transparent but not layered gets layered")
        << (Topmost | Transparent) << true << true << (ready | Transparent);
    QTest::newRow("right bit but not topmost gets topmost")
        << uint(Layered) << false << true << ready;
    QTest::newRow("bare style takes all bits") << 0u << true << true << (ready | Transparent);
}

void tst_PassThroughStyle::styleToWrite()
{
    QFETCH(uint, current);
    QFETCH(bool, passThrough);
    QFETCH(bool, writes);
    QFETCH(uint, written);
    const std::optional<uint32_t> style = PassThroughStyle::styleToWrite(current, passThrough);
    QCOMPARE(style.has_value(), writes);
    if (writes)
        QCOMPARE(*style, written);
}

QTEST_GUILESS_MAIN(tst_PassThroughStyle)
#include "tst_passthroughstyle.moc"
