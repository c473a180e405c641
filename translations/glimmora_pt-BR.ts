<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR">
<context>
    <name>CaptureButton</name>
    <message>
        <source>Capture</source>
        <translation>Capturar</translation>
    </message>
</context>
<context>
    <name>ExtendedPalette</name>
    <message>
        <source>Custom colour...</source>
        <translation>Cor personalizada…</translation>
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
        <translation>Desfazer  %1</translation>
    </message>
    <message>
        <source>Clear all  %1</source>
        <translation>Limpar tudo  %1</translation>
    </message>
</context>
<context>
    <name>ModeBadge</name>
    <message>
        <source>Cursor</source>
        <translation>Ponteiro</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>Holofote</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Caneta</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Seta</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Retângulo</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Círculo</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Marca-texto</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Borracha</translation>
    </message>
    <message>
        <source>Glimmora · Paused</source>
        <translation>Glimmora · Pausado</translation>
    </message>
    <message>
        <source>Glimmora · %1</source>
        <translation>Glimmora · %1</translation>
    </message>
    <message>
        <source>%1 to resume</source>
        <translation>%1 para retomar</translation>
    </message>
    <message>
        <source>%1 to cursor</source>
        <translation>%1 para o ponteiro</translation>
    </message>
    <message>
        <source>%1 to pause</source>
        <translation>%1 para pausar</translation>
    </message>
    <message>
        <source>Click to resume overlay</source>
        <translation>Clique para retomar a sobreposição</translation>
    </message>
    <message>
        <source>Click to pause overlay</source>
        <translation>Clique para pausar a sobreposição</translation>
    </message>
</context>
<context>
    <name>OnboardingCard</name>
    <message>
        <source>Toggle overlay on / off</source>
        <translation>Ligar / desligar sobreposição</translation>
    </message>
    <message>
        <source>Switch tools</source>
        <translation>Trocar de ferramenta</translation>
    </message>
    <message>
        <source>Undo last stroke</source>
        <translation>Desfazer o último traço</translation>
    </message>
    <message>
        <source>Exit drawing mode</source>
        <translation>Sair do modo de desenho</translation>
    </message>
    <message>
        <source>Hold for all shortcuts</source>
        <translation>Segure para ver todos os atalhos</translation>
    </message>
    <message>
        <source>Welcome to Glimmora</source>
        <translation>Boas-vindas ao Glimmora</translation>
    </message>
    <message>
        <source>Six keys is all you need. The overlay stays out of your way until you call it.</source>
        <translation>Seis teclas são tudo de que você precisa. A sobreposição não atrapalha até você chamá-la.</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Entendi</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>Não mostrar de novo</translation>
    </message>
</context>
<context>
    <name>PauseButton</name>
    <message>
        <source>Pause  %1 · hold for menu</source>
        <translation>Pausar  %1 · segure para o menu</translation>
    </message>
    <message>
        <source>Resume  %1</source>
        <translation>Retomar  %1</translation>
    </message>
</context>
<context>
    <name>PauseMenu</name>
    <message>
        <source>Pause overlay</source>
        <translation>Pausar sobreposição</translation>
    </message>
    <message>
        <source>Resume overlay</source>
        <translation>Retomar sobreposição</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Preferências…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Configurações…</translation>
    </message>
    <message>
        <source>About Glimmora</source>
        <translation>Sobre o Glimmora</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Sair do Glimmora</translation>
    </message>
</context>
<context>
    <name>QuitDialog</name>
    <message>
        <source>Quit Glimmora?</source>
        <translation>Sair do Glimmora?</translation>
    </message>
    <message>
        <source>The overlay will stop and Glimmora will close. You can launch it again from your Applications folder.</source>
        <translation>A sobreposição vai parar e o Glimmora será fechado. Você pode abri-lo de novo pela pasta Aplicativos.</translation>
    </message>
    <message>
        <source>Don&apos;t ask me again</source>
        <translation>Não perguntar de novo</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Sair do Glimmora</translation>
    </message>
    <message>
        <source>triggered by %1</source>
        <translation>acionado por %1</translation>
    </message>
    <message>
        <source>triggered by quit shortcut</source>
        <translation>acionado pelo atalho de saída</translation>
    </message>
    <message>
        <source> · Esc to cancel · Enter to confirm</source>
        <translation> · Esc para cancelar · Enter para confirmar</translation>
    </message>
</context>
<context>
    <name>RecordSlot</name>
    <message>
        <source>Ready</source>
        <translation>Pronto</translation>
    </message>
    <message>
        <source>REC</source>
        <translation>GRAV</translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation>PAUSA</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Parar gravação</translation>
    </message>
    <message>
        <source>Starting recorder…</source>
        <translation>Iniciando o gravador…</translation>
    </message>
    <message>
        <source>Recording  ·  click to pause  ·  stop</source>
        <translation>Gravando  ·  clique para pausar  ·  parar</translation>
    </message>
    <message>
        <source>Paused  ·  click to resume  ·  stop</source>
        <translation>Pausado  ·  clique para retomar  ·  parar</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Gravar</translation>
    </message>
</context>
<context>
    <name>RecordingSavedToast</name>
    <message>
        <source>Recording saved</source>
        <translation>Gravação salva</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar na pasta</translation>
    </message>
</context>
<context>
    <name>ShortcutReferenceCard</name>
    <message>
        <source>Switch tool</source>
        <translation>Trocar ferramenta</translation>
    </message>
    <message>
        <source>Spotlight mode</source>
        <translation>Modo holofote</translation>
    </message>
    <message>
        <source>Exit drawing</source>
        <translation>Sair do desenho</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Open settings</source>
        <translation>Abrir configurações</translation>
    </message>
    <message>
        <source>Pause overlay</source>
        <translation>Pausar sobreposição</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Sair do Glimmora</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Experimente</translation>
    </message>
    <message>
        <source>press</source>
        <translation>tecla</translation>
    </message>
    <message>
        <source>tap to toggle · hold to peek</source>
        <translation>toque: alternar · segure: ver</translation>
    </message>
    <message>
        <source>Quit with %1, the system tray menu, or long-press the pause button in the toolbar.</source>
        <translation>Saia com %1, pelo menu da bandeja do sistema ou mantendo pressionado o botão de pausa na barra de ferramentas.</translation>
    </message>
    <message>
        <source>the quit shortcut</source>
        <translation>o atalho de saída</translation>
    </message>
</context>
<context>
    <name>ToolbarCaptureMenu</name>
    <message>
        <source>Rectangle snip</source>
        <translation>Recorte retangular</translation>
    </message>
    <message>
        <source>Window snip</source>
        <translation>Recorte de janela</translation>
    </message>
    <message>
        <source>Full screen snip</source>
        <translation>Tela inteira</translation>
    </message>
</context>
<context>
    <name>ToolbarDragHandle</name>
    <message>
        <source>Move toolbar</source>
        <translation>Mover a barra de ferramentas</translation>
    </message>
</context>
<context>
    <name>ToolbarRecordMenu</name>
    <message>
        <source>Rectangle recording</source>
        <translation>Gravar uma área</translation>
    </message>
    <message>
        <source>Window recording</source>
        <translation>Gravar uma janela</translation>
    </message>
    <message>
        <source>Record display</source>
        <translation>Gravar a tela</translation>
    </message>
</context>
</TS>
