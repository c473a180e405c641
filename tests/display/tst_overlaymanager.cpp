#include "display/OverlayManager.h"

#include <QSignalSpy>
#include <QTest>
#include <QWindow>

namespace {
// Records every pass-through write, as the window system would see them.
class FakePassThrough final : public WindowPassThrough
{
public:
    struct Write
    {
        QWindow *window;
        bool passThrough;
    };

    void setPassThrough(QWindow *window, bool passThrough) override
    {
        writes->append({ window, passThrough });
    }
    void excludeFromCapture(QWindow *window) override { excluded->append(window); }

    std::shared_ptr<QList<Write>> writes = std::make_shared<QList<Write>>();
    std::shared_ptr<QList<QWindow *>> excluded = std::make_shared<QList<QWindow *>>();
};
} // namespace

class TestOverlayManager : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<OverlayManager> manager;
    std::shared_ptr<QList<FakePassThrough::Write>> writes;
    std::shared_ptr<QList<QWindow *>> excluded;
    QWindow left;
    QWindow right;
    QWindow hud;

    int writesTo(const QWindow *window) const
    {
        return int(std::count_if(writes->cbegin(), writes->cend(),
                                 [window](const auto &w) { return w.window == window; }));
    }
    bool lastWriteTo(const QWindow *window) const
    {
        for (auto it = writes->crbegin(); it != writes->crend(); ++it) {
            if (it->window == window)
                return it->passThrough;
        }
        qFatal("no write to the window");
    }

private slots:
    void init()
    {
        auto fake = std::make_unique<FakePassThrough>();
        writes = fake->writes;
        excluded = fake->excluded;
        manager = std::make_unique<OverlayManager>(std::move(fake));
        manager->registerWindow(QStringLiteral("left"), &left);
        manager->registerWindow(QStringLiteral("right"), &right);
        manager->registerWindow(QStringLiteral("hud"), &hud);
    }

    void registrationAppliesThePresentValue()
    {
        QCOMPARE(writes->size(), 3);
        QVERIFY(lastWriteTo(&left) && lastWriteTo(&hud));

        // A window registered late gets the present global value, or its override.
        manager->setClickThrough(false);
        manager->setWindowClickThrough(QStringLiteral("hud"), true);
        QWindow late;
        manager->registerWindow(QStringLiteral("late"), &late);
        QCOMPARE(lastWriteTo(&late), false);
        QWindow hud2;
        manager->registerWindow(QStringLiteral("hud"), &hud2);
        QCOMPARE(lastWriteTo(&hud2), true);
    }

    void globalValueWritesEveryWindowOnceAndSignalsOnce()
    {
        writes->clear();
        QSignalSpy spy(manager.get(), &OverlayManager::clickThroughChanged);
        manager->setClickThrough(false);
        manager->setClickThrough(false);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(writes->size(), 3);
        QVERIFY(!lastWriteTo(&left) && !lastWriteTo(&right) && !lastWriteTo(&hud));
    }

    void overrideRules_data()
    {
        QTest::addColumn<bool>("global");
        QTest::addColumn<QList<bool>>("hudRequests");
        QTest::addColumn<int>("expectedWrites");
        QTest::addColumn<bool>("effective");

        QTest::newRow("request equal to global writes nothing")
            << true << QList<bool> { true } << 0 << true;
        QTest::newRow("differing request writes once")
            << true << QList<bool> { false } << 1 << false;
        QTest::newRow("repeating the override writes once")
            << true << QList<bool> { false, false } << 1 << false;
        QTest::newRow("back to global removes the override and writes")
            << true << QList<bool> { false, true } << 2 << true;
        QTest::newRow("back and forth writes each change")
            << false << QList<bool> { true, false, true } << 3 << true;
    }

    void overrideRules()
    {
        QFETCH(bool, global);
        QFETCH(QList<bool>, hudRequests);
        QFETCH(int, expectedWrites);
        QFETCH(bool, effective);

        manager->setClickThrough(global);
        writes->clear();
        for (bool request : hudRequests)
            manager->setWindowClickThrough(QStringLiteral("hud"), request);
        QCOMPARE(writesTo(&hud), expectedWrites);
        QCOMPARE(writesTo(&left), 0);
        QCOMPARE(manager->effectiveClickThrough(QStringLiteral("hud")), effective);
        if (expectedWrites > 0)
            QCOMPARE(lastWriteTo(&hud), effective);
    }

    void globalChangeAndUnregisterDropOverrides()
    {
        manager->setWindowClickThrough(QStringLiteral("hud"), false);
        QCOMPARE(manager->effectiveClickThrough(QStringLiteral("hud")), false);
        manager->setClickThrough(false);
        manager->setClickThrough(true);
        // The HUD follows the global value until someone overrides it again.
        QCOMPARE(manager->effectiveClickThrough(QStringLiteral("hud")), true);
        QCOMPARE(lastWriteTo(&hud), true);

        // Unregistering forgets an override too.
        manager->setWindowClickThrough(QStringLiteral("hud"), false);
        manager->unregisterWindow(QStringLiteral("hud"));
        manager->registerWindow(QStringLiteral("hud"), &hud);
        QCOMPARE(lastWriteTo(&hud), true);
    }

    void unknownAndUnregisteredIdsAreIgnored()
    {
        writes->clear();
        manager->registerWindow(QStringLiteral("ghost"), nullptr);
        QVERIFY(writes->isEmpty());
        QVERIFY(!manager->isRegistered(QStringLiteral("ghost")));
        manager->setWindowClickThrough(QStringLiteral("nobody"), false);
        manager->unregisterWindow(QStringLiteral("right"));
        manager->setClickThrough(false);
        manager->setWindowClickThrough(QStringLiteral("right"), true);
        QCOMPARE(writesTo(&right), 0);
        QCOMPARE(writes->size(), 2);
    }

    void destroyedWindowIsSkipped()
    {
        auto transient = std::make_unique<QWindow>();
        manager->registerWindow(QStringLiteral("gone"), transient.get());
        transient.reset();
        writes->clear();
        manager->setClickThrough(false);
        QCOMPARE(writes->size(), 3);
    }

    void excludeFromCaptureReachesThePlatform()
    {
        manager->excludeFromCapture(&hud);
        manager->excludeFromCapture(nullptr);
        QCOMPARE(*excluded, QList<QWindow *> { &hud });
    }
};

QTEST_MAIN(TestOverlayManager)
#include "tst_overlaymanager.moc"
