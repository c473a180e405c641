#pragma once

#include <QObject>
#include <QSettings>
#include <QVariantList>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>

#include <memory>

class LoginEntry;

// The one persistent store of user preferences. Every value lives in a member
// and is written through to QSettings on change, so readers never touch the
// file. Also holds the hotkey map and the list of offered languages.
class SettingsManager : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("SettingsManager is provided by the application")
    Q_DISABLE_COPY_MOVE(SettingsManager)

    Q_PROPERTY(int spotlightRadius READ spotlightRadius WRITE setSpotlightRadius NOTIFY
                   spotlightRadiusChanged FINAL)
    Q_PROPERTY(double darknessOpacity READ darknessOpacity WRITE setDarknessOpacity NOTIFY
                   darknessOpacityChanged FINAL)
    Q_PROPERTY(int edgeBlur READ edgeBlur WRITE setEdgeBlur NOTIFY edgeBlurChanged FINAL)
    Q_PROPERTY(bool spotlightSmoothTracking READ spotlightSmoothTracking WRITE
                   setSpotlightSmoothTracking NOTIFY spotlightSmoothTrackingChanged FINAL)
    Q_PROPERTY(double spotlightSmoothingSeconds READ spotlightSmoothingSeconds WRITE
                   setSpotlightSmoothingSeconds NOTIFY spotlightSmoothingSecondsChanged FINAL)
    Q_PROPERTY(bool hideSpotlightWhileTyping READ hideSpotlightWhileTyping WRITE
                   setHideSpotlightWhileTyping NOTIFY hideSpotlightWhileTypingChanged FINAL)
    Q_PROPERTY(int brushSize READ brushSize WRITE setBrushSize NOTIFY brushSizeChanged FINAL)
    Q_PROPERTY(int strokeSmoothing READ strokeSmoothing WRITE setStrokeSmoothing NOTIFY
                   strokeSmoothingChanged FINAL)
    Q_PROPERTY(QString defaultDrawingTool READ defaultDrawingTool WRITE setDefaultDrawingTool NOTIFY
                   defaultDrawingToolChanged FINAL)
    Q_PROPERTY(QString defaultDrawingColor READ defaultDrawingColor WRITE setDefaultDrawingColor
                   NOTIFY defaultDrawingColorChanged FINAL)
    Q_PROPERTY(bool showToolbarWhileDrawing READ showToolbarWhileDrawing WRITE
                   setShowToolbarWhileDrawing NOTIFY showToolbarWhileDrawingChanged FINAL)
    Q_PROPERTY(bool undoRedoEnabled READ undoRedoEnabled WRITE setUndoRedoEnabled NOTIFY
                   undoRedoEnabledChanged FINAL)
    Q_PROPERTY(bool pressureSensitive READ pressureSensitive WRITE setPressureSensitive NOTIFY
                   pressureSensitiveChanged FINAL)
    Q_PROPERTY(
        bool clearOnPause READ clearOnPause WRITE setClearOnPause NOTIFY clearOnPauseChanged FINAL)
    Q_PROPERTY(bool clickRippleEnabled READ clickRippleEnabled WRITE setClickRippleEnabled NOTIFY
                   clickRippleEnabledChanged FINAL)
    Q_PROPERTY(int rippleSize READ rippleSize WRITE setRippleSize NOTIFY rippleSizeChanged FINAL)
    Q_PROPERTY(int rippleDuration READ rippleDuration WRITE setRippleDuration NOTIFY
                   rippleDurationChanged FINAL)
    Q_PROPERTY(QString leftClickColor READ leftClickColor WRITE setLeftClickColor NOTIFY
                   leftClickColorChanged FINAL)
    Q_PROPERTY(QString rightClickColor READ rightClickColor WRITE setRightClickColor NOTIFY
                   rightClickColorChanged FINAL)
    Q_PROPERTY(QString middleClickColor READ middleClickColor WRITE setMiddleClickColor NOTIFY
                   middleClickColorChanged FINAL)
    Q_PROPERTY(bool showClicksDuringRecording READ showClicksDuringRecording WRITE
                   setShowClicksDuringRecording NOTIFY showClicksDuringRecordingChanged FINAL)
    Q_PROPERTY(bool keystrokesEnabled READ keystrokesEnabled WRITE setKeystrokesEnabled NOTIFY
                   keystrokesEnabledChanged FINAL)
    Q_PROPERTY(bool showModifierKeys READ showModifierKeys WRITE setShowModifierKeys NOTIFY
                   showModifierKeysChanged FINAL)
    Q_PROPERTY(bool showFunctionKeys READ showFunctionKeys WRITE setShowFunctionKeys NOTIFY
                   showFunctionKeysChanged FINAL)
    Q_PROPERTY(bool showNavigationKeys READ showNavigationKeys WRITE setShowNavigationKeys NOTIFY
                   showNavigationKeysChanged FINAL)
    Q_PROPERTY(bool showAlphaNumericKeys READ showAlphaNumericKeys WRITE setShowAlphaNumericKeys
                   NOTIFY showAlphaNumericKeysChanged FINAL)
    Q_PROPERTY(
        bool muteKeystrokesInPasswordFields READ muteKeystrokesInPasswordFields WRITE
            setMuteKeystrokesInPasswordFields NOTIFY muteKeystrokesInPasswordFieldsChanged FINAL)
    Q_PROPERTY(int keystrokeFadeMs READ keystrokeFadeMs WRITE setKeystrokeFadeMs NOTIFY
                   keystrokeFadeMsChanged FINAL)
    Q_PROPERTY(int keystrokePosition READ keystrokePosition WRITE setKeystrokePosition NOTIFY
                   keystrokePositionChanged FINAL)
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY
                   launchAtLoginChanged FINAL)
    Q_PROPERTY(bool startMinimized READ startMinimized WRITE setStartMinimized NOTIFY
                   startMinimizedChanged FINAL)
    Q_PROPERTY(bool showInTaskbar READ showInTaskbar WRITE setShowInTaskbar NOTIFY
                   showInTaskbarChanged FINAL)
    Q_PROPERTY(
        bool firstRunDone READ firstRunDone WRITE setFirstRunDone NOTIFY firstRunDoneChanged FINAL)
    Q_PROPERTY(
        bool confirmQuit READ confirmQuit WRITE setConfirmQuit NOTIFY confirmQuitChanged FINAL)
    Q_PROPERTY(bool overlayControlsAlwaysVisible READ overlayControlsAlwaysVisible WRITE
                   setOverlayControlsAlwaysVisible NOTIFY overlayControlsAlwaysVisibleChanged FINAL)
    Q_PROPERTY(double uiScale READ uiScale WRITE setUiScale NOTIFY uiScaleChanged FINAL)
    Q_PROPERTY(QString language READ language WRITE setLanguage NOTIFY languageChanged FINAL)
    Q_PROPERTY(int linuxTheme READ linuxTheme WRITE setLinuxTheme NOTIFY linuxThemeChanged FINAL)
    Q_PROPERTY(
        int windowsTheme READ windowsTheme WRITE setWindowsTheme NOTIFY windowsThemeChanged FINAL)
    Q_PROPERTY(QString captureImageFormat READ captureImageFormat WRITE setCaptureImageFormat NOTIFY
                   captureImageFormatChanged FINAL)
    Q_PROPERTY(int captureImageQuality READ captureImageQuality WRITE setCaptureImageQuality NOTIFY
                   captureImageQualityChanged FINAL)
    Q_PROPERTY(QString captureSaveFolder READ captureSaveFolder WRITE setCaptureSaveFolder NOTIFY
                   captureSaveFolderChanged FINAL)
    Q_PROPERTY(bool captureIncludeAnnotations READ captureIncludeAnnotations WRITE
                   setCaptureIncludeAnnotations NOTIFY captureIncludeAnnotationsChanged FINAL)
    Q_PROPERTY(bool captureCopyToClipboard READ captureCopyToClipboard WRITE
                   setCaptureCopyToClipboard NOTIFY captureCopyToClipboardChanged FINAL)
    Q_PROPERTY(bool captureOpenEditor READ captureOpenEditor WRITE setCaptureOpenEditor NOTIFY
                   captureOpenEditorChanged FINAL)
    Q_PROPERTY(bool captureShutterSound READ captureShutterSound WRITE setCaptureShutterSound NOTIFY
                   captureShutterSoundChanged FINAL)
    Q_PROPERTY(bool recordOpenFolderAfterStop READ recordOpenFolderAfterStop WRITE
                   setRecordOpenFolderAfterStop NOTIFY recordOpenFolderAfterStopChanged FINAL)
    Q_PROPERTY(int recordQuality READ recordQuality WRITE setRecordQuality NOTIFY
                   recordQualityChanged FINAL)
    Q_PROPERTY(double magnifierZoomFactor READ magnifierZoomFactor WRITE setMagnifierZoomFactor
                   NOTIFY magnifierZoomFactorChanged FINAL)
    Q_PROPERTY(bool singleDisplayMode READ singleDisplayMode WRITE setSingleDisplayMode NOTIFY
                   singleDisplayModeChanged FINAL)
    Q_PROPERTY(bool spotlightActiveDisplayOnly READ spotlightActiveDisplayOnly WRITE
                   setSpotlightActiveDisplayOnly NOTIFY spotlightActiveDisplayOnlyChanged FINAL)
    Q_PROPERTY(
        bool mirrorAnnotationsAcrossDisplays READ mirrorAnnotationsAcrossDisplays WRITE
            setMirrorAnnotationsAcrossDisplays NOTIFY mirrorAnnotationsAcrossDisplaysChanged FINAL)

    Q_PROPERTY(int hotkeysRevision READ hotkeysRevision NOTIFY hotkeysChanged FINAL)

