<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>CaptureButton</name>
    <message>
        <source>Capture</source>
        <translation>Captura</translation>
    </message>
</context>
<context>
    <name>ExtendedPalette</name>
    <message>
        <source>Custom colour...</source>
        <translation>Color personalizado…</translation>
    </message>
</context>
<context>
    <name>FloatingToolbar</name>
    <message>
        <source>Magnifier lens</source>
        <translation>Lupa</translation>
    </message>
    <message>
        <source>Undo  %1</source>
        <translation>Deshacer  %1</translation>
    </message>
    <message>
        <source>Clear all  %1</source>
        <translation>Borrar todo  %1</translation>
    </message>
</context>
<context>
    <name>ModeBadge</name>
    <message>
        <source>Cursor</source>
        <translation>Puntero</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>Foco</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Lápiz</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Flecha</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rectángulo</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Círculo</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Resaltador</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Borrador</translation>
    </message>
    <message>
        <source>Glimmora · Paused</source>
        <translation>Glimmora · En pausa</translation>
    </message>
    <message>
        <source>Glimmora · %1</source>
        <translation>Glimmora · %1</translation>
    </message>
    <message>
        <source>%1 to resume</source>
        <translation>%1 para reanudar</translation>
    </message>
    <message>
        <source>%1 to cursor</source>
        <translation>%1 para el puntero</translation>
    </message>
    <message>
        <source>%1 to pause</source>
        <translation>%1 para pausar</translation>
    </message>
    <message>
        <source>Click to resume overlay</source>
        <translation>Haz clic para reanudar la superposición</translation>
    </message>
    <message>
        <source>Click to pause overlay</source>
        <translation>Haz clic para pausar la superposición</translation>
    </message>
</context>
<context>
    <name>OnboardingCard</name>
    <message>
        <source>Toggle overlay on / off</source>
        <translation>Activar / desactivar superposición</translation>
    </message>
    <message>
        <source>Switch tools</source>
        <translation>Cambiar de herramienta</translation>
    </message>
    <message>
        <source>Undo last stroke</source>
        <translation>Deshacer el último trazo</translation>
    </message>
    <message>
        <source>Exit drawing mode</source>
        <translation>Salir del modo dibujo</translation>
    </message>
    <message>
        <source>Hold for all shortcuts</source>
        <translation>Mantén para ver todos los atajos</translation>
    </message>
    <message>
        <source>Welcome to Glimmora</source>
        <translation>Te damos la bienvenida a Glimmora</translation>
    </message>
    <message>
        <source>Six keys is all you need. The overlay stays out of your way until you call it.</source>
        <translation>Seis teclas es todo lo que necesitas. La superposición no te estorba hasta que la llames.</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Entendido</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>No volver a mostrar</translation>
    </message>
</context>
<context>
    <name>PauseButton</name>
    <message>
        <source>Pause  %1 · hold for menu</source>
        <translation>Pausa  %1 · mantén para el menú</translation>
    </message>
    <message>
        <source>Resume  %1</source>
        <translation>Reanudar  %1</translation>
    </message>
</context>
<context>
    <name>PauseMenu</name>
    <message>
        <source>Pause overlay</source>
        <translation>Pausar superposición</translation>
    </message>
    <message>
        <source>Resume overlay</source>
        <translation>Reanudar superposición</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Preferencias…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Ajustes…</translation>
    </message>
    <message>
        <source>About Glimmora</source>
        <translation>Acerca de Glimmora</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Salir de Glimmora</translation>
    </message>
</context>
<context>
    <name>QuitDialog</name>
    <message>
        <source>Quit Glimmora?</source>
        <translation>¿Salir de Glimmora?</translation>
    </message>
    <message>
        <source>The overlay will stop and Glimmora will close. You can launch it again from your Applications folder.</source>
        <translation>La superposición se detendrá y Glimmora se cerrará. Puedes volver a abrirlo desde la carpeta Aplicaciones.</translation>
    </message>
    <message>
        <source>Don&apos;t ask me again</source>
        <translation>No volver a preguntar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Salir de Glimmora</translation>
    </message>
    <message>
        <source>triggered by %1</source>
        <translation>activado con %1</translation>
    </message>
    <message>
        <source>triggered by quit shortcut</source>
        <translation>activado con el atajo de salida</translation>
    </message>
    <message>
        <source> · Esc to cancel · Enter to confirm</source>
        <translation> · Esc para cancelar · Intro para confirmar</translation>
    </message>
</context>
<context>
    <name>RecordSlot</name>
    <message>
        <source>Ready</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>REC</source>
        <translation>GRAB</translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation>PAUSA</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Detener grabación</translation>
    </message>
    <message>
        <source>Starting recorder…</source>
        <translation>Iniciando la grabación…</translation>
    </message>
    <message>
        <source>Recording  ·  click to pause  ·  stop</source>
        <translation>Grabando  ·  clic para pausar  ·  detener</translation>
    </message>
    <message>
        <source>Paused  ·  click to resume  ·  stop</source>
        <translation>En pausa  ·  clic para reanudar  ·  detener</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Grabar</translation>
    </message>
</context>
<context>
    <name>RecordingSavedToast</name>
    <message>
        <source>Recording saved</source>
        <translation>Grabación guardada</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
</context>
<context>
    <name>ShortcutReferenceCard</name>
    <message>
        <source>Switch tool</source>
        <translation>Cambiar herramienta</translation>
    </message>
    <message>
        <source>Spotlight mode</source>
        <translation>Modo foco</translation>
    </message>
    <message>
        <source>Exit drawing</source>
        <translation>Salir del dibujo</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Open settings</source>
        <translation>Abrir ajustes</translation>
    </message>
    <message>
        <source>Pause overlay</source>
        <translation>Pausar superposición</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Salir de Glimmora</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Pruébalo</translation>
    </message>
    <message>
        <source>press</source>
        <translation>pulsa</translation>
    </message>
    <message>
        <source>tap to toggle · hold to peek</source>
        <translation>toca: alternar · mantén: ver</translation>
    </message>
    <message>
        <source>Quit with %1, the system tray menu, or long-press the pause button in the toolbar.</source>
        <translation>Sal con %1, desde el menú de la bandeja del sistema o manteniendo pulsado el botón de pausa de la barra de herramientas.</translation>
    </message>
    <message>
        <source>the quit shortcut</source>
        <translation>el atajo de salida</translation>
    </message>
</context>
<context>
    <name>ToolbarCaptureMenu</name>
    <message>
        <source>Rectangle snip</source>
        <translation>Recorte rectangular</translation>
    </message>
    <message>
        <source>Window snip</source>
        <translation>Recorte de ventana</translation>
    </message>
    <message>
        <source>Full screen snip</source>
        <translation>Pantalla completa</translation>
    </message>
</context>
<context>
    <name>ToolbarDragHandle</name>
    <message>
        <source>Move toolbar</source>
        <translation>Mover la barra de herramientas</translation>
    </message>
</context>
<context>
    <name>ToolbarRecordMenu</name>
    <message>
        <source>Rectangle recording</source>
        <translation>Grabar un área</translation>
    </message>
    <message>
        <source>Window recording</source>
        <translation>Grabar una ventana</translation>
    </message>
    <message>
        <source>Record display</source>
        <translation>Grabar la pantalla</translation>
    </message>
</context>
</TS>
