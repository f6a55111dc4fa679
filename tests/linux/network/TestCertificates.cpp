#include "tests/linux/network/TestCertificates.h"

#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <atomic>
#include <cstdio>
#include <stdexcept>

namespace stagehopper {
namespace {

template <typename Made>
Made* require(Made* made) {
    if (made == nullptr) throw std::runtime_error("no certificate could be made");
    return made;
}

void addExtension(X509& certificate, int kind, const std::string& value) {
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    const std::unique_ptr<X509_EXTENSION, decltype(&X509_EXTENSION_free)> extension(
        require(X509V3_EXT_conf_nid(nullptr, &context, kind, value.c_str())), &X509_EXTENSION_free);
    X509_add_ext(&certificate, extension.get(), -1);
}

}  // namespace

Certificate makeCertificate(const CertificateText& text, const Certificate* issuer) {
    static std::atomic<long> serial{0};
    Certificate made{{require(X509_new()), &X509_free},
                     {require(EVP_EC_gen("P-256")), &EVP_PKEY_free}};
    auto* certificate = made.certificate.get();
    X509_set_version(certificate, X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), ++serial);
    X509_gmtime_adj(X509_getm_notBefore(certificate), text.validFrom);
    X509_gmtime_adj(X509_getm_notAfter(certificate), text.validUntil);
    const std::string name = text.names.empty() ? "authority" : "server " + std::to_string(serial);
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_ASC,
                               reinterpret_cast<const unsigned char*>(name.c_str()), -1, -1, 0);
    const auto& signer = issuer == nullptr ? made : *issuer;
    X509_set_issuer_name(certificate, X509_get_subject_name(signer.certificate.get()));
    X509_set_pubkey(certificate, made.key.get());
    if (text.names.empty()) {
        addExtension(*certificate, NID_basic_constraints, "critical,CA:TRUE");
    } else {
        addExtension(*certificate, NID_subject_alt_name, text.names);
    }
    X509_sign(certificate, signer.key.get(), EVP_sha256());
    return made;
}

void writeCertificate(const Certificate& certificate, const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        require(std::fopen(path.c_str(), "we")), &std::fclose);
    PEM_write_X509(file.get(), certificate.certificate.get());
}

std::shared_ptr<SSL_CTX> makeServerContext(const Certificate& certificate) {
    std::shared_ptr<SSL_CTX> context(require(SSL_CTX_new(TLS_server_method())), &SSL_CTX_free);
    SSL_CTX_use_certificate(context.get(), certificate.certificate.get());
    SSL_CTX_use_PrivateKey(context.get(), certificate.key.get());
    return context;
}

}  // namespace stagehopper
