#include "languagefilecheck.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QSet>

namespace
{
const QChar NoBreakSpace(0x00a0);
const QString ByteOrderMark(QChar(0xfeff));

const QRegularExpression &entryPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("^(L_[A-Z]+(?:_[A-Z]+)*)=\"([^\"]*)\"$"));
    return pattern;
}

bool isComment(const QString &line)
{
    return line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1Char('/'));
}

bool isInvisible(QChar character)
{
    return character.category() == QChar::Other_Control ||
           character.category() == QChar::Other_Format ||
           character.category() == QChar::Other_NotAssigned ||
           character.category() == QChar::Other_PrivateUse;
}

bool endsInColon(const QString &text)
{
    return text.endsWith(QLatin1Char(':')) || text.endsWith(QChar(0xff1a));
}

QStringList textFaults(const QString &key, const QString &text)
{
    QStringList faults;
    if (text.isEmpty())
        return {key + QStringLiteral(": empty text")};
    if (text.at(0).isSpace() || text.at(text.size() - 1).isSpace())
        faults << key + QStringLiteral(": blank at an end");
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (isInvisible(character))
            faults << key + QStringLiteral(": invisible character");
        if (character.isSpace() && character != QLatin1Char(' ') && character != NoBreakSpace)
            faults << key + QStringLiteral(": odd blank");
        if (i > 0 && character.isSpace() && text.at(i - 1).isSpace())
            faults << key + QStringLiteral(": two blanks in a row");
    }
    if (text.count(QLatin1Char('(')) != text.count(QLatin1Char(')')) ||
        text.count(QChar(0x00ab)) != text.count(QChar(0x00bb)))
        faults << key + QStringLiteral(": unbalanced brackets or quotes");
    return faults;
}

/// Texts that read as in English on purpose; in any language when `codes` is empty.
bool mayEqualEnglish(const QString &code, const QString &text)
{
    static const QMap<QString, QStringList> allowed = {
        {QStringLiteral("SSID"), {}},
        {QStringLiteral("BSSID"), {}},
        {QStringLiteral("OK"), {}},
        {QStringLiteral("Signal(dBm)"),
            {QStringLiteral("deu"), QStringLiteral("sve"), QStringLiteral("fra"),
                QStringLiteral("dan"), QStringLiteral("nor"), QStringLiteral("slv")}},
        {QStringLiteral("Test"), {QStringLiteral("dan"), QStringLiteral("nor")}},
    };
    const auto found = allowed.constFind(text);
    return found != allowed.constEnd() && (found->isEmpty() || found->contains(code));
}

QSet<QChar::Script> scriptsOf(const QString &code)
{
    static const QMap<QString, QSet<QChar::Script>> scripts = {
        {QStringLiteral("ell"), {QChar::Script_Greek}},
        {QStringLiteral("rus"), {QChar::Script_Cyrillic}},
        {QStringLiteral("chs"), {QChar::Script_Han}},
        {QStringLiteral("cht"), {QChar::Script_Han}},
        {QStringLiteral("kor"), {QChar::Script_Hangul}},
        {QStringLiteral("jpn"),
            {QChar::Script_Han, QChar::Script_Hiragana, QChar::Script_Katakana}},
        {QStringLiteral("ara"), {QChar::Script_Arabic}},
    };
    return scripts.value(code, {QChar::Script_Latin});
}

/// The letters of `text` that its language does not write with, but for the terms that stay.
QString foreignLetters(const QString &code, QString text)
{
    static const QRegularExpression terms(QStringLiteral("\\b(?:B?SSID|dBm|OK)\\b"));
    text.remove(terms);
    const QSet<QChar::Script> scripts = scriptsOf(code);
    // Letters by which Romanian and Turkish, and nothing else here, are easily mistyped.
    static const QString cedillas = QStringLiteral("\u0163\u0162\u015f\u015e");
    QString foreign;
    for (const QChar character : text) {
        const QChar::Script script = character.script();
        if (script != QChar::Script_Common && script != QChar::Script_Inherited &&
            !scripts.contains(script))
            foreign += character;
        else if (code == QLatin1String("rom") && cedillas.contains(character))
            foreign += character;
    }
    return foreign;
}
} // namespace

