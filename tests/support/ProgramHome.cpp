#include "ProgramHome.h"

#include <QDir>
#include <QFile>

namespace {
QString xdotool(const QStringList &arguments)
{
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), arguments);
    tool.waitForFinished(30000);
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}
} // namespace

ProgramHome::ProgramHome()
{
    m_valid = m_dir.isValid();
    for (const char *sub : { "data", "config/Orvelline", "tmp" })
        m_valid = m_valid && QDir(m_dir.path()).mkpath(QString::fromLatin1(sub));
}

bool ProgramHome::start(QProcess &process, const QByteArray &moreSettings) const
{
    // Past the first start, and the quit shortcut quits without a dialog.
    // Written before each start: QSettings writes the group "general" as
    // "[%General]", which another process reads back as "General"; "%65"
    // spells the lower-case group.
    QFile config(m_dir.filePath(QStringLiteral("config/Orvelline/Glimmora.conf")));
    if (!config.open(QIODevice::WriteOnly))
        return false;
    config.write("[gen%65ral]\nconfirmQuit=false\nfirstRunDone=true\n" + moreSettings);
    config.close();

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), m_dir.filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_dir.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("TMPDIR"), m_dir.filePath(QStringLiteral("tmp")));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(m_program.isEmpty() ? QStringLiteral(GLIMMORA_BINARY) : m_program, {});
    return process.waitForStarted(10000);
}

QString ProgramHome::log() const
{
    QFile file(m_dir.filePath(QStringLiteral("data/Orvelline/Glimmora/glimmora.log")));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll());
}

int ProgramHome::logLinesWith(const QString &text) const
{
    const QStringList lines = log().split(u'\n', Qt::SkipEmptyParts);
    return int(std::count_if(lines.cbegin(), lines.cend(),
                             [&](const QString &line) { return line.contains(text); }));
}

void ProgramHome::pressQuitShortcut(const QProcess &process)
{
    const QString window = xdotool({ QStringLiteral("search"), QStringLiteral("--sync"),
                                     QStringLiteral("--pid"), QString::number(process.processId()),
                                     QStringLiteral("--name"), QStringLiteral("^Glimmora$") })
                               .section(u'\n', 0, 0);
    if (window.isEmpty())
        return;
    xdotool({ QStringLiteral("windowfocus"), QStringLiteral("--sync"), window });
    xdotool({ QStringLiteral("key"), QStringLiteral("ctrl+shift+q") });
}
