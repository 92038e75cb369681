#include "Http/Router.h"

#include "Http/Problem.h"

#include <charconv>
#include <iostream>
#include <sstream>

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

std::string printable(const std::string& text)
{
    static constexpr const char* digits = "0123456789abcdef";
    std::string shown;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte >= 0x20 && byte < 0x7f)
            shown += character;
        else
            shown += std::string("\\x") + digits[byte >> 4] + digits[byte & 15];
    }
    return shown;
}

Router::Router(Authenticator authenticator) : authenticate_(std::move(authenticator)) { }

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

void Router::dispatch(
    const httplib::Request& request, httplib::Response& response, const httplib::ContentReader* content) const
{
    Call call(request, response, content);
    try {
        Id id = 0;
        const Route* route = find(request.method == "HEAD" ? "GET" : request.method, request.path, id);
        if (!route)
            throw refusal(404, "There is nothing at this address.");
        call.setId(id);
        admit(*route, call);
        route->operation(call);
    } catch (const Problem& problem) {
        call.answer(problem.body(), problem.status());
    } catch (...) {
        // The exception's text may quote what a person sent, so it is not written down.
        std::cerr << "An operation failed unexpectedly: " << printable(request.method + ' ' + request.path)
                  << std::endl;
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

void Router::admit(const Route& route, Call& call) const
{
    if (route.access == Access::Everybody)
        return;
    call.setAccount(authenticate_(call.bearerToken()));
    const Account& account = call.account();
    const bool isAdmitted = route.access == Access::SignedIn
        || (route.access == Access::Business && account.isBusiness())
        || (route.access == Access::Notary && account.isNotary())
        || (route.access == Access::Admin && account.isAdmin());
    if (!isAdmitted)
        throw forbidden();
}

} // namespace bridge