public:
    explicit SettingsManager(QObject *parent = nullptr);
    // loginEntry may be null: the login switch is then only stored.
    explicit SettingsManager(std::unique_ptr<LoginEntry> loginEntry, QObject *parent = nullptr);
    ~SettingsManager() override;

    int spotlightRadius() const { return m_spotlightRadius; }
    double darknessOpacity() const { return m_darknessOpacity; }
    int edgeBlur() const { return m_edgeBlur; }
    bool spotlightSmoothTracking() const { return m_spotlightSmoothTracking; }
    double spotlightSmoothingSeconds() const { return m_spotlightSmoothingSeconds; }
    bool hideSpotlightWhileTyping() const { return m_hideSpotlightWhileTyping; }
    int brushSize() const { return m_brushSize; }
    int strokeSmoothing() const { return m_strokeSmoothing; }
    QString defaultDrawingTool() const { return m_defaultDrawingTool; }
    QString defaultDrawingColor() const { return m_defaultDrawingColor; }
    bool showToolbarWhileDrawing() const { return m_showToolbarWhileDrawing; }
    bool undoRedoEnabled() const { return m_undoRedoEnabled; }
    bool pressureSensitive() const { return m_pressureSensitive; }
    bool clearOnPause() const { return m_clearOnPause; }
    bool clickRippleEnabled() const { return m_clickRippleEnabled; }
    int rippleSize() const { return m_rippleSize; }
    int rippleDuration() const { return m_rippleDuration; }
    QString leftClickColor() const { return m_leftClickColor; }
    QString rightClickColor() const { return m_rightClickColor; }
    QString middleClickColor() const { return m_middleClickColor; }
    bool showClicksDuringRecording() const { return m_showClicksDuringRecording; }
    bool keystrokesEnabled() const { return m_keystrokesEnabled; }
    bool showModifierKeys() const { return m_showModifierKeys; }
    bool showFunctionKeys() const { return m_showFunctionKeys; }
    bool showNavigationKeys() const { return m_showNavigationKeys; }
    bool showAlphaNumericKeys() const { return m_showAlphaNumericKeys; }
    bool muteKeystrokesInPasswordFields() const { return m_muteKeystrokesInPasswordFields; }
    int keystrokeFadeMs() const { return m_keystrokeFadeMs; }
    int keystrokePosition() const { return m_keystrokePosition; }
    bool launchAtLogin() const { return m_launchAtLogin; }
    bool startMinimized() const { return m_startMinimized; }
    bool showInTaskbar() const { return m_showInTaskbar; }
    bool firstRunDone() const { return m_firstRunDone; }
    bool confirmQuit() const { return m_confirmQuit; }
    bool overlayControlsAlwaysVisible() const { return m_overlayControlsAlwaysVisible; }
    double uiScale() const { return m_uiScale; }
    QString language() const { return m_language; }
    int linuxTheme() const { return m_linuxTheme; }
    int windowsTheme() const { return m_windowsTheme; }
    QString captureImageFormat() const { return m_captureImageFormat; }
    int captureImageQuality() const { return m_captureImageQuality; }
    QString captureSaveFolder() const { return m_captureSaveFolder; }
    bool captureIncludeAnnotations() const { return m_captureIncludeAnnotations; }
    bool captureCopyToClipboard() const { return m_captureCopyToClipboard; }
    bool captureOpenEditor() const { return m_captureOpenEditor; }
    bool captureShutterSound() const { return m_captureShutterSound; }
    bool recordOpenFolderAfterStop() const { return m_recordOpenFolderAfterStop; }
    int recordQuality() const { return m_recordQuality; }
    double magnifierZoomFactor() const { return m_magnifierZoomFactor; }
    bool singleDisplayMode() const { return m_singleDisplayMode; }
    bool spotlightActiveDisplayOnly() const { return m_spotlightActiveDisplayOnly; }
    bool mirrorAnnotationsAcrossDisplays() const { return m_mirrorAnnotationsAcrossDisplays; }
    int hotkeysRevision() const { return m_hotkeysRevision; }

    // Puts every preference back to its default; the finished onboarding survives.
    Q_INVOKABLE void resetDefaults();

    Q_INVOKABLE QString hotkeyForAction(const QString &action) const;
    Q_INVOKABLE QVariantMap hotkeyMap() const;
    Q_INVOKABLE void setHotkeyForAction(const QString &action, const QString &sequence);
    Q_INVOKABLE void resetHotkeys();
    // Every action as a map of "action" and "label", in the order of the
    // settings page, which lists captureFullScreen before captureRegion.
    Q_INVOKABLE QVariantList hotkeyActionList() const;

    Q_INVOKABLE QVariantList availableLanguages() const;

