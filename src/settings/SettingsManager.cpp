#include "settings/SettingsManager.h"

#include "platform/LoginEntry.h"
#include "settings/AvailableLanguages.h"
#include "settings/HotkeyActions.h"
#include "settings/HotkeySequence.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(lcSettings, "glimmora.settings")

namespace {

const QStringList drawingTools { u"pen"_s, u"arrow"_s, u"rectangle"_s, u"circle"_s,
                                 u"highlighter"_s };

// Inclusive bounds of a setting; setters and, for most, the load clamp to them.
template<typename T>
struct Range
{
    T min;
    T max;
    constexpr T clamp(T value) const { return std::clamp(value, min, max); }
};

constexpr Range<int> spotlightRadiusRange { 60, 400 };
constexpr Range<double> darknessOpacityRange { 0.2, 0.9 };
constexpr Range<int> edgeBlurRange { 0, 80 };
constexpr Range<double> spotlightSmoothingSecondsRange { 0.0, 0.5 };
constexpr Range<int> brushSizeRange { 1, 32 };
constexpr Range<int> strokeSmoothingRange { 0, 3 };
constexpr Range<int> rippleSizeRange { 20, 120 };
constexpr Range<int> rippleDurationRange { 200, 1500 };
constexpr Range<int> keystrokeFadeMsRange { 500, 4000 };
constexpr Range<int> keystrokePositionRange { 0, 2 };
constexpr Range<double> uiScaleRange { 0.9, 1.5 };
constexpr Range<int> linuxThemeRange { 0, 2 };
constexpr Range<int> windowsThemeRange { 0, 2 };
constexpr Range<int> captureImageQualityRange { 50, 100 };
constexpr Range<int> recordQualityRange { 0, 2 };
constexpr Range<double> magnifierZoomFactorRange { 1.25, 4.0 };

// The current look of the spotlight; stores below it may carry an older look.
constexpr int currentVisualProfile = 4;

QString defaultSaveFolder()
{
    const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    return downloads.isEmpty() ? QDir::homePath() : downloads;
}

QString normalizedTool(const QString &tool)
{
    for (const char *kept : { "highlighter", "circle", "rectangle", "arrow" }) {
        if (tool == QLatin1String(kept))
            return tool;
    }
    return u"pen"_s;
}

QString normalizedImageFormat(const QString &format)
{
    const QString upper = format.trimmed().toUpper();
    if (upper == u"JPEG" || upper == u"JPG")
        return u"JPEG"_s;
    if (upper == u"WEBP")
        return u"WebP"_s;
    return u"PNG"_s;
}

// Equal when the difference is negligible against the smaller magnitude.
bool fuzzyEqual(double a, double b)
{
    return std::abs(a - b) * 1000000000000.0 <= std::min(std::abs(a), std::abs(b));
}

const HotkeyAction *findAction(const QString &action)
{
    const auto it = std::find_if(
        hotkeyActions.begin(), hotkeyActions.end(),
        [&action](const HotkeyAction &row) { return action == QLatin1String(row.id); });
    return it == hotkeyActions.end() ? nullptr : &*it;
}

QVariantMap defaultHotkeys()
{
    QVariantMap map;
    for (const HotkeyAction &row : hotkeyActions)
        map.insert(QLatin1String(row.id), QString::fromLatin1(row.defaultSequence));
    return map;
}

QString hotkeyKey(const QString &action)
{
    return u"hotkeys/"_s + action;
}

} // namespace

SettingsManager::SettingsManager(QObject *parent)
    : SettingsManager(LoginEntry::create(), parent)
{
}

SettingsManager::SettingsManager(std::unique_ptr<LoginEntry> loginEntry, QObject *parent)
    : QObject(parent)
    , m_loginEntry(std::move(loginEntry))
{
    const QString folder = QFileInfo(m_settings.fileName()).absolutePath();
    if (!folder.isEmpty())
        QDir().mkpath(folder);
    load();
}

SettingsManager::~SettingsManager() = default;

