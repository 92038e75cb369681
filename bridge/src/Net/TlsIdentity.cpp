#include "Net/TlsIdentity.h"

#include "Store/Files.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

#include <stdexcept>

namespace bridge {

namespace {

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;
using Memory = std::unique_ptr<BIO, decltype(&BIO_free)>;

constexpr std::chrono::days authorityLifetime(3650);
constexpr std::chrono::days serverLifetime(825);
constexpr std::chrono::days renewalPeriod(30);

void require(bool succeeded, const char* what)
{
    if (!succeeded)
        throw std::runtime_error(std::string("The certificate could not be made: ") + what);
}

time_t secondsOf(Moment moment)
{
    return std::chrono::system_clock::to_time_t(moment);
}

Key makeKey()
{
    Key key(EVP_EC_gen("P-256"), EVP_PKEY_free);
    require(key != nullptr, "key");
    return key;
}

void addExtension(X509* certificate, X509* issuer, int kind, const char* value)
{
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, &context, kind, value);
    require(extension != nullptr, value);
    const int added = X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
    require(added == 1, value);
}

// A certificate without extensions or signature. The clock of the machine may have been set back since:
// it is valid from the day before.
Certificate blankCertificate(EVP_PKEY* key, const char* name, Moment now, std::chrono::days lifetime)
{
    Certificate certificate(X509_new(), X509_free);
    require(certificate != nullptr, "memory");
    require(X509_set_version(certificate.get(), X509_VERSION_3) == 1, "version");

    unsigned char serial[16];
    require(RAND_bytes(serial, sizeof serial) == 1, "random numbers");
    serial[0] &= 0x7f;
    BIGNUM* number = BN_bin2bn(serial, sizeof serial, nullptr);
    const bool numbered = number && BN_to_ASN1_INTEGER(number, X509_get_serialNumber(certificate.get()));
    BN_free(number);
    require(numbered, "serial number");

    require(ASN1_TIME_set(X509_getm_notBefore(certificate.get()), secondsOf(now - std::chrono::days(1))),
        "validity");
    require(ASN1_TIME_set(X509_getm_notAfter(certificate.get()), secondsOf(now + lifetime)), "validity");
    require(X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate.get()), "CN", MBSTRING_UTF8,
                reinterpret_cast<const unsigned char*>(name), -1, -1, 0)
            == 1,
        "name");
    require(X509_set_pubkey(certificate.get(), key) == 1, "public key");
    return certificate;
}

Certificate makeAuthority(EVP_PKEY* key, Moment now)
{
    Certificate authority = blankCertificate(key, "Quorvel local bridge authority", now, authorityLifetime);
    X509* self = authority.get();
    require(X509_set_issuer_name(self, X509_get_subject_name(self)) == 1, "issuer");
    addExtension(self, self, NID_basic_constraints, "critical,CA:TRUE,pathlen:0");
    addExtension(self, self, NID_key_usage, "critical,keyCertSign,cRLSign");
    addExtension(self, self, NID_subject_key_identifier, "hash");
    addExtension(self, self, NID_name_constraints,
        "critical,permitted;DNS:localhost,permitted;IP:127.0.0.1/255.255.255.255,"
        "permitted;IP:::1/ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff");
    require(X509_sign(self, key, EVP_sha256()) > 0, "signature");
    return authority;
}

Certificate makeServer(EVP_PKEY* key, X509* authority, EVP_PKEY* authorityKey, Moment now)
{
    Certificate server = blankCertificate(key, "localhost", now, serverLifetime);
    X509* self = server.get();
    require(X509_set_issuer_name(self, X509_get_subject_name(authority)) == 1, "issuer");
    addExtension(self, authority, NID_basic_constraints, "critical,CA:FALSE");
    addExtension(self, authority, NID_key_usage, "critical,digitalSignature");
    addExtension(self, authority, NID_ext_key_usage, "serverAuth");
    addExtension(self, authority, NID_subject_key_identifier, "hash");
    addExtension(self, authority, NID_authority_key_identifier, "keyid");
    addExtension(self, authority, NID_subject_alt_name, "DNS:localhost,IP:127.0.0.1,IP:::1");
    require(X509_sign(self, authorityKey, EVP_sha256()) > 0, "signature");
    return server;
}

