#ifndef AIRLUME_TESTS_SUPPORT_LANGUAGECODES_H
#define AIRLUME_TESTS_SUPPORT_LANGUAGECODES_H

/// The languages the program has to know, by their codes; English is the first.
inline constexpr const char *LanguageCodes[] = {"enu", "deu", "sve", "fra", "nld", "ita", "esp",
    "dan", "fin", "nor", "ell", "ptb", "rus", "plk", "hun", "csy", "slv", "sky", "rom", "chs",
    "cht", "kor", "jpn", "ara", "tur"};
inline constexpr int LanguageCount = sizeof LanguageCodes / sizeof *LanguageCodes;

#endif
