#include "Http/Call.h"

#include "Http/Problem.h"
#include "Net/Peer.h"
#include "Net/RequestHead.h"
#include "Net/TlsServer.h"

#include <algorithm>
#include <charconv>

namespace bridge {

/// Levels of lists and objects in a body; what clients send has three.
static constexpr int mostLevels = 64;

Fields jsonObject(const std::string& body)
{
    if (body.empty())
        return Fields({});
    // Looked at before the value is made: whoever works with it later may do so level by level.
    bool isTooDeep = false;
    using Event = nlohmann::json::parse_event_t;
    const auto watchDepth = [&isTooDeep](int depth, Event event, const nlohmann::json&) {
        const bool isLevel = event == Event::array_start || event == Event::object_start;
        isTooDeep = isTooDeep || (isLevel && depth >= mostLevels);
        return !isTooDeep;
    };
    nlohmann::json value = nlohmann::json::parse(cleaned(body), watchDepth, false);
    if (isTooDeep || !value.is_object())
        throw refusal(400, "The request could not be read.");
    return Fields(std::move(value));
}

Call::Call(
    const httplib::Request& request, httplib::Response& response, const httplib::ContentReader* content)
    : request_(request), response_(response), content_(content)
{ }

void Call::setRoute(Access access, Id id)
{
    access_ = access;
    id_ = id;
}

std::string Call::query(const std::string& name) const
{
    return cleaned(request_.get_param_value(name));
}

std::string Call::header(const std::string& name) const
{
    return request_.get_header_value(name);
}

std::string Call::contentType() const
{
    return header(RequestHead::receivedContentType);
}

std::string Call::bearerToken() const
{
    constexpr std::string_view prefix = "Bearer ";
    const std::string value = header("Authorization");
    return value.compare(0, prefix.size(), prefix) == 0 ? value.substr(prefix.size()) : std::string();
}

std::string Call::peer() const
{
    return peerOf(request_.remote_addr);
}

std::string Call::origin() const
{
    const std::string host = header("Host");
    const bool isPlain = !host.empty() && std::all_of(host.begin(), host.end(), [](unsigned char letter) {
        return std::isalnum(letter) || letter == '.' || letter == ':' || letter == '-' || letter == '['
            || letter == ']';
    });
    return "https://" + (isPlain ? host : "localhost");
}

bool Call::hasBody() const
{
    return content_
        && (request_.has_header("Content-Length") || request_.has_header(RequestHead::receivedInChunks));
}

long long Call::statedLength() const
{
    const std::string text = header("Content-Length");
    long long length = 0;
    std::from_chars(text.data(), text.data() + text.size(), length);
    return length;
}

void Call::read(const Sink& sink)
{
    if (!hasBody())
        return;
    const bool isComplete = (*content_)([&sink](const char* bytes, std::size_t size) {
        sink(bytes, size);
        return true;
    });
    if (!isComplete)
        throw refusal(400, "The request did not arrive whole. Please try again.");
}

std::string Call::text(std::size_t most)
{
    TlsServer::expectText(request_);
    std::string body;
    read([&body, most](const char* bytes, std::size_t size) {
        if (body.size() + size > most)
            throw refusal(413, "That request is too large.");
        body.append(bytes, size);
    });
    return body;
}

void Call::answer(const nlohmann::json& body, int status)
{
    using Json = nlohmann::json;
    response_.status = status;
    // Bytes that are no UTF-8, in a file name for instance, must not fail a whole list.
    response_.set_content(body.dump(-1, ' ', false, Json::error_handler_t::replace), "application/json");
}

// A short list may be compressed, which the library does with texts. A long one is sent from its pieces.
void Call::answer(ListText list)
{
    constexpr const char* type = "application/json";
    list.finish();
    const auto kept = std::make_shared<ListText>(std::move(list));
    response_.status = 200;
    if (const std::string_view first = kept->from(0); first.size() == kept->size()) {
        response_.set_content(first.data(), first.size(), type);
        return;
    }
    response_.set_content_provider(
        kept->size(), type, [kept](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
            const std::string_view part = kept->from(offset).substr(0, length);
            return sink.write(part.data(), part.size());
        });
}

void Call::answerNothing()
{
    response_.status = 204;
}

} // namespace bridge
