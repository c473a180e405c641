// Global hotkeys and the keystroke observer against a real X server: a
// plain client holds the focus, XTest presses the keys.
#include "XTestKeyboard.h"
#include "hotkeys/HotkeyActions.h"
#include "hotkeys/HotkeyManager.h"
#include "platform/linux/XcbHotkeyBackend.h"

#include <QGuiApplication>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <cstdlib>
#include <xkbcommon/xkbcommon-keysyms.h>

Q_IMPORT_QML_PLUGIN(GlimmoraAppPlugin)

using Keys = QList<xkb_keysym_t>;

class TestHotkeysX11 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(m_keyboard.isValid(), "no X display");
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));

        m_client.start(QStringLiteral(X11_KEY_CLIENT), {});
        QVERIFY(m_client.waitForStarted());
        QTRY_VERIFY(m_client.canReadLine() || m_client.waitForReadyRead(100));
        const QByteArray ready = m_client.readLine().trimmed();
        QVERIFY2(ready.startsWith("ready "), ready.constData());
        m_clientWindow = ready.mid(6).toUInt();

        m_manager = std::make_unique<HotkeyManager>(std::make_unique<XcbHotkeyBackend>());
        QVERIFY(m_manager->globalHotkeysAvailable());
        m_manager->setHotkeys(HotkeyActions::defaultMap());
        m_manager->start();
        QCOMPARE(m_manager->hotkeyConflictRevision(), 2);
        for (const HotkeyActions::Action &action : HotkeyActions::all())
            QVERIFY2(!m_manager->hotkeyHasConflict(QString::fromLatin1(action.name)), action.name);
        QCOMPARE(focusWindow(), m_clientWindow);
    }

    void cleanupTestCase()
    {
        m_manager.reset();
        m_client.kill();
        m_client.waitForFinished();
    }

    void init()
    {
        m_manager->setHotkeys(HotkeyActions::defaultMap());
        m_manager->setCommandKeysActive(true);
        m_manager->setKeystrokeFilter(true, true, true, true, false);
        clientPressesUntil(QString());
    }

    void hotkeysFireWhileAnotherClientHasFocus_data()
    {
        QTest::addColumn<Keys>("keys");
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<QVariantList>("arguments");

        QTest::newRow("Alt+3 picks the pen")
            << Keys { XKB_KEY_Alt_L, XKB_KEY_3 } << QByteArray(SIGNAL(toolRequested(QString)))
            << QVariantList { QStringLiteral("pen") };
        QTest::newRow("Ctrl+Shift+Z redoes")
            << Keys { XKB_KEY_Control_L, XKB_KEY_Shift_L, XKB_KEY_z }
            << QByteArray(SIGNAL(redoRequested())) << QVariantList {};
        QTest::newRow("right Ctrl+Z undoes")
            << Keys { XKB_KEY_Control_R, XKB_KEY_z } << QByteArray(SIGNAL(undoRequested()))
            << QVariantList {};
    }

    void hotkeysFireWhileAnotherClientHasFocus()
    {
        QFETCH(Keys, keys);
        QFETCH(QByteArray, signal);
        QFETCH(QVariantList, arguments);

        QSignalSpy spy(m_manager.get(), signal.constData());
        m_keyboard.tap(keys);
        QVERIFY(spy.wait(2000));
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.first(), arguments);

        // The grabbed key is taken from the client, which keeps the focus.
        m_keyboard.tap({ XKB_KEY_m });
        const QStringList presses = clientPressesUntil(QStringLiteral("m"));
        QCOMPARE(presses.last(), QStringLiteral("m"));
        char name[64] = {};
        xkb_keysym_get_name(keys.last(), name, sizeof name);
        QVERIFY2(!presses.contains(QString::fromLatin1(name)), qPrintable(presses.join(u' ')));
        QCOMPARE(focusWindow(), m_clientWindow);
    }

    void keysNotGrabbedReachTheFocusedClient_data()
    {
        QTest::addColumn<Keys>("keys");
        QTest::addColumn<QString>("received");

        QTest::newRow("Alt with an unbound digit")
            << Keys { XKB_KEY_Alt_L, XKB_KEY_9 } << QStringLiteral("9");
        QTest::newRow("a hotkey's key with a different modifier")
            << Keys { XKB_KEY_Control_L, XKB_KEY_3 } << QStringLiteral("3");
    }

    void keysNotGrabbedReachTheFocusedClient()
    {
        QFETCH(Keys, keys);
        QFETCH(QString, received);

        QSignalSpy tools(m_manager.get(), &HotkeyManager::toolRequested);
        m_keyboard.tap(keys);
        QCOMPARE(clientPressesUntil(received).last(), received);
        QCOMPARE(tools.size(), 0);
        QCOMPARE(focusWindow(), m_clientWindow);
    }

    void bareCommandKeyActsAndStillReachesTheClient()
    {
        QSignalSpy exits(m_manager.get(), &HotkeyManager::exitToCursorRequested);
        m_keyboard.tap({ XKB_KEY_Escape });
        QVERIFY(exits.wait(2000));
        QCOMPARE(clientPressesUntil(QStringLiteral("Escape")).last(), QStringLiteral("Escape"));

        // With the settings open the same key only reaches the client.
        m_manager->setCommandKeysActive(false);
        exits.clear();
        m_keyboard.tap({ XKB_KEY_Escape });
        QCOMPARE(clientPressesUntil(QStringLiteral("Escape")).last(), QStringLiteral("Escape"));
        QCoreApplication::processEvents();
        QCOMPARE(exits.size(), 0);
    }

    void combinationHeldByAnotherClientIsAConflict()
    {
        // A second client takes Alt+4 (the arrow's default) before we do.
        xcb_connection_t *other = xcb_connect(nullptr, nullptr);
        QVERIFY(!xcb_connection_has_error(other));
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(other)).data->root;
        const xcb_keycode_t four = m_keyboard.keycode(XKB_KEY_4);
        m_manager->setHotkeys({});
        syncApplicationConnection();
        xcb_generic_error_t *error =
            xcb_request_check(other,
                              xcb_grab_key_checked(other, 1, root, XCB_MOD_MASK_1, four,
                                                   XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        QVERIFY(!error);

        QSignalSpy conflicts(m_manager.get(), &HotkeyManager::hotkeyConflictsChanged);
        const int revision = m_manager->hotkeyConflictRevision();
        m_manager->setHotkeys(HotkeyActions::defaultMap());
        QCOMPARE(conflicts.size(), 1);
        QCOMPARE(m_manager->hotkeyConflictRevision(), revision + 1);
        for (const HotkeyActions::Action &action : HotkeyActions::all()) {
            const QString name = QString::fromLatin1(action.name);
            QCOMPARE(m_manager->hotkeyHasConflict(name), name == u"arrow");
        }

        // Our partial grabs were released: the combination is the other client's alone.
        QSignalSpy tools(m_manager.get(), &HotkeyManager::toolRequested);
        m_keyboard.tap({ XKB_KEY_Alt_L, XKB_KEY_4 });
        xcb_generic_event_t *event = nullptr;
        QElapsedTimer timer;
        timer.start();
        while (!event && timer.elapsed() < 2000) {
            event = xcb_poll_for_event(other);
            QTest::qWait(10);
        }
        QVERIFY(event);
        QCOMPARE(event->response_type & 0x7f, XCB_KEY_PRESS);
        std::free(event);
        QCOMPARE(tools.size(), 0);
        xcb_disconnect(other);

        // Once the other client is gone the next registration succeeds.
        m_manager->setHotkeys(HotkeyActions::defaultMap());
        QVERIFY(!m_manager->hotkeyHasConflict(QStringLiteral("arrow")));
    }

    void changingTheMapReleasesOldGrabs()
    {
        QVariantMap map = HotkeyActions::defaultMap();
        map.insert(QStringLiteral("pen"), QStringLiteral("Alt+P"));
        m_manager->setHotkeys(map);

        QSignalSpy tools(m_manager.get(), &HotkeyManager::toolRequested);
        m_keyboard.tap({ XKB_KEY_Alt_L, XKB_KEY_3 });
        QCOMPARE(clientPressesUntil(QStringLiteral("3")).last(), QStringLiteral("3"));
        QCOMPARE(tools.size(), 0);

        m_keyboard.tap({ XKB_KEY_Alt_L, XKB_KEY_p });
        QVERIFY(tools.wait(2000));
        QCOMPARE(tools.first().first().toString(), QStringLiteral("pen"));
    }

    void hotkeysFireWithNumLockOn()
    {
        QVERIFY(m_keyboard.keycode(XKB_KEY_Num_Lock) != 0);
        m_keyboard.tap({ XKB_KEY_Num_Lock });
        xcb_connection_t *connection = m_keyboard.connection();
        auto *pointer = xcb_query_pointer_reply(
            connection, xcb_query_pointer(connection, m_keyboard.root()), nullptr);
        QVERIFY(pointer);
        const uint16_t mask = pointer->mask;
        std::free(pointer);
        const auto restore = qScopeGuard([this] { m_keyboard.tap({ XKB_KEY_Num_Lock }); });
        QVERIFY2(mask & 0xf0, "NumLock did not lock a modifier");

        QSignalSpy toggles(m_manager.get(), &HotkeyManager::toggleOverlayRequested);
        QSignalSpy tools(m_manager.get(), &HotkeyManager::toolRequested);
        m_keyboard.tap({ XKB_KEY_F5 });
        m_keyboard.tap({ XKB_KEY_Alt_L, XKB_KEY_2 });
        QTRY_COMPARE(toggles.size(), 1);
        QTRY_COMPARE(tools.size(), 1);
        QCOMPARE(tools.first().first().toString(), QStringLiteral("spotlight"));
    }

    void keyboardMapChangeRenewsGrabs()
    {
        // F6 also on a key that had no symbol: the grab must follow the map.
        const xcb_keycode_t spare = m_keyboard.spareKeycode();
        QVERIFY(spare != 0);
        const QString key = QString::number(spare);
        QCOMPARE(QProcess::execute(QStringLiteral("xmodmap"), { "-e", "keycode " + key + " = F6" }),
                 0);
        const auto restore = qScopeGuard([&] {
            QProcess::execute(QStringLiteral("xmodmap"), { "-e", "keycode " + key + " =" });
        });

        QSignalSpy settings(m_manager.get(), &HotkeyManager::settingsRequested);
        QElapsedTimer timer;
        timer.start();
        while (settings.isEmpty() && timer.elapsed() < 3000) {
            m_keyboard.tapKeycode(spare);
            settings.wait(100);
        }
        QVERIFY(!settings.isEmpty());
        // The original F6 key still works.
        settings.clear();
        m_keyboard.tap({ XKB_KEY_F6 });
        QTRY_COMPARE(settings.size(), 1);
    }

    void holdingAHotkeyFiresOnce()
    {
        QSignalSpy toggles(m_manager.get(), &HotkeyManager::toggleOverlayRequested);
        m_keyboard.press(XKB_KEY_F5);
        // Longer than the server's repeat delay, so the key repeats meanwhile.
        QTest::qWait(1200);
        m_keyboard.release(XKB_KEY_F5);
        QTest::qWait(100);
        QCOMPARE(toggles.size(), 1);

        // Quick presses one after another each count.
        for (int i = 0; i < 5; ++i)
            m_keyboard.tap({ XKB_KEY_F5 });
        QTRY_COMPARE(toggles.size(), 6);
    }

    void waylandSessionIsReportedUnavailable()
    {
        qputenv("WAYLAND_DISPLAY", "wayland-0");
        const auto restore = qScopeGuard([] { qunsetenv("WAYLAND_DISPLAY"); });
        HotkeyManager manager(std::make_unique<XcbHotkeyBackend>());
        QVERIFY(!manager.globalHotkeysAvailable());
        manager.start();
        // Nothing is grabbed, so the other manager's keys keep working, and every
        // global hotkey of this one shows as not working.
        QVERIFY(manager.hotkeyHasConflict(QStringLiteral("toggleOverlay")));
        QVERIFY(!manager.hotkeyHasConflict(QStringLiteral("exitToCursor")));
        QSignalSpy toggles(m_manager.get(), &HotkeyManager::toggleOverlayRequested);
        m_keyboard.tap({ XKB_KEY_F5 });
        QVERIFY(toggles.wait(2000));
    }

    void rawKeysGiveKeystrokeText_data()
    {
        QTest::addColumn<Keys>("keys");
        QTest::addColumn<QStringList>("texts");

        QTest::newRow("Ctrl+Shift+B with the modifier switch")
            << Keys { XKB_KEY_Control_L, XKB_KEY_Shift_L, XKB_KEY_b }
            << QStringList { "Ctrl", "Shift", "Ctrl+Shift+B" };
        QTest::newRow("Shift+1 names the key, not the character")
            << Keys { XKB_KEY_Shift_R, XKB_KEY_1 } << QStringList { "Shift", "Shift+1" };
        QTest::newRow("Super+Alt+Left in reading order")
            << Keys { XKB_KEY_Alt_L, XKB_KEY_Super_L, XKB_KEY_Left }
            << QStringList { "Alt", "Win", "Win+Alt+Left" };
        QTest::newRow("a registered hotkey shows as the command and as the keys")
            << Keys { XKB_KEY_Alt_L, XKB_KEY_3 } << QStringList { "Alt", "Alt+3", "Alt+3" };
    }

    void rawKeysGiveKeystrokeText()
    {
        QFETCH(Keys, keys);
        QFETCH(QStringList, texts);

        QVERIFY(m_keyboard.keycode(keys.last()) != 0);
        QSignalSpy spy(m_manager.get(), &HotkeyManager::keystrokeRequested);
        m_keyboard.tap(keys);
        // F12 is shown by the function switch and marks the end of the row's keys.
        m_keyboard.tap({ XKB_KEY_F12 });
        QTRY_VERIFY(!spy.isEmpty() && spy.last().first() == QStringLiteral("F12"));

        QStringList received;
        for (const QList<QVariant> &arguments : std::as_const(spy))
            received << arguments.first().toString();
        received.removeLast();
        QCOMPARE(received, texts);
    }

    void keystrokeCardShowsThePressedKeys()
    {
        // The card in a window of its own, fed by the service as the application
        // wires it: keystrokeRequested to the controller's reportKeystroke.
        QQmlEngine engine;
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        for (const auto &[name, file] :
             { std::pair { "appController", "MockAppController.qml" },
               std::pair { "settingsManager", "MockSettingsManager.qml" } }) {
            QQmlComponent mock(&engine,
                               QUrl::fromLocalFile(QStringLiteral(KEYSTROKE_MOCKS_DIR "/") + file));
            QObject *object = mock.create();
            QVERIFY2(object, qPrintable(mock.errorString()));
            object->setParent(&engine);
            engine.rootContext()->setContextProperty(QString::fromLatin1(name), object);
        }
        QObject *controller =
            engine.rootContext()->contextProperty("appController").value<QObject *>();
        connect(m_manager.get(), &HotkeyManager::keystrokeRequested, controller,
                [controller](const QString &combo) {
                    QMetaObject::invokeMethod(controller, "reportKeystroke", Q_ARG(QString, combo));
                });

        QQuickView view(&engine, nullptr);
        view.setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
        view.setColor(QColor(QStringLiteral("#404040")));
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.setGeometry(200, 400, 700, 200);
        QQmlComponent scene(&engine);
        scene.setData("import QtQuick\nimport GlimmoraApp\n"
                      "Item { KeystrokeCard { objectName: \"card\"; x: 20; y: 40 } }",
                      QUrl());
        view.setContent(QUrl(), &scene, scene.create());
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QCOMPARE(focusWindow(), m_clientWindow);
        QObject *card = view.rootObject()->findChild<QObject *>(QStringLiteral("card"));
        QVERIFY(card);

        m_keyboard.tap({ XKB_KEY_Control_L, XKB_KEY_Shift_L, XKB_KEY_b });
        QTRY_COMPARE(controller->property("lastKeystroke").toString(),
                     QStringLiteral("Ctrl+Shift+B"));
        QTRY_COMPARE(card->property("opacity").toReal(), 1.0);
        QTRY_COMPARE(card->property("scale").toReal(), 1.0);

        // White key names on the dark caps reach the screen.
        const QRectF area = qobject_cast<QQuickItem *>(card)->mapRectToScene(
            QRectF(0, 0, card->property("width").toReal(), card->property("height").toReal()));
        QImage shot;
        int bright = 0;
        QTRY_VERIFY_WITH_TIMEOUT(
            [&] {
                shot = view.screen()
                           ->grabWindow(0, view.x() + int(area.x()), view.y() + int(area.y()),
                                        int(area.width()), int(area.height()))
                           .toImage();
                bright = 0;
                for (int y = 0; y < shot.height(); ++y) {
                    for (int x = 0; x < shot.width(); ++x)
                        bright += qGray(shot.pixel(x, y)) > 200;
                }
                return bright > 100;
            }(),
            3000);
        QCOMPARE(focusWindow(), m_clientWindow);
    }

private:
    // Waits for the client to report `keysym`, then returns every press it
    // reported since the last call, marker included.
    QStringList clientPressesUntil(const QString &keysym);
    xcb_window_t focusWindow();
    // Requests of two clients race; this makes the server handle ours first.
    static void syncApplicationConnection();

    XTestKeyboard m_keyboard;
    QProcess m_client;
    xcb_window_t m_clientWindow = XCB_NONE;
    QByteArray m_clientOutput;
    std::unique_ptr<HotkeyManager> m_manager;
};

