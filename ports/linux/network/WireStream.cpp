#include "ports/linux/network/WireStream.h"

#include <openssl/ssl.h>
#include <openssl/x509v3.h>

namespace stagehopper::linux_port {
namespace {

namespace asio = boost::asio;
using boost::system::error_code;

/// The certificate must be valid for this host, by the name rules of RFC 6125.
bool expectHost(SSL* ssl, const std::string& host) {
    // A zone names one of our own interfaces, and no certificate knows it.
    const std::string address = host.substr(0, host.find('%'));
    error_code notANumber;
    asio::ip::make_address(address, notANumber);
    if (!notANumber) {
        return X509_VERIFY_PARAM_set1_ip_asc(SSL_get0_param(ssl), address.c_str()) == 1;
    }
    SSL_set_hostflags(ssl, X509_CHECK_FLAG_NO_PARTIAL_WILDCARDS);
    // A server of several names learns from the second which of them is meant.
    // The library's macro has a cast of C; it only reads the text.
    return SSL_set1_host(ssl, host.c_str()) == 1 &&
           SSL_ctrl(ssl, SSL_CTRL_SET_TLSEXT_HOSTNAME, TLSEXT_NAMETYPE_host_name,
                    const_cast<char*>(host.c_str())) == 1;
}

std::string reasonOf(SSL* ssl, const error_code& error) {
    const auto verdict = SSL_get_verify_result(ssl);
    if (verdict == X509_V_OK) return "The encrypted connection failed: " + error.message();
    return std::string("The server's certificate was not accepted: ") +
           X509_verify_cert_error_string(verdict);
}

}  // namespace

void WireStream::encrypt(asio::ssl::context& context, const std::string& host, Done done) {
    auto& tls = wire_->tls.emplace(wire_->socket, context);
    if (!expectHost(tls.native_handle(), host)) {
        asio::post(get_executor(), [done = std::move(done), host] {
            done("No certificate can be for this host: " + host);
        });
        return;
    }
    tls.async_handshake(asio::ssl::stream_base::client,
                        [wire = wire_, done = std::move(done)](error_code error) {
                            wire->isSecure = !error;
                            done(error ? reasonOf(wire->tls->native_handle(), error) : "");
                        });
}

void WireStream::sayGoodbye() {
    if (!std::exchange(wire_->isSecure, false)) return;
    // It leaves at once; what then waits for the peer's goodbye ends with the socket.
    wire_->tls->async_shutdown([wire = wire_](error_code) {});
}

void WireStream::close() {
    sayGoodbye();
    error_code ignored;
    wire_->socket.close(ignored);
}

}  // namespace stagehopper::linux_port
