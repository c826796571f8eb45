#include "linux/netlinkgroup.h"

#include "linux/netlinkerror.h"

#include <netlink/errno.h>
#include <netlink/genl/ctrl.h>
#include <netlink/genl/genl.h>
#include <netlink/msg.h>
#include <netlink/netlink.h>
#include <netlink/socket.h>

#include <cerrno>

namespace LinuxWifi
{

namespace
{
int onMessage(nl_msg *message, void *handler)
{
    (*static_cast<const NetlinkSocket::Handler *>(handler))(nlmsg_hdr(message));
    return NL_OK;
}
} // namespace

NetlinkGroup::NetlinkGroup(std::string family, std::string group)
    : m_family(std::move(family))
    , m_group(std::move(group))
{
}

NetlinkGroup::~NetlinkGroup() = default;

int NetlinkGroup::open()
{
    if (m_socket)
        return 0;
    NetlinkSocketPointer socket(nl_socket_alloc());
    if (!socket)
        return ENOMEM;
    errno = 0;
    if (genl_connect(socket.get()) < 0)
        return errno ? errno : EIO;
    const int group = genl_ctrl_resolve_grp(socket.get(), m_family.c_str(), m_group.c_str());
    if (group < 0)
        return group == -NLE_OBJ_NOTFOUND ? EPROTONOSUPPORT : errnoOfNetlinkError(group);
    // Events answer no request.
    nl_socket_disable_seq_check(socket.get());
    nl_socket_enable_msg_peek(socket.get());
    int error = nl_socket_add_membership(socket.get(), group);
    if (error == 0)
        error = nl_socket_set_nonblocking(socket.get());
    if (error < 0)
        return errnoOfNetlinkError(error);
    m_socket = std::move(socket);
    return 0;
}

void NetlinkGroup::close()
{
    m_socket.reset();
}

int NetlinkGroup::descriptor() const
{
    return m_socket ? nl_socket_get_fd(m_socket.get()) : -1;
}

int NetlinkGroup::receive(const NetlinkSocket::Handler &handler)
{
    if (!m_socket)
        return ENOTCONN;
    NetlinkSocket::Handler copy = handler;
    nl_socket_modify_cb(m_socket.get(), NL_CB_VALID, NL_CB_CUSTOM, onMessage, &copy);
    int result = 0;
    while (result >= 0)
        result = nl_recvmsgs_default(m_socket.get());
    nl_socket_modify_cb(m_socket.get(), NL_CB_VALID, NL_CB_DEFAULT, nullptr, nullptr);
    const int error = errnoOfNetlinkError(result);
    return error == EAGAIN ? 0 : error;
}

} // namespace LinuxWifi