public slots:
    void setSpotlightRadius(int value);
    void setDarknessOpacity(double value);
    void setEdgeBlur(int value);
    void setSpotlightSmoothTracking(bool value);
    void setSpotlightSmoothingSeconds(double value);
    void setHideSpotlightWhileTyping(bool value);
    void setBrushSize(int value);
    void setStrokeSmoothing(int value);
    void setDefaultDrawingTool(const QString &value);
    void setDefaultDrawingColor(const QString &value);
    void setShowToolbarWhileDrawing(bool value);
    void setUndoRedoEnabled(bool value);
    void setPressureSensitive(bool value);
    void setClearOnPause(bool value);
    void setClickRippleEnabled(bool value);
    void setRippleSize(int value);
    void setRippleDuration(int value);
    void setLeftClickColor(const QString &value);
    void setRightClickColor(const QString &value);
    void setMiddleClickColor(const QString &value);
    void setShowClicksDuringRecording(bool value);
    void setKeystrokesEnabled(bool value);
    void setShowModifierKeys(bool value);
    void setShowFunctionKeys(bool value);
    void setShowNavigationKeys(bool value);
    void setShowAlphaNumericKeys(bool value);
    void setMuteKeystrokesInPasswordFields(bool value);
    void setKeystrokeFadeMs(int value);
    void setKeystrokePosition(int value);
    void setLaunchAtLogin(bool value);
    void setStartMinimized(bool value);
    void setShowInTaskbar(bool value);
    void setFirstRunDone(bool value);
    void setConfirmQuit(bool value);
    void setOverlayControlsAlwaysVisible(bool value);
    void setUiScale(double value);
    void setLanguage(const QString &value);
    void setLinuxTheme(int value);
    void setWindowsTheme(int value);
    void setCaptureImageFormat(const QString &value);
    void setCaptureImageQuality(int value);
    void setCaptureSaveFolder(const QString &value);
    void setCaptureIncludeAnnotations(bool value);
    void setCaptureCopyToClipboard(bool value);
    void setCaptureOpenEditor(bool value);
    void setCaptureShutterSound(bool value);
    void setRecordOpenFolderAfterStop(bool value);
    void setRecordQuality(int value);
    void setMagnifierZoomFactor(double value);
    void setSingleDisplayMode(bool value);
    void setSpotlightActiveDisplayOnly(bool value);
    void setMirrorAnnotationsAcrossDisplays(bool value);

