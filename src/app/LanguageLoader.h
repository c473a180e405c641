#pragma once

#include <QString>

class QQmlEngine;
class QTranslator;

namespace LanguageLoader {

// Loads the translation for `language` into `translator`; English and the
// empty code need none and load nothing. True when a translation was loaded.
// A file that is missing or damaged loads nothing and leaves the translator
// empty. `base` is the path of the files without the language code.
bool load(QTranslator &translator, const QString &language,
          const QString &base = QStringLiteral(":/translations/glimmora_"));

// Takes the installed translation out, installs the one of `language` if it
// loads, and evaluates every qsTr text of `engine` again, also when the new
// language is English. True when a translation is installed.
bool switchTo(QTranslator &translator, const QString &language, QQmlEngine &engine);

} // namespace LanguageLoader
