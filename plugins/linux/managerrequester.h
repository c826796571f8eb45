#ifndef AIRLUME_LINUX_MANAGERREQUESTER_H
#define AIRLUME_LINUX_MANAGERREQUESTER_H

#include "linux/scanasker.h"
#include "linux/scanrequester.h"

#include <memory>

namespace LinuxWifi
{

class BackgroundThread;

/// Has whoever manages an interface asked for scans, by a ScanAsker in the background. The caller
/// needs no event loop and is never kept waiting. One thread at a time.
class ManagerRequester : public ScanRequester
{
public:
    /// `thread` must outlive the requester.
    explicit ManagerRequester(
        BackgroundThread &thread, const ScanAsker::Settings &settings = ScanAsker::Settings());
    ~ManagerRequester() override;

    void request(const QString &interface) override;
    std::optional<ScanAnswer> takeAnswer() override;

private:
    struct Shared;
    BackgroundThread &m_thread;
    const ScanAsker::Settings m_settings;
    const std::shared_ptr<Shared> m_shared;
};

} // namespace LinuxWifi

#endif
