#include "app/LanguageLoader.h"

#include <QTranslator>

namespace LanguageLoader {

bool load(QTranslator &translator, const QString &language)
{
    if (language.isEmpty() || language == QLatin1String("en"))
        return false;
    return translator.load(QStringLiteral(":/translations/glimmora_") + language, QString(),
                           QString(), QString());
}

} // namespace LanguageLoader
