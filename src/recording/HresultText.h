#pragma once

#include <QString>
#include <QtGlobal>

// How a failed Windows call reads in an error text. The caller looks up the
// system's message for the code (FormatMessageW) and passes it in, so the
// wording is one and the same everywhere and testable on any platform.
namespace HresultText {

// "HRESULT 0x%1: %2": the code as eight lower-case hexadecimal digits and the
// trimmed system message.
QString describe(quint32 code, const QString &systemMessage);

// "%1 failed: %2", a failed step by its label, with the text above.
QString stepFailed(const QString &label, quint32 code, const QString &systemMessage);

// "%1: %2" with the trimmed system message, or "%1 (HRESULT 0x%2)" when the
// system has none for the code.
QString wrap(const QString &what, quint32 code, const QString &systemMessage);

} // namespace HresultText
