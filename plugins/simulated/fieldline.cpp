#include "simulated/fieldline.h"

#include "simulated/duplicatekey.h"

#include <QVector>

namespace
{
struct Level {
    QString path;
    int index = 0; ///< Of the element at hand; of no meaning in an object.
    bool isList = false;

    QString element() const { return path + QStringLiteral("[%1]").arg(index); }
    QString member(const QString &key) const
    {
        return path.isEmpty() ? key : path + QLatin1Char('.') + key;
    }
};

int skipSpace(const QByteArray &json, int i)
{
    while (i < json.size() && QByteArray(" \t\r\n").contains(json.at(i)))
        ++i;
    return i;
}

/// Offset of the field; -1 when it is not there.
int offsetOf(const QByteArray &json, const QString &field)
{
    QVector<Level> open;
    QString value; // Path of the value that comes next.
    for (int i = 0; i < json.size(); ++i) {
        const char c = json.at(i);
        if (c == '{' || c == '[') {
            open.append({value, 0, c == '['});
        } else if (c == '}' || c == ']') {
            open.removeLast();
            continue;
        } else if (c == ',' && open.last().isList) {
            ++open.last().index;
        } else if (c == '"') {
            const int end = EndOfJsonString(json, i);
            if (!open.last().isList && skipSpace(json, end) < json.size() &&
                json.at(skipSpace(json, end)) == ':') {
                value = open.last().member(JsonStringText(json.mid(i, end - i)));
                if (value == field)
                    return i;
            }
            i = end - 1;
            continue;
        } else {
            continue;
        }
        if (open.last().isList) {
            value = open.last().element();
            if (value == field)
                return skipSpace(json, i + 1);
        }
    }
    return -1;
}
} // namespace

int LineOfField(const QByteArray &json, const QString &field)
{
    for (QString path = field; !path.isEmpty();) {
        const int offset = offsetOf(json, path);
        if (offset >= 0)
            return LineOfOffset(json, offset);
        path.truncate(qMax(0, path.lastIndexOf(QLatin1Char('.'))));
    }
    return 0;
}
