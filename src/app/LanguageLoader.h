#pragma once

#include <QString>

class QTranslator;

namespace LanguageLoader {

// Loads the translation for `language` into `translator`; English and the
// empty code need none and load nothing. True when a translation was loaded.
bool load(QTranslator &translator, const QString &language);

} // namespace LanguageLoader
