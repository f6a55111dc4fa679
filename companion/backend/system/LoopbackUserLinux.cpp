// Looks the connection up in the kernel's socket table, by netlink.
#include <arpa/inet.h>
#include <linux/inet_diag.h>
#include <linux/netlink.h>
#include <linux/sock_diag.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstring>

#include "companion/backend/system/LoopbackUser.h"

namespace stagehopper::companion {

namespace {

struct DiagRequest {
    nlmsghdr header;
    inet_diag_req_v2 request;
};

DiagRequest diagRequestFor(const LoopbackConnection& connection) {
    DiagRequest diagRequest{};
    diagRequest.header.nlmsg_len = sizeof(diagRequest);
    diagRequest.header.nlmsg_type = SOCK_DIAG_BY_FAMILY;
    diagRequest.header.nlmsg_flags = NLM_F_REQUEST;
    diagRequest.request.sdiag_family = AF_INET;
    diagRequest.request.sdiag_protocol = IPPROTO_TCP;
    diagRequest.request.idiag_states = ~0U;
    inet_diag_sockid& id = diagRequest.request.id;
    id.idiag_sport = htons(connection.fromPort);
    id.idiag_dport = htons(connection.toPort);
    id.idiag_src[0] = htonl(connection.fromAddress);
    id.idiag_dst[0] = htonl(connection.toAddress);
    id.idiag_cookie[0] = id.idiag_cookie[1] = INET_DIAG_NOCOOKIE;
    return diagRequest;
}

}  // namespace

std::optional<std::uint32_t> userOf(const LoopbackConnection& connection) {
    // A socket for each request: a late reply cannot be taken for the reply to another one.
    const int handle = ::socket(AF_NETLINK, SOCK_DGRAM | SOCK_CLOEXEC, NETLINK_SOCK_DIAG);
    if (handle < 0) return std::nullopt;
    const DiagRequest diagRequest = diagRequestFor(connection);
    std::array<char, 1024> reply{};
    ssize_t size = ::send(handle, &diagRequest, sizeof(diagRequest), 0);
    // The kernel has replied when `send` returns.
    if (size > 0) size = ::recv(handle, reply.data(), reply.size(), MSG_DONTWAIT);
    ::close(handle);

    nlmsghdr header{};
    inet_diag_msg found{};
    if (size < static_cast<ssize_t>(NLMSG_LENGTH(sizeof(found)))) return std::nullopt;
    std::memcpy(&header, reply.data(), sizeof(header));
    if (header.nlmsg_type != SOCK_DIAG_BY_FAMILY) return std::nullopt;
    std::memcpy(&found, reply.data() + NLMSG_HDRLEN, sizeof(found));
    return found.idiag_uid;
}

}  // namespace stagehopper::companion