void SettingsManager::load()
{
    // A store not written yet reads as an error too; that is no damage.
    if (m_settings.status() != QSettings::NoError && QFile::exists(m_settings.fileName())) {
        // The reader keeps every line it could parse, so each key below still
        // gets its stored value or its default. The file as it was is kept
        // beside the store, since the next write leaves the damaged lines out.
        const QString path = m_settings.fileName();
        const QString backup = path + u".bad"_s;
        QFile::remove(backup);
        const bool kept = QFile::copy(path, backup);
        qCWarning(lcSettings).noquote().nospace()
            << "SettingsManager: cannot read all of " << path << " (status " << m_settings.status()
            << "); keeping every value that could be read"
            << (kept ? u"; kept a copy at "_s + backup : QString());
    }

    m_spotlightRadius =
        spotlightRadiusRange.clamp(readInt(u"spotlight/radius"_s, m_spotlightRadius));
    m_darknessOpacity =
        darknessOpacityRange.clamp(readDouble(u"spotlight/darknessOpacity"_s, m_darknessOpacity));
    m_edgeBlur = edgeBlurRange.clamp(readInt(u"spotlight/edgeBlur"_s, m_edgeBlur));
    m_spotlightSmoothTracking = readBool(u"spotlight/smoothTracking"_s, m_spotlightSmoothTracking);
    m_spotlightSmoothingSeconds = spotlightSmoothingSecondsRange.clamp(
        readDouble(u"spotlight/smoothingSeconds"_s, m_spotlightSmoothingSeconds));
    m_hideSpotlightWhileTyping =
        readBool(u"spotlight/hideWhileTyping"_s, m_hideSpotlightWhileTyping);
    migrateVisualProfile();
    m_brushSize = brushSizeRange.clamp(readInt(u"drawing/brushSize"_s, m_brushSize));
    m_strokeSmoothing =
        strokeSmoothingRange.clamp(readInt(u"drawing/strokeSmoothing"_s, m_strokeSmoothing));
    // Only the five drawing tools are valid here; anything else starts the pen.
    const QString tool = readString(u"drawing/defaultTool"_s, m_defaultDrawingTool);
    m_defaultDrawingTool = drawingTools.contains(tool) ? tool : u"pen"_s;
    m_defaultDrawingColor = readString(u"drawing/defaultColor"_s, m_defaultDrawingColor);
    m_showToolbarWhileDrawing =
        readBool(u"drawing/showToolbarWhileDrawing"_s, m_showToolbarWhileDrawing);
    m_undoRedoEnabled = readBool(u"drawing/undoRedoEnabled"_s, m_undoRedoEnabled);
    m_pressureSensitive = readBool(u"drawing/pressureSensitive"_s, m_pressureSensitive);
    m_clearOnPause = readBool(u"drawing/clearOnPause"_s, m_clearOnPause);
    m_clickRippleEnabled = readBool(u"effects/rippleEnabled"_s, m_clickRippleEnabled);
    m_rippleSize = readInt(u"effects/rippleSize"_s, m_rippleSize);
    m_rippleDuration = readInt(u"effects/rippleDuration"_s, m_rippleDuration);
    m_leftClickColor = readString(u"effects/leftClickColor"_s, m_leftClickColor);
    m_rightClickColor = readString(u"effects/rightClickColor"_s, m_rightClickColor);
    m_middleClickColor = readString(u"effects/middleClickColor"_s, m_middleClickColor);
    m_showClicksDuringRecording =
        readBool(u"effects/showDuringRecording"_s, m_showClicksDuringRecording);
    m_keystrokesEnabled = readBool(u"keystrokes/enabled"_s, m_keystrokesEnabled);
    m_showModifierKeys = readBool(u"keystrokes/showModifier"_s, m_showModifierKeys);
    m_showFunctionKeys = readBool(u"keystrokes/showFunction"_s, m_showFunctionKeys);
    m_showNavigationKeys = readBool(u"keystrokes/showNavigation"_s, m_showNavigationKeys);
    m_showAlphaNumericKeys = readBool(u"keystrokes/showAlphaNumeric"_s, m_showAlphaNumericKeys);
    m_muteKeystrokesInPasswordFields =
        readBool(u"keystrokes/muteInPasswordFields"_s, m_muteKeystrokesInPasswordFields);
    m_keystrokeFadeMs =
        keystrokeFadeMsRange.clamp(readInt(u"keystrokes/fadeMs"_s, m_keystrokeFadeMs));
    m_keystrokePosition =
        keystrokePositionRange.clamp(readInt(u"keystrokes/position"_s, m_keystrokePosition));
    m_launchAtLogin = readBool(u"general/launchAtLogin"_s, m_launchAtLogin);
    m_startMinimized = readBool(u"general/startMinimized"_s, m_startMinimized);
    m_showInTaskbar = readBool(u"general/showInTaskbar"_s, m_showInTaskbar);
    m_firstRunDone = readBool(u"general/firstRunDone"_s, m_firstRunDone);
    m_confirmQuit = readBool(u"general/confirmQuit"_s, m_confirmQuit);
    m_overlayControlsAlwaysVisible =
        readBool(u"general/overlayControlsAlwaysVisible"_s, m_overlayControlsAlwaysVisible);
    m_uiScale = uiScaleRange.clamp(readDouble(u"general/uiScale"_s, m_uiScale));
    m_language = readString(u"general/language"_s, m_language);
    m_linuxTheme = linuxThemeRange.clamp(readInt(u"general/linuxTheme"_s, m_linuxTheme));
    m_windowsTheme = windowsThemeRange.clamp(readInt(u"general/windowsTheme"_s, m_windowsTheme));
    m_captureImageFormat =
        normalizedImageFormat(readString(u"capture/imageFormat"_s, m_captureImageFormat));
    m_captureImageQuality =
        captureImageQualityRange.clamp(readInt(u"capture/imageQuality"_s, m_captureImageQuality));
    // A stored folder wins, even an empty one; the default is never written here.
    m_captureSaveFolder = readString(u"capture/saveFolder"_s, defaultSaveFolder());
    m_captureIncludeAnnotations =
        readBool(u"capture/includeAnnotations"_s, m_captureIncludeAnnotations);
    m_captureCopyToClipboard = readBool(u"capture/copyToClipboard"_s, m_captureCopyToClipboard);
    m_captureOpenEditor = readBool(u"capture/openEditor"_s, m_captureOpenEditor);
    m_captureShutterSound = readBool(u"capture/shutterSound"_s, m_captureShutterSound);
    m_recordOpenFolderAfterStop =
        readBool(u"record/openFolderAfterStop"_s, m_recordOpenFolderAfterStop);
    m_recordQuality = recordQualityRange.clamp(readInt(u"record/quality"_s, m_recordQuality));
    m_magnifierZoomFactor = magnifierZoomFactorRange.clamp(
        readDouble(u"magnifier/zoomFactor"_s, m_magnifierZoomFactor));
    m_singleDisplayMode = readBool(u"displays/singleDisplay"_s, m_singleDisplayMode);
    // A store from before the split inherits the single-display switch until
    // the new key is first written.
    m_spotlightActiveDisplayOnly = m_settings.contains(u"displays/spotlightActiveOnly"_s)
        ? readBool(u"displays/spotlightActiveOnly"_s, m_spotlightActiveDisplayOnly)
        : m_singleDisplayMode;
    m_mirrorAnnotationsAcrossDisplays =
        readBool(u"displays/mirrorAnnotations"_s, m_mirrorAnnotationsAcrossDisplays);
    loadHotkeys();
}

