#include "TestStore.h"
#include "settings/SettingsManager.h"

#include <QDir>
#include <QFile>
#include <QMetaProperty>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<SettingsManager> makeManager(QStringList *loginCalls = nullptr)
{
    static QStringList ignored;
    return std::make_unique<SettingsManager>(
        std::make_unique<FakeLoginEntry>(loginCalls ? loginCalls : &ignored));
}

// The writable properties in declaration order.
QList<QMetaProperty> writableProperties()
{
    QList<QMetaProperty> list;
    const QMetaObject &meta = SettingsManager::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        if (meta.property(i).isWritable())
            list.append(meta.property(i));
    }
    return list;
}

std::unique_ptr<QSignalSpy> spyOn(QObject *object, const QMetaProperty &property)
{
    const QByteArray signal = "2" + property.notifySignal().methodSignature();
    return std::make_unique<QSignalSpy>(object, signal.constData());
}

// A value the setter accepts and that differs from current.
QVariant otherValue(const QMetaProperty &property, const QVariant &current)
{
    const QByteArray name = property.name();
    if (name == "defaultDrawingTool")
        return u"circle"_s;
    if (name == "captureImageFormat")
        return u"WebP"_s;
    switch (current.typeId()) {
    case QMetaType::Bool:
        return !current.toBool();
    case QMetaType::Int:
        // Ranges may end at the default; one of the two neighbours is inside.
        return name == "linuxTheme" || name == "windowsTheme" ? current.toInt() - 1
                                                              : current.toInt() + 1;
    case QMetaType::Double:
        return current.toDouble() * 0.95;
    default:
        return current.toString() + u"1"_s;
    }
}

} // namespace

