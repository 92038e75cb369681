#pragma once

#include "Net/RequestStream.h"
#include "Net/TlsIdentity.h"
#include "Store/Files.h"

#include <functional>
#include <string>

namespace bridge {

/// The HTTP library's server, on TLS connections of our own: a thread for each connection, bounded heads,
/// short idle times, and a stop that does not wait for idle clients.
///
/// Every request whose head can be read reaches one of the handlers that are set for all paths of its method;
/// a body is read only by asking the content reader, as bytes: the library's own readers of forms are kept
/// out (they cap forms at 8 KiB and change file names). RequestHead says which fields have another name then.
class TlsServer : public httplib::Server
{
public:
    explicit TlsServer(const TlsIdentity& identity);

    enum class Next
    {
        AnotherRequest,
        Close,
        CloseWhileClientSends, ///< an answer was given before the request's body was read
    };

    bool is_valid() const override { return context_ != nullptr; }

    /// Takes the address; 0 for a free port. Returns the port, or nothing when it is not to be had.
    int bind(const std::string& host, int port);

    /// Serves until finish() is called, from any thread.
    void serve();
    void finish();

    /// For the handler of a request, before it reads the body: this one is a short text, which has less time
    /// to arrive than a file.
    static void expectText(const httplib::Request& request);

    /// Answers the requests of one connection, until it is to be closed.
    Next serveAll(RequestStream& stream);

private:
    bool process_and_close_socket(socket_t socket) override;
    Next serveOne(RequestStream& stream, bool isLast);

    TlsIdentity::Context context_;
    Descriptor stop_;
};

} // namespace bridge
