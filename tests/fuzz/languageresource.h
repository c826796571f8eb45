#ifndef AIRLUME_TESTS_FUZZ_LANGUAGERESOURCE_H
#define AIRLUME_TESTS_FUZZ_LANGUAGERESOURCE_H

#include <QByteArray>

/// A language file of any content, in memory, where LanguageFileOperate looks for it:
/// ":/i18n/enu/AirlumeLang.txt". In place while the object lives.
class LanguageResource
{
public:
    explicit LanguageResource(const QByteArray &content);
    ~LanguageResource();
    LanguageResource(const LanguageResource &) = delete;
    LanguageResource &operator=(const LanguageResource &) = delete;

private:
    const uchar *bytes() const;

    QByteArray m_bundle;
};

#endif
