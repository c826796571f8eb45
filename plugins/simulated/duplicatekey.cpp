#include "simulated/duplicatekey.h"

#include <QSet>
#include <QVector>

namespace
{
/// Index just behind the closing quote of the string that opens at `open`.
int endOfString(const QByteArray &json, int open)
{
    int i = open + 1;
    while (i < json.size() && json.at(i) != '"')
        i += json.at(i) == '\\' ? 2 : 1;
    return qMin(i + 1, json.size());
}

bool isFollowedByColon(const QByteArray &json, int i)
{
    while (i < json.size() &&
           (json.at(i) == ' ' || json.at(i) == '\t' || json.at(i) == '\n' || json.at(i) == '\r'))
        ++i;
    return i < json.size() && json.at(i) == ':';
}
} // namespace

DuplicateKey FindDuplicateKey(const QByteArray &json)
{
    // A list gets a set too, which stays empty: nothing in it is followed by a colon.
    QVector<QSet<QByteArray>> open;
    for (int i = 0; i < json.size(); ++i) {
        const char c = json.at(i);
        if (c == '{' || c == '[') {
            open.append(QSet<QByteArray>());
        } else if ((c == '}' || c == ']') && !open.isEmpty()) {
            open.removeLast();
        } else if (c == '"') {
            const int end = endOfString(json, i);
            if (!open.isEmpty() && isFollowedByColon(json, end)) {
                const QByteArray key = json.mid(i + 1, end - i - 2);
                if (open.last().contains(key))
                    return {key, LineOfOffset(json, i), true};
                open.last().insert(key);
            }
            i = end - 1;
        }
    }
    return {};
}

int LineOfOffset(const QByteArray &text, int offset)
{
    return static_cast<int>(text.left(offset).count('\n')) + 1;
}
