<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>CaptureButton</name>
    <message>
        <source>Capture</source>
        <translation>截图</translation>
    </message>
</context>
<context>
    <name>ExtendedPalette</name>
    <message>
        <source>Custom colour...</source>
        <translation>自定义颜色…</translation>
    </message>
</context>
<context>
    <name>FloatingToolbar</name>
    <message>
        <source>Magnifier lens</source>
        <translation>放大镜</translation>
    </message>
    <message>
        <source>Undo  %1</source>
        <translation>撤销  %1</translation>
    </message>
    <message>
        <source>Clear all  %1</source>
        <translation>全部清除  %1</translation>
    </message>
</context>
<context>
    <name>ModeBadge</name>
    <message>
        <source>Cursor</source>
        <translation>光标</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>聚光灯</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>画笔</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>箭头</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>圆形</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>荧光笔</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>橡皮擦</translation>
    </message>
    <message>
        <source>Glimmora · Paused</source>
        <translation>Glimmora · 已暂停</translation>
    </message>
    <message>
        <source>Glimmora · %1</source>
        <translation>Glimmora · %1</translation>
    </message>
    <message>
        <source>%1 to resume</source>
        <translation>按 %1 继续</translation>
    </message>
    <message>
        <source>%1 to cursor</source>
        <translation>按 %1 回到光标</translation>
    </message>
    <message>
        <source>%1 to pause</source>
        <translation>按 %1 暂停</translation>
    </message>
    <message>
        <source>Click to resume overlay</source>
        <translation>点击恢复叠加层</translation>
    </message>
    <message>
        <source>Click to pause overlay</source>
        <translation>点击暂停叠加层</translation>
    </message>
</context>
<context>
    <name>OnboardingCard</name>
    <message>
        <source>Toggle overlay on / off</source>
        <translation>开启 / 关闭叠加层</translation>
    </message>
    <message>
        <source>Switch tools</source>
        <translation>切换工具</translation>
    </message>
    <message>
        <source>Undo last stroke</source>
        <translation>撤销上一笔</translation>
    </message>
    <message>
        <source>Exit drawing mode</source>
        <translation>退出绘图模式</translation>
    </message>
    <message>
        <source>Hold for all shortcuts</source>
        <translation>按住查看全部快捷键</translation>
    </message>
    <message>
        <source>Welcome to Glimmora</source>
        <translation>欢迎使用 Glimmora</translation>
    </message>
    <message>
        <source>Six keys is all you need. The overlay stays out of your way until you call it.</source>
        <translation>只需六个按键。在你呼出之前，叠加层不会打扰你。</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>知道了</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>不再显示</translation>
    </message>
</context>
<context>
    <name>PauseButton</name>
    <message>
        <source>Pause  %1 · hold for menu</source>
        <translation>暂停  %1 · 按住打开菜单</translation>
    </message>
    <message>
        <source>Resume  %1</source>
        <translation>继续  %1</translation>
    </message>
</context>
<context>
    <name>PauseMenu</name>
    <message>
        <source>Pause overlay</source>
        <translation>暂停叠加层</translation>
    </message>
    <message>
        <source>Resume overlay</source>
        <translation>恢复叠加层</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>首选项…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>设置…</translation>
    </message>
    <message>
        <source>About Glimmora</source>
        <translation>关于 Glimmora</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>退出 Glimmora</translation>
    </message>
</context>
<context>
    <name>QuitDialog</name>
    <message>
        <source>Quit Glimmora?</source>
        <translation>退出 Glimmora？</translation>
    </message>
    <message>
        <source>The overlay will stop and Glimmora will close. You can launch it again from your Applications folder.</source>
        <translation>叠加层将停止，Glimmora 将关闭。你可以从“应用程序”文件夹再次启动它。</translation>
    </message>
    <message>
        <source>Don&apos;t ask me again</source>
        <translation>不再询问</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>退出 Glimmora</translation>
    </message>
    <message>
        <source>triggered by %1</source>
        <translation>由 %1 触发</translation>
    </message>
    <message>
        <source>triggered by quit shortcut</source>
        <translation>由退出快捷键触发</translation>
    </message>
    <message>
        <source> · Esc to cancel · Enter to confirm</source>
        <translation> · Esc 取消 · Enter 确认</translation>
    </message>
</context>
<context>
    <name>RecordSlot</name>
    <message>
        <source>Ready</source>
        <translation>准备中</translation>
    </message>
    <message>
        <source>REC</source>
        <translation>录制</translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>停止录制</translation>
    </message>
    <message>
        <source>Starting recorder…</source>
        <translation>正在启动录制…</translation>
    </message>
    <message>
        <source>Recording  ·  click to pause  ·  stop</source>
        <translation>录制中  ·  点击暂停  ·  停止</translation>
    </message>
    <message>
        <source>Paused  ·  click to resume  ·  stop</source>
        <translation>已暂停  ·  点击继续  ·  停止</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>录制</translation>
    </message>
</context>
<context>
    <name>RecordingSavedToast</name>
    <message>
        <source>Recording saved</source>
        <translation>录制已保存</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>在文件夹中显示</translation>
    </message>
</context>
<context>
    <name>ShortcutReferenceCard</name>
    <message>
        <source>Switch tool</source>
        <translation>切换工具</translation>
    </message>
    <message>
        <source>Spotlight mode</source>
        <translation>聚光灯模式</translation>
    </message>
    <message>
        <source>Exit drawing</source>
        <translation>退出绘图</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Open settings</source>
        <translation>打开设置</translation>
    </message>
    <message>
        <source>Pause overlay</source>
        <translation>暂停叠加层</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>退出 Glimmora</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>试一试</translation>
    </message>
    <message>
        <source>press</source>
        <translation>按</translation>
    </message>
    <message>
        <source>tap to toggle · hold to peek</source>
        <translation>轻按切换 · 按住预览</translation>
    </message>
    <message>
        <source>Quit with %1, the system tray menu, or long-press the pause button in the toolbar.</source>
        <translation>可通过 %1、系统托盘菜单，或长按工具栏中的暂停按钮退出。</translation>
    </message>
    <message>
        <source>the quit shortcut</source>
        <translation>退出快捷键</translation>
    </message>
</context>
<context>
    <name>ToolbarCaptureMenu</name>
    <message>
        <source>Rectangle snip</source>
        <translation>矩形截图</translation>
    </message>
    <message>
        <source>Window snip</source>
        <translation>窗口截图</translation>
    </message>
    <message>
        <source>Full screen snip</source>
        <translation>全屏截图</translation>
    </message>
</context>
<context>
    <name>ToolbarDragHandle</name>
    <message>
        <source>Move toolbar</source>
        <translation>移动工具栏</translation>
    </message>
</context>
<context>
    <name>ToolbarRecordMenu</name>
    <message>
        <source>Rectangle recording</source>
        <translation>录制区域</translation>
    </message>
    <message>
        <source>Window recording</source>
        <translation>录制窗口</translation>
    </message>
    <message>
        <source>Record display</source>
        <translation>录制屏幕</translation>
    </message>
</context>
</TS>
