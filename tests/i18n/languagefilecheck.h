#ifndef AIRLUME_TESTS_I18N_LANGUAGEFILECHECK_H
#define AIRLUME_TESTS_I18N_LANGUAGEFILECHECK_H

#include <QMap>
#include <QStringList>

class QByteArray;

/// What is wrong with language files, in words; an empty list means nothing is. Pure.
namespace LanguageFileCheck
{
using Texts = QMap<QString, QString>;

/// Splits a well-formed file into its texts by key. Lines that are no entries are left out.
Texts texts(const QByteArray &file);
/// The file with every text taken out: comments but the first, blank lines and keys stay, so that
/// two files of the same shape compare equal.
QString shape(const QByteArray &file);

/// Faults of the bytes and lines: encoding, byte-order mark, line ends, normalisation, quotes,
/// blanks, invisible characters, empty texts, repeated keys.
QStringList formFaults(const QByteArray &file);
/// Faults of the texts of the language `code` held against the English ones: rating words that
/// are not told apart, captions without their colon, English words left over, foreign letters.
QStringList wordingFaults(const QString &code, const Texts &texts, const Texts &english);
} // namespace LanguageFileCheck

#endif