void SettingsManager::migrateVisualProfile()
{
    const int profile = readInt(u"spotlight/visualProfile"_s, 1);
    if (profile >= currentVisualProfile)
        return;
    const bool oldHeavy = profile <= 2 && m_spotlightRadius == 160
        && fuzzyEqual(m_darknessOpacity, 0.78) && (m_edgeBlur == 50 || m_edgeBlur == 51);
    const bool oldMedium =
        m_spotlightRadius == 170 && fuzzyEqual(m_darknessOpacity, 0.82) && m_edgeBlur == 60;
    if (oldHeavy || oldMedium) {
        m_spotlightRadius = 120;
        m_darknessOpacity = 0.67;
        m_edgeBlur = 30;
        m_settings.setValue(u"spotlight/radius"_s, m_spotlightRadius);
        m_settings.setValue(u"spotlight/darknessOpacity"_s, m_darknessOpacity);
        m_settings.setValue(u"spotlight/edgeBlur"_s, m_edgeBlur);
    }
    m_settings.setValue(u"spotlight/visualProfile"_s, currentVisualProfile);
}

void SettingsManager::loadHotkeys()
{
    m_hotkeys.clear();
    for (const HotkeyAction &row : hotkeyActions) {
        const QString action = QLatin1String(row.id);
        m_hotkeys.insert(action,
                         readString(hotkeyKey(action), QString::fromLatin1(row.defaultSequence)));
    }
}

