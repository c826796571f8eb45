#ifndef AIRLUME_SIMULATED_DUPLICATEKEY_H
#define AIRLUME_SIMULATED_DUPLICATEKEY_H

#include <QByteArray>

/// A key that stands twice in one object of a JSON text. The JSON reader keeps the last value
/// without a word, so that a copied line would silently win over the one being edited.
struct DuplicateKey {
    /// As written, without the quotes; empty: none found.
    QByteArray key;
    /// Line of the second one, from 1.
    int line = 0;
    bool found = false;
};

/// The first repeated key in `json`, which must be a text the JSON reader accepts. Keys are
/// compared as written, escapes included.
DuplicateKey FindDuplicateKey(const QByteArray &json);

/// The line, from 1, of the byte at `offset`.
int LineOfOffset(const QByteArray &text, int offset);

#endif
