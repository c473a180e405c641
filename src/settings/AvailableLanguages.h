#pragma once

#include <array>

// A language the settings page offers. Rows that are not supported have no
// translation yet and are shown as coming.
struct LanguageRow
{
    const char *code;
    const char *nativeName;
    const char *englishName;
    bool supported;
};

inline constexpr std::array<LanguageRow, 15> availableLanguageRows { {
    { "en", "English", "English", true },
    { "zh-CN", "简体中文", "Chinese (Simplified)", true },
    { "ja", "日本語", "Japanese", true },
    { "vi", "Tiếng Việt", "Vietnamese", true },
    { "ko", "한국어", "Korean", true },
    { "fr", "Français", "French", true },
    { "es", "Español", "Spanish", true },
    { "de", "Deutsch", "German", true },
    { "pt-BR", "Português (Brasil)", "Portuguese (Brazil)", true },
    { "ru", "Русский", "Russian", true },
    { "ar", "العربية", "Arabic", false },
    { "it", "Italiano", "Italian", false },
    { "tr", "Türkçe", "Turkish", false },
    { "pl", "Polski", "Polish", false },
    { "nl", "Nederlands", "Dutch", false },
} };
