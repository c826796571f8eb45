// Asks for a scan at every query, as the Linux back end does now and then, but needs no radio: for
// programs that end while a request is under way.
#include "linux/backgroundthread.h"
#include "linux/managerrequester.h"
#include "support/backends/testbackend.h"

#include <memory>

namespace
{
struct Members {
    LinuxWifi::BackgroundThread thread;
    LinuxWifi::ManagerRequester requester{thread};
};
std::unique_ptr<Members> members;
} // namespace

namespace Kind
{

void prepare()
{
    members = std::make_unique<Members>();
}

bool list(QStringList &nics)
{
    nics.append(QStringLiteral("wlan0"));
    return true;
}

bool isUsable(const QString &)
{
    return true;
}

bool query(QString &, QList<ScanMap> &networks)
{
    members->requester.takeAnswer();
    members->requester.request(QStringLiteral("wlan0"));
    networks += Air::networks(3);
    return true;
}

} // namespace Kind
