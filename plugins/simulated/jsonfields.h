#ifndef AIRLUME_SIMULATED_JSONFIELDS_H
#define AIRLUME_SIMULATED_JSONFIELDS_H

#include <QJsonArray>
#include <QJsonObject>
#include <QLatin1String>
#include <QString>
#include <QStringList>

/// The first thing found wrong in a scenario.
struct ScenarioError {
    /// Where, such as "networks[3].channel"; empty: the file as a whole.
    QString field;
    /// What is wrong; empty: nothing.
    QString text;
    /// The line of the field; 0 when the text tells it, or there is none.
    int line = 0;

    bool isSet() const { return !text.isEmpty(); }
    /// Keeps the first error only.
    void report(const QString &where, const QString &what);
};

/// Reads the members of one JSON object. Whatever is wrong with a member goes to the error, and the
/// fallback is returned.
class JsonFields
{
public:
    /// Reports a member that is neither in `known` nor called "comment", and a `value` that is no
    /// object. `path` names the object in errors; empty: the outermost. `error` must outlive this.
    JsonFields(const QJsonValue &value, const QString &path, const QStringList &known,
        ScenarioError *error);

    bool has(QLatin1String key) const { return m_object.contains(key); }
    /// Reports the member when it is missing.
    void require(QLatin1String key) const;
    QString text(QLatin1String key, const QString &fallback = QString()) const;
    /// Six pairs of hexadecimal digits separated by colons.
    QString hardwareAddress(QLatin1String key, const QString &fallback = QString()) const;
    /// `minimum` to `maximum`, both included.
    double number(QLatin1String key, double minimum, double maximum, double fallback) const;
    /// The same for whole numbers; the bounds must be exact as doubles.
    qint64 whole(QLatin1String key, qint64 minimum, qint64 maximum, qint64 fallback) const;
    bool flag(QLatin1String key, bool fallback) const;
    /// A missing list is an empty one.
    QJsonArray list(QLatin1String key) const;
    /// A missing object is an empty one.
    QJsonObject object(QLatin1String key) const;

    /// The member's place in the file.
    QString path(const QString &key) const;
    void report(QLatin1String key, const QString &what) const;

private:
    QJsonObject m_object;
    QString m_path;
    ScenarioError *m_error;
};

/// A number the way the file's author would write it.
QString NumberText(double value);

/// A text from the file made fit for a one-line message: quoted, control characters escaped, long
/// ones cut.
QString QuotedText(const QString &text);

/// A value of any type made fit for a one-line message.
QString ValueText(const QJsonValue &value);

#endif
