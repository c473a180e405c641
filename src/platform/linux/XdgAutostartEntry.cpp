#include "platform/linux/XdgAutostartEntry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(lcLoginEntry, "glimmora.platform")

namespace {

// Exec= takes the program as one argument: quote it when it holds a character
// the launcher would split on or expand, then escape backslashes once more for
// the string value itself.
QString execArgument(const QString &path)
{
    static const QString reserved = u" \t\n\"'\\><~|&;$*?#()`"_s;
    const bool needsQuotes =
        std::any_of(path.begin(), path.end(), [](QChar c) { return reserved.contains(c); });
    if (!needsQuotes)
        return path;
    QString quoted;
    for (const QChar c : path) {
        if (c == u'"' || c == u'`' || c == u'$' || c == u'\\')
            quoted += u'\\';
        quoted += c;
    }
    quoted = u'"' + quoted + u'"';
    return quoted.replace(u"\\"_s, u"\\\\"_s);
}

} // namespace

std::unique_ptr<LoginEntry> LoginEntry::create()
{
    return std::make_unique<XdgAutostartEntry>();
}

XdgAutostartEntry::XdgAutostartEntry(const QString &filePath)
    : m_filePath(filePath)
{
    if (m_filePath.isEmpty())
        m_filePath = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
            + u"/autostart/glimmora.desktop"_s;
}

bool XdgAutostartEntry::add(const QString &executablePath)
{
    QDir().mkpath(QFileInfo(m_filePath).absolutePath());
    QSaveFile file(m_filePath);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        qCWarning(lcLoginEntry) << "XdgAutostartEntry: cannot write" << m_filePath << ":"
                                << file.errorString();
        return false;
    }
    const QString entry = u"[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Glimmora\n"
                          "Exec=%1\n"
                          "Terminal=false\n"
                          "X-GNOME-Autostart-enabled=true\n"_s.arg(execArgument(executablePath));
    file.write(entry.toUtf8());
    if (!file.commit()) {
        qCWarning(lcLoginEntry) << "XdgAutostartEntry: cannot write" << m_filePath << ":"
                                << file.errorString();
        return false;
    }
    qCInfo(lcLoginEntry) << "XdgAutostartEntry: wrote" << m_filePath;
    return true;
}

bool XdgAutostartEntry::remove()
{
    if (!QFile::exists(m_filePath))
        return true;
    if (!QFile::remove(m_filePath)) {
        qCWarning(lcLoginEntry) << "XdgAutostartEntry: cannot remove" << m_filePath;
        return false;
    }
    qCInfo(lcLoginEntry) << "XdgAutostartEntry: removed" << m_filePath;
    return true;
}