QVariant SettingsManager::storedValue(const QString &key, const QVariant &fallback) const
{
    if (m_settings.contains(key))
        return m_settings.value(key);
    // The INI format keeps top-level keys in a section called [General], so a
    // group named "general" goes to the file as [%General] and comes back from
    // it, in the next process, as "General".
    static const QString lowerGroup = u"general/"_s;
    if (key.startsWith(lowerGroup)) {
        const QString upperKey = u"General/"_s + key.mid(lowerGroup.size());
        if (m_settings.contains(upperKey))
            return m_settings.value(upperKey);
    }
    return fallback;
}

void SettingsManager::store(const QString &key, const QVariant &value)
{
    // One entry per key in the file: the spelling read back from an earlier
    // run goes, so that the two cannot disagree.
    static const QString lowerGroup = u"general/"_s;
    if (key.startsWith(lowerGroup))
        m_settings.remove(u"General/"_s + key.mid(lowerGroup.size()));
    m_settings.setValue(key, value);
}

int SettingsManager::readInt(const QString &key, int fallback)
{
    const QVariant stored = storedValue(key, fallback);
    bool ok = false;
    const int value = stored.toInt(&ok);
    if (!ok)
        qCWarning(lcSettings) << "SettingsManager:" << key << "holds" << stored
                              << "which is not an integer; read as" << value;
    return value;
}

double SettingsManager::readDouble(const QString &key, double fallback)
{
    const QVariant stored = storedValue(key, fallback);
    bool ok = false;
    const double value = stored.toDouble(&ok);
    if (!ok)
        qCWarning(lcSettings) << "SettingsManager:" << key << "holds" << stored
                              << "which is not a number; read as" << value;
    return value;
}

bool SettingsManager::readBool(const QString &key, bool fallback)
{
    const QVariant stored = storedValue(key, fallback);
    bool ok = stored.typeId() == QMetaType::Bool;
    if (!ok && stored.typeId() == QMetaType::QString) {
        const QString text = stored.toString().trimmed().toLower();
        ok = text == u"true" || text == u"false" || text == u"1" || text == u"0";
    } else if (!ok) {
        ok = stored.canConvert<bool>();
    }
    const bool value = stored.toBool();
    if (!ok)
        qCWarning(lcSettings) << "SettingsManager:" << key << "holds" << stored
                              << "which is not a boolean; read as" << value;
    return value;
}

QString SettingsManager::readString(const QString &key, const QString &fallback)
{
    const QVariant stored = storedValue(key, fallback);
    const QString value = stored.toString();
    // A list (unquoted commas in the file) or a structured value is not text.
    if (stored.typeId() == QMetaType::QStringList || !stored.canConvert<QString>())
        qCWarning(lcSettings) << "SettingsManager:" << key << "holds" << stored
                              << "which is not text; read as" << value;
    return value;
}

bool SettingsManager::assign(int &member, int value, const QString &key)
{
    if (member == value)
        return false;
    member = value;
    store(key, value);
    return true;
}

bool SettingsManager::assign(double &member, double value, const QString &key)
{
    if (fuzzyEqual(member, value))
        return false;
    member = value;
    store(key, value);
    return true;
}

bool SettingsManager::assign(bool &member, bool value, const QString &key)
{
    if (member == value)
        return false;
    member = value;
    store(key, value);
    return true;
}

bool SettingsManager::assign(QString &member, const QString &value, const QString &key)
{
    if (member == value)
        return false;
    member = value;
    store(key, value);
    return true;
}

void SettingsManager::syncNow(const char *what)
{
    m_settings.sync();
    if (m_settings.status() != QSettings::NoError)
        qCWarning(lcSettings).noquote()
            << u"SettingsManager: sync failed (%1), status=%2 path=%3"_s.arg(QLatin1String(what))
                   .arg(int(m_settings.status()))
                   .arg(m_settings.fileName());
}

