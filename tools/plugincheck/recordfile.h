#ifndef AIRLUME_PLUGINCHECK_RECORDFILE_H
#define AIRLUME_PLUGINCHECK_RECORDFILE_H

#include <QFile>
#include <QJsonObject>
#include <QVector>

namespace PluginCheck
{

/// A scenario file that grows, and is whole after each step, however the process ends.
class RecordFile
{
public:
    /// What the simulated back end reads at most.
    static constexpr qint64 MaximumSize = Q_INT64_C(16) * 1024 * 1024;
    static constexpr int MaximumEvents = 250000;

    /// Makes the file, which must not be there yet. What is wrong, or nothing.
    QString open(const QString &path);
    bool isOpen() const { return m_file.isOpen(); }

    /// Appends events. What is wrong, or nothing.
    QString add(const QVector<QJsonObject> &events);

private:
    QString write(const QByteArray &text);

    QFile m_file;
    qint64 m_end = 0; ///< Behind the last event; only what closes the brackets follows.
    int m_events = 0;
};

} // namespace PluginCheck

#endif
