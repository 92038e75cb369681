#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <memory>

/// Where a server finds its certificate, followed by those that signed it, and its key; both are PEM files.
struct TlsIdentity
{
    QByteArray certificateFile;
    QByteArray keyFile;
};

/// A certificate authority of the tests' own, and servers' certificates of every quality, for the host names
/// localhost and 127.0.0.1. Everything lies in a folder that goes with this object.
class TestCertificates
{
public:
    enum class Quality
    {
        Valid,
        Expired,
        NotYetValid,
        OtherHost,
        SelfSigned,
        ForClientsOnly,
        SignedByLeaf
    };

    /// The ones that all tests of a program share.
    static const TestCertificates& shared();

    TestCertificates();
    ~TestCertificates();

    /// The certificate of the authority; a client that trusts it accepts the valid identity and no other.
    QByteArray authorityFile() const;
    TlsIdentity identity(Quality quality = Quality::Valid) const;

private:
    class Issuer;

    QByteArray path(const char* name) const;
    TlsIdentity write(const char* name, const Issuer& subject, const QByteArray& chain) const;

    QTemporaryDir folder_;
    std::unique_ptr<Issuer> authority_;
};
