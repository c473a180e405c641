#include "platform/windows/RunKeyLoginEntry.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

const QString runKeyPath =
    u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run"_s;
const QString valueName = u"Glimmora"_s;

} // namespace

std::unique_ptr<LoginEntry> LoginEntry::create()
{
    return std::make_unique<RunKeyLoginEntry>();
}

bool RunKeyLoginEntry::add(const QString &executablePath)
{
    // The shell takes the bare path, with backslashes, no quotes, no arguments.
    QSettings key(runKeyPath, QSettings::NativeFormat);
    key.setValue(valueName, QString(executablePath).replace(u'/', u'\\'));
    key.sync();
    return key.status() == QSettings::NoError;
}

bool RunKeyLoginEntry::remove()
{
    QSettings key(runKeyPath, QSettings::NativeFormat);
    key.remove(valueName);
    key.sync();
    return key.status() == QSettings::NoError;
}
