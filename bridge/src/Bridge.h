#pragma once

#include "Http/Router.h"
#include "Net/TlsServer.h"
#include "Operations/Service.h"

#include <string>

namespace bridge {

/// The whole server: its data, its operations and its address.
class Bridge
{
public:
    /// Opens the data folder, or makes it; fills it with demo data when that is asked for.
    /// \throws std::exception when the folder is not usable, or another server uses it
    explicit Bridge(const Settings& settings);

    /// Takes the address of the settings. Connections wait from now on.
    /// \throws std::runtime_error when it is not to be had
    void listen();

    /// "https://127.0.0.1:8443", once it listens.
    std::string address() const;
    int port() const { return port_; }

    /// Answers until stop() is called, from any thread. What has arrived whole is answered first; what is
    /// still coming in is cut off.
    void run();
    void stop();

    Service& service() { return service_; }

    /// To add operations to, before run().
    Router& router() { return router_; }

private:
    void connect();

    Descriptor lock_;
    Service service_;
    Router router_;
    TlsServer server_;
    int port_ = 0;
};

} // namespace bridge
