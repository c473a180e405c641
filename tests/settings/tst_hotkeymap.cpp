#include "TestStore.h"
#include "settings/HotkeyActions.h"
#include "settings/HotkeySequence.h"
#include "settings/SettingsManager.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class TestHotkeyMap : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_store = std::make_unique<TestStore>(); }
    void cleanup() { m_store.reset(); }

    void canonical_data()
    {
        QTest::addColumn<QString>("sequence");
        QTest::addColumn<QString>("expected");

        QTest::newRow("spaces around plus") << u"ctrl + shift + z"_s << u"Ctrl+Shift+Z"_s;
        QTest::newRow("modifiers are reordered") << u"Shift+Ctrl+z"_s << u"Ctrl+Shift+Z"_s;
        QTest::newRow("white space separates") << u"control shift Z"_s << u"Ctrl+Shift+Z"_s;
        QTest::newRow("platform modifier names") << u"super+option+x"_s << u"Alt+Win+X"_s;
        QTest::newRow("all four modifiers in order")
            << u"win+shift+alt+ctrl+f5"_s << u"Ctrl+Alt+Shift+Win+F5"_s;
        QTest::newRow("the last key wins") << u"Alt+1+2"_s << u"Alt+2"_s;
        QTest::newRow("repeated modifier counts once") << u"ctrl+CTRL+a"_s << u"Ctrl+A"_s;
        QTest::newRow("escape is shortened") << u"Escape"_s << u"Esc"_s;
        QTest::newRow("escape after a modifier") << u"ctrl+ESC"_s << u"Ctrl+Esc"_s;
        QTest::newRow("function key upper-cased") << u"f5"_s << u"F5"_s;
        QTest::newRow("any f-word is upper-cased") << u"foo"_s << u"FOO"_s;
        QTest::newRow("other words keep their case") << u"Space"_s << u"Space"_s;
        QTest::newRow("padding is ignored") << u"  f12 \t"_s << u"F12"_s;
        QTest::newRow("modifiers alone are kept") << u"shift+ctrl"_s << u"Ctrl+Shift"_s;
        QTest::newRow("a lone plus is empty") << u"+"_s << QString();
        QTest::newRow("blanks are empty") << u"   "_s << QString();
        QTest::newRow("nothing is empty") << QString() << QString();
    }

    void canonical()
    {
        QFETCH(QString, sequence);
        QFETCH(QString, expected);
        QCOMPARE(HotkeySequence::canonical(sequence), expected);
    }

    // The defaults are compared as text against what the editor saves, so they
    // must already be in canonical form.
    void defaultsAreCanonical()
    {
        QSet<QString> ids;
        for (const HotkeyAction &row : hotkeyActions) {
            const QString sequence = QString::fromLatin1(row.defaultSequence);
            QCOMPARE(HotkeySequence::canonical(sequence), sequence);
            ids.insert(QLatin1String(row.id));
        }
        QCOMPARE(ids.size(), int(hotkeyActions.size()));

        auto manager = makeManager();
        const QVariantMap map = manager->hotkeyMap();
        QCOMPARE(QSet<QString>(map.keyBegin(), map.keyEnd()), ids);
    }

    void setHotkeyForAction_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("sequence");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<bool>("accepted");

        QTest::newRow("new sequence is stored canonical")
            << u"undo"_s << u"ctrl y"_s << u"Ctrl+Y"_s << true;
        QTest::newRow("modifiers alone are accepted")
            << u"quit"_s << u"Shift+Ctrl"_s << u"Ctrl+Shift"_s << true;
        QTest::newRow("an empty form cannot clear a hotkey")
            << u"undo"_s << u"+"_s << u"Ctrl+Z"_s << false;
        QTest::newRow("the same sequence in other words is no change")
            << u"redo"_s << u"shift ctrl z"_s << u"Ctrl+Shift+Z"_s << false;
        QTest::newRow("an unknown action is ignored")
            << u"bogus"_s << u"F9"_s << QString() << false;
    }

    void setHotkeyForAction()
    {
        QFETCH(QString, action);
        QFETCH(QString, sequence);
        QFETCH(QString, expected);
        QFETCH(bool, accepted);

        auto manager = makeManager();
        QSignalSpy spy(manager.get(), &SettingsManager::hotkeysChanged);
        manager->setHotkeyForAction(action, sequence);

        QCOMPARE(manager->hotkeyForAction(action), expected);
        QCOMPARE(manager->hotkeysRevision(), accepted ? 1 : 0);
        QCOMPARE(spy.count(), accepted ? 1 : 0);
        QCOMPARE(m_store->value(u"hotkeys/"_s + action),
                 accepted ? QVariant(expected) : QVariant());
        QCOMPARE(manager->hotkeyMap().contains(action), !expected.isEmpty());

        // Saving what the action already has does not count.
        manager->setHotkeyForAction(action, expected);
        QCOMPARE(manager->hotkeysRevision(), accepted ? 1 : 0);
    }

    void resetHotkeysAlwaysCounts()
    {
        auto manager = makeManager();
        manager->setHotkeyForAction(u"pen"_s, u"Alt+P"_s);
        QSignalSpy spy(manager.get(), &SettingsManager::hotkeysChanged);

        manager->resetHotkeys();
        QCOMPARE(manager->hotkeyForAction(u"pen"_s), u"Alt+3"_s);
        QVERIFY(!m_store->contains(u"hotkeys/pen"_s));
        QCOMPARE(manager->hotkeysRevision(), 2);

        manager->resetHotkeys();
        QCOMPARE(manager->hotkeysRevision(), 3);
        QCOMPARE(spy.count(), 2);
    }

    void loadKeepsStoredTextAsIs()
    {
        m_store->write({ { u"hotkeys/quit"_s, u"ctrl+q"_s }, { u"hotkeys/retired"_s, u"F1"_s } });
        auto manager = makeManager();

        QCOMPARE(manager->hotkeyForAction(u"quit"_s), u"ctrl+q"_s);
        QCOMPARE(manager->hotkeyForAction(u"retired"_s), QString());
        QCOMPARE(manager->hotkeyMap().size(), int(hotkeyActions.size()));
        QCOMPARE(manager->hotkeysRevision(), 0);
        // Keys of unknown actions stay where they are.
        QCOMPARE(m_store->value(u"hotkeys/retired"_s), QVariant(u"F1"_s));
    }

private:
    std::unique_ptr<SettingsManager> makeManager()
    {
        return std::make_unique<SettingsManager>(std::make_unique<FakeLoginEntry>(&m_loginCalls));
    }

    std::unique_ptr<TestStore> m_store;
    QStringList m_loginCalls;
};

QTEST_GUILESS_MAIN(TestHotkeyMap)
#include "tst_hotkeymap.moc"
