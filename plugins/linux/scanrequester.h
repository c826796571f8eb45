#ifndef AIRLUME_LINUX_SCANREQUESTER_H
#define AIRLUME_LINUX_SCANREQUESTER_H

#include <QString>

#include <optional>

namespace LinuxWifi
{

/// How a request for a scan ended.
struct ScanAnswer {
    enum class Result {
        Accepted,
        NoBus,        ///< There is no system bus.
        NoService,    ///< NetworkManager does not run.
        NotPermitted, ///< This user may not ask for scans.
        NotAvailable, ///< NetworkManager does not use this interface, or its radio is off.
        NoInterface,  ///< NetworkManager does not know this interface (any more).
        NoReply,      ///< It did not answer in time.
        Failed,       ///< Anything else.
    };
    Result result = Result::Failed;
    QString detail; ///< What the other side said about it, if anything.
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