void SettingsManager::updateLoginEntry(bool enabled)
{
    if (!m_loginEntry)
        return;
    const bool done = enabled ? m_loginEntry->add(QCoreApplication::applicationFilePath())
                              : m_loginEntry->remove();
    if (!done)
        qCWarning(lcSettings) << "SettingsManager: could not" << (enabled ? "add" : "remove")
                              << "the login entry";
}

void SettingsManager::resetDefaults()
{
    const bool firstRunDone = m_firstRunDone;
    for (const char *group : { "spotlight", "drawing", "effects", "keystrokes", "general",
                               "capture", "record", "displays", "hotkeys", "magnifier" })
        m_settings.remove(QLatin1String(group));
    // The spelling in which a stored "general" group is read back.
    m_settings.remove(u"General"_s);
    store(u"general/firstRunDone"_s, firstRunDone);

    setSpotlightRadius(120);
    setDarknessOpacity(0.67);
    setEdgeBlur(30);
    setSpotlightSmoothTracking(false);
    setSpotlightSmoothingSeconds(0.06);
    setHideSpotlightWhileTyping(false);
    setBrushSize(5);
    setStrokeSmoothing(2);
    setDefaultDrawingTool(QStringLiteral("pen"));
    setDefaultDrawingColor(QStringLiteral("#F4C24A"));
    setShowToolbarWhileDrawing(true);
    setUndoRedoEnabled(true);
    setPressureSensitive(false);
    setClearOnPause(false);
    setClickRippleEnabled(true);
    setRippleSize(48);
    setRippleDuration(550);
    setLeftClickColor(QStringLiteral("#F4A65A"));
    setRightClickColor(QStringLiteral("#5DA8F0"));
    setMiddleClickColor(QStringLiteral("#5EC27A"));
    setShowClicksDuringRecording(true);
    setKeystrokesEnabled(true);
    setShowModifierKeys(true);
    setShowFunctionKeys(true);
    setShowNavigationKeys(true);
    setShowAlphaNumericKeys(false);
    setMuteKeystrokesInPasswordFields(true);
    setKeystrokeFadeMs(2000);
    setKeystrokePosition(1);
    setLaunchAtLogin(false);
    setStartMinimized(false);
    setShowInTaskbar(false);
    setConfirmQuit(true);
    setOverlayControlsAlwaysVisible(true);
    setUiScale(1.2);
    setLanguage(QStringLiteral("en"));
    setLinuxTheme(2);
    setWindowsTheme(2);
    setCaptureImageFormat(QStringLiteral("PNG"));
    setCaptureImageQuality(92);
    setCaptureSaveFolder(defaultSaveFolder());
    setCaptureIncludeAnnotations(true);
    setCaptureCopyToClipboard(true);
    setCaptureOpenEditor(false);
    setCaptureShutterSound(false);
    setRecordOpenFolderAfterStop(false);
    setRecordQuality(1);
    setMagnifierZoomFactor(2.0);
    setSingleDisplayMode(false);
    setSpotlightActiveDisplayOnly(false);
    setMirrorAnnotationsAcrossDisplays(false);
    // A reset hides the overlay controls, unlike a first start; kept on purpose.
    setOverlayControlsAlwaysVisible(false);
    resetHotkeys();
    m_settings.sync();
}

QString SettingsManager::hotkeyForAction(const QString &action) const
{
    if (const auto it = m_hotkeys.constFind(action); it != m_hotkeys.cend())
        return it->toString();
    const HotkeyAction *row = findAction(action);
    return row ? QString::fromLatin1(row->defaultSequence) : QString();
}

QVariantMap SettingsManager::hotkeyMap() const
{
    QVariantMap map = defaultHotkeys();
    map.insert(m_hotkeys);
    return map;
}

void SettingsManager::setHotkeyForAction(const QString &action, const QString &sequence)
{
    if (!findAction(action))
        return;
    const QString canonical = HotkeySequence::canonical(sequence);
    // A hotkey cannot be cleared, only replaced.
    if (canonical.isEmpty() || canonical == hotkeyForAction(action))
        return;
    m_hotkeys.insert(action, canonical);
    m_settings.setValue(hotkeyKey(action), canonical);
    ++m_hotkeysRevision;
    emit hotkeysChanged();
}

