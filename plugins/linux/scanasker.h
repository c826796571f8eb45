#ifndef AIRLUME_LINUX_SCANASKER_H
#define AIRLUME_LINUX_SCANASKER_H

#include "linux/systembus.h"
#include "linux/wifimanager.h"

#include <QTimer>

#include <memory>
#include <vector>

namespace LinuxWifi
{

/// Finds out who manages an interface and asks it, and nobody else, for a scan. Lives in a thread
/// with an event loop.
class ScanAsker : public QObject
{
    Q_OBJECT

public:
    struct Settings {
        /// The bus' addresses at present.
        std::function<QString()> addresses = systemBusAddresses;
        Patience patience;
        int settleMs = 3000; ///< What a manager needs from its start until it manages something.
    };
    using Answered = std::function<void(const ScanAnswer &answer)>;

    /// `answered` gets each answer, in this object's thread.
    ScanAsker(const Settings &settings, Answered answered, QObject *parent = nullptr);
    ~ScanAsker() override;

    /// Asks for a scan with the named interface, unless the last request has no answer yet. After
    /// a refusal it asks again by itself as soon as another manager has started.
    void ask(const QString &interface);

private:
    void onOpened();
    void askNext();
    void onFound(WifiManager &manager, const Finding &finding);
    void finish(const ScanAnswer &answer);

    const Answered m_answered;
    SystemBus m_bus;
    std::vector<std::unique_ptr<WifiManager>> m_managers; ///< In the order of asking.
    QTimer m_settling;

    QString m_interface;
    bool m_asking = false;
    bool m_refused = false;             ///< The last answer.
    size_t m_next = 0;                  ///< The next one to ask.
    Manager m_first = Manager::Nobody;  ///< The first of those that run.
    std::optional<ScanAnswer> m_denial; ///< By the first that would not say what it manages.
};

} // namespace LinuxWifi

#endif