Memory memoryOf(const std::string& text)
{
    return Memory(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())), BIO_free);
}

Certificate readCertificate(const std::filesystem::path& file)
{
    const std::string text = readFile(file);
    return Certificate(PEM_read_bio_X509(memoryOf(text).get(), nullptr, nullptr, nullptr), X509_free);
}

Key readKey(const std::filesystem::path& file)
{
    const std::string text = readFile(file);
    return Key(PEM_read_bio_PrivateKey(memoryOf(text).get(), nullptr, nullptr, nullptr), EVP_PKEY_free);
}

std::string textOf(BIO* memory)
{
    char* data = nullptr;
    const long size = BIO_get_mem_data(memory, &data);
    return std::string(data, static_cast<std::size_t>(size));
}

void write(const std::filesystem::path& file, X509* certificate)
{
    const Memory memory(BIO_new(BIO_s_mem()), BIO_free);
    require(PEM_write_bio_X509(memory.get(), certificate) == 1, "encoding");
    replaceFile(file, textOf(memory.get()));
}

void write(const std::filesystem::path& file, EVP_PKEY* key)
{
    const Memory memory(BIO_new(BIO_s_mem()), BIO_free);
    require(
        PEM_write_bio_PrivateKey(memory.get(), key, nullptr, nullptr, 0, nullptr, nullptr) == 1, "encoding");
    replaceFile(file, textOf(memory.get()));
}

bool isPair(X509* certificate, EVP_PKEY* key)
{
    return certificate && key && X509_check_private_key(certificate, key) == 1;
}

// True when it is valid now and stays so beyond the renewal period.
bool isTimely(X509* certificate, Moment now)
{
    time_t present = secondsOf(now);
    time_t renewal = secondsOf(now + renewalPeriod);
    return X509_cmp_time(X509_get0_notBefore(certificate), &present) < 0
        && X509_cmp_time(X509_get0_notAfter(certificate), &renewal) > 0;
}

} // namespace

TlsIdentity::TlsIdentity(std::filesystem::path folder, Moment now) : folder_(std::move(folder))
{
    std::filesystem::create_directories(folder_);
    Certificate authority = readCertificate(folder_ / "ca.pem");
    Key authorityKey = readKey(folder_ / "ca.key");
    const bool hasAuthority = isPair(authority.get(), authorityKey.get());
    if (!hasAuthority) {
        authorityKey = makeKey();
        write(folder_ / "ca.key", authorityKey.get());
    }
    if (!hasAuthority || !isTimely(authority.get(), now)) {
        authority = makeAuthority(authorityKey.get(), now);
        write(folder_ / "ca.pem", authority.get());
    }

    const Certificate server = readCertificate(folder_ / "server.pem");
    const Key serverKey = readKey(folder_ / "server.key");
    if (!isPair(server.get(), serverKey.get()) || !isTimely(server.get(), now)
        || X509_verify(server.get(), authorityKey.get()) != 1) {
        const Key key = makeKey();
        const Certificate renewed = makeServer(key.get(), authority.get(), authorityKey.get(), now);
        write(folder_ / "server.key", key.get());
        write(folder_ / "server.pem", renewed.get());
    }
}

TlsIdentity::Context TlsIdentity::serverContext() const
{
    Context context(SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
    require(context != nullptr, "memory");
    SSL_CTX_set_min_proto_version(context.get(), TLS1_2_VERSION);
    SSL_CTX_set_options(context.get(), SSL_OP_NO_RENEGOTIATION | SSL_OP_IGNORE_UNEXPECTED_EOF);
    SSL_CTX_set_mode(context.get(), SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
    require(
        SSL_CTX_use_certificate_file(context.get(), (folder_ / "server.pem").c_str(), SSL_FILETYPE_PEM) == 1,
        "server.pem");
    require(
        SSL_CTX_use_PrivateKey_file(context.get(), (folder_ / "server.key").c_str(), SSL_FILETYPE_PEM) == 1,
        "server.key");
    return context;
}

} // namespace bridge
