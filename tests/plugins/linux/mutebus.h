#ifndef AIRLUME_TESTS_LINUX_MUTEBUS_H
#define AIRLUME_TESTS_LINUX_MUTEBUS_H

#include <QTemporaryDir>
#include <QVector>

#include <memory>
#include <thread>

/// Something that takes connections as a message bus does, and then says little or nothing.
class MuteBus
{
public:
    enum class Kind {
        SaysNothing,        ///< Accepts connections.
        Authenticates,      ///< And lets whoever comes in, but answers no call.
        TakesNoConnections, ///< As many as may wait are waiting already.
        HangsUp,            ///< Closes each connection at once.
        Babbles,            ///< Answers with what is no D-Bus.
    };

    explicit MuteBus(Kind kind);
    ~MuteBus();
    MuteBus(const MuteBus &) = delete;
    MuteBus &operator=(const MuteBus &) = delete;

    QString address() const;

private:
    void serve();
    /// False when the client has left.
    bool answer(int client) const;

    const Kind m_kind;
    const QTemporaryDir m_folder;
    int m_socket = -1;
    int m_ends[2] = {-1, -1}; ///< A pipe that ends the thread.
    QVector<int> m_waiting;
    std::unique_ptr<std::thread> m_thread;
};

#endif
