#include "recording/HresultText.h"

namespace {

QString hex(quint32 code)
{
    return QStringLiteral("%1").arg(code, 8, 16, QLatin1Char('0'));
}

} // namespace

namespace HresultText {

QString describe(quint32 code, const QString &systemMessage)
{
    return QStringLiteral("HRESULT 0x%1: %2").arg(hex(code), systemMessage.trimmed());
}

QString stepFailed(const QString &label, quint32 code, const QString &systemMessage)
{
    return QStringLiteral("%1 failed: %2").arg(label, describe(code, systemMessage));
}

QString wrap(const QString &what, quint32 code, const QString &systemMessage)
{
    const QString message = systemMessage.trimmed();
    if (message.isEmpty())
        return QStringLiteral("%1 (HRESULT 0x%2)").arg(what, hex(code));
    return QStringLiteral("%1: %2").arg(what, message);
}

} // namespace HresultText
