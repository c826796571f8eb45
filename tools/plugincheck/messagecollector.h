#ifndef AIRLUME_PLUGINCHECK_MESSAGECOLLECTOR_H
#define AIRLUME_PLUGINCHECK_MESSAGECOLLECTOR_H

#include <QString>
#include <QVector>

namespace PluginCheck
{

/// One Qt message of the back end (or of Qt about it).
struct Message {
    QString level; ///< "debug", "info", "warning" or "critical".
    QString text;
};

/// Keeps the process's Qt messages back for the report instead of printing them between its lines.
/// One at a time; any thread may write messages.
class MessageCollector
{
public:
    /// No more messages than this are kept between two calls of take().
    static constexpr int MaximumMessages = 1000;

    MessageCollector();
    ~MessageCollector();
    MessageCollector(const MessageCollector &) = delete;
    MessageCollector &operator=(const MessageCollector &) = delete;

    /// The messages since the last call, oldest first.
    static QVector<Message> take();

private:
    QtMessageHandler m_previous;
};

} // namespace PluginCheck

#endif
