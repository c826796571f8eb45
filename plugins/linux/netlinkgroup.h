#ifndef AIRLUME_LINUX_NETLINKGROUP_H
#define AIRLUME_LINUX_NETLINKGROUP_H

#include "linux/netlinksocket.h"

namespace LinuxWifi
{

/// A socket that hears what the kernel tells everybody in one multicast group of a generic netlink
/// family. Every result is 0 or an errno. One thread at a time.
class NetlinkGroup
{
public:
    NetlinkGroup(std::string family, std::string group);
    ~NetlinkGroup();
    NetlinkGroup(const NetlinkGroup &) = delete;
    NetlinkGroup &operator=(const NetlinkGroup &) = delete;

    /// Joins the group. EPROTONOSUPPORT when the kernel does not have the family or the group.
    int open();
    void close();

    /// To be waited for until something can be read; -1 while closed.
    int descriptor() const;

    /// Hands over every message that has arrived, and never waits for one. ENOBUFS when some were
    /// lost, as nobody read them in time; more can be read after that.
    int receive(const NetlinkSocket::Handler &handler);

private:
    const std::string m_family;
    const std::string m_group;
    NetlinkSocketPointer m_socket;
};

} // namespace LinuxWifi

#endif
