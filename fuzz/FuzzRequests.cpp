// What a client may send to the local bridge: any bytes on a connection, in pieces of any size. The first
// byte of the input is the size of the pieces.

#include "Http/MultipartReader.h"
#include "Http/Problem.h"
#include "Http/Router.h"
#include "Net/TlsServer.h"
#include "Operations/Booking.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <unistd.h>

namespace {

void check(bool holds)
{
    if (!holds)
        __builtin_trap();
}

/// A connection whose client has sent everything already and takes every answer.
class Pieces : public bridge::RequestStream
{
public:
    Pieces(std::string_view sent, std::size_t pieceSize) : sent_(sent), pieceSize_(pieceSize) { }

    ssize_t write(const char* bytes, size_t size) override
    {
        answers_.append(bytes, size);
        return static_cast<ssize_t>(size);
    }
    socket_t socket() const override { return -1; }

    const std::string& answers() const { return answers_; }

private:
    std::size_t receive(char* buffer, std::size_t room, SteadyTime) override
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

void addOperations(bridge::Router& router)
{
    using bridge::Access;
    using bridge::Call;
    router.add("GET", "/plain/{id}", Access::Everybody, [](Call& call) {
        call.answer({{"id", call.id()}, {"key", call.query("key")}, {"origin", call.origin()},
            {"token", call.bearerToken()}});
    });
    router.add("POST", "/text", Access::Everybody, [](Call& call) {
        call.answer({{"length", call.text().size()}});
    });
    router.add("POST", "/fields", Access::Everybody, readFields);
    router.add("POST", "/form", Access::Everybody, readForm);
    router.add("POST", "/booking", Access::Everybody, book);
    router.add("DELETE", "/unread", Access::Everybody, [](Call& call) { call.answerNothing(); });
    router.add("GET", "/mine", Access::SignedIn, [](Call& call) { call.answerNothing(); });
}

/// A server as the bridge makes it, without an address.
class Server
{
public:
    Server()
        : router_([](bridge::Call&) { throw bridge::signInNeeded(); }),
          server_(bridge::TlsIdentity(folder_, bridge::systemTime()))
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
    if (size == 0)
        return 0;
    Pieces connection({reinterpret_cast<const char*>(data) + 1, size - 1}, data[0] + std::size_t(1));
    server.serve(connection);
    const std::string& answers = connection.answers();
    check(answers.empty() || answers.rfind("HTTP/1.1 ", 0) == 0);
    // No request reaches what nobody has foreseen.
    check(answers.find("HTTP/1.1 500") == std::string::npos);
    return 0;
}