class TestSettingsManager : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_store = std::make_unique<TestStore>(); }
    void cleanup() { m_store.reset(); }

    // Catches a key that differs between the setter and the load, and a setter
    // that forgets its signal.
    void everyPropertyRoundTripsThroughTheStore()
    {
        QVariantMap written;
        {
            auto manager = makeManager();
            for (const QMetaProperty &property : writableProperties()) {
                auto spy = spyOn(manager.get(), property);
                const QVariant value = otherValue(property, property.read(manager.get()));
                QVERIFY2(property.write(manager.get(), value), property.name());
                QCOMPARE(property.read(manager.get()), value);
                QVERIFY2(spy->count() == 1, property.name());
                written.insert(QLatin1String(property.name()), value);
            }
        }
        auto reloaded = makeManager();
        for (const QMetaProperty &property : writableProperties())
            QCOMPARE(property.read(reloaded.get()), written.value(QLatin1String(property.name())));
    }

    void setterRules_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("start");
        QTest::addColumn<QVariant>("argument");
        QTest::addColumn<QVariant>("expected");

        // start: a value set first (none: the default).
        const auto row = [](const char *name, const char *property, const QVariant &argument,
                            const QVariant &expected, const QVariant &start = {}) {
            QTest::newRow(name) << QByteArray(property) << start << argument << expected;
        };
        row("radius below range", "spotlightRadius", 59, 60);
        row("radius above range", "spotlightRadius", 401, 400);
        row("darkness equal to the default", "darknessOpacity", 0.67, 0.67);
        row("darkness a rounding error away", "darknessOpacity", 0.67 + 1e-14, 0.67);
        row("darkness above range", "darknessOpacity", 0.95, 0.9);
        row("edge blur below zero", "edgeBlur", -5, 0);
        row("smoothing above range", "spotlightSmoothingSeconds", 0.7, 0.5);
        row("smoothing may be zero", "spotlightSmoothingSeconds", 0.0, 0.0);
        row("brush size zero", "brushSize", 0, 1);
        row("stroke smoothing above range", "strokeSmoothing", 4, 3);
        row("eraser is not a default tool", "defaultDrawingTool", u"eraser"_s, u"pen"_s,
            u"arrow"_s);
        row("tool names are case-sensitive", "defaultDrawingTool", u"Circle"_s, u"pen"_s,
            u"arrow"_s);
        row("empty tool gives pen", "defaultDrawingTool", QString(), u"pen"_s, u"arrow"_s);
        row("drawing colour ignores case", "defaultDrawingColor", u"#f4c24a"_s, u"#F4C24A"_s);
        row("click colour compares case", "leftClickColor", u"#f4a65a"_s, u"#f4a65a"_s);
        row("ripple size above range", "rippleSize", 500, 120);
        row("ripple duration below range", "rippleDuration", 100, 200);
        row("fade below range", "keystrokeFadeMs", 10, 500);
        row("keystroke position above range", "keystrokePosition", 3, 2);
        row("ui scale above range", "uiScale", 2.0, 1.5);
        row("ui scale below range", "uiScale", 0.5, 0.9);
        row("linux theme below range", "linuxTheme", -1, 0);
        row("windows theme above range", "windowsTheme", 7, 2, 0);
        row("jpg with spaces gives JPEG", "captureImageFormat", u" jpg "_s, u"JPEG"_s);
        row("webp gives WebP", "captureImageFormat", u"webp"_s, u"WebP"_s);
        row("tiff gives PNG", "captureImageFormat", u"tiff"_s, u"PNG"_s, u"JPEG"_s);
        row("quality below range", "captureImageQuality", 49, 50);
        row("save folder is trimmed", "captureSaveFolder", u" /srv/shots \t"_s, u"/srv/shots"_s);
        row("record quality above range", "recordQuality", 3, 2);
        row("zoom below range", "magnifierZoomFactor", 1.0, 1.25);
        row("zoom above range", "magnifierZoomFactor", 4.5, 4.0);
    }

    void setterRules()
    {
        QFETCH(QByteArray, property);
        QFETCH(QVariant, start);
        QFETCH(QVariant, argument);
        QFETCH(QVariant, expected);

        auto manager = makeManager();
        if (start.isValid())
            QVERIFY(manager->setProperty(property, start));
        const bool changes = manager->property(property) != expected;
        const QStringList storedBefore = QSettings().allKeys();
        QSignalSpy spy(manager.get(), ("2" + property + "Changed()").constData());

        QVERIFY(manager->setProperty(property, argument));
        QCOMPARE(manager->property(property), expected);
        QCOMPARE(spy.count(), changes ? 1 : 0);
        manager->setProperty(property, argument);
        QCOMPARE(spy.count(), changes ? 1 : 0);
        if (!changes)
            QCOMPARE(QSettings().allKeys(), storedBefore); // an unchanged value is not written
        QCOMPARE(makeManager()->property(property), expected);
    }

    void loadRules_data()
    {
        QTest::addColumn<QVariantMap>("stored");
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("expected");

        const auto row = [](const char *name, const char *key, const QVariant &stored,
                            const char *property, const QVariant &expected) {
            QTest::newRow(name) << QVariantMap { { QString::fromLatin1(key), stored } }
                                << QByteArray(property) << expected;
        };
        row("text for the radius meets the clamp", "spotlight/radius", u"abc"_s, "spotlightRadius",
            60);
        row("radius above range", "spotlight/radius", 1000, "spotlightRadius", 400);
        row("darkness below range", "spotlight/darknessOpacity", 0.1, "darknessOpacity", 0.2);
        row("text for the ui scale meets the clamp", "general/uiScale", u"big"_s, "uiScale", 0.9);
        row("brush size", "drawing/brushSize", 0, "brushSize", 1);
        row("stroke smoothing", "drawing/strokeSmoothing", 9, "strokeSmoothing", 3);
        row("keystroke position", "keystrokes/position", -3, "keystrokePosition", 0);
        row("ripple size is not clamped on load", "effects/rippleSize", 500, "rippleSize", 500);
        row("ripple duration is not clamped on load", "effects/rippleDuration", 50,
            "rippleDuration", 50);
        row("unknown tool loads pen", "drawing/defaultTool", u"eraser"_s, "defaultDrawingTool",
            u"pen"_s);
        row("tool text must match exactly", "drawing/defaultTool", u"Arrow"_s, "defaultDrawingTool",
            u"pen"_s);
        row("image format is normalised", "capture/imageFormat", u"jpg"_s, "captureImageFormat",
            u"JPEG"_s);
        row("unknown image format loads PNG", "capture/imageFormat", u"bmp"_s, "captureImageFormat",
            u"PNG"_s);
        row("colour loads as stored", "effects/rightClickColor", u"not a colour"_s,
            "rightClickColor", u"not a colour"_s);
        row("a stored empty save folder wins", "capture/saveFolder", QString(), "captureSaveFolder",
            QString());
        row("old single-display switch is inherited", "displays/singleDisplay", true,
            "spotlightActiveDisplayOnly", true);
        QTest::newRow("the new key wins over the old switch")
            << QVariantMap { { u"displays/singleDisplay"_s, true },
                             { u"displays/spotlightActiveOnly"_s, false } }
            << "spotlightActiveDisplayOnly"_ba << QVariant(false);
    }

    void loadRules()
    {
        QFETCH(QVariantMap, stored);
        QFETCH(QByteArray, property);
        QFETCH(QVariant, expected);

        m_store->write(stored);
        auto manager = makeManager();
        QCOMPARE(manager->property(property), expected);
    }

    void warnsAboutValuesThatDoNotConvert_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<bool>("warns");

        QTest::newRow("text for an integer") << u"spotlight/radius"_s << QVariant(u"abc"_s) << true;
        QTest::newRow("text for a double") << u"general/uiScale"_s << QVariant(u"big"_s) << true;
        QTest::newRow("text for a switch")
            << u"drawing/clearOnPause"_s << QVariant(u"maybe"_s) << true;
        QTest::newRow("a list for a string")
            << u"general/language"_s << QVariant(QStringList { u"de"_s, u"fr"_s }) << true;
        QTest::newRow("a list for a hotkey")
            << u"hotkeys/undo"_s << QVariant(QStringList { u"Ctrl"_s, u"Z"_s }) << true;
        QTest::newRow("a number as text is fine")
            << u"spotlight/radius"_s << QVariant(200) << false;
    }

    void warnsAboutValuesThatDoNotConvert()
    {
        QFETCH(QString, key);
        QFETCH(QVariant, stored);
        QFETCH(bool, warns);

        m_store->write({ { key, stored } });
        const QRegularExpression message(u"^SettingsManager: .*"_s
                                         + QRegularExpression::escape(key));
        if (warns)
            QTest::ignoreMessage(QtWarningMsg, message);
        else
            QTest::failOnWarning(message);
        makeManager();
    }

    void visualProfileMigration_data()
    {
        QTest::addColumn<int>("radius");
        QTest::addColumn<double>("darkness");
        QTest::addColumn<int>("edgeBlur");
        QTest::addColumn<int>("profile"); // 0: no profile key
        QTest::addColumn<bool>("migrates");
        QTest::addColumn<int>("profileAfter");

        QTest::newRow("heavy look without a profile") << 160 << 0.78 << 51 << 0 << true << 4;
        QTest::newRow("heavy look with edge 50 at profile 2")
            << 160 << 0.78 << 50 << 2 << true << 4;
        QTest::newRow("heavy look at profile 3 is the user's")
            << 160 << 0.78 << 51 << 3 << false << 4;
        QTest::newRow("medium look at profile 3") << 170 << 0.82 << 60 << 3 << true << 4;
        QTest::newRow("medium look at profile 4 stays") << 170 << 0.82 << 60 << 4 << false << 4;
        QTest::newRow("a newer profile is left alone") << 170 << 0.82 << 60 << 5 << false << 5;
        QTest::newRow("edge 52 is not the heavy look") << 160 << 0.78 << 52 << 0 << false << 4;
        QTest::newRow("darkness 0.781 is not the heavy look")
            << 160 << 0.781 << 51 << 1 << false << 4;
    }

    void visualProfileMigration()
    {
        QFETCH(int, radius);
        QFETCH(double, darkness);
        QFETCH(int, edgeBlur);
        QFETCH(int, profile);
        QFETCH(bool, migrates);
        QFETCH(int, profileAfter);

        QVariantMap stored { { u"spotlight/radius"_s, radius },
                             { u"spotlight/darknessOpacity"_s, darkness },
                             { u"spotlight/edgeBlur"_s, edgeBlur } };
        if (profile > 0)
            stored.insert(u"spotlight/visualProfile"_s, profile);
        m_store->write(stored);

        auto manager = makeManager();
        QCOMPARE(manager->spotlightRadius(), migrates ? 120 : radius);
        QCOMPARE(manager->darknessOpacity(), migrates ? 0.67 : darkness);
        QCOMPARE(manager->edgeBlur(), migrates ? 30 : edgeBlur);
        QCOMPARE(m_store->value(u"spotlight/visualProfile"_s).toInt(), profileAfter);
        // The migrated look is written, so the next start keeps it.
        QCOMPARE(m_store->value(u"spotlight/radius"_s).toInt(), manager->spotlightRadius());
        QCOMPARE(m_store->value(u"spotlight/edgeBlur"_s).toInt(), manager->edgeBlur());
    }

    void saveFolderDefaultsToDownloads()
    {
        const QString downloads =
            QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
        QVERIFY(downloads.startsWith(QDir::homePath()));
        auto manager = makeManager();
        QCOMPARE(manager->captureSaveFolder(), downloads);
        QVERIFY2(!m_store->contains(u"capture/saveFolder"_s), "the default must not be written");
    }

    void damagedLineKeepsEveryOtherPreference()
    {
        // An unterminated group header is a format error for the INI reader;
        // the lines around it are still good.
        const QByteArray damaged = "[%General]\nfirstRunDone=true\nuiScale=1.5\n[spotlight\n"
                                   "radius=300\n[drawing]\nbrushSize=20\n";
        QVERIFY(writeRaw(damaged));

        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^SettingsManager: cannot read all of "_s
                                                + QRegularExpression::escape(m_store->filePath())
                                                + u" .*keeping every value"_s));
        auto manager = makeManager();
        QCOMPARE(manager->firstRunDone(), true);
        QCOMPARE(manager->uiScale(), 1.5);
        QCOMPARE(manager->brushSize(), 20);

        QFile backup(m_store->filePath() + u".bad"_s);
        QVERIFY(backup.open(QIODevice::ReadOnly));
        QCOMPARE(backup.readAll(), damaged);
    }

    void garbageFileNeverCrashes()
    {
        QByteArray garbage;
        for (int i = 0; i < 4096; ++i)
            garbage.append(char((i * 7919 + 13) % 256));
        garbage.insert(100, "\n[general]\nuiScale=\xff\xfe\nlanguage=\"unterminated\n");
        QVERIFY(writeRaw(garbage));

        auto manager = makeManager();
        QVERIFY(manager->uiScale() >= 0.9 && manager->uiScale() <= 1.5);
        QVERIFY(manager->spotlightRadius() >= 60 && manager->spotlightRadius() <= 400);
        QCOMPARE(manager->hotkeyMap().size(), 17);
        manager->setBrushSize(9);
        QCOMPARE(manager->brushSize(), 9);
    }

    void generalGroupAsAnEarlierRunWroteIt()
    {
        // What an earlier process leaves on disk for the group "general": the INI
        // writer escapes it, and a new process reads it back as "General".
        QVERIFY(writeRaw(
            "[%General]\nconfirmQuit=false\nfirstRunDone=true\nuiScale=1.5\nlanguage=de\n"));

        auto manager = makeManager();
        QCOMPARE(manager->confirmQuit(), false);
        QCOMPARE(manager->firstRunDone(), true);
        QCOMPARE(manager->uiScale(), 1.5);
        QCOMPARE(manager->language(), u"de"_s);

        // A reset spares only the onboarding, whichever spelling the file had.
        manager->resetDefaults();
        auto reloaded = makeManager();
        QCOMPARE(reloaded->confirmQuit(), true);
        QCOMPARE(reloaded->firstRunDone(), true);
        QCOMPARE(reloaded->uiScale(), 1.2);
    }

    void failedSyncWarnsAndKeepsTheValue_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<bool>("value");

        QTest::newRow("first run done") << "firstRunDone"_ba << true;
        QTest::newRow("confirm quit") << "confirmQuit"_ba << false;
    }

    void failedSyncWarnsAndKeepsTheValue()
    {
        QFETCH(QByteArray, property);
        QFETCH(bool, value);

        // A folder where the file should be cannot be written, even by root.
        QVERIFY(QDir().mkpath(m_store->filePath()));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^SettingsManager: cannot read"_s));
        auto manager = makeManager();
        QSignalSpy spy(manager.get(), ("2" + property + "Changed()").constData());

        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^SettingsManager: sync failed \\("_s
                                                + QLatin1String(property)
                                                + u"\\), status=\\d+ path="_s
                                                + QRegularExpression::escape(m_store->filePath())));
        QVERIFY(manager->setProperty(property, value));
        QCOMPARE(manager->property(property), QVariant(value));
        QCOMPARE(spy.count(), 1);
    }

    void launchAtLoginDrivesTheLoginEntry()
    {
        QStringList calls;
        auto manager = makeManager(&calls);
        manager->setLaunchAtLogin(true);
        manager->setLaunchAtLogin(true);
        QCOMPARE(calls, QStringList { u"add "_s + QCoreApplication::applicationFilePath() });
        QCOMPARE(m_store->value(u"general/launchAtLogin"_s), QVariant(true));
        manager->setLaunchAtLogin(false);
        QCOMPARE(calls.size(), 2);
        QCOMPARE(calls.last(), u"remove"_s);

        // Loading never repairs the entry: the store says on, but nothing is added.
        manager->setLaunchAtLogin(true);
        manager.reset();
        calls.clear();
        manager = makeManager(&calls);
        QVERIFY(manager->launchAtLogin());
        QVERIFY(calls.isEmpty());
    }

    void resetDefaults()
    {
        QStringList calls;
        QVariantMap defaults;
        {
            auto fresh = makeManager();
            for (const QMetaProperty &property : writableProperties())
                defaults.insert(QLatin1String(property.name()), property.read(fresh.get()));
        }
        m_store->write({ { u"window/geometry"_s, u"kept"_s } });

        auto manager = makeManager(&calls);
        manager->setFirstRunDone(true);
        manager->setSpotlightRadius(300);
        manager->setLaunchAtLogin(true);
        manager->setLanguage(u"de"_s);
        manager->setHotkeyForAction(u"undo"_s, u"Ctrl+Y"_s);
        calls.clear();

        QSignalSpy firstRunSpy(manager.get(), &SettingsManager::firstRunDoneChanged);
        QSignalSpy radiusSpy(manager.get(), &SettingsManager::spotlightRadiusChanged);
        QSignalSpy brushSpy(manager.get(), &SettingsManager::brushSizeChanged);
        QSignalSpy overlaySpy(manager.get(), &SettingsManager::overlayControlsAlwaysVisibleChanged);
        QSignalSpy hotkeySpy(manager.get(), &SettingsManager::hotkeysChanged);
        const int revision = manager->hotkeysRevision();

        manager->resetDefaults();

        for (const QMetaProperty &property : writableProperties()) {
            const QString name = QLatin1String(property.name());
            if (name == u"firstRunDone" || name == u"overlayControlsAlwaysVisible")
                continue;
            QCOMPARE(property.read(manager.get()), defaults.value(name));
        }
        QVERIFY(manager->firstRunDone());
        QCOMPARE(firstRunSpy.count(), 0);
        QCOMPARE(m_store->value(u"general/firstRunDone"_s), QVariant(true));
        QVERIFY(!manager->overlayControlsAlwaysVisible());
        QCOMPARE(overlaySpy.count(), 1);
        QCOMPARE(radiusSpy.count(), 1);
        QCOMPARE(brushSpy.count(), 0);
        QVERIFY2(!m_store->contains(u"drawing/brushSize"_s), "unchanged values are not rewritten");
        QCOMPARE(calls, QStringList { u"remove"_s });
        QCOMPARE(manager->hotkeysRevision(), revision + 1);
        QCOMPARE(hotkeySpy.count(), 1);
        QCOMPARE(manager->hotkeyForAction(u"undo"_s), u"Ctrl+Z"_s);
        QCOMPARE(m_store->value(u"window/geometry"_s), QVariant(u"kept"_s));
    }

    // English first, each code once, and the offered-but-coming rows after the supported ones.
    void availableLanguages()
    {
        const QVariantList rows = makeManager()->availableLanguages();
        QSet<QString> codes;
        int supported = 0;
        for (qsizetype i = 0; i < rows.size(); ++i) {
            const QVariantMap row = rows.at(i).toMap();
            QVERIFY(!row.value(u"nativeName"_s).toString().isEmpty());
            codes.insert(row.value(u"code"_s).toString());
            if (row.value(u"supported"_s).toBool())
                QCOMPARE(supported++, i);
        }
        QCOMPARE(codes.size(), rows.size());
        QCOMPARE(supported, 10);
        QCOMPARE(rows.first().toMap().value(u"code"_s), QVariant(u"en"_s));
    }

private:
    // The settings file as some earlier or broken writer left it.
    bool writeRaw(const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(m_store->filePath()).absolutePath());
        QFile file(m_store->filePath());
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

    std::unique_ptr<TestStore> m_store;
};

QTEST_GUILESS_MAIN(TestSettingsManager)
#include "tst_settingsmanager.moc"
