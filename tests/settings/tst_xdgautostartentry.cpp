#include "TestStore.h"
#include "platform/linux/XdgAutostartEntry.h"
#include "settings/SettingsManager.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// The desktop entry's keys of the [Desktop Entry] group, or an empty map when
// the file is missing or does not start with that group.
QMap<QString, QString> readEntry(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    if (lines.value(0) != u"[Desktop Entry]")
        return {};
    QMap<QString, QString> entry;
    for (const QString &line : lines.mid(1)) {
        const qsizetype equals = line.indexOf(u'=');
        if (equals > 0)
            entry.insert(line.left(equals), line.mid(equals + 1));
    }
    return entry;
}

} // namespace

class TestXdgAutostartEntry : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_store = std::make_unique<TestStore>(); }
    void cleanup() { m_store.reset(); }

    void execQuoting_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("exec");

        QTest::newRow("plain path stays bare")
            << u"/opt/glimmora/bin/glimmora"_s << u"/opt/glimmora/bin/glimmora"_s;
        QTest::newRow("space needs quotes")
            << u"/home/u/My Apps/glimmora"_s << u"\"/home/u/My Apps/glimmora\""_s;
        QTest::newRow("dollar is escaped twice")
            << u"/opt/a$b/glimmora"_s << u"\"/opt/a\\\\$b/glimmora\""_s;
        QTest::newRow("backslash becomes four")
            << u"/opt/a\\b/glimmora"_s << u"\"/opt/a\\\\\\\\b/glimmora\""_s;
    }

    void execQuoting()
    {
        QFETCH(QString, path);
        QFETCH(QString, exec);

        XdgAutostartEntry entry;
        QCOMPARE(entry.filePath(), autostartPath());
        QVERIFY(entry.add(path));
        const QMap<QString, QString> keys = readEntry(autostartPath());
        QCOMPARE(keys.value(u"Exec"_s), exec);
        QCOMPARE(keys.value(u"Name"_s), u"Glimmora"_s);
        QCOMPARE(keys.value(u"Type"_s), u"Application"_s);
    }

    void launchAtLoginAddsAndRemovesTheFile()
    {
        SettingsManager manager(LoginEntry::create());
        QVERIFY(!QFile::exists(autostartPath()));

        manager.setLaunchAtLogin(true);
        QCOMPARE(readEntry(autostartPath()).value(u"Exec"_s),
                 QCoreApplication::applicationFilePath());

        manager.setLaunchAtLogin(false);
        QVERIFY(!QFile::exists(autostartPath()));
        // Removing what is not there is not an error.
        QVERIFY(XdgAutostartEntry().remove());
    }

private:
    QString autostartPath() const
    {
        return m_store->configPath() + u"/autostart/glimmora.desktop"_s;
    }

    std::unique_ptr<TestStore> m_store;
};

QTEST_GUILESS_MAIN(TestXdgAutostartEntry)
#include "tst_xdgautostartentry.moc"
