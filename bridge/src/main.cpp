#include "Bridge.h"
#include "Demo/DemoData.h"
#include "Options.h"

#include <csignal>
#include <iostream>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

// Serves until SIGTERM or SIGINT, which every thread but the waiting one has blocked.
void serve(bridge::Bridge& server)
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);

    server.listen();
    std::thread waiter([&server, &signals] {
        int signal = 0;
        sigwait(&signals, &signal);
        server.stop();
    });
    std::cout << "Listening on " << server.address() << std::endl;
    server.run();
    // Should it end by itself, there is nothing left to wait for.
    kill(getpid(), SIGTERM);
    waiter.join();
}

} // namespace

int main(int argc, char** argv)
{
    umask(077);
    // Passwords pass through this memory, and no core file may hold them.
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    // The pieces of long answers go back to the system when they were sent, one by one.
    mallopt(M_MMAP_THRESHOLD, 256 << 10);
    // A file that may not grow any more is an error like a full disk, not the end of the server.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        const std::optional<bridge::Settings> settings
            = bridge::parseOptions({argv + std::min(argc, 1), argv + argc});
        if (!settings) {
            std::cout << bridge::usage();
            return 0;
        }
        bridge::Bridge server(*settings);
        if (settings->demo)
            std::cout << bridge::demoAccountList();
        serve(server);
        return 0;
    } catch (const bridge::OptionError& error) {
        std::cerr << error.what() << "\n\n" << bridge::usage();
        return 2;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
