// The real program beside a screen locker and a password prompt, Debian's
// i3lock and ssh-askpass: nothing of the program shows above the locker,
// nothing typed into either shows as a key cap, a card up when the lock
// begins is gone after it, and the keystroke display comes back by itself.
// Typing fast into an application with every key shown loses nothing.
#include "ProgramHome.h"
#include "XTestSession.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace {

const QRect screen(0, 0, 3840, 1080);
// Where a key cap shows: centred near the bottom of the control display.
const QRect cardArea(700, 860, 520, 120);

void xdotool(const QStringList &arguments)
{
    QProcess::execute(QStringLiteral("xdotool"), arguments);
}

} // namespace

class tst_LockersX11 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void longStringArrivesWhole();
    void lockerCoversEverythingAndTakesTheCard();
    void passwordPromptKeysAreNotShown();

private:
    QList<QRgb> cardPixels();
    bool cardShown() { return cardPixels() != m_noCard; }
    QList<uint32_t> programWindows();
    uint32_t windowNamed(const QString &name);

    ProgramHome m_home;
    XTestSession m_user;
    QProcess m_program;
    QList<QRgb> m_noCard;
};

void tst_LockersX11::initTestCase()
{
    QVERIFY(m_user.isValid());
    QVERIFY(m_home.isValid());
    // Every key shown, and a card stays up long enough to tell a card taken
    // down from one that faded.
    QVERIFY(m_home.start(m_program, "[keystrokes]\nshowAlphaNumeric=true\nfadeMs=4000\n"));
    QTRY_VERIFY_WITH_TIMEOUT(m_home.logLinesWith(QStringLiteral("Glimmora started.")) == 1, 30000);
    QTRY_COMPARE_WITH_TIMEOUT(programWindows().size(), 3, 15000);
    m_user.moveTo(QPoint(1500, 500));
    QTest::qWait(500);
    m_noCard = cardPixels();
    xdotool({ "key", "ctrl+c" });
    QTRY_VERIFY(cardShown());
    // Faded again: the reference holds.
    QTRY_VERIFY_WITH_TIMEOUT(!cardShown(), 10000);
}

void tst_LockersX11::cleanupTestCase()
{
    if (m_program.state() == QProcess::NotRunning)
        return;
    ProgramHome::pressQuitShortcut(m_program);
    if (!m_program.waitForFinished(10000)) {
        m_program.kill();
        m_program.waitForFinished(5000);
    }
}

void tst_LockersX11::longStringArrivesWhole()
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("typed"));
    QProcess terminal;
    terminal.start(QStringLiteral("xterm"),
                   { "-geometry", "120x8+100+100", "-e", "sh", "-c", "cat > '" + file + "'" });
    QVERIFY(terminal.waitForStarted());
    uint32_t window = 0;
    QTRY_VERIFY((window = windowNamed(QStringLiteral("sh"))) != 0);
    xdotool({ "windowfocus", "--sync", QString::number(window) });

    // Letters, digits, capitals, spaces and punctuation, each shown as it is
    // typed, which asks the server about grabs each time.
    QString text;
    while (text.size() < 400)
        text += QStringLiteral("The Quick brown fox 0123456789 jumps, over: the lazy dog; ");
    QElapsedTimer clock;
    clock.start();
    xdotool({ "type", "--delay", "3", text });
    xdotool({ "key", "Return", "ctrl+d" });
    QVERIFY(terminal.waitForFinished(30000));
    qInfo() << text.size() << "characters typed in" << clock.elapsed() << "ms";
    QFile typed(file);
    QVERIFY(typed.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(typed.readAll()), text + u'\n');
}

void tst_LockersX11::lockerCoversEverythingAndTakesTheCard()
{
    xdotool({ "key", "ctrl+c" });
    QTRY_VERIFY(cardShown());
    QElapsedTimer sinceCard;
    sinceCard.start();

    QProcess locker;
    locker.start(QStringLiteral("i3lock"), { "-n", "-u", "-c", "000000" });
    QVERIFY(locker.waitForStarted());
    uint32_t lock = 0;
    QTRY_VERIFY((lock = windowNamed(QStringLiteral("i3lock"))) != 0);
    QTRY_COMPARE(m_home.logLinesWith(QStringLiteral("AppController: session locked")), 1);

    // The presenter moves the pointer and types the password.
    for (const QPoint p : { QPoint(960, 10), QPoint(40, 1000), QPoint(2800, 600) })
        m_user.moveTo(p);
    xdotool({ "type", "--delay", "20", "hunter" });
    QTest::qWait(200);

    const QList<uint32_t> order = m_user.stackingOrder();
    for (uint32_t window : programWindows())
        QVERIFY(order.indexOf(window) < order.indexOf(lock));
    for (int y = 5; y < screen.height(); y += 90) {
        for (int x = 5; x < screen.width(); x += 90)
            QCOMPARE(m_user.rootPixel(QPoint(x, y)), 0u);
    }

    // Killed outright, the locker takes its window and grabs along.
    locker.kill();
    QVERIFY(locker.waitForFinished(5000));
    QTRY_COMPARE_WITH_TIMEOUT(
        m_home.logLinesWith(QStringLiteral("XcbOverlayStacking: the screen locker is gone")), 1,
        1000);
    QVERIFY2(sinceCard.elapsed() < 3500, "too slow to tell a card taken down from a faded one");
    QVERIFY(!cardShown());
    xdotool({ "key", "ctrl+c" });
    QTRY_VERIFY(cardShown());
    QTRY_VERIFY_WITH_TIMEOUT(!cardShown(), 10000);
}

void tst_LockersX11::passwordPromptKeysAreNotShown()
{
    QProcess prompt;
    prompt.start(QStringLiteral("ssh-askpass"), { "Passphrase for the demo key:" });
    QVERIFY(prompt.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(m_user.keyboardGrabbed(), 10000);
    xdotool({ "type", "--delay", "20", "Secret" });
    // A card would show within a frame or two.
    QTest::qWait(500);
    QVERIFY(!cardShown());
    xdotool({ "key", "Escape" });
    QVERIFY(prompt.waitForFinished(10000));
    QTRY_VERIFY(!m_user.keyboardGrabbed());
    xdotool({ "key", "ctrl+c" });
    QTRY_VERIFY(cardShown());
}

QList<QRgb> tst_LockersX11::cardPixels()
{
    QList<QRgb> pixels;
    for (int y = cardArea.top(); y <= cardArea.bottom(); y += 6) {
        for (int x = cardArea.left(); x <= cardArea.right(); x += 6)
            pixels.append(m_user.rootPixel(QPoint(x, y)));
    }
    return pixels;
}

QList<uint32_t> tst_LockersX11::programWindows()
{
    QList<uint32_t> windows = m_user.mappedWindowsOf(m_program.processId());
    windows.removeIf([&](uint32_t window) { return !m_user.isOverrideRedirect(window); });
    return windows;
}

uint32_t tst_LockersX11::windowNamed(const QString &name)
{
    QProcess search;
    search.start(QStringLiteral("xdotool"),
                 { "search", "--onlyvisible", "--name", "^" + name + "$" });
    search.waitForFinished(5000);
    return QString::fromLatin1(search.readAllStandardOutput()).section(u'\n', 0, 0).toUInt();
}

QTEST_GUILESS_MAIN(tst_LockersX11)
#include "tst_lockers_x11.moc"
