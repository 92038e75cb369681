#pragma once

#include "Http/Call.h"

#include <functional>
#include <string>
#include <vector>

namespace bridge {

/// Text of a request for a line of a log, which it can neither end nor rewrite: bytes that are no printable
/// ASCII character become "\xNN".
std::string printable(const std::string& text);

/// Who may call an operation.
enum class Access
{
    Everybody, ///< without signing in
    SignedIn,
    Business,
    Notary,
    Admin,
};

/// Finds the operation for a method and a path, lets in whom it admits, and turns every failure into an
/// answer in JSON. What a failure was in detail never leaves the server.
class Router
{
public:
    using Operation = std::function<void(Call&)>;

    /// Whose ID token this is. \throws Problem
    using Authenticator = std::function<Account(const std::string& idToken)>;

    explicit Router(Authenticator authenticator);

    /// \param path  literal pieces, and at most one "{id}" for a number
    void add(const std::string& method, const std::string& path, Access access, Operation operation);

    /// Answers every request of the server, which must not outlive this object.
    void answerAllOf(httplib::Server& server) const;

    /// Answers a request, whatever happens.
    void dispatch(const httplib::Request& request, httplib::Response& response,
        const httplib::ContentReader* content) const;

private:
    struct Route
    {
        std::string method;
        std::vector<std::string> pieces;
        Access access;
        Operation operation;
    };

    const Route* find(const std::string& method, const std::string& path, Id& id) const;
    void admit(const Route& route, Call& call) const;

    Authenticator authenticate_;
    std::vector<Route> routes_;
};

} // namespace bridge
