#include "Bridge.h"

#include "Demo/DemoData.h"
#include "Housekeeper.h"
#include "Operations/Operations.h"
#include "Privacy.h"

#include <fcntl.h>
#include <iostream>
#include <stdexcept>
#include <sys/file.h>

namespace bridge {

// Two servers on one folder would take each other's unfinished uploads for remains.
static Descriptor locked(const std::filesystem::path& data)
{
    std::filesystem::create_directories(data);
    keepForOwner(data);
    Descriptor lock(::open((data / "lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (lock.number() < 0)
        throw std::runtime_error("The data folder cannot be written: " + data.string());
    if (::flock(lock.number(), LOCK_EX | LOCK_NB) != 0)
        throw std::runtime_error("Another server uses the data folder: " + data.string());
    return lock;
}

Bridge::Bridge(const Settings& settings)
    : lock_(locked(settings.data)), service_(settings),
      router_([this](Call& call) { service_.read(call, [](soci::session&, const Account&) {}); }),
      // Clients judge a certificate by the time of day, whatever clock the server is told to follow.
      server_(TlsIdentity(settings.data / "tls", systemTime()))
{
    if (settings.demo)
        fillWithDemoData(service_);
    for (const Routes routes : {authRoutes(), profileRoutes(), sessionRoutes(), documentRoutes(),
             assignmentRoutes(), recordRoutes(), userRoutes(), notaryRoutes(), websiteRoutes()}) {
        for (const Route& route : routes)
            router_.add(route.method, route.path, route.access,
                [this, run = route.operation](Call& call) { run(service_, call); });
    }
    connect();
}

void Bridge::listen()
{
    const Settings& settings = service_.settings;
    port_ = server_.bind(settings.host, settings.port);
    if (port_ == 0)
        throw std::runtime_error(
            "The address " + settings.host + ':' + std::to_string(settings.port) + " cannot be used.");
}

std::string Bridge::address() const
{
    const std::string& host = service_.settings.host;
    const bool isBracketed = host.find(':') != std::string::npos;
    return "https://" + (isBracketed ? '[' + host + ']' : host) + ':' + std::to_string(port_);
}

void Bridge::run()
{
    const Housekeeper housekeeper([this] { tidyUp(service_); }, std::chrono::hours(1));
    server_.serve();
}

void Bridge::stop()
{
    server_.finish();
}

void Bridge::connect()
{
    router_.answerAllOf(server_);
    server_.set_default_headers({{"Cache-Control", "no-store"}, {"X-Content-Type-Options", "nosniff"}});
    if (service_.settings.verbose) {
        server_.set_logger([](const httplib::Request& request, const httplib::Response& response) {
            const std::string line = printable(request.method + ' ' + request.path) + ' '
                + std::to_string(response.status) + '\n';
            std::cerr << line;
        });
    }
}

} // namespace bridge