void SettingsManager::resetHotkeys()
{
    for (const HotkeyAction &row : hotkeyActions)
        m_settings.remove(hotkeyKey(QLatin1String(row.id)));
    m_hotkeys = defaultHotkeys();
    ++m_hotkeysRevision;
    emit hotkeysChanged();
}

QVariantList SettingsManager::hotkeyActionList() const
{
    QVariantList list;
    qsizetype regionRow = -1;
    for (const HotkeyAction &row : hotkeyActions) {
        const QString action = QLatin1String(row.id);
        const QVariantMap entry { { u"action"_s, action },
                                  { u"label"_s, QString::fromLatin1(row.label) } };
        if (action == u"captureRegion")
            regionRow = list.size();
        if (action == u"captureFullScreen" && regionRow >= 0)
            list.insert(regionRow, entry);
        else
            list.append(entry);
    }
    return list;
}

QVariantList SettingsManager::availableLanguages() const
{
    QVariantList list;
    for (const LanguageRow &row : availableLanguageRows) {
        list.append(QVariantMap { { u"code"_s, QString::fromUtf8(row.code) },
                                  { u"nativeName"_s, QString::fromUtf8(row.nativeName) },
                                  { u"englishName"_s, QString::fromUtf8(row.englishName) },
                                  { u"supported"_s, row.supported } });
    }
    return list;
}

void SettingsManager::setSpotlightRadius(int value)
{
    if (assign(m_spotlightRadius, spotlightRadiusRange.clamp(value), u"spotlight/radius"_s))
        emit spotlightRadiusChanged();
}

void SettingsManager::setDarknessOpacity(double value)
{
    if (assign(m_darknessOpacity, darknessOpacityRange.clamp(value),
               u"spotlight/darknessOpacity"_s))
        emit darknessOpacityChanged();
}

void SettingsManager::setEdgeBlur(int value)
{
    if (assign(m_edgeBlur, edgeBlurRange.clamp(value), u"spotlight/edgeBlur"_s))
        emit edgeBlurChanged();
}

void SettingsManager::setSpotlightSmoothTracking(bool value)
{
    if (assign(m_spotlightSmoothTracking, value, u"spotlight/smoothTracking"_s))
        emit spotlightSmoothTrackingChanged();
}

void SettingsManager::setSpotlightSmoothingSeconds(double value)
{
    if (assign(m_spotlightSmoothingSeconds, spotlightSmoothingSecondsRange.clamp(value),
               u"spotlight/smoothingSeconds"_s))
        emit spotlightSmoothingSecondsChanged();
}

void SettingsManager::setHideSpotlightWhileTyping(bool value)
{
    if (assign(m_hideSpotlightWhileTyping, value, u"spotlight/hideWhileTyping"_s))
        emit hideSpotlightWhileTypingChanged();
}

void SettingsManager::setBrushSize(int value)
{
    if (assign(m_brushSize, brushSizeRange.clamp(value), u"drawing/brushSize"_s))
        emit brushSizeChanged();
}

void SettingsManager::setStrokeSmoothing(int value)
{
    if (assign(m_strokeSmoothing, strokeSmoothingRange.clamp(value), u"drawing/strokeSmoothing"_s))
        emit strokeSmoothingChanged();
}

void SettingsManager::setDefaultDrawingTool(const QString &value)
{
    if (assign(m_defaultDrawingTool, normalizedTool(value), u"drawing/defaultTool"_s))
        emit defaultDrawingToolChanged();
}

void SettingsManager::setDefaultDrawingColor(const QString &value)
{
    // Only the case of the hex digits changed: same colour.
    if (m_defaultDrawingColor.compare(value, Qt::CaseInsensitive) == 0)
        return;
    m_defaultDrawingColor = value;
    m_settings.setValue(u"drawing/defaultColor"_s, value);
    emit defaultDrawingColorChanged();
}

void SettingsManager::setShowToolbarWhileDrawing(bool value)
{
    if (assign(m_showToolbarWhileDrawing, value, u"drawing/showToolbarWhileDrawing"_s))
        emit showToolbarWhileDrawingChanged();
}

void SettingsManager::setUndoRedoEnabled(bool value)
{
    if (assign(m_undoRedoEnabled, value, u"drawing/undoRedoEnabled"_s))
        emit undoRedoEnabledChanged();
}

