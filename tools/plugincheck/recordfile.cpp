#include "recordfile.h"

#include <QJsonDocument>

namespace PluginCheck
{

namespace
{

constexpr char Head[] = "{\n"
                        "\"comment\": \"Recorded by airlume-plugincheck\",\n"
                        "\"interfaces\": [],\n"
                        "\"events\": [";
constexpr char Tail[] = "\n]\n}\n";

} // namespace

QString RecordFile::open(const QString &path)
{
    m_file.setFileName(path);
    if (m_file.exists())
        return QStringLiteral("There is a file %1 already; it is left as it is.").arg(path);
    // Unbuffered: a step is then one write, which is done as a whole or not at all.
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return QStringLiteral("Cannot write %1: %2").arg(path, m_file.errorString());
    return write(Head);
}

QString RecordFile::add(const QVector<QJsonObject> &events)
{
    QByteArray text;
    for (const QJsonObject &event : events) {
        text += m_events++ == 0 ? "\n" : ",\n";
        text += QJsonDocument(event).toJson(QJsonDocument::Compact);
    }
    if (text.isEmpty())
        return {};
    if (m_end + text.size() + qint64(sizeof Tail) > MaximumSize || m_events > MaximumEvents)
        return QStringLiteral("The record has reached the size that can be replayed.");
    return write(text);
}

QString RecordFile::write(const QByteArray &text)
{
    const QByteArray whole = text + Tail;
    if (!m_file.seek(m_end) || m_file.write(whole) != whole.size())
        return QStringLiteral("Cannot write %1: %2").arg(m_file.fileName(), m_file.errorString());
    m_end += text.size();
    return {};
}

} // namespace PluginCheck
