<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="vi">
<context>
    <name>CaptureButton</name>
    <message>
        <source>Capture</source>
        <translation>Chụp màn hình</translation>
    </message>
</context>
<context>
    <name>ExtendedPalette</name>
    <message>
        <source>Custom colour...</source>
        <translation>Màu tùy chỉnh…</translation>
    </message>
</context>
<context>
    <name>FloatingToolbar</name>
    <message>
        <source>Magnifier lens</source>
        <translation>Kính lúp</translation>
    </message>
    <message>
        <source>Undo  %1</source>
        <translation>Hoàn tác  %1</translation>
    </message>
    <message>
        <source>Clear all  %1</source>
        <translation>Xóa tất cả  %1</translation>
    </message>
</context>
<context>
    <name>ModeBadge</name>
    <message>
        <source>Cursor</source>
        <translation>Con trỏ</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>Đèn chiếu</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Bút</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Mũi tên</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Hình chữ nhật</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Hình tròn</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Bút dạ quang</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Tẩy</translation>
    </message>
    <message>
        <source>Glimmora · Paused</source>
        <translation>Glimmora · Đã tạm dừng</translation>
    </message>
    <message>
        <source>Glimmora · %1</source>
        <translation>Glimmora · %1</translation>
    </message>
    <message>
        <source>%1 to resume</source>
        <translation>%1 để tiếp tục</translation>
    </message>
    <message>
        <source>%1 to cursor</source>
        <translation>%1 về con trỏ</translation>
    </message>
    <message>
        <source>%1 to pause</source>
        <translation>%1 để tạm dừng</translation>
    </message>
    <message>
        <source>Click to resume overlay</source>
        <translation>Nhấp để tiếp tục lớp phủ</translation>
    </message>
    <message>
        <source>Click to pause overlay</source>
        <translation>Nhấp để tạm dừng lớp phủ</translation>
    </message>
</context>
<context>
    <name>OnboardingCard</name>
    <message>
        <source>Toggle overlay on / off</source>
        <translation>Bật / tắt lớp phủ</translation>
    </message>
    <message>
        <source>Switch tools</source>
        <translation>Chuyển công cụ</translation>
    </message>
    <message>
        <source>Undo last stroke</source>
        <translation>Hoàn tác nét vẽ cuối</translation>
    </message>
    <message>
        <source>Exit drawing mode</source>
        <translation>Thoát chế độ vẽ</translation>
    </message>
    <message>
        <source>Hold for all shortcuts</source>
        <translation>Giữ để xem mọi phím tắt</translation>
    </message>
    <message>
        <source>Welcome to Glimmora</source>
        <translation>Chào mừng bạn đến với Glimmora</translation>
    </message>
    <message>
        <source>Six keys is all you need. The overlay stays out of your way until you call it.</source>
        <translation>Chỉ cần sáu phím. Lớp phủ sẽ không làm phiền cho đến khi bạn gọi nó.</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Đã hiểu</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>Không hiện lại</translation>
    </message>
</context>
<context>
    <name>PauseButton</name>
    <message>
        <source>Pause  %1 · hold for menu</source>
        <translation>Tạm dừng  %1 · giữ để mở menu</translation>
    </message>
    <message>
        <source>Resume  %1</source>
        <translation>Tiếp tục  %1</translation>
    </message>
</context>
<context>
    <name>PauseMenu</name>
    <message>
        <source>Pause overlay</source>
        <translation>Tạm dừng lớp phủ</translation>
    </message>
    <message>
        <source>Resume overlay</source>
        <translation>Tiếp tục lớp phủ</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Tùy chọn…</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Cài đặt…</translation>
    </message>
    <message>
        <source>About Glimmora</source>
        <translation>Giới thiệu Glimmora</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Thoát Glimmora</translation>
    </message>
