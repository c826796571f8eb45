#include "simulated/jsonfields.h"

#include <QRegularExpression>

#include <cmath>

void ScenarioError::report(const QString &where, const QString &what)
{
    if (isSet())
        return;
    field = where;
    text = what;
}

JsonFields::JsonFields(
    const QJsonValue &value, const QString &path, const QStringList &known, ScenarioError *error)
    : m_object(value.toObject())
    , m_path(path)
    , m_error(error)
{
    if (!value.isObject())
        m_error->report(path, QStringLiteral("must be an object, not ") + ValueText(value));
    const QStringList keys = m_object.keys();
    for (const QString &key : keys) {
        if (key == QLatin1String("comment") || known.contains(key))
            continue;
        m_error->report(path.isEmpty() ? key.left(40) : this->path(key.left(40)),
            QStringLiteral("unknown; known here are ") + known.join(QLatin1String(", ")));
    }
}

void JsonFields::require(QLatin1String key) const
{
    if (!has(key))
        report(key, QStringLiteral("is missing"));
}

QString JsonFields::text(QLatin1String key, const QString &fallback) const
{
    const QJsonValue value = m_object.value(key);
    if (value.isUndefined())
        return fallback;
    if (!value.isString()) {
        report(key, QStringLiteral("must be a text, not ") + ValueText(value));
        return fallback;
    }
    return value.toString();
}

QString JsonFields::hardwareAddress(QLatin1String key, const QString &fallback) const
{
    static const QRegularExpression form(
        QStringLiteral("\\A[0-9A-Fa-f]{2}(:[0-9A-Fa-f]{2}){5}\\z"));
    const QString address = text(key, fallback);
    if (has(key) && !form.match(address).hasMatch()) {
        report(key,
            QStringLiteral("must look like \"02:00:00:12:34:56\", not ") + QuotedText(address));
    }
    return address;
}

double JsonFields::number(QLatin1String key, double minimum, double maximum, double fallback) const
{
    const QJsonValue value = m_object.value(key);
    if (value.isUndefined())
        return fallback;
    const double found = value.toDouble();
    if (!value.isDouble() || found < minimum || found > maximum) {
        report(key, QStringLiteral("must be a number from ") + NumberText(minimum) +
                        QStringLiteral(" to ") + NumberText(maximum) + QStringLiteral(", not ") +
                        ValueText(value));
        return fallback;
    }
    return found;
}

qint64 JsonFields::whole(QLatin1String key, qint64 minimum, qint64 maximum, qint64 fallback) const
{
    const QJsonValue value = m_object.value(key);
    if (value.isUndefined())
        return fallback;
    const double found = value.toDouble();
    if (!value.isDouble() || found < static_cast<double>(minimum) ||
        found > static_cast<double>(maximum) || std::floor(found) < found) {
        report(key, QStringLiteral("must be a whole number from ") + QString::number(minimum) +
                        QStringLiteral(" to ") + QString::number(maximum) +
                        QStringLiteral(", not ") + ValueText(value));
        return fallback;
    }
    return static_cast<qint64>(found);
}

bool JsonFields::flag(QLatin1String key, bool fallback) const
{
    const QJsonValue value = m_object.value(key);
    if (value.isUndefined())
        return fallback;
    if (!value.isBool())
        report(key, QStringLiteral("must be true or false, not ") + ValueText(value));
    return value.toBool(fallback);
}

QJsonArray JsonFields::list(QLatin1String key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isUndefined() && !value.isArray())
        report(key, QStringLiteral("must be a list, not ") + ValueText(value));
    return value.toArray();
}

QJsonObject JsonFields::object(QLatin1String key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isUndefined() && !value.isObject())
        report(key, QStringLiteral("must be an object, not ") + ValueText(value));
    return value.toObject();
}

QString JsonFields::path(const QString &key) const
{
    return m_path.isEmpty() ? key : m_path + QLatin1Char('.') + key;
}

void JsonFields::report(QLatin1String key, const QString &what) const
{
    m_error->report(path(key), what);
}

QString NumberText(double value)
{
    return QString::number(value, 'g', 10);
}

QString QuotedText(const QString &text)
{
    static const int longest = 40;
    QString shown;
    for (const QChar &c : text.left(longest)) {
        if (c.isPrint() || c.isSurrogate())
            shown.append(c);
        else
            shown.append(QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0')));
    }
    if (text.size() > longest)
        shown.append(QStringLiteral("..."));
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

QString ValueText(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Null:
        return QStringLiteral("null");
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
        return NumberText(value.toDouble());
    case QJsonValue::String:
        return QuotedText(value.toString());
    case QJsonValue::Array:
        return QStringLiteral("a list");
    case QJsonValue::Object:
        return QStringLiteral("an object");
    case QJsonValue::Undefined:
        break;
    }
    return QStringLiteral("nothing");
}