LanguageFileCheck::Texts LanguageFileCheck::texts(const QByteArray &file)
{
    Texts result;
    const QStringList lines = QString::fromUtf8(file).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QRegularExpressionMatch entry = entryPattern().match(line);
        if (entry.hasMatch())
            result.insert(entry.captured(1), entry.captured(2));
    }
    return result;
}

QString LanguageFileCheck::shape(const QByteArray &file)
{
    QStringList result;
    const QStringList lines = QString::fromUtf8(file).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QRegularExpressionMatch entry = entryPattern().match(lines.at(i));
        if (entry.hasMatch())
            result << entry.captured(1);
        else if (i == 0 || !isComment(lines.at(i)))
            result << (isComment(lines.at(i)) ? QStringLiteral("#") : lines.at(i));
    }
    return result.join(QLatin1Char('\n'));
}

QStringList LanguageFileCheck::formFaults(const QByteArray &file)
{
    QStringList faults;
    if (file.startsWith(ByteOrderMark.toUtf8()))
        return {QStringLiteral("byte-order mark")};
    const QString content = QString::fromUtf8(file);
    if (content.toUtf8() != file)
        return {QStringLiteral("not UTF-8")};
    if (content.normalized(QString::NormalizationForm_C) != content)
        faults << QStringLiteral("not in normalisation form C");
    if (content.contains(QLatin1Char('\r')))
        faults << QStringLiteral("carriage return");
    if (!content.endsWith(QLatin1Char('\n')))
        faults << QStringLiteral("no line end after the last line");

    QSet<QString> keys;
    const QStringList lines = content.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.isEmpty() || isComment(line))
            continue;
        const QRegularExpressionMatch entry = entryPattern().match(line);
        if (!entry.hasMatch()) {
            faults << QStringLiteral("no entry: ") + line;
            continue;
        }
        const QString key = entry.captured(1);
        if (keys.contains(key))
            faults << key + QStringLiteral(": repeated");
        keys.insert(key);
        faults << textFaults(key, entry.captured(2));
    }
    return faults;
}

QStringList LanguageFileCheck::wordingFaults(
    const QString &code, const Texts &texts, const Texts &english)
{
    QStringList faults;
    QSet<QString> ratings;
    for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
        const QString &key = it.key();
        const QString &text = it.value();
        const QString original = english.value(key);

        if (key.contains(QLatin1String("_STRENGTH_"))) {
            // The colour is chosen by comparing the word: two equal ones would share a colour.
            if (ratings.contains(text.toCaseFolded()))
                faults << key + QStringLiteral(": rating word used twice");
            ratings.insert(text.toCaseFolded());
        }
        // The connection text may end in a colon where no preposition fits before a name.
        if (key != QLatin1String("L_BOARD_CONNECTED_NETWORK") &&
            endsInColon(text) != endsInColon(original))
            faults << key + QStringLiteral(": colon differs from English");
        if (code == QLatin1String("fra") && text.contains(QLatin1Char(':')) &&
            !text.contains(QString(NoBreakSpace) + QLatin1Char(':')))
            faults << key + QStringLiteral(": no no-break space before the colon");

        if (code == QLatin1String("enu"))
            continue;
        static const QRegularExpression englishWord(
            QStringLiteral("\\b(?:channels?|networks?|rooms?|connected|graph|home|testing|name|"
                           "security|recommended|current|number|clarity|average|great|poor|best|"
                           "cancel|delete|edit|add|the|already|empty|interference)\\b"),
            QRegularExpression::CaseInsensitiveOption |
                QRegularExpression::UseUnicodePropertiesOption);
        if (text == original && !mayEqualEnglish(code, text))
            faults << key + QStringLiteral(": left in English");
        else if (englishWord.match(text).hasMatch())
            faults << key + QStringLiteral(": English word");
        const QString foreign = foreignLetters(code, text);
        if (!foreign.isEmpty())
            faults << key + QStringLiteral(": foreign letters ") + foreign;
    }
    if (ratings.size() != 4)
        faults << QStringLiteral("%1 rating words instead of 4").arg(ratings.size());
    return faults;
}