signals:
    void spotlightRadiusChanged();
    void darknessOpacityChanged();
    void edgeBlurChanged();
    void spotlightSmoothTrackingChanged();
    void spotlightSmoothingSecondsChanged();
    void hideSpotlightWhileTypingChanged();
    void brushSizeChanged();
    void strokeSmoothingChanged();
    void defaultDrawingToolChanged();
    void defaultDrawingColorChanged();
    void showToolbarWhileDrawingChanged();
    void undoRedoEnabledChanged();
    void pressureSensitiveChanged();
    void clearOnPauseChanged();
    void clickRippleEnabledChanged();
    void rippleSizeChanged();
    void rippleDurationChanged();
    void leftClickColorChanged();
    void rightClickColorChanged();
    void middleClickColorChanged();
    void showClicksDuringRecordingChanged();
    void keystrokesEnabledChanged();
    void showModifierKeysChanged();
    void showFunctionKeysChanged();
    void showNavigationKeysChanged();
    void showAlphaNumericKeysChanged();
    void muteKeystrokesInPasswordFieldsChanged();
    void keystrokeFadeMsChanged();
    void keystrokePositionChanged();
    void launchAtLoginChanged();
    void startMinimizedChanged();
    void showInTaskbarChanged();
    void firstRunDoneChanged();
    void confirmQuitChanged();
    void overlayControlsAlwaysVisibleChanged();
    void uiScaleChanged();
    void languageChanged();
    void linuxThemeChanged();
    void windowsThemeChanged();
    void captureImageFormatChanged();
    void captureImageQualityChanged();
    void captureSaveFolderChanged();
    void captureIncludeAnnotationsChanged();
    void captureCopyToClipboardChanged();
    void captureOpenEditorChanged();
    void captureShutterSoundChanged();
    void recordOpenFolderAfterStopChanged();
    void recordQualityChanged();
    void magnifierZoomFactorChanged();
    void singleDisplayModeChanged();
    void spotlightActiveDisplayOnlyChanged();
    void mirrorAnnotationsAcrossDisplaysChanged();
    void hotkeysChanged();

