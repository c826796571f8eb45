#include "i18n/languagefileoperate.h"

#include "common/QtCommonTools.h"
#include "common/diagnostics.h"
#include "i18n/languagelabels.h"

#include <QFile>
#include <QTextStream>

LanguageEntry ParseLanguageLine(const QString &line)
{
    LanguageEntry entry;
    const int separator = line.indexOf(QLatin1Char('='));
    if (separator < 0 || line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1Char('/')))
        return entry;
    entry.valid = true;
    // Untrimmed on purpose: a blank beside the "=" belongs to the key or the text.
    entry.key = line.left(separator);
    entry.text = line.mid(separator + 1);
    if (entry.text.startsWith(QLatin1Char('"')))
        entry.text.remove(0, 1);
    if (entry.text.endsWith(QLatin1Char('"')))
        entry.text.chop(1);
    return entry;
}

LanguageFileOperate::LanguageFileOperate()
{
    Init();
}

void LanguageFileOperate::Init()
{
    static const char *const codes[] = {"enu", "deu", "sve", "fra", "nld", "ita", "esp", "dan",
        "fin", "nor", "ell", "ptb", "rus", "plk", "hun", "csy", "slv", "sky", "rom", "chs", "cht",
        "kor", "jpn", "ara", "tur"};
    for (const char *code : codes)
        m_lstLang.append(QLatin1String(code));
    ReadAllLang();
}

void LanguageFileOperate::ReadAllLang()
{
    if (!m_mapLang.isEmpty())
        m_mapLang.clear();

    QFile file;
    QMap<QString, QString> texts;
    for (QString &code : m_lstLang) {
        texts.clear();
        SetFilePath(code);
        if (!QFile::exists(m_strFilePath)) {
            AIRLUME_CRITICAL(m_strFilePath + QStringLiteral(" not find."));
            continue;
        }
        file.setFileName(m_strFilePath);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            file.close();
            // Reading goes on: the language is then present, without texts.
            AIRLUME_CRITICAL(m_strFilePath + QStringLiteral(" open failed."));
        }
        QTextStream stream(&file);
        stream.setCodec("UTF-8");
        for (QString line = stream.readLine(); !line.isNull(); line = stream.readLine()) {
            const LanguageEntry entry = ParseLanguageLine(line);
            if (entry.valid)
                texts.insert(entry.key, entry.text);
        }
        file.close();
        m_mapLang.insert(code, texts);
    }
}

void LanguageFileOperate::SetFilePath(QString &code)
{
    m_strFilePath =
        QStringLiteral(":/i18n/") + code + QLatin1Char('/') + LanguageLabels::m_strLangFinleName;
}

QString LanguageFileOperate::tr(const QString &key)
{
    return m_mapLang[QtCommonTools::GetLangNm()][key];
}

bool LanguageFileOperate::IsFindLang(const QString &code) const
{
    return m_lstLang.contains(code);
}
