#ifndef AIRLUME_SIMULATED_DUPLICATEKEY_H
#define AIRLUME_SIMULATED_DUPLICATEKEY_H

#include <QByteArray>
#include <QString>

/// A key that stands twice in one object of a JSON text. The JSON reader would keep the last value
/// without a word, so that a copied line silently wins over the one being edited.
struct DuplicateKey {
    QString key;
    /// Line of the second one, from 1.
    int line = 0;
    bool found = false;
};

/// The first repeated key in `json`. Meant for sound texts, but ends on any.
DuplicateKey FindDuplicateKey(const QByteArray &json);

/// The line, from 1, of the byte at `offset`.
int LineOfOffset(const QByteArray &text, int offset);

/// Index just behind the closing quote of the string that opens at `open`.
int EndOfJsonString(const QByteArray &json, int open);

/// The text of a string with its quotes. The same text can be written in several ways.
QString JsonStringText(const QByteArray &string);

#endif
