#ifndef AIRLUME_LINUX_NETLINKSOCKET_H
#define AIRLUME_LINUX_NETLINKSOCKET_H

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

struct nl_msg;
struct nl_sock;
struct nlmsghdr;

namespace LinuxWifi
{

struct FreeNetlinkSocket {
    void operator()(nl_sock *socket) const;
};
using NetlinkSocketPointer = std::unique_ptr<nl_sock, FreeNetlinkSocket>;

/// A generic netlink socket for one family. It opens itself when first used, and again after an
/// error that left it in doubt. Every result is 0 or an errno, as the kernel gave it: libnl's own
/// codes merge several of them. One thread at a time.
class NetlinkSocket
{
public:
    /// Adds attributes to a request; false when there is no room for them.
    using Fill = std::function<bool(nl_msg *request)>;
    /// Takes one message of the answer, which is valid for the length of the call.
    using Handler = std::function<void(nlmsghdr *message)>;

    /// `family` is the name of a generic netlink family, "nl80211" for example.
    explicit NetlinkSocket(std::string family);
    ~NetlinkSocket();
    NetlinkSocket(const NetlinkSocket &) = delete;
    NetlinkSocket &operator=(const NetlinkSocket &) = delete;

    /// Sends a command and waits for the end of the kernel's answer, which the kernel has ready
    /// when the command has been sent. EPROTONOSUPPORT when the kernel does not have the family,
    /// EINTR when what was listed changed meanwhile and the list must be asked for again.
    int request(std::uint8_t command, const Fill &fill, const Handler &handler);
    /// The same for a command that lists something.
    int dump(std::uint8_t command, const Fill &fill, const Handler &handler);

    void close();

private:
    int open();
    int exchange(std::uint8_t command, int flags, const Fill &fill, const Handler &handler);
    int receive(const Handler &handler, bool &inDoubt);

    const std::string m_family;
    NetlinkSocketPointer m_socket;
    int m_familyId = -1;
};

} // namespace LinuxWifi

#endif
