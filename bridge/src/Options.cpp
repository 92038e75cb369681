#include "Options.h"

#include <arpa/inet.h>
#include <charconv>

namespace bridge {

std::string usage()
{
    return "Usage: quorvel-bridge --data DIR [options]\n"
           "\n"
           "  --data DIR                   database, uploaded files and certificates\n"
           "  --listen HOST:PORT           default 127.0.0.1:8443; port 0 picks a free one\n"
           "  --demo                       fill an empty database with people and sessions\n"
           "  --demo-sessions N            and N generated sessions of the demo client\n"
           "  --public-demo                with --demo: on an address that other machines reach\n"
           "  --id-token-lifetime SECONDS  default 3600\n"
           "  --max-upload-mb N            largest upload in MiB, default 4096\n"
           "  --api-key KEY                the only key that the token endpoint accepts\n"
           "  --registrations-per-hour N   accounts that one address may open, default 20\n"
           "  --verbose                    one line per request on the standard error stream\n"
           "  --help                       this text\n";
}

template <typename Number>
static Number number(const std::string& option, const std::string& text, Number least, Number most)
{
    Number value{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || value < least || value > most)
        throw OptionError(option + " needs a number from " + std::to_string(least) + " to "
            + std::to_string(most) + ", not \"" + text + "\".");
    return value;
}

static void readAddress(const std::string& text, Settings& settings)
{
    const auto colon = text.rfind(':');
    if (colon == std::string::npos || colon == 0)
        throw OptionError("--listen needs HOST:PORT, not \"" + text + "\".");
    settings.host = text.substr(0, colon);
    if (settings.host.front() == '[' && settings.host.back() == ']')
        settings.host = settings.host.substr(1, settings.host.size() - 2);
    settings.port = number("--listen", text.substr(colon + 1), 0, 65535);
}

// Whether only this machine reaches the address. What is no plain address may be anything.
static bool isLoopback(const std::string& host)
{
    in_addr v4{};
    in6_addr v6{};
    if (::inet_pton(AF_INET, host.c_str(), &v4) == 1)
        return ntohl(v4.s_addr) >> 24 == IN_LOOPBACKNET;
    if (::inet_pton(AF_INET6, host.c_str(), &v6) == 1)
        return IN6_IS_ADDR_LOOPBACK(&v6);
    return host == "localhost";
}

std::optional<Settings> parseOptions(const std::vector<std::string>& arguments)
{
    constexpr int aYear = 365 * 24 * 60 * 60;
    constexpr std::uint64_t aTebibyte = 1ull << 20; // in MiB
    Settings settings;
    bool isPublicDemo = false;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const std::string& option = *argument;
        const auto value = [&]() -> const std::string& {
            if (++argument == arguments.end())
                throw OptionError(option + " needs a value.");
            return *argument;
        };
        if (option == "--help")
            return std::nullopt;
        if (option == "--data")
            settings.data = value();
        else if (option == "--listen")
            readAddress(value(), settings);
        else if (option == "--demo")
            settings.demo = true;
        else if (option == "--public-demo")
            isPublicDemo = true;
        else if (option == "--demo-sessions")
            settings.demoSessions = number("--demo-sessions", value(), 0, 1'000'000);
        else if (option == "--id-token-lifetime")
            settings.idTokenLifetime = std::chrono::seconds(number("--id-token-lifetime", value(), 1, aYear));
        else if (option == "--max-upload-mb")
            settings.largestUpload = number<std::uint64_t>("--max-upload-mb", value(), 1, aTebibyte) << 20;
        else if (option == "--api-key")
            settings.apiKey = value();
        else if (option == "--registrations-per-hour")
            settings.mostRegistrations = number("--registrations-per-hour", value(), 0, 1'000'000);
        else if (option == "--verbose")
            settings.verbose = true;
        else
            throw OptionError("There is no option \"" + option + "\".");
    }
    if (settings.data.empty())
        throw OptionError("--data DIR is missing.");
    if (settings.demo && !isPublicDemo && !isLoopback(settings.host))
        throw OptionError("Everybody who reaches " + settings.host
            + " could sign in with the demo's published passwords; --public-demo allows that.");
    return settings;
}

} // namespace bridge