</context>
<context>
    <name>QuitDialog</name>
    <message>
        <source>Quit Glimmora?</source>
        <translation>Thoát Glimmora?</translation>
    </message>
    <message>
        <source>The overlay will stop and Glimmora will close. You can launch it again from your Applications folder.</source>
        <translation>Lớp phủ sẽ dừng và Glimmora sẽ đóng. Bạn có thể mở lại từ thư mục Ứng dụng.</translation>
    </message>
    <message>
        <source>Don&apos;t ask me again</source>
        <translation>Không hỏi lại</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Hủy</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Thoát Glimmora</translation>
    </message>
    <message>
        <source>triggered by %1</source>
        <translation>mở bằng %1</translation>
    </message>
    <message>
        <source>triggered by quit shortcut</source>
        <translation>mở bằng phím tắt thoát</translation>
    </message>
    <message>
        <source> · Esc to cancel · Enter to confirm</source>
        <translation> · Esc để hủy · Enter để xác nhận</translation>
    </message>
</context>
<context>
    <name>RecordSlot</name>
    <message>
        <source>Ready</source>
        <translation>Sẵn sàng</translation>
    </message>
    <message>
        <source>REC</source>
        <translation>GHI</translation>
    </message>
    <message>
        <source>PAUSE</source>
        <translation>DỪNG</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Dừng ghi</translation>
    </message>
    <message>
        <source>Starting recorder…</source>
        <translation>Đang khởi động trình ghi…</translation>
    </message>
    <message>
        <source>Recording  ·  click to pause  ·  stop</source>
        <translation>Đang ghi  ·  nhấp để tạm dừng  ·  dừng</translation>
    </message>
    <message>
        <source>Paused  ·  click to resume  ·  stop</source>
        <translation>Đã tạm dừng  ·  nhấp để tiếp tục  ·  dừng</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Ghi hình</translation>
    </message>
</context>
<context>
    <name>RecordingSavedToast</name>
    <message>
        <source>Recording saved</source>
        <translation>Đã lưu bản ghi</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Hiện trong thư mục</translation>
    </message>
</context>
<context>
    <name>ShortcutReferenceCard</name>
    <message>
        <source>Switch tool</source>
        <translation>Đổi công cụ</translation>
    </message>
    <message>
        <source>Spotlight mode</source>
        <translation>Chế độ đèn chiếu</translation>
    </message>
    <message>
        <source>Exit drawing</source>
        <translation>Thoát vẽ</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Hoàn tác</translation>
    </message>
    <message>
        <source>Open settings</source>
        <translation>Mở cài đặt</translation>
    </message>
    <message>
        <source>Pause overlay</source>
        <translation>Tạm dừng lớp phủ</translation>
    </message>
    <message>
        <source>Quit Glimmora</source>
        <translation>Thoát Glimmora</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Thử ngay</translation>
    </message>
    <message>
        <source>press</source>
        <translation>phím</translation>
    </message>
    <message>
        <source>tap to toggle · hold to peek</source>
        <translation>chạm: bật/tắt · giữ: xem nhanh</translation>
    </message>
    <message>
        <source>Quit with %1, the system tray menu, or long-press the pause button in the toolbar.</source>
        <translation>Thoát bằng %1, menu khay hệ thống hoặc nhấn giữ nút tạm dừng trên thanh công cụ.</translation>
    </message>
    <message>
        <source>the quit shortcut</source>
        <translation>phím tắt thoát</translation>
    </message>
</context>
<context>
    <name>ToolbarCaptureMenu</name>
    <message>
        <source>Rectangle snip</source>
        <translation>Chụp vùng chữ nhật</translation>
    </message>
    <message>
        <source>Window snip</source>
        <translation>Chụp cửa sổ</translation>
    </message>
    <message>
        <source>Full screen snip</source>
        <translation>Chụp toàn màn hình</translation>
    </message>
</context>
<context>
    <name>ToolbarDragHandle</name>
    <message>
        <source>Move toolbar</source>
        <translation>Di chuyển thanh công cụ</translation>
    </message>
</context>
<context>
    <name>ToolbarRecordMenu</name>
    <message>
        <source>Rectangle recording</source>
        <translation>Ghi vùng chọn</translation>
    </message>
    <message>
        <source>Window recording</source>
        <translation>Ghi cửa sổ</translation>
    </message>
    <message>
        <source>Record display</source>
        <translation>Ghi màn hình</translation>
    </message>
</context>
</TS>
