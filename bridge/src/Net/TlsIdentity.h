#pragma once

#include "Moment.h"

#include <openssl/ssl.h>

#include <filesystem>
#include <memory>

namespace bridge {

/// The server's certificate, made on the first start and kept in a folder:
///
/// - `ca.pem`, `ca.key`: an authority of this server's own, valid for ten years and only for this machine's
///   loopback names. Whoever trusts `ca.pem` trusts the server.
/// - `server.pem`, `server.key`: the certificate that is shown, for localhost, 127.0.0.1 and ::1, valid for
///   825 days and made anew in its last 30.
///
/// Files that are missing, unreadable or do not belong together are replaced. Where only the time of a
/// certificate is wrong, be it over or, under a clock that was set back since, not there yet, it is made
/// anew: the authority's for the same key and name, so that whoever has trusted a copy of the old `ca.pem`
/// goes on trusting the server for as long as that copy is good. Keys are readable by the owner alone.
class TlsIdentity
{
public:
    using Context = std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)>;

    /// \throws std::runtime_error when the folder cannot be written.
    TlsIdentity(std::filesystem::path folder, Moment now);

    /// What a TLS server needs: the certificate, its key, TLS 1.2 at least.
    Context serverContext() const;

private:
    std::filesystem::path folder_;
};

} // namespace bridge
