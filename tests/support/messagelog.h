#ifndef AIRLUME_TESTS_SUPPORT_MESSAGELOG_H
#define AIRLUME_TESTS_SUPPORT_MESSAGELOG_H

#include <QStringList>

/// Collects the Qt messages of every thread for as long as it lives (one at a time) instead of
/// printing them.
class MessageLog
{
public:
    MessageLog();
    ~MessageLog();
    MessageLog(const MessageLog &) = delete;
    MessageLog &operator=(const MessageLog &) = delete;

    /// The messages of one level since construction or the last clear(), oldest first.
    QStringList messages(QtMsgType type) const;
    QStringList criticals() const { return messages(QtCriticalMsg); }
    QStringList debugs() const { return messages(QtDebugMsg); }
    void clear();

private:
    QtMessageHandler m_previous;
};

#endif