void SettingsManager::setPressureSensitive(bool value)
{
    if (assign(m_pressureSensitive, value, u"drawing/pressureSensitive"_s))
        emit pressureSensitiveChanged();
}

void SettingsManager::setClearOnPause(bool value)
{
    if (assign(m_clearOnPause, value, u"drawing/clearOnPause"_s))
        emit clearOnPauseChanged();
}

void SettingsManager::setClickRippleEnabled(bool value)
{
    if (assign(m_clickRippleEnabled, value, u"effects/rippleEnabled"_s))
        emit clickRippleEnabledChanged();
}

void SettingsManager::setRippleSize(int value)
{
    if (assign(m_rippleSize, rippleSizeRange.clamp(value), u"effects/rippleSize"_s))
        emit rippleSizeChanged();
}

void SettingsManager::setRippleDuration(int value)
{
    if (assign(m_rippleDuration, rippleDurationRange.clamp(value), u"effects/rippleDuration"_s))
        emit rippleDurationChanged();
}

void SettingsManager::setLeftClickColor(const QString &value)
{
    if (assign(m_leftClickColor, value, u"effects/leftClickColor"_s))
        emit leftClickColorChanged();
}

void SettingsManager::setRightClickColor(const QString &value)
{
    if (assign(m_rightClickColor, value, u"effects/rightClickColor"_s))
        emit rightClickColorChanged();
}

void SettingsManager::setMiddleClickColor(const QString &value)
{
    if (assign(m_middleClickColor, value, u"effects/middleClickColor"_s))
        emit middleClickColorChanged();
}

void SettingsManager::setShowClicksDuringRecording(bool value)
{
    if (assign(m_showClicksDuringRecording, value, u"effects/showDuringRecording"_s))
        emit showClicksDuringRecordingChanged();
}

void SettingsManager::setKeystrokesEnabled(bool value)
{
    if (assign(m_keystrokesEnabled, value, u"keystrokes/enabled"_s))
        emit keystrokesEnabledChanged();
}

void SettingsManager::setShowModifierKeys(bool value)
{
    if (assign(m_showModifierKeys, value, u"keystrokes/showModifier"_s))
        emit showModifierKeysChanged();
}

void SettingsManager::setShowFunctionKeys(bool value)
{
    if (assign(m_showFunctionKeys, value, u"keystrokes/showFunction"_s))
        emit showFunctionKeysChanged();
}

void SettingsManager::setShowNavigationKeys(bool value)
{
    if (assign(m_showNavigationKeys, value, u"keystrokes/showNavigation"_s))
        emit showNavigationKeysChanged();
}

void SettingsManager::setShowAlphaNumericKeys(bool value)
{
    if (assign(m_showAlphaNumericKeys, value, u"keystrokes/showAlphaNumeric"_s))
        emit showAlphaNumericKeysChanged();
}

void SettingsManager::setMuteKeystrokesInPasswordFields(bool value)
{
    if (assign(m_muteKeystrokesInPasswordFields, value, u"keystrokes/muteInPasswordFields"_s))
        emit muteKeystrokesInPasswordFieldsChanged();
}

void SettingsManager::setKeystrokeFadeMs(int value)
{
    if (assign(m_keystrokeFadeMs, keystrokeFadeMsRange.clamp(value), u"keystrokes/fadeMs"_s))
        emit keystrokeFadeMsChanged();
}

void SettingsManager::setKeystrokePosition(int value)
{
    if (assign(m_keystrokePosition, keystrokePositionRange.clamp(value), u"keystrokes/position"_s))
        emit keystrokePositionChanged();
}

void SettingsManager::setLaunchAtLogin(bool value)
{
    if (!assign(m_launchAtLogin, value, u"general/launchAtLogin"_s))
        return;
    updateLoginEntry(value);
    emit launchAtLoginChanged();
}

void SettingsManager::setStartMinimized(bool value)
{
    if (assign(m_startMinimized, value, u"general/startMinimized"_s))
        emit startMinimizedChanged();
}

void SettingsManager::setShowInTaskbar(bool value)
{
    if (assign(m_showInTaskbar, value, u"general/showInTaskbar"_s))
        emit showInTaskbarChanged();
}

void SettingsManager::setFirstRunDone(bool value)
{
    if (!assign(m_firstRunDone, value, u"general/firstRunDone"_s))
        return;
    syncNow("firstRunDone");
    emit firstRunDoneChanged();
}

