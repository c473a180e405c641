<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name>CaptureButton</name>
    <message>
        <source>Capture</source>
        <translation>캡처</translation>
    </message>
</context>
<context>
    <name>ExtendedPalette</name>
    <message>
        <source>Custom colour...</source>
        <translation>사용자 지정 색…</translation>
    </message>
</context>
<context>
    <name>FloatingToolbar</name>
    <message>
        <source>Magnifier lens</source>
        <translation>돋보기</translation>
    </message>
    <message>
        <source>Undo  %1</source>
        <translation>실행 취소  %1</translation>
    </message>
    <message>
        <source>Clear all  %1</source>
        <translation>모두 지우기  %1</translation>
    </message>
</context>
<context>
    <name>ModeBadge</name>
    <message>
        <source>Cursor</source>
        <translation>커서</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>스포트라이트</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>펜</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>화살표</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>사각형</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>원</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>형광펜</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>지우개</translation>
    </message>
    <message>
        <source>Glimmora · Paused</source>
        <translation>Glimmora · 일시 중지됨</translation>
    </message>
    <message>
        <source>Glimmora · %1</source>
        <translation>Glimmora · %1</translation>
    </message>
    <message>
        <source>%1 to resume</source>
        <translation>%1 키로 재개</translation>
    </message>
    <message>
        <source>%1 to cursor</source>
        <translation>%1 키로 커서</translation>
    </message>
    <message>
        <source>%1 to pause</source>
        <translation>%1 키로 일시 중지</translation>
    </message>
    <message>
        <source>Click to resume overlay</source>
        <translation>클릭하여 오버레이 재개</translation>
    </message>
    <message>
        <source>Click to pause overlay</source>
        <translation>클릭하여 오버레이 일시 중지</translation>
    </message>
</context>
<context>
    <name>OnboardingCard</name>
    <message>
        <source>Toggle overlay on / off</source>
        <translation>오버레이 켜기 / 끄기</translation>
    </message>
    <message>
        <source>Switch tools</source>
        <translation>도구 전환</translation>
    </message>
    <message>
        <source>Undo last stroke</source>
        <translation>마지막 획 실행 취소</translation>
    </message>
    <message>
        <source>Exit drawing mode</source>
        <translation>그리기 모드 종료</translation>
    </message>
    <message>
        <source>Hold for all shortcuts</source>
        <translation>길게 눌러 모든 단축키 보기</translation>
    </message>
    <message>
        <source>Welcome to Glimmora</source>
        <translation>Glimmora에 오신 것을 환영합니다</translation>
    </message>
    <message>
        <source>Six keys is all you need. The overlay stays out of your way until you call it.</source>
        <translation>키 여섯 개면 충분합니다. 오버레이는 부르기 전까지 방해하지 않습니다.</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>확인</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>다시 표시 안 함</translation>
    </message>
</context>
<context>
    <name>PauseButton</name>
    <message>
        <source>Pause  %1 · hold for menu</source>
        <translation>일시 중지  %1 · 길게 눌러 메뉴</translation>
    </message>
    <message>
        <source>Resume  %1</source>
        <translation>재개  %1</translation>
    </message>
</context>
<context>
    <name>PauseMenu</name>
    <message>
        <source>Pause overlay</source>
        <translation>오버레이 일시 중지</translation>
    </message>
    <message>
        <source>Resume overlay</source>
        <translation>오버레이 재개</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>환경설정…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>설정…</translation>
    </message>
    <message>
        <source>About Glimmora</source>
        <translation>Glimmora 정보</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Glimmora 종료</translation>
    </message>
</context>
<context>
    <name>QuitDialog</name>
    <message>
        <source>Quit Glimmora?</source>
        <translation>Glimmora를 종료할까요?</translation>
    </message>
    <message>
        <source>The overlay will stop and Glimmora will close. You can launch it again from your Applications folder.</source>
        <translation>오버레이가 멈추고 Glimmora가 종료됩니다. 응용 프로그램 폴더에서 다시 실행할 수 있습니다.</translation>
    </message>
    <message>
        <source>Don&apos;t ask me again</source>
        <translation>다시 묻지 않기</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Glimmora 종료</translation>
    </message>
    <message>
        <source>triggered by %1</source>
        <translation>%1(으)로 열림</translation>
    </message>
    <message>
        <source>triggered by quit shortcut</source>
        <translation>종료 단축키로 열림</translation>
    </message>
    <message>
        <source> · Esc to cancel · Enter to confirm</source>
        <translation> · Esc 취소 · Enter 확인</translation>
    </message>
</context>
<context>
    <name>RecordSlot</name>
    <message>
        <source>Ready</source>
        <translation>준비 중</translation>
    </message>
    <message>
        <source>REC</source>
        <translation>녹화</translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation>일시정지</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>녹화 중지</translation>
    </message>
    <message>
        <source>Starting recorder…</source>
        <translation>녹화 준비 중…</translation>
    </message>
    <message>
        <source>Recording  ·  click to pause  ·  stop</source>
        <translation>녹화 중  ·  클릭하여 일시 중지  ·  중지</translation>
    </message>
    <message>
        <source>Paused  ·  click to resume  ·  stop</source>
        <translation>일시 중지됨  ·  클릭하여 재개  ·  중지</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>녹화</translation>
    </message>
</context>
<context>
    <name>RecordingSavedToast</name>
    <message>
        <source>Recording saved</source>
        <translation>녹화 저장됨</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>폴더에서 보기</translation>
    </message>
</context>
<context>
    <name>ShortcutReferenceCard</name>
    <message>
        <source>Switch tool</source>
        <translation>도구 전환</translation>
    </message>
    <message>
        <source>Spotlight mode</source>
        <translation>스포트라이트 모드</translation>
    </message>
    <message>
        <source>Exit drawing</source>
        <translation>그리기 종료</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>실행 취소</translation>
    </message>
    <message>
        <source>Open settings</source>
        <translation>설정 열기</translation>
    </message>
    <message>
        <source>Pause overlay</source>
        <translation>오버레이 일시 중지</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Glimmora 종료</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>해 보기</translation>
    </message>
    <message>
        <source>press</source>
        <translation>키</translation>
    </message>
    <message>
        <source>tap to toggle · hold to peek</source>
        <translation>탭: 전환 · 길게: 미리 보기</translation>
    </message>
    <message>
        <source>Quit with %1, the system tray menu, or long-press the pause button in the toolbar.</source>
        <translation>%1, 시스템 트레이 메뉴 또는 도구 모음의 일시 중지 버튼을 길게 눌러 종료할 수 있습니다.</translation>
    </message>
    <message>
        <source>the quit shortcut</source>
        <translation>종료 단축키</translation>
    </message>
</context>
<context>
    <name>ToolbarCaptureMenu</name>
    <message>
        <source>Rectangle snip</source>
        <translation>사각형 캡처</translation>
    </message>
    <message>
        <source>Window snip</source>
        <translation>창 캡처</translation>
    </message>
    <message>
        <source>Full screen snip</source>
        <translation>전체 화면 캡처</translation>
    </message>
</context>
<context>
    <name>ToolbarDragHandle</name>
    <message>
        <source>Move toolbar</source>
        <translation>도구 모음 이동</translation>
    </message>
</context>
<context>
    <name>ToolbarRecordMenu</name>
    <message>
        <source>Rectangle recording</source>
        <translation>영역 녹화</translation>
    </message>
    <message>
        <source>Window recording</source>
        <translation>창 녹화</translation>
    </message>
    <message>
        <source>Record display</source>
        <translation>화면 녹화</translation>
    </message>
</context>
</TS>
