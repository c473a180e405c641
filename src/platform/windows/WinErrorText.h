#pragma once

#include <QString>

#include <windows.h>

// Error texts of failed Windows calls, with the system's English message for
// the code; the wording itself is HresultText's.
namespace WinErrorText {

// FormatMessageW's text for `hr` in US English, trimmed; empty when the
// system has none.
QString systemMessage(HRESULT hr);

// "HRESULT 0x%1: %2".
QString describe(HRESULT hr);
// "%1 failed: HRESULT 0x%2: %3".
QString stepFailed(const char *label, HRESULT hr);
// "%1: %2", or "%1 (HRESULT 0x%2)" without a system message.
QString wrap(const QString &what, HRESULT hr);

} // namespace WinErrorText
