#include "TestStore.h"
#include "settings/SettingsManager.h"

#include <QDir>
#include <QFile>
#include <QMetaProperty>
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

    void everyPropertyRoundTripsThroughTheStore();
    void setterRules_data();
    void setterRules();
    void loadRules_data();
    void loadRules();
    void warnsAboutValuesThatDoNotConvert_data();
    void warnsAboutValuesThatDoNotConvert();
    void visualProfileMigration_data();
    void visualProfileMigration();
    void saveFolderDefaultsToDownloads();
    void corruptFileGivesDefaultsAndIsKept();
    void garbageFileNeverCrashes();
    void generalGroupAsAnEarlierRunWroteIt();
    void failedSyncWarnsAndKeepsTheValue_data();
    void failedSyncWarnsAndKeepsTheValue();
    void launchAtLoginDrivesTheLoginEntry();
    void resetDefaults();
    void availableLanguages();

private:
    std::unique_ptr<TestStore> m_store;
};

// Catches a key that differs between the setter and the load, and a setter
// that forgets its signal.
void TestSettingsManager::everyPropertyRoundTripsThroughTheStore()
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

void TestSettingsManager::setterRules_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("start");
    QTest::addColumn<QVariant>("argument");
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<QString>("key");

    const QVariant none;
    QTest::newRow("radius below range clamps to 60")
        << "spotlightRadius"_ba << none << QVariant(59) << QVariant(60) << "spotlight/radius";
    QTest::newRow("radius above range clamps to 400")
        << "spotlightRadius"_ba << none << QVariant(401) << QVariant(400) << "spotlight/radius";
    QTest::newRow("darkness equal to the default is no change")
        << "darknessOpacity"_ba << none << QVariant(0.67) << QVariant(0.67)
        << "spotlight/darknessOpacity";
    QTest::newRow("darkness a rounding error away is no change")
        << "darknessOpacity"_ba << none << QVariant(0.67 + 1e-14) << QVariant(0.67)
        << "spotlight/darknessOpacity";
    QTest::newRow("darkness above range clamps to 0.9")
        << "darknessOpacity"_ba << none << QVariant(0.95) << QVariant(0.9)
        << "spotlight/darknessOpacity";
    QTest::newRow("edge blur below zero clamps")
        << "edgeBlur"_ba << none << QVariant(-5) << QVariant(0) << "spotlight/edgeBlur";
    QTest::newRow("smoothing seconds clamp to 0.5")
        << "spotlightSmoothingSeconds"_ba << none << QVariant(0.7) << QVariant(0.5)
        << "spotlight/smoothingSeconds";
    QTest::newRow("smoothing seconds may be zero")
        << "spotlightSmoothingSeconds"_ba << none << QVariant(0.0) << QVariant(0.0)
        << "spotlight/smoothingSeconds";
    QTest::newRow("brush size zero clamps to 1")
        << "brushSize"_ba << none << QVariant(0) << QVariant(1) << "drawing/brushSize";
    QTest::newRow("stroke smoothing clamps to 3")
        << "strokeSmoothing"_ba << none << QVariant(4) << QVariant(3) << "drawing/strokeSmoothing";
    QTest::newRow("eraser is not a default tool")
        << "defaultDrawingTool"_ba << QVariant(u"arrow"_s) << QVariant(u"eraser"_s)
        << QVariant(u"pen"_s) << "drawing/defaultTool";
    QTest::newRow("tool names are case-sensitive")
        << "defaultDrawingTool"_ba << QVariant(u"arrow"_s) << QVariant(u"Circle"_s)
        << QVariant(u"pen"_s) << "drawing/defaultTool";
    QTest::newRow("empty tool gives pen")
        << "defaultDrawingTool"_ba << QVariant(u"arrow"_s) << QVariant(QString())
        << QVariant(u"pen"_s) << "drawing/defaultTool";
    QTest::newRow("drawing colour ignores case")
        << "defaultDrawingColor"_ba << none << QVariant(u"#f4c24a"_s) << QVariant(u"#F4C24A"_s)
        << "drawing/defaultColor";
    QTest::newRow("click colour compares case")
        << "leftClickColor"_ba << none << QVariant(u"#f4a65a"_s) << QVariant(u"#f4a65a"_s)
        << "effects/leftClickColor";
    QTest::newRow("ripple size clamps to 120")
        << "rippleSize"_ba << none << QVariant(500) << QVariant(120) << "effects/rippleSize";
    QTest::newRow("ripple duration clamps to 200") << "rippleDuration"_ba << none << QVariant(100)
                                                   << QVariant(200) << "effects/rippleDuration";
    QTest::newRow("fade clamps to 500")
        << "keystrokeFadeMs"_ba << none << QVariant(10) << QVariant(500) << "keystrokes/fadeMs";
    QTest::newRow("keystroke position clamps to 2")
        << "keystrokePosition"_ba << none << QVariant(3) << QVariant(2) << "keystrokes/position";
    QTest::newRow("ui scale clamps to 1.5")
        << "uiScale"_ba << none << QVariant(2.0) << QVariant(1.5) << "general/uiScale";
    QTest::newRow("ui scale clamps to 0.9")
        << "uiScale"_ba << none << QVariant(0.5) << QVariant(0.9) << "general/uiScale";
    QTest::newRow("linux theme clamps to 0")
        << "linuxTheme"_ba << none << QVariant(-1) << QVariant(0) << "general/linuxTheme";
    QTest::newRow("windows theme clamps to 2")
        << "windowsTheme"_ba << QVariant(0) << QVariant(7) << QVariant(2) << "general/windowsTheme";
    QTest::newRow("jpg with spaces gives JPEG")
        << "captureImageFormat"_ba << none << QVariant(u" jpg "_s) << QVariant(u"JPEG"_s)
        << "capture/imageFormat";
    QTest::newRow("webp gives WebP") << "captureImageFormat"_ba << none << QVariant(u"webp"_s)
                                     << QVariant(u"WebP"_s) << "capture/imageFormat";
    QTest::newRow("tiff gives PNG")
        << "captureImageFormat"_ba << QVariant(u"JPEG"_s) << QVariant(u"tiff"_s)
        << QVariant(u"PNG"_s) << "capture/imageFormat";
    QTest::newRow("quality clamps to 50") << "captureImageQuality"_ba << none << QVariant(49)
                                          << QVariant(50) << "capture/imageQuality";
    QTest::newRow("save folder is trimmed")
        << "captureSaveFolder"_ba << none << QVariant(u"  /srv/shots \t"_s)
        << QVariant(u"/srv/shots"_s) << "capture/saveFolder";
    QTest::newRow("record quality clamps to 2")
        << "recordQuality"_ba << none << QVariant(3) << QVariant(2) << "record/quality";
    QTest::newRow("zoom clamps to 1.25") << "magnifierZoomFactor"_ba << none << QVariant(1.0)
                                         << QVariant(1.25) << "magnifier/zoomFactor";
    QTest::newRow("zoom clamps to 4") << "magnifierZoomFactor"_ba << none << QVariant(4.5)
                                      << QVariant(4.0) << "magnifier/zoomFactor";
}

