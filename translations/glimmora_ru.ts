<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru">
<context>
    <name>CaptureButton</name>
    <message>
        <source>Capture</source>
        <translation>Снимок экрана</translation>
    </message>
</context>
<context>
    <name>ExtendedPalette</name>
    <message>
        <source>Custom colour...</source>
        <translation>Свой цвет…</translation>
    </message>
</context>
<context>
    <name>FloatingToolbar</name>
    <message>
        <source>Magnifier lens</source>
        <translation>Лупа</translation>
    </message>
    <message>
        <source>Undo  %1</source>
        <translation>Отменить  %1</translation>
    </message>
    <message>
        <source>Clear all  %1</source>
        <translation>Очистить всё  %1</translation>
    </message>
</context>
<context>
    <name>ModeBadge</name>
    <message>
        <source>Cursor</source>
        <translation>Курсор</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>Прожектор</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Перо</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Стрелка</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Прямоугольник</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Круг</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Маркер</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Ластик</translation>
    </message>
    <message>
        <source>Glimmora · Paused</source>
        <translation>Glimmora · Пауза</translation>
    </message>
    <message>
        <source>Glimmora · %1</source>
        <translation>Glimmora · %1</translation>
    </message>
    <message>
        <source>%1 to resume</source>
        <translation>%1 — продолжить</translation>
    </message>
    <message>
        <source>%1 to cursor</source>
        <translation>%1 — курсор</translation>
    </message>
    <message>
        <source>%1 to pause</source>
        <translation>%1 — пауза</translation>
    </message>
    <message>
        <source>Click to resume overlay</source>
        <translation>Нажмите, чтобы возобновить оверлей</translation>
    </message>
    <message>
        <source>Click to pause overlay</source>
        <translation>Нажмите, чтобы приостановить оверлей</translation>
    </message>
</context>
<context>
    <name>OnboardingCard</name>
    <message>
        <source>Toggle overlay on / off</source>
        <translation>Оверлей вкл. / выкл.</translation>
    </message>
    <message>
        <source>Switch tools</source>
        <translation>Сменить инструмент</translation>
    </message>
    <message>
        <source>Undo last stroke</source>
        <translation>Отменить последний штрих</translation>
    </message>
    <message>
        <source>Exit drawing mode</source>
        <translation>Выйти из режима рисования</translation>
    </message>
    <message>
        <source>Hold for all shortcuts</source>
        <translation>Удерживать — все сочетания</translation>
    </message>
    <message>
        <source>Welcome to Glimmora</source>
        <translation>Добро пожаловать в Glimmora</translation>
    </message>
    <message>
        <source>Six keys is all you need. The overlay stays out of your way until you call it.</source>
        <translation>Достаточно шести клавиш. Оверлей не мешает, пока вы его не позовёте.</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Понятно</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>Больше не показывать</translation>
    </message>
</context>
<context>
    <name>PauseButton</name>
    <message>
        <source>Pause  %1 · hold for menu</source>
        <translation>Пауза  %1 · удерживать — меню</translation>
    </message>
    <message>
        <source>Resume  %1</source>
        <translation>Продолжить  %1</translation>
    </message>
</context>
<context>
    <name>PauseMenu</name>
    <message>
        <source>Pause overlay</source>
        <translation>Приостановить оверлей</translation>
    </message>
    <message>
        <source>Resume overlay</source>
        <translation>Возобновить оверлей</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Параметры…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Настройки…</translation>
    </message>
    <message>
        <source>About Glimmora</source>
        <translation>О программе Glimmora</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Выйти из Glimmora</translation>
    </message>
</context>
<context>
    <name>QuitDialog</name>
    <message>
        <source>Quit Glimmora?</source>
        <translation>Выйти из Glimmora?</translation>
    </message>
    <message>
        <source>The overlay will stop and Glimmora will close. You can launch it again from your Applications folder.</source>
        <translation>Оверлей остановится, и Glimmora закроется. Снова запустить её можно из папки «Программы».</translation>
    </message>
    <message>
        <source>Don&apos;t ask me again</source>
        <translation>Больше не спрашивать</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Выйти из Glimmora</translation>
    </message>
    <message>
        <source>triggered by %1</source>
        <translation>вызвано клавишами %1</translation>
    </message>
    <message>
        <source>triggered by quit shortcut</source>
        <translation>вызвано сочетанием выхода</translation>
    </message>
    <message>
        <source> · Esc to cancel · Enter to confirm</source>
        <translation> · Esc — отмена · Enter — выйти</translation>
    </message>
</context>
<context>
    <name>RecordSlot</name>
    <message>
        <source>Ready</source>
        <translation>Запуск</translation>
    </message>
    <message>
        <source>REC</source>
        <translation>ЗАП</translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation>ПАУЗА</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Остановить запись</translation>
    </message>
    <message>
        <source>Starting recorder…</source>
        <translation>Запуск записи…</translation>
    </message>
    <message>
        <source>Recording  ·  click to pause  ·  stop</source>
        <translation>Идёт запись  ·  нажмите для паузы  ·  стоп</translation>
    </message>
    <message>
        <source>Paused  ·  click to resume  ·  stop</source>
        <translation>Пауза  ·  нажмите, чтобы продолжить  ·  стоп</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Запись</translation>
    </message>
</context>
<context>
    <name>RecordingSavedToast</name>
    <message>
        <source>Recording saved</source>
        <translation>Запись сохранена</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Показать в папке</translation>
    </message>
</context>
<context>
    <name>ShortcutReferenceCard</name>
    <message>
        <source>Switch tool</source>
        <translation>Сменить инструмент</translation>
    </message>
    <message>
        <source>Spotlight mode</source>
        <translation>Режим прожектора</translation>
    </message>
    <message>
        <source>Exit drawing</source>
        <translation>Выйти из рисования</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>Open settings</source>
        <translation>Открыть настройки</translation>
    </message>
    <message>
        <source>Pause overlay</source>
        <translation>Приостановить оверлей</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Выйти из Glimmora</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Попробуйте</translation>
    </message>
    <message>
        <source>press</source>
        <translation>клавиша</translation>
    </message>
    <message>
        <source>tap to toggle · hold to peek</source>
        <translation>нажать — вкл/выкл · держать — показать</translation>
    </message>
    <message>
        <source>Quit with %1, the system tray menu, or long-press the pause button in the toolbar.</source>
        <translation>Выйти можно через %1, меню в системном трее или долгим нажатием кнопки паузы на панели инструментов.</translation>
    </message>
    <message>
        <source>the quit shortcut</source>
        <translation>сочетание выхода</translation>
    </message>
</context>
<context>
    <name>ToolbarCaptureMenu</name>
    <message>
        <source>Rectangle snip</source>
        <translation>Снимок области</translation>
    </message>
    <message>
        <source>Window snip</source>
        <translation>Снимок окна</translation>
    </message>
    <message>
        <source>Full screen snip</source>
        <translation>Снимок экрана</translation>
    </message>
</context>
<context>
    <name>ToolbarDragHandle</name>
    <message>
        <source>Move toolbar</source>
        <translation>Переместить панель</translation>
    </message>
</context>
<context>
    <name>ToolbarRecordMenu</name>
    <message>
        <source>Rectangle recording</source>
        <translation>Запись области</translation>
    </message>
    <message>
        <source>Window recording</source>
        <translation>Запись окна</translation>
    </message>
    <message>
        <source>Record display</source>
        <translation>Запись экрана</translation>
    </message>
</context>
</TS>
