#ifndef AIRLUME_I18N_LANGUAGEFILEOPERATE_H
#define AIRLUME_I18N_LANGUAGEFILEOPERATE_H

#include <QMap>
#include <QString>
#include <QStringList>

/// One entry of a language file.
struct LanguageEntry {
    bool valid = false; ///< False for comments, blank lines and lines without "=".
    QString key;
    QString text;
};

/// Takes one line of a language file apart. Neither key nor text is trimmed; one double quote at
/// each end of the text is dropped. Pure.
LanguageEntry ParseLanguageLine(const QString &line);

/// Loads every language file once and gives the text of a label key in the current language.
/// GUI thread only: a look-up adds what is missing.
class LanguageFileOperate
{
public:
    LanguageFileOperate();

    /// Lists the language codes and loads their files.
    void Init();
    /// Loads all files again. A missing or unreadable file is reported and leaves its language
    /// without texts.
    void ReadAllLang();
    /// Makes the file of the language `code` the one to read.
    void SetFilePath(QString &code);

    /// Text of `key` in the current language (QtCommonTools::GetLangNm()); empty when it has none.
    QString tr(const QString &key);
    /// True when `code` is one of the 25 known codes, whether or not its file was found.
    bool IsFindLang(const QString &code) const;

private:
    QString m_strFilePath;
    QMap<QString, QMap<QString, QString>> m_mapLang;
    QStringList m_lstLang;
};

#endif
