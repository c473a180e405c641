<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CaptureButton</name>
    <message>
        <source>Capture</source>
        <translation>Bildschirmfoto</translation>
    </message>
</context>
<context>
    <name>ExtendedPalette</name>
    <message>
        <source>Custom colour...</source>
        <translation>Eigene Farbe…</translation>
    </message>
</context>
<context>
    <name>FloatingToolbar</name>
    <message>
        <source>Magnifier lens</source>
        <translation>Bildschirmlupe</translation>
    </message>
    <message>
        <source>Undo  %1</source>
        <translation>Rückgängig  %1</translation>
    </message>
    <message>
        <source>Clear all  %1</source>
        <translation>Alles löschen  %1</translation>
    </message>
</context>
<context>
    <name>ModeBadge</name>
    <message>
        <source>Cursor</source>
        <translation>Zeiger</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>Scheinwerfer</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Stift</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Pfeil</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Kreis</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Textmarker</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Radierer</translation>
    </message>
    <message>
        <source>Glimmora · Paused</source>
        <translation>Glimmora · Pausiert</translation>
    </message>
    <message>
        <source>Glimmora · %1</source>
        <translation>Glimmora · %1</translation>
    </message>
    <message>
        <source>%1 to resume</source>
        <translation>%1 zum Fortsetzen</translation>
    </message>
    <message>
        <source>%1 to cursor</source>
        <translation>%1 zum Zeiger</translation>
    </message>
    <message>
        <source>%1 to pause</source>
        <translation>%1 zum Pausieren</translation>
    </message>
    <message>
        <source>Click to resume overlay</source>
        <translation>Klicken, um das Overlay fortzusetzen</translation>
    </message>
    <message>
        <source>Click to pause overlay</source>
        <translation>Klicken, um das Overlay anzuhalten</translation>
    </message>
</context>
<context>
    <name>OnboardingCard</name>
    <message>
        <source>Toggle overlay on / off</source>
        <translation>Overlay ein / aus</translation>
    </message>
    <message>
        <source>Switch tools</source>
        <translation>Werkzeug wechseln</translation>
    </message>
    <message>
        <source>Undo last stroke</source>
        <translation>Letzten Strich rückgängig</translation>
    </message>
    <message>
        <source>Exit drawing mode</source>
        <translation>Zeichenmodus verlassen</translation>
    </message>
    <message>
        <source>Hold for all shortcuts</source>
        <translation>Halten: alle Tastenkürzel</translation>
    </message>
    <message>
        <source>Welcome to Glimmora</source>
        <translation>Willkommen bei Glimmora</translation>
    </message>
    <message>
        <source>Six keys is all you need. The overlay stays out of your way until you call it.</source>
        <translation>Sechs Tasten genügen. Das Overlay hält sich zurück, bis Sie es rufen.</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Verstanden</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>Nicht mehr anzeigen</translation>
    </message>
</context>
<context>
    <name>PauseButton</name>
    <message>
        <source>Pause  %1 · hold for menu</source>
        <translation>Pause  %1 · halten für Menü</translation>
    </message>
    <message>
        <source>Resume  %1</source>
        <translation>Fortsetzen  %1</translation>
    </message>
</context>
<context>
    <name>PauseMenu</name>
    <message>
        <source>Pause overlay</source>
        <translation>Overlay anhalten</translation>
    </message>
    <message>
        <source>Resume overlay</source>
        <translation>Overlay fortsetzen</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Einstellungen…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen…</translation>
    </message>
    <message>
        <source>About Glimmora</source>
        <translation>Über Glimmora</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Glimmora beenden</translation>
    </message>
</context>
<context>
    <name>QuitDialog</name>
    <message>
        <source>Quit Glimmora?</source>
        <translation>Glimmora beenden?</translation>
    </message>
    <message>
        <source>The overlay will stop and Glimmora will close. You can launch it again from your Applications folder.</source>
        <translation>Das Overlay wird beendet und Glimmora geschlossen. Sie können es jederzeit wieder aus dem Programme-Ordner starten.</translation>
    </message>
    <message>
        <source>Don&apos;t ask me again</source>
        <translation>Nicht mehr fragen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Glimmora beenden</translation>
    </message>
    <message>
        <source>triggered by %1</source>
        <translation>ausgelöst durch %1</translation>
    </message>
    <message>
        <source>triggered by quit shortcut</source>
        <translation>ausgelöst durch Beenden-Kürzel</translation>
    </message>
    <message>
        <source> · Esc to cancel · Enter to confirm</source>
        <translation> · Esc bricht ab · Enter bestätigt</translation>
    </message>
</context>
<context>
    <name>RecordSlot</name>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>REC</source>
        <translation>AUFN</translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation>PAUSE</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
    <message>
        <source>Starting recorder…</source>
        <translation>Aufnahme wird gestartet…</translation>
    </message>
    <message>
        <source>Recording  ·  click to pause  ·  stop</source>
        <translation>Aufnahme  ·  Klicken pausiert  ·  Stopp</translation>
    </message>
    <message>
        <source>Paused  ·  click to resume  ·  stop</source>
        <translation>Pausiert  ·  Klicken setzt fort  ·  Stopp</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
</context>
<context>
    <name>RecordingSavedToast</name>
    <message>
        <source>Recording saved</source>
        <translation>Aufnahme gespeichert</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
</context>
<context>
    <name>ShortcutReferenceCard</name>
    <message>
        <source>Switch tool</source>
        <translation>Werkzeug wechseln</translation>
    </message>
    <message>
        <source>Spotlight mode</source>
        <translation>Scheinwerfer</translation>
    </message>
    <message>
        <source>Exit drawing</source>
        <translation>Zeichnen beenden</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Open settings</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Pause overlay</source>
        <translation>Overlay anhalten</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Glimmora beenden</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Ausprobieren</translation>
    </message>
    <message>
        <source>press</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>tap to toggle · hold to peek</source>
        <translation>kurz: an/aus · lang: ansehen</translation>
    </message>
    <message>
        <source>Quit with %1, the system tray menu, or long-press the pause button in the toolbar.</source>
        <translation>Beenden mit %1, über das Menü im Infobereich oder durch langes Drücken der Pause-Taste in der Werkzeugleiste.</translation>
    </message>
    <message>
        <source>the quit shortcut</source>
        <translation>dem Beenden-Kürzel</translation>
    </message>
</context>
<context>
    <name>ToolbarCaptureMenu</name>
    <message>
        <source>Rectangle snip</source>
        <translation>Rechteck-Ausschnitt</translation>
    </message>
    <message>
        <source>Window snip</source>
        <translation>Fenster-Ausschnitt</translation>
    </message>
    <message>
        <source>Full screen snip</source>
        <translation>Ganzer Bildschirm</translation>
    </message>
</context>
<context>
    <name>ToolbarDragHandle</name>
    <message>
        <source>Move toolbar</source>
        <translation>Werkzeugleiste verschieben</translation>
    </message>
</context>
<context>
    <name>ToolbarRecordMenu</name>
    <message>
        <source>Rectangle recording</source>
        <translation>Bereich aufnehmen</translation>
    </message>
    <message>
        <source>Window recording</source>
        <translation>Fenster aufnehmen</translation>
    </message>
    <message>
        <source>Record display</source>
        <translation>Bildschirm aufnehmen</translation>
    </message>
</context>
</TS>
