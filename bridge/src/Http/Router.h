#pragma once

#include "Http/Call.h"

#include <functional>
#include <string>
#include <vector>

namespace bridge {

/// Finds the operation for a method and a path, and turns every failure into an answer in JSON. What a
/// failure was in detail never leaves the server.
///
/// Who may not call an operation that changes something is turned away before its body is read, and again by
/// the operation itself, in the transaction that works for it: a body may take long, and what its sender may
/// do can end meanwhile. An operation that forgets to ask answers nobody.
class Router
{
public:
    using Operation = std::function<void(Call&)>;

    /// Lets nobody pass who may not call the operation. \throws Problem
    using Doorkeeper = std::function<void(Call&)>;

    explicit Router(Doorkeeper doorkeeper);

    /// Puts another in the place of the one that the router was made with.
    void setDoorkeeper(Doorkeeper doorkeeper) { letIn_ = std::move(doorkeeper); }

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
    void run(const Route& route, Call& call) const;

    Doorkeeper letIn_;
    std::vector<Route> routes_;
};

} // namespace bridge
