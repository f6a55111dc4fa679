#include "ports/linux/network/TlsContext.h"

#include <boost/system/error_code.hpp>

namespace stagehopper::linux_port {

boost::asio::ssl::context makeTlsContext() {
    boost::asio::ssl::context context(boost::asio::ssl::context::tls_client);
    SSL_CTX_set_min_proto_version(context.native_handle(), TLS1_2_VERSION);
    context.set_verify_mode(boost::asio::ssl::verify_peer);
    // Without certificates there, none is trusted.
    boost::system::error_code ignored;
    context.set_default_verify_paths(ignored);
    return context;
}

}  // namespace stagehopper::linux_port
