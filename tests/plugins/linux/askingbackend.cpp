// Asks for a scan at every query, as the Linux back end does now and then, but needs no radio: for
// programs that end while a request is under way.
#include "linux/backgroundthread.h"
#include "linux/managerrequester.h"
#include "support/backends/testbackend.h"

namespace
{
class Asking : public Kind
{
public:
    bool query(QString &nic, QList<ScanMap> &networks) override
    {
        m_requester.takeAnswer();
        m_requester.request(QStringLiteral("wlan0"));
        return Kind::query(nic, networks);
    }

private:
    LinuxWifi::BackgroundThread m_thread;
    LinuxWifi::ManagerRequester m_requester{m_thread};
};
} // namespace

AIRLUME_TEST_KIND(Asking)
