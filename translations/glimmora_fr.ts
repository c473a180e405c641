<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>CaptureButton</name>
    <message>
        <source>Capture</source>
        <translation>Capture d’écran</translation>
    </message>
</context>
<context>
    <name>ExtendedPalette</name>
    <message>
        <source>Custom colour...</source>
        <translation>Couleur personnalisée…</translation>
    </message>
</context>
<context>
    <name>FloatingToolbar</name>
    <message>
        <source>Magnifier lens</source>
        <translation>Loupe</translation>
    </message>
    <message>
        <source>Undo  %1</source>
        <translation>Annuler  %1</translation>
    </message>
    <message>
        <source>Clear all  %1</source>
        <translation>Tout effacer  %1</translation>
    </message>
</context>
<context>
    <name>ModeBadge</name>
    <message>
        <source>Cursor</source>
        <translation>Curseur</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>Projecteur</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Stylo</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Flèche</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rectangle</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Cercle</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Surligneur</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Gomme</translation>
    </message>
    <message>
        <source>Glimmora · Paused</source>
        <translation>Glimmora · En pause</translation>
    </message>
    <message>
        <source>Glimmora · %1</source>
        <translation>Glimmora · %1</translation>
    </message>
    <message>
        <source>%1 to resume</source>
        <translation>%1 pour reprendre</translation>
    </message>
    <message>
        <source>%1 to cursor</source>
        <translation>%1 pour le curseur</translation>
    </message>
    <message>
        <source>%1 to pause</source>
        <translation>%1 pour suspendre</translation>
    </message>
    <message>
        <source>Click to resume overlay</source>
        <translation>Cliquer pour reprendre la superposition</translation>
    </message>
    <message>
        <source>Click to pause overlay</source>
        <translation>Cliquer pour suspendre la superposition</translation>
    </message>
</context>
<context>
    <name>OnboardingCard</name>
    <message>
        <source>Toggle overlay on / off</source>
        <translation>Superposition on / off</translation>
    </message>
    <message>
        <source>Switch tools</source>
        <translation>Changer d’outil</translation>
    </message>
    <message>
        <source>Undo last stroke</source>
        <translation>Annuler le dernier trait</translation>
    </message>
    <message>
        <source>Exit drawing mode</source>
        <translation>Quitter le mode dessin</translation>
    </message>
    <message>
        <source>Hold for all shortcuts</source>
        <translation>Maintenir : tous les raccourcis</translation>
    </message>
    <message>
        <source>Welcome to Glimmora</source>
        <translation>Bienvenue dans Glimmora</translation>
    </message>
    <message>
        <source>Six keys is all you need. The overlay stays out of your way until you call it.</source>
        <translation>Six touches suffisent. La superposition reste discrète jusqu’à ce que vous l’appeliez.</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Compris</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>Ne plus afficher</translation>
    </message>
</context>
<context>
    <name>PauseButton</name>
    <message>
        <source>Pause  %1 · hold for menu</source>
        <translation>Pause  %1 · maintenir pour le menu</translation>
    </message>
    <message>
        <source>Resume  %1</source>
        <translation>Reprendre  %1</translation>
    </message>
</context>
<context>
    <name>PauseMenu</name>
    <message>
        <source>Pause overlay</source>
        <translation>Suspendre la superposition</translation>
    </message>
    <message>
        <source>Resume overlay</source>
        <translation>Reprendre la superposition</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Préférences…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Paramètres…</translation>
    </message>
    <message>
        <source>About Glimmora</source>
        <translation>À propos de Glimmora</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Quitter Glimmora</translation>
    </message>
</context>
<context>
    <name>QuitDialog</name>
    <message>
        <source>Quit Glimmora?</source>
        <translation>Quitter Glimmora ?</translation>
    </message>
    <message>
        <source>The overlay will stop and Glimmora will close. You can launch it again from your Applications folder.</source>
        <translation>La superposition s’arrête et Glimmora se ferme. Vous pourrez le relancer depuis votre dossier Applications.</translation>
    </message>
    <message>
        <source>Don&apos;t ask me again</source>
        <translation>Ne plus me demander</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Quitter Glimmora</translation>
    </message>
    <message>
        <source>triggered by %1</source>
        <translation>déclenché par %1</translation>
    </message>
    <message>
        <source>triggered by quit shortcut</source>
        <translation>déclenché par le raccourci Quitter</translation>
    </message>
    <message>
        <source> · Esc to cancel · Enter to confirm</source>
        <translation> · Échap pour annuler · Entrée pour confirmer</translation>
    </message>
</context>
<context>
    <name>RecordSlot</name>
    <message>
        <source>Ready</source>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>REC</source>
        <translation>ENR</translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation>PAUSE</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Arrêter l’enregistrement</translation>
    </message>
    <message>
        <source>Starting recorder…</source>
        <translation>Démarrage de l’enregistrement…</translation>
    </message>
    <message>
        <source>Recording  ·  click to pause  ·  stop</source>
        <translation>Enregistrement  ·  cliquer pour suspendre  ·  arrêter</translation>
    </message>
    <message>
        <source>Paused  ·  click to resume  ·  stop</source>
        <translation>En pause  ·  cliquer pour reprendre  ·  arrêter</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Enregistrer</translation>
    </message>
</context>
<context>
    <name>RecordingSavedToast</name>
    <message>
        <source>Recording saved</source>
        <translation>Enregistrement sauvegardé</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
</context>
<context>
    <name>ShortcutReferenceCard</name>
    <message>
        <source>Switch tool</source>
        <translation>Changer d’outil</translation>
    </message>
    <message>
        <source>Spotlight mode</source>
        <translation>Mode projecteur</translation>
    </message>
    <message>
        <source>Exit drawing</source>
        <translation>Quitter le dessin</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Open settings</source>
        <translation>Ouvrir les paramètres</translation>
    </message>
    <message>
        <source>Pause overlay</source>
        <translation>Suspendre la superposition</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Quitter Glimmora</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Essayer</translation>
    </message>
    <message>
        <source>press</source>
        <translation>touche</translation>
    </message>
    <message>
        <source>tap to toggle · hold to peek</source>
        <translation>appui : basculer · maintien : aperçu</translation>
    </message>
    <message>
        <source>Quit with %1, the system tray menu, or long-press the pause button in the toolbar.</source>
        <translation>Quittez avec %1, le menu de la zone de notification, ou un appui long sur le bouton pause de la barre d’outils.</translation>
    </message>
    <message>
        <source>the quit shortcut</source>
        <translation>le raccourci Quitter</translation>
    </message>
</context>
<context>
    <name>ToolbarCaptureMenu</name>
    <message>
        <source>Rectangle snip</source>
        <translation>Capture rectangulaire</translation>
    </message>
    <message>
        <source>Window snip</source>
        <translation>Capture de fenêtre</translation>
    </message>
    <message>
        <source>Full screen snip</source>
        <translation>Plein écran</translation>
    </message>
</context>
<context>
    <name>ToolbarDragHandle</name>
    <message>
        <source>Move toolbar</source>
        <translation>Déplacer la barre d’outils</translation>
    </message>
</context>
<context>
    <name>ToolbarRecordMenu</name>
    <message>
        <source>Rectangle recording</source>
        <translation>Enregistrer une zone</translation>
    </message>
    <message>
        <source>Window recording</source>
        <translation>Enregistrer une fenêtre</translation>
    </message>
    <message>
        <source>Record display</source>
        <translation>Enregistrer l’écran</translation>
    </message>
</context>
</TS>
