// What is left of the overlay windows where no compositing manager runs: the
// controls window shaped to what its items paint, the drawing overlays to
// nothing, and every window whole again once a compositor runs.
#include "display/OverlayManager.h"
#include "display/UncompositedShapes.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>

namespace {

class FakeCompositor final : public CompositorWatch
{
public:
    bool isActive() const override { return active; }
    void set(bool value)
    {
        active = value;
        emit activeChanged();
    }
    bool active = false;
};

// Keeps the last visible area each window was given.
class FakeShapes final : public WindowPassThrough
{
public:
    void setPassThrough(QWindow *, bool) override { }
    void excludeFromCapture(QWindow *) override { }
    void setVisibleArea(QWindow *window, const std::optional<QRegion> &area) override
    {
        areas->insert(window, area);
    }
    std::shared_ptr<QHash<QWindow *, std::optional<QRegion>>> areas =
        std::make_shared<QHash<QWindow *, std::optional<QRegion>>>();
};

// Painted, hidden, transparent, nested, clipped and content-less items.
const char controls[] = R"(
import QtQuick
Window {
    width: 1000; height: 800
    Rectangle { x: 10; y: 20; width: 30; height: 40 }
    Rectangle { x: 100; width: 10; height: 10; visible: false }
    Rectangle { x: 200; width: 10; height: 10; opacity: 0 }
    Item {
        x: 300; y: 300; width: 500; height: 400
        Rectangle { x: 5; y: 5; width: 10; height: 10 }
        Rectangle { x: 50; y: 20; width: 10; height: 10 }
    }
    Item {
        y: 600; width: 50; height: 50; clip: true
        Rectangle { width: 500; height: 10 }
    }
    MouseArea { anchors.fill: parent }
}
)";

} // namespace

class tst_UncompositedShapes : public QObject
{
    Q_OBJECT

private slots:
    void shapesFollowTheCompositor()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData(controls, QUrl());
        std::unique_ptr<QQuickWindow> hud(qobject_cast<QQuickWindow *>(component.create()));
        QVERIFY2(hud, qPrintable(component.errorString()));
        QWindow overlay;

        auto shapes = std::make_unique<FakeShapes>();
        const auto areas = shapes->areas;
        OverlayManager overlayManager(std::move(shapes));
        auto compositor = std::make_unique<FakeCompositor>();
        FakeCompositor *watch = compositor.get();
        UncompositedShapes uncomposited(&overlayManager, std::move(compositor));
        uncomposited.setWindows({ &overlay }, hud.get());

        QRegion painted;
        painted += QRect(10, 20, 30, 40);
        painted += QRect(305, 305, 55, 25);
        painted += QRect(0, 600, 50, 10);
        QCOMPARE(areas->value(hud.get()), std::optional<QRegion>(painted));
        QCOMPARE(areas->value(&overlay), std::optional<QRegion>(QRegion()));

        watch->set(true);
        QCOMPARE(areas->value(hud.get()), std::nullopt);
        QCOMPARE(areas->value(&overlay), std::nullopt);
        watch->set(false);
        QCOMPARE(areas->value(&overlay), std::optional<QRegion>(QRegion()));
    }
};

QTEST_MAIN(tst_UncompositedShapes)
#include "tst_uncompositedshapes.moc"