void TestSettingsManager::setterRules()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, start);
    QFETCH(QVariant, argument);
    QFETCH(QVariant, expected);
    QFETCH(QString, key);

    auto manager = makeManager();
    if (start.isValid())
        QVERIFY(manager->setProperty(property, start));
    const QVariant before = manager->property(property);
    const bool changes = before != expected;
    QSignalSpy spy(manager.get(), ("2" + property + "Changed()").constData());

    QVERIFY(manager->setProperty(property, argument));
    QCOMPARE(manager->property(property), expected);
    QCOMPARE(spy.count(), changes ? 1 : 0);
    if (changes)
        QCOMPARE(m_store->value(key), expected);
    else if (!start.isValid())
        QVERIFY2(!m_store->contains(key), "an unchanged value must not be written");

    manager->setProperty(property, argument);
    QCOMPARE(spy.count(), changes ? 1 : 0);
}

void TestSettingsManager::loadRules_data()
{
    QTest::addColumn<QVariantMap>("stored");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("text for the radius meets the clamp")
        << QVariantMap { { u"spotlight/radius"_s, u"abc"_s } } << "spotlightRadius"_ba
        << QVariant(60);
    QTest::newRow("radius above range is clamped")
        << QVariantMap { { u"spotlight/radius"_s, 1000 } } << "spotlightRadius"_ba << QVariant(400);
    QTest::newRow("darkness below range is clamped")
        << QVariantMap { { u"spotlight/darknessOpacity"_s, 0.1 } } << "darknessOpacity"_ba
        << QVariant(0.2);
    QTest::newRow("text for the ui scale meets the clamp")
        << QVariantMap { { u"general/uiScale"_s, u"big"_s } } << "uiScale"_ba << QVariant(0.9);
    QTest::newRow("brush size is clamped")
        << QVariantMap { { u"drawing/brushSize"_s, 0 } } << "brushSize"_ba << QVariant(1);
    QTest::newRow("stroke smoothing is clamped")
        << QVariantMap { { u"drawing/strokeSmoothing"_s, 9 } } << "strokeSmoothing"_ba
        << QVariant(3);
    QTest::newRow("keystroke position is clamped")
        << QVariantMap { { u"keystrokes/position"_s, -3 } } << "keystrokePosition"_ba
        << QVariant(0);
    QTest::newRow("ripple size is not clamped on load")
        << QVariantMap { { u"effects/rippleSize"_s, 500 } } << "rippleSize"_ba << QVariant(500);
    QTest::newRow("ripple duration is not clamped on load")
        << QVariantMap { { u"effects/rippleDuration"_s, 50 } } << "rippleDuration"_ba
        << QVariant(50);
    QTest::newRow("unknown tool loads pen")
        << QVariantMap { { u"drawing/defaultTool"_s, u"eraser"_s } } << "defaultDrawingTool"_ba
        << QVariant(u"pen"_s);
    QTest::newRow("tool text must match exactly")
        << QVariantMap { { u"drawing/defaultTool"_s, u"Arrow"_s } } << "defaultDrawingTool"_ba
        << QVariant(u"pen"_s);
    QTest::newRow("image format is normalised")
        << QVariantMap { { u"capture/imageFormat"_s, u"jpg"_s } } << "captureImageFormat"_ba
        << QVariant(u"JPEG"_s);
    QTest::newRow("unknown image format loads PNG")
        << QVariantMap { { u"capture/imageFormat"_s, u"bmp"_s } } << "captureImageFormat"_ba
        << QVariant(u"PNG"_s);
    QTest::newRow("colour loads as stored")
        << QVariantMap { { u"effects/rightClickColor"_s, u"not a colour"_s } }
        << "rightClickColor"_ba << QVariant(u"not a colour"_s);
    QTest::newRow("a stored empty save folder wins")
        << QVariantMap { { u"capture/saveFolder"_s, QString() } } << "captureSaveFolder"_ba
        << QVariant(QString());
    QTest::newRow("old single-display switch is inherited")
        << QVariantMap { { u"displays/singleDisplay"_s, true } } << "spotlightActiveDisplayOnly"_ba
        << QVariant(true);
    QTest::newRow("the new key wins over the old switch")
        << QVariantMap { { u"displays/singleDisplay"_s, true },
                         { u"displays/spotlightActiveOnly"_s, false } }
        << "spotlightActiveDisplayOnly"_ba << QVariant(false);
}

