#include "platform/windows/WinErrorText.h"

#include "recording/HresultText.h"

namespace WinErrorText {

QString systemMessage(HRESULT hr)
{
    constexpr DWORD capacity = 512;
    constexpr DWORD usEnglish = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US); // 1033
    wchar_t buffer[capacity] = {};
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                       static_cast<DWORD>(hr), usEnglish, buffer, capacity, nullptr);
    return QString::fromWCharArray(buffer, static_cast<qsizetype>(length)).trimmed();
}

QString describe(HRESULT hr)
{
    return HresultText::describe(static_cast<quint32>(hr), systemMessage(hr));
}

QString stepFailed(const char *label, HRESULT hr)
{
    return HresultText::stepFailed(QLatin1String(label), static_cast<quint32>(hr),
                                   systemMessage(hr));
}

QString wrap(const QString &what, HRESULT hr)
{
    return HresultText::wrap(what, static_cast<quint32>(hr), systemMessage(hr));
}

} // namespace WinErrorText
