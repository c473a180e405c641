// The magnifier of the assembled program over the window of another program:
// the lens shows what a grab of the screen shows there, enlarged, and never
// itself, on either monitor and under compositing window managers. Without a
// compositing manager the toolbar offers no lens and the session says why.
#include "AssembledApp.h"
#include "XTestSession.h"
#include "app/AppController.h"
#include "display/DisplayManager.h"
#include "drawing/MagnifierLensItem.h"
#include "settings/SettingsManager.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QQuickItem>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

namespace {

QScreen *screenNamed(const QString &name)
{
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen->name() == name)
            return screen;
    }
    return nullptr;
}

// Next-door pixels differ in every channel, so a lens pixel taken from one
// place too far shows.
QImage detailedPicture()
{
    QImage image(360, 280, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 37 % 256, y * 53 % 256, (x + y) % 2 ? 230 : 20));
    }
    return image;
}

bool near(QRgb a, QRgb b)
{
    // A compositing manager that draws with OpenGL may round by one.
    return qAbs(qRed(a) - qRed(b)) <= 3 && qAbs(qGreen(a) - qGreen(b)) <= 3
        && qAbs(qBlue(a) - qBlue(b)) <= 3;
}

QString compositor()
{
    return qEnvironmentVariable("GLIMMORA_TEST_COMPOSITOR", QStringLiteral("xcompmgr"));
}

} // namespace

class TestMagnifierX11 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(screenNamed("LEFT") && screenNamed("RIGHT"), "needs the monitors LEFT and RIGHT");
        QVERIFY(m_user.isValid());
        QVERIFY(m_files.isValid());
        QVERIFY(detailedPicture().save(m_files.filePath(QStringLiteral("picture.png"))));
    }

    void lensShowsWhatTheScreenShowsBelowIt_data()
    {
        QTest::addColumn<QString>("monitor");
        QTest::newRow("control display LEFT") << QStringLiteral("LEFT");
        QTest::newRow("control display RIGHT") << QStringLiteral("RIGHT");
    }

    void lensShowsWhatTheScreenShowsBelowIt()
    {
        if (compositor() == QLatin1String("none"))
            QSKIP("no compositing manager: the toolbar offers no lens");
        QFETCH(QString, monitor);
        QScreen *screen = screenNamed(monitor);
        const QPoint pictureAt = screen->geometry().topLeft() + QPoint(500, 300);
        const QPoint insidePicture = pictureAt + QPoint(180, 160);

        AssembledApp app;
        QVERIFY(app.isValid());
        app.settings().setFirstRunDone(true);
        app.settings().setOverlayControlsAlwaysVisible(true);
        app.displays().setControlDisplay(app.displays().displayIdForScreen(screen));
        QVERIFY(app.controller().magnifierAvailable());
        QQuickItem *button = nullptr;
        QTRY_VERIFY_WITH_TIMEOUT((button = app.hudItem(QStringLiteral("magnifierButton")))
                                     && button->isVisible()
                                     && screen->geometry().contains(centreOf(button)),
                                 10000);

        // The other program starts after this one: its window stacks above
        // the program's own until they are raised again.
        const QRgb desktop = m_user.rootPixel(insidePicture);
        QProcess viewer;
        viewer.start(QStringLiteral("display"),
                     { QStringLiteral("-geometry"),
                       QStringLiteral("+%1+%2").arg(pictureAt.x()).arg(pictureAt.y()),
                       m_files.filePath(QStringLiteral("picture.png")) });
        QVERIFY(viewer.waitForStarted(5000));
        QTRY_VERIFY_WITH_TIMEOUT(m_user.rootPixel(insidePicture) != desktop, 15000);
        QTest::qWait(500); // the viewer and a window manager finish their first paint

        // Over the picture's corner, so that the desktop beside it shows too.
        // Window managers draw shadows there that no window holds: with
        // them the lens looks at the picture alone.
        const QPoint pointer =
            compositor() == QLatin1String("xcompmgr") ? pictureAt + QPoint(30, 30) : insidePicture;
        m_user.moveTo(pointer);
        QTest::qWait(100);
        const QImage screenBefore = m_user.rootImage(screen->geometry());
        QVERIFY(!screenBefore.isNull());

        m_user.moveTo(centreOf(button));
        QTRY_VERIFY(app.controller().hudInteractive());
        m_user.press(1);
        m_user.release(1);
        QTRY_VERIFY(app.controller().magnifierEnabled());
        m_user.moveTo(pointer);

        QQuickItem *lens = app.hudItem(QStringLiteral("magnifierLensItem"));
        QVERIFY(lens);
        const QRect area = MagnifierLensItem::sourceSquare(pointer, lens->size(),
                                                           app.settings().magnifierZoomFactor());
        QVERIFY(screen->geometry().contains(area));
        const QImage expected = screenBefore.copy(area.translated(-screen->geometry().topLeft()));
        QString mismatch;
        QTRY_VERIFY2_WITH_TIMEOUT((mismatch = lensMismatch(lens, area, expected)).isEmpty(),
                                  qPrintable(mismatch), 5000);
        // Frames later it still shows the screen, not a picture of itself.
        QTest::qWait(300);
        mismatch = lensMismatch(lens, area, expected);
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));

        viewer.kill();
        viewer.waitForFinished(5000);
    }

    void toolbarOffersNoLensWithoutACompositingManager()
    {
        if (compositor() != QLatin1String("none"))
            QSKIP("runs on a server without a compositing manager");
        AssembledApp app;
        QVERIFY(app.isValid());
        app.settings().setOverlayControlsAlwaysVisible(true);
        QTRY_VERIFY(app.hudItem(QStringLiteral("undoButton"))
                    && app.hudItem(QStringLiteral("undoButton"))->isVisible());
        QVERIFY(!app.controller().magnifierAvailable());
        QVERIFY(!app.hudItem(QStringLiteral("magnifierButton"))->isVisible());
        QVERIFY(app.controller().linuxCapabilitySummary().contains(
            QStringLiteral("needs a compositing manager")));
        app.controller().toggleMagnifier();
        QVERIFY(!app.controller().magnifierEnabled());
    }

    // The checks above, on a server of their own under each window manager.
    void underWindowManagers_data()
    {
        QTest::addColumn<QString>("manager");
        QTest::addColumn<QString>("function");
        // xfwm4 keeps new windows on the first monitor of this server.
        const QString onLeft =
            QStringLiteral("lensShowsWhatTheScreenShowsBelowIt:control display LEFT");
        QTest::newRow("xfwm4 with its compositor") << QStringLiteral("xfwm4") << onLeft;
        QTest::newRow("mutter") << QStringLiteral("mutter") << onLeft;
        QTest::newRow("no compositing manager")
            << QStringLiteral("none")
            << QStringLiteral("toolbarOffersNoLensWithoutACompositingManager");
    }

    void underWindowManagers()
    {
        if (qEnvironmentVariableIsSet("GLIMMORA_TEST_COMPOSITOR"))
            QSKIP("already on a server of its own");
        QFETCH(QString, manager);
        QFETCH(QString, function);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("GLIMMORA_TEST_COMPOSITOR"), manager);
        // The next display number of the caller's range, or any free one.
        const int display = qEnvironmentVariableIntValue("GLIMMORA_TEST_DISPLAY");
        if (display > 0)
            environment.insert(QStringLiteral("GLIMMORA_TEST_DISPLAY"),
                               QString::number(display + 1));
        QProcess nested;
        nested.setProcessEnvironment(environment);
        nested.setProcessChannelMode(QProcess::MergedChannels);
        nested.start(QStringLiteral("bash"),
                     { QStringLiteral(TEST_DISPLAY_SCRIPT), QCoreApplication::applicationFilePath(),
                       function });
        QVERIFY(nested.waitForFinished(150000));
        const QString output = QString::fromLocal8Bit(nested.readAll());
        // Passed there, and nothing skipped for want of the right server.
        QVERIFY2(nested.exitStatus() == QProcess::NormalExit && nested.exitCode() == 0
                     && output.contains(QLatin1String(", 0 skipped")),
                 qPrintable(output));
    }