QStringList TestHotkeysX11::clientPressesUntil(const QString &keysym)
{
    QStringList presses;
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 5000) {
        m_client.waitForReadyRead(20);
        QCoreApplication::processEvents();
        m_clientOutput += m_client.readAll();
        qsizetype end;
        while ((end = m_clientOutput.indexOf('\n')) >= 0) {
            const QList<QByteArray> words = m_clientOutput.left(end).split(' ');
            m_clientOutput.remove(0, end + 1);
            if (words.size() == 3 && words.at(0) == "press")
                presses << QString::fromLatin1(words.at(1));
            if (!keysym.isEmpty() && presses.endsWith(keysym))
                return presses;
        }
        if (keysym.isEmpty() && timer.elapsed() > 100)
            return presses;
    }
    presses << QStringLiteral("<timeout>");
    return presses;
}

xcb_window_t TestHotkeysX11::focusWindow()
{
    xcb_connection_t *connection = m_keyboard.connection();
    auto *reply = xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr);
    const xcb_window_t focus = reply ? reply->focus : XCB_NONE;
    std::free(reply);
    return focus;
}

void TestHotkeysX11::syncApplicationConnection()
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t *connection = x11->connection();
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

QTEST_MAIN(TestHotkeysX11)
#include "tst_hotkeys_x11.moc"
