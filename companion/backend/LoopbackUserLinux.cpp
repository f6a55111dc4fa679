// Asks the kernel's table of sockets for the one at the other end.
#include <arpa/inet.h>
#include <linux/inet_diag.h>
#include <linux/netlink.h>
#include <linux/sock_diag.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstring>

#include "companion/backend/LoopbackUser.h"

namespace stagehopper::companion {

namespace {

struct Question {
    nlmsghdr header;
    inet_diag_req_v2 request;
};

Question questionFor(const LoopbackConnection& connection) {
    Question question{};
    question.header.nlmsg_len = sizeof(question);
    question.header.nlmsg_type = SOCK_DIAG_BY_FAMILY;
    question.header.nlmsg_flags = NLM_F_REQUEST;
    question.request.sdiag_family = AF_INET;
    question.request.sdiag_protocol = IPPROTO_TCP;
    question.request.idiag_states = ~0U;
    inet_diag_sockid& id = question.request.id;
    id.idiag_sport = htons(connection.fromPort);
    id.idiag_dport = htons(connection.toPort);
    id.idiag_src[0] = htonl(connection.fromAddress);
    id.idiag_dst[0] = htonl(connection.toAddress);
    id.idiag_cookie[0] = id.idiag_cookie[1] = INET_DIAG_NOCOOKIE;
    return question;
}

}  // namespace

std::optional<std::uint32_t> userOf(const LoopbackConnection& connection) {
    // One for each question: an answer that comes late can then belong to no other.
    const int handle = ::socket(AF_NETLINK, SOCK_DGRAM | SOCK_CLOEXEC, NETLINK_SOCK_DIAG);
    if (handle < 0) return std::nullopt;
    const Question question = questionFor(connection);
    std::array<char, 1024> answer{};
    ssize_t size = ::send(handle, &question, sizeof(question), 0);
    // The kernel has answered when `send` returns.
    if (size > 0) size = ::recv(handle, answer.data(), answer.size(), MSG_DONTWAIT);
    ::close(handle);

    nlmsghdr header{};
    inet_diag_msg found{};
    if (size < static_cast<ssize_t>(NLMSG_LENGTH(sizeof(found)))) return std::nullopt;
    std::memcpy(&header, answer.data(), sizeof(header));
    if (header.nlmsg_type != SOCK_DIAG_BY_FAMILY) return std::nullopt;
    std::memcpy(&found, answer.data() + NLMSG_HDRLEN, sizeof(found));
    return found.idiag_uid;
}

}  // namespace stagehopper::companion
