#include "plaintext.h"

#include <langinfo.h>

namespace PluginCheck
{

namespace
{

bool isObeyed(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QString writtenOut(uint character)
{
    if (character < 0x100) {
        return QStringLiteral("\\x") +
               QString::number(character, 16).rightJustified(2, QLatin1Char('0'));
    }
    return QStringLiteral("\\u{") + QString::number(character, 16) + QLatin1Char('}');
}

template <typename Predicate>
QString withWrittenOut(const QString &text, Predicate mustBeWrittenOut)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        uint character = text.at(i).unicode();
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            character = QChar::surrogateToUcs4(text.at(i), text.at(i + 1));
        if (mustBeWrittenOut(character))
            result += writtenOut(character);
        else
            result += text.midRef(i, isPair ? 2 : 1);
        if (isPair)
            ++i;
    }
    return result;
}

} // namespace

QString escaped(const QString &text)
{
    return withWrittenOut(text, isObeyed);
}

QByteArray terminalBytes(const QString &text, bool utf8)
{
    if (utf8)
        return text.toUtf8();
    return withWrittenOut(text, [](uint character) { return character > 0x7e; }).toLatin1();
}

bool terminalIsUtf8()
{
    return qstricmp(nl_langinfo(CODESET), "UTF-8") == 0;
}

} // namespace PluginCheck