void TestSettingsManager::loadRules()
{
    QFETCH(QVariantMap, stored);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, expected);

    m_store->write(stored);
    auto manager = makeManager();
    QCOMPARE(manager->property(property), expected);
}

void TestSettingsManager::warnsAboutValuesThatDoNotConvert_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<bool>("warns");

    QTest::newRow("text for an integer") << u"spotlight/radius"_s << QVariant(u"abc"_s) << true;
    QTest::newRow("text for a double") << u"general/uiScale"_s << QVariant(u"big"_s) << true;
    QTest::newRow("text for a switch") << u"drawing/clearOnPause"_s << QVariant(u"maybe"_s) << true;
    QTest::newRow("a list for a string")
        << u"general/language"_s << QVariant(QStringList { u"de"_s, u"fr"_s }) << true;
    QTest::newRow("a list for a hotkey")
        << u"hotkeys/undo"_s << QVariant(QStringList { u"Ctrl"_s, u"Z"_s }) << true;
    QTest::newRow("a number as text is fine") << u"spotlight/radius"_s << QVariant(200) << false;
}

void TestSettingsManager::warnsAboutValuesThatDoNotConvert()
{
    QFETCH(QString, key);
    QFETCH(QVariant, stored);
    QFETCH(bool, warns);

    m_store->write({ { key, stored } });
    const QRegularExpression message(u"^SettingsManager: .*"_s + QRegularExpression::escape(key));
    if (warns)
        QTest::ignoreMessage(QtWarningMsg, message);
    else
        QTest::failOnWarning(message);
    makeManager();
}

void TestSettingsManager::visualProfileMigration_data()
{
    QTest::addColumn<int>("radius");
    QTest::addColumn<double>("darkness");
    QTest::addColumn<int>("edgeBlur");
    QTest::addColumn<int>("profile"); // 0: no profile key
    QTest::addColumn<bool>("migrates");
    QTest::addColumn<int>("profileAfter");

    QTest::newRow("heavy look without a profile") << 160 << 0.78 << 51 << 0 << true << 4;
    QTest::newRow("heavy look with edge 50 at profile 2") << 160 << 0.78 << 50 << 2 << true << 4;
    QTest::newRow("heavy look at profile 3 is the user's") << 160 << 0.78 << 51 << 3 << false << 4;
    QTest::newRow("medium look at profile 3") << 170 << 0.82 << 60 << 3 << true << 4;
    QTest::newRow("medium look at profile 4 stays") << 170 << 0.82 << 60 << 4 << false << 4;
    QTest::newRow("a newer profile is left alone") << 170 << 0.82 << 60 << 5 << false << 5;
    QTest::newRow("edge 52 is not the heavy look") << 160 << 0.78 << 52 << 0 << false << 4;
    QTest::newRow("darkness 0.781 is not the heavy look") << 160 << 0.781 << 51 << 1 << false << 4;
}