void SettingsManager::setConfirmQuit(bool value)
{
    if (!assign(m_confirmQuit, value, u"general/confirmQuit"_s))
        return;
    syncNow("confirmQuit");
    emit confirmQuitChanged();
}

void SettingsManager::setOverlayControlsAlwaysVisible(bool value)
{
    if (assign(m_overlayControlsAlwaysVisible, value, u"general/overlayControlsAlwaysVisible"_s))
        emit overlayControlsAlwaysVisibleChanged();
}

void SettingsManager::setUiScale(double value)
{
    if (assign(m_uiScale, uiScaleRange.clamp(value), u"general/uiScale"_s))
        emit uiScaleChanged();
}

void SettingsManager::setLanguage(const QString &value)
{
    if (assign(m_language, value, u"general/language"_s))
        emit languageChanged();
}

void SettingsManager::setLinuxTheme(int value)
{
    if (assign(m_linuxTheme, linuxThemeRange.clamp(value), u"general/linuxTheme"_s))
        emit linuxThemeChanged();
}

void SettingsManager::setWindowsTheme(int value)
{
    if (assign(m_windowsTheme, windowsThemeRange.clamp(value), u"general/windowsTheme"_s))
        emit windowsThemeChanged();
}

void SettingsManager::setCaptureImageFormat(const QString &value)
{
    if (assign(m_captureImageFormat, normalizedImageFormat(value), u"capture/imageFormat"_s))
        emit captureImageFormatChanged();
}

void SettingsManager::setCaptureImageQuality(int value)
{
    if (assign(m_captureImageQuality, captureImageQualityRange.clamp(value),
               u"capture/imageQuality"_s))
        emit captureImageQualityChanged();
}

void SettingsManager::setCaptureSaveFolder(const QString &value)
{
    if (assign(m_captureSaveFolder, value.trimmed(), u"capture/saveFolder"_s))
        emit captureSaveFolderChanged();
}

void SettingsManager::setCaptureIncludeAnnotations(bool value)
{
    if (assign(m_captureIncludeAnnotations, value, u"capture/includeAnnotations"_s))
        emit captureIncludeAnnotationsChanged();
}

void SettingsManager::setCaptureCopyToClipboard(bool value)
{
    if (assign(m_captureCopyToClipboard, value, u"capture/copyToClipboard"_s))
        emit captureCopyToClipboardChanged();
}

void SettingsManager::setCaptureOpenEditor(bool value)
{
    if (assign(m_captureOpenEditor, value, u"capture/openEditor"_s))
        emit captureOpenEditorChanged();
}

void SettingsManager::setCaptureShutterSound(bool value)
{
    if (assign(m_captureShutterSound, value, u"capture/shutterSound"_s))
        emit captureShutterSoundChanged();
}

void SettingsManager::setRecordOpenFolderAfterStop(bool value)
{
    if (assign(m_recordOpenFolderAfterStop, value, u"record/openFolderAfterStop"_s))
        emit recordOpenFolderAfterStopChanged();
}

void SettingsManager::setRecordQuality(int value)
{
    if (assign(m_recordQuality, recordQualityRange.clamp(value), u"record/quality"_s))
        emit recordQualityChanged();
}

void SettingsManager::setMagnifierZoomFactor(double value)
{
    if (assign(m_magnifierZoomFactor, magnifierZoomFactorRange.clamp(value),
               u"magnifier/zoomFactor"_s))
        emit magnifierZoomFactorChanged();
}

void SettingsManager::setSingleDisplayMode(bool value)
{
    if (assign(m_singleDisplayMode, value, u"displays/singleDisplay"_s))
        emit singleDisplayModeChanged();
}

void SettingsManager::setSpotlightActiveDisplayOnly(bool value)
{
    if (assign(m_spotlightActiveDisplayOnly, value, u"displays/spotlightActiveOnly"_s))
        emit spotlightActiveDisplayOnlyChanged();
}

void SettingsManager::setMirrorAnnotationsAcrossDisplays(bool value)
{
    if (assign(m_mirrorAnnotationsAcrossDisplays, value, u"displays/mirrorAnnotations"_s))
        emit mirrorAnnotationsAcrossDisplaysChanged();
}
