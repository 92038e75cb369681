#include "CurlErrors.h"

#include <algorithm>
#include <array>
#include <utility>

using Code = TransportError::Code;

static constexpr auto table = std::to_array<std::pair<CURLcode, Code>>({
    {CURLE_URL_MALFORMAT, Code::BadURL},
    {CURLE_COULDNT_RESOLVE_HOST, Code::CannotFindHost},
    {CURLE_COULDNT_RESOLVE_PROXY, Code::CannotFindHost},
    {CURLE_COULDNT_CONNECT, Code::CannotConnectToHost},
    {CURLE_PROXY, Code::CannotConnectToHost},
    {CURLE_INTERFACE_FAILED, Code::CannotConnectToHost},
    {CURLE_OPERATION_TIMEDOUT, Code::TimedOut},
    {CURLE_GOT_NOTHING, Code::NetworkConnectionLost},
    {CURLE_PARTIAL_FILE, Code::NetworkConnectionLost},
    {CURLE_RECV_ERROR, Code::NetworkConnectionLost},
    {CURLE_SEND_ERROR, Code::NetworkConnectionLost},
    {CURLE_SEND_FAIL_REWIND, Code::NetworkConnectionLost},
    {CURLE_SSL_CONNECT_ERROR, Code::SecureConnectionFailed},
    {CURLE_PEER_FAILED_VERIFICATION, Code::SecureConnectionFailed},
    {CURLE_SSL_CACERT_BADFILE, Code::SecureConnectionFailed},
    {CURLE_SSL_CERTPROBLEM, Code::SecureConnectionFailed},
    {CURLE_SSL_CIPHER, Code::SecureConnectionFailed},
    {CURLE_SSL_CLIENTCERT, Code::SecureConnectionFailed},
    {CURLE_SSL_CRL_BADFILE, Code::SecureConnectionFailed},
    {CURLE_SSL_ENGINE_INITFAILED, Code::SecureConnectionFailed},
    {CURLE_SSL_INVALIDCERTSTATUS, Code::SecureConnectionFailed},
    {CURLE_SSL_ISSUER_ERROR, Code::SecureConnectionFailed},
    {CURLE_SSL_PINNEDPUBKEYNOTMATCH, Code::SecureConnectionFailed},
    {CURLE_SSL_SHUTDOWN_FAILED, Code::SecureConnectionFailed},
    {CURLE_USE_SSL_FAILED, Code::SecureConnectionFailed},
    {CURLE_WEIRD_SERVER_REPLY, Code::BadServerResponse},
    {CURLE_HTTP_RETURNED_ERROR, Code::BadServerResponse},
    {CURLE_BAD_CONTENT_ENCODING, Code::BadServerResponse},
    {CURLE_HTTP2, Code::BadServerResponse},
    {CURLE_HTTP2_STREAM, Code::BadServerResponse},
    {CURLE_WRITE_ERROR, Code::BadServerResponse},
    // What libcurl says of a header line that is too long for it.
    {CURLE_OUT_OF_MEMORY, Code::BadServerResponse},
    // The request's own scheme has been checked before: this is an answer in another protocol.
    {CURLE_UNSUPPORTED_PROTOCOL, Code::BadServerResponse},
});

TransportError::Code transportCode(CURLcode code)
{
    const auto* const row
        = std::find_if(table.begin(), table.end(), [code](const auto& entry) { return entry.first == code; });
    return row == table.end() ? Code::Unknown : row->second;
}
