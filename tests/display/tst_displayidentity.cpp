#include "display/DisplayIdentity.h"

#include <QTest>

Q_DECLARE_METATYPE(ScreenIdentity)

class TestDisplayIdentity : public QObject
{
    Q_OBJECT

private slots:
    void ids_data()
    {
        QTest::addColumn<ScreenIdentity>("screen");
        QTest::addColumn<QString>("id");

        QTest::newRow("serial wins, trimmed")
            << ScreenIdentity { " 4XK0 ", "Dell", "U2720Q", "DP-1", { 1920, 0 } } << "sn_4XK0";
        QTest::newRow("model with manufacturer and position")
            << ScreenIdentity { "", " Dell ", " U2720Q ", "DP-1", { 1920, 0 } }
            << "mdl_Dell_U2720Q_1920x0";
        QTest::newRow("blank serial falls to the model")
            << ScreenIdentity { "   ", "", "U2720Q", "DP-1", { -1280, 200 } }
            << "mdl__U2720Q_-1280x200";
        QTest::newRow("name keeps its raw text")
            << ScreenIdentity { "", "Dell", "  ", "\\\\.\\DISPLAY2", { 0, 0 } }
            << "nm_\\\\.\\DISPLAY2_0x0";
        QTest::newRow("name is not trimmed")
            << ScreenIdentity { "", "", "", " LEFT ", { 0, 0 } } << "nm_ LEFT _0x0";
        QTest::newRow("moving a display without serial changes the id")
            << ScreenIdentity { "", "", "", "RIGHT", { 1920, 0 } } << "nm_RIGHT_1920x0";
    }

    void ids()
    {
        QFETCH(ScreenIdentity, screen);
        QFETCH(QString, id);
        QCOMPARE(DisplayIdentity::displayId(screen), id);
    }

    void nullScreenHasEmptyId()
    {
        QVERIFY(DisplayIdentity::displayId(static_cast<const QScreen *>(nullptr)).isEmpty());
    }

    void names_data()
    {
        QTest::addColumn<QString>("manufacturer");
        QTest::addColumn<QString>("model");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("displayName");

        const auto row = [](const char *why, const char *manufacturer, const char *model,
                            const char *name, const char *shown) {
            QTest::newRow(why) << manufacturer << model << name << shown;
        };
        row("manufacturer and model", " Dell ", " U2720Q ", "DP-1", "Dell U2720Q");
        row("model alone", "", "U2720Q", "DP-1", "U2720Q");
        row("device path", "", "", "\\\\.\\DISPLAY2", "Display 2");
        row("display word in any case", "", "", "display7", "Display 7");
        row("display word with nothing after it", "", "", "./DISPLAY/", "Display ?");
        row("separators become one blank", "", "", "a..b//c", "a b c");
        row("plain output name", "", "", "LEFT", "LEFT");
        row("only separators keep the raw name", "", "", "./.", "./.");
        row("white space is simplified", "", "", "  HDMI   1 ", "HDMI 1");
    }

    void names()
    {
        QFETCH(QString, manufacturer);
        QFETCH(QString, model);
        QFETCH(QString, name);
        QFETCH(QString, displayName);
        const ScreenIdentity screen { QString(), manufacturer, model, name, QPoint() };
        QCOMPARE(DisplayIdentity::displayName(screen), displayName);
    }
};

QTEST_GUILESS_MAIN(TestDisplayIdentity)
#include "tst_displayidentity.moc"
