#ifndef AIRLUME_TESTS_SUPPORT_BUSYHOST_H
#define AIRLUME_TESTS_SUPPORT_BUSYHOST_H

#include <QByteArray>
#include <QVector>

/// A host suite that listens and takes no connection: its queue is full from the start, so that
/// whoever connects has to wait. Without a Qt event loop; for one thread, which may be any.
class BusyHost
{
public:
    /// Listens under `name` as a QLocalServer would.
    explicit BusyHost(const QByteArray &name);
    ~BusyHost();
    BusyHost(const BusyHost &) = delete;
    BusyHost &operator=(const BusyHost &) = delete;

    /// True when the queue is full.
    bool isFull() const { return m_full; }
    /// Takes the connections that filled the queue, and then the one that comes within `timeoutMs`,
    /// in place of the one before. False when none comes.
    bool accept(int timeoutMs);
    /// What the accepted one says, as soon as there is something; empty after `timeoutMs`.
    QByteArray read(int timeoutMs);
    /// Answers the accepted one.
    void say(const QByteArray &text);

private:
    void hangUp();

    QByteArray m_path;
    int m_listener = -1;
    int m_client = -1;
    bool m_full = false;
    QVector<int> m_fillers;
    QVector<int> m_accepted;
};

#endif
