#ifndef AIRLUME_LINUX_SCANREQUESTER_H
#define AIRLUME_LINUX_SCANREQUESTER_H

#include <QString>

#include <optional>

namespace LinuxWifi
{

/// The programs that manage Wi-Fi interfaces and scan for others.
enum class Manager { Nobody, NetworkManager, Iwd, WpaSupplicant, ConnMan };

/// How a request for a scan ended.
struct ScanAnswer {
    enum class Result {
        Accepted,
        NoBus,        ///< There is no system bus, or it does not answer.
        NoService,    ///< No manager runs.
        NotPermitted, ///< This user may not ask for scans.
        NotAvailable, ///< The manager cannot scan with this interface now; its radio may be off.
        NoInterface,  ///< Those that run do not manage this interface (any more).
        NoReply,      ///< The manager did not answer in time.
        Failed,       ///< Anything else.
    };
    Result result = Result::Failed;
    QString detail; ///< What the other side said about it, if anything.
    /// Who was asked; for NoInterface the first of those that run, otherwise nobody where nobody
    /// was.
    Manager manager = Manager::Nobody;
};

/// Somebody with more rights, who can be asked to start a scan.
class ScanRequester
{
public:
    virtual ~ScanRequester() = default;

    /// Asks for a scan with the named interface and returns at once. Ignored while the last request
    /// has no answer yet.
    virtual void request(const QString &interface) = 0;
    /// The answer to the last request, once: nothing while there is none.
    virtual std::optional<ScanAnswer> takeAnswer() = 0;
};

} // namespace LinuxWifi

#endif
