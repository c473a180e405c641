<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name>CaptureButton</name>
    <message>
        <source>Capture</source>
        <translation>キャプチャ</translation>
    </message>
</context>
<context>
    <name>ExtendedPalette</name>
    <message>
        <source>Custom colour...</source>
        <translation>カスタムカラー…</translation>
    </message>
</context>
<context>
    <name>FloatingToolbar</name>
    <message>
        <source>Magnifier lens</source>
        <translation>拡大鏡</translation>
    </message>
    <message>
        <source>Undo  %1</source>
        <translation>元に戻す  %1</translation>
    </message>
    <message>
        <source>Clear all  %1</source>
        <translation>すべて消去  %1</translation>
    </message>
</context>
<context>
    <name>ModeBadge</name>
    <message>
        <source>Cursor</source>
        <translation>カーソル</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>スポットライト</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>ペン</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>矢印</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>四角形</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>円</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>蛍光ペン</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>消しゴム</translation>
    </message>
    <message>
        <source>Glimmora · Paused</source>
        <translation>Glimmora · 一時停止中</translation>
    </message>
    <message>
        <source>Glimmora · %1</source>
        <translation>Glimmora · %1</translation>
    </message>
    <message>
        <source>%1 to resume</source>
        <translation>%1 で再開</translation>
    </message>
    <message>
        <source>%1 to cursor</source>
        <translation>%1 でカーソルへ</translation>
    </message>
    <message>
        <source>%1 to pause</source>
        <translation>%1 で一時停止</translation>
    </message>
    <message>
        <source>Click to resume overlay</source>
        <translation>クリックでオーバーレイを再開</translation>
    </message>
    <message>
        <source>Click to pause overlay</source>
        <translation>クリックでオーバーレイを一時停止</translation>
    </message>
</context>
<context>
    <name>OnboardingCard</name>
    <message>
        <source>Toggle overlay on / off</source>
        <translation>オーバーレイのオン / オフ</translation>
    </message>
    <message>
        <source>Switch tools</source>
        <translation>ツールを切り替え</translation>
    </message>
    <message>
        <source>Undo last stroke</source>
        <translation>最後の線を取り消す</translation>
    </message>
    <message>
        <source>Exit drawing mode</source>
        <translation>描画モードを終了</translation>
    </message>
    <message>
        <source>Hold for all shortcuts</source>
        <translation>長押しですべてのショートカット</translation>
    </message>
    <message>
        <source>Welcome to Glimmora</source>
        <translation>Glimmora へようこそ</translation>
    </message>
    <message>
        <source>Six keys is all you need. The overlay stays out of your way until you call it.</source>
        <translation>必要なキーは 6 つだけ。呼び出すまでオーバーレイは邪魔をしません。</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>了解</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>今後表示しない</translation>
    </message>
</context>
<context>
    <name>PauseButton</name>
    <message>
        <source>Pause  %1 · hold for menu</source>
        <translation>一時停止  %1 · 長押しでメニュー</translation>
    </message>
    <message>
        <source>Resume  %1</source>
        <translation>再開  %1</translation>
    </message>
</context>
<context>
    <name>PauseMenu</name>
    <message>
        <source>Pause overlay</source>
        <translation>オーバーレイを一時停止</translation>
    </message>
    <message>
        <source>Resume overlay</source>
        <translation>オーバーレイを再開</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>環境設定…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>設定…</translation>
    </message>
    <message>
        <source>About Glimmora</source>
        <translation>Glimmora について</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Glimmora を終了</translation>
    </message>
</context>
<context>
    <name>QuitDialog</name>
    <message>
        <source>Quit Glimmora?</source>
        <translation>Glimmora を終了しますか？</translation>
    </message>
    <message>
        <source>The overlay will stop and Glimmora will close. You can launch it again from your Applications folder.</source>
        <translation>オーバーレイが停止し、Glimmora が終了します。アプリケーションフォルダからいつでも再起動できます。</translation>
    </message>
    <message>
        <source>Don&apos;t ask me again</source>
        <translation>今後確認しない</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Glimmora を終了</translation>
    </message>
    <message>
        <source>triggered by %1</source>
        <translation>%1 で表示</translation>
    </message>
    <message>
        <source>triggered by quit shortcut</source>
        <translation>終了ショートカットで表示</translation>
    </message>
    <message>
        <source> · Esc to cancel · Enter to confirm</source>
        <translation> · Esc でキャンセル · Enter で確定</translation>
    </message>
</context>
<context>
    <name>RecordSlot</name>
    <message>
        <source>Ready</source>
        <translation>準備中</translation>
    </message>
    <message>
        <source>REC</source>
        <translation>録画</translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>録画を停止</translation>
    </message>
    <message>
        <source>Starting recorder…</source>
        <translation>録画を準備中…</translation>
    </message>
    <message>
        <source>Recording  ·  click to pause  ·  stop</source>
        <translation>録画中  ·  クリックで一時停止  ·  停止</translation>
    </message>
    <message>
        <source>Paused  ·  click to resume  ·  stop</source>
        <translation>一時停止中  ·  クリックで再開  ·  停止</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>録画</translation>
    </message>
</context>
<context>
    <name>RecordingSavedToast</name>
    <message>
        <source>Recording saved</source>
        <translation>録画を保存しました</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>フォルダに表示</translation>
    </message>
</context>
<context>
    <name>ShortcutReferenceCard</name>
    <message>
        <source>Switch tool</source>
        <translation>ツール切替</translation>
    </message>
    <message>
        <source>Spotlight mode</source>
        <translation>スポットライト</translation>
    </message>
    <message>
        <source>Exit drawing</source>
        <translation>描画を終了</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Open settings</source>
        <translation>設定を開く</translation>
    </message>
    <message>
        <source>Pause overlay</source>
        <translation>オーバーレイを一時停止</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Glimmora を終了</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>試す</translation>
    </message>
    <message>
        <source>press</source>
        <translation>キー</translation>
    </message>
    <message>
        <source>tap to toggle · hold to peek</source>
        <translation>タップで切替 · 長押しで表示</translation>
    </message>
    <message>
        <source>Quit with %1, the system tray menu, or long-press the pause button in the toolbar.</source>
        <translation>終了するには %1、システムトレイのメニュー、またはツールバーの一時停止ボタンの長押しを使います。</translation>
    </message>
    <message>
        <source>the quit shortcut</source>
        <translation>終了ショートカット</translation>
    </message>
</context>
<context>
    <name>ToolbarCaptureMenu</name>
    <message>
        <source>Rectangle snip</source>
        <translation>四角形で切り取り</translation>
    </message>
    <message>
        <source>Window snip</source>
        <translation>ウィンドウを切り取り</translation>
    </message>
    <message>
        <source>Full screen snip</source>
        <translation>全画面を切り取り</translation>
    </message>
</context>
<context>
    <name>ToolbarDragHandle</name>
    <message>
        <source>Move toolbar</source>
        <translation>ツールバーを移動</translation>
    </message>
</context>
<context>
    <name>ToolbarRecordMenu</name>
    <message>
        <source>Rectangle recording</source>
        <translation>範囲を録画</translation>
    </message>
    <message>
        <source>Window recording</source>
        <translation>ウィンドウを録画</translation>
    </message>
    <message>
        <source>Record display</source>
        <translation>画面を録画</translation>
    </message>
</context>
</TS>
