#include "TestCertificates.h"

#include <QFile>

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <stdexcept>

namespace {

template <auto Free>
struct Cleanup
{
    template <typename T>
    void operator()(T* object) const
    {
        Free(object);
    }
};
using Key = std::unique_ptr<EVP_PKEY, Cleanup<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Cleanup<X509_free>>;
using Extension = std::unique_ptr<X509_EXTENSION, Cleanup<X509_EXTENSION_free>>;
using Memory = std::unique_ptr<BIO, Cleanup<BIO_free_all>>;

constexpr long day = 24L * 60 * 60;

/// What is written into a certificate; times are seconds from now.
struct Contents
{
    const char* name;
    const char* hosts = "DNS:localhost,IP:127.0.0.1";
    const char* purpose = "serverAuth";
    bool isAuthority = false;
    long from = -day;
    long until = 30 * day;
};

void addExtension(X509* certificate, X509* issuer, int kind, const char* value)
{
    X509V3_CTX context;
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    const Extension extension(X509V3_EXT_conf_nid(nullptr, &context, kind, value));
    if (!extension || X509_add_ext(certificate, extension.get(), -1) != 1)
        throw std::runtime_error("a certificate extension was refused");
}

QByteArray textOf(const Memory& memory)
{
    char* data = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &data);
    return QByteArray(data, size);
}

void save(const QByteArray& path, const QByteArray& text)
{
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        throw std::runtime_error("a certificate could not be saved");
}

} // namespace

/// A certificate with its key, which can sign further ones.
class TestCertificates::Issuer
{
public:
    /// Signed by `issuer`, or by itself when there is none.
    explicit Issuer(const Contents& contents, const Issuer* issuer = nullptr)
        : key_(EVP_EC_gen("P-256")), certificate_(X509_new())
    {
        static long serial = 0;
        X509* const own = certificate_.get();
        X509* const signer = issuer ? issuer->certificate_.get() : own;
        X509_set_version(own, X509_VERSION_3);
        ASN1_INTEGER_set(X509_get_serialNumber(own), ++serial);
        X509_gmtime_adj(X509_getm_notBefore(own), contents.from);
        X509_gmtime_adj(X509_getm_notAfter(own), contents.until);
        X509_set_pubkey(own, key_.get());
        X509_NAME_add_entry_by_txt(X509_get_subject_name(own), "CN", MBSTRING_ASC,
            reinterpret_cast<const unsigned char*>(contents.name), -1, -1, 0);
        X509_set_issuer_name(own, X509_get_subject_name(signer));
        addExtension(own, signer, NID_basic_constraints,
            contents.isAuthority ? "critical,CA:TRUE" : "critical,CA:FALSE");
        if (contents.isAuthority) {
            addExtension(own, signer, NID_key_usage, "critical,keyCertSign");
        } else {
            addExtension(own, signer, NID_ext_key_usage, contents.purpose);
            addExtension(own, signer, NID_subject_alt_name, contents.hosts);
        }
        X509_sign(own, issuer ? issuer->key_.get() : key_.get(), EVP_sha256());
    }

    QByteArray certificate() const
    {
        const Memory memory(BIO_new(BIO_s_mem()));
        PEM_write_bio_X509(memory.get(), certificate_.get());
        return textOf(memory);
    }

    QByteArray key() const
    {
        const Memory memory(BIO_new(BIO_s_mem()));
        PEM_write_bio_PrivateKey(memory.get(), key_.get(), nullptr, nullptr, 0, nullptr, nullptr);
        return textOf(memory);
    }

private:
    Key key_;
    Certificate certificate_;
};

const TestCertificates& TestCertificates::shared()
{
    static const TestCertificates certificates;
    return certificates;
}

TestCertificates::TestCertificates()
    : authority_(std::make_unique<Issuer>(Contents{.name = "Authority of the tests", .isAuthority = true}))
{
    save(authorityFile(), authority_->certificate());
}

TestCertificates::~TestCertificates() = default;

QByteArray TestCertificates::path(const char* name) const
{
    return QFile::encodeName(folder_.filePath(QString::fromLatin1(name)));
}

QByteArray TestCertificates::authorityFile() const
{
    return path("authority.pem");
}

TlsIdentity TestCertificates::write(const char* name, const Issuer& subject, const QByteArray& chain) const
{
    const TlsIdentity identity{path(name) + ".pem", path(name) + ".key"};
    save(identity.certificateFile, subject.certificate() + chain);
    save(identity.keyFile, subject.key());
    return identity;
}

TlsIdentity TestCertificates::identity(Quality quality) const
{
    const Issuer* const authority = authority_.get();
    switch (quality) {
    case Quality::Valid:
        return write("valid", Issuer({.name = "Valid"}, authority), {});
    case Quality::Expired:
        return write("expired", Issuer({.name = "Expired", .from = -30 * day, .until = -day}, authority), {});
    case Quality::NotYetValid:
        return write("early", Issuer({.name = "Not yet valid", .from = day}, authority), {});
    case Quality::OtherHost:
        return write("other", Issuer({.name = "Other host", .hosts = "DNS:elsewhere.test"}, authority), {});
    case Quality::SelfSigned:
        return write("self", Issuer({.name = "Self-signed"}), {});
    case Quality::ForClientsOnly:
        return write("clients", Issuer({.name = "For clients", .purpose = "clientAuth"}, authority), {});
    case Quality::SignedByLeaf:
        break;
    }
    const Issuer leaf({.name = "No authority"}, authority);
    return write("signed-by-leaf", Issuer({.name = "Signed by a leaf"}, &leaf), leaf.certificate());
}
