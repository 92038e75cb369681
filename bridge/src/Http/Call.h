#pragma once

#include "Http/Fields.h"
#include "People/Account.h"

#include <httplib.h>

#include <functional>
#include <optional>
#include <string>

namespace bridge {

/// A body as a JSON object; an empty body is an empty object.
/// \throws Problem 400 when it is anything else, or nested deeper than anybody needs
Fields jsonObject(const std::string& body);

/// One request on its way through an operation.
class Call
{
public:
    using Sink = std::function<void(const char* bytes, std::size_t size)>;

    /// \param content  reads the body; null when the method has none
    Call(const httplib::Request& request, httplib::Response& response, const httplib::ContentReader* content);

    /// Who asks. Set before the operation runs, unless the operation is open to everybody.
    const Account& account() const { return *account_; }
    void setAccount(Account account) { account_ = std::move(account); }

    /// The number in the path.
    Id id() const { return id_; }
    void setId(Id id) { id_ = id; }

    /// A query item, or a header; empty when it is missing.
    std::string query(const std::string& name) const;
    std::string header(const std::string& name) const;

    /// The media type of the body, as the client stated it.
    std::string contentType() const;

    /// The token behind "Bearer "; empty when there is none.
    std::string bearerToken() const;

    /// Whom attempts are counted for: the address of the network that asks. \see peerOf
    std::string peer() const;

    /// Scheme, host and port under which the client reached this server.
    std::string origin() const;

    /// The body as it came, at most 1 MiB.
    /// \throws Problem 413 beyond, 400 when the connection broke
    std::string text();

    /// \throws Problem as text() and jsonObject()
    Fields json() { return jsonObject(text()); }

    /// Hands the body over as it comes in.
    /// \throws Problem 400 when the connection broke; whatever the sink throws
    void read(const Sink& sink);

    void answer(const nlohmann::json& body, int status = 200);

    /// 204 and no body.
    void answerNothing();

    /// For answers that are no JSON.
    httplib::Response& response() { return response_; }

private:
    const httplib::Request& request_;
    httplib::Response& response_;
    const httplib::ContentReader* content_;
    std::optional<Account> account_;
    Id id_ = 0;
};

} // namespace bridge
