#include "simulated/duplicatekey.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QVector>

namespace
{
/// The JSON reader refuses what lies deeper, so it need not be looked at.
const int deepest = 1024;

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
    QVector<QSet<QString>> open;
    for (int i = 0; i < json.size(); ++i) {
        const char c = json.at(i);
        if (c == '{' || c == '[') {
            if (open.size() == deepest)
                return {};
            open.append(QSet<QString>());
        } else if ((c == '}' || c == ']') && !open.isEmpty()) {
            open.removeLast();
        } else if (c == '"') {
            const int end = EndOfJsonString(json, i);
            if (!open.isEmpty() && isFollowedByColon(json, end)) {
                const QString key = JsonStringText(json.mid(i, end - i));
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

int EndOfJsonString(const QByteArray &json, int open)
{
    int i = open + 1;
    while (i < json.size() && json.at(i) != '"')
        i += json.at(i) == '\\' ? 2 : 1;
    return qMin(i + 1, json.size());
}

QString JsonStringText(const QByteArray &string)
{
    if (!string.contains('\\'))
        return QString::fromUtf8(string.mid(1, string.size() - 2));
    return QJsonDocument::fromJson('[' + string + ']').array().at(0).toString();
}