private:
    void load();
    void migrateVisualProfile();
    void loadHotkeys();
    void syncNow(const char *what);
    void updateLoginEntry(bool enabled);

    QVariant storedValue(const QString &key, const QVariant &fallback) const;
    void store(const QString &key, const QVariant &value);
    int readInt(const QString &key, int fallback);
    double readDouble(const QString &key, double fallback);
    bool readBool(const QString &key, bool fallback);
    QString readString(const QString &key, const QString &fallback);

    // Stores value in member and writes it to key unless it equals the member.
    // Returns whether it changed.
    bool assign(int &member, int value, const QString &key);
    bool assign(double &member, double value, const QString &key);
    bool assign(bool &member, bool value, const QString &key);
    bool assign(QString &member, const QString &value, const QString &key);

    QSettings m_settings;
    std::unique_ptr<LoginEntry> m_loginEntry;

    int m_spotlightRadius = 120;
    double m_darknessOpacity = 0.67;
    int m_edgeBlur = 30;
    bool m_spotlightSmoothTracking = false;
    double m_spotlightSmoothingSeconds = 0.06;
    bool m_hideSpotlightWhileTyping = false;
    int m_brushSize = 5;
    int m_strokeSmoothing = 2;
    QString m_defaultDrawingTool = QStringLiteral("pen");
    QString m_defaultDrawingColor = QStringLiteral("#F4C24A");
    bool m_showToolbarWhileDrawing = true;
    bool m_undoRedoEnabled = true;
    bool m_pressureSensitive = false;
    bool m_clearOnPause = false;
    bool m_clickRippleEnabled = true;
    int m_rippleSize = 48;
    int m_rippleDuration = 550;
    QString m_leftClickColor = QStringLiteral("#F4A65A");
    QString m_rightClickColor = QStringLiteral("#5DA8F0");
    QString m_middleClickColor = QStringLiteral("#5EC27A");
    bool m_showClicksDuringRecording = true;
    bool m_keystrokesEnabled = true;
    bool m_showModifierKeys = true;
    bool m_showFunctionKeys = true;
    bool m_showNavigationKeys = true;
    bool m_showAlphaNumericKeys = false;
    bool m_muteKeystrokesInPasswordFields = true;
    int m_keystrokeFadeMs = 2000;
    int m_keystrokePosition = 1;
    bool m_launchAtLogin = false;
    bool m_startMinimized = false;
    bool m_showInTaskbar = false;
    bool m_firstRunDone = false;
    bool m_confirmQuit = true;
    bool m_overlayControlsAlwaysVisible = true;
    double m_uiScale = 1.2;
    QString m_language = QStringLiteral("en");
    int m_linuxTheme = 2;
    int m_windowsTheme = 2;
    QString m_captureImageFormat = QStringLiteral("PNG");
    int m_captureImageQuality = 92;
    QString m_captureSaveFolder;
    bool m_captureIncludeAnnotations = true;
    bool m_captureCopyToClipboard = true;
    bool m_captureOpenEditor = false;
    bool m_captureShutterSound = false;
    bool m_recordOpenFolderAfterStop = false;
    int m_recordQuality = 1;
    double m_magnifierZoomFactor = 2.0;
    bool m_singleDisplayMode = false;
    bool m_spotlightActiveDisplayOnly = false;
    bool m_mirrorAnnotationsAcrossDisplays = false;

    QVariantMap m_hotkeys;
    int m_hotkeysRevision = 0;
};
