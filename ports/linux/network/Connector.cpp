#include "ports/linux/network/Connector.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace stagehopper::linux_port {
namespace asio = boost::asio;
using boost::system::error_code;

void Connector::start(UrlParts url, Done done) {
    url_ = std::move(url);
    thread_.lookUp(url_.host, url_.port,
                   [self = shared_from_this(), done = std::move(done)](HostLookup found) {
                       if (self->canceled_) return;
                       self->host_ = std::move(found);
                       self->tryNext(self->host_.problem, done);
                   });
}

void Connector::cancel() {
    if (std::exchange(canceled_, true)) return;
    error_code ignored;
    stream_.socket().cancel(ignored);
}

void Connector::tryNext(const std::string& lastProblem, Done done) {
    if (next_ == host_.addresses.size()) return done(lastProblem);
    const SocketAddress& address = host_.addresses[next_++];
    if (const auto error = open(address)) return tryNext(error.message(), std::move(done));
    asio::ip::tcp::endpoint endpoint;
    endpoint.resize(address.size);
    std::memcpy(endpoint.data(), &address.storage, address.size);
    stream_.socket().async_connect(
        endpoint, [self = shared_from_this(), done = std::move(done)](error_code error) {
            if (self->canceled_) return;
            if (error) return self->tryNext(error.message(), done);
            self->connected(done);
        });
}

void Connector::connected(Done done) {
    if (!url_.isEncrypted()) return done({});
    stream_.encrypt(thread_.tlsContext(), url_.host,
                    [self = shared_from_this(), done = std::move(done)](const auto& problem) {
                        if (!self->canceled_) done(problem);
                    });
}

error_code Connector::open(const SocketAddress& address) {
    error_code error;
    auto& socket = stream_.socket();
    socket.close(error);
    const int family = address.storage.ss_family;
    // Not left to the library, which lets every child process inherit its sockets: such a child
    // would keep a connection open that we have closed.
    const int descriptor = ::socket(family, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP);
    if (descriptor < 0) return {errno, boost::system::system_category()};
    const auto protocol = family == AF_INET6 ? asio::ip::tcp::v6() : asio::ip::tcp::v4();
    socket.assign(protocol, descriptor, error);
    if (error) {
        ::close(descriptor);
        return error;
    }
    socket.set_option(asio::ip::tcp::no_delay(true), error);
    return error;
}

}  // namespace stagehopper::linux_port