void TestSettingsManager::visualProfileMigration()
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

void TestSettingsManager::saveFolderDefaultsToDownloads()
{
    const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    QVERIFY(downloads.startsWith(QDir::homePath()));
    auto manager = makeManager();
    QCOMPARE(manager->captureSaveFolder(), downloads);
    QVERIFY2(!m_store->contains(u"capture/saveFolder"_s), "the default must not be written");
}

void TestSettingsManager::corruptFileGivesDefaultsAndIsKept()
{
    // An unterminated group header is a format error for the INI reader.
    const QByteArray broken = "[spotlight\nradius=300\n[drawing]\nbrushSize=20\n";
    QDir().mkpath(QFileInfo(m_store->filePath()).absolutePath());
    QFile file(m_store->filePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(broken);
    file.close();

    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(u"^SettingsManager: cannot read .*"_s
                                            + QRegularExpression::escape(m_store->filePath())));
    auto manager = makeManager();
    QCOMPARE(manager->spotlightRadius(), 120);
    QCOMPARE(manager->brushSize(), 5);
    QCOMPARE(manager->hotkeyMap().size(), 16);

    QFile backup(m_store->filePath() + u".bad"_s);
    QVERIFY(backup.open(QIODevice::ReadOnly));
    QCOMPARE(backup.readAll(), broken);
}

void TestSettingsManager::generalGroupAsAnEarlierRunWroteIt()
{
    // What an earlier process leaves on disk for the group "general": the INI
    // writer escapes it, and a new process reads it back as "General".
    QDir().mkpath(QFileInfo(m_store->filePath()).absolutePath());
    QFile file(m_store->filePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[%General]\nconfirmQuit=false\nfirstRunDone=true\nuiScale=1.5\nlanguage=de\n");
    file.close();

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

void TestSettingsManager::garbageFileNeverCrashes()
{
    QByteArray garbage;
    for (int i = 0; i < 4096; ++i)
        garbage.append(char((i * 7919 + 13) % 256));
    garbage.insert(100, "\n[general]\nuiScale=\xff\xfe\nlanguage=\"unterminated\n");
    QDir().mkpath(QFileInfo(m_store->filePath()).absolutePath());
    QFile file(m_store->filePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(garbage);
    file.close();

    auto manager = makeManager();
    QVERIFY(manager->uiScale() >= 0.9 && manager->uiScale() <= 1.5);
    QVERIFY(manager->spotlightRadius() >= 60 && manager->spotlightRadius() <= 400);
    QCOMPARE(manager->hotkeyMap().size(), 16);
    manager->setBrushSize(9);
    QCOMPARE(manager->brushSize(), 9);
}

void TestSettingsManager::failedSyncWarnsAndKeepsTheValue_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<bool>("value");

    QTest::newRow("first run done") << "firstRunDone"_ba << true;
    QTest::newRow("confirm quit") << "confirmQuit"_ba << false;
}

void TestSettingsManager::failedSyncWarnsAndKeepsTheValue()
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
                                            + QLatin1String(property) + u"\\), status=\\d+ path="_s
                                            + QRegularExpression::escape(m_store->filePath())));
    QVERIFY(manager->setProperty(property, value));
    QCOMPARE(manager->property(property), QVariant(value));
    QCOMPARE(spy.count(), 1);
}

void TestSettingsManager::launchAtLoginDrivesTheLoginEntry()
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

void TestSettingsManager::resetDefaults()
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

void TestSettingsManager::availableLanguages()
{
    auto manager = makeManager();
    const QVariantList rows = manager->availableLanguages();
    QCOMPARE(rows.size(), 15);
    QSet<QString> codes;
    int supported = 0;
    for (const QVariant &row : rows) {
        const QVariantMap map = row.toMap();
        QCOMPARE(map.keys(),
                 (QStringList { u"code"_s, u"englishName"_s, u"nativeName"_s, u"supported"_s }));
        QVERIFY(!map.value(u"nativeName"_s).toString().isEmpty());
        codes.insert(map.value(u"code"_s).toString());
        // The offered-but-coming rows all follow the supported ones.
        if (map.value(u"supported"_s).toBool())
            QCOMPARE(supported++, rows.indexOf(row));
    }
    QCOMPARE(codes.size(), 15);
    QCOMPARE(supported, 10);
    QCOMPARE(rows.first().toMap().value(u"code"_s), QVariant(u"en"_s));
}

QTEST_GUILESS_MAIN(TestSettingsManager)
#include "tst_settingsmanager.moc"
