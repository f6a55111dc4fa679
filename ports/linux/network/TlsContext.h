#pragma once

#include <boost/asio/ssl/context.hpp>

namespace stagehopper::linux_port {

/// For clients: TLS 1.2 or later, and only servers whose certificates the system trusts.
/// SSL_CERT_FILE and SSL_CERT_DIR name other certificates to trust.
boost::asio::ssl::context makeTlsContext();

}  // namespace stagehopper::linux_port
