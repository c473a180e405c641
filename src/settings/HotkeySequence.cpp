#include "settings/HotkeySequence.h"

#include <QRegularExpression>
#include <QStringList>

namespace HotkeySequence {

QString canonical(const QString &sequence)
{
    static const QRegularExpression separators(QStringLiteral("[+\\s]+"));

    bool ctrl = false;
    bool alt = false;
    bool shift = false;
    bool win = false;
    QString key;
    for (const QString &part : sequence.split(separators, Qt::SkipEmptyParts)) {
        const QString token = part.trimmed();
        const QString low = token.toLower();
        if (low == u"ctrl" || low == u"control")
            ctrl = true;
        else if (low == u"shift")
            shift = true;
        else if (low == u"alt" || low == u"option")
            alt = true;
        else if (low == u"win" || low == u"meta" || low == u"super")
            win = true;
        else if (low == u"esc" || low == u"escape")
            key = QStringLiteral("Esc");
        else if (low.size() == 1 || low.startsWith(u'f'))
            key = low.toUpper();
        else
            key = token;
    }

    QStringList tokens;
    if (ctrl)
        tokens << QStringLiteral("Ctrl");
    if (alt)
        tokens << QStringLiteral("Alt");
    if (shift)
        tokens << QStringLiteral("Shift");
    if (win)
        tokens << QStringLiteral("Win");
    if (!key.isEmpty())
        tokens << key;
    return tokens.join(u'+');
}

} // namespace HotkeySequence
