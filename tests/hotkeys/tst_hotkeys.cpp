// The hotkey service's logic against a fake window system: sequence parsing,
// which combinations are registered, conflicts, dispatch, the key handler and
// the keystroke text.
#include "FakeHotkeyBackend.h"
#include "hotkeys/HotkeyActions.h"
#include "hotkeys/HotkeyManager.h"
#include "hotkeys/HotkeySequence.h"
#include "hotkeys/KeystrokeFilter.h"
#include "platform/linux/XcbHotkeyBackend.h"

#include <QSignalSpy>
#include <QTest>

namespace {

constexpr int Alt = KeyModifier::Alt;
constexpr int Ctrl = KeyModifier::Ctrl;
constexpr int Shift = KeyModifier::Shift;
constexpr int Win = KeyModifier::Win;

int letter(char c)
{
    return KeyCode::LetterA + (c - 'A');
}

int digit(int d)
{
    return KeyCode::Digit0 + d;
}

int function(int n)
{
    return KeyCode::F1 + n - 1;
}

// Every signal of the service as "name(argument)", in the order emitted.
class Recorder : public QObject
{
public:
    explicit Recorder(HotkeyManager *manager)
    {
        const auto plain = [&](auto signal, const char *name) {
            connect(manager, signal, this, [this, name] { events << QString::fromLatin1(name); });
        };
        const auto withText = [&](auto signal, const char *name) {
            connect(manager, signal, this, [this, name](const QString &text) {
                events << QStringLiteral("%1(%2)").arg(QLatin1String(name), text);
            });
        };
        plain(&HotkeyManager::toggleOverlayRequested, "toggleOverlay");
        plain(&HotkeyManager::settingsRequested, "settings");
        withText(&HotkeyManager::toolRequested, "tool");
        plain(&HotkeyManager::exitToCursorRequested, "exitToCursor");
        plain(&HotkeyManager::undoRequested, "undo");
        plain(&HotkeyManager::redoRequested, "redo");
        plain(&HotkeyManager::clearRequested, "clear");
        plain(&HotkeyManager::captureFullScreenRequested, "captureFullScreen");
        plain(&HotkeyManager::captureRegionRequested, "captureRegion");
        plain(&HotkeyManager::toggleToolbarRequested, "toggleToolbar");
        plain(&HotkeyManager::quitRequested, "quit");
        withText(&HotkeyManager::keystrokeRequested, "keys");
    }

    QStringList events;
};

QVariantMap mapWith(const QVariantMap &changes)
{
    QVariantMap map = HotkeyActions::defaultMap();
    for (auto it = changes.cbegin(); it != changes.cend(); ++it)
        map.insert(it.key(), it.value());
    return map;
}

} // namespace

