// What a client may send to the local bridge: any bytes on a connection, in pieces of any size, and any flood
// of them. The first byte of the input is the size of the pieces. The second says how often the end of the
// input is repeated, as a power of two, up to a mebibyte in all; the third and fourth where that end begins.
// Whatever is sent, the server holds little memory before an operation has a use for it.

#include "AllocationMeter.h"

#include "Http/MultipartReader.h"
#include "Http/Problem.h"
#include "Http/Router.h"
#include "Net/TlsServer.h"
#include "Operations/Booking.h"
#include "Text.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <unistd.h>

namespace {

constexpr std::size_t longestInput = 1 << 20;
constexpr std::ptrdiff_t mostMemory = 1 << 20;

void check(bool holds)
{
    if (!holds)
        __builtin_trap();
}

/// A connection whose client has sent everything already and takes every answer.
class Pieces : public bridge::RequestStream
{
public:
    Pieces(std::string_view sent, std::size_t pieceSize)
        : RequestStream(std::chrono::steady_clock::now), sent_(sent), pieceSize_(pieceSize)
    { }

    ssize_t write(const char* bytes, size_t size) override
    {
        const AllocationMeter::Pause pause;
        answers_.append(bytes, size);
        return static_cast<ssize_t>(size);
    }
    socket_t socket() const override { return -1; }

    const std::string& answers() const { return answers_; }

private:
    std::size_t receive(char* buffer, std::size_t room, bridge::SteadyMoment) override
    {
        const std::string_view piece = sent_.substr(0, std::min(room, pieceSize_));
        std::copy(piece.begin(), piece.end(), buffer);
        sent_.remove_prefix(piece.size());
        return piece.size();
    }

    std::string_view sent_;
    std::size_t pieceSize_;
    std::string answers_;
};

void readFields(bridge::Call& call)
{
    const bridge::Fields fields = call.json();
    for (const char* key : {"name", "n", "signer_names", "user", "active"}) {
        fields.has(key);
        check(fields.text(key) == bridge::trimmed(fields.untrimmedText(key)));
        fields.number(key);
        fields.flag(key);
        fields.texts(key);
        fields.inner(key).text("name");
    }
    bridge::isEmailAddress(fields.firstText({"name", "n"}));
    call.answer({{"name", fields.text("name")}});
}

void readForm(bridge::Call& call)
{
    int open = 0;
    bridge::MultipartReader reader(call.contentType(),
        {[&open](const bridge::PartHead&) { check(++open == 1); },
            [&open](const char*, std::size_t size) { check(open == 1 && size > 0); },
            [&open] { check(--open == 0); }});
    call.read([&reader](const char* bytes, std::size_t size) { reader.feed(bytes, size); });
    check(!reader.isComplete() || open == 0);
    call.answer({{"complete", reader.isComplete()}});
}

void book(bridge::Call& call)
{
    bridge::Account account;
    account.roleWord = call.query("role");
    const bridge::Session session = bridge::readBooking(call.json(), "{}", account);
    check(!session.contactName.empty() && !session.signers.empty());
    call.answerNothing();
}

/// Nobody is signed in here.
void refuse(bridge::Call&)
{
    throw bridge::signInNeeded();
}

/// An operation may hold what it reads; what is held before it has begun is the server's own.
bridge::Router::Operation unmetered(void (*operation)(bridge::Call&))
{
    return [operation](bridge::Call& call) {
        const AllocationMeter::Pause pause;
        operation(call);
    };
}

void addOperations(bridge::Router& router)
{
    using bridge::Access;
    using bridge::Call;
    const auto add = [&router](const char* method, const char* path, void (*operation)(Call&)) {
        router.add(method, path, Access::Everybody, unmetered(operation));
    };
    add("GET", "/plain/{id}", [](Call& call) {
        call.answer({{"id", call.id()}, {"key", call.query("key")}, {"origin", call.origin()},
            {"token", call.bearerToken()}});
    });
    add("POST", "/text", [](Call& call) { call.answer({{"length", call.text().size()}}); });
    add("POST", "/fields", readFields);
    add("POST", "/form", readForm);
    add("POST", "/booking", book);
    add("DELETE", "/unread", [](Call& call) { call.answerNothing(); });
    router.add("GET", "/mine", Access::SignedIn, refuse);
    router.add("POST", "/mine", Access::SignedIn, refuse);
    router.add("PUT", "/skim", Access::Everybody, [](Call& call) {
        call.read([](const char*, std::size_t) {});
        call.answerNothing();
    });
}

/// A server as the bridge makes it, without an address.
class Server
{
public:
    Server() : router_(refuse), server_(bridge::TlsIdentity(folder_, bridge::systemTime()))
    {
        std::filesystem::remove_all(folder_);
        addOperations(router_);
        router_.answerAllOf(server_);
    }

    void serve(Pieces& connection) { server_.serveAll(connection); }

private:
    const std::filesystem::path folder_
        = std::filesystem::temp_directory_path() / ("fuzzed-bridge-" + std::to_string(::getpid()));
    bridge::Router router_;
    bridge::TlsServer server_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Server server;
    AllocationMeter::install();
    constexpr std::size_t settings = 4;
    if (size <= settings)
        return 0;
    std::string sent(reinterpret_cast<const char*>(data) + settings, size - settings);
    const std::string repeated = sent.substr((data[2] + data[3] * std::size_t(256)) % sent.size());
    for (std::size_t more = (std::size_t(1) << data[1] % 21) - 1;
         more > 0 && sent.size() + repeated.size() <= longestInput; --more)
        sent += repeated;

    Pieces connection(sent, data[0] + std::size_t(1));
    AllocationMeter::begin();
    server.serve(connection);
    AllocationMeter::end();
    check(AllocationMeter::most() <= mostMemory);
    const std::string& answers = connection.answers();
    check(answers.empty() || answers.rfind("HTTP/1.1 ", 0) == 0);
    // No request reaches what nobody has foreseen.
    check(answers.find("HTTP/1.1 500") == std::string::npos);
    return 0;
}
