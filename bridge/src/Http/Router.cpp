#include "Http/Router.h"

#include "Http/Problem.h"

#include <charconv>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace bridge {

static std::vector<std::string> split(const std::string& path)
{
    std::vector<std::string> pieces;
    std::istringstream stream(path);
    for (std::string piece; std::getline(stream, piece, '/');)
        pieces.push_back(piece);
    if (!path.empty() && path.back() == '/')
        pieces.emplace_back();
    return pieces;
}

static bool readId(const std::string& text, Id& id)
{
    if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos)
        return false;
    return std::from_chars(text.data(), text.data() + text.size(), id).ec == std::errc();
}

static bool matches(const std::vector<std::string>& pattern, const std::vector<std::string>& path, Id& id)
{
    if (pattern.size() != path.size())
        return false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool fits = pattern[i] == "{id}" ? readId(path[i], id) : pattern[i] == path[i];
        if (!fits)
            return false;
    }
    return true;
}

Router::Router(Doorkeeper doorkeeper) : letIn_(std::move(doorkeeper)) { }

void Router::add(const std::string& method, const std::string& path, Access access, Operation operation)
{
    routes_.push_back({method, split(path), access, std::move(operation)});
}

void Router::answerAllOf(httplib::Server& server) const
{
    const std::string everything = R"([\s\S]*)";
    const auto plain = [this](const httplib::Request& request, httplib::Response& response) {
        dispatch(request, response, nullptr);
    };
    const auto withBody
        = [this](const httplib::Request& request, httplib::Response& response,
              const httplib::ContentReader& content) { dispatch(request, response, &content); };
    server.Get(everything, plain).Options(everything, plain);
    server.Post(everything, withBody).Put(everything, withBody);
    server.Patch(everything, withBody).Delete(everything, withBody);
    // What the library refuses by itself has no body yet.
    const httplib::Server::Handler refuse = [](const httplib::Request&, httplib::Response& response) {
        if (response.body.empty())
            response.set_content(R"({"message":"The request could not be read."})", "application/json");
    };
    server.set_error_handler(refuse);
}

// Nothing of an answer that was begun goes out with the one that takes its place.
static void startOver(httplib::Response& response)
{
    httplib::Response fresh;
    fresh.version = response.version;
    fresh.headers = response.headers;
    response = fresh;
}

void Router::dispatch(
    const httplib::Request& request, httplib::Response& response, const httplib::ContentReader* content) const
{
    Call call(request, response, content);
    try {
        Id id = 0;
        const Route* route = find(request.method == "HEAD" ? "GET" : request.method, request.path, id);
        if (!route)
            throw refusal(404, "There is nothing at this address.");
        call.setRoute(route->access, id);
        run(*route, call);
    } catch (const Problem& problem) {
        if (problem.wait())
            response.set_header("Retry-After", std::to_string(problem.wait()->count()));
        call.answer(problem.body(), problem.status());
    } catch (...) {
        // The exception's text may quote what a person sent, so it is not written down.
        std::cerr << "An operation failed unexpectedly: " << printable(request.method + ' ' + request.path)
                  << std::endl;
        startOver(response);
        call.answer({{"message", "Something went wrong on our side. Please try again."}}, 500);
    }
}

const Router::Route* Router::find(const std::string& method, const std::string& path, Id& id) const
{
    const std::vector<std::string> pieces = split(path);
    for (const Route& route : routes_) {
        if (route.method == method && matches(route.pieces, pieces, id))
            return &route;
    }
    return nullptr;
}

void Router::run(const Route& route, Call& call) const
{
    // What only reads is admitted in its one transaction. A change takes a lock, and no stranger waits in
    // line.
    if (route.access != Access::Everybody && route.method != "GET") {
        letIn_(call);
        call.forgetAdmission();
    }
    route.operation(call);
    if (route.access != Access::Everybody && !call.wasAdmitted())
        throw std::logic_error("an operation did not ask who called it");
}

} // namespace bridge
