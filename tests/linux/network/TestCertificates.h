#pragma once

#include <openssl/ssl.h>

#include <memory>
#include <string>

namespace stagehopper {

/// A certificate with its key.
struct Certificate {
    std::shared_ptr<X509> certificate;
    std::shared_ptr<EVP_PKEY> key;
};

/// What a certificate is to say.
struct CertificateText {
    /// Whose it is: "DNS:localhost,IP:127.0.0.1"; empty for an authority's.
    std::string names;
    /// Seconds from now.
    long validFrom = -3600;
    long validUntil = 3600;
};

/// Signed by `issuer`, or by itself when that is null.
Certificate makeCertificate(const CertificateText& text, const Certificate* issuer);
void writeCertificate(const Certificate& certificate, const std::string& path);

/// For a server with that certificate.
std::shared_ptr<SSL_CTX> makeServerContext(const Certificate& certificate);

}  // namespace stagehopper
