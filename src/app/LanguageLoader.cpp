#include "app/LanguageLoader.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QTranslator>

namespace LanguageLoader {

bool load(QTranslator &translator, const QString &language, const QString &base)
{
    if (language.isEmpty() || language == QLatin1String("en"))
        return false;
    // A file of nothing but the header loads, and would stand for a language.
    return translator.load(base + language, QString(), QString(), QString())
        && !translator.isEmpty();
}

bool switchTo(QTranslator &translator, const QString &language, QQmlEngine &engine)
{
    QCoreApplication::removeTranslator(&translator);
    const bool loaded =
        load(translator, language) && QCoreApplication::installTranslator(&translator);
    engine.retranslate();
    return loaded;
}

} // namespace LanguageLoader