private:
    static QPoint centreOf(const QQuickItem *item)
    {
        return item->mapToGlobal(QPointF(item->width() / 2, item->height() / 2)).toPoint();
    }

    // Empty when every sampled square of the lens shows the screen's pixel
    // below it; else what differs. The lens paints the grabbed square
    // stretched over its item less one pixel all round, without filtering:
    // each pixel of the screen is a square of item/side there, sampled at
    // its middle, inside the round clip and off the zoom label.
    QString lensMismatch(const QQuickItem *lens, const QRect &area, const QImage &expected)
    {
        const QRectF target(1, 1, lens->width() - 2, lens->height() - 2);
        const QRect onScreen =
            QRectF(lens->mapToGlobal(QPointF(0, 0)), lens->size()).toAlignedRect();
        const QImage shown = m_user.rootImage(onScreen);
        if (shown.isNull())
            return QStringLiteral("no picture of the screen");
        const qreal cell = target.width() / area.width();
        const QPointF centre = target.center();
        const qreal radius = target.width() / 2;
        int compared = 0;
        for (int j = 0; j < area.height(); j += 3) {
            for (int i = 0; i < area.width(); i += 3) {
                const QPointF at(target.left() + (i + 0.5) * cell, target.top() + (j + 0.5) * cell);
                const QPointF offset = at - centre;
                const bool onLabel = offset.x() > 0 && offset.y() > radius * 0.45;
                if (std::hypot(offset.x(), offset.y()) > radius * 0.85 || onLabel)
                    continue;
                // The screen pixel whose middle lies nearest the square's.
                const QRgb got = shown.pixel(int(at.x()), int(at.y()));
                const QRgb want = expected.pixel(i, j);
                if (!near(got, want))
                    return QStringLiteral("screen pixel %1,%2 of the area reads %3 in the lens, "
                                          "%4 on the screen")
                        .arg(i)
                        .arg(j)
                        .arg(got & 0xffffff, 6, 16, QLatin1Char('0'))
                        .arg(want & 0xffffff, 6, 16, QLatin1Char('0'));
                ++compared;
            }
        }
        return compared > 200 ? QString() : QStringLiteral("too few pixels compared");
    }

    XTestSession m_user;
    QTemporaryDir m_files;
};

int main(int argc, char *argv[])
{
    // Settings and logs of this run stay in a scratch home.
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(QStringLiteral("config"))));
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(QStringLiteral("data"))));
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    TestMagnifierX11 test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_magnifier_x11.moc"
