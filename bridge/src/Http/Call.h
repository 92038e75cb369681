#pragma once

#include "Http/Fields.h"
#include "Http/ListText.h"
#include "Store/Id.h"

#include <httplib.h>

#include <functional>
#include <string>

namespace bridge {

/// Who may call an operation.
enum class Access
{
    Everybody, ///< without signing in
    SignedIn,
    Business,
    Notary,
    Admin,
};

/// A body as a JSON object; an empty body is an empty object.
/// \throws Problem 400 when it is anything else, or nested deeper than anybody needs
Fields jsonObject(const std::string& body);

/// One request on its way through an operation. It does not know who asks: rights may end while a body comes
/// in, so an account is only ever seen inside the transaction that works with it (see Service).
class Call
{
public:
    using Sink = std::function<void(const char* bytes, std::size_t size)>;

    /// Bytes of a body that is kept as text.
    static constexpr std::size_t largestText = 1 << 20;

    /// \param content  reads the body; null when the method has none
    Call(const httplib::Request& request, httplib::Response& response, const httplib::ContentReader* content);

    /// Who may call the operation, and the number in its path. Set before it runs.
    void setRoute(Access access, Id id);
    Access access() const { return access_; }
    Id id() const { return id_; }

    /// Whether the account behind the request was found to have the access that the operation demands, in a
    /// transaction of the operation's own.
    bool wasAdmitted() const { return wasAdmitted_; }
    void noteAdmission() { wasAdmitted_ = true; }
    void forgetAdmission() { wasAdmitted_ = false; }

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

    /// The bytes that the client announced; 0 when it sends as many as it will.
    long long statedLength() const;

    /// The body as it came.
    /// \param most  bytes
    /// \throws Problem 413 beyond, 400 when the connection broke
    std::string text(std::size_t most = largestText);

    /// \throws Problem as text() and jsonObject()
    Fields json() { return jsonObject(text()); }

    /// Hands the body over as it comes in.
    /// \throws Problem 400 when the connection broke; whatever the sink throws
    void read(const Sink& sink);

    void answer(const nlohmann::json& body, int status = 200);
    void answer(ListText list);

    /// 204 and no body.
    void answerNothing();

    /// For answers that are no JSON.
    httplib::Response& response() { return response_; }

private:
    bool hasBody() const;

    const httplib::Request& request_;
    httplib::Response& response_;
    const httplib::ContentReader* content_;
    Access access_ = Access::Everybody;
    Id id_ = 0;
    bool wasAdmitted_ = false;
};

} // namespace bridge