class TestHotkeys : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_system = FakeKeySystem();
        auto backend = std::make_unique<FakeHotkeyBackend>(&m_system);
        m_backend = backend.get();
        m_manager = std::make_unique<HotkeyManager>(std::move(backend));
    }

    void cleanup()
    {
        m_manager.reset();
        m_backend = nullptr;
    }

    void parseSequence_data()
    {
        QTest::addColumn<QString>("sequence");
        QTest::addColumn<bool>("parses");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("key");

        QTest::newRow("function key") << "F5" << true << 0 << function(5);
        QTest::newRow("spaces and plus signs separate alike")
            << "ctrl + shift + z" << true << (Ctrl | Shift) << letter('Z');
        QTest::newRow("long words, no plus")
            << "control shift Z" << true << (Ctrl | Shift) << letter('Z');
        QTest::newRow("option is Alt, super is Win")
            << "super+option+x" << true << (Alt | Win) << letter('X');
        QTest::newRow("meta is Win") << "Meta+a" << true << Win << letter('A');
        QTest::newRow("the last key wins") << "Alt+1+2" << true << Alt << digit(2);
        QTest::newRow("repeated modifier counts once")
            << "Ctrl+ctrl+K" << true << Ctrl << letter('K');
        QTest::newRow("Escape") << "Escape" << true << 0 << int(KeyCode::Escape);
        QTest::newRow("Esc in capitals with Ctrl")
            << "ctrl+ESC" << true << Ctrl << int(KeyCode::Escape);
        QTest::newRow("F24 is the last function key") << "f24" << true << 0 << function(24);
        QTest::newRow("an unknown word is passed over")
            << "Ctrl+Space+K" << true << Ctrl << letter('K');
        QTest::newRow("F25 is no key") << "F25" << false << 0 << 0;
        QTest::newRow("F0 is no key") << "F0" << false << 0 << 0;
        QTest::newRow("F with trailing text is no key") << "F1x" << false << 0 << 0;
        QTest::newRow("Space cannot be a hotkey") << "Space" << false << 0 << 0;
        QTest::newRow("modifiers alone") << "Ctrl+Shift" << false << 0 << 0;
        QTest::newRow("a non-Latin letter") << "Alt+\u00e9" << false << 0 << 0;
        QTest::newRow("a lone plus") << "+" << false << 0 << 0;
        QTest::newRow("blanks") << "   " << false << 0 << 0;
        QTest::newRow("empty") << "" << false << 0 << 0;
    }

    void parseSequence()
    {
        QFETCH(QString, sequence);
        QFETCH(bool, parses);
        QFETCH(int, modifiers);
        QFETCH(int, key);

        const auto combination = HotkeySequence::parse(sequence);
        QCOMPARE(combination.has_value(), parses);
        if (combination) {
            QCOMPARE(combination->modifiers, modifiers);
            QCOMPARE(combination->key, key);
        }
    }

    void mayRegisterGlobally_data()
    {
        QTest::addColumn<QString>("sequence");
        QTest::addColumn<bool>("global");

        QTest::newRow("function key alone") << "F5" << true;
        QTest::newRow("modifier and letter") << "Ctrl+K" << true;
        QTest::newRow("modifier and Esc") << "Shift+Esc" << true;
        QTest::newRow("bare Esc") << "Esc" << false;
        QTest::newRow("bare letter") << "K" << false;
        QTest::newRow("bare digit") << "7" << false;
    }

    void mayRegisterGlobally()
    {
        QFETCH(QString, sequence);
        QFETCH(bool, global);
        const auto combination = HotkeySequence::parse(sequence);
        QVERIFY(combination);
        QCOMPARE(HotkeySequence::mayRegisterGlobally(*combination), global);
    }

    void defaultMapRegistersSixteenIds()
    {
        m_manager->setHotkeys(HotkeyActions::defaultMap());

        QCOMPARE(m_system.registered.size(), 16);
        QCOMPARE(m_system.registered.value(1001), (KeyCombination { 0, function(5) }));
        QCOMPARE(m_system.registered.value(1005), (KeyCombination { Alt, digit(3) }));
        QCOMPARE(m_system.registered.value(1010), (KeyCombination { Alt, digit(8) }));
        QCOMPARE(m_system.registered.value(1013), (KeyCombination { Ctrl | Shift, letter('Z') }));
        QVERIFY(!m_system.registered.contains(1011));
        for (const HotkeyActions::Action &action : HotkeyActions::all())
            QVERIFY(!m_manager->hotkeyHasConflict(QString::fromLatin1(action.name)));
        // Going away releases every registration.
        m_manager.reset();
        QVERIFY(m_system.registered.isEmpty());
    }

    void startRegistersAgainAndCountsRevisions_data()
    {
        QTest::addColumn<bool>("mapGivenFirst");

        QTest::newRow("assembly gives the map, then starts") << true;
        QTest::newRow("start without a map takes the defaults") << false;
    }

    void startRegistersAgainAndCountsRevisions()
    {
        QFETCH(bool, mapGivenFirst);

        QSignalSpy spy(m_manager.get(), &HotkeyManager::hotkeyConflictsChanged);
        if (mapGivenFirst)
            m_manager->setHotkeys(HotkeyActions::defaultMap());
        m_manager->start();

        QCOMPARE(m_system.registered.size(), 16);
        QCOMPARE(m_system.startCalls, 1);
        QCOMPARE(m_manager->hotkeyConflictRevision(), mapGivenFirst ? 2 : 1);
        QCOMPARE(spy.size(), m_manager->hotkeyConflictRevision());

        // A second start registers again but starts the observer only once.
        m_manager->start();
        QCOMPARE(m_system.startCalls, 1);
        QCOMPARE(m_system.registered.size(), 16);
        QCOMPARE(spy.size(), mapGivenFirst ? 3 : 2);
    }

    void conflicts_data()
    {
        QTest::addColumn<QVariantMap>("changes");
        QTest::addColumn<QList<KeyCombination>>("heldElsewhere");
        QTest::addColumn<bool>("available");
        // "*": every action but the bare Esc, which is never registered.
        QTest::addColumn<QStringList>("conflicting");
        QTest::addColumn<int>("registered");

        QTest::newRow("a combination another program holds")
            << QVariantMap {} << QList<KeyCombination> { { Alt, digit(4) } } << true
            << QStringList { "arrow" } << 15;
        QTest::newRow("a sequence that does not parse is no conflict and registers nothing")
            << QVariantMap { { "pen", "Ctrl+Shift" } } << QList<KeyCombination> {} << true
            << QStringList {} << 15;
        QTest::newRow("a bare key is never registered nor a conflict")
            << QVariantMap { { "pen", "K" } } << QList<KeyCombination> {} << true << QStringList {}
            << 15;
        QTest::newRow("a bare key held elsewhere is not noticed")
            << QVariantMap { { "pen", "K" } } << QList<KeyCombination> { { 0, letter('K') } }
            << true << QStringList {} << 15;
        QTest::newRow("without global keys every registration is refused")
            << QVariantMap {} << QList<KeyCombination> {} << false << QStringList { "*" } << 0;
    }

    void conflicts()
    {
        QFETCH(QVariantMap, changes);
        QFETCH(QList<KeyCombination>, heldElsewhere);
        QFETCH(bool, available);
        QFETCH(QStringList, conflicting);
        QFETCH(int, registered);

        m_system.heldElsewhere = heldElsewhere;
        m_system.available = available;
        m_manager->setHotkeys(mapWith(changes));

        QStringList flagged;
        QStringList all;
        for (const HotkeyActions::Action &action : HotkeyActions::all()) {
            const QString name = QString::fromLatin1(action.name);
            if (m_manager->hotkeyHasConflict(name))
                flagged << name;
            if (name != u"exitToCursor")
                all << name;
        }
        QCOMPARE(flagged, conflicting == QStringList { "*" } ? all : conflicting);
        QCOMPARE(m_system.registered.size(), registered);
        QVERIFY(!m_manager->hotkeyHasConflict(QStringLiteral("noSuchAction")));
    }

    void duplicateSequenceFlagsOneAction()
    {
        m_manager->setHotkeys(mapWith({ { "undo", "Ctrl+Shift+Z" } }));

        const bool undoFlagged = m_manager->hotkeyHasConflict(QStringLiteral("undo"));
        const bool redoFlagged = m_manager->hotkeyHasConflict(QStringLiteral("redo"));
        QVERIFY(undoFlagged != redoFlagged);

        // The combination runs the action that holds it, and only that one.
        Recorder recorder(m_manager.get());
        m_backend->pressHotkey(undoFlagged ? 1013 : 1012);
        QCOMPARE(recorder.events,
                 (QStringList { "keys(Ctrl+Shift+Z)", undoFlagged ? "redo" : "undo" }));
        recorder.events.clear();
        m_backend->pressHotkey(undoFlagged ? 1012 : 1013);
        QCOMPARE(recorder.events, QStringList {});
    }

    void newMapReleasesOldRegistrationsAndConflicts()
    {
        m_system.heldElsewhere = { { Alt, digit(4) } };
        m_manager->setHotkeys(HotkeyActions::defaultMap());
        QVERIFY(m_manager->hotkeyHasConflict(QStringLiteral("arrow")));
        const int revision = m_manager->hotkeyConflictRevision();

        // The other program lets go and the user moves the pen elsewhere.
        m_system.heldElsewhere.clear();
        m_manager->setHotkeys(mapWith({ { "pen", "Alt+P" } }));
        QVERIFY(!m_manager->hotkeyHasConflict(QStringLiteral("arrow")));
        QCOMPARE(m_system.registered.value(1005), (KeyCombination { Alt, letter('P') }));
        QCOMPARE(m_system.registered.keys(KeyCombination { Alt, digit(3) }), QList<int> {});
        QCOMPARE(m_manager->hotkeyConflictRevision(), revision + 1);

        // The same map again still counts: the revision is a pass counter.
        QSignalSpy spy(m_manager.get(), &HotkeyManager::hotkeyConflictsChanged);
        m_manager->setHotkeys(mapWith({ { "pen", "Alt+P" } }));
        QCOMPARE(spy.size(), 1);
        QCOMPARE(m_manager->hotkeyConflictRevision(), revision + 2);
    }

    void dispatch_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<bool>("keystrokesEnabled");
        QTest::addColumn<QStringList>("events");

        const auto row = [](const char *name, int id, const QString &sequence,
                            const QString &signal) {
            QTest::newRow(name) << id << true << QStringList { "keys(" + sequence + ")", signal };
        };
        row("toggleOverlay", 1001, "F5", "toggleOverlay");
        row("openSettings", 1002, "F6", "settings");
        row("cursor", 1003, "Alt+1", "tool(cursor)");
        row("spotlight", 1004, "Alt+2", "tool(spotlight)");
        row("pen", 1005, "Alt+3", "tool(pen)");
        row("arrow", 1006, "Alt+4", "tool(arrow)");
        row("rectangle", 1007, "Alt+5", "tool(rectangle)");
        row("circle", 1008, "Alt+6", "tool(circle)");
        row("highlighter", 1009, "Alt+7", "tool(highlighter)");
        row("eraser", 1010, "Alt+8", "tool(eraser)");
        row("undo", 1012, "Ctrl+Z", "undo");
        row("redo", 1013, "Ctrl+Shift+Z", "redo");
        row("clear", 1014, "Ctrl+Shift+K", "clear");
        row("captureRegion", 1015, "Ctrl+Shift+A", "captureRegion");
        row("captureFullScreen", 1016, "Ctrl+Shift+S", "captureFullScreen");
        row("quit", 1017, "Ctrl+Shift+Q", "quit");
        QTest::newRow("keystrokes off: the command without its text")
            << 1001 << false << QStringList { "toggleOverlay" };
        QTest::newRow("Esc holds no registration, so its id does nothing")
            << 1011 << true << QStringList {};
        QTest::newRow("an id outside the table does nothing") << 42 << true << QStringList {};
    }

    void dispatch()
    {
        QFETCH(int, id);
        QFETCH(bool, keystrokesEnabled);
        QFETCH(QStringList, events);

        m_manager->setHotkeys(HotkeyActions::defaultMap());
        // A command shows whatever the class switches say.
        m_manager->setKeystrokeFilter(keystrokesEnabled, false, false, false, false);
        Recorder recorder(m_manager.get());
        m_backend->pressHotkey(id);
        QCOMPARE(recorder.events, events);
    }

    void keyHandler_data()
    {
        QTest::addColumn<QVariantMap>("changes");
        QTest::addColumn<bool>("commandKeysActive");
        QTest::addColumn<bool>("grabbedElsewhere");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QStringList>("events");

        const int esc = KeyCode::Escape;
        QTest::newRow("bare Esc leaves drawing while the overlay takes commands")
            << QVariantMap {} << true << false << esc << 0
            << QStringList { "keys(Esc)", "exitToCursor" };
        QTest::newRow("bare Esc is only shown while the settings are open")
            << QVariantMap {} << false << false << esc << 0 << QStringList { "keys(Esc)" };
        QTest::newRow("Esc with Ctrl held is not the command")
            << QVariantMap {} << true << false << esc << Ctrl << QStringList { "keys(Ctrl+Esc)" };
        QTest::newRow("a bare K binding acts")
            << QVariantMap { { "pen", "K" } } << true << false << letter('K') << 0
            << QStringList { "keys(K)", "tool(pen)" };
        QTest::newRow("a bare K binding does not act with Shift held")
            << QVariantMap { { "pen", "K" } } << true << false << letter('K') << Shift
            << QStringList { "keys(Shift+K)" };
        QTest::newRow("a bare digit binding acts on the digit")
            << QVariantMap { { "clear", "9" } } << true << false << digit(9) << 0
            << QStringList { "keys(9)", "clear" };
        QTest::newRow("a registered combination is left to the hotkey path")
            << QVariantMap {} << true << false << digit(3) << Alt << QStringList { "keys(Alt+3)" };
        QTest::newRow("F5 through the observer is only shown")
            << QVariantMap {} << true << false << function(5) << 0 << QStringList { "keys(F5)" };
        QTest::newRow("two bare bindings: the first action in key order wins")
            << QVariantMap { { "pen", "K" }, { "arrow", "K" } } << true << false << letter('K') << 0
            << QStringList { "keys(K)", "tool(arrow)" };
        // A locker or a password prompt holds the keyboard: the keys are theirs.
        QTest::newRow("bare Esc typed into a locker does nothing")
            << QVariantMap {} << true << true << esc << 0 << QStringList {};
        QTest::newRow("a bare K binding typed into a password prompt does nothing")
            << QVariantMap { { "pen", "K" } } << true << true << letter('K') << 0 << QStringList {};
        QTest::newRow("Shift+S typed into a password prompt is not shown")
            << QVariantMap {} << true << true << letter('S') << Shift << QStringList {};
    }

    void keyHandler()
    {
        QFETCH(QVariantMap, changes);
        QFETCH(bool, commandKeysActive);
        QFETCH(bool, grabbedElsewhere);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QStringList, events);

        m_manager->setHotkeys(mapWith(changes));
        m_manager->setCommandKeysActive(commandKeysActive);
        m_system.keyboardGrabbed = grabbedElsewhere;
        Recorder recorder(m_manager.get());
        m_backend->tapKey(key, modifiers);
        QCOMPARE(recorder.events, events);
    }

    void keystrokeText_data()
    {
        QTest::addColumn<QString>(
            "switches"); // E enabled, M modifier, F function, N navigation, A letters
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("text");

        const QString defaults = QStringLiteral("EMFN");
        QTest::newRow("Ctrl alone") << defaults << int(KeyCode::LeftControl) << 0 << "Ctrl";
        QTest::newRow("Shift pressed while Ctrl is held names Shift only")
            << defaults << int(KeyCode::LeftShift) << Ctrl << "Shift";
        QTest::newRow("right Alt") << defaults << int(KeyCode::RightAlt) << 0 << "Alt";
        QTest::newRow("the Win key") << defaults << int(KeyCode::LeftWin) << 0 << "Win";
        QTest::newRow("Ctrl+Space") << defaults << int(KeyCode::Space) << Ctrl << "Ctrl+Space";
        QTest::newRow("Space alone belongs to no class")
            << defaults << int(KeyCode::Space) << 0 << "";
        QTest::newRow("a letter with letters off") << defaults << letter('A') << 0 << "";
        QTest::newRow("Shift+A through the modifier switch")
            << defaults << letter('A') << Shift << "Shift+A";
        QTest::newRow("a letter with letters on") << "EMFNA" << letter('A') << 0 << "A";
        QTest::newRow("a digit with letters on") << "EA" << digit(0) << 0 << "0";
        QTest::newRow("a key without a name, even with modifiers")
            << defaults << 0xB3 << Ctrl << "";
        QTest::newRow("held modifiers in reading order")
            << defaults << function(5) << (Ctrl | Alt | Shift | Win) << "Win+Ctrl+Alt+Shift+F5";
        QTest::newRow("F12 through the function switch") << "EF" << function(12) << 0 << "F12";
        QTest::newRow("a function key with its switch off") << "EMN" << function(12) << 0 << "";
        QTest::newRow("a function key shown for its modifier")
            << "EM" << function(12) << Ctrl << "Ctrl+F12";
        QTest::newRow("PageUp is navigation") << "EN" << int(KeyCode::PageUp) << 0 << "PageUp";
        QTest::newRow("Backspace with navigation off")
            << "EMF" << int(KeyCode::Backspace) << 0 << "";
        QTest::newRow("a modifier key with the modifier switch off")
            << "EFNA" << int(KeyCode::RightShift) << Ctrl << "";
        QTest::newRow("a letter with a modifier but the modifier switch off")
            << "EFN" << letter('C') << Ctrl << "";
        QTest::newRow("nothing while the display is off") << "MFNA" << letter('C') << Ctrl << "";
    }

    void keystrokeText()
    {
        QFETCH(QString, switches);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QString, text);

        const KeystrokeFilter filter { switches.contains(u'E'), switches.contains(u'M'),
                                       switches.contains(u'F'), switches.contains(u'N'),
                                       switches.contains(u'A') };
        QCOMPARE(filter.text(key, modifiers), text);

        // The service shows the same text for the key from the observer.
        m_manager->setKeystrokeFilter(filter.enabled, filter.modifierKeys, filter.functionKeys,
                                      filter.navigationKeys, filter.alphaNumericKeys);
        m_manager->setCommandKeysActive(false);
        Recorder recorder(m_manager.get());
        m_backend->tapKey(key, modifiers);
        QCOMPARE(recorder.events,
                 text.isEmpty() ? QStringList {} : QStringList { "keys(" + text + ")" });
        // Only a key that would be shown asks whether another program holds
        // the keyboard: the question briefly grabs it.
        QCOMPARE(m_system.grabQuestions, text.isEmpty() ? 0 : 1);
    }

    void withoutAnXServerNothingIsGrabbed()
    {
        HotkeyManager manager(std::make_unique<XcbHotkeyBackend>());
        QVERIFY(!manager.globalHotkeysAvailable());
        manager.start();
        QCOMPARE(manager.hotkeyConflictRevision(), 1);
        QVERIFY(manager.hotkeyHasConflict(QStringLiteral("toggleOverlay")));
    }

private:
    FakeKeySystem m_system;
    FakeHotkeyBackend *m_backend = nullptr;
    std::unique_ptr<HotkeyManager> m_manager;
};

QTEST_GUILESS_MAIN(TestHotkeys)
#include "tst_hotkeys.moc"
